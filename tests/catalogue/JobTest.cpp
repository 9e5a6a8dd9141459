#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "lib/JobReader.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class JobWithSections : public testing::Test {
 protected:
  void SetUp() override {
    folder_ = std::filesystem::temp_directory_path() / ("kr_catalogue_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  void table(const std::string& name, const std::string& rows) {
    std::ofstream(folder_ / name) << "# shape: tube\ndesignation,D,t\n" << rows;
  }

  // Reads a job of one profile "p" in line 2; gives its problems as "line:column: path: message".
  std::vector<std::string> read(const std::string& profile, const std::string& more = "") {
    const std::string text = "{\"kr\": 1, \"profiles\": {\n\"p\": " + profile + "}, " + more +
                             "\"members\": [{\"name\": \"M\", \"profile\": \"p\", \"from\": [0, 0], \"to\": [1, 0]}]}";
    kr::CatalogueShelf shelf(KR_SOURCE_DIR "/data", folder_.string());
    kr::KnownNames known;
    known.catalogues = &shelf;
    job_ = {};
    std::vector<kr::Problem> problems;
    kr::readJob(text, known, job_, problems);
    warnings_.clear();
    if (shelf.isOpen()) {
      for (const kr::CatalogueProblem& problem : shelf.open().problems()) warnings_.push_back(describe(problem));
    }
    std::vector<std::string> told;
    for (const kr::Problem& problem : problems) {
      told.push_back(std::to_string(problem.line) + ":" + std::to_string(problem.column) + ": " + problem.path + ": " +
                     problem.message);
    }
    return told;
  }

  double value(std::string_view key) const {
    const kr::JobProfile& profile = job_.profiles.at(0);
    return profile.values[profile.profileClass->positionOf(key)];
  }

  std::filesystem::path folder_;
  kr::Job job_;
  std::vector<std::string> warnings_;
};

TEST_F(JobWithSections, TakesThemByDesignation) {
  EXPECT_THAT(read(R"({"designation": "w250x44.8"})"), ElementsAre());
  EXPECT_THAT(read(R"({"designation": "IPE 200", "AngleSecao": 90})"), ElementsAre());
  EXPECT_EQ(job_.profiles[0].profileClass->name, "KrILaminadoUSA");
  EXPECT_EQ(job_.names.text(job_.profiles[0].designation), "IPE 200");
  EXPECT_EQ(value("Altura"), 200);
  EXPECT_EQ(value("DeslocF"), 20.5);
  EXPECT_DOUBLE_EQ(value("AngleSecao"), std::acos(0.0));
}

TEST_F(JobWithSections, TakesCompoundsOfThem) {
  EXPECT_THAT(read(R"({"class": "KrCantTEELaminada", "designation": "L 100x100x10", "Afastamento": 8})"),
              ElementsAre());
  EXPECT_EQ(value("Afastamento"), 8);
  EXPECT_EQ(value("Area"), 2 * 1920);
  EXPECT_THAT(read(R"({"class": "KrUULaminado", "designation": "L 100x100x10"})"),
              ElementsAre(AllOf(HasSubstr("2:16: /profiles/p/class"), HasSubstr("no KrUULaminado is made of"))));
}

TEST_F(JobWithSections, SuggestsTheNearestForAnUnknownOne) {
  EXPECT_THAT(read(R"({"designation": "IPE 205"})"),
              ElementsAre("2:22: /profiles/p/designation: unknown designation \"IPE 205\": did you mean \"IPE 200\"?"));
}

TEST_F(JobWithSections, WantsAClassOrADesignation) {
  EXPECT_THAT(read("{}"), ElementsAre(HasSubstr("missing \"class\" or \"designation\"")));
  EXPECT_THAT(read(R"({"designation": ""})"), testing::Contains(HasSubstr("must not be empty")));
  EXPECT_THAT(read(R"({"designation": "IPE 200", "Altura": 5})"), ElementsAre(HasSubstr("2:43: /profiles/p/Altura")));
  EXPECT_THAT(read(R"({"designation": "IPE 200", "altura": 5})"),
              ElementsAre(AllOf(HasSubstr("/profiles/p/altura"), HasSubstr("unknown key"))));
}

TEST_F(JobWithSections, ReadsTablesOfItsOwnAndUsesWhatIsGoodInThem) {
  table("own.csv", "OWN 1,60,3\nOWN 2,60,x\nOWN 3,60,40\n");
  EXPECT_THAT(read(R"({"designation": "own 1"})", R"("catalogues": ["own.csv"], )"), ElementsAre());
  EXPECT_EQ(value("Diametro"), 60);
  EXPECT_EQ(value("DiametroInt"), 54);
  EXPECT_THAT(warnings_,
              ElementsAre(HasSubstr("own.csv:4:10: not a number: \"x\" as t"),
                          HasSubstr("own.csv:5:1: \"OWN 3\" gives no section: tube thicker than its radius")));
  EXPECT_THAT(read(R"({"designation": "OWN 2"})", R"("catalogues": ["own.csv"], )"),
              ElementsAre(HasSubstr("unknown designation \"OWN 2\"")));
  EXPECT_THAT(read(R"({"designation": "OWN 1"})", R"("catalogues": ["none.csv"], )"),
              testing::Contains(AllOf(HasSubstr("/catalogues/0"), HasSubstr("can't be read"))));
}

TEST_F(JobWithSections, MustNameTheTableOfADesignationThatTwoHave) {
  table("own.csv", "IPE 200,60,3\n");
  EXPECT_THAT(read(R"({"designation": "IPE 200"})", R"("catalogues": ["own.csv"], )"),
              ElementsAre(AllOf(HasSubstr("2:22: /profiles/p/designation: two tables have \"IPE 200\""),
                                HasSubstr("eu_ipe.csv:12"), HasSubstr("own.csv:3"))));
  EXPECT_THAT(read(R"({"designation": "own:IPE 200"})", R"("catalogues": ["own.csv"], )"), ElementsAre());
  EXPECT_EQ(job_.profiles[0].profileClass->name, "KrTubo");
}

TEST_F(JobWithSections, MustBeSpelledAsTheirTableSpellsThemWhereTwoDiffer) {
  EXPECT_THAT(read(R"({"designation": "W250 x 44.8"})"),
              ElementsAre(AllOf(HasSubstr("two tables"), HasSubstr("br_w_hp.csv"), HasSubstr("us_w.csv"))));
}

TEST_F(JobWithSections, WithoutACatalogueAreRefused) {
  kr::Job job;
  std::vector<kr::Problem> problems;
  EXPECT_FALSE(
      kr::readJob(R"({"kr": 1, "profiles": {"p": {"designation": "IPE 200"}}, "members": []})", {}, job, problems));
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].path, "/profiles/p/designation");
}

// Parameters that give no section are refused where they stand, by every class.
struct Refused {
  const char* profile;
  const char* path;
  const char* reason;
};

class NoSection : public JobWithSections, public testing::WithParamInterface<Refused> {};

TEST_P(NoSection, IsRefusedWithItsPlaceAndReason) {
  const Refused& row = GetParam();
  EXPECT_THAT(read(row.profile),
              ElementsAre(AllOf(HasSubstr("2:"), HasSubstr(std::string(row.path) + ": "), HasSubstr(row.reason))));
}

INSTANTIATE_TEST_SUITE_P(
    Classes, NoSection,
    testing::Values(
        Refused{
            R"({"class": "KrILaminadoUSA", "Altura": 200, "Largura": 100, "Espessura": 100, "EspMedia": 8, "RaioDobra": 9, "Area": 9})",
            "/p/Espessura", "as thick as the section is wide"},
        Refused{
            R"({"class": "KrILaminadoUSA", "Altura": 200, "Largura": 100, "Espessura": 6, "DeslocF": 9, "EspMedia": 8, "RaioDobra": 9, "Area": 9})",
            "/p/DeslocF", "thinner than nothing"},
        Refused{
            R"({"class": "KrILaminadoUSA", "Altura": 200, "Largura": 100, "Espessura": 6, "EspMedia": 8, "RaioDobra": 9, "Raio1": 9, "Area": 9})",
            "/p/Raio1", "toe fillet doesn't fit"},
        Refused{
            R"({"class": "KrILaminadoUSA", "Altura": 200, "Largura": 100, "Espessura": 6, "EspMedia": 8, "RaioDobra": 50, "Area": 9})",
            "/p/RaioDobra", "fillets don't fit"},
        Refused{
            R"({"class": "KrILaminadoUSA", "Altura": 30, "Largura": 100, "Espessura": 6, "EspMedia": 8, "RaioDobra": 9, "Area": 9})",
            "/p/Altura", "higher than the section"},
        Refused{
            R"({"class": "KrULaminado", "Altura": 200, "Largura": 100, "Espessura": 6, "EspMedia": 7, "RaioDobra": 9, "Area": 9})",
            "/p/EspMedia", "thinner than nothing"},
        Refused{
            R"({"class": "KrCantLaminada", "Altura": 50, "Largura": 20, "Espessura": 20, "EixoX": 9, "EixoY": 9, "RaioDobra": 5, "Area": 9})",
            "/p/Espessura", "thicker than long"},
        Refused{
            R"({"class": "KrCantCruzLaminada", "Altura": 50, "Largura": 20, "Espessura": 8, "RaioDobra": 5, "Area": 9})",
            "/p/RaioDobra", "don't fit the leg"},
        Refused{R"({"class": "KrBNLaminado", "Aba": 20, "Espessura": 8, "RaioDobra": 5, "Area": 9})", "/p/RaioDobra",
                "don't fit the leg"},
        Refused{R"({"class": "KrBox", "altura": 100, "largura": 50, "espessura": 25, "raio": 0})", "/p/espessura",
                "thicker than half"},
        Refused{R"({"class": "KrBox", "altura": 100, "largura": 50, "espessura": 5, "raio": 21})", "/p/raio",
                "corners don't fit"},
        Refused{
            R"({"class": "KrUDobrado", "altura": 100, "mesa1": 50, "mesa2": 50, "espessura": 3, "raio": 3, "enrig": 51})",
            "/p/enrig", "longer than the web"},
        Refused{
            R"({"class": "KrUDobrado", "altura": 100, "mesa1": 50, "mesa2": 50, "espessura": 3, "raio": 3, "enrig": 5})",
            "/p/enrig", "shorter than its bend"},
        Refused{
            R"({"class": "KrZDobrado", "altura": 100, "mesa1": 50, "mesa2": 11, "espessura": 3, "raio": 3, "enrig": 20})",
            "/p/mesa2", "bends don't fit"},
        Refused{R"({"class": "KrCaixaDobrado", "altura": 100, "mesa": 5, "espessura": 3, "raio": 3})", "/p/mesa",
                "bends don't fit"},
        Refused{R"({"class": "KrCartola", "altura": 11, "mesa": 50, "espessura": 3, "raio": 3, "enrig": 20})",
                "/p/altura", "bends don't fit"},
        Refused{R"({"class": "KrXDobrado", "aba1": 5, "aba2": 50, "espessura": 3, "raio": 3})", "/p/aba1",
                "bends don't fit"},
        Refused{
            R"({"class": "KrUDobrado", "altura": 100, "mesa1": 50, "mesa2": 50, "espessura": 3, "raio": 3, "ang_int1": 180})",
            "/p/ang_int1", "less than 180"},
        Refused{R"({"class": "KrISoldado", "altura": 20, "mesa1": 50, "mesa2": 50, "tf1": 10, "tf2": 10, "tw": 5})",
                "/p/altura", "leave no web"},
        Refused{R"({"class": "KrISoldado", "altura": 200, "mesa1": 50, "mesa2": 50, "tf1": 10, "tf2": 10, "tw": 51})",
                "/p/tw", "wider than a flange"}));

}  // namespace
