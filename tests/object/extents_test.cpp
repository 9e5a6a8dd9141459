// The extents of what a member draws: boxes along it, corners of the picture, faces.

#include <gtest/gtest.h>

#include <cmath>

#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

const oracle::Outline kPlate = {{{-5, -4}, {-5, 4}, {5, 4}, {5, -4}}};
const oracle::Outline kAngle = {{{0, 0}, {0, 120}, {12, 120}, {12, 8}, {60, 8}, {60, 0}}};
/// A round bar of radius 30, as two half circles.
const oracle::Outline kRound = {{{-30, 0, 1}, {30, 0, 1}}};

const AcGePoint3d kUnset(1e9, 1e9, 1e9);

struct Corners {
  AcGePoint3d a = kUnset, b = kUnset, c = kUnset, d = kUnset;
};

/// The point at (x, y) of a frame that stands at `at`, turned by `angle`.
AcGePoint3d turned(const AcGePoint3d& at, double angle, double x, double y) {
  return at + AcGeVector3d(x * std::cos(angle) - y * std::sin(angle), x * std::sin(angle) + y * std::cos(angle), 0);
}

void expectNear(const AcGePoint3d& got, const AcGePoint3d& want) {
  EXPECT_LT(got.distanceTo(want), 1e-9) << "(" << got.x << ", " << got.y << ", " << got.z << ") for (" << want.x << ", "
                                        << want.y << ")";
}

TEST(OrientedBox, RunsAlongTheBar) {
  const AcGePoint3d at(500, 80, 0);
  TestMember member;
  member.make(kPlate, Superior, 1000, 0.7, at);
  Corners k;
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
  expectNear(k.a, turned(at, 0.7, 0, 5));
  expectNear(k.b, turned(at, 0.7, 0, -5));
  expectNear(k.c, turned(at, 0.7, 1000, 5));
  expectNear(k.d, turned(at, 0.7, 1000, -5));
  AcGePoint3d four[4];
  member.GetExtremePoints(four, 0, 0);
  expectNear(four[0], k.a);
  expectNear(four[3], k.d);
}

TEST(OrientedBox, TakesTheAxisInOnRequest) {
  TestMember member;
  member.make(kPlate, Superior, 1000);
  KrVector axis;
  member.GetVectorEixo(Superior, axis);
  axis.set(AcGePoint3d(-50, 40, 0), AcGePoint3d(1100, 40, 0));
  member.UpdateVectorEixo(Superior, axis);
  Corners k;
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
  expectNear(k.a, AcGePoint3d(0, 5, 0));
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 1, 0);
  expectNear(k.a, AcGePoint3d(-50, 40, 0));
  expectNear(k.d, AcGePoint3d(1100, -5, 0));
}

TEST(OrientedBox, LeavesHiddenElementsOutOnRequest) {
  TestMember member;
  member.make(kPlate, Superior, 1000);
  for (int i = 0; i < member.GetNumVertex(Superior); ++i) {
    KrVector v;
    member.GetVector(i, v);
    if (v.tipo() != KR_VF_ARESTA) continue;
    // All but the edge at the start.
    if (std::max(v.startPoint().x, v.endPoint().x) < 1) continue;
    v.setHidden(1);
    member.UpdateVector(i, v);
  }
  Corners k;
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
  expectNear(k.d, AcGePoint3d(1000, -5, 0));
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 1);
  expectNear(k.d, AcGePoint3d(0, -5, 0));
}

TEST(OrientedBox, OfASectionTurnsWithItAndReachesOverItsArcs) {
  const AcGePoint3d at(10, 20, 0);
  for (const auto& [view, angle] : {std::pair(Secao, 0.7), std::pair(SecaoVerso, 0.1)}) {
    TestMember member;
    member.setAngleSecao(0.3);
    member.make(kRound, view, 1000, 0.4, at);
    Corners k;
    member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
    expectNear(k.a, turned(at, angle, -30, 30));
    expectNear(k.b, turned(at, angle, -30, -30));
    expectNear(k.c, turned(at, angle, 30, 30));
    expectNear(k.d, turned(at, angle, 30, -30));
  }
}

TEST(OrientedBox, WithoutAViewOrElementsGivesNothing) {
  TestMember member;
  Corners k;
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
  EXPECT_EQ(k.a, kUnset);
  member.setVista(Superior);
  member.GetExtremePoints(k.a, k.b, k.c, k.d, 0, 0);
  EXPECT_EQ(k.a, kUnset);
  EXPECT_EQ(member.width(), 0.0);
  EXPECT_EQ(member.height(), 0.0);
}

TEST(OrientedBox, HasALengthAndAHeight) {
  TestMember member;
  member.make(kAngle, Direita, 1000, 2.0, {1, 2, 0});
  double w = 0, h = 0;
  member.size(w, h);
  EXPECT_NEAR(w, 1000, 1e-9);
  EXPECT_NEAR(h, 120, 1e-9);
  EXPECT_NEAR(member.size().x, 1000, 1e-9);
  EXPECT_NEAR(member.size().y, 120, 1e-9);
  AcGeVector2d both;
  member.size(both);
  EXPECT_NEAR(both.y, 120, 1e-9);
  EXPECT_NEAR(member.width(), 1000, 1e-9);
  EXPECT_NEAR(member.height(), 120, 1e-9);
}

TEST(SectionBox, IsThatOfTheOutlineAboutItsReferenceOrigin) {
  TestMember member;
  Corners k;
  EXPECT_EQ(member.GetExtremePointsSecao(k.a, k.b, k.c, k.d), Acad::eNotApplicable);
  EXPECT_EQ(k.a, kUnset);
  member.draw(kAngle, {30, 70, 0});
  ASSERT_EQ(member.GetExtremePointsSecao(k.a, k.b, k.c, k.d), Acad::eOk);
  expectNear(k.a, AcGePoint3d(-30, 50, 0));
  expectNear(k.b, AcGePoint3d(-30, -70, 0));
  expectNear(k.c, AcGePoint3d(30, 50, 0));
  expectNear(k.d, AcGePoint3d(30, -70, 0));
  AcGePoint3d four[4];
  ASSERT_EQ(member.GetExtremePointsSecao(four), Acad::eOk);
  expectNear(four[2], k.c);
}

TEST(SectionBox, HoldsTheReferenceOriginToo) {
  TestMember member;
  member.draw(kPlate, {100, 0, 0});
  Corners k;
  member.GetExtremePointsSecao(k.a, k.b, k.c, k.d);
  expectNear(k.b, AcGePoint3d(-105, -4, 0));
  expectNear(k.c, AcGePoint3d(0, 4, 0));
}

TEST(DrawingBox, IsThatOfStraightLinesAlone) {
  TestMember member;
  member.make(kPlate, Superior, 1000, kPi / 2, {100, 200, 0});
  EXPECT_NEAR(member.GetMinX(VistaCorrente), 95, 1e-9);
  EXPECT_NEAR(member.GetMaxX(Superior), 105, 1e-9);
  EXPECT_NEAR(member.GetMinY(Superior), 200, 1e-9);
  EXPECT_NEAR(member.GetMaxY(Superior), 1200, 1e-9);
  AcDbExtents extents;
  EXPECT_EQ(member.getGeomExtents(extents), Acad::eOk);
  EXPECT_LT(extents.maxPoint().distanceTo(AcGePoint3d(105, 1200, 0)), 1e-9);

  TestMember round;
  round.make(kRound, Secao, 1000, 0, {100, 200, 0});
  EXPECT_EQ(round.GetMaxX(Secao), 0.0) << "a section of arcs alone has no extents of its own";
  AcDbExtents none;
  EXPECT_EQ(round.getGeomExtents(none), Acad::eOk);
  EXPECT_TRUE(none.isEmpty()) << "so that it draws none of a drawing towards the origin";
}

TEST(LimitPoints, AreTheLeftmostAndTheRightmostOfAllElements) {
  TestMember member;
  member.setVista(Superior);
  member.AddVertex(KrVector(AcGePoint3d(10, 1, 5), AcGePoint3d(-20, 2, 0), KR_VT_LINHA), Superior);
  member.AddVertex(KrVector(AcGePoint3d(-20, 3, 0), AcGePoint3d(30, 4, 7), KR_VT_EIXO), Superior);
  member.AddVertex(KrVector(AcGePoint3d(30, 5, 0), AcGePoint3d(0, 6, 0), KR_VT_LINHA_OCULTA), Superior);
  AcGePoint3d a = kUnset, b = kUnset;
  member.GetLimitsPoints(a, b, VistaCorrente);
  EXPECT_EQ(a, AcGePoint3d(-20, 2, 0)) << "the first seen stays";
  EXPECT_EQ(b, AcGePoint3d(30, 4, 0)) << "Z is 0";
  AcGePoint3d c = kUnset;
  member.GetLimitsPoints(c, b, Direita);
  EXPECT_EQ(c, kUnset) << "nothing of an empty list";
}

TEST(PictureCorners, OfAnUprightViewAreThoseOfItsRectangle) {
  TestMember member;
  member.make(kPlate, Superior, 1000, 0, {100, 200, 0});
  KrVector axis;
  member.GetVectorEixo(Superior, axis);
  axis.set(AcGePoint3d(-900, 900, 0), AcGePoint3d(9000, 900, 0));
  member.UpdateVectorEixo(Superior, axis);
  Corners k;
  member.GetCorners(k.a, k.b, k.c, k.d);
  expectNear(k.a, AcGePoint3d(100, 205, 0));
  expectNear(k.b, AcGePoint3d(100, 195, 0));
  expectNear(k.c, AcGePoint3d(1100, 205, 0));
  expectNear(k.d, AcGePoint3d(1100, 195, 0));
}

TEST(PictureCorners, OfATurnedViewAreItsFourExtremePoints) {
  const AcGePoint3d at(100, 200, 0);
  TestMember member;
  member.make(kPlate, Superior, 1000, 0.5, at);
  Corners k;
  member.GetCorners(k.a, k.b, k.c, k.d);
  expectNear(k.a, turned(at, 0.5, 0, 5));
  expectNear(k.b, turned(at, 0.5, 0, -5));
  expectNear(k.c, turned(at, 0.5, 1000, 5));
  expectNear(k.d, turned(at, 0.5, 1000, -5));
}

TEST(PictureCorners, WithinAHundredthOfTheLeaderTheOtherCoordinateDecides) {
  TestMember member;
  member.setVista(Superior);
  const AcGePoint3d points[] = {{0, 0, 0}, {0.009, 50, 0}, {100, 50, 0}, {100.011, 20, 0}};
  for (int i = 0; i < 3; ++i) member.AddVertex(KrVector(points[i], points[i + 1], KR_VT_LINHA), Superior);
  Corners k;
  member.GetCorners(k.a, k.b, k.c, k.d);
  expectNear(k.a, points[1]);
  expectNear(k.b, points[0]);
  expectNear(k.c, points[2]);
  expectNear(k.d, points[3]);
}

TEST(Faces, AreTheSidesOfASectionAsItStandsUnturned) {
  const AcGePoint3d at(10, 20, 0);
  TestMember member;
  member.setAngleSecao(0.3);
  member.make(kAngle, Secao, 1000, 0, at);
  Corners k;
  member.GetLimitPointsOfFaces(k.a, k.b, k.c, k.d);
  expectNear(k.a, turned(at, 0.3, 0, 120));
  expectNear(k.b, turned(at, 0.3, 0, 0));
  expectNear(k.c, turned(at, 0.3, 60, 120));
  expectNear(k.d, turned(at, 0.3, 60, 0));
  Corners same;
  member.GetCornersOf(same.a, same.b, same.c, same.d);
  expectNear(same.a, k.a);
  expectNear(same.d, k.d);
}

TEST(Faces, OfAnElevationLieAlongTheBar) {
  const AcGePoint3d at(10, 20, 0);
  TestMember member;
  member.setAngleSecao(0.3);
  member.make(kPlate, Superior, 1000, 0.7, at);
  Corners k, box;
  member.GetLimitPointsOfFaces(k.a, k.b, k.c, k.d);
  member.GetExtremePoints(box.a, box.b, box.c, box.d, 0, 0);
  expectNear(k.a, box.a);
  expectNear(k.b, box.b);
  expectNear(k.c, box.c);
  expectNear(k.d, box.d);
}

TEST(Faces, OfARoundSectionAreItsTangents) {
  TestMember member;
  member.make(kRound, Secao, 1000, 0, {10, 20, 0});
  Corners k;
  member.GetLimitPointsOfFaces(k.a, k.b, k.c, k.d);
  expectNear(k.a, AcGePoint3d(-20, 50, 0));
  expectNear(k.d, AcGePoint3d(40, -10, 0));
}

TEST(AxisRectangle, IsTheBoxOfStraightLinesAlongTheAxisOfItsList) {
  const AcGePoint3d at(10, 20, 0);
  for (const double angle : {0.7, 2.2, 4.0, 5.9}) {
    TestMember member;
    member.make(kPlate, Superior, 1000, angle, at);
    AcGePoint3d p = kUnset, q = kUnset;
    member.GetRectangleLimit(p, q, VistaCorrente);
    expectNear(p, turned(at, angle, 0, -5));
    expectNear(q, turned(at, angle, 1000, 5));
    Corners k;
    member.GetRectangle(k.a, k.b, k.c, k.d);
    expectNear(k.a, turned(at, angle, 0, 5));
    expectNear(k.b, turned(at, angle, 0, -5));
    expectNear(k.c, turned(at, angle, 1000, 5));
    expectNear(k.d, turned(at, angle, 1000, -5));
  }
}

TEST(AxisRectangle, OfAnEmptyListIsNone) {
  TestMember member;
  member.make(kPlate, Superior, 1000);
  AcGePoint3d p = kUnset, q = kUnset;
  member.GetRectangleLimit(p, q, Direita);
  EXPECT_EQ(p, kUnset);
  EXPECT_EQ(q, kUnset);
}

}  // namespace
