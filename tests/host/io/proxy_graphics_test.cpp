#include "host/io/ProxyGraphics.h"

#include <gmock/gmock.h>

#include <cstring>
#include <functional>
#include <memory>
#include <random>

#include "host/db/db.h"
#include "host/gi/Recorder.h"
#include "host/io/dwg/BitWriter.h"

namespace {

using gi::CallKind;
using gi::DrawCall;
using gi::Recorder;
using Bytes = std::vector<std::byte>;

constexpr double kPi = 3.14159265358979323846;

/// An entity that draws what a function says.
class Drawn : public AcDbEntity {
 public:
  using Body = std::function<void(AcGiWorldDraw&)>;
  explicit Drawn(Body body) : body_(std::move(body)) {}

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override {
    body_(*draw);
    return Adesk::kTrue;
  }

 private:
  Body body_;
};

/// Writes a stream item by item.
class Stream {
 public:
  Stream& chunk(std::uint32_t type) {
    finishChunk();
    start_ = bytes_.size();
    ++chunks_;
    return number(0).number(type);
  }
  Stream& number(std::uint32_t value) { return put(value); }
  Stream& real(double value) { return put(value); }
  Stream& point(double x, double y, double z = 0) { return put(x).put(y).put(z); }
  Stream& text(std::string text) {
    text.resize((text.size() / 4 + 1) * 4);
    for (const char c : text) bytes_.push_back(std::byte(c));
    return *this;
  }
  Bytes bytes() {
    finishChunk();
    const std::uint32_t head[] = {std::uint32_t(bytes_.size()), chunks_};
    std::memcpy(bytes_.data(), head, sizeof head);
    return bytes_;
  }

 private:
  template <class T>
  Stream& put(T value) {
    const auto* raw = reinterpret_cast<const std::byte*>(&value);
    bytes_.insert(bytes_.end(), raw, raw + sizeof value);
    return *this;
  }
  void finishChunk() {
    if (chunks_ == 0) return;
    const auto size = std::uint32_t(bytes_.size() - start_);
    std::memcpy(bytes_.data() + start_, &size, sizeof size);
  }

  Bytes bytes_ = Bytes(8);
  std::size_t start_ = 0;
  std::uint32_t chunks_ = 0;
};

class ProxyGraphics : public testing::Test {
 protected:
  ProxyGraphics() {
    before_ = acdbHostApplicationServices()->workingDatabase();
    acdbHostApplicationServices()->setWorkingDatabase(&database_);
  }
  ~ProxyGraphics() override { acdbHostApplicationServices()->setWorkingDatabase(before_); }

  AcDbObjectId addLayer(const wchar_t* name) {
    AcDbLayerTable* table = nullptr;
    database_.getLayerTable(table, AcDb::kForWrite);
    auto* record = new AcDbLayerTableRecord;
    record->setName(name);
    AcDbObjectId id;
    table->add(id, record);
    record->close();
    table->close();
    return id;
  }

  AcDbObjectId addLinetype(const wchar_t* name) {
    AcDbLinetypeTable* table = nullptr;
    database_.getLinetypeTable(table, AcDb::kForWrite);
    auto* record = new AcDbLinetypeTableRecord;
    record->setName(name);
    AcDbObjectId id;
    table->add(id, record);
    record->close();
    table->close();
    return id;
  }

  static Bytes encoded(AcDbEntity& entity) {
    Bytes bytes;
    krio::encodeProxyGraphics(entity, bytes);
    return bytes;
  }
  static Bytes encoded(Drawn::Body body) {
    Drawn entity(std::move(body));
    return encoded(entity);
  }

  std::vector<DrawCall> played(std::span<const std::byte> bytes) {
    Recorder recorder;
    recorder.setDatabase(&database_);
    krio::drawProxyGraphics(bytes, &recorder);
    EXPECT_TRUE(recorder.modelToWorld() == AcGeMatrix3d::kIdentity);
    return recorder.calls;
  }

  AcDbDatabase database_;

 private:
  AcDbDatabase* before_;
};

/// The attributes that stand ahead of the first figure of an entity whose properties are all by layer, on layer 0.
Stream& plain(Stream& stream) {
  return stream.chunk(16).number(0).chunk(14).number(256).chunk(18).number(32767).chunk(23).number(0xffffffffU);
}

// --- Writing ---------------------------------------------------------------------------------------------------------

TEST_F(ProxyGraphics, ALineIsAPolylineOfTwoPointsBehindTheProperties) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    const AcGePoint3d line[] = {{1, 2, 3}, {4, 5, 6}};
    draw.geometry().polyline(2, line);
  });
  Stream expected;
  plain(expected).chunk(6).number(2).point(1, 2, 3).point(4, 5, 6);
  EXPECT_EQ(bytes, expected.bytes());
  // 8 of the head, four properties of 12, and 8 + 4 + 2 * 24 of the line.
  EXPECT_EQ(bytes.size(), 8U + 48U + 60U);
}

TEST_F(ProxyGraphics, AnEntityThatDrawsNothingGivesNoBytes) {
  Bytes bytes(5);
  Drawn nothing([](AcGiWorldDraw& draw) { draw.subEntityTraits().setColor(3); });
  krio::encodeProxyGraphics(nothing, bytes);
  EXPECT_TRUE(bytes.empty());
}

TEST_F(ProxyGraphics, ArcsAndCirclesAreWrittenAsSuch) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    draw.geometry().circle({1, 2, 0}, 5, AcGeVector3d::kZAxis);
    draw.geometry().circularArc(AcGePoint3d(5, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(-5, 0, 0), kAcGiArcChord);
    draw.geometry().circularArc({0, 0, 7}, 2, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, kPi / 2);
  });
  Stream expected;
  plain(expected).chunk(2).point(1, 2).real(5).point(0, 0, 1);
  expected.chunk(5).point(5, 0).point(3, 4).point(-5, 0).number(2);
  expected.chunk(4).point(0, 0, 7).real(2).point(0, 0, 1).point(1, 0, 0).real(kPi / 2).number(0);
  EXPECT_EQ(bytes, expected.bytes());
}

TEST_F(ProxyGraphics, AnArcDrawnBackwardsTurnsItsNormalSinceReadersGoCounterClockwise) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    draw.geometry().circularArc({0, 0, 0}, 2, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, -kPi / 2);
  });
  const std::vector<DrawCall> calls = played(bytes);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_NEAR(calls[0].sweep, kPi / 2, 1e-15);
  EXPECT_EQ(calls[0].normal.z, -1.0);
  EXPECT_NEAR(calls[0].points[2].distanceTo({0, -2, 0}), 0.0, 1e-14);
}

TEST_F(ProxyGraphics, AnArcThroughPointsIsToldCounterClockwise) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    draw.geometry().circularArc(AcGePoint3d(-5, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(5, 0, 0));
  });
  Stream expected;
  plain(expected).chunk(5).point(5, 0).point(3, 4).point(-5, 0).number(0);
  EXPECT_EQ(bytes, expected.bytes());
}

TEST_F(ProxyGraphics, PropertiesAreWrittenWhenTheyChangeAndMarkersNever) {
  const AcDbObjectId steel = addLayer(L"STEEL");
  const AcDbObjectId dashed = addLinetype(L"DASHED");
  const AcGePoint3d line[] = {{0, 0, 0}, {1, 0, 0}};
  const Bytes bytes = encoded([&](AcGiWorldDraw& draw) {
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    draw.geometry().polyline(2, line);
    traits.setSelectionMarker(2);
    draw.geometry().polyline(2, line);
    traits.setLayer(steel);
    traits.setColor(3);
    traits.setLineType(dashed);
    traits.setLineWeight(AcDb::kLnWt035);
    traits.setLineTypeScale(2.5);
    draw.geometry().polyline(2, line);
    AcCmColor green;
    green.setRGB(1, 200, 3);
    traits.setTrueColor(green);
    draw.geometry().polyline(2, line);
  });
  Stream expected;
  const auto oneLine = [&expected] { expected.chunk(6).number(2).point(0, 0).point(1, 0); };
  plain(expected);
  oneLine();
  oneLine();
  // Layer 0 stands first in its table; Continuous is the first linetype but for those of layer and block.
  expected.chunk(16).number(1).chunk(14).number(3).chunk(18).number(1).chunk(23).number(35).chunk(24).real(2.5);
  oneLine();
  expected.chunk(22).number(0xC201C803U);
  oneLine();
  EXPECT_EQ(bytes, expected.bytes());
}

TEST_F(ProxyGraphics, AnErasedLayerTakesNoPlace) {
  const AcDbObjectId first = addLayer(L"GONE");
  const AcDbObjectId second = addLayer(L"STAYS");
  AcDbLayerTableRecord* record = nullptr;
  ASSERT_EQ(acdbOpenObject(record, first, AcDb::kForWrite), Acad::eOk);
  record->erase();
  record->close();
  const Bytes bytes = encoded([second](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLayer(second);
    draw.geometry().circle({0, 0, 0}, 1, AcGeVector3d::kZAxis);
  });
  const std::vector<DrawCall> calls = played(bytes);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits.layer, second);
  std::uint32_t place = 0;
  std::memcpy(&place, bytes.data() + 16, sizeof place);
  EXPECT_EQ(place, 1U);
}

TEST_F(ProxyGraphics, FillIsToldAgainForEachFigureWithAnInside) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setFillType(kAcGiFillAlways);
    draw.geometry().circle({0, 0, 0}, 1, AcGeVector3d::kZAxis);
    draw.geometry().circle({0, 0, 0}, 2, AcGeVector3d::kZAxis);
    draw.subEntityTraits().setFillType(kAcGiFillNever);
    draw.geometry().circle({0, 0, 0}, 3, AcGeVector3d::kZAxis);
  });
  Stream expected;
  plain(expected).chunk(20).number(1).chunk(2).point(0, 0).real(1).point(0, 0, 1);
  expected.chunk(20).number(1).chunk(2).point(0, 0).real(2).point(0, 0, 1);
  expected.chunk(20).number(2).chunk(2).point(0, 0).real(3).point(0, 0, 1);
  EXPECT_EQ(bytes, expected.bytes());
}

TEST_F(ProxyGraphics, TheEntitysOwnPropertiesHoldFromTheStart) {
  const AcDbObjectId steel = addLayer(L"STEEL");
  Drawn entity([](AcGiWorldDraw& draw) { draw.geometry().circle({0, 0, 0}, 1, AcGeVector3d::kZAxis); });
  entity.setLayer(steel);
  entity.setColorIndex(5);
  entity.setLineWeight(AcDb::kLnWtByBlock);
  entity.setVisibility(AcDb::kInvisible);
  const std::vector<DrawCall> calls = played(encoded(entity));
  ASSERT_EQ(calls.size(), 1U) << "an invisible entity has its picture too";
  EXPECT_EQ(calls[0].traits.layer, steel);
  EXPECT_EQ(calls[0].traits.color.colorIndex(), 5);
  EXPECT_EQ(calls[0].traits.lineWeight, AcDb::kLnWtByBlock);
}

TEST_F(ProxyGraphics, WhatIsByBlockWithinAPartTakesThePropertiesOutside) {
  Drawn inner([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(0);
    draw.geometry().circle({0, 0, 0}, 1, AcGeVector3d::kZAxis);
  });
  const Bytes bytes = encoded([&inner](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(4);
    draw.geometry().draw(&inner);
  });
  const std::vector<DrawCall> calls = played(bytes);
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits.color.colorIndex(), 4);
}

TEST_F(ProxyGraphics, FiguresWithoutPlaceAreLeftOut) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const double endless = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(encoded([=](AcGiWorldDraw& draw) {
                const AcGePoint3d line[] = {{0, 0, 0}, {none, 0, 0}};
                draw.geometry().polyline(2, line);
                draw.geometry().circle({0, endless, 0}, 1, AcGeVector3d::kZAxis);
                draw.geometry().circle({0, 0, 0}, none, AcGeVector3d::kZAxis);
                draw.geometry().circle({0, 0, 0}, 0, AcGeVector3d::kZAxis);
                draw.geometry().circularArc({0, 0, 0}, 1, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, none);
              }).empty());
}

TEST_F(ProxyGraphics, ATextIsWrittenWithItsStyle) {
  const Bytes bytes = encoded([](AcGiWorldDraw& draw) {
    AcGiTextStyle style(L"romans.shx", L"", 2.5, 0.8, 0.1);
    draw.geometry().text({1, 2, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kYAxis, L"\u00C7\u20AC\u0416", -1,
                         Adesk::kFalse, style);
  });
  Stream expected;
  plain(expected).chunk(11).point(1, 2).point(0, 0, 1).point(0, 1, 0);
  // C with cedilla and the euro have their byte in Windows-1252, the Cyrillic letter is escaped.
  expected.text("\xC7\x80\\U+0416").number(0xffffffffU).number(1);
  expected.real(2.5).real(0.8).real(0.1).real(1).number(0).number(0).number(0).number(0).number(0);
  expected.text("romans.shx").text("");
  EXPECT_EQ(bytes, expected.bytes());
}

// --- There and back --------------------------------------------------------------------------------------------------

TEST_F(ProxyGraphics, WhatWasDrawnIsDrawnAgain) {
  const AcDbObjectId steel = addLayer(L"STEEL");
  const AcDbObjectId dashed = addLinetype(L"DASHED");
  Drawn entity([&](AcGiWorldDraw& draw) {
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    AcGiWorldGeometry& geometry = draw.geometry();
    const AcGePoint3d corners[] = {{0, 0, 0}, {10, 0, 0}, {10, 5, 1}, {0, 5, 1}};
    AcGePoint3d extents[] = {{-1, -1, -1}, {20, 20, 20}};
    geometry.setExtents(extents);
    geometry.polyline(4, corners);
    traits.setLayer(steel);
    traits.setLineType(dashed);
    traits.setFillType(kAcGiFillAlways);
    geometry.polygon(4, corners);
    traits.setLineType(database_.byLayerLinetype());
    traits.setColor(1);
    geometry.circularArc({3, 1, 0}, {2, 2, 0}, {1, 1, 0}, kAcGiArcSector);
    traits.setFillType(kAcGiFillNever);
    AcGeMatrix3d move;
    move.setToTranslation({100, 0, 0});
    geometry.pushModelTransform(move);
    geometry.circle({1, 2, 3}, 4, AcGeVector3d::kYAxis);
    geometry.popModelTransform();
    geometry.circularArc({0, 0, 0}, 3, AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, 1.25, kAcGiArcChord);
    AcGiTextStyle style(L"romans", L"bigfont", 3, 1.5, 0.25);
    style.setBackward(true);
    geometry.text({7, 8, 9}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"W 150 \u03A8 \U0001F529", -1, Adesk::kTrue,
                  style);
  });
  Recorder direct;
  entity.setAttributes(&static_cast<AcGiDrawableTraits&>(direct.subEntityTraits()));
  entity.worldDraw(&direct);
  // Where the traits of a reader stand ahead of the first figure is told anew: a null linetype comes back as by layer.
  for (DrawCall& call : direct.calls)
    if (call.traits.linetype.isNull() && gi::CallKind::extents != call.kind)
      call.traits.linetype = database_.byLayerLinetype();
  std::vector<DrawCall> again = played(encoded(entity));
  ASSERT_EQ(again.size(), direct.calls.size());
  const auto layerZero = [this](DrawCall call) {
    if (call.traits.layer == database_.layerZero()) call.traits.layer.setNull();
    // Properties are told ahead of figures, no sooner.
    if (call.kind > CallKind::text) call.traits = {};
    return call;
  };
  for (std::size_t i = 0; i < again.size(); ++i)
    EXPECT_EQ(toText(layerZero(again[i])), toText(layerZero(direct.calls[i]))) << i;
  EXPECT_EQ(again.back().text, L"W 150 \u03A8 \U0001F529");
  EXPECT_TRUE(again.back().style.isBackward());
  EXPECT_STREQ(again.back().style.fileName(), L"romans");
  EXPECT_STREQ(again.back().style.bigFontFileName(), L"bigfont");
}

// --- Reading what others write ---------------------------------------------------------------------------------------

TEST_F(ProxyGraphics, ReadsTheKindsThatItDoesNotWrite) {
  Stream stream;
  stream.chunk(3).point(5, 0).point(0, 5).point(-5, 0);
  stream.chunk(32).number(2).point(0, 0).point(1, 1).point(0, 0, 1);
  stream.chunk(10).point(1, 2).point(0, 0, 1).point(1, 0, 0).real(2).real(1).real(0).text("text");
  // Two triangles, the second of them a hole.
  stream.chunk(9).number(4).point(0, 0).point(1, 0).point(1, 1).point(0, 1);
  stream.number(8).number(3).number(0).number(1).number(2).number(0xfffffffdU).number(0).number(2).number(3);
  stream.number(0).number(0).number(0);
  stream.chunk(8).number(2).number(2).point(0, 0).point(1, 0).point(0, 1).point(1, 1);
  stream.number(0).number(0).number(0);
  const std::vector<DrawCall> calls = played(stream.bytes());
  EXPECT_EQ(toText(calls),
            "circle (0 0 0) r 5 n (0 0 1)\n"
            "polyline (0 0 0) (1 1 0)\n"
            "text (1 2 0) \"text\" h 2 d (1 0 0)\n"
            "polygon (0 0 0) (1 0 0) (1 1 0)\n"
            "polyline (0 0 0) (1 1 0) (0 1 0) (0 0 0)\n"
            "polyline (0 0 0) (1 0 0)\n"
            "polyline (0 1 0) (1 1 0)\n"
            "polyline (0 0 0) (0 1 0)\n"
            "polyline (1 0 0) (1 1 0)\n");
}

TEST_F(ProxyGraphics, ReadsAnEllipseByItsChords) {
  Stream stream;
  stream.chunk(44).point(10, 0).point(0, 0, 1).real(4).real(2).real(0).real(kPi).real(kPi / 2);
  const std::vector<DrawCall> calls = played(stream.bytes());
  ASSERT_EQ(calls.size(), 1U);
  // The greater half axis stands along Y: it goes from the top, by the left, to the bottom.
  EXPECT_NEAR(calls[0].points.front().distanceTo({10, 4, 0}), 0, 1e-12);
  EXPECT_NEAR(calls[0].points.back().distanceTo({10, -4, 0}), 0, 1e-12);
  for (const AcGePoint3d& p : calls[0].points) {
    EXPECT_NEAR((p.x - 10) * (p.x - 10) / 4 + p.y * p.y / 16, 1.0, 1e-12);
    EXPECT_LE(p.x, 10 + 1e-12);
  }
}

TEST_F(ProxyGraphics, ReadsALightweightPolylineEdgeByEdge) {
  krio::dwg::BitWriter bits;
  constexpr unsigned short kElevated = 8, kBulged = 16, kClosed = 512;
  bits.bs(kElevated | kBulged | kClosed);
  bits.bd(7);
  bits.bl(3);
  bits.bl(3);
  bits.rd(0);
  bits.rd(0);
  bits.dd(4, 0);
  bits.dd(0, 0);
  bits.dd(4, 4);
  bits.dd(2, 0);
  for (const double bulge : {0.0, 1.0, 0.0}) bits.bd(bulge);
  const auto data = bits.bytes();
  Stream stream;
  stream.chunk(33).number(std::uint32_t(data.size())).text(std::string(data.begin(), data.end()));
  // A bulge of 1 is half a turn, counter-clockwise: from (4, 0) over (5, 1) to (4, 2).
  EXPECT_EQ(toText(played(stream.bytes())),
            "polyline (0 0 7) (4 0 7)\n"
            "arc (4 0 7) (5 1 7) (4 2 7) r 1 n (0 0 1)\n"
            "polyline (4 2 7) (0 0 7)\n");
}

TEST_F(ProxyGraphics, PassesOverChunksOfUnknownTypes) {
  Stream stream;
  stream.chunk(99).number(1).number(2).chunk(51).number(0x01000000).chunk(12).point(0, 0).point(1, 1);
  stream.chunk(2).point(0, 0).real(1).point(0, 0, 1);
  EXPECT_EQ(played(stream.bytes()).size(), 1U);
}

TEST_F(ProxyGraphics, ALayerThatTheDrawingDoesNotHaveLeavesTheLayer) {
  Stream stream;
  stream.chunk(16).number(77).chunk(18).number(78).chunk(14).number(300).chunk(23).number(5000);
  stream.chunk(2).point(0, 0).real(1).point(0, 0, 1);
  const std::vector<DrawCall> calls = played(stream.bytes());
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_EQ(calls[0].traits, gi::TraitValues());
}

TEST_F(ProxyGraphics, PopsMoreThanPushesAndPushesWithoutPopsLeaveTheFrameAsItWas) {
  Stream stream;
  stream.chunk(31).chunk(31);
  for (int i = 0; i < 3; ++i) {
    stream.chunk(29);
    for (int k = 0; k < 16; ++k) stream.real(k % 5 == 0 ? 1 : 0);
  }
  Recorder recorder;
  AcGeMatrix3d move;
  move.setToTranslation({1, 0, 0});
  recorder.geometry().pushModelTransform(move);
  krio::drawProxyGraphics(stream.bytes(), &recorder);
  EXPECT_TRUE(recorder.modelToWorld() == move) << "what the caller pushed stays";
}

TEST_F(ProxyGraphics, CountsBeyondTheBytesDrawNothing) {
  for (const std::uint32_t type : {6U, 7U, 32U, 9U, 8U}) {
    Stream stream;
    stream.chunk(type).number(0xffffffffU).number(0xffffffffU).point(0, 0);
    EXPECT_TRUE(played(stream.bytes()).empty()) << type;
  }
}

TEST_F(ProxyGraphics, EveryBeginningOfAStreamIsSafe) {
  Stream stream;
  stream.chunk(11).point(1, 2).point(0, 0, 1).point(1, 0, 0).text("text").number(0xffffffffU).number(1);
  stream.real(2).real(1).real(0).real(1).number(0).number(0).number(0).number(0).number(0).text("txt").text("");
  stream.chunk(9).number(3).point(0, 0).point(1, 0).point(1, 1).number(4).number(3).number(0).number(1).number(2);
  stream.chunk(2).point(0, 0).real(1).point(0, 0, 1);
  const Bytes whole = stream.bytes();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    // A copy of just that size, so that a reader past the end is seen by the sanitizers.
    const Bytes part(whole.begin(), whole.begin() + std::ptrdiff_t(size));
    EXPECT_LE(played(part).size(), 2U) << size;
  }
  EXPECT_EQ(played(whole).size(), 3U);
}

TEST_F(ProxyGraphics, AnyBytesAreSafe) {
  std::mt19937 random(7);
  Stream stream;
  for (const std::uint32_t type :
       {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 10U, 11U, 16U, 18U, 29U, 31U, 33U, 36U, 38U, 44U}) {
    stream.chunk(type);
    for (int i = 0; i < 40; ++i) stream.number(std::uint32_t(random() % 4 == 0 ? random() : random() % 5));
  }
  const Bytes good = stream.bytes();
  for (int round = 0; round < 3000; ++round) {
    Bytes bytes = good;
    for (int i = 0; i < 12; ++i) bytes[random() % bytes.size()] = std::byte(random());
    const std::vector<DrawCall> calls = played(bytes);
    std::size_t points = 0;
    for (const DrawCall& call : calls) points += call.points.size();
    ASSERT_LE(points, bytes.size());
  }
}

}  // namespace
