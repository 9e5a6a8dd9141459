#include <cmath>
#include <numbers>

#include "DwgTools.h"
#include "host/io/dwg/Container.h"
#include "host/io/dwg/Frame.h"

// Drawings that other programs wrote.

namespace {

using namespace dwgtools;

class DwgSamples : public testing::TestWithParam<std::filesystem::path> {};
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DwgSamples);
INSTANTIATE_TEST_SUITE_P(Files, DwgSamples, testing::ValuesIn(sampleFiles()), [](const auto& each) {
  std::string name = each.param.stem().string();
  for (char& c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '_';
  }
  return name;
});

TEST_P(DwgSamples, OpenWithAllChecksumsRight) {
  const Opened drawing(bytesOf(GetParam()));
  EXPECT_EQ(drawing.status, Acad::eOk);
  EXPECT_TRUE(drawing.report.clean()) << textOf(drawing.report);
}

TEST_P(DwgSamples, LeaveNoObjectOpen) {
  const Opened drawing(bytesOf(GetParam()));
  EXPECT_EQ(drawing.database->numOpenObjects(), 0);
}

TEST_P(DwgSamples, AreTheSameWhenWrittenAndOpenedAgain) {
  const Opened first(bytesOf(GetParam()));
  ASSERT_EQ(first.status, Acad::eOk);
  const Bytes written = saved(*first.database);
  const Opened second(written);
  ASSERT_EQ(second.status, Acad::eOk) << textOf(second.report);
  EXPECT_TRUE(second.report.clean()) << textOf(second.report);
  expectSame(*first.database, *second.database);  // behind the save, which may have added what the file lacked
}

TEST_P(DwgSamples, GiveTheSameBytesWhenSavedOpenedAndSavedAgain) {
  const Opened first(bytesOf(GetParam()));
  ASSERT_EQ(first.status, Acad::eOk);
  const Bytes written = saved(*first.database);
  const Opened second(written);
  ASSERT_EQ(second.status, Acad::eOk);
  const Bytes again = saved(*second.database);
  EXPECT_EQ(written.size(), again.size());
  EXPECT_TRUE(written == again);
}

/// The bits of an object's data, from its type number on, and its handles.
struct Parts {
  std::string data;
  std::vector<krio::dwg::HandleRef> handles;
};
std::map<std::uint64_t, Parts> objectsOf(const Bytes& bytes, const std::vector<unsigned>& types) {
  using namespace krio::dwg;
  krio::Report report;
  FaultPolicy policy(report, false);
  const ByteSpan file(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  Container container(file, policy);
  EXPECT_TRUE(container.read());
  std::map<std::uint64_t, Parts> objects;
  for (const MapEntry& entry : container.map()) {
    const auto object = container.objectAt(entry.address);
    const auto frame = readFrame(file, *object);
    if (std::find(types.begin(), types.end(), frame->type) == types.end()) continue;
    Parts parts;
    // What stands ahead of the common data are sizes, and extended data, whose texts may have ended with a zero byte.
    for (BitReader bits = frame->data; bits.left() > 0;) parts.data += bits.b() ? '1' : '0';
    for (BitReader handles = frame->handles; handles.left() >= 8;) {
      HandleRef ref = handles.h();
      if (ref.code > kHardPointer) ref = {kSoftPointer, absoluteHandle(ref, entry.handle)};
      parts.handles.push_back(ref);
    }
    objects[entry.handle] = parts;
  }
  return objects;
}

TEST_P(DwgSamples, KeepEveryBitOfTheUsualEntities) {
  using namespace krio::dwg;
  // Without texts, which the files may hold with a zero byte at their end.
  const std::vector<unsigned> types = {kLine,  kArc,      kCircle,   kPoint,      kLwPolyline, kInsert, kSolid,
                                       kTrace, kVertex2d, kVertex3d, kPolyline2d, kPolyline3d, kLeader};
  const Bytes original = bytesOf(GetParam());
  const Opened drawing(original);
  ASSERT_EQ(drawing.status, Acad::eOk);
  const auto before = objectsOf(original, types);
  const auto after = objectsOf(saved(*drawing.database), types);
  ASSERT_EQ(before.size(), after.size());
  for (const auto& [handle, parts] : before) {
    const Parts& other = after.at(handle);
    EXPECT_EQ(parts.data, other.data) << std::hex << handle;
    EXPECT_EQ(parts.handles.size(), other.handles.size()) << std::hex << handle;
    EXPECT_TRUE(parts.handles == other.handles) << std::hex << handle;
  }
}

// --- Against the exchange files of the same drawings

/// The groups of each object of a DXF file, by handle.
using Groups = std::vector<std::pair<int, std::string>>;
std::map<std::uint64_t, Groups> dxfObjects(const std::filesystem::path& path) {
  std::map<std::uint64_t, Groups> objects;
  std::ifstream file(path);
  std::string code, value;
  Groups groups;
  const auto finish = [&] {
    for (const auto& [c, v] : groups) {
      if (c == 5) objects[std::stoull(v, nullptr, 16)] = groups;
    }
    groups.clear();
  };
  while (std::getline(file, code) && std::getline(file, value)) {
    if (!value.empty() && value.back() == '\r') value.pop_back();
    const int number = std::stoi(code);
    if (number == 0) finish();
    groups.emplace_back(number, value);
  }
  finish();
  return objects;
}

double real(const Groups& groups, int code, double preset = 0.0) {
  for (const auto& [c, v] : groups) {
    if (c == code) return std::stod(v);
  }
  return preset;
}
std::string text(const Groups& groups, int code) {
  for (const auto& [c, v] : groups) {
    if (c == code) return v;
  }
  return {};
}
std::vector<double> reals(const Groups& groups, int code) {
  std::vector<double> values;
  for (const auto& [c, v] : groups) {
    if (c == code) values.push_back(std::stod(v));
  }
  return values;
}

/// Some programs write a DXF with six digits behind the point.
void expectNear(double a, double b, const std::string& what) {
  EXPECT_NEAR(a, b, std::max(1e-6, 1e-9 * std::fabs(b))) << what;
}
void expectPoint(const AcGePoint3d& p, const Groups& groups, int code, const std::string& what) {
  expectNear(p.x, real(groups, code), what + " x");
  expectNear(p.y, real(groups, code + 10), what + " y");
  expectNear(p.z, real(groups, code + 20), what + " z");
}

std::string layerOf(const AcDbEntity& entity) {
  const auto* const record = AcDbLayerTableRecord::cast(entity.common().layer.stub()->object);
  return record != nullptr ? os::toUtf8(record->nameText()) : std::string();
}

TEST_P(DwgSamples, HaveTheValuesThatTheExchangeFileOfTheSameDrawingTells) {
  std::filesystem::path dxf = GetParam();
  dxf.replace_extension(".dxf");
  if (!std::filesystem::exists(dxf)) GTEST_SKIP() << "no exchange file of this drawing";
  const auto told = dxfObjects(dxf);
  const Opened drawing(bytesOf(GetParam()));
  ASSERT_EQ(drawing.status, Acad::eOk);
  constexpr double kDegree = std::numbers::pi / 180;
  int compared = 0;
  for (const AcDbStub& stub : drawing.database->handleTable().stubs()) {
    const auto found = told.find(stub.handle);
    const auto* const entity = AcDbEntity::cast(stub.object);
    if (entity == nullptr || found == told.end()) continue;
    const Groups& groups = found->second;
    const std::string what = groups[0].second + " " + text(groups, 5);
    if (groups[0].second == "ENDBLK" || groups[0].second == "BLOCK" || groups[0].second == "ACAD_PROXY_ENTITY")
      continue;
    EXPECT_EQ(layerOf(*entity), text(groups, 8)) << what;
    ++compared;
    if (const auto* const line = AcDbLine::cast(entity)) {
      EXPECT_EQ(groups[0].second, "LINE");
      expectPoint(line->data().start, groups, 10, what), expectPoint(line->data().end, groups, 11, what);
    } else if (const auto* const arc = AcDbArc::cast(entity)) {
      EXPECT_EQ(groups[0].second, "ARC");
      expectPoint(arc->data().center, groups, 10, what), expectNear(arc->data().radius, real(groups, 40), what);
      expectNear(arc->data().startAngle, kDegree * real(groups, 50), what);
      expectNear(arc->data().endAngle, kDegree * real(groups, 51), what);
    } else if (const auto* const circle = AcDbCircle::cast(entity)) {
      EXPECT_EQ(groups[0].second, "CIRCLE");
      expectPoint(circle->data().center, groups, 10, what), expectNear(circle->data().radius, real(groups, 40), what);
    } else if (const auto* const point = AcDbPoint::cast(entity)) {
      EXPECT_EQ(groups[0].second, "POINT");
      expectPoint(point->data().position, groups, 10, what);
    } else if (const auto* const polyline = AcDbPolyline::cast(entity)) {
      EXPECT_EQ(groups[0].second, "LWPOLYLINE");
      const auto x = reals(groups, 10), y = reals(groups, 20);
      ASSERT_EQ(polyline->data().points.size(), x.size());
      for (std::size_t i = 0; i < x.size(); ++i) {
        expectNear(polyline->data().points[i].x, x[i], what), expectNear(polyline->data().points[i].y, y[i], what);
      }
      EXPECT_EQ((polyline->data().flags & AcDbPolyline::kClosed) != 0, (int(real(groups, 70)) & 1) != 0) << what;
    } else if (const auto* const mtext = AcDbMText::cast(entity)) {
      EXPECT_EQ(groups[0].second, "MTEXT");
      expectPoint(mtext->data().location, groups, 10, what), expectNear(mtext->data().height, real(groups, 40), what);
      EXPECT_EQ(mtext->data().attachment, int(real(groups, 71))) << what;
    } else if (const auto* const label = AcDbText::cast(entity)) {
      expectNear(label->data().height, real(groups, 40), what);
      expectNear(label->data().position.x, real(groups, 10), what);
      expectNear(label->data().position.y, real(groups, 20), what);
      expectNear(label->data().rotation, kDegree * real(groups, 50), what);
      EXPECT_EQ(os::toUtf8(label->data().text), text(groups, 1)) << what;
    } else if (const auto* const insert = AcDbBlockReference::cast(entity)) {
      expectPoint(insert->data().position, groups, 10, what);
      expectNear(insert->data().scale.sx, real(groups, 41, 1.0), what);
      expectNear(insert->data().rotation, kDegree * real(groups, 50), what);
      const auto* const block = AcDbBlockTableRecord::cast(insert->data().block.stub()->object);
      ASSERT_NE(block, nullptr);
      EXPECT_EQ(os::toUtf8(block->nameText()), text(groups, 2)) << what;
    } else if (const auto* const dimension = AcDbDimension::cast(entity)) {
      EXPECT_EQ(groups[0].second, "DIMENSION");
      EXPECT_EQ(int(dimension->kind()), int(real(groups, 70)) & 7) << what;
      expectPoint(dimension->data().point10, groups, 10, what);
      expectNear(dimension->data().measurement, real(groups, 42), what);
    } else if (const auto* const hatch = AcDbHatch::cast(entity)) {
      EXPECT_EQ(groups[0].second, "HATCH");
      EXPECT_EQ(os::toUtf8(hatch->data().patternName), text(groups, 2)) << what;
      EXPECT_EQ(hatch->data().paths.size(), std::size_t(real(groups, 91))) << what;
    } else if (const auto* const port = AcDbViewport::cast(entity)) {
      EXPECT_EQ(groups[0].second, "VIEWPORT");
      expectPoint(port->data().center, groups, 10, what), expectNear(port->data().width, real(groups, 40), what);
    } else if (const auto* const vertex = AcDb3dPolylineVertex::cast(entity)) {
      expectPoint(vertex->data().position, groups, 10, what);
    } else if (const auto* const vertex2d = AcDb2dVertex::cast(entity)) {
      expectPoint(vertex2d->data().position, groups, 10, what),
          expectNear(vertex2d->data().bulge, real(groups, 42), what);
    } else if (const auto* const leader = AcDbLeader::cast(entity)) {
      EXPECT_EQ(leader->data().vertices.size(), std::size_t(real(groups, 76))) << what;
      expectPoint(leader->data().vertices.at(0), groups, 10, what);
    }
  }
  EXPECT_GT(compared, 4);
}

struct Contents {
  const char* file;
  std::map<std::string, int> counts;
};

// As the list that comes with the samples tells.
TEST(DwgSampleContents, AreWhatTheirListTells) {
  if (samples().empty()) GTEST_SKIP() << "no samples here";
  const Contents all[] = {
      {"sample_2000.dwg",
       {{"AcDbLine", 3}, {"AcDbCircle", 1}, {"AcDbPolyline", 1}, {"AcDbText", 1}, {"AcDbLayerTableRecord", 2}}},
      {"entities-2d.dwg",
       {{"AcDbLine", 5},
        {"AcDbArc", 1},
        {"AcDbCircle", 1},
        {"AcDbPoint", 4},
        {"AcDbPolyline", 1},
        {"AcDbText", 1},
        {"AcDbTrace", 1},
        {"AcDbSolid", 3},
        {"AcDbBlockReference", 2},
        {"AcDbAttribute", 1},
        {"AcDbAttributeDefinition", 2},
        {"AcDbAlignedDimension", 1},
        {"AcDbLayerTableRecord", 2},
        {"AcDbLayout", 3}}},
      {"polyline2d.dwg", {{"AcDbViewport", 7}}},
      {"polyline3d.dwg", {{"AcDb3dPolyline", 1}, {"AcDb3dPolylineVertex", 6}}},
      {"example_2000.dwg",
       {{"AcDbLine", 68},
        {"AcDbArc", 5},
        {"AcDbCircle", 1},
        {"AcDbPoint", 46},
        {"AcDbPolyline", 11},
        {"AcDb3dPolyline", 1},
        {"AcDbMText", 18},
        {"AcDbText", 2},
        {"AcDbHatch", 1},
        {"AcDbAlignedDimension", 1},
        {"AcDbRotatedDimension", 4},
        {"AcDbOrdinateDimension", 3},
        {"AcDbBlockReference", 10},
        {"AcDbViewport", 2},
        {"AcDbXrecord", 264},
        {"AcDbBlockTableRecord", 16}}},
      {"1arc.dwg", {{"AcDbArc", 1}}},
      {"triple_circles.dwg", {{"AcDbCircle", 3}}},
      {"six_3dpolylines.dwg", {{"AcDb3dPolyline", 6}}},
      {"ezdxf_807_1.dwg", {{"AcDbLine", 1}}},
  };
  for (const Contents& contents : all) {
    const Opened drawing(bytesOf(samples() / contents.file));
    ASSERT_EQ(drawing.status, Acad::eOk) << contents.file << "\n" << textOf(drawing.report);
    auto counts = census(*drawing.database);
    for (const auto& [name, count] : contents.counts) EXPECT_EQ(counts[name], count) << contents.file << ": " << name;
  }
}

}  // namespace
