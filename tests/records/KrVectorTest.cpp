#include "records/KrVector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "Filing.h"
#include "records/KrObjectArray.h"

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kNear = 1e-9;

AcGePoint3d at(double x, double y, double z = 0.0) {
  return AcGePoint3d(x, y, z);
}

void expectNear(const AcGePoint3d& point, double x, double y, double z = 0.0) {
  EXPECT_NEAR(point.x, x, kNear);
  EXPECT_NEAR(point.y, y, kNear);
  EXPECT_NEAR(point.z, z, kNear);
}

/// An element in which every field differs from its default.
KrVector fullElement() {
  KrVector v(at(1, 2, 3), 2.5, 0.5, 7.5, KR_VT_FURO_LINHA, KR_VF_LIMITE);
  v.setStartPoint(at(1, 2, 3));
  v.setEndPoint(at(1, 6, 3));
  v.setMidPoint(at(4, 5, 6));
  v.setHidden(1);
  v.setIndexFur(12);
  v.setTypeEx(KR_VTX_CORTE);
  return v;
}

class KrVectorTest : public testing::Test {
 protected:
  void SetUp() override {
    AcGeContext::gTol.setEqualPoint(1e-8);
    AcGeContext::gTol.setEqualVector(1e-8);
  }
};

}  // namespace

TEST_F(KrVectorTest, NewElementIsAnOrdinaryAxisOfNothing) {
  const KrVector v;
  EXPECT_EQ(v.type(), 0);
  EXPECT_EQ(v.tipo(), 3);
  EXPECT_EQ(v.vectorFlag(), 3);
  EXPECT_EQ(v.IndexFur(), -1);
  EXPECT_EQ(v.hidden(), 0);
  EXPECT_EQ(v.typeEx(), 0);
  EXPECT_EQ(v.radius(), 0.0);
  EXPECT_EQ(v.folga(), 0.0);
  EXPECT_EQ(v.direction(), 0.0);
  EXPECT_EQ(v.len(), 0.0);
  expectNear(v.startPoint(), 0, 0);
  expectNear(v.midPoint(), 0, 0);
  expectNear(v.endPoint(), 0, 0);
}

TEST_F(KrVectorTest, LineHasItsMeanDirectionAndLength) {
  const KrVector v(at(1, 1, 2), at(1, 5, 4), KR_VT_LINHA);
  expectNear(v.midPoint(), 1, 3, 3);
  EXPECT_NEAR(v.direction(), kPi / 2, kNear);
  EXPECT_NEAR(v.len(), std::sqrt(20.0), kNear);
  EXPECT_EQ(v.tipo(), KR_VF_PADRAO);
}

TEST_F(KrVectorTest, ThreePointsAreTakenAsGiven) {
  const KrVector v(at(0, 0), at(5, 7), at(-3, 0), KR_VT_ARCO_OCULTO);
  expectNear(v.midPoint(), 5, 7);
  EXPECT_NEAR(v.direction(), kPi, kNear);
  EXPECT_NEAR(v.len(), 3.0, kNear);
  EXPECT_EQ(v.type(), KR_VT_ARCO_OCULTO);
}

TEST_F(KrVectorTest, LineAlongAnAngleKeepsTheAngleAndLengthGiven) {
  const KrVector v(at(10, 0), 7.0, 2.0, KR_VT_EIXO);
  EXPECT_EQ(v.direction(), 7.0);
  EXPECT_EQ(v.len(), 2.0);
  expectNear(v.endPoint(), 10 + 2 * std::cos(7.0), 2 * std::sin(7.0));
  expectNear(v.midPoint(), 10 + std::cos(7.0), std::sin(7.0));
}

TEST_F(KrVectorTest, CircleKeepsItsRadiusInItsLengthToo) {
  const KrVector v(at(3, 4), 12.5);
  EXPECT_EQ(v.type(), KR_VT_CIRCULO);
  EXPECT_EQ(v.radius(), 12.5);
  EXPECT_EQ(v.len(), 12.5);
  expectNear(v.centerPoint(), 3, 4);
  expectNear(v.startPoint(), 0, 0);
}

TEST_F(KrVectorTest, RoundHoleMeasuresItsCircumference) {
  const KrVector v(at(3, 4), 11.0, 2.0, 5.0, KR_VT_FURO, KR_VF_FURO_REDONDO, 99);
  EXPECT_NEAR(v.len(), 2.0 * kPi * 11.0, kNear);
  EXPECT_EQ(v.diametro(), 24.0);
  EXPECT_EQ(v.IndexFur(), -1);
  expectNear(v.midPoint(), 3, 4);
  expectNear(v.startPoint(), 0, 0);
}

TEST_F(KrVectorTest, RoundFlagMakesACircleMeasureItsCircumference) {
  KrVector v(at(0, 0), 2.0);
  v.setTipo(KR_VF_FURO_REDONDO);
  EXPECT_NEAR(v.len(), 4.0 * kPi, kNear);
}

TEST_F(KrVectorTest, OblongHoleReachesHalfItsStretchToEachSide) {
  const KrVector v(at(10, 20), 9.0, 1.0, 0.0, KR_VT_FURO, KR_VF_FURO_OBLONGO, kPi / 2, 30.0, 4);
  EXPECT_EQ(v.direction(), kPi / 2);
  EXPECT_EQ(v.len(), 30.0);
  expectNear(v.startPoint(), 10, 5);
  expectNear(v.endPoint(), 10, 35);
  expectNear(v.midPoint(), 10, 20);
}

TEST_F(KrVectorTest, ArcByRadiusHasItsCentreAwayFromTheThroughPoint) {
  // Chord of 6 on the X axis, radius 5: the centres are at (3, -4) and (3, 4).
  for (const double side : {1.0, -1.0}) {
    const KrVector v(at(0, 0), at(6, 0), at(3, side * 2.0), 5.0);
    EXPECT_EQ(v.type(), KR_VT_ARCO);
    EXPECT_EQ(v.radius(), 5.0);
    expectNear(v.midPoint(), 3, side * 1.0);
    expectNear(v.centerPoint(), 3, side * -4.0);
  }
}

TEST_F(KrVectorTest, ArcByRadiusPutsItsMidPointAtTheAngleOfTheThroughPoint) {
  // The through point lies off the arc: from the centre (3, -4) it stands at 45 degrees.
  const KrVector v(at(0, 0), at(6, 0), at(13, 6), 5.0);
  expectNear(v.midPoint(), 3 + 5 * std::sqrt(0.5), -4 + 5 * std::sqrt(0.5));
}

TEST_F(KrVectorTest, EverySetShowsTheElementAndForgetsItsModifierButKeepsFlagAndKind) {
  const auto expectReset = [](const KrVector& v) {
    EXPECT_EQ(v.hidden(), 0);
    EXPECT_EQ(v.IndexFur(), -1);
    EXPECT_EQ(v.tipo(), KR_VF_LIMITE);
    EXPECT_EQ(v.typeEx(), KR_VTX_CORTE);
    EXPECT_EQ(v.folga(), 0.0);
  };
  KrVector v = fullElement();
  v.set(at(0, 0), at(4, 0));
  expectReset(v);
  EXPECT_EQ(v.type(), KR_VT_FURO_LINHA);
  EXPECT_EQ(v.radius(), 0.0);
  expectNear(v.midPoint(), 2, 0);

  v = fullElement();
  v.set(at(0, 0), at(4, 0), KR_VT_LINHA);
  expectReset(v);
  EXPECT_EQ(v.type(), KR_VT_LINHA);

  v = fullElement();
  v.set(at(0, 0), at(1, 1), at(4, 0), KR_VT_ARCO);
  expectReset(v);
  EXPECT_EQ(v.radius(), 0.0);
  expectNear(v.midPoint(), 1, 1);

  v = fullElement();
  v.set(at(0, 0), at(6, 0), at(3, 2), 5.0);
  expectReset(v);
  EXPECT_EQ(v.radius(), 5.0);
  EXPECT_EQ(v.type(), KR_VT_ARCO);

  v = fullElement();
  v.set(at(1, 1), 0.0, 3.0, KR_VT_EIXO);
  expectReset(v);
  expectNear(v.endPoint(), 4, 1);

  v = fullElement();
  v.set(at(7, 8), 3.0);
  expectReset(v);
  EXPECT_EQ(v.type(), KR_VT_CIRCULO);
  EXPECT_EQ(v.len(), 3.0);
  EXPECT_EQ(v.radius(), 3.0);
}

// Unlike the constructor of the same arguments: callers depend on getting a hole.
TEST_F(KrVectorTest, SetOfAHoleIgnoresTheTypeGivenAndTakesTheFlag) {
  KrVector v = fullElement();
  v.set(at(1, 2), 6.0, 1.5, 2.5, KR_VT_CIRCULO, KR_VF_FURO_REDONDO);
  EXPECT_EQ(v.type(), KR_VT_FURO);
  EXPECT_EQ(v.tipo(), KR_VF_FURO_REDONDO);
  EXPECT_EQ(v.radius(), 6.0);
  EXPECT_EQ(v.folga(), 1.5);
  EXPECT_EQ(v.hidden(), 0);
  EXPECT_EQ(v.IndexFur(), -1);
  EXPECT_EQ(KrVector(at(1, 2), 6.0, 1.5, 2.5, KR_VT_CIRCULO, KR_VF_FURO_REDONDO).type(), KR_VT_CIRCULO);
}

TEST_F(KrVectorTest, SetOfAnOblongHoleStretchesIt) {
  KrVector v = fullElement();
  v.set(at(0, 0), 6.0, 1.0, 0.0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.0, 8.0, 1);
  EXPECT_EQ(v.tipo(), KR_VF_FURO_OBLONGO);
  EXPECT_EQ(v.len(), 8.0);
  expectNear(v.startPoint(), -4, 0);
  expectNear(v.endPoint(), 4, 0);
}

TEST_F(KrVectorTest, SettersStoreOneValue) {
  KrVector v;
  v.setHidden(1);
  v.setIndexFur(7);
  v.setVectorFlag(KR_VF_ARESTA);
  v.setType(KR_VT_REFERENCIA);
  v.setTypeEx(KR_VTX_RECORTE);
  EXPECT_EQ(v.hidden(), 1);
  EXPECT_EQ(v.IndexFur(), 7);
  EXPECT_EQ(v.tipo(), KR_VF_ARESTA);
  EXPECT_EQ(v.type(), KR_VT_REFERENCIA);
  EXPECT_EQ(v.typeEx(), KR_VTX_RECORTE);
}

TEST_F(KrVectorTest, AHoleIsFaceOnItsCentreLineOrEdgeOn) {
  for (int type = 0; type <= 9; ++type) {
    const bool hole = type == 5 || type == 6 || type == 7;
    KrVector v;
    v.setType(static_cast<KrVectorType>(type));
    EXPECT_EQ(v.isFuro(), hole) << type;
    EXPECT_EQ(KrVector::isFuro(v.type()), hole) << type;
  }
}

TEST_F(KrVectorTest, ConvertsToTheVectorFromStartToEndAndGivesItself) {
  KrVector v(at(1, 2, 3), at(4, 6, 8), KR_VT_LINHA);
  const AcGeVector3d chord = v;
  EXPECT_EQ(chord, AcGeVector3d(3, 4, 5));
  EXPECT_EQ(&v(), &v);
}

TEST_F(KrVectorTest, SetStartAndEndPointRecomputeTheRest) {
  KrVector v(at(0, 0), at(10, 0), KR_VT_LINHA);
  v.setStartPoint(at(10, -4));
  EXPECT_NEAR(v.len(), 4.0, kNear);
  EXPECT_NEAR(v.direction(), kPi / 2, kNear);
  expectNear(v.midPoint(), 10, -2);
  v.setEndPoint(at(7, -4));
  EXPECT_NEAR(v.len(), 3.0, kNear);
  EXPECT_NEAR(v.direction(), kPi, kNear);
  expectNear(v.midPoint(), 8.5, -4);
}

TEST_F(KrVectorTest, SetStartPointOnAnArcMovesTheMidPointToTheChordUntilItIsRestored) {
  KrVector v(at(1, 0), at(0, 1), at(-1, 0), KR_VT_ARCO);
  const AcGePoint3d onArc = v.midPoint();
  v.setStartPoint(at(0, -1));
  expectNear(v.midPoint(), -0.5, -0.5);
  v.setMidPoint(onArc);
  expectNear(v.midPoint(), 0, 1);
  expectNear(v.startPoint(), 0, -1);
}

TEST_F(KrVectorTest, SetRaioTakesTheClearanceAway) {
  KrVector v(at(0, 0), 5.0, 2.0, 0.0, KR_VT_FURO, KR_VF_FURO_REDONDO);
  v.setRaio(8.0);
  EXPECT_EQ(v.radius(), 8.0);
  EXPECT_EQ(v.folga(), 0.0);
  EXPECT_EQ(v.diametro(), 16.0);
}

TEST_F(KrVectorTest, SetLengthMovesOneEndAndLeavesLengthDirectionAndMidPoint) {
  for (const KrVectorType type : {KR_VT_EIXO, KR_VT_LINHA_OCULTA, KR_VT_LINHA, KR_VT_FURO_EIXO, KR_VT_REFERENCIA}) {
    KrVector v(at(0, 0), at(3, 4), type);
    EXPECT_EQ(v.setLength(10.0, 1), 1);
    expectNear(v.startPoint(), 0, 0);
    expectNear(v.endPoint(), 6, 8);
    expectNear(v.midPoint(), 1.5, 2);
    EXPECT_NEAR(v.len(), 5.0, kNear);
    v = KrVector(at(0, 0), at(3, 4), type);
    EXPECT_EQ(v.setLength(10.0, 0), 1);
    expectNear(v.startPoint(), -3, -4);
    expectNear(v.endPoint(), 3, 4);
  }
}

TEST_F(KrVectorTest, SetLengthRefusesWhatIsNoLineAndALineOfNoLength) {
  for (const KrVectorType type :
       {KR_VT_ARCO, KR_VT_CIRCULO, KR_VT_FURO, KR_VT_FURO_LINHA, KR_VT_ARCO_OCULTO, static_cast<KrVectorType>(17)}) {
    KrVector v(at(0, 0), at(3, 4), type);
    EXPECT_EQ(v.setLength(10.0, 1), 0) << type;
    expectNear(v.endPoint(), 3, 4);
  }
  KrVector v(at(2, 2), at(2, 2), KR_VT_LINHA);
  EXPECT_EQ(v.setLength(10.0, 1), 0);
  expectNear(v.endPoint(), 2, 2);
}

TEST_F(KrVectorTest, InvertExchangesTheEndsAndKeepsTheDirection) {
  KrVector v(at(0, 0), at(5, 0), KR_VT_LINHA);
  v.invert();
  expectNear(v.startPoint(), 5, 0);
  expectNear(v.endPoint(), 0, 0);
  EXPECT_EQ(v.direction(), 0.0);
}

TEST_F(KrVectorTest, IsConnectedWhereAnyTwoEndsMeet) {
  const KrVector v(at(0, 0), at(5, 0), KR_VT_LINHA);
  EXPECT_EQ(v.isConnectedTo(KrVector(at(0, 0), at(9, 9), KR_VT_LINHA)), 1);
  EXPECT_EQ(v.isConnectedTo(KrVector(at(9, 9), at(0, 0), KR_VT_LINHA)), 1);
  EXPECT_EQ(v.isConnectedTo(KrVector(at(5, 0), at(9, 9), KR_VT_LINHA)), 1);
  EXPECT_EQ(v.isConnectedTo(KrVector(at(9, 9), at(5, 0), KR_VT_LINHA)), 1);
  const KrVector apart(at(5.05, 0), at(9, 9), KR_VT_LINHA);
  EXPECT_EQ(v.isConnectedTo(apart), 0);
  AcGeTol loose;
  loose.setEqualPoint(0.1);
  EXPECT_EQ(v.isConnectedTo(apart, loose), 1);
}

TEST_F(KrVectorTest, CentreOfAnArcStandsInOnePointThatTheNextCallOverwrites) {
  const KrVector a(at(1, 0), at(0, 1), at(-1, 0), KR_VT_ARCO);
  const KrVector b(at(11, 5), at(10, 6), at(9, 5), KR_VT_ARCO);
  const AcGePoint3d& first = a.centerPoint();
  expectNear(first, 0, 0);
  const AcGePoint3d& second = b.centerPoint();
  expectNear(second, 10, 5);
  EXPECT_EQ(&first, &second);
}

TEST_F(KrVectorTest, CentreOfAnyOtherElementIsItsMidPoint) {
  const KrVector hidden(at(1, 0), at(0, 1), at(-1, 0), KR_VT_ARCO_OCULTO);
  EXPECT_EQ(&hidden.centerPoint(), &hidden.midPoint());
  const KrVector straight(at(0, 0), at(1, 0), at(2, 0), KR_VT_ARCO);
  expectNear(straight.centerPoint(), 1, 0);
}

TEST_F(KrVectorTest, LengthOfAnArcIsMeasuredAlongIt) {
  EXPECT_NEAR(KrVector(at(2, 0), at(0, 2), at(-2, 0), KR_VT_ARCO).len(), 2.0 * kPi, kNear);
  // Three quarters of a circle.
  const double h = std::sqrt(0.5);
  EXPECT_NEAR(KrVector(at(1, 0), at(-h, h), at(0, -1), KR_VT_ARCO).len(), 1.5 * kPi, kNear);
}

TEST_F(KrVectorTest, LengthOfAnArcWhoseEndsCoincideIsZeroWhateverItsMidPoint) {
  EXPECT_EQ(KrVector(at(2, 0), at(0, 2), at(2, 0), KR_VT_ARCO).len(), 0.0);
}

TEST_F(KrVectorTest, LimitsOfARoundHoleAreItsSquareWithoutTheClearance) {
  const KrVector v(at(10, 20, 5), 3.0, 2.0, 0.0, KR_VT_FURO, KR_VF_FURO_REDONDO);
  AcGePoint3d p1;
  AcGePoint3d p2;
  AcGePoint3d p3;
  AcGePoint3d p4;
  v.GetLimitsFuro(p1, p2, p3, p4);
  expectNear(p1, 7, 17);
  expectNear(p2, 7, 23);
  expectNear(p3, 13, 17);
  expectNear(p4, 13, 23);
}

TEST_F(KrVectorTest, LimitsOfAnOblongHoleAreFourPointsAtTheOrigin) {
  const KrVector v(at(10, 20), 3.0, 2.0, 0.0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.0, 30.0);
  AcGePoint3d corners[4] = {at(1, 1), at(1, 1), at(1, 1), at(1, 1)};
  v.GetLimitsFuro(corners[0], corners[1], corners[2], corners[3]);
  for (const AcGePoint3d& corner : corners) expectNear(corner, 0, 0);
}

TEST_F(KrVectorTest, LinesBecomeLines) {
  for (const KrVectorType type : {KR_VT_EIXO, KR_VT_LINHA_OCULTA, KR_VT_LINHA}) {
    const std::unique_ptr<AcDbEntity> entity(KrVector(at(1, 2), at(3, 4), type).getAcDbEntity());
    const AcDbLine* line = AcDbLine::cast(entity.get());
    ASSERT_NE(line, nullptr);
    expectNear(line->startPoint(), 1, 2);
    expectNear(line->endPoint(), 3, 4);
  }
}

TEST_F(KrVectorTest, AnArcBecomesAnArc) {
  const KrVector v(at(5, 0), at(0, 5), at(-5, 0), KR_VT_ARCO);
  const std::unique_ptr<AcDbEntity> entity(v.getAcDbEntity());
  const AcDbArc* arc = AcDbArc::cast(entity.get());
  ASSERT_NE(arc, nullptr);
  expectNear(arc->center(), 0, 0);
  EXPECT_NEAR(arc->radius(), 5.0, kNear);
  EXPECT_NEAR(std::cos(arc->startAngle()), 1.0, kNear);
  EXPECT_NEAR(std::cos(arc->endAngle()), -1.0, kNear);
  EXPECT_EQ(KrVector(at(0, 0), at(1, 0), at(2, 0), KR_VT_ARCO).getAcDbEntity(), nullptr);
}

TEST_F(KrVectorTest, ACircleBecomesACircle) {
  const std::unique_ptr<AcDbEntity> entity(KrVector(at(3, 4), 6.0).getAcDbEntity());
  const AcDbCircle* circle = AcDbCircle::cast(entity.get());
  ASSERT_NE(circle, nullptr);
  expectNear(circle->center(), 3, 4);
  EXPECT_EQ(circle->radius(), 6.0);
  EXPECT_EQ(circle->normal(), AcGeVector3d::kZAxis);
}

TEST_F(KrVectorTest, HolesAndTheRestHaveNoEntity) {
  for (int type = 5; type <= 10; ++type) {
    EXPECT_EQ(KrVector(at(0, 0), at(1, 1), at(2, 0), static_cast<KrVectorType>(type)).getAcDbEntity(), nullptr) << type;
  }
}

TEST_F(KrVectorTest, TransformScalesTheMeasuresOfAHoleFaceOn) {
  const AcGeMatrix3d twice = AcGeMatrix3d::scaling(2.0, AcGePoint3d::kOrigin);
  KrVector hole(at(1, 1), 3.0, 0.5, 0.0, KR_VT_FURO, KR_VF_FURO_OBLONGO, 0.0, 4.0);
  EXPECT_EQ(hole.transformBy(twice), Acad::eOk);
  EXPECT_NEAR(hole.radius(), 6.0, kNear);
  EXPECT_NEAR(hole.folga(), 1.0, kNear);
  EXPECT_NEAR(hole.len(), 8.0, kNear);
  expectNear(hole.midPoint(), 2, 2);
  KrVector edgeOn(at(0, 0), at(1, 0), KR_VT_FURO_LINHA);
  edgeOn.setRaio(3.0);
  edgeOn.transformBy(twice);
  EXPECT_EQ(edgeOn.radius(), 3.0);
}

TEST_F(KrVectorTest, TransformTurnsALine) {
  KrVector v(at(1, 0), at(3, 0), KR_VT_LINHA);
  v.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis));
  expectNear(v.startPoint(), 0, 1);
  expectNear(v.endPoint(), 0, 3);
  expectNear(v.midPoint(), 0, 2);
  EXPECT_NEAR(v.direction(), kPi / 2, kNear);
}

// Generators therefore rebuild circles instead of transforming them.
TEST_F(KrVectorTest, TransformLosesTheDrawnRadiusOfACircle) {
  KrVector v(at(0, 0), 5.0);
  v.transformBy(AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0)));
  EXPECT_EQ(v.radius(), 5.0);
  EXPECT_EQ(v.len(), 0.0);
}

TEST_F(KrVectorTest, DwgRecordHoldsItsFieldsInOrder) {
  filing::NotingDwgFiler filer;
  EXPECT_EQ(fullElement().dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> expected = {"double 1.7976931348623157e+308",
                                             "Int16 3",
                                             "Point3d 1 2 3",
                                             "Point3d 4 5 6",
                                             "Point3d 1 6 3",
                                             "double 1.5707963267948966",
                                             "double 4",
                                             "Int16 7",
                                             "double 2.5",
                                             "double 0.5",
                                             "double 7.5",
                                             "Int16 4",
                                             "Boolean 1",
                                             "Int32 12",
                                             "Int32 2"};
  EXPECT_EQ(filer.items, expected);
}

TEST_F(KrVectorTest, DwgRecordReadsBackWhole) {
  filing::NotingDwgFiler filer;
  fullElement().dwgOutFields(&filer);
  KrVector v;
  EXPECT_EQ(v.dwgInFields(&filer.rewound()), Acad::eOk);
  filing::NotingDwgFiler again;
  v.dwgOutFields(&again);
  EXPECT_EQ(again.items, filer.items);
}

namespace {

/// Items 4 to 13 of a record.
void writeFromMidToHidden(AcDbDwgFiler& filer, Adesk::Int16 type) {
  filer.writePoint3d(at(4, 5, 6));
  filer.writePoint3d(at(7, 8, 9));
  filer.writeDouble(0.25);
  filer.writeDouble(11.0);
  filer.writeInt16(type);
  filer.writeDouble(2.5);
  filer.writeDouble(0.5);
  filer.writeDouble(7.5);
  filer.writeInt16(1);
  filer.writeBoolean(1);
}

void expectMidToHidden(const KrVector& v) {
  expectNear(v.startPoint(), 1, 2, 3);
  expectNear(v.midPoint(), 4, 5, 6);
  expectNear(v.endPoint(), 7, 8, 9);
  EXPECT_EQ(v.direction(), 0.25);
  EXPECT_EQ(v.radius(), 2.5);
  EXPECT_EQ(v.folga(), 0.5);
  EXPECT_EQ(v.tipo(), KR_VF_FURO_OBLONGO);
  EXPECT_EQ(v.hidden(), 1);
}

constexpr double kMarker = std::numeric_limits<double>::max();

/// A record of a version behind its marker.
void writeRecord(AcDbDwgFiler& filer, Adesk::Int16 version, Adesk::Int16 type = 2) {
  filer.writeDouble(kMarker);
  filer.writeInt16(version);
  if (version == 0) return;
  filer.writePoint3d(at(1, 2, 3));
  writeFromMidToHidden(filer, type);
  if (version > 1) filer.writeInt32(21);
  if (version > 2) filer.writeInt32(3);
}

}  // namespace

TEST_F(KrVectorTest, DwgRecordWithoutMarkerReadsAsTheOldLayoutAndWritesBackAsVersion3) {
  filing::NotingDwgFiler filer;
  filer.writeDouble(1.0);
  filer.writeDouble(2.0);
  filer.writeDouble(3.0);
  writeFromMidToHidden(filer, 2);
  KrVector v;
  v.setIndexFur(5);
  EXPECT_EQ(v.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(filer.filerStatus(), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  expectMidToHidden(v);
  EXPECT_EQ(v.IndexFur(), -1);
  filing::NotingDwgFiler again;
  v.dwgOutFields(&again);
  ASSERT_EQ(again.items.size(), 15U);
  EXPECT_EQ(again.items[1], "Int16 3");
  EXPECT_EQ(again.items[6], "double 11");
  EXPECT_EQ(again.items[10], "double 7.5");
}

TEST_F(KrVectorTest, DwgRecordOfVersion1HasNoIndex) {
  filing::NotingDwgFiler filer;
  writeRecord(filer, 1);
  KrVector v;
  v.setIndexFur(5);
  v.dwgInFields(&filer.rewound());
  EXPECT_TRUE(filer.atEnd());
  expectMidToHidden(v);
  EXPECT_EQ(v.IndexFur(), -1);
  EXPECT_EQ(v.typeEx(), KR_VTX_NENHUM);
}

TEST_F(KrVectorTest, DwgRecordOfVersion2KeepsTheKindOfModifierThatTheElementHad) {
  filing::NotingDwgFiler filer;
  writeRecord(filer, 2);
  KrVector v;
  v.setTypeEx(KR_VTX_FURO);
  v.dwgInFields(&filer.rewound());
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(v.IndexFur(), 21);
  EXPECT_EQ(v.typeEx(), KR_VTX_FURO);
}

TEST_F(KrVectorTest, DwgRecordOfVersion0HoldsNothing) {
  filing::NotingDwgFiler filer;
  writeRecord(filer, 0);
  KrVector v(at(1, 1), at(2, 2), KR_VT_LINHA);
  v.setIndexFur(5);
  v.dwgInFields(&filer.rewound());
  EXPECT_TRUE(filer.atEnd());
  expectNear(v.endPoint(), 2, 2);
  EXPECT_EQ(v.IndexFur(), 5);
}

TEST_F(KrVectorTest, UnknownTypesStayAsReadZeroExtended) {
  filing::NotingDwgFiler filer;
  writeRecord(filer, 3, 300);
  writeRecord(filer, 3, -1);
  filer.seek(0);
  KrVector v;
  v.dwgInFields(&filer);
  EXPECT_EQ(static_cast<int>(v.type()), 300);
  EXPECT_EQ(v.typeEx(), KR_VTX_RECORTE);
  EXPECT_EQ(v.len(), 11.0);
  v.dwgInFields(&filer);
  EXPECT_EQ(static_cast<int>(v.type()), 65535);
}

TEST_F(KrVectorTest, AListOfElementsFilesItsCountAndReadsBack) {
  KrObjectArray<KrVector> list;
  list.append(KrVector(at(0, 0), at(1, 0), KR_VT_LINHA));
  list.append(fullElement());
  filing::NotingDwgFiler filer;
  EXPECT_EQ(list.dwgOutFields(&filer), Acad::eOk);
  ASSERT_EQ(filer.items.size(), 31U);
  EXPECT_EQ(filer.items[0], "Int32 2");
  KrObjectArray<KrVector> read;
  read.append(KrVector());
  EXPECT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  ASSERT_EQ(read.length(), 2);
  EXPECT_EQ(read[0].type(), KR_VT_LINHA);
  EXPECT_EQ(read[1].IndexFur(), 12);
}

TEST_F(KrVectorTest, ABrokenListStopsAtTheEndOfItsRecord) {
  filing::NotingDwgFiler filer;
  filer.writeInt32(2000000000);
  writeRecord(filer, 3);
  KrObjectArray<KrVector> list;
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_NE(filer.filerStatus(), Acad::eOk);
  EXPECT_LE(list.length(), 2);
}

TEST_F(KrVectorTest, ANegativeCountReadsAsAnEmptyList) {
  filing::NotingDwgFiler filer;
  filer.writeInt32(-3);
  KrObjectArray<KrVector> list;
  list.append(KrVector());
  EXPECT_EQ(list.dwgInFields(&filer.rewound()), Acad::eOk);
  EXPECT_EQ(list.length(), 0);
}

namespace {

const std::vector<int> kElementCodes = {40, 170, 10, 10, 10, 40, 40, 170, 40, 40, 40, 170, 170};

/// The groups of an element of a version.
void writeGroups(AcDbDxfFiler& filer, Adesk::Int16 version) {
  filer.writeItem(40, 0.0);
  filer.writeItem(170, version);
  filer.writeItem(10, at(1, 2, 3));
  filer.writeItem(10, at(4, 5, 6));
  filer.writeItem(10, at(7, 8, 9));
  filer.writeItem(40, 0.25);
  filer.writeItem(40, 11.0);
  filer.writeItem(170, Adesk::Int16(2));
  filer.writeItem(40, 2.5);
  filer.writeItem(40, 0.5);
  filer.writeItem(40, 7.5);
  filer.writeItem(170, Adesk::Int16(1));
  filer.writeItem(170, Adesk::Int16(1));
}

}  // namespace

TEST_F(KrVectorTest, DxfGroupsHaveNoIndexAndNoKindOfModifier) {
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(fullElement().dxfOutFields(&filer), Acad::eOk);
  EXPECT_EQ(filing::codes(filer), kElementCodes);
  EXPECT_EQ(std::get<double>(filer.groups()[0].value), kMarker);
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[1].value), 3);
  EXPECT_EQ(std::get<AcGePoint3d>(filer.groups()[4].value), at(1, 6, 3));
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[7].value), 7);
  EXPECT_EQ(std::get<Adesk::Int64>(filer.groups()[12].value), 1);
}

TEST_F(KrVectorTest, DxfElementOfVersion1ReadsWhateverItsMarkerIs) {
  AcDbMemoryDxfFiler filer;
  writeGroups(filer, 1);
  filer.rewindFiler();
  KrVector v;
  EXPECT_EQ(v.dxfInFields(&filer), Acad::eOk);
  expectMidToHidden(v);
  EXPECT_EQ(v.len(), 11.0);
  EXPECT_EQ(v.IndexFur(), -1);
}

// The writer writes version 3 and the reader takes version 1: the two differ and stay so.
TEST_F(KrVectorTest, DxfElementAsWrittenDoesNotReadBack) {
  AcDbMemoryDxfFiler filer;
  fullElement().dxfOutFields(&filer);
  filer.rewindFiler();
  KrVector v;
  EXPECT_EQ(v.dxfInFields(&filer), Acad::eInvalidDxfCode);
  EXPECT_STREQ(filer.errorMessage(), L"\nKR_Trama erro ao ler DXF.");
  expectNear(v.startPoint(), 0, 0);
  filer.resetFilerStatus();
  EXPECT_EQ(filing::nextCode(filer), 170);
}

TEST_F(KrVectorTest, DxfElementEndsAtAWrongCodeAndPutsTheGroupBack) {
  AcDbMemoryDxfFiler filer;
  filer.writeItem(40, 0.0);
  filer.writeItem(170, Adesk::Int16(1));
  filer.writeItem(10, at(1, 2, 3));
  filer.writeItem(11, at(4, 5, 6));
  filer.rewindFiler();
  KrVector v;
  EXPECT_EQ(v.dxfInFields(&filer), Acad::eInvalidDxfCode);
  expectNear(v.startPoint(), 1, 2, 3);
  expectNear(v.midPoint(), 0, 0);
  filer.resetFilerStatus();
  EXPECT_EQ(filing::nextCode(filer), 11);
}

TEST_F(KrVectorTest, DxfListBeginsWithGroup90) {
  KrObjectArray<KrVector> list;
  list.append(KrVector());
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(list.dxfOutFields(&filer), Acad::eOk);
  std::vector<int> expected = {90};
  expected.insert(expected.end(), kElementCodes.begin(), kElementCodes.end());
  EXPECT_EQ(filing::codes(filer), expected);
}

TEST_F(KrVectorTest, DxfListOfVersion1ElementsReads) {
  AcDbMemoryDxfFiler filer;
  filer.writeItem(90, Adesk::Int32(2));
  writeGroups(filer, 1);
  writeGroups(filer, 1);
  filer.rewindFiler();
  KrObjectArray<KrVector> list;
  EXPECT_EQ(list.dxfInFields(&filer), Acad::eOk);
  ASSERT_EQ(list.length(), 2);
  expectMidToHidden(list[1]);
}

TEST_F(KrVectorTest, DxfListWithAnotherFirstGroupEndsEmptyAndPutsTheGroupBack) {
  AcDbMemoryDxfFiler filer;
  filer.writeItem(70, Adesk::Int16(1));
  filer.rewindFiler();
  KrObjectArray<KrVector> list;
  list.append(KrVector());
  EXPECT_EQ(list.dxfInFields(&filer), Acad::eInvalidResBuf);
  EXPECT_EQ(list.length(), 0);
  EXPECT_EQ(filing::nextCode(filer), 70);
}
