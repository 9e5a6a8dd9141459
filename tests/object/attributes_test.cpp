// What a member reports of itself.

#include <gtest/gtest.h>

#include <string>

#include "host/companion/companion.h"
#include "host/ed/Console.h"
#include "object/Drawing.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

const oracle::Outline kPlate = {{{-5, -4}, {-5, 4}, {5, 4}, {5, -4}}};

std::wstring listOf(const TestMember& member) {
  edhost::ConsoleCapture console;
  member.list();
  return console.text();
}

TEST(Attributes, WeightComesFromTheLinearWeightWhereThereIsOne) {
  TestMember member;
  member.linearWeight = 10;
  member.area = 5000;
  member.setComprimento(3000);
  EXPECT_DOUBLE_EQ(member.getPeso(), 30);
}

TEST(Attributes, WeightComesFromTheAreaOtherwise) {
  TestMember member;
  member.area = 2000;
  member.setComprimento(3000);
  // 2000 mm2 of steel weigh 15.7 kg a metre.
  EXPECT_NEAR(member.getPeso(), 47.1, 1e-9);
}

TEST(Attributes, APlainMemberWithoutAreaWeighsNothing) {
  KrObject member;
  EXPECT_EQ(member.getPeso(), 0);
  double w = 7;
  EXPECT_EQ(member.getLinearWeight(w), 0);
  EXPECT_EQ(w, 0);
  EXPECT_EQ(member.GeratrizLength().length(), 0);
}

TEST(Attributes, PaintedAreaIsBothEndsAndTheOutside) {
  TestMember member;
  member.area = 1000;
  member.perimeter = 400;
  member.setComprimento(2500);
  EXPECT_NEAR(member.getAreaPintura(), (2 * 1000.0 + 400.0 * 2500) / 1e6, 1e-12);
  EXPECT_NEAR(member.getVolume(), 2.5e6, 1e-6);
}

TEST(Attributes, MaterialTextLeavesItsBuffer) {
  const TestMember member;
  ACHAR buffer[8] = L"A36";
  member.getMaterial(buffer);
  EXPECT_STREQ(buffer, L"A36");
}

TEST(Attributes, ProfileNameIsEmptyWithoutANameTable) {
  const TestMember member;
  ACHAR buffer[64] = L"left over";
  KrConfigSection* before = KrObject::GetNamesList();
  KrObject::SetNamesList(nullptr);
  member.getPerfil(buffer);
  KrObject::SetNamesList(before);
  EXPECT_STREQ(buffer, L"");
}

TEST(Listing, TellsPlaceViewRoleAndMeasures) {
  const Drawing drawing;
  TestMember member;
  member.area = 2000;
  member.perimeter = 400;
  member.make(kPlate, Superior, 1000, 0, {10, 20, 0});
  member.setUserName(L"V12");
  member.settipoBarra(Viga);
  member.setZCoordIni(3500);
  const std::wstring text = listOf(member);
  // Two millimetres squared of both ends and 0.4 m2 of outside; 1 m of 15.7 kg.
  const std::wstring want =
      L"\n\t\tPonto Inicial: 10.000000,20.000000,3500.000000"
      L"\n\t\tPonto Final  : 1010.000000,20.000000,0.000000"
      L"\n\t\tNome            V12"
      L"\nVista           : Superior"
      L"\nVista Real      : Superior"
      L"\nTipo KrObject   : Objeto"
      L"\nTipo de Barra   : Viga"
      L"\nComprimento em Escala Real (1/1):\t1000.000000"
      L"\nComprimento de PT a PT (1/1):\t1000.000000"
      L"\nComprimento no desenho (em escala):1000.000000"
      L"\nÁrea de pintura 0.4040 m2"
      L"\nPeso             15.70 kgf"
      L"\nVersão KrObject: 0x00000009"
      L"\n";
  ASSERT_GE(text.size(), want.size());
  EXPECT_EQ(text.substr(text.size() - want.size()), want);
  EXPECT_NE(text.find(L"KrObject"), std::wstring::npos) << "the entity's own lines come first, on the same console";
}

TEST(Listing, LeavesOutWhatIsNothing) {
  const Drawing drawing;
  TestMember member;
  member.setObjectType(static_cast<KrObjectType>(12));
  member.settipoBarra(static_cast<TipoBarra>(12));
  member.setVista(static_cast<KrVistas>(-1));
  const std::wstring text = listOf(member);
  EXPECT_EQ(text.find(L"Peso"), std::wstring::npos);
  EXPECT_EQ(text.find(L"pintura"), std::wstring::npos);
  EXPECT_EQ(text.find(L"Tipo KrObject"), std::wstring::npos);
  EXPECT_EQ(text.find(L"\nVista "), std::wstring::npos);
  EXPECT_NE(text.find(L"\nNão foi possível determinar tipo de barra"), std::wstring::npos);
  EXPECT_NE(text.find(L"\n\t\tNome            \n"), std::wstring::npos);
}

TEST(RealView, WithoutATurnOfTheSectionIsTheViewItself) {
  for (const KrVistas v : {Superior, Inferior, Esquerda, Direita}) {
    TestMember member;
    member.make(kPlate, v, 1000);
    int inverted = 7;
    EXPECT_EQ(member.GetVistaReal(inverted), v);
    EXPECT_EQ(inverted, 0);
    EXPECT_EQ(member.Vista(1), v);
  }
}

TEST(RealView, ByNumbersIsTheRealViewByMatricesAtEveryQuarter) {
  for (const KrVistas v : {Superior, Inferior, Esquerda, Direita})
    for (int quarter = 0; quarter < 4; ++quarter) {
      TestMember member;
      member.setAngleSecao(quarter * 1.5707963267948966);
      member.make(kPlate, v, 1000, 0.3);
      EXPECT_EQ(member.GetVistaReal(), member.Vista(1)) << "view " << v << ", quarter " << quarter;
    }
}

TEST(RealView, OfASectionIsTheSectionAndOfASkewOneThereIsNone) {
  TestMember member;
  member.make(kPlate, Secao, 1000);
  EXPECT_EQ(member.Vista(1), Secao);
  member.setAngleSecao(0.3);
  member.make(kPlate, Superior, 1000);
  EXPECT_EQ(member.Vista(1), -1);
}

}  // namespace
