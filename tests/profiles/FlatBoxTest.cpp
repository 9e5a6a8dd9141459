#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "SectionChecks.h"
#include "profiles/KrBox.h"

namespace {

// A box whose corners take the whole of a side: the line through the metal begins with an edge of no length.
TEST(KrBox, IsWholeWhereItsCornersLeaveNothingOfASide) {
  constexpr double kHeight = 203.2, kWidth = 50.8, kWall = 12.7, kInner = 12.7;
  const KrBox box(AcGePoint3d(0, 0, 0), AcGePoint3d(1000, 0, 0), Secao, kHeight, kWidth, kWall, kInner, 0);
  const oracle::Outline outline = section::contoursOf(box);
  ASSERT_EQ(outline.size(), 2U);
  const auto rounded = [](double h, double b, double r) { return h * b - (4 - std::numbers::pi) * r * r; };
  EXPECT_NEAR(std::fabs(oracle::area(outline[0])), rounded(kHeight, kWidth, kInner + kWall), 1e-6);
  EXPECT_NEAR(std::fabs(oracle::area(outline[1])), rounded(kHeight - 2 * kWall, kWidth - 2 * kWall, kInner), 1e-6);
  EXPECT_EQ(section::crossingsOf(outline), 0);
}

}  // namespace
