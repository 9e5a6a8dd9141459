// One drawing with every kind of entity that the host has a class for, each with values of its own in every field,
// through either form of file, from one to the other and back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>

#include "DwgTools.h"
#include "host/db/db.h"
#include "host/io/dxf/Dxf.h"

namespace {

using dwgtools::Bytes;
using dwgtools::textOf;

enum class Form { kDwg, kDxf };

Bytes saved(AcDbDatabase& database, Form form) {
  if (form == Form::kDwg) return dwgtools::saved(database);
  Bytes bytes;
  krio::Report report;
  EXPECT_EQ(krio::writeDxf(database, bytes, report), Acad::eOk) << textOf(report);
  EXPECT_TRUE(report.clean()) << textOf(report);
  return bytes;
}

std::unique_ptr<AcDbDatabase> opened(const Bytes& bytes, Form form) {
  auto database = std::make_unique<AcDbDatabase>(false);
  krio::Report report;
  const Acad::ErrorStatus status =
      form == Form::kDwg ? krio::readDwg(bytes, *database, report) : krio::readDxf(bytes, *database, report);
  EXPECT_EQ(status, Acad::eOk) << textOf(report);
  EXPECT_TRUE(report.clean()) << textOf(report);
  return database;
}

template <class T>
constexpr bool isList = false;
template <class T>
constexpr bool isList<std::vector<T>> = true;
template <class T, std::size_t N>
constexpr bool isList<std::array<T, N>> = true;

/// Compares all fields, those of fields too; ids by their handles.
template <class T>
void expectSame(const T& a, const T& b, const std::string& what) {
  if constexpr (std::is_base_of_v<AcDbObjectId, T>) {
    EXPECT_EQ(a.handle(), b.handle()) << what;
  } else if constexpr (isList<T>) {
    ASSERT_EQ(a.size(), b.size()) << what;
    for (std::size_t i = 0; i < a.size(); ++i) expectSame(a[i], b[i], what + "[" + std::to_string(i) + "]");
  } else if constexpr (requires { a.tie(); }) {
    const auto first = a.tie();
    const auto second = b.tie();
    [&]<std::size_t... I>(std::index_sequence<I...>) {
      (expectSame(std::get<I>(first), std::get<I>(second), what + "." + std::to_string(I)), ...);
    }
    (std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<decltype(first)>>>());
  } else if constexpr (std::is_same_v<T, AcGeScale3d>) {
    EXPECT_TRUE(a.sx == b.sx && a.sy == b.sy && a.sz == b.sz) << what;
  } else {
    EXPECT_TRUE(a == b) << what;
  }
}

AcDbStub* stubOf(AcDbDatabase& database, AcDbObjectId id) {
  return database.handleTable().find(id.handle().value());
}

/// The drawing, and how each of its entities is compared with what came back.
class EveryEntity {
 public:
  EveryEntity() {
    addLayers();
    addBlock();
    addCurves();
    addTexts();
    addHatches();
    addDimensions();
    addInserts();
    addViewport();
  }

  AcDbDatabase& database() { return database_; }

  void expectIn(AcDbDatabase& other) {
    for (const auto& compare : comparisons_) compare(other);
    EXPECT_EQ(comparisons_.size(), 39U);
  }

 private:
  /// Fields that a test gives, then the entity is closed and compared with the one of its handle.
  template <class T>
  AcDbObjectId add(T* entity, AcDbObjectId block) {
    AcDbBlockTableRecord* record = nullptr;
    EXPECT_EQ(acdbOpenObject(record, block, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
    record->close();
    entity->close();
    return watched<T>(id);
  }
  template <class T>
  AcDbObjectId add(T* entity) {
    return add(entity, database_.modelSpaceId());
  }
  template <class T>
  AcDbObjectId watched(AcDbObjectId id) {
    comparisons_.emplace_back([id](AcDbDatabase& other) {
      const auto* const before = static_cast<const T*>(id.stub()->object);
      const AcDbStub* const stub = stubOf(other, id);
      const std::string name = typeid(T).name();
      ASSERT_TRUE(stub != nullptr && stub->object != nullptr) << name;
      const T* const after = T::cast(stub->object);
      ASSERT_NE(after, nullptr) << name;
      expectSame(before->data(), after->data(), name);
      if constexpr (requires { before->attributeData(); })
        expectSame(before->attributeData(), after->attributeData(), name + " attribute");
      if constexpr (requires { before->arrayData(); })
        expectSame(before->arrayData(), after->arrayData(), name + " array");
      EXPECT_EQ(before->ownerId().handle(), after->ownerId().handle()) << name;
      EXPECT_EQ(before->layerReference().handle(), after->layerReference().handle()) << name;
      EXPECT_EQ(before->common().color.colorIndex(), after->common().color.colorIndex()) << name;
    });
    return id;
  }
  /// Every part of an entity that owns parts: its vertices or attributes, in their order.
  template <class Part, class T>
  void watchParts(AcDbObjectId id) {
    const auto& stubs = static_cast<T*>(id.stub()->object)->subentities()->stubs();
    EXPECT_FALSE(stubs.empty());
    std::vector<AcDbHandle> order;
    for (AcDbStub* const stub : stubs) {
      order.push_back(AcDbObjectId(stub).handle());
      watched<Part>(AcDbObjectId(stub));
    }
    comparisons_.emplace_back([id, order](AcDbDatabase& other) {
      auto* const after = T::cast(stubOf(other, id)->object);
      ASSERT_NE(after, nullptr);
      std::vector<AcDbHandle> there;
      for (AcDbStub* const stub : after->subentities()->stubs()) there.push_back(AcDbObjectId(stub).handle());
      EXPECT_EQ(there, order);
      EXPECT_FALSE(after->subentities()->sequenceEnd().isNull());
    });
  }

  void addLayers() {
    const AcDbObjectPointer<AcDbLayerTable> table(database_.layerTableId(), AcDb::kForWrite);
    for (const auto& [name, id] : {std::pair{L"WALLS", &walls_}, std::pair{L"HIDDEN", &hidden_}}) {
      auto* const layer = new AcDbLayerTableRecord;
      layer->setName(name);
      layer->setLinetypeObjectId(database_.continuousLinetype());
      EXPECT_EQ(table->add(*id, layer), Acad::eOk);
      layer->close();
    }
  }

  void addBlock() {
    {
      const AcDbObjectPointer<AcDbBlockTable> table(database_.blockTableId(), AcDb::kForWrite);
      auto* const record = new AcDbBlockTableRecord;
      record->setName(L"BOLT");
      EXPECT_EQ(table->add(block_, record), Acad::eOk);
      record->close();
    }
    add(new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 8), block_);
    auto* const definition = new AcDbAttributeDefinition({1, 2, 0}, L"M16", L"SIZE", L"Which size?", textStyle());
    definition->dataAsRead().height = 3.5;
    definition->attributeDataAsRead().flags = AcDbAttributeData::kVerify;
    definition->attributeDataAsRead().fieldLength = 6;
    add(definition, block_);
  }

  void addCurves() {
    auto* const line = new AcDbLine({1.0 / 3, 2, 3}, {-4, 5e-7, 6e9});
    line->dataAsRead().thickness = 0.125;
    line->dataAsRead().normal = AcGeVector3d(0, 0.6, 0.8);
    line->setColorIndex(3);
    add(line);
    auto* const arc = new AcDbArc({1, 2, 3}, 4, 0.123456789, 5.987654321);
    arc->dataAsRead().normal = AcGeVector3d(0, -0.6, 0.8);
    add(arc);
    add(new AcDbCircle({1, 2, 3}, AcGeVector3d::kXAxis, 0.1));
    add(new AcDbPoint(AcGePoint3d(7, 8, 9)));
    auto* const solid = new AcDbSolid;
    solid->dataAsRead().corners = {{{0, 0}, {3, 0}, {0, 2}, {3, 2}}};
    solid->dataAsRead().elevation = 1.5;
    solid->dataAsRead().thickness = 2.5;
    add(solid);
    auto* const trace = new AcDbTrace;
    trace->dataAsRead().corners = {{{0, 0}, {1, 0}, {0, 9}, {1, 9}}};
    add(trace);
    auto* const light = new AcDbPolyline(4);
    for (unsigned i = 0; i < 4; ++i) light->addVertexAt(i, {i * 0.1, i / 7.0}, i == 2 ? -0.5 : 0.0, i * 0.25, i * 0.5);
    light->setClosed(true);
    light->setElevation(12.5);
    add(light);
    AcGePoint3dArray corners;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 1, 0), AcGePoint3d(20, -3, 0)})
      corners.append(p);
    auto* const flat = new AcDb2dPolyline(AcDb::k2dSimplePoly, corners, 4.5, Adesk::kTrue, 0.5, 0.75);
    flat->dataAsRead().flags |= AcDb2dPolyline::kLinetypeGeneration;
    const AcDbObjectId flatId = add(flat);
    {
      // As a fitted curve has them.
      auto& vertex = static_cast<AcDb2dVertex&>(
          *static_cast<AcDb2dPolyline*>(flatId.stub()->object)->subentities()->stubs()[1]->object);
      vertex.dataAsRead().flags = AcDb2dVertex::kCurveFit | AcDb2dVertex::kTangentUsed;
      vertex.dataAsRead().bulge = -0.25;
      vertex.dataAsRead().tangent = 0.75;
      vertex.dataAsRead().startWidth = 0.125;
      vertex.dataAsRead().endWidth = 0.375;
    }
    watchParts<AcDb2dVertex, AcDb2dPolyline>(flatId);
    AcGePoint3dArray path;
    for (const AcGePoint3d& p : {AcGePoint3d(0, 0, 0), AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 5, 6.5)}) path.append(p);
    const AcDbObjectId spatial = add(new AcDb3dPolyline(AcDb::k3dSimplePoly, path, Adesk::kTrue));
    watchParts<AcDb3dPolylineVertex, AcDb3dPolyline>(spatial);
  }

  void addTexts() {
    auto* const text = new AcDbText({3, 4, 5}, L"Tr\u00E4ger \u0421 %%c20", textStyle(), 2.5, 0.3);
    text->dataAsRead().oblique = 0.2;
    text->dataAsRead().widthFactor = 0.8;
    text->dataAsRead().generation = AcDbText::kBackward;
    add(text);
    auto* const note = new AcDbMText;
    AcDbMText::Data& data = note->dataAsRead();
    data.location = {10, 20, 30};
    data.direction = AcGeVector3d(0.6, 0.8, 0);
    data.width = 120;
    data.height = 3.5;
    data.attachment = AcDbMText::kMiddleCenter;
    data.flow = AcDbMText::kByStyle;
    // Beyond 250 characters a text is written in pieces.
    data.contents = L"{\\H2x;caf\u00E9}\\P\u0421 " + std::wstring(600, L'x') + L"\u20AC";
    data.spacingStyle = 2;
    data.spacing = 1.25;
    data.extentsHeight = 7.25;
    data.extentsWidth = 33.5;
    data.style = AcDbHardPointerId(textStyle());
    note_ = add(note);
    auto* const leader = new AcDbLeader;
    AcDbLeader::Data& to = leader->dataAsRead();
    to.annotationType = AcDbLeader::kMText;
    to.vertices = {{0, 0, 0}, {5, 5, 0}, {10, 5, 0}};
    to.origin = {10, 5, 0};  // a DXF tells none: it is the last vertex
    to.xDirection = AcGeVector3d(0.6, 0.8, 0);
    to.annotationOffset = AcGeVector3d(1, 2, 0);
    to.textHeight = 3.5;
    to.textWidth = 33.5;
    to.hookLineAlongX = true;
    to.annotation = AcDbHardPointerId(note_);
    to.dimensionStyle = AcDbHardPointerId(dimStyle());
    add(leader);
  }

  void addHatches() {
    auto* const hatch = new AcDbHatch;
    AcDbHatch::Data& data = hatch->dataAsRead();
    data.elevation = 2.5;
    data.patternName = L"KRLINES";
    data.solid = false;
    data.style = AcDbHatch::kOuter;
    data.patternType = AcDbHatch::kUserDefined;
    data.patternAngle = 0.5;
    data.patternScale = 1.75;
    data.patternDouble = true;
    data.patternLines = {{0.5, {1, 2}, {0.5, 3}, {}}, {1.25, {0, 0}, {-1, 2}, {4, -2, 0, -2}}};
    AcDbHatch::Path outline;
    outline.flags = AcDbHatch::kExternal | AcDbHatch::kPolyline;
    outline.hasBulges = true;
    outline.vertices = {{0, 0}, {100, 0}, {100, 50}};
    outline.bulges = {0, 0.5, -0.25};
    AcDbHatch::Path straight;
    straight.flags = AcDbHatch::kPolyline | AcDbHatch::kDerived;
    straight.vertices = {{10, 10}, {20, 10}, {20, 20}, {10, 20}};
    AcDbHatch::Path edges;
    edges.flags = AcDbHatch::kOutermost;
    AcDbHatch::Edge side;
    side.start = {30, 10};
    side.end = {50, 10};
    AcDbHatch::Edge arc;
    arc.kind = AcDbHatch::EdgeKind::kArc;
    arc.start = {50, 20};
    arc.radius = 10;
    arc.startAngle = -1.5;
    arc.endAngle = 1.5;
    arc.counterClockwise = true;
    AcDbHatch::Edge ellipse;
    ellipse.kind = AcDbHatch::EdgeKind::kEllipse;
    ellipse.start = {40, 30};
    ellipse.end = {10, 1};
    ellipse.radius = 0.5;
    ellipse.startAngle = 0.25;
    ellipse.endAngle = 2.5;
    ellipse.counterClockwise = false;
    AcDbHatch::Edge spline;
    spline.kind = AcDbHatch::EdgeKind::kSpline;
    spline.degree = 2;
    spline.rational = true;
    spline.knots = {0, 0, 0, 1, 1, 1};
    spline.points = {{30, 30}, {25, 20}, {30, 10}};
    spline.weights = {1, 0.7071067811865476, 1};
    edges.edges = {side, arc, ellipse, spline};
    data.paths = {outline, straight, edges};
    data.pixelSize = 0.0625;
    data.seeds = {{50, 25}, {1, 2}};
    add(hatch);
    auto* const filled = new AcDbHatch;
    filled->dataAsRead().paths = {outline};
    add(filled);
  }

  template <class T>
  void addDimension(std::function<void(AcDbDimension::Data&)> fill) {
    auto* const dimension = new T;
    AcDbDimension::Data& data = dimension->dataAsRead();
    data.textPosition = {3, 4};
    data.elevation = 1.5;
    data.text = L"<> \u00B1 1";
    data.textRotation = 0.125;
    data.attachment = 2;
    data.lineSpacingFactor = 1.5;
    data.style = AcDbHardPointerId(dimStyle());
    fill(data);
    add(dimension);
  }

  void addDimensions() {
    addDimension<AcDbAlignedDimension>([](AcDbDimension::Data& data) {
      data.point13 = {0, 0, 1.5};
      data.point14 = {3, 4, 1.5};
      data.point10 = {2, 6, 1.5};
      data.measurement = 5;
      data.oblique = 0.75;
    });
    addDimension<AcDbRotatedDimension>([](AcDbDimension::Data& data) {
      data.point13 = {0, 0, 1.5};
      data.point14 = {30, 40, 1.5};
      data.point10 = {30, 60, 1.5};
      data.measurement = 30;
      data.rotation = 0.5;
      data.oblique = 0.25;
      data.flags &= Adesk::UInt8(~AcDbDimension::kTextAtDefault);
    });
    for (const int alongX : {0, 1}) {
      addDimension<AcDbOrdinateDimension>([alongX](AcDbDimension::Data& data) {
        data.point10 = {1, 2, 1.5};
        data.point13 = {7, 11, 1.5};
        data.point14 = {9, 15, 1.5};
        data.measurement = alongX != 0 ? 6 : 9;
        data.horizontalRotation = 0.375;
        data.ordinateFlags = Adesk::UInt8(alongX);
      });
    }
    addDimension<AcDbRadialDimension>([](AcDbDimension::Data& data) {
      data.point10 = {0, 0, 1.5};
      data.point15 = {3, 4, 1.5};
      data.leaderLength = 2.5;
      data.measurement = 5;
    });
    addDimension<AcDbDiametricDimension>([](AcDbDimension::Data& data) {
      data.point10 = {-3, -4, 1.5};
      data.point15 = {3, 4, 1.5};
      data.leaderLength = 1.5;
      data.measurement = 10;
    });
    addDimension<AcDb3PointAngularDimension>([](AcDbDimension::Data& data) {
      data.point10 = {5, 5, 1.5};
      data.point13 = {9, 0, 1.5};
      data.point14 = {0, 9, 1.5};
      data.point15 = {0, 0, 1.5};
      data.measurement = 1.5707963267948966;
    });
    addDimension<AcDb2LineAngularDimension>([](AcDbDimension::Data& data) {
      data.point13 = {1, 0, 1.5};
      data.point14 = {9, 0, 1.5};
      data.point15 = {0, 1, 1.5};
      data.point10 = {0, 9, 1.5};
      data.point16 = {5, 5};
      data.measurement = 1.5707963267948966;
    });
  }

  void addInserts() {
    auto* const insert = new AcDbBlockReference({100, 200, 30}, block_);
    insert->dataAsRead().scale = AcGeScale3d(2, -3, 4);
    insert->dataAsRead().rotation = 0.75;
    insert->dataAsRead().hasAttributes = true;
    const AcDbObjectId id = add(insert);
    {
      AcDbBlockReference* open = nullptr;
      EXPECT_EQ(acdbOpenObject(open, id, AcDb::kForWrite), Acad::eOk);
      for (const wchar_t* const size : {L"M20", L"M24"}) {
        auto* const attribute = new AcDbAttribute({101, 202, 30}, size, L"SIZE", textStyle());
        attribute->dataAsRead().height = 3.5;
        attribute->dataAsRead().rotation = 0.75;
        attribute->attributeDataAsRead().flags = AcDbAttributeData::kInvisible;
        EXPECT_EQ(open->appendAttribute(attribute), Acad::eOk);
        attribute->close();
      }
      open->close();
    }
    watchParts<AcDbAttribute, AcDbBlockReference>(id);
    auto* const array = new AcDbMInsertBlock;
    array->dataAsRead().position = {1, 2, 3};
    array->dataAsRead().block = AcDbHardPointerId(block_);
    array->arrayDataAsRead() = {3, 2, 150, -75};
    add(array);
  }

  void addViewport() {
    auto* const viewport = new AcDbViewport;
    AcDbViewport::Data& data = viewport->dataAsRead();
    data.center = {105, 148, 0};
    data.width = 180;
    data.height = 120;
    data.target = {1, 2, 3};
    data.direction = AcGeVector3d(1, 1, 1);
    data.twist = 0.5;
    data.viewHeight = 2400;
    data.lensLength = 35;
    data.frontClip = 10;
    data.backClip = -20;
    data.snapAngle = 0.25;
    data.viewCenter = {1000, 500};
    data.snapBase = {1, 2};
    data.snapSpacing = {5, 6};
    data.gridSpacing = {25, 50};
    data.circleZoom = 200;
    data.status = AcDbViewport::kZoomLocked | AcDbViewport::kUcsIconVisible;
    data.frozenLayers = {AcDbHardPointerId(hidden_)};
    data.ucsOrigin = {7, 8, 9};
    data.elevation = 1.5;
    data.number = 1;  // a DWG tells none: the first of its sheet
    add(viewport, database_.paperSpaceId());
    const AcDbObjectId line = add(new AcDbLine({0, 0, 0}, {210, 297, 0}), database_.paperSpaceId());
    AcDbEntity* open = nullptr;
    EXPECT_EQ(acdbOpenObject(open, line, AcDb::kForWrite), Acad::eOk);
    open->setLayer(walls_);
    open->close();
  }

  AcDbObjectId textStyle() { return database_.roots().standardTextStyle; }
  AcDbObjectId dimStyle() { return database_.roots().standardDimStyle; }

  AcDbDatabase database_;
  AcDbObjectId walls_, hidden_, block_, note_;
  std::vector<std::function<void(AcDbDatabase&)>> comparisons_;
};

}  // namespace

class EveryEntityTrip : public testing::TestWithParam<std::vector<Form>> {};

TEST_P(EveryEntityTrip, KeepsEveryField) {
  EveryEntity drawing;
  AcDbDatabase* last = &drawing.database();
  std::unique_ptr<AcDbDatabase> current;
  for (const Form form : GetParam()) {
    const Bytes file = saved(*last, form);
    std::unique_ptr<AcDbDatabase> next = opened(file, form);
    EXPECT_TRUE(saved(*next, form) == file) << "saved again without a change";
    drawing.expectIn(*next);
    current = std::move(next);
    last = current.get();
  }
}

TEST(EveryEntityInDwg, KeepsWhatADxfHasNoGroupFor) {
  AcDbDatabase database;
  AcDbObjectId leader;
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
    auto* const arrow = new AcDbLeader;
    arrow->dataAsRead().vertices = {{0, 0, 0}, {5, 5, 0}};
    arrow->dataAsRead().origin = {1, 2, 3};
    ASSERT_EQ(space->appendAcDbEntity(leader, arrow), Acad::eOk);
    arrow->close();
  }
  const std::unique_ptr<AcDbDatabase> again = opened(saved(database, Form::kDwg), Form::kDwg);
  EXPECT_EQ(AcDbLeader::cast(stubOf(*again, leader)->object)->data().origin, AcGePoint3d(1, 2, 3));
}

INSTANTIATE_TEST_SUITE_P(Ways, EveryEntityTrip,
                         testing::Values(std::vector{Form::kDwg}, std::vector{Form::kDxf},
                                         std::vector{Form::kDwg, Form::kDxf, Form::kDwg},
                                         std::vector{Form::kDxf, Form::kDwg, Form::kDxf}));
