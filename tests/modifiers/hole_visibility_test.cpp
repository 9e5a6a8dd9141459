// A hole shows in exactly the views where a straight line of sight meets its wall first, and in both sections. Judged
// on the prism of each section by rays through its contours, their arcs as short chords.

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "HoleSpace.h"
#include "object/EveryClass.h"

namespace {

using space::Flat;
using space::kQuarter;
using space::Wall;

using everyclass::kLength;
// Chords of an arc and a ray through it differ from the arc by less.
constexpr double kChordError = 0.02;

/// A hole as the test knows it: about the reference origin, from one face of its wall to the other.
struct Known {
  Flat in;
  Flat out;
  double z;
};

/// Drills `member` right through on lines along the section's axes as it stands turned, at places without luck.
std::vector<Known> drill(KrObject& member, double angleSecao, std::mt19937& random) {
  KrGeratriz outline;
  member.GetSecao(outline);
  const std::vector<std::vector<Flat>> contours = space::sampled(outline);
  double size = 0;
  for (const auto& contour : contours)
    for (const Flat& p : contour) size = std::max({size, std::fabs(p.x), std::fabs(p.y)});
  std::uniform_real_distribution<double> along(1, kLength - 1);
  KrFuro holes;
  std::vector<Known> known;
  const AcGeVector3d origin = outline.GetVertex(outline.Qtd());
  for (int line = 0; line < 24; ++line) {
    const Flat dir = space::turned(line % 2 == 0 ? Flat{0, 1} : Flat{1, 0}, -angleSecao);
    double low = size, high = -size;
    for (const auto& contour : contours) {
      for (const Flat& p : contour) {
        low = std::min(low, p.y * dir.x - p.x * dir.y);
        high = std::max(high, p.y * dir.x - p.x * dir.y);
      }
    }
    const double offset = std::uniform_real_distribution<double>(low, high)(random);
    const Flat from{-dir.y * offset - dir.x * 3 * size, dir.x * offset - dir.y * 3 * size};
    const double z = along(random);
    for (const Wall& wall : space::wallsAlong(contours, from, dir)) {
      // A line that grazes a face or an arc isn't drilled.
      if (wall.out - wall.in < 1) continue;
      const Flat a{from.x + dir.x * wall.in, from.y + dir.y * wall.in};
      const Flat b{from.x + dir.x * wall.out, from.y + dir.y * wall.out};
      known.push_back({a, b, z});
    }
    // The member finds the same walls itself.
    AcArray<AcGeVector3d> found;
    member.FurosInters(AcGeVector3d(from.x, from.y, z) + origin, {dir.x, dir.y, 0}, found, -1, 0);
    for (int i = 0; i + 1 < found.length(); i += 2)
      if (found[i + 1].length() >= 1) holes.Add(found[i], found[i] + found[i + 1], 10, 0, 0);
  }
  member.setFurosSemLink(holes);
  return known;
}

/// Whether a line of sight along a hole meets its wall before any other.
bool meetsItFirst(const std::vector<std::vector<Flat>>& contours, const Known& hole, Flat toViewer) {
  const Flat middle{(hole.in.x + hole.out.x) / 2, (hole.in.y + hole.out.y) / 2};
  const Flat from{middle.x + toViewer.x * 1e4, middle.y + toViewer.y * 1e4};
  const std::vector<Wall> walls = space::wallsAlong(contours, from, {-toViewer.x, -toViewer.y});
  return !walls.empty() && walls.front().in < 1e4 && 1e4 < walls.front().out;
}

void expectView(const everyclass::Sample& c, KrVistas view, int quarter, unsigned seed) {
  SCOPED_TRACE(testing::Message() << testing::PrintToString(c) << ", view " << view << ", quarter " << quarter);
  const std::unique_ptr<KrObject> member = c.make(view);
  const double turn = quarter * kQuarter;
  member->setAngleSecao(turn);
  std::mt19937 random(seed);
  const std::vector<Known> known = drill(*member, turn, random);
  ASSERT_EQ(member->numFuros(), static_cast<int>(known.size()));
  ASSERT_GT(known.size(), 12U);
  member->Gera_KrVector();
  ASSERT_EQ(member->numFuros(), static_cast<int>(known.size())) << "none is off the section";

  KrGeratriz outline;
  member->GetSecao(outline);
  const std::vector<std::vector<Flat>> contours = space::sampled(outline);
  const bool elevation = KrObject::isSecao(view) == Acad::eNotApplicable;
  const Flat toViewer = space::towardsViewer(view, turn);
  for (std::size_t i = 0; i < known.size(); ++i) {
    const Known& hole = known[i];
    const std::vector<KrVector> drawn = space::elementsOf(*member, static_cast<int>(i));
    if (!elevation) {
      ASSERT_EQ(drawn.size(), 2U) << "a trace in both sections";
      EXPECT_EQ(drawn[1].type(), KR_VT_FURO_LINHA);
      continue;
    }
    const double depth = (hole.out.x - hole.in.x) * toViewer.x + (hole.out.y - hole.in.y) * toViewer.y;
    const Flat a = space::seen(view, turn, {hole.in.x, hole.in.y, hole.z}, kLength);
    const Flat b = space::seen(view, turn, {hole.out.x, hole.out.y, hole.z}, kLength);
    if (std::fabs(depth) > 0.5) {
      const bool shows = meetsItFirst(contours, hole, toViewer);
      ASSERT_EQ(drawn.size(), shows ? 3U : 0U) << "hole " << i << " at " << hole.in.x << ", " << hole.in.y;
      if (shows) {
        EXPECT_EQ(drawn[0].type(), KR_VT_FURO);
        EXPECT_NEAR(drawn[0].midPoint().x - everyclass::kStart.x, a.x, 1e-6);
        EXPECT_NEAR(drawn[0].midPoint().y - everyclass::kStart.y, a.y, 1e-6);
      }
      continue;
    }
    ASSERT_EQ(drawn.size(), 2U) << "edge on";
    EXPECT_EQ(drawn[1].type(), KR_VT_FURO_LINHA);
    EXPECT_NEAR(drawn[1].startPoint().x - everyclass::kStart.x, a.x, 1e-6);
    EXPECT_NEAR(drawn[1].startPoint().y - everyclass::kStart.y, a.y, kChordError);
    EXPECT_NEAR(drawn[1].endPoint().y - everyclass::kStart.y, b.y, kChordError);
  }
}

TEST(VisibleHoles, AreThoseWhoseWallALineOfSightMeetsFirstForEveryClassViewAndQuarter) {
  for (const everyclass::Sample& c : everyclass::samples())
    for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso})
      for (int quarter = 0; quarter < 4; ++quarter)
        expectView(c, view, quarter, static_cast<unsigned>(100 * view + quarter));
}

}  // namespace
