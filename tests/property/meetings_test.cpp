// What shows only when one thing done to a member meets another.

#include <gtest/gtest.h>

#include <cmath>

#include "modifiers/CutBar.h"
#include "modifiers/HoleSpace.h"
#include "object/ElementLists.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

/// Through the whole depth of a `CutBar` whose reference origin is at `origin`, z along the bar.
void drill(KrObject& bar, double z, double diameter = 22, AcGeVector3d origin = {0, 0, 0}) {
  KrFuro holes;
  bar.Furos(holes, 0);
  holes.Add(origin + AcGeVector3d(0, -20, z), origin + AcGeVector3d(0, 20, z), diameter, 0, 0);
  bar.setFurosSemLink(holes);
  bar.Gera_KrVector();
}

// --- The limits of what is drawn -------------------------------------------------------------------------------------

TEST(Limits, OfADrilledBarAreThoseOfItsSteel) {
  CutBar bar(Superior, 1000, 0, {5000, 300, 0});
  drill(bar, 400);
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 1U);
  AcGePoint3d a, b;
  bar.GetLimitsPoints(a, b, VistaCorrente);
  EXPECT_NEAR(a.x, 5000, 1e-9) << "a round hole has no ends: their places hold nothing of the drawing";
  EXPECT_NEAR(b.x, 6000, 1e-9);
}

TEST(Limits, OfADrawingWithACircleAreThoseOfTheRest) {
  CutBar bar(Superior, 1000, 0, {-5000, 300, 0});
  bar.AddVertex(KrVector(AcGePoint3d(-4900, 300, 0), 25), Superior);
  AcGePoint3d a, b;
  bar.GetLimitsPoints(a, b, VistaCorrente);
  EXPECT_NEAR(a.x, -5000, 1e-9);
  EXPECT_NEAR(b.x, -4000, 1e-9);
}

TEST(Limits, AnOblongHoleCountsByTheEndsOfItsMiddle) {
  CutBar bar(Superior, 1000, 0, {5000, 300, 0});
  bar.ClearVertexes(Superior);
  bar.AddVertex(KrVector({5200, 300, 0}, 9, 0, 0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0, 40, 0), Superior);
  AcGePoint3d a, b;
  bar.GetLimitsPoints(a, b, VistaCorrente);
  EXPECT_NEAR(a.x, 5180, 1e-9);
  EXPECT_NEAR(b.x, 5220, 1e-9);
}

TEST(Limits, OfRoundHolesAloneThereAreNone) {
  CutBar bar(Superior, 1000, 0, {5000, 300, 0});
  drill(bar, 400);
  const KrVector hole = bar.line(KR_VT_FURO);
  bar.ClearVertexes(Superior);
  bar.AddVertex(hole, Superior);
  AcGePoint3d a(1, 2, 3), b(4, 5, 6);
  bar.GetLimitsPoints(a, b, VistaCorrente);
  EXPECT_EQ(a, AcGePoint3d(1, 2, 3));
  EXPECT_EQ(b, AcGePoint3d(4, 5, 6));
}

TEST(AxisLine, OfADrilledBarFarFromTheOriginIsRefittedToTheSteel) {
  for (const double x : {5000.0, -5000.0}) {
    for (const double angle : {0.0, 0.4, kPi}) {
      const AcGeVector3d along(std::cos(angle), std::sin(angle), 0);
      const AcGePoint3d start(x, 300, 0);
      CutBar bar(Superior, 1000, angle, start);
      drill(bar, 400);
      bar.UpdateEixo();
      EXPECT_LT(bar.startPoint().distanceTo(start), 60) << "at most half the width beyond, where the bar lies askew";
      EXPECT_LT(bar.endPoint().distanceTo(start + along * 1000), 60);
    }
  }
}

// --- Splits and holes ------------------------------------------------------------------------------------------------

TEST(Split, TakesTheHoleInItsGapAndLeavesTheOneBeside) {
  CutBar bar;
  drill(bar, 300, 14);
  drill(bar, 330, 14);
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 2U);
  KrObjectSplit split;
  split.setZPos(300);
  split.setLength(20);
  bar.addSplit(split, 0);
  ASSERT_EQ(bar.of(KR_VT_FURO).size(), 1U);
  EXPECT_EQ(bar.of(KR_VT_FURO)[0].IndexFur(), 1);
  EXPECT_EQ(bar.numFuros(), 2) << "only of the picture";
}

// --- Another view's list ---------------------------------------------------------------------------------------------

/// A bar with a hole and a cut, and the view from the right made beside the one shown.
class BesideBar : public CutBar {
 public:
  BesideBar() : CutBar(Superior, 1000, 0, {100, 200, 0}) {
    drill(*this, 400);
    Gera_KrVector(Direita);
  }
  /// What a bar made new at its place shows from the right.
  void expectOtherViewAt(const AcGePoint3d& start, const AcGePoint3d& end) {
    Gera_KrVector(Direita);
    KrVector axis;
    ASSERT_EQ(GetVectorEixo(Direita, axis), 1);
    EXPECT_TRUE(joins(axis, start, end, 1e-6)) << axis.startPoint().x << ", " << axis.startPoint().y << " to "
                                               << axis.endPoint().x << ", " << axis.endPoint().y;
    EXPECT_TRUE(startPoint().isEqualTo(line(KR_VT_EIXO).startPoint())) << "the points of the axis shown";
    EXPECT_TRUE(endPoint().isEqualTo(line(KR_VT_EIXO).endPoint()));
  }
};

TEST(AnotherView, FollowsAChangeOfTheScale) {
  BesideBar bar;
  bar.ObjectScale(0.1, 0.1, 0.1);
  bar.expectOtherViewAt({100, 200, 0}, {200, 200, 0});
  bar.ObjectScale(1, 1, 1);
  bar.expectOtherViewAt({100, 200, 0}, {1100, 200, 0});
}

TEST(AnotherView, FollowsANewPlace) {
  BesideBar bar;
  KrObject::Position place;
  bar.position(place, 1);
  place.ponto.set(5000, -700, 0);
  place.direcao.set(0, 1, 0);
  bar.setPosition(place, 1);
  bar.expectOtherViewAt({5000, -700, 0}, {5000, 300, 0});
}

TEST(AnotherView, FollowsTheReferenceLine) {
  BesideBar bar;
  bar.SetPointsOfEixoBarra({0, 0, 0}, {0, 1000, 0});
  bar.expectOtherViewAt({0, 0, 0}, {0, 1000, 0});
}

TEST(AnotherView, FollowsAMotion) {
  BesideBar bar;
  bar.transformBy(AcGeMatrix3d::translation({10, 20, 0}));
  bar.expectOtherViewAt({110, 220, 0}, {1110, 220, 0});
}

TEST(AnotherView, MadeBesideAScaledOneStaysWhenTheOneShownIsMadeAnew) {
  BesideBar bar;
  bar.ObjectScale(0.1, 0.1, 0.1);
  bar.Gera_KrVector(Direita);
  const lists::Elements made = lists::of(bar, Direita);
  bar.Gera_KrVector();
  EXPECT_THAT(lists::of(bar, Direita), lists::Are(made));
}

TEST(AnotherView, OfATrimmedBarLeavesTheEndPointsOfTheOneShown) {
  CutBar bar;
  bar.cutAt(700, 900, 1);
  const AcGePoint3d end = bar.endPoint();
  ASSERT_NEAR(end.x, 700, 1e-9);
  bar.Gera_KrVector(Esquerda);
  EXPECT_EQ(bar.endPoint(), end);
}

// --- A mirror and cuts -----------------------------------------------------------------------------------------------

TEST(Mirror, OfAMemberWithCutsMadeAnewIsTheMirroredList) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      for (const double angle : {0.0, 0.4, kPi / 2, 2.2}) {
        SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale << ", mirror " << angle);
        // One square cut, one oblique, and one that stands askew in the view: a mitre through the depth.
        CutBar bar(view, 1000, 0.7, {500, 80, 0});
        KrPlanoCorte cuts;
        cuts.Add(AcGePlane(AcGePoint3d(0, 0, -100), AcGeVector3d(0.2, 0, 1).normal()), {0, 0, 100});
        cuts.Add(AcGePlane(AcGePoint3d(0, 0, -900), AcGeVector3d(0, 0.5, 1).normal()), {0, 0, -1200});
        cuts.Add(AcGePlane(AcGePoint3d(0, 0, -150), AcGeVector3d(0.5, 0, 1).normal()), {0, 0, 100});
        bar.addCortes(cuts, 0);
        bar.Gera_KrVector();
        bar.ObjectScale(scale, scale, scale);
        lists::Elements want = lists::of(bar, view);
        const AcGeMatrix3d m = AcGeMatrix3d::mirroring(
            AcGePlane(AcGePoint3d(30, 40, 0), AcGeVector3d(-std::sin(angle), std::cos(angle), 0)));
        bar.transformBy(m);
        lists::transform(want, m);
        EXPECT_THAT(lists::of(bar, view), lists::ShowTheSameAs(want));
        bar.Gera_KrVector();
        EXPECT_THAT(lists::of(bar, view), lists::ShowTheSameAs(want));
      }
    }
  }
}

// --- A reference origin off the outline's own ------------------------------------------------------------------------

/// The flat bar about an origin of (30, 70) in the outline's own frame.
class OffsetBar : public CutBar {
 public:
  explicit OffsetBar(KrVistas view, int quarter) {
    setAngleSecao(quarter * kPi / 2);
    draw({{{-20, 50}, {-20, 90}, {80, 90}, {80, 50}}}, {30, 70, 0});
    setComprimento(1000);
    ClearVertexes(Superior);
    KrGeratriz none;
    Gera_KrVector(AcGePoint3d(0, 0, 0), none, view, 0, 1);
  }
};

TEST(ReferenceOrigin, ACutAndAHoleLieAtThePickedPlaceTogether) {
  for (const KrVistas view : kElevations) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      SCOPED_TRACE(testing::Message() << "view " << view << ", quarter " << quarter);
      OffsetBar bar(view, quarter);
      ASSERT_EQ(bar.FurarVista({400, 8, 0}, 1000, 14, 0, 0, -1, 0), Acad::eOk);
      ASSERT_EQ(bar.FurarVista({850, 8, 0}, 1000, 14, 0, 0, -1, 0), Acad::eOk);
      ASSERT_EQ(bar.cut({700, -70, 0}, {760, 70, 0}, {950, 0, 0}), Acad::eOk);
      for (int run = 0; run < 2; ++run) {
        ASSERT_EQ(bar.of(KR_VT_FURO).size(), 1U) << "the other went with the end";
        EXPECT_TRUE(bar.of(KR_VT_FURO)[0].midPoint().isEqualTo({400, 8, 0}));
        ASSERT_EQ(bar.cutEdges().size(), 1U);
        const KrVector edge = bar.cutEdges()[0];
        for (const AcGePoint3d& p : {edge.startPoint(), edge.endPoint()})
          EXPECT_NEAR(p.x, 730 + p.y * 60 / 140, 1e-6) << "on the line from (700, -70) to (760, 70)";
        bar.Gera_KrVector();
      }
      // The opposite view shows both from behind, drawn from the bar's other end.
      const KrVistas opposite = view == Superior   ? Inferior
                                : view == Inferior ? Superior
                                : view == Esquerda ? Direita
                                                   : Esquerda;
      OffsetBar behind(opposite, quarter);
      behind.copyModifiersFrom(bar);
      const double length = bar.getComprimentoReal();
      KrObject::Position place;
      ASSERT_EQ(behind.position(place, 0), Acad::eOk);
      place.comprimento = length;
      place.inicio = 0;
      place.fim = length;
      behind.setPosition(place, 0);
      ASSERT_EQ(behind.of(KR_VT_FURO).size(), 1U);
      EXPECT_TRUE(behind.of(KR_VT_FURO)[0].midPoint().isEqualTo({length - 400, 8, 0}));
      ASSERT_EQ(behind.cutEdges().size(), 1U);
      for (const AcGePoint3d& p : {behind.cutEdges()[0].startPoint(), behind.cutEdges()[0].endPoint()})
        EXPECT_NEAR(length - p.x, 730 + p.y * 60 / 140, 1e-6);
    }
  }
}

// --- Modifiers by number in a section --------------------------------------------------------------------------------

class BoltRow : public KrObjectModCData {
 public:
  ACRX_DECLARE_MEMBERS(BoltRow);
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override { return filer->filerStatus(); }
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override { return filer->filerStatus(); }
};
ACRX_CONS_DEFINE_MEMBERS(BoltRow, KrObjectModCData, 1)

TEST(InASection, NoNotchIsPickedByNumberAndItsDataStays) {
  BoltRow::rxInit();
  acrxBuildClassHierarchy();
  CutBar bar;
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  for (const AcGePoint2d& p :
       {AcGePoint2d(400, 60), AcGePoint2d(400, 30), AcGePoint2d(450, 30), AcGePoint2d(450, 60)}) {
    points.append(p);
    bulges.append(0.0);
  }
  AcGePoint2d side(425, 45);
  ASSERT_EQ(bar.Recorte(points, bulges, side), Acad::eOk);
  drill(bar, 200);
  // The modifiers take copies.
  BoltRow data;
  ASSERT_EQ(bar.assocCDataToMod(ModRecorte, 0, &data), Acad::eOk);
  ASSERT_EQ(bar.assocCDataToMod(ModFuro, 0, &data), Acad::eOk);
  KrObjectModCData* const ofNotch = bar.accessCDataToMod(ModRecorte, 0);
  KrObjectModCData* const ofHole = bar.accessCDataToMod(ModFuro, 0);
  ASSERT_NE(ofNotch, nullptr);
  ASSERT_NE(ofHole, nullptr);

  bar.setVista(Secao);
  bar.Gera_KrVector();
  EXPECT_EQ(bar.accessCDataToMod(ModRecorte, 0), nullptr);
  EXPECT_EQ(bar.assocCDataToMod(ModRecorte, 0, nullptr), Acad::eInvalidIndex);
  bar.RemoveMods(ModRecorte, 0);
  EXPECT_EQ(bar.accessCDataToMod(ModFuro, 0), ofHole) << "a hole has its number in every view";
  bar.setVista(Superior);
  EXPECT_EQ(bar.accessCDataToMod(ModRecorte, 0), ofNotch);
  bar.setVista(Secao);
  bar.RemoveMods(ModFuro, 0);
  EXPECT_EQ(bar.numFuros(), 0);
  EXPECT_EQ(bar.accessCDataToMod(ModFuro, 0), nullptr);
  bar.RemoveMods(ModRecorte, -1);
  bar.setVista(Superior);
  EXPECT_EQ(bar.accessCDataToMod(ModRecorte, 0), nullptr) << "all of them can be removed from here";
}

}  // namespace
