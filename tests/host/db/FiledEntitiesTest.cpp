// The entities and objects that real files hold: nothing of what they hold may get lost on the way through a filer.
#include <gmock/gmock.h>

#include <numbers>

#include "host/db/AcDbMemoryDwgFiler.h"
#include "host/db/AcDbMemoryDxfFiler.h"
#include "host/db/FieldFiling.h"
#include "host/db/Support.h"
#include "host/gi/Recorder.h"

namespace {

using Buffer = AcDbMemoryDwgFiler::Buffer;

Buffer recordOf(const AcDbObject& object, AcDb::FilerType type = AcDb::kUndoFiler) {
  AcDbMemoryDwgFiler filer(type);
  EXPECT_EQ(object.dwgOutFields(&filer), Acad::eOk);
  return filer.takeBuffer();
}

/// Gives every field of a struct a value of its own, so that a field that is left out or exchanged shows.
class Filler {
 public:
  template <fields::Tied T>
  void fill(T& data) {
    std::apply([this](auto&... each) { (this->fill(each), ...); }, data.tie());
  }
  void fill(bool& v) { v = (++n_ % 2) == 0; }
  void fill(double& v) { v = 0.1 * ++n_; }
  void fill(std::wstring& v) { v = L"text " + std::to_wstring(++n_); }
  void fill(AcGePoint2d& v) { v.set(next(), next()); }
  void fill(AcGeVector2d& v) { v.set(next(), next()); }
  void fill(AcGePoint3d& v) { v.set(next(), next(), next()); }
  void fill(AcGeVector3d& v) { v.set(next(), next(), next()); }
  void fill(AcGeScale3d& v) { v.set(next(), next(), next()); }
  template <class T>
  requires std::is_integral_v<T>
  void fill(T& v) { v = T(++n_ % 100); }
  void fill(AcDbHatch::EdgeKind& v) { v = AcDbHatch::EdgeKind(1 + ++n_ % 4); }
  void fill(std::byte& v) { v = std::byte(++n_); }
  template <class T, std::size_t N>
  void fill(std::array<T, N>& v) {
    for (T& each : v) fill(each);
  }
  template <class T>
  void fill(std::vector<T>& v) {
    v.resize(2);
    for (T& each : v) fill(each);
  }
  template <class T>
  requires std::is_base_of_v<AcDbObjectId, T>
  void fill(T& v) { v = AcDbObjectId(&stubs_[std::size_t(++n_) % stubs_.size()]); }

 private:
  double next() { return 0.1 * ++n_; }
  int n_ = 0;
  static inline std::array<AcDbStub, 7> stubs_;
};

/// What is written must come back field by field, and fill as many fields as there are.
template <class T>
void keepsAll(T& object) {
  const Buffer written = recordOf(object);
  T other;
  EXPECT_NE(recordOf(other), written) << "nothing was filled";
  AcDbMemoryDwgFiler reader(AcDb::kUndoFiler, written);
  EXPECT_EQ(other.dwgInFields(&reader), Acad::eOk);
  EXPECT_TRUE(reader.atEnd());
  EXPECT_EQ(recordOf(other), written);
}

template <class T>
class FiledData : public ::testing::Test {};
using ClassesOfData =
    ::testing::Types<AcDbLine, AcDbArc, AcDbCircle, AcDbPolyline, AcDbText, AcDbMText, AcDbPoint, AcDbTrace, AcDbSolid,
                     AcDb2dVertex, AcDb3dPolylineVertex, AcDb2dPolyline, AcDb3dPolyline, AcDbBlockReference, AcDbHatch,
                     AcDbLeader, AcDbAlignedDimension, AcDbRotatedDimension, AcDbOrdinateDimension, AcDbRadialDimension,
                     AcDbDiametricDimension, AcDb3PointAngularDimension, AcDb2LineAngularDimension, AcDbViewport,
                     AcDbGroup, AcDbMlineStyle, AcDbDictionaryVar, AcDbTextStyleTableRecord, AcDbLinetypeTableRecord,
                     AcDbViewTableRecord, AcDbViewportTableRecord, AcDbUCSTableRecord, AcDbVXTableRecord>;
TYPED_TEST_SUITE(FiledData, ClassesOfData);

TYPED_TEST(FiledData, ComesBackWhole) {
  TypeParam object;
  Filler().fill(object.dataAsRead());
  keepsAll(object);
}

TEST(FiledObjects, LayoutsMInsertsAttributesAndViewsComeBackWhole) {
  AcDbLayout layout;
  Filler filler;
  filler.fill(layout.plotDataAsRead());
  filler.fill(layout.layoutDataAsRead());
  keepsAll(layout);
  AcDbMInsertBlock array;
  filler.fill(array.dataAsRead());
  filler.fill(array.arrayDataAsRead());
  keepsAll(array);
  AcDbAttribute attribute;
  filler.fill(attribute.dataAsRead());
  filler.fill(attribute.attributeDataAsRead());
  keepsAll(attribute);
  AcDbAttributeDefinition definition;
  filler.fill(definition.dataAsRead());
  filler.fill(definition.attributeDataAsRead());
  keepsAll(definition);
  AcDbViewTableRecord view;
  filler.fill(view.viewDataAsRead());
  filler.fill(view.dataAsRead());
  keepsAll(view);
}

TEST(FiledObjects, ADimensionStyleHasAPlaceForEachVariable) {
  AcDbDimStyleTableRecord style;
  // The record of the format has 18 reals and 39 whole numbers, beside texts and references.
  EXPECT_EQ(int(AcDbDimStyleTableRecord::kNumReals), 18);
  EXPECT_EQ(int(AcDbDimStyleTableRecord::kNumInts), 39);
  for (int i = 0; i < AcDbDimStyleTableRecord::kNumReals; ++i) {
    style.setRealAsRead(AcDbDimStyleTableRecord::RealIndex(i), 0.5 + i);
  }
  for (int i = 0; i < AcDbDimStyleTableRecord::kNumInts; ++i) {
    style.setWholeAsRead(AcDbDimStyleTableRecord::IntIndex(i), 7 + i);
  }
  Filler().fill(style.dataAsRead());
  keepsAll(style);
}

TEST(FiledObjects, ACircleUnderAnyNormalKeepsTheBitsOfItsCentre) {
  AcDbCircle circle;
  const AcGePoint3d inPlane(0.1, -0.0, 1.0 / 3.0);
  circle.dataAsRead().center = inPlane;
  circle.dataAsRead().normal = AcGeVector3d(0.36, 0.48, 0.8);
  AcDbMemoryDwgFiler filer(AcDb::kUndoFiler, recordOf(circle));
  AcDbCircle other;
  other.dwgInFields(&filer);
  EXPECT_TRUE(std::signbit(other.data().center.y));
  EXPECT_EQ(std::memcmp(&other.data().center, &inPlane, sizeof inPlane), 0);
  // (0, 0, 1) of that frame is the normal; its X axis is Z x N, by the rule for normals away from Z.
  const AcGeVector3d x = AcGeVector3d::kZAxis.crossProduct(circle.normal()).normal();
  const AcGePoint3d expected = AcGePoint3d::kOrigin + x * 0.1 + circle.normal() * (1.0 / 3.0);
  EXPECT_NEAR(circle.center().distanceTo(expected), 0.0, 1e-14);
}

TEST(FiledObjects, AProxyKeepsEveryByteOfDataReferencesGroupsAndGraphics) {
  AcDbProxyEntity proxy;
  AcDbProxyData& data = proxy.dataAsRead();
  std::array<AcDbStub, 4> stubs;
  data.classRecord = {0x87F, L"ISM", L"AcDbRasterImage", L"IMAGE", true, AcDbClassRecord::kEntityClass};
  data.bits = {std::byte(0), std::byte(0xFF), std::byte(0x80)};
  data.bitCount = 17;
  for (std::size_t i = 0; i < stubs.size(); ++i) data.references.push_back({Adesk::UInt8(2 + i), &stubs[i]});
  data.groups = {{100, "AcDbRasterImage"}, {1, std::string("\xC3\xA7\0x", 4)}};
  proxy.setFileGraphics({std::byte(8), std::byte(0), std::byte(7)});
  AcDbMemoryDwgFiler reader(AcDb::kCopyFiler, recordOf(proxy, AcDb::kCopyFiler));
  AcDbProxyEntity other;
  EXPECT_EQ(other.dwgInFields(&reader), Acad::eOk);
  EXPECT_TRUE(other.data() == data);
  EXPECT_THAT(other.fileGraphics(), testing::ElementsAreArray(proxy.fileGraphics()));
  EXPECT_TRUE(other.isAProxy());
  EXPECT_STREQ(other.originalDxfName(), L"IMAGE");
  AcDbObjectIdArray ids;
  AcDbIntArray codes;
  other.getReferences(ids, codes);
  EXPECT_EQ(ids[3], AcDbObjectId(&stubs[3]));
  EXPECT_EQ(codes[3], 5);
  EXPECT_EQ(proxy.transformBy(AcGeMatrix3d()), Acad::eNotApplicable);
}

TEST(FiledObjects, AProxyIsShownByWhoeverKnowsItsGraphics) {
  static std::size_t bytes = 0;
  acdbSetProxyGraphicsDraw([](std::span<const std::byte> graphics, AcGiWorldDraw* draw) {
    bytes = graphics.size();
    draw->geometry().circle(AcGePoint3d(1, 2, 3), 2.0, AcGeVector3d::kZAxis);
  });
  AcDbProxyEntity proxy;
  proxy.setFileGraphics(std::vector<std::byte>(8));
  AcDbExtents box;
  EXPECT_EQ(proxy.getGeomExtents(box), Acad::eOk);
  acdbSetProxyGraphicsDraw(nullptr);
  EXPECT_EQ(bytes, 8U);
  EXPECT_NEAR(box.minPoint().x, -1.0, 1e-12);
  EXPECT_NEAR(box.maxPoint().y, 4.0, 1e-12);
  EXPECT_EQ(proxy.getGeomExtents(box), Acad::eNullExtents);
}

// --- Exchange format
// --------------------------------------------------------------------------------------------------------

/// What is written as groups must be read back to the same groups.
template <class T>
void keepsGroups(const T& object) {
  AcDbMemoryDxfFiler out;
  ASSERT_EQ(object.dxfOutFields(&out), Acad::eOk);
  AcDbMemoryDxfFiler in(out.groups());
  T other;
  EXPECT_THAT(other.dxfInFields(&in), testing::AnyOf(Acad::eOk, Acad::eEndOfFile));
  AcDbMemoryDxfFiler again;
  EXPECT_EQ(other.dxfOutFields(&again), Acad::eOk);
  ASSERT_EQ(again.groups().size(), out.groups().size());
  for (std::size_t i = 0; i < out.groups().size(); ++i) {
    EXPECT_EQ(again.groups()[i].code, out.groups()[i].code) << i;
    EXPECT_EQ(again.groups()[i].value, out.groups()[i].value) << "code " << out.groups()[i].code;
  }
}

TEST(Groups, OfAHatchWithEveryKindOfPathComeBack) {
  AcDbHatch hatch;
  AcDbHatch::Data& data = hatch.dataAsRead();
  data.solid = false;
  data.patternName = L"ANSI31";
  AcDbHatch::Path polyline;
  polyline.flags = AcDbHatch::kPolyline | AcDbHatch::kDerived;
  polyline.hasBulges = true;
  polyline.vertices = {{0, 0}, {4, 0}, {4, 3}};
  polyline.bulges = {0, 1, 0};
  AcDbHatch::Path edges;
  for (const auto kind : {AcDbHatch::EdgeKind::kLine, AcDbHatch::EdgeKind::kArc, AcDbHatch::EdgeKind::kEllipse,
                          AcDbHatch::EdgeKind::kSpline}) {
    AcDbHatch::Edge edge;
    edge.kind = kind;
    edge.start = {1, 2};
    edge.end = kind == AcDbHatch::EdgeKind::kArc ? AcGePoint2d() : AcGePoint2d(3, 4);
    edge.radius = 0.5;
    edge.endAngle = 2.0;
    if (kind == AcDbHatch::EdgeKind::kSpline) {
      edge.degree = 2;
      edge.rational = true;
      edge.knots = {0, 0, 0, 1, 1, 1};
      edge.points = {{0, 0}, {1, 1}, {2, 0}};
      edge.weights = {1, 0.5, 1};
    }
    edges.edges.push_back(edge);
  }
  data.paths = {polyline, edges};
  data.patternLines = {{0.5, {1, 1}, {0, 3}, {2, -1}}, {1.5, {0, 1}, {1, 3}, {}}};
  data.pixelSize = 0.25;
  data.seeds = {{1, 1}};
  keepsGroups(hatch);
}

TEST(Groups, OfDimensionsLeadersViewportsAndLayoutsComeBack) {
  AcDbRotatedDimension rotated(0.5, {0, 0, 0}, {10, 2, 0}, {5, 5, 0}, L"<> mm");
  rotated.setTextPosition({5, 6, 0});
  rotated.setOblique(1.0);
  keepsGroups(rotated);
  AcDbOrdinateDimension ordinate(true, {3, 4, 0}, {3, 9, 0});
  keepsGroups(ordinate);
  AcDb2LineAngularDimension angular;
  angular.dataAsRead().point16 = {1, 2};
  keepsGroups(angular);
  AcDbLeader leader;
  leader.appendVertex({0, 0, 0});
  leader.appendVertex({1, 2, 3});
  leader.disableArrowHead();
  keepsGroups(leader);
  AcDbViewport viewport;
  Filler filler;
  filler.fill(viewport.dataAsRead());
  keepsGroups(viewport);
  AcDbLayout layout;
  filler.fill(layout.plotDataAsRead());
  filler.fill(layout.layoutDataAsRead());
  keepsGroups(layout);
}

// --- Parts
// ------------------------------------------------------------------------------------------------------------------

class Parts : public DrawingTest {
 protected:
  AcDbObjectId addPolyline() {
    AcGePoint3dArray points;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(4, 0, 0), AcGePoint3d(4, 3, 0)}) points.append(p);
    return append(new AcDb2dPolyline(AcDb::k2dSimplePoly, points, 0.0, Adesk::kTrue));
  }
  static int vertices(AcDbObjectId id) {
    const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForRead, true);
    const std::unique_ptr<AcDbObjectIterator> walk(polyline->vertexIterator());
    int count = 0;
    for (; !walk->done(); walk->step()) ++count;
    return count;
  }
};

TEST_F(Parts, OfAPolylineComeIntoTheDrawingWithItAndEndInASequenceEnd) {
  const AcDbObjectId id = addPolyline();
  EXPECT_EQ(vertices(id), 3);
  const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForRead);
  EXPECT_EQ(polyline->subentities()->sequenceEnd().stub()->owner, id.stub());
  double end = 0.0;
  double length = 0.0;
  polyline->getEndParam(end);
  polyline->getDistAtParam(end, length);
  EXPECT_DOUBLE_EQ(length, 4.0 + 3.0 + 5.0);
}

TEST_F(Parts, GoAndComeBackWithTheirOwner) {
  const AcDbObjectId id = addPolyline();
  const auto erase = [&](bool on) {
    const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForWrite, true);
    EXPECT_EQ(polyline->erase(on), Acad::eOk);
  };
  erase(true);
  EXPECT_EQ(vertices(id), 0);
  erase(false);
  EXPECT_EQ(vertices(id), 3);
}

TEST_F(Parts, AnUndoneVertexIsGoneAndARedoneOneStandsInItsPlace) {
  const AcDbObjectId id = addPolyline();
  db.startUndoRecord();
  {
    const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForWrite);
    AcDbObjectId vertexId;
    auto* const vertex = new AcDb2dVertex({2, -1, 0});
    EXPECT_EQ(polyline->insertVertexAt(vertexId, polyline->subentities()->stubs()[0], vertex), Acad::eOk);
    vertex->close();
  }
  EXPECT_EQ(vertices(id), 4);
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(vertices(id), 3);
  EXPECT_EQ(db.redo(), Acad::eOk);
  const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForRead);
  const CurvePieces pieces = polyline->pieces();
  ASSERT_EQ(pieces.size(), 4U);
  EXPECT_EQ(pieces[0].endPoint(), AcGePoint3d(2, -1, 0));
}

TEST_F(Parts, AreCopiedWithTheirOwnerOutsideAndWithinADrawing) {
  const AcDbObjectId id = addPolyline();
  std::unique_ptr<AcDbEntity> copy;
  {
    const AcDbObjectPointer<AcDb2dPolyline> polyline(id, AcDb::kForRead);
    AcDbEntity* made = nullptr;
    ASSERT_EQ(polyline->getTransformedCopy(AcGeMatrix3d::translation({10, 0, 0}), made), Acad::eOk);
    copy.reset(made);
  }
  AcGePoint3d start;
  EXPECT_EQ(AcDb2dPolyline::cast(copy.get())->getStartPoint(start), Acad::eOk);
  EXPECT_EQ(start, AcGePoint3d(10, 0, 0));

  AcDbObjectIdArray ids;
  ids.append(id);
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(ids, db.modelSpaceId(), map), Acad::eOk);
  AcDbIdPair pair;
  pair.setKey(id);
  ASSERT_TRUE(map.compute(pair));
  EXPECT_EQ(vertices(pair.value()), 3);
  EXPECT_EQ(vertices(id), 3);
  const AcDbObjectPointer<AcDb2dPolyline> clone(pair.value(), AcDb::kForRead);
  EXPECT_FALSE(clone->subentities()->sequenceEnd().isNull());
}

TEST_F(Parts, AnInsertShowsItsBlockInPlaceAndItsAttributes) {
  AcDbObjectId blockId;
  {
    const AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForWrite);
    auto* const block = new AcDbBlockTableRecord;
    block->setName(L"Bolt");
    block->setOrigin({1, 0, 0});
    ASSERT_EQ(table->add(blockId, block), Acad::eOk);
    EXPECT_FALSE(block->blockBeginId().isNull());
    auto* const line = new AcDbLine({1, 0, 0}, {2, 0, 0});
    block->appendAcDbEntity(line);
    line->close();
    block->close();
  }
  auto* const insert = new AcDbBlockReference({10, 10, 0}, blockId);
  insert->setScaleFactors(AcGeScale3d(3.0));
  insert->setRotation(std::numbers::pi / 2.0);
  insert->appendAttribute(new AcDbAttribute({0, 0, 0}, L"M20", L"SIZE"));
  const AcDbObjectId id = append(insert);
  gi::Recorder recorder;
  const AcDbObjectPointer<AcDbBlockReference> opened(id, AcDb::kForRead);
  EXPECT_FALSE(opened->subentities()->sequenceEnd().isNull());
  recorder.drawWhole(*opened);
  const std::vector<gi::DrawCall> figures = recorder.figures();
  ASSERT_EQ(figures.size(), 2U);
  // The base point comes to the place of insertion; the line of length 1 stands upright, three times as long.
  EXPECT_NEAR((figures[0].matrix * figures[0].points[0]).distanceTo({10, 10, 0}), 0.0, 1e-12);
  EXPECT_NEAR((figures[0].matrix * figures[0].points[1]).distanceTo({10, 13, 0}), 0.0, 1e-12);
  EXPECT_EQ(figures[1].text, L"M20");
  db.prepareForSave();
  const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
  AcDbObjectIdArray inserts;
  block->getBlockReferenceIds(inserts);
  ASSERT_EQ(inserts.length(), 1);
  EXPECT_EQ(inserts[0], id);
}

// --- Pictures
// ---------------------------------------------------------------------------------------------------------------

TEST(Pictures, ASolidHatchFillsItsAreaLessTheHole) {
  AcDbHatch hatch;
  const auto square = [&](double low, double high) {
    AcGePoint2dArray points;
    for (const AcGePoint2d& p :
         {AcGePoint2d(low, low), AcGePoint2d(high, low), AcGePoint2d(high, high), AcGePoint2d(low, high)}) {
      points.append(p);
    }
    EXPECT_EQ(hatch.appendLoop(AcDbHatch::kExternal, points, AcGeDoubleArray()), Acad::eOk);
  };
  square(0, 10);
  square(2, 5);
  gi::Recorder recorder;
  recorder.drawWhole(hatch);
  const std::vector<gi::DrawCall> figures = recorder.figures();
  ASSERT_EQ(figures.size(), 1U);
  const gi::DrawCall& polygon = figures[0];
  EXPECT_EQ(polygon.kind, gi::CallKind::polygon);
  double twice = 0.0;
  for (std::size_t i = 0; i < polygon.points.size(); ++i) {
    const AcGePoint3d& a = polygon.points[i];
    const AcGePoint3d& b = polygon.points[(i + 1) % polygon.points.size()];
    twice += a.x * b.y - a.y * b.x;
  }
  EXPECT_DOUBLE_EQ(std::fabs(twice) / 2.0, 100.0 - 9.0);
}

TEST(Pictures, AHatchOfLinesStaysWithinItsArea) {
  AcDbHatch hatch;
  AcGePoint2dArray points;
  for (const AcGePoint2d& p : {AcGePoint2d(0, 0), AcGePoint2d(10, 0), AcGePoint2d(10, 10), AcGePoint2d(0, 10)}) {
    points.append(p);
  }
  hatch.appendLoop(AcDbHatch::kExternal, points, AcGeDoubleArray());
  hatch.setPattern(AcDbHatch::kUserDefined, L"LINES");
  hatch.dataAsRead().patternLines = {{0.0, {0, 0.5}, {0, 2}, {}}};
  gi::Recorder recorder;
  recorder.drawWhole(hatch);
  // Level lines at 0.5, 2.5, 4.5, 6.5 and 8.5, from edge to edge.
  ASSERT_EQ(recorder.figures().size(), 5U);
  for (const gi::DrawCall& stroke : recorder.figures()) {
    EXPECT_DOUBLE_EQ(std::fabs(stroke.points[1].x - stroke.points[0].x), 10.0);
  }
}

TEST(Pictures, ADimensionMeasuresAndTellsItInItsText) {
  AcDbRotatedDimension level(0.0, {0, 0, 0}, {30, 40, 0}, {0, 60, 0});
  AcDbAlignedDimension along({0, 0, 0}, {30, 40, 0}, {0, 60, 0}, L"L = <>");
  double value = 0.0;
  level.measurement(value);
  EXPECT_DOUBLE_EQ(value, 30.0);
  along.measurement(value);
  EXPECT_DOUBLE_EQ(value, 50.0);
  EXPECT_EQ(level.shownText(), L"30");
  EXPECT_EQ(along.shownText(), L"L = 50");
  level.setDimensionText(L" ");
  EXPECT_EQ(level.shownText(), L"");
  gi::Recorder recorder;
  recorder.drawWhole(level);
  int lines = 0;
  int heads = 0;
  for (const gi::DrawCall& call : recorder.figures()) {
    lines += call.kind == gi::CallKind::polyline ? 1 : 0;
    heads += call.kind == gi::CallKind::polygon ? 1 : 0;
  }
  EXPECT_EQ(lines, 3);
  EXPECT_EQ(heads, 2);
}

TEST(Pictures, AnAngularDimensionMeasuresTheSideWhereItsArcLies) {
  AcDb3PointAngularDimension angle;
  angle.setCenterPoint({0, 0, 0});
  angle.setXLine1Point({10, 0, 0});
  angle.setXLine2Point({0, 10, 0});
  angle.setArcPoint({5, 5, 0});
  double value = 0.0;
  angle.measurement(value);
  EXPECT_DOUBLE_EQ(value, std::numbers::pi / 2.0);
  angle.setArcPoint({-5, -5, 0});
  angle.measurement(value);
  EXPECT_DOUBLE_EQ(value, std::numbers::pi * 1.5);
}

TEST(Pictures, AViewportLeadsTheMiddleOfItsViewToItsCentre) {
  AcDbViewport viewport;
  viewport.setCenterPoint({100, 50, 0});
  viewport.setHeight(200.0);
  viewport.setViewHeight(1000.0);
  viewport.setViewCenter({7, 8});
  EXPECT_DOUBLE_EQ(viewport.customScale(), 0.2);
  EXPECT_NEAR((viewport.modelToPaper() * AcGePoint3d(7, 8, 0)).distanceTo({100, 50, 0}), 0.0, 1e-12);
  EXPECT_NEAR((viewport.modelToPaper() * AcGePoint3d(17, 8, 0)).distanceTo({102, 50, 0}), 0.0, 1e-12);
}

}  // namespace
