#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lib/JobReader.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

kr::KnownNames someKnownNames() {
  return {{"PERFIL", "EIXO", "L-HIDDEN"}, {"CONTINUOUS", "DASHED"}};
}

// Every problem of a job as "line:column path message", in order.
std::vector<std::string> problemsOf(const std::string& text) {
  kr::Job job;
  std::vector<kr::Problem> problems;
  const bool good = kr::readJob(text, someKnownNames(), job, problems);
  EXPECT_EQ(good, problems.empty());
  std::vector<std::string> lines;
  for (const kr::Problem& problem : problems) {
    lines.push_back(std::to_string(problem.line) + ":" + std::to_string(problem.column) + " " + problem.path + " " +
                    problem.message);
  }
  return lines;
}

// A good job of one member, whose lines are known: each test replaces a piece of it.
const std::string kGood =
    "{\"kr\": 1,\n"                                                                // 1
    " \"layers\": {\"TUBES\": {\"color\": 5, \"linetype\": \"Dashed\"}},\n"        // 2
    " \"nodes\": {\"A\": [0, 0], \"B\": [3000, 4000]},\n"                          // 3
    " \"profiles\": {\"chord\": {\"class\": \"KrTubo\",\n"                         // 4
    "   \"Diametro\": 114.3,\n"                                                    // 5
    "   \"DiametroInt\": 104.3}},\n"                                               // 6
    " \"members\": [{\"name\": \"M1\", \"profile\": \"chord\",\n"                  // 7
    "   \"from\": \"A\", \"to\": \"B\",\n"                                         // 8
    "   \"view\": \"Superior\", \"role\": \"Diagonal\", \"layer\": \"TUBES\"}]\n"  // 9
    "}\n";

std::string goodWith(const std::string& from, const std::string& to) {
  std::string text = kGood;
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

kr::Job goodJob(const std::string& text = kGood) {
  kr::Job job;
  std::vector<kr::Problem> problems;
  EXPECT_TRUE(kr::readJob(text, someKnownNames(), job, problems));
  for (const kr::Problem& problem : problems) ADD_FAILURE() << kr::describe("job", problem);
  return job;
}

TEST(JobReader, ReadsAMemberBetweenTwoNodes) {
  const kr::Job job = goodJob();
  ASSERT_EQ(job.members.size(), 1U);
  const kr::JobMember& member = job.members[0];
  EXPECT_EQ(job.names.text(member.name), "M1");
  EXPECT_EQ(job.points[member.to].x, 3000);
  EXPECT_EQ(job.points[member.to].y, 4000);
  EXPECT_EQ(job.profiles[member.profile].profileClass->name, "KrTubo");
  EXPECT_EQ(job.profiles[member.profile].values[0], 114.3);
  EXPECT_EQ(job.profiles[member.profile].values[1], 104.3);
  EXPECT_EQ(member.view, 1);
  EXPECT_EQ(member.role, 2);
  EXPECT_EQ(job.names.text(member.layer), "TUBES");
  ASSERT_EQ(job.layers.size(), 1U);
  EXPECT_EQ(job.layers[0].color, 5);
}

TEST(JobReader, TakesPointsInPlaceOfNodes) {
  const kr::Job job = goodJob(goodWith("\"to\": \"B\"", "\"to\": [10.5, -2e1]"));
  EXPECT_EQ(job.points[job.members[0].to].x, 10.5);
  EXPECT_EQ(job.points[job.members[0].to].y, -20);
}

TEST(JobReader, KnowsNodesAndProfilesThatAreDeclaredBehindTheirUse) {
  const std::string text =
      R"({"members": [{"name": "M", "profile": "p", "from": "A", "to": "B"}],
          "profiles": {"p": {"diametro": 20, "class": "KrBarraRedonda"}},
          "nodes": {"A": [0, 0], "B": [1, 0]}, "kr": 1})";
  EXPECT_THAT(problemsOf(text), IsEmpty());
}

TEST(JobReader, TakesTheWallForTheInnerDiameter) {
  const kr::Job job = goodJob(goodWith("\"DiametroInt\": 104.3", "\"Espessura\": 4.3"));
  EXPECT_DOUBLE_EQ(job.profiles[0].values[1], 114.3 - 8.6);
}

TEST(JobReader, SetbacksShortenTheAxisAlongItsDirection) {
  // 3-4-5: 500 mm along it is 300 across and 400 up.
  const kr::Job job = goodJob(goodWith("\"to\": \"B\"", "\"to\": \"B\", \"startSetback\": 500, \"endSetback\": -1000"));
  const kr::MemberAxis axis = kr::memberAxis(job, job.members[0]);
  EXPECT_DOUBLE_EQ(axis.start.x, 300);
  EXPECT_DOUBLE_EQ(axis.start.y, 400);
  EXPECT_DOUBLE_EQ(axis.end.x, 3600);
  EXPECT_DOUBLE_EQ(axis.end.y, 4800);
}

TEST(JobReader, ReadsScalesAndOptionsOfASheet) {
  const kr::Job job =
      goodJob(goodWith("\"TUBES\"}]",
                       "\"TUBES\"}], \"sheets\": [{\"size\": \"A2\", \"scale\": \"1:25\", \"table\": false,"
                       " \"notes\": [\"a\", \"b\"], \"title\": {\"number\": \"7\"}}]"));
  ASSERT_EQ(job.sheets.size(), 1U);
  EXPECT_EQ(job.sheets[0].size, "A2");
  EXPECT_DOUBLE_EQ(job.sheets[0].scale, 0.04);
  EXPECT_FALSE(job.sheets[0].table);
  EXPECT_TRUE(job.sheets[0].sections);
  EXPECT_EQ(job.sheets[0].notes.size(), 2U);
  EXPECT_EQ(job.sheets[0].title.number, "7");
  EXPECT_EQ(job.title.number, "");
}

TEST(JobReader, TellsASyntaxErrorWithItsPlace) {
  EXPECT_THAT(problemsOf(goodWith("\"kr\": 1,", "\"kr\": 1;")),
              ElementsAre(testing::StartsWith("1:9 /kr syntax error while parsing object")));
}

TEST(JobReader, TellsATextThatEndsTooSoon) {
  EXPECT_THAT(
      problemsOf("{\"kr\": 1,\n \"nodes\": {"),
      ElementsAre(testing::AllOf(testing::StartsWith("2:12 /nodes"), testing::HasSubstr("unexpected end of input"))));
}

TEST(JobReader, TellsAnEmptyText) {
  EXPECT_THAT(problemsOf(""), testing::SizeIs(1));
}

TEST(JobReader, TellsAnUnknownKeyAndTheNearest) {
  EXPECT_THAT(problemsOf(goodWith("\"view\"", "\"veiw\"")),
              ElementsAre("9:4 /members/0/veiw unknown key \"veiw\" in a member: did you mean \"view\"?"));
}

TEST(JobReader, SkipsTheValueOfAnUnknownKeyWhole) {
  EXPECT_THAT(problemsOf(goodWith("\"kr\": 1,", "\"kr\": 1, \"extra\": {\"a\": [1, {\"b\": null}]},")),
              ElementsAre(testing::StartsWith("1:11 /extra unknown key \"extra\" in a job")));
}

TEST(JobReader, TellsAWrongType) {
  EXPECT_THAT(problemsOf(goodWith("\"A\": [0, 0]", "\"A\": \"0,0\"")),
              ElementsAre("3:17 /nodes/A expected a node: [x, y] or [x, y, z] in mm, found a text",
                          "8:12 /members/0/from unknown node \"A\": did you mean \"B\"?"));
}

TEST(JobReader, TellsAWrongTypeWithinAPoint) {
  EXPECT_THAT(problemsOf(goodWith("[3000, 4000]", "[3000, \"4000\"]"))[0],
              "3:37 /nodes/B/1 expected a coordinate in mm, found a text");
}

TEST(JobReader, ReadsAPointInSpace) {
  const kr::Job job = goodJob(goodWith("[3000, 4000]", "[3000, 4000, -50]"));
  EXPECT_EQ(job.points.at(1).z, -50);
  EXPECT_EQ(job.points.at(0).z, 0);
  EXPECT_TRUE(kr::isSpatial(job));
  EXPECT_FALSE(kr::isSpatial(goodJob()));
}

TEST(JobReader, TellsAPointOfOneOrFourCoordinates) {
  EXPECT_THAT(problemsOf(goodWith("[3000, 4000]", "[3000, 4000, 0, 0]"))[0],
              "3:30 /nodes/B expected [x, y] or [x, y, z] in mm, found 4 elements");
  EXPECT_THAT(problemsOf(goodWith("[3000, 4000]", "[3000]"))[0],
              "3:30 /nodes/B expected [x, y] or [x, y, z] in mm, found 1 elements");
}

// The good job with sheets behind its members, on a line of their own.
std::string goodWithSheets(const std::string& sheets) {
  return goodWith("\"TUBES\"}]\n", "\"TUBES\"}],\n\"sheets\": [" + sheets + "]\n");
}

TEST(JobReader, ReadsViewsOfASheet) {
  const kr::Job job = goodJob(goodWithSheets(
      R"({"views": [{"look": "right", "title": "T", "scale": "1:20", "from": -5, "to": 7.5, "members": ["M1"],
          "roles": ["Pilar", "Viga"], "marks": false, "dimensions": false}, {"look": "plan"}]})"));
  const kr::JobView& view = job.sheets.at(0).views.at(0);
  EXPECT_EQ(view.look, kr::Look::kRight);
  EXPECT_EQ(view.title, "T");
  EXPECT_EQ(view.scale, 0.05);
  EXPECT_EQ(view.from, -5);
  EXPECT_EQ(view.to, 7.5);
  EXPECT_THAT(view.members, ElementsAre(0U));
  EXPECT_THAT(view.roles, ElementsAre(6, 5));
  EXPECT_FALSE(view.marks);
  EXPECT_FALSE(view.dimensions);
  EXPECT_TRUE(job.sheets[0].views.at(1).members.empty());
}

TEST(JobReader, TellsWhatAViewNamesAndIsNotThere) {
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{"look": "plan", "members": ["M1", "M2"]}]})")),
              ElementsAre("10:58 /sheets/0/views/0/members/1 unknown member \"M2\": did you mean \"M1\"?"));
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"profiles": ["cord"]})")),
              ElementsAre("10:26 /sheets/0/profiles/0 unknown profile \"cord\": did you mean \"chord\"?"));
}

TEST(JobReader, TellsAViewWithoutALookOrWithLimitsTheWrongWayRound) {
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{}]})")),
              ElementsAre(testing::StartsWith("10:23 /sheets/0/views/0 missing \"look\"")));
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{"look": "plan", "from": 2, "to": 1}]})")),
              ElementsAre("10:23 /sheets/0/views/0 \"from\" must not be greater than \"to\""));
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{"look": "up"}]})")),
              ElementsAre(testing::StartsWith("10:32 /sheets/0/views/0/look ")));
}

TEST(JobReader, TellsContentsOfASheetThatExcludeEachOther) {
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{"look": "plan"}], "profiles": ["chord"]})")),
              ElementsAre(testing::HasSubstr("/sheets/0/profiles a sheet holds either")));
  EXPECT_THAT(problemsOf(goodWithSheets(R"({"views": [{"look": "plan"}], "details": [{"at": "A", "scale": "1:5"}]})")),
              ElementsAre(testing::HasSubstr("/sheets/0/details details are of the elevation of a plane job")));
}

TEST(JobReader, TellsARotationBeyondAFullTurn) {
  EXPECT_THAT(problemsOf(goodWith("\"view\": \"Superior\"", "\"rotation\": 361")),
              ElementsAre(testing::HasSubstr("/members/0/rotation must be from -360 to 360")));
}

TEST(JobReader, TellsAMissingValue) {
  EXPECT_THAT(problemsOf(goodWith("\"from\": \"A\", ", "")),
              ElementsAre("7:14 /members/0 missing \"from\": the name of a node, or [x, y] or [x, y, z] in mm"));
}

TEST(JobReader, TellsAMissingParameterOfAProfile) {
  EXPECT_THAT(problemsOf(goodWith("\"Diametro\": 114.3,", "")),
              ElementsAre("4:24 /profiles/chord missing \"Diametro\": outer diameter, mm"));
}

TEST(JobReader, TellsADuplicateKey) {
  EXPECT_THAT(problemsOf(goodWith("\"to\": \"B\"", "\"to\": \"B\", \"to\": \"A\"")),
              ElementsAre("8:28 /members/0/to duplicate key \"to\": give it once"));
}

TEST(JobReader, TellsADuplicateNode) {
  EXPECT_THAT(problemsOf(goodWith("\"A\": [0, 0]", "\"A\": [0, 0], \"A\": [1, 1]")),
              ElementsAre("3:25 /nodes/A duplicate name \"A\": each must be unique"));
}

TEST(JobReader, TellsADuplicateNameOfAMember) {
  EXPECT_THAT(problemsOf(goodWith("\"layer\": \"TUBES\"}",
                                  "\"layer\": \"TUBES\"},\n{\"name\": \"M1\", \"profile\": \"chord\", \"from\": \"B\", "
                                  "\"to\": \"A\"}")),
              ElementsAre("10:10 /members/1/name duplicate name \"M1\": member 0 has it already; each must be unique"));
}

TEST(JobReader, TellsAZeroSize) {
  EXPECT_THAT(problemsOf(goodWith("114.3", "0")),
              ElementsAre("5:16 /profiles/chord/Diametro must be greater than 0: expected outer diameter, mm"));
}

TEST(JobReader, TellsANegativeSize) {
  EXPECT_THAT(problemsOf(goodWith("104.3", "-104.3")),
              ElementsAre("6:19 /profiles/chord/DiametroInt must be greater than 0: expected inner diameter, mm"));
}

TEST(JobReader, TellsANumberTooGreatAndReadsOn) {
  EXPECT_THAT(problemsOf(goodWith("[3000, 4000]", "[1e999, 4000], \"C\": [\"\\\"1e999\", -1e999]")),
              ElementsAre("3:31 /nodes/B/0 the number is too great to be held: expected a coordinate in mm",
                          "3:51 /nodes/C/0 expected a coordinate in mm, found a text",
                          "3:62 /nodes/C/1 the number is too great to be held: expected a coordinate in mm",
                          testing::StartsWith("8:23 /members/0/to unknown node \"B\"")));
}

TEST(JobReader, TellsASizeTooGreatToBeHeld) {
  EXPECT_THAT(
      problemsOf(goodWith("114.3", "1e999")),
      ElementsAre("5:16 /profiles/chord/Diametro the number is too great to be held: expected outer diameter, mm"));
}

TEST(JobReader, TellsATubeThickerThanItsRadius) {
  EXPECT_THAT(
      problemsOf(goodWith("\"DiametroInt\": 104.3", "\"Espessura\": 57.15")),
      ElementsAre("6:17 /profiles/chord/Espessura tube thicker than its radius: \"Espessura\" must be less than "
                  "half of \"Diametro\""));
}

TEST(JobReader, TellsATubeWithoutAWall) {
  EXPECT_THAT(problemsOf(goodWith("104.3", "114.3")),
              ElementsAre("6:19 /profiles/chord/DiametroInt no wall left: \"DiametroInt\" must be less than "
                          "\"Diametro\""));
}

TEST(JobReader, TellsATubeWithInnerDiameterAndWall) {
  EXPECT_THAT(problemsOf(goodWith("104.3", "104.3, \"Espessura\": 5")),
              ElementsAre("6:39 /profiles/chord/Espessura give either \"DiametroInt\" or \"Espessura\", not both"));
}

TEST(JobReader, TellsAParameterOfAnotherClass) {
  EXPECT_THAT(problemsOf(goodWith("\"Diametro\": 114.3", "\"Diametr\": 114.3")),
              ElementsAre("4:24 /profiles/chord missing \"Diametro\": outer diameter, mm",
                          "5:15 /profiles/chord/Diametr unknown key \"Diametr\" in a profile of class KrTubo: did you "
                          "mean \"Diametro\"?"));
}

TEST(JobReader, TellsAnUnknownClass) {
  EXPECT_THAT(problemsOf(goodWith("KrTubo", "KrTube")),
              ElementsAre("4:34 /profiles/chord/class unknown class of profile \"KrTube\": did you mean \"KrTubo\"?"));
}

TEST(JobReader, TellsAnEndThatEqualsTheStart) {
  EXPECT_THAT(problemsOf(goodWith("\"to\": \"B\"", "\"to\": \"A\"")),
              ElementsAre("8:23 /members/0/to the end equals the start: \"from\" and \"to\" must be two different "
                          "points"));
}

TEST(JobReader, TellsSetbacksThatLeaveNothing) {
  EXPECT_THAT(
      problemsOf(goodWith("\"to\": \"B\"", "\"to\": \"B\", \"startSetback\": 5000")),
      ElementsAre("8:44 /members/0/startSetback the setbacks leave nothing: together they must be less than the "
                  "distance of 5000.0 mm between the nodes"));
}

TEST(JobReader, TellsAnUnknownLayer) {
  EXPECT_THAT(problemsOf(goodWith("\"layer\": \"TUBES\"", "\"layer\": \"TUBE\"")),
              ElementsAre("9:53 /members/0/layer unknown layer \"TUBE\": did you mean \"TUBES\"?"));
}

TEST(JobReader, TellsAnUnknownLineStyle) {
  EXPECT_THAT(problemsOf(goodWith("\"Dashed\"", "\"dotty\"")),
              ElementsAre("2:47 /layers/TUBES/linetype unknown line style \"dotty\": known are \"CONTINUOUS\", "
                          "\"DASHED\""));
}

TEST(JobReader, TellsAnUnknownProfile) {
  EXPECT_THAT(problemsOf(goodWith("\"profile\": \"chord\"", "\"profile\": \"chrod\"")),
              ElementsAre("7:40 /members/0/profile unknown profile \"chrod\": did you mean \"chord\"?"));
}

TEST(JobReader, TellsAnUnknownView) {
  EXPECT_THAT(problemsOf(goodWith("\"Superior\"", "\"superior\"")),
              ElementsAre("9:12 /members/0/view unknown view \"superior\": did you mean \"Superior\"?"));
}

TEST(JobReader, TellsAnUnknownNode) {
  EXPECT_THAT(problemsOf(goodWith("\"to\": \"B\"", "\"to\": \"Node 17\"")),
              ElementsAre("8:23 /members/0/to unknown node \"Node 17\": known are \"A\", \"B\""));
}

TEST(JobReader, TellsAWrongVersion) {
  EXPECT_THAT(problemsOf(goodWith("\"kr\": 1", "\"kr\": 2")),
              ElementsAre("1:8 /kr must be from 1 to 1: expected the version of the format, 1"));
}

TEST(JobReader, TellsAScaleThatIsNone) {
  EXPECT_THAT(problemsOf(goodWith("\"TUBES\"}]", "\"TUBES\"}], \"sheets\": [{\"scale\": \"1/50\"}]")),
              ElementsAre(testing::HasSubstr("/sheets/0/scale not a scale: \"1/50\"")));
}

TEST(JobReader, TellsAJobThatIsNoObject) {
  EXPECT_THAT(problemsOf("[1]"), ElementsAre("1:1  a job is an object: expected { ... }, found a list"));
}

TEST(JobReader, TellsEveryProblemInOneRunInTheOrderOfTheText) {
  const std::string text =
      "{\"kr\": 1,\n"
      " \"nodes\": {\"A\": [0, 0], \"B\": [0]},\n"
      " \"profiles\": {\"p\": {\"class\": \"KrTubo\", \"Diametro\": -1, \"DiametroInt\": 5}},\n"
      " \"members\": [\n"
      "  {\"name\": \"1\", \"profile\": \"q\", \"from\": \"A\", \"to\": \"A\"},\n"
      "  {\"name\": \"2\", \"profile\": \"p\", \"from\": \"A\", \"to\": [1, 2], \"layer\": \"none\", \"rôle\": 0, "
      "\"x\": 1}\n"
      " ]}\n";
  EXPECT_THAT(problemsOf(text),
              ElementsAre(testing::StartsWith("2:30 /nodes/B "), testing::StartsWith("3:52 /profiles/p/Diametro "),
                          testing::StartsWith("5:28 /members/0/profile "), testing::StartsWith("5:52 /members/0/to "),
                          testing::StartsWith("6:69 /members/1/layer "), testing::StartsWith("6:77 /members/1/rôle "),
                          testing::StartsWith("6:88 /members/1/x ")));
}

TEST(JobReader, TellsThousandsOfProblemsInTime) {
  // Each is a reference to a node that isn't there, among thousands of nodes that it might have meant.
  std::string nodes;
  std::string members;
  constexpr int kCount = 5000;
  for (int i = 0; i < kCount; ++i) {
    const std::string number = std::to_string(i);
    nodes += (i > 0 ? "," : "") + ("\"node" + number + "\": [" + number + ", 0]");
    members += (i > 0 ? "," : "") +
               ("{\"name\": \"" + number + "\", \"profile\": \"p\", \"from\": \"nod" + number + "\", \"to\": [0, 1]}");
  }
  const auto problems = problemsOf("{\"kr\": 1, \"nodes\": {" + nodes +
                                   "}, \"profiles\": {\"p\": {\"class\": \"KrBarraRedonda\", \"diametro\": 1}}, "
                                   "\"members\": [" +
                                   members + "]}");
  ASSERT_EQ(problems.size(), static_cast<std::size_t>(kCount));
  EXPECT_THAT(problems.front(), testing::HasSubstr("did you mean"));
  EXPECT_THAT(problems.back(), testing::HasSubstr("unknown node \"nod4999\": declare it in \"nodes\""));
}

TEST(JobReader, EscapesNamesInPaths) {
  EXPECT_THAT(problemsOf(goodWith("\"nodes\": {", "\"nodes\": {\"a/b~c\": 1, "))[0],
              testing::HasSubstr(" /nodes/a~1b~0c expected a node"));
}

TEST(JobReader, RefusesATextNestedTooDeep) {
  const std::string text =
      goodWith("\"kr\": 1,", "\"kr\": 1, \"x\": " + std::string(100000, '[') + std::string(100000, ']') + ",");
  const auto problems = problemsOf(text);
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_THAT(problems[1], testing::HasSubstr("nested deeper than 32 levels"));
}

TEST(JobReader, EndsWellAtEveryCutOfAGoodJob) {
  for (std::size_t length = 0; length < kGood.size() - 2; ++length) {
    EXPECT_FALSE(problemsOf(kGood.substr(0, length)).empty()) << length;
  }
}

// The profile in place of the good job's: its line begins at 4:24.
std::string withLine(const std::string& rest) {
  std::string text = kGood;
  const std::size_t at = text.find("{\"class\"");
  return text.replace(at, text.find("}},", at) + 1 - at, "{\"class\": \"KrUser\", " + rest + "}");
}

TEST(JobReader, TakesASectionByItsMiddleLine) {
  const kr::Job job = goodJob(withLine("\"line\": [[0, 60], [0, 6, 0.41421], [6, 0]], \"espessura\": 3"));
  const kr::ParameterValues& values = job.profiles[0].values;
  EXPECT_EQ(values[0], 3);
  ASSERT_NE(values.line, nullptr);
  ASSERT_EQ(values.line->points.size(), 3U);
  EXPECT_EQ(values.line->points[0].bulge, 0);
  EXPECT_EQ(values.line->points[1].y, 6);
  EXPECT_EQ(values.line->points[1].bulge, 0.41421);
  EXPECT_EQ(values.line->origin.x, 0);  // the first point
  EXPECT_EQ(values.line->origin.y, 60);
}

TEST(JobReader, TakesTheOriginOfAMiddleLine) {
  const kr::Job job = goodJob(withLine("\"espessura\": 3, \"origin\": [7, 8], \"line\": [[0, 60], [0, 6]]"));
  EXPECT_EQ(job.profiles[0].values.line->origin.x, 7);
  EXPECT_EQ(job.profiles[0].values.line->origin.y, 8);
}

TEST(JobReader, TellsWhatIsWrongWithAMiddleLine) {
  struct Case {
    std::string rest;
    std::string problem;
  };
  const Case cases[] = {
      {"\"espessura\": 3", "4:24 /profiles/chord missing \"line\": at least two points of the section's middle line"},
      {"\"espessura\": 3, \"line\": 5",
       "4:68 /profiles/chord/line expected a list of points, the section's middle line, found a number"},
      {"\"espessura\": 3,\n\"line\": [[0, 0]]", "5:9 /profiles/chord/line the middle line needs at least two points"},
      {"\"espessura\": 3,\n\"line\": [[0, 0], [0, 0, 1], [1, 1]]",
       "5:18 /profiles/chord/line/1 the point equals the one before: successive points must be different"},
      {"\"espessura\": 3,\n\"line\": [[0, 0, 1.5], [9, 0]]",
       "5:17 /profiles/chord/line/0/2 must be from -1 to 1: expected a bulge, the tangent of a quarter of the arc's "
       "angle"},
      {"\"espessura\": 3,\n\"line\": [[0, 1e999], [9, 0]]",
       "5:14 /profiles/chord/line/0/1 the number is too great to be held: expected a coordinate in mm"},
      {"\"espessura\": 3,\n\"line\": [[0, 0], [9]]",
       "5:18 /profiles/chord/line/1 expected [x, y] in mm or [x, y, bulge], found 1 elements"},
      {"\"espessura\": 3,\n\"line\": [[0, 0], \"B\"]",
       "5:18 /profiles/chord/line/1 expected [x, y] in mm or [x, y, bulge], found a text"},
      {"\"espessura\": 3,\n\"line\": [[0, 0], [9, 0, 0.5]]",
       "5:9 /profiles/chord/line no edge starts at the last point: it must have no bulge"},
      // A half circle over 2.9 has a radius of 1.45.
      {"\"espessura\": 3,\n\"line\": [[0, 0, 1], [2.9, 0]]",
       "5:9 /profiles/chord/line the bend from point 0 is too tight: its radius must be at least half of "
       "\"espessura\""},
      {"\"espessura\": 3,\n\"line\": [[0, 0], [9, 0], [9, 9]]",
       "5:9 /profiles/chord/line the line has a corner at point 1: metal is bent by arcs that are tangent to the "
       "edges beside them"},
      {"\"espessura\": 3, \"line\": [[0, 0], [9, 0]],\n\"origin\": [1, 2, 3]",
       "5:11 /profiles/chord/origin expected [x, y] in mm, found 3 elements"},
      {"\"espessura\": 0, \"line\": [[0, 0], [9, 0]]",
       "4:57 /profiles/chord/espessura must be greater than 0: expected thickness of the metal, mm"},
      {"\"line\": [[0, 0], [9, 0]]", "4:24 /profiles/chord missing \"espessura\": thickness of the metal, mm"},
  };
  for (const Case& each : cases) EXPECT_THAT(problemsOf(withLine(each.rest)), ElementsAre(each.problem)) << each.rest;
}

TEST(JobReader, TakesTheTightestBendThatTheMetalAllows) {
  EXPECT_THAT(problemsOf(withLine("\"espessura\": 3, \"line\": [[0, 0, -1], [3, 0]]")), IsEmpty());
}

TEST(JobReader, KnowsNoLineInOtherClasses) {
  EXPECT_THAT(problemsOf(goodWith("\"DiametroInt\": 104.3", "\"line\": []")),
              ElementsAre(testing::StartsWith(
                  "6:12 /profiles/chord/line unknown key \"line\" in a profile of class KrTubo: ")));
}

}  // namespace
