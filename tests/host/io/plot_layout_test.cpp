#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <random>

#include "host/io/plot/AciColor.h"
#include "host/io/plot/Clipping.h"
#include "host/io/plot/DashLayout.h"
#include "host/io/plot/Look.h"
#include "host/io/plot/Path.h"

namespace {

using plot::DashLayout;
using plot::DashPattern;
using plot::layOutClosedDashes;
using plot::layOutDashes;
using plot::paperColor;
using plot::Rgb;

constexpr double kPi = 3.14159265358979323846;
constexpr double kDot = 0.25;
const DashPattern kDashed{3.0, -1.5};
const DashPattern kCentre{8.0, -1.5, 1.0, -1.5};

double periodOf(const DashLayout& layout) {
  return std::accumulate(layout.onOff.begin(), layout.onOff.end(), 0.0);
}

TEST(DashLayout, KeepsTheDashWhenTheLineFits) {
  // Four dashes of 3 and three gaps of 1.5.
  const DashLayout layout = layOutDashes(kDashed, 16.5, kDot);
  EXPECT_EQ(layout.onOff, (std::vector<double>{3.0, 1.5}));
  EXPECT_EQ(layout.offset, 0.0);
}

TEST(DashLayout, StretchesTheDashesAndNotTheGaps) {
  // 18 = 4 dashes + 3 gaps: each dash (18 - 4.5) / 4.
  EXPECT_EQ(layOutDashes(kDashed, 18.0, kDot).onOff, (std::vector<double>{3.375, 1.5}));
}

TEST(DashLayout, StretchesOnlyTheLongDashOfACentreLine) {
  // 36 = 3 long dashes + 2 times 1.5 + 1 + 1.5: each long dash 28 / 3.
  const DashLayout layout = layOutDashes(kCentre, 36.0, kDot);
  ASSERT_EQ(layout.onOff.size(), 4U);
  EXPECT_DOUBLE_EQ(layout.onOff[0], 28.0 / 3.0);
  EXPECT_EQ(layout.onOff[2], 1.0);
}

TEST(DashLayout, BeginsWithTheLongDashHoweverThePatternIsWritten) {
  for (const DashPattern& turned :
       {DashPattern{1.0, -1.5, 8.0, -1.5}, DashPattern{-1.5, 1.0, -1.5, 8.0}, DashPattern{4.0, -1.5, 1.0, -1.5, 4.0}}) {
    EXPECT_EQ(layOutDashes(turned, 36.0, kDot).onOff, layOutDashes(kCentre, 36.0, kDot).onOff);
  }
}

TEST(DashLayout, EndsEveryLineWithADash) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> lengths(12.0, 500.0);
  for (int i = 0; i < 1000; ++i) {
    const double length = lengths(random);
    const DashLayout layout = layOutDashes(kCentre, length, kDot);
    ASSERT_FALSE(layout.onOff.empty()) << length;
    const double dash = layout.onOff.front();
    const double repeats = (length - dash) / periodOf(layout);
    EXPECT_NEAR(repeats, std::round(repeats), 1e-9) << length;
    EXPECT_GE(dash, 4.0);
    EXPECT_LE(dash, 16.0);
  }
}

TEST(DashLayout, ShortLinesAreContinuous) {
  EXPECT_TRUE(layOutDashes(kDashed, 3.0, kDot).onOff.empty());
  EXPECT_TRUE(layOutDashes(kDashed, 4.4, kDot).onOff.empty());
  // (5.3 - 1.5) / 2 is more than half a dash.
  EXPECT_NEAR(layOutDashes(kDashed, 5.3, kDot).onOff.at(0), 1.9, 1e-12);
  EXPECT_TRUE(layOutDashes(kDashed, 0.0, kDot).onOff.empty());
}

TEST(DashLayout, DotsAreAsLongAsToldAndSpaceOutEvenly) {
  // 10.25 = 5 dots and 4 gaps: (10.25 - 1.25) / 4.
  const DashLayout layout = layOutDashes({0.0, -2.0}, 10.25, kDot);
  ASSERT_EQ(layout.onOff.size(), 2U);
  EXPECT_EQ(layout.onOff[0], kDot);
  EXPECT_NEAR(layout.onOff[1], 2.25, 1e-12);
}

TEST(DashLayout, MeetsItselfInTheMiddleOfADashOnACircle) {
  const double length = 2.0 * kPi * 15.0;
  const DashLayout layout = layOutClosedDashes(kDashed, length, kDot);
  // 94.25 mm take 21 repetitions of 4.5.
  EXPECT_NEAR(periodOf(layout), length / 21.0, 1e-12);
  EXPECT_EQ(layout.onOff[1], 1.5);
  EXPECT_NEAR(layout.offset, layout.onOff[0] / 2.0, 1e-12);
}

TEST(DashLayout, PatternsWithoutSenseGiveAContinuousLine) {
  const double nan = std::nan("");
  for (const DashPattern& pattern : {DashPattern{}, DashPattern{5.0}, DashPattern{-2.0}, DashPattern{3.0, nan},
                                     DashPattern{1e-9, -1e-9}, DashPattern{3.0, 2.0}}) {
    EXPECT_TRUE(layOutDashes(pattern, 100.0, kDot).onOff.empty());
    EXPECT_TRUE(layOutClosedDashes(pattern, 100.0, kDot).onOff.empty());
  }
  EXPECT_TRUE(layOutDashes(kDashed, nan, kDot).onOff.empty());
}

TEST(AciColor, HuesGoRoundFromRed) {
  EXPECT_EQ(plot::aciColor(10), (Rgb{255, 0, 0}));
  EXPECT_EQ(plot::aciColor(30), (Rgb{255, 127, 0}));
  EXPECT_EQ(plot::aciColor(50), (Rgb{255, 255, 0}));
  EXPECT_EQ(plot::aciColor(90), (Rgb{0, 255, 0}));
  EXPECT_EQ(plot::aciColor(130), (Rgb{0, 255, 255}));
  EXPECT_EQ(plot::aciColor(170), (Rgb{0, 0, 255}));
  EXPECT_EQ(plot::aciColor(210), (Rgb{255, 0, 255}));
}

TEST(AciColor, OddOnesAreFadedAndLaterOnesDarker) {
  EXPECT_EQ(plot::aciColor(11), (Rgb{255, 127, 127}));
  EXPECT_EQ(plot::aciColor(12), (Rgb{204, 0, 0}));
  EXPECT_EQ(plot::aciColor(18), (Rgb{76, 0, 0}));
}

TEST(AciColor, GreysRunFromDarkToWhite) {
  EXPECT_EQ(plot::aciColor(250), (Rgb{51, 51, 51}));
  EXPECT_EQ(plot::aciColor(255), (Rgb{255, 255, 255}));
}

TEST(AciColor, ForegroundIsBlackOnPaper) {
  for (const int index : {7, 0, 256, -1, 1000}) EXPECT_EQ(plot::aciColor(index), Rgb{}) << index;
}

TEST(Path, ArcLengthIsRadiusTimesAngle) {
  plot::Path path;
  path.arc({5, 5}, {10, 0}, {0, 10}, 0.0, 2.0 * kPi, false);
  EXPECT_NEAR(path.length(), 20.0 * kPi, 1e-3);
  path.clear();
  path.arc({5, 5}, {10, 0}, {0, 10}, 1.0, -0.75, false);
  EXPECT_NEAR(path.length(), 7.5, 1e-4);
}

TEST(Path, ArcStaysOnItsCircle) {
  plot::Path path;
  path.arc({0, 0}, {100, 0}, {0, 100}, 0.3, 5.0, false);
  const auto& p = path.points();
  for (std::size_t i = 0; i + 3 < p.size(); i += 3) {
    const double x = (p[i].x + 3 * p[i + 1].x + 3 * p[i + 2].x + p[i + 3].x) / 8.0;
    const double y = (p[i].y + 3 * p[i + 1].y + 3 * p[i + 2].y + p[i + 3].y) / 8.0;
    EXPECT_NEAR(std::hypot(x, y), 100.0, 1e-3);
  }
}

TEST(Path, EllipseLengthAgreesWithASum) {
  plot::Path path;
  path.arc({0, 0}, {20, 0}, {0, 5}, 0.0, 2.0 * kPi, false);
  double sum = 0.0;
  constexpr int kParts = 100000;
  for (int i = 0; i < kParts; ++i) {
    const double t = 2.0 * kPi * (i + 0.5) / kParts;
    sum += std::hypot(20.0 * std::sin(t), 5.0 * std::cos(t)) * 2.0 * kPi / kParts;
  }
  EXPECT_NEAR(path.length(), sum, 1e-2);
}

TEST(Path, ClosingCountsInTheLength) {
  plot::Path path;
  path.moveTo({0, 0});
  path.lineTo({3, 0});
  path.lineTo({3, 4});
  path.close();
  EXPECT_DOUBLE_EQ(path.length(), 12.0);
}

TEST(Clipping, CutsALineDownToTheRectangle) {
  plot::Path path;
  path.moveTo({-1e9, 5});
  path.lineTo({1e9, 5});
  const plot::Path cut = clipLines(path, {0, 0, 10, 10});
  ASSERT_EQ(cut.points().size(), 2U);
  EXPECT_NEAR(cut.points()[0].x, 0.0, 1e-6);
  EXPECT_NEAR(cut.points()[1].x, 10.0, 1e-6);
}

TEST(Clipping, DropsALineThatMissesTheRectangle) {
  plot::Path path;
  path.moveTo({-5, 8});
  path.lineTo({5, 18});
  EXPECT_TRUE(clipLines(path, {0, 0, 10, 10}).empty());
}

TEST(Clipping, KeepsTheAreaWithin) {
  plot::Path path;
  path.moveTo({5, 5});
  path.lineTo({1e8, 5});
  path.lineTo({1e8, 1e8});
  path.lineTo({5, 1e8});
  path.close();
  const plot::Path cut = clipArea(path, {0, 0, 10, 20});
  plot::PaperPoint least, greatest;
  cut.box(least, greatest);
  EXPECT_NEAR(least.x, 5.0, 1e-9);
  EXPECT_NEAR(greatest.x, 10.0, 1e-9);
  EXPECT_NEAR(greatest.y, 20.0, 1e-9);
  EXPECT_NEAR(cut.length(), 40.0, 1e-6);
}

TEST(Look, LineWeightsStayWithinWhatPrints) {
  EXPECT_EQ(plot::widthOf(AcDb::kLnWt000), 0.13);
  EXPECT_EQ(plot::widthOf(AcDb::kLnWt035), 0.35);
  EXPECT_EQ(plot::widthOf(AcDb::kLnWt211), 2.11);
  EXPECT_EQ(plot::widthOf(AcDb::kLnWtByLwDefault), 0.25);
}

TEST(Look, PoliciesTurnColoursToGreyAndBlack) {
  AcCmColor color;
  color.setRGB(255, 0, 0);
  EXPECT_EQ(paperColor(color, plot::ColorPolicy::asDrawn), (Rgb{255, 0, 0}));
  // 0.299 of 255.
  EXPECT_EQ(paperColor(color, plot::ColorPolicy::grey), (Rgb{76, 76, 76}));
  EXPECT_EQ(paperColor(color, plot::ColorPolicy::black), Rgb{});
}

}  // namespace
