// The angle of a chord, against the arc tangent of the C library at greater precision.

#include "records/ChordAngle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

constexpr double kPi = 3.141592653589793;

long double exact(double x, double y) {
  const long double angle = std::atan2(static_cast<long double>(y), static_cast<long double>(x));
  return angle < 0 ? angle + 2 * std::acos(-1.0L) : angle;
}

TEST(ChordAngle, IsExactAtWholeQuarters) {
  EXPECT_EQ(chordAngle(3, 0), 0.0);
  EXPECT_EQ(chordAngle(3, -0.0), 0.0);
  EXPECT_EQ(chordAngle(0, 1e-300), kPi / 2);
  EXPECT_EQ(chordAngle(-7, 0), kPi);
  EXPECT_EQ(chordAngle(-7, -0.0), kPi);
  EXPECT_EQ(chordAngle(0, -2), kPi + kPi / 2);
}

TEST(ChordAngle, OfCoincidingPointsIsZero) {
  EXPECT_EQ(chordAngle(0, 0), 0.0);
  EXPECT_EQ(chordAngle(-0.0, -0.0), 0.0);
}

TEST(ChordAngle, IsTheArcTangentToAnUlpOrTwoInEveryDirectionAndSize) {
  std::mt19937_64 random(17);
  std::uniform_real_distribution<double> unit(-1, 1);
  double worst = 0;
  for (int i = 0; i < 400000; ++i) {
    const double x = unit(random) * std::pow(10, 6 * unit(random));
    const double y = unit(random) * std::pow(10, 6 * unit(random));
    const long double want = exact(x, y);
    worst = std::max(worst, static_cast<double>(std::fabs(chordAngle(x, y) - want) / want));
  }
  EXPECT_LT(worst, 4e-16);
}

TEST(ChordAngle, RunsOnOverTheSeamsOfItsApproximation) {
  for (const double seam : {std::atan(0.66), kPi / 4, kPi / 2 - std::atan(0.66)}) {
    for (int octant = 0; octant < 4; ++octant) {
      for (int step = -50; step <= 50; ++step) {
        const double angle = octant * kPi / 2 + seam + step * 1e-15;
        const double x = std::cos(angle), y = std::sin(angle);
        EXPECT_NEAR(chordAngle(x, y), static_cast<double>(exact(x, y)), 2e-15);
      }
    }
  }
}

TEST(ChordAngle, OfWhatIsNoNumberIsNone) {
  EXPECT_TRUE(std::isnan(chordAngle(std::nan(""), 1)));
  EXPECT_TRUE(std::isnan(chordAngle(1, std::nan(""))));
}

}  // namespace
