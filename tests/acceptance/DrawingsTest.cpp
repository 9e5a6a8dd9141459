#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <random>
#include <thread>

#include "RunProgram.h"

// Drawings as files: what the program writes, reads, mends and never loses.

namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

// A tube of 3-4-5 and a bar along it.
const std::string kSmallJob = R"({"kr": 1,
  "nodes": {"A": [0, 0], "B": [3000, 4000], "C": [3000, 0]},
  "layers": {"DIAGONALS": {"color": 3}},
  "profiles": {"tube": {"class": "KrTubo", "Diametro": 100, "DiametroInt": 80},
               "bar": {"class": "KrBarraRedonda", "diametro": 20}},
  "members": [{"name": "T1", "profile": "tube", "from": "A", "to": "B", "role": "Diagonal", "layer": "DIAGONALS"},
              {"name": "T2", "profile": "tube", "from": "B", "to": "A"},
              {"name": "R1", "profile": "bar", "from": "A", "to": "C"}]})";

// A DXF of a header, then these sections or parts of them.
std::string dxfOf(const std::string& sections) {
  return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n" + sections + "  0\nEOF\n";
}

std::string section(const std::string& name, const std::string& groups) {
  return "  0\nSECTION\n  2\n" + name + "\n" + groups + "  0\nENDSEC\n";
}

// Two lines, of which the second lies on a layer that no table holds.
const std::string kPlainDxf = dxfOf(section("ENTITIES",
                                            "  0\nLINE\n  8\n0\n 10\n0\n 20\n0\n 11\n30\n 21\n40\n"
                                            "  0\nLINE\n  8\nSTRAY\n 10\n0\n 20\n0\n 11\n30\n 21\n0\n"));

// A ray and an ellipse: plain entities that the host has no class for.
const std::string kRayAndEllipse =
    dxfOf(section("ENTITIES",
                  "  0\nRAY\n100\nAcDbEntity\n  8\n0\n100\nAcDbRay\n 10\n0\n 20\n0\n 11\n1\n 21\n0\n"
                  "  0\nELLIPSE\n100\nAcDbEntity\n  8\n0\n100\nAcDbEllipse\n"
                  " 10\n0\n 20\n0\n 11\n1\n 21\n0\n 40\n0.5\n"));

std::string quoted(const std::string& text) {
  return "'" + text + "'";
}

testing::AssertionResult fitsSchema(const std::string& text, const std::string& schema) {
  const TestFolder folder;
  const std::string file = folder.write("data.json", text);
  const Outcome run = runShell("/usr/bin/python3 -m jsonschema -i " + quoted(file) +
                               " '" KR_SOURCE_DIR "/data/schemas/" + schema + "'");
  if (run.code == 0) return testing::AssertionSuccess();
  return testing::AssertionFailure() << run.out << run.err;
}

json infoOf(const std::string& path) {
  const Outcome run = runShell("kr info --json " + quoted(path));
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(fitsSchema(run.out, "info.schema.json"));
  return run.code == 0 ? json::parse(run.out) : json();
}

json named(const json& rows, const std::string& name) {
  for (const json& row : rows) {
    if (row.at("name") == name) return row;
  }
  return {};
}

/// A folder with the small job as a.dwg and a.dxf.
class Drawings : public testing::Test {
 protected:
  Drawings() {
    const Outcome run =
        runShell("kr build - " + quoted(folder.path("a.dwg")) + " -o " + quoted(folder.path("a.dxf")), kSmallJob);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "kr: warning: the DXF holds nothing but a picture of 1 entity: 1 KrBarraRedonda\n");
  }
  std::string path(const std::string& name) const { return quoted(folder.path(name)); }
  std::string saved(const std::string& name) const { return folder.read(name); }

  TestFolder folder;
};

TEST_F(Drawings, HoldTheMembersOfTheJobOnTheirLayers) {
  const json dwg = infoOf(folder.path("a.dwg"));
  EXPECT_EQ(dwg.at("drawing").at("format"), "DWG");
  EXPECT_EQ(dwg["drawing"]["version"], "AC1015");
  EXPECT_EQ(dwg["drawing"]["bytes"], saved("a.dwg").size());
  EXPECT_EQ(dwg["modelSpace"]["members"], 3);
  EXPECT_EQ(named(dwg["classes"], "KrTubo")["entities"], 2);
  EXPECT_EQ(named(dwg["classes"], "KrBarraRedonda")["entities"], 1);
  EXPECT_EQ(named(dwg["layers"], "DIAGONALS")["entities"], 1);
  EXPECT_EQ(named(dwg["layers"], "DIAGONALS")["color"], 3);
  EXPECT_EQ(named(dwg["layers"], "PERFIL")["entities"], 2);
  EXPECT_TRUE(dwg["proxies"].empty());
  // The tubes reach half their diameter beyond the nodes, across their axis of 3-4-5: by 50 * 4/5 to the left.
  EXPECT_NEAR(dwg["extents"]["min"][0], -40, 1e-6);
  EXPECT_NEAR(dwg["extents"]["max"][1], 4000 + 30, 1e-6);
  const json dxf = infoOf(folder.path("a.dxf"));
  EXPECT_EQ(dxf["drawing"]["format"], "DXF");
  EXPECT_EQ(dxf["drawing"]["version"], "AC1015");
  EXPECT_EQ(dxf["modelSpace"]["entities"], 3);
}

TEST_F(Drawings, HoldTheLayersThatTheirMembersDrawOn) {
  // They are made when a member is first drawn or filed: a save must not be too early for them.
  const json info = infoOf(folder.path("a.dwg"));
  EXPECT_EQ(info.at("findings"), json::array());
  EXPECT_FALSE(named(info.at("layers"), "EIXO").is_null());
}

TEST_F(Drawings, GiveTheBillAndTheListOfTheJob) {
  const Outcome ofJob = runShell("kr bom - --csv", kSmallJob);
  const Outcome ofDrawing = runShell("kr bom --csv " + path("a.dwg"));
  ASSERT_EQ(ofDrawing.code, 0) << ofDrawing.err;
  EXPECT_EQ(ofDrawing.out, ofJob.out);
  const Outcome listed = runShell("kr list --json " + path("a.dwg"));
  ASSERT_EQ(listed.code, 0) << listed.err;
  EXPECT_TRUE(fitsSchema(listed.out, "list.schema.json"));
  json fromDrawing = json::parse(listed.out);
  json fromJob = json::parse(runShell("kr list --json -", kSmallJob).out);
  // A listing tells the handle, which a drawing gives anew.
  for (json* list : {&fromDrawing, &fromJob}) {
    for (json& member : list->at("members")) member.erase("listing");
  }
  // The end is worked out anew from the length, in the last digits.
  for (std::size_t i = 0; i < 3; ++i) {
    json& end = fromDrawing["members"][i].at("end");
    const json& wanted = fromJob["members"][i].at("end");
    for (std::size_t j = 0; j < 2; ++j) EXPECT_NEAR(end.at(j), wanted.at(j).get<double>(), 1e-9);
    end = wanted;
  }
  EXPECT_EQ(fromDrawing, fromJob);
  EXPECT_EQ(runShell("kr list " + path("a.dwg") + " T9").code, 1);
  EXPECT_THAT(runShell("kr list " + path("a.dwg") + " R1").out, HasSubstr("Nome            R1"));
}

// A DXF's own reader of members refuses those with elements, so they stay as pictures; that of a bar reads nothing.
TEST_F(Drawings, TellWhatTheirBillAndListLeaveOut) {
  for (const std::string verb : {"bom", "list"}) {
    const Outcome run = runShell("kr " + verb + " --json " + path("a.dxf"));
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_TRUE(fitsSchema(run.out, verb + ".schema.json"));
    const json told = json::parse(run.out);
    EXPECT_EQ(told.at("proxies"),
              json::parse(R"([{"class": "KrBarraRedonda", "count": 1}, {"class": "KrTubo", "count": 2}])"));
    EXPECT_EQ(told.at(verb == "bom" ? "items" : "members"), json::array());
    EXPECT_THAT(run.err, HasSubstr("warning: " + folder.path("a.dxf") + ": 3 entities are left out"));
    EXPECT_THAT(run.err, HasSubstr(": 1 KrBarraRedonda, 2 KrTubo\n"));
    EXPECT_FALSE(json::parse(runShell("kr " + verb + " --json " + path("a.dwg")).out).contains("proxies"));
    EXPECT_EQ(runShell("kr " + verb + " " + path("a.dwg")).err, "");
  }
}

TEST_F(Drawings, TellNothingOfPicturesWhereThereAreNone) {
  folder.write("plain.dxf", kRayAndEllipse);
  for (const std::string verb : {"bom", "list"}) {
    const Outcome run = runShell("kr " + verb + " " + path("plain.dxf"));
    EXPECT_EQ(run.code, 0);
    EXPECT_THAT(run.err, AllOf(HasSubstr("2 entities are left out"), HasSubstr(": 1 ELLIPSE, 1 RAY\n")));
    EXPECT_THAT(run.err, Not(HasSubstr("picture")));
  }
}

TEST_F(Drawings, AreTheSameBytesWhenOpenedAndSavedAgain) {
  for (const std::string ending : {".dwg", ".dxf"}) {
    ASSERT_EQ(runShell("kr convert " + path("a" + ending) + " " + path("b" + ending)).code, 0);
    ASSERT_EQ(runShell("kr convert " + path("b" + ending) + " " + path("c" + ending)).code, 0);
    EXPECT_TRUE(saved("a" + ending) == saved("b" + ending)) << ending;
    EXPECT_TRUE(saved("b" + ending) == saved("c" + ending)) << ending;
  }
}

TEST_F(Drawings, AreConvertedWithAllThatTheyHold) {
  ASSERT_EQ(runShell("kr convert " + path("a.dwg") + " " + path("b.dxf")).code, 0);
  ASSERT_EQ(runShell("kr convert " + path("b.dxf") + " " + path("b.dwg")).code, 0);
  const json before = infoOf(folder.path("a.dwg"));
  const json after = infoOf(folder.path("b.dwg"));
  EXPECT_EQ(after.at("modelSpace").at("entities"), before.at("modelSpace").at("entities"));
  EXPECT_EQ(after["extents"], before["extents"]);
  EXPECT_EQ(named(after["layers"], "DIAGONALS"), named(before["layers"], "DIAGONALS"));
  const Outcome toStream = runShell("kr convert " + path("a.dwg") + " - --format dxf");
  EXPECT_EQ(toStream.code, 0);
  EXPECT_EQ(toStream.out, saved("b.dxf"));
}

TEST_F(Drawings, ArePlottedAsTheJobIs) {
  const Outcome ofJob = runShell("kr plot - " + path("job.svg"), kSmallJob);
  ASSERT_EQ(ofJob.code, 0) << ofJob.err;
  ASSERT_EQ(runShell("kr plot " + path("a.dwg") + " " + path("dwg.svg")).code, 0);
  EXPECT_EQ(saved("dwg.svg"), saved("job.svg"));
  const Outcome ofPictures = runShell("kr plot " + path("a.dxf") + " " + path("dxf.svg"));
  ASSERT_EQ(ofPictures.code, 0);
  EXPECT_EQ(ofPictures.err, "") << "nothing is left out";
  EXPECT_EQ(saved("dxf.svg"), saved("job.svg"));
  EXPECT_EQ(infoOf(folder.path("a.dxf")).at("extents"), infoOf(folder.path("a.dwg")).at("extents"));
  ASSERT_EQ(runShell("kr plot " + path("a.dxf") + " " + path("a.pdf") + " --size A4 --scale 1:50").code, 0);
  EXPECT_THAT(runShell("pdfinfo " + path("a.pdf")).out, HasSubstr("595.276 x 841.89 pts"))
      << "what is higher than wide stands on an upright page";
  const Outcome large = runShell("kr plot " + path("a.dwg") + " " + path("b.png") + " --scale 1:2");
  EXPECT_EQ(large.code, 3);
  EXPECT_THAT(large.err, HasSubstr("the largest scale that does is 1:20"));
  for (const char* scale : {"0", "1:0", "-1:5", "1:50x", "a", "nan:1"}) {
    EXPECT_EQ(runShell("kr plot " + path("a.dwg") + " " + path("b.png") + " --scale " + scale).code, 1) << scale;
  }
  EXPECT_FALSE(folder.has("b.png"));
}

// A class whose reader takes nothing, here with one line from (10, 20) to (30, 60) for a picture: 68 bytes, of which 60
// are a chunk with two points. It stands in model space and, 100 to the right, in a block.
TEST(Pictures, AreDrawnOfMembersOfWhichTheFileHoldsNothingElse) {
  const std::string box =
      "  0\nKRBOX\n100\nAcDbEntity\n  8\n0\n 92\n68\n310\n44000000010000003C0000000600000002000000"
      "000000000000244000000000000034400000000000000000"
      "0000000000003E400000000000004E400000000000000000\n";
  const TestFolder folder;
  folder.write("boxes.dxf",
               dxfOf(section("BLOCKS", "  0\nBLOCK\n  8\n0\n  2\nB\n 10\n0\n 20\n0\n" + box + "  0\nENDBLK\n") +
                     section("ENTITIES", box + "  0\nINSERT\n  8\n0\n  2\nB\n 10\n100\n 20\n0\n")));
  const json extents = infoOf(folder.path("boxes.dxf")).at("extents");
  EXPECT_EQ(extents.at("min"), json({10, 20, 0}));
  EXPECT_EQ(extents.at("max"), json({130, 60, 0}));
  const Outcome run = runShell("kr plot " + quoted(folder.path("boxes.dxf")) + " - --format svg");
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_EQ(run.err, "");
  // At 2:1 with the middle, (70, 40), in the middle of the page of 420 by 297; tenths of millimetres, down from its
  // top.
  EXPECT_THAT(run.out, HasSubstr("\"M 900 1885 L 1300 1085 M 2900 1885 L 3300 1085 \""));
}

TEST(Pictures, ThatAreMissingAreToldWhenADrawingIsPlotted) {
  const TestFolder folder;
  const std::string file = quoted(folder.write("plain.dxf", kRayAndEllipse));
  const std::string told = "2 entities can't be drawn, since the file has no picture of them: 1 ELLIPSE, 1 RAY\n";
  const Outcome empty = runShell("kr plot " + file + " - --format svg");
  EXPECT_EQ(empty.code, 3);
  EXPECT_THAT(empty.err, AllOf(HasSubstr(told), HasSubstr("model space draws nothing")));
  // Those of a block that is inserted count as well.
  const std::string block =
      "  0\nBLOCK\n  8\n0\n  2\nB\n 10\n0\n 20\n0\n  0\nXLINE\n100\nAcDbEntity\n  8\n0\n"
      "100\nAcDbXline\n 10\n0\n 20\n0\n 11\n1\n 21\n0\n  0\nENDBLK\n";
  folder.write("block.dxf",
               dxfOf(section("BLOCKS", block) + section("ENTITIES",
                                                        "  0\nLINE\n  8\n0\n 10\n0\n 20\n0\n 11\n30\n 21\n40\n"
                                                        "  0\nINSERT\n  8\n0\n  2\nB\n 10\n100\n 20\n0\n")));
  const Outcome drawn = runShell("kr plot " + quoted(folder.path("block.dxf")) + " - --format svg");
  EXPECT_EQ(drawn.code, 0);
  EXPECT_THAT(drawn.err, HasSubstr("1 entity can't be drawn, since the file has no picture of it: 1 XLINE\n"));
}

TEST(Conversions, TellWhichEntitiesOtherProgramsWontShow) {
  const TestFolder folder;
  const std::string dxf = quoted(folder.write("plain.dxf", kRayAndEllipse));
  const std::string dwg = quoted(folder.path("plain.dwg"));
  const Outcome run = runShell("kr convert " + dxf + " " + dwg);
  ASSERT_EQ(run.code, 0);
  EXPECT_EQ(run.err,
            "kr: warning: the DWG holds 2 entities as proxies without a picture, which other programs don't show: "
            "1 ELLIPSE, 1 RAY\n");
  // A DXF gets them back as they were.
  EXPECT_EQ(runShell("kr convert " + dwg + " - --format dxf > /dev/null").err, "");
  EXPECT_EQ(runShell("kr convert " + dxf + " - --format dxf > /dev/null").err, "");
}

TEST(Builds, TellWhichMembersADrawingHoldsThePictureOfOnly) {
  const std::string job = R"({"kr": 1, "profiles": {
    "box": {"class": "KrBox", "altura": 100, "largura": 60, "espessura": 5, "raio": 5},
    "own": {"class": "KrUser", "espessura": 4, "line": [[0, 0], [50, 0]]}},
    "members": [{"name": "1", "profile": "box", "from": [0, 0], "to": [1000, 0]},
                {"name": "2", "profile": "own", "from": [0, 500], "to": [1000, 500]},
                {"name": "3", "profile": "box", "from": [0, 900], "to": [1000, 900]}]})";
  const TestFolder folder;
  const Outcome dxf = runShell("kr build - " + quoted(folder.path("a.dxf")), job);
  EXPECT_EQ(dxf.code, 0);
  EXPECT_EQ(dxf.err, "kr: warning: the DXF holds nothing but a picture of 3 entities: 2 KrBox, 1 KrUser\n");
  const Outcome dwg = runShell("kr build - " + quoted(folder.path("a.dwg")), job);
  EXPECT_EQ(dwg.err, "kr: warning: the DWG holds nothing but a picture of 1 entity: 1 KrUser\n");
  const Outcome bill = runShell("kr bom --json " + quoted(folder.path("a.dwg")));
  EXPECT_EQ(json::parse(bill.out).at("proxies"), json::parse(R"([{"class": "KrUser", "count": 1}])"));
  EXPECT_EQ(json::parse(bill.out).at("totals").at("count"), 2);
  // What came without data loses none.
  EXPECT_EQ(runShell("kr convert " + quoted(folder.path("a.dxf")) + " - --format dxf > /dev/null").err, "");
}

TEST(Builds, TellThatADrawingWithoutMembersIsEmpty) {
  const TestFolder folder;
  const std::string job = R"({"kr": 1, "profiles": {"tube": {"class": "KrTubo", "Diametro": 100, "Espessura": 5}},
    "members": [], "sheets": [{"profiles": ["tube"]}]})";
  const Outcome run = runShell("kr build - " + quoted(folder.path("a.dwg")), job);
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(run.err, "kr: warning: the job has no members, so its drawing is empty: sheets are no part of it\n");
  EXPECT_EQ(runShell("kr build - " + quoted(folder.path("a.pdf")), job).err, "");
}

TEST_F(Drawings, EndTheirVerbsWithCode3WhenTheyCannotBeRead) {
  const std::string dwg = saved("a.dwg");
  const std::string dxf = saved("a.dxf");
  folder.write("empty.dwg", "");
  folder.write("text.dwg", "this is no drawing\n");
  folder.write("newer.dwg", "AC1032" + dwg.substr(6));
  folder.write("cut.dwg", dwg.substr(0, dwg.size() / 2));
  folder.write("cut.dxf", dxf.substr(0, dxf.size() / 2));
  fs::create_directory(folder.path("folder.dwg"));
  for (const char* name : {"none.dwg", "empty.dwg", "text.dwg", "newer.dwg", "cut.dwg", "cut.dxf", "folder.dwg"}) {
    for (const std::string verb : {"info", "convert", "plot", "bom", "list"}) {
      const std::string output = verb == "convert" ? " " + path("out.dxf")
                                 : verb == "plot"  ? " " + path("out.pdf")
                                                   : "";
      const Outcome run = runShell("kr " + verb + " " + path(name) + output);
      EXPECT_EQ(run.code, 3) << verb << " " << name;
      EXPECT_EQ(run.out, "") << verb << " " << name;
      EXPECT_THAT(run.err, StartsWith("kr: ")) << verb << " " << name;
    }
  }
  EXPECT_FALSE(folder.has("out.dxf") || folder.has("out.pdf"));
  EXPECT_THAT(runShell("kr info " + path("newer.dwg")).err, HasSubstr("AC1032"));
  EXPECT_THAT(runShell("kr info " + path("cut.dwg")).err, HasSubstr("kr recover"));
  for (const char* name : {"none.dwg", "empty.dwg", "text.dwg", "newer.dwg", "folder.dwg"}) {
    EXPECT_EQ(runShell("kr audit " + path(name)).code, 3) << name;
    EXPECT_EQ(runShell("kr recover " + path(name) + " -o " + path("out.dwg")).code, 3) << name;
  }
  EXPECT_FALSE(folder.has("out.dwg"));
}

TEST_F(Drawings, AreNoJobs) {
  const Outcome run = runShell("kr build " + path("a.dwg") + " " + path("b.pdf"));
  EXPECT_EQ(run.code, 3);
  EXPECT_THAT(run.err, HasSubstr("is a drawing, not a job"));
}

TEST_F(Drawings, PassAnAuditWhenTheyAreWhole) {
  for (const char* name : {"a.dwg", "a.dxf"}) {
    const Outcome run = runShell("kr audit " + path(name));
    EXPECT_EQ(run.code, 0) << run.out << run.err;
    EXPECT_THAT(run.out, HasSubstr("no errors found"));
  }
  const std::string before = saved("a.dwg");
  EXPECT_EQ(runShell("kr audit --fix " + path("a.dwg")).code, 0);
  EXPECT_EQ(saved("a.dwg"), before);
  EXPECT_FALSE(folder.has("a.bak")) << "nothing was mended, so nothing is saved";
}

// What each reading puts right, with nothing lost, is no fault that is left.
TEST(Audit, TellsFirstAndMendsOnlyWhenAsked) {
  const TestFolder folder;
  const std::string file = quoted(folder.write("plain.dxf", kPlainDxf));
  const Outcome dry = runShell("kr audit --json " + file);
  EXPECT_EQ(dry.code, 0);
  ASSERT_TRUE(fitsSchema(dry.out, "audit.schema.json"));
  const json found = json::parse(dry.out);
  EXPECT_EQ(found.at("found"), 1);
  EXPECT_EQ(found.at("mended"), 1);
  EXPECT_EQ(found.at("unfixed"), 0);
  EXPECT_EQ(found.at("fixed"), 0);
  EXPECT_EQ(found.at("findings")[0].at("number"), 102);
  EXPECT_THAT(dry.out, HasSubstr("STRAY"));
  EXPECT_THAT(runShell("kr audit " + file).out, HasSubstr("1 found, 0 fixed, 1 mended in reading, 0 unfixed"));
  EXPECT_EQ(folder.read("plain.dxf"), kPlainDxf);
  const Outcome mended = runShell("kr audit --fix --json " + file);
  const json after = json::parse(mended.out);
  EXPECT_EQ(mended.code, 0) << mended.out << mended.err;
  EXPECT_EQ(after.at("unfixed"), 0);
  EXPECT_EQ(after.at("mended"), 0);
  EXPECT_EQ(after.at("fixed"), 1);
  EXPECT_EQ(folder.read("plain.bak"), kPlainDxf);
  const Outcome again = runShell("kr audit " + file);
  EXPECT_EQ(again.code, 0) << again.out;
  EXPECT_THAT(again.out, HasSubstr("no errors found"));
  EXPECT_EQ(infoOf(folder.path("plain.dxf")).at("modelSpace").at("entities"), 2);
}

// A dictionary whose owner is an object that isn't there.
const std::string kOwnerlessDxf =
    dxfOf(section("OBJECTS",
                  "  0\nDICTIONARY\n  5\nA0\n330\n0\n100\nAcDbDictionary\n  3\nX\n350\nA1\n"
                  "  0\nDICTIONARY\n  5\nA1\n330\nFFFF\n100\nAcDbDictionary\n"));

TEST(Audit, GivesFaultsOfTheHostsOwnObjectsTheirNumbers) {
  const TestFolder folder;
  const Outcome run = runShell("kr audit --json " + quoted(folder.write("a.dxf", kOwnerlessDxf)));
  EXPECT_EQ(run.code, 5);
  const json found = json::parse(run.out);
  ASSERT_EQ(found.at("findings").size(), 1U) << run.out;
  EXPECT_EQ(found["findings"][0].at("number"), 201);
  EXPECT_EQ(found["findings"][0].at("class"), "AcDbDictionary");
  EXPECT_EQ(found["findings"][0].at("handle"), "A1");
}

TEST(Audit, WritesUtf8WhateverTheFileHolds) {
  const TestFolder folder;
  const std::string file = quoted(folder.write("a.dxf", dxfOf(section("ENTITIES", "  0\nLIN\xE3\n"))));
  const std::string shown = "entity LIN\u00E3 has no data";
  EXPECT_THAT(runShell("kr audit " + file).out, HasSubstr(shown));
  EXPECT_THAT(runShell("kr recover " + file + " -o " + quoted(folder.path("b.dxf"))).out, HasSubstr(shown));
  EXPECT_THAT(runShell("kr info " + file).err, HasSubstr(shown));
}

// A block that inserts itself: no one can tell what it was to show.
const std::string kRingDxf = dxfOf(section("BLOCKS",
                                           "  0\nBLOCK\n  5\nA1\n  8\n0\n  2\nRING\n"
                                           "  0\nINSERT\n  5\nA2\n  8\n0\n  2\nRING\n  0\nENDBLK\n"));

TEST(Recovery, TellsWhatTheAuditFinds) {
  const TestFolder folder;
  const std::string file = quoted(folder.write("a.dxf", kRingDxf));
  const std::string to = " -o " + quoted(folder.path("b.dxf")) + " --overwrite";
  const Outcome run = runShell("kr recover " + file + to);
  EXPECT_EQ(run.code, 5);
  EXPECT_THAT(run.out,
              AllOf(HasSubstr("is damaged"), HasSubstr("1. 206 AcDbBlockTableRecord "), Not(HasSubstr("whole"))));
  EXPECT_TRUE(folder.has("b.dxf"));
  const Outcome told = runShell("kr recover --json " + file + to);
  EXPECT_TRUE(fitsSchema(told.out, "recover.schema.json"));
  EXPECT_EQ(json::parse(told.out).at("damaged"), true);
  EXPECT_EQ(json::parse(told.out).at("findings").size(), 1U);
  // What the reading puts right isn't lost.
  const Outcome right = runShell("kr recover " + quoted(folder.write("plain.dxf", kPlainDxf)) + to);
  EXPECT_EQ(right.code, 0);
  EXPECT_THAT(right.out, AllOf(HasSubstr("was put right"), HasSubstr("STRAY")));
  // Nor is what the audit mends.
  const Outcome owned = runShell("kr recover " + quoted(folder.write("ownerless.dxf", kOwnerlessDxf)) + to);
  EXPECT_EQ(owned.code, 0);
  EXPECT_THAT(owned.out, AllOf(HasSubstr("was put right"), HasSubstr("201 AcDbDictionary A1: ")));
  EXPECT_THAT(runShell("kr audit " + quoted(folder.path("b.dxf"))).out, HasSubstr("no errors found"));
}

TEST(Recovery, SaysThatADrawingCannotGoToStandardOutput) {
  const TestFolder folder;
  const Outcome run = runShell("kr recover " + quoted(folder.write("plain.dxf", kPlainDxf)) + " -o -");
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("can't go to standard output"));
}

TEST_F(Drawings, ThatWereCutOffAreNeverSaidToBeWhole) {
  for (const std::string ending : {".dwg", ".dxf"}) {
    const std::string whole = saved("a" + ending);
    // The last line end of a DXF is no part of its last group.
    constexpr std::size_t kPlaces = 12;
    for (std::size_t i = 1; i < kPlaces; ++i) {
      const std::size_t size = whole.size() * i / kPlaces;
      SCOPED_TRACE(ending + " cut at " + std::to_string(size));
      folder.write("cut" + ending, whole.substr(0, size));
      const Outcome audited = runShell("kr audit " + path("cut" + ending));
      EXPECT_THAT(audited.code, testing::AnyOf(3, 5));
      EXPECT_THAT(audited.out, Not(HasSubstr("no errors")));
      EXPECT_EQ(runShell("kr audit --fix " + path("cut" + ending)).code, audited.code);
      EXPECT_EQ(saved("cut" + ending).size(), size) << "a damaged file is never replaced";
      const Outcome run = runShell("kr recover " + path("cut" + ending) + " -o " + path("out" + ending));
      EXPECT_THAT(run.code, testing::AnyOf(3, 5)) << run.err;
      EXPECT_EQ(folder.has("out" + ending), run.code == 5);
      if (run.code != 5) continue;
      EXPECT_THAT(run.out, AllOf(HasSubstr("is damaged"), HasSubstr("1. ")));
      EXPECT_EQ(runShell("kr info " + path("out" + ending)).code, 0);
      fs::remove(folder.path("out" + ending));
    }
  }
}

TEST_F(Drawings, ThatAreWholeAreRecoveredWhole) {
  const Outcome run = runShell("kr recover --json " + path("a.dwg") + " -o " + path("b.dwg"));
  ASSERT_EQ(run.code, 0) << run.err;
  EXPECT_TRUE(fitsSchema(run.out, "recover.schema.json"));
  const json told = json::parse(run.out);
  EXPECT_EQ(told.at("damaged"), false);
  EXPECT_EQ(told.at("members"), 3);
  EXPECT_EQ(runShell("kr recover " + path("a.dwg")).code, 1) << "it needs to be told where";
  EXPECT_EQ(runShell("kr recover " + path("a.dwg") + " -o " + path("a.dwg") + " --overwrite").code, 4);
}

TEST_F(Drawings, AreReplacedOnlyWhenAskedAndKeptAsBackup) {
  const std::string old = saved("a.dwg");
  EXPECT_EQ(runShell("kr convert " + path("a.dxf") + " " + path("a.dwg")).code, 4);
  EXPECT_EQ(saved("a.dwg"), old);
  EXPECT_FALSE(folder.has("a.bak"));
  ASSERT_EQ(runShell("kr convert " + path("a.dxf") + " " + path("a.dwg") + " --overwrite").code, 0);
  EXPECT_NE(saved("a.dwg"), old);
  EXPECT_EQ(saved("a.bak"), old);
}

TEST_F(Drawings, StayWhenTheNewOneCannotBeSaved) {
  const std::string old = saved("a.dwg");
  const std::size_t files = folder.count();
  // No file may grow beyond 4 KiB: the save breaks off as on a full disk.
  const Outcome full =
      runShell("trap '' XFSZ; ulimit -f 8; kr build - -o " + path("a.dwg") + " --overwrite", kSmallJob);
  EXPECT_EQ(full.code, 4);
  EXPECT_THAT(full.err, HasSubstr("a.dwg"));
  EXPECT_EQ(saved("a.dwg"), old);
  EXPECT_EQ(folder.count(), files) << "neither a backup nor a temporary file";
  fs::create_directory(folder.path("dir.dwg"));
  for (const std::string& to :
       {folder.path("dir.dwg"), folder.path("no/such.dwg"), std::string("/proc/a.dwg"), std::string("/dev/full")}) {
    const Outcome run = runShell("kr convert " + path("a.dwg") + " " + quoted(to) + " --overwrite --format dwg");
    EXPECT_EQ(run.code, 4) << to;
    EXPECT_THAT(run.err, HasSubstr(to));
  }
  EXPECT_EQ(runShell("kr convert " + path("a.dwg") + " - --format dxf > /dev/full").code, 4);
  EXPECT_EQ(runShell("kr convert " + path("a.dwg") + " " + path("b.pdf")).code, 1);
}

TEST_F(Drawings, StayInAFolderThatCannotBeWritten) {
  if (geteuid() == 0) GTEST_SKIP() << "nothing is read-only to root";
  fs::create_directory(folder.path("fixed"));
  fs::copy(folder.path("a.dwg"), folder.path("fixed/a.dwg"));
  const std::string old = saved("fixed/a.dwg");
  fs::permissions(folder.path("fixed"), fs::perms::owner_read | fs::perms::owner_exec);
  const Outcome run = runShell("kr convert " + path("a.dxf") + " " + path("fixed/a.dwg") + " --overwrite");
  EXPECT_EQ(run.code, 4);
  EXPECT_THAT(run.err, AllOf(HasSubstr("fixed/a.dwg"), HasSubstr("takes no file")));
  EXPECT_EQ(saved("fixed/a.dwg"), old);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.path("fixed")), fs::directory_iterator()), 1);
  fs::permissions(folder.path("fixed"), fs::perms::owner_all);
}

// Whether the tests run under a sanitizer, where each start of the program takes many times as long.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool kIsSanitized = true;
#elif defined(__has_feature)
constexpr bool kIsSanitized = __has_feature(address_sanitizer);
#else
constexpr bool kIsSanitized = false;
#endif

// Tells when a file comes into a folder.
class FolderWatch {
 public:
  explicit FolderWatch(const std::string& folder) {
    EXPECT_GE(inotify_add_watch(watch_, folder.c_str(), IN_CREATE), 0);
  }
  ~FolderWatch() { close(watch_); }
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  void forget() {
    std::array<char, 4096> events;
    while (read(watch_, events.data(), events.size()) > 0) continue;
  }
  // False when none came in a while.
  bool wait() {
    constexpr int kMostMilliseconds = 2000;
    pollfd waiting{watch_, POLLIN, 0};
    return poll(&waiting, 1, kMostMilliseconds) == 1;
  }

 private:
  int watch_ = inotify_init1(IN_NONBLOCK);
};

pid_t startConversion(const std::string& from, const std::string& to) {
  const pid_t child = fork();
  if (child != 0) return child;
  execl(KR_BINARY_DIR "/bin/kr", "kr", "convert", from.c_str(), to.c_str(), "--overwrite", nullptr);
  _exit(127);
}

// Whether that was before its own end.
bool endNow(pid_t child) {
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST_F(Drawings, AreTheOldOrTheNewOneWhenTheProgramIsKilled) {
  // Two drawings take turns in the place of one; each run dies at a moment of its own: one in four anywhere, the others
  // once the save has begun to write.
  std::string other = kSmallJob;
  other.replace(other.find("\"diametro\": 20"), 14, "\"diametro\": 25");
  ASSERT_EQ(runShell("kr build - -o " + path("b.dwg"), other).code, 0);
  using Clock = std::chrono::steady_clock;
  fs::create_directory(folder.path("save"));
  const std::string target = folder.path("save/target.dwg");
  const auto begin = Clock::now();
  for (const std::string name : {"a", "b"}) {
    ASSERT_EQ(runShell("kr convert " + path(name + ".dwg") + " " + quoted(target) + " --overwrite").code, 0);
    fs::copy(target, folder.path(name + ".saved"));
  }
  const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin) / 2;
  const std::string first = saved("a.saved");
  const std::string second = saved("b.saved");
  ASSERT_NE(first, second);
  FolderWatch watch(folder.path("save"));
  std::mt19937 random(20261);
  std::uniform_int_distribution<std::int64_t> anywhere(0, whole.count());
  // From the first byte to the file in its place takes less than this.
  std::uniform_int_distribution<std::int64_t> withinSave(0, 1500);
  constexpr int kWantedWithinSaves = kIsSanitized ? 20 : 200;
  constexpr auto kMostTime = std::chrono::seconds(120);  // on a machine that is busy
  const auto start = Clock::now();
  int killed = 0;
  int withinSaves = 0;  // a temporary file is left
  for (int i = 0; withinSaves < kWantedWithinSaves && Clock::now() - start < kMostTime; ++i) {
    watch.forget();
    const pid_t child = startConversion(folder.path(i % 2 == 0 ? "a.dwg" : "b.dwg"), target);
    if (i % 4 == 0) {
      std::this_thread::sleep_for(std::chrono::microseconds(anywhere(random)));
    } else {
      EXPECT_TRUE(watch.wait()) << "no save began";
      const auto end = Clock::now() + std::chrono::microseconds(withinSave(random));
      while (Clock::now() < end) continue;
    }
    killed += endNow(child) ? 1 : 0;
    bool isWithinSave = false;
    for (const auto& entry : fs::directory_iterator(folder.path("save"))) {
      const std::string name = entry.path().filename().string();
      if (name == "target.dwg" || name == "target.bak") continue;
      isWithinSave = true;
      fs::remove(entry.path());
    }
    withinSaves += isWithinSave ? 1 : 0;
    const std::string now = saved("save/target.dwg");
    ASSERT_TRUE(now == first || now == second) << "round " << i;
    const std::string backup = saved("save/target.bak");
    ASSERT_TRUE(backup.empty() || backup == first || backup == second) << "round " << i;
  }
  RecordProperty("killed", killed);
  RecordProperty("killed_within_saves", withinSaves);
  EXPECT_GE(killed, withinSaves);
  EXPECT_EQ(withinSaves, kWantedWithinSaves);
  EXPECT_EQ(runShell("kr audit " + quoted(target)).code, 0);
}

}  // namespace
