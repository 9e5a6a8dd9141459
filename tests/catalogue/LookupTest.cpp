#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lib/Catalogue.h"
#include "lib/CatalogueProfile.h"
#include "lib/CatalogueShelf.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using C = kr::CatalogueColumn;

class Tables : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    shared_ = new kr::Catalogue;
    ASSERT_TRUE(shared_->addFolder(KR_SOURCE_DIR "/data/catalogue"));
  }
  static void TearDownTestSuite() { delete shared_; }

  // "eu_ipe:IPE 200" of what a designation stands for.
  static std::string found(std::string_view designation) {
    const kr::CatalogueMatch match = shared_->find(designation);
    if (match.row == nullptr) return "nothing";
    if (match.other != nullptr) return "two";
    return shared_->tableOf(*match.row).name + ":" + std::string(match.row->designation);
  }

  static kr::Catalogue* shared_;
};
kr::Catalogue* Tables::shared_ = nullptr;

TEST_F(Tables, AreAllThere) {
  EXPECT_EQ(shared_->tables().size(), 30U);
  EXPECT_GT(shared_->rows().size(), 3000U);
  EXPECT_TRUE(shared_->problems().empty());
}

TEST_F(Tables, AreFoundByDesignationWhateverItsBlanksCaseAndSigns) {
  EXPECT_EQ(found("IPE 200"), "eu_ipe:IPE 200");
  EXPECT_EQ(found("ipe200"), "eu_ipe:IPE 200");
  EXPECT_EQ(found("L 76x76x6.4"), "us_l:L76X76X6.4");
  EXPECT_EQ(found("L 100\u00D7100\u00D710"), "eu_l_equal:L 100x100x10");
  EXPECT_EQ(found("UPN 160"), "eu_upn:UPN 160");
  EXPECT_EQ(found("CHS 114,3 X 5"), "eu_chs:CHS 114.3x5");
  EXPECT_EQ(found("W44X408"), "us_w:W1100X607");
  EXPECT_EQ(found("IPE 205"), "nothing");
  EXPECT_EQ(found(""), "nothing");
}

TEST_F(Tables, TellRowsOfOneNameApartByTheirSpelling) {
  EXPECT_EQ(found("W250X44.8"), "us_w:W250X44.8");
  EXPECT_EQ(found("W250x44.8"), "us_w:W250X44.8");
  EXPECT_EQ(found("W 250 x 44.8"), "br_w_hp:W 250 x 44.8");
  EXPECT_EQ(found("br_w_hp:W250X44.8"), "br_w_hp:W 250 x 44.8");
  EXPECT_EQ(found("eu_ipe:W250X44.8"), "nothing");
}

TEST_F(Tables, FindEveryRowByItsOwnNames) {
  for (const kr::CatalogueRow& row : shared_->rows()) {
    const kr::CatalogueMatch match = shared_->find(row.designation);
    EXPECT_EQ(match.row, &row) << row.designation;
    EXPECT_EQ(match.other, nullptr) << row.designation;
    if (row.second.empty()) continue;
    EXPECT_NE(shared_->find(row.second).row, nullptr) << row.second;
  }
}

TEST_F(Tables, SuggestWhatIsNear) {
  EXPECT_THAT(shared_->nearest("IPE 2200", 1), ElementsAre("IPE 200"));
  EXPECT_EQ(shared_->suggestion("UPN 16"), "did you mean \"UPN 160\"?");
  EXPECT_THAT(shared_->suggestion("quite something else"), HasSubstr("kr catalogue search"));
}

TEST_F(Tables, AreSearchedByEveryWord) {
  EXPECT_EQ(shared_->search("ipe").size(), 58U);
  EXPECT_EQ(shared_->search("HSS round").size(), 189U);
  EXPECT_TRUE(shared_->search("ipe upn").empty());
  EXPECT_EQ(shared_->search("eu_upn").size(), 18U);
}

TEST_F(Tables, GiveSectionsThroughout) {
  for (const kr::CatalogueRow& row : shared_->rows()) {
    std::string why;
    EXPECT_TRUE(givesSection(*shared_, row, why)) << row.designation << ": " << why;
  }
}

TEST_F(Tables, GiveAParallelFlangeItsStandardsShape) {
  const kr::CatalogueProfile profile = profileOf(*shared_, *shared_->find("IPE 200").row);
  EXPECT_EQ(profile.profileClass->name, "KrILaminadoUSA");
  const auto value = [&](std::string_view key) { return profile.given.values[profile.profileClass->positionOf(key)]; };
  EXPECT_EQ(value("Altura"), 200);
  EXPECT_EQ(value("Largura"), 100);
  EXPECT_EQ(value("Espessura"), 5.6);
  EXPECT_DOUBLE_EQ(value("DeslocF"), 8.5 + 12);
  EXPECT_EQ(value("RaioDobra"), 12);
  EXPECT_EQ(value("Raio1"), 0);
  EXPECT_EQ(value("Inclinacao"), 0);
  EXPECT_EQ(value("Area"), 2850);
  EXPECT_EQ(value("KgMetro"), 22.4);
}

TEST_F(Tables, GiveACompoundTwiceTheAreaOfItsHalf) {
  const kr::CatalogueProfile single = profileOf(*shared_, *shared_->find("L 100x100x10").row);
  kr::CatalogueProfile pair;
  ASSERT_TRUE(compoundOf(single, *kr::profileClass("KrCantTEELaminada"), pair));
  const auto value = [&](std::string_view key) { return pair.given.values[pair.profileClass->positionOf(key)]; };
  EXPECT_EQ(value("Altura"), 100);
  EXPECT_EQ(value("Area"), 2 * 1920);
  EXPECT_EQ(value("KgMetro"), 2 * 15);
  EXPECT_FALSE(compoundOf(single, *kr::profileClass("KrUULaminado"), pair));
}

// Texts of tables, and the problems that they must tell.

constexpr const char* kHead = "# series: mine\n# shape: tube\ndesignation,D,t\n";

std::vector<std::string> problemsOf(const std::string& text) {
  kr::Catalogue catalogue;
  catalogue.addText("my.csv", text);
  std::vector<std::string> told;
  for (const kr::CatalogueProblem& problem : catalogue.problems()) told.push_back(describe(problem));
  return told;
}

TEST(OwnTable, IsUsedWithItsSeriesAndStandard) {
  kr::Catalogue catalogue;
  catalogue.addText(
      "folder/my.csv",
      "\xEF\xBB\xBF# series: my own,,\r\n# shape: tube,,\r\n\r\ndesignation,D,t\r\n\"T, \"\"1\"\"\",50,2.5\r\n");
  ASSERT_EQ(catalogue.tables().size(), 1U);
  EXPECT_EQ(catalogue.tables()[0].series, "my own");
  EXPECT_EQ(catalogue.tables()[0].name, "my");
  ASSERT_EQ(catalogue.rows().size(), 1U);
  EXPECT_EQ(catalogue.rows()[0].designation, "T, \"1\"");
  EXPECT_EQ(catalogue.value(catalogue.rows()[0], C::kT), 2.5);
  EXPECT_EQ(catalogue.value(catalogue.rows()[0], C::kArea), 0);
  EXPECT_TRUE(catalogue.problems().empty());
}

TEST(OwnTable, LosesBadRowsWithTheirPlacesAndKeepsTheRest) {
  kr::Catalogue catalogue;
  catalogue.addText("my.csv", std::string(kHead) +
                                  "T1,50,2\n"
                                  "T2,5o,2\n"
                                  "T3,50\n"
                                  "T4,50,-2\n"
                                  "T5,50,2,7\n"
                                  ",50,2\n"
                                  "T6, ,2\n"
                                  "T1,60,2\n"
                                  "T7,1e999,2\n"
                                  "T8,50,2\n");
  std::vector<std::string> told;
  for (const kr::CatalogueProblem& problem : catalogue.problems()) told.push_back(describe(problem));
  EXPECT_THAT(told, ElementsAre("my.csv:5:4: not a number: \"5o\" as D; the row isn't used",
                                "my.csv:6:6: 2 cells for 3 columns; the row isn't used",
                                "my.csv:7:7: t must be greater than 0 and at most 1e9, not -2; the row isn't used",
                                "my.csv:8:9: more cells than columns; the row isn't used",
                                "my.csv:9:1: no designation given; the row isn't used",
                                "my.csv:10:4: no D given; the row isn't used",
                                "my.csv:11:1: \"T1\" stands in line 4 already; the row isn't used",
                                "my.csv:12:4: not a number: \"1e999\" as D; the row isn't used"));
  ASSERT_EQ(catalogue.rows().size(), 2U);
  EXPECT_EQ(catalogue.value(*catalogue.find("T1").row, C::kD), 50);
  EXPECT_EQ(catalogue.value(*catalogue.find("T8").row, C::kT), 2);
}

TEST(OwnTable, TellsAnUnknownColumnAndDoesWithout) {
  EXPECT_THAT(problemsOf("# shape: tube\ndesignation,D,t,colour\nT1,50,2,red\n"),
              ElementsAre(HasSubstr("my.csv:2:17: unknown column \"colour\", which isn't used")));
}

TEST(OwnTable, IsntUsedWithoutItsShapeOrAColumn) {
  EXPECT_THAT(problemsOf("designation,D,t\nT1,50,2\n"),
              ElementsAre(HasSubstr("my.csv:1:1: the table doesn't tell its shape")));
  EXPECT_THAT(problemsOf("# shape: tubes\ndesignation,D,t\n"),
              ElementsAre(HasSubstr("my.csv:1:10: unknown shape \"tubes\": did you mean \"tube\"?")));
  EXPECT_THAT(problemsOf("# shape: tube\ndesignation,D\nT1,50\n"),
              ElementsAre(HasSubstr("my.csv:2:1: a table of shape \"tube\" must have the columns \"t\"")));
  EXPECT_THAT(problemsOf(""), ElementsAre(HasSubstr("no row of names")));
  EXPECT_THAT(problemsOf(kHead), ElementsAre(HasSubstr("the table has no row that can be used")));
}

TEST(OwnTable, WithADesignationOfAnotherIsToldAndMustBeNamed) {
  kr::Catalogue catalogue;
  catalogue.addText("a.csv", std::string(kHead) + "T1,50,2\n");
  catalogue.addText("b.csv", std::string(kHead) + "T0,40,2\nT1,60,2\n");
  ASSERT_EQ(catalogue.problems().size(), 1U);
  EXPECT_EQ(describe(catalogue.problems()[0]),
            "b.csv:5:1: \"T1\" stands in \"a.csv\" too, line 4: name the table, \"b:T1\"");
  EXPECT_NE(catalogue.find("T1").other, nullptr);
  EXPECT_EQ(catalogue.value(*catalogue.find("b:T1").row, C::kD), 60);
  EXPECT_EQ(catalogue.value(*catalogue.find("a: t1").row, C::kD), 50);
}

TEST(OwnTable, MayRepeatNoNameOfItsOwnThatAnotherHasToo) {
  kr::Catalogue catalogue;
  catalogue.addText("a.csv", std::string(kHead) + "T1,50,2\n");
  catalogue.addText("b.csv", std::string(kHead) + "T1,60,2\nT1,70,2\n");
  ASSERT_EQ(catalogue.problems().size(), 2U);
  EXPECT_EQ(describe(catalogue.problems()[1]), "b.csv:5:1: \"T1\" stands in line 4 already; the row isn't used");
  EXPECT_EQ(catalogue.rows().size(), 2U);
}

TEST(OwnTable, TellsAColumnThatStandsTwice) {
  EXPECT_THAT(problemsOf("# shape: tube\ndesignation,D,t,D\nT1,50,2,60\n"),
              ElementsAre("my.csv:2:17: the column \"D\" stands twice: the first is used"));
}

TEST(OwnTable, MayBeLargerThanThoseOfTheProgram) {
  std::string text = kHead;
  for (int i = 1; i <= 20000; ++i) text += "T" + std::to_string(i) + "," + std::to_string(50 + i) + ",2\n";
  kr::Catalogue catalogue;
  catalogue.addText("a.csv", text);
  EXPECT_TRUE(catalogue.problems().empty());
  for (const int i : {1, 777, 20000}) {
    const kr::CatalogueMatch match = catalogue.find("t" + std::to_string(i));
    ASSERT_NE(match.row, nullptr);
    EXPECT_EQ(match.other, nullptr);
    EXPECT_EQ(catalogue.value(*match.row, C::kD), 50 + i);
  }
}

}  // namespace
