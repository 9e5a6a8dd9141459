// Holes in the drawing: what a record looks like in each view, where it is said to stand, what moves with a stretch.

#include <gtest/gtest.h>

#include "HoleSpace.h"
#include "Sections.h"
#include "object/TestMember.h"

namespace {

using sections::PlainI;
using sections::Tube;
using space::kPi;
using space::kQuarter;

KrFuro one(AcGeVector3d ini, AcGeVector3d fim, double diametro, double stretch = 0, double angle = 0) {
  KrFuro holes;
  holes.Add(ini, fim, diametro, stretch, angle);
  return holes;
}

struct Place {
  AcGePoint3d p1, p2;
  double diametro = 0, stretch = 0, angulo = 0;
};

Acad::ErrorStatus traceOf(const KrObject& member, int i, Place& place, int testaParede = 0) {
  return member.wcsCoordFuroTrace(i, place.p1, place.p2, place.diametro, place.stretch, place.angulo, testaParede);
}

Acad::ErrorStatus centreOf(const KrObject& member, int i, Place& place, int testaParede = 0) {
  return member.wcsCoordFuro(i, place.p1, place.diametro, place.stretch, place.angulo, testaParede);
}

// --- Pictures --------------------------------------------------------------------------------------------------------

TEST(HoleInASection, IsABandWithACentreLineTwiceAsLongOnEachSideAsTheHole) {
  PlainI bar({30, 70, 0});
  bar.setFurosSemLink(one({50, 170, 120}, {50, 161, 120}, 18, 10, kPi / 6));
  bar.show(Secao, 600, 0, {1000, 2000, 0});
  const std::vector<KrVector> drawn = space::elementsOf(bar, 0);
  ASSERT_EQ(drawn.size(), 2U);
  EXPECT_EQ(drawn[0].type(), KR_VT_FURO_EIXO);
  EXPECT_TRUE(drawn[0].startPoint().isEqualTo(AcGePoint3d(1020, 2118, 0)));
  EXPECT_TRUE(drawn[0].endPoint().isEqualTo(AcGePoint3d(1020, 2073, 0)));
  EXPECT_EQ(drawn[1].type(), KR_VT_FURO_LINHA);
  EXPECT_TRUE(drawn[1].startPoint().isEqualTo(AcGePoint3d(1020, 2100, 0)));
  EXPECT_TRUE(drawn[1].endPoint().isEqualTo(AcGePoint3d(1020, 2091, 0)));
  EXPECT_NEAR(drawn[1].radius(), (18 + 10 * 0.5) / 2, 1e-12) << "as wide as the sine of the angle makes it";
  for (const KrVector& v : drawn) EXPECT_EQ(v.typeEx(), KR_VTX_FURO);
}

TEST(HoleInASection, IsNarrowedByANegativeSineUnlikeInAnElevation) {
  PlainI bar;
  bar.setFurosSemLink(one({20, 100, 120}, {20, 91, 120}, 18, 10, -kPi / 2));
  bar.show(Secao, 600);
  EXPECT_NEAR(space::elementOf(bar, 0, KR_VT_FURO_LINHA)->radius(), 4, 1e-12);
  bar.setFurosSemLink(one({20, 100, 120}, {20, 91, 120}, 10, 18, -kPi / 2));
  bar.show(Secao, 600);
  EXPECT_NEAR(space::elementOf(bar, 0, KR_VT_FURO_LINHA)->radius(), -4, 1e-12) << "no absolute value";
  bar.setFurosSemLink(one({-3, 0, 120}, {3, 0, 120}, 10, 18, kPi));
  bar.show(Superior, 600);
  EXPECT_NEAR(space::elementOf(bar, 0, KR_VT_FURO_LINHA)->radius(), 4, 1e-12) << "here it is absolute";
}

TEST(HoleInASection, TurnsWithTheSectionAndTheViewAndIsMirroredFromTheFarEnd) {
  PlainI bar;
  bar.setFurosSemLink(one({20, 100, 120}, {20, 91, 120}, 18));
  for (const KrVistas view : space::kSections) {
    bar.setAngleSecao(0.3);
    bar.show(view, 600, 0.2, {1000, 2000, 0});
    const double side = view == Secao ? 1 : -1;
    // Mirrored after the section's turn, then turned by the view.
    space::Flat p = space::turned({20, 100}, 0.3);
    p.x *= side;
    p = space::turned(p, 0.2);
    const KrVector band = *space::elementOf(bar, 0, KR_VT_FURO_LINHA);
    EXPECT_TRUE(band.startPoint().isEqualTo(AcGePoint3d(1000 + p.x, 2000 + p.y, 0))) << "view " << view;
  }
}

TEST(HoleInASection, DrawnOnDemandEqualsTheOneDrawnByARegenerationAtAnyScale) {
  for (const KrVistas view : space::kSections) {
    for (const double scale : {1.0, 0.1}) {
      PlainI bar;
      bar.setAngleSecao(0.3);
      bar.show(view, 600, 0.2, {1000, 2000, 0});
      bar.ObjectScale(scale, scale, scale);
      // In terms of the section: about the start point, whatever the turns.
      ASSERT_EQ(bar.FurarSecao({1020, 2120, 120}, {0, -40}, 18, 0, 0, 0, 0, 0), Acad::eOk);
      const std::vector<KrVector> onDemand = space::elementsOf(bar, 0);
      bar.Gera_KrVector();
      const std::vector<KrVector> regenerated = space::elementsOf(bar, 0);
      ASSERT_EQ(onDemand.size(), 2U);
      ASSERT_EQ(regenerated.size(), 2U);
      for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(onDemand[i].type(), regenerated[i].type());
        EXPECT_TRUE(onDemand[i].startPoint().isEqualTo(regenerated[i].startPoint())) << "view " << view << " " << scale;
        EXPECT_TRUE(onDemand[i].endPoint().isEqualTo(regenerated[i].endPoint()));
      }
      EXPECT_TRUE(space::holesOf(bar).getIni(0).isEqualTo(AcGeVector3d(20, 100, 120))) << "real size";
    }
  }
}

TEST(HoleEdgeOn, IsAsWideAsTheCosineOfItsAngleMakesIt) {
  for (const double angle : {0.0, 0.4, kPi / 3}) {
    PlainI bar;
    bar.setFurosSemLink(one({-3, 40, 120}, {3, 40, 120}, 18, 10, angle));
    bar.show(Superior, 600, 1.1);
    const std::vector<KrVector> drawn = space::elementsOf(bar, 0);
    ASSERT_EQ(drawn.size(), 2U) << "a centre line and a band";
    EXPECT_NEAR(drawn[1].diametro(), 18 + 10 * std::cos(angle), 1e-12) << "free of the direction of the view";
    EXPECT_NEAR(drawn[0].len(), 3 * 6, 1e-9) << "one depth on each side";
  }
}

// --- Places ----------------------------------------------------------------------------------------------------------

TEST(HolesForAView, AreTurnedWithTheSectionEvenWhereThereIsNoView) {
  TestMember bar;
  bar.setAngleSecao(kPi / 2);
  const auto turned = [&](KrVistas view, const AcGePoint3d& about, Acad::ErrorStatus status) {
    KrFuro holes;
    holes.Add({20, 100, 120}, {20, 90, 120}, 18, 0, 0);
    EXPECT_EQ(bar.ajustaFuros(view, holes, about), status);
    return holes.getIni(0);
  };
  EXPECT_TRUE(turned(VistaCorrente, {}, Acad::eNotApplicable).isEqualTo({-100, 20, 120}));
  EXPECT_TRUE(turned(Secao, {}, Acad::eOk).isEqualTo({-100, 20, 120}));
}

TEST(PlaceOfAHole, OutsideTheListIsAnInvalidIndex) {
  PlainI bar;
  bar.setFurosSemLink(one({20, 100, 120}, {20, 91, 120}, 18));
  bar.show(Superior, 600);
  Place place;
  EXPECT_EQ(centreOf(bar, 1, place), Acad::eInvalidIndex);
  EXPECT_EQ(centreOf(bar, -1, place), Acad::eInvalidIndex);
  EXPECT_EQ(centreOf(bar, 0, place), Acad::eOk);
}

TEST(PlaceOfAHole, IsForTheClassOfDirectionAskedFor) {
  PlainI bar;
  KrFuro holes = one({20, 100, 120}, {20, 91, 120}, 18);
  holes.Add({-3, 40, 130}, {3, 40, 130}, 18, 0, 0);
  holes.Add({20, 100, 140}, {25, 91, 140}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600);
  const Acad::ErrorStatus no = Acad::eNotApplicable;
  Place place;
  EXPECT_EQ(centreOf(bar, 0, place), Acad::eOk);
  EXPECT_EQ(traceOf(bar, 0, place), no);
  EXPECT_EQ(centreOf(bar, 1, place), no);
  EXPECT_EQ(traceOf(bar, 1, place), Acad::eOk);
  EXPECT_EQ(centreOf(bar, 2, place), no);
  EXPECT_EQ(traceOf(bar, 2, place), no);
  for (int i = 0; i < 3; ++i) {
    int found = 0;
    EXPECT_EQ(bar.wcsCoordFuroCommon(i, place.p1, place.p2, place.diametro, place.stretch, place.angulo, 0, 7, &found),
              Acad::eOk);
    EXPECT_EQ(found, 1 << i);
  }
  bar.show(Secao, 600);
  EXPECT_EQ(centreOf(bar, 0, place), no) << "in a section all holes lie across";
  EXPECT_EQ(traceOf(bar, 2, place), Acad::eOk);
}

TEST(PlaceOfAHole, WithoutLengthIsNone) {
  PlainI bar;
  bar.show(Secao, 600);
  bar.setFurosSemLink(one({20, 95, 120}, {20, 95, 120}, 18));
  Place place;
  EXPECT_EQ(traceOf(bar, 0, place), Acad::eNotApplicable);
}

TEST(PlaceOfAHole, CanBeAskedForOutermostWallsOnly) {
  // A box within a box: four walls along Y.
  class Nested : public sections::Bar {
   public:
    Nested() {
      const double sizes[] = {50, 45, 30, 25};
      for (const double s : sizes) {
        corner(-s, -s);
        corner(s, -s);
        corner(s, s);
        corner(-s, s);
        corner(-s, -s, s == 25 ? 0 : 6000);
      }
      origin(0, 0);
    }
  };
  Nested bar;
  bar.show(Superior, 600);
  bar.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, -1, 0, 0);
  ASSERT_EQ(bar.numFuros(), 4);
  Place place;
  for (int i = 0; i < 4; ++i) {
    const bool outermost = i == 0 || i == 3;
    EXPECT_EQ(centreOf(bar, i, place, 1), outermost ? Acad::eOk : Acad::eNotApplicable) << i;
    EXPECT_EQ(centreOf(bar, i, place, 0), Acad::eOk);
  }
}

TEST(PlaceOfAHole, IsThatOfTheDrawnBandInEveryViewQuarterAndScale) {
  for (const double scale : {1.0, 0.1}) {
    for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso}) {
      for (int quarter = 0; quarter < 4; ++quarter) {
        SCOPED_TRACE(testing::Message() << "view " << view << ", quarter " << quarter << ", scale " << scale);
        PlainI bar({30, 70, 0});
        KrFuro holes = one({50, 170, 120}, {50, 161, 120}, 18);
        holes.Add({27, 110, 130}, {33, 110, 130}, 18, 0, 0);
        bar.setFurosSemLink(holes);
        bar.setAngleSecao(quarter * kQuarter);
        bar.show(view, 600, 0.7, {1000, 500, 0});
        bar.ObjectScale(scale, scale, scale);
        int traces = 0;
        for (int i = 0; i < 2; ++i) {
          const std::optional<KrVector> band = space::elementOf(bar, i, KR_VT_FURO_LINHA);
          Place place;
          EXPECT_EQ(traceOf(bar, i, place), band ? Acad::eOk : Acad::eNotApplicable);
          if (!band) continue;
          ++traces;
          EXPECT_TRUE(place.p1.isEqualTo(band->startPoint()));
          EXPECT_TRUE(place.p2.isEqualTo(band->endPoint()));
        }
        EXPECT_EQ(traces, KrObject::isSecao(view) == Acad::eOk ? 2 : 1);
      }
    }
  }
}

TEST(PlaceOfAHole, IsWhereTheBarHasItInSpace) {
  const AcGeVector3d ini(20, 100, 120);
  for (const KrVistas view : space::kElevations) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      PlainI bar;
      bar.setFurosSemLink(one(ini, {20, 91, 120}, 18));
      bar.setAngleSecao(quarter * kQuarter);
      bar.show(view, 600);
      const space::Flat at = space::seen(view, quarter * kQuarter, ini, 600);
      Place place;
      int found = 0;
      ASSERT_EQ(
          bar.wcsCoordFuroCommon(0, place.p1, place.p2, place.diametro, place.stretch, place.angulo, 0, 3, &found),
          Acad::eOk);
      EXPECT_TRUE(place.p1.isEqualTo(AcGePoint3d(at.x, at.y, 0))) << "view " << view << ", quarter " << quarter;
    }
  }
}

// --- Which element ---------------------------------------------------------------------------------------------------

TEST(ElementOfAHole, IsTheFirstOfItsFaceOnOrEdgeOnWithItsPlace) {
  PlainI bar;
  KrFuro holes = one({20, 100, 120}, {20, 91, 120}, 18);
  holes.Add({-3, 40, 130}, {3, 40, 130}, 18, 0, 0);
  holes.Add({20, -91, 120}, {20, -100, 120}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600);
  KrVector* element = nullptr;
  int place = -1;
  ASSERT_EQ(bar.getFuroVertex(element, 0, place), 1);
  EXPECT_EQ(element->type(), KR_VT_FURO);
  KrVector atPlace;
  ASSERT_EQ(bar.GetVector(place, atPlace), 1);
  EXPECT_EQ(atPlace.IndexFur(), 0);
  EXPECT_EQ(atPlace.type(), KR_VT_FURO);
  ASSERT_EQ(bar.getFuroVertex(element, 1), 1);
  EXPECT_EQ(element->type(), KR_VT_FURO_LINHA);
  EXPECT_EQ(bar.getFuroVertex(element, 2), 0) << "the hole of the bottom flange doesn't show from above";
}

TEST(ElementOfAHole, AddedByHandGoesToTheViewNamedOrToTheOneShown) {
  PlainI bar;
  bar.show(Superior, 600);
  const int before = bar.GetNumVertex(Superior);
  const KrVector hole(AcGePoint3d(10, 0, 0), 9, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO);
  EXPECT_EQ(bar.AddFuro(hole, VistaCorrente), Acad::eOk);
  EXPECT_EQ(bar.GetNumVertex(Superior), before + 1);
  EXPECT_EQ(bar.AddFuro(hole, Direita), Acad::eOk);
  EXPECT_EQ(bar.GetNumVertex(Superior), before + 1);
  EXPECT_EQ(bar.GetNumVertex(Direita), 1);
  EXPECT_EQ(bar.GetNumFuros(), 1);
  KrObjectArray<KrVector> list;
  list.append(hole);
  EXPECT_EQ(bar.getFurosBarra(list), Acad::eOk);
  EXPECT_EQ(list.length(), 2) << "appended";
}

TEST(ElementOfAHole, GoesWithRemovefurosWhileTheRecordStays) {
  PlainI bar;
  KrFuro holes = one({20, 100, 120}, {20, 91, 120}, 18);
  holes.Add({-3, 40, 130}, {3, 40, 130}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600);
  const int all = bar.GetNumVertex(Superior);
  bar.removeFuros();
  EXPECT_EQ(bar.GetNumVertex(Superior), all - 5);
  EXPECT_TRUE(space::elementsOf(bar, 0).empty());
  EXPECT_EQ(bar.numFuros(), 2);
}

// --- Keeping up ------------------------------------------------------------------------------------------------------

TEST(Holes, AtTheEndsOfAScaledBarStay) {
  PlainI bar;
  KrFuro holes = one({20, 100, 0}, {20, 91, 0}, 18);
  holes.Add({20, 100, 600.0 / 7}, {20, 91, 600.0 / 7}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600.0 / 7);
  for (const double scale : {0.1, 0.3, 1.0 / 7}) {
    bar.ObjectScale(scale, scale, scale);
    bar.Gera_KrVector();
    EXPECT_EQ(bar.numFuros(), 2) << scale;
  }
}

TEST(Holes, PastTheBarOrOffTheSectionAreDroppedWhenTheListIsReplaced) {
  for (const KrVistas view : {Secao, Superior}) {
    PlainI bar;
    bar.show(view, 600);
    KrFuro holes = one({20, 100, 601}, {20, 91, 601}, 18);
    holes.Add({20, 100, 120}, {20, 91, 120}, 18, 0, 0);
    holes.Add({60, 100, 120}, {60, 91, 120}, 18, 0, 0);
    bar.AtualizaFuracao(&holes);
    ASSERT_EQ(bar.numFuros(), 1);
    EXPECT_DOUBLE_EQ(space::holesOf(bar).getIni(0).z, 120);
    EXPECT_FALSE(space::elementsOf(bar, 0).empty());
    EXPECT_TRUE(space::elementsOf(bar, 1).empty());
    bar.AtualizaFuracao(nullptr);
    EXPECT_EQ(bar.numFuros(), 1) << "without a list it only brings the picture up to date";
  }
}

TEST(Holes, AreRemovedOneByOne) {
  PlainI bar;
  KrFuro holes = one({20, 100, 120}, {20, 91, 120}, 18);
  holes.Add({20, 100, 220}, {20, 91, 220}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600);
  bar.RemoveFuro(2);
  bar.RemoveFuro(-1);
  EXPECT_EQ(bar.numFuros(), 2);
  bar.RemoveFuro(0);
  ASSERT_EQ(bar.numFuros(), 1);
  EXPECT_EQ(bar.GetNumFuros(), 1);
  EXPECT_DOUBLE_EQ(space::holesOf(bar).getIni(0).z, 220);
}

// --- Moving ----------------------------------------------------------------------------------------------------------

TEST(MovedHoles, FollowADisplacementOfTheDrawingInEveryViewQuarterAndScale) {
  for (const double scale : {1.0, 0.1}) {
    for (const KrVistas view : space::kElevations) {
      for (int quarter = 0; quarter < 4; ++quarter) {
        SCOPED_TRACE(testing::Message() << "view " << view << ", quarter " << quarter << ", scale " << scale);
        Tube tube;
        tube.setAngleSecao(quarter * kQuarter);
        tube.show(view, 600, 0.7, {1000, 500, 0});
        tube.ObjectScale(scale, scale, scale);
        AcGePoint3d r0, r1;
        tube.GetPointsOfEixo(r0, r1, 1);
        const AcGeVector3d along = (r1 - r0).normal() * scale;
        tube.FurarVista(r0 + along * 200, 6, 18, 0, 0, 1, 0);
        const AcGePoint3d before = space::elementOf(tube, 0, KR_VT_FURO)->midPoint();
        AcArray<int> moved;
        moved.append(0);
        ASSERT_EQ(tube.moveFurosVista(along * 35, moved), Acad::eOk);
        tube.Gera_KrVector();
        const std::optional<KrVector> after = space::elementOf(tube, 0, KR_VT_FURO);
        ASSERT_TRUE(after.has_value());
        EXPECT_TRUE(after->midPoint().isEqualTo(before + along * 35));
        const bool against = view == Inferior || view == Esquerda;
        EXPECT_NEAR(space::holesOf(tube).getIni(0).z, against ? 600 - 235 : 235, 1e-9) << "real size at any scale";
      }
    }
  }
}

TEST(MovedHoles, SeenEdgeOnMoveOnlyAlongTheBar) {
  PlainI bar;
  KrFuro holes = one({20, 100, 120}, {20, 91, 120}, 18);
  holes.Add({-3, 40, 130}, {3, 40, 130}, 18, 0, 0);
  holes.Add({20, -91, 120}, {20, -100, 120}, 18, 0, 0);
  bar.setFurosSemLink(holes);
  bar.show(Superior, 600);
  AcArray<int> all;
  for (int i = 0; i < 4; ++i) all.append(i);
  ASSERT_EQ(bar.moveFurosVista({10, 5, 0}, all), Acad::eOk);
  KrFuro now = space::holesOf(bar);
  EXPECT_TRUE(now.getIni(0).isEqualTo(AcGeVector3d(15, 100, 130))) << "up in the drawing is -X of the section";
  EXPECT_TRUE(now.getFim(0).isEqualTo(AcGeVector3d(15, 91, 130)));
  EXPECT_TRUE(now.getIni(1).isEqualTo(AcGeVector3d(-3, 40, 130)));
  EXPECT_TRUE(now.getIni(2).isEqualTo(AcGeVector3d(20, -91, 120))) << "it isn't drawn from above";
  ASSERT_EQ(bar.moveFurosVista({10, 0, 0}, all), Acad::eOk);
  now = space::holesOf(bar);
  EXPECT_TRUE(now.getIni(1).isEqualTo(AcGeVector3d(-3, 40, 140)));
  EXPECT_TRUE(now.getIni(2).isEqualTo(AcGeVector3d(20, -91, 120)));
}

TEST(MovedHoles, NeedAnElevationAndAHoleThatCanMove) {
  PlainI bar;
  bar.setFurosSemLink(one({-3, 40, 130}, {3, 40, 130}, 18));
  AcArray<int> first;
  first.append(0);
  bar.show(Secao, 600);
  EXPECT_EQ(bar.moveFurosVista({10, 0, 0}, first), Acad::eNotApplicable);
  bar.show(Superior, 600);
  EXPECT_EQ(bar.moveFurosVista({0, 10, 0}, first), Acad::eNotApplicable) << "edge on, across the bar";
  EXPECT_EQ(bar.moveFurosVista({10, 0, 0}, AcArray<int>()), Acad::eNotApplicable);
  EXPECT_TRUE(space::holesOf(bar).getIni(0).isEqualTo(AcGeVector3d(-3, 40, 130)));
}

}  // namespace
