// Drawings as DXF: read, written, read again.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <random>
#include <sstream>

#include "DwgTools.h"
#include "host/db/db.h"
#include "host/io/dxf/Dxf.h"
#include "host/os/os.h"

using namespace krio;
using testing::HasSubstr;

namespace {

std::span<const std::byte> bytesOf(std::string_view text) {
  return std::as_bytes(std::span(text));
}

struct Read {
  std::unique_ptr<AcDbDatabase> db = std::make_unique<AcDbDatabase>(false);
  Report report;
  Acad::ErrorStatus status = Acad::eOk;
};

Read readText(std::string_view text, bool recover = false) {
  Read read;
  read.status = readDxf(bytesOf(text), *read.db, read.report, {recover});
  return read;
}

std::string writeText(AcDbDatabase& db) {
  std::vector<std::byte> bytes;
  Report report;
  EXPECT_EQ(writeDxf(db, bytes, report), Acad::eOk);
  for (const Finding& finding : report.findings) ADD_FAILURE() << finding.what;
  return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

std::string messages(const Report& report) {
  std::string all;
  for (const Finding& finding : report.findings) {
    all += (finding.severity == Severity::Error     ? "error "
            : finding.severity == Severity::Warning ? "warning "
                                                    : "note ");
    all += std::to_string(finding.place) + ": " + finding.what + "\n";
  }
  return all;
}

/// Pairs of lines as a file has them.
std::string groups(std::initializer_list<std::pair<int, const char*>> list) {
  std::string text;
  for (const auto& [code, value] : list) text += std::to_string(code) + "\n" + value + "\n";
  return text;
}

std::string entitiesFile(const std::string& entities) {
  return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

std::vector<AcDbEntity*> entitiesOf(AcDbDatabase& db, AcDbObjectId space) {
  std::vector<AcDbEntity*> entities;
  for (AcDbStub* const stub : AcDbBlockTableRecord::cast(space.stub()->object)->entities()) {
    entities.push_back(static_cast<AcDbEntity*>(stub->object));
  }
  EXPECT_EQ(db.numOpenObjects(), 0);
  return entities;
}

AcDbObjectId blockNamed(const AcDbDatabase& db, const wchar_t* name) {
  const AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForRead);
  AcDbObjectId id;
  EXPECT_EQ(table->getAt(name, id), Acad::eOk);
  return id;
}

template <class T>
T* onlyEntity(const Read& read) {
  const std::vector<AcDbEntity*> entities = entitiesOf(*read.db, read.db->modelSpaceId());
  EXPECT_EQ(entities.size(), 1U) << messages(read.report);
  return entities.size() == 1 ? T::cast(entities[0]) : nullptr;
}

/// Puts an entity into model space; gives it closed.
template <class T>
T* add(AcDbDatabase& db, T* entity) {
  const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
  EXPECT_EQ(space->appendAcDbEntity(entity), Acad::eOk);
  entity->close();
  return entity;
}

std::string fileText(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

}  // namespace

// --- What other programs write
// -----------------------------------------------------------------------------------------

TEST(DxfReader, ReadsABareLine) {
  const Read read =
      readText(entitiesFile(groups({{0, "LINE"}, {8, "Walls"}, {10, "1.5"}, {20, "2.0"}, {11, "-3.25"}, {21, "4"}})));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const AcDbLine* const line = onlyEntity<AcDbLine>(read);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->data().start, AcGePoint3d(1.5, 2, 0));
  EXPECT_EQ(line->data().end, AcGePoint3d(-3.25, 4, 0));
  const auto* const layer = AcDbLayerTableRecord::cast(line->layerReference().stub()->object);
  EXPECT_EQ(layer->nameText(), L"Walls");
  EXPECT_THAT(messages(read.report), HasSubstr("Walls"));
}

TEST(DxfReader, MakesWhatABareFileLacksSoThatItCanBeSaved) {
  const Read read = readText(entitiesFile(groups({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "1"}})));
  ASSERT_EQ(read.status, Acad::eOk);
  const std::string text = writeText(*read.db);
  const Read again = readText(text);
  EXPECT_EQ(again.status, Acad::eOk) << messages(again.report);
  EXPECT_TRUE(again.report.clean()) << messages(again.report);
  EXPECT_EQ(onlyEntity<AcDbLine>(again)->data().end, AcGePoint3d(1, 1, 0));
}

TEST(DxfReader, ReadsClassesWithoutMarkers) {
  const Read read = readText(
      entitiesFile(groups({{0, "POLYLINE"}, {8, "0"}, {66, "1"}, {70, "1"}}) +
                   groups({{0, "VERTEX"}, {8, "0"}, {10, "0.0"}, {20, "0.0"}, {42, "1.0"}}) +
                   groups({{0, "VERTEX"}, {8, "0"}, {10, "10.0"}, {20, "0.0"}}) + groups({{0, "SEQEND"}, {8, "0"}}) +
                   groups({{0, "POINT"}, {8, "0"}, {10, "7.0"}, {20, "8.0"}, {30, "9.0"}, {62, "3"}})));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const std::vector<AcDbEntity*> entities = entitiesOf(*read.db, read.db->modelSpaceId());
  ASSERT_EQ(entities.size(), 2U);
  auto* const polyline = AcDb2dPolyline::cast(entities[0]);
  ASSERT_NE(polyline, nullptr);
  EXPECT_EQ(polyline->data().flags, 1);
  ASSERT_EQ(polyline->subentities()->stubs().size(), 2U);
  EXPECT_EQ(AcDb2dVertex::cast(polyline->subentities()->stubs()[0]->object)->data().bulge, 1.0);
  EXPECT_FALSE(polyline->subentities()->sequenceEnd().isNull());
  const auto* const point = AcDbPoint::cast(entities[1]);
  ASSERT_NE(point, nullptr);
  EXPECT_EQ(point->data().position, AcGePoint3d(7, 8, 9));
  EXPECT_EQ(point->common().color.colorIndex(), 3);
}

TEST(DxfReader, GivesNewHandlesThatNoLaterObjectOfTheFileHas) {
  const Read read =
      readText(entitiesFile(groups({{0, "LINE"}, {8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "1"}}) +
                            groups({{0, "LINE"}, {5, "2"}, {8, "0"}, {10, "5"}, {20, "0"}, {11, "1"}, {21, "1"}})));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const std::vector<AcDbEntity*> lines = entitiesOf(*read.db, read.db->modelSpaceId());
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1]->objectId().handle().value(), 2U);
  EXPECT_NE(lines[0]->objectId().handle().value(), 2U);
}

TEST(DxfReader, RefusesTheBinaryForm) {
  const std::string mark = std::string("8 bytes ").substr(0, 8) + std::string("Binary DXF\r\n\x1A\0", 14);
  const Read read = readText(mark);
  EXPECT_EQ(read.status, Acad::eNotImplementedYet);
  EXPECT_THAT(messages(read.report), HasSubstr("binary"));
  EXPECT_TRUE(isDxf(bytesOf(mark)));
}

TEST(DxfReader, TellsADxfFromOtherFiles) {
  EXPECT_TRUE(isDxf(bytesOf("  0\r\nSECTION\r\n")));
  EXPECT_TRUE(isDxf(bytesOf("999\nby hand\n0\nSECTION\n")));
  EXPECT_FALSE(isDxf(bytesOf("AC1015")));
  EXPECT_FALSE(isDxf(bytesOf("")));
}

// --- Faults
// ------------------------------------------------------------------------------------------------------------

TEST(DxfReader, NamesTheLineOfABadNumber) {
  const std::string text = entitiesFile(groups({{0, "LINE"}, {8, "0"}, {10, "1.0"}, {20, "x"}, {11, "1"}, {21, "1"}}));
  const Read strict = readText(text);
  EXPECT_NE(strict.status, Acad::eOk);
  ASSERT_FALSE(strict.report.findings.empty());
  // Four lines of the section, and the fourth group of the entity.
  EXPECT_EQ(strict.report.findings.back().place, 4 + 3 * 2 + 1);
  const Read recovered = readText(text, true);
  EXPECT_EQ(recovered.status, Acad::eOk);
  EXPECT_FALSE(recovered.report.clean());
  EXPECT_NE(onlyEntity<AcDbLine>(recovered), nullptr);
}

TEST(DxfReader, RefusesNumbersThatAreNone) {
  for (const char* bad : {"nan", "inf", "-inf", "1e999"}) {
    const std::string text = entitiesFile(groups({{0, "CIRCLE"}, {8, "0"}, {10, "1.0"}, {20, "1.0"}, {40, bad}}));
    EXPECT_NE(readText(text).status, Acad::eOk) << bad;
    EXPECT_EQ(readText(text, true).status, Acad::eOk) << bad;
  }
}

TEST(DxfReader, RefusesAHandleThatStandsForTwoObjects) {
  const std::string line = groups({{0, "LINE"}, {5, "AB"}, {8, "0"}, {10, "1"}, {20, "1"}, {11, "1"}, {21, "1"}});
  EXPECT_EQ(readText(entitiesFile(line + line)).status, Acad::eHandleExists);
  const Read recovered = readText(entitiesFile(line + line), true);
  EXPECT_EQ(recovered.status, Acad::eOk);
  EXPECT_EQ(entitiesOf(*recovered.db, recovered.db->modelSpaceId()).size(), 2U);
  EXPECT_FALSE(recovered.report.clean());
}

TEST(DxfReader, NeverCallsACutFileClean) {
  AcDbDatabase db;
  add(db, new AcDbLine({0, 0, 0}, {1, 2, 3}));
  const std::string whole = writeText(db);
  for (std::size_t size = 0; size + 2 < whole.size(); size += 1 + whole.size() / 700) {
    const Read strict = readText(whole.substr(0, size));
    EXPECT_NE(strict.status, Acad::eOk) << size;
    const Read recovered = readText(whole.substr(0, size), true);
    EXPECT_FALSE(recovered.report.clean()) << size;
  }
}

TEST(DxfReader, TakesAnyDamage) {
  AcDbDatabase db;
  add(db, new AcDbLine({0, 0, 0}, {1, 2, 3}));
  add(db, new AcDbCircle({0, 0, 0}, AcGeVector3d::kZAxis, 4));
  const std::string whole = writeText(db);
  std::mt19937 random(11);
  const char* const values[] = {"-1",           "0",     "1", "65535", "FFFFFFFFFFFFFFFF", "nan", "",
                                "*Model_Space", "1e308", "{", "}"};
  for (int i = 0; i < 1500; ++i) {
    std::string text = whole;
    for (int k = random() % 4; k >= 0; --k) {
      const std::size_t at = random() % text.size();
      switch (random() % 4) {
        case 0:
          text[at] = char(random());
          break;
        case 1:
          text.erase(at, random() % 60);
          break;
        case 2: {
          const std::size_t line = text.find('\n', at);
          const std::size_t next = line != std::string::npos ? text.find('\n', line + 1) : line;
          if (next != std::string::npos) text.replace(line + 1, next - line - 1, values[random() % std::size(values)]);
          break;
        }
        default:
          text.insert(at, text.substr(random() % text.size(), random() % 300));
      }
    }
    const Read read = readText(text, i % 2 == 0);
    if (read.status != Acad::eOk || i % 8 != 0) continue;
    std::vector<std::byte> bytes;
    Report report;
    ASSERT_EQ(writeDxf(*read.db, bytes, report), Acad::eOk) << messages(report);
    AcDbDatabase again(false);
    EXPECT_EQ(readDxf(bytes, again, report, {}), Acad::eOk) << messages(report);
  }
}

TEST(DxfReader, GoesOnBehindALineThatIsNoCode) {
  const std::string text =
      entitiesFile("garbage\n" + groups({{0, "LINE"}, {8, "0"}, {10, "1"}, {20, "1"}, {11, "1"}, {21, "1"}}));
  EXPECT_NE(readText(text).status, Acad::eOk);
  const Read recovered = readText(text, true);
  EXPECT_EQ(recovered.status, Acad::eOk);
  EXPECT_NE(onlyEntity<AcDbLine>(recovered), nullptr);
}

// Other programs don't open a file without: what one leaves out is made when the drawing is saved.
TEST(DxfReader, EndsASequenceThatHasNoEnd) {
  const std::string vertices = groups({{0, "VERTEX"}, {8, "0"}, {10, "0.0"}, {0, "VERTEX"}, {8, "0"}, {10, "5.0"}});
  const std::string line = groups({{0, "LINE"}, {10, "1.0"}, {20, "2.0"}, {11, "3.0"}, {21, "4.0"}});
  for (const bool atEnd : {false, true}) {
    const Read read = readText(entitiesFile(groups({{0, "POLYLINE"}, {5, "2A"}, {8, "0"}, {66, "1"}}) + vertices +
                                            (atEnd ? std::string() : line)));
    ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
    EXPECT_THAT(messages(read.report), HasSubstr("has no end"));
    const std::string text = writeText(*read.db);
    const Read again = readText(text);
    ASSERT_EQ(again.status, Acad::eOk);
    EXPECT_EQ(messages(again.report).find("has no end"), std::string::npos);
    const AcDbEntity* const polyline = entitiesOf(*again.db, again.db->modelSpaceId()).front();
    const AcDbSubentities* const parts = const_cast<AcDbEntity*>(polyline)->subentities();
    EXPECT_EQ(parts->stubs().size(), 2U);
    EXPECT_TRUE(parts->sequenceEnd().isResident());
    EXPECT_EQ(writeText(*again.db), text);
  }
}

TEST(DxfReader, EndsTheKeptSequenceOfAMeshThatHasNoEnd) {
  const std::string mesh = groups({{0, "POLYLINE"}, {5, "2A"}, {8, "0"}, {66, "1"}, {70, "16"}, {71, "2"}, {72, "2"}});
  const Read read =
      readText(entitiesFile(mesh + groups({{0, "VERTEX"}, {8, "0"}, {10, "1.0"}, {0, "POINT"}, {8, "0"}})));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  EXPECT_THAT(messages(read.report), HasSubstr("has no end"));
  const std::string text = writeText(*read.db);
  const std::size_t vertex = text.find("VERTEX");
  ASSERT_NE(vertex, std::string::npos);
  EXPECT_LT(text.find("SEQEND"), text.find("POINT", vertex));
}

// A damaged record can bear another block's handle.
TEST(DxfReader, PutsWhatABlockHoldsIntoTheOneOfItsName) {
  const auto record = [](const char* handle, const char* name) {
    return groups({{0, "BLOCK_RECORD"}, {5, handle}, {2, name}});
  };
  const auto block = [](const char* owner, const char* name, const char* x) {
    return groups({{0, "BLOCK"}, {330, owner}, {8, "0"}, {2, name}, {0, "LINE"}, {8, "0"}, {11, x}, {0, "ENDBLK"}});
  };
  const std::string tables = groups({{0, "SECTION"}, {2, "TABLES"}, {0, "TABLE"}, {2, "BLOCK_RECORD"}, {5, "1"}}) +
                             record("20", "ONE") + record("21", "TWO") + groups({{0, "ENDTAB"}, {0, "ENDSEC"}});
  // The second tells the first's owner, the third one that nothing has.
  const std::string blocks = groups({{0, "SECTION"}, {2, "BLOCKS"}}) + block("20", "ONE", "1.0") +
                             block("20", "TWO", "2.0") + block("77", "THREE", "3.0") + groups({{0, "ENDSEC"}});
  const Read read = readText(tables + blocks + entitiesFile(""));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const Read again = readText(writeText(*read.db));
  ASSERT_EQ(again.status, Acad::eOk) << messages(again.report);
  for (const Read* const each : {&read, &again}) {
    double x = 1;
    for (const auto& [name, handle] :
         {std::pair(L"ONE", 0x20U), std::pair(L"TWO", 0x21U), std::pair(L"THREE", 0x77U)}) {
      const AcDbObjectId id = blockNamed(*each->db, name);
      EXPECT_EQ(id.handle().value(), handle);
      const std::vector<AcDbEntity*> entities = entitiesOf(*each->db, id);
      ASSERT_EQ(entities.size(), 1U);
      EXPECT_EQ(AcDbLine::cast(entities[0])->data().end.x, x++);
    }
  }
}

TEST(DxfReader, TakesABlockThatStandsTwiceForOne) {
  const std::string block = groups({{0, "BLOCK"}, {8, "0"}, {2, "ONE"}, {0, "LINE"}, {8, "0"}, {0, "ENDBLK"}});
  const std::string blocks = groups({{0, "SECTION"}, {2, "BLOCKS"}}) + block + block + groups({{0, "ENDSEC"}});
  EXPECT_NE(readText(blocks + entitiesFile("")).status, Acad::eOk);
  const Read read = readText(blocks + entitiesFile(""), true);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  EXPECT_EQ(entitiesOf(*read.db, blockNamed(*read.db, L"ONE")).size(), 2U);
}

TEST(DxfReader, TakesNoRecordAmongTheObjects) {
  const std::string objects =
      groups({{0, "SECTION"}, {2, "OBJECTS"}, {0, "DICTIONARY"}, {5, "C"}, {100, "AcDbDictionary"}}) +
      groups({{0, "BLOCK_RECORD"},
              {5, "47"},
              {330, "1"},
              {100, "AcDbSymbolTableRecord"},
              {100, "AcDbBlockTableRecord"},
              {2, "ONE"},
              {0, "ENDSEC"}});
  const std::string before = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n";
  EXPECT_NE(readText(before + objects + "0\nEOF\n").status, Acad::eOk);
  const Read read = readText(before + objects + "0\nEOF\n", true);
  ASSERT_EQ(read.status, Acad::eOk);
  EXPECT_EQ(read.db->handleTable().find(0x47), nullptr);
}

TEST(DxfReader, StopsAtMoreObjectsThanSoManyBytesCanMean) {
  std::string text;
  for (int i = 0; i < 400000; ++i) text += "0\nX\n9\n\n";
  EXPECT_NE(readText(entitiesFile(text), true).status, Acad::eOk);
}

// --- Round trips
// --------------------------------------------------------------------------------------------------------

TEST(DxfWriter, GivesTheSameBytesAfterOpening) {
  AcDbDatabase db;
  add(db, new AcDbLine({1.0 / 3, 2, 3}, {4, 5e-7, 6e12}));
  add(db, new AcDbArc({1, 2, 3}, 4, 0.1, 5.9));
  add(db, new AcDbCircle({1, 2, 3}, AcGeVector3d::kXAxis, 0.1));
  auto* const polyline = new AcDbPolyline;
  for (int i = 0; i < 5; ++i) polyline->addVertexAt(unsigned(i), {i * 0.1, i / 7.0}, i == 2 ? 0.5 : 0.0);
  polyline->setClosed(true);
  add(db, polyline);
  add(db, new AcDbText({1, 2, 0}, L"caf\u00E9 \u0421 ^ \u03A9", AcDbObjectId::kNull, 2.5, 0.3));
  add(db, new AcDbMText)->close();
  const std::string first = writeText(db);
  const Read read = readText(first);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  EXPECT_TRUE(read.report.clean()) << messages(read.report);
  EXPECT_TRUE(writeText(*read.db) == first);
}

TEST(DxfWriter, KeepsPlainEntitiesToTheBit) {
  AcDbDatabase db;
  auto* const line = add(db, new AcDbLine({1.0 / 3, -0.0, 3}, {4, 5e-7, 6e12}));
  auto* const arc = add(db, new AcDbArc({1, 2, 3}, 4, 0.123456789, 5.987654321));
  const Read read = readText(writeText(db));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const std::vector<AcDbEntity*> entities = entitiesOf(*read.db, read.db->modelSpaceId());
  ASSERT_EQ(entities.size(), 2U);
  EXPECT_EQ(AcDbLine::cast(entities[0])->data().tie(), line->data().tie());
  EXPECT_EQ(AcDbArc::cast(entities[1])->data().tie(), arc->data().tie());
  EXPECT_EQ(entities[0]->objectId().handle(), line->objectId().handle());
}

TEST(DxfWriter, KeepsCommonProperties) {
  AcDbDatabase db;
  auto* const line = new AcDbLine({0, 0, 0}, {1, 1, 1});
  line->setColorIndex(5);
  line->setLinetypeScale(2.5);
  line->setLineWeight(AcDb::kLnWt050);
  line->setVisibility(AcDb::kInvisible);
  add(db, line);
  const Read read = readText(writeText(db));
  const AcDbEntity::Common common = onlyEntity<AcDbLine>(read)->common();
  EXPECT_EQ(common.color.colorIndex(), 5);
  EXPECT_EQ(common.linetypeScale, 2.5);
  EXPECT_EQ(common.lineWeight, AcDb::kLnWt050);
  EXPECT_TRUE(common.invisible);
}

TEST(DxfWriter, KeepsExtendedDataDictionariesAndReactors) {
  AcDbDatabase db;
  auto* const line = new AcDbLine({0, 0, 0}, {1, 1, 1});
  resbuf* const data = acutBuildList(1001, L"KRTEST", 1000, L"text", 1040, 0.25, 1070, 7, 1071, 70000, 0);
  line->setXData(data);
  acutRelRb(data);
  const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
  ASSERT_EQ(space->appendAcDbEntity(line), Acad::eOk);
  ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
  line->addPersistentReactor(db.layerZero());
  line->close();
  const std::string text = writeText(db);
  const Read read = readText(text);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const AcDbLine* const again = onlyEntity<AcDbLine>(read);
  const resbuf* link = again->xDataChain();
  ASSERT_NE(link, nullptr);
  EXPECT_STREQ(link->resval.rstring, L"KRTEST");
  link = link->rbnext->rbnext;
  EXPECT_EQ(link->resval.rreal, 0.25);
  EXPECT_EQ(link->rbnext->resval.rint, 7);
  EXPECT_EQ(link->rbnext->rbnext->resval.rlong, 70000);
  ASSERT_TRUE(again->extensionDictionaryReference().isResident());
  EXPECT_NE(AcDbDictionary::cast(again->extensionDictionaryReference().stub()->object), nullptr);
  ASSERT_NE(again->reactors(), nullptr);
  EXPECT_EQ(acdbPersistentReactorObjectId(again->reactors()->at(0)).handle(), db.layerZero().handle());
}

TEST(DxfWriter, KeepsTextsOfEveryScript) {
  AcDbDatabase db;
  add(db, new AcDbText({0, 0, 0}, L"\u65E5\u672C ^ x\ty \u00E9\u0421 \\P 5'10\"", AcDbObjectId::kNull, 1));
  const Read read = readText(writeText(db));
  EXPECT_EQ(onlyEntity<AcDbText>(read)->data().text, L"\u65E5\u672C ^ x\ty \u00E9\u0421 \\P 5'10\"");
}

// --- Classes that aren't the host's
// -------------------------------------------------------------------------------------

namespace {

/// An entity of an application: reads what it writes, unless its first number is 13, or leaves groups over at 14.
class OwnEntity : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(OwnEntity);
  int number = 0;
  double angle = 0;
  AcGePoint3d place;

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override {
    if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
    filer->writeItem(100, L"OwnEntity");
    filer->writeItem(170, Adesk::Int16(number));
    filer->writeItem(50, angle);
    filer->writeItem(10, place);
    return filer->filerStatus();
  }
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override {
    if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
    if (!filer->atSubclassData(L"OwnEntity")) return filer->filerStatus();
    resbuf item{};
    filer->readItem(&item);
    number = item.resval.rint;
    constexpr int kRefused = 13;
    constexpr int kLeaves = 14;
    if (number == kRefused) return filer->setError(Acad::eInvalidDxfCode, L"\nnot this one");
    if (number == kLeaves) return filer->filerStatus();
    filer->readItem(&item);
    angle = item.resval.rreal;
    filer->readItem(&item);
    place.set(item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]);
    return filer->filerStatus();
  }
};
ACRX_DXF_DEFINE_MEMBERS(OwnEntity, AcDbEntity, 0, 0, 0, KROWN, KR Own)

class DxfOwnClass : public testing::Test {
 protected:
  void SetUp() override {
    OwnEntity::rxInit();
    acrxBuildClassHierarchy();
  }
  void TearDown() override { deleteAcRxClass(OwnEntity::desc()); }

  std::string written(int number) {
    AcDbDatabase db;
    auto* const own = new OwnEntity;
    own->number = number;
    own->angle = std::numbers::pi / 2;
    own->place.set(1, 2, 3);
    add(db, own);
    return writeText(db);
  }
};

}  // namespace

TEST_F(DxfOwnClass, ReadsItselfThroughTheFiler) {
  const std::string text = written(1);
  // Degrees in the file, and the class in its list.
  EXPECT_THAT(text, HasSubstr("100\nOwnEntity\n170\n     1\n 50\n90.0\n 10\n1.0\n 20\n2.0\n 30\n3.0\n"));
  EXPECT_THAT(text, HasSubstr("  0\nCLASS\n  1\nKROWN\n  2\nOwnEntity\n  3\nKR Own\n"));
  const Read read = readText(text);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const OwnEntity* const own = onlyEntity<OwnEntity>(read);
  ASSERT_NE(own, nullptr);
  EXPECT_DOUBLE_EQ(own->angle, std::numbers::pi / 2);
  EXPECT_EQ(own->place, AcGePoint3d(1, 2, 3));
  EXPECT_TRUE(writeText(*read.db) == text);
}

TEST_F(DxfOwnClass, StaysAsAProxyWhenItRefuses) {
  for (const int number : {13, 14}) {
    const std::string text = written(number);
    const Read read = readText(text);
    ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
    const AcDbProxyEntity* const proxy = onlyEntity<AcDbProxyEntity>(read);
    ASSERT_NE(proxy, nullptr) << number;
    EXPECT_EQ(proxy->data().classRecord.cppName, L"OwnEntity");
    EXPECT_EQ(proxy->data().groups.size(), 6U);
    EXPECT_THAT(messages(read.report), HasSubstr("KROWN"));
    EXPECT_THAT(messages(read.report), HasSubstr(number == 13 ? "not this one" : "left over"));
    EXPECT_TRUE(writeText(*read.db) == text);
  }
}

TEST_F(DxfOwnClass, StaysWithItsPictureWhenTheClassIsUnknown) {
  const std::string text = entitiesFile(groups({{0, "KRNEVER"},
                                                {5, "A1"},
                                                {100, "AcDbEntity"},
                                                {8, "0"},
                                                {92, "8"},
                                                {310, "0800000000000000"},
                                                {100, "KrNever"},
                                                {90, "7"},
                                                {1, "caf\xE9 ^ \\U+0421"},
                                                {1001, "ACAD"},
                                                {1070, "3"}}));
  const Read read = readText(text);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const AcDbProxyEntity* const proxy = onlyEntity<AcDbProxyEntity>(read);
  ASSERT_NE(proxy, nullptr);
  EXPECT_EQ(proxy->fileGraphics().size(), 8U);
  EXPECT_THAT(messages(read.report), HasSubstr("KRNEVER"));
  const std::string again = writeText(*read.db);
  EXPECT_THAT(again, HasSubstr(" 92\n        8\n310\n0800000000000000\n100\nKrNever\n 90\n7\n  1\ncaf\xE9 ^ "
                               "\\U+0421\n1001\nACAD\n1070\n     3\n"));
}

TEST(DxfProxy, KeepsBitsAndReferencesOfADwg) {
  AcDbDatabase db;
  auto* const proxy = new AcDbProxyEntity;
  AcDbProxyData& data = proxy->dataAsRead();
  data.form = AcDbProxyData::kDwgBits;
  data.classRecord.dxfName = L"KRFAR";
  data.classRecord.cppName = L"KrFar";
  data.classRecord.appName = L"KR Far";
  data.classRecord.itemClassId = AcDbClassRecord::kEntityClass;
  data.bits = {std::byte(0xAB), std::byte(0xC0)};
  data.bitCount = 11;
  data.references = {
      {5, db.layerZero()}, {4, AcDbObjectId::kNull}, {2, db.byLayerLinetype()}, {3, AcDbObjectId::kNull}};
  add(db, proxy);
  const std::string text = writeText(db);
  const Read read = readText(text);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const AcDbProxyEntity* const again = onlyEntity<AcDbProxyEntity>(read);
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->data().classRecord.cppName, L"KrFar");
  EXPECT_EQ(again->data().bits, data.bits);
  EXPECT_EQ(again->data().bitCount, 11U);
  ASSERT_EQ(again->data().references.size(), 4U);
  EXPECT_EQ(again->data().references[0].code, 5);
  EXPECT_EQ(again->data().references[0].id.handle(), db.layerZero().handle());
  EXPECT_TRUE(again->data().references[1].id.isNull());
  EXPECT_EQ(again->data().references[2].code, 2);
  EXPECT_EQ(again->data().references[3].code, 3);
  EXPECT_TRUE(writeText(*read.db) == text);
}

// --- Readers of another hand
// ------------------------------------------------------------------------------------------

namespace {

/// What a command prints.
std::string outputOf(const std::string& command) {
  std::string output;
  std::FILE* const pipe = popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr) return output;
  char buffer[4096];
  while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) output.append(buffer, count);
  pclose(pipe);
  return output;
}

class DxfPeers : public testing::Test {
 protected:
  void SetUp() override {
    add(db_, new AcDbLine({1, 2, 3}, {4.5, -5, 6}));
    add(db_, new AcDbArc({10, 20, 0}, 5, std::numbers::pi / 6, std::numbers::pi));
    add(db_, new AcDbCircle({-7, 8, 0}, AcGeVector3d::kZAxis, 2.25));
    auto* const polyline = new AcDbPolyline;
    polyline->addVertexAt(0, {0, 0}, 0.5);
    polyline->addVertexAt(1, {10, 0});
    polyline->addVertexAt(2, {10, 5});
    add(db_, polyline);
    add(db_, new AcDbText({3, 4, 0}, L"caf\u00E9", AcDbObjectId::kNull, 2.5));
    add(db_, new AcDbPoint(AcGePoint3d(9, 9, 9)));
    path_ = std::filesystem::temp_directory_path() / "kr_dxf_peers.dxf";
    std::ofstream(path_, std::ios::binary) << writeText(db_);
  }
  void TearDown() override { std::filesystem::remove(path_); }

  AcDbDatabase db_;
  std::filesystem::path path_;
};

}  // namespace

// Files from before the markers have such entities: what is their own begins with the first group that isn't common.
TEST(DxfProxy, KeepsGroupsThatNoMarkerBeginsThroughEverySave) {
  const std::string own = groups({{1, "own"}, {5, "2B"}, {330, "77"}, {92, "2"}, {310, "00FF"}, {40, "1.5"}});
  Read read = readText(entitiesFile(groups({{0, "OTHER"}, {5, "2A"}, {8, "0"}, {62, "3"}}) + own));
  for (int save = 0; save < 2; ++save) {
    ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
    auto* const proxy = onlyEntity<AcDbProxyEntity>(read);
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->objectId().handle().value(), 0x2AU);
    EXPECT_EQ(proxy->common().color.colorIndex(), 3);
    EXPECT_TRUE(proxy->fileGraphics().empty());
    std::string kept;
    for (const AcDbProxyData::Group& group : proxy->data().groups) {
      kept += std::to_string(group.code) + "\n" + std::string(group.value) + "\n";
    }
    EXPECT_EQ(kept, own) << "after " << save << " saves";
    read = readText(writeText(*read.db));
  }
}

// A group of its own ahead of the first marker makes all that follows its own too: the handle told there is another's.
TEST(DxfProxy, KeepsTheHandleThatStandsAheadOfItsOwnGroups) {
  const std::string own = groups({{1, "own"}, {100, "AcDbEntity"}, {8, "0"}, {5, "2B"}, {330, "77"}, {40, "1.5"}});
  const std::string line = groups({{0, "LINE"}, {5, "2B"}, {10, "1.0"}, {20, "2.0"}, {11, "3.0"}, {21, "4.0"}});
  Read read = readText(entitiesFile(groups({{0, "OTHER"}, {5, "2A"}}) + own + line));
  for (int save = 0; save < 2; ++save) {
    ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
    const std::vector<AcDbEntity*> entities = entitiesOf(*read.db, read.db->modelSpaceId());
    ASSERT_EQ(entities.size(), 2U);
    EXPECT_EQ(entities[0]->objectId().handle().value(), 0x2AU);
    EXPECT_EQ(entities[1]->objectId().handle().value(), 0x2BU);
    std::string kept;
    for (const AcDbProxyData::Group& group : AcDbProxyEntity::cast(entities[0])->data().groups) {
      kept += std::to_string(group.code) + "\n" + std::string(group.value) + "\n";
    }
    EXPECT_EQ(kept, own) << "after " << save << " saves";
    read = readText(writeText(*read.db));
  }
}

// No program reads a point of one coordinate; kept as it was, it would cost the whole drawing elsewhere.
TEST(DxfProxy, GetsTheSecondCoordinateOfAPointWhenRecovered) {
  const std::string spline =
      groups({{0, "SPLINE"}, {8, "0"}, {100, "AcDbSpline"}, {10, "5.0"}, {11, "1.0"}, {21, "2.0"}, {210, "1.0"}});
  const Read read = readText(entitiesFile(spline) + "no code\n", true);
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  EXPECT_THAT(messages(read.report), HasSubstr("a point has one coordinate"));
  EXPECT_THAT(writeText(*read.db), HasSubstr("\n 10\n5.0\n 20\n0.0\n 11\n1.0\n 21\n2.0\n210\n1.0\n220\n0.0\n"));
}

// Some programs end a line at a return alone.
TEST(DxfProxy, KeepsAReturnWithinAValueAsOtherTextsDo) {
  const Read read = readText(entitiesFile(groups({{0, "SPLINE"}, {8, "0"}, {100, "AcDbSpline"}, {1, "ab\rcd"}})));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  const std::string text = writeText(*read.db);
  EXPECT_EQ(text.find('\r'), std::string::npos);
  EXPECT_THAT(text, HasSubstr("\n  1\nab^Mcd\n"));
  EXPECT_EQ(writeText(*readText(text).db), text);
}

// Written as what it stands for, such a name would end the section in the saved file.
TEST(DxfReader, TakesNoNameThatStandsForAnother) {
  const auto statusOf = [](const char* name) {
    return readText(entitiesFile(groups({{0, name}, {5, "2A"}, {8, "0"}, {1, "own"}}))).status;
  };
  for (const char* const name : {"END\\U+0053EC", "E^OF", "EO\x01", ""}) EXPECT_NE(statusOf(name), Acad::eOk) << name;
  for (const char* const name : {"ENDE", "E^ OF", "EOFS"}) EXPECT_EQ(statusOf(name), Acad::eOk) << name;
}

TEST(DxfReader, MakesNoEntityOfAClassThatHasAnotherName) {
  const std::string classes = groups({{0, "SECTION"},
                                      {2, "CLASSES"},
                                      {0, "CLASS"},
                                      {1, "OTHER"},
                                      {2, "AcDbBlockBegin"},
                                      {3, "Some"},
                                      {90, "0"},
                                      {280, "0"},
                                      {281, "1"},
                                      {0, "ENDSEC"}});
  const std::string entity =
      groups({{0, "OTHER"}, {5, "2A"}, {100, "AcDbEntity"}, {8, "0"}, {100, "Other"}, {40, "1.5"}});
  const Read read = readText(classes + entitiesFile(entity));
  ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
  EXPECT_NE(onlyEntity<AcDbProxyEntity>(read), nullptr);
}

TEST(DxfWriter, NamesTheTextStyleOfEveryDimensionStyle) {
  const Read bare = readText(entitiesFile(""));
  ASSERT_EQ(bare.status, Acad::eOk) << messages(bare.report);
  {
    const AcDbObjectPointer<AcDbDimStyleTableRecord> made(bare.db->roots().standardDimStyle, AcDb::kForWrite);
    ASSERT_EQ(made.openStatus(), Acad::eOk);
    EXPECT_EQ(made->dimtxsty(), bare.db->roots().standardTextStyle);
    made->setDimtxsty(AcDbObjectId());
  }
  const Read again = readText(writeText(*bare.db));
  const AcDbObjectPointer<AcDbDimStyleTableRecord> style(again.db->roots().standardDimStyle, AcDb::kForRead);
  ASSERT_EQ(style.openStatus(), Acad::eOk);
  EXPECT_EQ(style->dimtxsty(), again.db->roots().standardTextStyle);
}

TEST_F(DxfPeers, FindEveryEntityWhereItIsAndNoError) {
  const std::string seen = outputOf("/usr/bin/python3 " KR_SOURCE_DIR "/tests/host/io/dxf_peers.py " + path_.string());
  if (seen.starts_with("ezdxf missing")) GTEST_SKIP() << "ezdxf isn't installed for /usr/bin/python3";
  EXPECT_EQ(seen,
            "LINE 1.0 2.0 3.0 4.5 -5.0 6.0\n"
            "ARC 10.0 20.0 0.0 5.0 30.0 180.0\n"
            "CIRCLE -7.0 8.0 0.0 2.25\n"
            "LWPOLYLINE 0.0 0.0 0.5 10.0 0.0 0.0 10.0 5.0 0.0\n"
            "TEXT 3.0 4.0 0.0 2.5 caf\u00E9\n"
            "POINT\n");
}

TEST_F(DxfPeers, FindThePlainGeometryByOgr) {
  if (outputOf("ogrinfo --version").empty()) GTEST_SKIP() << "ogrinfo isn't installed";
  const std::string seen = outputOf("ogrinfo -ro -al -q " + path_.string());
  EXPECT_THAT(seen, HasSubstr("LINESTRING Z (1 2 3,4.5 -5 6)"));
  EXPECT_THAT(seen, HasSubstr("POINT Z (3 4 0)"));
  EXPECT_THAT(seen, HasSubstr("POINT Z (9 9 9)"));
  EXPECT_THAT(seen, HasSubstr("caf\u00E9"));
}

// --- Drawings of other programs
// -----------------------------------------------------------------------------------------

TEST(DxfSamples, OpenAndComeBackTheSame) {
  if (dwgtools::samples().empty()) GTEST_SKIP() << "no sample drawings here";
  int count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(dwgtools::samples())) {
    if (entry.path().extension() != ".dxf") continue;
    ++count;
    SCOPED_TRACE(entry.path().filename().string());
    const Read read = readText(fileText(entry.path()));
    ASSERT_EQ(read.status, Acad::eOk) << messages(read.report);
    const std::string first = writeText(*read.db);
    const Read again = readText(first);
    ASSERT_EQ(again.status, Acad::eOk) << messages(again.report);
    EXPECT_TRUE(writeText(*again.db) == first);
    ASSERT_EQ(again.db->approxNumObjects() > 0, true);
  }
  EXPECT_GT(count, 0);
}
