// Filing, copying, setting and registration of the classes made from a middle line.

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "FoldedSamples.h"
#include "object/DxfRecords.h"
#include "object/MemberLayout.h"
#include "records/Filing.h"

namespace {

using folded::kOrigin;

/// What the tests know of a class: a bar, its parameters in the order of the file, and how it registers.
struct Filed {
  const wchar_t* name;
  const wchar_t* dxfName;
  std::function<std::unique_ptr<KrObject>()> make;
  std::function<std::unique_ptr<KrObject>()> empty;
  std::function<std::unique_ptr<KrObject>(const KrObject&, int)> copy;
  std::function<std::unique_ptr<KrObject>(const KrObject&, int)> copyPointer;
  std::function<AcRxClass*()> desc;
  std::vector<double> parameters;
  bool dxf = true;
};

std::ostream& operator<<(std::ostream& out, const Filed& filed) {
  return out << std::string(filed.name, filed.name + std::wcslen(filed.name));
}

template <class M, class... Args>
Filed filed(const wchar_t* name, const wchar_t* dxfName, std::vector<double> parameters, Args... args) {
  return {name,
          dxfName,
          [=]() -> std::unique_ptr<KrObject> { return std::make_unique<M>(kOrigin, Superior, args...); },
          []() -> std::unique_ptr<KrObject> { return std::make_unique<M>(); },
          [](const KrObject& source, int all) -> std::unique_ptr<KrObject> {
            return std::make_unique<M>(static_cast<const M&>(source), all);
          },
          [](const KrObject& source, int all) -> std::unique_ptr<KrObject> {
            return std::make_unique<M>(static_cast<const M*>(&source), all);
          },
          []() -> AcRxClass* {
            profile::registerClass<M>();
            return M::desc();
          },
          std::move(parameters)};
}

std::vector<Filed> all() {
  // The one-point constructors' order, with 900 long, turned by 0.25, along 1.25.
  std::vector<Filed> classes{
      filed<KrCaixaDobrado>(L"KrCaixaDobrado", L"KRCAIXADOBRADO", {3, 100, 60, 4, 15, 7}, 100, 60, 3, 4, 7, 900, 0.25,
                            1.25, 15),
      filed<KrCantoneiraDobrada>(L"KrCantoneiraDobrada", L"KRCANTONEIRADOBRADA", {3, 60, 50, 4, 1.5, 15}, 60, 50, 3, 4,
                                 1.5, 900, 0.25, 1.25, 15),
      filed<KrCantTDobrada>(L"KrCantTDobrada", L"KRCANTONEIRA_T_DOBRADA", {3, 60, 50, 4, 7, 15}, 60, 50, 3, 4, 7, 900,
                            0.25, 1.25, 15),
      filed<KrCantUDobrada>(L"KrCantUDobrada", L"KRCANTONEIRA_U_DOBRADA", {3, 60, 50, 4, 7, 15}, 60, 50, 3, 4, 7, 900,
                            0.25, 1.25, 15),
      filed<KrCartola>(L"KrCartola", L"KRCARTOLA", {3, 60, 80, 4, 25}, 60, 80, 3, 4, 25, 900, 0.25, 1.25),
      filed<KrIDobrado>(L"KrIDobrado", L"KRIDOBRADO", {3, 100, 60, 50, 4, 15, 7}, 100, 60, 50, 3, 4, 7, 900, 0.25, 1.25,
                        15),
      filed<KrUDobrado>(L"KrUDobrado", L"KRUDOBRADO", {3, 100, 60, 50, 4, 1.5, 1.6, 15}, 100, 60, 50, 3, 4, 1.5, 1.6,
                        900, 0.25, 1.25, 15),
      filed<KrXDobrado>(L"KrXDobrado", L"KRXDOBRADO", {3, 60, 50, 4, 1.5, 15, 7}, 60, 50, 3, 4, 1.5, 7, 900, 0.25, 1.25,
                        15),
      filed<KrZDobrado>(L"KrZDobrado", L"KRZDOBRADO", {3, 100, 60, 50, 4, 1.5, 1.6, 15, 0.1}, 100, 60, 50, 3, 4, 1.5,
                        1.6, 900, 0.25, 1.25, 15, 0.1),
      filed<KrBox>(L"KrBox", L"KRBOX", {5, 100, 60, 3}, 100, 60, 5, 3, 900, 0.25, 1.25),
  };
  classes.back().dxf = false;
  return classes;
}

std::vector<Filed> withDxf() {
  std::vector<Filed> classes = all();
  std::erase_if(classes, [](const Filed& each) { return !each.dxf; });
  return classes;
}

class FoldedFiling : public testing::TestWithParam<Filed> {};

/// What stands in a file ahead of the middle line of a member that holds no outline.
void writeAheadOfLine(AcDbMemoryDwgFiler& filer, const Filed& type) {
  MemberLayout layout;
  layout.version = 2;
  layout.write(filer);
  filer.writeInt16(1);
  for (const double parameter : type.parameters) filer.writeDouble(parameter);
}

class FoldedDxf : public testing::TestWithParam<Filed> {};

std::string nameOf(const testing::TestParamInfo<Filed>& info) {
  return std::string(info.param.name, info.param.name + std::wcslen(info.param.name));
}

std::vector<std::string> itemsOf(const KrObject& bar) {
  filing::NotingDwgFiler filer;
  EXPECT_EQ(bar.dwgOutFields(&filer), Acad::eOk);
  return filer.items;
}

/// Behind the base's.
std::vector<std::string> ownItemsOf(const KrObject& bar) {
  filing::NotingDwgFiler base;
  bar.KrObject::dwgOutFields(&base);
  std::vector<std::string> items = itemsOf(bar);
  items.erase(items.begin(), items.begin() + static_cast<std::ptrdiff_t>(base.items.size()));
  return items;
}

}  // namespace

TEST_P(FoldedFiling, RegistersUnderItsName) {
  profile::expectRegistered(GetParam().desc(), GetParam().name, GetParam().dxfName);
  const std::unique_ptr<AcRxObject> made(GetParam().desc()->create());
  EXPECT_TRUE(made->isKindOf(GetParam().desc()));
}

TEST_P(FoldedFiling, DwgHasTheVersionTheParametersAndEveryNodeOfTheLine) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  Adesk::Int16 versao = 0;
  filer.readInt16(&versao);
  EXPECT_EQ(versao, 1);
  for (const double expected : GetParam().parameters) {
    double parameter = -1.0;
    filer.readDouble(&parameter);
    EXPECT_EQ(parameter, expected);
  }
  Adesk::Int32 qtd = 0;
  filer.readInt32(&qtd);
  ASSERT_GT(qtd, 3);
  double bulge = 0.0;
  for (Adesk::Int32 i = 0; i <= qtd; ++i) {
    AcGeVector3d vertex;
    filer.readVector3d(&vertex);
    filer.readDouble(&bulge);
  }
  // The last node, which isn't counted, is the origin's.
  EXPECT_EQ(bulge, 5000.0);
  EXPECT_TRUE(filer.atEnd());
}

TEST_P(FoldedFiling, DwgReadsBackTheSameBar) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().empty();
  ASSERT_EQ(read->dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(itemsOf(*read), itemsOf(*bar));
  EXPECT_NEAR(read->getArea(), bar->getArea(), 1e-9);
  EXPECT_EQ(profile::outlineOf(*read).size(), profile::outlineOf(*bar).size());
}

// Also over a bar that has other nodes.
TEST_P(FoldedFiling, DwgReadReplacesTheLine) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->dwgOutFields(&filer);
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().make();
  ASSERT_EQ(read->dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(itemsOf(*read), itemsOf(*bar));
}

TEST_P(FoldedFiling, EmptyBarReadsBack) {
  const std::unique_ptr<KrObject> bar = GetParam().empty();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().make();
  EXPECT_EQ(read->dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(read->getArea(), 0.0);
}

TEST_P(FoldedFiling, DwgClassVersionAboveOneIsLeftToAProxy) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&filer);
  filer.writeInt16(2);
  filer.seek(0);
  EXPECT_EQ(static_cast<int>(GetParam().empty()->dwgInFields(&filer)), 0x12D);
}

// Version 0 tells the same fields.
TEST_P(FoldedFiling, DwgClassVersionZeroIsReadAndWrittenAsOne) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&filer);
  filer.writeInt16(0);
  for (const double parameter : GetParam().parameters) filer.writeDouble(parameter);
  folded::writeLine(filer, folded::filedLine(*bar, static_cast<int>(GetParam().parameters.size())));
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().empty();
  ASSERT_EQ(read->dwgInFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(ownItemsOf(*read).at(0), "Int16 1");
  EXPECT_EQ(itemsOf(*read), itemsOf(*bar));
}

// Of a line that is known in part no outline is made.
TEST_P(FoldedFiling, FileThatBreaksOffWithinTheLineGetsNoOutlineFromIt) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  MemberLayout layout;
  layout.version = 2;
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeInt16(1);
  for (const double parameter : GetParam().parameters) filer.writeDouble(parameter);
  const std::vector<profile::Node> line = folded::filedLine(*bar, static_cast<int>(GetParam().parameters.size()));
  filer.writeInt32(static_cast<Adesk::Int32>(line.size()));  // one more than there are
  for (const profile::Node& node : line) {
    filer.writeVector3d(AcGeVector3d(node.x, node.y, 0.0));
    filer.writeDouble(node.bulge);
  }
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().empty();
  EXPECT_EQ(read->dwgInFieldsData(&filer), Acad::eEndOfObject);
  EXPECT_TRUE(profile::outlineOf(*read).empty());
}

TEST_P(FoldedFiling, FileThatBreaksOffAheadOfTheLineLeavesThatOfTheBar) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&filer);
  filer.writeInt16(1);
  filer.writeDouble(GetParam().parameters[0]);
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().make();
  EXPECT_EQ(read->dwgInFields(&filer), Acad::eEndOfObject);
  EXPECT_EQ(ownItemsOf(*read), ownItemsOf(*bar));
}

TEST_P(FoldedFiling, FileThatBreaksOffWithinTheLineIsReported) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&filer);
  filer.writeInt16(1);
  for (const double parameter : GetParam().parameters) filer.writeDouble(parameter);
  filer.writeInt32(std::numeric_limits<Adesk::Int32>::max());
  filer.writeVector3d(AcGeVector3d(1, 2, 3));
  filer.seek(0);
  EXPECT_NE(GetParam().empty()->dwgInFields(&filer), Acad::eOk);
}

// Files of the first two versions hold no outline, and one of any version may hold an empty one.
TEST_P(FoldedFiling, DwgWithoutAnOutlineGetsItBackFromTheLine) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  for (const int version : {1, 2, 9}) {
    MemberLayout layout;
    layout.version = version;
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    layout.write(filer);
    filer.writeInt16(1);
    for (const double parameter : GetParam().parameters) filer.writeDouble(parameter);
    folded::writeLine(filer, folded::filedLine(*bar, static_cast<int>(GetParam().parameters.size())));
    filer.seek(0);
    const std::unique_ptr<KrObject> read = GetParam().empty();
    ASSERT_EQ(read->dwgInFieldsData(&filer), Acad::eOk);
    EXPECT_TRUE(filer.atEnd());
    profile::expectOutline(*read, profile::outlineOf(*bar));
    read->Gera_KrVector(Direita);
    EXPECT_GT(read->GetNumVertex(Direita), 0);
  }
}

TEST_P(FoldedFiling, DwgWithAnOutlineKeepsIt) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  const MemberLayout layout = MemberLayout::plate();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  layout.write(filer);
  filer.writeInt16(1);
  for (const double parameter : GetParam().parameters) filer.writeDouble(parameter);
  folded::writeLine(filer, folded::filedLine(*bar, static_cast<int>(GetParam().parameters.size())));
  filer.seek(0);
  const std::unique_ptr<KrObject> read = GetParam().empty();
  ASSERT_EQ(read->dwgInFieldsData(&filer), Acad::eOk);
  EXPECT_EQ(profile::outlineOf(*read).size(), layout.outline.size());
}

TEST_P(FoldedFiling, DwgOfALineLongerThanItCanCountIsRefused) {
  for (const Adesk::Int32 count : {65535, 65536}) {
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    writeAheadOfLine(filer, GetParam());
    filer.writeInt32(count);
    for (Adesk::Int32 i = 0; i <= count; ++i) {
      filer.writeVector3d(AcGeVector3d(i, i % 2, 0));
      filer.writeDouble(i < count ? 0 : KrGeratriz::kReferenceBulge);
    }
    filer.seek(0);
    const std::unique_ptr<KrObject> read = GetParam().empty();
    EXPECT_EQ(read->dwgInFieldsData(&filer), count > 65535 ? Acad::eInvalidInput : Acad::eOk);
    // Its outline would have twice as many.
    EXPECT_TRUE(profile::outlineOf(*read).empty());
  }
}

TEST_P(FoldedFiling, DwgOfALineOfSeveralOriginsKeepsThem) {
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  writeAheadOfLine(filer, GetParam());
  constexpr double kOriginBulge = KrGeratriz::kReferenceBulge;
  filer.writeInt32(3);
  for (const double bulge : {0.0, kOriginBulge, 0.0, kOriginBulge}) {
    filer.writeVector3d(AcGeVector3d(100, bulge, 0));
    filer.writeDouble(bulge);
  }
  filer.seek(0);
  const std::unique_ptr<KrObject> once = GetParam().empty();
  ASSERT_EQ(once->dwgInFieldsData(&filer), Acad::eOk);
  AcDbMemoryDwgFiler saved(AcDb::kFileFiler);
  ASSERT_EQ(once->dwgOutFieldsData(&saved), Acad::eOk);
  saved.seek(0);
  const std::unique_ptr<KrObject> twice = GetParam().empty();
  ASSERT_EQ(twice->dwgInFieldsData(&saved), Acad::eOk);
  EXPECT_EQ(folded::filedLine(*twice, static_cast<int>(GetParam().parameters.size())).size(), 4U);
  EXPECT_EQ(ownItemsOf(*twice), ownItemsOf(*once));
}

TEST_P(FoldedFiling, CopyOfEverythingFilesTheSame) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  EXPECT_EQ(itemsOf(*GetParam().copy(*bar, 1)), itemsOf(*bar));
  EXPECT_EQ(itemsOf(*GetParam().copyPointer(*bar, 1)), itemsOf(*bar));
}

// The bar's ends may move by a rounding.
TEST_P(FoldedFiling, CopyThatRegeneratesHasTheSameFieldsAndOutline) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  for (const auto& copy : {GetParam().copy(*bar, 0), GetParam().copyPointer(*bar, 0)}) {
    EXPECT_EQ(ownItemsOf(*copy), ownItemsOf(*bar));
    profile::expectOutline(*copy, profile::outlineOf(*bar));
    EXPECT_EQ(copy->GetNumVertex(Superior), bar->GetNumVertex(Superior));
    EXPECT_TRUE(copy->endPoint().isEqualTo(bar->endPoint()));
  }
}

TEST_P(FoldedFiling, CopyTakesTheListsOfAllViewsOnlyWhenAskedTo) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  bar->Gera_KrVector(Direita);
  ASSERT_GT(bar->GetNumVertex(Direita), 0);
  EXPECT_EQ(GetParam().copy(*bar, 1)->GetNumVertex(Direita), bar->GetNumVertex(Direita));
  EXPECT_EQ(GetParam().copy(*bar, 0)->GetNumVertex(Direita), 0);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, FoldedFiling, testing::ValuesIn(all()), nameOf);

TEST_P(FoldedDxf, GroupsAreTheMarkerTheVersionTheParametersAndTheCountedNodes) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  const std::vector<profile::Node> line = folded::filedLine(*bar, static_cast<int>(GetParam().parameters.size()));
  AcDbMemoryDxfFiler base;
  bar->KrObject::dxfOutFields(&base);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(bar->dxfOutFields(&filer), Acad::eOk);
  std::size_t at = base.groups().size();
  const std::vector<AcDbMemoryDxfFiler::Group>& groups = filer.groups();
  // The origin's node, the last of the line, isn't filed.
  ASSERT_EQ(groups.size(), at + 4 + GetParam().parameters.size() + 2 * (line.size() - 1));
  EXPECT_EQ(groups[at].code, 100);
  EXPECT_EQ(std::get<std::wstring>(groups[at++].value), GetParam().name);
  EXPECT_EQ(groups[at].code, 40);
  EXPECT_EQ(std::get<double>(groups[at++].value), std::numeric_limits<double>::max());
  EXPECT_EQ(groups[at].code, 170);
  EXPECT_EQ(std::get<Adesk::Int64>(groups[at++].value), 1);
  for (const double parameter : GetParam().parameters) {
    EXPECT_EQ(groups[at].code, 40);
    EXPECT_EQ(std::get<double>(groups[at++].value), parameter);
  }
  EXPECT_EQ(groups[at].code, 90);
  EXPECT_EQ(std::get<Adesk::Int64>(groups[at++].value), static_cast<Adesk::Int64>(line.size()) - 1);
  for (std::size_t i = 0; i + 1 < line.size(); ++i) {
    EXPECT_EQ(groups[at].code, 210);
    EXPECT_TRUE(std::get<AcGePoint3d>(groups[at++].value).isEqualTo(AcGePoint3d(line[i].x, line[i].y, 0)));
    EXPECT_EQ(groups[at].code, 40);
    EXPECT_EQ(std::get<double>(groups[at++].value), line[i].bulge);
  }
}

TEST_P(FoldedDxf, ReadsBackTheParametersAndTheLine) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDxfFiler written;
  bar->dxfOutFields(&written);
  AcDbMemoryDxfFiler filer(dxfrecords::withReadableElements(written.groups()));
  const std::unique_ptr<KrObject> read = GetParam().empty();
  ASSERT_EQ(read->dxfInFields(&filer), Acad::eOk);
  EXPECT_NEAR(read->getArea(), bar->getArea(), 1e-9);
  EXPECT_EQ(profile::dimensoesOf(*read), profile::dimensoesOf(*bar));
  const std::size_t own = GetParam().parameters.size();
  std::vector<double> reals;
  AcDbMemoryDxfFiler again;
  read->dxfOutFields(&again);
  const std::size_t first = again.groups().size() - (filer.groups().size() - [&] {
                              AcDbMemoryDxfFiler base;
                              bar->KrObject::dxfOutFields(&base);
                              return base.groups().size();
                            }());
  for (std::size_t i = 0; i < own; ++i) reals.push_back(std::get<double>(again.groups()[first + 3 + i].value));
  EXPECT_EQ(reals, GetParam().parameters);
}

// Its elements write a newer record than they read, and the class's own groups stand behind them.
TEST_P(FoldedDxf, ADrawnBarDoesNotReadBackAsItWrites) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDxfFiler filer;
  bar->dxfOutFields(&filer);
  const std::unique_ptr<KrObject> read = GetParam().empty();
  EXPECT_EQ(read->dxfInFields(&filer), Acad::eInvalidDxfCode);
  EXPECT_EQ(read->getArea(), 0.0);
}

TEST_P(FoldedDxf, GroupOfAWrongCodeOrVersionEndsTheReading) {
  for (const bool wrongCode : {true, false}) {
    AcDbMemoryDxfFiler filer;
    GetParam().empty()->KrObject::dxfOutFields(&filer);
    filer.writeItem(100, GetParam().name);
    filer.writeItem(40, std::numeric_limits<double>::max());
    filer.writeItem(170, Adesk::Int16(wrongCode ? 1 : 2));
    filer.writeItem(40, 100.0);
    filer.writeItem(41, 80.0);
    filer.rewindFiler();
    EXPECT_EQ(GetParam().empty()->dxfInFields(&filer), Acad::eInvalidDxfCode);
    EXPECT_STREQ(filer.errorMessage(), L"\nKR_Trama erro ao ler DXF.");
  }
}

namespace {

/// A record of a class: the base's groups of an empty bar, then its own up to the line.
void writeHead(AcDbMemoryDxfFiler& filer, const Filed& filed, Adesk::Int16 version) {
  filed.empty()->KrObject::dxfOutFields(&filer);
  filer.writeItem(100, filed.name);
  filer.writeItem(40, std::numeric_limits<double>::max());
  filer.writeItem(170, version);
}

}  // namespace

// What is refused isn't taken: neither the version nor a line that isn't whole.
TEST_P(FoldedDxf, ARefusedRecordLeavesTheBarsVersionAndLine) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  const std::vector<std::string> own = ownItemsOf(*bar);
  std::array<AcDbMemoryDxfFiler, 4> records;
  writeHead(records[0], GetParam(), 5);
  writeHead(records[1], GetParam(), 1);
  records[1].writeItem(41, 1.0);
  writeHead(records[2], GetParam(), 1);
  for (const double parameter : GetParam().parameters) records[2].writeItem(40, parameter);
  records[2].writeItem(90, Adesk::Int32(2));
  records[2].writeItem(210, AcGePoint3d(1, 2, 0));
  records[2].writeItem(40, 0.0);
  writeHead(records[3], GetParam(), 1);
  for (const double parameter : GetParam().parameters) records[3].writeItem(40, parameter);
  records[3].writeItem(90, Adesk::Int32(65536));
  for (int i = 0; i < 65536; ++i) {
    records[3].writeItem(210, AcGePoint3d(i, 0, 0));
    records[3].writeItem(40, 0.0);
  }
  for (AcDbMemoryDxfFiler& record : records) {
    record.rewindFiler();
    EXPECT_EQ(bar->dxfInFields(&record), Acad::eInvalidDxfCode);
    EXPECT_EQ(ownItemsOf(*bar), own);
  }
}

// The line read lacks its origin; the outline stands as it is then.
TEST_P(FoldedDxf, CopyOfABarReadFromDxfDrawsItsOutline) {
  const std::unique_ptr<KrObject> bar = GetParam().make();
  AcDbMemoryDxfFiler written;
  bar->dxfOutFields(&written);
  AcDbMemoryDxfFiler filer(dxfrecords::withReadableElements(written.groups()));
  const std::unique_ptr<KrObject> read = GetParam().make();
  ASSERT_EQ(read->dxfInFields(&filer), Acad::eOk);
  const std::unique_ptr<KrObject> copy = GetParam().copy(*read, 0);
  EXPECT_EQ(profile::outlineOf(*copy).size(), profile::outlineOf(*bar).size());
  EXPECT_EQ(copy->GetNumVertex(Superior), bar->GetNumVertex(Superior));
}

INSTANTIATE_TEST_SUITE_P(Catalogue, FoldedDxf, testing::ValuesIn(withDxf()), nameOf);

// It comes back without parameters and without an outline.
TEST(FoldedFilingOf, BoxHasNoDxfForm) {
  const KrBox box(kOrigin, Superior, 100, 60, 5, 3, 900, 0, 0);
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(box.dxfOutFields(&filer), Acad::eOk);
  EXPECT_TRUE(filer.groups().empty());
  KrBox read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  EXPECT_EQ(profile::valueOf(read, &KrBox::altura), 0.0);
  EXPECT_TRUE(profile::outlineOf(read).empty());
}
