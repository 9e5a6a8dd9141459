// Our drawings with members in programs of other hands.

#include <gmock/gmock.h>

#include <cmath>
#include <sstream>

#include "files/Trips.h"
#include "host/io/PlotTools.h"

namespace {

using namespace trips;
using testing::HasSubstr;

constexpr double kTurn = 2 * 3.141592653589793;
constexpr double kClose = 1e-6;

std::string written(const plottools::Folder& folder, const std::string& name, const Bytes& bytes) {
  return folder.write(name, std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

bool isInstalled(const char* command) {
  return std::system((std::string(command) + " > /dev/null 2>&1").c_str()) == 0;
}

/// A figure as its kind and its numbers, in the words of the script. Of a text only its place counts.
struct Figure {
  std::string kind;
  std::vector<double> numbers;
};

Figure figureOf(const gi::DrawCall& call) {
  const AcGePoint3d& c = call.center;
  Figure figure;
  switch (call.kind) {
    case gi::CallKind::circle:
      return {"circle", {c.x, c.y, c.z, call.radius}};
    case gi::CallKind::arc: {
      const auto angle = [&](const AcGePoint3d& p) { return std::atan2(p.y - c.y, p.x - c.x); };
      const bool turned = call.normal.z < 0;
      return {"arc",
              {c.x, c.y, c.z, call.radius, angle(call.points[turned ? 2 : 0]), angle(call.points[turned ? 0 : 2])}};
    }
    case gi::CallKind::text:
      figure.kind = "text";
      figure.numbers = {call.points[0].x, call.points[0].y, call.points[0].z};
      return figure;
    case gi::CallKind::polygon:
      figure.kind = "polygon";
      for (const AcGePoint3d& p : call.points) figure.numbers.insert(figure.numbers.end(), {p.x, p.y});
      return figure;
    default:
      figure.kind = "polyline";
      for (const AcGePoint3d& p : call.points) figure.numbers.insert(figure.numbers.end(), {p.x, p.y, p.z});
      return figure;
  }
}

void expectSame(const Figure& a, const Figure& b, const std::string& what) {
  ASSERT_EQ(a.kind, b.kind) << what;
  ASSERT_EQ(a.numbers.size(), b.numbers.size()) << what;
  for (std::size_t i = 0; i < a.numbers.size(); ++i) {
    double difference = a.numbers[i] - b.numbers[i];
    if (a.kind == "arc" && i > 3) difference = std::remainder(difference, kTurn);
    EXPECT_NEAR(difference, 0, kClose) << what << " number " << i;
  }
}

}  // namespace

TEST(MemberDrawingElsewhere, PlainEntitiesAreFoundWhereTheyAreByOgr) {
  if (!isInstalled("ogrinfo --version")) GTEST_SKIP() << "ogrinfo isn't installed";
  MemberDrawing drawing;
  const plottools::Folder folder;
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    const std::string path =
        written(folder, form == Form::kDwg ? "members.dwg" : "members.dxf", saved(*drawing.database(), form));
    const std::string told = plottools::run("ogrinfo -al -q " + path + " 2>/dev/null");
    EXPECT_THAT(told, HasSubstr("LINESTRING Z (10 20 0,110 70 0)")) << path;
    if (form == Form::kDwg) {
      // Its reader of this form takes radians for degrees, and leaves off at the first entity that it doesn't know.
      EXPECT_THAT(told, HasSubstr("CIRCULARSTRING Z (25 50 0,50 75 0,75 50 0,50 25 0,25 50 0)"));
      EXPECT_THAT(told, HasSubstr("LINESTRING Z (0 0 0,200 0 0,"));
      continue;
    }
    EXPECT_THAT(told, HasSubstr("P12")) << path;
    // An arc's chords end where the arc begins: 40 about (300, 20) at 0.25.
    char start[64];
    std::snprintf(start, sizeof start, ",%.3f", 300 + 40 * std::cos(0.25));
    EXPECT_THAT(told, HasSubstr(start)) << path;
  }
}

TEST(MemberDrawingElsewhere, PassesTheAuditOfEzdxfWhichDrawsTheSameLines) {
  MemberDrawing drawing;
  const plottools::Folder folder;
  const std::string path = written(folder, "members.dxf", saved(*drawing.database(), Form::kDxf));
  const std::string told = plottools::run("/usr/bin/python3 " KR_SOURCE_DIR "/tests/files/drawing_peers.py " + path);
  if (told == "no ezdxf\n") GTEST_SKIP() << "ezdxf isn't installed";
  EXPECT_EQ(told.find("error"), std::string::npos) << told.substr(0, 2000);
  std::map<std::string, std::vector<Figure>> elsewhere;
  std::vector<Figure>* figures = nullptr;
  std::istringstream lines(told);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string kind;
    words >> kind;
    if (kind == "entity") {
      std::string handle;
      words >> handle;
      figures = &elsewhere[handle];
    } else if (kind != "." && figures != nullptr) {
      figures->push_back({kind, {}});
      for (double number = 0; words >> number;) figures->back().numbers.push_back(number);
    }
  }
  std::size_t compared = 0;
  for (const Placed& placed : drawing.members) {
    char handle[32];
    std::snprintf(handle, sizeof handle, "%llX", static_cast<unsigned long long>(placed.id.handle().value()));
    gi::Recorder recorder;
    recorder.setDatabase(drawing.database());
    recorder.drawWhole(*Open<AcDbEntity>(placed.id, AcDb::kForRead));
    const std::vector<gi::DrawCall> own = recorder.figures();
    const std::vector<Figure>& there = elsewhere[handle];
    ASSERT_EQ(there.size(), own.size()) << placed.label();
    for (std::size_t i = 0; i < own.size(); ++i, ++compared)
      expectSame(there[i], figureOf(own[i]), placed.label() + " figure " + std::to_string(i));
  }
  EXPECT_GT(compared, 2000U);
}
