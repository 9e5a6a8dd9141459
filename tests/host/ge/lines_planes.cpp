#include "GeTesting.h"

namespace {

using namespace getest;

AcGeLineSeg2d segment(double x1, double y1, double x2, double y2) {
  return {AcGePoint2d(x1, y1), AcGePoint2d(x2, y2)};
}

/// 1 and the point when they meet; 0 when not, and then the point must have been left alone.
int meet(const AcGeLinearEnt2d& a, const AcGeLinearEnt2d& b, AcGePoint2d& p) {
  const AcGePoint2d untouched(777, 888);
  p = untouched;
  const int found = a.intersectWith(b, p);
  EXPECT_TRUE(found || (p.x == untouched.x && p.y == untouched.y));
  AcGePoint2d q;
  EXPECT_EQ(b.intersectWith(a, q), found) << "whichever is asked";
  return found;
}

TEST(Lines2d, MeetWhereTheirKindsReach) {
  AcGePoint2d p;
  const AcGeLinearEnt2d& line = AcGeLine2d(AcGePoint2d(0, 0), AcGeVector2d(1, 1));
  EXPECT_TRUE(meet(line, segment(0, 8, 8, 0), p));
  EXPECT_TRUE(p.isEqualTo({4, 4}));
  EXPECT_FALSE(meet(segment(0, 0, 3, 3), segment(0, 8, 8, 0), p));
  EXPECT_TRUE(meet(AcGeRay2d(AcGePoint2d(0, 0), AcGeVector2d(1, 1)), segment(0, 8, 8, 0), p));
  EXPECT_FALSE(meet(AcGeRay2d(AcGePoint2d(0, 0), AcGeVector2d(-1, -1)), segment(0, 8, 8, 0), p));
  EXPECT_FALSE(meet(line, segment(0, 8, 3, 5), p));
}

TEST(Lines2d, MeetAtASharedEndExactly) {
  AcGePoint2d p;
  EXPECT_TRUE(meet(segment(0.1, 0.2, 7.3, 9.1), segment(7.3, 9.1, 20.7, 3.3), p));
  EXPECT_EQ(p.x, 7.3);
  EXPECT_EQ(p.y, 9.1);
}

TEST(Lines2d, MeetAtAnEndThatFallsShortByLessThanTheTolerance) {
  const GlobalTolerance tolerance(1e-8);
  AcGePoint2d p;
  EXPECT_TRUE(meet(segment(0, -5, 0, -0.9e-8), segment(-5, 0, 5, 0), p));
  EXPECT_FALSE(meet(segment(0, -5, 0, -1.1e-8), segment(-5, 0, 5, 0), p));
  // At a flat angle the crossing itself lies far past the end.
  EXPECT_TRUE(meet(segment(-5, -0.005, -0.9e-5, -0.9e-8), segment(-5, 0, 5, 0), p));
  EXPECT_FALSE(meet(segment(-5, -0.005, -1.2e-5, -1.2e-8), segment(-5, 0, 5, 0), p));
  // Both ends short of a flat crossing, and too far from each other.
  EXPECT_FALSE(meet(segment(-5, -0.005, -0.9e-5, -0.9e-8), segment(0.9e-5, 0, 5, 0), p));
}

TEST(Lines2d, ParallelOnesDoNotMeet) {
  AcGePoint2d p;
  EXPECT_FALSE(meet(segment(0, 0, 10, 0), segment(0, 1, 10, 1), p));
  EXPECT_FALSE(meet(segment(0, 0, 10, 0), segment(5, 0, 15, 0), p)) << "an overlap is no point";
  EXPECT_FALSE(meet(AcGeLine2d::kXAxis, AcGeLine2d::kXAxis, p));
}

TEST(Lines2d, TellTheirOverlap) {
  AcGeLineSeg2d shared;
  EXPECT_TRUE(segment(0, 0, 10, 0).overlap(segment(15, 0, 5, 0), shared));
  EXPECT_TRUE(shared.startPoint().isEqualTo({5, 0}) && shared.endPoint().isEqualTo({10, 0}));
  EXPECT_TRUE(segment(0, 0, 10, 0).overlap(segment(10, 0, 20, 0), shared)) << "end to end";
  EXPECT_EQ(shared.length(), 0.0);
  EXPECT_FALSE(segment(0, 0, 10, 0).overlap(segment(11, 0, 20, 0), shared));
  EXPECT_FALSE(segment(0, 0, 10, 0).overlap(segment(5, 1, 15, 1), shared));
}

TEST(Lines2d, OfNoLengthArePoints) {
  AcGePoint2d p;
  EXPECT_TRUE(meet(segment(3, 0, 3, 0), segment(0, 0, 10, 0), p));
  EXPECT_TRUE(p.isEqualTo({3, 0}));
  EXPECT_FALSE(meet(segment(3, 1, 3, 1), segment(0, 0, 10, 0), p));
  EXPECT_TRUE(meet(segment(3, 1, 3, 1), segment(3, 1, 3, 1), p));
  EXPECT_FALSE(segment(3, 1, 3, 1).isParallelTo(segment(0, 0, 1, 0)));
  EXPECT_TRUE(segment(3, 1, 3, 1).closestPointTo({9, 9}).isEqualTo({3, 1}));
}

TEST(Lines2d, FindTheirNearestPoint) {
  EXPECT_TRUE(segment(0, 0, 10, 0).closestPointTo({15, 3}).isEqualTo({10, 0}));
  EXPECT_TRUE(AcGeLine2d::kXAxis.closestPointTo({15, 3}).isEqualTo({15, 0}));
  EXPECT_TRUE(AcGeRay2d().closestPointTo({-15, 3}).isEqualTo({0, 0}));
  EXPECT_TRUE(segment(0, 0, 10, 0).isOn({10, 0}));
  EXPECT_FALSE(segment(0, 0, 10, 0).isOn({10.001, 0}));
  EXPECT_EQ(segment(0, 0, 10, 0).distanceTo({13, 4}), 5.0);
}

TEST(Lines2d, KeepTheirKindUnderAMap) {
  AcGeLineSeg2d s = segment(0, 0, 10, 0);
  s.transformBy(AcGeMatrix2d::rotation(kPi / 2, {10, 0}));
  EXPECT_TRUE(s.startPoint().isEqualTo({10, -10}) && s.endPoint().isEqualTo({10, 0}));
  EXPECT_TRUE(s.midPoint().isEqualTo({10, -5}));
  EXPECT_TRUE(s.direction().isEqualTo({0, 1}));
  EXPECT_EQ(s.type(), AcGe::kLineSeg2d);
}

RC_GTEST_PROP(Lines2d, MeetAsTheSignsOfTheirEndsSay, ()) {
  const AcGeLineSeg2d a(point2d(), point2d());
  const AcGeLineSeg2d b(point2d(), point2d());
  const auto side = [](const AcGeLineSeg2d& s, const AcGePoint2d& p) {
    using Real = long double;
    const Real dx = Real(s.endPoint().x) - s.startPoint().x;
    const Real dy = Real(s.endPoint().y) - s.startPoint().y;
    return dx * (Real(p.y) - s.startPoint().y) - dy * (Real(p.x) - s.startPoint().x);
  };
  const long double a1 = side(b, a.startPoint()), a2 = side(b, a.endPoint());
  const long double b1 = side(a, b.startPoint()), b2 = side(a, b.endPoint());
  for (long double s : {a1, a2, b1, b2}) RC_PRE(std::fabs(s) > 1e-6L);
  AcGePoint2d p;
  const bool found = a.intersectWith(b, p) != 0;
  RC_ASSERT(found == ((a1 > 0) != (a2 > 0) && (b1 > 0) != (b2 > 0)));
  if (found) RC_ASSERT(a.isOn(p, within(1e-9)) && b.isOn(p, within(1e-9)));
}

TEST(Lines3d, MeetInSpace) {
  AcGePoint3d p;
  const AcGeLine3d x = AcGeLine3d::kXAxis;
  EXPECT_TRUE(x.intersectWith(AcGeLineSeg3d(AcGePoint3d(4, -1, -1), AcGePoint3d(4, 1, 1)), p));
  EXPECT_TRUE(p.isEqualTo({4, 0, 0}));
  EXPECT_FALSE(x.intersectWith(AcGeLine3d(AcGePoint3d(0, 0, 1), AcGeVector3d::kYAxis), p)) << "they pass each other";
  EXPECT_FALSE(x.intersectWith(AcGeLine3d(AcGePoint3d(0, 0, 1), AcGeVector3d::kXAxis), p)) << "parallel";
  EXPECT_FALSE(x.intersectWith(x, p));
  EXPECT_FALSE(x.intersectWith(AcGeLineSeg3d(AcGePoint3d(4, 1, 1), AcGePoint3d(4, 2, 2)), p));
}

TEST(Lines3d, MeetForOneWhoLooksAlongADirection) {
  AcGePoint3d onThis;
  AcGePoint3d onOther;
  const AcGeLineSeg3d low(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0));
  const AcGeLineSeg3d high(AcGePoint3d(4, -5, 7), AcGePoint3d(4, 5, 9));
  EXPECT_TRUE(low.projIntersectWith(high, AcGeVector3d::kZAxis, onThis, onOther));
  EXPECT_TRUE(onThis.isEqualTo({4, 0, 0}));
  EXPECT_TRUE(onOther.isEqualTo({4, 0, 8}));
  EXPECT_FALSE(low.projIntersectWith(high, AcGeVector3d::kYAxis, onThis, onOther)) << "one above the other";
  EXPECT_FALSE(low.projIntersectWith(high, AcGeVector3d::kXAxis, onThis, onOther)) << "seen end on";
}

TEST(Lines3d, KnowTheirPlanes) {
  AcGePlane plane;
  const AcGeLineSeg3d s(AcGePoint3d(0, 0, 2), AcGePoint3d(10, 0, 2));
  s.getPerpPlane({3, 9, 9}, plane);
  EXPECT_TRUE(plane.normal().isEqualTo(AcGeVector3d::kXAxis));
  EXPECT_TRUE(plane.isOn({3, -4, 50}));
  EXPECT_TRUE(s.isParallelTo(AcGePlane::kXYPlane));
  EXPECT_TRUE(s.isPerpendicularTo(AcGePlane::kYZPlane));
  EXPECT_TRUE(s.isOn(AcGePlane(AcGePoint3d(0, 0, 2), AcGeVector3d::kZAxis)));
  EXPECT_FALSE(s.isOn(AcGePlane::kXYPlane));
}

TEST(Lines3d, MeetAPlaneInOnePointOrNone) {
  AcGePoint3d p;
  EXPECT_TRUE(AcGeLine3d(AcGePoint3d(1, 2, 5), AcGeVector3d(1, 0, -1)).intersectWith(AcGePlane::kXYPlane, p));
  EXPECT_TRUE(p.isEqualTo({6, 2, 0}));
  EXPECT_TRUE(AcGeLineSeg3d(AcGePoint3d(1, 2, 5), AcGePoint3d(1, 2, 0)).intersectWith(AcGePlane::kXYPlane, p));
  EXPECT_FALSE(AcGeLineSeg3d(AcGePoint3d(1, 2, 5), AcGePoint3d(1, 2, 1)).intersectWith(AcGePlane::kXYPlane, p));
  EXPECT_FALSE(AcGeLine3d::kXAxis.intersectWith(AcGePlane::kXYPlane, p)) << "in the plane";
  EXPECT_FALSE(AcGeLine3d(AcGePoint3d(0, 0, 1), AcGeVector3d::kXAxis).intersectWith(AcGePlane::kXYPlane, p));
}

RC_GTEST_PROP(Lines3d, ThroughACommonPointMeetThere, ()) {
  const AcGePoint3d p = point3d();
  const AcGeLine3d a(p, direction3d());
  const AcGeVector3d d = direction3d();
  RC_PRE(a.direction().angleTo(d) > 0.01 && a.direction().angleTo(d) < kPi - 0.01);
  const AcGeLine3d b(p + d * number(-1, 1), d);
  AcGePoint3d found;
  RC_ASSERT(a.intersectWith(b, found, within(1e-8)));
  RC_ASSERT(found.isEqualTo(p, within(1e-7)));
}

TEST(Plane, IsSetFromCoefficientsAndGivesThemBackToTheLastBit) {
  AcGePlane plane;
  plane.set(0.0, 3.0, 4.0, -10.0);
  double a, b, c, d;
  plane.getCoefficients(a, b, c, d);
  EXPECT_DOUBLE_EQ(b, 0.6);
  EXPECT_DOUBLE_EQ(c, 0.8);
  EXPECT_DOUBLE_EQ(d, -2.0);
  EXPECT_NEAR(plane.signedDistanceTo(AcGePoint3d::kOrigin), -2.0, 1e-15);
  EXPECT_TRUE(plane.pointOnPlane().isEqualTo({0, 1.2, 1.6}));
}

RC_GTEST_PROP(Plane, WrittenAndReadOftenNeverDrifts, ()) {
  const AcGePlane first(point3d(), direction3d());
  double a, b, c, d;
  first.getCoefficients(a, b, c, d);
  AcGePlane again;
  again.set(a, b, c, d);
  double a2, b2, c2, d2;
  again.getCoefficients(a2, b2, c2, d2);
  RC_ASSERT(a == a2 && b == b2 && c == c2 && d == d2);
  const AcGePoint3d p = point3d();
  RC_ASSERT(std::fabs(first.signedDistanceTo(p) - again.signedDistanceTo(p)) < 1e-11);
}

TEST(Plane, ThroughThreePoints) {
  const AcGePlane plane(AcGePoint3d(1, 0, 3), AcGePoint3d(0, 0, 3), AcGePoint3d(5, 1, 3));
  EXPECT_TRUE(plane.normal().isEqualTo(AcGeVector3d::kZAxis));
  EXPECT_EQ(plane.signedDistanceTo({9, 9, 5}), 2.0);
  EXPECT_TRUE(AcGePoint3d(9, 8, 5).convert2d(plane).isEqualTo({9, 8}));
  EXPECT_TRUE(AcGePoint3d(plane, AcGePoint2d(9, 8)).isEqualTo({9, 8, 3}));
  EXPECT_EQ(AcGePlane(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 1), AcGePoint3d(2, 2, 2)).normal().length(), 0.0)
      << "collinear points have no plane";
}

TEST(Plane, ComparesWithPlanes) {
  const AcGePlane up(AcGePoint3d(0, 0, 2), AcGeVector3d::kZAxis);
  const AcGePlane down(AcGePoint3d(7, 7, 2), -AcGeVector3d::kZAxis);
  EXPECT_TRUE(up.isCoplanarTo(down));
  EXPECT_FALSE(up.isCoplanarTo(AcGePlane::kXYPlane));
  EXPECT_TRUE(up.isParallelTo(AcGePlane::kXYPlane));
  EXPECT_TRUE(AcGePlane::kYZPlane.isPerpendicularTo(AcGePlane::kXYPlane));
  EXPECT_FALSE(AcGePlane(AcGePoint3d(), AcGeVector3d(1, 0, 1)).isPerpendicularTo(AcGePlane::kXYPlane));
}

TEST(Plane, SharesALineWithAnotherOrNone) {
  AcGeLine3d line;
  EXPECT_TRUE(AcGePlane(AcGePoint3d(3, 0, 0), AcGeVector3d(1, 0, 0)).intersectWith(AcGePlane::kXYPlane, line));
  EXPECT_TRUE(line.direction().isParallelTo(AcGeVector3d::kYAxis));
  EXPECT_TRUE(line.isOn(AcGePoint3d(3, 55, 0)));
  const AcGeLine3d before = line;
  EXPECT_FALSE(AcGePlane::kXYPlane.intersectWith(AcGePlane(AcGePoint3d(0, 0, 1), AcGeVector3d::kZAxis), line));
  EXPECT_TRUE(line.pointOnLine() == before.pointOnLine());
}

RC_GTEST_PROP(Plane, TheLineOfTwoLiesInBoth, ()) {
  const AcGePlane a(point3d(), direction3d());
  const AcGePlane b(point3d(), direction3d());
  const double angle = a.normal().angleTo(b.normal());
  RC_PRE(angle > 0.05 && angle < kPi - 0.05);
  AcGeLine3d line;
  RC_ASSERT(a.intersectWith(b, line));
  RC_ASSERT(line.isOn(a, within(1e-9)) && line.isOn(b, within(1e-9)));
}

RC_GTEST_PROP(Plane, ProjectsOntoItself, ()) {
  const AcGePlane plane(point3d(), direction3d());
  const AcGePoint3d p = point3d();
  const AcGePoint3d foot = p.orthoProject(plane);
  RC_ASSERT(plane.isOn(foot, within(1e-9)));
  RC_ASSERT(std::fabs(foot.distanceTo(p) - std::fabs(plane.signedDistanceTo(p))) < 1e-9);
  const AcGeVector3d d = direction3d();
  RC_PRE(std::fabs(d.normal().dotProduct(plane.normal())) > 0.05);
  RC_ASSERT(plane.isOn(p.project(plane, d), within(1e-8)));
  RC_ASSERT((p.project(plane, d) - p).crossProduct(d).length() < 1e-6);
}

}  // namespace
