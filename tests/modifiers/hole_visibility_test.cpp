// A hole shows in exactly the views where a straight line of sight meets its wall first, and in both sections. Judged
// on the prism of each section by rays through its contours, their arcs as short chords.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <string>

#include "HoleSpace.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrBox.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrIDobrado.h"
#include "profiles/KrILaminadoUSA.h"
#include "profiles/KrTubo.h"
#include "profiles/KrUDobrado.h"
#include "profiles/KrULaminado.h"

namespace {

using space::Flat;
using space::kQuarter;
using space::Wall;

constexpr double kLength = 600;
// Chords of an arc and a ray through it differ from the arc by less.
constexpr double kChordError = 0.02;

struct Class {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas)> make;
};

template <class T, class... Values>
Class classOf(std::string name, Values... values) {
  return {std::move(name), [values...](KrVistas view) {
            return std::make_unique<T>(AcGePoint3d(0, 0, 0), AcGePoint3d(kLength, 0, 0), view, values...);
          }};
}

std::vector<Class> classes() {
  return {
      classOf<KrTubo>("tube", 88.9, 79.9),
      classOf<KrBarraRedonda>("round bar", 25.0),
      classOf<KrILaminadoUSA>("rolled I", 203.0, 102.0, 6.9, 22.8, 0.165, 9.5, 4.0, 10.8, 0.0, 3490.0, 27.4,
                              ISolInclinada),
      classOf<KrULaminado>("rolled channel", 203.0, 57.4, 5.6, 20.6, 7.6, 3.8, 14.5, 9.9, 0.0, 2180.0, 17.1),
      classOf<KrCantLaminada>("angle", 100.0, 75.0, 8.0, 18.7, 68.9, 10.0, 0.0, 10.6, 1350.0),
      classOf<KrBox>("box", 100.0, 60.0, 5.0, 3.0, 0.0),
      classOf<KrUDobrado>("lipped channel", 200.0, 75.0, 75.0, 3.0, 3.0, kQuarter, kQuarter, 0.0, 20.0),
      classOf<KrIDobrado>("two channels", 200.0, 75.0, 75.0, 3.0, 3.0, 10.0, 0.0, 20.0),
  };
}

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
  std::uniform_real_distribution<double> place(-size, size);
  std::uniform_real_distribution<double> along(1, kLength - 1);
  KrFuro holes;
  std::vector<Known> known;
  const AcGeVector3d origin = outline.GetVertex(outline.Qtd());
  for (int line = 0; line < 24; ++line) {
    const Flat dir = space::turned(line % 2 == 0 ? Flat{0, 1} : Flat{1, 0}, -angleSecao);
    const double offset = place(random);
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

void expectView(const Class& c, KrVistas view, int quarter, unsigned seed) {
  SCOPED_TRACE(testing::Message() << c.name << ", view " << view << ", quarter " << quarter);
  const std::unique_ptr<KrObject> member = c.make(view);
  const double turn = quarter * kQuarter;
  member->setAngleSecao(turn);
  std::mt19937 random(seed);
  const std::vector<Known> known = drill(*member, turn, random);
  ASSERT_EQ(member->numFuros(), static_cast<int>(known.size()));
  ASSERT_GT(known.size(), 5U);
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
        EXPECT_NEAR(drawn[0].midPoint().x, a.x, 1e-6);
        EXPECT_NEAR(drawn[0].midPoint().y, a.y, 1e-6);
      }
      continue;
    }
    ASSERT_EQ(drawn.size(), 2U) << "edge on";
    EXPECT_EQ(drawn[1].type(), KR_VT_FURO_LINHA);
    EXPECT_NEAR(drawn[1].startPoint().x, a.x, 1e-6);
    EXPECT_NEAR(drawn[1].startPoint().y, a.y, kChordError);
    EXPECT_NEAR(drawn[1].endPoint().y, b.y, kChordError);
  }
}

TEST(VisibleHoles, AreThoseWhoseWallALineOfSightMeetsFirstForEveryClassViewAndQuarter) {
  for (const Class& c : classes())
    for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso})
      for (int quarter = 0; quarter < 4; ++quarter)
        expectView(c, view, quarter, static_cast<unsigned>(100 * view + quarter));
}

}  // namespace
