#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "host/companion/KrGeLib.h"

namespace {

constexpr double kPi = 3.141592653589793;

struct Polygon {
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;

  Polygon& add(double x, double y, double bulge = 0.0) {
    points.append(AcGePoint2d(x, y));
    bulges.append(bulge);
    return *this;
  }
  Polygon& close() {
    points.append(AcGePoint2d(points[0]));
    bulges.append(0.0);
    return *this;
  }
};

Polygon square() {
  return Polygon().add(0, 0).add(10, 0).add(10, 10).add(0, 10).close();
}

std::vector<AcGePoint2d> fence(const AcGeLinearEnt2d& line, const Polygon& polygon) {
  AcArray<AcGePoint2d> found;
  const int count = intersectWith2dFence(line, polygon.points, polygon.bulges, found);
  EXPECT_EQ(count, found.length());
  return {found.begin(), found.end()};
}

AcGeLineSeg2d segment(double x1, double y1, double x2, double y2) {
  return {AcGePoint2d(x1, y1), AcGePoint2d(x2, y2)};
}

TEST(Fence, CrossesASquareAtItsTwoSides) {
  const auto found = fence(segment(-5, 4, 15, 4), square());
  ASSERT_EQ(found.size(), 2u);
  EXPECT_TRUE(found[0].isEqualTo({10, 4}));
  EXPECT_TRUE(found[1].isEqualTo({0, 4}));
}

TEST(Fence, FromInsideCrossesOnce) {
  EXPECT_EQ(fence(segment(5, 5, 50, 6), square()).size(), 1u);
}

TEST(Fence, StopsAtTheEndsOfSegmentAndRay) {
  EXPECT_EQ(fence(segment(2, 5, 8, 5), square()).size(), 0u);
  EXPECT_EQ(fence(AcGeRay2d(AcGePoint2d(5, 5), AcGeVector2d(1, 0)), square()).size(), 1u);
  EXPECT_EQ(fence(AcGeLine2d(AcGePoint2d(5, 5), AcGeVector2d(1, 0)), square()).size(), 2u);
}

TEST(Fence, ThroughAVertexBetweenTwoEdgesCrossesOnce) {
  const auto found = fence(segment(5, 5, 15, 15), square());
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(found[0].isEqualTo({10, 10}));
}

TEST(Fence, ThroughTwoVerticesCrossesAtBoth) {
  EXPECT_EQ(fence(segment(-5, -5, 15, 15), square()).size(), 2u);
}

TEST(Fence, ThroughTheFirstVertexCrossesOnceThere) {
  EXPECT_EQ(fence(segment(-5, -5, 5, 5), square()).size(), 1u);
  EXPECT_EQ(fence(segment(-5, -1, 5, 1), square()).size(), 1u);
}

TEST(Fence, TouchingAVertexIsNoCrossing) {
  EXPECT_EQ(fence(segment(5, 15, 15, 5), square()).size(), 0u);
  EXPECT_EQ(fence(segment(-5, 5, 5, -5), square()).size(), 0u) << "the first vertex";
}

TEST(Fence, AlongAnEdgeFromOutsideToOutsideIsNoCrossing) {
  EXPECT_EQ(fence(segment(-5, 10, 15, 10), square()).size(), 0u);
  EXPECT_EQ(fence(segment(-5, 0, 15, 0), square()).size(), 0u) << "the edge at which the polygon begins";
}

TEST(Fence, AlongAStepCrossesOnce) {
  // A step: the line runs along its tread, coming from the solid and leaving to the air.
  const Polygon step = Polygon().add(0, 0).add(20, 0).add(20, 5).add(10, 5).add(10, 10).add(0, 10).close();
  EXPECT_EQ(fence(segment(5, 5, 30, 5), step).size(), 1u);
  EXPECT_EQ(fence(segment(-5, 5, 30, 5), step).size(), 2u);
  EXPECT_EQ(fence(AcGeLine2d(AcGePoint2d(0, 5), AcGeVector2d(1, 0)), step).size(), 2u);
}

TEST(Fence, AlongAStepInWhichThePolygonBeginsCrossesOnce) {
  const Polygon step = Polygon().add(15, 5).add(10, 5).add(10, 10).add(0, 10).add(0, 0).add(20, 0).add(20, 5).close();
  EXPECT_EQ(fence(segment(5, 5, 30, 5), step).size(), 1u);
}

TEST(Fence, CrossesAnArcTwiceThroughItsChord) {
  const double half = std::sqrt(5.0 * 5.0 - 3.0 * 3.0);
  const Polygon disc = Polygon().add(5, 0, 1.0).add(-5, 0, 1.0).close();
  const auto found = fence(segment(-10, 3, 10, 3), disc);
  ASSERT_EQ(found.size(), 2u);
  EXPECT_TRUE(found[0].isEqualTo({half, 3}));
  EXPECT_TRUE(found[1].isEqualTo({-half, 3}));
}

TEST(Fence, GoesClockwiseToo) {
  const Polygon disc = Polygon().add(5, 0, -1.0).add(-5, 0, -1.0).close();
  EXPECT_EQ(fence(segment(-10, 3, 10, 3), disc).size(), 2u);
  EXPECT_EQ(fence(segment(0, 0, 3, 10), disc).size(), 1u);
}

TEST(Fence, CrossesMoreThanHalfACircleOnItsWayOutAndBack) {
  // An eye: 300 degrees of a circle of radius 10, and the chord above that closes it.
  const double high = 5 * std::sqrt(3.0);
  const Polygon eye = Polygon().add(-5, high, std::tan(75 * kPi / 180)).add(5, high).close();
  EXPECT_EQ(fence(segment(8, -20, 8, 20), eye).size(), 2u);
  EXPECT_EQ(fence(segment(-8, -20, -8, 20), eye).size(), 2u);
  EXPECT_EQ(fence(segment(0, -20, 0, 20), eye).size(), 2u);
  EXPECT_EQ(fence(segment(8, 0, 8, 20), eye).size(), 1u);
}

TEST(Fence, TangentToAnArcIsNoCrossing) {
  const Polygon disc = Polygon().add(5, 0, 1.0).add(-5, 0, 1.0).close();
  EXPECT_EQ(fence(segment(-10, 5, 10, 5), disc).size(), 0u);
  EXPECT_EQ(fence(segment(5, -9, 5, 9), disc).size(), 0u) << "at the vertex of two arcs";
}

TEST(Fence, ThroughVerticesOfArcsCrossesOnceAtEach) {
  const Polygon disc = Polygon().add(5, 0, 1.0).add(-5, 0, 1.0).close();
  EXPECT_EQ(fence(segment(-9, 0, 9, 0), disc).size(), 2u);
  EXPECT_EQ(fence(segment(0, 0, 9, 0), disc).size(), 1u);
}

TEST(Fence, AlongAnEdgeThatRunsOnIntoATangentArcIsNoCrossingOfIt) {
  // A slot: two straight edges and two half circles tangent to them.
  const Polygon slot = Polygon().add(0, 0).add(10, 0, 1.0).add(10, 4).add(0, 4, 1.0).close();
  EXPECT_EQ(fence(segment(-9, 4, 19, 4), slot).size(), 0u);
  EXPECT_EQ(fence(segment(-9, 0, 19, 0), slot).size(), 0u);
  EXPECT_EQ(fence(segment(-9, 2, 19, 2), slot).size(), 2u);
}

TEST(Fence, ThroughAnInflectionCrossesOnce) {
  // An S of two half circles: the line along its middle passes the inflection and both free ends.
  const Polygon s = Polygon().add(-4, 0, -1.0).add(0, 0, 1.0).add(4, 0);
  EXPECT_EQ(fence(segment(-9, 0, 9, 0), s).size(), 1u);
}

TEST(Fence, AnEndOfAnOpenChainOnTheLineIsATouch) {
  const Polygon open = Polygon().add(0, 0).add(10, 10);
  EXPECT_EQ(fence(segment(-5, 10, 50, 10), open).size(), 0u);
  EXPECT_EQ(fence(segment(-5, 5, 50, 5), open).size(), 1u);
}

TEST(Fence, AnOpenChainGetsNoEdgeBackToItsStart) {
  const Polygon open = Polygon().add(0, 0).add(10, 0).add(10, 10).add(0, 10);
  EXPECT_EQ(fence(segment(-5, 5, 15, 5), open).size(), 1u);
}

TEST(Fence, ItsOwnEndOnThePolygonIsNoCrossing) {
  EXPECT_EQ(fence(segment(5, 5, 10, 5), square()).size(), 0u);
  EXPECT_EQ(fence(segment(10, 5, 15, 5), square()).size(), 0u);
}

TEST(Fence, EdgesOfNoLengthAreNothing) {
  const Polygon doubled =
      Polygon().add(0, 0).add(0, 0, 0.7).add(0, 0).add(10, 0).add(10, 10).add(10, 10).add(0, 10).close();
  EXPECT_EQ(fence(segment(5, 5, 15, 15), doubled).size(), 1u);
  EXPECT_EQ(fence(segment(-5, -5, 15, 15), doubled).size(), 2u);
}

TEST(Fence, OfNothingCrossesNothing) {
  EXPECT_EQ(fence(segment(0, 0, 1, 1), Polygon()).size(), 0u);
  EXPECT_EQ(fence(segment(0, 0, 1, 1), Polygon().add(0.5, 0.5)).size(), 0u);
  EXPECT_EQ(fence(segment(5, 5, 5, 5), square()).size(), 0u) << "a fence of no length";
}

/// Inside or not, by the angle that the finely sampled outline turns about the point.
bool insideByWinding(const Polygon& polygon, const AcGePoint2d& p) {
  long double turned = 0.0L;
  const auto walk = [&](const AcGeVector2d& a, const AcGeVector2d& b) {
    turned += std::atan2(static_cast<long double>(a.crossProduct(b)), static_cast<long double>(a.dotProduct(b)));
  };
  for (int i = 0; i + 1 < polygon.points.length(); ++i) {
    const AcGeVector2d chord = polygon.points[i + 1] - polygon.points[i];
    const double bulge = polygon.bulges[i];
    if (bulge == 0.0) {
      walk(polygon.points[i] - p, polygon.points[i + 1] - p);
      continue;
    }
    constexpr int kSamples = 300;
    const double sweep = 4.0 * std::atan(bulge);
    const double radius = chord.length() / 2.0 / std::sin(sweep / 2.0);
    const AcGePoint2d centre =
        polygon.points[i] + chord / 2.0 + chord.perpVector().normal() * (radius * std::cos(sweep / 2.0));
    AcGePoint2d from = polygon.points[i];
    for (int k = 1; k <= kSamples; ++k) {
      const AcGePoint2d to = centre + (polygon.points[i] - centre).rotateBy(sweep * k / kSamples);
      walk(from - p, to - p);
      from = to;
    }
  }
  return std::lround(static_cast<double>(turned) / (2.0 * kPi)) % 2 != 0;
}

/// A ring of straight edges, flat arcs and great arcs on a coarse grid, so that vertices and edges often line up. It
/// may cross itself: inside is then where the winding is odd.
Polygon randomRing(std::mt19937_64& random) {
  std::uniform_int_distribution<int> corners(3, 12);
  std::uniform_int_distribution<int> reach(2, 9);
  std::uniform_int_distribution<int> rounding(-3, 3);
  Polygon ring;
  const int n = corners(random);
  for (int i = 0; i < n; ++i) {
    const double angle = 2.0 * kPi * i / n;
    const double r = reach(random);
    const int kind = rounding(random);
    const double bulge = std::abs(kind) == 3 ? kind / 10.0 : (std::abs(kind) == 2 ? kind * 0.9 : 0.0);
    ring.add(std::round(r * std::cos(angle)), std::round(r * std::sin(angle)), bulge);
  }
  return ring.close();
}

TEST(Fence, ParityTellsTheSidesOfAnyPolygon) {
  std::mt19937_64 random(7);
  std::uniform_int_distribution<int> grid(-22, 22);
  int judged = 0;
  for (int round = 0; round < 400; ++round) {
    const Polygon ring = randomRing(random);
    AcArray<void*> curves;
    createCurves(ring.points, ring.bulges, curves);
    for (int k = 0; k < 15; ++k) {
      const AcGePoint2d a(grid(random) / 2.0, grid(random) / 2.0);
      const AcGePoint2d b(grid(random) / 2.0, grid(random) / 2.0);
      bool onOutline = a == b;
      for (void* curve : curves) {
        AcArray<void*> one;
        one.append(curve);
        onOutline = onOutline || contains(a, one) || contains(b, one);
      }
      if (onOutline) continue;
      const bool sameSide = insideByWinding(ring, a) == insideByWinding(ring, b);
      const AcGeLineSeg2d line(a, b);
      ASSERT_EQ(fence(line, ring).size() % 2 == 0, sameSide)
          << "round " << round << ": (" << a.x << ' ' << a.y << ") to (" << b.x << ' ' << b.y << ')';
      ++judged;
    }
    deleteCurves(curves);
  }
  EXPECT_GT(judged, 2000);
}

TEST(Fence, AnUnboundedLineCrossesAClosedPolygonAnEvenNumberOfTimes) {
  std::mt19937_64 random(11);
  std::uniform_int_distribution<int> grid(-9, 9);
  for (int round = 0; round < 3000; ++round) {
    const Polygon ring = randomRing(random);
    const AcGePoint2d a(grid(random), grid(random));
    const AcGePoint2d b(grid(random), grid(random));
    if (a == b) continue;
    const auto found = fence(AcGeLine2d(a, b), ring);
    ASSERT_EQ(found.size() % 2, 0u) << round;
    for (const AcGePoint2d& p : found) ASSERT_TRUE(AcGeLine2d(a, b).isOn(p, AcGeTol())) << round;
  }
}

TEST(Fence, EveryCrossingLiesOnThePolygon) {
  std::mt19937_64 random(13);
  std::uniform_real_distribution<double> place(-9.0, 9.0);
  AcGeTol loose;
  loose.setEqualPoint(1e-9);
  for (int round = 0; round < 500; ++round) {
    const Polygon ring = randomRing(random);
    const AcGeLine2d line(AcGePoint2d(place(random), place(random)), AcGePoint2d(place(random), place(random)));
    const auto found = fence(line, ring);
    AcArray<AcGePoint2d> met;
    intersectWith(line, ring.points, ring.bulges, met);
    // Away from special places each meeting is a crossing.
    ASSERT_EQ(static_cast<int>(found.size()), met.length()) << round;
    for (const AcGePoint2d& p : found) {
      bool listed = false;
      for (const AcGePoint2d& q : met) listed = listed || p.isEqualTo(q, loose);
      ASSERT_TRUE(listed) << round;
    }
  }
}

}  // namespace
