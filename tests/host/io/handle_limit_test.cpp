// Handles that no object can have: what files tell of them, and that drawings stay such as can be saved in both forms.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <span>
#include <string>

#include "DwgTools.h"
#include "host/db/HandleLimit.h"
#include "host/db/db.h"
#include "host/io/dxf/Dxf.h"

using dwgtools::Bytes;
using dwgtools::textOf;
using testing::HasSubstr;

namespace {

constexpr Adesk::UInt64 kLimit = 0x1000000000000000;  // 2 to the 60th

/// A drawing from the text of a DXF.
struct Text {
  explicit Text(const std::string& text, bool recover = false) : database(new AcDbDatabase(false)) {
    status = krio::readDxf(std::as_bytes(std::span(text)), *database, report, {recover});
  }
  std::unique_ptr<AcDbDatabase> database;
  krio::Report report;
  Acad::ErrorStatus status = Acad::eOk;
};

std::string section(const std::string& name, const std::string& groups) {
  return "0\nSECTION\n2\n" + name + "\n" + groups + "0\nENDSEC\n";
}

/// A file of one line with handle 2A, with further groups for it and for its file.
std::string oneLine(const std::string& frame = "", const std::string& extended = "", const std::string& header = "",
                    const std::string& objects = "") {
  return section("HEADER", header) +
         section("ENTITIES", "0\nLINE\n5\n2A\n" + frame +
                                 "100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n" + extended) +
         section("OBJECTS", objects) + "0\nEOF\n";
}

Adesk::UInt64 appendLine(AcDbDatabase& database) {
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
  auto* const line = new AcDbLine({0, 0, 0}, {2, 3, 0});
  EXPECT_EQ(space->appendAcDbEntity(line), Acad::eOk);
  line->close();
  return line->objectId().handle().value();
}

void expectDifferentHandles(const AcDbDatabase& database) {
  std::set<Adesk::UInt64> handles;
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    EXPECT_TRUE(handles.insert(stub.handle).second) << std::hex << stub.handle;
    EXPECT_LE(stub.handle, kLimit) << std::hex << stub.handle;
  }
}

/// Saves a drawing in both forms and opens both strictly: they hold the same lines, each under a handle of its own.
void expectSavedAndOpened(AcDbDatabase& database, int lines) {
  expectDifferentHandles(database);
  const dwgtools::Opened drawing(dwgtools::saved(database));
  ASSERT_EQ(drawing.status, Acad::eOk) << textOf(drawing.report);
  Bytes bytes;
  krio::Report report;
  ASSERT_EQ(krio::writeDxf(database, bytes, report), Acad::eOk) << textOf(report);
  const Text text(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
  ASSERT_EQ(text.status, Acad::eOk) << textOf(text.report);
  for (AcDbDatabase* const again : {drawing.database.get(), text.database.get()}) {
    EXPECT_EQ(dwgtools::census(*again)["AcDbLine"], lines);
    expectDifferentHandles(*again);
    appendLine(*again);
    expectDifferentHandles(*again);
  }
}

}  // namespace

class ReferencesBeyond : public testing::TestWithParam<const char*> {};

TEST_P(ReferencesBeyond, AreDroppedWithAWarningWhereverTheyStand) {
  const std::string beyond = GetParam();
  const std::string record =
      "0\nXRECORD\n5\n2B\n330\n2A\n100\nAcDbXrecord\n280\n1\n340\n" + beyond + "\n330\n" + beyond + "\n";
  for (const std::string& file : {
           oneLine("330\n" + beyond + "\n"),
           oneLine("102\n{ACAD_REACTORS\n330\n" + beyond + "\n102\n}\n"),
           oneLine("102\n{ACAD_XDICTIONARY\n360\n" + beyond + "\n102\n}\n"),
           oneLine("", "", "", record),
       }) {
    const Text read(file);
    ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report) << file;
    EXPECT_THAT(textOf(read.report), HasSubstr("warning: a reference is beyond all handles")) << file;
    const Adesk::UInt64 seed = read.database->handseed().value();
    EXPECT_LT(seed, 0x1000U) << file;
    EXPECT_EQ(appendLine(*read.database), seed);
    expectSavedAndOpened(*read.database, 2);
  }
}

TEST_P(ReferencesBeyond, AreTextInExtendedDataAndStay) {
  const std::string beyond = GetParam();
  const Text read(oneLine("", "1001\nACAD\n1005\n" + beyond + "\n"));
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  appendLine(*read.database);
  expectSavedAndOpened(*read.database, 2);
  const dwgtools::Opened again(dwgtools::saved(*read.database));
  AcDbObjectId id;
  ASSERT_EQ(again.database->getAcDbObjectId(id, false, AcDbHandle(0x2A)), Acad::eOk);
  const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
  ASSERT_EQ(line.openStatus(), Acad::eOk);
  resbuf* const data = line->xData();
  ASSERT_NE(data, nullptr);
  ASSERT_NE(data->rbnext, nullptr);
  std::string digits;
  for (const wchar_t* c = data->rbnext->resval.rstring; *c != L'\0'; ++c) digits += char(*c);
  acutRelRb(data);
  EXPECT_EQ(digits, beyond);
}

INSTANTIATE_TEST_SUITE_P(Numbers, ReferencesBeyond,
                         testing::Values("1000000000000001", "2000000000000000", "FFFFFFFFFFFFFFFF"));

class HandleBeyond : public testing::TestWithParam<const char*> {};

TEST_P(HandleBeyond, IsAFaultAndGetsAnotherWhenRecovering) {
  const std::string file =
      section("ENTITIES", std::string("0\nLINE\n5\n") + GetParam() +
                              "\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n") +
      "0\nEOF\n";
  const Text strict(file);
  EXPECT_NE(strict.status, Acad::eOk);
  EXPECT_THAT(textOf(strict.report), HasSubstr("error: a handle is beyond all bounds"));
  const Text read(file, true);
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  appendLine(*read.database);
  expectSavedAndOpened(*read.database, 2);
}

TEST_P(HandleBeyond, IsNoNextHandle) {
  const Text read(oneLine("", "", std::string("9\n$HANDSEED\n5\n") + GetParam() + "\n"));
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  if (std::string(GetParam()) != "1000000000000001") {
    EXPECT_THAT(textOf(read.report), HasSubstr("warning: HANDSEED is beyond all handles"));
    EXPECT_LT(read.database->handseed().value(), 0x1000U);
  }
  appendLine(*read.database);
  expectSavedAndOpened(*read.database, 2);
}

INSTANTIATE_TEST_SUITE_P(Numbers, HandleBeyond,
                         testing::Values("1000000000000001", "2000000000000000", "FFFFFFFFFFFFFFFF"));

TEST(LastHandle, IsTakenAndNewObjectsGetTheFreeOnesBelow) {
  const std::string file =
      section("ENTITIES",
              "0\nLINE\n5\n1000000000000000\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0\n20\n0\n11\n1\n21\n1\n") +
      "0\nEOF\n";
  const Text read(file);
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  EXPECT_EQ(read.database->handseed().value(), kLimit + 1);
  AcDbObjectId id;
  EXPECT_EQ(read.database->getAcDbObjectId(id, false, AcDbHandle(kLimit)), Acad::eOk);
  for (int i = 0; i < 3; ++i) EXPECT_LT(appendLine(*read.database), 0x1000U);
  expectSavedAndOpened(*read.database, 4);
}

TEST(OwnersThatAreNot, KeepTheirHandleFromNewObjects) {
  const Text read(oneLine("330\n7FF\n"));
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  AcDbObjectId owner;
  ASSERT_EQ(read.database->getAcDbObjectId(owner, false, AcDbHandle(0x7FF)), Acad::eOk);
  EXPECT_FALSE(owner.isResident());
  EXPECT_GT(appendLine(*read.database), 0x7FFU);
  expectSavedAndOpened(*read.database, 2);
}

TEST(OwnersInACircle, AreDroppedWithAWarningSoThatTheDrawingCanBeSaved) {
  const std::string dictionary = "100\nAcDbDictionary\n281\n1\n";
  const Text read(oneLine("330\n2A\n", "", "",
                          "0\nDICTIONARY\n5\n50\n330\n50\n" + dictionary + "0\nDICTIONARY\n5\n51\n330\n52\n" +
                              dictionary + "0\nDICTIONARY\n5\n52\n330\n53\n" + dictionary +
                              "0\nDICTIONARY\n5\n53\n330\n51\n" + dictionary));
  ASSERT_EQ(read.status, Acad::eOk) << textOf(read.report);
  for (const Adesk::UInt64 handle : {0x2AU, 0x50U, 0x51U, 0x52U, 0x53U}) {
    AcDbObjectId id;
    ASSERT_EQ(read.database->getAcDbObjectId(id, false, AcDbHandle(handle)), Acad::eOk);
    EXPECT_FALSE(id.isEffectivelyErased());
    // Of a circle the first that the file names: 51 names its owner ahead of itself.
    EXPECT_EQ(id.stub()->owner == nullptr, handle == 0x50 || handle == 0x52) << std::hex << handle;
  }
  EXPECT_THAT(textOf(read.report), HasSubstr("owners form a circle; it has none now (handle 80"));
  EXPECT_THAT(textOf(read.report), HasSubstr("owners form a circle; it has none now (handle 82"));
  expectSavedAndOpened(*read.database, 1);
}

TEST(HandlesOfADwg, BeyondTheLimitCostTheirObjectsAndNoOthers) {
  AcDbDatabase database;
  const Adesk::UInt64 kept = appendLine(database);
  for (const Adesk::UInt64 handle : {kLimit + 1, 4 * kLimit}) {
    AcDbStub* const stub = database.stubOf(handle);
    auto line = std::make_unique<AcDbLine>(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0));
    ASSERT_EQ(database.putRead(line.get(), stub, database.modelSpaceId().stub()), Acad::eOk);
    static_cast<void>(line.release());
    AcDbBlockTableRecord::cast(database.modelSpaceId().stub()->object)->listAsRead(stub);
  }
  Bytes bytes;
  krio::Report report;
  ASSERT_EQ(krio::writeDwg(database, bytes, report), Acad::eOk) << textOf(report);

  const dwgtools::Opened strict(bytes);
  EXPECT_NE(strict.status, Acad::eOk);
  EXPECT_THAT(textOf(strict.report), HasSubstr("a handle is too large"));
  const dwgtools::Opened recovered(bytes, true);
  ASSERT_EQ(recovered.status, Acad::eOk) << textOf(recovered.report);
  expectDifferentHandles(*recovered.database);
  const auto& entities = AcDbBlockTableRecord::cast(recovered.database->modelSpaceId().stub()->object)->entities();
  ASSERT_EQ(entities.size(), 1U);
  EXPECT_EQ(entities[0]->handle, kept);
  EXPECT_EQ(dwgtools::Opened(dwgtools::saved(*recovered.database)).status, Acad::eOk);
}

TEST(Handles, BeyondTheLimitAreRefusedByTheDatabase) {
  AcDbDatabase database;
  const Adesk::UInt64 seed = database.handseed().value();
  AcDbObjectId id;
  EXPECT_EQ(database.getAcDbObjectId(id, true, AcDbHandle(kLimit + 1)), Acad::eUnknownHandle);
  EXPECT_TRUE(id.isNull());
  EXPECT_EQ(database.setHandseed(AcDbHandle(kLimit + 2)), Acad::eInvalidInput);
  AcDbPoint point;
  EXPECT_EQ(database.addAcDbObject(id, &point, database.modelSpaceId(), AcDbHandle(kLimit + 1)), Acad::eInvalidInput);
  EXPECT_EQ(database.handseed().value(), seed);
  EXPECT_EQ(database.setHandseed(AcDbHandle(kLimit + 1)), Acad::eOk);
  EXPECT_LT(appendLine(database), 0x1000U);
  expectSavedAndOpened(database, 1);
}
