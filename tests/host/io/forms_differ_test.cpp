// What one form of file holds and the other can't say: it is told, and what is written opens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "DwgTools.h"
#include "host/db/db.h"
#include "host/io/dxf/Dxf.h"

using dwgtools::Bytes;
using dwgtools::textOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// The exchange form of a drawing, with what its writer said, opened again.
struct AsText {
  explicit AsText(AcDbDatabase& from) : database(new AcDbDatabase(false)) {
    Bytes bytes;
    EXPECT_EQ(krio::writeDxf(from, bytes, written), Acad::eOk) << textOf(written);
    krio::Report report;
    EXPECT_EQ(krio::readDxf(bytes, *database, report, {}), Acad::eOk) << textOf(report);
  }
  std::unique_ptr<AcDbDatabase> database;
  krio::Report written;
};

AcDbObjectId add(AcDbDatabase& database, AcDbEntity* entity) {
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
  AcDbObjectId id;
  EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
  entity->close();
  return id;
}

template <class T>
const T& objectOf(AcDbDatabase& database, AcDbObjectId id) {
  return static_cast<const T&>(*database.handleTable().find(id.handle().value())->object);
}

AcDbObjectId firstRecord(AcDbObjectId table) {
  const AcDbObjectPointer<AcDbSymbolTable> open(table, AcDb::kForRead);
  return open->recordIds().front();
}

AcDbObjectId addLayer(AcDbDatabase& database, const wchar_t* name) {
  auto* const layer = new AcDbLayerTableRecord;
  EXPECT_EQ(layer->setName(name), Acad::eOk);
  const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForWrite);
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, layer), Acad::eOk);
  layer->close();
  return id;
}

TEST(FormsDiffer, AViewOfNextToNoHeightLosesItsWidth) {
  AcDbDatabase database;
  const AcDbObjectId id = firstRecord(database.viewportTableId());
  {
    const AcDbObjectPointer<AcDbViewportTableRecord> viewport(id, AcDb::kForWrite);
    viewport->viewDataAsRead().width = 1e300;
    viewport->viewDataAsRead().height = 1e-300;
  }
  const AsText text(database);
  ASSERT_EQ(text.written.findings.size(), 1U);
  EXPECT_THAT(text.written.findings[0].what, HasSubstr("no file can say"));
  EXPECT_EQ(text.written.findings[0].handle, id.handle().value());
  const auto& view = objectOf<AcDbViewportTableRecord>(*text.database, id).viewData();
  EXPECT_EQ(view.height, 1e-300);
  EXPECT_EQ(view.width, 1e-300);
}

TEST(FormsDiffer, AViewOfNothingLosesNothing) {
  AcDbDatabase database;
  const AcDbObjectId id = firstRecord(database.viewportTableId());
  {
    const AcDbObjectPointer<AcDbViewportTableRecord> viewport(id, AcDb::kForWrite);
    viewport->viewDataAsRead().width = viewport->viewDataAsRead().height = 0;
  }
  const AsText text(database);
  EXPECT_TRUE(text.written.clean()) << textOf(text.written);
  EXPECT_EQ(objectOf<AcDbViewportTableRecord>(*text.database, id).viewData().width, 0);
}

// A radian has 57.3 degrees: the largest number is about 1.8e308.
TEST(FormsDiffer, AnAngleBeyondAllDegreesIsWrittenAsNone) {
  AcDbDatabase database;
  AcDbObjectId ids[2];
  for (int i = 0; i < 2; ++i) {
    auto* const text = new AcDbText;
    text->dataAsRead().text = L"A";
    text->dataAsRead().oblique = i == 0 ? 3e306 : 4e306;
    ids[i] = add(database, text);
  }
  const AsText text(database);
  ASSERT_EQ(text.written.findings.size(), 1U) << textOf(text.written);
  EXPECT_EQ(text.written.findings[0].handle, ids[1].handle().value());
  EXPECT_EQ(objectOf<AcDbText>(*text.database, ids[0]).data().oblique, 3e306);
  EXPECT_EQ(objectOf<AcDbText>(*text.database, ids[1]).data().oblique, 0);
}

// By names the exchange form refers to records: of two alike, what lies on one would be taken for the other's.
TEST(FormsDiffer, RecordsOfOneNameInADrawingGetNamesOfTheirOwn) {
  AcDbDatabase database;
  const AcDbObjectId first = addLayer(database, L"Beams");
  const AcDbObjectId second = addLayer(database, L"Other");
  const AcDbObjectId third = addLayer(database, L"Third");
  auto* const line = new AcDbLine;
  const AcDbObjectId lineId = add(database, line);
  {
    const AcDbObjectPointer<AcDbLine> open(lineId, AcDb::kForWrite);
    ASSERT_EQ(open->setLayer(third), Acad::eOk);
  }
  for (const auto& [id, name] : {std::pair(second, L"BEAMS"), std::pair(third, L"beams")}) {
    const AcDbObjectPointer<AcDbLayerTableRecord> record(id, AcDb::kForWrite);
    record->setNameAsRead(name);
  }

  const dwgtools::Opened opened(dwgtools::saved(database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  ASSERT_EQ(opened.report.findings.size(), 2U) << textOf(opened.report);
  EXPECT_THAT(opened.report.findings[0].what, HasSubstr("\"BEAMS\" stands twice in a table"));
  const AsText text(*opened.database);
  for (AcDbDatabase* const each : {opened.database.get(), text.database.get()}) {
    std::vector<std::wstring> names;
    for (const AcDbObjectId id : {first, second, third})
      names.push_back(objectOf<AcDbLayerTableRecord>(*each, id).nameText());
    EXPECT_THAT(names, ElementsAre(L"Beams", L"BEAMS$1", L"beams$2"));
    EXPECT_EQ(objectOf<AcDbLine>(*each, lineId).common().layer.handle(), third.handle());
  }
}

// An erased attribute takes the end of its sequence along: neither form has a place for an end that ends nothing.
TEST(FormsDiffer, AnInsertThatLostItsAttributesHasNoSequence) {
  AcDbDatabase database;
  auto* const insert = new AcDbBlockReference({0, 0, 0}, database.paperSpaceId());
  const AcDbObjectId id = add(database, insert);
  {
    const AcDbObjectPointer<AcDbBlockReference> open(id, AcDb::kForWrite);
    auto* const attribute = new AcDbAttribute;
    AcDbObjectId attributeId;
    ASSERT_EQ(open->appendAttribute(attributeId, attribute), Acad::eOk);
    ASSERT_TRUE(open->subentities()->sequenceEnd().isResident());
    attribute->erase();
    attribute->close();
  }
  const auto ends = [](AcDbDatabase& in) {
    return std::ranges::count_if(in.handleTable().stubs(), [](const AcDbStub& stub) {
      return stub.object != nullptr && stub.object->isA() == AcDbSequenceEnd::desc();
    });
  };
  const dwgtools::Opened opened(dwgtools::saved(database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  EXPECT_TRUE(opened.report.clean()) << textOf(opened.report);
  EXPECT_EQ(ends(*opened.database), 0);
  EXPECT_EQ(ends(*AsText(database).database), 0);
}

// A damaged drawing's references can lead anywhere; the exchange form names records.
TEST(FormsDiffer, WhatNamesNoRecordNamesTheUsualOne) {
  AcDbDatabase database;
  auto* const text = new AcDbText;
  text->dataAsRead().text = L"A";
  const AcDbObjectId id = add(database, text);
  const AcDbObjectId layer = addLayer(database, L"Beams");
  text->dataAsRead().style = id;
  AcDbEntity::Common common = text->common();
  common.layer = id;
  common.linetype = id;
  text->setCommonAsRead(common);
  {
    const AcDbObjectPointer<AcDbLayerTableRecord> open(layer, AcDb::kForWrite);
    open->setLinetypeAsRead(id);
  }

  const AsText written(database);
  EXPECT_TRUE(written.written.clean());
  AcDbDatabase& again = *written.database;
  const auto& read = objectOf<AcDbText>(again, id);
  EXPECT_EQ(read.common().layer, again.layerZero());
  EXPECT_EQ(read.common().linetype, again.byLayerLinetype());
  EXPECT_EQ(read.data().style.handle(), again.roots().standardTextStyle.handle());
  const AcDbObjectPointer<AcDbLayerTableRecord> open(again.handleTable().find(layer.handle().value()), AcDb::kForRead);
  EXPECT_EQ(open->linetypeObjectId(), again.roots().continuous);
}

TEST(FormsDiffer, ManyViewportsMayHaveOneName) {
  AcDbDatabase database;
  {
    auto* const another = new AcDbViewportTableRecord;
    another->setNameAsRead(L"Another");
    const AcDbObjectPointer<AcDbViewportTable> table(database.viewportTableId(), AcDb::kForWrite);
    ASSERT_EQ(table->add(another), Acad::eOk);
    another->setNameAsRead(L"*Active");
    another->close();
  }
  const dwgtools::Opened opened(dwgtools::saved(database));
  ASSERT_EQ(opened.status, Acad::eOk);
  EXPECT_TRUE(opened.report.clean()) << textOf(opened.report);
}

// The exchange form reads an object whatever its list tells of the class; so does what is saved from it.
TEST(FormsDiffer, AListThatCallsAClassOfObjectsOneOfEntitiesDoesNoHarm) {
  AcDbDatabase database;
  AcDbClassRecord record;
  record.dxfName = L"ACDBDICTIONARYWDFLT";
  record.cppName = L"AcDbDictionaryWithDefault";
  record.appName = L"ObjectDBX Classes";
  record.itemClassId = AcDbClassRecord::kEntityClass;
  database.classRecords().insert(database.classRecords().begin(), record);
  const auto isOne = [](const AcDbStub& stub) {
    return stub.object != nullptr && stub.object->isA() == AcDbDictionaryWithDefault::desc();
  };
  const auto numIn = [&](const AcDbDatabase& in) { return std::ranges::count_if(in.handleTable().stubs(), isOne); };
  ASSERT_EQ(numIn(database), 1);
  const dwgtools::Opened opened(dwgtools::saved(database));
  ASSERT_EQ(opened.status, Acad::eOk) << textOf(opened.report);
  EXPECT_TRUE(opened.report.clean()) << textOf(opened.report);
  EXPECT_EQ(numIn(*opened.database), 1);
}

}  // namespace
