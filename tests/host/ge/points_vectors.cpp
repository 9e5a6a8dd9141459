#include <type_traits>

#include "GeTesting.h"

namespace {

using namespace getest;

template <class T>
constexpr bool kPlain = std::is_trivially_copyable_v<T> && !std::is_polymorphic_v<T>;

static_assert(kPlain<AcGePoint2d> && kPlain<AcGePoint3d> && kPlain<AcGeVector2d> && kPlain<AcGeVector3d>);
static_assert(kPlain<AcGeMatrix2d> && kPlain<AcGeMatrix3d> && kPlain<AcGeTol> && kPlain<AcGeScale3d>);
static_assert(kPlain<AcGeLine2d> && kPlain<AcGeRay2d> && kPlain<AcGeLineSeg2d> && kPlain<AcGeCircArc2d>);
static_assert(kPlain<AcGeLine3d> && kPlain<AcGeRay3d> && kPlain<AcGeLineSeg3d> && kPlain<AcGeCircArc3d>);
static_assert(kPlain<AcGePlane>);
static_assert(sizeof(AcGePoint3d) == 3 * sizeof(double) && sizeof(AcGePoint2d) == 2 * sizeof(double));

TEST(Tolerance, IsGlobalWhereNoneIsGiven) {
  const AcGePoint3d p(1, 1, 1);
  const AcGePoint3d q(1, 1, 1 + 1e-9);
  {
    const GlobalTolerance fine(1e-10);
    EXPECT_FALSE(p == q);
  }
  const GlobalTolerance coarse(1e-8);
  EXPECT_TRUE(p == q);
  EXPECT_FALSE(p.isEqualTo(q, within(1e-10)));
}

TEST(Tolerance, OfPointsIsTheirDistanceWithTheBorderIncluded) {
  AcGeTol tol;
  tol.setEqualPoint(5.0);
  tol.setEqualVector(1.0);
  EXPECT_TRUE(AcGePoint2d(0, 0).isEqualTo({3, 4}, tol));
  EXPECT_FALSE(AcGePoint2d(0, 0).isEqualTo({3, 4.0001}, tol));
  EXPECT_TRUE(AcGeVector2d(0, 0).isEqualTo({1, 0}, tol));
  EXPECT_FALSE(AcGeVector2d(0, 0).isEqualTo({3, 4}, tol));
}

TEST(Coordinates, AreNamedAndCounted) {
  AcGePoint3d p(1, 2, 3);
  p[1] = 7;
  EXPECT_EQ(p.y, 7);
  EXPECT_EQ(p[2], 3);
  AcGeVector2d v(4, 5);
  EXPECT_EQ(v[0] + v[1], 9);
  EXPECT_EQ(AcGePoint3d().x, 0);
}

TEST(Points, AreAddedToVectorsAndSubtractedFromPoints) {
  AcGePoint3d p(1, 2, 3);
  const AcGeVector3d v = AcGePoint3d(4, 6, 8) - p;
  EXPECT_TRUE(v.isEqualTo({3, 4, 5}));
  p += v;
  EXPECT_TRUE(p.isEqualTo({4, 6, 8}));
  p -= v;
  EXPECT_TRUE((p * 2.0).isEqualTo({2, 4, 6}));
  EXPECT_TRUE((p / 2.0).isEqualTo({0.5, 1, 1.5}));
  EXPECT_EQ(AcGePoint3d(0, 0, 0).distanceTo({2, 3, 6}), 7.0);
}

TEST(Points, TurnAboutACentreAndAnAxis) {
  EXPECT_TRUE(AcGePoint2d(3, 1).rotateBy(kPi / 2, {1, 1}).isEqualTo({1, 3}));
  EXPECT_TRUE(AcGePoint3d(3, 1, 9).rotateBy(kPi / 2, AcGeVector3d::kZAxis, {1, 1, 0}).isEqualTo({1, 3, 9}));
  EXPECT_TRUE(AcGePoint3d(3, 1, 9).rotateBy(kPi / 2, -AcGeVector3d::kZAxis, {1, 1, 0}).isEqualTo({1, -1, 9}));
  EXPECT_TRUE(AcGePoint3d(0, 1, 0).rotateBy(kPi / 2, AcGeVector3d::kXAxis * 5).isEqualTo({0, 0, 1}));
}

TEST(Points, MirrorInALineOfThePlane) {
  const AcGeLine2d diagonal(AcGePoint2d(1, 0), AcGeVector2d(3, 3));
  EXPECT_TRUE(AcGePoint2d(1, 5).mirror(diagonal).isEqualTo({6, 0}));
  EXPECT_TRUE(AcGePoint2d(4, 3).mirror(diagonal).isEqualTo({4, 3}));
}

TEST(Vectors, MeasureUnsignedAngles) {
  EXPECT_DOUBLE_EQ(AcGeVector2d(1, 0).angleTo({0, -3}), kPi / 2);
  EXPECT_DOUBLE_EQ(AcGeVector3d(1, 0, 0).angleTo({-1, 0, 0}), kPi);
  EXPECT_EQ(AcGeVector3d(1, 2, 3).angleTo({2, 4, 6}), 0.0);
  EXPECT_NEAR(AcGeVector3d(1, 0, 0).angleTo({1, 1e-9, 0}), 1e-9, 1e-20) << "small angles keep their digits";
}

TEST(Vectors, MeasureAnglesAboutAReference) {
  const AcGeVector3d x = AcGeVector3d::kXAxis;
  const AcGeVector3d z = AcGeVector3d::kZAxis;
  EXPECT_DOUBLE_EQ(x.angleTo({0, 1, 0}, z), kPi / 2);
  EXPECT_DOUBLE_EQ(x.angleTo({0, -1, 0}, z), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(x.angleTo({0, 1, 0}, -z), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(x.angleTo({-1, 0, 0}, z), kPi);
  EXPECT_EQ(x.angleTo(x, z), 0.0);
  EXPECT_EQ(x.angleTo(x, -z), 0.0);
  EXPECT_DOUBLE_EQ(x.angleTo({1, -1, 0}, z), 1.75 * kPi);
}

TEST(Vectors, AngleFromTheXAxisStaysBelowAFullTurn) {
  EXPECT_EQ(AcGeVector2d(1, 0).angle(), 0.0);
  EXPECT_DOUBLE_EQ(AcGeVector2d(0, -1).angle(), 1.5 * kPi);
  EXPECT_EQ(AcGeVector2d(1, -1e-300).angle(), 0.0);
  EXPECT_EQ(AcGeVector2d(0, 0).angle(), 0.0);
  EXPECT_DOUBLE_EQ(AcGeVector2d(-1, 0).angle(), kPi);
}

TEST(Vectors, WithoutLengthHaveNoDirection) {
  const AcGeVector3d none(1e-12, 0, 0);
  EXPECT_TRUE(none.isZeroLength());
  EXPECT_FALSE(none.isParallelTo(AcGeVector3d::kXAxis));
  EXPECT_FALSE(none.isCodirectionalTo(none));
  EXPECT_FALSE(none.isPerpendicularTo(AcGeVector3d::kYAxis));
  EXPECT_EQ(none.normal().x, 1e-12) << "it stays as it is";
  AcGeError flag = AcGe::kOk;
  AcGeVector3d(none).normalize(AcGeTol(), flag);
  EXPECT_EQ(flag, AcGe::k0This);
  AcGeVector3d(0, 3, 0).normalize(AcGeTol(), flag);
  EXPECT_EQ(flag, AcGe::kOk);
}

TEST(Vectors, CompareDirectionsWhateverTheirLengths) {
  const GlobalTolerance tolerance(1e-8);
  const AcGeVector3d along(3e6, 4e6, 0);
  EXPECT_TRUE(along.isParallelTo({-0.3, -0.4, 0}));
  EXPECT_FALSE(along.isCodirectionalTo({-0.3, -0.4, 0}));
  EXPECT_TRUE(along.isCodirectionalTo({0.3, 0.4, 0}));
  EXPECT_TRUE(along.isPerpendicularTo({-0.4, 0.3, 7}));
  EXPECT_FALSE(along.isParallelTo({0.3, 0.4, 1e-7}));
}

TEST(Vectors, FollowTheArbitraryAxisRule) {
  EXPECT_TRUE(AcGeVector3d::kZAxis.perpVector().isEqualTo(AcGeVector3d::kXAxis));
  EXPECT_TRUE((-AcGeVector3d::kZAxis).perpVector().isEqualTo(-AcGeVector3d::kXAxis));
  EXPECT_TRUE(AcGeVector3d::kXAxis.perpVector().isEqualTo(AcGeVector3d::kYAxis));
  EXPECT_TRUE(AcGeVector3d::kYAxis.perpVector().isEqualTo(-AcGeVector3d::kXAxis));
  // On both sides of the border of 1/64 about the Z axis.
  const AcGeVector3d inside = AcGeVector3d(0.0, 0.9 / 64, 1.0).normal();
  EXPECT_TRUE(inside.perpVector().isEqualTo(AcGeVector3d::kYAxis.crossProduct(inside).normal()));
  const AcGeVector3d outside = AcGeVector3d(0.0, 1.1 / 64, 1.0).normal();
  EXPECT_TRUE(outside.perpVector().isEqualTo(AcGeVector3d::kZAxis.crossProduct(outside).normal()));
}

TEST(Vectors, OfThePlaneTurnAQuarterToTheLeft) {
  EXPECT_TRUE(AcGeVector2d(3, 1).perpVector().isEqualTo({-1, 3}));
  EXPECT_GT(AcGeVector2d(3, 1).crossProduct(AcGeVector2d(3, 1).perpVector()), 0.0);
}

RC_GTEST_PROP(Vectors, TurnAsTheRotationMatrixSays, ()) {
  const AcGeVector3d axis = direction3d();
  const AcGeVector3d v = point3d().asVector();
  const double angle = number(-10, 10);
  const AcGeVector3d turned = AcGeVector3d(v).rotateBy(angle, axis);
  RC_ASSERT(turned.isEqualTo(AcGeMatrix3d::rotation(angle, axis) * v, within(1e-10)));
  RC_ASSERT(std::fabs(turned.length() - v.length()) < 1e-10);
  RC_ASSERT(std::fabs(turned.dotProduct(axis) - v.dotProduct(axis)) < 1e-8);
}

RC_GTEST_PROP(Vectors, AngleAboutAReferenceUndoesATurn, ()) {
  const AcGeVector3d axis = direction3d();
  const AcGeVector3d v = direction3d().orthoProject(axis);
  RC_PRE(v.length() > 1.0);
  const double angle = number(0, 6.283);
  const double got = v.angleTo(AcGeVector3d(v).rotateBy(angle, axis), axis);
  RC_ASSERT(std::fabs(got - angle) < 1e-9);
}

RC_GTEST_PROP(Vectors, CosineLawHolds, ()) {
  const AcGeVector3d a = direction3d();
  const AcGeVector3d b = direction3d();
  const double c = a.dotProduct(b) / (a.length() * b.length());
  RC_ASSERT(std::fabs(std::cos(a.angleTo(b)) - c) < 1e-12);
}

RC_GTEST_PROP(Vectors, PerpVectorIsASquareUnit, ()) {
  const AcGeVector3d v = direction3d();
  RC_ASSERT(std::fabs(v.perpVector().length() - 1.0) < 1e-14);
  RC_ASSERT(std::fabs(v.perpVector().dotProduct(v)) < 1e-11);
}

RC_GTEST_PROP(Points, MirroringTwiceIsNothing, ()) {
  const AcGeLine2d line(point2d(), direction2d());
  const AcGePoint2d p = point2d();
  const AcGePoint2d image = AcGePoint2d(p).mirror(line);
  RC_ASSERT(AcGePoint2d(image).mirror(line).isEqualTo(p, within(1e-9)));
  RC_ASSERT(std::fabs(line.distanceTo(p) - line.distanceTo(image)) < 1e-9);
  RC_ASSERT(line.isOn(p + (image - p) / 2.0, within(1e-9)));
}

}  // namespace
