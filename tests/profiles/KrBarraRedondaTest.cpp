#include "profiles/KrBarraRedonda.h"

#include <cmath>
#include <memory>

#include "ProfileTest.h"
#include "object/MemberLayout.h"
#include "profiles/KrTubo.h"

namespace {

constexpr double kPi = 3.141592653589793;

AcGePoint3d at(double x, double y) {
  return AcGePoint3d(x, y, 0.0);
}

/// A bar of 20, 1000 long, along X.
std::unique_ptr<KrBarraRedonda> bar(KrVistas vista = Superior) {
  return std::make_unique<KrBarraRedonda>(at(0, 0), at(1000, 0), vista, 20.0);
}

double diameterOf(const KrBarraRedonda& member) {
  double v = -1.0;
  EXPECT_EQ(member.diametro(v), Acad::eOk);
  return v;
}

class KrBarraRedondaTest : public testing::Test {
 protected:
  void SetUp() override { profile::registerClass<KrBarraRedonda>(); }
};

}  // namespace

TEST_F(KrBarraRedondaTest, RegistersUnderItsName) {
  profile::expectRegistered(KrBarraRedonda::desc(), L"KrBarraRedonda", L"KRBARRAREDONDA");
  const std::unique_ptr<AcRxObject> made(KrBarraRedonda::desc()->create());
  EXPECT_NE(KrBarraRedonda::cast(made.get()), nullptr);
}

TEST_F(KrBarraRedondaTest, TwoPointsGiveDirectionAndLength) {
  const KrBarraRedonda member(at(10, 20), at(310, 420), Superior, 20.0);
  EXPECT_NEAR(member.angleVista(), std::atan2(400.0, 300.0), 1e-12);
  double comprimento = 0.0;
  member.Comprimento(comprimento);
  EXPECT_NEAR(comprimento, 500.0, 1e-9);
  EXPECT_EQ(diameterOf(member), 20.0);
}

TEST_F(KrBarraRedondaTest, LengthStandsBeforeTheAngle) {
  const KrBarraRedonda member(at(10, 20), Superior, 20.0, 250.0, kPi / 2);
  EXPECT_EQ(member.angleVista(), kPi / 2);
  EXPECT_TRUE(member.endPoint().isEqualTo(at(10, 270)));
}

TEST_F(KrBarraRedondaTest, OutlineTurnsTheOppositeWayFromTheTubes) {
  const double quarter = 127.0 * std::tan(kPi / 8.0);
  profile::expectOutline(*bar(), {{-10, 0, 0},
                                  {-10, 0, quarter},
                                  {0, -10, quarter},
                                  {10, 0, quarter},
                                  {0, 10, quarter},
                                  {-10, 0, 0},
                                  {0, 0, 5000}});
  const KrTubo tube(at(0, 0), at(1000, 0), Superior, 20.0, 0.0);
  EXPECT_LT(profile::outlineOf(tube)[1].bulge * profile::outlineOf(*bar())[1].bulge, 0.0);
}

TEST_F(KrBarraRedondaTest, ZeroDiameterGivesNodesAtTheOrigin) {
  const KrBarraRedonda member(at(0, 0), at(1000, 0), Superior, 0.0);
  for (const profile::Node& node : profile::outlineOf(member)) {
    EXPECT_EQ(node.x, 0.0);
    EXPECT_EQ(node.y, 0.0);
  }
  EXPECT_EQ(profile::outlineOf(member).size(), 7U);
}

TEST_F(KrBarraRedondaTest, CalculatingAgainFollowsTheDiameter) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  EXPECT_EQ(member->setdiametro(30.0), Acad::eOk);
  EXPECT_NEAR(profile::outlineOf(*member)[0].x, -10.0, 1e-12);
  member->Calcule();
  EXPECT_EQ(profile::outlineOf(*member).size(), 7U);
  EXPECT_NEAR(profile::outlineOf(*member)[0].x, -15.0, 1e-12);
}

TEST_F(KrBarraRedondaTest, EveryMeasureIsTheDiameter) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  EXPECT_EQ(member->getAltura(), 20.0);
  EXPECT_EQ(member->getEspessura(), 20.0);
  EXPECT_EQ(member->getLargura(), 20.0);
  EXPECT_NEAR(member->getArea(), 100.0 * kPi, 1e-9);
  EXPECT_NEAR(member->getPerimetro(), 20.0 * kPi, 1e-9);
  EXPECT_EQ(member->GeratrizLength().length(), 0);
}

TEST_F(KrBarraRedondaTest, WeightComesFromTheArea) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  double linear = -1.0;
  EXPECT_EQ(member->getLinearWeight(linear), 0);
  EXPECT_EQ(linear, 0.0);
  // A metre of 20 mm bar: 2.466 kg.
  EXPECT_NEAR(member->getPeso(), 2.466, 5e-4);
  EXPECT_NEAR(member->getPeso(), 100.0 * kPi * 0.00785, 1e-6);
}

TEST_F(KrBarraRedondaTest, DimensionIsTheSignOfADiameterAndTheDiameter) {
  EXPECT_EQ(profile::dimensoesOf(*bar()), L"%%c20");
  EXPECT_EQ(profile::dimensoesOf(KrBarraRedonda(at(0, 0), at(1, 0), Superior, 12.5)), L"%%c12.50");
}

TEST_F(KrBarraRedondaTest, ProfileTextIsTheDesignationAndNotThePrefix) {
  const profile::Designations names("KrBarraRedonda=Barra\n");
  EXPECT_EQ(profile::perfilOf(*bar()), L"Barra");
}

TEST_F(KrBarraRedondaTest, CopyIsEmpty) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  const KrBarraRedonda copy(*member);
  const KrBarraRedonda pointed(member.get());
  for (const KrBarraRedonda* other : {&copy, &pointed}) {
    EXPECT_TRUE(profile::outlineOf(*other).empty());
    EXPECT_EQ(other->GetNumVertex(Superior), 0);
    EXPECT_EQ(other->KrObject::Vista(0), VistaCorrente);
  }
}

TEST_F(KrBarraRedondaTest, DwgFieldsFollowTheBasesAndReadBack) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  member->KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(member->dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  Adesk::Int16 versao = 0;
  double diametro = 0.0;
  filer.readInt16(&versao);
  filer.readDouble(&diametro);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(versao, 1);
  EXPECT_EQ(diametro, 20.0);
  filer.seek(0);
  KrBarraRedonda read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(diameterOf(read), 20.0);
  EXPECT_EQ(profile::outlineOf(read).size(), 7U);
}

TEST_F(KrBarraRedondaTest, DwgClassVersionAboveOneIsLeftToAProxyAndALowerOneBecomesOne) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  AcDbMemoryDwgFiler newer(AcDb::kFileFiler);
  member->KrObject::dwgOutFields(&newer);
  newer.writeInt16(2);
  newer.seek(0);
  KrBarraRedonda refused;
  EXPECT_EQ(static_cast<int>(refused.dwgInFields(&newer)), 0x12D);

  AcDbMemoryDwgFiler older(AcDb::kFileFiler);
  member->KrObject::dwgOutFields(&older);
  const Adesk::Int64 own = older.tell();
  older.writeInt16(0);
  older.writeDouble(33.0);
  older.seek(0);
  KrBarraRedonda read;
  EXPECT_EQ(read.dwgInFields(&older), Acad::eOk);
  EXPECT_EQ(diameterOf(read), 33.0);
  AcDbMemoryDwgFiler again(AcDb::kFileFiler);
  read.dwgOutFields(&again);
  again.seek(own);
  Adesk::Int16 versao = 0;
  again.readInt16(&versao);
  EXPECT_EQ(versao, 1);
}

// It comes back from DXF empty.
TEST_F(KrBarraRedondaTest, HasNoDxfForm) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(member->dxfOutFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.groups().empty());
  KrBarraRedonda read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  EXPECT_TRUE(profile::outlineOf(read).empty());
  EXPECT_EQ(diameterOf(read), 0.0);
}

TEST_F(KrBarraRedondaTest, ExplodingTheSectionGivesOneCircle) {
  const KrBarraRedonda member(at(10, 20), at(10, 520), Secao, 20.0);
  AcDbVoidPtrArray pieces;
  EXPECT_EQ(member.explode(pieces), Acad::eOk);
  ASSERT_EQ(pieces.length(), 1);
  const std::unique_ptr<AcDbEntity> piece(static_cast<AcDbEntity*>(pieces[0]));
  const AcDbCircle* circle = AcDbCircle::cast(piece.get());
  ASSERT_NE(circle, nullptr);
  EXPECT_TRUE(circle->center().isEqualTo(at(10, 20)));
  EXPECT_EQ(circle->radius(), 10.0);
}

TEST_F(KrBarraRedondaTest, ListPrintsDiameterAndAreaInCurrentUnits) {
  const std::unique_ptr<KrBarraRedonda> member = bar();
  const edhost::ConsoleCapture console;
  member->list();
  const std::size_t diameter = console.text().find(L"\nDiametro:\t20");
  const std::size_t area = console.text().find(L"\nÁrea da seção   :\t314.15");
  ASSERT_NE(diameter, std::wstring::npos);
  ASSERT_NE(area, std::wstring::npos);
  EXPECT_LT(diameter, area);
}

// A file of version 2 holds no outline: it stays without one, and what is drawn stays as it was filed.
TEST_F(KrBarraRedondaTest, DwgReadingMakesNothingAnew) {
  MemberLayout layout;
  layout.version = 2;
  layout.lists[Superior] = {KrVector(at(0, -10), at(1000, -10), KR_VT_LINHA),
                            KrVector(at(0, 10), at(700, 10), KR_VT_LINHA)};
  for (KrVector& line : layout.lists[Superior]) line.setTipo(KR_VF_ARESTA);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeInt16(1);
  filer.writeDouble(20);
  filer.seek(0);
  KrBarraRedonda read;
  ASSERT_EQ(read.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(diameterOf(read), 20.0);
  EXPECT_TRUE(profile::outlineOf(read).empty());
  ASSERT_EQ(read.GetNumVertex(Superior), 2);
  KrVector second;
  read.GetVector(Superior, 1, second);
  EXPECT_TRUE(second.endPoint().isEqualTo(at(700, 10)));
}
