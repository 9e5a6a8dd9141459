// The rolled I.

#include <gtest/gtest.h>

#include "RolledSamples.h"
#include "SectionChecks.h"
#include "records/Filing.h"

namespace {

using profile::expectBar;
using profile::expectParameters;
using profile::kAngle;
using profile::kEnd;
using profile::kLength;
using profile::kStart;
using profile::valueOf;

constexpr double kPi = 3.141592653589793;

class RolledI : public testing::Test {
 protected:
  void SetUp() override { profile::registerClass<KrILaminadoUSA>(); }
};

ISolType tipoOf(const KrILaminadoUSA& bar) {
  ISolType tipo = static_cast<ISolType>(-1);
  EXPECT_EQ(bar.tipo(tipo), Acad::eOk);
  return tipo;
}

/// 200 high, 100 wide, web 5.6, flanges 8.5 thick: the rest by the kind.
KrILaminadoUSA derived(ISolType tipo) {
  return KrILaminadoUSA(kStart, kEnd, Superior, 200, 100, 5.6, 8.5, tipo, 0, 2850, 22.4);
}

void expectGiven(const KrILaminadoUSA& bar) {
  expectParameters<KrILaminadoUSA>(
      bar, {PARAMETER(KrILaminadoUSA, Altura, 200), PARAMETER(KrILaminadoUSA, Largura, 100),
            PARAMETER(KrILaminadoUSA, Espessura, 5.6), PARAMETER(KrILaminadoUSA, DeslocF, 21),
            PARAMETER(KrILaminadoUSA, Inclinacao, 0.03), PARAMETER(KrILaminadoUSA, RaioDobra, 9),
            PARAMETER(KrILaminadoUSA, Raio1, 3), PARAMETER(KrILaminadoUSA, EspMedia, 8.5),
            PARAMETER(KrILaminadoUSA, Area, 2850), PARAMETER(KrILaminadoUSA, KgMetro, 22.4)});
  EXPECT_EQ(tipoOf(bar), ISolParalela);
}

}  // namespace

TEST_F(RolledI, RegistersUnderItsNames) {
  profile::expectRegistered(KrILaminadoUSA::desc(), L"KrILaminadoUSA", L"KR_PERFIL_I_LAMINADO_USA");
}

TEST_F(RolledI, LongFormsTakeTheSectionAsGiven) {
  const KrILaminadoUSA two(kStart, kEnd, Direita, 200, 100, 5.6, 21, 0.03, 9, 3, 8.5, 0.25, 2850, 22.4, ISolParalela);
  expectBar(two, Direita, kAngle, kLength, 0.25);
  expectGiven(two);
  const KrILaminadoUSA one(kStart, Secao, 200, 100, 5.6, 21, 0.03, 9, 3, 8.5, 0.25, 1.25, 640, 2850, 22.4,
                           ISolParalela);
  expectBar(one, Secao, 1.25, 640, 0.25);
  expectGiven(one);
}

TEST_F(RolledI, ShortFormsDeriveTheSection) {
  const KrILaminadoUSA two(kStart, kEnd, Direita, 200, 100, 5.6, 8.5, ISolParalela, 0.25, 2850, 22.4);
  expectBar(two, Direita, kAngle, kLength, 0.25);
  const KrILaminadoUSA one(kStart, Secao, 200, 100, 5.6, 8.5, ISolParalela, 0.25, 1.25, 640, 2850, 22.4);
  expectBar(one, Secao, 1.25, 640, 0.25);
  for (const KrILaminadoUSA* bar : {&two, &one}) {
    expectParameters<KrILaminadoUSA>(
        *bar, {PARAMETER(KrILaminadoUSA, Altura, 200), PARAMETER(KrILaminadoUSA, Largura, 100),
               PARAMETER(KrILaminadoUSA, Espessura, 5.6), PARAMETER(KrILaminadoUSA, EspMedia, 8.5),
               PARAMETER(KrILaminadoUSA, Area, 2850), PARAMETER(KrILaminadoUSA, KgMetro, 22.4),
               PARAMETER(KrILaminadoUSA, Inclinacao, 0), PARAMETER(KrILaminadoUSA, DeslocF, 17),
               PARAMETER(KrILaminadoUSA, RaioDobra, 8.5), PARAMETER(KrILaminadoUSA, Raio1, 0)});
    EXPECT_EQ(tipoOf(*bar), ISolParalela);
  }
}

TEST_F(RolledI, KindsOfSection) {
  expectParameters<KrILaminadoUSA>(derived(ISolParalelaArredondada),
                                   {PARAMETER(KrILaminadoUSA, Inclinacao, 0), PARAMETER(KrILaminadoUSA, DeslocF, 17),
                                    PARAMETER(KrILaminadoUSA, RaioDobra, 8.5), PARAMETER(KrILaminadoUSA, Raio1, 8.5)});
  const double r = (94.4 * 0.25 * std::sin(0.1) - std::cos(0.1) * 8.5) / (std::sin(0.1) - 1);
  expectParameters<KrILaminadoUSA>(derived(ISolInclinada),
                                   {PARAMETER(KrILaminadoUSA, Inclinacao, 0.1), PARAMETER(KrILaminadoUSA, DeslocF, 17),
                                    PARAMETER(KrILaminadoUSA, RaioDobra, r), PARAMETER(KrILaminadoUSA, Raio1, r)});
}

TEST_F(RolledI, KindThatIsNoneSetsSlopeAndRootAlone) {
  KrILaminadoUSA bar(kStart, kEnd, Superior, 200, 100, 5.6, 21, 0.03, 9, 3, 8.5, 0, 2850, 22.4, ISolParalela);
  EXPECT_EQ(bar.setTipo(static_cast<ISolType>(7)), Acad::eOk);
  bar.AutoCalc();
  expectParameters<KrILaminadoUSA>(bar,
                                   {PARAMETER(KrILaminadoUSA, Inclinacao, 0), PARAMETER(KrILaminadoUSA, RaioDobra, 8.5),
                                    PARAMETER(KrILaminadoUSA, DeslocF, 21), PARAMETER(KrILaminadoUSA, Raio1, 3)});
}

TEST_F(RolledI, TaperedOutlineHasTwentyOneNodes) {
  section::expectTable(derived(ISolInclinada), {{0, 0, 0},
                                                {0, 0, -48.9227},
                                                {6.101, 6.744, 0},
                                                {41.099, 10.256, 48.9227},
                                                {47.200, 17, 0},
                                                {47.200, 183, 48.9227},
                                                {41.099, 189.744, 0},
                                                {6.101, 193.256, -48.9227},
                                                {0, 200, 0},
                                                {0, 200, 0},
                                                {100, 200, 0},
                                                {100, 200, -48.9227},
                                                {93.899, 193.256, 0},
                                                {58.901, 189.744, 48.9227},
                                                {52.800, 183, 0},
                                                {52.800, 17, 48.9227},
                                                {58.901, 10.256, 0},
                                                {93.899, 6.744, -48.9227},
                                                {100, 0, 0},
                                                {100, 0, 0},
                                                {0, 0, 0},
                                                {50, 100, 5000}});
  KrGeratriz outline;
  derived(ISolInclinada).GetSecao(outline);
  EXPECT_EQ(outline.Qtd(), 21);
}

// The square toes of most standards: arcs of no length with the bulge of the round ones.
TEST_F(RolledI, SquareToesAreArcsOfNoLength) {
  const KrILaminadoUSA bar(kStart, kEnd, Secao, 200, 100, 5.6, 20.5, 0, 12, 0, 8.5, 0, 2850, 22.4, ISolParalela);
  const std::vector<profile::Node> nodes = profile::outlineOf(bar);
  ASSERT_EQ(nodes.size(), 22U);
  for (const std::size_t toe : {1U, 7U, 11U, 17U}) {
    EXPECT_NEAR(nodes[toe].bulge, -127 * std::tan(kPi / 8), 1e-9) << toe;
    EXPECT_NEAR(nodes[toe].x, nodes[toe + 1].x, 1e-9) << toe;
    EXPECT_NEAR(nodes[toe].y, nodes[toe + 1].y, 1e-9) << toe;
  }
  // Twelve lines and four root arcs are drawn.
  int lines = 0;
  int arcs = 0;
  for (int i = 0; i < bar.GetNumVertex(Secao); ++i) {
    KrVector element;
    bar.GetVector(i, element);
    lines += element.type() == KR_VT_LINHA ? 1 : 0;
    arcs += element.type() == KR_VT_ARCO ? 1 : 0;
    EXPECT_TRUE(std::isfinite(element.len()));
  }
  EXPECT_EQ(lines, 12);
  EXPECT_EQ(arcs, 4);
}

// The published areas: of an IPE 200 2848.4 mm2, of an HE 200 B 7808 mm2.
TEST_F(RolledI, ParallelFlangesEncloseTheStandardsArea) {
  const KrILaminadoUSA ipe(kStart, kEnd, Secao, 200, 100, 5.6, 20.5, 0, 12, 0, 8.5, 0, 2850, 22.4, ISolParalela);
  EXPECT_NEAR(section::areaOf(section::contoursOf(ipe)), 2848.4, 0.05);
  const KrILaminadoUSA heb(kStart, kEnd, Secao, 200, 200, 9, 33, 0, 18, 0, 15, 0, 7810, 61.3, ISolParalela);
  EXPECT_NEAR(section::areaOf(section::contoursOf(heb)), 7808, 0.5);
}

TEST_F(RolledI, MeasuresOfTheSection) {
  KrILaminadoUSA bar = derived(ISolParalela);
  EXPECT_EQ(bar.getAltura(), 200);
  EXPECT_EQ(bar.getLargura(), 100);
  EXPECT_EQ(bar.getEspessura(), 5.6);
  EXPECT_EQ(bar.getArea(), 2850);
  EXPECT_NEAR(bar.getPeso(), 22.4 * 0.5, 1e-9);
  EXPECT_EQ(profile::dimensoesOf(bar), L"200x100x5.60x8.50");
}

TEST_F(RolledI, UserNameStandsForTheProfile) {
  const profile::Designations names("KrILaminadoUSA=Perfil I\n");
  KrILaminadoUSA bar = derived(ISolParalela);
  EXPECT_EQ(profile::perfilOf(bar), L"Perfil I");
  bar.setUserName(L"");
  EXPECT_EQ(profile::perfilOf(bar), L"Perfil I");
  bar.setUserName(L"IPE 200");
  EXPECT_EQ(profile::perfilOf(bar), L"IPE 200");
}

TEST_F(RolledI, DwgHoldsTheKindFromVersionTwoOn) {
  KrILaminadoUSA bar(kStart, kEnd, Superior, 200, 100, 5.6, 21, 0.03, 9, 3, 8.5, 0, 2850, 22.4, ISolInclinada);
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  bar.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar.dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  Adesk::Int16 number = 0;
  filer.readInt16(&number);
  EXPECT_EQ(number, 2);
  // Height, width, web, flange's inner end, root, toe, weight, area, slope, mean flange.
  for (const double expected : {200.0, 100.0, 5.6, 21.0, 9.0, 3.0, 22.4, 2850.0, 0.03, 8.5}) {
    double value = 0;
    filer.readDouble(&value);
    EXPECT_EQ(value, expected);
  }
  filer.readInt16(&number);
  EXPECT_EQ(number, 2);
  EXPECT_TRUE(filer.atEnd());

  filer.seek(0);
  KrILaminadoUSA read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(tipoOf(read), ISolInclinada);
  EXPECT_EQ(valueOf(read, &KrILaminadoUSA::Inclinacao), 0.03);
  EXPECT_EQ(valueOf(read, &KrILaminadoUSA::EspMedia), 8.5);
}

TEST_F(RolledI, VersionOneOfAFileHasTheFirstKind) {
  KrILaminadoUSA bar = derived(ISolInclinada);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar.KrObject::dwgOutFields(&filer);
  filer.writeInt16(1);
  for (int i = 1; i <= 10; ++i) filer.writeDouble(i);
  filer.seek(0);
  KrILaminadoUSA read;
  read.setTipo(ISolInclinada);
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(tipoOf(read), ISolParalelaArredondada);
  EXPECT_EQ(valueOf(read, &KrILaminadoUSA::EspMedia), 10);
  // And it is written in the present version.
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  read.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler again(AcDb::kFileFiler);
  read.dwgOutFields(&again);
  again.seek(base.tell());
  Adesk::Int16 version = 0;
  again.readInt16(&version);
  EXPECT_EQ(version, 2);
}

TEST_F(RolledI, VersionThreeOfAFileIsLeftToAProxy) {
  KrILaminadoUSA bar = derived(ISolInclinada);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar.KrObject::dwgOutFields(&filer);
  filer.writeInt16(3);
  filer.seek(0);
  KrILaminadoUSA read;
  EXPECT_EQ(static_cast<int>(read.dwgInFields(&filer)), 0x12D);
}

// It writes version 2 and reads version 1 only, so what it writes in DXF it doesn't read.
TEST_F(RolledI, DxfOfTheWrittenVersionIsNotRead) {
  AcDbMemoryDxfFiler filer;
  KrILaminadoUSA bar = derived(ISolInclinada);
  // Without elements, whose version isn't read either.
  bar.ClearVertexes(Superior);
  ASSERT_EQ(bar.dxfOutFields(&filer), Acad::eOk);
  const std::vector<AcDbMemoryDxfFiler::Group>& groups = filer.groups();
  ASSERT_GE(groups.size(), 12U);
  const std::size_t own = groups.size() - 12;
  EXPECT_EQ(std::get<std::wstring>(groups[own].value), L"KrILaminadoUSA");
  EXPECT_EQ(std::get<Adesk::Int64>(groups[own + 1].value), 2);
  for (std::size_t i = 2; i < 12; ++i) EXPECT_EQ(groups[own + i].code, 40);
  filer.rewindFiler();
  KrILaminadoUSA read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
  filer.resetFilerStatus();
  EXPECT_EQ(filing::nextCode(filer), 170) << "the version";
  EXPECT_EQ(valueOf(read, &KrILaminadoUSA::Altura), 0);
}

TEST_F(RolledI, DxfOfVersionOneIsRead) {
  AcDbMemoryDxfFiler filer;
  KrILaminadoUSA().KrObject::dxfOutFields(&filer);
  filer.writeItem(100, L"KrILaminadoUSA");
  filer.writeItem(170, Adesk::Int16(1));
  for (int i = 1; i <= 10; ++i) filer.writeItem(40, double(i));
  filer.rewindFiler();
  KrILaminadoUSA read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  expectParameters<KrILaminadoUSA>(read,
                                   {PARAMETER(KrILaminadoUSA, Altura, 1), PARAMETER(KrILaminadoUSA, Largura, 2),
                                    PARAMETER(KrILaminadoUSA, Espessura, 3), PARAMETER(KrILaminadoUSA, DeslocF, 4),
                                    PARAMETER(KrILaminadoUSA, RaioDobra, 5), PARAMETER(KrILaminadoUSA, Raio1, 6),
                                    PARAMETER(KrILaminadoUSA, KgMetro, 7), PARAMETER(KrILaminadoUSA, Area, 8),
                                    PARAMETER(KrILaminadoUSA, Inclinacao, 9), PARAMETER(KrILaminadoUSA, EspMedia, 10)});
}

TEST_F(RolledI, CopyHasTheParametersTheKindAndTheTurn) {
  KrILaminadoUSA bar(kStart, kEnd, Superior, 200, 100, 5.6, 21, 0.03, 9, 3, 8.5, 0.25, 2850, 22.4, ISolParalela);
  const KrILaminadoUSA copy(bar);
  expectGiven(copy);
  EXPECT_EQ(copy.angleSecao(), 0.25);
  EXPECT_EQ(copy.Vista(0), VistaCorrente);
  EXPECT_EQ(profile::outlineOf(copy).size(), 22U);
  bar.CalculeDireita();
  const KrILaminadoUSA whole(&bar, 1);
  const KrILaminadoUSA model(&bar, 0);
  for (const KrILaminadoUSA* each : {&whole, &model}) {
    expectGiven(*each);
    expectBar(*each, Superior, kAngle, kLength, 0.25);
    EXPECT_EQ(each->GetNumVertex(Superior), bar.GetNumVertex(Superior));
  }
  EXPECT_EQ(whole.GetNumVertex(Direita), bar.GetNumVertex(Direita));
  EXPECT_EQ(model.GetNumVertex(Direita), 0);
}

TEST_F(RolledI, NewObjectHasNothingDrawn) {
  const KrILaminadoUSA bar;
  EXPECT_TRUE(profile::outlineOf(bar).empty());
  EXPECT_EQ(valueOf(bar, &KrILaminadoUSA::Altura), 0);
  EXPECT_EQ(tipoOf(bar), ISolParalelaArredondada);
}

TEST_F(RolledI, SettersStoreAndRegenerateNothingUntilCalculated) {
  KrILaminadoUSA bar = derived(ISolParalela);
  bar.setAltura(400);
  EXPECT_NEAR(profile::outlineOf(bar)[9].y, 200, 1e-9);
  bar.Calcule();
  ASSERT_EQ(profile::outlineOf(bar).size(), 22U);
  EXPECT_NEAR(profile::outlineOf(bar)[9].y, 400, 1e-9);
}

TEST_F(RolledI, DwgWithoutAnOutlineGetsItBack) {
  KrILaminadoUSA hollow;
  hollow.setAltura(200);
  hollow.setLargura(100);
  hollow.setEspessura(5.6);
  hollow.setEspMedia(8.5);
  hollow.setTipo(ISolParalela);
  hollow.AutoCalc();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(hollow.dwgOutFields(&filer), Acad::eOk);
  filer.seek(0);
  KrILaminadoUSA read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(profile::outlineOf(read).size(), 22U);
  EXPECT_GT(read.GetNumVertex(Secao), 0);
}
