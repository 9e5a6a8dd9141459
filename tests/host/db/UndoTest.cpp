#include "host/db/Support.h"

namespace {

class Undo : public DrawingTest {
 protected:
  Undo() : id(append(new Probe(1))) { db.startUndoRecord(); }
  AcDbObjectId id;
};

TEST_F(Undo, AModificationGoesBackAndForth) {
  setValue(id, 2);
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(db.redo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 2);
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(db.undo(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Undo, AGroupIsWhatOneCommandDid) {
  setValue(id, 2);
  setValue(id, 3);
  db.startUndoRecord();
  setValue(id, 4);
  const AcDbObjectId other = append(new Probe(9));
  setValue(other, 10);
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 3);
  EXPECT_TRUE(other.isErased());
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(db.redo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 3);
  EXPECT_TRUE(other.isErased());
  EXPECT_EQ(db.redo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 4);
  EXPECT_FALSE(other.isErased());
  EXPECT_EQ(valueOf(other), 10);
}

TEST_F(Undo, SeveralWritesInOneOpenTakeOneRecord) {
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->setValue(2);
    probe->setValue(3);
  }
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
}

TEST_F(Undo, EraseAndUneraseGoBack) {
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->erase();
  }
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_FALSE(id.isErased());
  EXPECT_EQ(db.redo(), Acad::eOk);
  EXPECT_TRUE(id.isErased());
  db.startUndoRecord();
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite, true);
    probe->erase(false);
  }
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_TRUE(id.isErased());
}

TEST_F(Undo, ANewWriteDropsWhatCouldBeRedone) {
  setValue(id, 2);
  db.undo();
  db.startUndoRecord();
  setValue(id, 3);
  EXPECT_EQ(db.redo(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Undo, NothingIsRecordedWhileRecordingIsOff) {
  db.disableUndoRecording(true);
  setValue(id, 2);
  db.disableUndoRecording(false);
  EXPECT_EQ(db.undo(), Acad::eUndoOperationNotAvailable);
  EXPECT_EQ(valueOf(id), 2);
}

TEST_F(Undo, IsRefusedWhileAnObjectOfTheGroupIsOpen) {
  setValue(id, 2);
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
  EXPECT_EQ(db.undo(), Acad::eOpenCountMismatch);
  EXPECT_EQ(probe->value(), 2);
}

TEST_F(Undo, GoesBackToAMark) {
  db.setUndoMark();
  setValue(id, 2);
  db.startUndoRecord();
  setValue(id, 3);
  EXPECT_EQ(db.undoToMark(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(db.undoToMark(), Acad::eUndoOperationNotAvailable);
}

TEST_F(Undo, TellsReactorsWithTheObjectUndoing) {
  Recorder recorder;
  DatabaseRecorder databaseRecorder(recorder.told);
  static_cast<Probe*>(id.stub()->object)->addReactor(&recorder);
  db.addReactor(&databaseRecorder);
  setValue(id, 2);
  recorder.told.clear();
  db.undo();
  EXPECT_EQ(recorder.told,
            (Told{L"modified (undoing)", L"modifiedGraphics", L"modifyUndone", L"db modified", L"objectClosed"}));
  EXPECT_FALSE(static_cast<Probe*>(id.stub()->object)->isUndoing());
  db.startUndoRecord();
  const AcDbObjectId other = append(new Probe);
  static_cast<Probe*>(other.stub()->object)->addReactor(&recorder);
  recorder.told.clear();
  db.undo();
  EXPECT_EQ(recorder.told, (Told{L"unappended", L"db unappended", L"objectClosed"}));
  recorder.told.clear();
  db.redo();
  EXPECT_EQ(recorder.told, (Told{L"reappended", L"db reappended", L"objectClosed"}));
  static_cast<Probe*>(id.stub()->object)->removeReactor(&recorder);
  static_cast<Probe*>(other.stub()->object)->removeReactor(&recorder);
  db.removeReactor(&databaseRecorder);
}

TEST_F(Undo, PersistentReactorsComeAndGoWithIt) {
  const AcDbObjectId listener = append(new Probe);
  db.startUndoRecord();
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->addPersistentReactor(listener);
  }
  auto* const heard = static_cast<Probe*>(listener.stub()->object);
  heard->told.clear();
  setValue(id, 2);
  EXPECT_EQ(heard->told, (Told{L"modified", L"objectClosed"}));
  db.undo();
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead);
  EXPECT_FALSE(probe->hasPersistentReactor(listener));
}

TEST_F(Undo, CancelTakesBackThisOpenOnly) {
  const AcDbObjectId listener = append(new Probe);
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->addPersistentReactor(listener);
  }
  setValue(id, 2);
  auto* const heard = static_cast<Probe*>(listener.stub()->object);
  heard->told.clear();
  Probe* probe = nullptr;
  ASSERT_EQ(acdbOpenObject(probe, id, AcDb::kForWrite), Acad::eOk);
  probe->setValue(3);
  probe->erase();
  EXPECT_EQ(probe->cancel(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 2);
  EXPECT_FALSE(id.isErased());
  EXPECT_EQ(heard->told, (Told{L"cancelled", L"objectClosed"}));
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
}

TEST_F(Undo, CancelOfANewObjectTakesItOutAgain) {
  auto* const probe = new Probe(4);
  AcDbObjectId fresh;
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    ASSERT_EQ(space->appendAcDbEntity(fresh, probe), Acad::eOk);
  }
  EXPECT_TRUE(probe->isNewObject());
  EXPECT_EQ(probe->cancel(), Acad::eOk);
  EXPECT_TRUE(fresh.isErased());
}

TEST_F(Undo, CancelWithoutARecordSaysSoAndKeepsTheChange) {
  db.disableUndoRecording(true);
  Probe* probe = nullptr;
  ASSERT_EQ(acdbOpenObject(probe, id, AcDb::kForWrite), Acad::eOk);
  probe->setValue(3);
  EXPECT_EQ(probe->cancel(), Acad::eNoUndo);
  EXPECT_EQ(valueOf(id), 3);
}

TEST_F(Undo, AnObjectsOwnPartialRecordsAreReadBackwards) {
  {
    const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
    probe->setValueByPartialUndo(2);
    probe->setValueByPartialUndo(3);
  }
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
  EXPECT_EQ(db.redo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 3);
  EXPECT_EQ(db.undo(), Acad::eOk);
  EXPECT_EQ(valueOf(id), 1);
}

TEST_F(Undo, ALayerAddedIsGoneAndItsNameFree) {
  AcDbObjectId layerId;
  {
    const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForWrite);
    auto* const layer = new AcDbLayerTableRecord;
    layer->setName(L"EIXO");
    ASSERT_EQ(table->add(layerId, layer), Acad::eOk);
    layer->close();
  }
  db.undo();
  {
    const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
    EXPECT_FALSE(table->has(L"EIXO"));
  }
  db.redo();
  const AcDbObjectPointer<AcDbLayerTable> table(db.layerTableId(), AcDb::kForRead);
  EXPECT_TRUE(table->has(L"eixo"));
}

std::vector<Acad::ErrorStatus> openedWhileReading;

TEST_F(Undo, AnObjectThatItReadsOpensForNotifyOnly) {
  setValue(id, 2);
  openedWhileReading.clear();
  Probe::whileReading = [](Probe& probe) {
    EXPECT_TRUE(probe.isUndoing());
    for (const AcDb::OpenMode mode : {AcDb::kForRead, AcDb::kForWrite, AcDb::kForNotify}) {
      AcDbObject* opened = nullptr;
      openedWhileReading.push_back(acdbOpenObject(opened, probe.objectId(), mode));
      Adesk::Boolean wasWritable = Adesk::kFalse;
      if (opened != nullptr) openedWhileReading.push_back(opened->upgradeFromNotify(wasWritable));
    }
    probe.objectId().stub()->flags &= ~Adesk::UInt32(AcDbStub::kOpenForNotify);
  };
  db.undo();
  Probe::whileReading = nullptr;
  EXPECT_EQ(openedWhileReading,
            (std::vector{Acad::eWasOpenForUndo, Acad::eWasOpenForUndo, Acad::eOk, Acad::eWasOpenForUndo}));
}

TEST_F(Undo, ANewObjectsFirstWritesTakeNoCopy) {
  auto* const probe = new Probe(1);
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(db.modelSpaceId(), AcDb::kForWrite);
    ASSERT_EQ(space->appendAcDbEntity(probe), Acad::eOk);
  }
  probe->setValue(2);
  probe->close();
  EXPECT_EQ(probe->filed, 0);
  setValue(probe->objectId(), 3);
  EXPECT_EQ(probe->filed, 1);
}

}  // namespace
