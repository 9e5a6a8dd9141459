// Drilling: which walls a line passes, what is recorded of a hole, and from a pick in an elevation to the section.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "HoleSpace.h"
#include "Sections.h"
#include "object/TestMember.h"

namespace {

using sections::Box;
using sections::PlainI;
using sections::Tube;
using space::kPi;
using space::kQuarter;

/// The walls as (start, end) along Y, of a line along Y.
std::vector<std::pair<double, double>> wallsInY(const KrObject& member, AcGeVector3d from, AcGeVector3d dir,
                                                int paredes, int deFora = 0) {
  AcArray<AcGeVector3d> found;
  member.FurosInters(from, dir, found, paredes, deFora);
  std::vector<std::pair<double, double>> walls;
  for (int i = 0; i + 1 < found.length(); i += 2) {
    EXPECT_NEAR(found[i].x, from.x, 1e-9);
    EXPECT_DOUBLE_EQ(found[i].z, from.z) << "the place along the bar is that of the line's origin";
    EXPECT_DOUBLE_EQ(found[i + 1].z, 0);
    walls.emplace_back(found[i].y, found[i].y + found[i + 1].y);
  }
  return walls;
}

MATCHER_P2(Between, from, to, "") {
  return std::fabs(arg.first - from) < 1e-9 && std::fabs(arg.second - to) < 1e-9;
}
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// --- Walls -----------------------------------------------------------------------------------------------------------

TEST(Walls, OfALineWithoutDirectionAreNone) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, 0, 0}, -1), IsEmpty());
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, 0, 5}, -1), IsEmpty()) << "only what lies in the section counts";
}

TEST(Walls, OfALineBesideTheSectionAreNone) {
  for (const int paredes : {-1, 0, 1, 3}) EXPECT_THAT(wallsInY(PlainI(), {51, 0, 0}, {0, 1, 0}, paredes), IsEmpty());
}

TEST(Walls, AllOfThemGoAlongTheDirectionWhereverTheLineStarts) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 7}, {0, 1, 0}, -1), ElementsAre(Between(-100, -91), Between(91, 100)));
  EXPECT_THAT(wallsInY(PlainI(), {20, 300, 7}, {0, -1, 0}, -1), ElementsAre(Between(100, 91), Between(-91, -100)));
  EXPECT_THAT(wallsInY(PlainI(), {0, 0, 7}, {0, 1, 0}, -1), ElementsAre(Between(-100, 100))) << "along the web";
}

TEST(Walls, OfATubeAreTwo) {
  EXPECT_THAT(wallsInY(Tube(), {0, 0, 0}, {0, -1, 0}, -1), ElementsAre(Between(50, 45), Between(-45, -50)));
  const double outer = std::sqrt(50.0 * 50 - 30 * 30);
  const double inner = std::sqrt(45.0 * 45 - 30 * 30);
  EXPECT_THAT(wallsInY(Tube(), {30, 0, 0}, {0, -1, 0}, -1),
              ElementsAre(Between(outer, inner), Between(-inner, -outer)));
}

TEST(Walls, AnOddCrossingIsDropped) {
  // An open chain: the line leaves a wall that nothing closes.
  class Open : public sections::Bar {
   public:
    Open() {
      corner(-10, 0);
      corner(10, 0);
      corner(10, 10);
      corner(-10, 10, 6000);
      corner(-10, 20);
      corner(10, 20);
      origin(0, 0);
    }
  };
  EXPECT_THAT(wallsInY(Open(), {0, -5, 0}, {0, 1, 0}, -1), ElementsAre(Between(0, 10))) << "and 20 goes";
  EXPECT_THAT(wallsInY(Open(), {0, -5, 0}, {0, 1, 0}, 5), ElementsAre(Between(0, 10)));
}

TEST(Walls, OfASegmentAreThoseThatItPasses) {
  const PlainI bar;
  EXPECT_THAT(wallsInY(bar, {20, 110, 0}, {0, -30, 0}, 0), ElementsAre(Between(100, 91)));
  EXPECT_THAT(wallsInY(bar, {20, 110, 0}, {0, -220, 0}, 0), ElementsAre(Between(100, 91), Between(-91, -100)));
  EXPECT_THAT(wallsInY(bar, {20, 110, 0}, {0, -9, 0}, 0), IsEmpty()) << "it ends before the flange";
  EXPECT_THAT(wallsInY(bar, {20, 110, 0}, {0, -15, 0}, 0), ElementsAre(Between(100, 91)))
      << "it ends within the flange, and that one goes through";
  EXPECT_THAT(wallsInY(bar, {20, 110, 0}, {0, -205, 0}, 0), ElementsAre(Between(100, 91), Between(-91, -100)))
      << "the last wall too";
  EXPECT_THAT(wallsInY(bar, {20, 0, 0}, {0, -95, 0}, 0), ElementsAre(Between(-91, -100)));
}

TEST(Walls, OfASegmentThatStartsInsideOneBeginWithThatWall) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 95, 0}, {0, -20, 0}, 0), ElementsAre(Between(100, 91)));
  EXPECT_THAT(wallsInY(PlainI(), {20, 95, 0}, {0, -220, 0}, 0), ElementsAre(Between(100, 91), Between(-91, -100)));
}

TEST(Walls, OfASegmentFromAFaceAreCountedOnce) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 100, 0}, {0, -10, 0}, 0), ElementsAre(Between(100, 91)));
}

TEST(Walls, TheFirstOnesCountFromOutside) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, -1, 0}, 1), ElementsAre(Between(100, 91)))
      << "although the line starts between the flanges and looks down";
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, -1, 0}, 2), ElementsAre(Between(100, 91), Between(-91, -100)));
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, -1, 0}, 9), ElementsAre(Between(100, 91), Between(-91, -100)));
}

TEST(Walls, OrFromTheFirstThatTheLineReaches) {
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, -1, 0}, 1, 1), ElementsAre(Between(-91, -100)))
      << "the segment ends short of it, and the line goes on";
  EXPECT_THAT(wallsInY(PlainI(), {20, 0, 0}, {0, -95, 0}, 1, 1), ElementsAre(Between(-91, -100)));
  EXPECT_THAT(wallsInY(PlainI(), {20, 95, 0}, {0, -1, 0}, 1, 1), ElementsAre(Between(100, 91))) << "from within a wall";
  EXPECT_THAT(wallsInY(PlainI(), {20, 95, 0}, {0, -20, 0}, 1, 1), ElementsAre(Between(100, 91)))
      << "a wall that ends at the segment's first crossing counts";
  EXPECT_THAT(wallsInY(PlainI(), {20, 95, 0}, {0, -20, 0}, 2, 1), ElementsAre(Between(100, 91), Between(-91, -100)));
  EXPECT_THAT(wallsInY(PlainI(), {20, -120, 0}, {0, -1, 0}, 1, 1), IsEmpty()) << "all walls are behind";
}

// --- From the section ------------------------------------------------------------------------------------------------

TEST(DrillingASection, RecordsThePlaceAboutTheReferenceOriginOfTheOutline) {
  PlainI bar({30, 70, 0});
  bar.show(Secao, 600, 0, {1000, 2000, 0});
  ASSERT_EQ(bar.FurarSecao({1020, 2110, 250}, {0, -30}, 18, 12, 0.4, 0, 0, 0), Acad::eOk);
  KrFuro holes;
  bar.Furos(holes, 0);
  ASSERT_EQ(holes.Qtd(), 1);
  EXPECT_TRUE(holes.getIni(0).isEqualTo(AcGeVector3d(50, 170, 250))) << "in the outline's coordinates";
  EXPECT_TRUE(holes.getFim(0).isEqualTo(AcGeVector3d(50, 161, 250)));
  EXPECT_DOUBLE_EQ(holes.getDiametro(0), 18);
  EXPECT_DOUBLE_EQ(holes.getStretch(0), 12);
  bar.Furos(holes, 1);
  EXPECT_TRUE(holes.getIni(0).isEqualTo(AcGeVector3d(20, 100, 250))) << "about the reference origin";
}

TEST(DrillingASection, CountsTheAngleFromTheOtherSideUnlessItLooksTowardsMinusX) {
  PlainI bar;
  bar.show(Secao, 600);
  bar.FurarSecao({20, 120, 100}, {0, -40}, 18, 12, 0.4, 0, 0, 0);
  bar.FurarSecao({-20, 0, 100}, {30, 0}, 18, 12, 0.4, 0, 0, 0);
  bar.FurarSecao({20, 10, 100}, {-30, 0}, 18, 12, 0.4, 0, 0, 0);
  const KrFuro holes = space::holesOf(bar);
  ASSERT_EQ(holes.Qtd(), 3);
  EXPECT_DOUBLE_EQ(holes.getAngle(0), kPi - 0.4);
  EXPECT_DOUBLE_EQ(holes.getAngle(1), kPi - 0.4);
  EXPECT_DOUBLE_EQ(holes.getAngle(2), 0.4);
}

TEST(DrillingASection, TakesAShortStretchForARoundHole) {
  PlainI bar;
  bar.show(Secao, 600);
  bar.FurarSecao({20, 120, 100}, {0, -40}, 18, 0.0005, 0, 0, 0, 0);
  bar.FurarSecao({30, 120, 100}, {0, -40}, 18, 0.001, 0, 0, 0, 0);
  EXPECT_EQ(space::holesOf(bar).getStretch(0), 0);
  EXPECT_EQ(space::holesOf(bar).getStretch(1), 0.001);
}

TEST(DrillingASection, MakesAHoleForEachWall) {
  Tube tube;
  tube.show(Secao, 600);
  EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, -1, 0, 0), Acad::eOk);
  const KrFuro holes = space::holesOf(tube);
  ASSERT_EQ(holes.Qtd(), 2);
  EXPECT_TRUE(holes.getIni(1).isEqualTo(AcGeVector3d(0, -45, 100)));
  EXPECT_TRUE(holes.getFim(1).isEqualTo(AcGeVector3d(0, -50, 100)));
  EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, -2, 0, 0), Acad::eNotApplicable) << "below all walls";
  EXPECT_EQ(tube.numFuros(), 2);
}

TEST(DrillingASection, WithFewerThanAllWallsMakesNothingFromWithinAWallEither) {
  PlainI bar;
  bar.show(Secao, 600);
  EXPECT_EQ(bar.FurarSecao({20, 95, 100}, {0, 10}, 18, 0, 0, -2, 0, 1), Acad::eNotApplicable);
  EXPECT_EQ(bar.numFuros(), 0);
  EXPECT_EQ(bar.FurarSecao({20, 95, 100}, {0, 10}, 18, 0, 0, 1, 0, 1), Acad::eOk);
  EXPECT_EQ(bar.numFuros(), 1);
}

TEST(DrillingASection, StopsAtTheMostHolesThatAListCounts) {
  Tube tube;
  tube.show(Secao, 600);
  KrFuro holes;
  for (int i = 0; i < 65534; ++i) holes.Add({0, 50, 0.005 * i}, {0, 45, 0.005 * i}, 18, 0, 0);
  ASSERT_EQ(tube.setFurosSemLink(holes), Acad::eOk);
  EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, -1, 0, 0), Acad::eOk) << "two walls, room for one";
  EXPECT_EQ(tube.numFuros(), 65535);
  EXPECT_EQ(tube.FurarSecao({0, 0, 100}, {0, -1}, 18, 0, 0, -1, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(tube.numFuros(), 65535);
}

TEST(DrillingASection, ThatMeetsNoWallMakesNothing) {
  PlainI bar;
  bar.show(Secao, 600);
  EXPECT_EQ(bar.FurarSecao({60, 0, 100}, {0, 1}, 18, 0, 0, -1, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.FurarSecao({20, 0, 100}, {0, 0}, 18, 0, 0, -1, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.numFuros(), 0);
}

TEST(DrillingASection, ALineThatTouchesACornerMakesNoHoleOfNoLength) {
  // Two squares on their corners, the one upon the other.
  TestMember bar;
  bar.make({{{0, 10}, {10, 0}, {0, -10}, {-10, 0}}, {{0, 30}, {10, 20}, {0, 10}, {-10, 20}}}, Secao, 600);
  for (const double y : {30.0, 10.0, -10.0}) {
    for (const int walls : {-1, 0, 1, 2})
      EXPECT_EQ(bar.FurarSecao({-30, y, 100}, {60, 0}, 18, 0, 0, walls, 0, 0), Acad::eNotApplicable)
          << y << " " << walls;
  }
  EXPECT_EQ(bar.numFuros(), 0);
  EXPECT_EQ(bar.FurarSecao({-30, 9, 100}, {60, 0}, 18, 0, 0, -1, 0, 0), Acad::eOk);
  EXPECT_EQ(bar.numFuros(), 1);
}

TEST(DrillingASection, RefusesNumbersThatAreNotFinite) {
  PlainI bar;
  bar.show(Secao, 600);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_EQ(bar.FurarSecao({20, 120, nan}, {0, -40}, 18, 0, 0, 0, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.FurarSecao({20, 120, 100}, {0, -40}, infinite, 0, 0, 0, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.FurarSecao({20, 120, 100}, {0, -40}, 18, nan, 0, 0, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.FurarSecao({20, 120, 100}, {0, -40}, 18, 0, nan, 0, 0, 0), Acad::eNotApplicable);
  KrFuro holes;
  holes.Add(AcGeVector3d(20, 100, 100), AcGeVector3d(20, 91, nan), 18, 0, 0);
  EXPECT_EQ(bar.setFurosSemLink(holes), Acad::eInvalidInput);
  EXPECT_EQ(bar.setFuros(&holes), Acad::eInvalidInput);
  EXPECT_EQ(bar.numFuros(), 0);
}

TEST(DrillingASection, OffTheBarInAnElevationLeavesNothing) {
  PlainI bar;
  bar.show(Superior, 600);
  EXPECT_EQ(bar.FurarSecao({20, 120, 601}, {0, -40}, 18, 0, 0, 0, 0, 0), Acad::eNotApplicable);
  EXPECT_EQ(bar.numFuros(), 0);
}

TEST(DrillingASection, CanCountItsPlaceFromTheAxisLine) {
  for (const double scale : {1.0, 0.1}) {
    for (const KrVistas view : space::kElevations) {
      PlainI bar;
      bar.show(view, 600, 0.5);
      const int inverted = bar.isInverted();
      // The axis line starts 40 before the steel, as the bar runs, and ends with it.
      KrVector axis;
      ASSERT_EQ(bar.GetVectorEixo(VistaCorrente, axis), 1);
      const AcGeVector3d along = (axis.endPoint() - axis.startPoint()).normal();
      AcGePoint3d a = axis.startPoint();
      AcGePoint3d b = axis.endPoint();
      (inverted != 0 ? b : a) += along * (inverted != 0 ? 40 : -40);
      axis.set(a, b);
      bar.UpdateVectorEixo(VistaCorrente, axis);
      bar.setStartPoint(a);
      bar.setendPoint(b);
      bar.ObjectScale(scale, scale, scale);
      const AcGePoint3d start = bar.startPoint();
      bar.FurarSecao({start.x + 20, start.y + 120, 100}, {0, -40}, 18, 0, 0, 0, 1, 0);
      ASSERT_EQ(bar.numFuros(), 1);
      EXPECT_NEAR(space::holesOf(bar).getIni(0).z, 60, 1e-9) << "view " << view << " at " << scale;
    }
  }
}

// --- From a view -----------------------------------------------------------------------------------------------------

TEST(DrillingAView, IsForElevationsAlone) {
  PlainI bar;
  for (const KrVistas view : space::kSections) {
    bar.show(view, 600);
    EXPECT_EQ(bar.FurarVista({100, 20, 0}, 50, 18, 0, 0, 1, 0), Acad::eNotApplicable);
  }
  EXPECT_EQ(bar.numFuros(), 0);
}

TEST(DrillingAView, SaysNothingOfAPickBesideTheBar) {
  PlainI bar;
  bar.show(Superior, 600);
  EXPECT_EQ(bar.FurarVista({100, 70, 0}, 50, 18, 0, 0, 1, 0), Acad::eOk) << "its answer isn't passed on";
  EXPECT_EQ(bar.numFuros(), 0);
}

TEST(DrillingAView, DrawsTheHoleWhereItWasPickedAtTheAngleAskedForInEveryViewAndQuarter) {
  for (const double scale : {1.0, 0.1}) {
    for (const KrVistas view : space::kElevations) {
      for (int quarter = 0; quarter < 4; ++quarter) {
        SCOPED_TRACE(testing::Message() << "view " << view << ", quarter " << quarter << ", scale " << scale);
        PlainI bar({30, 70, 0});
        bar.setAngleSecao(quarter * kQuarter);
        bar.show(view, 600, kPi / 6, {1000, 500, 0});
        bar.ObjectScale(scale, scale, scale);
        AcGePoint3d r0, r1;
        ASSERT_EQ(bar.GetPointsOfEixo(r0, r1, 1), Acad::eOk);
        const AcGeVector3d along = (r1 - r0).normal();
        const AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(along);
        const AcGePoint3d pick = r0 + along * (150 * scale) + across * (20 * scale);

        ASSERT_EQ(bar.FurarVista(pick, 8, 18, 12, 0.7, 1, 1), Acad::eOk);
        ASSERT_EQ(bar.numFuros(), 1);
        const std::optional<KrVector> drawn = space::elementOf(bar, 0, KR_VT_FURO);
        ASSERT_TRUE(drawn.has_value());
        EXPECT_TRUE(drawn->midPoint().isEqualTo(pick, AcGeTol())) << drawn->midPoint().x << " " << drawn->midPoint().y;
        EXPECT_NEAR(std::sin(drawn->direction() - 0.7), 0, 1e-9) << "modulo pi";

        AcGePoint3d p;
        double diametro = 0, stretch = 0, angulo = 0;
        ASSERT_EQ(bar.wcsCoordFuro(0, p, diametro, stretch, angulo, 1), Acad::eOk);
        EXPECT_TRUE(p.isEqualTo(drawn->midPoint()));
        EXPECT_NEAR(std::sin(angulo - drawn->direction()), 0, 1e-9);
        EXPECT_DOUBLE_EQ(diametro, 18);
        EXPECT_DOUBLE_EQ(stretch, 12);
      }
    }
  }
}

TEST(DrillingAView, RecordsThePlaceInTheSectionWorkedOutByHand) {
  // Seen from above, X of the section runs to the right of the drawn bar, that is to -Y; from below Z runs back from
  // the far end.
  PlainI above;
  above.show(Superior, 600);
  above.FurarVista({150, 20, 0}, 15, 18, 0, 0, 0, 0);
  ASSERT_EQ(above.numFuros(), 1);
  EXPECT_TRUE(space::holesOf(above).getIni(0).isEqualTo(AcGeVector3d(-20, 100, 150)));
  EXPECT_TRUE(space::holesOf(above).getFim(0).isEqualTo(AcGeVector3d(-20, 91, 150)));

  PlainI below;
  below.show(Inferior, 600);
  below.FurarVista({150, 20, 0}, 15, 18, 0, 0, 0, 0);
  ASSERT_EQ(below.numFuros(), 1);
  EXPECT_TRUE(space::holesOf(below).getIni(0).isEqualTo(AcGeVector3d(-20, -100, 450)));

  PlainI right;
  right.show(Direita, 600);
  right.FurarVista({150, 20, 0}, 60, 18, 0, 0, 1, 0);
  ASSERT_EQ(right.numFuros(), 1);
  EXPECT_TRUE(space::holesOf(right).getIni(0).isEqualTo(AcGeVector3d(3, 20, 150)));
  EXPECT_TRUE(space::holesOf(right).getFim(0).isEqualTo(AcGeVector3d(-3, 20, 150)));

  PlainI left;
  left.show(Esquerda, 600);
  left.FurarVista({150, 20, 0}, 60, 18, 0, 0, 1, 0);
  ASSERT_EQ(left.numFuros(), 1);
  EXPECT_TRUE(space::holesOf(left).getIni(0).isEqualTo(AcGeVector3d(-3, 20, 450)));
}

TEST(DrillingAView, PassesExactlyTheWallsThatTheDepthReachesFromTheFace) {
  for (const double scale : {1.0, 0.1}) {
    for (const KrVistas view : space::kElevations) {
      for (int quarter = 0; quarter < 4; ++quarter) {
        SCOPED_TRACE(testing::Message() << "view " << view << ", quarter " << quarter << ", scale " << scale);
        Box box;
        box.setAngleSecao(quarter * kQuarter);
        box.show(view, 600, kPi / 6, {1000, 500, 0});
        box.ObjectScale(scale, scale, scale);
        AcGePoint3d r0, r1;
        box.GetPointsOfEixo(r0, r1, 1);
        const AcGeVector3d along = (r1 - r0).normal();
        const AcGePoint3d pick = r0 + along * (150 * scale);
        box.FurarVista(pick, 5, 18, 0, 0, 0, 0);
        EXPECT_EQ(box.numFuros(), 1) << "a wall of 4 and 1 more";
        EXPECT_EQ(box.GetNumFuros(), 1);
        box.FurarVista(pick, 101, 18, 0, 0, 0, 0);
        EXPECT_EQ(box.numFuros(), 3) << "right through";
      }
    }
  }
}

TEST(DrillingAView, OfARoundBarStartsOnItsCrown) {
  // Nothing straight stands in the section: its face is that of the circle.
  Tube tube;
  tube.show(Superior, 600);
  tube.FurarVista({150, 0, 0}, 6, 18, 0, 0, 0, 0);
  ASSERT_EQ(tube.numFuros(), 1);
  EXPECT_TRUE(space::holesOf(tube).getIni(0).isEqualTo(AcGeVector3d(0, 50, 150)));
}

}  // namespace
