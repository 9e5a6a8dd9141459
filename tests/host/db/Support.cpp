#include "host/db/Support.h"

ACRX_DXF_DEFINE_MEMBERS(Probe, AcDbEntity, 0, 0, 0, PROBE, tests)

void Probe::setValueByPartialUndo(int value) {
  assertWriteEnabled(false, true);
  if (AcDbDwgFiler* const filer = undoFiler()) {
    filer->writeAddress(Probe::desc());
    filer->writeInt32(value_);
  }
  value_ = value;
}

Acad::ErrorStatus Probe::applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* aClass) {
  if (aClass != Probe::desc()) return AcDbEntity::applyPartialUndo(filer, aClass);
  Adesk::Int32 before = 0;
  filer->readInt32(&before);
  setValueByPartialUndo(before);
  return filer->filerStatus();
}

Acad::ErrorStatus Probe::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dwgOutFields(filer); es != Acad::eOk) return es;
  ++filed;
  filer->writeInt32(value_);
  filer->writeHardPointerId(hardPointer);
  filer->writeSoftPointerId(softPointer);
  filer->writeHardOwnershipId(hardOwned);
  return filer->writeSoftOwnershipId(softOwned);
}

Acad::ErrorStatus Probe::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dwgInFields(filer); es != Acad::eOk) return es;
  if (whileReading != nullptr) whileReading(*this);
  filer->readInt32(&value_);
  filer->readHardPointerId(&hardPointer);
  filer->readSoftPointerId(&softPointer);
  filer->readHardOwnershipId(&hardOwned);
  return filer->readSoftOwnershipId(&softOwned);
}

Acad::ErrorStatus Probe::subClose() {
  const Acad::ErrorStatus es = AcDbEntity::subClose();
  ++closes;
  if (isWriteEnabled()) ++writableCloses;
  return es;
}

void Probe::modified(const AcDbObject* object) {
  assertNotifyEnabled();
  told.push_back(object->isModified() ? L"modified" : L"modified without a change");
}
void Probe::cancelled(const AcDbObject*) {
  told.push_back(L"cancelled");
}
void Probe::modifyUndone(const AcDbObject*) {
  told.push_back(L"modifyUndone");
}
void Probe::erased(const AcDbObject*, Adesk::Boolean erasing) {
  told.push_back(erasing ? L"erased" : L"unerased");
}

void Probe::objectClosed(const AcDbObjectId) {
  told.push_back(L"objectClosed");
  if (!writeWhenTold) return;
  Adesk::Boolean wasWritable = Adesk::kFalse;
  ASSERT_EQ(upgradeFromNotify(wasWritable), Acad::eOk);
  assertWriteEnabled();
  ++value_;
  ASSERT_EQ(downgradeToNotify(wasWritable), Acad::eOk);
}

AcDbObjectId DrawingTest::append(AcDbDatabase& database, AcDbEntity* entity) {
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
  EXPECT_EQ(space.openStatus(), Acad::eOk);
  EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
  EXPECT_EQ(entity->close(), Acad::eOk);
  return id;
}

int DrawingTest::valueOf(AcDbObjectId id) {
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForRead, true);
  EXPECT_EQ(probe.openStatus(), Acad::eOk);
  return probe.object() != nullptr ? probe->value() : -1;
}

void DrawingTest::setValue(AcDbObjectId id, int value) {
  const AcDbObjectPointer<Probe> probe(id, AcDb::kForWrite);
  ASSERT_EQ(probe.openStatus(), Acad::eOk);
  probe->setValue(value);
}
