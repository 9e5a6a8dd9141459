#include "host/db/Support.h"

namespace {

class Opening : public DrawingTest {
 protected:
  Opening() : id(append(new Probe(1))) {}
  Acad::ErrorStatus tryOpen(AcDb::OpenMode mode) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus es = acdbOpenObject(object, id, mode);
    EXPECT_EQ(object != nullptr, es == Acad::eOk);
    if (object != nullptr) object->close();
    return es;
  }
  AcDbObjectId id;
};

TEST_F(Opening, EveryModeAgainstEveryOther) {
  struct Case {
    AcDb::OpenMode already, wanted;
    Acad::ErrorStatus expected;
  };
  const Case cases[] = {{AcDb::kForRead, AcDb::kForRead, Acad::eOk},
                        {AcDb::kForRead, AcDb::kForWrite, Acad::eWasOpenForRead},
                        {AcDb::kForWrite, AcDb::kForRead, Acad::eWasOpenForWrite},
                        {AcDb::kForWrite, AcDb::kForWrite, Acad::eWasOpenForWrite},
                        {AcDb::kForNotify, AcDb::kForRead, Acad::eOk},
                        {AcDb::kForNotify, AcDb::kForWrite, Acad::eOk},
                        {AcDb::kForNotify, AcDb::kForNotify, Acad::eWasOpenForNotify}};
  for (const Case& c : cases) {
    AcDbObject* first = nullptr;
    ASSERT_EQ(acdbOpenObject(first, id, c.already), Acad::eOk);
    EXPECT_EQ(tryOpen(c.wanted), c.expected) << c.already << " then " << c.wanted;
    EXPECT_EQ(first->close(), Acad::eOk);
  }
}

TEST_F(Opening, NotifySucceedsBesideReadAndWrite) {
  for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite}) {
    AcDbObject* first = nullptr;
    AcDbObject* second = nullptr;
    ASSERT_EQ(acdbOpenObject(first, id, mode), Acad::eOk);
    EXPECT_EQ(acdbOpenObject(second, id, AcDb::kForNotify), Acad::eOk);
    EXPECT_EQ(first->close(), Acad::eOk);
    EXPECT_EQ(second->close(), Acad::eOk);
    EXPECT_EQ(db.numOpenObjects(), 0);
  }
}

TEST_F(Opening, The257thReaderIsRefused) {
  AcDbObject* object = nullptr;
  for (int i = 0; i < 256; ++i) ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForRead), Acad::eOk);
  AcDbObject* more = nullptr;
  EXPECT_EQ(acdbOpenObject(more, id, AcDb::kForRead), Acad::eAtMaxReaders);
  for (int i = 0; i < 256; ++i) EXPECT_EQ(object->close(), Acad::eOk);
  EXPECT_EQ(object->close(), Acad::eCloseFailedNotOpen);
}

TEST_F(Opening, IdsWithoutAnObjectAreRefused) {
  AcDbObject* object = nullptr;
  EXPECT_EQ(acdbOpenObject(object, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
  AcDbObjectId later;
  ASSERT_EQ(db.getAcDbObjectId(later, true, AcDbHandle(0x5000)), Acad::eOk);
  EXPECT_EQ(acdbOpenObject(object, later, AcDb::kForRead), Acad::ePermanentlyErased);
  AcDbLayerTableRecord* layer = nullptr;
  EXPECT_EQ(acdbOpenObject(layer, id, AcDb::kForRead), Acad::eNotThatKindOfClass);
}

TEST_F(Opening, ErasedObjectsOpenOnRequestOnly) {
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    EXPECT_EQ(probe->erase(), Acad::eOk);
    EXPECT_EQ(probe->erase(), Acad::eWasErased);
  }
  EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eWasErased);
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite, true);
  ASSERT_EQ(probe.openStatus(), Acad::eOk);
  EXPECT_EQ(probe->erase(false), Acad::eOk);
  EXPECT_FALSE(probe->isErased());
  EXPECT_FALSE(id.isErased());
}

TEST_F(Opening, UpgradeNeedsToBeTheOnlyReader) {
  const AcDbObjectPointer<Probe> one(id, AcDb::kForRead);
  {
    const AcDbObjectPointer<Probe> two(id, AcDb::kForRead);
    EXPECT_EQ(one->upgradeOpen(), Acad::eHadMultipleReaders);
  }
  EXPECT_EQ(one->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(one->upgradeOpen(), Acad::eWasOpenForWrite);
  EXPECT_TRUE(one->isWriteEnabled());
  EXPECT_EQ(one->downgradeOpen(), Acad::eOk);
  EXPECT_FALSE(one->isWriteEnabled());
  EXPECT_TRUE(one->isReadEnabled());
  EXPECT_EQ(one->downgradeOpen(), Acad::eNotOpenForWrite);
}

TEST_F(Opening, EntitiesOnALockedLayerCantBeWritten) {
  const auto lock = [&](bool locked) {
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(db.layerZero(), AcDb::kForWrite);
    layer->setIsLocked(locked);
  };
  lock(true);
  EXPECT_EQ(tryOpen(AcDb::kForWrite), Acad::eOnLockedLayer);
  EXPECT_EQ(tryOpen(AcDb::kForRead), Acad::eOk);
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
    EXPECT_EQ(probe->upgradeOpen(), Acad::eOnLockedLayer);
  }
  lock(false);
  EXPECT_EQ(tryOpen(AcDb::kForWrite), Acad::eOk);
}

// A damaged file can name anything as an entity's layer: only a layer's lock counts.
TEST_F(Opening, NothingButALayerLocksAnEntity) {
  auto& entity = *static_cast<AcDbEntity*>(id.stub()->object);
  std::vector<AcDbObjectId> all;
  for (const AcDbStub& stub : db.handleTable().stubs()) all.emplace_back(const_cast<AcDbStub*>(&stub));
  ASSERT_GT(all.size(), 20U);
  for (const AcDbObjectId each : all) {
    AcDbEntity::Common common = entity.common();
    common.layer = each;
    entity.setCommonAsRead(common);
    EXPECT_EQ(tryOpen(AcDb::kForWrite), Acad::eOk) << each.handle().value();
  }
}

std::wstring lastAbort;

TEST_F(Opening, WritingToAnObjectOpenForReadAborts) {
  const AcRxAbortHandler former = acrxSetAbortHandler([](const ACHAR* message) { lastAbort = message; });
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
    probe->setValue(2);
    EXPECT_EQ(lastAbort, L"Probe: eNotOpenForWrite\n");
    EXPECT_FALSE(probe->isModified());
  }
  auto* const closed = static_cast<Probe*>(id.stub()->object);
  closed->value();
  EXPECT_EQ(lastAbort, L"Probe: eNotOpenForRead\n");
  acrxSetAbortHandler(former);
}

TEST_F(Opening, AnObjectOutsideOfADatabaseNeedsNoOpening) {
  Probe probe(7);
  probe.setValue(8);
  EXPECT_EQ(probe.value(), 8);
  EXPECT_EQ(probe.close(), Acad::eNotInDatabase);
  EXPECT_EQ(probe.erase(), Acad::eNotInDatabase);
}

TEST_F(Opening, NotifyUpgradesToWriteAndCommitsWhenItEnds) {
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForNotify), Acad::eOk);
  auto* const probe = static_cast<Probe*>(object);
  probe->closes = probe->writableCloses = 0;
  Adesk::Boolean wasWritable = Adesk::kTrue;
  EXPECT_EQ(probe->upgradeFromNotify(wasWritable), Acad::eOk);
  EXPECT_FALSE(wasWritable);
  probe->setValue(5);
  EXPECT_EQ(probe->downgradeToNotify(wasWritable), Acad::eOk);
  EXPECT_FALSE(probe->isWriteEnabled());
  EXPECT_TRUE(probe->isModified());
  EXPECT_EQ(probe->closes, 0);
  EXPECT_EQ(probe->close(), Acad::eOk);
  EXPECT_EQ(probe->writableCloses, 1);
  EXPECT_FALSE(probe->isModified());
}

TEST_F(Opening, NotifyOfAnObjectOpenForWriteTellsSoAndLeavesItOpen) {
  const AcDbObjectPointer<Probe> writer(id, AcDb::kForWrite);
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForNotify), Acad::eOk);
  Adesk::Boolean wasWritable = Adesk::kFalse;
  EXPECT_EQ(object->upgradeFromNotify(wasWritable), Acad::eOk);
  EXPECT_TRUE(wasWritable);
  EXPECT_EQ(object->downgradeToNotify(wasWritable), Acad::eOk);
  EXPECT_TRUE(object->isWriteEnabled());
  id.stub()->flags &= ~Adesk::UInt32(AcDbStub::kOpenForNotify);
}

TEST_F(Opening, UpgradeFromNotifyIsRefusedWhileOthersRead) {
  const AcDbObjectPointer<Probe> reader(id, AcDb::kForRead);
  Adesk::Boolean wasWritable = Adesk::kFalse;
  EXPECT_EQ(reader->upgradeFromNotify(wasWritable), Acad::eInvalidOpenState);
  AcDbObject* object = nullptr;
  ASSERT_EQ(acdbOpenObject(object, id, AcDb::kForNotify), Acad::eOk);
  EXPECT_EQ(object->upgradeFromNotify(wasWritable), Acad::eWasOpenForRead);
  object->close();  // the reader's open
  AcDbObject* again = nullptr;
  ASSERT_EQ(acdbOpenObject(again, id, AcDb::kForRead), Acad::eOk);
  id.stub()->flags &= ~Adesk::UInt32(AcDbStub::kOpenForNotify);
}

// --- Order of closing ------------------------------------------------------------------------------------------------

class Closing : public Opening {
 protected:
  Closing() : databaseRecorder(recorder.told) {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
    probe->addReactor(&recorder);
    db.addReactor(&databaseRecorder);
  }
  ~Closing() override {
    db.removeReactor(&databaseRecorder);
    static_cast<Probe*>(id.stub()->object)->removeReactor(&recorder);
  }
  Recorder recorder;
  DatabaseRecorder databaseRecorder;
};

TEST_F(Closing, ReadingTellsNobody) {
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(recorder.told, Told{});
}

TEST_F(Closing, OpeningForWriteWithoutWritingTellsOfTheCloseOnly) {
  { const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite); }
  EXPECT_EQ(recorder.told, (Told{L"objectClosed"}));
}

TEST_F(Closing, AModificationIsToldToObjectReactorsThenToTheDatabases) {
  setValue(id, 2);
  EXPECT_EQ(recorder.told, (Told{L"openedForModify", L"db openedForModify", L"modified", L"modifiedGraphics",
                                 L"db modified", L"objectClosed"}));
}

TEST_F(Closing, AnEraseIsToldBehindTheModification) {
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->erase();
  }
  EXPECT_EQ(recorder.told, (Told{L"openedForModify", L"db openedForModify", L"modified", L"modifiedGraphics", L"erased",
                                 L"db modified", L"db erased", L"objectClosed"}));
  recorder.told.clear();
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite, true);
  probe->erase(false);
  probe->erase();
}

TEST_F(Closing, AnAppendIsToldWhileTheObjectIsOpenForWrite) {
  struct Looker : AcDbDatabaseReactor {
    Acad::ErrorStatus upgrade = Acad::eOk;
    void objectAppended(const AcDbDatabase*, const AcDbObject* object) override {
      upgrade = const_cast<AcDbObject*>(object)->upgradeOpen();
    }
  } looker;
  db.addReactor(&looker);
  append(new Probe);
  db.removeReactor(&looker);
  EXPECT_EQ(looker.upgrade, Acad::eWasOpenForWrite);
  EXPECT_EQ(recorder.told, (Told{L"db openedForModify", L"db appended", L"db modified"}));
}

TEST_F(Closing, ANotifierCanBeReadButNotWrittenByThoseItTells) {
  struct Prober : AcDbObjectReactor {
    std::vector<Acad::ErrorStatus> results;
    void modified(const AcDbObject* object) override {
      for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite, AcDb::kForNotify}) {
        AcDbObject* opened = nullptr;
        results.push_back(acdbOpenObject(opened, object->objectId(), mode));
        if (opened != nullptr) opened->close();
      }
    }
  } prober;
  static_cast<Probe*>(id.stub()->object)->addReactor(&prober);
  setValue(id, 2);
  static_cast<Probe*>(id.stub()->object)->removeReactor(&prober);
  EXPECT_EQ(prober.results, (std::vector{Acad::eOk, Acad::eWasNotifying, Acad::eWasNotifying}));
}

TEST_F(Closing, APersistentReactorIsOpenForNotifyAndMayWrite) {
  const AcDbObjectId listener = append(new Probe(10));
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->addPersistentReactor(listener);
    probe->addPersistentReactor(listener);
    ASSERT_NE(probe->reactors(), nullptr);
    EXPECT_EQ(probe->reactors()->length(), 2);
    EXPECT_FALSE(acdbIsPersistentReactor(probe->reactors()->at(0)));
    EXPECT_TRUE(acdbIsPersistentReactor(probe->reactors()->at(1)));
    EXPECT_EQ(acdbPersistentReactorObjectId(probe->reactors()->at(1)), listener);
  }
  auto* const heard = static_cast<Probe*>(listener.stub()->object);
  heard->told.clear();
  heard->writeWhenTold = true;
  heard->writableCloses = 0;
  setValue(id, 2);
  EXPECT_EQ(heard->told, (Told{L"modified", L"objectClosed"}));
  EXPECT_EQ(valueOf(listener), 11);
  EXPECT_EQ(heard->writableCloses, 1);
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
  probe->removePersistentReactor(listener);
  EXPECT_FALSE(probe->hasPersistentReactor(listener));
}

TEST_F(Closing, CloseOfAReaderCallsSubCloseToo) {
  auto* const probe = static_cast<Probe*>(id.stub()->object);
  probe->closes = probe->writableCloses = 0;
  valueOf(id);
  EXPECT_EQ(probe->closes, 1);
  EXPECT_EQ(probe->writableCloses, 0);
}

TEST(Database, SaysGoodbyeToObjectReactorsAndItsOwn) {
  Probe::rxInit();
  acrxBuildClassHierarchy();
  Recorder recorder;
  DatabaseRecorder databaseRecorder(recorder.told);
  {
    AcDbDatabase db;
    auto* const probe = new Probe;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    space->appendAcDbEntity(probe);
    probe->addReactor(&recorder);
    probe->close();
    recorder.told.clear();
    db.addReactor(&databaseRecorder);
    const_cast<AcDbObjectPointer<AcDbBlockTableRecord>&>(space).close();
    recorder.told.clear();
  }
  EXPECT_EQ(recorder.told, (Told{L"db goodbye", L"goodbye"}));
}

}  // namespace
