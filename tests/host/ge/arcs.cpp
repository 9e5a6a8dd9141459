#include <vector>

#include "GeTesting.h"

namespace {

using namespace getest;

AcGeLineSeg2d segment(double x1, double y1, double x2, double y2) {
  return {AcGePoint2d(x1, y1), AcGePoint2d(x2, y2)};
}

std::vector<AcGePoint2d> meet(const AcGeCircArc2d& arc, const AcGeLinearEnt2d& line,
                              const AcGeTol& tol = AcGeContext::gTol) {
  const AcGePoint2d untouched(777, 888);
  AcGePoint2d p[2] = {untouched, untouched};
  int count = -1;
  const bool any = arc.intersectWith(line, count, p[0], p[1], tol) != 0;
  EXPECT_EQ(any, count > 0);
  for (int i = count; i < 2; ++i) EXPECT_EQ(p[i].x, untouched.x) << "points beyond the count are left alone";
  return {p, p + count};
}

std::vector<AcGePoint2d> meet(const AcGeCircArc2d& arc, const AcGeCircArc2d& other,
                              const AcGeTol& tol = AcGeContext::gTol) {
  AcGePoint2d p[2];
  int count = -1;
  const bool any = arc.intersectWith(other, count, p[0], p[1], tol) != 0;
  EXPECT_EQ(any, count > 0);
  return {p, p + count};
}

TEST(Arc2d, ThroughThreePointsKeepsThem) {
  const AcGeCircArc2d arc(AcGePoint2d(5, 0), AcGePoint2d(0, 5), AcGePoint2d(-5, 0));
  EXPECT_TRUE(arc.center().isEqualTo({0, 0}));
  EXPECT_DOUBLE_EQ(arc.radius(), 5.0);
  EXPECT_FALSE(arc.isClockWise());
  EXPECT_EQ(arc.startAng(), 0.0);
  EXPECT_DOUBLE_EQ(arc.endAng(), kPi);
  EXPECT_TRUE(arc.refVec().isEqualTo({1, 0}));
  EXPECT_EQ(arc.endPoint().x, -5.0);
}

TEST(Arc2d, ThroughThreePointsTurnsTheWayTheyTell) {
  const AcGeCircArc2d arc(AcGePoint2d(5, 0), AcGePoint2d(0, -5), AcGePoint2d(0, 5));
  EXPECT_TRUE(arc.isClockWise());
  EXPECT_DOUBLE_EQ(arc.endAng(), 1.5 * kPi) << "angles count in the arc's own sense";
  EXPECT_TRUE(arc.isOn({-5, 0}));
  EXPECT_FALSE(arc.isOn({5 * std::sqrt(0.5), 5 * std::sqrt(0.5)}));
}

TEST(Arc2d, RefusesCollinearAndEqualPoints) {
  AcGeError error = AcGe::kOk;
  AcGeCircArc2d arc(AcGePoint2d(1, 2), 3.0);
  const auto refuse = [&](AcGePoint2d a, AcGePoint2d b, AcGePoint2d c) {
    arc.set(a, b, c, error);
    EXPECT_EQ(arc.radius(), 3.0) << "it stays as it was";
    EXPECT_TRUE(arc.center().isEqualTo({1, 2}));
    return error;
  };
  EXPECT_EQ(refuse({0, 0}, {1, 1}, {5, 5}), AcGe::kLinearlyDependentArg1Arg2Arg3);
  EXPECT_EQ(refuse({0, 0}, {0, 0}, {5, 5}), AcGe::kEqualArg1Arg2);
  EXPECT_EQ(refuse({0, 0}, {5, 5}, {0, 0}), AcGe::kEqualArg1Arg3);
  EXPECT_EQ(refuse({0, 0}, {5, 5}, {5, 5}), AcGe::kEqualArg2Arg3);
  arc.set(AcGePoint2d(0, 0), AcGePoint2d(1, 1), AcGePoint2d(2, 0), error);
  EXPECT_EQ(error, AcGe::kOk);
  const AcGeCircArc2d made(AcGePoint2d(7, 7), AcGePoint2d(8, 8), AcGePoint2d(9, 9));
  EXPECT_EQ(made.radius(), 0.0);
  EXPECT_EQ(made.length(), 0.0);
  EXPECT_TRUE(made.center().isEqualTo({7, 7}) && made.endPoint().isEqualTo({7, 7}));
}

TEST(Arc2d, ByBulgeTurnsCounterClockwiseForAPositiveOne) {
  const double quarter = std::tan(kPi / 8);
  const AcGeCircArc2d arc(AcGePoint2d(10, 0), AcGePoint2d(0, 10), quarter);
  EXPECT_TRUE(arc.center().isEqualTo({0, 0}));
  EXPECT_NEAR(arc.radius(), 10.0, 1e-14);
  EXPECT_FALSE(arc.isClockWise());
  EXPECT_DOUBLE_EQ(arc.endAng() - arc.startAng(), kPi / 2);
  const AcGeCircArc2d back(AcGePoint2d(10, 0), AcGePoint2d(0, 10), -quarter);
  EXPECT_TRUE(back.center().isEqualTo({10, 10}));
  EXPECT_TRUE(back.isClockWise());
  const AcGeCircArc2d most(AcGePoint2d(10, 0), AcGePoint2d(0, 10), std::tan(3 * kPi / 8));
  EXPECT_TRUE(most.center().isEqualTo({10, 10})) << "three quarters of a circle";
}

TEST(Arc2d, ByHeightOverItsChord) {
  const AcGeCircArc2d half(AcGePoint2d(0, 0), AcGePoint2d(10, 0), 5.0, Adesk::kFalse);
  EXPECT_TRUE(half.center().isEqualTo({5, 0}));
  EXPECT_TRUE(half.midPoint().isEqualTo({5, -5}));
}

TEST(Arc2d, ByBulgeOfNothingIsAPoint) {
  EXPECT_EQ(AcGeCircArc2d(AcGePoint2d(1, 1), AcGePoint2d(5, 1), 0.0).radius(), 0.0);
  EXPECT_EQ(AcGeCircArc2d(AcGePoint2d(1, 1), AcGePoint2d(1, 1), 1.0).radius(), 0.0);
}

TEST(Arc2d, AcrossAngleZeroHoldsIt) {
  const AcGeCircArc2d arc(AcGePoint2d(0, 0), 5.0, 1.75 * kPi, 2.25 * kPi);
  EXPECT_TRUE(arc.isOn({5, 0}));
  EXPECT_FALSE(arc.isOn({-5, 0}));
  EXPECT_NEAR(arc.length(), 2.5 * kPi, 1e-14);
  const AcGeCircArc2d same(AcGePoint2d(0, 0), 5.0, 1.75 * kPi, 0.25 * kPi);
  EXPECT_DOUBLE_EQ(same.endAng(), 2.25 * kPi) << "an end below the start is the way past the full turn";
  EXPECT_NEAR(same.paramOf({5, 0}), 2 * kPi, 1e-14);
}

TEST(Arc2d, HalfACircleHoldsItsMiddleAndNotTheOtherSide) {
  for (int degrees = 0; degrees < 360; degrees += 7) {
    const double from = degrees * kPi / 180;
    const AcGeCircArc2d half(AcGePoint2d(3, 4), 50.0, from, from + kPi);
    EXPECT_TRUE(half.isOn(half.evalPoint(from + kPi / 2))) << degrees;
    EXPECT_FALSE(half.isOn(half.evalPoint(from - kPi / 2))) << degrees;
    EXPECT_TRUE(half.isOn(half.startPoint()) && half.isOn(half.endPoint())) << degrees;
  }
}

TEST(Arc2d, OfHardlyAnySweepDoesNotHoldTheOppositePoint) {
  const AcGeCircArc2d sliver(AcGePoint2d(0, 0), 5.0, 0.0, 0.0);
  EXPECT_TRUE(sliver.isOn({5, 0}));
  EXPECT_FALSE(sliver.isOn({-5, 0}));
}

TEST(Arc2d, IsBoundedByItsEndsAndTheExtremesItPasses) {
  AcGePoint2d low, high;
  AcGeCircArc2d(AcGePoint2d(0, 0), 10.0, -kPi / 6, kPi / 3).boundBlock(low, high);
  EXPECT_TRUE(low.isEqualTo({5, -5}, within(1e-12)));
  EXPECT_TRUE(high.isEqualTo({10, 5 * std::sqrt(3.0)}, within(1e-12)));
  AcGeCircArc2d(AcGePoint2d(1, 2), 10.0).boundBlock(low, high);
  EXPECT_TRUE(low.isEqualTo({-9, -8}) && high.isEqualTo({11, 12}));
}

TEST(Arc2d, MeetsALineInTwoPointsOneOrNone) {
  const AcGeCircArc2d circle(AcGePoint2d(0, 0), 5.0);
  const auto two = meet(circle, segment(-10, 3, 10, 3));
  ASSERT_EQ(two.size(), 2u);
  EXPECT_TRUE(two[0].isEqualTo({-4, 3}) && two[1].isEqualTo({4, 3})) << "in the order along the line";
  EXPECT_EQ(meet(circle, segment(-10, 5.001, 10, 5.001)).size(), 0u);
  EXPECT_EQ(meet(circle, segment(0, 3, 10, 3)).size(), 1u);
  EXPECT_EQ(meet(circle, segment(-1, 3, 1, 3)).size(), 0u) << "inside";
  const AcGeCircArc2d right(AcGePoint2d(0, 0), 5.0, -kPi / 2, kPi / 2);
  EXPECT_EQ(meet(right, AcGeLine2d(AcGePoint2d(0, 3), AcGeVector2d(1, 0))).size(), 1u);
  EXPECT_EQ(meet(circle, segment(3, 4, 3, 4)).size(), 1u) << "a point of it";
}

TEST(Arc2d, TouchesATangentOnceWithinTheTolerance) {
  const AcGeCircArc2d circle(AcGePoint2d(0, 0), 5.0);
  EXPECT_EQ(meet(circle, segment(-10, 5, 10, 5)).size(), 1u);
  EXPECT_EQ(meet(circle, segment(-10, 5 + 0.9e-8, 10, 5 + 0.9e-8), within(1e-8)).size(), 1u);
  EXPECT_EQ(meet(circle, segment(-10, 5 - 0.9e-8, 10, 5 - 0.9e-8), within(1e-8)).size(), 1u);
  EXPECT_EQ(meet(circle, segment(-10, 5 - 1.1e-8, 10, 5 - 1.1e-8), within(1e-8)).size(), 2u);
  EXPECT_EQ(meet(circle, segment(-10, 5 + 1.1e-8, 10, 5 + 1.1e-8), within(1e-8)).size(), 0u);
  // A slanted tangent, whose distance is rounded.
  const AcGeVector2d out = AcGeVector2d(1, 2).normal();
  const AcGePoint2d foot = AcGePoint2d(1000, 1000) + out * 7.3;
  EXPECT_EQ(meet(AcGeCircArc2d(AcGePoint2d(1000, 1000), 7.3), AcGeLine2d(foot, out.perpVector())).size(), 1u);
}

TEST(Arc2d, MeetsALineAtItsEnds) {
  const AcGeCircArc2d quarter(AcGePoint2d(5, 0), AcGePoint2d(5 * std::sqrt(0.5), 5 * std::sqrt(0.5)),
                              AcGePoint2d(0, 5));
  EXPECT_EQ(meet(quarter, segment(-5, 5, 5, 5)).size(), 1u) << "tangent at the end";
  EXPECT_EQ(meet(quarter, segment(0, 0, 9, 0)).size(), 1u);
  EXPECT_EQ(meet(quarter, segment(5, 0, 0, 5)).size(), 2u) << "its chord";
}

TEST(Arc2d, MeetsAnArcInTwoPointsOneOrNone) {
  const AcGeCircArc2d circle(AcGePoint2d(0, 0), 5.0);
  const auto two = meet(circle, AcGeCircArc2d(AcGePoint2d(8, 0), 5.0));
  ASSERT_EQ(two.size(), 2u);
  EXPECT_TRUE(two[0].isEqualTo({4, 3}) && two[1].isEqualTo({4, -3}));
  EXPECT_EQ(meet(circle, AcGeCircArc2d(AcGePoint2d(10, 0), 5.0)).size(), 1u) << "touching from outside";
  EXPECT_TRUE(meet(circle, AcGeCircArc2d(AcGePoint2d(3, 0), 2.0))[0].isEqualTo({5, 0})) << "touching from inside";
  EXPECT_TRUE(meet(AcGeCircArc2d(AcGePoint2d(3, 0), 2.0), circle)[0].isEqualTo({5, 0}));
  EXPECT_EQ(meet(circle, AcGeCircArc2d(AcGePoint2d(10.001, 0), 5.0)).size(), 0u);
  EXPECT_EQ(meet(circle, AcGeCircArc2d(AcGePoint2d(0, 0), 3.0)).size(), 0u) << "one centre";
  EXPECT_EQ(meet(circle, AcGeCircArc2d(AcGePoint2d(0, 0), 5.0, 0.0, 1.0)).size(), 0u) << "one circle";
  EXPECT_EQ(meet(circle, AcGeCircArc2d(AcGePoint2d(8, 0), 5.0, 0.0, kPi)).size(), 1u);
}

TEST(Arc2d, KeepsItsAnglesWhenItsCentreOrRadiusIsSet) {
  AcGeCircArc2d arc(AcGePoint2d(5, 0), AcGePoint2d(0, 5), AcGePoint2d(-5, 0));
  arc.setCenter({10, 10}).setRadius(2.0);
  EXPECT_DOUBLE_EQ(arc.endAng(), kPi);
  EXPECT_TRUE(arc.startPoint().isEqualTo({12, 10}) && arc.endPoint().isEqualTo({8, 10}));
  AcGeCircArc3d inSpace(AcGePoint3d(5, 0, 1), AcGePoint3d(0, 5, 1), AcGePoint3d(0, -5, 1));
  inSpace.setCenter({10, 10, 0}).setRadius(2.0);
  EXPECT_DOUBLE_EQ(inSpace.endAng(), 1.5 * kPi);
  EXPECT_TRUE(inSpace.endPoint().isEqualTo({10, 8, 0}));
}

TEST(Arc2d, IsTurnedRoundByAMirror) {
  AcGeCircArc2d arc(AcGePoint2d(5, 0), AcGePoint2d(0, 5), AcGePoint2d(-5, 0));
  arc.mirror(AcGeLine2d(AcGePoint2d(0, 10), AcGeVector2d(1, 0)));
  EXPECT_TRUE(arc.isClockWise());
  EXPECT_TRUE(arc.center().isEqualTo({0, 20}));
  EXPECT_TRUE(arc.midPoint().isEqualTo({0, 15}));
  EXPECT_TRUE(arc.evalPoint(arc.endAng()).isEqualTo(arc.endPoint()));
}

RC_GTEST_PROP(Arc2d, ThroughThreePointsOfAnArcIsThatArc, ()) {
  const AcGePoint2d centre = point2d();
  const double radius = number(0.5, 80);
  const double from = number(-7, 7);
  const double sweep = number(0.2, 6.0);
  const bool clockWise = *rc::gen::arbitrary<bool>();
  const AcGeCircArc2d arc(centre, radius, from, from + sweep, direction2d(), clockWise);
  const AcGeCircArc2d again(arc.startPoint(), arc.evalPoint(from + sweep * number(0.2, 0.8)), arc.endPoint());
  RC_ASSERT(again.center().isEqualTo(centre, within(1e-8)));
  RC_ASSERT(std::fabs(again.radius() - radius) < 1e-8);
  RC_ASSERT(std::fabs(again.length() - arc.length()) < 1e-8);
  RC_ASSERT((again.isClockWise() != 0) == clockWise);
  RC_ASSERT(again.midPoint().isEqualTo(arc.midPoint(), within(1e-8)));
  const AcGeCircArc2d byBulge(arc.startPoint(), arc.endPoint(), std::tan(sweep / 4) * (clockWise ? -1 : 1));
  RC_ASSERT(byBulge.midPoint().isEqualTo(arc.midPoint(), within(1e-8)));
}

RC_GTEST_PROP(Arc2d, MeetsALineWhereItsSamplesChangeSides, ()) {
  const double sweep = number(0.1, 6.2);
  const AcGeCircArc2d arc(point2d(), number(1, 80), 0.0, sweep, direction2d(), *rc::gen::arbitrary<bool>());
  const AcGeLine2d line(point2d(), direction2d());
  const auto height = [&](double angle) {
    return line.direction().crossProduct(arc.evalPoint(angle) - line.pointOnLine());
  };
  // Away from tangents and ends the count of sign changes is the count of crossings.
  const double centreHeight = line.direction().crossProduct(arc.center() - line.pointOnLine());
  RC_PRE(std::fabs(std::fabs(centreHeight) - arc.radius()) > 0.01);
  RC_PRE(std::fabs(height(0.0)) > 1e-6 && std::fabs(height(sweep)) > 1e-6);
  constexpr int kSamples = 5000;
  int changes = 0;
  for (int i = 0; i < kSamples; ++i) {
    changes += (height(sweep * i / kSamples) > 0) != (height(sweep * (i + 1) / kSamples) > 0) ? 1 : 0;
  }
  const auto found = meet(arc, line);
  RC_ASSERT(static_cast<int>(found.size()) == changes);
  for (const AcGePoint2d& p : found) RC_ASSERT(arc.isOn(p, within(1e-9)) && line.isOn(p, within(1e-9)));
}

RC_GTEST_PROP(Arc2d, MeetsAnArcInPointsOfBoth, ()) {
  const AcGeCircArc2d a(point2d(), number(1, 80), 0.0, number(0.1, 6.2), direction2d());
  const AcGeCircArc2d b(point2d(), number(1, 80), 0.0, number(0.1, 6.2), direction2d(), *rc::gen::arbitrary<bool>());
  const double distance = a.center().distanceTo(b.center());
  RC_PRE(std::fabs(distance - a.radius() - b.radius()) > 0.01);
  RC_PRE(std::fabs(distance - std::fabs(a.radius() - b.radius())) > 0.01);
  for (const AcGePoint2d& p : {a.startPoint(), a.endPoint()}) {
    RC_PRE(std::fabs(p.distanceTo(b.center()) - b.radius()) > 1e-6);
  }
  for (const AcGePoint2d& p : {b.startPoint(), b.endPoint()}) {
    RC_PRE(std::fabs(p.distanceTo(a.center()) - a.radius()) > 1e-6);
  }
  constexpr int kSamples = 5000;
  int changes = 0;
  AcGePoint2d from = a.startPoint();
  for (int i = 1; i <= kSamples; ++i) {
    const AcGePoint2d to = a.evalPoint(a.endAng() * i / kSamples);
    const bool change = (from.distanceTo(b.center()) > b.radius()) != (to.distanceTo(b.center()) > b.radius());
    if (change) {
      const AcGePoint2d near = b.closestPointTo(from);
      changes += near.distanceTo(from) < 2.0 * a.length() / kSamples + 1e-9 ? 1 : 0;
    }
    from = to;
  }
  const auto found = meet(a, b);
  for (const AcGePoint2d& p : found) RC_ASSERT(a.isOn(p, within(1e-7)) && b.isOn(p, within(1e-7)));
  // A crossing a sample's length from an end of b can't be judged by samples.
  for (const AcGePoint2d& p : {b.startPoint(), b.endPoint()}) {
    RC_PRE(a.distanceTo(p) > 3.0 * a.length() / kSamples);
  }
  RC_ASSERT(static_cast<int>(found.size()) == changes);
}

RC_GTEST_PROP(Arc2d, IsBoundedByItsSamples, ()) {
  const AcGeCircArc2d arc(point2d(), number(1, 80), number(-7, 0), number(0, 6), direction2d(),
                          *rc::gen::arbitrary<bool>());
  AcGePoint2d low, high;
  arc.boundBlock(low, high);
  AcGePoint2d sampledLow = arc.startPoint(), sampledHigh = arc.startPoint();
  constexpr int kSamples = 3000;
  for (int i = 0; i <= kSamples; ++i) {
    const AcGePoint2d p = arc.evalPoint(arc.startAng() + (arc.endAng() - arc.startAng()) * i / kSamples);
    sampledLow.set(std::min(sampledLow.x, p.x), std::min(sampledLow.y, p.y));
    sampledHigh.set(std::max(sampledHigh.x, p.x), std::max(sampledHigh.y, p.y));
  }
  RC_ASSERT(low.distanceTo(sampledLow) < 1e-3 && high.distanceTo(sampledHigh) < 1e-3);
}

RC_GTEST_PROP(Arc2d, NearestPointBeatsEverySample, ()) {
  const AcGeCircArc2d arc(point2d(), number(1, 80), 0.0, number(0.0, 6.2), direction2d(), *rc::gen::arbitrary<bool>());
  const AcGePoint2d p = point2d();
  const double nearest = arc.distanceTo(p);
  for (int i = 0; i <= 500; ++i) RC_ASSERT(arc.evalPoint(arc.endAng() * i / 500).distanceTo(p) > nearest - 1e-9);
}

TEST(Arc3d, ThroughThreePointsTurnsAboutItsNormal) {
  const AcGeCircArc3d arc(AcGePoint3d(5, 0, 2), AcGePoint3d(0, 5, 2), AcGePoint3d(-5, 0, 2));
  EXPECT_TRUE(arc.center().isEqualTo({0, 0, 2}));
  EXPECT_TRUE(arc.normal().isEqualTo(AcGeVector3d::kZAxis));
  EXPECT_DOUBLE_EQ(arc.radius(), 5.0);
  EXPECT_DOUBLE_EQ(arc.length(arc.startAng(), arc.endAng(), 1e-8), 5 * kPi);
  const AcGeCircArc3d back(AcGePoint3d(-5, 0, 2), AcGePoint3d(0, 5, 2), AcGePoint3d(5, 0, 2));
  EXPECT_TRUE(back.normal().isEqualTo(-AcGeVector3d::kZAxis));
  EXPECT_TRUE(back.midPoint().isEqualTo({0, 5, 2}));
}

TEST(Arc3d, RefusesCollinearPoints) {
  AcGeError error = AcGe::kOk;
  AcGeCircArc3d arc(AcGePoint3d(1, 2, 3), AcGeVector3d::kXAxis, 4.0);
  arc.set(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 1), AcGePoint3d(3, 3, 3), error);
  EXPECT_EQ(error, AcGe::kLinearlyDependentArg1Arg2Arg3);
  EXPECT_EQ(arc.radius(), 4.0);
  arc.set(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 1), AcGePoint3d(0, 0, 0), error);
  EXPECT_EQ(error, AcGe::kEqualArg1Arg3);
  const AcGeCircArc3d made(AcGePoint3d(0, 0, 7), AcGePoint3d(1, 1, 7), AcGePoint3d(3, 3, 7));
  EXPECT_EQ(made.length(), 0.0);
  EXPECT_TRUE(made.center().isEqualTo({0, 0, 7}));
}

TEST(Arc3d, OfANormalBeginsAtItsPerpVector) {
  const AcGeCircArc3d circle(AcGePoint3d(1, 2, 3), AcGeVector3d(0, 0, 9), 4.0);
  EXPECT_TRUE(circle.refVec().isEqualTo(AcGeVector3d::kXAxis));
  EXPECT_TRUE(circle.isClosed());
  EXPECT_TRUE(circle.startPoint().isEqualTo({5, 2, 3}));
  EXPECT_TRUE(circle.evalPoint(kPi / 2).isEqualTo({1, 6, 3}));
}

TEST(Arc3d, MeetsLinesInItsPlaneAndThroughIt) {
  const AcGeCircArc3d circle(AcGePoint3d(0, 0, 1), AcGeVector3d::kZAxis, 5.0);
  int count = 0;
  AcGePoint3d p, q;
  EXPECT_TRUE(circle.intersectWith(AcGeLineSeg3d(AcGePoint3d(-9, 3, 1), AcGePoint3d(9, 3, 1)), count, p, q));
  EXPECT_EQ(count, 2);
  EXPECT_TRUE(p.isEqualTo({-4, 3, 1}) && q.isEqualTo({4, 3, 1}));
  EXPECT_FALSE(circle.intersectWith(AcGeLineSeg3d(AcGePoint3d(-9, 3, 2), AcGePoint3d(9, 3, 2)), count, p, q));
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(circle.intersectWith(AcGeLine3d(AcGePoint3d(3, 4, 9), AcGeVector3d(0, 0, 1)), count, p, q));
  EXPECT_EQ(count, 1);
  EXPECT_TRUE(p.isEqualTo({3, 4, 1}));
  EXPECT_FALSE(circle.intersectWith(AcGeLine3d(AcGePoint3d(3, 3, 9), AcGeVector3d(0, 0, 1)), count, p, q));
  EXPECT_TRUE(circle.intersectWith(AcGeLine3d(AcGePoint3d(0, 5, 1), AcGeVector3d(1, 0, 0)), count, p, q));
  EXPECT_EQ(count, 1) << "a tangent";
}

TEST(Arc3d, MeetsArcsInItsPlaneAndAcrossIt) {
  const AcGeCircArc3d circle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 5.0);
  int count = 0;
  AcGePoint3d p, q;
  circle.intersectWith(AcGeCircArc3d(AcGePoint3d(8, 0, 0), -AcGeVector3d::kZAxis, 5.0), count, p, q);
  EXPECT_EQ(count, 2);
  EXPECT_NEAR(p.x, 4.0, 1e-14);
  circle.intersectWith(AcGeCircArc3d(AcGePoint3d(8, 0, 1), AcGeVector3d::kZAxis, 5.0), count, p, q);
  EXPECT_EQ(count, 0) << "in another plane of the same direction";
  circle.intersectWith(AcGeCircArc3d(AcGePoint3d(0, 0, 0), AcGeVector3d::kXAxis, 5.0), count, p, q);
  EXPECT_EQ(count, 2);
  circle.intersectWith(AcGeCircArc3d(AcGePoint3d(5, 0, 3), AcGeVector3d::kYAxis, 3.0), count, p, q);
  EXPECT_EQ(count, 1);
  EXPECT_TRUE(p.isEqualTo({5, 0, 0}));
  circle.intersectWith(circle, count, p, q);
  EXPECT_EQ(count, 0) << "one circle";
}

TEST(Arc3d, MeetsAPlane) {
  const AcGeCircArc3d circle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 5.0);
  int count = 0;
  AcGePoint3d p, q;
  EXPECT_TRUE(circle.intersectWith(AcGePlane(AcGePoint3d(3, 0, 0), AcGeVector3d::kXAxis), count, p, q));
  EXPECT_EQ(count, 2);
  EXPECT_NEAR(std::fabs(p.y), 4.0, 1e-14);
  EXPECT_TRUE(circle.intersectWith(AcGePlane(AcGePoint3d(5, 0, 0), AcGeVector3d::kXAxis), count, p, q));
  EXPECT_EQ(count, 1);
  EXPECT_FALSE(circle.intersectWith(AcGePlane::kXYPlane, count, p, q));
}

TEST(Arc3d, MeetsALineForOneWhoLooksAlongADirection) {
  const AcGeCircArc3d circle(AcGePoint3d(0, 0, 0), AcGeVector3d::kZAxis, 5.0);
  const AcGeLineSeg3d above(AcGePoint3d(-10, 3, 10), AcGePoint3d(10, 3, 30));
  int count = 0;
  AcGePoint3d a1, a2, l1, l2;
  EXPECT_TRUE(circle.projIntersectWith(above, AcGeVector3d::kZAxis, count, a1, a2, l1, l2));
  ASSERT_EQ(count, 2);
  EXPECT_TRUE(a1.isEqualTo({-4, 3, 0}) && l1.isEqualTo({-4, 3, 16}));
  EXPECT_TRUE(a2.isEqualTo({4, 3, 0}) && l2.isEqualTo({4, 3, 24}));
  EXPECT_FALSE(circle.projIntersectWith(above, AcGeVector3d::kXAxis, count, a1, a2, l1, l2)) << "seen edge on";
}

RC_GTEST_PROP(Arc3d, AgreesWithTheArcOfThePlane, ()) {
  // Anywhere in space, an arc and a line in its plane meet as they do in the XY plane.
  const AcGePoint2d s = point2d(), m = point2d(), e = point2d();
  RC_PRE(std::fabs((m - s).crossProduct(e - s)) > 50.0);
  const AcGeLineSeg2d line(point2d(), point2d());
  RC_PRE(line.length() > 1.0);
  const AcGeCircArc2d flat(s, m, e);
  RC_PRE(flat.radius() < 1000.0);
  const AcGeMatrix3d place = AcGeMatrix3d::rotation(number(-4, 4), direction3d(), point3d());
  const auto lift = [&](const AcGePoint2d& p) { return place * AcGePoint3d(p.x, p.y, 0); };
  const AcGeCircArc3d arc(lift(s), lift(m), lift(e));
  RC_ASSERT(arc.center().isEqualTo(lift(flat.center()), within(1e-6)));
  RC_ASSERT(std::fabs(arc.length() - flat.length()) < 1e-6);
  RC_ASSERT(arc.midPoint().isEqualTo(lift(flat.midPoint()), within(1e-6)));
  for (const AcGePoint2d& p : {line.startPoint(), line.endPoint()}) RC_PRE(flat.distanceTo(p) > 1e-4);
  for (const AcGePoint2d& p : {s, e}) RC_PRE(line.distanceTo(p) > 1e-4);
  RC_PRE(std::fabs(AcGeLine2d(line.startPoint(), line.endPoint()).distanceTo(flat.center()) - flat.radius()) > 1e-4);
  int count = 0, flatCount = 0;
  AcGePoint3d p, q;
  AcGePoint2d fp, fq;
  arc.intersectWith(AcGeLineSeg3d(lift(line.startPoint()), lift(line.endPoint())), count, p, q, within(1e-7));
  flat.intersectWith(line, flatCount, fp, fq, within(1e-7));
  RC_ASSERT(count == flatCount);
  if (count > 0) RC_ASSERT(p.isEqualTo(lift(fp), within(1e-6)));
  if (count > 1) RC_ASSERT(q.isEqualTo(lift(fq), within(1e-6)));
}

RC_GTEST_PROP(Arc3d, GoesThroughItsThreePoints, ()) {
  const AcGePoint3d s = point3d(), m = point3d(), e = point3d();
  RC_PRE((m - s).crossProduct(e - s).length() > 100.0);
  const AcGeCircArc3d arc(s, m, e);
  RC_PRE(arc.radius() < 1000.0);
  RC_ASSERT(arc.isOn(m, within(1e-7)));
  RC_ASSERT(arc.evalPoint(arc.startAng()).isEqualTo(s, within(1e-8)));
  RC_ASSERT(arc.evalPoint(arc.endAng()).isEqualTo(e, within(1e-7)));
  AcGeCircArc3d mirrored = arc;
  const AcGePlane plane(point3d(), direction3d());
  mirrored.mirror(plane);
  RC_ASSERT(
      mirrored.evalPoint(arc.endAng() / 3).isEqualTo(arc.evalPoint(arc.endAng() / 3).mirror(plane), within(1e-7)));
}

}  // namespace
