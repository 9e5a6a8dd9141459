#include "host/db/AcDbSubentities.h"

#include <algorithm>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/dbtext.h"
#include "host/db/entities/AcDbBlockReference.h"
#include "host/db/entities/AcDbSequenceEnd.h"

AcDbSubentities::~AcDbSubentities() = default;

bool AcDbSubentities::isEmpty() const {
  return pending_.empty() &&
         std::all_of(stubs_.begin(), stubs_.end(), [](const AcDbStub* stub) { return stub->has(AcDbStub::kErased); });
}

AcDbObjectIdArray AcDbSubentities::ids() const {
  AcDbObjectIdArray live;
  for (AcDbStub* const stub : stubs_) {
    if (!stub->has(AcDbStub::kErased)) live.append(stub);
  }
  return live;
}

Acad::ErrorStatus AcDbSubentities::insert(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId& id, int at) {
  id.setNull();
  if (part == nullptr) return Acad::eNullEntityPointer;
  if (part->isPersistent()) return Acad::eAlreadyInDb;
  const std::size_t size = owner.isPersistent() ? stubs_.size() : pending_.size();
  if (at > int(size)) return Acad::eInvalidIndex;
  if (!owner.isPersistent()) {
    owner.assertWriteEnabled();
    pending_.insert(at < 0 ? pending_.end() : pending_.begin() + at, std::unique_ptr<AcDbEntity>(part));
    return Acad::eOk;
  }
  // The part's own append is what an undo takes back; its place in the list stays, as in a block.
  owner.assertWriteEnabled(false, true);
  insertAt_ = at;
  const Acad::ErrorStatus es = owner.database()->addAcDbObject(id, part, owner.objectId(), AcDbHandle());
  insertAt_ = -1;
  return es;
}

Acad::ErrorStatus AcDbSubentities::insertAfter(AcDbEntity& owner, AcDbEntity* part, AcDbObjectId& id,
                                               AcDbObjectId after) {
  if (after.isNull()) return insert(owner, part, id, 0);
  const auto place = std::find(stubs_.begin(), stubs_.end(), after.stub());
  return place != stubs_.end() ? insert(owner, part, id, int(place - stubs_.begin()) + 1) : Acad::eInvalidIndex;
}

void AcDbSubentities::adopted(AcDbStub* part) {
  if (AcDbSequenceEnd::cast(part->object) != nullptr) {
    sequenceEnd_ = AcDbObjectId(part);
  } else {
    stubs_.insert(insertAt_ < 0 ? stubs_.end() : stubs_.begin() + insertAt_, part);
  }
}

void AcDbSubentities::ownerAdopted(AcDbEntity& owner) {
  AcDbDatabase& database = *owner.database();
  std::vector<std::unique_ptr<AcDbEntity>> parts;
  parts.swap(pending_);
  for (std::unique_ptr<AcDbEntity>& part : parts) {
    AcDbObjectId id;
    AcDbEntity* const entity = part.release();
    database.addAcDbObject(id, entity, owner.objectId(), AcDbHandle());
    entity->close();
  }
  if (parts.empty()) return;
  makeSequenceEnd(owner);
}

bool AcDbSubentities::needsEnd(const AcDbEntity& owner) const {
  return !isEmpty() || !owner.isKindOf(AcDbBlockReference::desc());
}

void AcDbSubentities::makeSequenceEnd(AcDbEntity& owner) {
  if (!sequenceEnd_.isNull() || owner.database() == nullptr) return;
  auto* const end = new AcDbSequenceEnd;
  end->setPropertiesFrom(&owner);
  AcDbObjectId id;
  owner.database()->addAcDbObject(id, end, owner.objectId(), AcDbHandle());
  end->close();
}

Acad::ErrorStatus AcDbSubentities::dwgOut(AcDbDwgFiler* filer) const {
  const AcDb::FilerType type = filer->filerType();
  // An undo leaves the list alone: the parts come and go by records of their own. A file's frame names them.
  if (type == AcDb::kUndoFiler || filer->framesObjects()) return filer->filerStatus();
  if (type == AcDb::kCopyFiler) {
    std::vector<const AcDbEntity*> parts;
    for (const auto& part : pending_) parts.push_back(part.get());
    for (const AcDbStub* const stub : stubs_) {
      if (!stub->has(AcDbStub::kErased)) parts.push_back(static_cast<const AcDbEntity*>(stub->object));
    }
    filer->writeInt32(Adesk::Int32(parts.size()));
    for (const AcDbEntity* const part : parts) {
      filer->writeString(part->isA()->name());
      const AcDbObjectPointer<AcDbEntity> opened(part->objectId(), AcDb::kForRead);
      part->dwgOutFields(filer);
    }
    return filer->filerStatus();
  }
  const AcDbObjectIdArray live = ids();
  filer->writeInt32(live.length());
  for (const AcDbObjectId id : live) filer->writeHardOwnershipId(id);
  filer->writeHardOwnershipId(sequenceEnd_);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbSubentities::dwgIn(AcDbDwgFiler* filer) {
  const AcDb::FilerType type = filer->filerType();
  if (type == AcDb::kUndoFiler || filer->framesObjects()) return filer->filerStatus();
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  if (type == AcDb::kCopyFiler) pending_.clear();
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    if (type != AcDb::kCopyFiler) {
      // The parts enter the list as they come into the database; the record only tells of them.
      AcDbHardOwnershipId id;
      filer->readHardOwnershipId(&id);
      continue;
    }
    const std::wstring name = dbtext::readText(*filer);
    AcRxClass* const kind = acrxFindClass(name.c_str());
    AcRxObject* const made = kind != nullptr ? kind->create() : nullptr;
    auto* const part = AcDbEntity::cast(made);
    if (part == nullptr) {
      delete made;
      filer->setFilerStatus(Acad::eMakeMeProxy);
      break;
    }
    pending_.emplace_back(part)->dwgInFields(filer);
  }
  AcDbHardOwnershipId end;
  if (type != AcDb::kCopyFiler) filer->readHardOwnershipId(&end);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbSubentities::transformBy(const AcGeMatrix3d& xform) {
  return forEachToWrite([&](AcDbEntity& part) { return part.transformBy(xform); });
}

Acad::ErrorStatus AcDbSubentities::erase(bool erasing) {
  const auto apply = [&](AcDbStub* stub) {
    AcDbObject* part = nullptr;
    if (acdbOpenObject(part, stub, AcDb::kForWrite, true) != Acad::eOk) return;
    part->erase(erasing);
    part->close();
  };
  for (AcDbStub* const stub : stubs_) {
    // What was erased ahead of its owner stays so when the owner comes back.
    if (stub->has(AcDbStub::kErased) != erasing) apply(stub);
  }
  if (!sequenceEnd_.isNull() && sequenceEnd_.isErased() != erasing) apply(sequenceEnd_.stub());
  return Acad::eOk;
}
