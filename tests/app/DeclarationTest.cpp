#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "lib/Declaration.h"
#include "lib/Documents.h"
#include "lib/Number.h"
#include "lib/Scale.h"
#include "lib/Suggest.h"

namespace {

std::string contentsOf(const std::string& path) {
  std::ifstream file(std::string(KR_SOURCE_DIR "/") + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<kr::OptionDeclaration> optionsOf(const kr::VerbDeclaration& verb) {
  std::vector<kr::OptionDeclaration> options(verb.options.begin(), verb.options.end());
  options.insert(options.end(), kr::commonOptions().begin(), kr::commonOptions().end());
  return options;
}

TEST(Declaration, NoVerbGivesAReservedNameAnotherMeaning) {
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    for (const kr::OptionDeclaration& option : optionsOf(verb)) {
      for (const kr::ReservedOption& reserved : kr::reservedOptions()) {
        if (option.name == reserved.name) {
          EXPECT_EQ(option.letter, reserved.letter) << verb.name << " " << option.name;
          EXPECT_EQ(!option.value.empty(), reserved.takesValue) << verb.name << " " << option.name;
        } else if (option.letter != '\0') {
          EXPECT_NE(option.letter, reserved.letter) << verb.name << " " << option.name;
        }
      }
    }
  }
}

TEST(Declaration, NamesAreLowerCaseWithDashesAndStandOnceInAVerb) {
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    std::set<std::string_view> names;
    std::set<char> letters;
    for (const kr::OptionDeclaration& option : optionsOf(verb)) {
      EXPECT_THAT(std::string(option.name), testing::MatchesRegex("--[a-z][a-z-]*"));
      EXPECT_TRUE(names.insert(option.name).second) << verb.name << " " << option.name;
      if (option.letter == '\0') continue;
      EXPECT_TRUE(letters.insert(option.letter).second) << verb.name << " " << option.letter;
    }
  }
}

TEST(Declaration, EveryVerbThatReportsHasJsonAndAPublishedSchema) {
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    bool json = false;
    for (const kr::OptionDeclaration& option : verb.options) json = json || option.name == "--json";
    EXPECT_EQ(json, !verb.schema.empty()) << verb.name;
    if (!json) continue;
    EXPECT_FALSE(contentsOf("data/schemas/" + std::string(verb.schema)).empty()) << verb.name;
  }
}

TEST(Declaration, OptionalArgumentsStandLast) {
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    bool optional = false;
    for (const kr::ArgumentDeclaration& argument : verb.arguments) {
      EXPECT_FALSE(optional && argument.required) << verb.name;
      optional = optional || !argument.required;
    }
  }
}

TEST(Documents, TheReferenceIsUpToDate) {
  EXPECT_EQ(contentsOf("docs/reference.md"), kr::referenceDocument());
}

TEST(Documents, TheCompletionIsUpToDate) {
  EXPECT_EQ(contentsOf("apps/kr/completion/kr.bash"), kr::completionScript());
}

TEST(Documents, TheManualPagesAreUpToDate) {
  EXPECT_EQ(contentsOf("docs/man/kr.1"), kr::manualPage());
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    if (verb.hidden) continue;
    EXPECT_EQ(contentsOf("docs/man/kr-" + std::string(verb.name) + ".1"), kr::manualPage(verb)) << verb.name;
  }
}

TEST(Documents, HelpNamesEveryOptionAndFitsATerminal) {
  for (const kr::VerbDeclaration& verb : kr::verbs()) {
    const std::string help = kr::helpText(verb);
    for (const kr::OptionDeclaration& option : verb.options) {
      EXPECT_THAT(help, testing::HasSubstr(std::string(option.name))) << verb.name;
    }
    std::size_t begin = 0;
    for (std::size_t end = help.find('\n'); end != std::string::npos; end = help.find('\n', begin)) {
      EXPECT_LE(end - begin, 80U) << help.substr(begin, end - begin);
      begin = end + 1;
    }
  }
}

TEST(Suggest, CountsInsertionsRemovalsChangesAndSwaps) {
  EXPECT_EQ(kr::editDistance("chord", "chord", 9), 0U);
  EXPECT_EQ(kr::editDistance("chord", "chrod", 9), 1U);
  EXPECT_EQ(kr::editDistance("chord", "cord", 9), 1U);
  EXPECT_EQ(kr::editDistance("kitten", "sitting", 9), 3U);
  EXPECT_EQ(kr::editDistance("abc", "xyz", 1), 2U);
}

TEST(Suggest, NamesNothingThatIsFar) {
  constexpr std::string_view kWords[] = {"from", "to"};
  EXPECT_EQ(kr::nearest("profile", kWords), "");
  EXPECT_EQ(kr::nearest("form", kWords), "from");
}

TEST(Number, IsWrittenWithAPointAndNeverAsMinusZero) {
  EXPECT_EQ(kr::shortest(0.1), "0.1");
  EXPECT_EQ(kr::fixed(2.345, 2), "2.35");  // 2.345 is held as a little more
  EXPECT_EQ(kr::fixed(-0.001, 2), "0.00");
  EXPECT_EQ(kr::fixed(-1.5, 1), "-1.5");
}

TEST(Scale, IsWrittenAsPaperToReal) {
  EXPECT_EQ(kr::scaleText(0.02), "1:50");
  EXPECT_EQ(kr::scaleText(1.0 / 33.3), "1:33.3");
  EXPECT_EQ(kr::scaleText(2), "2:1");
}

TEST(Scale, OfTheLargestStandardStepThatFits) {
  EXPECT_DOUBLE_EQ(kr::fittingScale(24000, 480), 1.0 / 50);
  EXPECT_DOUBLE_EQ(kr::fittingScale(24000, 479), 1.0 / 100);
  EXPECT_DOUBLE_EQ(kr::fittingScale(24000, 960), 1.0 / 25);
  EXPECT_DOUBLE_EQ(kr::fittingScale(90, 100), 1);
}

}  // namespace
