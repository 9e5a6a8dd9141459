#include <gtest/gtest.h>

#include <cmath>

#include "support/Angles.h"

namespace {

constexpr double kPi = 3.141592653589793;

TEST(Angles, TurnFromDegreesToRadiansAndBack) {
  EXPECT_EQ(sex2rad(180.0), kPi);
  EXPECT_EQ(rad2sex(kPi), 180.0);
  EXPECT_DOUBLE_EQ(sex2rad(-45.0), -kPi / 4.0);
  EXPECT_DOUBLE_EQ(rad2sex(kPi / 6.0), 30.0);
}

TEST(Angles, GiveUnitVectorsOfThePlane) {
  EXPECT_TRUE(VectorAngleSex(90.0).isEqualTo(AcGeVector3d::kYAxis));
  EXPECT_TRUE(VectorAngleRad(kPi).isEqualTo(-AcGeVector3d::kXAxis));
  EXPECT_EQ(VectorAngleRad(1.0).z, 0.0);
}

TEST(Angles, AFullTurnApartAreEqual) {
  EXPECT_TRUE(AngleIsEqual(0.0, 6.283185307179586));
  EXPECT_TRUE(AngleIsEqual(-kPi, kPi));
}

TEST(Angles, AreEqualUpToOneHundredThousandthInSineAndCosine) {
  EXPECT_TRUE(AngleIsEqual(0.0, 0.99e-5));
  EXPECT_FALSE(AngleIsEqual(0.0, 1.01e-5));
  EXPECT_FALSE(AngleIsEqual(1.0, kPi - 1.0)) << "the sines are equal, the cosines opposite";
  EXPECT_FALSE(AngleIsEqual(1.0, -1.0)) << "the cosines are equal, the sines opposite";
}

TEST(Surface, HoldsItsEdges) {
  const AcGePoint3d low(0.0, 0.0, 0.0);
  const AcGePoint3d high(10.0, 5.0, 0.0);
  EXPECT_EQ(isOnSurface2d(low, high, {0.0, 5.0, 9.0}), 1);
  EXPECT_EQ(isOnSurface2d(low, high, {10.0, 0.0, 0.0}), 1);
  EXPECT_EQ(isOnSurface2d(low, high, {10.000001, 0.0, 0.0}), 0);
  EXPECT_EQ(isOnSurface2d(low, high, {3.0, -1e-9, 0.0}), 0);
}

TEST(PointsAndVectors, KeepTheirCoordinates) {
  AcGeVector3d v;
  Point_2_Vector({1.0, 2.0, 3.0}, v);
  EXPECT_EQ(v.z, 3.0);
  AcGePoint3d p;
  Vector_2_Point({4.0, 5.0, 6.0}, p);
  EXPECT_EQ(p.y, 5.0);
}

TEST(Integers, ChangePlaces) {
  int a = 1;
  int b = 2;
  swap_int(a, b);
  EXPECT_EQ(a, 2);
  EXPECT_EQ(b, 1);
}

}  // namespace
