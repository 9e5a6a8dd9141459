// Rolled channels: one, two back to back, two toe to toe.

#include <gtest/gtest.h>

#include "RolledSamples.h"
#include "SectionChecks.h"

namespace {

using profile::expectBar;
using profile::expectParameters;
using profile::kAngle;
using profile::kEnd;
using profile::kLength;
using profile::kStart;
using profile::valueOf;

constexpr double kPi = 3.141592653589793;
const AcGePoint3d kOrigin(0, 0, 0);

class RolledChannel : public testing::Test {
 protected:
  void SetUp() override {
    profile::registerClass<KrULaminado>();
    profile::registerClass<KrUULaminado>();
    profile::registerClass<Kr2ULaminado>();
  }
};

template <class Member>
void expectChannel(const Member& bar) {
  expectParameters<Member>(
      bar, {PARAMETER(Member, Altura, 201), PARAMETER(Member, Largura, 76), PARAMETER(Member, Espessura, 8.5),
            PARAMETER(Member, DeslocF, 30), PARAMETER(Member, RaioDobra, 11), PARAMETER(Member, Raio1, 6),
            PARAMETER(Member, EixoX, 20), PARAMETER(Member, EspMedia, 12), PARAMETER(Member, Area, 3221)});
}

KrULaminado channel(KrVistas vista = Superior, double angleSecao = 0) {
  return KrULaminado(kOrigin, AcGePoint3d(1000, 0, 0), vista, 200, 75, 8.5, 30, 11.5, 6, 20, 11.5, angleSecao, 3220,
                     25.3);
}

/// What a hand-made elevation should hold: the places of the lines to the left of the bar, hidden ones marked.
struct Row {
  double left;
  bool hidden = false;
};

void expectHandMade(const KrObject& bar, KrVistas vista, const std::vector<Row>& rows, double low, double high) {
  ASSERT_EQ(bar.GetNumVertex(vista), static_cast<int>(rows.size()) + 3) << vista;
  KrVector v;
  bar.GetVector(vista, 0, v);
  EXPECT_EQ(v.type(), KR_VT_EIXO);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    bar.GetVector(vista, static_cast<int>(i) + 1, v);
    EXPECT_EQ(v.type(), rows[i].hidden ? KR_VT_LINHA_OCULTA : KR_VT_LINHA) << vista << ", line " << i;
    EXPECT_TRUE(v.startPoint().isEqualTo(AcGePoint3d(0, rows[i].left, 0))) << vista << ", line " << i;
    EXPECT_TRUE(v.endPoint().isEqualTo(AcGePoint3d(1000, rows[i].left, 0))) << vista << ", line " << i;
  }
  for (int end = 0; end < 2; ++end) {
    bar.GetVector(vista, static_cast<int>(rows.size()) + 1 + end, v);
    EXPECT_EQ(v.type(), KR_VT_LINHA);
    EXPECT_TRUE(v.startPoint().isEqualTo(AcGePoint3d(1000 * end, low, 0)));
    EXPECT_TRUE(v.endPoint().isEqualTo(AcGePoint3d(1000 * end, high, 0)));
  }
}

}  // namespace

TEST_F(RolledChannel, RegistersUnderItsNames) {
  profile::expectRegistered(KrULaminado::desc(), L"KrULaminado", L"KR_PERFIL_U_LAMINADO");
  profile::expectRegistered(KrUULaminado::desc(), L"KrUULaminado", L"KR_PERFIL_UU_LAMINADO");
  profile::expectRegistered(Kr2ULaminado::desc(), L"Kr2ULaminado", L"KR_PERFIL_2U_LAMINADO");
}

TEST_F(RolledChannel, OneBetweenTwoPoints) {
  const KrULaminado bar(kStart, kEnd, Direita, 201, 76, 8.5, 30, 11, 6, 20, 12, 0.25, 3221, 25);
  expectBar(bar, Direita, kAngle, kLength, 0.25);
  expectChannel(bar);
  EXPECT_EQ(valueOf(bar, &KrULaminado::KgMetro), 25);
}

TEST_F(RolledChannel, OneFromOnePoint) {
  const KrULaminado bar(kStart, Secao, 201, 76, 8.5, 30, 11, 6, 20, 12, 0.25, 1.25, 640, 3221, 25);
  expectBar(bar, Secao, 1.25, 640, 0.25);
  expectChannel(bar);
  EXPECT_EQ(valueOf(bar, &KrULaminado::KgMetro), 25);
}

TEST_F(RolledChannel, ShortFormDerivesFilletsAxisAndWebFromTheOuterDimensions) {
  const KrULaminado bar(kStart, Inferior, 201, 78, 8.5, 0.25, 1.25, 640, 3221, 25);
  expectBar(bar, Inferior, 1.25, 640, 0.25);
  expectParameters<KrULaminado>(
      bar,
      {PARAMETER(KrULaminado, Altura, 201), PARAMETER(KrULaminado, Largura, 78), PARAMETER(KrULaminado, Espessura, 8.5),
       PARAMETER(KrULaminado, RaioDobra, 8.5), PARAMETER(KrULaminado, Raio1, 8.5),
       PARAMETER(KrULaminado, EspMedia, 8.5), PARAMETER(KrULaminado, EixoX, 26), PARAMETER(KrULaminado, Area, 3221),
       PARAMETER(KrULaminado, KgMetro, 25), PARAMETER(KrULaminado, DeslocF, KrULaminado::calcDeslocF(78, 8.5))});
}

TEST_F(RolledChannel, DeslocFOfTheShortForm) {
  // cos(pi/2 - 1/6) = sin(1/6) = 0.165896..., sin(pi/2 - 1/6) = cos(1/6).
  const double expected = ((78 - 8.5) - (1 - std::sin(1.0 / 6)) * 17) * std::tan(1.0 / 6) + std::cos(1.0 / 6) * 17;
  EXPECT_NEAR(KrULaminado::calcDeslocF(78, 8.5), expected, 1e-9);
}

// The two-point form has no place for the weight per metre.
TEST_F(RolledChannel, TwoToeToeFromEachConstructor) {
  const KrUULaminado two(kStart, kEnd, Direita, 201, 76, 8.5, 14, 30, 11, 6, 12, 0.25, 3221, 20);
  expectBar(two, Direita, kAngle, kLength, 0.25);
  expectChannel(two);
  EXPECT_EQ(valueOf(two, &KrUULaminado::Afastamento), 14);
  EXPECT_EQ(valueOf(two, &KrUULaminado::KgMetro), 0);
  double weight = -1;
  EXPECT_EQ(two.getLinearWeight(weight), 1);
  EXPECT_EQ(two.getPeso(), 0);
  const KrUULaminado one(kStart, Secao, 201, 76, 8.5, 14, 30, 11, 6, 12, 0.25, 1.25, 640, 3221, 20, 25);
  expectBar(one, Secao, 1.25, 640, 0.25);
  expectChannel(one);
  EXPECT_EQ(valueOf(one, &KrUULaminado::Afastamento), 14);
  EXPECT_EQ(valueOf(one, &KrUULaminado::KgMetro), 25);
}

TEST_F(RolledChannel, TwoBackToBackFromEachConstructor) {
  const Kr2ULaminado two(kStart, kEnd, Direita, 201, 76, 8.5, 14, 30, 11, 6, 20, 12, 0.25, 3221, 25);
  expectBar(two, Direita, kAngle, kLength, 0.25);
  const Kr2ULaminado one(kStart, Secao, 201, 76, 8.5, 14, 30, 11, 6, 20, 12, 0.25, 1.25, 640, 3221, 25);
  expectBar(one, Secao, 1.25, 640, 0.25);
  for (const Kr2ULaminado* bar : {&two, &one}) {
    expectChannel(*bar);
    EXPECT_EQ(valueOf(*bar, &Kr2ULaminado::Afastamento), 14);
    EXPECT_EQ(valueOf(*bar, &Kr2ULaminado::KgMetro), 25);
  }
}

TEST_F(RolledChannel, OutlineClosesByItsThirteenthNodeWithTheAxisBehind) {
  const std::vector<profile::Node> nodes = profile::outlineOf(channel());
  ASSERT_EQ(nodes.size(), 14U);
  EXPECT_NEAR(nodes[12].x, 0, 1e-9);
  EXPECT_NEAR(nodes[12].y, 0, 1e-9);
  EXPECT_EQ(nodes[13].x, 20);
  EXPECT_EQ(nodes[13].y, 100);
  EXPECT_EQ(nodes[13].bulge, 5000);
  // Bulges stand where their arcs begin: toe, root, root, toe.
  for (std::size_t i = 0; i < 13; ++i) {
    EXPECT_EQ(nodes[i].bulge != 0, i == 3 || i == 5 || i == 7 || i == 9) << i;
  }
  EXPECT_LT(nodes[3].bulge, 0);
  EXPECT_GT(nodes[5].bulge, 0);
  EXPECT_GT(nodes[7].bulge, 0);
  EXPECT_LT(nodes[9].bulge, 0);
}

TEST_F(RolledChannel, WebEdgeIsAsLongAsDeslocFLeavesWhateverTheFillets) {
  for (const double root : {0.0, 5.0, 11.5}) {
    for (const double toe : {0.0, 2.0, 6.0}) {
      const KrULaminado bar(kOrigin, kEnd, Superior, 200, 75, 8.5, 31, root, toe, 20, 11.5, 0, 3220, 25.3);
      const std::vector<profile::Node> nodes = profile::outlineOf(bar);
      EXPECT_NEAR(nodes[6].y - nodes[7].y, 200 - 2 * 31, 1e-9);
      EXPECT_NEAR(nodes[7].y, 31, 1e-9);
      EXPECT_NEAR(nodes[6].x, 8.5, 1e-9);
      EXPECT_NEAR(nodes[12].x, 0, 1e-9);
      EXPECT_NEAR(nodes[12].y, 0, 1e-9);
    }
  }
}

// Its bulge is that of a quarter circle though its edges turn by less; the other toe is right.
TEST_F(RolledChannel, FirstToeHasTheBulgeOfAFullQuarter) {
  const std::vector<profile::Node> nodes = profile::outlineOf(channel());
  EXPECT_NEAR(nodes[3].bulge, -127.0 * std::tan(kPi / 8), 1e-9);
  EXPECT_NEAR(nodes[9].bulge, -127.0 * std::tan((kPi / 2 - rolled::channelSlope()) / 4), 1e-9);
  // Both toes have the same chord.
  EXPECT_NEAR(std::hypot(nodes[4].x - nodes[3].x, nodes[4].y - nodes[3].y),
              std::hypot(nodes[10].x - nodes[9].x, nodes[10].y - nodes[9].y), 1e-9);
  // And the first stands out by the difference of their heights over it.
  const section::Box box = section::boxOf(section::contoursOf(channel()));
  EXPECT_GT(box.maxX - box.minX, 75.001);
  EXPECT_LT(box.maxX - box.minX, 75.05);
}

// One in six in single precision: 2e-9 off the double-precision angle, which shows in the face of a flange.
TEST_F(RolledChannel, SlopeOfAFlangeHasSinglePrecision) {
  const std::vector<profile::Node> nodes = profile::outlineOf(channel());
  const double slope = std::atan2(nodes[4].y - nodes[5].y, nodes[4].x - nodes[5].x);
  EXPECT_NEAR(slope, rolled::channelSlope(), 1e-13);
  EXPECT_GT(std::fabs(slope - std::atan(1.0 / 6.0)), 1e-9);
}

TEST_F(RolledChannel, TwoToeToeCloseEachHalfTwice) {
  const KrUULaminado bar(kStart, kEnd, Superior, 200, 75, 8.5, 14, 30, 11.5, 6, 11.5, 0.7, 6440, 20);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  ASSERT_EQ(nodes.size(), 29U);
  EXPECT_EQ(nodes[13].bulge, 6000);
  for (const int i : {12, 13}) {
    EXPECT_NEAR(nodes[static_cast<std::size_t>(i)].x, 0, 1e-9);
    EXPECT_NEAR(nodes[static_cast<std::size_t>(i)].y, 0, 1e-9);
  }
  EXPECT_NEAR(nodes[14].x, 2 * 75 + 14, 1e-9);
  EXPECT_NEAR(nodes[28].x, 75 + 7, 1e-9);
  EXPECT_NEAR(nodes[28].y, 100, 1e-9);
  EXPECT_EQ(nodes[28].bulge, 5000);
}

TEST_F(RolledChannel, TwoBackToBackHaveTwoContoursAndOneReference) {
  Kr2ULaminado bar(kStart, kEnd, Superior, 200, 75, 8.5, 14, 30, 11.5, 6, 20, 11.5, 0.7, 6440, 50.6);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  ASSERT_EQ(nodes.size(), 27U);
  int ends = 0;
  for (const profile::Node& node : nodes) ends += node.bulge >= 6000 ? 1 : 0;
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(nodes[12].bulge, 6000);
  // The second is the mirror image of the first, its arcs turned the other way.
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_NEAR(nodes[i + 13].x, -14 - nodes[i].x, 1e-9) << i;
    EXPECT_NEAR(nodes[i + 13].y, nodes[i].y, 1e-9) << i;
    EXPECT_NEAR(nodes[i + 13].bulge, -nodes[i].bulge, 1e-9) << i;
  }
  EXPECT_NEAR(nodes[26].x, -7, 1e-9);
  EXPECT_NEAR(nodes[26].y, 100, 1e-9);
  EXPECT_EQ(nodes[26].bulge, 5000);
}

TEST_F(RolledChannel, PerimeterOfTwoIsTwiceThatOfOneWhateverTheGap) {
  const double one = channel().getPerimetro();
  for (const double gap : {0.0, 14.0, 200.0}) {
    const Kr2ULaminado back(kStart, kEnd, Superior, 200, 75, 8.5, gap, 30, 11.5, 6, 20, 11.5, 0, 6440, 50.6);
    EXPECT_DOUBLE_EQ(back.getPerimetro(), 2 * one);
    const KrUULaminado toe(kStart, kEnd, Superior, 200, 75, 8.5, gap, 30, 11.5, 6, 11.5, 0, 6440, 20);
    EXPECT_DOUBLE_EQ(toe.getPerimetro(), 2 * one);
  }
}

TEST_F(RolledChannel, MeasuresOfTheSections) {
  KrULaminado one = channel();
  EXPECT_EQ(one.getAltura(), 200);
  EXPECT_EQ(one.getLargura(), 75);
  EXPECT_EQ(one.getEspessura(), 8.5);
  EXPECT_EQ(one.getArea(), 3220);
  EXPECT_NEAR(one.getPeso(), 25.3, 1e-9);
  EXPECT_EQ(profile::dimensoesOf(one), L"200x75x8.50x11.50");
  Kr2ULaminado back(kStart, kEnd, Superior, 200, 75, 8.5, 14, 30, 11.5, 6, 20, 11.5, 0, 6440, 50.6);
  EXPECT_EQ(back.getAltura(), 200);
  EXPECT_EQ(back.getLargura(), 164);
  EXPECT_EQ(profile::dimensoesOf(back), L"200x75x8.50x11.50x14");
  KrUULaminado toe(kStart, kEnd, Superior, 200, 75, 8.5, 14, 30, 11.5, 6, 11.5, 0, 6440, 20);
  EXPECT_EQ(toe.getLargura(), 164);
  EXPECT_EQ(profile::dimensoesOf(toe), L"200x75x8.50x11.50x14");
}

TEST_F(RolledChannel, ListShowsTheDimensionsAndTheCatalogueArea) {
  const edhost::ConsoleCapture console;
  channel().list();
  EXPECT_TRUE(
      console.text().ends_with(L"\nDimensões       200.0000x75.0000x8.5000x11.5000\nÁrea da seção   3220.0000 mm2"));
}

TEST_F(RolledChannel, ListOfTwoShowsOneThenTheWhole) {
  const edhost::ConsoleCapture console;
  Kr2ULaminado(kStart, kEnd, Superior, 200, 75, 8.5, 14, 30, 11.5, 6, 20, 11.5, 0, 6440, 50.6).list();
  EXPECT_TRUE(console.text().ends_with(
      L"\nDados do Perfil\n\nDimensões       200.0000x75.0000x8.5000x11.5000\nÁrea da seção   3220.0000 mm2"
      L"\n\nDados do Perfil Composto\n\nDimensões       200.0000x75.0000x8.5000x11.5000x14.0000\nÁrea da seção   "
      L"6440.0000 mm2"));
}

// They count the whole height to both sides of the axis, and so they stay: nothing here draws them.
TEST_F(RolledChannel, HandMadeElevationsByQuarterTurns) {
  const std::vector<Row> height = {{191.5}, {200}, {-191.5}, {-200}};
  const std::vector<Row> hiddenHeight = {{191.5, true}, {200}, {-191.5, true}, {-200}};
  // The back 20 to one side of the axis, the web's inner face hidden, the toes 55 to the other.
  const std::vector<Row> backLeft = {{11.5, true}, {20}, {-55}};
  const std::vector<Row> backRight = {{-11.5, true}, {-20}, {55}};
  struct Turn {
    double angle;
    const std::vector<Row>& side;
    const std::vector<Row>& above;
  };
  const Turn turns[] = {{0, height, backLeft},
                        {kPi / 2, backRight, height},
                        {kPi, hiddenHeight, backRight},
                        {3 * kPi / 2, backLeft, hiddenHeight}};
  const auto low = [](const std::vector<Row>& rows) {
    double at = rows[0].left;
    for (const Row& row : rows) at = std::min(at, row.left);
    return at;
  };
  const auto high = [](const std::vector<Row>& rows) {
    double at = rows[0].left;
    for (const Row& row : rows) at = std::max(at, row.left);
    return at;
  };
  for (const Turn& turn : turns) {
    KrULaminado bar = channel(Secao, turn.angle);
    bar.CalculeDireita();
    bar.CalculeEsquerda();
    bar.CalculeSuperior();
    bar.CalculeInferior();
    for (const KrVistas vista : {Direita, Esquerda})
      expectHandMade(bar, vista, turn.side, low(turn.side), high(turn.side));
    for (const KrVistas vista : {Superior, Inferior})
      expectHandMade(bar, vista, turn.above, low(turn.above), high(turn.above));
  }
}

TEST_F(RolledChannel, HandMadeElevationOfAnyOtherTurnIsTheAxisAlone) {
  KrULaminado bar = channel(Secao, kPi / 2 + 1e-9);
  bar.CalculeDireita();
  EXPECT_EQ(bar.GetNumVertex(Direita), 1);
  bar.setAngleSecao(0);
  bar.CalculeDireita();
  bar.CalculeDireita();
  EXPECT_EQ(bar.GetNumVertex(Direita), 7);
}
