// Moving, turning, mirroring, enlarging a member by a matrix.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "object/Drawing.h"
#include "object/ElementLists.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

const KrVistas kViews[] = {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso};
const KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};

const oracle::Outline kAngle = {{{0, 0}, {0, 120}, {12, 120}, {12, 8}, {60, 8}, {60, 0}}};
/// A bent strip: an arc in the outline shows which way round it was mirrored.
const oracle::Outline kBent = {{{0, 0}, {0, 50, -0.41421356237309503}, {30, 80}, {90, 80}, {90, 0}}};

AcGeMatrix3d mirror(double angle, const AcGePoint3d& through = {70, -20, 0}) {
  const AcGeVector3d along(std::cos(angle), std::sin(angle), 0);
  return AcGeMatrix3d::mirroring(AcGePlane(through, along.crossProduct(AcGeVector3d::kZAxis)));
}

AcGeMatrix3d turn(double angle, const AcGePoint3d& about = {70, -20, 0}) {
  return AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, about);
}

/// An angle with a hole in each leg: one round, one oblong, by default across the bar.
void drill(KrObject& member, double angle) {
  KrFuro holes;
  holes.Add(AcGeVector3d(0, 60, 120), AcGeVector3d(12, 60, 120), 18, 0, 0);
  holes.Add(AcGeVector3d(40, 0, 700), AcGeVector3d(40, 8, 700), 14, 20, angle);
  member.setFurosSemLink(holes);
}

void makeDrilled(TestMember& member, KrVistas view, double quarter = 0, double angle = kPi / 2) {
  member.setAngleSecao(quarter * kPi / 2);
  drill(member, angle);
  member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
}

// --- What moves with the member --------------------------------------------------------------------------------------

TEST(Transform, ARigidMotionMovesTheListAsTheMatrixDoes) {
  for (const KrVistas view : kViews) {
    for (const double angle : {0.0, 0.4, kPi / 2, kPi, 5.0}) {
      SCOPED_TRACE(testing::Message() << "view " << view << " by " << angle);
      const AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(30, -700, 0)) * turn(angle);
      TestMember member;
      makeDrilled(member, view);
      lists::Elements want = lists::of(member, view);
      AcGePoint3d start = member.startPoint();
      ASSERT_EQ(member.transformBy(m), Acad::eOk);
      lists::transform(want, m);
      EXPECT_THAT(lists::of(member, view), lists::Are(want));
      EXPECT_LT(member.startPoint().distanceTo(start.transformBy(m)), 1e-9);
      // The model moved with the list: made anew it shows the same.
      member.Gera_KrVector();
      EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
      EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-9);
    }
  }
}

TEST(Transform, AMoveOfTheBarMovesItsAxisOffTheReferenceLineToo) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  KrVector axis;
  member.GetVectorEixo(Superior, axis);
  axis.set(AcGePoint3d(-50, 40, 0), AcGePoint3d(1050, 40, 0));
  member.UpdateVectorEixo(Superior, axis);
  member.setStartPoint(axis.startPoint());
  member.setendPoint(axis.endPoint());
  const AcGeMatrix3d m = turn(kPi / 2, AcGePoint3d::kOrigin);
  member.transformBy(m);
  EXPECT_NEAR(member.angleVista(), kPi / 2, 1e-12);
  EXPECT_LT(member.startPoint().distanceTo(AcGePoint3d(-40, -50, 0)), 1e-9);
  lists::Elements moved = lists::of(member, Superior);
  member.Gera_KrVector();
  EXPECT_THAT(lists::of(member, Superior), lists::ShowTheSameAs(moved));
}

TEST(Transform, LosesTheMoveOutOfThePlane) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  lists::Elements want = lists::of(member, Superior);
  member.transformBy(AcGeMatrix3d::translation(AcGeVector3d(10, 20, 300)));
  lists::transform(want, AcGeMatrix3d::translation(AcGeVector3d(10, 20, 0)));
  EXPECT_THAT(lists::of(member, Superior), lists::Are(want));
  EXPECT_EQ(member.startPoint(), AcGePoint3d(10, 20, 0));
}

TEST(Transform, ThatLeavesTheDrawingPlaneIsIgnored) {
  for (const AcGeVector3d& axis : {AcGeVector3d::kXAxis, AcGeVector3d(0.6, 0.8, 0)}) {
    TestMember member;
    member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
    const lists::Elements before = lists::of(member, Superior);
    EXPECT_EQ(member.transformBy(AcGeMatrix3d::rotation(kPi / 2, axis)), Acad::eOk);
    EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
    EXPECT_EQ(member.startPoint(), AcGePoint3d(500, 80, 0));
    EXPECT_DOUBLE_EQ(member.angleVista(), 0.7);
    double length = 0;
    member.Comprimento(length);
    EXPECT_DOUBLE_EQ(length, 1000);
  }
}

TEST(Transform, ByWhatIsNoNumberIsRefused) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
  const lists::Elements before = lists::of(member, Superior);
  AcGeMatrix3d m;
  m(0, 3) = std::nan("");
  EXPECT_EQ(member.transformBy(m), Acad::eInvalidInput);
  m(0, 3) = INFINITY;
  EXPECT_EQ(member.transformBy(m), Acad::eInvalidInput);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

TEST(Transform, OfAMemberWithoutAViewDoesNothing) {
  TestMember member;
  member.setStartPoint(AcGePoint3d(1, 2, 0));
  EXPECT_EQ(member.transformBy(turn(1)), Acad::eOk);
  EXPECT_EQ(member.startPoint(), AcGePoint3d(1, 2, 0));
}

TEST(Transform, DropsTheListsOfOtherViewsSoThatNoneIsMadeWhereTheBarWas) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  member.Gera_KrVector(Direita);
  member.transformBy(AcGeMatrix3d::translation(AcGeVector3d(5000, 0, 0)));
  member.Gera_KrVector(Direita);
  EXPECT_NEAR(member.GetMinX(Direita), 5000, 1e-9);
  EXPECT_EQ(member.startPoint(), AcGePoint3d(5000, 0, 0));
}

// --- Enlarging -------------------------------------------------------------------------------------------------------

TEST(Transform, TwiceAsLargeDoublesTheDrawingAndLeavesTheBar) {
  for (const KrVistas view : kViews) {
    TestMember member;
    makeDrilled(member, view);
    lists::Elements want = lists::of(member, view);
    const AcGeMatrix3d m = AcGeMatrix3d::scaling(2, AcGePoint3d(10, 10, 0));
    member.transformBy(m);
    double length = 0, x = 0, y = 0, z = 0;
    member.Comprimento(length);
    member.Xscale(x);
    member.Yscale(y);
    member.Zscale(z);
    EXPECT_DOUBLE_EQ(length, 2000);
    EXPECT_DOUBLE_EQ(x, 2);
    EXPECT_DOUBLE_EQ(y, 2);
    EXPECT_DOUBLE_EQ(z, 2);
    EXPECT_DOUBLE_EQ(member.getComprimentoReal(), 1000);
    lists::transform(want, m);
    const lists::Elements got = lists::of(member, view);
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t i = 0; i < got.size(); ++i) {
      EXPECT_TRUE(lists::near(got[i].startPoint(), want[i].startPoint(), 1e-9));
      EXPECT_TRUE(lists::near(got[i].endPoint(), want[i].endPoint(), 1e-9));
    }
  }
}

TEST(Transform, EnlargesTheBandOfAHoleAndACircle) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  KrVector band(AcGePoint3d(100, 0, 0), AcGePoint3d(100, 12, 0), KR_VT_FURO_LINHA);
  band.setRaio(11);
  band.setIndexFur(3);
  member.AddVertex(band, Superior);
  KrVector circle(AcGePoint3d(50, 60, 0), 25);
  circle.setHidden(1);
  member.AddVertex(circle, Superior);
  member.transformBy(AcGeMatrix3d::scaling(3));
  const lists::Elements all = lists::of(member, Superior);
  EXPECT_DOUBLE_EQ(all[all.size() - 2].radius(), 33);
  EXPECT_EQ(all[all.size() - 2].IndexFur(), 3);
  EXPECT_DOUBLE_EQ(all.back().radius(), 75);
  EXPECT_DOUBLE_EQ(all.back().len(), 75) << "a circle is drawn by its length";
  EXPECT_EQ(all.back().midPoint(), AcGePoint3d(150, 180, 0));
  EXPECT_EQ(all.back().hidden(), 1);
}

TEST(Transform, ManyTurnsLeaveTheScaleAtOne) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  for (int i = 0; i < 100; ++i) member.transformBy(turn(0.1 * i));
  double x = 0;
  member.Xscale(x);
  EXPECT_EQ(x, 1.0) << "exactly: at 1:1 nothing is scaled";
  double length = 0;
  member.Comprimento(length);
  EXPECT_EQ(length, 1000.0);
}

// --- Mirrors ---------------------------------------------------------------------------------------------------------

TEST(Mirror, OfAnElevationMadeAnewIsTheMirroredList) {
  for (const KrVistas view : kElevations) {
    for (int quarter = 0; quarter < 4; ++quarter) {
      for (const double scale : {1.0, 0.1}) {
        for (const double angle : {0.0, 0.4, kPi / 2, 2.2}) {
          SCOPED_TRACE(testing::Message()
                       << "view " << view << ", quarter " << quarter << ", scale " << scale << ", mirror " << angle);
          TestMember member;
          makeDrilled(member, view, quarter);
          member.ObjectScale(scale, scale, scale);
          lists::Elements want = lists::of(member, view);
          ASSERT_EQ(member.transformBy(mirror(angle)), Acad::eOk);
          lists::transform(want, mirror(angle));
          EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
          member.Gera_KrVector();
          EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
          EXPECT_EQ(member.Vista(0), view);
        }
      }
    }
  }
}

TEST(Mirror, TurnsSplitsByTheRealLength) {
  for (const double scale : {1.0, 0.1}) {
    TestMember member;
    member.make(kAngle, Superior, 1000, 0.7, {500, 80, 0});
    KrObjectSplit split;
    split.setZPos(250);
    split.setLength(40);
    member.addSplit(split, 1);
    member.ObjectScale(scale, scale, scale);
    member.Gera_KrVector();
    lists::Elements want = lists::of(member, Superior);
    member.transformBy(mirror(0.4));
    EXPECT_NEAR(member.splitList()[0].zPos(), 750, 1e-9);
    lists::transform(want, mirror(0.4));
    member.Gera_KrVector();
    EXPECT_THAT(lists::of(member, Superior), lists::ShowTheSameAs(want));
  }
}

TEST(Mirror, TurnsNotchesWithTheirArcs) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1}) {
      SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale);
      TestMember member;
      member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
      member.ObjectScale(scale, scale, scale);
      AcGePoint3d p0, p1, p2, p3;
      member.GetExtremePoints(p0, p1, p2, p3, 0, 0);
      // A cope at the upper corner of the drawn start: 60 long, 25 high, its inner corner rounded.
      const AcGeVector3d along = (p2 - p0).normal() * scale;
      const AcGeVector3d down = (p1 - p0).normal() * scale;
      const auto flat = [](const AcGePoint3d& p) { return AcGePoint2d(p.x, p.y); };
      AcArray<AcGePoint2d> points;
      AcArray<double> bulges;
      for (const auto& [a, d, bulge] : {std::array{60.0, -10.0, 0.0}, std::array{60.0, 15.0, -0.41421356237309503},
                                        std::array{50.0, 25.0, 0.0}, std::array{-10.0, 25.0, 0.0}}) {
        points.append(flat(p0 + along * a + down * d));
        bulges.append(bulge);
      }
      AcGePoint2d side = flat(p0 + along * 5 + down * 5);
      const std::size_t whole = lists::of(member, view).size();
      ASSERT_EQ(member.Recorte(points, bulges, side), Acad::eOk);
      member.Gera_KrVector();
      lists::Elements want = lists::of(member, view);
      ASSERT_GT(want.size(), whole) << "the notch shows";
      member.transformBy(mirror(2.2));
      lists::transform(want, mirror(2.2));
      member.Gera_KrVector();
      EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
    }
  }
}

TEST(Mirror, TurnsTheNotchesOfEverySide) {
  TestMember member;
  member.make({{{-50, -50}, {-50, 50}, {50, 50}, {50, -50}}}, Superior, 1000);
  const auto notch = [&](double from, double to) {
    AcArray<AcGePoint2d> points;
    AcArray<double> bulges;
    for (const AcGePoint2d& p : {AcGePoint2d(from, 60), AcGePoint2d(from, 30), AcGePoint2d(to, 30), AcGePoint2d(to, 60),
                                 AcGePoint2d(from, 60)}) {
      points.append(p);
      bulges.append(bulges.length() == 1 ? 0.25 : 0.0);
    }
    AcGePoint2d side((from + to) / 2, 40);
    return member.Recorte(points, bulges, side);
  };
  const auto show = [&](KrVistas view) {
    member.setVista(view);
    member.Gera_KrVector();
  };
  ASSERT_EQ(notch(400, 500), Acad::eOk);
  show(Direita);
  ASSERT_EQ(notch(600, 650), Acad::eOk);
  show(Superior);

  member.transformBy(AcGeMatrix3d::mirroring(AcGePlane(AcGePoint3d(500, 0, 0), AcGeVector3d::kXAxis)));

  const struct {
    KrVistas view;
    double from, to;  // 1000 less what they were
  } cases[] = {{Superior, 600, 500}, {Direita, 400, 350}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.view);
    show(c.view);
    KrObjectRecorteArray shown;
    ASSERT_EQ(member.getRecortesWCS(shown), Acad::eOk);
    ASSERT_EQ(shown.length(), 1);
    EXPECT_TRUE(shown[0].points()[1].isEqualTo(AcGePoint2d(c.from, 30)));
    EXPECT_TRUE(shown[0].points()[2].isEqualTo(AcGePoint2d(c.to, 30)));
    EXPECT_DOUBLE_EQ(shown[0].bulges()[1], -0.25);
    EXPECT_TRUE(shown[0].lado().isEqualTo(AcGePoint2d((c.from + c.to) / 2, 40)));
  }
}

TEST(Mirror, TurnsASlantedOblongHole) {
  for (const auto& [view, quarter] : {std::pair(Inferior, 0), std::pair(Superior, 2), std::pair(Direita, 3)}) {
    SCOPED_TRACE(testing::Message() << "view " << view);
    TestMember member;
    makeDrilled(member, view, quarter, 0.3);
    lists::Elements want = lists::of(member, view);
    ASSERT_TRUE(std::any_of(want.begin(), want.end(), [](const KrVector& v) {
      return v.type() == KR_VT_FURO && v.IndexFur() == 1;
    })) << "seen face on";
    member.transformBy(mirror(0.4));
    lists::transform(want, mirror(0.4));
    member.Gera_KrVector();
    EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
  }
}

TEST(Mirror, OfAnElevationSwapsItsEndsAndWhatStandsAlongIt) {
  TestMember member;
  makeDrilled(member, Superior, 0, 0.3);
  member.setZCoordIni(100);
  member.setZCoordEnd(300);
  member.setVisualRepStart(0.2);
  member.setVisualRepEnd(0.7);
  KrVector axis;
  member.GetVectorEixo(Superior, axis);
  axis.setHidden(1);
  member.UpdateVectorEixo(Superior, axis);
  const AcGePoint3d start = member.startPoint();
  const AcGePoint3d end = member.endPoint();

  const AcGeMatrix3d m = mirror(kPi / 2);
  member.transformBy(m);

  EXPECT_LT(member.startPoint().distanceTo(m * end), 1e-9);
  EXPECT_LT(member.endPoint().distanceTo(m * start), 1e-9);
  AcGePoint3d a, b;
  for (const int line : {0, 1}) {
    ASSERT_EQ(member.GetPointsOfEixo(a, b, line), Acad::eOk);
    EXPECT_LT(a.distanceTo(m * end), 1e-9);
    EXPECT_LT(b.distanceTo(m * start), 1e-9);
  }
  member.GetVectorEixo(Superior, axis);
  EXPECT_EQ(axis.hidden(), 1);
  EXPECT_NEAR(member.angleVista(), 2 * kPi - 0.7, 1e-12) << "from the new start to the new end";
  KrFuro holes;
  member.Furos(holes, 0);
  EXPECT_NEAR(holes.getIni(0).z, 880, 1e-9);
  EXPECT_NEAR(holes.getFim(0).z, 880, 1e-9);
  EXPECT_NEAR(holes.getIni(1).z, 300, 1e-9);
  EXPECT_NEAR(holes.getFim(1).z, 300, 1e-9);
  EXPECT_NEAR(holes.getAngle(1), kPi - 0.3, 1e-12);
  EXPECT_DOUBLE_EQ(member.zCoordIni(), 300);
  EXPECT_DOUBLE_EQ(member.zCoordEnd(), 100);
  EXPECT_NEAR(member.visualRepStart(), 0.3, 1e-15);
  EXPECT_NEAR(member.visualRepEnd(), 0.8, 1e-15);
}

TEST(Mirror, AtAScaleTurnsWhatIsStoredByTheRealLength) {
  TestMember member;
  makeDrilled(member, Superior);
  member.ObjectScale(0.1, 0.1, 0.1);
  member.transformBy(mirror(0.3));
  KrFuro holes;
  member.Furos(holes, 0);
  EXPECT_NEAR(holes.getIni(0).z, 880, 1e-9);
  EXPECT_NEAR(holes.getFim(0).z, 880, 1e-9);
}

TEST(Mirror, OfASectionIsTheSectionFromTheOtherEnd) {
  for (const KrVistas view : {Secao, SecaoVerso}) {
    for (const double angle : {0.0, 0.3, 0.5236, kPi / 2, 2.2}) {
      for (const double secao : {0.0, 0.4, kPi / 2}) {
        SCOPED_TRACE(testing::Message() << "view " << view << ", mirror " << angle << ", section " << secao);
        TestMember member;
        member.setAngleSecao(secao);
        member.make(kBent, view, 1000, 0.7, {500, 80, 0});
        lists::Elements want = lists::of(member, view);
        ASSERT_EQ(member.transformBy(mirror(angle)), Acad::eOk);
        lists::transform(want, mirror(angle));
        const KrVistas other = view == Secao ? SecaoVerso : Secao;
        EXPECT_EQ(member.Vista(0), other);
        EXPECT_EQ(member.GetNumVertex(view), 0);
        EXPECT_THAT(lists::of(member, other), lists::Are(want));
        member.Gera_KrVector();
        EXPECT_THAT(lists::of(member, other), lists::ShowTheSameAs(want));
      }
    }
  }
}

TEST(Mirror, ATurnOfASectionTurnsTheSectionOfTheModel) {
  for (const KrVistas view : {Secao, SecaoVerso}) {
    TestMember member;
    member.setAngleSecao(0.1);
    member.make(kBent, view, 1000, 0.7, {500, 80, 0});
    lists::Elements want = lists::of(member, view);
    member.transformBy(turn(kPi / 6));
    lists::transform(want, turn(kPi / 6));
    EXPECT_NEAR(std::remainder(member.angleSecao() - (view == Secao ? 0.1 + kPi / 6 : 0.1 - kPi / 6), 2 * kPi), 0,
                1e-12);
    EXPECT_DOUBLE_EQ(member.angleVista(), 0.7);
    member.Gera_KrVector();
    EXPECT_THAT(lists::of(member, view), lists::ShowTheSameAs(want));
  }
}

TEST(Mirror, TwiceIsTheIdentityOnTheModel) {
  for (const KrVistas view : kViews) {
    for (const double angle : {0.0, 0.4, 2.2}) {
      SCOPED_TRACE(testing::Message() << "view " << view << ", mirror " << angle);
      TestMember member;
      makeDrilled(member, view, 1);
      member.setZCoordIni(5);
      const lists::Elements before = lists::of(member, view);
      KrFuro holesBefore;
      member.Furos(holesBefore, 0);
      member.transformBy(mirror(angle));
      member.transformBy(mirror(angle));
      EXPECT_EQ(member.Vista(0), view);
      EXPECT_THAT(lists::of(member, view), lists::Are(before));
      EXPECT_NEAR(std::remainder(member.angleVista() - 0.7, 2 * kPi), 0, 1e-12);
      EXPECT_NEAR(std::remainder(member.angleSecao() - kPi / 2, 2 * kPi), 0, 1e-12);
      EXPECT_DOUBLE_EQ(member.zCoordIni(), 5);
      KrFuro holes;
      member.Furos(holes, 0);
      ASSERT_EQ(holes.Qtd(), holesBefore.Qtd());
      for (int i = 0; i < holes.Qtd(); ++i) {
        EXPECT_TRUE(holes.getIni(i).isEqualTo(holesBefore.getIni(i)));
        EXPECT_TRUE(holes.getFim(i).isEqualTo(holesBefore.getFim(i)));
        EXPECT_NEAR(holes.getAngle(i), holesBefore.getAngle(i), 1e-12);
      }
      EXPECT_LT(member.startPoint().distanceTo(AcGePoint3d(500, 80, 0)), 1e-9);
    }
  }
}

TEST(Mirror, LeavesTheSectionAtAWholeQuarter) {
  TestMember member;
  member.setAngleSecao(kPi / 2);
  member.make(kBent, Secao, 1000);
  for (const double angle : {0.0, kPi / 4, kPi / 2, 0.75 * kPi}) {
    member.transformBy(mirror(angle));
    EXPECT_TRUE(member.isRetRotated()) << member.angleSecao();
  }
}

TEST(Mirror, LeavesTheGroupOfViews) {
  Drawing drawing;
  auto* first = new TestMember;
  first->make(kAngle, Superior, 1000);
  auto* second = new TestMember;
  second->make(kAngle, Direita, 1000);
  const AcDbObjectId a = drawing.append(first);
  const AcDbObjectId b = drawing.append(second);
  KrObject* member = nullptr;
  for (const auto& [self, other] : {std::pair(a, b), std::pair(b, a)}) {
    ASSERT_EQ(acdbOpenObject(member, self, AcDb::kForWrite), Acad::eOk);
    AcDbObjectIdArray ids;
    ids.append(other);
    member->setRelativeObj(&ids);
    member->close();
  }
  ASSERT_EQ(acdbOpenObject(member, a, AcDb::kForWrite), Acad::eOk);
  member->transformBy(turn(0.3));
  EXPECT_TRUE(member->isLinkedTo(b)) << "a turn keeps the group";
  member->transformBy(mirror(0.3));
  EXPECT_FALSE(member->isLinkedTo(b));
  member->close();
  ASSERT_EQ(acdbOpenObject(member, b, AcDb::kForRead), Acad::eOk);
  EXPECT_FALSE(member->isLinkedTo(a));
  member->close();
}

TEST(Mirror, OfAnElevationWithoutItsLinesStopsAtTheDrawing) {
  TestMember member;
  makeDrilled(member, Superior);
  member.ClearVertexes(Superior);
  member.AddVertex(KrVector(AcGePoint3d(0, 0, 0), AcGePoint3d(10, 5, 0), KR_VT_LINHA), Superior);
  EXPECT_EQ(member.transformBy(mirror(kPi / 2, {0, 0, 0})), Acad::eOk);
  KrVector line;
  member.GetVector(0, line);
  EXPECT_LT(line.endPoint().distanceTo(AcGePoint3d(-10, 5, 0)), 1e-12);
  KrFuro holes;
  member.Furos(holes, 0);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 120);
}

// The width of a hole seen edge on is |D + S cos angle|. An oblong along the bar that a mirror stores at pi shows
// |D - S| when made anew: the width goes by the angle as it is stored.
TEST(Mirror, OfAnOblongAlongTheBarSeenEdgeOnKeepsItsWidthOnlyInTheDrawing) {
  TestMember member;
  KrFuro holes;
  holes.Add(AcGeVector3d(0, 60, 120), AcGeVector3d(12, 60, 120), 18, 20, 0);
  member.setFurosSemLink(holes);
  member.make(kAngle, Superior, 1000);
  const auto width = [&] {
    for (const KrVector& v : lists::of(member, Superior))
      if (v.type() == KR_VT_FURO_LINHA) return 2 * v.radius();
    return -1.0;
  };
  EXPECT_NEAR(width(), 38, 1e-9);
  member.transformBy(mirror(kPi / 2));
  EXPECT_NEAR(width(), 38, 1e-9);
  member.Gera_KrVector();
  EXPECT_NEAR(width(), 2, 1e-9);
}

// --- Drawn holes alone -----------------------------------------------------------------------------------------------

TEST(TransformOfHoles, MovesTheDrawnHolesAndNotTheModel) {
  TestMember member;
  makeDrilled(member, Superior);
  const lists::Elements before = lists::of(member, Superior);
  const AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(7, 8, 0));
  EXPECT_EQ(member.transformByFuros(m), Acad::eOk);
  const lists::Elements after = lists::of(member, Superior);
  int moved = 0;
  for (std::size_t i = 0; i < after.size(); ++i) {
    const bool hole = before[i].type() == KR_VT_FURO || before[i].type() == KR_VT_FURO_EIXO;
    KrVector want = before[i];
    if (hole) want.transformBy(m);
    moved += hole ? 1 : 0;
    EXPECT_TRUE(lists::same(after[i], want, 1e-9)) << i;
  }
  EXPECT_GT(moved, 0);
  KrFuro holes;
  member.Furos(holes, 0);
  EXPECT_DOUBLE_EQ(holes.getIni(0).z, 120);
}

TEST(TransformOfHoles, DoesNothingInASection) {
  TestMember member;
  makeDrilled(member, Secao);
  const lists::Elements before = lists::of(member, Secao);
  EXPECT_EQ(member.transformByFuros(AcGeMatrix3d::translation(AcGeVector3d(7, 8, 0))), Acad::eOk);
  EXPECT_THAT(lists::of(member, Secao), lists::Are(before));
}

}  // namespace
