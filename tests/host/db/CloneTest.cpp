#include "host/db/Support.h"

namespace {

class Clone : public DrawingTest {
 protected:
  static AcDbObjectId cloneOf(const AcDbIdMapping& map, AcDbObjectId id) {
    AcDbIdPair pair(id, AcDbObjectId::kNull, false);
    return map.compute(pair) ? pair.value() : AcDbObjectId::kNull;
  }
  static AcDbObjectIdArray only(AcDbObjectId id) {
    AcDbObjectIdArray ids;
    ids.append(id);
    return ids;
  }
  static Probe& at(AcDbObjectId id) { return *static_cast<Probe*>(id.stub()->object); }
  static AcDbObjectId addLayer(AcDbDatabase& database, const ACHAR* name, int color) {
    const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(name);
    AcCmColor c;
    c.setColorIndex(color);
    layer->setColor(c);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, layer), Acad::eOk);
    layer->close();
    return id;
  }
  static int colorOf(AcDbObjectId layer) {
    const AcDbObjectPointer<AcDbLayerTableRecord> record(layer, AcDb::kForRead);
    return record->color().colorIndex();
  }
};

TEST_F(Clone, ACopyIsOutsideOfTheDatabaseAndTellsNobody) {
  const AcDbObjectId listener = append(new Probe);
  const AcDbObjectId id = append(new Probe(5));
  const AcDbObjectPointer<Probe> source(id, AcDb::kForWrite);
  source->addPersistentReactor(listener);
  source->setColorIndex(3);
  const std::unique_ptr<AcRxObject> made(source->clone());
  auto* const copy = Probe::cast(made.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_TRUE(copy->objectId().isNull());
  EXPECT_EQ(copy->value(), 5);
  EXPECT_EQ(copy->colorIndex(), 3);
  EXPECT_FALSE(copy->hasReactors());
}

TEST_F(Clone, CopyFromTakesTheFieldsOfItsOwnClassOnly) {
  Probe a(1), b(2);
  EXPECT_EQ(a.copyFrom(&b), Acad::eOk);
  EXPECT_EQ(a.value(), 2);
  AcDbLayerTableRecord layer;
  EXPECT_EQ(a.copyFrom(&layer), Acad::eNotThatKindOfClass);
  EXPECT_EQ(a.copyFrom(nullptr), Acad::eNullObjectPointer);
}

TEST_F(Clone, WhatWasClonedAlongIsNamedByItsCloneAllElseAsBefore) {
  const AcDbObjectId partner = append(new Probe(1));
  const AcDbObjectId outsider = append(new Probe(2));
  const AcDbObjectId id = append(new Probe(3));
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->assertWriteEnabled();
    probe->softPointer = partner;
    probe->hardPointer = outsider;
  }
  AcDbObjectIdArray ids;
  ids.append(id);
  ids.append(partner);
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(ids, db.paperSpaceId(), map), Acad::eOk);
  const AcDbObjectId copy = cloneOf(map, id);
  ASSERT_FALSE(copy.isNull());
  EXPECT_NE(copy, id);
  EXPECT_EQ(valueOf(copy), 3);
  EXPECT_EQ(at(copy).softPointer, cloneOf(map, partner));
  EXPECT_NE(at(copy).softPointer, partner);
  EXPECT_EQ(at(copy).hardPointer, outsider);
  EXPECT_EQ(at(copy).ownerId(), db.paperSpaceId());
  EXPECT_EQ(at(id).softPointer, partner);
}

TEST_F(Clone, OwnedObjectsComeAlongUnderTheClone) {
  auto* const child = new Probe(8);
  const AcDbObjectId id = append(new Probe(3));
  AcDbObjectId childId;
  ASSERT_EQ(db.addAcDbObject(childId, child, id, AcDbHandle()), Acad::eOk);
  child->softPointer = id;
  child->close();
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->assertWriteEnabled();
    probe->hardOwned = childId;
  }
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(only(id), db.modelSpaceId(), map), Acad::eOk);
  const AcDbObjectId copy = cloneOf(map, id);
  const AcDbObjectId childCopy = cloneOf(map, childId);
  ASSERT_FALSE(childCopy.isNull());
  EXPECT_EQ(at(copy).hardOwned, childCopy);
  EXPECT_EQ(at(childCopy).ownerId(), copy);
  EXPECT_EQ(at(childCopy).softPointer, copy);
  AcDbIdPair pair(childId, AcDbObjectId::kNull, false);
  ASSERT_TRUE(map.compute(pair));
  EXPECT_FALSE(pair.isPrimary());
  EXPECT_TRUE(pair.isCloned());
}

TEST_F(Clone, AnEmptyOwnerMeansTheOriginalsOwn) {
  const AcDbObjectId id = append(new Probe);
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(only(id), AcDbObjectId::kNull, map), Acad::eOk);
  EXPECT_EQ(at(cloneOf(map, id)).ownerId(), db.modelSpaceId());
}

TEST_F(Clone, ExtensionDictionariesAndExtendedDataComeAlong) {
  const AcDbObjectId id = append(new Probe);
  resbuf* const data = acutBuildList(1001, L"MEMBERS", 1070, 12, 1040, 2.5, 1000, L"text", 0);
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    ASSERT_EQ(probe->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(probe->createExtensionDictionary(), Acad::eAlreadyInDb);
    ASSERT_EQ(probe->setXData(data), Acad::eOk);
    const AcDbObjectPointer<AcDbDictionary> dictionary(probe->extensionDictionary(), AcDb::kForWrite);
    auto* const record = new AcDbXrecord;
    const std::unique_ptr<resbuf, int (*)(resbuf*)> values(acutBuildList(40, 1.5, 0), acutRelRb);
    record->setFromRbChain(*values);
    AcDbObjectId recordId;
    ASSERT_EQ(dictionary->setAt(L"ENTRY", record, recordId), Acad::eOk);
    record->close();
  }
  acutRelRb(data);
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(only(id), db.modelSpaceId(), map), Acad::eOk);
  const AcDbObjectPointer<Probe> copy(cloneOf(map, id), AcDb::kForRead);
  const AcDbObjectPointer<Probe> original(id, AcDb::kForRead);
  ASSERT_FALSE(copy->extensionDictionary().isNull());
  EXPECT_NE(copy->extensionDictionary(), original->extensionDictionary());
  const AcDbObjectPointer<AcDbDictionary> dictionary(copy->extensionDictionary(), AcDb::kForRead);
  AcDbObject* entry = nullptr;
  ASSERT_EQ(dictionary->getAt(L"entry", entry, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(entry->ownerId(), copy->extensionDictionary());
  entry->close();
  resbuf* const read = copy->xData(L"members");
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->rbnext->resval.rint, 12);
  EXPECT_EQ(read->rbnext->rbnext->resval.rreal, 2.5);
  acutRelRb(read);
}

TEST_F(Clone, AppendedClonesAreToldOfBeforeTheirIdsAreTranslated) {
  struct Emptier : AcDbDatabaseReactor {
    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override {
      if (auto* const probe = Probe::cast(object)) {
        probe->assertWriteEnabled();
        probe->softPointer.setNull();
      }
    }
  } emptier;
  const AcDbObjectId partner = append(new Probe(1));
  const AcDbObjectId id = append(new Probe(3));
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->assertWriteEnabled();
    probe->softPointer = partner;
  }
  db.addReactor(&emptier);
  AcDbIdMapping map;
  ASSERT_EQ(db.deepCloneObjects(only(id), db.modelSpaceId(), map), Acad::eOk);
  db.removeReactor(&emptier);
  EXPECT_TRUE(at(cloneOf(map, id)).softPointer.isNull());
  EXPECT_EQ(at(id).softPointer, partner);
}

TEST_F(Clone, AcrossDatabasesHardReferencesComeAlongAndSoftOnesGo) {
  AcDbDatabase to;
  const AcDbObjectId layer = addLayer(db, L"PERFIL", 3);
  const AcDbObjectId partner = append(new Probe(1));
  const AcDbObjectId mentioned = append(new Probe(2));
  const AcDbObjectId id = append(new Probe(3));
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    ASSERT_EQ(probe->setLayer(layer), Acad::eOk);
    probe->hardPointer = partner;
    probe->softPointer = mentioned;
  }
  AcDbIdMapping map;
  ASSERT_EQ(to.wblockCloneObjects(only(id), to.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
  const AcDbObjectId copy = cloneOf(map, id);
  ASSERT_FALSE(copy.isNull());
  EXPECT_EQ(copy.database(), &to);
  EXPECT_EQ(at(copy).hardPointer.database(), &to);
  EXPECT_EQ(valueOf(at(copy).hardPointer), 1);
  EXPECT_TRUE(at(copy).softPointer.isNull());
  const AcDbObjectPointer<Probe> probe(copy, AcDb::kForRead);
  EXPECT_EQ(probe->layerId().database(), &to);
  EXPECT_EQ(colorOf(probe->layerId()), 3);
  EXPECT_EQ(probe->linetypeId(), to.byLayerLinetype());
  EXPECT_EQ(to.numOpenObjects(), 1);
}

TEST_F(Clone, ARecordOfTheSameNameIsKeptReplacedOrRenamed) {
  const AcDbObjectId layer = addLayer(db, L"PERFIL", 3);
  const AcDbObjectId id = append(new Probe);
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->setLayer(layer);
  }
  const auto colors = [&](AcDb::DuplicateRecordCloning drc) {
    AcDbDatabase to;
    const AcDbObjectId existing = addLayer(to, L"Perfil", 5);
    AcDbIdMapping map;
    EXPECT_EQ(to.wblockCloneObjects(only(id), to.modelSpaceId(), map, drc), Acad::eOk);
    const AcDbObjectPointer<Probe> probe(cloneOf(map, id), AcDb::kForRead);
    return std::pair(colorOf(existing), colorOf(probe->layerId()));
  };
  EXPECT_EQ(colors(AcDb::kDrcIgnore), std::pair(5, 5));
  EXPECT_EQ(colors(AcDb::kDrcReplace), std::pair(3, 3));
  EXPECT_EQ(colors(AcDb::kDrcMangleName), std::pair(5, 3));
}

TEST_F(Clone, InsertMakesABlockOfAnotherDrawing) {
  AcDbDatabase from;
  append(from, new Probe(1));
  append(from, new Probe(2));
  AcDbObjectId blockId;
  ASSERT_EQ(db.insert(blockId, L"TRUSS", &from), Acad::eOk);
  EXPECT_EQ(db.insert(blockId, L"truss", &from), Acad::eDuplicateRecordName);
  const AcDbObjectPointer<AcDbBlockTable> table(db.blockTableId(), AcDb::kForRead);
  AcDbBlockTableRecord* block = nullptr;
  ASSERT_EQ(table->getAt(L"TRUSS", block, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(block->entities().size(), 2U);
  EXPECT_EQ(valueOf(block->entities()[1]), 2);
  block->close();
}

TEST_F(Clone, WblockMovesTheCopiesOnceEach) {
  const AcDbObjectId id = append(new Probe(1));
  AcDbDatabase* made = nullptr;
  ASSERT_EQ(db.wblock(made, only(id), AcGePoint3d(1, 0, 0)), Acad::eOk);
  const std::unique_ptr<AcDbDatabase> owned(made);
  const AcDbObjectPointer<AcDbBlockTableRecord> space(made->modelSpaceId(), AcDb::kForRead);
  ASSERT_EQ(space->entities().size(), 1U);
  EXPECT_EQ(valueOf(space->entities()[0]), 2);
}

TEST_F(Clone, AFailureLeavesNoCloneBehind) {
  const AcDbObjectId id = append(new Probe);
  AcDbObjectIdArray ids = only(id);
  ids.append(AcDbObjectId::kNull);
  AcDbIdMapping map;
  EXPECT_EQ(db.deepCloneObjects(ids, db.modelSpaceId(), map), Acad::eNullObjectId);
  EXPECT_TRUE(cloneOf(map, id).isErased());
}

}  // namespace
