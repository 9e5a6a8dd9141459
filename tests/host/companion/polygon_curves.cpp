#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "host/companion/KrGeLib.h"

namespace {

constexpr double kPi = 3.141592653589793;

AcArray<AcGePoint2d> pointsOf(std::initializer_list<AcGePoint2d> list) {
  AcArray<AcGePoint2d> points;
  for (const AcGePoint2d& p : list) points.append(p);
  return points;
}

AcArray<double> bulgesOf(std::initializer_list<double> list) {
  AcArray<double> bulges;
  for (double b : list) bulges.append(b);
  return bulges;
}

/// A half disc: a chord from (-5, 0) to (5, 0), and the half circle back over the top.
class HalfDisc : public testing::Test {
 protected:
  AcArray<AcGePoint2d> points = pointsOf({{-5, 0}, {5, 0}, {-5, 0}});
  AcArray<double> bulges = bulgesOf({0.0, 1.0, 0.0});

  std::vector<AcGePoint2d> meet(const AcGeLinearEnt2d& line) {
    return met([&](auto& out) { return intersectWith(line, points, bulges, out); });
  }
  std::vector<AcGePoint2d> meet(const AcGeCircArc2d& arc) {
    return met([&](auto& out) { return intersectWith(arc, points, bulges, out); });
  }

 private:
  template <class Call>
  std::vector<AcGePoint2d> met(Call call) {
    AcArray<AcGePoint2d> out;
    out.append(AcGePoint2d(0, 3));
    const int count = call(out);
    EXPECT_EQ(count, out.length() - 1) << "what was there before stays and isn't counted";
    return {out.begin() + 1, out.end()};
  }
};

TEST_F(HalfDisc, HoldsThePointsOfItsLineAndNotItsInside) {
  AcArray<void*> curves;
  EXPECT_EQ(createCurves(points, bulges, curves), 2);
  ASSERT_EQ(curves.length(), 2);
  EXPECT_TRUE(contains({0, 0}, curves));
  EXPECT_TRUE(contains({0, 5}, curves));
  EXPECT_TRUE(contains({5, 0}, curves));
  EXPECT_TRUE(contains({5 * std::cos(1.0), 5 * std::sin(1.0)}, curves));
  EXPECT_FALSE(contains({0, 2}, curves)) << "inside";
  EXPECT_FALSE(contains({0, -5}, curves)) << "the other half of the circle";
  EXPECT_FALSE(contains({5.1, 0}, curves)) << "past the chord's end";
  deleteCurves(curves);
}

TEST_F(HalfDisc, ContainsWithinTheGlobalTolerance) {
  const AcGeTol before = AcGeContext::gTol;
  AcGeContext::gTol.setEqualPoint(1e-3);
  AcArray<void*> curves;
  createCurves(points, bulges, curves);
  EXPECT_TRUE(contains({0, 5.0009}, curves));
  EXPECT_FALSE(contains({0, 5.0011}, curves));
  deleteCurves(curves);
  AcGeContext::gTol = before;
}

TEST_F(HalfDisc, MeetsALineInChordAndArc) {
  const auto found = meet(AcGeLine2d(AcGePoint2d(3, -8), AcGeVector2d(0, 2)));
  ASSERT_EQ(found.size(), 2u);
  EXPECT_TRUE(found[0].isEqualTo({3, 0}));
  EXPECT_TRUE(found[1].isEqualTo({3, 4}));
}

TEST_F(HalfDisc, MeetsALineThroughAVertexOnceThere) {
  const auto found = meet(AcGeLine2d(AcGePoint2d(5, 0), AcGeVector2d(1, 1)));
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(found[0].isEqualTo({5, 0}));
}

TEST_F(HalfDisc, MeetsATangentInOnePoint) {
  const auto found = meet(AcGeLineSeg2d(AcGePoint2d(-9, 5), AcGePoint2d(9, 5)));
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(found[0].isEqualTo({0, 5}));
}

TEST_F(HalfDisc, MeetsALineAlongAnEdgeInTheEndsItHolds) {
  EXPECT_EQ(meet(AcGeLineSeg2d(AcGePoint2d(-9, 0), AcGePoint2d(9, 0))).size(), 2u);
  const auto found = meet(AcGeLineSeg2d(AcGePoint2d(0, 0), AcGePoint2d(9, 0)));
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(found[0].isEqualTo({5, 0}));
}

TEST_F(HalfDisc, MeetsAnArcOnBothItsEdges) {
  // The circle of radius 5 about (5, 0): it passes the origin, and meets the half circle at 60 degrees.
  const auto found = meet(AcGeCircArc2d(AcGePoint2d(5, 0), 5.0));
  ASSERT_EQ(found.size(), 2u);
  EXPECT_TRUE(found[0].isEqualTo({0, 0}));
  EXPECT_TRUE(found[1].isEqualTo({2.5, 2.5 * std::sqrt(3.0)}));
}

TEST_F(HalfDisc, MeetsAnArcOfItsOwnCircleInTheEndsThatItHolds) {
  const auto found = meet(AcGeCircArc2d(AcGePoint2d(0, 0), 5.0, -1.0, 1.0));
  ASSERT_EQ(found.size(), 1u);
  EXPECT_TRUE(found[0].isEqualTo({5, 0}));
}

TEST(PolygonCurves, AppendToTheArray) {
  AcArray<void*> curves;
  const auto points = pointsOf({{0, 0}, {1, 0}, {1, 1}});
  createCurves(points, bulgesOf({0, 0, 0}), curves);
  createCurves(points, bulgesOf({0, 0.5, 0}), curves);
  EXPECT_EQ(curves.length(), 4);
  deleteCurves(curves);
}

TEST(PolygonCurves, OfAnEdgeOfNoLengthAreAPoint) {
  AcArray<void*> curves;
  EXPECT_EQ(createCurves(pointsOf({{2, 2}, {2, 2}}), bulgesOf({0.5, 0}), curves), 1);
  EXPECT_TRUE(contains({2, 2}, curves));
  EXPECT_FALSE(contains({2, 2.001}, curves));
  deleteCurves(curves);
}

TEST(PolygonCurves, OfFewerThanTwoPointsAreNone) {
  AcArray<void*> curves;
  EXPECT_EQ(createCurves(pointsOf({}), bulgesOf({}), curves), 0);
  EXPECT_EQ(createCurves(pointsOf({{2, 2}}), bulgesOf({0.5}), curves), 0);
  EXPECT_EQ(contains({2, 2}, curves), 0);
  deleteCurves(curves);
}

TEST(PolygonSort, ByProjection) {
  auto points = pointsOf({{3, 0}, {0, 9}, {1, 1}, {-2, 5}});
  QuickSort(points, AcGeVector2d(1, 0));
  EXPECT_EQ(points[0].x, -2);
  EXPECT_EQ(points[3].x, 3);
  QuickSort(points, AcGeVector2d(-1, -1));
  EXPECT_EQ(points[0].y, 9);
  EXPECT_EQ(points[3].y, 1);
}

TEST(PolygonSort, ByACoordinateInARangeWithBothEnds) {
  AcGePoint2d flat[] = {{9, 0}, {3, 4}, {2, 5}, {1, 6}, {-9, 7}};
  QuickSort(flat, 1, 3, 0);
  EXPECT_EQ(flat[0].x, 9);
  EXPECT_EQ(flat[1].x, 1);
  EXPECT_EQ(flat[2].x, 2);
  EXPECT_EQ(flat[3].x, 3);
  EXPECT_EQ(flat[4].x, -9);
  AcGePoint3d space[] = {{1, 3, 0}, {2, 1, 0}, {3, 2, 0}};
  QuickSort(space, 0, 2, 1);
  EXPECT_EQ(space[0].x, 2);
  EXPECT_EQ(space[2].x, 1);
  QuickSort(space, 0, -1, 0);
  EXPECT_EQ(space[0].x, 2) << "an empty range is left alone";
}

TEST(PolygonSort, OfPointsInSpaceByProjection) {
  AcGePoint3d space[] = {{0, 0, 3}, {0, 0, 1}, {0, 0, 2}};
  QuickSort(space, 3, AcGeVector3d(0, 0, 1));
  EXPECT_EQ(space[0].z, 1);
  EXPECT_EQ(space[2].z, 3);
}

TEST(PolygonSort, ByAngleInTheOrderMetAlongAnArc) {
  const auto at = [](double degrees) {
    return AcGePoint2d(7 + 2 * std::cos(degrees * kPi / 180), 7 + 2 * std::sin(degrees * kPi / 180));
  };
  auto points = pointsOf({at(10), at(350), at(200), at(100)});
  QuickSortAngular({7, 7}, 300 * kPi / 180, points, 0);
  EXPECT_TRUE(points[0] == at(350) && points[1] == at(10) && points[2] == at(100) && points[3] == at(200));
  QuickSortAngular({7, 7}, 300 * kPi / 180, points, 1);
  EXPECT_TRUE(points[0] == at(200) && points[1] == at(100) && points[2] == at(10) && points[3] == at(350));
}

TEST(PolygonSort, MeetsThePointOfTheStartFirstWhateverItsRounding) {
  for (int degrees = 0; degrees < 360; ++degrees) {
    const double start = degrees * kPi / 180;
    auto points = pointsOf(
        {{1000 * std::cos(start + 1), 1000 * std::sin(start + 1)}, {1000 * std::cos(start), 1000 * std::sin(start)}});
    QuickSortAngular({0, 0}, start, points, 0);
    EXPECT_NEAR(points[0].x, 1000 * std::cos(start), 1e-9) << degrees;
  }
}

TEST(OneTurn, HoldsEveryAngle) {
  EXPECT_EQ(GetAngle(0.0), 0.0);
  EXPECT_EQ(GetAngle(1.0), 1.0);
  EXPECT_EQ(GetAngle(2 * kPi), 0.0);
  EXPECT_NEAR(GetAngle(-kPi / 2), 1.5 * kPi, 1e-15);
  EXPECT_NEAR(GetAngle(7 * kPi), kPi, 1e-14);
  EXPECT_EQ(GetAngle(-1e-300), 0.0) << "the full turn itself is left out";
  for (double a = -50.0; a < 50.0; a += 0.37) {
    EXPECT_GE(GetAngle(a), 0.0);
    EXPECT_LT(GetAngle(a), 2 * kPi);
    EXPECT_NEAR(std::cos(GetAngle(a)), std::cos(a), 1e-13);
    EXPECT_NEAR(std::sin(GetAngle(a)), std::sin(a), 1e-13);
  }
}

}  // namespace
