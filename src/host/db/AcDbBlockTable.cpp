#include "host/db/AcDbBlockTable.h"

#include <algorithm>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/FieldFiling.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/entities.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0, 0, 0, BLOCK_RECORD, krhost)

// --- Iterator
// ---------------------------------------------------------------------------------------------------------

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(const AcDbBlockTableRecord* block)
    : block_(block->objectId()), entities_(&block->entities()) {}

int AcDbBlockTableRecordIterator::count() const {
  return int(entities_->size());
}

void AcDbBlockTableRecordIterator::skip(int direction, bool skipDeleted) {
  while (skipDeleted && !done() && (*entities_)[std::size_t(position_)]->has(AcDbStub::kErased)) position_ += direction;
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
  position_ = atBeginning ? 0 : count() - 1;
  skip(atBeginning ? 1 : -1, skipDeleted);
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
  const int direction = forward ? 1 : -1;
  position_ += direction;
  skip(direction, skipDeleted);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::seek(AcDbObjectId id) {
  const auto found = std::find(entities_->begin(), entities_->end(), id.stub());
  if (found == entities_->end()) return Acad::eKeyNotFound;
  position_ = int(found - entities_->begin());
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
  if (done()) return Acad::eIteratorDone;
  id = (*entities_)[std::size_t(position_)];
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const {
  entity = nullptr;
  AcDbObjectId id;
  if (const Acad::ErrorStatus es = getEntityId(id); es != Acad::eOk) return es;
  return acdbOpenAcDbEntity(entity, id, mode, openErased);
}

// --- Record
// -----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
  AcDbObjectId id;
  return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
  if (entity == nullptr) return Acad::eNullEntityPointer;
  if (database() == nullptr) return Acad::eNoDatabase;
  if (entity->isPersistent()) return Acad::eAlreadyInDb;
  // The append is recorded with the entity: undone, the entity is erased, and its place in the block stays.
  assertWriteEnabled(false, true);
  return database()->addAcDbObject(id, entity, objectId(), AcDbHandle());
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const {
  assertReadEnabled();
  iterator = new AcDbBlockTableRecordIterator(this);
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
  assertReadEnabled();
  return origin_;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& origin) {
  assertWriteEnabled();
  origin_ = origin;
  return Acad::eOk;
}

bool AcDbBlockTableRecord::isModelSpace() const {
  return database() != nullptr && objectId() == database()->modelSpaceId();
}

bool AcDbBlockTableRecord::isPaperSpace() const {
  return database() != nullptr && objectId() == database()->paperSpaceId();
}

bool AcDbBlockTableRecord::isLayout() const {
  return isModelSpace() || isPaperSpace() || !data_.layout.isNull();
}

AcDbObjectId AcDbBlockTableRecord::getLayoutId() const {
  assertReadEnabled();
  return data_.layout;
}

Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId id) {
  assertWriteEnabled();
  data_.layout = id;
  return Acad::eOk;
}

bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
  assertReadEnabled();
  return std::any_of(entities_.begin(), entities_.end(), [](const AcDbStub* entity) {
    return !entity->has(AcDbStub::kErased) && AcDbAttributeDefinition::cast(entity->object) != nullptr;
  });
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode) {
  return acdbOpenObject(begin, begin_, mode);
}

Acad::ErrorStatus AcDbBlockTableRecord::openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode) {
  return acdbOpenObject(end, end_, mode);
}

Acad::ErrorStatus AcDbBlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids) const {
  assertReadEnabled();
  for (AcDbStub* const stub : references_) {
    if (!stub->has(AcDbStub::kErased)) ids.append(stub);
  }
  return Acad::eOk;
}

std::wstring AcDbBlockTableRecord::recordName() const {
  if (!data_.recordName.empty()) return data_.recordName;
  const std::wstring& name = nameText();
  if (name.empty() || name.front() != L'*') return name;
  const std::size_t last = name.find_last_not_of(L"0123456789");
  return name.substr(0, last + 1);
}

void AcDbBlockTableRecord::makeEnds(AcDbHandle begin, AcDbHandle end) {
  if (database() == nullptr) return;
  const auto make = [this](AcDbEntity* entity, AcDbObjectId& id, AcDbHandle handle) {
    if (id.isNull() && database()->addAcDbObject(id, entity, objectId(), handle) == Acad::eOk) {
      entity->close();
    } else {
      delete entity;
    }
  };
  make(new AcDbBlockBegin, begin_, begin);
  make(new AcDbBlockEnd, end_, end);
}

bool AcDbBlockTableRecord::isAnonymous() const {
  const ACHAR* name = nullptr;
  getName(name);
  return !isLayout() && *name == L'*';
}

bool AcDbBlockTableRecord::isEmpty() const {
  assertReadEnabled();
  return std::all_of(entities_.begin(), entities_.end(), [](const AcDbStub* e) { return e->has(AcDbStub::kErased); });
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(ACHAR*& text) const {
  assertReadEnabled();
  text = dbtext::newText(comments_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR* text) {
  assertWriteEnabled();
  comments_ = dbtext::orEmpty(text);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::subErase(Adesk::Boolean erasing) {
  if (erasing && isLayout()) return Acad::eCannotBeErasedByCaller;
  return AcDbSymbolTableRecord::subErase(erasing);
}

Acad::ErrorStatus AcDbBlockTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writePoint3d(origin_);
  filer->writeString(comments_.c_str());
  fields::put(*filer, data_);
  // An undo leaves the list alone: its entities come and go by records of their own.
  const AcDb::FilerType type = filer->filerType();
  if (type == AcDb::kUndoFiler || type == AcDb::kCopyFiler) return filer->filerStatus();
  std::vector<AcDbStub*> live;
  std::copy_if(entities_.begin(), entities_.end(), std::back_inserter(live),
               [](const AcDbStub* entity) { return !entity->has(AcDbStub::kErased); });
  filer->writeInt32(Adesk::Int32(live.size()));
  for (AcDbStub* const entity : live) filer->writeHardOwnershipId(AcDbObjectId(entity));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbBlockTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  filer->readPoint3d(&origin_);
  comments_ = dbtext::readText(*filer);
  fields::read(filer, data_);
  const AcDb::FilerType type = filer->filerType();
  if (type == AcDb::kUndoFiler || type == AcDb::kCopyFiler) return filer->filerStatus();
  // The entities enter the block as they come into the database, in files and in clones; the list only tells of them.
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    AcDbHardOwnershipId id;
    filer->readHardOwnershipId(&id);
  }
  return filer->filerStatus();
}

Adesk::Int16 AcDbBlockTableRecord::dxfFlags() const {
  return isAnonymous() ? 1 : 0;
}

Acad::ErrorStatus AcDbBlockTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  return filer->writePoint3d(AcDb::kDxfXCoord, origin_);
}

Acad::ErrorStatus AcDbBlockTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype != AcDb::kDxfXCoord) continue;
    origin_.set(item.resval.rpoint[0], item.resval.rpoint[1], item.resval.rpoint[2]);
  }
  return filer->filerStatus();
}
