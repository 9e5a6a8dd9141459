// What a member can't take is told by modifier, member and reason, at its place in the job; nothing is drawn of such a
// job.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "lib/Drawing.h"
#include "lib/JobReader.h"
#include "lib/Session.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ModifierRefusal : public testing::Test {
 protected:
  void SetUp() override {
    session_ = kr::Session::start(KR_INSTALL_FOLDER, report_);
    ASSERT_NE(session_, nullptr);
  }

  /// The problems of a job of two tubes 100 wide and 3000 long, of which the second is to take the modifiers.
  std::vector<std::string> problemsOf(const std::string& modifiers) {
    const std::string text = R"({"kr": 1,
 "profiles": {"t": {"class": "KrTubo", "Diametro": 100, "Espessura": 5}},
 "members": [{"name": "whole", "profile": "t", "from": [0, 900], "to": [3000, 900]},
             {"name": "M7", "profile": "t", "from": [0, 0], "to": [3000, 0], )" +
                             modifiers + "}]}";
    kr::Job job;
    std::vector<kr::Problem> problems;
    std::string why;
    std::vector<AcDbObjectId> ids;
    const bool drawn =
        kr::drawJob(text, kr::knownNames(KR_INSTALL_FOLDER), job, *session_->database(), ids, problems, why);
    EXPECT_EQ(drawn, problems.empty());
    EXPECT_EQ(ids.size(), drawn ? 2U : 0U);
    std::vector<std::string> lines;
    for (const kr::Problem& problem : problems) {
      EXPECT_EQ(problem.line, 4U) << "of the member's line in the job";
      lines.push_back(problem.path + " " + problem.message);
    }
    return lines;
  }

  kr::Report report_;
  std::unique_ptr<kr::Session> session_;
};

TEST_F(ModifierRefusal, NamesAHoleThatMissesTheSectionOrTheBar) {
  EXPECT_THAT(problemsOf(R"("holes": [{"at": [500, 0], "diameter": 18}])"), IsEmpty());
  EXPECT_THAT(problemsOf(R"("holes": [{"at": [500, 0], "diameter": 18}, {"at": [500, 80], "diameter": 18}])"),
              ElementsAre("/members/1/holes/1 member M7: the hole meets no wall of the section"));
  EXPECT_THAT(problemsOf(R"("holes": [{"at": [3100, 0], "diameter": 18}])"),
              ElementsAre("/members/1/holes/0 member M7: the hole lies past the bar, which runs from 0 to 3000 mm"));
}

TEST_F(ModifierRefusal, NamesACutThatPassesTheBarOrSaysNoSide) {
  EXPECT_THAT(problemsOf(R"("cuts": [{"line": [[2900, -90], [2900, 90]], "side": [2950, 0]}, )"
                         R"({"line": [[3100, -90], [3100, 90]], "side": [3200, 0]}])"),
              ElementsAre("/members/1/cuts/1 member M7: the line passes the bar, which runs from 0 to 2900 mm"));
  EXPECT_THAT(problemsOf(R"("cuts": [{"line": [[2900, -90], [2900, 90]], "side": [2900, 30]}])"),
              ElementsAre("/members/1/cuts/0 member M7: the point of the side lies on the line: it must say which side "
                          "goes"));
  EXPECT_THAT(problemsOf(R"("cuts": [{"line": [[0, 10], [3000, 10]], "side": [0, 40]}])"),
              ElementsAre("/members/1/cuts/0 member M7: the line runs along the bar and crosses neither of its edges"));
}

TEST_F(ModifierRefusal, NamesANotchThatSplitsTheBarOrSaysNoSide) {
  EXPECT_THAT(
      problemsOf(R"("notches": [{"points": [[900, -80], [1000, -80], [1000, 80], [900, 80]], "side": [950, 0]}])"),
      ElementsAre(
          "/members/1/notches/0 member M7: the notch would split the bar, open a window in it or change its width"));
  EXPECT_THAT(
      problemsOf(R"("notches": [{"points": [[900, 20], [1000, 20], [1000, 80], [900, 80]], "side": [900, 40]}])"),
      ElementsAre("/members/1/notches/0 member M7: the point of the side lies on the notch's line: it must say "
                  "which side goes"));
}

TEST_F(ModifierRefusal, NamesANotchThatOpensAWindow) {
  EXPECT_THAT(
      problemsOf(R"("notches": [{"points": [[900, -20], [1000, -20], [1000, 20], [900, 20]], "side": [950, 0]}])"),
      ElementsAre(HasSubstr("open a window in it")));
}

TEST_F(ModifierRefusal, LetsALimitLieOnTheEndOfTheBar) {
  EXPECT_THAT(problemsOf(R"("limits": {"from": 500, "to": 3000})"), IsEmpty());
  EXPECT_THAT(problemsOf(R"("cuts": [{"line": [[100, -90], [100, 90]], "side": [50, 0]}], "limits": {"from": 100})"),
              IsEmpty());
  EXPECT_THAT(problemsOf(R"("limits": {"to": 3000.01})"), ElementsAre(HasSubstr("the limit at 3000.01 mm lies past")));
  EXPECT_THAT(problemsOf(R"("limits": {"from": 3000})"), ElementsAre(HasSubstr("the limit at 3000 mm lies past")))
      << "nothing would be left to show";
}

TEST_F(ModifierRefusal, NamesASplitOrALimitPastTheBar) {
  EXPECT_THAT(problemsOf(R"("splits": [{"at": 2999, "gap": 10}])"),
              ElementsAre("/members/1/splits/0 member M7: the gap reaches past the bar, which runs from 0 to 3000 mm"));
  EXPECT_THAT(problemsOf(R"("limits": {"from": 500, "to": 3500})"),
              ElementsAre("/members/1/limits member M7: the limit at 3500 mm lies past the bar, which runs from 0 to "
                          "3000 mm"));
}

TEST_F(ModifierRefusal, TellsAllOfAMember) {
  EXPECT_THAT(problemsOf(R"("holes": [{"at": [3100, 0], "diameter": 18}], "splits": [{"at": 2999, "gap": 10}])"),
              ElementsAre(HasSubstr("/members/1/holes/0 member M7: "), HasSubstr("/members/1/splits/0 member M7: ")));
}

}  // namespace
