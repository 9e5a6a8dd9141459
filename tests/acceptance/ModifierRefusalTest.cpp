#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunProgram.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;

TEST(Program, EndsWithCode3AndNamesEachModifierThatAMemberCannotTake) {
  const TestFolder folder;
  const std::string job = folder.write("bad.json", R"({"kr": 1,
 "profiles": {"t": {"class": "KrTubo", "Diametro": 100, "Espessura": 5}},
 "members": [{"name": "B4", "profile": "t", "from": [0, 0], "to": [3000, 0],
  "cuts": [{"line": [[3100, -90], [3100, 90]], "side": [3200, 0]}],
  "holes": [{"at": [500, 0], "diameter": 18},
            {"at": [500, 80], "diameter": 18}]}]})");
  const Outcome run = runShell("kr build '" + job + "' '" + folder.path("out.pdf") + "'");
  EXPECT_EQ(run.code, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err,
              AllOf(HasSubstr("bad.json:4:"), HasSubstr("/members/0/cuts/0: member B4: the line passes the bar"),
                    HasSubstr("bad.json:6:"),
                    HasSubstr("/members/0/holes/1: member B4: the hole meets no wall of the section")));
  EXPECT_EQ(folder.count(), 1U) << "nothing but the job";
}

}  // namespace
