// The operations on polygons against arithmetic without rounding, for straight polygons on whole numbers, and against
// methods of another kind for arcs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "host/companion/KrGeLib.h"

namespace {

/// A point of whole coordinates. Products of three of them up to 10^5 fit.
struct Whole {
  long long x;
  long long y;
};

bool same(const Whole& a, const Whole& b) {
  return a.x == b.x && a.y == b.y;
}
/// Twice the area of the triangle, positive counter-clockwise: exact.
long long turn(const Whole& a, const Whole& b, const Whole& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}
bool isOn(const Whole& p, const Whole& a, const Whole& b) {
  return turn(a, b, p) == 0 && std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
         p.y <= std::max(a.y, b.y);
}

struct Ring {
  std::vector<Whole> corners;  ///< the first isn't repeated

  bool holds(const Whole& p) const {
    for (std::size_t i = 0; i < corners.size(); ++i)
      if (isOn(p, corners[i], corners[(i + 1) % corners.size()])) return true;
    return false;
  }
  /// By the number of edges that a ray to the right meets.
  bool isInside(const Whole& p) const {
    bool inside = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const Whole& a = corners[i];
      const Whole& b = corners[(i + 1) % corners.size()];
      if ((a.y > p.y) == (b.y > p.y)) continue;
      const long long side = turn(a, b, p);
      if (b.y > a.y ? side > 0 : side < 0) inside = !inside;
    }
    return inside;
  }
  void asPolygon(AcArray<AcGePoint2d>& points, AcArray<double>& bulges) const {
    points.setLogicalLength(0);
    bulges.setLogicalLength(0);
    for (std::size_t i = 0; i <= corners.size(); ++i) {
      const Whole& c = corners[i % corners.size()];
      points.append(AcGePoint2d(static_cast<double>(c.x), static_cast<double>(c.y)));
      bulges.append(0.0);
    }
  }
};

AcGePoint2d asPoint(const Whole& p) {
  return {static_cast<double>(p.x), static_cast<double>(p.y)};
}

class ExactPolygon : public testing::TestWithParam<int> {
 protected:
  ExactPolygon() {
    // The tolerance that members set.
    AcGeContext::gTol.setEqualPoint(1e-8);
    AcGeContext::gTol.setEqualVector(1e-8);
  }
  ~ExactPolygon() override { AcGeContext::gTol = AcGeTol(); }

  Whole random() {
    std::uniform_int_distribution<long long> within(-GetParam(), GetParam());
    return {within(engine_), within(engine_)};
  }
  Ring randomRing() {
    Ring ring;
    const int n = std::uniform_int_distribution<int>(3, 14)(engine_);
    for (int i = 0; i < n; ++i) ring.corners.push_back(random());
    return ring;
  }

  std::mt19937_64 engine_{static_cast<unsigned>(GetParam())};
  AcArray<AcGePoint2d> points_;
  AcArray<double> bulges_;
};

TEST_P(ExactPolygon, FenceTellsTheSidesOfAnyRing) {
  int judged = 0;
  for (int round = 0; round < 4000; ++round) {
    const Ring ring = randomRing();
    ring.asPolygon(points_, bulges_);
    for (int k = 0; k < 8; ++k) {
      const Whole a = random(), b = random();
      if (same(a, b) || ring.holds(a) || ring.holds(b)) continue;
      AcArray<AcGePoint2d> crossings;
      intersectWith2dFence(AcGeLineSeg2d(asPoint(a), asPoint(b)), points_, bulges_, crossings);
      ASSERT_EQ(crossings.length() % 2 == 0, ring.isInside(a) == ring.isInside(b)) << round;
      ++judged;
    }
  }
  EXPECT_GT(judged, 5000);
}

TEST_P(ExactPolygon, HoldsExactlyThePointsOfItsEdges) {
  for (int round = 0; round < 4000; ++round) {
    const Ring ring = randomRing();
    ring.asPolygon(points_, bulges_);
    AcArray<void*> curves;
    createCurves(points_, bulges_, curves);
    for (int k = 0; k < 8; ++k) {
      const Whole p = random();
      ASSERT_EQ(contains(asPoint(p), curves) != 0, ring.holds(p)) << round;
    }
    deleteCurves(curves);
  }
}

/// A rational point.
struct Ratio {
  long long x;
  long long y;
  long long over;
};
bool same(const Ratio& a, const Ratio& b) {
  // As wide as the product of three coordinates and a length asks for.
  __extension__ using Wide = __int128;
  return Wide{a.x} * b.over == Wide{b.x} * a.over && Wide{a.y} * b.over == Wide{b.y} * a.over;
}

TEST_P(ExactPolygon, MeetsASegmentInExactlyThePointsThatTheyShare) {
  for (int round = 0; round < 6000; ++round) {
    const Ring ring = randomRing();
    ring.asPolygon(points_, bulges_);
    const Whole a = random(), b = random();
    if (same(a, b)) continue;
    std::vector<Ratio> expected;
    const auto add = [&](const Ratio& r) {
      if (std::none_of(expected.begin(), expected.end(), [&](const Ratio& e) { return same(e, r); }))
        expected.push_back(r);
    };
    for (std::size_t i = 0; i < ring.corners.size(); ++i) {
      const Whole& c = ring.corners[i];
      const Whole& d = ring.corners[(i + 1) % ring.corners.size()];
      if (same(c, d)) continue;
      const long long tc = turn(a, b, c), td = turn(a, b, d);
      if (tc == td) {
        // Parallel; on one line the edge's ends count that the segment holds.
        if (isOn(c, a, b)) add({c.x, c.y, 1});
        if (isOn(d, a, b)) add({d.x, d.y, 1});
        continue;
      }
      const long long ta = turn(c, d, a), tb = turn(c, d, b);
      if ((tc > 0 && td > 0) || (tc < 0 && td < 0) || (ta > 0 && tb > 0) || (ta < 0 && tb < 0)) continue;
      add({c.x * (tc - td) + (d.x - c.x) * tc, c.y * (tc - td) + (d.y - c.y) * tc, tc - td});
    }
    AcArray<AcGePoint2d> found;
    intersectWith(AcGeLineSeg2d(asPoint(a), asPoint(b)), points_, bulges_, found);
    ASSERT_EQ(found.length(), static_cast<int>(expected.size())) << round;
    for (const Ratio& r : expected) {
      const double over = static_cast<double>(r.over);
      const AcGePoint2d p(static_cast<double>(r.x) / over, static_cast<double>(r.y) / over);
      ASSERT_TRUE(std::any_of(found.begin(), found.end(), [&](const AcGePoint2d& f) { return f.distanceTo(p) < 1e-7; }))
          << round;
    }
  }
}

/// Coarse grids, on which corners, edges and lines fall on each other all the time, and fine ones.
INSTANTIATE_TEST_SUITE_P(Grids, ExactPolygon, testing::Values(2, 3, 5, 10, 30));

TEST(PolygonOfArcs, MeetsAnArcWhereTheArcsPassFromSideToSide) {
  std::mt19937_64 engine(23);
  const auto real = [&](double low, double high) { return std::uniform_real_distribution<double>(low, high)(engine); };
  int judged = 0;
  for (int round = 0; round < 1500; ++round) {
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    for (int k = 0; k < 4; ++k) {
      points.append(AcGePoint2d(real(-10, 10), real(-10, 10)));
      bulges.append(k % 2 == 0 ? real(-2, 2) : 0.0);
    }
    const AcGeCircArc2d arc(AcGePoint2d(real(-10, 10), real(-10, 10)), AcGePoint2d(real(-10, 10), real(-10, 10)),
                            real(-3, 3));
    if (arc.radius() > 100) continue;
    // Walk the arc in small steps, and see how far it lies from the circle or the line of each edge.
    constexpr int kSteps = 4000;
    int crossings = 0;
    double closest = HUGE_VAL;
    for (int i = 0; i + 1 < points.length(); ++i) {
      const AcGeVector2d chord = points[i + 1] - points[i];
      const AcGeCircArc2d edge(points[i], points[i + 1], bulges[i]);
      const double sweep = 4 * std::atan(bulges[i]);
      const auto height = [&](const AcGePoint2d& p) {
        return bulges[i] == 0 ? chord.crossProduct(p - points[i]) / chord.length()
                              : p.distanceTo(edge.center()) - edge.radius();
      };
      const auto beside = [&](const AcGePoint2d& p) {
        if (bulges[i] == 0) {
          const double t = chord.dotProduct(p - points[i]) / chord.lengthSqrd();
          closest = std::min({closest, std::fabs(t), std::fabs(t - 1)});
          return t > 0 && t < 1;
        }
        const AcGeVector2d from = points[i] - edge.center(), to = p - edge.center();
        double ahead = std::atan2(from.crossProduct(to), from.dotProduct(to));
        if (sweep < 0) ahead = -ahead;
        if (ahead < 0) ahead += kAcGeTwoPi;
        closest = std::min({closest, ahead, kAcGeTwoPi - ahead, std::fabs(ahead - std::fabs(sweep))});
        return ahead < std::fabs(sweep);
      };
      double before = height(arc.startPoint());
      for (int k = 1; k <= kSteps; ++k) {
        const AcGePoint2d p = arc.evalPoint(arc.endAng() * k / kSteps);
        const double now = height(p);
        if ((before > 0) != (now > 0)) {
          if (beside(p)) ++crossings;
        }
        before = now;
      }
      // A near touch would be two crossings within a step.
      const double extreme =
          bulges[i] == 0
              ? std::fabs(std::fabs(height(arc.center())) - arc.radius())
              : std::min(std::fabs(arc.center().distanceTo(edge.center()) - edge.radius() - arc.radius()),
                         std::fabs(arc.center().distanceTo(edge.center()) - std::fabs(edge.radius() - arc.radius())));
      closest = std::min(closest, extreme);
    }
    if (closest < 0.05) continue;
    AcArray<AcGePoint2d> found;
    intersectWith(arc, points, bulges, found);
    ASSERT_EQ(found.length(), crossings) << round;
    for (const AcGePoint2d& p : found) ASSERT_TRUE(arc.isOn(p, AcGeContext::gTol) || arc.distanceTo(p) < 1e-9);
    ++judged;
  }
  EXPECT_GT(judged, 300);
}

TEST(PolygonOfArcs, EdgesThatRunBackOnThemselvesAreNoCrossing) {
  // A spike: out along an arc and a line, and back over both.
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  const double quarter = std::tan(kAcGePi / 8);
  const auto add = [&](double x, double y, double bulge) {
    points.append(AcGePoint2d(x, y));
    bulges.append(bulge);
  };
  add(0, 0, 0);
  add(10, 0, quarter);
  add(15, 5, 0);
  add(15, 9, 0);
  add(15, 5, -quarter);
  add(10, 0, 0);
  add(10, -10, 0);
  add(0, -10, 0);
  add(0, 0, 0);
  const auto count = [&](double x0, double y0, double x1, double y1) {
    AcArray<AcGePoint2d> out;
    return intersectWith2dFence(AcGeLineSeg2d(AcGePoint2d(x0, y0), AcGePoint2d(x1, y1)), points, bulges, out);
  };
  EXPECT_EQ(count(12, 2, 20, 2) % 2, 0) << "through the arc of the spike";
  EXPECT_EQ(count(12, 7, 20, 7) % 2, 0) << "through its line";
  EXPECT_EQ(count(12, 5, 20, 5) % 2, 0) << "through where both join";
  EXPECT_EQ(count(12, 9, 20, 9) % 2, 0) << "over its tip";
  EXPECT_EQ(count(15, -3, 15, 20) % 2, 0) << "along it";
  EXPECT_EQ(count(5, -5, 20, 3) % 2, 1) << "from inside";
}

TEST(PolygonOfArcs, ALineTangentWhereArcsJoinPassesOrTouchesAsTheyRun) {
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  // Two half circles that join at (0, 5), where both run level: an S passes its tangent line, a wave crest touches.
  const auto build = [&](double second) {
    points.setLogicalLength(0);
    bulges.setLogicalLength(0);
    const double quarter = std::tan(kAcGePi / 8);
    points.append(AcGePoint2d(-5, 0));
    bulges.append(-quarter);
    points.append(AcGePoint2d(0, 5));
    bulges.append(second * quarter);
    points.append(AcGePoint2d(5, second < 0 ? 0 : 10));
    bulges.append(0.0);
  };
  AcArray<AcGePoint2d> out;
  build(1);
  EXPECT_EQ(intersectWith2dFence(AcGeLineSeg2d(AcGePoint2d(-9, 5), AcGePoint2d(9, 5)), points, bulges, out), 1);
  build(-1);
  EXPECT_EQ(intersectWith2dFence(AcGeLineSeg2d(AcGePoint2d(-9, 5), AcGePoint2d(9, 5)), points, bulges, out), 0);
}

}  // namespace
