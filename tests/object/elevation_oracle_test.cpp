// The elevation generator against the visibility oracle: every shape of the catalogue in four views at quarter turns
// without a difference, and at any angle and for random outlines with next to none. What may differ there are two edges
// a hair more than the drawing tolerance apart: two lines to both sides, and one to the comparison's blur.

#include <gtest/gtest.h>

#include <iostream>

#include "object/ElevationView.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

using oracle::drawnView;
using oracle::kElevations;
using oracle::lookedAt;

bool agrees(const oracle::Outline& section, KrVistas vista, double angle, std::string* why) {
  TestMember member;
  member.setAngleSecao(angle);
  member.make(section, vista, 1000);
  return oracle::same(oracle::look(lookedAt(section, vista, angle)), drawnView(member, vista), why);
}

TEST(ElevationOracle, CatalogueShapesAgreeInFourViewsAtQuarterTurns) {
  const auto shapes = samples::catalogueLike();
  ASSERT_FALSE(shapes.empty());
  for (const auto& shape : shapes)
    for (const KrVistas vista : kElevations)
      for (int quarter = 0; quarter < 4; ++quarter) {
        std::string why;
        EXPECT_TRUE(agrees(shape.outline, vista, quarter * kPi / 2, &why))
            << shape.name << ", view " << vista << ", turned by " << quarter * 90 << ": " << why;
      }
}

TEST(ElevationOracle, CatalogueShapesAgreeAtAnyAngleAlmostAlways) {
  int cases = 0;
  int differ = 0;
  for (const auto& shape : samples::catalogueLike())
    for (const KrVistas vista : kElevations)
      for (int step = 0; step < 97; ++step) {
        const double angle = step * 2 * kPi / 97;
        std::string why;
        ++cases;
        if (agrees(shape.outline, vista, angle, &why)) continue;
        ++differ;
        std::cout << shape.name << ", view " << vista << ", turned by " << angle * 180 / kPi << ": " << why << "\n";
      }
  EXPECT_LT(differ, cases / 100) << differ << " of " << cases;
}

void tryRandom(unsigned seed, bool round) {
  std::mt19937 random(seed);
  int differ = 0;
  const int cases = 2000;
  for (int i = 0; i < cases; ++i) {
    const oracle::Outline section = samples::randomOutline(random, round);
    std::string why;
    if (agrees(section, kElevations[i % 4], 0, &why)) continue;
    ++differ;
    if (differ <= 12) std::cout << "case " << i << ", view " << kElevations[i % 4] << ": " << why << "\n";
  }
  EXPECT_LT(differ, cases / 100) << differ << " of " << cases << " with seed " << seed;
}

TEST(ElevationOracle, RandomSharpOutlinesAgreeAlmostAlways) {
  tryRandom(20240801, false);
}
TEST(ElevationOracle, RandomRoundedOutlinesAgreeAlmostAlways) {
  tryRandom(20240802, true);
}

}  // namespace
