#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "host/companion/companion.h"
#include "modifiers/Polygons.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// Every test runs under the tolerance that members set.
class Clipper : public testing::Test {
 protected:
  Clipper() {
    AcGeTol tol;
    tol.setEqualPoint(1e-8);
    tol.setEqualVector(1e-8);
    AcGeContext::gTol = tol;
  }

  static void clip(KrObjectArray<KrVector>& list, const Polygon& polygon, AcGePoint2d side, int keepOnPolygon = 0,
                   RecorteOutLinesOpts options = RemoveOutLines) {
    KrObject::RecorteKrVectorArray(list, polygon.points, polygon.bulges, side, keepOnPolygon, options);
  }
};

const Polygon kSquare = rectangle(0, 0, 10, 10);
const AcGePoint2d kInside(5, 5);
const AcGePoint2d kOutside(50, 5);

TEST_F(Clipper, TakesOutOfALineWhatLiesInTheSquare) {
  auto list = listOf({line(-5, 5, 15, 5)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], -5, 5, 0, 5));
  EXPECT_TRUE(runs(list[1], 10, 5, 15, 5));
}

TEST_F(Clipper, WithTheSideOutsideTakesOffEverythingOutside) {
  auto list = listOf({line(-5, 5, 15, 5), line(20, 0, 20, 9), line(2, 2, 3, 3)});
  clip(list, kSquare, kOutside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], 0, 5, 10, 5));
  EXPECT_TRUE(runs(list[1], 2, 2, 3, 3));
}

TEST_F(Clipper, GivesAPieceTheTypeTheRoleAndTheHiddennessOfItsLineAndNoTags) {
  KrVector v = line(-5, 5, 15, 5, KR_VT_LINHA_OCULTA, KR_VF_PADRAO);
  v.setHidden(1);
  v.setTypeEx(KR_VTX_CORTE);
  v.setIndexFur(3);
  auto list = listOf({v});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_EQ(list[1].type(), KR_VT_LINHA_OCULTA);
  EXPECT_EQ(list[1].tipo(), KR_VF_PADRAO);
  EXPECT_EQ(list[1].hidden(), 1);
  EXPECT_EQ(list[1].typeEx(), KR_VTX_NENHUM);
  EXPECT_EQ(list[1].IndexFur(), -1);
}

TEST_F(Clipper, LeavesTheTagsOfWhatItDoesNotSplit) {
  KrVector v = line(20, 0, 30, 0);
  v.setTypeEx(KR_VTX_CORTE);
  v.setIndexFur(3);
  auto list = listOf({v});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_EQ(list[0].typeEx(), KR_VTX_CORTE);
  EXPECT_EQ(list[0].IndexFur(), 3);
}

TEST_F(Clipper, ABandKeepsItsWidthInEachPiece) {
  KrVector band = line(-5, 5, 15, 5, KR_VT_FURO_LINHA, KR_VF_PADRAO);
  band.setRaio(11);
  auto list = listOf({band});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_EQ(list[0].radius(), 11);
  EXPECT_EQ(list[1].radius(), 11);
}

TEST_F(Clipper, AnEdgeThatCoincidesWithThePolygonGoesUnlessItIsKept) {
  auto list = listOf({line(0, 10, 10, 10)});
  clip(list, kSquare, kInside, 0);
  EXPECT_EQ(list.length(), 0);
  list = listOf({line(-5, 10, 15, 10)});
  clip(list, kSquare, kInside, 1);
  ASSERT_EQ(list.length(), 3);
  EXPECT_TRUE(runs(list[1], 0, 10, 10, 10)) << "split at the corners, and kept";
  list = listOf({line(-5, 10, 15, 10)});
  clip(list, kSquare, kOutside, 1);
  ASSERT_EQ(list.length(), 1);
  EXPECT_TRUE(runs(list[0], 0, 10, 10, 10));
}

TEST_F(Clipper, WhatLiesOnThePolygonIsHiddenWhateverIsKept) {
  auto list = listOf({line(0, 10, 10, 10)});
  clip(list, kSquare, kOutside, 1, HideOutLines);
  EXPECT_EQ(list[0].hidden(), 1);
  list = listOf({line(0, 10, 10, 10)});
  clip(list, kSquare, kOutside, 1, OcultaOutLines);
  EXPECT_EQ(list[0].type(), KR_VT_LINHA_OCULTA);
}

TEST_F(Clipper, ALineThatTouchesAVertexIsSplitThereAndStays) {
  auto list = listOf({line(5, 15, 15, 5)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], 5, 15, 10, 10));
  EXPECT_TRUE(runs(list[1], 10, 10, 15, 5));
}

TEST_F(Clipper, DropsAStraightPieceShorterThanAMillionth) {
  auto list = listOf({line(-5e-7, 5, 5, 5)});
  clip(list, kSquare, kInside);
  EXPECT_EQ(list.length(), 0) << "the half millionth outside isn't drawn";
  list = listOf({line(-2e-6, 5, 5, 5)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_NEAR(list[0].startPoint().x, -2e-6, 1e-12);
}

TEST_F(Clipper, KeepsAnArcPieceShorterThanAMillionth) {
  // An arc 5e-7 long past the edge x = 10 stays.
  const double turn = 5e-7 / 5 * 180 / kPi;
  auto list = listOf({arc(10, 5, 5, 90 - turn, 180)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_NEAR(list[0].startPoint().distanceTo(list[0].endPoint()), 5e-7, 1e-12);
  EXPECT_EQ(list[0].type(), KR_VT_ARCO);
}

TEST_F(Clipper, SplitsAnArcExactly) {
  // The circle of radius 10 about (10, 5) crosses the edge x = 0 nowhere but in a touch, y = 10 and y = 0 at
  // x = 10 - sqrt(75).
  auto list = listOf({arc(10, 5, 10, 90, 270)});
  clip(list, kSquare, kInside);
  const double x = 10 - std::sqrt(75.0);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], 10, 15, x, 10));
  EXPECT_TRUE(runs(list[1], x, 0, 10, -5));
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(list[i].type(), KR_VT_ARCO);
    EXPECT_EQ(list[i].tipo(), KR_VF_ARESTA);
    EXPECT_NEAR(list[i].midPoint().distanceTo(AcGePoint3d(10, 5, 0)), 10, 1e-9);
  }
  // Its middle: half way from 90 to 150 degrees.
  EXPECT_NEAR(list[0].midPoint().x, 10 + 10 * std::cos(kPi * 2 / 3), 1e-9);
  EXPECT_NEAR(list[0].midPoint().y, 5 + 10 * std::sin(kPi * 2 / 3), 1e-9);
}

TEST_F(Clipper, SplitsAClockwiseArcInItsOwnSense) {
  auto list = listOf({arc(10, 5, 10, 270, 90)});
  list[0].setHidden(1);
  clip(list, kSquare, kInside);
  const double x = 10 - std::sqrt(75.0);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], 10, -5, x, 0));
  EXPECT_TRUE(runs(list[1], x, 10, 10, 15));
  EXPECT_NEAR(list[0].midPoint().x, 10 + 10 * std::cos(kPi * 4 / 3), 1e-9);
  EXPECT_EQ(list[0].hidden(), 0) << "an arc's pieces don't take over that it was hidden";
}

TEST_F(Clipper, SplitsMoreThanAHalfCircle) {
  // Three quarters of the circle of radius 2 about the corner (10, 10), from 0 to 270: what lies in the square is the
  // last quarter, from 180 on.
  auto list = listOf({arc(10, 10, 2, 0, 270)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_TRUE(runs(list[0], 12, 10, 8, 10));
  EXPECT_NEAR(list[0].midPoint().y, 12, 1e-9);
}

TEST_F(Clipper, InsertsAnArcPieceThatIsThereAlreadyOnce) {
  auto list = listOf({arc(10, 5, 10, 90, 270), arc(10, 5, 10, 270, 90)});
  clip(list, kSquare, kInside);
  EXPECT_EQ(list.length(), 2) << "the second arc, run the other way, leaves the same pieces";
}

TEST_F(Clipper, TwoHalvesOfACircleAreNotTakenForOne) {
  // Both meet the diagonal at their common ends.
  auto list = listOf({arc(5, 5, 2, 0, 180), arc(5, 5, 2, 180, 360)});
  const Polygon across = Polygon().add(-20, 5).add(20, 5).add(20, 30).add(-20, 30).close();
  clip(list, across, AcGePoint2d(0, 20));
  ASSERT_EQ(list.length(), 1);
  EXPECT_NEAR(list[0].midPoint().y, 3, 1e-9) << "the upper half goes, the lower stays";
  list = listOf({arc(5, 5, 2, 0, 180), arc(5, 5, 2, 180, 360)});
  clip(list, across, AcGePoint2d(0, -20), 0, HideOutLines);
  EXPECT_EQ(list.length(), 2);
}

TEST_F(Clipper, AnArcThatACutStraightenedIsSplitAsALine) {
  KrVector v(AcGePoint3d(-5, 5, 0), AcGePoint3d(5, 5, 0), AcGePoint3d(15, 5, 0), KR_VT_ARCO);
  auto list = listOf({v});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 2);
  EXPECT_TRUE(runs(list[0], -5, 5, 0, 5));
  EXPECT_EQ(list[0].type(), KR_VT_ARCO);
  EXPECT_NEAR(list[0].midPoint().x, -2.5, 1e-9);
}

TEST_F(Clipper, AHoleGoesWithItsCentre) {
  auto list = listOf({KrVector(AcGePoint3d(9, 5, 0), 4, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO),
                      KrVector(AcGePoint3d(11, 5, 0), 4, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_EQ(list[0].midPoint().x, 11) << "not split, though the polygon passes through it";
}

TEST_F(Clipper, ACentreLineOfAHoleGoesWithItsMiddleAndIsNotSplit) {
  auto list = listOf({line(0, 5, 40, 5, KR_VT_FURO_EIXO, KR_VF_PADRAO), line(1, 5, 5, 5, KR_VT_FURO_EIXO)});
  clip(list, kSquare, kInside);
  ASSERT_EQ(list.length(), 1);
  EXPECT_TRUE(runs(list[0], 0, 5, 40, 5));
}

TEST_F(Clipper, LeavesAxesReferencesCirclesAndHiddenArcsAlone) {
  KrVector hiddenArc = arc(5, 5, 2, 0, 90);
  hiddenArc.setType(KR_VT_ARCO_OCULTO);
  const auto before = listOf(
      {line(1, 5, 9, 5, KR_VT_EIXO), line(1, 5, 9, 5, KR_VT_REFERENCIA), KrVector(AcGePoint3d(5, 5, 0), 2), hiddenArc});
  for (const auto options : {RemoveOutLines, HideOutLines, OcultaOutLines}) {
    auto list = before;
    clip(list, kSquare, kInside, 0, options);
    ASSERT_EQ(list.length(), 4);
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(sameElement(list[i], before[i], 0)) << i;
  }
}

TEST_F(Clipper, HidesInsteadOfRemoving) {
  auto list = listOf({line(-5, 5, 15, 5)});
  KrObject::RecHideKrVectorArray(list, kSquare.points, kSquare.bulges, kInside);
  ASSERT_EQ(list.length(), 3);
  EXPECT_EQ(list[0].hidden(), 0);
  EXPECT_EQ(list[1].hidden(), 1);
  EXPECT_TRUE(runs(list[1], 0, 5, 10, 5));
  EXPECT_EQ(list[2].hidden(), 0);
}

TEST_F(Clipper, TurnsWhatGoesIntoHiddenLines) {
  KrVector band = line(2, 2, 3, 2, KR_VT_FURO_LINHA);
  const auto before = listOf({line(1, 5, 9, 5), arc(5, 5, 2, 0, 90), band,
                              KrVector(AcGePoint3d(5, 5, 0), 4, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO)});
  auto list = before;
  clip(list, kSquare, kInside, 0, OcultaOutLines);
  ASSERT_EQ(list.length(), 4);
  EXPECT_EQ(list[0].type(), KR_VT_LINHA_OCULTA);
  EXPECT_EQ(list[0].hidden(), 0);
  EXPECT_EQ(list[1].type(), KR_VT_ARCO_OCULTO);
  EXPECT_EQ(list[2].type(), KR_VT_FURO_LINHA);
  EXPECT_EQ(list[2].hidden(), 1);
  EXPECT_EQ(list[3].hidden(), 1);
  list = before;
  clip(list, kSquare, kInside, 1, OcultaOutLines);
  EXPECT_EQ(list[1].type(), KR_VT_LINHA_OCULTA) << "an arc, where what lies on the polygon is kept";
}

TEST_F(Clipper, DoesNothingWithoutAListOrAPolygon) {
  KrObject::RecKrVectorArrayArgs args;
  KrObject::RecorteKrVectorArray(args);
  auto list = listOf({line(1, 5, 9, 5)});
  args.vectors = &list;
  args.pontoInterno = kInside;
  KrObject::RecorteKrVectorArray(args);
  EXPECT_EQ(list.length(), 1);
}

TEST_F(Clipper, WithoutBulgesIsStraight) {
  auto list = listOf({line(-5, 5, 15, 5)});
  KrObject::RecKrVectorArrayArgs args;
  args.vectors = &list;
  args.pontos = &kSquare.points;
  args.pontoInterno = kInside;
  KrObject::RecorteKrVectorArray(args);
  EXPECT_EQ(list.length(), 2);
  KrObject::Reset_RecKrVectorArrayArgs(args);
  EXPECT_EQ(args.vectors, nullptr);
  EXPECT_EQ(args.pontos, nullptr);
}

TEST_F(Clipper, AnOpenPolygonPartsWhatItIsDrawnAcross) {
  const Polygon across = Polygon().add(5, -20).add(5, 20);
  auto list = listOf({line(0, 0, 10, 0), line(0, 3, 4, 3)});
  clip(list, across, AcGePoint2d(0, 0));
  ASSERT_EQ(list.length(), 1);
  EXPECT_TRUE(runs(list[0], 5, 0, 10, 0));
}

TEST_F(Clipper, KeepsTheOrderOfTheList) {
  KrObjectArray<KrVector> list;
  for (int i = 0; i < 30; ++i) list.append(line(-5, i - 10, 15, i - 10));
  clip(list, kSquare, kInside);
  double last = -100;
  for (int i = 0; i < list.length(); ++i) {
    EXPECT_GE(list[i].startPoint().y, last);
    last = list[i].startPoint().y;
  }
  EXPECT_EQ(list.length(), 10 + 2 * 9 + 2 * 2 + 9) << "9 lines inside lose their middle, 2 along edges too";
}

// --- Against the plain form ------------------------------------------------------------------------------------------

/// The clipper as plainly as it can be told: each element inserted and removed in place, each piece judged by curves of
/// its own and by the fence to the side point.
void clipPlainly(KrObjectArray<KrVector>& list, const Polygon& polygon, AcGePoint2d side, int keepOnPolygon,
                 RecorteOutLinesOpts options) {
  const auto flat = [](const AcGePoint3d& p) { return AcGePoint2d(p.x, p.y); };
  const auto raised = [](const AcGePoint2d& p) { return AcGePoint3d(p.x, p.y, 0); };
  for (int i = 0; i < list.length();) {
    const KrVector v = list[i];
    AcArray<AcGePoint2d> x;
    if (v.type() == KR_VT_LINHA_OCULTA || v.type() == KR_VT_LINHA || v.type() == KR_VT_FURO_LINHA) {
      const AcGeLineSeg2d segment(flat(v.startPoint()), flat(v.endPoint()));
      if (!intersectWith(segment, polygon.points, polygon.bulges, x)) {
        ++i;
        continue;
      }
      QuickSort(x, segment.direction());
      x.insertAt(0, segment.startPoint());
      x.append(segment.endPoint());
      list.removeAt(i);
      for (int k = 0; k + 1 < x.length(); ++k) {
        if (x[k].distanceTo(x[k + 1]) <= 1e-6) continue;
        KrVector piece(raised(x[k]), raised(x[k + 1]), v.type());
        piece.setTipo(v.tipo());
        piece.setHidden(v.hidden());
        if (v.type() == KR_VT_FURO_LINHA) piece.setRaio(v.radius());
        list.AddAt(piece, i++);
      }
    } else if (v.type() == KR_VT_ARCO) {
      const AcGeCircArc2d circle(flat(v.startPoint()), flat(v.midPoint()), flat(v.endPoint()));
      if (!intersectWith(circle, polygon.points, polygon.bulges, x)) {
        ++i;
        continue;
      }
      const AcGeVector2d out = circle.startPoint() - circle.center();
      double angle = std::atan2(out.y, out.x);
      if (angle < 0) angle += 2 * kPi;
      QuickSortAngular(circle.center(), angle, x, circle.isClockWise());
      x.insertAt(0, circle.startPoint());
      x.append(circle.endPoint());
      list.removeAt(i);
      for (int k = 0; k + 1 < x.length(); ++k) {
        if (x[k] == x[k + 1]) continue;
        const AcGeVector2d across =
            (x[k + 1] - x[k]).normal().rotateBy(circle.isClockWise() ? kPi / 2 : -kPi / 2) * circle.radius();
        KrVector piece(raised(x[k]), raised(circle.center() + across), raised(x[k + 1]), KR_VT_ARCO);
        piece.setTipo(v.tipo());
        bool there = false;
        for (int other = 0; other < list.length() && !there; ++other) {
          const KrVector& o = list[other];
          there = ((o.startPoint() == piece.startPoint() && o.endPoint() == piece.endPoint()) ||
                   (o.startPoint() == piece.endPoint() && o.endPoint() == piece.startPoint())) &&
                  o.midPoint() == piece.midPoint();
        }
        if (!there) list.AddAt(piece, i++);
      }
    } else {
      ++i;
    }
  }
  for (int i = 0; i < list.length();) {
    KrVector& v = list[i];
    const KrVectorType t = v.type();
    const AcGePoint2d m = flat(v.midPoint());
    ++i;
    if (t != 1 && t != 2 && t != 3 && t != 5 && t != 6 && t != 7) continue;
    AcArray<void*> curves;
    createCurves(polygon.points, polygon.bulges, curves);
    const bool on = contains(m, curves) != 0;
    deleteCurves(curves);
    bool goes = on && (options != RemoveOutLines || keepOnPolygon == 0);
    if (!on) {
      AcArray<AcGePoint2d> crossings;
      if (m != side) intersectWith2dFence(AcGeLineSeg2d(m, side), polygon.points, polygon.bulges, crossings);
      goes = crossings.length() % 2 == 0;
    }
    if (!goes) continue;
    if (options == RemoveOutLines) {
      list.removeAt(--i);
    } else if (options == OcultaOutLines && (t == 1 || t == 2)) {
      v.setType(KR_VT_LINHA_OCULTA);
    } else if (options == OcultaOutLines && t == 3) {
      v.setType(keepOnPolygon != 0 ? KR_VT_LINHA_OCULTA : KR_VT_ARCO_OCULTO);
    } else {
      v.setHidden(1);
    }
  }
}

TEST_F(Clipper, AnswersAsThePlainFormWithEndsToTheLastBit) {
  std::mt19937_64 random(31);
  const auto whole = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  for (int round = 0; round < 4000; ++round) {
    // On a coarse grid, so that vertices, edges and tangents often meet exactly.
    Polygon polygon;
    const int corners = whole(2, 9);
    for (int k = 0; k < corners; ++k) {
      const int kind = whole(0, 5);
      polygon.add(whole(-6, 6), whole(-6, 6), kind == 0 ? 1.0 : (kind == 1 ? -0.4 : 0.0));
    }
    if (whole(0, 3) != 0) polygon.close();
    KrObjectArray<KrVector> list;
    const int elements = whole(1, 12);
    for (int k = 0; k < elements; ++k) {
      const int x = whole(-9, 9), y = whole(-9, 9);
      switch (whole(0, 5)) {
        case 0:
          list.append(arc(x, y, whole(1, 6), 90 * whole(0, 3), 90 * whole(4, 7)));
          break;
        case 1:
          list.append(arc(x, y, whole(1, 6), 90 * whole(4, 7), 90 * whole(0, 3)));
          break;
        case 2:
          list.append(line(x, y, whole(-9, 9), whole(-9, 9), static_cast<KrVectorType>(whole(0, 9))));
          break;
        case 3:
          list.append(KrVector(AcGePoint3d(x, y, 0), 1, 0, 0, KR_VT_FURO, KR_VF_FURO_REDONDO));
          break;
        default:
          list.append(line(x, y, whole(-9, 9), whole(-9, 9)));
      }
      // Hidden arcs and arcs of other kinds than 3 are left alone: no arc is made from three points in one line here.
      if (list.last().type() == KR_VT_ARCO &&
          AcGeCircArc2d(AcGePoint2d(list.last().startPoint().x, list.last().startPoint().y),
                        AcGePoint2d(list.last().midPoint().x, list.last().midPoint().y),
                        AcGePoint2d(list.last().endPoint().x, list.last().endPoint().y))
                  .radius() == 0.0)
        list.removeAt(list.length() - 1);
    }
    const AcGePoint2d side(whole(-19, 19) / 2.0, whole(-19, 19) / 2.0);
    const int keep = whole(0, 1);
    const auto options = static_cast<RecorteOutLinesOpts>(whole(0, 2));
    KrObjectArray<KrVector> plain(list);
    clip(list, polygon, side, keep, options);
    clipPlainly(plain, polygon, side, keep, options);
    ASSERT_EQ(list.length(), plain.length()) << round;
    for (int k = 0; k < list.length(); ++k) {
      // Where an arc is parted is the same to the last bit; the middles of its pieces are worked out another way.
      ASSERT_TRUE(sameElement(list[k], plain[k], 1e-12)) << round << ": " << k;
      ASSERT_EQ(list[k].startPoint().distanceTo(plain[k].startPoint()), 0) << round << ": " << k;
      ASSERT_EQ(list[k].endPoint().distanceTo(plain[k].endPoint()), 0) << round << ": " << k;
    }
  }
}

// --- Contours --------------------------------------------------------------------------------------------------------

std::vector<KrObjectArray<KrVector>> contoursOf(const KrObjectArray<KrVector>& list) {
  AcArray<void*> found;
  const int any = KrObject::Contornos(list, found);
  EXPECT_EQ(any, found.length() > 0 ? 1 : 0);
  std::vector<KrObjectArray<KrVector>> contours;
  for (void* entry : found) {
    auto* contour = static_cast<KrObjectArray<KrVector>*>(entry);
    contours.push_back(*contour);
    delete contour;
  }
  return contours;
}

TEST(Contour, ChainsEdgesWhateverTheirOrderAndSense) {
  const auto list = listOf({line(0, 0, 10, 0), line(0, 10, 10, 10), line(10, 10, 10, 0), line(0, 0, 0, 10)});
  const auto contours = contoursOf(list);
  ASSERT_EQ(contours.size(), 1u);
  ASSERT_EQ(contours[0].length(), 4);
  EXPECT_TRUE(runs(contours[0][1], 10, 0, 10, 10)) << "turned round on the copy";
  EXPECT_TRUE(runs(contours[0][2], 10, 10, 0, 10));
  EXPECT_TRUE(runs(contours[0][3], 0, 10, 0, 0));
  EXPECT_TRUE(runs(list[2], 10, 10, 10, 0)) << "the list stays";
}

TEST(Contour, TakesOutlineEdgesOnly) {
  const auto list = listOf({line(0, 0, 10, 0), line(10, 0, 10, 10, KR_VT_LINHA, KR_VF_PADRAO), line(10, 10, 0, 0)});
  EXPECT_TRUE(contoursOf(list).empty());
}

TEST(Contour, OfOneEdgeIsNone) {
  EXPECT_TRUE(contoursOf(listOf({line(3, 3, 3, 3)})).empty());
  EXPECT_TRUE(contoursOf(listOf({})).empty());
}

TEST(Contour, JoinsWithinAMillionth) {
  EXPECT_EQ(contoursOf(listOf({line(0, 0, 10, 0), line(10, 9e-7, 5, 5), line(5, 5, 0, 0)})).size(), 1u);
  EXPECT_TRUE(contoursOf(listOf({line(0, 0, 10, 0), line(10, 1.1e-6, 5, 5), line(5, 5, 0, 0)})).empty());
}

TEST(Contour, TwoRectanglesAreTwo) {
  KrObjectArray<KrVector> list;
  for (const double x : {0.0, 100.0}) {
    list.append(line(x, 0, x + 10, 0));
    list.append(line(x + 10, 0, x + 10, 5));
    list.append(line(x + 10, 5, x, 5));
    list.append(line(x, 5, x, 0));
  }
  list.append(line(50, 0, 60, 0));
  EXPECT_EQ(contoursOf(list).size(), 2u) << "the loose edge makes none";
}

TEST(Contour, FindsThemAsThePlainSearchDoes) {
  std::mt19937_64 random(5);
  const auto whole = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  for (int round = 0; round < 2000; ++round) {
    KrObjectArray<KrVector> list;
    const int n = whole(0, 25);
    for (int k = 0; k < n; ++k) list.append(line(whole(0, 3), whole(0, 3), whole(0, 3), whole(0, 3)));
    // The plain search.
    std::vector<KrVector> rest;
    for (int k = 0; k < n; ++k) rest.push_back(list[k]);
    std::vector<std::vector<KrVector>> expected;
    while (!rest.empty()) {
      std::vector<KrVector> chain{rest.front()};
      rest.erase(rest.begin());
      for (bool joined = true; joined;) {
        joined = false;
        for (std::size_t k = 0; k < rest.size() && !joined; ++k) {
          if (rest[k].endPoint().distanceTo(chain.back().endPoint()) <= 1e-6) rest[k].invert();
          if (rest[k].startPoint().distanceTo(chain.back().endPoint()) > 1e-6) continue;
          chain.push_back(rest[k]);
          rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(k));
          joined = true;
        }
      }
      if (chain.size() > 1 && chain.front().startPoint().distanceTo(chain.back().endPoint()) <= 1e-6)
        expected.push_back(chain);
    }
    const auto found = contoursOf(list);
    ASSERT_EQ(found.size(), expected.size()) << round;
    for (std::size_t c = 0; c < found.size(); ++c) {
      ASSERT_EQ(found[c].length(), static_cast<int>(expected[c].size())) << round;
      for (int k = 0; k < found[c].length(); ++k)
        ASSERT_TRUE(sameElement(found[c][k], expected[c][static_cast<std::size_t>(k)], 0)) << round;
    }
  }
}

TEST(Contour, AsAPolygonHasAsManyBulgesAsPoints) {
  // A half disc: its chord, and the half circle back; a quarter turn has the bulge tan(22.5 degrees).
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  KrObject::pontosDeCortePorContorno(listOf({line(-5, 0, 5, 0), arc(0, 0, 5, 0, 90), arc(0, 0, 5, 90, 180)}), points,
                                     bulges);
  ASSERT_EQ(points.length(), 4);
  ASSERT_EQ(bulges.length(), 4);
  EXPECT_EQ(bulges[0], 0);
  EXPECT_NEAR(bulges[1], std::tan(kPi / 8), 1e-12);
  EXPECT_NEAR(bulges[2], std::tan(kPi / 8), 1e-12);
  EXPECT_EQ(bulges[3], 0);
  EXPECT_TRUE(points[0].isEqualTo({-5, 0}));
  EXPECT_TRUE(points[3].isEqualTo({-5, 0}));
  KrObject::pontosDeCortePorContorno(listOf({arc(0, 0, 5, 180, 90)}), points, bulges);
  EXPECT_NEAR(bulges[0], -std::tan(kPi / 8), 1e-12) << "clockwise";
}

TEST(Borders, GiveAPointInsideAndOneOutside) {
  const Polygon square = rectangle(0, 0, 10, 10);
  AcGePoint2d p(-1, -1);
  EXPECT_EQ(KrObject::pointInsideBorders(square.points, square.bulges, p), 1);
  // The middles of the first two edges are (5, 0) and (10, 5): the mean of these crossings.
  EXPECT_TRUE(p.isEqualTo({7.5, 2.5}));
  EXPECT_EQ(KrObject::pointOutsideBorders(square.points, square.bulges, p), 1);
  // A unit past the second crossing.
  EXPECT_TRUE(p.isEqualTo({10 + std::sqrt(0.5), 5 + std::sqrt(0.5)}));
}

TEST(Borders, LeaveThePointWhereNoneIsFound) {
  const Polygon flat = Polygon().add(0, 0).add(5, 0).add(10, 0).add(0, 0);
  AcGePoint2d p(3, 7);
  EXPECT_EQ(KrObject::pointInsideBorders(flat.points, flat.bulges, p), 1);
  EXPECT_TRUE(p.isEqualTo({3, 7}));
  EXPECT_EQ(KrObject::pointOutsideBorders(Polygon().points, Polygon().bulges, p), 1);
  EXPECT_TRUE(p.isEqualTo({3, 7}));
}

TEST(Borders, AreRightForRandomPolygons) {
  std::mt19937_64 random(17);
  const auto whole = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  for (int round = 0; round < 1000; ++round) {
    // Star-shaped about the origin, in shuffled radii: no crossings of its own.
    Polygon star;
    const int n = whole(3, 11);
    for (int k = 0; k < n; ++k) {
      const double a = 2 * kPi * k / n, r = whole(3, 30);
      star.add(r * std::cos(a), r * std::sin(a));
    }
    star.close();
    const AcGePoint2d nowhere(1e6, 1e6);
    AcGePoint2d inside(nowhere), outside(nowhere);
    KrObject::pointInsideBorders(star.points, star.bulges, inside);
    KrObject::pointOutsideBorders(star.points, star.bulges, outside);
    const auto isInside = [&](const AcGePoint2d& p) {
      double turned = 0;
      for (int k = 0; k < n; ++k) {
        const AcGeVector2d a = star.points[k] - p, b = star.points[k + 1] - p;
        turned += std::atan2(a.crossProduct(b), a.dotProduct(b));
      }
      return std::fabs(turned) > kPi;
    };
    ASSERT_FALSE(inside == nowhere);
    ASSERT_FALSE(outside == nowhere);
    EXPECT_TRUE(isInside(inside)) << round;
    EXPECT_FALSE(isInside(outside)) << round;
  }
}

}  // namespace
