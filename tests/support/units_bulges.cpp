#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/Bulges.h"

namespace {

constexpr double kPi = 3.141592653589793;

TEST(Bulge, OfAQuarterTurnIsTheTangentOfAnEighthTimes127) {
  EXPECT_NEAR(Calcula_Bulge(kPi / 2.0, 0), 52.605122, 1e-6);
  EXPECT_NEAR(Calcula_Bulge(kPi / 2.0, 1), -52.605122, 1e-6);
}

TEST(Bulge, OfEdgesThatGoStraightOnIsZero) {
  EXPECT_EQ(Calcula_Bulge(kPi, 0), 0.0);
  EXPECT_EQ(Calcula_Bulge(kPi, 1), 0.0);
}

TEST(Bulge, OfAHalfTurnIs127) {
  EXPECT_NEAR(Calcula_Bulge(0.0, 0), 127.0, 1e-12);
}

TEST(Bulge, OnlyTheSense1Negates) {
  EXPECT_GT(Calcula_Bulge(1.0, -1), 0.0);
  EXPECT_EQ(Calcula_Bulge(1.0, -1), -Calcula_Bulge(1.0, 1));
}

TEST(Bulge, GoesBackToRadiusAndAngleWhateverItsSign) {
  for (int degrees = 1; degrees < 360; ++degrees) {
    const double sweep = degrees * kPi / 180.0;
    const double chord = 2.0 * 75.0 * std::sin(sweep / 2.0);
    for (double sign : {1.0, -1.0}) {
      double radius = 0.0;
      double angle = 0.0;
      Calcula_Bulge(sign * std::tan(sweep / 4.0) * 127.0, chord, radius, angle);
      EXPECT_NEAR(angle, sweep, 1e-12);
      EXPECT_NEAR(radius, 75.0, 1e-7);
    }
  }
}

TEST(SameSide, OfADiagonalChord) {
  const AcGePoint3d p1(10.0, 10.0, 0.0);
  const AcGePoint3d p2(40.0, 40.0, 0.0);
  EXPECT_EQ(toEqualSide(p1, p2, {0.0, 50.0, 0.0}, {35.0, 36.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p1, p2, {0.0, 50.0, 0.0}, {36.0, 35.0, 0.0}), 0);
  EXPECT_EQ(toEqualSide(p1, p2, {90.0, 0.0, 0.0}, {36.0, 35.0, 0.0}), 1);
}

TEST(SameSide, OfAVerticalChordWhoseFeetLieOnTheXAxis) {
  const AcGePoint3d p1(0.0, 0.0, 0.0);
  const AcGePoint3d p2(0.0, 10.0, 0.0);
  EXPECT_EQ(toEqualSide(p1, p2, {5.0, -3.0, 0.0}, {1.0, 30.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p1, p2, {5.0, -3.0, 0.0}, {-1.0, 30.0, 0.0}), 0);
  // A chord a little off the vertical puts the feet just below the axis or just above it.
  EXPECT_EQ(toEqualSide(p1, {1e-4, 10.0, 0.0}, {5.0, -3.0, 0.0}, {1.0, 30.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p1, {-1e-4, 10.0, 0.0}, {5.0, -3.0, 0.0}, {1.0, 30.0, 0.0}), 1);
}

TEST(SameSide, APointOnTheLineCountsWithAnotherOnItAndAtAngle0) {
  const AcGePoint3d p1(0.0, 0.0, 0.0);
  const AcGePoint3d p2(10.0, 0.0, 0.0);
  EXPECT_EQ(toEqualSide(p1, p2, {3.0, 0.0, 0.0}, {70.0, 0.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p1, p2, {3.0, 0.0, 0.0}, {3.0, 1.0, 0.0}), 0);
  EXPECT_EQ(toEqualSide(p1, p2, {3.0, 0.0, 0.0}, {3.0, -1.0, 0.0}), 0);
  // Up a vertical chord the right side's foot stands at angle 0, as a point on the line does.
  EXPECT_EQ(toEqualSide(p1, {0.0, 10.0, 0.0}, {0.0, 4.0, 0.0}, {1.0, 1.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p1, {0.0, 10.0, 0.0}, {0.0, 4.0, 0.0}, {-1.0, 1.0, 0.0}), 0);
}

TEST(SameSide, OfEqualEndsIsOfAChordAlongTheXAxis) {
  const AcGePoint3d p(5.0, 5.0, 0.0);
  EXPECT_EQ(toEqualSide(p, p, {0.0, 6.0, 0.0}, {9.0, 7.0, 0.0}), 1);
  EXPECT_EQ(toEqualSide(p, p, {0.0, 6.0, 0.0}, {9.0, 4.0, 0.0}), 0);
}

/// The measure by its construction: feet by intersecting lines, then their angles.
int sameSideByConstruction(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& a, const AcGePoint3d& b) {
  using Real = long double;
  const Real t = std::atan2(Real(p2.y) - p1.y, Real(p2.x) - p1.x);
  const auto angleOfFoot = [&](const AcGePoint3d& p) {
    const Real reach = (Real(p.x) - p1.x) * -std::sin(t) + (Real(p.y) - p1.y) * std::cos(t);
    Real angle = std::atan2(reach * std::cos(t), reach * -std::sin(t));
    if (angle < 0.0L) angle += 6.283185307179586L;
    return angle >= 6.273185307403104L ? angle - 6.283185307179586L : angle;
  };
  return std::fabs(angleOfFoot(a) - angleOfFoot(b)) <= 0.009999999776482582L ? 1 : 0;
}

TEST(SameSide, AgreesWithItsConstruction) {
  std::mt19937_64 random(20240501);
  std::uniform_real_distribution<double> place(-1000.0, 1000.0);
  const auto point = [&] { return AcGePoint3d(place(random), place(random), 0.0); };
  for (int i = 0; i < 20000; ++i) {
    const AcGePoint3d p1 = point();
    const AcGePoint3d p2 = i % 4 == 0 ? p1 + AcGeVector3d(0.0, place(random), 0.0) : point();
    const AcGePoint3d a = point();
    const AcGePoint3d b = point();
    ASSERT_EQ(toEqualSide(p1, p2, a, b), sameSideByConstruction(p1, p2, a, b)) << i;
  }
}

}  // namespace
