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

TEST(KrISoldado, DwgOfTheOlderLayoutMayHaveALine) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  welded()->KrObject::dwgOutFields(&filer);
  for (const double field : {9.0, 6.0, 300.0, 150.0, 200.0, 36.0}) filer.writeDouble(field);
  // A web of 282 between flanges of 9.
  folded::writeLine(filer, {{0, 0, 0},
                            {150, 0, 6009},
                            {-25, 291, 0},
                            {175, 291, 6006},
                            {75, 4.5, 0},
                            {75, 286.5, 0},
                            {75, 150, KrGeratriz::kReferenceBulge}});
  filer.seek(0);
  KrISoldado read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(valueOf(read, &KrISoldado::tf1), 9.0);
  EXPECT_EQ(valueOf(read, &KrISoldado::tf2), 9.0);
  const double expected[] = {9, 150, 9, 200, 6, 282};
  const AcArray<double> strips = read.GeratrizLength();
  ASSERT_EQ(strips.length(), 6);
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(strips[i], expected[i], 1e-9);
}

TEST(KrISoldado, DwgOfEarlierVersionsHasTheFlangesToo) {
  for (const Adesk::Int16 version : {Adesk::Int16(1), Adesk::Int16(3)}) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    welded()->KrObject::dwgOutFields(&filer);
    filer.writeDouble(std::numeric_limits<double>::max());
    filer.writeInt16(version);
    for (const double field : {0.0, 6.0, 300.0, 150.0, 200.0, 40.0}) filer.writeDouble(field);
    filer.writeInt32(0);
    filer.writeDouble(7);
    filer.writeDouble(8);
    filer.seek(0);
    KrISoldado read;
    ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk) << version;
    EXPECT_TRUE(filer.atEnd());
    EXPECT_EQ(valueOf(read, &KrISoldado::tf1), 7.0);
    EXPECT_EQ(valueOf(read, &KrISoldado::tf2), 8.0);
    filing::NotingDwgFiler base;
    read.KrObject::dwgOutFields(&base);
    filing::NotingDwgFiler again;
    read.dwgOutFields(&again);
    EXPECT_EQ(again.items.at(base.items.size() + 1), "Int16 4");
  }
}

TEST(KrISoldado, DwgThatBreaksOffKeepsWhatStandsBehind) {
  const std::unique_ptr<KrISoldado> bar = welded();
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler whole(AcDb::kFileFiler);
  bar->dwgOutFields(&whole);
  // An item takes a byte more than its value: the last two are the flanges' thicknesses.
  const struct {
    std::size_t size;
    double tf1;
    double tw;
  } breaks[] = {{whole.buffer().size() - 10, 7, 6},
                {whole.buffer().size() - 1, 10, 6},
                {static_cast<std::size_t>(base.tell()) + 9 + 3 + 9 + 1, 7, 5}};
  for (const auto& each : breaks) {
    AcDbMemoryDwgFiler::Buffer bytes = whole.buffer();
    bytes.resize(each.size);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler, bytes);
    KrISoldado read;
    read.settf1(7);
    read.settf2(8);
    read.settw(5);
    EXPECT_EQ(read.dwgInFields(&filer), Acad::eEndOfObject);
    EXPECT_EQ(valueOf(read, &KrISoldado::tf1), each.tf1) << each.size;
    EXPECT_EQ(valueOf(read, &KrISoldado::tf2), 8.0) << each.size;
    EXPECT_EQ(valueOf(read, &KrISoldado::tw), each.tw) << each.size;
  }
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
  // Without elements, whose version isn't read either.
  bar->ClearVertexes(Superior);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(bar->dxfOutFields(&filer), Acad::eOk);
  filer.rewindFiler();
  KrISoldado read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
  filer.resetFilerStatus();
  EXPECT_EQ(filing::nextCode(filer), 170) << "the version";
}

// The flanges differ, so that their common thickness is 0.
TEST(KrISoldado, DxfHasAllNumbersAheadOfTheLine) {
  const std::unique_ptr<KrISoldado> bar = welded();
  AcDbMemoryDxfFiler base;
  bar->KrObject::dxfOutFields(&base);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(bar->dxfOutFields(&filer), Acad::eOk);
  const double numbers[] = {0, 6, 300, 150, 200, 40, 10, 12.5};
  const profile::Node nodes[] = {{0, 0, 0},           {150, 0, 6012.5}, {-25, 288.75, 0},
                                 {175, 288.75, 6006}, {75, 5, 0},       {75, 282.5, 0}};
  std::size_t at = base.groups().size();
  ASSERT_EQ(filer.groups().size(), at + 3 + std::size(numbers) + 1 + 2 * std::size(nodes));
  const auto next = [&](int code) {
    EXPECT_EQ(filer.groups()[at].code, code) << at;
    return filer.groups()[at++].value;
  };
  EXPECT_EQ(std::get<std::wstring>(next(100)), L"KrISoldado");
  EXPECT_EQ(std::get<double>(next(40)), std::numeric_limits<double>::max());
  EXPECT_EQ(std::get<Adesk::Int64>(next(170)), 4);
  for (const double number : numbers) EXPECT_EQ(std::get<double>(next(40)), number);
  EXPECT_EQ(std::get<Adesk::Int64>(next(90)), 6);
  for (const profile::Node& node : nodes) {
    EXPECT_TRUE(std::get<AcGePoint3d>(next(210)).isEqualTo(AcGePoint3d(node.x, node.y, 0)));
    EXPECT_NEAR(std::get<double>(next(40)), node.bulge, 1e-9);
  }
}

TEST(KrISoldado, DxfOfVersionOneIsReadAndWrittenAsFour) {
  AcDbMemoryDxfFiler filer;
  KrISoldado().KrObject::dxfOutFields(&filer);
  const std::size_t base = filer.groups().size();
  filer.writeItem(100, L"KrISoldado");
  filer.writeItem(40, std::numeric_limits<double>::max());
  filer.writeItem(170, Adesk::Int16(1));
  for (const double number : {11.0, 6.0, 300.0, 150.0, 200.0, 40.0, 10.0, 12.5}) filer.writeItem(40, number);
  filer.writeItem(90, Adesk::Int32(1));
  filer.writeItem(210, AcGePoint3d(3, 4, 0));
  filer.writeItem(40, 6007.0);
  filer.rewindFiler();
  KrISoldado read;
  ASSERT_EQ(read.dxfInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEOF());
  profile::expectParameters<KrISoldado>(
      read, {PARAMETER(KrISoldado, tf, 11), PARAMETER(KrISoldado, tw, 6), PARAMETER(KrISoldado, altura, 300),
             PARAMETER(KrISoldado, mesa1, 150), PARAMETER(KrISoldado, mesa2, 200), PARAMETER(KrISoldado, KgMetro, 40),
             PARAMETER(KrISoldado, tf1, 10), PARAMETER(KrISoldado, tf2, 12.5)});
  AcDbMemoryDxfFiler again;
  ASSERT_EQ(read.dxfOutFields(&again), Acad::eOk);
  ASSERT_EQ(again.groups().size(), filer.groups().size());
  EXPECT_EQ(std::get<Adesk::Int64>(again.groups()[base + 2].value), 4);
  for (std::size_t i = base + 3; i < again.groups().size(); ++i) {
    EXPECT_EQ(again.groups()[i].code, filer.groups()[i].code);
    if (again.groups()[i].code != 40) continue;
    EXPECT_EQ(std::get<double>(again.groups()[i].value), std::get<double>(filer.groups()[i].value));
  }
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
