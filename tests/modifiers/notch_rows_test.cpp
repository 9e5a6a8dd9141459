#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "modifiers/NotchSpace.h"

// Notches in a row are taken out together where they are clear of each other: the picture is that of one after the
// other.

namespace {

using namespace notches;

constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

struct Bite {
  Polygon polygon;
  AcGePoint2d side;
};

KrObjectRecorteArray stored(const std::vector<Bite>& bites) {
  KrObjectRecorteArray list;
  for (const Bite& bite : bites) list.append(KrObjectRecorte(bite.polygon.points, bite.polygon.bulges, bite.side));
  return list;
}

Bite rectangularBite(double x0, double y0, double x1, double y1) {
  return {rectangle(x0, y0, x1, y1), AcGePoint2d((x0 + x1) / 2, (y0 + y1) / 2)};
}

/// The same elements, those of one notch at the same places. Among themselves they may stand otherwise: which of two
/// contours of the steel comes first hangs on the order in which their edges were made.
void expectSame(const std::vector<KrVector>& a, const std::vector<KrVector>& b) {
  ASSERT_EQ(a.size(), b.size());
  std::vector<bool> found(b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    EXPECT_EQ(a[i].typeEx(), b[i].typeEx()) << "element " << i;
    EXPECT_EQ(a[i].IndexFur(), b[i].IndexFur()) << "element " << i;
    std::size_t k = 0;
    while (k < b.size() && (found[k] || !sameElement(a[i], b[k], 1e-6))) ++k;
    ASSERT_LT(k, b.size()) << "element " << i;
    found[k] = true;
  }
}

TEST(NotchRow, LeavesTheEdgesOfEachAndWhatLiesBetween) {
  TestMember bar;
  makeBar(bar);
  bar.addRecortesWCS(stored({rectangularBite(100, 30, 200, 60), rectangularBite(300, -60, 400, -30),
                             rectangularBite(500, -10, 600, 10), rectangularBite(520, 40, 560, 60)}));
  bar.Gera_KrVector();
  // The upper edge between the bites, the lower one, and the window.
  EXPECT_TRUE(holdsLine(bar, 0, 50, 100, 50));
  EXPECT_TRUE(holdsLine(bar, 100, 50, 100, 30));
  EXPECT_TRUE(holdsLine(bar, 100, 30, 200, 30));
  EXPECT_TRUE(holdsLine(bar, 200, 50, 520, 50));
  EXPECT_TRUE(holdsLine(bar, 560, 50, 1000, 50));
  EXPECT_TRUE(holdsLine(bar, 0, -50, 300, -50));
  EXPECT_TRUE(holdsLine(bar, 400, -50, 1000, -50));
  EXPECT_TRUE(holdsLine(bar, 500, -10, 600, -10));
  EXPECT_TRUE(holdsLine(bar, 500, 10, 500, -10));
  EXPECT_FALSE(isSteel(bar, 150, 40));
  EXPECT_FALSE(isSteel(bar, 550, 0));
  EXPECT_TRUE(isSteel(bar, 250, 40));
  // Each edge names its notch; those of the last stand first.
  const std::vector<KrVector> made = tagged(bar, KR_VTX_RECORTE);
  ASSERT_EQ(made.size(), 3u + 3u + 4u + 3u);
  EXPECT_EQ(made.front().IndexFur(), 1 << 16 | 3);
  EXPECT_EQ(made.back().IndexFur(), 1 << 16 | 0);
}

TEST(NotchRow, StopsAtOneThatMeetsAnotherOrAnEndOrIsOpen) {
  // The second overlaps the first, the fourth takes the end off, the last is open.
  std::vector<Bite> bites = {rectangularBite(400, 20, 500, 60), rectangularBite(450, 0, 520, 60),
                             rectangularBite(600, 20, 700, 60), rectangularBite(-10, -60, 50, 60),
                             rectangularBite(150, 20, 200, 60), rectangularBite(800, 20, 850, 60)};
  bites.push_back({Polygon().add(900, 60).add(900, 20).add(960, 20).add(960, 60), AcGePoint2d(930, 40)});
  TestMember bar;
  makeBar(bar);
  bar.addRecortesWCS(stored(bites));
  bar.Gera_KrVector();
  EXPECT_TRUE(holdsLine(bar, 50, 50, 150, 50)) << "what lies behind a notch at the start keeps its place";
  EXPECT_FALSE(isSteel(bar, 480, 10));
  EXPECT_TRUE(isSteel(bar, 425, 10));
}

Bite randomBite(std::mt19937& random, double height) {
  const auto between = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  const double x = between(-5, 960), w = between(5, 60);
  switch (random() % 5) {
    case 0:
      return rectangularBite(x, height - between(1, 15), x + w, height + 5);
    case 1:
      return rectangularBite(x, -height - 5, x + w, between(-height, -height + 15));
    case 2:
      return rectangularBite(x, -between(1, 8), x + w, between(1, 8));
    case 3: {  // a round bite in the upper edge
      const Polygon round = Polygon().add(x, height + 1).add(x + w, height + 1, -1.0).close();
      return {round, AcGePoint2d(x + w / 2, height - 0.5)};
    }
    default:  // through the whole depth
      return rectangularBite(x, -height - 5, x + std::min(w, 8.0), height + 5);
  }
}

void move(KrObjectRecorteArray& list, const AcGeMatrix2d& m) {
  for (int i = 0; i < list.length(); ++i) {
    for (AcGePoint2d& p : list[i].points()) p.transformBy(m);
    AcGePoint2d side = list[i].lado();
    list[i].setLado(side.transformBy(m));
  }
}

TEST(NotchRow, GivesWhatOneAfterTheOtherGives) {
  std::mt19937 random(20261);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const KrVistas view = kElevations[random() % 4];
    TestMember together, oneByOne;
    const double scale = random() % 2 == 0 ? 1.0 : 0.1, angle = random() % 2 == 0 ? 0.0 : 0.7;
    for (TestMember* bar : {&together, &oneByOne}) {
      makeBar(*bar, view);
      bar->ObjectScale(scale, scale, scale);
      ASSERT_EQ(bar->transformBy(AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, AcGePoint3d(30, -20, 0))),
                Acad::eOk);
    }
    std::vector<Bite> bites;
    const double height = view == Superior || view == Inferior ? 50 : 30;
    for (std::size_t i = 2 + random() % 10; i > 0; --i) bites.push_back(randomBite(random, height));
    KrObjectRecorteArray list = stored(bites);
    move(list, AcGeMatrix2d::rotation(angle, AcGePoint2d(30, -20)) * AcGeMatrix2d::scaling(scale));

    together.addRecortesWCS(list);
    together.Gera_KrVector();
    oneByOne.addRecortesWCS(list);
    for (int i = 0; i < list.length(); ++i) oneByOne.AplicaRecorte(i);
    expectSame(elementsOf(together), elementsOf(oneByOne));
    if (HasFailure()) break;
  }
}

}  // namespace
