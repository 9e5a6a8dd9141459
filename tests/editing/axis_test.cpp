// The two lines along a bar: how each is found, moved and measured, and how what is stored keeps its place on the
// steel.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "modifiers/CutBar.h"
#include "object/Drawing.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

class AxisBar : public CutBar {
 public:
  using CutBar::CutBar;
  using KrObject::generateEixoBarra;
  using KrObject::offsetEixoBarraEnd;
  using KrObject::offsetEixoBarraStart;
  using KrObject::updateEixoBarra;

  KrVector reference() const { return line(KR_VT_REFERENCIA); }
  KrVector axis() const { return line(KR_VT_EIXO); }
  /// Moves the axis line's ends along X.
  void setAxis(double from, double to) {
    KrVector v = axis();
    v.set(AcGePoint3d(from, 0, 0), AcGePoint3d(to, 0, 0));
    UpdateVectorEixo(VistaCorrente, v);
    setStartPoint(v.startPoint());
    setendPoint(v.endPoint());
  }
  /// A hole and a split 500 from the section's start, and a cut past the end.
  void addOneOfEach() {
    KrFuro holes;
    holes.Add({0, -20, 500}, {0, 20, 500}, 22, 0, 0);
    setFurosSemLink(holes);
    KrPlanoCorte cuts;
    cuts.Add(AcGePlane(AcGePoint3d(0, 0, -1500), AcGeVector3d::kZAxis), {0, 0, -1600});
    addCortes(cuts, 0);
    KrObjectSplit split;
    split.setZPos(500);
    addSplit(split, 1);
  }
  double holeAt() const {
    KrFuro holes;
    Furos(holes, 0);
    return holes.getIni(0).z;
  }
  double cutAtDepth() const { return stored().GetSide(0).z; }
  double splitAt() const { return splitList()[0].zPos(); }
};

// --- Offsets ---------------------------------------------------------------------------------------------------------

TEST(AxisOffset, OnlyTheEndWhereTheSectionStartsShiftsWhatIsStored) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      for (const bool atStart : {true, false}) {
        AxisBar bar(view);
        bar.addOneOfEach();
        bar.ObjectScale(scale, scale, scale);
        // 30 of real size, outward at the end, inward at the start.
        ASSERT_EQ(atStart ? bar.offsetEixoBarraStart(30 * scale, 0) : bar.offsetEixoBarraEnd(30 * scale, 0), Acad::eOk);
        const bool countsFromEnd = view == Inferior || view == Esquerda;
        const bool shifts = atStart != countsFromEnd;
        // In views 1 and 4 the start comes 30 nearer; in 2 and 3 the end goes 30 further off.
        const double place = shifts ? (atStart ? 470 : 530) : 500;
        EXPECT_NEAR(bar.holeAt(), place, 1e-9) << "view " << view << " scale " << scale;
        EXPECT_NEAR(bar.cutAtDepth(), -place - 1100, 1e-9);
        EXPECT_NEAR(bar.splitAt(), place, 1e-9);
        EXPECT_NEAR(bar.reference().startPoint().x, atStart ? 30 * scale : 0, 1e-9);
        EXPECT_NEAR(bar.reference().endPoint().x, (atStart ? 1000 : 1030) * scale, 1e-9);
      }
    }
  }
}

TEST(AxisOffset, ShiftsTheNotchesOfBothArrays) {
  AxisBar bar;
  const auto notchAt = [&](double x, KrVistas view) {
    bar.setVista(view);
    KrObjectRecorteArray one;
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    for (const AcGePoint2d& p : {AcGePoint2d(x, 0), {x + 50, 0}, {x + 50, 60}, {x, 0}}) {
      points.append(p);
      bulges.append(0);
    }
    one.append(KrObjectRecorte(points, bulges, {x + 40, 10}));
    bar.addRecortesWCS(one);
    bar.setVista(Superior);
  };
  notchAt(400, Superior);
  bar.Gera_KrVector(Direita);
  notchAt(600, Direita);
  ASSERT_EQ(bar.offsetEixoBarraStart(30, 0), Acad::eOk);
  KrObjectRecorteArray top;
  bar.getRecortesWCS(top);
  ASSERT_EQ(top.length(), 1);
  EXPECT_NEAR(top[0].points()[0].x, 400, 1e-9) << "at its place on the drawing";
  bar.setVista(Direita);
  KrObjectRecorteArray side;
  bar.getRecortesWCS(side);
  ASSERT_EQ(side.length(), 1);
  EXPECT_NEAR(side[0].points()[0].x, 570, 1e-9) << "30 nearer to the start, which didn't move in this view";
}

TEST(AxisOffset, ThatWouldTurnTheLineOverIsRefused) {
  AxisBar bar;
  bar.addOneOfEach();
  const double inf = std::numeric_limits<double>::infinity();
  for (const double d : {-1000.0, -1200.0, -inf, inf, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(bar.offsetEixoBarraEnd(d, 0), Acad::eNotApplicable);
  for (const double d : {1000.0, 1200.0}) EXPECT_EQ(bar.offsetEixoBarraStart(d, 0), Acad::eNotApplicable);
  EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {1000, 0, 0}));
  EXPECT_DOUBLE_EQ(bar.holeAt(), 500);
  EXPECT_EQ(bar.offsetEixoBarraEnd(-999, 0), Acad::eOk);
}

TEST(AxisOffset, NeedsAnElevation) {
  AxisBar bar(Secao);
  EXPECT_EQ(bar.offsetEixoBarraEnd(10, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.offsetEixoBarraStart(10, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.generateEixoBarra(), Acad::eNotApplicable);
  EXPECT_EQ(bar.moveEixo({1, 0, 0}), Acad::eNotApplicable);
  EXPECT_EQ(bar.SetPointsOfEixoBarra({0, 0, 0}, {10, 0, 0}), Acad::eNotApplicable);
  EXPECT_EQ(bar.ecsZEixoOffset(1), 0);
  EXPECT_EQ(bar.wcsDirEixoOffset(1), 0);
  double d = 7;
  EXPECT_EQ(bar.ecsZEixoOffset(d, 1), Acad::eNotApplicable);
  EXPECT_EQ(bar.wcsDirEixoOffset(d, 0), Acad::eNotApplicable);
  EXPECT_EQ(d, 7);
  EXPECT_EQ(bar.isEixoVisible(), 0);
  EXPECT_EQ(bar.testEixo(0), 0);
}

TEST(AxisOffset, IsCarriedToLinkedMembersInTheirOwnViewAndScale) {
  Drawing drawing;
  struct Copy {
    KrVistas view;
    double scale;
    AcDbObjectId id;
  };
  Copy copies[] = {{Superior, 1, {}}, {Inferior, 0.1, {}}, {Esquerda, 1, {}}, {Direita, 0.1, {}}, {Secao, 0.1, {}}};
  for (Copy& copy : copies) {
    auto* bar = new AxisBar(copy.view);
    bar->addOneOfEach();
    bar->ObjectScale(copy.scale, copy.scale, copy.scale);
    copy.id = drawing.append(bar);
  }
  const auto use = [](const AcDbObjectId& id, auto change) {
    AcDbObject* object = nullptr;
    ASSERT_EQ(acdbOpenAcDbObject(object, id, AcDb::kForWrite), Acad::eOk);
    change(static_cast<AxisBar&>(*object));
    object->close();
  };
  AcDbObjectIdArray others;
  for (const Copy& copy : copies)
    if (copy.id != copies[0].id) others.append(copy.id);
  use(copies[0].id, [&](AxisBar& bar) {
    bar.setRelativeObj(&others);
    EXPECT_EQ(bar.offsetEixoBarraStart(30, 1), Acad::eOk);
    EXPECT_EQ(bar.offsetEixoBarraEnd(50, 1), Acad::eOk);
  });
  for (const Copy& copy : copies) {
    use(copy.id, [&](AxisBar& bar) {
      EXPECT_NEAR(bar.holeAt(), 470, 1e-9) << "view " << copy.view;
      EXPECT_NEAR(bar.cutAtDepth(), -1570, 1e-9);
      EXPECT_NEAR(bar.splitAt(), 470, 1e-9);
      if (copy.id == copies[0].id) return;
      EXPECT_NEAR(bar.getComprimentoReal(), 1020, 1e-9) << "a section lists the scaled length like an elevation";
      if (copy.view == Secao) return;
      const bool other = copy.view == Inferior || copy.view == Esquerda;
      EXPECT_NEAR(bar.reference().startPoint().x, (other ? -50 : 30) * copy.scale, 1e-9);
      EXPECT_NEAR(bar.reference().endPoint().x, (other ? 970 : 1050) * copy.scale, 1e-9);
    });
  }
}

// --- Finding the reference line --------------------------------------------------------------------------------------

TEST(ReferenceLine, IsMadeThroughTheReferenceOriginOfTheSection) {
  // The outline lies from -20 to 80 about the origin 0: its middle is 30 off, towards -Y of the drawing.
  for (const double angle : {0.0, 0.8, kPi}) {
    AxisBar bar(Superior, 1000, angle);
    bar.make({{{-20, -20}, {-20, 20}, {80, 20}, {80, -20}}}, Superior, 1000, angle);
    const AcGePoint3d start = bar.reference().startPoint();
    const AcGePoint3d end = bar.reference().endPoint();
    std::vector<KrVector> all = bar.elements();
    bar.ClearVertexes(Superior);
    for (const KrVector& v : all)
      if (v.type() != KR_VT_REFERENCIA) bar.AddVertex(v, Superior);
    ASSERT_EQ(bar.generateEixoBarra(), Acad::eOk);
    EXPECT_TRUE(bar.reference().startPoint().isEqualTo(start));
    EXPECT_TRUE(bar.reference().endPoint().isEqualTo(end));
    const int count = bar.GetNumVertex(Superior);
    EXPECT_EQ(bar.generateEixoBarra(), Acad::eOk) << "with one there is nothing to do";
    EXPECT_EQ(bar.GetNumVertex(Superior), count);
  }
}

TEST(ReferenceLine, OfAScaledBarLiesWithinItsSteel) {
  // The outline of the test before at 1:10. Drawn Y is -X of the section from above and below: the line lies at Y 0.
  for (const KrVistas view : {Superior, Inferior, Esquerda, Direita}) {
    AxisBar bar(view);
    bar.make({{{-20, -20}, {-20, 20}, {80, 20}, {80, -20}}}, view, 1000, 0);
    bar.ObjectScale(0.1, 0.1, 0.1);
    const KrVector line = bar.reference();
    ASSERT_NEAR(line.len(), 100, 1e-9);
    std::vector<KrVector> all = bar.elements();
    bar.ClearVertexes(view);
    for (const KrVector& v : all)
      if (v.type() != KR_VT_REFERENCIA) bar.AddVertex(v, view);
    ASSERT_EQ(bar.generateEixoBarra(), Acad::eOk);
    EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {100, 0, 0})) << view;
    if (view == Superior) {
      EXPECT_NEAR(bar.GetMinY(view), -8, 1e-9);
      EXPECT_NEAR(bar.GetMaxY(view), 2, 1e-9);
    }
  }
}

TEST(ReferenceLine, NeedsAnOutlineAndSomethingDrawn) {
  AxisBar bar;
  bar.ClearVertexes(Superior);
  EXPECT_EQ(bar.generateEixoBarra(), Acad::eNotApplicable);
  bar.outline().Clear();
  EXPECT_EQ(bar.generateEixoBarra(), Acad::eNotApplicable);
  EXPECT_EQ(bar.GetNumVertex(Superior), 0);
}

TEST(ReferenceLine, MeetsTheEndsOfTheBarAgain) {
  AxisBar bar;
  bar.addOneOfEach();
  bar.offsetEixoBarraStart(100, 0);
  bar.offsetEixoBarraEnd(-200, 0);
  EXPECT_DOUBLE_EQ(bar.holeAt(), 400);
  bar.setComprimento(5);
  ASSERT_EQ(bar.updateEixoBarra(0), Acad::eOk);
  EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {1000, 0, 0}));
  EXPECT_DOUBLE_EQ(bar.holeAt(), 500);
  EXPECT_DOUBLE_EQ(bar.storedLength(), 1000);
}

TEST(ReferenceLine, ASmallOffsetFarFromTheOriginHasItsSign) {
  // Rounding turns the direction of so short a step by far more than directions may differ.
  const AcGePoint3d far(3e6, 4e6, 0);
  AxisBar bar(Superior, 1000, 0.7, far);
  bar.addOneOfEach();
  const AcGeVector3d along(std::cos(0.7), std::sin(0.7), 0);
  bar.offsetEixoBarraStart(-1e-4, 0);
  EXPECT_NEAR(bar.holeAt(), 500.0001, 1e-9);
  ASSERT_EQ(bar.updateEixoBarra(0), Acad::eOk);
  EXPECT_NEAR(bar.holeAt(), 500, 1e-7);
  EXPECT_NEAR((bar.reference().startPoint() - far).dotProduct(along), 0, 1e-7);
}

TEST(ReferenceLine, AndAxisLineMeetTheEndEdges) {
  AxisBar bar;
  bar.setAxis(-300, 700);
  AcGePoint3d a, b;
  ASSERT_EQ(bar.pontosBarra(a, b, 0), Acad::eOk);
  EXPECT_TRUE(a.isEqualTo({0, 0, 0}));
  EXPECT_TRUE(b.isEqualTo({1000, 0, 0}));
  ASSERT_EQ(bar.pontosBarra(a, b, 1), Acad::eOk);
  EXPECT_TRUE(b.isEqualTo({1000, 0, 0}));
  bar.ClearVertexes(Superior);
  EXPECT_EQ(bar.pontosBarra(a, b, 1), Acad::eNotApplicable);
}

TEST(ReferenceLine, PutsTheBarWhereItIsTold) {
  for (const double scale : {1.0, 0.1}) {
    AxisBar bar;
    bar.ObjectScale(scale, scale, scale);
    bar.setAxis(-20 * scale, 1010 * scale);
    // Twice as long, turned up, elsewhere.
    const AcGePoint3d a(500, 300, 0);
    const AcGePoint3d b(500, 300 + 2000 * scale, 0);
    ASSERT_EQ(bar.SetPointsOfEixoBarra(a, b), Acad::eOk);
    AcGePoint3d p, q;
    bar.GetPointsOfEixo(p, q, 1);
    EXPECT_TRUE(p.isEqualTo(a, AcGeTol()) || p.distanceTo(a) < 1e-8) << p.x << ' ' << p.y;
    EXPECT_LT(q.distanceTo(b), 1e-8);
    EXPECT_NEAR(bar.angleVista(), kPi / 2, 1e-12);
    EXPECT_NEAR(bar.storedLength(), 2000 * scale, 1e-8);
    // The axis line grows with it about the foot of the start: -20 becomes -40, 1010 becomes 2020.
    EXPECT_LT(bar.axis().startPoint().distanceTo(a + AcGeVector3d(0, -40 * scale, 0)), 1e-8);
    EXPECT_LT(bar.axis().endPoint().distanceTo(a + AcGeVector3d(0, 2020 * scale, 0)), 1e-8);
    EXPECT_TRUE(bar.startPoint().isEqualTo(bar.axis().startPoint())) << "the start point follows the axis line";
    EXPECT_TRUE(bar.endPoint().isEqualTo(bar.axis().endPoint()));
    EXPECT_NEAR(bar.GetMaxX(Superior), 500 + 50 * scale, 1e-8);
    EXPECT_NEAR(bar.GetMinY(Superior), 300, 1e-8);
  }
  AxisBar bar;
  EXPECT_EQ(bar.SetPointsOfEixoBarra({5, 5, 0}, {5, 5, 0}), Acad::eNotApplicable);
  EXPECT_EQ(bar.SetPointsOfEixoBarra({5, 5, 0}, {std::numeric_limits<double>::infinity(), 5, 0}), Acad::eNotApplicable);
  EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {1000, 0, 0}));
}

// --- The axis line ---------------------------------------------------------------------------------------------------

TEST(AxisLine, MovesAloneAndTakesStartAndEndPointAlong) {
  for (const double scale : {1.0, 0.1}) {
    AxisBar bar;
    bar.ObjectScale(scale, scale, scale);
    ASSERT_EQ(bar.moveEixo({5, 7, 0}), Acad::eOk);
    EXPECT_TRUE(joins(bar.axis(), {5, 7, 0}, {5 + 1000 * scale, 7, 0}));
    EXPECT_TRUE(bar.startPoint().isEqualTo({5, 7, 0}));
    EXPECT_TRUE(bar.endPoint().isEqualTo({5 + 1000 * scale, 7, 0}));
    for (int round = 0; round < 2; ++round) {
      EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {1000 * scale, 0, 0}, 1e-8)) << "the steel doesn't jump";
      EXPECT_NEAR(bar.left(), 0, 1e-8);
      bar.Gera_KrVector();
    }
    EXPECT_TRUE(joins(bar.axis(), {5, 7, 0}, {5 + 1000 * scale, 7, 0}, 1e-8));
  }
}

TEST(AxisLine, IsHiddenAndShownAndStaysSo) {
  AxisBar bar;
  EXPECT_EQ(bar.isEixoVisible(), 1);
  EXPECT_EQ(bar.hideEixo(), Acad::eOk);
  EXPECT_EQ(bar.isEixoVisible(), 0);
  bar.Gera_KrVector();
  EXPECT_EQ(bar.isEixoVisible(), 0);
  EXPECT_EQ(bar.showEixo(1), Acad::eOk);
  bar.Gera_KrVector();
  EXPECT_EQ(bar.isEixoVisible(), 1);
  // An outline that hides the axis of its views no longer does, once the axis was shown or hidden by hand.
  AxisBar plate;
  plate.draw({{{-50, -20}, {-50, 20}, {50, 20}, {50, -20}}}, {0, 0, 0}, -5000);
  plate.ClearVertexes(Superior);
  plate.Gera_KrVector();
  EXPECT_EQ(plate.isEixoVisible(), 0);
  plate.showEixo(1);
  EXPECT_DOUBLE_EQ(plate.outline().GetBulge(plate.outline().Qtd()), 5000);
  plate.Gera_KrVector(Direita);
  KrVector other;
  ASSERT_EQ(plate.GetVectorEixo(Direita, other), 1);
  EXPECT_EQ(other.hidden(), 0);
}

TEST(AxisLine, IsRefittedToTheLimitsOfEveryElevation) {
  AxisBar bar;
  bar.Gera_KrVector(Direita);
  bar.setAxis(300, 600);
  bar.UpdateEixo();
  EXPECT_TRUE(joins(bar.axis(), {0, 0, 0}, {1000, 0, 0}));
  EXPECT_TRUE(bar.startPoint().isEqualTo({0, 0, 0}));
  EXPECT_TRUE(bar.endPoint().isEqualTo({1000, 0, 0}));
  EXPECT_TRUE(bar.axis().startPoint().isEqualTo({0, 0, 0})) << "and keeps its direction";

  AxisBar leftward(Superior, 1000, kPi);
  leftward.setAxis(-300, -600);
  leftward.UpdateEixo();
  EXPECT_TRUE(leftward.axis().startPoint().isEqualTo({0, 0, 0}))
      << "a bar drawn to the left has its end at the lower X";
  EXPECT_TRUE(leftward.axis().endPoint().isEqualTo({-1000, 0, 0}));
}

TEST(AxisLine, OfAnUprightBarKeepsItsDirection) {
  for (const auto& [angle, y] : {std::pair(kPi / 2, 1.0), std::pair(3 * kPi / 2, -1.0)}) {
    AxisBar bar(Superior, 1000, angle);
    KrVector v = bar.axis();
    v.set(AcGePoint3d(0, 300 * y, 0), AcGePoint3d(0, 600 * y, 0));
    ASSERT_EQ(bar.UpdateVectorEixo(VistaCorrente, v), 1);
    bar.UpdateEixo();
    EXPECT_TRUE(bar.axis().startPoint().isEqualTo({0, 0, 0})) << angle;
    EXPECT_TRUE(bar.axis().endPoint().isEqualTo({0, 1000 * y, 0})) << angle;
    EXPECT_TRUE(bar.startPoint().isEqualTo({0, 0, 0})) << angle;
    bar.Gera_KrVector();
    EXPECT_NEAR(bar.GetMinY(VistaCorrente), std::min(0.0, 1000 * y), 1e-9);
    EXPECT_NEAR(bar.GetMaxY(VistaCorrente), std::max(0.0, 1000 * y), 1e-9);
  }
}

TEST(AxisLine, RewrittenTakesTheBarsPointsAlong) {
  AxisBar bar;
  bar.ObjectScale(0.1, 0.1, 0.1);
  KrVector v = bar.axis();
  v.translateBy({5, 7, 0});
  ASSERT_EQ(bar.UpdateVectorEixo(VistaCorrente, v), 1);
  EXPECT_TRUE(bar.startPoint().isEqualTo({5, 7, 0}));
  EXPECT_TRUE(bar.endPoint().isEqualTo({105, 7, 0}));
  for (int round = 0; round < 2; ++round) {
    bar.Gera_KrVector();
    EXPECT_TRUE(bar.startPoint().isEqualTo({5, 7, 0}));
    EXPECT_TRUE(joins(bar.axis(), {5, 7, 0}, {105, 7, 0}));
    EXPECT_TRUE(joins(bar.reference(), {0, 0, 0}, {100, 0, 0})) << "the steel stays";
  }
  // A view that isn't shown has an axis of its own.
  bar.Gera_KrVector(Direita);
  KrVector other;
  ASSERT_EQ(bar.GetVectorEixo(Direita, other), 1);
  other.translateBy({50, 0, 0});
  ASSERT_EQ(bar.UpdateVectorEixo(Direita, other), 1);
  EXPECT_TRUE(bar.startPoint().isEqualTo({5, 7, 0}));
}

TEST(AxisLine, OnACrossElementIsTold) {
  AxisBar bar;
  EXPECT_EQ(bar.testEixo(0), 1) << "the axis ends on the bar's end edge";
  bar.setAxis(0, 1200);
  EXPECT_EQ(bar.testEixo(0), 0);
  EXPECT_EQ(bar.testEixo(1), 1) << "its start lies on the start edge";
  bar.setAxis(-100, 1200);
  EXPECT_EQ(bar.testEixo(1), 0);
  // A hole's unused ends stand at the drawing's origin: not an element that the axis meets.
  KrVector hole({500, 0, 0}, 11, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO);
  bar.AddVertex(hole, Superior);
  bar.setAxis(-1200, 1200);
  EXPECT_EQ(bar.testEixo(1), 0);
  EXPECT_EQ(bar.testEixo(0), 0);
}

TEST(AxisLine, StaysWhereTheRestIsTransformed) {
  AxisBar bar;
  const AcGeMatrix3d m = AcGeMatrix3d::translation({10, 20, 0});
  ASSERT_EQ(bar.transformByNoEixo(m), Acad::eOk);
  EXPECT_TRUE(joins(bar.axis(), {0, 0, 0}, {1000, 0, 0}));
  EXPECT_TRUE(joins(bar.reference(), {10, 20, 0}, {1010, 20, 0}));
  EXPECT_DOUBLE_EQ(bar.left(), 10);

  AxisBar section(Secao);
  section.setStartPoint({0, 0, 0});
  section.setendPoint({3, 3, 0});
  section.transformByNoEixo(m);
  EXPECT_DOUBLE_EQ(section.GetMinX(Secao), -40);
  EXPECT_NEAR(section.angleSecao(), kPi / 4, 1e-12) << "a section's angle becomes that from its start to its end";
}

// --- From one line to the other --------------------------------------------------------------------------------------

TEST(AxisDistance, IsCountedInBarOrderOrAsDrawn) {
  for (const KrVistas view : kElevations) {
    AxisBar bar(view);
    bar.setAxis(-30, 1050);
    const bool inverted = view == Inferior || view == Esquerda;
    // Drawn order, reference minus axis along the drawn direction.
    EXPECT_DOUBLE_EQ(bar.wcsDirEixoOffset(1), 30);
    EXPECT_DOUBLE_EQ(bar.wcsDirEixoOffset(0), -50);
    // Bar order, axis minus reference along the bar.
    EXPECT_DOUBLE_EQ(bar.ecsZEixoOffset(1), inverted ? -50 : -30) << "view " << view;
    EXPECT_DOUBLE_EQ(bar.ecsZEixoOffset(0), inverted ? 30 : 50);
  }
}

}  // namespace
