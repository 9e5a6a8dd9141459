#include "object/OutlineCrossings.h"

#include <gtest/gtest.h>

#include <random>

#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

std::vector<AcGePoint2d> crossingsOf(const KrGeratriz& outline, const AcGePoint2d& a, const AcGePoint2d& b) {
  AcArray<AcGePoint2d> found;
  crossOutline(AcGeLine2d(a, b), outline, found);
  return {found.begin(), found.end()};
}

/// One object for each question, asked about many lines.
struct Quick {
  explicit Quick(const KrGeratriz& outline) : forAny(outline), forTop(outline) {}
  OutlineCrossings forAny;
  OutlineCrossings forTop;
};

void expectSame(const KrGeratriz& outline, Quick& quick, const AcGePoint2d& a, const AcGePoint2d& b) {
  const std::vector<AcGePoint2d> all = crossingsOf(outline, a, b);
  EXPECT_EQ(quick.forAny.any(a, b), !all.empty()) << a.x << "," << a.y << " " << b.x << "," << b.y;
  double y = 0;
  ASSERT_EQ(quick.forTop.top(a, b, y), !all.empty()) << a.x << "," << a.y << " " << b.x << "," << b.y;
  if (all.empty()) return;
  double top = all.front().y;
  for (const AcGePoint2d& p : all) top = std::max(top, p.y);
  EXPECT_NEAR(y, top, 1e-11) << "but for rounding";
}

TEST(OutlineCrossings, OfRandomLinesAreThoseOfTheWholeSearch) {
  std::mt19937 random(7);
  for (int round = 0; round < 400; ++round) {
    TestMember member;
    member.draw(samples::randomOutline(random, round % 2 == 0));
    const KrGeratriz& outline = member.outline();
    Quick quick(outline);
    std::uniform_real_distribution<double> place(-150, 150);
    for (int i = 0; i < 20; ++i) {
      const AcGePoint2d a(place(random), place(random));
      expectSame(outline, quick, a, {place(random), place(random)});
      expectSame(outline, quick, a, {a.x, place(random)});
      expectSame(outline, quick, a, {a.x, place(random)});
      // Through nodes: along edges, past corners, at the ends of arcs.
      const AcGeVector3d& n = outline.GetVertex(i % outline.Qtd());
      const AcGeVector3d& m = outline.GetVertex((i + 1) % outline.Qtd());
      expectSame(outline, quick, {n.x, n.y}, {n.x, n.y + 5});
      expectSame(outline, quick, {n.x, n.y}, {m.x, m.y});
      expectSame(outline, quick, a, a);
    }
  }
}

TEST(OutlineCrossings, OfACircleInHalfTurnsAreFoundBesideItsNodes) {
  TestMember member;
  member.draw({{{-50, 0, 1}, {50, 0, 1}}});
  Quick quick(member.outline());
  for (const double x : {-49.0, 0.0, 30.0, 49.999, 51.0}) expectSame(member.outline(), quick, {x, 0}, {x, 1});
  for (const double y : {-49.0, 10.0, 49.999, 50.1}) expectSame(member.outline(), quick, {0, y}, {1, y});
  double y = 0;
  ASSERT_TRUE(quick.forTop.top({30, -50}, {30, -40}, y));
  EXPECT_NEAR(y, 40, 1e-12);
}

}  // namespace
