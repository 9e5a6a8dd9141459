// The parts of a member that the host names by graphics markers.

#include <gtest/gtest.h>

#include <memory>

#include "HoleSpace.h"
#include "Sections.h"

namespace {

using space::kPi;

/// A bar whose list holds one element.
class OneElement : public sections::Bar {
 public:
  explicit OneElement(const KrVector& v) {
    setVista(Superior);
    AddVertex(v, Superior);
  }
  std::unique_ptr<AcDbEntity> part(Adesk::GsMarker index, AcDb::SubentType type = AcDb::kEdgeSubentType) const {
    return std::unique_ptr<AcDbEntity>(subentPtr(AcDbFullSubentPath(objectId(), type, index)));
  }
};

struct Paths {
  ~Paths() { delete[] array; }
  int count = -1;
  AcDbFullSubentPath* array = nullptr;
};

Acad::ErrorStatus pathsOf(const KrObject& member, AcDb::SubentType type, Adesk::GsMarker marker, Paths& paths) {
  return member.getSubentPathsAtGsMarker(type, marker, AcGePoint3d::kOrigin, AcGeMatrix3d::kIdentity, paths.count,
                                         paths.array);
}

TEST(Subentities, OfAMarkerAreItsEdgeOrTheTwoVerticesOfIt) {
  sections::PlainI bar;
  bar.show(Superior, 600);
  Paths none;
  EXPECT_EQ(pathsOf(bar, AcDb::kEdgeSubentType, 0, none), Acad::eInvalidInput);
  EXPECT_EQ(none.count, 0);
  EXPECT_EQ(none.array, nullptr);
  Paths edge;
  EXPECT_EQ(pathsOf(bar, AcDb::kEdgeSubentType, 3, edge), Acad::eOk);
  ASSERT_EQ(edge.count, 1);
  EXPECT_EQ(edge.array[0].subentId(), AcDbSubentId(AcDb::kEdgeSubentType, 3));
  EXPECT_EQ(edge.array[0].objectIds().length(), 1);
  Paths vertices;
  EXPECT_EQ(pathsOf(bar, AcDb::kVertexSubentType, 3, vertices), Acad::eOk);
  ASSERT_EQ(vertices.count, 2);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(vertices.array[i].subentId().type(), AcDb::kVertexSubentType);
  Paths face;
  EXPECT_EQ(pathsOf(bar, AcDb::kFaceSubentType, 3, face), Acad::eOk);
  EXPECT_EQ(face.count, 0);
  Paths negative;
  EXPECT_EQ(pathsOf(bar, AcDb::kEdgeSubentType, -1, negative), Acad::eOk);
  EXPECT_EQ(negative.count, 0);
}

TEST(Subentities, LeadBackToTheirMarker) {
  sections::PlainI bar;
  bar.show(Superior, 600);
  for (const AcDb::SubentType type : {AcDb::kEdgeSubentType, AcDb::kVertexSubentType}) {
    Paths paths;
    pathsOf(bar, type, 4, paths);
    AcArray<Adesk::GsMarker> markers;
    ASSERT_EQ(bar.getGsMarkersAtSubentPath(paths.array[0], markers), Acad::eOk);
    ASSERT_EQ(markers.length(), 1);
    EXPECT_EQ(markers[0], 4);
  }
  AcArray<Adesk::GsMarker> markers;
  const AcDbFullSubentPath face(AcDb::kFaceSubentType, 4);
  EXPECT_EQ(static_cast<int>(bar.getGsMarkersAtSubentPath(face, markers)), 230);
  EXPECT_TRUE(markers.isEmpty());
}

TEST(Subentities, AreNumberedFromOne) {
  OneElement bar(KrVector(AcGePoint3d(1, 2, 0), AcGePoint3d(5, 2, 0), KR_VT_LINHA));
  const auto line = bar.part(1);
  ASSERT_NE(AcDbLine::cast(line.get()), nullptr);
  EXPECT_TRUE(AcDbLine::cast(line.get())->startPoint().isEqualTo(AcGePoint3d(1, 2, 0)));
  EXPECT_TRUE(AcDbLine::cast(line.get())->endPoint().isEqualTo(AcGePoint3d(5, 2, 0)));
  EXPECT_EQ(bar.part(0), nullptr);
  EXPECT_EQ(bar.part(2), nullptr);
  EXPECT_EQ(bar.part(-1), nullptr);
  EXPECT_EQ(bar.part(1, AcDb::kVertexSubentType), nullptr);
}

TEST(Subentities, OfLinesAreLinesAndOfBandsAndReferencesNone) {
  for (const KrVectorType type : {KR_VT_EIXO, KR_VT_LINHA_OCULTA, KR_VT_LINHA, KR_VT_FURO_EIXO})
    EXPECT_NE(AcDbLine::cast(OneElement(KrVector({0, 0, 0}, {5, 0, 0}, type)).part(1).get()), nullptr) << type;
  for (const KrVectorType type : {KR_VT_FURO_LINHA, KR_VT_REFERENCIA})
    EXPECT_EQ(OneElement(KrVector({0, 0, 0}, {5, 0, 0}, type)).part(1), nullptr) << type;
  EXPECT_EQ(OneElement(KrVector({1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, KR_VT_ARCO_OCULTO)).part(1), nullptr);
}

TEST(Subentities, OfHolesAreCirclesWithHalfTheirClearance) {
  const auto hole = OneElement(KrVector(AcGePoint3d(7, 8, 0), 9, 2, 0, KR_VT_FURO, KR_VF_FURO_REDONDO)).part(1);
  ASSERT_NE(AcDbCircle::cast(hole.get()), nullptr);
  EXPECT_DOUBLE_EQ(AcDbCircle::cast(hole.get())->radius(), 10);
  EXPECT_TRUE(AcDbCircle::cast(hole.get())->center().isEqualTo(AcGePoint3d(7, 8, 0)));
  const auto circle = OneElement(KrVector(AcGePoint3d(7, 8, 0), 9)).part(1);
  ASSERT_NE(AcDbCircle::cast(circle.get()), nullptr);
  EXPECT_DOUBLE_EQ(AcDbCircle::cast(circle.get())->radius(), 9);
}

TEST(Subentities, OfArcsRunFromTheSmallerAngleToTheLargerWhicheverWayTheyWereDrawn) {
  const auto at = [](double angle) { return AcGePoint3d(10 + 5 * std::cos(angle), 20 + 5 * std::sin(angle), 0); };
  const auto arcOf = [&](double from, double to) {
    return OneElement(KrVector(at(from), at((from + to) / 2), at(to), KR_VT_ARCO)).part(1);
  };
  for (const bool turned : {false, true}) {
    const auto upper = turned ? arcOf(2.0, 0.5) : arcOf(0.5, 2.0);
    const AcDbArc* arc = AcDbArc::cast(upper.get());
    ASSERT_NE(arc, nullptr);
    EXPECT_NEAR(arc->radius(), 5, 1e-9);
    EXPECT_TRUE(arc->center().isEqualTo(AcGePoint3d(10, 20, 0)));
    EXPECT_NEAR(arc->startAngle(), 0.5, 1e-9);
    EXPECT_NEAR(arc->endAngle(), 2.0, 1e-9);
    const auto right = turned ? arcOf(1.0, -1.0) : arcOf(-1.0, 1.0);
    arc = AcDbArc::cast(right.get());
    ASSERT_NE(arc, nullptr);
    EXPECT_NEAR(arc->startAngle(), 2 * kPi - 1, 1e-9) << "over the X axis";
    EXPECT_NEAR(arc->endAngle(), 1, 1e-9);
  }
  const auto wide = arcOf(-2.0, 2.0);
  EXPECT_NEAR(AcDbArc::cast(wide.get())->startAngle(), 2, 1e-9) << "an arc wider than that comes out as its other part";
}

}  // namespace
