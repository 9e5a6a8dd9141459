#include "profiles/KrISoldado.h"

#include <limits>

#include "FoldedSamples.h"
#include "object/MemberLayout.h"
#include "records/Filing.h"

namespace {

using folded::kOrigin;
using profile::valueOf;

std::unique_ptr<KrISoldado> welded(double tf1 = 10, double tf2 = 12.5) {
  return std::make_unique<KrISoldado>(kOrigin, 300, 150, 200, tf1, tf2, 6, 1000, Superior, 0.25, 0, 40);
}

/// The fields of the older layout: no marker, no version, one thickness for both flanges.
void writeOlder(AcDbMemoryDwgFiler& filer, const KrISoldado& bar) {
  bar.KrObject::dwgOutFields(&filer);
  for (const double field : {9.0, 6.0, 300.0, 150.0, 200.0, 36.0}) filer.writeDouble(field);
  filer.writeInt32(0);
}

}  // namespace

TEST(KrISoldado, RegistersUnderItsName) {
  profile::registerClass<KrISoldado>();
  profile::expectRegistered(KrISoldado::desc(), L"KrISoldado", L"KRISOLDADO");
}

TEST(KrISoldado, FlangesAlikeToAHundredthHaveACommonThickness) {
  EXPECT_EQ(valueOf(*welded(10, 10.005), &KrISoldado::tf), 10.0);
  EXPECT_EQ(valueOf(*welded(10, 12), &KrISoldado::tf), 0.0);
}

TEST(KrISoldado, ThicknessIsTheWebsWhenTheFlangesDiffer) {
  EXPECT_EQ(welded(10, 12)->getEspessura(), 6.0);
  EXPECT_EQ(welded(10, 10)->getEspessura(), 10.0);
}

TEST(KrISoldado, FlangesCentreOnTheWeb) {
  const std::vector<profile::Node> line = folded::filedLine(*welded(), 6, true);
  EXPECT_EQ(line[2].x, -25.0);
  EXPECT_EQ((line[0].x + line[1].x) / 2, (line[2].x + line[3].x) / 2);
}

// Half the lower flange above the middle of the section: it stands as it is.
TEST(KrISoldado, AxisLiesAboveTheMiddle) {
  const section::Box box = section::boxOf(section::contoursOf(*welded()));
  EXPECT_NEAR((box.minY + box.maxY) / 2, -5, 1e-9);
}

TEST(KrISoldado, StripsHaveSixEntries) {
  const AcArray<double> strips = welded()->GeratrizLength();
  const double expected[6] = {10, 150, 12.5, 200, 6, 277.5};
  ASSERT_EQ(strips.length(), 6);
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(strips[i], expected[i], 1e-9);
}

TEST(KrISoldado, WeightIsTheCataloguesAndNotTheAreas) {
  const std::unique_ptr<KrISoldado> bar = welded();
  double linear = 0.0;
  EXPECT_EQ(bar->getLinearWeight(linear), 1);
  EXPECT_EQ(linear, 40.0);
  EXPECT_NEAR(bar->getPeso(), 40.0, 1e-9);
}

TEST(KrISoldado, DwgHasAMarkerTheVersionFourAndTheFlangesBehindTheLine) {
  const std::unique_ptr<KrISoldado> bar = welded();
  filing::NotingDwgFiler base;
  bar->KrObject::dwgOutFields(&base);
  filing::NotingDwgFiler filer;
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  const std::vector<std::string> own(filer.items.begin() + static_cast<std::ptrdiff_t>(base.items.size()),
                                     filer.items.end());
  ASSERT_EQ(own.size(), 2 + 6 + 1 + 2 * 7 + 2);
  const std::vector<std::string> head(own.begin(), own.begin() + 9);
  EXPECT_EQ(head, (std::vector<std::string>{"double 1.7976931348623157e+308", "Int16 4", "double 0", "double 6",
                                            "double 300", "double 150", "double 200", "double 40", "Int32 6"}));
  EXPECT_EQ(own[9 + 2 * 6 + 1], "double 5000");
  EXPECT_EQ(own[own.size() - 2], "double 10");
  EXPECT_EQ(own[own.size() - 1], "double 12.5");
}

TEST(KrISoldado, DwgReadsBackTheSameBar) {
  for (const bool empty : {false, true}) {
    const std::unique_ptr<KrISoldado> bar = empty ? std::make_unique<KrISoldado>() : welded();
    filing::NotingDwgFiler filer;
    ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
    const std::unique_ptr<KrISoldado> read = empty ? welded() : std::make_unique<KrISoldado>();
    ASSERT_EQ(read->dwgInFields(&filer.rewound()), Acad::eOk);
    EXPECT_TRUE(filer.atEnd());
    filing::NotingDwgFiler again;
    read->dwgOutFields(&again);
    EXPECT_EQ(again.items, filer.items);
  }
}

TEST(KrISoldado, DwgOfTheOlderLayoutHasOneThicknessForBothFlanges) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  writeOlder(filer, *welded());
  filer.seek(0);
  KrISoldado read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  profile::expectParameters<KrISoldado>(
      read, {PARAMETER(KrISoldado, tf, 9), PARAMETER(KrISoldado, tw, 6), PARAMETER(KrISoldado, altura, 300),
             PARAMETER(KrISoldado, mesa1, 150), PARAMETER(KrISoldado, mesa2, 200), PARAMETER(KrISoldado, KgMetro, 36),
             PARAMETER(KrISoldado, tf1, 9), PARAMETER(KrISoldado, tf2, 9)});
}

TEST(KrISoldado, DwgWithoutAnOutlineGetsItBackAtTheFlangesOwnThicknesses) {
  const std::unique_ptr<KrISoldado> bar = welded();
  MemberLayout layout;
  layout.version = 2;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeDouble(std::numeric_limits<double>::max());
  filer.writeInt16(4);
  for (const double field : {0.0, 6.0, 300.0, 150.0, 200.0, 40.0}) filer.writeDouble(field);
  folded::writeLine(filer, folded::filedLine(*bar, 6, true));
  filer.writeDouble(10);
  filer.writeDouble(12.5);
  filer.seek(0);
  KrISoldado read;
  ASSERT_EQ(read.dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  profile::expectOutline(read, profile::outlineOf(*bar));
  read.Gera_KrVector(Direita);
  EXPECT_GT(read.GetNumVertex(Direita), 0);
}

TEST(KrISoldado, DwgClassVersionAboveFourIsLeftToAProxy) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  welded()->KrObject::dwgOutFields(&filer);
  filer.writeDouble(std::numeric_limits<double>::max());
  filer.writeInt16(5);
  filer.seek(0);
  EXPECT_EQ(static_cast<int>(KrISoldado().dwgInFields(&filer)), 0x12D);
}

// Only version 1 is read, and the class writes 4: it stands as it is.
TEST(KrISoldado, DxfThatItWritesIsRefused) {
  const std::unique_ptr<KrISoldado> bar = welded();
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(bar->dxfOutFields(&filer), Acad::eOk);
  filer.rewindFiler();
  KrISoldado read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
}

TEST(KrISoldado, CopiesHoldTheSameBar) {
  const std::unique_ptr<KrISoldado> bar = welded();
  for (const int all : {0, 1}) {
    for (const KrISoldado* copy : {new KrISoldado(*bar, all), new KrISoldado(bar.get(), all)}) {
      const std::unique_ptr<const KrISoldado> owned(copy);
      profile::expectOutline(*copy, profile::outlineOf(*bar));
      EXPECT_EQ(valueOf(*copy, &KrISoldado::tf2), 12.5);
      EXPECT_EQ(copy->GetNumVertex(Superior), bar->GetNumVertex(Superior));
      EXPECT_NEAR(copy->getArea(), bar->getArea(), 1e-9);
    }
  }
}
