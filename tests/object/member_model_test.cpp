// The member's fields, views, limits, copies.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "object/SampleOutlines.h"
#include "object/TestMember.h"

namespace {

constexpr double kPi = 3.141592653589793;

const oracle::Outline kPlate = {{{-5, -4}, {-5, 4}, {5, 4}, {5, -4}}};

std::wstring word(KrVistas v) {
  ACHAR buffer[32] = L"untouched";
  return KrObject::vistaStr(v, buffer, 32) != 0 ? buffer : L"none";
}

TEST(Member, StartsWithNoView) {
  TestMember member;
  EXPECT_EQ(member.Vista(0), VistaCorrente);
  EXPECT_EQ(member.isSecao(), Acad::eNotImplementedYet);
  EXPECT_EQ(&member.currentVertexList(VistaCorrente), &member.currentVertexList(static_cast<KrVistas>(5)));
  EXPECT_EQ(member.GetNumVertex(VistaCorrente), 0);
  ACHAR buffer[32];
  ASSERT_EQ(member.vistaStr(buffer, 32, 0), 1);
  EXPECT_STREQ(buffer, L"Desconhecida");
  EXPECT_EQ(member.ObjectType(), Objeto);
  EXPECT_FALSE(member.hasValidId());
}

TEST(Member, SetsTheGlobalToleranceWhenMade) {
  AcGeContext::gTol.setEqualPoint(1e-3);
  const TestMember member;
  EXPECT_DOUBLE_EQ(AcGeContext::gTol.equalPoint(), 1e-8);
  EXPECT_DOUBLE_EQ(AcGeContext::gTol.equalVector(), 1e-8);
}

TEST(Member, TellsSectionsFromElevationsInThreeAnswers) {
  for (const KrVistas v : {Secao, SecaoVerso}) EXPECT_EQ(KrObject::isSecao(v), Acad::eOk);
  for (const KrVistas v : {Superior, Inferior, Esquerda, Direita})
    EXPECT_EQ(KrObject::isSecao(v), Acad::eNotApplicable);
  EXPECT_EQ(KrObject::isSecao(VistaCorrente), Acad::eNotImplementedYet);
  EXPECT_EQ(KrObject::isSecao(static_cast<KrVistas>(9)), Acad::eNotImplementedYet);
}

TEST(Member, NamesItsViews) {
  EXPECT_EQ(word(Secao), L"Secao");
  EXPECT_EQ(word(Superior), L"Superior");
  EXPECT_EQ(word(Inferior), L"Inferior");
  EXPECT_EQ(word(Esquerda), L"Esquerda");
  EXPECT_EQ(word(Direita), L"Direita");
  EXPECT_EQ(word(SecaoVerso), L"SecaoVerso");
  EXPECT_EQ(word(VistaCorrente), L"Desconhecida");
  EXPECT_EQ(word(static_cast<KrVistas>(-2)), L"Desconhecida");
  EXPECT_EQ(word(static_cast<KrVistas>(-1)), L"none");
  ACHAR tight[5];
  EXPECT_EQ(KrObject::vistaStr(Secao, tight, 5), 0) << "the word must be shorter than the buffer";
  ACHAR fits[6];
  EXPECT_EQ(KrObject::vistaStr(Secao, fits, 6), 1);
}

TEST(Member, FindsRolesByTheirTextWithoutRegardToCase) {
  EXPECT_EQ(KrObject::tipoBarra(L"viga"), 5);
  EXPECT_EQ(KrObject::tipoBarra(L"BANZO SUPERIOR"), 4);
  EXPECT_EQ(KrObject::tipoBarra(L"beam"), -1);
  EXPECT_STREQ(KrObject::tipoBarraStr(Terca), L"Terca");
  EXPECT_EQ(KrObject::tipoBarraStr(static_cast<TipoBarra>(10)), nullptr);
  EXPECT_STREQ(KrObject::nomeTipoBarra(10), L"");
  EXPECT_STREQ(KrObject::nomeTipoBarra(6), L"Pilar");
}

TEST(Member, RealLengthIsTheDrawnLengthOverTheScale) {
  TestMember member;
  member.setComprimento(300);
  member.setXscale(0.1);
  EXPECT_DOUBLE_EQ(member.getComprimentoReal(), 3000);
}

TEST(Member, SettingTheRealLengthScalesItInAnElevationOnly) {
  TestMember member;
  member.setXscale(0.1);
  member.setVista(Superior);
  member.setComprimentoReal(3000);
  double length = 0;
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 300);
  member.setVista(Secao);
  member.setComprimentoReal(3000);
  member.Comprimento(length);
  EXPECT_DOUBLE_EQ(length, 3000);
}

TEST(Member, VisualLimitsAreClampedAndNeverCross) {
  TestMember member;
  member.setVisualRepEnd(0.5);
  EXPECT_DOUBLE_EQ(member.visualRepEnd(), 0.5);
  member.setVisualRepStart(0.9);
  EXPECT_DOUBLE_EQ(member.visualRepStart(), 0.0) << "a start past the end is ignored";
  member.setVisualRepStart(-3);
  EXPECT_DOUBLE_EQ(member.visualRepStart(), 0.0);
  member.setVisualRepEnd(7.0);
  EXPECT_DOUBLE_EQ(member.visualRepEnd(), 1.0);
  member.setVisualRepStart(0.25);
  member.setVisualRepEnd(0.2);
  EXPECT_DOUBLE_EQ(member.visualRepEnd(), 1.0) << "an end before the start is ignored";
}

TEST(Member, KeepsAPrivateCopyOfItsName) {
  TestMember member;
  EXPECT_EQ(member.userName(), nullptr);
  ACHAR name[] = L"BS1";
  member.setUserName(name);
  name[0] = L'X';
  EXPECT_STREQ(member.userName(), L"BS1");
  ACHAR buffer[8];
  EXPECT_EQ(member.UserName(buffer), Acad::eOk);
  EXPECT_STREQ(buffer, L"BS1");
  EXPECT_EQ(member.UserName(nullptr), Acad::eNotApplicable);
  member.setUserName(nullptr);
  EXPECT_EQ(member.userName(), nullptr);
  member.UserName(buffer);
  EXPECT_STREQ(buffer, L"");
}

TEST(Member, ElementAccessStopsAtTheEndOfTheList) {
  TestMember member;
  member.make(kPlate, Superior, 100);
  KrVector v;
  const int n = member.GetNumVertex(VistaCorrente);
  ASSERT_GT(n, 0);
  EXPECT_EQ(member.GetVector(n, v), 0);
  EXPECT_EQ(member.GetVector(n - 1, v), 1);
  EXPECT_EQ(v.type(), KR_VT_EIXO) << "the axis stands last";
  EXPECT_EQ(member.UpdateVector(n, v), 0);
  v.setHidden(1);
  EXPECT_EQ(member.UpdateVectorEixo(VistaCorrente, v), 1);
  KrVector axis;
  EXPECT_EQ(member.GetVectorEixo(Superior, axis), 1);
  EXPECT_EQ(axis.hidden(), 1);
  EXPECT_EQ(member.GetVectorEixo(Direita, axis), 0);
}

TEST(Member, TrussPatternCountsWhenItsThirdWordIsPositive) {
  TestMember member;
  DclFuracao pattern;
  EXPECT_FALSE(member.GetFuracaoByTrelica(pattern));
  pattern.words[2] = 1;
  member.SetFuracaoByTrelica(pattern);
  DclFuracao back;
  EXPECT_TRUE(member.GetFuracaoByTrelica(back));
  EXPECT_EQ(std::memcmp(&pattern, &back, sizeof back), 0);
  pattern.words[2] = 0x80000000U;
  member.SetFuracaoByTrelica(pattern);
  EXPECT_FALSE(member.GetFuracaoByTrelica(back)) << "the word is signed";
}

TEST(Member, SwappingItsEndsExchangesThePointsAndKeepsTheDirection) {
  TestMember member;
  member.make(kPlate, Secao, 100, 3 * kPi / 2, {10, 120, 0});
  ASSERT_TRUE(member.endPoint().isEqualTo(AcGePoint3d(10, 20, 0)));
  member.swapStartEnd();
  EXPECT_NEAR(member.angleVista(), 3 * kPi / 2, 1e-12) << "in 0 to 2 pi";
  EXPECT_TRUE(member.startPoint().isEqualTo(AcGePoint3d(10, 20, 0)));
}

TEST(MemberCopy, OfDataAloneLeavesListsScalesAndHoles) {
  TestMember source;
  source.make(kPlate, Superior, 100, 0.5);
  source.setUserName(L"V1");
  source.setMaterial(7);
  TestMember target;
  target.make(kPlate, Direita, 40);
  target.setXscale(0.2);
  const int before = target.GetNumVertex(Direita);
  target.CopiaDados(&source, 0);
  EXPECT_STREQ(target.userName(), L"V1");
  EXPECT_EQ(target.Vista(0), Superior);
  EXPECT_DOUBLE_EQ(target.angleVista(), 0.5);
  EXPECT_EQ(target.GetNumVertex(Direita), before);
  EXPECT_EQ(target.GetNumVertex(Superior), 0);
  double scale = 0;
  target.Xscale(scale);
  EXPECT_DOUBLE_EQ(scale, 0.2);
}

TEST(MemberCopy, OfAllTakesTheListsAndScales) {
  TestMember source;
  source.make(kPlate, Superior, 100);
  source.setYscale(0.5);
  TestMember target;
  target.CopiaDados(&source, 1);
  EXPECT_EQ(target.GetNumVertex(Superior), source.GetNumVertex(Superior));
  double scale = 0;
  target.Yscale(scale);
  EXPECT_DOUBLE_EQ(scale, 0.5);
}

TEST(MemberCopy, WithAnythingButOneIsOfDataAlone) {
  TestMember source;
  source.make(kPlate, Superior, 100);
  TestMember target;
  target.CopiaDados(&source, 2);
  EXPECT_EQ(target.GetNumVertex(Superior), 0);
}

}  // namespace
