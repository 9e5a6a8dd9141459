#include "profiles/KrTubo.h"

#include <cmath>
#include <memory>

#include "ProfileTest.h"
#include "object/MemberLayout.h"

namespace {

constexpr double kPi = 3.141592653589793;
/// A quarter turn clockwise: 127 times the tangent of a sixteenth of a turn.
const double b = -127.0 * std::tan(kPi / 8.0);

AcGePoint3d at(double x, double y) {
  return AcGePoint3d(x, y, 0.0);
}

/// A tube of 100 over 80, 1000 long, along X.
std::unique_ptr<KrTubo> tube(KrVistas vista = Superior) {
  return std::make_unique<KrTubo>(at(0, 0), at(1000, 0), vista, 100.0, 80.0);
}

double value(const KrTubo& member, Acad::ErrorStatus (KrTubo::*getter)(double&) const) {
  double v = -1.0;
  EXPECT_EQ((member.*getter)(v), Acad::eOk);
  return v;
}

class KrTuboTest : public testing::Test {
 protected:
  void SetUp() override { profile::registerClass<KrTubo>(); }
};

}  // namespace

TEST_F(KrTuboTest, RegistersUnderItsName) {
  profile::expectRegistered(KrTubo::desc(), L"KrTubo", L"KRTUBO");
  const std::unique_ptr<AcRxObject> made(KrTubo::desc()->create());
  EXPECT_NE(KrTubo::cast(made.get()), nullptr);
}

TEST_F(KrTuboTest, NewTubeHasNothingDrawn) {
  const KrTubo empty;
  EXPECT_EQ(value(empty, &KrTubo::Diametro), 0.0);
  EXPECT_EQ(value(empty, &KrTubo::DiametroInt), 0.0);
  EXPECT_EQ(value(empty, &KrTubo::Area), 0.0);
  EXPECT_EQ(value(empty, &KrTubo::KgMetro), 0.0);
  EXPECT_TRUE(profile::outlineOf(empty).empty());
  EXPECT_EQ(empty.startPoint(), at(0, 0));
}

TEST_F(KrTuboTest, TwoPointsGiveDirectionAndLength) {
  const KrTubo member(at(10, 20), at(310, 420), Superior, 100.0, 80.0);
  EXPECT_NEAR(member.angleVista(), std::atan2(400.0, 300.0), 1e-12);
  double comprimento = 0.0;
  member.Comprimento(comprimento);
  EXPECT_NEAR(comprimento, 500.0, 1e-9);
  EXPECT_EQ(member.angleSecao(), 0.0);
  EXPECT_EQ(member.KrObject::Vista(0), Superior);
  EXPECT_TRUE(member.startPoint().isEqualTo(at(10, 20)));
  EXPECT_TRUE(member.endPoint().isEqualTo(at(310, 420)));
}

TEST_F(KrTuboTest, OnePointGivesTheEnd) {
  const KrTubo member(at(10, 20), Direita, 100.0, 80.0, kPi / 2, 250.0);
  EXPECT_EQ(member.angleVista(), kPi / 2);
  EXPECT_TRUE(member.endPoint().isEqualTo(at(10, 270)));
  double comprimento = 0.0;
  member.Comprimento(comprimento);
  EXPECT_NEAR(comprimento, 250.0, 1e-9);
}

TEST_F(KrTuboTest, OutlineIsTheOuterCircleThenTheInnerThenTheOrigin) {
  profile::expectOutline(*tube(),
                         {{-50, 0, 0}, {-50, 0, b}, {0, 50, b},  {50, 0, b},  {0, -50, b}, {-50, 0, 0}, {-50, 0, 6000},
                          {-40, 0, 0}, {-40, 0, b}, {0, 40, 0},  {0, 40, 0},  {0, 40, b},  {40, 0, 0},  {40, 0, 0},
                          {40, 0, b},  {0, -40, 0}, {0, -40, 0}, {0, -40, b}, {-40, 0, b}, {0, 0, 5000}});
  EXPECT_NEAR(b, -52.6051, 1e-4);
}

TEST_F(KrTuboTest, SolidTubeHasSevenNodesAndNoInnerContour) {
  const KrTubo solid(at(0, 0), at(1000, 0), Superior, 100.0, 0.0);
  profile::expectOutline(
      solid, {{-50, 0, 0}, {-50, 0, b}, {0, 50, b}, {50, 0, b}, {0, -50, b}, {-50, 0, 0}, {-50, 0, 0}, {0, 0, 5000}});
  KrGeratriz outline;
  solid.GetSecao(outline);
  EXPECT_EQ(outline.Qtd(), 7);
  EXPECT_EQ(profile::dimensoesOf(solid), L"100x100");
}

TEST_F(KrTuboTest, CalculatingAgainGivesTheOutlineOnce) {
  const std::unique_ptr<KrTubo> member = tube();
  member->setDiametro(60.0);
  member->setDiametroInt(0.0);
  member->Calcule();
  EXPECT_EQ(profile::outlineOf(*member).size(), 8U);
  EXPECT_NEAR(profile::outlineOf(*member)[2].y, 30.0, 1e-12);
}

TEST_F(KrTuboTest, CalculatingTheSectionClearsItsElementsAndAddsToTheOutline) {
  const std::unique_ptr<KrTubo> member = tube(Secao);
  EXPECT_GT(member->GetNumVertex(Secao), 0);
  member->CalculeSecao();
  EXPECT_EQ(member->GetNumVertex(Secao), 0);
  EXPECT_EQ(profile::outlineOf(*member).size(), 40U);
}

TEST_F(KrTuboTest, AreaIsWorkedOutFromTheDiametersAndTheFieldIsNot) {
  const std::unique_ptr<KrTubo> member = tube();
  EXPECT_NEAR(member->getArea(), kPi * (2500.0 - 1600.0), 1e-9);
  EXPECT_NEAR(value(*member, &KrTubo::Area), (10000.0 - 6400.0) * kPi / 4.0, 1e-9);
  member->setDiametro(200.0);
  EXPECT_NEAR(member->getArea(), kPi * (10000.0 - 1600.0), 1e-9);
  EXPECT_NEAR(value(*member, &KrTubo::Area), 900.0 * kPi, 1e-9);
}

// In spite of its name; only listed, never used.
TEST_F(KrTuboTest, KgMetroIsTheWholeBarsWeight) {
  const std::unique_ptr<KrTubo> member = tube();
  EXPECT_NEAR(value(*member, &KrTubo::KgMetro), 900.0 * kPi * 7.85e-06 * 1000.0, 1e-9);
  double linear = -1.0;
  EXPECT_EQ(member->getLinearWeight(linear), 0);
  EXPECT_EQ(linear, 0.0);
  EXPECT_NEAR(member->getPeso(), 900.0 * kPi * 0.00785, 1e-6);
}

TEST_F(KrTuboTest, SettersStoreAndRegenerateNothing) {
  const std::unique_ptr<KrTubo> member = tube();
  const std::size_t nodes = profile::outlineOf(*member).size();
  EXPECT_EQ(member->setDiametro(1.0), Acad::eOk);
  EXPECT_EQ(member->setDiametroInt(2.0), Acad::eOk);
  EXPECT_EQ(member->setArea(3.0), Acad::eOk);
  EXPECT_EQ(member->setKgMetro(4.0), Acad::eOk);
  EXPECT_EQ(value(*member, &KrTubo::Diametro), 1.0);
  EXPECT_EQ(value(*member, &KrTubo::DiametroInt), 2.0);
  EXPECT_EQ(value(*member, &KrTubo::Area), 3.0);
  EXPECT_EQ(value(*member, &KrTubo::KgMetro), 4.0);
  EXPECT_EQ(profile::outlineOf(*member).size(), nodes);
  EXPECT_NEAR(profile::outlineOf(*member)[0].x, -50.0, 1e-12);
}

TEST_F(KrTuboTest, MeasuresOfTheSection) {
  const std::unique_ptr<KrTubo> member = tube();
  EXPECT_NEAR(member->getPerimetro(), 100.0 * kPi, 1e-9);
  EXPECT_EQ(member->getAltura(), 100.0);
  EXPECT_EQ(member->getLargura(), 100.0);
  EXPECT_EQ(member->getEspessura(), 10.0);
  const AcArray<double> strip = member->GeratrizLength();
  ASSERT_EQ(strip.length(), 2);
  EXPECT_EQ(strip[0], 10.0);
  EXPECT_NEAR(strip[1], 90.0 * kPi, 1e-9);
  EXPECT_NEAR(member->getAreaPintura(), (2.0 * 900.0 * kPi + 100.0 * kPi * 1000.0) / 1e6, 1e-9);
}

TEST_F(KrTuboTest, DimensionsShowTwiceTheWall) {
  EXPECT_EQ(profile::dimensoesOf(*tube()), L"100x20");
  EXPECT_EQ(profile::dimensoesOf(KrTubo(at(0, 0), at(1, 0), Superior, 88.5, 79.25)), L"88.50x9.25");
}

TEST_F(KrTuboTest, ProfileTextIsTheDesignationAndNotThePrefix) {
  const profile::Designations names("KrTubo=Tubo redondo\n");
  EXPECT_EQ(profile::perfilOf(*tube()), L"Tubo redondo");
}

TEST_F(KrTuboTest, ProfileTextIsEmptyWithoutADesignation) {
  const profile::Designations names("KrBox=Caixa\n");
  EXPECT_EQ(profile::perfilOf(*tube()), L"");
}

TEST_F(KrTuboTest, HandMadeElevationsHaveTheAxisFourLinesAndTwoEnds) {
  const KrTubo member(at(10, 20), Secao, 100.0, 80.0, kPi / 2, 1000.0);
  KrTubo changed(at(10, 20), Secao, 100.0, 80.0, kPi / 2, 1000.0);
  changed.CalculeSuperior();
  changed.CalculeInferior();
  changed.CalculeEsquerda();
  changed.CalculeDireita();
  for (const KrVistas vista : {Superior, Inferior, Esquerda, Direita}) {
    EXPECT_EQ(member.GetNumVertex(vista), 0);
    ASSERT_EQ(changed.GetNumVertex(vista), 7) << vista;
    KrVector v[7];
    for (int i = 0; i < 7; ++i) changed.GetVector(vista, i, v[i]);
    EXPECT_EQ(v[0].type(), KR_VT_EIXO);
    EXPECT_TRUE(v[0].startPoint().isEqualTo(at(10, 20)));
    EXPECT_TRUE(v[0].endPoint().isEqualTo(at(10, 1020)));
    // The bar goes up: a quarter turn on is to the left.
    const double xs[4] = {-40, -30, 60, 50};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(v[i + 1].type(), i % 2 == 0 ? KR_VT_LINHA : KR_VT_LINHA_OCULTA);
      EXPECT_TRUE(v[i + 1].startPoint().isEqualTo(at(xs[i], 20))) << i;
      EXPECT_TRUE(v[i + 1].endPoint().isEqualTo(at(xs[i], 1020))) << i;
    }
    for (int i = 0; i < 2; ++i) {
      EXPECT_EQ(v[i + 5].type(), KR_VT_LINHA);
      EXPECT_TRUE(v[i + 5].startPoint().isEqualTo(at(-40, 20 + 1000 * i)));
      EXPECT_TRUE(v[i + 5].endPoint().isEqualTo(at(60, 20 + 1000 * i)));
    }
  }
  changed.CalculeDireita();
  EXPECT_EQ(changed.GetNumVertex(Direita), 7);
}

TEST_F(KrTuboTest, HandMadeElevationBringsAnglesBackIntoOneTurn) {
  KrTubo member(at(0, 0), Secao, 100.0, 80.0, kPi, 1000.0);
  member.CalculeSuperior();
  KrVector end;
  member.GetVector(Superior, 5, end);
  EXPECT_NEAR(end.direction(), kPi / 2, 1e-12);
}

TEST_F(KrTuboTest, CopyCanDrawButHasNoDiameters) {
  const std::unique_ptr<KrTubo> member = tube();
  member->setAngleSecao(0.25);
  member->CalculeDireita();
  const KrTubo copy(*member);
  const KrTubo pointed(member.get());
  for (const KrTubo* other : {&copy, &pointed}) {
    EXPECT_EQ(other->angleSecao(), 0.25);
    EXPECT_EQ(other->GetNumVertex(Superior), member->GetNumVertex(Superior));
    EXPECT_GT(other->GetNumVertex(Superior), 0);
    EXPECT_EQ(other->GetNumVertex(Direita), 7);
    EXPECT_TRUE(profile::outlineOf(*other).empty());
    EXPECT_EQ(other->KrObject::Vista(0), VistaCorrente);
    EXPECT_EQ(other->angleVista(), 0.0);
  }
}

TEST_F(KrTuboTest, DwgFieldsFollowTheBasesAndReadBack) {
  const std::unique_ptr<KrTubo> member = tube();
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  member->KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(member->dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  Adesk::Int16 versao = 0;
  double fields[4] = {};
  filer.readInt16(&versao);
  for (double& field : fields) filer.readDouble(&field);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(versao, 1);
  EXPECT_EQ(fields[0], 100.0);
  EXPECT_EQ(fields[1], 80.0);
  EXPECT_NEAR(fields[2], 900.0 * kPi, 1e-9);
  EXPECT_NEAR(fields[3], 900.0 * kPi * 7.85e-03, 1e-9);

  filer.seek(0);
  KrTubo read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(value(read, &KrTubo::Diametro), 100.0);
  EXPECT_EQ(value(read, &KrTubo::DiametroInt), 80.0);
  EXPECT_EQ(value(read, &KrTubo::Area), fields[2]);
  EXPECT_EQ(value(read, &KrTubo::KgMetro), fields[3]);
  EXPECT_EQ(profile::outlineOf(read).size(), 20U);
}

// A file of version 2 holds no outline: it stays without one, and what is drawn stays as it was filed.
TEST_F(KrTuboTest, DwgReadingMakesNothingAnew) {
  MemberLayout layout;
  layout.version = 2;
  layout.lists[Superior] = {KrVector(at(0, -50), at(1000, -50), KR_VT_LINHA),
                            KrVector(at(0, 50), at(700, 50), KR_VT_LINHA)};
  for (KrVector& line : layout.lists[Superior]) line.setTipo(KR_VF_ARESTA);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeInt16(1);
  for (const double field : {100.0, 80.0, 3.0, 4.0}) filer.writeDouble(field);
  filer.seek(0);
  KrTubo read;
  ASSERT_EQ(read.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(value(read, &KrTubo::Diametro), 100.0);
  EXPECT_TRUE(profile::outlineOf(read).empty());
  ASSERT_EQ(read.GetNumVertex(Superior), 2);
  KrVector second;
  read.GetVector(Superior, 1, second);
  EXPECT_TRUE(second.endPoint().isEqualTo(at(700, 50)));
}

TEST_F(KrTuboTest, DwgClassVersionAboveOneIsLeftToAProxy) {
  const std::unique_ptr<KrTubo> member = tube();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  member->KrObject::dwgOutFields(&filer);
  filer.writeInt16(2);
  filer.seek(0);
  KrTubo read;
  EXPECT_EQ(static_cast<int>(read.dwgInFields(&filer)), 0x12D);
  EXPECT_EQ(value(read, &KrTubo::Diametro), 0.0);
}

TEST_F(KrTuboTest, DxfGroupsFollowTheBases) {
  KrTubo member;
  member.setDiametro(100.0);
  member.setDiametroInt(80.0);
  member.setArea(3.0);
  member.setKgMetro(4.0);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(member.dxfOutFields(&filer), Acad::eOk);
  const std::vector<AcDbMemoryDxfFiler::Group>& groups = filer.groups();
  ASSERT_GE(groups.size(), 6U);
  const std::size_t own = groups.size() - 6;
  EXPECT_EQ(groups[own].code, 100);
  EXPECT_EQ(std::get<std::wstring>(groups[own].value), L"KrTubo");
  EXPECT_EQ(groups[own + 1].code, 170);
  EXPECT_EQ(std::get<Adesk::Int64>(groups[own + 1].value), 1);
  const double expected[4] = {100, 80, 3, 4};
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(groups[own + 2 + i].code, 40);
    EXPECT_EQ(std::get<double>(groups[own + 2 + i].value), expected[i]);
  }
  filer.rewindFiler();
  KrTubo read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  EXPECT_EQ(value(read, &KrTubo::Diametro), 100.0);
  EXPECT_EQ(value(read, &KrTubo::DiametroInt), 80.0);
  EXPECT_EQ(value(read, &KrTubo::Area), 3.0);
  EXPECT_EQ(value(read, &KrTubo::KgMetro), 4.0);
}

TEST_F(KrTuboTest, DxfGroupOfAWrongCodeOrVersionEndsTheReading) {
  for (const bool wrongCode : {true, false}) {
    AcDbMemoryDxfFiler filer;
    KrTubo().KrObject::dxfOutFields(&filer);
    filer.writeItem(100, L"KrTubo");
    filer.writeItem(170, Adesk::Int16(wrongCode ? 1 : 2));
    filer.writeItem(40, 100.0);
    filer.writeItem(41, 80.0);
    filer.rewindFiler();
    KrTubo read;
    EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
    EXPECT_STREQ(filer.errorMessage(), L"\nKR_Trama erro ao ler DXF.");
    EXPECT_EQ(value(read, &KrTubo::Diametro), wrongCode ? 100.0 : 0.0);
    EXPECT_EQ(value(read, &KrTubo::DiametroInt), 0.0);
  }
}

TEST_F(KrTuboTest, ExplodingTheSectionGivesTwoCirclesAlsoForASolidTube) {
  for (const double inner : {80.0, 0.0}) {
    const KrTubo member(at(10, 20), at(10, 520), Secao, 100.0, inner);
    AcDbVoidPtrArray pieces;
    EXPECT_EQ(member.explode(pieces), Acad::eOk);
    ASSERT_EQ(pieces.length(), 2);
    const double radii[2] = {50.0, inner / 2.0};
    for (int i = 0; i < 2; ++i) {
      const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(pieces[i]));
      const AcDbCircle* circle = AcDbCircle::cast(piece.get());
      ASSERT_NE(circle, nullptr);
      EXPECT_TRUE(circle->center().isEqualTo(at(10, 20)));
      EXPECT_EQ(circle->radius(), radii[i]);
      EXPECT_TRUE(circle->normal().isEqualTo(AcGeVector3d::kZAxis));
    }
  }
}

TEST_F(KrTuboTest, ListPrintsItsFourFieldsBehindTheBases) {
  const std::unique_ptr<KrTubo> member = tube();
  member->setArea(2827.5);
  member->setKgMetro(0.0);
  const edhost::ConsoleCapture console;
  member->list();
  const std::wstring expected =
      L"\nDiametro        : 100\nDiametro Int.   : 80\nArea            : 2827.50\nKg/metro        : ";
  ASSERT_GE(console.text().size(), expected.size());
  EXPECT_EQ(console.text().substr(console.text().size() - expected.size()), expected);
  EXPECT_NE(console.text().find(L"Ponto Inicial"), std::wstring::npos);
}
