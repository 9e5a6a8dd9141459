// The frames of a member: from the section to the drawing and back, from one view to another.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "object/ElementLists.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

const KrVistas kElevations[] = {Superior, Inferior, Esquerda, Direita};
const KrVistas kSections[] = {Secao, SecaoVerso};

/// An L with legs of unlike length: no turn or mirror of it looks like another.
const oracle::Outline kAngle = {{{0, 0}, {0, 120}, {12, 120}, {12, 8}, {60, 8}, {60, 0}}};

double fieldDirection(double angle) {
  return std::remainder(angle, 2 * kPi);
}

// --- From the section to the drawing and back ------------------------------------------------------------------------

TEST(Frames, FromTheSectionToTheDrawingAndBackIsTheIdentity) {
  const AcGePoint3d p(31, -17, -420);
  const AcGeVector3d v(3, 4, -12);
  for (const KrVistas view : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso}) {
    for (const double turn : {0.0, 0.3, kPi / 2, 4.0}) {
      TestMember member;
      member.setAngleSecao(turn);
      member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
      AcGePoint3d q = p;
      AcGeVector3d w = v;
      ASSERT_EQ(member.secaoToVistaXForm(q), Acad::eOk);
      ASSERT_EQ(member.vistaToSecaoXForm(q), Acad::eOk);
      ASSERT_EQ(member.secaoToVistaXForm(w), Acad::eOk);
      ASSERT_EQ(member.vistaToSecaoXForm(w), Acad::eOk);
      EXPECT_LT(q.distanceTo(p), 1e-10);
      EXPECT_LT((w - v).length(), 1e-12);
    }
  }
}

TEST(Frames, AVectorIsTurnedAndNotMoved) {
  TestMember member;
  member.make(kAngle, Superior, 1000, kPi / 2, {500, 80, 0});
  AcGeVector3d along(0, 0, -1);
  ASSERT_EQ(member.secaoToVistaXForm(along), Acad::eOk);
  EXPECT_TRUE(along.isEqualTo(AcGeVector3d(0, 1, 0))) << "the bar runs against the section's Z";
}

TEST(Frames, WithoutAViewThereIsNoFrame) {
  const TestMember member;
  AcGeMatrix3d m = AcGeMatrix3d::translation(AcGeVector3d(1, 2, 3));
  const AcGeMatrix3d before = m;
  AcGePoint3d p(1, 2, 3);
  EXPECT_EQ(member.secaoToVistaXForm(m), Acad::eNotImplementedYet);
  EXPECT_EQ(member.vistaToSecaoXForm(m), Acad::eNotImplementedYet);
  EXPECT_EQ(member.secaoToVistaXForm(p), Acad::eNotImplementedYet);
  EXPECT_EQ(member.vistaToSecaoXForm(p), Acad::eNotImplementedYet);
  EXPECT_EQ(m, before);
  EXPECT_EQ(p, AcGePoint3d(1, 2, 3));
}

TEST(Frames, AnElevationWithoutReferenceLineHasNone) {
  TestMember member;
  member.setVista(Superior);
  AcGeVector3d v(1, 0, 0);
  EXPECT_EQ(member.secaoToVistaXForm(v), Acad::eNotApplicable);
  EXPECT_EQ(v, AcGeVector3d(1, 0, 0));
}

// The frame counts from the reference origin; the outline contains it. A corner of the outline less that origin lies,
// brought into the drawing and looked at along its Z, on an edge that the view draws.
TEST(Frames, CountFromTheReferenceOriginOfTheOutline) {
  const AcGeVector3d origin(30, 70, 0);
  for (const KrVistas view : kElevations) {
    for (const double turn : {0.0, kPi / 2, kPi, 1.5 * kPi}) {
      TestMember member;
      member.setAngleSecao(turn);
      member.draw(kAngle, origin);
      member.setAngleVista(0.4);
      member.setComprimento(1000);
      KrGeratriz none;
      member.Gera_KrVector(AcGePoint3d(900, -100, 0), none, view, 0, 1);
      AcGePoint3d p0, p1, p2, p3;
      member.GetExtremePoints(p0, p1, p2, p3, 0, 0);
      // The box of the corners across the bar, by matrices.
      const AcGeVector3d across(-std::sin(0.4), std::cos(0.4), 0);
      double low = 1e9, high = -1e9;
      for (const oracle::Vertex& v : kAngle.front()) {
        AcGePoint3d corner(v.x - origin.x, v.y - origin.y, 0);
        ASSERT_EQ(member.secaoToVistaXForm(corner), Acad::eOk);
        const double s = across.dotProduct(corner - AcGePoint3d(900, -100, 0));
        low = std::min(low, s);
        high = std::max(high, s);
      }
      EXPECT_NEAR(across.dotProduct(p1 - AcGePoint3d(900, -100, 0)), low, 1e-9);
      EXPECT_NEAR(across.dotProduct(p0 - AcGePoint3d(900, -100, 0)), high, 1e-9);
    }
  }
}

// --- Scale about the reference ---------------------------------------------------------------------------------------

TEST(ScaleOfPoints, ThereAndBackIsTheIdentity) {
  for (const KrVistas view : kElevations) {
    TestMember member;
    member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
    member.ObjectScale(0.1, 0.25, 0.5);
    AcGePoint3d p(123, -45, 7);
    AcGePoint2d p2(123, -45);
    AcGeVector3d v(3, -8, 2);
    ASSERT_EQ(member.scaleRef(p, 0), Acad::eOk);
    ASSERT_EQ(member.scaleRef(p2, 0), Acad::eOk);
    ASSERT_EQ(member.scaleRef(v, 0), Acad::eOk);
    EXPECT_NEAR(p.x, p2.x, 1e-12);
    EXPECT_NEAR(p.y, p2.y, 1e-12);
    ASSERT_EQ(member.unscaleRef(p), Acad::eOk);
    ASSERT_EQ(member.unscaleRef(p2), Acad::eOk);
    ASSERT_EQ(member.unscaleRef(v), Acad::eOk);
    EXPECT_LT(p.distanceTo(AcGePoint3d(123, -45, 7)), 1e-11);
    EXPECT_LT(p2.distanceTo(AcGePoint2d(123, -45)), 1e-11);
    EXPECT_LT((v - AcGeVector3d(3, -8, 2)).length(), 1e-13);
  }
}

TEST(ScaleOfPoints, IsAboutTheReferenceStartOrSeenFromBehindItsEnd) {
  struct {
    KrVistas view;
    double fixedX;
  } const cases[] = {{Superior, 500}, {Direita, 500}, {Inferior, 600}, {Esquerda, 600}};
  for (const auto& c : cases) {
    TestMember member;
    member.make(kAngle, c.view, 1000, 0, {500, 80, 0});
    member.ObjectScale(0.1, 0.5, 1);  // the reference line goes from 500 to 600
    AcGePoint3d p(c.fixedX + 40, 80 + 10, 0);
    ASSERT_EQ(member.scaleRef(p, 0), Acad::eOk);
    EXPECT_NEAR(p.x, c.fixedX + 4, 1e-12);
    EXPECT_NEAR(p.y, 85, 1e-12);
  }
}

TEST(ScaleOfPoints, RunsAlongTheBarAndNotAlongTheDrawing) {
  TestMember member;
  member.make(kAngle, Superior, 1000, kPi / 2, {0, 0, 0});
  member.ObjectScale(0.1, 1, 1);
  AcGeVector3d along(0, 30, 0);
  AcGeVector3d across(7, 0, 0);
  member.scaleRef(along, 0);
  member.scaleRef(across, 0);
  EXPECT_TRUE(along.isEqualTo(AcGeVector3d(0, 3, 0)));
  EXPECT_TRUE(across.isEqualTo(AcGeVector3d(7, 0, 0)));
}

TEST(ScaleOfPoints, InSpaceIsForElevationsOnly) {
  for (const KrVistas view : kSections) {
    TestMember member;
    member.make(kAngle, view, 1000, 0, {10, 20, 0});
    member.ObjectScale(0.1, 0.5, 1);
    AcGePoint3d p(1, 2, 3);
    AcGeVector3d v(1, 2, 3);
    AcGePoint2d q(30, 30);
    EXPECT_EQ(member.scaleRef(p, 0), Acad::eNotApplicable);
    EXPECT_EQ(member.scaleRef(v, 0), Acad::eNotApplicable);
    EXPECT_EQ(p, AcGePoint3d(1, 2, 3));
    EXPECT_EQ(member.scaleRef(q, 0), Acad::eOk);
    EXPECT_TRUE(q.isEqualTo(AcGePoint2d(12, 25))) << "in the plane, about where the section's origin falls";
  }
  const TestMember none;
  AcGePoint2d q(30, 30);
  AcGePoint3d p(1, 2, 3);
  EXPECT_EQ(none.scaleRef(q, 0), Acad::eNotImplementedYet);
  EXPECT_EQ(none.scaleRef(p, 0), Acad::eNotApplicable);
}

// --- Quarters of the section -----------------------------------------------------------------------------------------

TEST(SectionQuarter, AHairShortOfAQuarterIsNone) {
  TestMember member;
  int quarters = -1;
  for (int q = 0; q < 4; ++q) {
    member.setAngleSecao(q * (kPi / 2));
    EXPECT_TRUE(member.isRetRotated(quarters));
    EXPECT_EQ(quarters, q);
  }
  member.setAngleSecao(kPi / 2 + 1e-9);
  EXPECT_TRUE(member.isRetRotated());
  member.setAngleSecao(kPi / 2 - 1e-9);
  EXPECT_FALSE(member.isRetRotated(quarters));
  EXPECT_EQ(quarters, 1) << "the quarter itself is rounded";
  member.setAngleSecao(kPi / 2 * 1.0003);
  EXPECT_FALSE(member.isRetRotated());
}

TEST(SectionQuarter, TurnsByQuartersAndComesRound) {
  TestMember member;
  for (const double expected : {kPi / 2, kPi, 1.5 * kPi, 0.0}) {
    EXPECT_EQ(member.orthoRotateSec(0), Acad::eOk);
    EXPECT_DOUBLE_EQ(member.angleSecao(), expected);
    EXPECT_TRUE(member.isRetRotated());
  }
  for (const double expected : {1.5 * kPi, kPi, kPi / 2, 0.0}) {
    member.orthoRotateSec(1);
    EXPECT_DOUBLE_EQ(member.angleSecao(), expected);
    EXPECT_TRUE(member.isRetRotated());
  }
}

TEST(SectionQuarter, TurningDoesNotRegenerate) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  const lists::Elements before = lists::of(member, Superior);
  member.orthoRotateSec(0);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

// --- What a view really shows ----------------------------------------------------------------------------------------

TEST(RealView, OfATurnedSectionIsTheSideThatFacesTheViewer) {
  // By quarters of the section: the real view, and whether it stands mirrored from its usual sense.
  struct Real {
    KrVistas view;
    int inverted;
  };
  const struct {
    KrVistas view;
    Real real[4];
  } cases[] = {{Superior, {{Superior, 0}, {Direita, 0}, {Inferior, 1}, {Esquerda, 1}}},
               {Inferior, {{Inferior, 0}, {Esquerda, 0}, {Superior, 1}, {Direita, 1}}},
               {Esquerda, {{Esquerda, 0}, {Superior, 1}, {Direita, 1}, {Inferior, 0}}},
               {Direita, {{Direita, 0}, {Inferior, 1}, {Esquerda, 1}, {Superior, 0}}}};
  for (const auto& c : cases) {
    for (int q = 0; q < 4; ++q) {
      SCOPED_TRACE(testing::Message() << "view " << c.view << ", quarter " << q);
      TestMember member;
      member.setVista(c.view);
      member.setAngleSecao(q * kPi / 2);
      int inverted = 7;
      EXPECT_EQ(member.GetVistaReal(inverted), c.real[q].view);
      EXPECT_EQ(inverted, c.real[q].inverted);
    }
  }
}

TEST(RealView, RoundsQuartersUpwardsFromTheirIntegerPart) {
  const struct {
    double quarters;
    KrVistas real;
    int inverted;
  } cases[] = {{0.5, Direita, 0},     // one
               {-0.75, Superior, 0},  // none: what lies below its integer part doesn't count
               {-1.25, Esquerda, 1},  // one back
               {-0.25, Superior, 0},
               {4.6, Direita, 0}};
  for (const auto& c : cases) {
    TestMember member;
    member.setVista(Superior);
    member.setAngleSecao(c.quarters * kPi / 2);
    int inverted = 7;
    EXPECT_EQ(member.GetVistaReal(inverted), c.real) << c.quarters;
    EXPECT_EQ(inverted, c.inverted) << c.quarters;
  }
}

TEST(RealView, OfASectionIsTheSectionAndSaysNothingOfASense) {
  for (const KrVistas view : kSections) {
    TestMember member;
    member.setVista(view);
    member.setAngleSecao(kPi / 2);
    int inverted = 7;
    EXPECT_EQ(member.GetVistaReal(inverted), view);
    EXPECT_EQ(inverted, 7);
  }
}

TEST(RealView, ByTheFrameNeedsAReferenceLine) {
  TestMember member;
  member.setVista(Superior);
  EXPECT_EQ(member.Vista(1), -2);
  EXPECT_EQ(member.Vista(0), Superior);
}

// --- From view to view -----------------------------------------------------------------------------------------------

struct Pair {
  KrVistas from;
  KrVistas to;
};

std::vector<Pair> allPairs() {
  std::vector<Pair> pairs;
  for (const KrVistas from : kElevations)
    for (const KrVistas to : kElevations)
      if (from != to) pairs.push_back({from, to});
  return pairs;
}

TEST(SwitchOfView, KeepsThePictureTheRealViewAndBothLinesInAllPairs) {
  for (const auto& [from, to] : allPairs()) {
    for (int q = 0; q < 4; ++q) {
      SCOPED_TRACE(testing::Message() << from << " to " << to << ", quarter " << q);
      TestMember member;
      member.setAngleSecao(q * kPi / 2);
      member.make(kAngle, from, 1000, 0.7, {500, 80, 0});
      KrVector axis;
      ASSERT_EQ(member.GetVectorEixo(from, axis), 1);
      // An axis that was moved off the reference line must not pull the steel to it.
      axis.setStartPoint(axis.startPoint() + AcGeVector3d(20, 30, 0));
      axis.setEndPoint(axis.endPoint() + AcGeVector3d(20, 30, 0));
      member.UpdateVectorEixo(from, axis);
      member.setStartPoint(axis.startPoint());
      member.setendPoint(axis.endPoint());
      member.Gera_KrVector();
      const lists::Elements before = lists::of(member, from);
      const KrVistas real = member.Vista(1);
      AcGePoint3d a0, b0, a1, b1;
      member.GetPointsOfEixo(a0, b0, 0);

      member.switchToVista(to);

      EXPECT_EQ(member.Vista(0), to);
      EXPECT_EQ(member.Vista(1), real);
      EXPECT_TRUE(member.isRetRotated()) << "it can be switched again";
      EXPECT_THAT(lists::of(member, to), lists::ShowTheSameAs(before));
      EXPECT_EQ(member.GetNumVertex(from), 0);
      ASSERT_EQ(member.GetPointsOfEixo(a1, b1, 0), Acad::eOk);
      EXPECT_TRUE(KrObject::verifyInversion(from, to) ? a0.isEqualTo(b1) && b0.isEqualTo(a1)
                                                      : a0.isEqualTo(a1) && b0.isEqualTo(b1));
      EXPECT_TRUE(member.startPoint().isEqualTo(a1));
    }
  }
}

TEST(SwitchOfView, ThereAndBackGivesTheSameFieldsAndTheSameList) {
  for (const auto& [from, to] : allPairs()) {
    for (int q = 0; q < 4; ++q) {
      for (const double scale : {1.0, 0.1}) {
        SCOPED_TRACE(testing::Message() << from << " to " << to << ", quarter " << q << ", scale " << scale);
        TestMember member;
        member.setAngleSecao(q * kPi / 2);
        member.make(kAngle, from, 1000, 0.7, {500, 80, 0});
        member.ObjectScale(scale, scale, scale);
        member.setZCoordIni(100);
        member.setZCoordEnd(300);
        member.setVisualRepStart(0.2);
        member.setVisualRepEnd(0.7);
        member.Gera_KrVector();
        const lists::Elements before = lists::of(member, from);
        member.switchToVista(to);
        const bool inverted = KrObject::verifyInversion(from, to);
        EXPECT_DOUBLE_EQ(member.zCoordIni(), inverted ? 300 : 100);
        EXPECT_NEAR(member.visualRepStart(), inverted ? 0.3 : 0.2, 1e-15);
        EXPECT_NEAR(member.visualRepEnd(), inverted ? 0.8 : 0.7, 1e-15);
        member.switchToVista(from);
        EXPECT_THAT(lists::of(member, from), lists::Are(before));
        EXPECT_NEAR(fieldDirection(member.angleVista() - 0.7), 0, 1e-12);
        EXPECT_NEAR(fieldDirection(member.angleSecao() - q * kPi / 2), 0, 1e-12);
        EXPECT_DOUBLE_EQ(member.zCoordIni(), 100);
        EXPECT_DOUBLE_EQ(member.zCoordEnd(), 300);
        EXPECT_NEAR(member.visualRepStart(), 0.2, 1e-15);
        EXPECT_NEAR(member.visualRepEnd(), 0.7, 1e-15);
        EXPECT_NEAR(member.getComprimentoReal(), 1000, 1e-8);
        EXPECT_TRUE(member.startPoint().isEqualTo(AcGePoint3d(500, 80, 0)));
      }
    }
  }
}

TEST(SwitchOfView, DropsWhatTheOtherViewsListHeld) {
  TestMember member;
  member.make(kAngle, Superior, 1000);
  member.Gera_KrVector(Esquerda);
  // The bar moves away from where that list was made.
  member.transformBy(AcGeMatrix3d::translation(AcGeVector3d(5000, 700, 0)));
  const lists::Elements before = lists::of(member, Superior);
  member.switchToVista(Esquerda);
  EXPECT_THAT(lists::of(member, Esquerda), lists::ShowTheSameAs(before));
}

TEST(SwitchOfView, OfASectionOrASkewSectionOrToASectionDoesNothing) {
  TestMember section;
  section.make(kAngle, Secao, 1000);
  section.switchToVista(Superior);
  EXPECT_EQ(section.Vista(0), Secao);

  TestMember skew;
  skew.setAngleSecao(0.3);
  skew.make(kAngle, Superior, 1000);
  const lists::Elements before = lists::of(skew, Superior);
  skew.switchToVista(Direita);
  EXPECT_EQ(skew.Vista(0), Superior);
  EXPECT_THAT(lists::of(skew, Superior), lists::Are(before));
  EXPECT_DOUBLE_EQ(skew.angleSecao(), 0.3);

  TestMember elevation;
  elevation.make(kAngle, Superior, 1000);
  elevation.switchToVista(Secao);
  EXPECT_EQ(elevation.Vista(0), Superior);
}

TEST(SwitchOfView, WithoutItsAxisStaysAsItWas) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0.4, {5, 6, 0});
  std::vector<KrVector> rest;
  for (int i = 0; i < member.GetNumVertex(Superior); ++i) {
    KrVector v;
    member.GetVector(i, v);
    if (v.type() != KR_VT_EIXO) rest.push_back(v);
  }
  member.ClearVertexes(Superior);
  for (const KrVector& v : rest) member.AddVertex(v, Superior);
  member.switchToVista(Inferior);
  EXPECT_EQ(member.Vista(0), Superior);
  EXPECT_DOUBLE_EQ(member.angleVista(), 0.4);
  EXPECT_EQ(member.startPoint(), AcGePoint3d(5, 6, 0));
  EXPECT_EQ(member.GetNumVertex(Superior), static_cast<int>(rest.size()));
}

TEST(SwitchOfView, InversionIsASubjectOfElevations) {
  Acad::ErrorStatus status = Acad::eOk;
  EXPECT_EQ(KrObject::isInverted(Superior, status), 0);
  EXPECT_EQ(KrObject::isInverted(Inferior, status), 1);
  EXPECT_EQ(KrObject::isInverted(Esquerda, status), 1);
  EXPECT_EQ(KrObject::isInverted(Direita, status), 0);
  EXPECT_EQ(status, Acad::eOk);
  EXPECT_EQ(KrObject::isInverted(SecaoVerso, status), 0);
  EXPECT_EQ(status, Acad::eInvalidInput);
  EXPECT_TRUE(KrObject::verifyInversion(Superior, Esquerda, status));
  EXPECT_EQ(status, Acad::eOk);
  KrObject::verifyInversion(Secao, Superior, status);
  EXPECT_EQ(status, Acad::eInvalidInput);
  KrObject::verifyInversion(Superior, VistaCorrente, status);
  EXPECT_EQ(status, Acad::eInvalidInput);
}

// --- The placement as a value ----------------------------------------------------------------------------------------

TEST(Placement, MeasuresTheReferenceLineFromTheAxisAndTheOtherWayRound) {
  TestMember member;
  member.make(kAngle, Superior, 1000, kPi / 2, {100, 200, 0});
  KrVector axis;
  member.GetVectorEixo(Superior, axis);
  axis.setStartPoint(AcGePoint3d(110, 150, 0));
  axis.setEndPoint(AcGePoint3d(110, 1400, 0));
  member.UpdateVectorEixo(Superior, axis);

  KrObject::Position p;
  ASSERT_EQ(member.position(p, 1), Acad::eOk);
  EXPECT_EQ(p.ponto, AcGePoint3d(110, 150, 0));
  EXPECT_TRUE(p.direcao.isEqualTo(AcGeVector3d(0, 1, 0)));
  EXPECT_NEAR(p.comprimento, 1250, 1e-9);
  EXPECT_NEAR(p.offset, 10, 1e-9) << "along Z x direction, which is -X here";
  EXPECT_NEAR(p.inicio, 50, 1e-9);
  EXPECT_NEAR(p.fim, 1050, 1e-9);

  ASSERT_EQ(member.position(p, 0), Acad::eOk);
  EXPECT_EQ(p.ponto, AcGePoint3d(100, 200, 0));
  EXPECT_NEAR(p.comprimento, 1000, 1e-9);
  EXPECT_NEAR(p.offset, -10, 1e-9);
  EXPECT_NEAR(p.inicio, -50, 1e-9);
  EXPECT_NEAR(p.fim, 1200, 1e-9);
}

TEST(Placement, OfASectionThereIsNone) {
  TestMember member;
  member.make(kAngle, Secao, 1000);
  KrObject::Position p;
  EXPECT_EQ(member.position(p, 1), Acad::eNotApplicable);
  EXPECT_EQ(member.setPosition(p, 1), Acad::eNotApplicable);
}

TEST(Placement, MovedAndTurnedIsReadBackAtAnyScale) {
  for (const KrVistas view : kElevations) {
    for (const double scale : {1.0, 0.1, 2.5}) {
      for (const int base : {0, 1}) {
        SCOPED_TRACE(testing::Message() << "view " << view << " at " << scale << ", base " << base);
        TestMember member;
        member.make(kAngle, view, 1000, 0.7, {500, 80, 0});
        member.ObjectScale(scale, scale, scale);
        KrObject::Position p;
        ASSERT_EQ(member.position(p, base), Acad::eOk);
        p.ponto += AcGeVector3d(700, -300, 0);
        p.direcao.rotateBy(2.0, AcGeVector3d::kZAxis);
        p.offset = 3;
        p.inicio = 20;
        p.fim = 20 + 1200 * scale;
        if (base == 0) p.comprimento = 1200 * scale;
        if (base == 0) p.fim = 20 + 900 * scale;
        ASSERT_EQ(member.setPosition(p, base), Acad::eOk);
        KrObject::Position q;
        ASSERT_EQ(member.position(q, base), Acad::eOk);
        EXPECT_LT(q.ponto.distanceTo(p.ponto), 1e-9);
        EXPECT_LT((q.direcao - p.direcao).length(), 1e-12);
        EXPECT_NEAR(q.comprimento, p.comprimento, 1e-9);
        EXPECT_NEAR(q.offset, p.offset, 1e-9);
        EXPECT_NEAR(q.inicio, p.inicio, 1e-9);
        EXPECT_NEAR(q.fim, p.fim, 1e-9);
        EXPECT_NEAR(member.getComprimentoReal(), 1200, 1e-8) << "the reference line measures the steel";
        EXPECT_NEAR(fieldDirection(member.angleVista() - 2.7), 0, 1e-12);
      }
    }
  }
}

TEST(Placement, MovesTheSteelWithTheLinesAtAScale) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0, {500, 80, 0});
  member.ObjectScale(0.1, 0.1, 1);
  lists::Elements before = lists::of(member, Superior);
  KrObject::Position p;
  member.position(p, 1);
  p.ponto += AcGeVector3d(700, -300, 0);
  ASSERT_EQ(member.setPosition(p, 1), Acad::eOk);
  lists::transform(before, AcGeMatrix3d::translation(AcGeVector3d(700, -300, 0)));
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
  EXPECT_LT(member.startPoint().distanceTo(AcGePoint3d(1200, -220, 0)), 1e-9);
}

TEST(Placement, OfWhatIsNoNumberIsRefused) {
  TestMember member;
  member.make(kAngle, Superior, 1000, 0, {500, 80, 0});
  const lists::Elements before = lists::of(member, Superior);
  KrObject::Position p;
  member.position(p, 1);
  p.offset = std::nan("");
  EXPECT_EQ(member.setPosition(p, 1), Acad::eInvalidInput);
  EXPECT_THAT(lists::of(member, Superior), lists::Are(before));
}

TEST(Placement, DirectionsOfBothLines) {
  TestMember member;
  member.make(kAngle, Superior, 1000, kPi / 2, {500, 80, 0});
  EXPECT_TRUE(member.direction().isEqualTo(AcGeVector3d(0, 1000, 0)));
  EXPECT_TRUE(member.directionEixo().isEqualTo(AcGeVector3d(0, 1000, 0)));
}

}  // namespace
