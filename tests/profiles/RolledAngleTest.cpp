// Single rolled angles: upright, and on the corner, alone and doubled.

#include <gtest/gtest.h>

#include "SectionChecks.h"
#include "profiles/KrBNDuplaLaminada.h"
#include "profiles/KrBNLaminado.h"
#include "profiles/KrCantLaminada.h"

namespace {

using profile::expectBar;
using profile::expectParameters;
using profile::kAngle;
using profile::kEnd;
using profile::kLength;
using profile::kStart;
using profile::valueOf;

constexpr double kPi = 3.141592653589793;
/// A quarter circle.
const double b = 127.0 * std::tan(kPi / 8.0);

const AcGePoint3d kOrigin(0, 0, 0);

class RolledAngle : public testing::Test {
 protected:
  void SetUp() override {
    profile::registerClass<KrCantLaminada>();
    profile::registerClass<KrBNLaminado>();
    profile::registerClass<KrBNDuplaLaminada>();
  }
};

}  // namespace

TEST_F(RolledAngle, RegistersUnderItsNames) {
  profile::expectRegistered(KrCantLaminada::desc(), L"KrCantLaminada", L"KR_PERFIL_CANT_LAMINADA");
  profile::expectRegistered(KrBNLaminado::desc(), L"KrBNLaminado", L"KR_PERFIL_BN_LAMINADO");
  profile::expectRegistered(KrBNDuplaLaminada::desc(), L"KrBNDuplaLaminada", L"KR_PERFIL_BNDUPLA_LAMINADO");
}

TEST_F(RolledAngle, UprightBetweenTwoPoints) {
  const KrCantLaminada bar(kStart, kEnd, Direita, 101, 76, 8, 18, 69, 10, 0.25, 10.5, 1351);
  expectBar(bar, Direita, kAngle, kLength, 0.25);
  expectParameters<KrCantLaminada>(bar,
                                   {PARAMETER(KrCantLaminada, Altura, 101), PARAMETER(KrCantLaminada, Largura, 76),
                                    PARAMETER(KrCantLaminada, Espessura, 8), PARAMETER(KrCantLaminada, EixoX, 18),
                                    PARAMETER(KrCantLaminada, EixoY, 69), PARAMETER(KrCantLaminada, RaioDobra, 10),
                                    PARAMETER(KrCantLaminada, KgMetro, 10.5), PARAMETER(KrCantLaminada, Area, 1351)});
}

TEST_F(RolledAngle, UprightFromOnePoint) {
  const KrCantLaminada bar(kStart, Esquerda, 101, 76, 8, 18, 69, 10, 0.25, 1.25, 640, 10.5, 1351);
  expectBar(bar, Esquerda, 1.25, 640, 0.25);
  expectParameters<KrCantLaminada>(bar,
                                   {PARAMETER(KrCantLaminada, Altura, 101), PARAMETER(KrCantLaminada, Largura, 76),
                                    PARAMETER(KrCantLaminada, Espessura, 8), PARAMETER(KrCantLaminada, EixoX, 18),
                                    PARAMETER(KrCantLaminada, EixoY, 69), PARAMETER(KrCantLaminada, RaioDobra, 10),
                                    PARAMETER(KrCantLaminada, KgMetro, 10.5), PARAMETER(KrCantLaminada, Area, 1351)});
}

TEST_F(RolledAngle, OnItsCornerBetweenTwoPoints) {
  const KrBNLaminado bar(kStart, kEnd, Inferior, 75, 8, -23, 10, 0.25, 9, 1141);
  expectBar(bar, Inferior, kAngle, kLength, 0.25);
  expectParameters<KrBNLaminado>(bar, {PARAMETER(KrBNLaminado, Aba, 75), PARAMETER(KrBNLaminado, Espessura, 8),
                                       PARAMETER(KrBNLaminado, EixoX, -23), PARAMETER(KrBNLaminado, RaioDobra, 10),
                                       PARAMETER(KrBNLaminado, KgMetro, 9), PARAMETER(KrBNLaminado, Area, 1141)});
}

TEST_F(RolledAngle, OnItsCornerFromOnePoint) {
  const KrBNLaminado bar(kStart, Superior, 75, 8, -23, 10, 0.25, 1.25, 640, 9, 1141);
  expectBar(bar, Superior, 1.25, 640, 0.25);
  expectParameters<KrBNLaminado>(bar, {PARAMETER(KrBNLaminado, Aba, 75), PARAMETER(KrBNLaminado, Espessura, 8),
                                       PARAMETER(KrBNLaminado, EixoX, -23), PARAMETER(KrBNLaminado, RaioDobra, 10),
                                       PARAMETER(KrBNLaminado, KgMetro, 9), PARAMETER(KrBNLaminado, Area, 1141)});
}

TEST_F(RolledAngle, DoubledOnTheirCornersBetweenTwoPoints) {
  const KrBNDuplaLaminada bar(kStart, kEnd, Superior, 75, 8, 12, 10, 23, 0.25, 2282, 18);
  expectBar(bar, Superior, kAngle, kLength, 0.25);
  expectParameters<KrBNDuplaLaminada>(
      bar, {PARAMETER(KrBNDuplaLaminada, Aba, 75), PARAMETER(KrBNDuplaLaminada, Espessura, 8),
            PARAMETER(KrBNDuplaLaminada, Afastamento, 12), PARAMETER(KrBNDuplaLaminada, RaioDobra, 10),
            PARAMETER(KrBNDuplaLaminada, EixoX, 23), PARAMETER(KrBNDuplaLaminada, Area, 2282),
            PARAMETER(KrBNDuplaLaminada, KgMetro, 18)});
}

TEST_F(RolledAngle, DoubledOnTheirCornersFromOnePointWithOrWithoutTheirAxis) {
  for (const bool axis : {true, false}) {
    const KrBNDuplaLaminada bar = axis ? KrBNDuplaLaminada(kStart, Secao, 75, 8, 12, 10, 23, 0.25, 1.25, 640, 2282, 18)
                                       : KrBNDuplaLaminada(kStart, Secao, 75, 8, 12, 10, 0.25, 1.25, 640, 2282, 18);
    expectBar(bar, Secao, 1.25, 640, 0.25);
    expectParameters<KrBNDuplaLaminada>(
        bar, {PARAMETER(KrBNDuplaLaminada, Aba, 75), PARAMETER(KrBNDuplaLaminada, Espessura, 8),
              PARAMETER(KrBNDuplaLaminada, Afastamento, 12), PARAMETER(KrBNDuplaLaminada, RaioDobra, 10),
              PARAMETER(KrBNDuplaLaminada, EixoX, axis ? 23.0 : 0.0), PARAMETER(KrBNDuplaLaminada, Area, 2282),
              PARAMETER(KrBNDuplaLaminada, KgMetro, 18)});
  }
}

// Its heel is at the top left and its axis is counted from the toe of the upright leg, not from the heel.
TEST_F(RolledAngle, UprightOutlineHasEightNodesAndTheAxis) {
  const KrCantLaminada bar(kStart, kEnd, Superior, 100, 75, 8, 18.7, 68.9, 10, 0.7, 10.6, 1350);
  profile::expectOutline(bar, {{0, 0, 0},
                               {0, 100, 0},
                               {75, 100, -b},
                               {67, 92, 0},
                               {18, 92, b},
                               {8, 82, 0},
                               {8, 8, -b},
                               {0, 0, 0},
                               {18.7, 68.9, 5000}});
  KrGeratriz outline;
  bar.GetSecao(outline);
  EXPECT_EQ(outline.Qtd(), 8);
}

TEST_F(RolledAngle, CornerOutlineIsTheUprightOneTurnedByHalfARightAngle) {
  const KrBNLaminado bar(kStart, kEnd, Superior, 75, 8, -22.8, 10, 0.7, 8.99, 1140);
  const double h = std::sqrt(0.5);
  const auto at = [h](double x, double y, double bulge) { return profile::Node{h * (x - y), h * (x + y), bulge}; };
  profile::expectOutline(bar, {at(0, 0, 0),
                               at(0, 75, 0),
                               at(75, 75, -b),
                               at(67, 67, 0),
                               at(18, 67, b),
                               at(8, 57, 0),
                               at(8, 8, -b),
                               at(0, 0, 0),
                               {-22.8, h * 75, 5000}});
}

// The axis is where the client says, also beside the metal: a distance from the heel, as catalogues give it, isn't one
// from the start point.
TEST_F(RolledAngle, OnItsCornerTakesTheAxisAsItIs) {
  const KrBNLaminado bar(kStart, kEnd, Superior, 75, 8, 21.4, 10, 0, 8.99, 1140);
  const section::Box box = section::boxOf(section::contoursOf(bar));
  EXPECT_LT(box.maxX, 0.0);
}

TEST_F(RolledAngle, RoundToesOfACornerAngleStandOutBeyondItsWidth) {
  KrBNLaminado bar(kStart, kEnd, Superior, 75, 8, 0, 10, 0, 8.99, 1140);
  const section::Box box = section::boxOf(section::contoursOf(bar));
  EXPECT_NEAR(bar.getLargura(), 75.0 / std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(box.maxX - box.minX, 75.0 / std::sqrt(2.0) + 8.0 * (std::sqrt(2.0) - 1.0) / std::sqrt(2.0), 1e-2);
  EXPECT_NEAR(box.maxY - box.minY, bar.getAltura(), 1e-9);
}

TEST_F(RolledAngle, DoubledCornersStandHeelToHeelAboutTheirMiddle) {
  KrBNDuplaLaminada bar(kStart, kEnd, Superior, 75, 8, 12, 10, 21.4, 0, 2280, 17.98);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  ASSERT_EQ(nodes.size(), 17U);
  const double reach = 75.0 / std::sqrt(2.0);
  EXPECT_NEAR(nodes[1].x, -reach, 1e-9);
  EXPECT_NEAR(nodes[1].y, reach, 1e-9);
  EXPECT_EQ(nodes[7].bulge, 6000.0);
  EXPECT_NEAR(nodes[9].x, -reach - 12.0, 1e-9);
  EXPECT_NEAR(nodes[9].y, reach, 1e-9);
  // The second is the mirror image of the first: its arcs turn the other way.
  EXPECT_NEAR(nodes[10].bulge, b, 1e-9);
  EXPECT_NEAR(nodes[12].bulge, -b, 1e-9);
  EXPECT_NEAR(nodes[16].x, -reach - 6.0, 1e-9);
  EXPECT_NEAR(nodes[16].y, reach, 1e-9);
  EXPECT_EQ(nodes[16].bulge, 5000.0);
}

// Only the list of the section shows it, until the section is drawn from the outline.
TEST_F(RolledAngle, DoubledCornersDrawTheWalkHalfAGapAside) {
  const KrBNDuplaLaminada bar(kOrigin, AcGePoint3d(100, 0, 0), Superior, 75, 8, 12, 10, 21.4, 0, 2280, 17.98);
  KrVector first;
  ASSERT_EQ(bar.GetVector(Secao, 0, first), 1);
  EXPECT_TRUE(first.startPoint().isEqualTo(AcGePoint3d(-6, 0, 0)));
}

TEST_F(RolledAngle, CornerAngleCalculatesDirectionAndLengthFromItsPoints) {
  KrBNLaminado bar(kStart, kEnd, Secao, 75, 8, -23, 10, 0.25, 9, 1141);
  bar.setendPoint(AcGePoint3d(10, 120, 0));
  bar.Calcule();
  EXPECT_NEAR(bar.angleVista(), kPi / 2, 1e-12);
  double length = 0;
  bar.Comprimento(length);
  EXPECT_NEAR(length, 100.0, 1e-9);

  KrCantLaminada upright(kStart, kEnd, Secao, 101, 76, 8, 18, 69, 10, 0.25, 10.5, 1351);
  upright.setendPoint(AcGePoint3d(10, 120, 0));
  upright.Calcule();
  EXPECT_NEAR(upright.angleVista(), kAngle, 1e-12);
}

// The weight is filed before and behind the axis: the one behind counts, and both are written alike.
TEST_F(RolledAngle, CornerAngleTakesTheSecondOfItsWeights) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  KrBNLaminado().KrObject::dwgOutFields(&filer);
  filer.writeInt16(1);
  // Leg, thickness, root, weight, axis, weight, area.
  for (const double field : {76.0, 8.0, 9.0, 1.0, 21.0, 2.0, 1150.0}) filer.writeDouble(field);
  filer.seek(0);
  KrBNLaminado read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(valueOf(read, &KrBNLaminado::KgMetro), 2);
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  read.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler again(AcDb::kFileFiler);
  ASSERT_EQ(read.dwgOutFields(&again), Acad::eOk);
  again.seek(base.tell());
  Adesk::Int16 version = 0;
  again.readInt16(&version);
  for (const double expected : {76.0, 8.0, 9.0, 2.0, 21.0, 2.0, 1150.0}) {
    double field = 0;
    again.readDouble(&field);
    EXPECT_EQ(field, expected);
  }
}

TEST_F(RolledAngle, MeasuresOfTheSections) {
  KrCantLaminada l(kStart, kEnd, Superior, 100, 75, 8, 18.7, 68.9, 10, 0, 10.6, 1350);
  EXPECT_EQ(l.getAltura(), 100);
  EXPECT_EQ(l.getLargura(), 75);
  EXPECT_EQ(l.getEspessura(), 8);
  EXPECT_EQ(l.getArea(), 1350);
  EXPECT_NEAR(l.getPeso(), 10.6 * 0.5, 1e-9);
  EXPECT_EQ(profile::dimensoesOf(l), L"100x75x8");
  KrBNLaminado bn(kStart, kEnd, Superior, 75, 8, -22.8, 10, 0, 8.99, 1140);
  EXPECT_NEAR(bn.getAltura(), 75 * std::sqrt(2.0), 1e-9);
  EXPECT_EQ(bn.getEspessura(), 8);
  EXPECT_EQ(bn.getArea(), 1140);
  EXPECT_EQ(profile::dimensoesOf(bn), L"75x8");
  KrBNDuplaLaminada two(kStart, kEnd, Superior, 75, 8, 12, 10, 21.4, 0, 2280, 17.98);
  EXPECT_NEAR(two.getAltura(), 75 * std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(two.getLargura(), 75 * std::sqrt(2.0) + 12, 1e-9);
  EXPECT_EQ(two.getEspessura(), 8);
  EXPECT_EQ(profile::dimensoesOf(two), L"75x8x12");
  double weight = 0;
  EXPECT_EQ(two.getLinearWeight(weight), 1);
  EXPECT_EQ(weight, 17.98);
  EXPECT_EQ(two.GeratrizLength().length(), 0);
}

TEST_F(RolledAngle, ListShowsTheDimensionsAndTheCatalogueArea) {
  const edhost::ConsoleCapture console;
  KrCantLaminada(kStart, kEnd, Superior, 100, 75, 8, 18.7, 68.9, 10, 0, 10.6, 1350).list();
  EXPECT_NE(console.text().find(L"Ponto Inicial"), std::wstring::npos);
  EXPECT_TRUE(console.text().ends_with(L"\nDimensões       100.0000x75.0000x8.0000\nÁrea da seção   1350.0000 mm2"))
      << KrString(console.text().c_str()).c_str();
}

TEST_F(RolledAngle, ListOfACompoundShowsTheHalfThenTheWhole) {
  const edhost::ConsoleCapture console;
  KrBNDuplaLaminada(kStart, kEnd, Superior, 75, 8, 12, 10, 21.4, 0, 2280, 17.98).list();
  EXPECT_TRUE(console.text().ends_with(
      L"\nDados do Perfil\n\nDimensões       75.0000x8.0000\nÁrea da seção   1140.0000 mm2"
      L"\n\nDados do Perfil Composto\n\nDimensões       75.0000x8.0000x12.0000\nÁrea da seção   2280.0000 mm2"));
}

TEST_F(RolledAngle, HandMadeElevationsShowTheLegs) {
  KrCantLaminada bar(kOrigin, AcGePoint3d(1000, 0, 0), Secao, 100, 75, 8, 20, 70, 10, 0, 10.6, 1350);
  struct Row {
    double y;
    KrVectorType type;
  };
  // To the left of a bar along X is +Y. The upright leg stands at X -20 of the axis, its foot 70 below.
  const auto expect = [&bar](KrVistas vista, std::vector<Row> rows, double low, double high) {
    ASSERT_EQ(bar.GetNumVertex(vista), 1 + static_cast<int>(rows.size()) + 2) << vista;
    KrVector v;
    bar.GetVector(vista, 0, v);
    EXPECT_EQ(v.type(), KR_VT_EIXO);
    EXPECT_TRUE(v.endPoint().isEqualTo(AcGePoint3d(1000, 0, 0)));
    for (std::size_t i = 0; i < rows.size(); ++i) {
      bar.GetVector(vista, static_cast<int>(i) + 1, v);
      EXPECT_EQ(v.type(), rows[i].type) << vista << ", line " << i;
      EXPECT_TRUE(v.startPoint().isEqualTo(AcGePoint3d(0, rows[i].y, 0))) << vista << ", line " << i;
      EXPECT_TRUE(v.endPoint().isEqualTo(AcGePoint3d(1000, rows[i].y, 0))) << vista << ", line " << i;
    }
    for (int end = 0; end < 2; ++end) {
      bar.GetVector(vista, 1 + static_cast<int>(rows.size()) + end, v);
      EXPECT_TRUE(v.startPoint().isEqualTo(AcGePoint3d(1000 * end, low, 0)));
      EXPECT_TRUE(v.endPoint().isEqualTo(AcGePoint3d(1000 * end, high, 0)));
    }
  };
  const auto make = [&bar](double turn) {
    bar.setAngleSecao(turn);
    bar.CalculeSuperior();
    bar.CalculeInferior();
    bar.CalculeEsquerda();
    bar.CalculeDireita();
  };
  make(0);
  // From above the lying leg covers the upright one; from the left the upright one covers the lying one.
  expect(Superior, {{20, KR_VT_LINHA}, {12, KR_VT_LINHA_OCULTA}, {-55, KR_VT_LINHA}}, -55, 20);
  expect(Inferior, {{20, KR_VT_LINHA}, {12, KR_VT_LINHA}, {-55, KR_VT_LINHA}}, -55, 20);
  expect(Esquerda, {{-70, KR_VT_LINHA}, {22, KR_VT_LINHA_OCULTA}, {30, KR_VT_LINHA}}, -70, 30);
  expect(Direita, {{-70, KR_VT_LINHA}, {22, KR_VT_LINHA}, {30, KR_VT_LINHA}}, -70, 30);
  // Turned by a right angle what was right is above, and what was above is left.
  make(kPi / 2);
  expect(Superior, {{-70, KR_VT_LINHA}, {22, KR_VT_LINHA}, {30, KR_VT_LINHA}}, -70, 30);
  expect(Esquerda, {{-20, KR_VT_LINHA}, {-12, KR_VT_LINHA_OCULTA}, {55, KR_VT_LINHA}}, -20, 55);
  // And at no whole right angle there is the axis alone.
  make(0.5);
  for (const KrVistas vista : {Superior, Inferior, Esquerda, Direita}) EXPECT_EQ(bar.GetNumVertex(vista), 1);
}

// Nothing is refused: where the fillets need more than the legs have, a step goes backwards, and the outline closes.
TEST_F(RolledAngle, FilletTooLargeForTheLegsWalksBackwards) {
  const KrCantLaminada bar(kStart, kEnd, Superior, 30, 20, 5, 8, 20, 15, 0, 1, 200);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  ASSERT_EQ(nodes.size(), 9U);
  // The lying leg has 20 - 2 * 5 - 15 = -5 between its fillets.
  EXPECT_NEAR(nodes[4].x - nodes[3].x, 5, 1e-9);
  EXPECT_NEAR(nodes[7].x, 0, 1e-9);
  EXPECT_NEAR(nodes[7].y, 0, 1e-9);
}

TEST_F(RolledAngle, NoDimensionsGiveAnOutlineInOnePointAndNothingDrawn) {
  KrCantLaminada bar(kStart, kEnd, Secao, 0, 0, 0, 0, 0, 0, 0, 0, 0);
  EXPECT_EQ(profile::outlineOf(bar).size(), 9U);
  EXPECT_EQ(bar.GetNumVertex(Secao), 0);
  EXPECT_EQ(bar.getPerimetro(), 0);
}

TEST_F(RolledAngle, SharpInnerCornerHasAnArcOfNoLength) {
  const KrCantLaminada bar(kStart, kEnd, Secao, 100, 75, 8, 18.7, 68.9, 0, 0, 10.6, 1350);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  EXPECT_NEAR(nodes[4].x, nodes[5].x, 1e-9);
  EXPECT_NEAR(nodes[4].y, nodes[5].y, 1e-9);
  EXPECT_NEAR(nodes[4].bulge, b, 1e-9);
  EXPECT_NEAR(bar.getPerimetro(), 100 + 75 + 59 + 84 + 8 * kPi, 1e-9);
}
