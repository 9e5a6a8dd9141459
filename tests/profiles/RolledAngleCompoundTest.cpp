// Two rolled angles in one section: box, T, U, Z and cross.

#include <gtest/gtest.h>

#include "SectionChecks.h"
#include "profiles/KrCantCruzLaminada.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrCantLaminadaCaixa.h"
#include "profiles/KrCantTEELaminada.h"
#include "profiles/KrCantULaminada.h"
#include "profiles/KrCantZLaminada.h"

namespace {

using profile::expectBar;
using profile::expectParameters;
using profile::kAngle;
using profile::kEnd;
using profile::kLength;
using profile::kStart;
using profile::valueOf;

class RolledAngleCompound : public testing::Test {
 protected:
  void SetUp() override {
    profile::registerClass<KrCantLaminadaCaixa>();
    profile::registerClass<KrCantTEELaminada>();
    profile::registerClass<KrCantULaminada>();
    profile::registerClass<KrCantZLaminada>();
    profile::registerClass<KrCantCruzLaminada>();
  }
};

/// Reads back the parameters that T and U share.
template <class Member>
void expectTwoAngles(const Member& bar, double eixoX, double eixoY) {
  expectParameters<Member>(
      bar, {PARAMETER(Member, Altura, 101), PARAMETER(Member, Largura, 76), PARAMETER(Member, Espessura, 8),
            PARAMETER(Member, EixoX, eixoX), PARAMETER(Member, EixoY, eixoY), PARAMETER(Member, RaioDobra, 10),
            PARAMETER(Member, Afastamento, 12), PARAMETER(Member, KgMetro, 21), PARAMETER(Member, Area, 2702)});
}

/// All four constructors that T and U share. The axis of the short ones is at two thirds of the height.
template <class Member>
void expectFourConstructors() {
  {
    const Member bar(kStart, kEnd, Direita, 101, 76, 8, 18, 69, 10, 12, 0.25, 21, 2702);
    expectBar(bar, Direita, kAngle, kLength, 0.25);
    expectTwoAngles(bar, 18, 69);
  }
  {
    const Member bar(kStart, kEnd, Inferior, 101, 76, 8, 10, 12, 0.25, 21, 2702);
    expectBar(bar, Inferior, kAngle, kLength, 0.25);
    expectTwoAngles(bar, 0, 101.0 * 2.0 / 3.0);
  }
  {
    const Member bar(kStart, Superior, 101, 76, 8, 18, 69, 10, 12, 0.25, 1.25, 640, 21, 2702);
    expectBar(bar, Superior, 1.25, 640, 0.25);
    expectTwoAngles(bar, 18, 69);
  }
  {
    const Member bar(kStart, Secao, 101, 76, 8, 10, 12, 0.25, 1.25, 640, 21, 2702);
    expectBar(bar, Secao, 1.25, 640, 0.25);
    expectTwoAngles(bar, 0, 101.0 * 2.0 / 3.0);
  }
}

}  // namespace

TEST_F(RolledAngleCompound, RegistersUnderItsNames) {
  profile::expectRegistered(KrCantLaminadaCaixa::desc(), L"KrCantLaminadaCaixa", L"KRCANTLAMINADACAIXA");
  profile::expectRegistered(KrCantTEELaminada::desc(), L"KrCantTEELaminada", L"KR_PERFIL_CANT_TEE_LAMINADA");
  profile::expectRegistered(KrCantULaminada::desc(), L"KrCantULaminada", L"KR_PERFIL_CANT_U_LAMINADA");
  profile::expectRegistered(KrCantZLaminada::desc(), L"KrCantZLaminada", L"KR_PERFIL_CANT_Z_LAMINADA");
  profile::expectRegistered(KrCantCruzLaminada::desc(), L"KrCantCruzLaminada", L"KRCANTCRUZLAMINADA");
}

TEST_F(RolledAngleCompound, TeeFromEachConstructor) {
  expectFourConstructors<KrCantTEELaminada>();
}

TEST_F(RolledAngleCompound, UFromEachConstructor) {
  expectFourConstructors<KrCantULaminada>();
}

TEST_F(RolledAngleCompound, BoxFromEachConstructorHasNoAxisOfItsOwn) {
  const KrCantLaminadaCaixa two(kStart, kEnd, Esquerda, 101, 76, 8, 10, 0.25, 21, 2702);
  expectBar(two, Esquerda, kAngle, kLength, 0.25);
  const KrCantLaminadaCaixa one(kStart, Secao, 101, 76, 8, 10, 0.25, 1.25, 640, 21, 2702);
  expectBar(one, Secao, 1.25, 640, 0.25);
  for (const KrCantLaminadaCaixa* bar : {&two, &one}) {
    expectParameters<KrCantLaminadaCaixa>(
        *bar, {PARAMETER(KrCantLaminadaCaixa, Altura, 101), PARAMETER(KrCantLaminadaCaixa, Largura, 76),
               PARAMETER(KrCantLaminadaCaixa, Espessura, 8), PARAMETER(KrCantLaminadaCaixa, RaioDobra, 10),
               PARAMETER(KrCantLaminadaCaixa, KgMetro, 21), PARAMETER(KrCantLaminadaCaixa, Area, 2702),
               PARAMETER(KrCantLaminadaCaixa, EixoX, 0), PARAMETER(KrCantLaminadaCaixa, EixoY, 0)});
  }
}

TEST_F(RolledAngleCompound, CrossFromEachConstructor) {
  const KrCantCruzLaminada two(kStart, kEnd, Esquerda, 101, 76, 8, 10, 12, 14, 0.25, 21, 2702);
  expectBar(two, Esquerda, kAngle, kLength, 0.25);
  const KrCantCruzLaminada one(kStart, Secao, 101, 76, 8, 10, 12, 14, 0.25, 1.25, 640, 21, 2702);
  expectBar(one, Secao, 1.25, 640, 0.25);
  for (const KrCantCruzLaminada* bar : {&two, &one}) {
    expectParameters<KrCantCruzLaminada>(
        *bar, {PARAMETER(KrCantCruzLaminada, Altura, 101), PARAMETER(KrCantCruzLaminada, Largura, 76),
               PARAMETER(KrCantCruzLaminada, Espessura, 8), PARAMETER(KrCantCruzLaminada, RaioDobra, 10),
               PARAMETER(KrCantCruzLaminada, AfastamentoHor, 12), PARAMETER(KrCantCruzLaminada, AfastamentoVer, 14),
               PARAMETER(KrCantCruzLaminada, KgMetro, 21), PARAMETER(KrCantCruzLaminada, Area, 2702),
               PARAMETER(KrCantCruzLaminada, EixoX, 0), PARAMETER(KrCantCruzLaminada, EixoY, 0)});
  }
}

// The constructors take the overall width in the place of the gap, and the length before the turns.
TEST_F(RolledAngleCompound, ZFromEachConstructorTakesTheGapFromTheOverallWidth) {
  const KrCantZLaminada two(kStart, kEnd, Esquerda, 101, 76, 8, 10, 165, 14, 0.25, 21, 2702);
  expectBar(two, Esquerda, kAngle, kLength, 0.25);
  const KrCantZLaminada one(kStart, Secao, 101, 76, 8, 10, 165, 14, 640, 0.25, 1.25, 21, 2702);
  expectBar(one, Secao, 1.25, 640, 0.25);
  for (const KrCantZLaminada* bar : {&two, &one}) {
    expectParameters<KrCantZLaminada>(
        *bar, {PARAMETER(KrCantZLaminada, Altura, 101), PARAMETER(KrCantZLaminada, Largura, 76),
               PARAMETER(KrCantZLaminada, Espessura, 8), PARAMETER(KrCantZLaminada, RaioDobra, 10),
               PARAMETER(KrCantZLaminada, AfastamentoH, 13), PARAMETER(KrCantZLaminada, AfastamentoV, 14),
               PARAMETER(KrCantZLaminada, KgMetro, 21), PARAMETER(KrCantZLaminada, Area, 2702),
               // Across from the first node, but up from the start point.
               PARAMETER(KrCantZLaminada, EixoX, 76 + 6.5), PARAMETER(KrCantZLaminada, EixoY, -7)});
  }
}

TEST_F(RolledAngleCompound, ZTooNarrowForItsLegsAlertsAndHasNoGap) {
  edhost::ConsoleCapture console;
  const KrCantZLaminada bar(kStart, kEnd, Superior, 100, 50, 8, 10, 10, 12, 0, 21, 2702);
  EXPECT_EQ(console.alerts(), L"Afastamento menor que 2*Largura!\nVou trocar para o valor minimo.");
  EXPECT_EQ(valueOf(bar, &KrCantZLaminada::AfastamentoH), 0.0);
  console.clear();
  const KrCantZLaminada touching(kStart, Superior, 100, 50, 8, 10, 100, 12, 640, 0, 0, 21, 2702);
  EXPECT_EQ(console.alerts(), L"");
  EXPECT_EQ(valueOf(touching, &KrCantZLaminada::AfastamentoH), 0.0);
}

// The second half is walked the other way round, so that both run clockwise.
TEST_F(RolledAngleCompound, TeeOutline) {
  const KrCantTEELaminada bar(kStart, kEnd, Superior, 100, 75, 8, 10, 10, 0.7, 21.2, 2700);
  section::expectTable(bar, {{5, 0, 0},
                             {5, 100, 0},
                             {80, 100, -52.6051},
                             {72, 92, 0},
                             {23, 92, 52.6051},
                             {13, 82, 0},
                             {13, 8, -52.6051},
                             {5, 0, 6000},
                             {-5, 0, -52.6051},
                             {-13, 8, 0},
                             {-13, 82, 52.6051},
                             {-23, 92, 0},
                             {-72, 92, -52.6051},
                             {-80, 100, 0},
                             {-5, 100, 0},
                             {-5, 0, 0},
                             {0, 0, 5000}});
  for (const oracle::Contour& contour : section::contoursOf(bar)) EXPECT_LT(oracle::area(contour), 0.0);
}

TEST_F(RolledAngleCompound, UOutlineIsAHalfAndItsMirrorImage) {
  const KrCantULaminada bar(kStart, kEnd, Superior, 100, 75, 8, 10, 10, 0.7, 21.2, 2700);
  section::expectTable(bar, {{-80, 0, 0},
                             {-80, 100, 0},
                             {-5, 100, -52.6051},
                             {-13, 92, 0},
                             {-62, 92, 52.6051},
                             {-72, 82, 0},
                             {-72, 8, -52.6051},
                             {-80, 0, 6000},
                             {80, 0, 0},
                             {80, 100, 0},
                             {5, 100, 52.6051},
                             {13, 92, 0},
                             {62, 92, -52.6051},
                             {72, 82, 0},
                             {72, 8, 52.6051},
                             {80, 0, 0},
                             {0, 0, 5000}});
}

TEST_F(RolledAngleCompound, BoxOutlineHasItsRoundToesTouching) {
  KrCantLaminadaCaixa bar(kStart, kEnd, Superior, 100, 75, 8, 10, 0.7, 21.2, 2700);
  section::expectTable(bar, {{0, 0, 0},
                             {0, 100, 0},
                             {75, 100, -52.6051},
                             {67, 92, 0},
                             {18, 92, 52.6051},
                             {8, 82, 0},
                             {8, 8, -52.6051},
                             {0, 0, 6000},
                             {78.314, 96.686, 0},
                             {78.314, -3.314, 0},
                             {3.314, -3.314, -52.6051},
                             {11.314, 4.686, 0},
                             {60.314, 4.686, 52.6051},
                             {70.314, 14.686, 0},
                             {70.314, 88.686, -52.6051},
                             {78.314, 96.686, 0},
                             {39.157, 48.343, 5000}});
  // The toes' middles, t (1 - sqrt 1/2) in from their corner, meet: the box is larger than its angles by the rest.
  const double out = 8.0 * (std::sqrt(2.0) - 1.0);
  const section::Box box = section::boxOf(section::contoursOf(bar));
  EXPECT_NEAR(box.maxX - box.minX, 75 + out, 1e-9);
  EXPECT_NEAR(box.maxY - box.minY, 100 + out, 1e-9);
  EXPECT_EQ(bar.getAltura(), 100);
  EXPECT_EQ(bar.getLargura(), 75);
}

TEST_F(RolledAngleCompound, ZOutlineIsAHalfAndItsHalfTurn) {
  const KrCantZLaminada bar(kStart, kEnd, Superior, 100, 75, 8, 10, 160, 12, 0.7, 21.2, 2700);
  section::expectTable(bar, {{-80, 0, 0},
                             {-80, 100, 0},
                             {-5, 100, -52.6051},
                             {-13, 92, 0},
                             {-62, 92, 52.6051},
                             {-72, 82, 0},
                             {-72, 8, -52.6051},
                             {-80, 0, 6000},
                             {80, -12, 0},
                             {80, -112, 0},
                             {5, -112, -52.6051},
                             {13, -104, 0},
                             {62, -104, 52.6051},
                             {72, -94, 0},
                             {72, -20, -52.6051},
                             {80, -12, 0},
                             {0, -6, 5000}});
}

TEST_F(RolledAngleCompound, CrossOutlineIsAHalfAndItsHalfTurn) {
  const KrCantCruzLaminada bar(kStart, kEnd, Superior, 100, 75, 8, 10, 10, 12, 0.7, 21.2, 2700);
  section::expectTable(bar, {{5, -106, 0},
                             {5, -6, 0},
                             {80, -6, -52.6051},
                             {72, -14, 0},
                             {23, -14, 52.6051},
                             {13, -24, 0},
                             {13, -98, -52.6051},
                             {5, -106, 6000},
                             {-5, 106, 0},
                             {-5, 6, 0},
                             {-80, 6, -52.6051},
                             {-72, 14, 0},
                             {-23, 14, 52.6051},
                             {-13, 24, 0},
                             {-13, 98, -52.6051},
                             {-5, 106, 0},
                             {0, 0, 5000}});
}

// The overall box is what height and width say, but for the box section (see there).
TEST_F(RolledAngleCompound, HeightAndWidthAreThoseOfTheWhole) {
  KrCantTEELaminada tee(kStart, kEnd, Superior, 100, 75, 8, 10, 12, 0, 21.2, 2700);
  KrCantULaminada u(kStart, kEnd, Superior, 100, 75, 8, 10, 12, 0, 21.2, 2700);
  KrCantZLaminada z(kStart, kEnd, Superior, 100, 75, 8, 10, 162, 14, 0, 21.2, 2700);
  KrCantCruzLaminada cross(kStart, kEnd, Superior, 100, 75, 8, 10, 12, 14, 0, 21.2, 2700);
  const double heights[] = {100, 100, 214, 214};
  int i = 0;
  for (KrObject* bar : {static_cast<KrObject*>(&tee), static_cast<KrObject*>(&u), static_cast<KrObject*>(&z),
                        static_cast<KrObject*>(&cross)}) {
    EXPECT_EQ(bar->getAltura(), heights[i]) << i;
    EXPECT_EQ(bar->getLargura(), 162) << i;
    EXPECT_EQ(bar->getEspessura(), 8) << i;
    EXPECT_EQ(bar->getArea(), 2700) << i;
    double weight = 0;
    EXPECT_EQ(bar->getLinearWeight(weight), 1) << i;
    EXPECT_EQ(weight, 21.2) << i;
    const section::Box box = section::boxOf(section::contoursOf(*bar));
    EXPECT_NEAR(box.maxX - box.minX, 162, 1e-9) << i;
    EXPECT_NEAR(box.maxY - box.minY, heights[i], 1e-9) << i;
    ++i;
  }
}

TEST_F(RolledAngleCompound, DimensionsAsText) {
  EXPECT_EQ(profile::dimensoesOf(KrCantTEELaminada(kStart, kEnd, Superior, 100, 75, 8, 10, 12, 0, 21.2, 2700)),
            L"100x75x8x12");
  EXPECT_EQ(profile::dimensoesOf(KrCantULaminada(kStart, kEnd, Superior, 100, 75, 8, 10, 12, 0, 21.2, 2700)),
            L"100x75x8x12");
  EXPECT_EQ(profile::dimensoesOf(KrCantLaminadaCaixa(kStart, kEnd, Superior, 100, 75, 8, 10, 0, 21.2, 2700)),
            L"100x75x8");
  EXPECT_EQ(profile::dimensoesOf(KrCantZLaminada(kStart, kEnd, Superior, 100, 75, 8, 10, 160, 12, 0, 21.2, 2700)),
            L"8x100x10x12");
  EXPECT_EQ(profile::dimensoesOf(KrCantCruzLaminada(kStart, kEnd, Superior, 100, 75, 8, 10, 10, 12, 0, 21.2, 2700)),
            L"8x100x10x12");
}

TEST_F(RolledAngleCompound, PerimeterIsTwiceTheAnglesWhateverTheGap) {
  const double angle = KrCantLaminada(kStart, kEnd, Superior, 100, 75, 8, 20, 70, 10, 0, 10.6, 1350).getPerimetro();
  for (const double gap : {0.0, 12.0, 50.0}) {
    EXPECT_DOUBLE_EQ(KrCantTEELaminada(kStart, kEnd, Superior, 100, 75, 8, 10, gap, 0, 21.2, 2700).getPerimetro(),
                     2 * angle);
    EXPECT_DOUBLE_EQ(KrCantCruzLaminada(kStart, kEnd, Superior, 100, 75, 8, 10, gap, gap, 0, 21.2, 2700).getPerimetro(),
                     2 * angle);
  }
}

TEST_F(RolledAngleCompound, ListShowsOneAngleThenTheWhole) {
  const edhost::ConsoleCapture console;
  KrCantCruzLaminada(kStart, kEnd, Superior, 100, 75, 8, 10, 10, 12, 0, 21.2, 2700).list();
  EXPECT_TRUE(console.text().ends_with(
      L"\nDados do Perfil\n\nDimensões       100.0000x75.0000x8.0000\nÁrea da seção   1350.0000 mm2"
      L"\n\nDados do Perfil Composto\n\nDimensões       8.0000x100.0000x10.0000x12.0000\nÁrea da seção   2700.0000 "
      L"mm2"));
}
