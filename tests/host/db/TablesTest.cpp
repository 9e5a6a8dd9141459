#include "host/db/Support.h"

namespace {

class Tables : public DrawingTest {
 protected:
  AcDbObjectId addLayer(const ACHAR* name) {
    const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(name);
    AcDbObjectId id;
    status = table->add(id, layer);
    if (status == Acad::eOk) {
      layer->close();
    } else {
      delete layer;
    }
    return id;
  }
  void erase(AcDbObjectId id, bool erasing = true) {
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite, true);
    status = object->erase(erasing);
  }
  std::vector<std::wstring> layers(bool skipDeleted) {
    const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
    AcDbLayerTableIterator* made = nullptr;
    table->newIterator(made, true, skipDeleted);
    const std::unique_ptr<AcDbLayerTableIterator> iterator(made);
    std::vector<std::wstring> names;
    for (; !iterator->done(); iterator->step(true, skipDeleted)) {
      AcDbLayerTableRecord* record = nullptr;
      EXPECT_EQ(iterator->getRecord(record, AcDb::kForRead, !skipDeleted), Acad::eOk);
      const ACHAR* name = nullptr;
      record->getName(name);
      names.emplace_back(name);
      record->close();
    }
    return names;
  }
  Acad::ErrorStatus status = Acad::eOk;
};

TEST_F(Tables, ADrawingBeginsWithTheRecordsThatEveryDrawingHas) {
  const auto has = [](AcDbObjectId table, const ACHAR* name) {
    const AcDbObjectPointer<AcDbSymbolTable> opened(table, AcDb::kForRead);
    return opened->has(name);
  };
  EXPECT_TRUE(has(db.layerTableId(), L"0"));
  EXPECT_TRUE(has(db.linetypeTableId(), L"BYLAYER"));
  EXPECT_TRUE(has(db.linetypeTableId(), L"byblock"));
  EXPECT_TRUE(has(db.linetypeTableId(), L"continuous"));
  EXPECT_TRUE(has(db.textStyleTableId(), L"STANDARD"));
  EXPECT_TRUE(has(db.dimStyleTableId(), L"Standard"));
  EXPECT_TRUE(has(db.blockTableId(), L"*MODEL_SPACE"));
  EXPECT_TRUE(has(db.blockTableId(), ACDB_PAPER_SPACE));
  EXPECT_EQ(db.clayer(), db.layerZero());
}

TEST_F(Tables, NamesCompareWithoutRegardToCaseAccentsIncluded) {
  const AcDbObjectId id = addLayer(L"Furação");
  EXPECT_EQ(status, Acad::eOk);
  addLayer(L"FURAÇÃO");
  EXPECT_EQ(status, Acad::eDuplicateRecordName);
  const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
  AcDbObjectId found;
  EXPECT_EQ(table->getAt(L"furaçÃO", found), Acad::eOk);
  EXPECT_EQ(found, id);
  EXPECT_EQ(table->getAt(L"furacao", found), Acad::eKeyNotFound);
}

TEST_F(Tables, NamesThatCantBeAreRefused) {
  AcDbLayerTableRecord layer;
  for (const ACHAR* const bad : {L"", L"a|b", L"a*b", L"a=b"}) EXPECT_EQ(layer.setName(bad), Acad::eInvalidInput);
  EXPECT_EQ(layer.setName(std::wstring(256, L'x').c_str()), Acad::eInvalidInput);
  EXPECT_EQ(layer.setName(std::wstring(255, L'x').c_str()), Acad::eOk);
}

TEST_F(Tables, AnErasedRecordIsFoundOnRequestAndFreesItsName) {
  const AcDbObjectId id = addLayer(L"EIXO");
  erase(id);
  {
    const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
    AcDbObjectId found;
    EXPECT_FALSE(table->has(L"EIXO"));
    EXPECT_EQ(table->getAt(L"EIXO", found), Acad::eKeyNotFound);
    EXPECT_EQ(table->getAt(L"eixo", found, true), Acad::eOk);
    EXPECT_EQ(found, id);
  }
  EXPECT_EQ(layers(true), (Told{L"0"}));
  EXPECT_EQ(layers(false), (Told{L"0", L"EIXO"}));
  const AcDbObjectId second = addLayer(L"EIXO");
  EXPECT_EQ(status, Acad::eOk);
  erase(id, false);
  EXPECT_EQ(status, Acad::eDuplicateRecordName);
  erase(second);
  erase(id, false);
  EXPECT_EQ(status, Acad::eOk);
}

TEST_F(Tables, LayerZeroAndTheCurrentOneStay) {
  const AcDbObjectId id = addLayer(L"A");
  db.setClayer(id);
  erase(id);
  EXPECT_EQ(status, Acad::eCannotBeErasedByCaller);
  erase(db.layerZero());
  EXPECT_EQ(status, Acad::eCannotBeErasedByCaller);
  const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
  EXPECT_EQ(layer->setIsFrozen(true), Acad::eInvalidLayer);
}

TEST_F(Tables, ARenamedRecordIsFoundByItsNewName) {
  const AcDbObjectId id = addLayer(L"A");
  {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
    EXPECT_EQ(layer->setName(L"0"), Acad::eDuplicateRecordName);
    EXPECT_EQ(layer->setName(L"B"), Acad::eOk);
  }
  const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
  EXPECT_FALSE(table->has(L"A"));
  EXPECT_TRUE(table->has(L"b"));
}

TEST_F(Tables, ALayerKeepsItsStateThroughACopy) {
  AcDbLayerTableRecord layer;
  layer.setName(L"X");
  layer.setIsOff(true);
  layer.setIsFrozen(true);
  layer.setIsLocked(true);
  layer.setVPDFLT(true);
  layer.setIsPlottable(false);
  layer.setLineWeight(AcDb::kLnWt050);
  const std::unique_ptr<AcRxObject> made(layer.clone());
  const auto& copy = *AcDbLayerTableRecord::cast(made.get());
  EXPECT_TRUE(copy.isOff());
  EXPECT_TRUE(copy.isFrozen());
  EXPECT_TRUE(copy.isLocked());
  EXPECT_TRUE(copy.VPDFLT());
  EXPECT_FALSE(copy.isPlottable());
  EXPECT_EQ(copy.lineWeight(), AcDb::kLnWt050);
}

TEST_F(Tables, ALinetypesPatternIsTheSumOfItsPieces) {
  AcDbLinetypeTableRecord dashed;
  EXPECT_EQ(dashed.setNumDashes(13), Acad::eInvalidInput);
  EXPECT_EQ(dashed.setNumDashes(3), Acad::eOk);
  dashed.setDashLengthAt(0, 6);
  dashed.setDashLengthAt(1, -2);
  EXPECT_EQ(dashed.setDashLengthAt(3, 1), Acad::eInvalidIndex);
  EXPECT_EQ(dashed.patternLength(), 8);
  EXPECT_EQ(dashed.dashLengthAt(7), 0);
}

TEST_F(Tables, EntitiesOfABlockAreWalkedBothWaysPastErasedOnes) {
  std::vector<AcDbObjectId> ids;
  for (int i = 0; i < 4; ++i) ids.push_back(append(new Probe(i)));
  erase(ids[0]);
  erase(ids[2]);
  const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForRead);
  const auto walk = [&](bool forward, bool skipDeleted) {
    AcDbBlockTableRecordIterator* made = nullptr;
    space->newIterator(made, forward, skipDeleted);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    std::vector<int> values;
    for (; !iterator->done(); iterator->step(forward, skipDeleted)) {
      AcDbObjectId id;
      iterator->getEntityId(id);
      values.push_back(valueOf(id));
    }
    return values;
  };
  EXPECT_EQ(walk(true, true), (std::vector{1, 3}));
  EXPECT_EQ(walk(false, true), (std::vector{3, 1}));
  EXPECT_EQ(walk(true, false), (std::vector{0, 1, 2, 3}));
}

TEST_F(Tables, AnAppendedEntityHasTheDefaultsThatWerentSet) {
  const AcDbObjectId id = append(new Probe);
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
  EXPECT_EQ(probe->layerId(), db.layerZero());
  EXPECT_EQ(probe->linetypeId(), db.byLayerLinetype());
  EXPECT_EQ(probe->colorIndex(), 256);
  EXPECT_EQ(probe->lineWeight(), AcDb::kLnWtByLayer);
  EXPECT_EQ(probe->linetypeScale(), 1.0);
  EXPECT_EQ(probe->blockId(), db.modelSpaceId());
  EXPECT_EQ(probe->setLayer(L"none such"), Acad::eKeyNotFound);
  EXPECT_EQ(probe->setColorIndex(257), Acad::eInvalidInput);
  EXPECT_EQ(probe->setLinetypeScale(0), Acad::eInvalidInput);
}

TEST_F(Tables, DatabaseDefaultsAreTheCurrentProperties) {
  db.setClayer(addLayer(L"A"));
  AcCmColor red;
  red.setColorIndex(1);
  db.setCecolor(red);
  db.setCeltscale(3);
  Probe probe;
  probe.setDatabaseDefaults(&db);
  EXPECT_EQ(probe.layerId(), db.clayer());
  EXPECT_EQ(probe.colorIndex(), 1);
  EXPECT_EQ(probe.linetypeScale(), 3);
}

TEST_F(Tables, HandlesNameObjectsForGood) {
  const AcDbObjectId id = append(new Probe);
  AcDbObjectId found;
  EXPECT_EQ(db.getAcDbObjectId(found, false, id.handle()), Acad::eOk);
  EXPECT_EQ(found, id);
  EXPECT_EQ(db.getAcDbObjectId(found, false, AcDbHandle(0xABCDEF)), Acad::eUnknownHandle);
  EXPECT_EQ(db.getAcDbObjectId(found, false, AcDbHandle()), Acad::eNullHandle);
  auto* const taken = new Probe;
  EXPECT_EQ(db.addAcDbObject(found, taken, AcDbObjectId::kNull, id.handle()), Acad::eHandleExists);
  delete taken;
}

TEST_F(Tables, TenThousandEntitiesAreFoundByTheirHandles) {
  std::vector<AcDbObjectId> ids;
  for (int i = 0; i < 10000; ++i) ids.push_back(append(new Probe(i)));
  for (std::size_t i = 0; i < ids.size(); i += 97) {
    AcDbObjectId found;
    ASSERT_EQ(db.getAcDbObjectId(found, false, ids[i].handle()), Acad::eOk);
    ASSERT_EQ(found, ids[i]);
  }
}

TEST_F(Tables, HighlightedPartsAreRemembered) {
  const AcDbObjectId id = append(new Probe);
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
  const AcDbFullSubentPath edge(id, AcDb::kEdgeSubentType, 4);
  probe->highlight(edge);
  probe->highlight(edge);
  ASSERT_EQ(probe->highlightedPaths().length(), 1);
  EXPECT_EQ(probe->highlightedPaths()[0].subentId().index(), 4);
  probe->unhighlight(edge);
  EXPECT_FALSE(probe->isHighlighted());
  probe->highlight();
  probe->highlight(edge);
  probe->unhighlight();
  EXPECT_FALSE(probe->isHighlighted());
}

TEST_F(Tables, AHeaderVariableTellsOfItsChange) {
  std::vector<std::wstring> told;
  DatabaseRecorder recorder(told);
  db.addReactor(&recorder);
  db.setLtscale(2);
  db.removeReactor(&recorder);
  EXPECT_EQ(told, (Told{L"LTSCALE"}));
  EXPECT_EQ(db.ltscale(), 2);
}

TEST_F(Tables, ADictionaryReplacesAndForgetsErasedEntries) {
  const AcDbObjectPointer<AcDbDictionary> dictionary(db.groupDictionaryId(), AcDb::kForWrite);
  const auto put = [&](const ACHAR* name) {
    auto* const record = new AcDbXrecord;
    AcDbObjectId id;
    EXPECT_EQ(dictionary->setAt(name, record, id), Acad::eOk);
    record->close();
    return id;
  };
  const AcDbObjectId first = put(L"b");
  const AcDbObjectId second = put(L"B");
  put(L"a");
  EXPECT_TRUE(first.isErased());
  EXPECT_EQ(dictionary->numEntries(), 2U);
  const std::unique_ptr<AcDbDictionaryIterator> iterator(dictionary->newIterator());
  EXPECT_STREQ(iterator->name(), L"a");
  iterator->next();
  EXPECT_EQ(iterator->objectId(), second);
  erase(second);
  EXPECT_FALSE(dictionary->has(L"b"));
}

TEST_F(Tables, ExtendedDataIsKeptByApplication) {
  const std::unique_ptr<resbuf, int (*)(resbuf*)> two(acutBuildList(1001, L"A", 1070, 1, 1001, L"B", 1000, L"b", 0),
                                                      acutRelRb);
  const std::unique_ptr<resbuf, int (*)(resbuf*)> noA(acutBuildList(1001, L"a", 0), acutRelRb);
  const std::unique_ptr<resbuf, int (*)(resbuf*)> bad(acutBuildList(1070, 1, 0), acutRelRb);
  Probe probe;
  EXPECT_EQ(probe.setXData(two.get()), Acad::eOk);
  EXPECT_EQ(probe.setXData(bad.get()), Acad::eInvalidResBuf);
  EXPECT_EQ(probe.setXData(noA.get()), Acad::eOk);
  EXPECT_EQ(probe.xData(L"A"), nullptr);
  resbuf* const b = probe.xData();
  ASSERT_NE(b, nullptr);
  EXPECT_STREQ(b->resval.rstring, L"B");
  EXPECT_EQ(b->rbnext->rbnext, nullptr);
  acutRelRb(b);
}

TEST_F(Tables, TheWorkingDatabaseIsForgottenWithTheDatabase) {
  {
    AcDbDatabase other;
    acdbHostApplicationServices()->setWorkingDatabase(&other);
  }
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(Tables, AnAuditFindsAndMendsAnEntityWithoutItsLayer) {
  const AcDbObjectId id = append(new Probe);
  AcDbObjectId missing;
  db.getAcDbObjectId(missing, true, AcDbHandle(0x9000));
  AcDbMemoryDwgFiler record(AcDb::kUndoFiler);
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->dwgOutFields(&record);
    record.visitReferences([&](AcDbReferenceKind, AcDbObjectId& each) {
      if (each == db.layerZero()) each = missing;
    });
    record.seek(0);
    probe->dwgInFields(&record);
  }
  AcDbAuditInfo look;
  db.auditAll(look);
  EXPECT_EQ(look.numErrors(), 1);
  EXPECT_EQ(look.numFixes(), 0);
  AcDbAuditInfo mend(true);
  db.auditAll(mend);
  EXPECT_EQ(mend.numFixes(), 1);
  ASSERT_EQ(mend.entries().size(), 1U);
  EXPECT_EQ(mend.entries()[0].defaultValue, L"0");
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
  EXPECT_EQ(probe->layerId(), db.layerZero());
}

}  // namespace
