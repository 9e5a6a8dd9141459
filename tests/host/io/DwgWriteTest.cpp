#include <cmath>
#include <cstring>
#include <limits>

#include "DwgTools.h"
#include "PlotTools.h"
#include "host/io/dwg/Container.h"
#include "host/io/dwg/Frame.h"
#include "host/io/dwg/PlainFields.h"

// Drawings that we write.

namespace {

using namespace dwgtools;
using krio::dwg::BitReader;
using krio::dwg::ByteSpan;

ByteSpan asBytes(const Bytes& bytes) {
  return {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()};
}

/// Puts an entity into model space.
AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity) {
  AcDbBlockTableRecord* space = nullptr;
  EXPECT_EQ(acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
  AcDbObjectId id;
  EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
  space->close();
  entity->close();
  return id;
}

AcDbObjectId addLayer(AcDbDatabase& database, const ACHAR* name, int color) {
  AcDbLayerTable* layers = nullptr;
  EXPECT_EQ(database.getLayerTable(layers, AcDb::kForWrite), Acad::eOk);
  auto* const layer = new AcDbLayerTableRecord;
  layer->setName(name);
  AcCmColor c;
  c.setColorIndex(color);
  layer->setColor(c);
  layer->setLinetypeObjectId(database.continuousLinetype());
  AcDbObjectId id;
  EXPECT_EQ(layers->add(id, layer), Acad::eOk);
  layers->close();
  layer->close();
  return id;
}

std::unique_ptr<AcDbDatabase> plainDrawing() {
  auto database = std::make_unique<AcDbDatabase>();
  addLayer(*database, L"Achse", 1);
  auto* const line = new AcDbLine({10, 20, 0}, {110, 70, 0});
  append(*database, line);
  append(*database, new AcDbCircle({50, 50, 0}, AcGeVector3d::kZAxis, 25));
  append(*database, new AcDbArc({0, 0, 0}, 40, 0.25, 2.5));
  auto* const outline = new AcDbPolyline(4);
  const AcGePoint2d corners[] = {{0, 0}, {200, 0}, {200, 100}, {0, 100}};
  for (unsigned i = 0; i < 4; ++i) outline->addVertexAt(i, corners[i], i == 1 ? 0.5 : 0.0);
  outline->setClosed(true);
  append(*database, outline);
  append(*database, new AcDbText({5, 5, 0}, L"Träger №1", AcDbObjectId::kNull, 3.5, 0.0));
  return database;
}

// --- The whole file

TEST(DwgWriter, WritesADrawingThatOpensWithEverythingInPlace) {
  const auto database = plainDrawing();
  const Bytes bytes = saved(*database);
  ASSERT_TRUE(krio::isDwg(bytes));
  const Opened opened(bytes);
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  EXPECT_TRUE(opened.report.clean()) << textOf(opened.report);
  expectSame(*database, *opened.database);
}

TEST(DwgWriter, GivesTheSameBytesAgainAfterOpening) {
  const auto database = plainDrawing();
  const Bytes bytes = saved(*database);
  const Opened opened(bytes);
  EXPECT_TRUE(saved(*opened.database) == bytes);
  EXPECT_TRUE(saved(*database) == bytes) << "a save changes nothing that a save writes";
}

TEST(DwgWriter, LeavesErasedEntitiesOut) {
  const auto database = plainDrawing();
  const AcDbObjectId id = append(*database, new AcDbLine({0, 0, 0}, {1, 1, 1}));
  AcDbEntity* entity = nullptr;
  ASSERT_EQ(acdbOpenObject(entity, id, AcDb::kForWrite), Acad::eOk);
  entity->erase();
  entity->close();
  const Opened opened(saved(*database));
  ASSERT_EQ(opened.status, Acad::eOk);
  EXPECT_EQ(opened.database->handleTable().find(id.handle().value()), nullptr);
  EXPECT_EQ(census(*opened.database)["AcDbLine"], 1);
}

TEST(DwgWriter, KeepsTheOrderOfEntitiesThatIsntThatOfTheirHandles) {
  const auto database = plainDrawing();
  auto& space = static_cast<AcDbBlockTableRecord&>(*database->modelSpaceId().stub()->object);
  std::vector<AcDbStub*> turned(space.entities().rbegin(), space.entities().rend());
  space.setEntitiesAsRead(turned);
  const Opened opened(saved(*database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  const auto& again = static_cast<AcDbBlockTableRecord&>(*opened.database->modelSpaceId().stub()->object);
  ASSERT_EQ(again.entities().size(), turned.size());
  for (std::size_t i = 0; i < turned.size(); ++i) EXPECT_EQ(again.entities()[i]->handle, turned[i]->handle);
}

TEST(DwgWriter, PutsHandseedAboveAllHandlesInAllThreePlaces) {
  const auto database = plainDrawing();
  const Bytes bytes = saved(*database);
  krio::Report report;
  krio::dwg::FaultPolicy policy(report, false);
  krio::dwg::Container container(asBytes(bytes), policy);
  ASSERT_TRUE(container.read());
  const std::uint64_t seed = database->handseed().value();
  EXPECT_GT(seed, container.map().back().handle);
  std::uint32_t auxiliary = 0;
  std::memcpy(&auxiliary, bytes.data() + container.header().sections[krio::dwg::kAuxiliarySection].address + 79, 4);
  EXPECT_EQ(auxiliary, seed);
  EXPECT_EQ(container.header().sections[krio::dwg::kAuxiliarySection].address, 0x61U);
  EXPECT_EQ(container.header().sections[krio::dwg::kAuxiliarySection].size, 123U);
  EXPECT_EQ(container.header().previewAddress, 0xDCU);
  EXPECT_EQ(container.header().sections[krio::dwg::kFreeSpaceSection].size, 53U);
}

TEST(DwgWriter, KeepsPagesOfTheObjectMapWithinTheirLimit) {
  AcDbDatabase database;
  for (int i = 0; i < 3000; ++i) append(database, new AcDbPoint({double(i), 0, 0}));
  const Bytes bytes = saved(database);
  krio::Report report;
  krio::dwg::FaultPolicy policy(report, false);
  krio::dwg::Container container(asBytes(bytes), policy);
  ASSERT_TRUE(container.read());
  const krio::dwg::Section map = container.header().sections[krio::dwg::kObjectMapSection];
  std::size_t pages = 0;
  for (std::size_t at = map.address; at < map.address + map.size; ++pages) {
    const std::size_t size = std::to_integer<std::size_t>(bytes[at]) << 8 | std::to_integer<std::size_t>(bytes[at + 1]);
    EXPECT_LE(size, 2032U);
    at += size + 2;
  }
  EXPECT_GT(pages, 3U);
  const Opened opened(bytes);
  EXPECT_EQ(opened.status, Acad::eOk);
  EXPECT_EQ(census(*opened.database)["AcDbPoint"], 3000);
}

TEST(DwgWriter, WritesObjectsAbove32Kilobytes) {
  AcDbDatabase database;
  auto* const polyline = new AcDbPolyline(3000);
  for (unsigned i = 0; i < 3000; ++i) polyline->addVertexAt(i, {std::sqrt(double(i)), std::sin(double(i))});
  append(database, polyline);
  append(database, new AcDbPoint({1, 2, 3}));
  const Opened opened(saved(database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  expectSame(database, *opened.database);
}

TEST(DwgWriter, TellsTheTimesOfANewDrawingAndKeepsThoseOfAnother) {
  const char* const given = std::getenv("SOURCE_DATE_EPOCH");
  const std::string before = given != nullptr ? given : "";
  setenv("SOURCE_DATE_EPOCH", "951782400", 1);  // 2000-02-29, 60 days behind 2451545 less one
  const auto database = plainDrawing();
  const Opened opened(saved(*database));
  EXPECT_EQ(opened.database->header().time(AcDbHeader::kTDCREATE), (AcDbHeader::Time{2451604, 0}));
  setenv("SOURCE_DATE_EPOCH", "0", 1);
  EXPECT_EQ(Opened(saved(*opened.database)).database->header().time(AcDbHeader::kTDUPDATE),
            (AcDbHeader::Time{2451604, 0}));
  given != nullptr ? setenv("SOURCE_DATE_EPOCH", before.c_str(), 1) : unsetenv("SOURCE_DATE_EPOCH");
}

// --- The objects that the format's description gives byte by byte

std::string hex(const std::vector<std::uint8_t>& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xf];
    text += ' ';
  }
  return text;
}

TEST(DwgFrame, ReadsAPointByteByByte) {
  const std::vector<std::uint8_t> object = {
      0x21, 0x00, 0x46, 0xF7, 0x80, 0x00, 0x00, 0x00, 0x4A, 0xE5, 0x34, 0x21, 0xD4, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
      0x00, 0x40, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x02, 0x10, 0x38, 0xC1, 0x01, 0x81, 0x44, 0x42, 0xA0, 0x34};
  const auto frame = krio::dwg::readFrame(object, {0, std::uint32_t(object.size() - 2)});
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->type, krio::dwg::kPoint);
  EXPECT_EQ(frame->handle, 0x2BU);
  EXPECT_EQ(frame->handles.position(), 16U + 222U);
  AcDbDatabase database(false);
  krio::dwg::ReadContext context(database, krio::dwg::codePageOf(30), object.size());
  krio::dwg::Decoder decoder(context, frame->data, frame->handles, frame->handle);
  krio::dwg::EntityHead head;
  krio::dwg::readHead(decoder, head);
  EXPECT_EQ(head.mode, unsigned(krio::dwg::EntityHead::kInModelSpace));
  EXPECT_EQ(head.previous, 0U);
  EXPECT_EQ(head.layer, 0x10U);
  EXPECT_TRUE(head.color.isByLayer());
  AcGePoint3d p;
  decoder.bd3(p);
  EXPECT_EQ(p, AcGePoint3d(1, 2, 3));
  EXPECT_EQ(hex({object.begin(), object.begin() + 2}), "21 00 ");
}

// --- Other programs

bool hasOgrinfo() {
  return std::system("ogrinfo --version > /dev/null 2>&1") == 0;
}

TEST(DwgWriter, WritesWhatAnIndependentReaderFindsInPlace) {
  if (!hasOgrinfo()) GTEST_SKIP() << "ogrinfo isn't here";
  const plottools::Folder folder;
  const Bytes bytes = saved(*plainDrawing());
  const std::string path =
      folder.write("plain.dwg", std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  const std::string told = plottools::run("ogrinfo -al -q " + path + " 2>&1");
  EXPECT_NE(told.find("LINESTRING Z (10 20 0,110 70 0)"), std::string::npos) << told;
  EXPECT_NE(told.find("Träger"), std::string::npos) << told;
  EXPECT_EQ(told.find("ERROR"), std::string::npos) << told;
}

// --- Custom classes

/// A custom entity with a field of every kind that filers know.
class Bolt : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(Bolt);
  Bolt() = default;
  Adesk::Int16 version = 1;
  AcGePoint3d place{1, 2, 3};
  AcGeVector3d axis{0, 0, 1};
  AcGePoint2d offset{0.5, -0.25};
  double length = 45;
  std::wstring grade = L"8.8 ж";
  bool tight = true;
  Adesk::Int64 serial = 0x123456789ABCDEF;
  AcDbHardPointerId layer;
  AcDbSoftPointerId partner;
  AcDbHandle note{0x77};

  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
    if (const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer); es != Acad::eOk) return es;
    filer->writeInt16(version);
    filer->writePoint3d(place), filer->writeVector3d(axis), filer->writePoint2d(offset);
    filer->writeHardPointerId(layer);
    filer->writeDouble(length), filer->writeString(grade.c_str()), filer->writeBool(tight);
    filer->writeSoftPointerId(partner);
    filer->writeInt64(serial);
    return filer->writeAcDbHandle(note);
  }
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
    if (const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer); es != Acad::eOk) return es;
    filer->readInt16(&version);
    if (version > 1) return Acad::eMakeMeProxy;
    filer->readPoint3d(&place), filer->readVector3d(&axis), filer->readPoint2d(&offset);
    filer->readHardPointerId(&layer);
    ACHAR* text = nullptr;
    filer->readDouble(&length), filer->readString(&text), filer->readBool(&tight);
    grade = text != nullptr ? text : L"";
    acutDelString(text);
    filer->readSoftPointerId(&partner);
    filer->readInt64(&serial);
    return filer->readAcDbHandle(&note);
  }
};
ACRX_DXF_DEFINE_MEMBERS(Bolt, AcDbEntity, 0, 0, 7, BOLT, "Bolts")

class DwgCustomClass : public testing::Test {
 protected:
  void SetUp() override { Bolt::rxInit(), acrxBuildClassHierarchy(); }
  void TearDown() override {
    if (registered_) deleteAcRxClass(Bolt::desc());
  }
  void unload() {
    deleteAcRxClass(Bolt::desc());
    registered_ = false;
  }
  Bytes drawing(Adesk::Int16 version = 1) {
    const auto database = plainDrawing();
    auto* const bolt = new Bolt;
    bolt->version = version;
    bolt->layer = addLayer(*database, L"Parafuso", 3);
    append(*database, bolt);
    handle_ = bolt->objectId().handle().value();
    bolt_ = bolt->objectId();
    return saved(*database);
  }
  AcDbObject* found(const Opened& opened) const { return opened.database->handleTable().find(handle_)->object; }
  bool registered_ = true;
  std::uint64_t handle_ = 0;
  AcDbObjectId bolt_;
};

TEST_F(DwgCustomClass, GoesThroughItsOwnFields) {
  const Opened opened(drawing());
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  const auto* const bolt = Bolt::cast(found(opened));
  ASSERT_NE(bolt, nullptr);
  const Bolt fresh;
  EXPECT_EQ(bolt->place, fresh.place);
  EXPECT_EQ(bolt->offset, fresh.offset);
  EXPECT_EQ(bolt->length, fresh.length);
  EXPECT_EQ(bolt->grade, fresh.grade);
  EXPECT_EQ(bolt->serial, fresh.serial);
  EXPECT_EQ(bolt->note.value(), 0x77U);
  EXPECT_TRUE(bolt->partner.isNull());
  const auto* const layer = AcDbLayerTableRecord::cast(bolt->layer.stub()->object);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->nameText(), L"Parafuso");
  const auto& space = static_cast<AcDbBlockTableRecord&>(*opened.database->modelSpaceId().stub()->object);
  EXPECT_EQ(space.entities().back()->handle, handle_);
}

TEST_F(DwgCustomClass, TellsItsNamesInTheListOfClasses) {
  const Opened opened(drawing());
  const auto& records = opened.database->classRecords();
  const auto record =
      std::find_if(records.begin(), records.end(), [](const auto& each) { return each.dxfName == L"BOLT"; });
  ASSERT_NE(record, records.end());
  EXPECT_EQ(record->cppName, L"Bolt");
  EXPECT_EQ(record->proxyFlags, 7);
  EXPECT_FALSE(record->wasProxy);
  EXPECT_EQ(record->itemClassId, AcDbClassRecord::kEntityClass);
}

TEST_F(DwgCustomClass, IsKeptBitForBitWhereItsClassIsnt) {
  const Bytes original = drawing();
  unload();
  const Opened without(original);
  ASSERT_EQ(without.status, Acad::eOk) << textOf(without.report);
  const auto* const proxy = AcDbProxyEntity::cast(found(without));
  ASSERT_NE(proxy, nullptr);
  EXPECT_EQ(proxy->data().classRecord.dxfName, L"BOLT");
  EXPECT_EQ(proxy->data().references.size(), 2U);
  const Bytes kept = saved(*without.database);
  Bolt::rxInit(), acrxBuildClassHierarchy();
  registered_ = true;
  const Opened with(kept);
  ASSERT_EQ(with.status, Acad::eOk);
  ASSERT_NE(Bolt::cast(found(with)), nullptr);
  EXPECT_TRUE(saved(*with.database) == original);
}

TEST_F(DwgCustomClass, BecomesAProxyWhenItRefusesAnotherVersion) {
  const Bytes original = drawing(2);
  const Opened opened(original);
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  EXPECT_NE(AcDbProxyEntity::cast(found(opened)), nullptr);
  EXPECT_TRUE(saved(*opened.database) == original);
}

TEST_F(DwgCustomClass, BecomesAProxyWhenANumberIsNotFinite) {
  const auto database = plainDrawing();
  auto* const bolt = new Bolt;
  bolt->length = std::numeric_limits<double>::quiet_NaN();
  append(*database, bolt);
  handle_ = bolt->objectId().handle().value();
  const Opened opened(saved(*database));
  ASSERT_EQ(opened.status, Acad::eOk);
  EXPECT_NE(AcDbProxyEntity::cast(found(opened)), nullptr);
}

// --- What hangs on objects

TEST(DwgWriter, KeepsExtendedDataAndExtensionDictionaries) {
  const auto database = plainDrawing();
  acdbRegApp(L"KR_TEST", database.get());
  auto* const line = new AcDbLine({0, 0, 0}, {1, 0, 0});
  const AcDbObjectId id = append(*database, line);
  ASSERT_EQ(acdbOpenObject(*const_cast<AcDbLine**>(&line), id, AcDb::kForWrite), Acad::eOk);
  const ads_point p = {1, 2, 3};
  resbuf* const chain = acutBuildList(1001, L"KR_TEST", 1000, L"äöü", 1002, L"{", 1010, p, 1040, 2.5, 1070, 7, 1071,
                                      70000, 1002, L"}", 1003, L"0", 1005, L"1F", 0);
  ASSERT_EQ(line->setXData(chain), Acad::eOk);
  acutRelRb(chain);
  ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
  line->close();
  const Opened opened(saved(*database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  expectSame(*database, *opened.database);
  const resbuf* link = opened.database->handleTable().find(id.handle().value())->object->xDataChain();
  ASSERT_NE(link, nullptr);
  EXPECT_STREQ(link->resval.rstring, L"KR_TEST");
  EXPECT_STREQ(link->rbnext->resval.rstring, L"äöü");
}

TEST(DwgWriter, KeepsRecordsOfValues) {
  const auto database = plainDrawing();
  AcDbDictionary* named = nullptr;
  ASSERT_EQ(database->getNamedObjectsDictionary(named, AcDb::kForWrite), Acad::eOk);
  auto* const record = new AcDbXrecord;
  const ads_point p = {1, 2, 3};
  resbuf* const chain = acutBuildList(1, L"Ω text", 10, p, 40, 0.125, 70, -3, 90, 123456, 280, 1, 290, 1, 102, L"{", 0);
  ASSERT_EQ(record->setFromRbChain(*chain), Acad::eOk);
  acutRelRb(chain);
  AcDbObjectId id;
  ASSERT_EQ(named->setAt(L"KR_RECORD", record, id), Acad::eOk);
  record->close();
  named->close();
  const Opened opened(saved(*database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  expectSame(*database, *opened.database);
}

}  // namespace
