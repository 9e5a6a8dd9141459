// Numbers that are none are refused where they come in: no list of a member holds any, and nothing else changes.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "modifiers/CutBar.h"
#include "object/ElementLists.h"
#include "property/Model.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

/// A bar with one of each modifier, and what it holds before something is tried on it.
class NoNumber : public testing::TestWithParam<double> {
 protected:
  NoNumber() {
    KrFuro holes;
    holes.Add({0, 20, 400}, {0, -20, 400}, 18, 0, 0);
    bar.setFurosSemLink(holes);
    bar.cutAt(900, 950);
    AcArray<AcGePoint2d> corners = square();
    AcGePoint2d side(225, 45);
    EXPECT_EQ(bar.Recorte(corners, straight(), side), Acad::eOk);
    KrObjectSplit split;
    split.setZPos(600);
    split.setLength(20);
    bar.addSplit(split, 0);
    bar.Gera_KrVector();
    list = lists::of(bar, Superior);
    model = std::make_unique<property::Model>(bar);
  }

  static AcArray<AcGePoint2d> square() {
    AcArray<AcGePoint2d> corners;
    for (const AcGePoint2d& p :
         {AcGePoint2d(200, 60), AcGePoint2d(200, 30), AcGePoint2d(250, 30), AcGePoint2d(250, 60)})
      corners.append(p);
    return corners;
  }
  static AcArray<double> straight() {
    AcArray<double> bulges;
    for (int i = 0; i < 4; ++i) bulges.append(0.0);
    return bulges;
  }

  void expectUnchanged() const {
    EXPECT_EQ(model->differenceTo(property::Model(bar)), "");
    EXPECT_THAT(lists::of(bar, Superior), lists::Are(list));
  }

  const double none = GetParam();
  CutBar bar;
  lists::Elements list;
  std::unique_ptr<property::Model> model;
};

// The distance of such a point from any other is no number.
TEST(Numbers, WhoseSquaresAreNoneAreRefused) {
  CutBar bar;
  const AcGePoint3d far(1e160, 0, 0);
  EXPECT_EQ(bar.setStartPoint(far), Acad::eInvalidInput);
  EXPECT_EQ(bar.setComprimento(-1e160), Acad::eInvalidInput);
  EXPECT_EQ(bar.AddVertex(KrVector(AcGePoint3d(0, 0, 0), far, KR_VT_LINHA), Superior), Acad::eInvalidInput);
  EXPECT_EQ(bar.setStartPoint({1e150, 0, 0}), Acad::eOk);
}

TEST(DrawingScale, IsNeverZero) {
  CutBar bar;
  for (const auto set : {&KrObject::setXscale, &KrObject::setYscale, &KrObject::setZscale})
    EXPECT_EQ((bar.*set)(0), Acad::eInvalidInput);
  double scale = 0;
  bar.Xscale(scale);
  EXPECT_EQ(scale, 1);
}

TEST_P(NoNumber, IsNoPlaceOfAHole) {
  const AcGePoint3d p = bar.startPoint() + AcGeVector3d(0, 30, 300);
  for (int i = 0; i < 8; ++i) {
    double v[] = {p.x, p.y, p.z, 0, -60, 18, 5, 0.3};
    v[i] = none;
    EXPECT_EQ(bar.FurarSecao({v[0], v[1], v[2]}, {v[3], v[4]}, v[5], v[6], v[7], -1, 0, 0), Acad::eNotApplicable) << i;
  }
  bar.FurarVista({none, 0, 0}, 60, 18, 0, 0, -1, 0);
  bar.FurarVista({300, 0, 0}, 60, none, 0, 0, -1, 0);
  for (int i = 0; i < 3; ++i) {
    double v[] = {0, 20, 300};
    v[i] = none;
    KrFuro holes;
    holes.Add({v[0], v[1], v[2]}, {0, -20, 300}, 18, 0, 0);
    EXPECT_EQ(bar.setFuros(&holes), Acad::eInvalidInput);
    EXPECT_EQ(bar.setFurosSemLink(holes), Acad::eInvalidInput);
    bar.AtualizaFuracao(&holes);
  }
  AcArray<int> all;
  all.append(0);
  EXPECT_NE(bar.moveFurosVista({none, 0, 0}, all), Acad::eOk);
  expectUnchanged();
}

TEST_P(NoNumber, IsNoPlaceOfACut) {
  for (int i = 0; i < 6; ++i) {
    double v[] = {700, -70, 710, 70, 800, 0};
    v[i] = none;
    AcGePoint3d p(v[0], v[1], 0);
    AcGePoint3d q(v[2], v[3], 0);
    AcGePoint3d side(v[4], v[5], 0);
    EXPECT_EQ(bar.Corte(p, q, side, 0, 1), Acad::eNotApplicable) << i;
    EXPECT_EQ(bar.CorteVista(p, q, side, Superior, 0, 1), Acad::eNotApplicable) << i;
    EXPECT_EQ(bar.CorteArestaVista(p, q, side, Superior, 0, 1), Acad::eNotApplicable) << i;
  }
  KrPlanoCorte cuts;
  cuts.Add(AcGePlane(AcGePoint3d(0, 0, none), AcGeVector3d::kZAxis), {0, 0, -900});
  EXPECT_EQ(bar.addCortes(cuts, 0), Acad::eInvalidInput);
  AcArray<int> all;
  all.append(0);
  EXPECT_EQ(bar.moveCortesVista({none, 0, 0}, all), Acad::eInvalidInput);
  expectUnchanged();
}

TEST_P(NoNumber, IsNoPlaceOfANotch) {
  AcGePoint2d side(325, 45);
  for (int i = 0; i < 8; ++i) {
    AcArray<AcGePoint2d> corners = square();
    (i % 2 == 0 ? corners[i / 2].x : corners[i / 2].y) = none;
    EXPECT_EQ(bar.Recorte(corners, straight(), side), Acad::eNotApplicable) << i;
    EXPECT_EQ(bar.RecorteVisual(corners, straight(), side, 0, nullptr), Acad::eNotApplicable) << i;
    KrObjectRecorteArray notches;
    notches.append(KrObjectRecorte(corners, straight(), side));
    EXPECT_EQ(bar.addRecortesWCS(notches), Acad::eInvalidInput);
  }
  AcArray<double> bulges = straight();
  bulges[1] = none;
  EXPECT_EQ(bar.Recorte(square(), bulges, side), Acad::eNotApplicable);
  AcGePoint2d nowhere(none, 45);
  EXPECT_EQ(bar.Recorte(square(), straight(), nowhere), Acad::eNotApplicable);
  AcArray<int> all[2];
  all[1].append(0);
  EXPECT_EQ(bar.moveRecortesVista({none, 0, 0}, all), Acad::eInvalidInput);
  expectUnchanged();
}

TEST_P(NoNumber, IsNoPlaceOfASplitOrALimit) {
  KrObjectSplit split;
  split.setZPos(none);
  bar.addSplit(split, 0);
  split.setZPos(100);
  split.setLength(none);
  bar.addSplit(split, 0);
  EXPECT_NE(bar.adjustSplit(split, {none, 0, 0}), Acad::eOk);
  EXPECT_EQ(split.zPos(), 100);
  bar.setVisualRepScale(none);
  // What is infinite is a limit past the end: it is clamped there.
  if (std::isnan(none)) {
    bar.setVisualRepStart(none);
    bar.setVisualRepEnd(none);
    bar.setVisualRepStart(AcGePoint3d(none, 0, 0), 1);
    bar.setVisualRepEnd(AcGePoint3d(0, none, 0), 1);
  }
  expectUnchanged();
}

TEST_P(NoNumber, IsNoMotionAndNoScale) {
  EXPECT_EQ(bar.moveEixo({none, 0, 0}), Acad::eInvalidInput);
  EXPECT_NE(bar.SetPointsOfEixoBarra({none, 0, 0}, {1000, 0, 0}), Acad::eOk);
  EXPECT_NE(bar.SetPointsOfEixoBarra({0, 0, 0}, {0, none, 0}), Acad::eOk);
  KrObject::Position place;
  ASSERT_EQ(bar.position(place, 1), Acad::eOk);
  place.ponto.x = none;
  EXPECT_EQ(bar.setPosition(place, 1), Acad::eInvalidInput);
  EXPECT_EQ(bar.ObjectScale(none, 1, 1), Acad::eInvalidInput);
  EXPECT_EQ(bar.ObjectScale(0.5, 0.5, none), Acad::eInvalidInput);
  EXPECT_EQ(bar.ObjectScaleAxl({none, 0, 0}, 0.5), Acad::eInvalidInput);
  const AcGeMatrix3d m = AcGeMatrix3d::translation({none, 0, 0});
  EXPECT_EQ(bar.transformBy(m), Acad::eInvalidInput);
  EXPECT_EQ(bar.transformByNoEixo(m), Acad::eInvalidInput);
  EXPECT_EQ(bar.transformByFuros(m), Acad::eInvalidInput);
  expectUnchanged();
}

TEST_P(NoNumber, IsNoMeasureOfAMember) {
  EXPECT_EQ(bar.setStartPoint({none, 0, 0}), Acad::eInvalidInput);
  EXPECT_EQ(bar.setendPoint({0, 0, none}), Acad::eInvalidInput);
  for (const auto set : {&KrObject::setAngleVista, &KrObject::setAngleSecao, &KrObject::setComprimento,
                         &KrObject::setComprimentoReal, &KrObject::setXscale, &KrObject::setYscale,
                         &KrObject::setZscale, &KrObject::setZCoordIni, &KrObject::setZCoordEnd})
    EXPECT_EQ((bar.*set)(none), Acad::eInvalidInput);
  expectUnchanged();
}

TEST_P(NoNumber, IsNoPolygonToClipBy) {
  const KrVector line(AcGePoint3d(0, 45, 0), AcGePoint3d(300, 45, 0), KR_VT_LINHA);
  const auto expectWhole = [&](const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, AcGePoint2d side) {
    KrObjectArray<KrVector> clipped;
    clipped.append(line);
    KrObject::RecorteKrVectorArray(clipped, points, bulges, side, 0);
    ASSERT_EQ(clipped.length(), 1);
    EXPECT_TRUE(clipped[0].startPoint().isEqualTo(line.startPoint()));
    EXPECT_TRUE(clipped[0].endPoint().isEqualTo(line.endPoint()));
  };
  AcArray<AcGePoint2d> corners = square();
  corners[2].x = none;
  expectWhole(corners, straight(), {225, 45});
  AcArray<double> bulges = straight();
  bulges[0] = none;
  expectWhole(square(), bulges, {225, 45});
  expectWhole(square(), straight(), {225, none});
}

TEST_P(NoNumber, IsInNoElement) {
  const KrVector line(AcGePoint3d(0, 0, 0), AcGePoint3d(10, none, 0), KR_VT_LINHA);
  const KrVector circle(AcGePoint3d(0, 0, 0), none);
  for (const KrVector& element : {line, circle}) {
    EXPECT_EQ(bar.AddVertex(element, Superior), Acad::eInvalidInput);
    EXPECT_EQ(bar.AddFuro(element, Superior), Acad::eInvalidInput);
    EXPECT_EQ(bar.UpdateVector(Superior, 0, element), 0);
    EXPECT_EQ(bar.UpdateVectorEixo(Superior, element), 0);
  }
  expectUnchanged();
}

INSTANTIATE_TEST_SUITE_P(Both, NoNumber, testing::Values(kNan, kInfinite));

}  // namespace
