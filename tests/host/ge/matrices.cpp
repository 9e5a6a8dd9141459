#include "GeTesting.h"

namespace {

using namespace getest;

TEST(Matrix, OfAHalfTurnAboutALineNegatesZToo) {
  const AcGeMatrix3d m = AcGeMatrix3d::mirroring(AcGeLine3d(AcGePoint3d(5, 0, 0), AcGeVector3d(0, 2, 0)));
  EXPECT_TRUE((m * AcGePoint3d(7, 3, 4)).isEqualTo({3, 3, -4}));
  EXPECT_NEAR(m.det(), 1.0, 1e-15);
  EXPECT_TRUE((m * AcGeVector3d(1, 1, 1)).isEqualTo({-1, 1, -1}));
}

TEST(Matrix, OfAMirrorPlaneHasANegativeDeterminant) {
  const AcGeMatrix3d m = AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(0, 0, 2), AcGeVector3d::kZAxis));
  EXPECT_TRUE((m * AcGePoint3d(7, 3, 5)).isEqualTo({7, 3, -1}));
  EXPECT_NEAR(m.det(), -1.0, 1e-15);
}

TEST(Matrix, OfAMirrorLineOfThePlaneHasANegativeDeterminant) {
  const AcGeMatrix2d m = AcGeMatrix2d::mirroring(AcGeLine2d(AcGePoint2d(0, 1), AcGeVector2d(2, 0)));
  EXPECT_TRUE((m * AcGePoint2d(3, 5)).isEqualTo({3, -3}));
  EXPECT_NEAR(m.det(), -1.0, 1e-15);
}

TEST(Matrix, OfMirrorPointsKeepsThePoint) {
  EXPECT_TRUE((AcGeMatrix2d::mirroring(AcGePoint2d(1, 2)) * AcGePoint2d(4, 4)).isEqualTo({-2, 0}));
  EXPECT_TRUE((AcGeMatrix3d::mirroring(AcGePoint3d(1, 2, 3)) * AcGePoint3d(1, 2, 4)).isEqualTo({1, 2, 2}));
}

TEST(Matrix, ActsRightFactorFirst) {
  const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis);
  const AcGeMatrix3d shift = AcGeMatrix3d::translation({10, 0, 0});
  EXPECT_TRUE((shift * turn * AcGePoint3d(1, 0, 0)).isEqualTo({10, 1, 0}));
  EXPECT_TRUE((AcGeMatrix3d(turn).preMultBy(shift) * AcGePoint3d(1, 0, 0)).isEqualTo({10, 1, 0}));
  EXPECT_TRUE((AcGeMatrix3d(turn).postMultBy(shift) * AcGePoint3d(1, 0, 0)).isEqualTo({0, 11, 0}));
  EXPECT_TRUE((shift * AcGeVector3d(1, 0, 0)).isEqualTo({1, 0, 0})) << "vectors aren't shifted";
}

TEST(Matrix, GivesItsScale) {
  EXPECT_DOUBLE_EQ((AcGeMatrix3d::rotation(1.0, {1, 2, 3}) * AcGeMatrix3d::scaling(2.5, {4, 5, 6})).scale(), 2.5);
  EXPECT_DOUBLE_EQ((AcGeMatrix2d::rotation(1.0) * AcGeMatrix2d::scaling(2.5)).scale(), 2.5);
  EXPECT_TRUE((AcGeMatrix3d::scaling(3, {1, 1, 1}) * AcGePoint3d(1, 1, 1)).isEqualTo({1, 1, 1}));
}

TEST(Matrix, ThatFlattensIsSingular) {
  EXPECT_TRUE(AcGeMatrix3d::projection(AcGePlane::kXYPlane, {1, 0, 1}).isSingular());
  EXPECT_FALSE(AcGeMatrix3d::scaling(1e-6).isSingular());
  EXPECT_TRUE(AcGeMatrix2d::scaling(0.0).isSingular());
  AcGeMatrix3d flat = AcGeMatrix3d::scaling(0.0);
  EXPECT_TRUE(flat.invert().isEqualTo(AcGeMatrix3d::scaling(0.0))) << "it stays as it is";
}

TEST(Matrix, ProjectsAlongADirection) {
  const AcGeMatrix3d m = AcGeMatrix3d::projection(AcGePlane(AcGePoint3d(0, 0, 1), AcGeVector3d::kZAxis), {1, 0, -1});
  EXPECT_TRUE((m * AcGePoint3d(0, 0, 3)).isEqualTo({2, 0, 1}));
}

TEST(Matrix, OfAFrameGivesItBack) {
  AcGeMatrix3d m;
  m.setCoordSystem({1, 2, 3}, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis);
  EXPECT_TRUE((m * AcGePoint3d(1, 10, 100)).isEqualTo({101, 3, 13}));
  AcGePoint3d origin;
  AcGeVector3d x;
  AcGeVector3d y;
  AcGeVector3d z;
  m.getCoordSystem(origin, x, y, z);
  EXPECT_TRUE(origin.isEqualTo({1, 2, 3}) && x == AcGeVector3d::kYAxis && z == AcGeVector3d::kXAxis);
  EXPECT_TRUE(m.translation().isEqualTo({1, 2, 3}));
}

TEST(Matrix, OfANormalAlongZIsTheIdentity) {
  EXPECT_TRUE(AcGeMatrix3d::planeToWorld(AcGeVector3d::kZAxis).isEqualTo(AcGeMatrix3d::kIdentity));
  const AcGeMatrix3d down = AcGeMatrix3d::planeToWorld(-AcGeVector3d::kZAxis);
  EXPECT_TRUE((down * AcGePoint3d(1, 2, 3)).isEqualTo({-1, 2, -3}));
}

RC_GTEST_PROP(Matrix, InverseUndoes, ()) {
  const AcGeMatrix3d m = AcGeMatrix3d::translation(point3d().asVector()) *
                         AcGeMatrix3d::rotation(number(-4, 4), direction3d(), point3d()) *
                         AcGeMatrix3d::scaling(number(0.1, 10), point3d());
  RC_ASSERT((m * m.inverse()).isEqualTo(AcGeMatrix3d::kIdentity, within(1e-9)));
  RC_ASSERT((m.inverse() * m).isEqualTo(AcGeMatrix3d::kIdentity, within(1e-9)));
  const AcGeMatrix2d n = AcGeMatrix2d::translation(point2d().asVector()) *
                         AcGeMatrix2d::rotation(number(-4, 4), point2d()) *
                         AcGeMatrix2d::scaling(number(0.1, 10), point2d());
  RC_ASSERT((n * n.inverse()).isEqualTo(AcGeMatrix2d::kIdentity, within(1e-9)));
}

RC_GTEST_PROP(Matrix, RotationKeepsItsCentreAndAxis, ()) {
  const AcGePoint3d centre = point3d();
  const AcGeVector3d axis = direction3d();
  const AcGeMatrix3d m = AcGeMatrix3d::rotation(number(-4, 4), axis, centre);
  RC_ASSERT((m * centre).isEqualTo(centre, within(1e-10)));
  RC_ASSERT((m * axis).isEqualTo(axis, within(1e-10)));
  RC_ASSERT(m.isUniScaledOrtho(within(1e-10)));
  RC_ASSERT(std::fabs(m.det() - 1.0) < 1e-12);
}

RC_GTEST_PROP(Matrix, ToAPlaneIsTheInverseOfFromIt, ()) {
  const AcGeVector3d normal = direction3d();
  const AcGeMatrix3d there = AcGeMatrix3d::worldToPlane(normal);
  RC_ASSERT((there * AcGeMatrix3d::planeToWorld(normal)).isEqualTo(AcGeMatrix3d::kIdentity, within(1e-12)));
  RC_ASSERT((there * normal.normal()).isEqualTo(AcGeVector3d::kZAxis, within(1e-12)));
  const AcGePlane plane(point3d(), normal);
  RC_ASSERT((AcGeMatrix3d::worldToPlane(plane) * plane.pointOnPlane()).isEqualTo({0, 0, 0}, within(1e-10)));
}

RC_GTEST_PROP(Matrix, AlignsFrames, ()) {
  const AcGeMatrix3d from = AcGeMatrix3d::rotation(number(-4, 4), direction3d(), point3d());
  const AcGeMatrix3d to = AcGeMatrix3d::rotation(number(-4, 4), direction3d(), point3d());
  AcGePoint3d o1, o2;
  AcGeVector3d x1, y1, z1, x2, y2, z2;
  from.getCoordSystem(o1, x1, y1, z1);
  to.getCoordSystem(o2, x2, y2, z2);
  const AcGeMatrix3d align = AcGeMatrix3d::alignCoordSys(o1, x1, y1, z1, o2, x2, y2, z2);
  RC_ASSERT((align * o1).isEqualTo(o2, within(1e-9)));
  RC_ASSERT((align * y1).isEqualTo(y2, within(1e-9)));
}

}  // namespace
