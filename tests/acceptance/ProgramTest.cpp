#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <numbers>

#include "RunProgram.h"

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

const std::string kTruss = "'" KR_SOURCE_DIR "/examples/roof-truss.json'";
const std::string kFrame = "'" KR_SOURCE_DIR "/examples/portal-frame.json'";
const std::string kCatalogue = "'" KR_SOURCE_DIR "/examples/catalogue.json'";

// A tube of 3-4-5 and a bar along it.
const std::string kSmallJob = R"({"kr": 1,
  "title": {"title": "Small frame", "number": "T-1", "date": "2026-01-02"},
  "nodes": {"A": [0, 0], "B": [3000, 4000], "C": [3000, 0]},
  "profiles": {"tube": {"class": "KrTubo", "Diametro": 100, "DiametroInt": 80},
               "bar": {"class": "KrBarraRedonda", "diametro": 20}},
  "members": [{"name": "T1", "profile": "tube", "from": "A", "to": "B", "role": "Diagonal"},
              {"name": "T2", "profile": "tube", "from": "B", "to": "A", "startSetback": 0},
              {"name": "R1", "profile": "bar", "from": "A", "to": "C"}]})";

std::string quoted(const std::string& text) {
  return "'" + text + "'";
}

// Whether a JSON text is what a published schema says, by an independent checker.
testing::AssertionResult fitsSchema(const std::string& text, const std::string& schema) {
  const TestFolder folder;
  const std::string file = folder.write("data.json", text);
  const Outcome run = runShell("/usr/bin/python3 -m jsonschema -i " + quoted(file) +
                               " '" KR_SOURCE_DIR "/data/schemas/" + schema + "'");
  if (run.code == 0) return testing::AssertionSuccess();
  return testing::AssertionFailure() << run.out << run.err;
}

TEST(Program, TellsItsVersionOnStandardOutput) {
  const Outcome run = runShell("kr --version");
  EXPECT_EQ(run.code, 0);
  EXPECT_THAT(run.out, testing::MatchesRegex("kr [0-9]+\\.[0-9]+\\.[0-9]+\n"));
  EXPECT_EQ(run.err, "");
}

TEST(Program, EndsWithCode1OnAWrongCommandLine) {
  for (const char* line : {"kr", "kr biuld", "kr build", "kr build x.json", "kr bom", "kr bom x.json --nothing",
                           "kr bom x.json --json --csv", "kr build x.json y.doc", "kr build x.json -",
                           "kr build x.json y.pdf y.pdf", "kr build x.json y.png --resolution 5", "kr help nothing",
                           "kr list x.json -q -v", "kr build x.json y.pdf --format gif"}) {
    const Outcome run = runShell(line);
    EXPECT_EQ(run.code, 1) << line;
    EXPECT_EQ(run.out, "") << line;
    EXPECT_THAT(run.err, StartsWith("kr: ")) << line;
  }
  EXPECT_THAT(runShell("kr biuld").err, HasSubstr("did you mean \"build\"?"));
}

TEST(Program, ShowsHelpOnStandardOutput) {
  for (const char* line : {"kr help", "kr --help", "kr -h", "kr help build", "kr build --help", "kr bom -h"}) {
    const Outcome run = runShell(line);
    EXPECT_EQ(run.code, 0) << line;
    EXPECT_THAT(run.out, HasSubstr("Usage: kr")) << line;
    EXPECT_EQ(run.err, "") << line;
  }
}

TEST(Program, EndsWithCode3OnABadJobAndTellsEveryError) {
  const TestFolder folder;
  const std::string job =
      folder.write("bad.json",
                   "{\"kr\": 1, \"nodes\": {\"A\": [0, 0]},\n"
                   " \"profiles\": {\"p\": {\"class\": \"KrTubo\", \"Diametro\": -5, \"Espessura\": 1}},\n"
                   " \"members\": [{\"name\": \"1\", \"profile\": \"q\", \"from\": \"A\", \"to\": \"A\"}]}\n");
  const Outcome run = runShell("kr build " + quoted(job) + " " + quoted(folder.path("out.pdf")));
  EXPECT_EQ(run.code, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, AllOf(HasSubstr("3 errors"), HasSubstr("bad.json:2:"), HasSubstr("/profiles/p/Diametro"),
                             HasSubstr("bad.json:3:"), HasSubstr("/members/0/profile"), HasSubstr("/members/0/to")));
  EXPECT_EQ(folder.count(), 1U);
}

TEST(Program, EndsWithCode3WhenTheJobCannotBeRead) {
  const TestFolder folder;
  EXPECT_EQ(runShell("kr bom " + quoted(folder.path("none.json"))).code, 3);
  EXPECT_EQ(runShell("kr bom " + quoted(folder.path(""))).code, 3);
}

TEST(Program, DrawsEveryFormatAtOnceAndReadsFromAPipe) {
  const TestFolder folder;
  const Outcome run = runShell("kr build - " + quoted(folder.path("a.pdf")) + " " + quoted(folder.path("a.svg")) + " " +
                                   quoted(folder.path("a.png")),
                               kSmallJob);
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "");
  EXPECT_THAT(folder.read("a.pdf"), StartsWith("%PDF-"));
  EXPECT_THAT(folder.read("a.svg"), HasSubstr("<svg"));
  EXPECT_THAT(folder.read("a.png"), StartsWith("\x89PNG"));
  EXPECT_EQ(folder.count(), 3U);
}

TEST(Program, DrawsIntoAPipe) {
  const Outcome run = runShell("kr build - - --format svg", kSmallJob);
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(StartsWith("<?xml"), EndsWith("</svg>\n")));
}

TEST(Program, DrawsTheSameBytesEachTime) {
  const Outcome first = runShell("kr build - - --format pdf", kSmallJob);
  const Outcome second = runShell("kr build - - --format pdf", kSmallJob);
  ASSERT_EQ(first.code, 0) << first.err;
  EXPECT_EQ(first.out, second.out);
}

TEST(Program, ReplacesNoFileUnasked) {
  const TestFolder folder;
  const std::string file = folder.write("old.pdf", "old");
  const Outcome refused = runShell("kr build - " + quoted(file), kSmallJob);
  EXPECT_EQ(refused.code, 4);
  EXPECT_THAT(refused.err, HasSubstr("--overwrite"));
  EXPECT_EQ(folder.read("old.pdf"), "old");
  EXPECT_EQ(runShell("kr build --overwrite - " + quoted(file), kSmallJob).code, 0);
  EXPECT_THAT(folder.read("old.pdf"), StartsWith("%PDF-"));
  EXPECT_EQ(folder.count(), 1U);
}

TEST(Program, WritesNoneOfItsFilesWhenOneCannotBe) {
  const TestFolder folder;
  const std::string old = folder.write("b.svg", "old");
  EXPECT_EQ(runShell("kr build - " + quoted(folder.path("a.pdf")) + " " + quoted(old), kSmallJob).code, 4);
  EXPECT_FALSE(folder.has("a.pdf"));
}

TEST(Program, EndsWithCode4WhenAnOutputCannotBeWritten) {
  const TestFolder folder;
  fs::create_directory(folder.path("dir.pdf"));
  EXPECT_EQ(runShell("kr build - " + quoted(folder.path("dir.pdf")) + " --overwrite", kSmallJob).code, 4);
  EXPECT_EQ(runShell("kr build - " + quoted(folder.path("no/such.pdf")), kSmallJob).code, 4);
  EXPECT_EQ(runShell("kr bom - -o " + quoted(folder.path("no/such.csv")), kSmallJob).code, 4);
  EXPECT_EQ(runShell("kr bom - --csv -o /proc/bom.csv", kSmallJob).code, 4);
}

TEST(Program, EndsWithCode4OnAFullDisk) {
  const Outcome onOutput = runShell("kr bom - > /dev/full", kSmallJob);
  EXPECT_EQ(onOutput.code, 4);
  EXPECT_THAT(onOutput.err, HasSubstr("No space left"));
  EXPECT_EQ(runShell("kr bom - -o /dev/full", kSmallJob).code, 4);
  EXPECT_EQ(runShell("kr build - /dev/full --format pdf", kSmallJob).code, 4);
  EXPECT_TRUE(fs::is_character_file("/dev/full")) << "a device must never be replaced";
}

TEST(Program, KeepsTheOldFileWhenTheNewOneCannotBeWrittenWhole) {
  // No file may grow beyond 4 KiB: the drawing breaks off as on a full disk.
  const TestFolder folder;
  const std::string file = folder.write("old.svg", "old");
  const Outcome run = runShell("trap '' XFSZ; ulimit -f 8; kr build - " + quoted(file) + " --overwrite", kSmallJob);
  EXPECT_EQ(run.code, 4);
  EXPECT_THAT(run.err, HasSubstr("old.svg"));
  EXPECT_EQ(folder.read("old.svg"), "old");
  EXPECT_EQ(folder.count(), 1U) << "nothing temporary stays";
}

TEST(Program, ShowsProgressOnATerminalOnly) {
  const TestFolder folder;
  const std::string job = folder.write("job.json", kSmallJob);
  const std::string line = KR_BINARY_DIR "/bin/kr build " + job + " " + folder.path("a.pdf") + " --overwrite";
  EXPECT_EQ(runShell(line).err, "");
  const Outcome shown = runShell("script -qec '" + line + "' /dev/null");
  EXPECT_EQ(shown.code, 0);
  EXPECT_THAT(shown.out, HasSubstr("drawing 1/1"));
  EXPECT_THAT(runShell("script -qec '" + line + " --quiet' /dev/null").out, Not(HasSubstr("drawing")));
}

TEST(Program, NeverReplacesTheJobItself) {
  const TestFolder folder;
  const std::string job = folder.write("job.json", kSmallJob);
  EXPECT_EQ(runShell("kr bom --overwrite " + quoted(job) + " -o " + quoted(job)).code, 4);
  EXPECT_EQ(runShell("kr build --overwrite --format pdf " + quoted(job) + " " + quoted(folder.path("./job.json"))).code,
            4);
  EXPECT_EQ(folder.read("job.json"), kSmallJob);
}

TEST(Program, TakesTwoSpellingsOfOneFileForOne) {
  const TestFolder folder;
  EXPECT_EQ(
      runShell("kr build - " + quoted(folder.path("a.pdf")) + " " + quoted(folder.path("./a.pdf")), kSmallJob).code, 1);
}

TEST(Program, EndsWithCode6WhenAGoodJobCannotBeDrawn) {
  // At 1200 dots per inch an A0 sheet takes nearly 60,000 dots across, more than a picture may have.
  const TestFolder folder;
  std::string job = kSmallJob;
  job.insert(job.rfind('}'), R"(, "sheets": [{"size": "A0"}])");
  const Outcome run = runShell("kr build - " + quoted(folder.path("a.png")) + " --resolution 1200", job);
  EXPECT_EQ(run.code, 6) << run.err;
  EXPECT_EQ(folder.count(), 0U);
}

TEST(Program, DrawsASheetAPageAndOneSheetAPicture) {
  const TestFolder folder;
  std::string job = kSmallJob;
  job.insert(job.rfind('}'), R"(, "sheets": [{"size": "A2"}, {"size": "A1", "title": {"number": "T-2"}}])");
  ASSERT_EQ(runShell("kr build - " + quoted(folder.path("a.pdf")), job).code, 0);
  EXPECT_THAT(runShell("pdfinfo " + quoted(folder.path("a.pdf"))).out, HasSubstr("Pages:           2"));
  EXPECT_EQ(runShell("kr build - " + quoted(folder.path("a.svg")), job).code, 1);
  EXPECT_EQ(runShell("kr build - --sheet 2 " + quoted(folder.path("a.svg")), job).code, 0);
  EXPECT_EQ(runShell("kr build - --sheet 3 " + quoted(folder.path("b.svg")), job).code, 1);
  const Outcome text = runShell("pdftotext -f 2 -l 2 " + quoted(folder.path("a.pdf")) + " -");
  EXPECT_THAT(text.out, AllOf(HasSubstr("T-2"), HasSubstr("2/2"), Not(HasSubstr("T-1"))));
}

TEST(Program, DatesASheetBySourceDateEpochWhenTheJobDoesNot) {
  const TestFolder folder;
  std::string job = kSmallJob;
  job.replace(job.find(", \"date\": \"2026-01-02\""), 22, "");
  // 2001-09-09 is the day of second 1,000,000,000.
  const Outcome run = runShell("export SOURCE_DATE_EPOCH=1000000000; kr build - " + quoted(folder.path("a.pdf")), job);
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(runShell("pdftotext " + quoted(folder.path("a.pdf")) + " -").out, HasSubstr("2001-09-09"));
}

TEST(Program, WeighsByHand) {
  const Outcome run = runShell("kr bom - --json", kSmallJob);
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(fitsSchema(run.out, "bom.schema.json"));
  const json bom = json::parse(run.out);
  ASSERT_EQ(bom.at("items").size(), 2U);
  const json& tube = bom["items"][0];
  // Area pi (50^2 - 40^2), length 5000, steel 0.00785 kg per mm2 and m.
  const double area = std::numbers::pi * (50 * 50 - 40 * 40);
  EXPECT_EQ(tube["count"], 2);
  EXPECT_EQ(tube["members"], (std::vector<std::string>{"T1", "T2"}));
  EXPECT_NEAR(tube["length"], 5000, 1e-6);
  EXPECT_NEAR(tube["unitWeight"], area * 0.00785 * 5, 1e-9);
  EXPECT_NEAR(tube["weight"], 2 * area * 0.00785 * 5, 1e-9);
  EXPECT_NEAR(tube["unitPaintedArea"], (2 * area + std::numbers::pi * 100 * 5000) / 1e6, 1e-9);
  EXPECT_EQ(tube["dimensions"], "100x20");
  const json& bar = bom["items"][1];
  EXPECT_EQ(bar["dimensions"], "\u00D820");
  EXPECT_NEAR(bar["weight"], std::numbers::pi * 100 * 0.00785 * 3, 1e-9);
  EXPECT_NEAR(bom["totals"]["weight"], 2 * area * 0.00785 * 5 + std::numbers::pi * 100 * 0.00785 * 3, 1e-9);
}

TEST(Program, WritesItsBillAsTextAndCsv) {
  const Outcome text = runShell("kr bom -", kSmallJob);
  ASSERT_EQ(text.code, 0) << text.err;
  EXPECT_THAT(text.out, AllOf(StartsWith("Pos"), HasSubstr("Total"), HasSubstr("5000.0")));
  const TestFolder folder;
  ASSERT_EQ(runShell("kr bom - --csv -o " + quoted(folder.path("a.csv")), kSmallJob).code, 0);
  EXPECT_THAT(folder.read("a.csv"), StartsWith("position,class,"));
}

TEST(Program, ListsWhatMembersSayOfThemselves) {
  const Outcome one = runShell("kr list - T1", kSmallJob);
  ASSERT_EQ(one.code, 0) << one.err;
  EXPECT_THAT(one.out, AllOf(HasSubstr("Nome            T1"), HasSubstr("Vista           : Superior"),
                             HasSubstr("Tipo de Barra   : Diagonal"), Not(HasSubstr("R1"))));
  const Outcome all = runShell("kr list - --json", kSmallJob);
  ASSERT_EQ(all.code, 0) << all.err;
  EXPECT_TRUE(fitsSchema(all.out, "list.schema.json"));
  EXPECT_EQ(json::parse(all.out).at("members").size(), 3U);
  const Outcome none = runShell("kr list - T9", kSmallJob);
  EXPECT_EQ(none.code, 1);
  EXPECT_THAT(none.err, HasSubstr("did you mean \"T1\"?"));
}

TEST(Program, TellsTheModulesVersion) {
  const Outcome run = runShell("kr about");
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.out, AllOf(StartsWith("KR_Trama 4.102"), HasSubstr("0x00000009")));
  const Outcome asJson = runShell("kr about --json");
  EXPECT_TRUE(fitsSchema(asJson.out, "about.schema.json"));
  EXPECT_EQ(json::parse(asJson.out).at("productVersion"), "4.102");
}

TEST(Program, DescribesItselfAsJson) {
  EXPECT_TRUE(fitsSchema(runShell("kr help --json").out, "help.schema.json"));
}

TEST(Program, FindsItsInstallFolderBesideItselfAndTakesAnother) {
  const Outcome none = runShell("kr bom - --data /no/such/folder", kSmallJob);
  EXPECT_EQ(none.code, 3);
  EXPECT_THAT(none.err, HasSubstr("/no/such/folder"));
  const TestFolder folder;
  fs::copy(KR_INSTALL_FOLDER, folder.path("data"), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  EXPECT_EQ(runShell("kr bom - --data " + quoted(folder.path("data")), kSmallJob).code, 0);
  EXPECT_EQ(
      runShell("KRTRAMA_BRICSV17=" + quoted(folder.path("data")) + " '" KR_BINARY_DIR "/bin/kr' bom -", kSmallJob).code,
      0);
}

TEST(Program, TellsAMissingSideLibraryInTheModulesWords) {
  const TestFolder folder;
  fs::copy(KR_INSTALL_FOLDER, folder.path("data"), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  fs::remove(folder.path("data/Support/krobjfn_ryB16._kr"));
  const Outcome run = runShell("kr bom - --data " + quoted(folder.path("data")), kSmallJob);
  EXPECT_EQ(run.code, 3);
  EXPECT_THAT(run.err, HasSubstr("Não foi possível carregar uma DLL, o KR_Trama não irá funcionar corretamente."));
}

TEST(Program, TellsASideLibraryThatLacksItsFunctions) {
  const TestFolder folder;
  fs::copy(KR_INSTALL_FOLDER, folder.path("data"), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  const std::string library = folder.path("data/Support/krobjfn_ryB16._kr");
  fs::remove(library);
  const std::string source = folder.write("side.c", "int krIsBulge6000(double b) { return b >= 6000; }\n");
  ASSERT_EQ(runShell("cc -shared -fPIC -o " + quoted(library) + " " + quoted(source)).code, 0);
  const Outcome run = runShell("kr bom - --data " + quoted(folder.path("data")), kSmallJob);
  EXPECT_EQ(run.code, 3);
  EXPECT_THAT(run.err, AllOf(HasSubstr("krMidArco"), HasSubstr("krAppendEntity"), Not(HasSubstr("krIsBulge6000"))));
}

TEST(Program, TellsMissingAndBrokenLayerFiles) {
  const TestFolder folder;
  fs::copy(KR_INSTALL_FOLDER, folder.path("data"), fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  const std::string layers = folder.path("data/Prototipo/LayersUSR.cfg");
  fs::remove(layers);
  const std::string line = "kr bom - --data " + quoted(folder.path("data"));
  const Outcome missing = runShell(line, kSmallJob);
  EXPECT_EQ(missing.code, 3);
  EXPECT_THAT(missing.err, HasSubstr("LayersUSR.cfg"));
  folder.write("data/Prototipo/LayersUSR.cfg", "no mark at the end\n");
  EXPECT_EQ(runShell(line, kSmallJob).code, 3);
}

TEST(Program, RefusesASheetThatCannotHoldWhatItShallShow) {
  std::string job = kSmallJob;
  job.insert(job.rfind('}'), R"(, "sheets": [{"size": "A2", "scale": "1:1"}])");
  const Outcome run = runShell("kr build - - --format pdf", job);
  EXPECT_EQ(run.code, 3);
  EXPECT_THAT(run.err, HasSubstr("the largest scale that does is 1:"));
}

TEST(Program, ShowsTheTrussWithItsTitleMarksAndBill) {
  const TestFolder folder;
  const Outcome run = runShell("kr build " + kTruss + " " + quoted(folder.path("truss.pdf")));
  ASSERT_EQ(run.code, 0) << run.err;
  const Outcome text = runShell("pdftotext -layout " + quoted(folder.path("truss.pdf")) + " -");
  ASSERT_EQ(text.code, 0) << text.err;
  EXPECT_THAT(text.out, AllOf(HasSubstr("Roof truss TR1"), HasSubstr("KR-001-TR1"), HasSubstr("1:50"),
                              HasSubstr("BILL OF MATERIALS"), HasSubstr("ELEVATION"), HasSubstr("SECTIONS")));
  EXPECT_THAT(text.out, HasSubstr("24000"));
  EXPECT_THAT(runShell("pdfinfo " + quoted(folder.path("truss.pdf"))).out, HasSubstr("2383.94 x 1683.78"));
}

TEST(Program, ShowsThePortalFrameInPlanElevationsAndSections) {
  const TestFolder folder;
  const Outcome run = runShell("kr build " + kFrame + " " + quoted(folder.path("frame.pdf")));
  ASSERT_EQ(run.code, 0) << run.err;
  const Outcome text = runShell("pdftotext -layout " + quoted(folder.path("frame.pdf")) + " -");
  EXPECT_THAT(text.out, AllOf(HasSubstr("FRAME 1"), HasSubstr("WALL B"), HasSubstr("ROOF"), HasSubstr("1:75"),
                              HasSubstr("COLUMN BASES"), HasSubstr("SECTIONS"), HasSubstr("HEA 240")));
  EXPECT_THAT(runShell("pdfinfo " + quoted(folder.path("frame.pdf"))).out, HasSubstr("Pages:           2"));
}

TEST(Program, WorksOutThePortalFrameFromItsNodesInSpace) {
  const Outcome run = runShell("kr list " + kFrame + " C-A1 V-A1 W-A1 --json");
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(fitsSchema(run.out, "list.schema.json"));
  const json members = json::parse(run.out)["members"];
  // A column of 6 m that reaches 190 mm beyond its node.
  EXPECT_NEAR(members[0]["length"], 6190, 1e-6);
  EXPECT_THAT(members[0]["end"], testing::ElementsAre(0, 0, 6190));
  // A rafter of 330 that rises 1 in 10 over half of 18 m, from the face of a column of 230, and ends 5 mm early.
  const double slope = std::atan2(1.0, 10.0);
  const double face = (230.0 / 2 + 330.0 / 2 * std::sin(slope)) / std::cos(slope);
  EXPECT_NEAR(members[1]["length"], std::hypot(9000.0, 900.0) - face - 5, 1e-6);
  EXPECT_EQ(members[2]["start"].size(), 3U);
}

TEST(Program, DrawsTheTableOfEveryClassOfProfile) {
  const TestFolder folder;
  const Outcome run = runShell("kr build " + kCatalogue + " " + quoted(folder.path("table.pdf")));
  ASSERT_EQ(run.code, 0) << run.err;
  const Outcome text = runShell("pdftotext -layout " + quoted(folder.path("table.pdf")) + " -");
  const json schema = json::parse(runShell("cat '" KR_SOURCE_DIR "/data/schemas/job.schema.json'").out);
  int classes = 0;
  for (const auto& [name, value] : schema["$defs"].items()) {
    if (!name.starts_with("Kr")) continue;
    ++classes;
    EXPECT_THAT(text.out, HasSubstr(name));
  }
  EXPECT_EQ(classes, 27);
  // The committed table is the one that the program draws.
  EXPECT_EQ(runShell("cmp " + quoted(folder.path("table.pdf")) + " '" KR_SOURCE_DIR "/docs/catalogue.pdf'").code, 0);
}

TEST(Program, DrawsAJobInSpaceInThreeViewsUnasked) {
  const TestFolder folder;
  const std::string job = folder.write("job.json", R"({"kr": 1,
    "profiles": {"bar": {"class": "KrBarraRedonda", "diametro": 20}},
    "members": [{"name": "A", "profile": "bar", "from": [0, 0, 0], "to": [900, 700, 1000]}]})");
  const Outcome run = runShell("kr build " + quoted(job) + " " + quoted(folder.path("job.pdf")));
  ASSERT_EQ(run.code, 0) << run.err;
  const std::string text = runShell("pdftotext -layout " + quoted(folder.path("job.pdf")) + " -").out;
  EXPECT_THAT(text, AllOf(HasSubstr("PLAN"), HasSubstr("FRONT ELEVATION"), HasSubstr("RIGHT ELEVATION")));
  EXPECT_THAT(text, AllOf(HasSubstr("900"), HasSubstr("700"), HasSubstr("1000")));
}

TEST(Program, RefusesViewsThatShowNothingOrDoNotFit) {
  const TestFolder folder;
  const auto refusal = [&](const std::string& sheet) {
    const std::string job = folder.write("job.json", R"({"kr": 1,
      "profiles": {"bar": {"class": "KrBarraRedonda", "diametro": 20}},
      "members": [{"name": "A", "profile": "bar", "from": [0, 0, 0], "to": [900, 700, 1000]}], "sheets": [)" +
                                                         sheet + "]}");
    const Outcome run = runShell("kr build " + quoted(job) + " " + quoted(folder.path("job.pdf")));
    EXPECT_EQ(run.code, 3);
    return run.err;
  };
  EXPECT_THAT(refusal(R"({"views": [{"look": "plan"}, {"look": "plan", "from": 2000}]})"),
              HasSubstr("sheet 1: view 2 shows no member"));
  EXPECT_THAT(refusal(R"({"scale": "1:1", "size": "A3", "views": [{"look": "plan"}]})"),
              HasSubstr("the views don't fit a sheet of size A3 at 1:1: the largest scale that does is 1:"));
}

TEST(Program, WorksOutTheTrussFromItsNodes) {
  const Outcome run = runShell("kr list " + kTruss + " BS1 --json");
  ASSERT_EQ(run.code, 0) << run.err;
  // Half a span of 12 m rising 1.8 m, and 80 mm beyond the first node.
  EXPECT_NEAR(json::parse(run.out)["members"][0]["length"], std::hypot(12000.0, 1800.0) + 80, 1e-6);
  const Outcome post = runShell("kr list " + kTruss + " M1 --json");
  // The end post of 114.3 stands on the bottom chord of 139.7, square to it, and meets the top chord of 168.3 at its
  // slope; 10 mm stay free at either end.
  const double slope = std::atan2(1800.0, 12000.0);
  const double bottom = 139.7 / 2 + 10;
  const double top = (168.3 / 2 + 114.3 / 2 * std::sin(slope) + 10) / std::cos(slope);
  EXPECT_NEAR(json::parse(post.out)["members"][0]["length"], 1000 - bottom - top, 1e-6);
}

TEST(Program, ListsSearchesAndShowsSections) {
  const Outcome tables = runShell("kr catalogue --json");
  ASSERT_EQ(tables.code, 0) << tables.err;
  EXPECT_TRUE(fitsSchema(tables.out, "catalogue.schema.json"));
  EXPECT_EQ(json::parse(tables.out)["tables"].size(), 30U);
  const Outcome found = runShell("kr catalogue search ipe --json");
  EXPECT_TRUE(fitsSchema(found.out, "catalogue.schema.json"));
  EXPECT_EQ(json::parse(found.out)["sections"].size(), 58U);
  const Outcome shown = runShell("kr catalogue show ipe200 --json");
  ASSERT_EQ(shown.code, 0) << shown.err;
  EXPECT_TRUE(fitsSchema(shown.out, "catalogue.schema.json"));
  const json section = json::parse(shown.out)["section"];
  EXPECT_EQ(section["designation"], "IPE 200");
  EXPECT_EQ(section["class"], "KrILaminadoUSA");
  EXPECT_EQ(section["parameters"]["DeslocF"], 20.5);
  EXPECT_EQ(section["weight"], 22.4);
  EXPECT_THAT(runShell("kr catalogue show IPE 200").out, AllOf(StartsWith("IPE 200\n"), HasSubstr("2850 mm2")));
}

TEST(Program, DrawsASectionOfTheCatalogue) {
  const TestFolder folder;
  const Outcome run = runShell("kr catalogue show L 76x76x6.4 -o " + quoted(folder.path("l.pdf")));
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(runShell("pdftotext -layout " + quoted(folder.path("l.pdf")) + " -").out,
              AllOf(HasSubstr("L76X76X6.4"), HasSubstr("SECTIONS"), HasSubstr("ELEVATION"), HasSubstr("Esquerda")));
  EXPECT_EQ(runShell("kr catalogue show UPN 160 -o " + quoted(folder.path("l.pdf"))).code, 4);
  EXPECT_EQ(runShell("kr catalogue show UPN 160 -o " + quoted(folder.path("l.txt"))).code, 1);
}

TEST(Program, TellsWhatIsWrongWithAQuestionToTheCatalogue) {
  const Outcome unknown = runShell("kr catalogue show IPE 205");
  EXPECT_EQ(unknown.code, 1);
  EXPECT_THAT(unknown.err, HasSubstr("did you mean \"IPE 200\"?"));
  EXPECT_EQ(runShell("kr catalogue show").code, 1);
  EXPECT_THAT(runShell("kr catalogue serch ipe").err, HasSubstr("did you mean \"search\"?"));
  EXPECT_EQ(runShell("kr catalogue --catalogue none.csv").code, 3);
}

TEST(Program, WarnsOfBadRowsInATableOfOnesOwnAndUsesTheRest) {
  const TestFolder folder;
  const std::string table = folder.write("own.csv", "# shape: tube\ndesignation,D,t\nOWN 1,60,3\nOWN 2,60,x\n");
  const std::string job =
      folder.write("job.json",
                   "{\"kr\": 1, \"profiles\": {\"p\": {\"designation\": \"OWN 1\"}},\n"
                   " \"members\": [{\"name\": \"1\", \"profile\": \"p\", \"from\": [0, 0], \"to\": [1000, 0]}]}\n");
  const Outcome given = runShell("kr bom --csv --catalogue " + quoted(table) + " " + quoted(job));
  ASSERT_EQ(given.code, 0) << given.err;
  EXPECT_THAT(given.out, HasSubstr("OWN 1"));
  EXPECT_THAT(given.err, AllOf(HasSubstr("kr: warning: "), HasSubstr("own.csv:4:10: not a number")));
  EXPECT_EQ(runShell("kr bom --quiet --catalogue " + quoted(table) + " " + quoted(job)).err, "");
  const Outcome without = runShell("kr bom " + quoted(job));
  EXPECT_EQ(without.code, 3);
  EXPECT_THAT(without.err, HasSubstr("/profiles/p/designation: unknown designation"));
}

TEST(Program, DrawsAndCountsMembersOfEveryKindOfProfile) {
  const std::string job = R"({"kr": 1, "profiles": {
      "i": {"designation": "IPE 200"},
      "t": {"designation": "L 76x76x6.4", "class": "KrCantTEELaminada", "Afastamento": 8},
      "z": {"class": "KrZDobrado", "altura": 200, "mesa1": 75, "mesa2": 70, "espessura": 3, "raio": 3, "enrig": 20}},
    "members": [{"name": "A", "profile": "i", "from": [0, 0], "to": [3000, 0]},
                {"name": "B", "profile": "i", "from": [0, 500], "to": [3000, 500], "view": "Direita"},
                {"name": "C", "profile": "t", "from": [0, 1000], "to": [3000, 1000]},
                {"name": "D", "profile": "z", "from": [0, 1500], "to": [3000, 1500]}]})";
  EXPECT_TRUE(fitsSchema(job, "job.schema.json"));
  const Outcome bill = runShell("kr bom - --json", job);
  ASSERT_EQ(bill.code, 0) << bill.err;
  const json items = json::parse(bill.out)["items"];
  ASSERT_EQ(items.size(), 3U);
  EXPECT_EQ(items[0]["designation"], "IPE 200");
  EXPECT_EQ(items[0]["count"], 2);
  EXPECT_NEAR(items[0]["unitWeight"].get<double>(), 3 * 22.4, 1e-9);
  const Outcome drawn = runShell("kr build - - --format svg", job);
  EXPECT_EQ(drawn.code, 0) << drawn.err;
}

TEST(Program, CompletionOffersVerbsOptionsAndFiles) {
  const auto complete = [](const std::string& words, int at) {
    return runShell("bash -c 'source \"" KR_SOURCE_DIR "/apps/kr/completion/kr.bash\"; COMP_WORDS=(" + words +
                    "); COMP_CWORD=" + std::to_string(at) + "; _kr; printf \"%s\\n\" \"${COMPREPLY[@]}\"'")
        .out;
  };
  EXPECT_EQ(complete("kr bu", 1), "build\n");
  EXPECT_THAT(complete("kr bom --", 2), AllOf(HasSubstr("--json\n"), HasSubstr("--overwrite\n")));
  EXPECT_EQ(complete("kr build --format s", 3), "svg\n");
  // The same option takes what its verb can write.
  EXPECT_EQ(complete("kr convert --format d", 3), "dwg\ndxf\n");
  EXPECT_EQ(complete("kr plot -f d", 3), "\n");
}

TEST(Program, ItsDocumentsAreThoseOfTheRepository) {
  EXPECT_EQ(runShell("kr documents reference | cmp - '" KR_SOURCE_DIR "/docs/reference.md'").code, 0);
  EXPECT_EQ(runShell("kr documents completion | cmp - '" KR_SOURCE_DIR "/apps/kr/completion/kr.bash'").code, 0);
  EXPECT_EQ(runShell("kr documents man build | cmp - '" KR_SOURCE_DIR "/docs/man/kr-build.1'").code, 0);
}

}  // namespace
