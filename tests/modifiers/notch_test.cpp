#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "modifiers/NotchSpace.h"
#include "object/Drawing.h"
#include "profiles/KrChapa.h"

namespace {

using namespace notches;

constexpr double kPi = 3.141592653589793;
constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

/// A cope in the upper corner of the bar's end.
Polygon cope() {
  return rectangle(900, 20, 1010, 60);
}
const AcGePoint2d kInCope(950, 40);

TEST(Notch, TakesACornerOffAndStoresIt) {
  TestMember bar;
  makeBar(bar);
  const std::size_t edgesBefore = elementsOf(bar).size();
  ASSERT_EQ(notch(bar, cope(), kInCope), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 900, 20, 1000, 20));
  EXPECT_TRUE(holdsLine(bar, 900, 20, 900, 50));
  EXPECT_TRUE(holdsLine(bar, 0, 50, 900, 50));
  EXPECT_TRUE(holdsLine(bar, 1000, -50, 1000, 20));
  EXPECT_EQ(elementsOf(bar).size(), edgesBefore + 2);
  const auto made = tagged(bar, KR_VTX_RECORTE);
  ASSERT_EQ(made.size(), 2u);
  for (const KrVector& v : made) {
    EXPECT_EQ(v.IndexFur(), 1 << 16) << "notch 0 of the array of views 1 and 2";
    EXPECT_EQ(v.tipo(), KR_VF_ARESTA);
  }
  EXPECT_TRUE(sameElement(elementsOf(bar)[0], made[0])) << "the new edges stand first";
  const KrObjectRecorteArray stored = shown(bar);
  ASSERT_EQ(stored.length(), 1);
  EXPECT_TRUE(stored[0] == KrObjectRecorte(cope().points, cope().bulges, kInCope));
  EXPECT_TRUE(stored[0].lado().isEqualTo(kInCope));
}

TEST(Notch, StandsAfterRegeneratingOnceAndTwice) {
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, cope(), kInCope), Acad::eOk);
  const auto before = elementsOf(bar);
  bar.Gera_KrVector();
  const auto once = elementsOf(bar);
  EXPECT_EQ(once.size(), before.size());
  for (const KrVector& v : before)
    EXPECT_TRUE(std::any_of(once.begin(), once.end(), [&](const KrVector& w) { return sameElement(v, w, 1e-9); }));
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), once, 0));
}

void expectRefused(TestMember& bar, const Polygon& polygon, AcGePoint2d side, const char* why) {
  const auto before = elementsOf(bar);
  const int stored = shown(bar).length();
  EXPECT_EQ(notch(bar, polygon, side), Acad::eNotApplicable) << why;
  EXPECT_TRUE(sameList(elementsOf(bar), before, 0)) << why;
  EXPECT_EQ(shown(bar).length(), stored) << why;
}

TEST(Notch, IsRefusedWithEverythingAsBefore) {
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, cope(), kInCope), Acad::eOk);
  expectRefused(bar, rectangle(400, -60, 600, 60), AcGePoint2d(500, 0), "it cuts the bar in two");
  expectRefused(bar, rectangle(-10, 40, 1010, 60), AcGePoint2d(500, 45), "it changes the width");
  expectRefused(bar, rectangle(400, -10, 600, 10), AcGePoint2d(500, 0), "a window makes another contour");
  expectRefused(bar, rectangle(-10, -60, 1010, 60), AcGePoint2d(500, 0), "it takes all");
  expectRefused(bar, rectangle(100, 30, 200, 60), AcGePoint2d(150, 30), "the side point lies on the polygon");
  expectRefused(bar, Polygon().add(100, 30), AcGePoint2d(150, 40), "a point is no polygon");
  expectRefused(bar, Polygon(), AcGePoint2d(150, 40), "nothing is no polygon");
  const double nan = std::nan("");
  expectRefused(bar, rectangle(100, 30, nan, 60), AcGePoint2d(150, 40), "no number in the polygon");
  expectRefused(bar, rectangle(100, 30, 200, 60), AcGePoint2d(HUGE_VAL, 40), "no number in the side point");
  expectRefused(bar, Polygon().add(100, 30, nan).add(200, 30).add(150, 60).close(), AcGePoint2d(150, 40),
                "no number in a bulge");
}

TEST(Notch, WidthMayChangeByAHundredth) {
  TestMember bar;
  makeBar(bar);
  EXPECT_EQ(notch(bar, rectangle(-10, 49.991, 1010, 60), AcGePoint2d(500, 55)), Acad::eOk);
  TestMember other;
  makeBar(other);
  EXPECT_EQ(notch(other, rectangle(-10, 49.989, 1010, 60), AcGePoint2d(500, 55)), Acad::eNotApplicable);
}

TEST(Notch, NeedsAnElevationAtAWholeQuarter) {
  TestMember section;
  makeBar(section, Secao);
  expectRefused(section, rectangle(0, 0, 80, 80), AcGePoint2d(40, 20), "a section");
  TestMember turned;
  turned.setAngleSecao(0.3);
  makeBar(turned);
  expectRefused(turned, cope(), kInCope, "turned by no whole quarter");
  TestMember empty;
  EXPECT_EQ(notch(empty, cope(), kInCope), Acad::eNotApplicable);
}

TEST(Notch, ThatMeetsNothingIsStoredIfNothingGoes) {
  TestMember bar;
  makeBar(bar);
  const auto before = elementsOf(bar);
  EXPECT_EQ(notch(bar, rectangle(100, 200, 200, 300), AcGePoint2d(150, 250)), Acad::eOk);
  EXPECT_TRUE(sameList(elementsOf(bar), before, 0));
  EXPECT_EQ(shown(bar).length(), 1);
}

TEST(Notch, AnEdgeOnThePolygonComesBackAsTheNotchsOwn) {
  TestMember bar;
  makeBar(bar);
  // Its lower edge is the bar's upper one: the edge under it is taken from the profile, and made anew by the notch.
  ASSERT_EQ(notch(bar, rectangle(100, 50, 200, 80), AcGePoint2d(150, 60)), Acad::eOk);
  const auto made = tagged(bar, KR_VTX_RECORTE);
  ASSERT_EQ(made.size(), 1u);
  EXPECT_TRUE(runs(made[0], 100, 50, 200, 50));
  EXPECT_EQ(made[0].tipo(), KR_VF_ARESTA);
  EXPECT_TRUE(holdsLine(bar, 0, 50, 100, 50));
  EXPECT_TRUE(holdsLine(bar, 200, 50, 1000, 50));
}

// A band between two arcs of radius 75 that bulge 30 to the right: at the height of the bar's middle the left piece
// reaches past the middle of the chord at which the right one begins.
TEST(Notch, BehindACurvedSawCutMakesItsEdges) {
  TestMember bar;
  makeBar(bar);
  const Polygon band = Polygon().add(500, -60, 0.5).add(500, 60).add(502, 60, -0.5).add(502, -60).close();
  AcGePoint2d side(528.3, 20);
  ASSERT_EQ(bar.RecorteVisual(band.points, band.bulges, side, 0, nullptr), Acad::eOk);
  ASSERT_EQ(notch(bar, rectangle(700, 20, 800, 60), {750, 40}), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 700, 20, 800, 20));
  EXPECT_TRUE(holdsLine(bar, 700, 20, 700, 50));
  EXPECT_TRUE(holdsLine(bar, 800, 20, 800, 50));
}

// What is left of the bar is all but a full disc, bounded by one clockwise arc over a chord of 2: radius
// (1 + 20^2) / (2 * 20) = 10.025, centre (509.975, 1).
TEST(Notch, OfADiscHasItsEdgeWithinTheDisc) {
  TestMember bar;
  makeBar(bar);
  const Polygon disc = Polygon().add(500, 2, -20).add(500, 0).close();
  AcGePoint2d outside(300, 0);
  ASSERT_EQ(bar.RecorteVisual(disc.points, disc.bulges, outside, 0, nullptr), Acad::eOk);
  const Polygon right = rectangle(508, -40, 600, 40);
  AcGePoint2d side(510, 20);
  ASSERT_EQ(bar.RecorteVisual(right.points, right.bulges, side, 0, nullptr), Acad::eOk);
  const double half = std::sqrt(10.025 * 10.025 - 1.975 * 1.975);
  EXPECT_TRUE(holdsLine(bar, 508, 1 - half, 508, 1 + half));
}

TEST(Notch, WithTheSideOutsideTakesOffAllOutside) {
  TestMember bar;
  makeBar(bar);
  AcGePoint2d side(500, 0);
  const Polygon window = rectangle(100, -60, 200, 60);
  ASSERT_EQ(bar.RecorteVisual(window.points, window.bulges, side, 0, nullptr), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 100, -50, 200, -50));
  EXPECT_TRUE(holdsLine(bar, 100, -50, 100, 50));
  EXPECT_FALSE(holdsLine(bar, 1000, -50, 1000, 50));
  for (const KrVector& v : elementsOf(bar)) {
    if (v.type() == KR_VT_EIXO || v.type() == KR_VT_REFERENCIA) continue;
    EXPECT_GE(v.midPoint().x, 100 - 1e-9);
    EXPECT_LE(v.midPoint().x, 200 + 1e-9);
  }
}

TEST(Notch, ShortensAHoleSeenEdgeOnAndLeavesItItsWidth) {
  TestMember bar;
  makeBar(bar);
  KrFuro holes;
  holes.Add({-50, 0, 500}, {50, 0, 500}, 14, 0, 0);
  bar.setFurosSemLink(holes);
  bar.Gera_KrVector();
  ASSERT_EQ(notch(bar, rectangle(480, 20, 520, 60), AcGePoint2d(500, 40)), Acad::eOk);
  std::vector<KrVector> bands = elementsOf(bar);
  std::erase_if(bands, [](const KrVector& v) { return v.type() != KR_VT_FURO_LINHA; });
  ASSERT_EQ(bands.size(), 1u);
  EXPECT_TRUE(runs(bands[0], 500, 20, 500, -50)) << "from the section's -X, which is up";
  EXPECT_EQ(bands[0].radius(), 7);
}

// --- Open polygons ---------------------------------------------------------------------------------------------------

TEST(OpenNotch, ReachesAcrossTheMember) {
  TestMember bar;
  makeBar(bar);
  // An L that ends inside on both sides.
  ASSERT_EQ(notch(bar, Polygon().add(900, 30).add(900, 20).add(950, 20), kInCope), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 900, 50, 900, 20));
  EXPECT_TRUE(holdsLine(bar, 900, 20, 1000, 20));
  EXPECT_TRUE(holdsLine(bar, 0, 50, 900, 50));
  EXPECT_FALSE(isSteel(bar, 950, 40));
}

TEST(OpenNotch, ThatReachesPastTheMemberKeepsItsEnds) {
  TestMember bar;
  makeBar(bar);
  // Two lines outside of the bar, each crossed by an arm of the polygon where it lies beyond the bar's rectangle: were
  // the arm shortened to that, they would go whole.
  KrVector beyondTop = line(880, 100, 920, 100, KR_VT_LINHA, KR_VF_PADRAO);
  KrVector beyondEnd = line(1200, 0, 1200, 40, KR_VT_LINHA, KR_VF_PADRAO);
  bar.AddVertex(beyondTop, Superior);
  bar.AddVertex(beyondEnd, Superior);
  const Polygon wide = Polygon().add(900, 300).add(900, 20).add(1400, 20);
  AcGePoint2d side = kInCope;
  ASSERT_EQ(bar.RecorteVisual(wide.points, wide.bulges, side, 0, nullptr), Acad::eOk);
  std::vector<KrVector> left = elementsOf(bar);
  std::erase_if(left, [](const KrVector& v) { return v.type() != KR_VT_LINHA || v.tipo() != KR_VF_PADRAO; });
  ASSERT_EQ(left.size(), 2u);
  EXPECT_TRUE(runs(left[0], 880, 100, 900, 100));
  EXPECT_TRUE(runs(left[1], 1200, 0, 1200, 20));
}

TEST(OpenNotch, IsStoredAsItWasGiven) {
  TestMember bar;
  makeBar(bar);
  const Polygon wide = Polygon().add(900, 300).add(900, 20).add(1400, 20);
  ASSERT_EQ(notch(bar, wide, kInCope), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 900, 50, 900, 20));
  EXPECT_TRUE(shown(bar)[0].points()[0].isEqualTo({900, 300}));
  TestMember other;
  makeBar(other);
  ASSERT_EQ(notch(other, Polygon().add(900, 30).add(900, 20).add(950, 20), kInCope), Acad::eOk);
  EXPECT_TRUE(shown(other)[0].points()[0].isEqualTo({900, 30}));
  EXPECT_TRUE(sameList(elementsOf(bar), elementsOf(other)));
}

TEST(OpenNotch, GoesOnAlongTheTangentWhereItBeginsOrEndsWithAnArc) {
  TestMember bar;
  makeBar(bar);
  // A quarter circle of radius 30 about (930, 30), from (900, 30), where it runs down, to (930, 0), where it runs
  // right.
  const double quarter = std::tan(kPi / 8);
  ASSERT_EQ(notch(bar, Polygon().add(900, 30, quarter).add(930, 0), AcGePoint2d(950, 40)), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 900, 50, 900, 30)) << "up from the arc's start";
  EXPECT_TRUE(holdsLine(bar, 930, 0, 1000, 0)) << "on from the arc's end";
  const auto made = tagged(bar, KR_VTX_RECORTE);
  const auto arcOf = std::find_if(made.begin(), made.end(), [](const KrVector& v) { return v.type() == KR_VT_ARCO; });
  ASSERT_NE(arcOf, made.end());
  EXPECT_TRUE(runs(*arcOf, 900, 30, 930, 0));
  EXPECT_NEAR(arcOf->midPoint().distanceTo(AcGePoint3d(930, 30, 0)), 30, 1e-9);
  EXPECT_NEAR(arcOf->midPoint().x, 930 - 30 * std::sqrt(0.5), 1e-9);
}

// --- Pictures only ---------------------------------------------------------------------------------------------------

TEST(VisualNotch, StoresNothingAndGivesItsEdges) {
  TestMember bar;
  makeBar(bar);
  AcArray<void*> made;
  AcGePoint2d side = kInCope;
  ASSERT_EQ(bar.RecorteVisual(cope().points, cope().bulges, side, 0, &made), Acad::eOk);
  ASSERT_EQ(made.length(), 2);
  const KrObjectArray<KrVector>& list = bar.currentVertexList(VistaCorrente);
  for (int i = 0; i < 2; ++i) EXPECT_EQ(made[i], &list[i]);
  EXPECT_EQ(shown(bar).length(), 0);
  EXPECT_TRUE(tagged(bar, KR_VTX_RECORTE).empty());
  side.set(900, 30);
  EXPECT_EQ(bar.RecorteVisual(cope().points, cope().bulges, side, 0, nullptr), Acad::eNotApplicable);
}

TEST(VisualNotch, HidesAndMakesNoEdges) {
  TestMember bar;
  makeBar(bar);
  AcGePoint2d side = kInCope;
  ASSERT_EQ(bar.RecHideVisual(cope().points, cope().bulges, side), Acad::eOk);
  EXPECT_FALSE(holdsLine(bar, 900, 20, 1000, 20));
  int hidden = 0;
  for (const KrVector& v : elementsOf(bar)) {
    if (v.hidden() == 0 || v.type() == KR_VT_EIXO) continue;
    ++hidden;
    EXPECT_GE(v.midPoint().x, 900);
  }
  EXPECT_EQ(hidden, 2) << "the ends of the upper edge and of the end's edge";
}

TEST(VisualNotch, MovesTheReferenceLineWithAnEndThatGoesOnRequest) {
  for (const bool moves : {false, true}) {
    TestMember bar;
    makeBar(bar);
    const Polygon end = rectangle(900, -60, 1100, 60);
    AcGePoint2d side(950, 0);
    ASSERT_EQ(bar.RecorteVisual(end.points, end.bulges, side, moves ? 1 : 0, nullptr), Acad::eOk);
    AcGePoint3d a, b;
    ASSERT_EQ(bar.GetPointsOfEixo(a, b, 1), Acad::eOk);
    EXPECT_TRUE(a.isEqualTo({0, 0, 0}));
    EXPECT_NEAR(b.x, moves ? 900 : 1000, 1e-9);
    EXPECT_NEAR(bar.getComprimentoReal(), moves ? 900 : 1000, 1e-9);
  }
}

TEST(VisualNotch, TurnsWhatGoesIntoHiddenLinesAndMakesNoEdges) {
  TestMember bar;
  makeBar(bar);
  const std::size_t before = elementsOf(bar).size();
  AcArray<void*> made;
  AcGePoint2d side = kInCope;
  ASSERT_EQ(bar.RecorteVisual(cope().points, cope().bulges, side, 0, OcultaOutLines, &made), Acad::eOk);
  EXPECT_EQ(made.length(), 0);
  std::vector<KrVector> turned = elementsOf(bar);
  EXPECT_EQ(turned.size(), before + 2) << "two edges are parted, none is new";
  std::erase_if(turned, [](const KrVector& v) { return v.type() != KR_VT_LINHA_OCULTA; });
  ASSERT_EQ(turned.size(), 2u);
  const auto has = [&](double x0, double y0, double x1, double y1) {
    return std::any_of(turned.begin(), turned.end(), [&](const KrVector& v) {
      return v.hidden() == 0 && (runs(v, x0, y0, x1, y1) || runs(v, x1, y1, x0, y0));
    });
  };
  EXPECT_TRUE(has(900, 50, 1000, 50));
  EXPECT_TRUE(has(1000, 20, 1000, 50));
  EXPECT_TRUE(holdsLine(bar, 0, 50, 900, 50));
  EXPECT_TRUE(holdsLine(bar, 1000, -50, 1000, 20));
}

// --- Polygons of drawn elements --------------------------------------------------------------------------------------

/// The sides of a rectangle as elements of all types that make a polygon, among such as make none.
KrObjectArray<KrVector> drawnRectangle(double x0, double y0, double x1, double y1) {
  const auto hole = [&](KrVectorType type) { return line(x0 + 1, y0 + 1, x1 - 1, y1 - 1, type); };
  return listOf({line(x0, y0, x1, y0, KR_VT_LINHA_OCULTA), hole(KR_VT_FURO), line(x1, y0, x1, y1, KR_VT_LINHA),
                 hole(KR_VT_FURO_EIXO), KrVector(AcGePoint3d(x0, y0, 0), 5), line(x1, y1, x0, y1, KR_VT_REFERENCIA),
                 hole(KR_VT_FURO_LINHA), line(x0, y1, x0, y0, KR_VT_ARCO_OCULTO)});
}

/// Gives a member the polygon of elements, and one like it the same rectangle as a notch: both are to be the same.
void expectCutAsNotched(KrObject& cut, KrObject& notched, const Polygon& corners, AcGePoint2d side) {
  const AcGePoint2d &low = corners.points[0], &high = corners.points[2];
  KrObjectArray<KrVector> elements = drawnRectangle(low.x, low.y, high.x, high.y);
  AcGePoint3d at(side.x, side.y, 0);
  ASSERT_EQ(cut.Corte(elements, at), Acad::eOk);
  ASSERT_EQ(notch(notched, corners, side), Acad::eOk);
  EXPECT_EQ(elements.length(), 8) << "they stay as they were";
  EXPECT_EQ(elements[0].type(), KR_VT_LINHA_OCULTA);
  EXPECT_TRUE(sameList(elementsOf(cut), elementsOf(notched), 0));
  ASSERT_EQ(shown(cut).length(), 1);
  EXPECT_TRUE(shown(cut)[0] == shown(notched)[0]);
  EXPECT_EQ(cut.numCortes(), 0) << "it is a notch";
}

TEST(DrawnPolygon, IsANotchOfItsLinesAndArcs) {
  TestMember cut, notched;
  makeBar(cut);
  makeBar(notched);
  expectCutAsNotched(cut, notched, cope(), kInCope);
  EXPECT_TRUE(holdsLine(cut, 900, 20, 1000, 20));
  EXPECT_TRUE(holdsLine(cut, 900, 20, 900, 50));
}

TEST(DrawnPolygon, NotchesAPlateToo) {
  // Seen from the right a plate reaches from its axis upwards, by its width.
  const auto plate = [] { return std::make_unique<KrChapa>(AcGePoint3d(0, 0, 0), Direita, 300, 10, 1000, 0, 0); };
  const auto cut = plate(), notched = plate();
  expectCutAsNotched(*cut, *notched, rectangle(900, 270, 1010, 310), AcGePoint2d(950, 290));
  EXPECT_TRUE(holdsLine(*cut, 900, 270, 1000, 270));
  EXPECT_TRUE(holdsLine(*cut, 900, 270, 900, 300));
}

TEST(DrawnPolygon, ThatIsRefusedLeavesTheMemberAndTellsNothing) {
  TestMember bar;
  makeBar(bar);
  const auto before = elementsOf(bar);
  KrObjectArray<KrVector> window = drawnRectangle(400, -10, 600, 10);
  AcGePoint3d inside(500, 0, 0);
  EXPECT_EQ(bar.Corte(window, inside), Acad::eOk) << "whatever becomes of it";
  EXPECT_TRUE(sameList(elementsOf(bar), before, 0));
  EXPECT_EQ(shown(bar).length(), 0);
}

// --- Pictures over pictures ------------------------------------------------------------------------------------------

TEST(VisualNotch, DrawsNoEdgeInAWindowThatIsOpenAlready) {
  TestMember bar;
  makeBar(bar);
  AcGePoint2d side(500, 0);
  const Polygon window = rectangle(400, -20, 600, 20);
  ASSERT_EQ(bar.RecorteVisual(window.points, window.bulges, side, 0, nullptr), Acad::eOk);
  side.set(600, 0);
  const Polygon second = rectangle(500, -10, 700, 10);
  ASSERT_EQ(bar.RecorteVisual(second.points, second.bulges, side, 0, nullptr), Acad::eOk);
  EXPECT_TRUE(holdsLine(bar, 600, -10, 700, -10));
  EXPECT_TRUE(holdsLine(bar, 600, 10, 600, 20));
  for (const KrVector& v : elementsOf(bar)) {
    const bool inOpening =
        v.tipo() == KR_VF_ARESTA && std::fabs(v.midPoint().y) < 9.9 && v.midPoint().x > 401 && v.midPoint().x < 699;
    EXPECT_FALSE(inOpening) << v.midPoint().x << ' ' << v.midPoint().y;
  }
  EXPECT_FALSE(isSteel(bar, 550, 0));
  EXPECT_FALSE(isSteel(bar, 650, 5));
  EXPECT_TRUE(isSteel(bar, 650, 15));
}

// --- The other views -------------------------------------------------------------------------------------------------

/// A closed polygon with arcs at the upper edge of the bar, away from its ends.
Polygon randomNotch(std::mt19937& random, double length, double half) {
  const auto real = [&](double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); };
  const double x = real(0.2, 0.7) * length;
  const double deep = real(-0.5, 0.7) * half;
  Polygon polygon;
  polygon.add(x, half + 10).add(x + real(0, 20), deep, real(-0.6, 0.6));
  polygon.add(x + real(60, 90), deep + real(-8, 8), real(0, 1) < 0.5 ? 0.0 : real(-0.3, 0.3));
  polygon.add(x + real(100, 130), half + 10);
  return polygon.close();
}

TEST(NotchInSpace, LiesWhereTheGeometrySaysInEveryViewThatShowsIt) {
  std::mt19937 random(3);
  const auto real = [&](double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); };
  int judged = 0;
  for (int round = 0; round < 200; ++round) {
    const KrVistas made = kElevations[round % 4];
    const int quarter = (round / 4) % 4;
    TestMember bar;
    bar.setAngleSecao(quarter * kPi / 2);
    makeBar(bar, made, 1000, real(0, 6), AcGePoint3d(real(-500, 500), real(-500, 500), 0));
    // A notch drawn in the bar's own frame, taken to where the bar lies.
    AcGePoint3d a, b;
    ASSERT_EQ(bar.GetPointsOfEixo(a, b, 1), Acad::eOk);
    const double half = bar.height() / 2;
    const AcGeVector3d along = (b - a).normal();
    const AcGeVector3d across(-along.y, along.x, 0);
    Polygon polygon = randomNotch(random, 1000, half);
    const auto place = [&](double x, double y) {
      const AcGePoint3d p = a + along * x + across * y;
      return AcGePoint2d(p.x, p.y);
    };
    const double middle = polygon.points[0].x + 0.5 * (polygon.points[3].x - polygon.points[0].x);
    for (AcGePoint2d& p : polygon.points) p = place(p.x, p.y);
    const auto before = elementsOf(bar);
    if (notch(bar, polygon, place(middle, half + 5)) != Acad::eOk) continue;
    ++judged;

    // Places in the steel, spread over its section and its length: lines of sight that the notch clears.
    std::vector<AcGePoint3d> places;
    std::vector<bool> steel;
    AcGeMatrix3d frame;
    ASSERT_EQ(bar.secaoToVistaXForm(frame), Acad::eOk);
    for (int k = 0; k < 60; ++k) {
      places.emplace_back(real(-49, 49), real(-29, 29), -real(1, 999));
      const AcGePoint3d p = frame * places.back();
      steel.push_back(isSteel(bar, p.x, p.y));
    }
    const KrVistas real1 = bar.GetVistaReal();
    for (const KrVistas other : kElevations) {
      bar.setVista(other);
      bar.Gera_KrVector();
      ASSERT_EQ(bar.secaoToVistaXForm(frame), Acad::eOk);
      const KrVistas real2 = bar.GetVistaReal();
      const bool shows = (real1 <= 2) == (real2 <= 2);
      EXPECT_TRUE(shows || tagged(bar, KR_VTX_RECORTE).empty());
      for (std::size_t k = 0; k < places.size(); ++k) {
        const AcGePoint3d p = frame * places[k];
        EXPECT_EQ(isSteel(bar, p.x, p.y), shows ? steel[k] : true)
            << "round " << round << ": made in " << made << " quarter " << quarter << ", seen in " << other;
      }
      if (HasFailure()) return;
    }
  }
  EXPECT_GT(judged, 150);
}

TEST(NotchInSpace, IsStoredEqualAtEveryScaleAndPlace) {
  std::mt19937 random(4);
  const auto real = [&](double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); };
  for (int round = 0; round < 40; ++round) {
    const KrVistas view = kElevations[round % 4];
    const double angle = real(0, 6);
    const AcGePoint3d start(real(-500, 500), real(-500, 500), 0);
    TestMember whole, small;
    makeBar(whole, view, 1000, angle, start);
    makeBar(small, view, 1000, angle, start);
    const double half = whole.height() / 2;
    small.ObjectScale(0.1, 0.1, 0.1);
    Polygon polygon = randomNotch(random, 1000, half);
    AcGePoint2d side(0.5 * (polygon.points[0].x + polygon.points[3].x), half + 5);
    const auto placed = [&](const KrObject& member, double scale) {
      AcGePoint3d a, b;
      member.GetPointsOfEixo(a, b, 1);
      const AcGeVector3d along = (b - a).normal();
      return [=](const AcGePoint2d& p) {
        const AcGePoint3d q = a + along * (p.x * scale) + AcGeVector3d(-along.y, along.x, 0) * (p.y * scale);
        return AcGePoint2d(q.x, q.y);
      };
    };
    const auto make = [&](TestMember& member, double scale) {
      const auto place = placed(member, scale);
      Polygon there = polygon;
      for (AcGePoint2d& p : there.points) p = place(p);
      return notch(member, there, place(side));
    };
    ASSERT_EQ(make(whole, 1), Acad::eOk);
    ASSERT_EQ(make(small, 0.1), Acad::eOk);
    small.ObjectScale(1, 1, 1);
    const KrObjectRecorteArray a = shown(whole), b = shown(small);
    ASSERT_EQ(a.length(), 1);
    ASSERT_EQ(b.length(), 1);
    AcGeTol loose;
    loose.setEqualPoint(1e-6);
    for (int k = 0; k < a[0].points().length(); ++k) {
      EXPECT_TRUE(a[0].points()[k].isEqualTo(b[0].points()[k], loose)) << round;
      EXPECT_EQ(a[0].bulges()[k], b[0].bulges()[k]);
    }
    EXPECT_TRUE(a[0].lado().isEqualTo(b[0].lado(), loose));
  }
}

TEST(NotchInSpace, RegeneratesTheSameAtScale) {
  TestMember bar;
  makeBar(bar, Inferior, 1000, 0.4, AcGePoint3d(30, 40, 0));
  bar.ObjectScale(0.1, 0.1, 0.1);
  AcGePoint3d a, b;
  bar.GetPointsOfEixo(a, b, 1);
  const AcGeVector3d along = (b - a).normal();
  const auto place = [&](double x, double y) {
    const AcGePoint3d q = a + along * x + AcGeVector3d(-along.y, along.x, 0) * y;
    return AcGePoint2d(q.x, q.y);
  };
  Polygon polygon = rectangle(30, 2, 40, 6);
  for (AcGePoint2d& p : polygon.points) p = place(p.x, p.y);
  ASSERT_EQ(notch(bar, polygon, place(35, 4)), Acad::eOk);
  bar.Gera_KrVector();
  const auto once = elementsOf(bar);
  ASSERT_EQ(tagged(bar, KR_VTX_RECORTE).size(), 3u);
  const AcGePoint2d inNotch = place(35, 4), below = place(35, 1);
  EXPECT_FALSE(isSteel(bar, inNotch.x, inNotch.y));
  EXPECT_TRUE(isSteel(bar, below.x, below.y));
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), once));
}

TEST(NotchInSpace, NothingInAClosedNotchRemainsDrawn) {
  std::mt19937 random(6);
  for (int round = 0; round < 300; ++round) {
    TestMember bar;
    makeBar(bar, kElevations[round % 4]);
    const double half = bar.height() / 2;
    const Polygon polygon = randomNotch(random, 1000, half);
    AcGePoint2d side(0.5 * (polygon.points[0].x + polygon.points[3].x), half + 5);
    // The polygon by fine chords, and the winding about a point: no crossings, no clipper.
    std::vector<AcGePoint2d> ring;
    for (int i = 0; i + 1 < polygon.points.length(); ++i) {
      const AcGeCircArc2d curve(polygon.points[i], polygon.points[i + 1], polygon.bulges[i]);
      for (int k = 0; k < 100; ++k)
        ring.push_back(polygon.bulges[i] != 0
                           ? curve.evalPoint(curve.endAng() * k / 100)
                           : polygon.points[i] + (polygon.points[i + 1] - polygon.points[i]) * (k / 100.0));
    }
    const auto winding = [&](const AcGePoint2d& p, double& nearest) {
      double turned = 0;
      nearest = HUGE_VAL;
      for (std::size_t k = 0; k < ring.size(); ++k) {
        const AcGeVector2d u = ring[k] - p, v = ring[(k + 1) % ring.size()] - p;
        turned += std::atan2(u.crossProduct(v), u.dotProduct(v));
        nearest = std::min(nearest, AcGeLineSeg2d(ring[k], ring[(k + 1) % ring.size()]).distanceTo(p));
      }
      return std::lround(turned / (2 * kPi));
    };
    double nearest = 0;
    const bool sideInside = winding(side, nearest) % 2 != 0;
    ASSERT_EQ(bar.RecorteVisual(polygon.points, polygon.bulges, side, 0, nullptr), Acad::eOk);
    for (const KrVector& v : elementsOf(bar)) {
      if (v.type() == KR_VT_EIXO || v.type() == KR_VT_REFERENCIA) continue;
      const AcGePoint2d a(v.startPoint().x, v.startPoint().y), m(v.midPoint().x, v.midPoint().y),
          b(v.endPoint().x, v.endPoint().y);
      for (int k = 1; k < 20; ++k) {
        AcGePoint2d p = a + (b - a) * (k / 20.0);
        if (v.type() == KR_VT_ARCO) {
          const AcGeCircArc2d curve(a, m, b);
          p = curve.evalPoint(curve.endAng() * k / 20);
        }
        const bool inside = winding(p, nearest) % 2 != 0;
        EXPECT_TRUE(nearest < 0.2 || inside != sideInside) << round << ": " << p.x << ' ' << p.y;
      }
    }
    if (HasFailure()) return;
  }
}

// --- Notches at the ends ---------------------------------------------------------------------------------------------

TEST(EndNotch, PullsTheReferenceLineWithIt) {
  for (const KrVistas view : kElevations) {
    for (const bool atEnd : {false, true}) {
      TestMember bar;
      makeBar(bar, view);
      const double half = bar.height() / 2;
      const Polygon off = atEnd ? rectangle(900, -half - 9, 1100, half + 9) : rectangle(-100, -half - 9, 100, half + 9);
      ASSERT_EQ(notch(bar, off, AcGePoint2d(atEnd ? 950 : 50, 0)), Acad::eOk) << view;
      AcGePoint3d a, b;
      bar.GetPointsOfEixo(a, b, 1);
      EXPECT_NEAR(a.x, atEnd ? 0 : 100, 1e-9) << view;
      EXPECT_NEAR(b.x, atEnd ? 900 : 1000, 1e-9) << view;
      EXPECT_NEAR(bar.getComprimentoReal(), 900, 1e-9);
      // The record shifted with the origin of the bar, and so lies where it was drawn.
      const KrObjectRecorteArray stored = shown(bar);
      ASSERT_EQ(stored.length(), 1);
      EXPECT_TRUE(stored[0].points()[0].isEqualTo(off.points[0], AcGeTol(AcGeContext::gTol))) << view;
      bar.Gera_KrVector();
      const auto once = elementsOf(bar);
      bar.GetPointsOfEixo(a, b, 1);
      EXPECT_NEAR(a.x, atEnd ? 0 : 100, 1e-9) << view;
      EXPECT_NEAR(b.x, atEnd ? 900 : 1000, 1e-9) << view;
      EXPECT_NEAR(bar.getComprimentoReal(), 900, 1e-9);
      bar.Gera_KrVector();
      EXPECT_TRUE(sameList(elementsOf(bar), once)) << view;
    }
  }
}

/// A slot in an end of the bar, across its axis: a polygon open towards that end.
void addSlot(TestMember& bar, bool atEnd) {
  AcGePoint3d a, b;
  bar.GetPointsOfEixo(a, b, 1);
  const double end = atEnd ? b.x : a.x, bottom = atEnd ? end - 50 : end + 50;
  const Polygon slot = Polygon().add(end, a.y - 10).add(bottom, a.y - 10).add(bottom, a.y + 10).add(end, a.y + 10);
  ASSERT_EQ(notch(bar, slot, AcGePoint2d((end + bottom) / 2, a.y)), Acad::eOk);
}

TEST(EndNotch, IsCountedToTheDrawnEndThatItTakesOff) {
  for (const KrVistas view : kElevations) {
    TestMember bar;
    makeBar(bar, view);
    addSlot(bar, false);
    addSlot(bar, true);
    ASSERT_EQ(notch(bar, rectangle(500, 20, 600, 90), AcGePoint2d(550, 40)), Acad::eOk);
    AcArray<int> atEnd[2], atStart[2];
    bar.getRecortesExtremidade(0, atEnd);
    bar.getRecortesExtremidade(1, atStart);
    const int array = view <= Inferior ? 1 : 0;
    ASSERT_EQ(atEnd[array].length(), 1) << view;
    EXPECT_EQ(atEnd[array][0], 1) << view;
    ASSERT_EQ(atStart[array].length(), 1) << view;
    EXPECT_EQ(atStart[array][0], 0) << view;
    EXPECT_EQ(atEnd[1 - array].length() + atStart[1 - array].length(), 0);
  }
  TestMember section;
  makeBar(section, Secao);
  AcArray<int> none[2];
  section.getRecortesExtremidade(0, none);
  EXPECT_EQ(none[0].length() + none[1].length(), 0);
}

TEST(EndNotch, OfAClosedPolygonBelongsToNoEnd) {
  // Beyond its outermost crossing with the axis lies its outside, whatever end it takes off.
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, rectangle(950, -10, 1010, 10), AcGePoint2d(970, 0)), Acad::eOk);
  AcArray<int> found[2];
  bar.getRecortesExtremidade(0, found);
  bar.getRecortesExtremidade(1, found);
  EXPECT_EQ(found[0].length() + found[1].length(), 0);
}

TEST(EndNotch, OfOneEndIsRemoved) {
  TestMember bar;
  makeBar(bar);
  const auto whole = elementsOf(bar);
  addSlot(bar, false);
  addSlot(bar, true);
  bar.RemoveRecortes(1, 1);
  ASSERT_EQ(shown(bar).length(), 1);
  EXPECT_TRUE(shown(bar)[0].lado().isEqualTo({975, 0}));
  EXPECT_TRUE(holdsLine(bar, 0, -50, 0, 50));
  bar.RemoveRecortes(0, 0);
  EXPECT_EQ(shown(bar).length(), 0);
  EXPECT_FALSE(holdsLine(bar, 1000, -50, 1000, 50)) << "not regenerated";
  bar.Gera_KrVector();
  EXPECT_TRUE(sameList(elementsOf(bar), whole));
}

// --- The lists -------------------------------------------------------------------------------------------------------

TEST(NotchList, ACopiedNotchThatCutsTheBarInTwoIsAppliedAllTheSame) {
  TestMember bar;
  makeBar(bar);
  KrObjectRecorteArray list;
  const Polygon through = rectangle(400, -60, 600, 60);
  list.append(KrObjectRecorte(through.points, through.bulges, AcGePoint2d(500, 0)));
  ASSERT_EQ(bar.addRecortesWCS(list), Acad::eOk);
  EXPECT_TRUE(tagged(bar, KR_VTX_RECORTE).empty()) << "nothing is regenerated";
  bar.Gera_KrVector();
  EXPECT_TRUE(holdsLine(bar, 400, -50, 400, 50));
  EXPECT_TRUE(holdsLine(bar, 600, -50, 600, 50));
  AcArray<void*> contours;
  EXPECT_EQ(bar.Contornos(contours), 1);
  EXPECT_EQ(contours.length(), 2);
  for (void* c : contours) delete static_cast<KrObjectArray<KrVector>*>(c);
}

TEST(NotchList, GoesFromTheViewToTheBarAndBack) {
  for (const KrVistas view : kElevations) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      TestMember bar;
      bar.setAngleSecao(quarter * kPi / 2);
      makeBar(bar, view, 1000, 0.7, AcGePoint3d(100, -50, 0));
      bar.ObjectScale(0.1, 0.1, 0.1);
      KrObjectRecorteArray list;
      const Polygon polygon = Polygon().add(10, 20, 0.3).add(40, 20, -0.2).add(30, 50).close();
      list.append(KrObjectRecorte(polygon.points, polygon.bulges, AcGePoint2d(25, 25)));
      ASSERT_EQ(bar.addRecortesWCS(list), Acad::eOk);
      const KrObjectRecorteArray back = shown(bar);
      ASSERT_EQ(back.length(), 1);
      for (int k = 0; k < polygon.points.length(); ++k) {
        EXPECT_NEAR(back[0].points()[k].distanceTo(polygon.points[k]), 0, 1e-9) << view << ' ' << quarter;
        EXPECT_EQ(back[0].bulges()[k], polygon.bulges[k]);
      }
      EXPECT_NEAR(back[0].lado().distanceTo(AcGePoint2d(25, 25)), 0, 1e-9);
    }
  }
  TestMember section;
  makeBar(section, Secao);
  KrObjectRecorteArray list;
  EXPECT_EQ(section.addRecortesWCS(list), Acad::eNotApplicable);
  EXPECT_EQ(section.getRecortesWCS(list), Acad::eNotApplicable);
}

TEST(NotchList, MovesByTheVectorTakenThroughTheFrameItselfAndNotItsInverse) {
  // On a bar at 30 degrees, a vector of 10 along it is turned by 30 more, and moves the notch by 10 cos 60.
  TestMember bar;
  makeBar(bar, Superior, 1000, kPi / 6);
  const auto place = [](double x, double y) {
    return AcGePoint2d(x * std::cos(kPi / 6) - y * std::sin(kPi / 6), x * std::sin(kPi / 6) + y * std::cos(kPi / 6));
  };
  Polygon polygon = rectangle(500, 20, 600, 90);
  for (AcGePoint2d& p : polygon.points) p = place(p.x, p.y);
  ASSERT_EQ(notch(bar, polygon, place(550, 40)), Acad::eOk);
  AcArray<int> which[2];
  which[1].append(0);
  const AcGePoint2d v = place(10, 0);
  ASSERT_EQ(bar.moveRecortesVista(AcGeVector3d(v.x, v.y, 0), which), Acad::eOk);
  EXPECT_NEAR(shown(bar)[0].lado().distanceTo(place(555, 40)), 0, 1e-9);
}

TEST(NotchList, MovesAlongTheBarOnly) {
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, rectangle(500, 20, 600, 90), AcGePoint2d(550, 40)), Acad::eOk);
  bar.ObjectScale(0.1, 0.1, 0.1);
  AcArray<int> which[2];
  which[1].append(0);
  which[0].append(0);
  ASSERT_EQ(bar.moveRecortesVista(AcGeVector3d(3, 7, 0), which), Acad::eOk);
  bar.ObjectScale(1, 1, 1);
  EXPECT_TRUE(shown(bar)[0].lado().isEqualTo({580, 40})) << "3 drawn at 1:10 are 30";
  TestMember section;
  makeBar(section, Secao);
  EXPECT_NE(section.moveRecortesVista(AcGeVector3d(3, 7, 0), which), Acad::eOk);
}

TEST(NotchList, IsFoundByTheRealView) {
  // A section turned by a quarter: the view from above shows what the section has at its side.
  TestMember bar;
  bar.setAngleSecao(kPi / 2);
  makeBar(bar, Superior);
  AcGeMatrix2d m;
  int array = -1, mirrored = -1;
  ASSERT_EQ(bar.recorteXForm(m, array, mirrored), Acad::eOk);
  EXPECT_EQ(array, bar.GetVistaReal() <= Inferior ? 1 : 0);
  EXPECT_EQ(array, 0);
  TestMember section;
  makeBar(section, Secao);
  EXPECT_EQ(section.recorteXForm(m, array, mirrored), Acad::eNotImplementedYet);
  EXPECT_EQ(section.AplicaRecorte(0), Acad::eNotApplicable);
  EXPECT_EQ(section.AplicaRecortes(), Acad::eNotApplicable);
}

TEST(NotchList, HasNoSingleNotchesInASection) {
  TestMember bar;
  makeBar(bar);
  ASSERT_EQ(notch(bar, cope(), kInCope), Acad::eOk);
  bar.setVista(Secao);
  bar.Gera_KrVector();
  EXPECT_EQ(bar.accessCDataToMod(ModRecorte, 0), nullptr);
  bar.RemoveMods(ModRecorte, 0);
  bar.setVista(Superior);
  EXPECT_EQ(shown(bar).length(), 1) << "an index names nothing in a section";
  bar.setVista(Secao);
  bar.RemoveMods(ModRecorte, -1);
  bar.setVista(Superior);
  EXPECT_EQ(shown(bar).length(), 0);
}

// --- Linked members --------------------------------------------------------------------------------------------------

class LinkedNotch : public testing::Test {
 protected:
  /// One bar in all four elevations and a section, linked to each other.
  void SetUp() override {
    for (const KrVistas view : {Superior, Inferior, Esquerda, Direita, Secao}) {
      auto* bar = new TestMember;
      makeBar(*bar, view, 1000, 0, AcGePoint3d(0, 300.0 * static_cast<int>(view), 0));
      ids_.push_back(drawing_.append(bar));
    }
    for (const AcDbObjectId& id : ids_) {
      AcDbObjectIdArray others;
      for (const AcDbObjectId& other : ids_)
        if (other != id) others.append(other);
      open(id, [&](TestMember& bar) { bar.setRelativeObj(&others); });
    }
  }

  /// Gives the bar in the view from above a cope.
  void notchFirst() {
    open(ids_[0], [](TestMember& bar) {
      AcGePoint3d a, b;
      bar.GetPointsOfEixo(a, b, 1);
      Polygon polygon = cope();
      for (AcGePoint2d& p : polygon.points) p += AcGeVector2d(a.x, a.y);
      ASSERT_EQ(notch(bar, polygon, kInCope + AcGeVector2d(a.x, a.y)), Acad::eOk);
    });
  }

  template <class Use>
  static void open(const AcDbObjectId& id, Use use) {
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForWrite), Acad::eOk);
    use(static_cast<TestMember&>(*object));
    object->close();
  }

  Drawing drawing_;
  std::vector<AcDbObjectId> ids_;
};

TEST_F(LinkedNotch, ShowsInTheViewOfTheSamePairAndIsStoredInAll) {
  notchFirst();
  for (std::size_t k = 1; k < 4; ++k) {
    open(ids_[k], [&](TestMember& bar) {
      EXPECT_EQ(tagged(bar, KR_VTX_RECORTE).size(), k == 1 ? 2u : 0u) << k;
      const auto once = elementsOf(bar);
      bar.Gera_KrVector();
      EXPECT_TRUE(sameList(elementsOf(bar), once)) << k;
      bar.RemoveMods(ModFuro, -1);
    });
  }
  open(ids_[2], [](TestMember& bar) {
    bar.setVista(Superior);
    bar.Gera_KrVector();
    EXPECT_EQ(shown(bar).length(), 1);
    EXPECT_EQ(tagged(bar, KR_VTX_RECORTE).size(), 2u);
  });
  open(ids_[4], [](TestMember& bar) { EXPECT_NEAR(bar.getComprimentoReal(), 1000, 1e-9); });
}

TEST_F(LinkedNotch, IsStoredInALinkedSection) {
  notchFirst();
  open(ids_[4], [](TestMember& bar) {
    bar.setVista(Superior);
    bar.Gera_KrVector();
    EXPECT_EQ(shown(bar).length(), 1);
  });
}

TEST_F(LinkedNotch, SkipsAMemberThatDoesntOpen) {
  AcDbObject* held = nullptr;
  ASSERT_EQ(acdbOpenAcDbObject(held, ids_[1], AcDb::kForRead), Acad::eOk);
  notchFirst();
  held->close();
  open(ids_[1], [](TestMember& bar) {
    EXPECT_EQ(shown(bar).length(), 0);
    EXPECT_TRUE(tagged(bar, KR_VTX_RECORTE).empty());
  });
  open(ids_[0], [](TestMember& bar) { EXPECT_EQ(shown(bar).length(), 1); });
  open(ids_[2], [](TestMember& bar) {
    bar.setVista(Superior);
    bar.Gera_KrVector();
    EXPECT_EQ(shown(bar).length(), 1) << "those behind it aren't skipped";
  });
}

TEST_F(LinkedNotch, ReachesMembersOnALockedLayerAndLeavesItLocked) {
  open(ids_[1], [](TestMember& bar) { ASSERT_EQ(bar.setLayer(L"PERFIL"), Acad::eOk); });
  const AcDbObjectId layer = drawing_.layer(L"PERFIL");
  int before = 0;
  ASSERT_EQ(krLockLayer(layer, 1, before), Acad::eOk);
  notchFirst();
  const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
  ASSERT_EQ(record.openStatus(), Acad::eOk);
  EXPECT_TRUE(record->isLocked());
  const AcDbObjectPointer<KrObject> bar(ids_[1], AcDb::kForRead);
  ASSERT_EQ(bar.openStatus(), Acad::eOk);
  EXPECT_EQ(shown(*bar).length(), 1);
}

TEST_F(LinkedNotch, AtTheEndShortensThemAll) {
  open(ids_[1], [](TestMember& bar) {
    AcGePoint3d a, b;
    bar.GetPointsOfEixo(a, b, 1);
    Polygon off = rectangle(900, -60, 1100, 60);
    for (AcGePoint2d& p : off.points) p += AcGeVector2d(a.x, a.y);
    ASSERT_EQ(notch(bar, off, AcGePoint2d(950 + a.x, a.y)), Acad::eOk);
  });
  for (std::size_t k = 0; k < 4; ++k) {
    open(ids_[k], [&](TestMember& bar) {
      EXPECT_NEAR(bar.getComprimentoReal(), 900, 1e-9) << k;
      const auto before = elementsOf(bar);
      bar.Gera_KrVector();
      EXPECT_NEAR(bar.getComprimentoReal(), 900, 1e-9) << k;
      EXPECT_EQ(elementsOf(bar).size(), before.size()) << k;
      EXPECT_NEAR(bar.width(), 900, 1e-9) << k;
    });
  }
  open(ids_[4], [](TestMember& bar) { EXPECT_NEAR(bar.getComprimentoReal(), 900, 1e-9); });
}

TEST_F(LinkedNotch, OfOneEndIsRemovedInAll) {
  open(ids_[0], [](TestMember& bar) {
    addSlot(bar, true);
    addSlot(bar, false);
    bar.RemoveRecortes(0, 1);
    EXPECT_EQ(shown(bar).length(), 1);
  });
  open(ids_[1], [](TestMember& bar) {
    EXPECT_EQ(shown(bar).length(), 1);
    EXPECT_EQ(tagged(bar, KR_VTX_RECORTE).size(), 3u);
    // From below, the start of the bar is drawn at its right.
    AcGePoint3d a, b;
    bar.GetPointsOfEixo(a, b, 1);
    EXPECT_FALSE(isSteel(bar, b.x - 25, b.y));
    EXPECT_TRUE(isSteel(bar, a.x + 25, a.y));
  });
}

TEST_F(LinkedNotch, StaysWhenASplitIsRemoved) {
  notchFirst();
  open(ids_[0], [](TestMember& bar) {
    KrObjectSplit split;
    split.setZPos(500);
    bar.addSplit(split, 0);
    bar.RemoveMods(ModSplit, 0);
    EXPECT_EQ(bar.numSplits(), 0);
    EXPECT_EQ(shown(bar).length(), 1);
  });
  open(ids_[1], [](TestMember& bar) {
    EXPECT_EQ(shown(bar).length(), 1);
    EXPECT_EQ(tagged(bar, KR_VTX_RECORTE).size(), 2u);
  });
}

}  // namespace
