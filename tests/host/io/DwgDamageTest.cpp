#include <chrono>
#include <cstring>
#include <random>

#include "DwgTools.h"
#include "host/io/dwg/BitWriter.h"
#include "host/io/dwg/Container.h"
#include "host/io/dwg/Crc.h"
#include "host/io/dxf/Dxf.h"

// Damaged files: each ends in a drawing, in a drawing with a report, or in an error that tells the place.

namespace {

using namespace dwgtools;
using krio::dwg::ByteSpan;

Bytes smallDrawing() {
  AcDbDatabase database;
  AcDbBlockTableRecord* space = nullptr;
  EXPECT_EQ(acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
  const auto add = [&](AcDbEntity* entity) {
    EXPECT_EQ(space->appendAcDbEntity(entity), Acad::eOk);
    entity->close();
  };
  add(new AcDbLine({0, 0, 0}, {100, 50, 0}));
  add(new AcDbCircle({10, 10, 0}, AcGeVector3d::kZAxis, 5));
  add(new AcDbText({1, 1, 0}, L"KR", AcDbObjectId::kNull, 2.5, 0));
  auto* const polyline = new AcDbPolyline(3);
  for (unsigned i = 0; i < 3; ++i) polyline->addVertexAt(i, {double(i), double(i * i)}, 0.5);
  add(polyline);
  space->close();
  return saved(database);
}

/// The outer form of a whole file.
struct OuterForm {
  explicit OuterForm(const Bytes& bytes)
      : policy(report, false), container({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, policy) {
    EXPECT_TRUE(container.read());
  }
  krio::Report report;
  krio::dwg::FaultPolicy policy;
  krio::dwg::Container container;
};

bool hasError(const krio::Report& report) {
  return std::any_of(report.findings.begin(), report.findings.end(),
                     [](const auto& finding) { return finding.severity == krio::Severity::Error; });
}

TEST(DwgDamage, AFileCutAnywhereIsRefusedWithAPlaceAndNeverCalledClean) {
  const Bytes whole = smallDrawing();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const Bytes part(whole.begin(), whole.begin() + std::ptrdiff_t(length));
    const Opened strict(part);
    ASSERT_NE(strict.status, Acad::eOk) << length;
    ASSERT_TRUE(hasError(strict.report)) << length;
    const Opened recovered(part, true);
    ASSERT_FALSE(recovered.report.clean()) << length << " bytes were called whole";
    ASSERT_TRUE(recovered.status == Acad::eOk || hasError(recovered.report)) << length;
  }
}

TEST(DwgDamage, EveryByteChangedIsNoticed) {
  const Bytes whole = smallDrawing();
  const auto before = [&] {
    const Opened opened(whole);
    return digest(*opened.database);
  }();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    Bytes changed = whole;
    changed[at] ^= std::byte(0x5A);
    const Opened strict(changed);
    // What no checksum covers and nothing rests on may change unnoticed, but not what the drawing holds.
    ASSERT_TRUE(strict.status != Acad::eOk || digest(*strict.database) == before) << "byte " << at;
    const Opened recovered(changed, true);
    ASSERT_TRUE(recovered.status == Acad::eOk || hasError(recovered.report)) << "byte " << at;
  }
}

/// Mends every checksum, so that a change reaches what the checksums guard.
void mendSums(Bytes& bytes) {
  krio::Report report;
  krio::dwg::FaultPolicy policy(report, true);
  auto* const raw = reinterpret_cast<std::uint8_t*>(bytes.data());
  const ByteSpan file(raw, bytes.size());
  krio::dwg::Container container(file, policy);
  container.read();
  const auto put = [&](std::size_t at, std::uint16_t sum) {
    raw[at] = std::uint8_t(sum);
    raw[at + 1] = std::uint8_t(sum >> 8);
  };
  for (const auto& entry : container.map()) {
    const auto object = container.objectAt(entry.address);
    if (object) put(object->address + object->size, krio::dwg::crc16(file.subspan(object->address, object->size)));
  }
  for (const auto number : {krio::dwg::kVariablesSection, krio::dwg::kClassesSection}) {
    const auto section = container.header().sections[number];
    if (section.size < 38) continue;
    const std::size_t size = section.size - 34;
    put(section.address + 16 + size, krio::dwg::crc16(file.subspan(section.address + 16, size)));
  }
  put(0x4F, krio::dwg::crc16(file.first(0x4F)));
}

TEST(DwgDamage, WrongValuesUnderRightChecksumsDoNoHarm) {
  const Bytes whole = smallDrawing();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const unsigned value : {0x00U, 0x01U, 0x7FU, 0x80U, 0xFFU}) {
      Bytes changed = whole;
      changed[at] = std::byte(value);
      mendSums(changed);
      for (const bool recover : {false, true}) {
        const Opened opened(changed, recover);
        if (opened.status != Acad::eOk) {
          ASSERT_TRUE(hasError(opened.report)) << at;
          continue;
        }
        // What could be opened can be saved, and opened again.
        Bytes again;
        krio::Report report;
        if (krio::writeDwg(*opened.database, again, report) != Acad::eOk) continue;
        const Opened reopened(again);
        ASSERT_EQ(reopened.status, Acad::eOk) << "byte " << at << " set to " << value << "\n"
                                              << textOf(reopened.report);
      }
    }
  }
}

TEST(DwgDamage, RandomBytesBehindTheVersionAreRefusedSoon) {
  std::mt19937 random(5);
  for (int round = 0; round < 40; ++round) {
    Bytes bytes(std::size_t(1) << (6 + round % 12));
    for (std::byte& byte : bytes) byte = std::byte(random());
    std::memcpy(bytes.data(), "AC1015\0\0\0\0\0", 11);
    EXPECT_NE(Opened(bytes).status, Acad::eOk);
    Opened(bytes, true);
  }
}

TEST(DwgDamage, AFileThatLooksLikeObjectsEverywhereIsSearchedInBoundedTime) {
  // Each word tells of an object of 32 KB: the search must not reckon the checksum of them all.
  Bytes bytes(1 << 20, std::byte(0x7F));
  std::memcpy(bytes.data(), "AC1015\0\0\0\0\0", 11);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_NE(Opened(bytes, true).status, Acad::eOk);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(DwgDamage, OtherFilesAreNoDrawings) {
  for (const char* text : {"", "A", "AC1015", "AC1018", "%PDF-1.4", "  0\nSECTION\n"}) {
    const auto* const first = reinterpret_cast<const std::byte*>(text);
    const Bytes bytes(first, first + std::strlen(text));
    EXPECT_NE(Opened(bytes).status, Acad::eOk);
    EXPECT_EQ(krio::isDwg(bytes), std::string_view(text) == "AC1015");
  }
}

TEST(DwgDamage, ABrokenObjectMapIsMadeAnewByRecovery) {
  Bytes bytes = smallDrawing();
  const auto before = [&] {
    const Opened opened(bytes);
    return digest(*opened.database);
  }();
  std::uint32_t map = 0;
  std::memcpy(&map, bytes.data() + 0x19 + 2 * 9 + 1, 4);
  bytes[map + 5] ^= std::byte(0xFF);
  EXPECT_NE(Opened(bytes).status, Acad::eOk);
  const Opened recovered(bytes, true);
  ASSERT_EQ(recovered.status, Acad::eOk) << textOf(recovered.report);
  EXPECT_FALSE(recovered.report.clean());
  EXPECT_EQ(digest(*recovered.database), before);
}

TEST(DwgDamage, AnObjectWithAWrongChecksumIsNamedAndLeftOutByRecovery) {
  Bytes bytes = smallDrawing();
  const OuterForm outer(bytes);
  const krio::dwg::MapEntry last = outer.container.map().back();
  bytes[last.address + 12] ^= std::byte(1);
  const Opened strict(bytes);
  EXPECT_EQ(strict.status, Acad::eDwgObjectImproperlyRead);
  ASSERT_TRUE(hasError(strict.report));
  EXPECT_EQ(strict.report.findings.back().handle, last.handle);
  EXPECT_EQ(strict.report.findings.back().place, std::int64_t(last.address));
  const Opened recovered(bytes, true);
  ASSERT_EQ(recovered.status, Acad::eOk) << textOf(recovered.report);
  EXPECT_FALSE(recovered.report.clean());
}

/// How many entities a drawing's table of blocks holds in model space.
std::size_t entitiesInModelSpace(const AcDbDatabase& database) {
  const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
  AcDbObjectId space;
  EXPECT_EQ(table->getAt(ACDB_MODEL_SPACE, space), Acad::eOk);
  EXPECT_EQ(space, database.modelSpaceId());
  const AcDbObjectPointer<AcDbBlockTableRecord> record(space, AcDb::kForRead);
  return record->entities().size();
}

// The spaces belong to no table then, and a new one without them would lose what they hold in the other form.
TEST(DwgDamage, ALostTableLosesNoneOfItsRecords) {
  const Bytes whole = smallDrawing();
  const OuterForm outer(whole);
  const Opened before(whole);
  const AcDbDatabase& drawing = *before.database;
  for (const bool all : {false, true}) {
    Bytes bytes = whole;
    std::vector<AcDbObjectId> lost{drawing.blockTableId()};
    if (all) lost.insert(lost.end(), {drawing.layerTableId(), drawing.linetypeTableId(), drawing.dimStyleTableId()});
    for (const krio::dwg::MapEntry& entry : outer.container.map()) {
      const auto isLost = [&](AcDbObjectId id) { return id.handle().value() == entry.handle; };
      if (std::any_of(lost.begin(), lost.end(), isLost)) bytes[entry.address + 3] ^= std::byte(1);
    }
    const Opened recovered(bytes, true);
    ASSERT_EQ(recovered.status, Acad::eOk) << textOf(recovered.report);
    EXPECT_FALSE(recovered.report.clean());
    EXPECT_EQ(entitiesInModelSpace(*recovered.database), 4U);
    std::vector<std::byte> other;
    krio::Report written;
    ASSERT_EQ(krio::writeDxf(*recovered.database, other, written), Acad::eOk);
    AcDbDatabase again(false);
    ASSERT_EQ(krio::readDxf(other, again, written, {}), Acad::eOk) << textOf(written);
    EXPECT_EQ(entitiesInModelSpace(again), 4U);
  }
}

std::size_t tablesOfBlocks(const AcDbDatabase& database) {
  return std::size_t(std::ranges::count_if(database.handleTable().stubs(), [](const AcDbStub& stub) {
    return stub.object != nullptr && !stub.has(AcDbStub::kErased) && stub.object->isA() == AcDbBlockTable::desc();
  }));
}

// The variables name the tables, the spaces and the linetypes that entities have by default: all are there without
// them.
TEST(DwgDamage, DamagedVariablesLoseNothingOfTheDrawing) {
  const Bytes whole = smallDrawing();
  const OuterForm outer(whole);
  const std::size_t first = outer.container.variablesPlace();
  const std::size_t size = outer.container.variables().size();
  const Opened before(whole);
  const auto expected = digest(*before.database);
  constexpr std::size_t kStep = 3;  // every bit of every third byte
  for (std::size_t i = 0; i <= size; i += kStep) {
    for (int bit = 0; bit < 8; ++bit) {
      Bytes bytes = whole;
      if (i + kStep > size) {
        std::fill(bytes.begin() + std::ptrdiff_t(first), bytes.begin() + std::ptrdiff_t(first + size), std::byte(0));
      } else {
        bytes[first + i] ^= std::byte(1 << bit);
      }
      const Opened recovered(bytes, true);
      ASSERT_EQ(recovered.status, Acad::eOk) << textOf(recovered.report);
      EXPECT_FALSE(recovered.report.clean());
      EXPECT_EQ(tablesOfBlocks(*recovered.database), 1U) << i << " bit " << bit;
      ASSERT_EQ(entitiesInModelSpace(*recovered.database), 4U) << i << " bit " << bit;
      EXPECT_EQ(digest(*recovered.database), expected) << i << " bit " << bit;
    }
  }
}

}  // namespace
