#include "host/db/AcDbDictionary.h"

#include <algorithm>

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/MergeStyle.h"
#include "host/db/acdbOpen.h"
#include "host/db/dbtext.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, 0, 0, 0, DICTIONARY, krhost)

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) const {
  object = nullptr;
  if (done()) return Acad::eIteratorDone;
  return acdbOpenObject(object, objectId(), mode);
}

std::vector<AcDbDictionary::Entry>::const_iterator AcDbDictionary::find(const ACHAR* name) const {
  const std::wstring folded = acdbFoldedName(name);
  return std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return !entry.second.isErased() && acdbFoldedName(entry.first.c_str()) == folded;
  });
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
  assertReadEnabled();
  const auto entry = find(name);
  if (entry == entries_.end()) return Acad::eKeyNotFound;
  id = entry->second;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const {
  object = nullptr;
  AcDbObjectId id;
  if (const Acad::ErrorStatus es = getAt(name, id); es != Acad::eOk) return es;
  return acdbOpenObject(object, id, mode);
}

bool AcDbDictionary::has(const ACHAR* name) const {
  assertReadEnabled();
  return find(name) != entries_.end();
}

bool AcDbDictionary::has(AcDbObjectId id) const {
  assertReadEnabled();
  return std::any_of(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.second == id; });
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, ACHAR*& name) const {
  assertReadEnabled();
  name = nullptr;
  for (const Entry& entry : entries_) {
    if (entry.second != id) continue;
    name = dbtext::newText(entry.first);
    return Acad::eOk;
  }
  return Acad::eKeyNotFound;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
  assertReadEnabled();
  const auto live =
      std::count_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return !entry.second.isErased(); });
  return Adesk::UInt32(live);
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
  if (object == nullptr) return Acad::eNullObjectPointer;
  if (database() == nullptr) return Acad::eNoDatabase;
  if (name == nullptr || *name == L'\0') return Acad::eInvalidKey;
  assertWriteEnabled();
  if (const auto former = find(name); former != entries_.end()) {
    AcDbObjectPointer<AcDbObject> old(former->second, AcDb::kForWrite);
    if (old.openStatus() != Acad::eOk) return old.openStatus();
    old->erase();
    entries_.erase(former);
  }
  if (object->isPersistent()) {
    id = object->objectId();
    object->setOwnerId(objectId());
  } else if (const Acad::ErrorStatus es = database()->addAcDbObject(id, object, objectId(), AcDbHandle());
             es != Acad::eOk) {
    return es;
  }
  const std::wstring folded = acdbFoldedName(name);
  const auto place = std::find_if(entries_.begin(), entries_.end(),
                                  [&](const Entry& entry) { return folded < acdbFoldedName(entry.first.c_str()); });
  entries_.insert(place, Entry(name, id));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
  AcDbObjectId id;
  return remove(name, id);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name, AcDbObjectId& id) {
  const auto entry = find(name);
  if (entry == entries_.end()) return Acad::eKeyNotFound;
  assertWriteEnabled();
  id = entry->second;
  entries_.erase(entry);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
  const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& e) { return e.second == id; });
  if (entry == entries_.end()) return Acad::eKeyNotFound;
  assertWriteEnabled();
  entries_.erase(entry);
  return Acad::eOk;
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName) {
  const auto entry = find(oldName);
  if (entry == entries_.end() || newName == nullptr || *newName == L'\0' || find(newName) != entries_.end())
    return false;
  assertWriteEnabled();
  entries_[std::size_t(entry - entries_.begin())].first = newName;
  std::stable_sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) {
    return acdbFoldedName(a.first.c_str()) < acdbFoldedName(b.first.c_str());
  });
  return true;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
  assertReadEnabled();
  auto* const iterator = new AcDbDictionaryIterator;
  for (const Entry& entry : entries_) {
    if (!entry.second.isErased()) iterator->entries_.push_back(entry);
  }
  return iterator;
}

bool AcDbDictionary::isTreatElementsAsHard() const {
  assertReadEnabled();
  return hard_;
}

void AcDbDictionary::setTreatElementsAsHard(bool hard) {
  assertWriteEnabled();
  hard_ = hard;
}

AcDb::DuplicateRecordCloning AcDbDictionary::mergeStyle() const {
  assertReadEnabled();
  return mergeStyle_;
}

void AcDbDictionary::setMergeStyle(AcDb::DuplicateRecordCloning style) {
  assertWriteEnabled();
  mergeStyle_ = style;
}

Acad::ErrorStatus AcDbDictionary::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeInt16(Adesk::Int16(mergeStyle_));
  filer->writeBool(hard_);
  if (filer->filerType() == AcDb::kCopyFiler) return filer->filerStatus();
  filer->writeInt32(Adesk::Int32(entries_.size()));
  for (const Entry& entry : entries_) {
    filer->writeString(entry.first.c_str());
    if (hard_) {
      filer->writeHardOwnershipId(entry.second);
    } else {
      filer->writeSoftOwnershipId(entry.second);
    }
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  Adesk::Int16 style = 0;
  filer->readInt16(&style);
  filer->readBool(&hard_);
  mergeStyle_ = acdbMergeStyleOf(style);
  if (filer->filerType() == AcDb::kCopyFiler) return filer->filerStatus();
  entries_.clear();
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    std::wstring name = dbtext::readText(*filer);
    AcDbHardOwnershipId hard;
    AcDbSoftOwnershipId soft;
    if (hard_) {
      filer->readHardOwnershipId(&hard);
    } else {
      filer->readSoftOwnershipId(&soft);
    }
    if (filer->filerStatus() != Acad::eOk) break;
    entries_.emplace_back(std::move(name), hard_ ? AcDbObjectId(hard) : AcDbObjectId(soft));
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbDictionary");
  if (hard_) filer->writeInt16(AcDb::kDxfInt8, 1);
  filer->writeInt16(AcDb::kDxfRenderMode, Adesk::Int16(mergeStyle_));
  for (const Entry& entry : entries_) {
    if (entry.second.isErased()) continue;
    filer->writeString(AcDb::kDxfTextFontFile, entry.first.c_str());
    filer->writeObjectId(hard_ ? AcDb::kDxfHardOwnershipId : AcDb::kDxfSoftOwnershipId, entry.second);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbDictionary::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"AcDbDictionary")) return filer->filerStatus();
  entries_.clear();
  std::wstring name;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfSubclass) {
      // A derived class's part.
      filer->pushBackItem();
      break;
    }
    if (item.restype == AcDb::kDxfInt8) {
      hard_ = item.resval.rint != 0;
    } else if (item.restype == AcDb::kDxfRenderMode) {
      mergeStyle_ = acdbMergeStyleOf(item.resval.rint);
    } else if (item.restype == AcDb::kDxfTextFontFile) {
      name = item.resval.rstring;
    } else if (item.restype == AcDb::kDxfSoftOwnershipId || item.restype == AcDb::kDxfHardOwnershipId) {
      entries_.emplace_back(name, AcDbObjectId().setFromOldId(item.resval.rlname[0]));
    }
  }
  return filer->filerStatus();
}
