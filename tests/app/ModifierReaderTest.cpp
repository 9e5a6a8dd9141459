#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <vector>

#include "lib/JobReader.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

// A job of one tube, 3000 long, with a piece of JSON among its keys.
std::string jobWith(const std::string& modifiers, const std::string& more = "") {
  return R"({"kr": 1, "profiles": {"t": {"class": "KrTubo", "Diametro": 100, "Espessura": 5}},
 "members": [{"name": "M", "profile": "t", "from": [0, 0], "to": [3000, 0])" +
         (modifiers.empty() ? "" : ", " + modifiers) + "}]" + more + "}";
}

kr::Job good(const std::string& text) {
  kr::Job job;
  std::vector<kr::Problem> problems;
  kr::readJob(text, {}, job, problems);
  for (const kr::Problem& problem : problems) ADD_FAILURE() << kr::describe("job", problem);
  return job;
}

std::vector<std::string> problemsOf(const std::string& text) {
  kr::Job job;
  std::vector<kr::Problem> problems;
  EXPECT_FALSE(kr::readJob(text, {}, job, problems));
  std::vector<std::string> lines;
  for (const kr::Problem& problem : problems) lines.push_back(problem.path + " " + problem.message);
  return lines;
}

TEST(ModifierReader, AMemberWithoutAnyHasNone) {
  const kr::Job job = good(jobWith(""));
  EXPECT_THAT(job.modifiers, IsEmpty());
  EXPECT_EQ(job.members[0].modifiers, kr::kNone);
}

TEST(ModifierReader, ReadsAHoleWithAllItsKeys) {
  const kr::Job job = good(jobWith(
      R"("holes": [{"view": "Direita", "at": [200, 40], "diameter": 18, "slot": 12, "angle": 30, "walls": 0}])"));
  ASSERT_THAT(job.modifiers, SizeIs(1));
  ASSERT_THAT(job.modifiers[0].holes, SizeIs(1));
  const kr::JobHole& hole = job.modifiers[0].holes[0];
  EXPECT_EQ(hole.view, 4);
  EXPECT_EQ(hole.at.x, 200);
  EXPECT_EQ(hole.at.y, 40);
  EXPECT_EQ(hole.diameter, 18);
  EXPECT_EQ(hole.slot, 12);
  EXPECT_DOUBLE_EQ(hole.angle, std::numbers::pi / 6);
  EXPECT_EQ(hole.walls, -1) << "0 stands for all of them";
}

TEST(ModifierReader, AHoleIsDrilledFromAboveThroughOneWallUnlessToldOtherwise) {
  const kr::Job job = good(jobWith(R"("holes": [{"at": [1, 2], "diameter": 3}])"));
  EXPECT_EQ(job.modifiers[0].holes[0].view, 1);
  EXPECT_EQ(job.modifiers[0].holes[0].walls, 1);
}

TEST(ModifierReader, ReadsCutsNotchesSplitsLimitsAndScales) {
  const kr::Job job = good(jobWith(R"("cuts": [{"line": [[0, -1], [80, 2]], "side": [0, 50]}],
    "notches": [{"view": "Inferior", "points": [[0, 0], [10, 0, 0.5], [10, 10]], "side": [5, 1]},
                {"points": [[0, 0], [10, 0]], "open": true, "side": [5, 1]}],
    "splits": [{"at": 1500, "gap": 200}], "limits": {"from": 500, "to": 2500, "symbol": 2},
    "scale": "1:10", "scaleAlong": "1:50")"));
  const kr::JobModifiers& done = job.modifiers.at(0);
  ASSERT_THAT(done.cuts, SizeIs(1));
  EXPECT_EQ(done.cuts[0].line[1].x, 80);
  EXPECT_EQ(done.cuts[0].side.y, 50);
  ASSERT_THAT(done.notches, SizeIs(2));
  EXPECT_EQ(done.notches[0].view, 2);
  EXPECT_EQ(done.notches[0].points[1].bulge, 0.5);
  EXPECT_FALSE(done.notches[0].open);
  EXPECT_TRUE(done.notches[1].open);
  EXPECT_EQ(done.splits.at(0).gap, 200);
  EXPECT_TRUE(done.limited);
  EXPECT_EQ(done.limitFrom, 500);
  EXPECT_EQ(done.limitTo, 2500);
  EXPECT_EQ(done.limitSymbol, 2);
  EXPECT_DOUBLE_EQ(done.scale, 0.1);
  EXPECT_DOUBLE_EQ(done.scaleAlong, 0.02);
}

TEST(ModifierReader, TellsWhatIsWrongWithAModifierAndWhereItStands) {
  EXPECT_THAT(problemsOf(jobWith(R"("holes": [{"at": [0, 0], "diameter": 0}])")),
              ElementsAre(HasSubstr("/members/0/holes/0/diameter must be greater than 0")));
  EXPECT_THAT(problemsOf(jobWith(R"("holes": [{"diameter": 5}])")),
              ElementsAre(HasSubstr("/members/0/holes/0 missing \"at\"")));
  EXPECT_THAT(problemsOf(jobWith(R"("holes": [{"at": [0, 0], "along": 5, "diameter": 5}])")),
              ElementsAre(HasSubstr("/members/0/holes/0 \"along\" and \"direction\"")));
  EXPECT_THAT(problemsOf(jobWith(R"("cuts": [{"line": [[0, 0]], "side": [0, 0]}])")),
              ElementsAre(HasSubstr("/members/0/cuts/0 the line of a cut has two points, found 1")));
  EXPECT_THAT(problemsOf(jobWith(R"("cuts": [{"line": [[1, 1], [1, 1]], "side": [0, 0]}])")),
              ElementsAre(HasSubstr("/members/0/cuts/0 the two points")));
  EXPECT_THAT(problemsOf(jobWith(R"("notches": [{"points": [[0, 0], [1, 0]], "side": [0, 0]}])")),
              ElementsAre(HasSubstr("/members/0/notches/0 a notch has from 3 to 1000 points, found 2")));
  EXPECT_THAT(problemsOf(jobWith(R"("notches": [{"points": [[0, 0], [1, 0], [0, 0]], "side": [0, 0]}])")),
              ElementsAre(HasSubstr("/members/0/notches/0 point 2 of the notch and the next are one")));
  EXPECT_THAT(problemsOf(jobWith(R"("notches": [{"points": [[0, 0], [1, 0, 2], [0, 1]], "side": [0, 0]}])")),
              ElementsAre(testing::_, HasSubstr("/members/0/notches/0/points/1/2 must be from -1 to 1")));
  EXPECT_THAT(problemsOf(jobWith(R"("limits": {"from": 500, "to": 400})")),
              ElementsAre("/members/0/limits member M: \"from\" must be less than \"to\""));
  EXPECT_THAT(problemsOf(jobWith(R"("splits": [{"at": 5, "gap": 1e999}])")),
              ElementsAre(HasSubstr("/members/0/splits/0/gap the number is too great")));
}

TEST(ModifierReader, AViewShowsEitherALookOrABar) {
  const kr::Job job = good(jobWith("", R"(, "sheets": [{"views": [{"bar": "M", "show": ["Secao", "Direita"]}]}])"));
  const kr::JobView& view = job.sheets.at(0).views.at(0);
  EXPECT_EQ(view.bar, 0U);
  EXPECT_THAT(view.show, ElementsAre(0, 4));
  EXPECT_THAT(problemsOf(jobWith("", R"(, "sheets": [{"views": [{"title": "x"}]}])")),
              ElementsAre(HasSubstr("missing \"look\" or \"bar\"")));
  EXPECT_THAT(problemsOf(jobWith("", R"(, "sheets": [{"views": [{"bar": "M", "look": "plan"}]}])")),
              ElementsAre(HasSubstr("a view has either a \"look\" or a \"bar\"")));
  EXPECT_THAT(problemsOf(jobWith("", R"(, "sheets": [{"views": [{"bar": "N"}]}])")),
              ElementsAre(HasSubstr("/sheets/0/views/0/bar unknown member \"N\"")));
  EXPECT_THAT(problemsOf(jobWith("", R"(, "sheets": [{"views": [{"look": "plan", "show": ["Secao"]}]}])")),
              ElementsAre(HasSubstr("\"show\" is of a view of a \"bar\"")));
}

}  // namespace
