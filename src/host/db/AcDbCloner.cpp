#include "host/db/AcDbCloner.h"

#include <algorithm>

#include "host/db/AcDbDeepCloneFiler.h"
#include "host/db/AcDbNotifier.h"
#include "host/db/acdbOpen.h"

namespace {

/// While it lives, the host writes to a clone that nobody has been told of: no notification, no undo record.
class HostWrite {
 public:
  explicit HostWrite(AcDbStub& stub) : stub_(stub), flags_(stub.flags) {
    stub.flags |= AcDbStub::kOpenForWrite | AcDbStub::kUndoTaken | AcDbStub::kModified | AcDbStub::kModifiedGraphics |
                  AcDbStub::kAnnounced;
  }
  ~HostWrite() { stub_.flags = flags_; }
  HostWrite(const HostWrite&) = delete;
  HostWrite& operator=(const HostWrite&) = delete;

 private:
  AcDbStub& stub_;
  Adesk::UInt32 flags_;
};

bool isOwner(AcDbReferenceKind kind) {
  return kind == AcDbReferenceKind::kHardOwner || kind == AcDbReferenceKind::kSoftOwner;
}

bool isHard(AcDbReferenceKind kind) {
  return kind == AcDbReferenceKind::kHardOwner || kind == AcDbReferenceKind::kHardPointer;
}

std::vector<AcDbObjectId> ownedBy(AcDbMemoryDwgFiler& record) {
  std::vector<AcDbObjectId> owned;
  record.visitReferences([&](AcDbReferenceKind kind, AcDbObjectId& id) {
    if (isOwner(kind) && !id.isErased()) owned.push_back(id);
  });
  return owned;
}

}  // namespace

// --- Copies
// -----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbCloner::copyFields(const AcDbObject& source, AcDbObject*& copy, AcDbMemoryDwgFiler& record) {
  copy = nullptr;
  const AcRxClass* const own = source.isA();
  AcRxObject* const made = own != nullptr ? own->create() : nullptr;
  AcDbObject* const object = AcDbObject::cast(made);
  if (object == nullptr) {
    delete made;
    return Acad::eNotApplicable;
  }
  Acad::ErrorStatus es = source.dwgOutFields(&record);
  record.seek(0);
  if (es == Acad::eOk) es = object->dwgInFields(&record);
  if (es != Acad::eOk) {
    delete object;
    return es;
  }
  copy = object;
  return Acad::eOk;
}

AcRxObject* AcDbObject::clone() const {
  AcDbObject* copy = nullptr;
  AcDbMemoryDwgFiler record(AcDb::kCopyFiler);
  if (AcDbCloner::copyFields(*this, copy, record) == Acad::eOk) AcDbNotifier::copied(*this, *copy);
  return copy;
}

Acad::ErrorStatus AcDbObject::copyFrom(const AcRxObject* source) {
  const auto* const from = AcDbObject::cast(source);
  if (from == nullptr) return Acad::eNullObjectPointer;
  if (!from->isKindOf(isA())) return Acad::eNotThatKindOfClass;
  AcDbMemoryDwgFiler record(AcDb::kCopyFiler);
  if (const Acad::ErrorStatus es = from->dwgOutFields(&record); es != Acad::eOk) return es;
  record.seek(0);
  return dwgInFields(&record);
}

Acad::ErrorStatus AcDbObject::deepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& idMap,
                                        bool isPrimary) const {
  assertReadEnabled();
  return subDeepClone(owner, copy, idMap, isPrimary);
}

Acad::ErrorStatus AcDbObject::wblockClone(AcRxObject* owner, AcDbObject*& copy, AcDbIdMapping& idMap,
                                          bool isPrimary) const {
  assertReadEnabled();
  return subWblockClone(owner, copy, idMap, isPrimary);
}

Acad::ErrorStatus AcDbObject::subDeepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& idMap,
                                           bool isPrimary) const {
  return AcDbCloner::cloneObject(*this, owner, copy, idMap, isPrimary, AcDb::kDeepCloneFiler);
}

Acad::ErrorStatus AcDbObject::subWblockClone(AcRxObject* owner, AcDbObject*& copy, AcDbIdMapping& idMap,
                                             bool isPrimary) const {
  return AcDbCloner::cloneObject(*this, AcDbObject::cast(owner), copy, idMap, isPrimary, AcDb::kWblockCloneFiler);
}

// --- One clone with what it owns
// --------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbCloner::place(AcDbObject& object, AcDbObject* owner, AcDbDatabase& database,
                                    const AcDbObject& original) {
  if (auto* const block = AcDbBlockTableRecord::cast(owner)) {
    if (auto* const entity = AcDbEntity::cast(&object)) return block->appendAcDbEntity(entity);
  }
  if (auto* const table = AcDbSymbolTable::cast(owner)) {
    if (auto* const record = AcDbSymbolTableRecord::cast(&object)) return table->add(record);
  }
  if (auto* const dictionary = AcDbDictionary::cast(owner)) {
    // The clone of an entry that its dictionary's clone holds already by its original's id is only to be put in the
    // database; one that comes alone needs a name.
    AcDbObjectPointer<AcDbDictionary> from(original.ownerId(), AcDb::kForRead);
    ACHAR* name = nullptr;
    if (from.openStatus() == Acad::eOk && from->nameAt(original.objectId(), name) == Acad::eOk) {
      AcDbObjectId id;
      const bool listed = dictionary->has(original.objectId());
      const Acad::ErrorStatus es = listed || dictionary->has(name)
                                       ? database.addAcDbObject(id, &object, dictionary->objectId(), AcDbHandle())
                                       : dictionary->setAt(name, &object, id);
      acutDelString(name);
      return es;
    }
  }
  AcDbObjectId id;
  return database.addAcDbObject(id, &object, owner != nullptr ? owner->objectId() : AcDbObjectId::kNull, AcDbHandle());
}

Acad::ErrorStatus AcDbCloner::cloneObject(const AcDbObject& source, AcDbObject* owner, AcDbObject*& clone,
                                          AcDbIdMapping& idMap, bool isPrimary, AcDb::FilerType type) {
  clone = nullptr;
  AcDbIdPair known(source.objectId(), AcDbObjectId::kNull, false);
  if (idMap.compute(known)) return Acad::eOk;
  AcDbDatabase* const database = owner != nullptr            ? owner->database()
                                 : idMap.destDb() != nullptr ? idMap.destDb()
                                                             : source.database();
  if (database == nullptr) return Acad::eNoDatabase;

  AcDbObject* copy = nullptr;
  AcDbDeepCloneFiler within;
  AcDbWblockCloneFiler across;
  AcDbMemoryDwgFiler& record = type == AcDb::kWblockCloneFiler ? static_cast<AcDbMemoryDwgFiler&>(across) : within;
  if (const Acad::ErrorStatus es = copyFields(source, copy, record); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = place(*copy, owner, *database, source); es != Acad::eOk) {
    delete copy;
    return es;
  }
  idMap.assign(AcDbIdPair(source.objectId(), copy->objectId(), true, isPrimary, owner != nullptr));
  AcDbNotifier::copied(source, *copy);

  for (const AcDbObjectId id : ownedBy(record)) {
    AcDbObject* child = nullptr;
    if (acdbOpenObject(child, id, AcDb::kForRead) != Acad::eOk) continue;
    AcDbObject* childClone = nullptr;
    const Acad::ErrorStatus es = type == AcDb::kWblockCloneFiler ? child->wblockClone(copy, childClone, idMap, false)
                                                                 : child->deepClone(copy, childClone, idMap, false);
    child->close();
    if (childClone != nullptr) childClone->close();
    if (es != Acad::eOk) {
      copy->erase();
      copy->close();
      return es;
    }
  }
  clone = copy;
  return Acad::eOk;
}

// --- Runs of clones
// ---------------------------------------------------------------------------------------------------

AcDbObject* AcDbCloner::openOwner(AcDbObjectId id) {
  const auto mine = std::find_if(held_.begin(), held_.end(), [&](const AcDbObject* o) { return o->objectId() == id; });
  if (mine != held_.end()) return *mine;
  AcDbObject* owner = nullptr;
  const Acad::ErrorStatus es = acdbOpenObject(owner, id, AcDb::kForWrite);
  // The caller may hold the owner open for write: that is as good.
  if (es == Acad::eWasOpenForWrite) return id.stub()->object;
  if (es != Acad::eOk) return nullptr;
  held_.push_back(owner);
  return owner;
}

void AcDbCloner::closeAll() {
  // Owners go last: what a clone's closing does may look at its block only.
  for (auto object = held_.rbegin(); object != held_.rend(); ++object) (*object)->close();
  held_.clear();
}

Acad::ErrorStatus AcDbCloner::cloneOne(AcDbObjectId id, AcDbObject* owner, bool across, bool isPrimary) {
  AcDbObject* source = nullptr;
  Acad::ErrorStatus es = acdbOpenObject(source, id, AcDb::kForRead);
  if (es != Acad::eOk) return es;
  AcDbObject* clone = nullptr;
  if (!across || !standsForExisting(*source, owner, es)) {
    es = across ? source->wblockClone(owner, clone, idMap_, isPrimary)
                : source->deepClone(owner, clone, idMap_, isPrimary);
  }
  source->close();
  if (clone != nullptr) held_.push_back(clone);
  return es;
}

Acad::ErrorStatus AcDbCloner::deepClone(const AcDbObjectIdArray& ids, AcDbObjectId owner) {
  for (const AcDbObjectId id : ids) {
    if (id.isNull()) return Acad::eNullObjectId;
    AcDbObjectId target = owner;
    if (target.isNull()) target = id.stub()->owner;
    AcDbObject* const under = openOwner(target);
    if (under == nullptr && !target.isNull()) return Acad::eInvalidOwnerObject;
    if (const Acad::ErrorStatus es = cloneOne(id, under, false, true); es != Acad::eOk) return es;
  }
  return Acad::eOk;
}

void AcDbCloner::undoClones() {
  for (AcDbIdMappingIter pairs(idMap_); !pairs.done(); pairs.next()) {
    AcDbIdPair pair;
    pairs.getMap(pair);
    if (!pair.isCloned() || pair.value().isErased()) continue;
    const auto mine =
        std::find_if(held_.begin(), held_.end(), [&](const AcDbObject* o) { return o->objectId() == pair.value(); });
    if (mine != held_.end()) {
      (*mine)->erase();
      continue;
    }
    AcDbObjectPointer<AcDbObject> clone(pair.value(), AcDb::kForWrite);
    if (clone.openStatus() == Acad::eOk) clone->erase();
  }
}

void AcDbCloner::translate(AcDb::FilerType type) {
  const bool across = type == AcDb::kWblockCloneFiler;
  for (AcDbIdMappingIter pairs(idMap_); !pairs.done(); pairs.next()) {
    AcDbIdPair pair;
    pairs.getMap(pair);
    if (!pair.isCloned() || !pair.value().isResident()) continue;
    AcDbStub& stub = *pair.value().stub();
    const HostWrite guard(stub);
    AcDbMemoryDwgFiler record(type);
    if (stub.object->dwgOutFields(&record) != Acad::eOk) continue;
    const bool changed = record.visitReferences([&](AcDbReferenceKind, AcDbObjectId& id) {
      AcDbIdPair mapped(id, AcDbObjectId::kNull, false);
      if (idMap_.compute(mapped)) {
        id = mapped.value();
      } else if (across && id.database() != stub.database) {
        id.setNull();
      }
    });
    record.seek(0);
    if (changed) stub.object->dwgInFields(&record);
  }
}

// --- Across databases
// -------------------------------------------------------------------------------------------------

namespace {

/// The role that an object plays in every drawing: it isn't cloned, the destination's stands for it.
void mapRoots(const AcDbDatabase& from, const AcDbDatabase& to, AcDbIdMapping& idMap) {
  const auto& a = from.roots();
  const auto& b = to.roots();
  const auto map = [&](AcDbObjectId key, AcDbObjectId value) {
    if (!key.isNull() && !value.isNull()) idMap.assign(AcDbIdPair(key, value, false, false));
  };
  using R = AcDbDatabase::Roots;
  constexpr AcDbObjectId R::*kRoles[] = {&R::blockTable,    &R::layerTable,   &R::linetypeTable, &R::textStyleTable,
                                         &R::dimStyleTable, &R::regAppTable,  &R::viewTable,     &R::viewportTable,
                                         &R::ucsTable,      &R::namedObjects, &R::modelSpace,    &R::paperSpace,
                                         &R::layerZero,     &R::byBlock,      &R::byLayer,       &R::continuous};
  for (const auto role : kRoles) map(a.*role, b.*role);
}

}  // namespace

bool AcDbCloner::standsForExisting(const AcDbObject& source, AcDbObject* owner, Acad::ErrorStatus& es) {
  const auto* const record = AcDbSymbolTableRecord::cast(&source);
  auto* const table = AcDbSymbolTable::cast(owner);
  if (record == nullptr || table == nullptr) return false;
  const ACHAR* name = nullptr;
  record->getName(name);
  AcDbObjectId existing;
  if (table->getAt(name, existing) != Acad::eOk) return false;
  switch (idMap_.duplicateRecordCloning()) {
    case AcDb::kDrcReplace: {
      AcDbObject* target = openOwner(existing);
      if (target == nullptr) return false;
      AcDbWblockCloneFiler fields;
      es = source.dwgOutFields(&fields);
      fields.seek(0);
      if (es == Acad::eOk) es = target->dwgInFields(&fields);
      // As a clone it takes part in the translation.
      idMap_.assign(AcDbIdPair(source.objectId(), existing, true, false));
      return true;
    }
    case AcDb::kDrcMangleName:
    case AcDb::kDrcXrefMangleName: {
      AcDbObject* copy = nullptr;
      AcDbWblockCloneFiler fields;
      es = AcDbCloner::copyFields(source, copy, fields);
      if (es != Acad::eOk) return true;
      auto* const renamed = static_cast<AcDbSymbolTableRecord*>(copy);
      for (int number = 0; table->has(name) && es == Acad::eOk; ++number) {
        const ACHAR* original = nullptr;
        record->getName(original);
        es = renamed->setName((L"$" + std::to_wstring(number) + L"$" + original).c_str());
        renamed->getName(name);
      }
      if (es == Acad::eOk) es = table->add(renamed);
      if (es != Acad::eOk) {
        delete copy;
        return true;
      }
      idMap_.assign(AcDbIdPair(source.objectId(), copy->objectId(), true, false));
      held_.push_back(copy);
      return true;
    }
    default:
      idMap_.assign(AcDbIdPair(source.objectId(), existing, false, false));
      return true;
  }
}

Acad::ErrorStatus AcDbCloner::bringAlong(AcDbObjectId id) {
  AcDbObjectId owner = id.stub()->owner;
  AcDbIdPair mapped(owner, AcDbObjectId::kNull, false);
  if (!owner.isNull() && !idMap_.compute(mapped)) {
    // Its owner comes first, and brings it.
    if (const Acad::ErrorStatus es = bringAlong(owner); es != Acad::eOk) return es;
    if (AcDbIdPair self(id, AcDbObjectId::kNull, false); idMap_.compute(self)) return Acad::eOk;
    if (!idMap_.compute(mapped)) return Acad::eInvalidOwnerObject;
  }
  AcDbObject* const under = mapped.value().isNull() ? nullptr : openOwner(mapped.value());
  return cloneOne(id, under, true, false);
}

Acad::ErrorStatus AcDbCloner::cloneHardReferences() {
  for (AcDbIdMappingIter pairs(idMap_); !pairs.done(); pairs.next()) {
    AcDbIdPair pair;
    pairs.getMap(pair);
    if (!pair.isCloned() || !pair.value().isResident()) continue;
    const AcDbDatabase* const to = pair.value().database();
    std::vector<AcDbObjectId> wanted;
    {
      // It is the original that is asked: a clone may file nothing of what isn't in its own drawing.
      const AcDbObjectPointer<AcDbObject> original(pair.key(), AcDb::kForRead);
      if (original.openStatus() != Acad::eOk) continue;
      AcDbMemoryDwgFiler record(AcDb::kWblockCloneFiler);
      if (original->dwgOutFields(&record) != Acad::eOk) continue;
      record.visitReferences([&](AcDbReferenceKind kind, AcDbObjectId& id) {
        AcDbIdPair mapped(id, AcDbObjectId::kNull, false);
        if (isHard(kind) && !id.isNull() && id.database() != to && !id.isErased() && !idMap_.compute(mapped)) {
          wanted.push_back(id);
        }
      });
    }
    for (const AcDbObjectId id : wanted) {
      AcDbIdPair mapped(id, AcDbObjectId::kNull, false);
      if (idMap_.compute(mapped)) continue;
      if (const Acad::ErrorStatus es = bringAlong(id); es != Acad::eOk) return es;
    }
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCloner::wblockClone(const AcDbObjectIdArray& ids, AcDbObjectId owner) {
  AcDbDatabase& to = *idMap_.destDb();
  for (const AcDbObjectId id : ids) {
    if (id.isNull()) return Acad::eNullObjectId;
    if (id.database() == &to) return Acad::eWrongDatabase;
    mapRoots(*id.database(), to, idMap_);
    AcDbObjectId target = owner;
    if (target.isNull()) {
      AcDbIdPair mapped(id.stub()->owner, AcDbObjectId::kNull, false);
      if (idMap_.compute(mapped)) target = mapped.value();
    }
    AcDbObject* const under = target.isNull() ? nullptr : openOwner(target);
    if (under == nullptr) return Acad::eInvalidOwnerObject;
    if (const Acad::ErrorStatus es = cloneOne(id, under, true, true); es != Acad::eOk) return es;
  }
  return cloneHardReferences();
}
