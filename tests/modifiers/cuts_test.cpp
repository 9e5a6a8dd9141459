// Cuts as they are made and as they trim a list. The bar is that of CutBar: numbers follow from its size.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "modifiers/CutBar.h"
#include "object/ElementLists.h"
#include "profiles/KrChapa.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// A bar whose list the test writes itself.
class ListBar : public CutBar {
 public:
  ListBar() { ClearVertexes(Superior); }
  void add(AcGePoint3d a, AcGePoint3d b, KrVectorType type = KR_VT_LINHA, KrVectorFlag flag = KR_VF_ARESTA) {
    KrVector v(a, b, type);
    v.setTipo(flag);
    AddVertex(v, Superior);
  }
  /// Cuts at x with a segment of the given half height, throwing away what lies to the right.
  Acad::ErrorStatus trimAt(double x, double reach = 100, int indice = 0) {
    AcGePoint3d p1(x, -reach, 0);
    AcGePoint3d p2(x, reach, 0);
    AcGePoint3d side(x + 100, 0, 0);
    return CorteVista(p1, p2, side, Superior, 0, 0, indice);
  }
};

/// Tells along which segment a stored cut is applied.
class WatchedBar : public CutBar {
 public:
  using CutBar::CutBar;
  using KrObject::CorteVista;
  Acad::ErrorStatus CorteVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista, int reservado,
                               int cortaEixo, int indice) override {
    segment[0] = p1;
    segment[1] = p2;
    trimmedAxis = cortaEixo;
    return CutBar::CorteVista(p1, p2, lado, vista, reservado, cortaEixo, indice);
  }
  AcGePoint3d segment[2];
  int trimmedAxis = -1;
};

// --- Without a reference line ---------------------------------------------------------------------------------------

// A member of an early file may have edges and no outline, and then no frame to store a cut in.
TEST(Cut, OfAMemberWithoutAReferenceLineIsRefused) {
  ListBar bar;
  bar.add({0, -50, 0}, {1000, -50, 0});
  bar.add({1000, -50, 0}, {1000, 50, 0});
  bar.add({1000, 50, 0}, {0, 50, 0});
  bar.add({0, 50, 0}, {0, -50, 0});
  EXPECT_EQ(bar.cutAt(700, 800), Acad::eNotApplicable);
  EXPECT_EQ(bar.numCortes(), 0);
  EXPECT_EQ(bar.GetNumVertex(Superior), 4);
  EXPECT_DOUBLE_EQ(bar.right(), 1000);

  KrPlanoCorte cuts;
  cuts.Add(AcGePlane(AcGePoint3d(0, 0, -300), AcGeVector3d::kZAxis), {0, 0, -900});
  ASSERT_EQ(bar.addCortes(cuts, 0), Acad::eOk);
  EXPECT_EQ(bar.cutAt(700, 800), Acad::eNotApplicable) << "nor is an older cut taken for it";
  EXPECT_EQ(bar.numCortes(), 1);
  EXPECT_EQ(bar.GetNumVertex(Superior), 4);
  EXPECT_TRUE(bar.cutEdges().empty());
}

// --- The interactive cut ---------------------------------------------------------------------------------------------

TEST(Cut, SquareAtTheEndTrimsTheBarThereAndClosesIt) {
  CutBar bar;
  ASSERT_EQ(bar.cutAt(700, 800), Acad::eOk);
  EXPECT_EQ(bar.numCortes(), 1);
  EXPECT_DOUBLE_EQ(bar.left(), 0);
  EXPECT_DOUBLE_EQ(bar.right(), 700);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  const KrVector edge = bar.cutEdges()[0];
  EXPECT_TRUE(joins(edge, {700, -50, 0}, {700, 50, 0}));
  EXPECT_EQ(edge.type(), KR_VT_LINHA);
  EXPECT_EQ(edge.tipo(), KR_VF_ARESTA);
  EXPECT_EQ(edge.IndexFur(), 0);
  EXPECT_TRUE(joins(bar.line(KR_VT_REFERENCIA), {0, 0, 0}, {700, 0, 0}));
  EXPECT_DOUBLE_EQ(bar.storedLength(), 700);
  // Four sides still: two long ones, the old start and the new edge.
  EXPECT_EQ(bar.of(KR_VT_LINHA).size(), 4U);
}

TEST(Cut, LeavesTheAxisLineUnlessAskedToTrimIt) {
  CutBar kept;
  kept.cutAt(700, 800);
  EXPECT_TRUE(joins(kept.line(KR_VT_EIXO), {0, 0, 0}, {1000, 0, 0}));
  EXPECT_EQ(kept.endPoint(), AcGePoint3d(1000, 0, 0));

  CutBar trimmed;
  trimmed.cutAt(700, 800, 1);
  EXPECT_TRUE(joins(trimmed.line(KR_VT_EIXO), {0, 0, 0}, {700, 0, 0}));
  EXPECT_EQ(trimmed.endPoint(), AcGePoint3d(700, 0, 0)) << "the end point follows the axis line";
  trimmed.cutAt(200, 100, 1);
  EXPECT_TRUE(joins(trimmed.line(KR_VT_EIXO), {200, 0, 0}, {700, 0, 0}));
  EXPECT_EQ(trimmed.startPoint(), AcGePoint3d(200, 0, 0));
}

TEST(Cut, ThroughTheEndOfTheAxisLineLeavesIt) {
  CutBar bar;
  bar.cutAt(700, 800, 1);
  AcGePoint3d p1(700, 70, 0), p2(700, -70, 0), side(800, 0, 0);
  bar.CorteVista(p1, p2, side, Superior, 0, 1);
  EXPECT_TRUE(joins(bar.line(KR_VT_EIXO), {0, 0, 0}, {700, 0, 0}));
}

TEST(Cut, AtTheStartShiftsWhatIsStoredSoThatItKeepsItsPlace) {
  CutBar bar;
  KrFuro holes;
  holes.Add({0, -20, 500}, {0, 20, 500}, 22, 0, 0);
  bar.setFurosSemLink(holes);
  bar.Gera_KrVector();
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 1U);
  const AcGePoint3d drawn = bar.of(KR_VT_FURO)[0].midPoint();
  ASSERT_EQ(bar.cutAt(200, 100), Acad::eOk);
  EXPECT_DOUBLE_EQ(bar.left(), 200);
  EXPECT_TRUE(joins(bar.line(KR_VT_REFERENCIA), {200, 0, 0}, {1000, 0, 0}));
  EXPECT_DOUBLE_EQ(bar.storedLength(), 800);
  bar.Furos(holes, 0);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 300) << "counted from the new start";
  // Made at 200 from the old start, the plane stands at 0 from the new one.
  EXPECT_NEAR(bar.stored().GetPlane(0).distanceTo({0, 0, 0}), 0, 1e-9);
  bar.Gera_KrVector();
  EXPECT_TRUE(bar.of(KR_VT_FURO)[0].midPoint().isEqualTo(drawn));
  EXPECT_NEAR(bar.left(), 200, 1e-9);
}

TEST(Cut, InViewTwoTheLeftEndIsTheBarsEnd) {
  CutBar bar(Inferior);
  KrFuro holes;
  holes.Add({0, -20, 500}, {0, 20, 500}, 22, 0, 0);
  bar.setFurosSemLink(holes);
  ASSERT_EQ(bar.cutAt(200, 100), Acad::eOk);
  bar.Furos(holes, 0);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 500) << "the bar's start is at the right";
  ASSERT_EQ(bar.cutAt(900, 950), Acad::eOk);
  bar.Furos(holes, 0);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 400);
}

TEST(Cut, MitreMeetsBothLongEdgesAndReachesToItsTip) {
  CutBar bar;
  // x = 850 + y.
  ASSERT_EQ(bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0}), Acad::eOk);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {800, -50, 0}, {900, 50, 0}));
  EXPECT_DOUBLE_EQ(bar.right(), 900);
  EXPECT_TRUE(joins(bar.line(KR_VT_REFERENCIA), {0, 0, 0}, {900, 0, 0})) << "as far as the steel reaches";
  EXPECT_NEAR(bar.storedLength(), 900, 1e-9);
}

TEST(Cut, ALaterCutWorksOnWhatAnEarlierOneLeft) {
  CutBar bar;
  bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  bar.cut({850, 0, 0}, {860, -10, 0}, {900, 0, 0});
  // The two mitres meet at (850, 0).
  ASSERT_EQ(bar.cutEdges().size(), 2U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {800, -50, 0}, {850, 0, 0}));
  EXPECT_EQ(bar.cutEdges()[0].IndexFur(), 0);
  EXPECT_TRUE(joins(bar.cutEdges()[1], {800, 50, 0}, {850, 0, 0}));
  EXPECT_EQ(bar.cutEdges()[1].IndexFur(), 1);
  EXPECT_NEAR(bar.storedLength(), 850, 1e-9);
}

TEST(Cut, TakesALineEntity) {
  CutBar bar;
  AcGePoint3d side(800, 0, 0);
  ASSERT_EQ(bar.Corte(AcGeLine3d(AcGePoint3d(700, 3, 0), AcGeVector3d(0, 5, 0)), side, 0, 0), Acad::eOk);
  EXPECT_DOUBLE_EQ(bar.right(), 700);
}

TEST(Cut, IsRefusedWhereItMakesNoSense) {
  CutBar bar;
  const auto refused = [&](AcGePoint3d p1, AcGePoint3d p2, AcGePoint3d side) {
    const Acad::ErrorStatus es = bar.cut(p1, p2, side);
    return es == Acad::eNotApplicable && bar.numCortes() == 0 && bar.right() == 1000 && bar.left() == 0;
  };
  EXPECT_TRUE(refused({700, -50, 0}, {700, 50, 0}, {700, 80, 0})) << "side point on the line";
  EXPECT_TRUE(refused({0, 10, 0}, {1000, 10, 0}, {0, 20, 0})) << "parallel to the long edges";
  EXPECT_TRUE(refused({-10, -50, 0}, {-10, 50, 0}, {-20, 0, 0})) << "before the bar";
  EXPECT_TRUE(refused({0, -50, 0}, {0, 50, 0}, {-20, 0, 0})) << "on the bar's start";
  EXPECT_TRUE(refused({1000, -50, 0}, {1000, 50, 0}, {1020, 0, 0})) << "on the bar's end";
  EXPECT_TRUE(refused({1200, -50, 0}, {1100, 50, 0}, {1300, 0, 0})) << "past the bar";
  EXPECT_TRUE(refused({700, 0, 0}, {700, 0, 0}, {800, 0, 0})) << "no line";
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_TRUE(refused({nan, 0, 0}, {700, 50, 0}, {800, 0, 0}));
  EXPECT_TRUE(refused({700, 0, 0}, {700, inf, 0}, {800, 0, 0}));
  EXPECT_TRUE(refused({700, 0, 0}, {700, 50, 0}, {inf, 0, 0}));
}

TEST(Cut, OnlyAnElevationIsCut) {
  for (const KrObjectType type : {Objeto, Vista}) {
    for (const KrVistas view : {Secao, SecaoVerso}) {
      CutBar bar(view);
      bar.setObjectType(type);
      edhost::ConsoleCapture terminal;
      EXPECT_EQ(bar.cutAt(10, 20), Acad::eNotApplicable);
      const std::wstring said = terminal.text();
      EXPECT_EQ(said, type == Objeto ? L"\nNão é possível cortar vista." : L"");
      EXPECT_EQ(bar.numCortes(), 0);
      AcGePoint3d p1(0, -100, 0), p2(0, 100, 0), side(10, 0, 0);
      const std::size_t before = bar.elements().size();
      EXPECT_EQ(bar.CorteVista(p1, p2, side, view, 0, 0, 0), Acad::eNotApplicable);
      EXPECT_EQ(bar.elements().size(), before);
    }
  }
}

TEST(Cut, PlaneIsStoredAtRealSizeInTheSection) {
  CutBar bar(Superior, 1000, kPi / 6, {300, 200, 0});
  bar.ObjectScale(0.1, 0.1, 0.1);
  // The bar is drawn 100 long from (300, 200) at 30 degrees; the cut stands square on it at 70.
  const AcGeVector3d along(std::cos(kPi / 6), std::sin(kPi / 6), 0);
  const AcGeVector3d across(-along.y, along.x, 0);
  const AcGePoint3d p = AcGePoint3d(300, 200, 0) + along * 70;
  ASSERT_EQ(bar.cut(p, p + across, p + along), Acad::eOk);
  const KrPlanoCorte cuts = bar.stored();
  ASSERT_EQ(cuts.Qtd(), 1);
  EXPECT_NEAR(cuts.GetPlane(0).distanceTo({5, -7, -700}), 0, 1e-9) << "the bar runs towards -Z of its section";
  EXPECT_TRUE(cuts.GetPlane(0).normal().isParallelTo(AcGeVector3d::kZAxis));
  EXPECT_NEAR(cuts.GetSide(0).z, -710, 1e-9);
}

// --- Stored cuts -----------------------------------------------------------------------------------------------------

TEST(StoredCut, IsAppliedAlongASegmentThatReachesOnePastTheFirstEdgeAndTwoPastTheSecond) {
  WatchedBar bar;
  bar.cutAt(700, 800);
  const AcGePoint3d x0 = bar.segment[0];
  const AcGePoint3d x1 = bar.segment[1];
  EXPECT_TRUE(x0.isEqualTo({700, 50, 0})) << "the interactive cut ends on the edges";
  EXPECT_TRUE(x1.isEqualTo({700, -50, 0}));
  bar.AplicaCorte(0, 0, 1);
  EXPECT_TRUE(bar.segment[0].isEqualTo({700, 150, 0})) << "this asymmetry is required";
  EXPECT_TRUE(bar.segment[1].isEqualTo({700, -250, 0}));
  EXPECT_EQ(bar.trimmedAxis, 1);
  bar.Gera_KrVector();
  EXPECT_EQ(bar.trimmedAxis, 0) << "a regeneration leaves the axis line";
}

TEST(StoredCut, ARegenerationRepeatsThePicture) {
  CutBar bar;
  bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  bar.cutAt(100, 0);
  bar.cut({150, 50, 0}, {100, -10, 0}, {0, 0, 0});
  const std::vector<KrVector> before = bar.elements();
  const KrPlanoCorte planes = bar.stored();
  for (int round = 0; round < 3; ++round) {
    bar.Gera_KrVector();
    const std::vector<KrVector> after = bar.elements();
    ASSERT_EQ(after.size(), before.size());
    for (const KrVector& v : before) {
      const auto same = [&](const KrVector& w) {
        return joins(v, w.startPoint(), w.endPoint(), 1e-8) && v.type() == w.type() && v.IndexFur() == w.IndexFur();
      };
      EXPECT_TRUE(std::any_of(after.begin(), after.end(), same)) << v.startPoint().x << ' ' << v.endPoint().x;
    }
    for (int i = 0; i < planes.Qtd(); ++i)
      EXPECT_NEAR(planes.GetPlane(i).distanceTo(bar.stored().GetPlane(i).pointOnPlane()), 0, 1e-8);
  }
}

TEST(StoredCut, FollowsTheScaleWithoutAChangeOfItsPlane) {
  CutBar bar;
  bar.cut({850, 0, 0}, {860, 10, 0}, {900, 0, 0});
  const AcGePoint3d on = bar.stored().GetPlane(0).pointOnPlane();
  const AcGeVector3d normal = bar.stored().GetPlane(0).normal();
  bar.ObjectScale(0.1, 0.1, 0.1);
  for (int round = 0; round < 2; ++round) {
    AcGeLine3d trace;
    AcGePoint3d side;
    ASSERT_EQ(bar.GetLinhaCorte(trace, side, 0), 1);
    EXPECT_TRUE(trace.isOn({80, -5, 0}));
    EXPECT_TRUE(trace.isOn({90, 5, 0}));
    EXPECT_GT(side.x, 85);
    bar.Gera_KrVector();
    ASSERT_EQ(bar.cutEdges().size(), 1U);
    EXPECT_TRUE(joins(bar.cutEdges()[0], {80, -5, 0}, {90, 5, 0}, 1e-8));
  }
  EXPECT_TRUE(bar.stored().GetPlane(0).pointOnPlane().isEqualTo(on));
  EXPECT_TRUE(bar.stored().GetPlane(0).normal().isEqualTo(normal));
}

TEST(StoredCut, DoesNothingInASectionAndWithoutAView) {
  CutBar bar;
  bar.cutAt(700, 800);
  AcGeLine3d trace;
  AcGePoint3d side;
  EXPECT_EQ(bar.GetLinhaCorte(trace, side, 1), 0) << "there is no such cut";
  EXPECT_EQ(bar.GetLinhaCorte(trace, side, -1), 0);
  for (const KrVistas view : {Secao, VistaCorrente}) {
    bar.setVista(view);
    bar.ClearVertexes(view);
    bar.AplicaCortes();
    bar.AplicaCorte(0, 0, 0);
    EXPECT_EQ(bar.GetLinhaCorte(trace, side, 0), 0);
    EXPECT_EQ(bar.GetNumVertex(view), 0);
  }
}

TEST(StoredCut, APlaneAlongTheBarRipsIt) {
  CutBar bar;
  KrPlanoCorte rip;
  // Drawn Y is -X of the section: X = -10 is Y = 10, and what lies above goes.
  rip.Add(AcGePlane(AcGePoint3d(-10, 0, 0), AcGeVector3d::kXAxis), {-40, 0, 0});
  bar.addCortes(rip, 0);
  bar.Gera_KrVector();
  EXPECT_DOUBLE_EQ(bar.GetMaxY(Superior), 10);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {0, 10, 0}, {1000, 10, 0}));
  EXPECT_DOUBLE_EQ(bar.storedLength(), 1000);
}

TEST(StoredCut, OfAPlaneWithoutANormalHasNoTraceAndCutsNothing) {
  CutBar bar;
  const lists::Elements whole = lists::of(bar, Superior);
  KrPlanoCorte none;
  none.Add(AcGePlane(0, 0, 0, 7), {0, 0, -500});
  bar.addCortes(none, 0);
  bar.Gera_KrVector();
  AcGeLine3d trace;
  AcGePoint3d side;
  for (const int noTurn : {0, 1}) EXPECT_EQ(bar.GetLinhaCorte(trace, side, 0, noTurn), 0);
  EXPECT_THAT(lists::of(bar, Superior), lists::Are(whole));
}

TEST(StoredCut, ThatThrowsTheWholeBarAwayLeavesNoSteel) {
  CutBar bar;
  bar.cutAt(700, 800);
  bar.cutAt(300, 200);
  KrPlanoCorte all;
  all.Add(AcGePlane(AcGePoint3d(0, 0, 100), AcGeVector3d::kZAxis), {0, 0, 0});
  bar.addCortes(all, 0);
  bar.Gera_KrVector();
  EXPECT_TRUE(bar.of(KR_VT_LINHA).empty());
  EXPECT_EQ(bar.of(KR_VT_EIXO).size(), 1U);
}

TEST(StoredCut, TwoThatLeaveNoSteelLeaveTheLengthSoThatTheBarComesBackWithoutThem) {
  for (const double scale : {1.0, 0.1}) {
    CutBar bar;
    bar.ObjectScale(scale, scale, scale);
    // Two parallel mitres, the second before the first all along.
    const auto mitre = [&](double x, double side) {
      return bar.cut({(x - 10) * scale, -60 * scale, 0}, {(x + 10) * scale, 60 * scale, 0}, {side * scale, 0, 0});
    };
    ASSERT_EQ(mitre(300, 0), Acad::eOk);
    ASSERT_EQ(mitre(298, 900), Acad::eOk) << "neither end of the line lies past the bar";
    bar.setVisualRepEnd(0.5);
    for (int run = 0; run < 3; ++run) {
      bar.Gera_KrVector();
      EXPECT_TRUE(bar.of(KR_VT_LINHA).empty()) << "no break line either";
      // At y -50 the first mitre leaves the bar from 300 - 50 / 6.
      EXPECT_NEAR(bar.getComprimentoReal(), 1000 - (300 - 50.0 / 6), 1e-9);
      EXPECT_NEAR(bar.line(KR_VT_REFERENCIA).len(), scale * (700 + 50.0 / 6), 1e-9);
    }
    bar.RemoveCortes();
    EXPECT_EQ(bar.numCortes(), 0);
    bar.setVisualRepEnd(1);
    bar.Gera_KrVector();
    EXPECT_NEAR(bar.right(), 1000 * scale, 1e-9);
    EXPECT_NEAR(bar.left(), (300 - 50.0 / 6) * scale, 1e-9) << "where the first cut has put its start";
  }
}

// --- Trimming a list -------------------------------------------------------------------------------------------------

TEST(Trimming, ALineThroughTheEndOfAnEdgeTakesThatEndAndMovesNothing) {
  CutBar bar;
  // From the corner (1000, 50) down to (900, -50); the lower right corner goes.
  ASSERT_EQ(bar.cut({1000, 50, 0}, {900, -50, 0}, {1000, -50, 0}), Acad::eOk);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {900, -50, 0}, {1000, 50, 0}));
  const std::vector<KrVector> lines = bar.of(KR_VT_LINHA);
  EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const KrVector& v) {
    return joins(v, {0, 50, 0}, {1000, 50, 0});
  })) << "the upper edge keeps its end";
  EXPECT_EQ(lines.size(), 4U);
}

TEST(Trimming, OfThreeCrossingsTheLastMakesNoEdge) {
  ListBar bar;
  for (const double y : {30.0, -10.0, 10.0}) bar.add({0, y, 0}, {100, y, 0});
  ASSERT_EQ(bar.trimAt(60), Acad::eOk);
  ASSERT_EQ(bar.cutEdges().size(), 1U);
  EXPECT_TRUE(joins(bar.cutEdges()[0], {60, -10, 0}, {60, 10, 0}));
}

TEST(Trimming, PairsGoAlongTheCutWhateverItsDirection) {
  for (const double turn : {0.0, 0.7, 2.0, 3.5, 5.0}) {
    ListBar bar;
    const AcGeMatrix3d m = AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin);
    for (const double y : {30.0, -10.0, 40.0, 10.0}) bar.add(m * AcGePoint3d(0, y, 0), m * AcGePoint3d(100, y, 0));
    AcGePoint3d p1 = m * AcGePoint3d(60, -100, 0), p2 = m * AcGePoint3d(60, 100, 0), side = m * AcGePoint3d(90, 0, 0);
    bar.CorteVista(p1, p2, side, Superior, 0, 0, 7);
    ASSERT_EQ(bar.cutEdges().size(), 2U);
    EXPECT_TRUE(joins(bar.cutEdges()[0], m * AcGePoint3d(60, -10, 0), m * AcGePoint3d(60, 10, 0), 1e-8));
    EXPECT_TRUE(joins(bar.cutEdges()[1], m * AcGePoint3d(60, 30, 0), m * AcGePoint3d(60, 40, 0), 1e-8));
    EXPECT_EQ(bar.cutEdges()[0].IndexFur(), 7);
  }
}

TEST(Trimming, TwoEqualCrossingsMakeNoEdge) {
  ListBar bar;
  // Two edges that meet on the cut, both on the kept side.
  bar.add({0, -10, 0}, {60, 0, 0});
  bar.add({60, 0, 0}, {0, 10, 0});
  EXPECT_EQ(bar.trimAt(60), Acad::eOk);
  EXPECT_TRUE(bar.cutEdges().empty());
  EXPECT_EQ(bar.elements().size(), 2U);
}

TEST(Trimming, WithoutAnIndexTheNewEdgesAreNotTagged) {
  ListBar bar;
  bar.add({0, -10, 0}, {100, -10, 0});
  bar.add({0, 10, 0}, {100, 10, 0});
  AcGePoint3d p1(60, -100, 0), p2(60, 100, 0), side(90, 0, 0);
  ASSERT_EQ(bar.CorteVista(p1, p2, side, Superior, 0, 0), Acad::eOk);
  ASSERT_EQ(bar.elements().size(), 3U);
  EXPECT_EQ(bar.elements()[2].typeEx(), KR_VTX_NENHUM);
  EXPECT_EQ(bar.elements()[2].IndexFur(), -1);
}

TEST(Trimming, ACutThatMissesEveryElementIsStoredAllTheSame) {
  ListBar bar;
  // Two pieces with a gap from 400 to 600.
  for (const double x : {0.0, 600.0}) {
    bar.add({x, -50, 0}, {x + 400, -50, 0});
    bar.add({x, 50, 0}, {x + 400, 50, 0});
    bar.add({x, -50, 0}, {x, 50, 0});
    bar.add({x + 400, -50, 0}, {x + 400, 50, 0});
  }
  bar.add({0, 0, 0}, {1000, 0, 0}, KR_VT_EIXO, KR_VF_PADRAO);
  bar.add({0, 0, 0}, {1000, 0, 0}, KR_VT_REFERENCIA, KR_VF_PADRAO);
  ListBar other;
  for (const KrVector& v : bar.elements()) other.AddVertex(v, Superior);

  EXPECT_EQ(bar.trimAt(500), Acad::eNotApplicable);
  EXPECT_DOUBLE_EQ(bar.right(), 400) << "what lay wholly on the side is gone";
  EXPECT_TRUE(joins(bar.line(KR_VT_REFERENCIA), {0, 0, 0}, {400, 0, 0})) << "the reference line is brought up to date";
  EXPECT_EQ(bar.numCortes(), 0);

  EXPECT_EQ(other.cutAt(500, 700), Acad::eOk) << "the interactive cut has stored it already";
  EXPECT_EQ(other.numCortes(), 1);
  EXPECT_DOUBLE_EQ(other.right(), 400);
}

TEST(Trimming, AnElementThatLiesOnTheCutGoes) {
  ListBar bar;
  bar.add({60, -10, 0}, {60, 10, 0});
  bar.add({60.000009, -10, 0}, {60, 10, 0});
  bar.add({0, 0, 0}, {100, 0, 0});
  EXPECT_EQ(bar.trimAt(60), Acad::eOk);
  ASSERT_EQ(bar.elements().size(), 1U);
  EXPECT_TRUE(joins(bar.elements()[0], {0, 0, 0}, {60, 0, 0}));
}

TEST(Trimming, TheReferenceLineIsExempt) {
  ListBar bar;
  bar.add({0, 0, 0}, {100, 0, 0}, KR_VT_REFERENCIA, KR_VF_PADRAO);
  bar.add({50, 10, 0}, {50, -10, 0});
  EXPECT_EQ(bar.trimAt(60), Acad::eNotApplicable);
  EXPECT_EQ(bar.of(KR_VT_REFERENCIA).size(), 1U);
}

TEST(Trimming, HolesGoByTheirMidPointAndBandsByTheirEnds) {
  ListBar bar;
  bar.add({0, -50, 0}, {100, -50, 0});
  const auto hole = [&](double x) {
    KrVector v({x, 0, 0}, 11, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO);
    bar.AddVertex(v, Superior);
  };
  hole(50);
  hole(58);
  hole(62);
  bar.add({80, -5, 0}, {80, 5, 0}, KR_VT_FURO_LINHA, KR_VF_PADRAO);
  bar.add({40, 5, 0}, {80, 5, 0}, KR_VT_FURO_LINHA, KR_VF_PADRAO);
  bar.add({61, 0, 0}, {81, 0, 0}, KR_VT_FURO_EIXO, KR_VF_PADRAO);
  bar.add({49, 0, 0}, {69, 0, 0}, KR_VT_FURO_EIXO, KR_VF_PADRAO);
  bar.add({55, 0, 0}, {75, 0, 0}, KR_VT_FURO_EIXO, KR_VF_PADRAO);
  EXPECT_EQ(bar.trimAt(60), Acad::eOk);
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 2U) << "the circle that reaches over the cut stays whole";
  EXPECT_DOUBLE_EQ(bar.of(KR_VT_FURO)[1].midPoint().x, 58);
  ASSERT_EQ(bar.of(KR_VT_FURO_LINHA).size(), 1U);
  EXPECT_TRUE(joins(bar.of(KR_VT_FURO_LINHA)[0], {40, 5, 0}, {60, 5, 0})) << "a band that crosses is shortened";
  ASSERT_EQ(bar.of(KR_VT_FURO_EIXO).size(), 1U);
  EXPECT_TRUE(joins(bar.of(KR_VT_FURO_EIXO)[0], {49, 0, 0}, {60, 0, 0}));
  EXPECT_TRUE(bar.cutEdges().empty()) << "only the outline closes the section";
}

TEST(Trimming, ARoundHoleHasNoEndsForTheCutToMeet) {
  ListBar bar;
  // Its unused ends stand at the drawing's origin, through which the cut runs.
  KrVector hole({-500, 0, 0}, 11, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO);
  bar.AddVertex(hole, Superior);
  EXPECT_EQ(bar.trimAt(0), Acad::eNotApplicable) << "nothing crosses";
  EXPECT_EQ(bar.of(KR_VT_FURO).size(), 1U);
}

TEST(Trimming, AnArcAcrossTheCutStaysAnArcWithItsPointsInLine) {
  ListBar bar;
  KrVector arc({40, 0, 0}, {60, 20, 0}, {80, 0, 0}, KR_VT_ARCO);
  arc.setTipo(KR_VF_ARESTA);
  bar.AddVertex(arc, Superior);
  EXPECT_EQ(bar.trimAt(60), Acad::eOk);
  ASSERT_EQ(bar.of(KR_VT_ARCO).size(), 1U);
  const KrVector left = bar.of(KR_VT_ARCO)[0];
  EXPECT_TRUE(joins(left, {40, 0, 0}, {60, 0, 0}));
  EXPECT_TRUE(left.midPoint().isEqualTo({50, 0, 0})) << "the chord's mean";
}

TEST(Trimming, AHiddenArcOnTheThrownAwaySideGoesLikeAnyLine) {
  ListBar bar;
  bar.add({0, 0, 0}, {100, 0, 0});
  KrVector arc({70, 0, 0}, {75, 5, 0}, {80, 0, 0}, KR_VT_ARCO_OCULTO);
  bar.AddVertex(arc, Superior);
  bar.AddVertex(KrVector(AcGePoint3d(90, 0, 0), 5), Superior);
  EXPECT_EQ(bar.trimAt(60), Acad::eOk);
  EXPECT_EQ(bar.elements().size(), 1U) << "and so does a circle by its centre";
}

TEST(Trimming, ElementsAcrossKeepTheirTags) {
  ListBar bar;
  KrVector v({0, 0, 0}, {100, 0, 0}, KR_VT_LINHA_OCULTA);
  v.setTipo(KR_VF_PADRAO);
  v.setTypeEx(KR_VTX_RECORTE);
  v.setIndexFur(0x10003);
  v.setHidden(1);
  bar.AddVertex(v, Superior);
  bar.trimAt(60);
  const KrVector left = bar.elements().at(0);
  EXPECT_EQ(left.typeEx(), KR_VTX_RECORTE);
  EXPECT_EQ(left.IndexFur(), 0x10003);
  EXPECT_EQ(left.hidden(), 1);
  EXPECT_DOUBLE_EQ(left.len(), 60);
}

TEST(Trimming, WithoutALengthDoesNothing) {
  CutBar bar;
  AcGePoint3d p(500, 0, 0), side(600, 0, 0);
  EXPECT_EQ(bar.CorteVista(p, p, side, Superior, 0, 0, 0), Acad::eNotApplicable);
  EXPECT_DOUBLE_EQ(bar.right(), 1000);
}

TEST(Trimming, HolesOffTheBarAreDroppedAndTheOthersStillNamed) {
  CutBar bar;
  KrFuro holes;
  for (const double z : {800.0, 300.0, 900.0, 500.0}) holes.Add({0, -20, z}, {0, 20, z}, 22, 0, 0);
  bar.setFurosSemLink(holes);
  bar.Gera_KrVector();
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 4U);
  bar.cutAt(600, 700);
  EXPECT_EQ(bar.numFuros(), 2);
  const std::vector<KrVector> drawn = bar.of(KR_VT_FURO);
  ASSERT_EQ(drawn.size(), 2U);
  for (const KrVector& v : drawn) {
    EXPECT_EQ(v.IndexFur(), v.midPoint().x == 300 ? 0 : 1);
    EXPECT_TRUE(v.midPoint().x == 300 || v.midPoint().x == 500);
  }
  for (const KrVector& v : bar.of(KR_VT_FURO_EIXO)) EXPECT_LT(v.IndexFur(), 2);
}

TEST(Trimming, VisualLimitsKeepTheirPlaceWhileTheBarShortens) {
  CutBar bar;
  bar.setVisualRepStart(0.2);
  bar.setVisualRepEnd(0.3);
  bar.cutAt(500, 700);
  EXPECT_NEAR(bar.visualRepStart(), 0.4, 1e-9);
  EXPECT_NEAR(bar.visualRepEnd(), 0.6, 1e-9);
  bar.cutAt(100, 50);
  EXPECT_NEAR(bar.visualRepStart(), 0.25, 1e-9);
  EXPECT_NEAR(bar.visualRepEnd(), 0.5, 1e-9);

  CutBar close;
  close.setVisualRepEnd(0.35);
  close.setVisualRepStart(0.3);
  close.cutAt(400, 700);
  EXPECT_NEAR(close.visualRepStart(), 0.75, 1e-9) << "past the place where the other limit stood before";
  EXPECT_NEAR(close.visualRepEnd(), 0.875, 1e-9);
}

// --- Plates ----------------------------------------------------------------------------------------------------------

TEST(PlateCut, NeverTrimsTheAxisLineWhateverTheFlagSays) {
  KrChapa plate({0, 0, 0}, Superior, 200, 10, 1000, 0, 0);
  AcGePoint3d e[4];
  plate.GetExtremePoints(e, 0, 0);
  AcGePoint3d p1(700, -900, 0), p2(700, 900, 0), side(800, 0, 0);
  for (const int flag : {0, 1}) {
    ASSERT_EQ(plate.Corte(p1, p2, side, flag, 1), Acad::eOk);
    KrVector axis;
    ASSERT_EQ(plate.GetVectorEixo(Superior, axis), 1);
    EXPECT_DOUBLE_EQ(axis.startPoint().distanceTo(axis.endPoint()), 1000);
    EXPECT_DOUBLE_EQ(plate.GetMaxX(Superior), p1.x);
    p1.x = p2.x = 600;
  }
}

// --- Along an edge ---------------------------------------------------------------------------------------------------

TEST(CutAlongEdge, BringsElementsToTheEdgeAndStoresNoPlane) {
  ListBar bar;
  bar.add({0, -10, 0}, {100, -10, 0});
  KrVector hidden({0, 10, 0}, {100, 10, 0}, KR_VT_LINHA_OCULTA);
  hidden.setHidden(1);
  hidden.setTypeEx(KR_VTX_CORTE);
  bar.AddVertex(hidden, Superior);
  bar.add({0, -10, 0}, {0, 10, 0});
  bar.add({100, -10, 0}, {100, 10, 0});
  AcGePoint3d p1(60, -40, 0), p2(60, 40, 0), side(70, 0, 0);
  EXPECT_EQ(bar.CorteArestaVista(p1, p2, side, Superior, 0, 0), Acad::eOk);
  const std::vector<KrVector> all = bar.elements();
  ASSERT_EQ(all.size(), 5U);
  EXPECT_TRUE(joins(all[0], {0, -10, 0}, {0, 10, 0})) << "what the edge misses comes first";
  EXPECT_TRUE(joins(all[1], {100, -10, 0}, {100, 10, 0})) << "and stays, though it lies on the side";
  EXPECT_TRUE(joins(all[2], {0, -10, 0}, {60, -10, 0}));
  EXPECT_EQ(all[2].tipo(), KR_VF_PADRAO) << "rebuilt from its ends and type";
  EXPECT_TRUE(joins(all[3], {0, 10, 0}, {60, 10, 0}));
  EXPECT_EQ(all[3].type(), KR_VT_LINHA_OCULTA);
  EXPECT_EQ(all[3].hidden(), 0);
  EXPECT_EQ(all[3].typeEx(), KR_VTX_NENHUM);
  EXPECT_TRUE(joins(all[4], p1, p2));
  EXPECT_EQ(all[4].type(), KR_VT_LINHA);
  EXPECT_EQ(bar.numCortes(), 0);
}

TEST(CutAlongEdge, TrimsTheAxisLineOnlyWhenAsked) {
  for (const int flag : {0, 1}) {
    CutBar bar;
    AcGePoint3d p1(600, -80, 0), p2(600, 80, 0), side(700, 0, 0);
    bar.CorteArestaVista(p1, p2, side, Superior, 0, flag);
    EXPECT_DOUBLE_EQ(bar.line(KR_VT_EIXO).endPoint().x, flag == 0 ? 1000 : 600);
    EXPECT_DOUBLE_EQ(bar.endPoint().x, flag == 0 ? 1000 : 600);
  }
}

TEST(CutAlongEdge, LeavesHolesAndTheirBandsTheirWidth) {
  ListBar bar;
  KrVector oblong({60, 0, 0}, 11, 0, 0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.0, 30.0);
  bar.AddVertex(oblong, Superior);
  KrVector band({50, 5, 0}, {70, 5, 0}, KR_VT_FURO_LINHA);
  band.setRaio(11);
  bar.AddVertex(band, Superior);
  AcGePoint3d p1(60, -40, 0), p2(60, 40, 0), side(70, 0, 0);
  bar.CorteArestaVista(p1, p2, side, Superior, 0, 0);
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 1U);
  EXPECT_DOUBLE_EQ(bar.of(KR_VT_FURO)[0].radius(), 11);
  EXPECT_DOUBLE_EQ(bar.of(KR_VT_FURO)[0].len(), 30);
  ASSERT_EQ(bar.of(KR_VT_FURO_LINHA).size(), 1U);
  EXPECT_DOUBLE_EQ(bar.of(KR_VT_FURO_LINHA)[0].radius(), 11);
  EXPECT_TRUE(joins(bar.of(KR_VT_FURO_LINHA)[0], {50, 5, 0}, {60, 5, 0}));
}

}  // namespace
