#include "profiles/KrChapa.h"

#include "FoldedSamples.h"
#include "object/MemberLayout.h"
#include "records/Filing.h"

namespace {

using folded::kOrigin;
using folded::kPi;

std::unique_ptr<KrChapa> plate(KrVistas vista = Direita) {
  return std::make_unique<KrChapa>(kOrigin, vista, 120, 8, 1000, 0, 0);
}

}  // namespace

TEST(KrChapa, RegistersUnderItsName) {
  profile::registerClass<KrChapa>();
  profile::expectRegistered(KrChapa::desc(), L"KrChapa", L"KRCHAPA");
}

TEST(KrChapa, WithoutAWidthIsASquareBar) {
  const KrChapa bar(kOrigin, Superior, 0, 8, 1000, 0, 0);
  EXPECT_EQ(bar.largura(), 8);
  const section::Box box = section::boxOf(section::contoursOf(bar));
  EXPECT_NEAR(box.maxX - box.minX, 8, 1e-9);
  EXPECT_NEAR(box.maxY - box.minY, 8, 1e-9);
}

TEST(KrChapa, HeightIsItsWidthAndWidthIsNothing) {
  const std::unique_ptr<KrChapa> bar = plate();
  EXPECT_EQ(bar->getAltura(), 120);
  EXPECT_EQ(bar->getLargura(), 0);
  double espessura = 0;
  EXPECT_EQ(bar->espessura(espessura), Acad::eOk);
  EXPECT_EQ(espessura, 8);
}

// The section's origin is the plate's first corner and not its middle.
TEST(KrChapa, OriginIsTheFirstCornerWithTheNegativeCode) {
  const std::vector<profile::Node> outline = profile::outlineOf(*plate());
  EXPECT_EQ(outline.back().x, 0);
  EXPECT_EQ(outline.back().y, 0);
  EXPECT_EQ(outline.back().bulge, -5000);
}

TEST(KrChapa, AxisIsHiddenInEveryElevation) {
  for (const KrVistas vista : {Superior, Inferior, Esquerda, Direita}) {
    const std::unique_ptr<KrChapa> bar = plate(vista);
    KrVector axis;
    ASSERT_EQ(bar->GetVectorEixo(vista, axis), 1);
    EXPECT_EQ(axis.hidden(), 1);
  }
}

TEST(KrChapa, WeightAndPaintAreThoseOfTheRectangle) {
  const std::unique_ptr<KrChapa> bar = plate();
  EXPECT_NEAR(bar->getVolume(), 8 * 120 * 1000, 1e-6);
  EXPECT_NEAR(bar->getPeso(), 7.536, 1e-9);
  // Faces 2 x 0.12 m2, edges 2 x (1 + 0.12) x 0.008 m2.
  EXPECT_NEAR(bar->getAreaPintura(), 0.24 + 0.01792, 1e-12);
  EXPECT_EQ(bar->getPerimetro(), 0);
}

// Of the face, of the edge, of the cross section, wherever the plate lies.
TEST(KrChapa, AreaIsThatOfTheOutlineInItsView) {
  const AcGePoint3d away(12345, -678, 0);
  for (const double angle : {0.0, 0.7, kPi / 2, 4.0}) {
    EXPECT_NEAR(KrChapa(away, Direita, 120, 8, 1000, 0, angle).getArea(), 120000, 1e-3) << angle;
    EXPECT_NEAR(KrChapa(away, Superior, 120, 8, 1000, 0, angle).getArea(), 8000, 1e-3) << angle;
    EXPECT_NEAR(KrChapa(away, Secao, 120, 8, 1000, 0, angle).getArea(), 960, 1e-4) << angle;
  }
}

TEST(KrChapa, StripIsThicknessAndWidth) {
  const AcArray<double> strips = plate()->GeratrizLength();
  ASSERT_EQ(strips.length(), 2);
  EXPECT_EQ(strips[0], 8);
  EXPECT_EQ(strips[1], 120);
}

TEST(KrChapa, CreateFormsAPlateAlongX) {
  KrChapa bar;
  bar.setAngleVista(1.25);
  bar.setAngleSecao(0.5);
  bar.Create(AcGePoint3d(10, 20, 0), 8, 1000, 120, Direita);
  EXPECT_EQ(bar.espessura(), 8);
  EXPECT_EQ(bar.largura(), 120);
  EXPECT_EQ(bar.angleSecao(), 0);
  EXPECT_EQ(bar.angleVista(), 1.25);
  EXPECT_STREQ(bar.userName(), L"KrChapa");
  EXPECT_NEAR(bar.getArea(), 120000, 1e-3);
  const std::size_t nodes = profile::outlineOf(bar).size();
  bar.Create(AcGePoint3d(10, 20, 0), 10, 500, 60, Superior);
  EXPECT_EQ(profile::outlineOf(bar).size(), nodes);
  EXPECT_NEAR(bar.getArea(), 5000, 1e-3);
}

TEST(KrChapa, NewThicknessRegenerates) {
  const std::unique_ptr<KrChapa> bar = plate(Superior);
  EXPECT_EQ(bar->setespessura(12), Acad::eOk);
  EXPECT_EQ(bar->getEspessura(), 12);
  EXPECT_NEAR(bar->getArea(), 12000, 1e-3);
}

TEST(KrChapa, NewWidthIsStoredOnly) {
  const std::unique_ptr<KrChapa> bar = plate();
  EXPECT_EQ(bar->setlargura(60), Acad::eOk);
  EXPECT_EQ(bar->getAltura(), 60);
  EXPECT_NEAR(bar->getArea(), 120000, 1e-3);
}

TEST(KrChapa, ReferenceCopySharesTheLineAndPointerCopyHasItsOwn) {
  const std::unique_ptr<KrChapa> bar = plate();
  bar->setType(static_cast<KrChapa::CHAPA_SPECIFICATION>(3));
  for (const int all : {0, 1}) {
    const KrChapa shared(*bar, all);
    const KrChapa own(bar.get(), all);
    for (const KrChapa* copy : {&shared, &own}) {
      EXPECT_EQ(copy->espessura(), 8);
      EXPECT_EQ(copy->largura(), 120);
      EXPECT_EQ(copy->getType(), 3);
      EXPECT_NEAR(copy->getArea(), 120000, 1e-3);
      EXPECT_STREQ(copy->userName(), L"KrChapa");
      profile::expectOutline(*copy, profile::outlineOf(*bar));
    }
  }
}

TEST(KrChapa, ReferenceCopyLeavesTheHolesBehind) {
  const std::unique_ptr<KrChapa> bar = plate();
  bar->settipoBarra(Gousset);
  KrFuro holes;
  holes.Add(AcGeVector3d(-4, 60, 300), AcGeVector3d(4, 60, 300), 14, 0, 0);
  bar->setFurosSemLink(holes);
  const KrChapa shared(*bar, 1);
  EXPECT_EQ(shared.numFuros(), 0);
  EXPECT_EQ(shared.tipoBarra(), Gousset);
  EXPECT_EQ(KrChapa(bar.get(), 1).numFuros(), 1);
}

TEST(KrChapa, DwgHasVersionTwoThicknessWidthLineAndKind) {
  const std::unique_ptr<KrChapa> bar = plate();
  bar->setType(static_cast<KrChapa::CHAPA_SPECIFICATION>(3));
  filing::NotingDwgFiler base;
  bar->KrObject::dwgOutFields(&base);
  filing::NotingDwgFiler filer;
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> own(filer.items.begin() + static_cast<std::ptrdiff_t>(base.items.size()),
                                     filer.items.end());
  EXPECT_EQ(own,
            (std::vector<std::string>{"Int16 2", "double 8", "double 120", "Int32 2", "Vector3d 0 0 0", "double 0",
                                      "Vector3d 0 120 0", "double 0", "Vector3d 0 0 0", "double -5000", "Int16 3"}));
  KrChapa read;
  ASSERT_EQ(read.dwgInFields(&filer.rewound()), Acad::eOk);
  filing::NotingDwgFiler again;
  read.dwgOutFields(&again);
  EXPECT_EQ(again.items, filer.items);
}

TEST(KrChapa, DwgWithoutAnOutlineGetsItBackFromTheLine) {
  MemberLayout layout;
  layout.version = 2;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeInt16(1);
  filer.writeDouble(8);
  filer.writeDouble(120);
  folded::writeLine(filer, {{0, 0, 0}, {0, 120, 0}, {0, 0, -5000}});
  filer.seek(0);
  KrChapa read;
  ASSERT_EQ(read.dwgInFieldsData(&filer), Acad::eOk);
  // Half the thickness to the left of the line, then back on its other side.
  profile::expectOutline(read, {{-4, 0, 0}, {-4, 120, 0}, {4, 120, 0}, {4, 0, 0}, {-4, 0, 0}, {0, 0, -5000}});
  read.Gera_KrVector(Direita);
  EXPECT_GT(read.GetNumVertex(Direita), 0);
}

// Unlike every other class it reads any version: without the kind below 2, nothing at 0, all from 2 on.
TEST(KrChapa, DwgOfAnyVersionIsRead) {
  for (const Adesk::Int16 versao : {Adesk::Int16(0), Adesk::Int16(1), Adesk::Int16(2), Adesk::Int16(99)}) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    plate()->KrObject::dwgOutFields(&filer);
    filer.writeInt16(versao);
    if (versao > 0) {
      filer.writeDouble(8);
      filer.writeDouble(120);
      filer.writeInt32(0);
      filer.writeVector3d(AcGeVector3d::kIdentity);
      filer.writeDouble(-5000);
    }
    if (versao > 1) filer.writeInt16(3);
    filer.seek(0);
    KrChapa read;
    ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk) << versao;
    EXPECT_TRUE(filer.atEnd());
    EXPECT_EQ(read.largura(), versao > 0 ? 120 : 0);
    EXPECT_EQ(read.getType(), versao > 1 ? 3 : 0);
    // It is written as 2 whatever was read.
    filing::NotingDwgFiler base;
    read.KrObject::dwgOutFields(&base);
    filing::NotingDwgFiler again;
    read.dwgOutFields(&again);
    EXPECT_EQ(again.items[base.items.size()], "Int16 2");
  }
}

TEST(KrChapa, DwgThatBreaksOffKeepsWhatStandsBehind) {
  KrChapa bar;
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  bar.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler, base.buffer());
  filer.seek(0, 2);
  filer.writeInt16(1);
  filer.writeDouble(9);
  filer.seek(0);
  const std::unique_ptr<KrChapa> read = plate();
  EXPECT_EQ(read->dwgInFields(&filer), Acad::eEndOfObject);
  EXPECT_EQ(read->getEspessura(), 9);
  EXPECT_EQ(read->largura(), 120);
  ASSERT_EQ(read->GeratrizLength().length(), 2);
  EXPECT_EQ(read->GeratrizLength()[1], 120) << "the line's length";
}

TEST(KrChapa, DxfHasTheBasesFieldsOnly) {
  const std::unique_ptr<KrChapa> bar = plate();
  AcDbMemoryDxfFiler base;
  bar->KrObject::dxfOutFields(&base);
  AcDbMemoryDxfFiler filer;
  bar->dxfOutFields(&filer);
  EXPECT_EQ(filing::codes(filer), filing::codes(base));
}

TEST(KrChapa, ListsItsDimensionsPaintAndWeight) {
  const std::unique_ptr<KrChapa> bar = plate();
  const edhost::ConsoleCapture console;
  bar->list();
  const std::wstring text = console.text();
  const auto number = [](double value) {
    ACHAR buffer[400];
    EXPECT_EQ(acdbRToS(value, -1, -1, buffer), RTNORM);
    return std::wstring(buffer);
  };
  const std::wstring expected = L"\t\t\t\tDimensoes : " + number(120) + L"x" + number(1000) +
                                L"\n\t\t\t\tEspessura : " + number(8) + L"\n\t\t\t\tArea de Pintura :" +
                                number(bar->getAreaPintura()) + L"\n\t\t\t\tPeso :" + number(7.536) + L" kgf\n";
  ASSERT_GE(text.size(), expected.size());
  EXPECT_EQ(text.substr(text.size() - expected.size()), expected);
}

// By half the change over the axis's component along the bar. A hole square to the bar has none and stays as it is:
// kept so.
TEST(KrChapa, NewThicknessLengthensInclinedHoles) {
  const std::unique_ptr<KrChapa> bar = plate();
  KrFuro holes;
  holes.Add(AcGeVector3d(-4, 60, 300), AcGeVector3d(4, 60, 300), 14, 0, 0);
  holes.Add(AcGeVector3d(-4, 60, 500), AcGeVector3d(4, 60, 540), 14, 0, 0);
  bar->setFurosSemLink(holes);
  ASSERT_EQ(bar->setespessura(12), Acad::eOk);
  KrFuro after;
  bar->Furos(after, 0);
  ASSERT_EQ(after.Qtd(), 2);
  EXPECT_TRUE(after.getNode(0)->Ini.isEqualTo(AcGeVector3d(-4, 60, 300)));
  EXPECT_TRUE(after.getNode(0)->Fim.isEqualTo(AcGeVector3d(4, 60, 300)));
  // The axis rises 5 along the bar for 1 across: 2 along and 0.4 across at either end.
  EXPECT_TRUE(after.getNode(1)->Ini.isEqualTo(AcGeVector3d(-4.4, 60, 498)));
  EXPECT_TRUE(after.getNode(1)->Fim.isEqualTo(AcGeVector3d(4.4, 60, 542)));
}
