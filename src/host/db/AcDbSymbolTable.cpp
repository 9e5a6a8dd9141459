#include "host/db/AcDbSymbolTable.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "host/db/AcDbCloner.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/acdbOpen.h"
#include "host/db/dbtext.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)

namespace {

// The C library's towlower follows the process's locale, which is "C" unless someone sets it: accented letters, which
// layer names have, would stay as they are.
wchar_t foldedLetter(wchar_t c) {
  if ((c >= L'A' && c <= L'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return wchar_t(c + 0x20);
  if (c < 0x80) return c;
  return wchar_t(std::towlower(std::wint_t(c)));
}

Adesk::UInt64 nameChanges = 0;

/// A folded name for one look-up, without memory of its own where it is short: drawing looks up layers by name all the
/// time.
class FoldedName {
 public:
  explicit FoldedName(const ACHAR* name) {
    const std::size_t length = name != nullptr ? std::wcslen(name) : 0;
    wchar_t* to = short_;
    if (length > kShort) {
      long_.resize(length);
      to = long_.data();
    }
    std::transform(name, name + length, to, foldedLetter);
    view_ = std::wstring_view(to, length);
  }
  FoldedName(const FoldedName&) = delete;
  FoldedName& operator=(const FoldedName&) = delete;
  operator std::wstring_view() const { return view_; }

 private:
  static constexpr std::size_t kShort = 64;
  wchar_t short_[kShort];
  std::wstring long_;
  std::wstring_view view_;
};

}  // namespace

Adesk::UInt64 acdbSymbolNameChanges() {
  return nameChanges;
}

std::wstring acdbFoldedName(const ACHAR* name) {
  std::wstring folded(name != nullptr ? name : L"");
  for (wchar_t& c : folded) c = foldedLetter(c);
  return folded;
}

Acad::ErrorStatus acdbValidateName(const ACHAR* name) {
  constexpr std::size_t kMaxLength = 255;
  if (name == nullptr || *name == L'\0' || std::wcslen(name) > kMaxLength) return Acad::eInvalidInput;
  // An asterisk may head the names that the host gives.
  for (const ACHAR* c = name + (*name == L'*' ? 1 : 0); *c != L'\0'; ++c) {
    if (*c < L' ' || std::wcschr(L"<>/\\\":;?*|,=`", *c) != nullptr) return Acad::eInvalidInput;
  }
  return Acad::eOk;
}

// --- Records
// ----------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
  assertReadEnabled();
  name = dbtext::newText(name_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
  assertReadEnabled();
  name = name_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
  if (const Acad::ErrorStatus es = acdbValidateName(name); es != Acad::eOk) return es;
  const auto* const owner = ownerId().isResident() ? ownerId().stub()->object : nullptr;
  auto* const table = const_cast<AcDbSymbolTable*>(AcDbSymbolTable::cast(owner));
  if (table != nullptr) {
    const AcDbObjectId other = table->find(acdbFoldedName(name), false);
    if (!other.isNull() && other != objectId()) return Acad::eDuplicateRecordName;
  }
  assertWriteEnabled();
  if (table != nullptr) table->renamed(objectId(), acdbFoldedName(name_.c_str()), acdbFoldedName(name));
  name_ = name;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer);
  return es != Acad::eOk ? es : filer->writeString(name_.c_str());
}

Acad::ErrorStatus AcDbSymbolTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  const std::wstring name = dbtext::readText(*filer);
  if (filer->filerStatus() != Acad::eOk) return filer->filerStatus();
  const auto* const owner = ownerId().isResident() ? ownerId().stub()->object : nullptr;
  auto* const table = const_cast<AcDbSymbolTable*>(AcDbSymbolTable::cast(owner));
  if (table != nullptr) table->renamed(objectId(), acdbFoldedName(name_.c_str()), acdbFoldedName(name.c_str()));
  name_ = name;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbSymbolTableRecord");
  const AcRxClass* const own = isA();
  if (own != nullptr) filer->writeSubclass(own->name());
  filer->writeString(AcDb::kDxfSymbolTableName, name_.c_str());
  return filer->writeInt16(AcDb::kDxfInt16, dxfFlags());
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  const AcRxClass* const own = isA();
  if (!filer->atSubclassData(L"AcDbSymbolTableRecord")) return filer->filerStatus();
  if (own != nullptr && !filer->atSubclassData(own->name())) return filer->filerStatus();
  while (!filer->atEndOfObject() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfSymbolTableName) {
      setName(item.resval.rstring);
    } else if (item.restype == AcDb::kDxfInt16) {
      setDxfFlags(item.resval.rint);
    } else {
      filer->pushBackItem();
      break;
    }
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTableRecord::subErase(Adesk::Boolean erasing) {
  if (const Acad::ErrorStatus es = AcDbObject::subErase(erasing); es != Acad::eOk) return es;
  if (erasing || !ownerId().isResident()) return Acad::eOk;
  const auto* const table = AcDbSymbolTable::cast(ownerId().stub()->object);
  const bool taken = table != nullptr && !table->find(acdbFoldedName(name_.c_str()), false).isNull();
  return taken ? Acad::eDuplicateRecordName : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::subDeepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap,
                                                      bool isPrimary) const {
  // Within one table the name is taken by the original itself.
  if (owner != nullptr && owner->objectId() == ownerId()) return Acad::eDuplicateRecordName;
  return AcDbObject::subDeepClone(owner, clone, idMap, isPrimary);
}

// --- Iterator
// ---------------------------------------------------------------------------------------------------------

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
  position_ = atBeginning ? -1 : int(ids_.size());
  do {
    position_ += atBeginning ? 1 : -1;
  } while (!done() && skipDeleted && ids_[std::size_t(position_)].isErased());
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
  do {
    position_ += forward ? 1 : -1;
  } while (!done() && skipDeleted && ids_[std::size_t(position_)].isErased());
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
  if (done()) return Acad::eIteratorDone;
  id = ids_[std::size_t(position_)];
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErased) const {
  record = nullptr;
  AcDbObjectId id;
  if (const Acad::ErrorStatus es = getRecordId(id); es != Acad::eOk) return es;
  return acdbOpenObject(record, id, mode, openErased);
}

Acad::ErrorStatus AcDbSymbolTableIterator::seek(AcDbObjectId id) {
  const auto found = std::find(ids_.begin(), ids_.end(), id);
  if (found == ids_.end()) return Acad::eKeyNotFound;
  position_ = int(found - ids_.begin());
  return Acad::eOk;
}

// --- Tables
// -----------------------------------------------------------------------------------------------------------

AcDbObjectId AcDbSymbolTable::find(std::wstring_view folded, bool erased) const {
  const auto [first, last] = index_.equal_range(folded);
  AcDbObjectId latestErased;
  for (auto entry = first; entry != last; ++entry) {
    if (!entry->second.isErased()) return entry->second;
    if (latestErased.isNull() || latestErased.handle() < entry->second.handle()) latestErased = entry->second;
  }
  return erased ? latestErased : AcDbObjectId::kNull;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
  assertReadEnabled();
  return !find(FoldedName(name), false).isNull();
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
  assertReadEnabled();
  return !id.isNull() && !id.isErased() && id.stub()->owner == objectId().stub();
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
  assertReadEnabled();
  const AcDbObjectId found = find(FoldedName(name), getErased);
  if (found.isNull()) return Acad::eKeyNotFound;
  id = found;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                         bool openErased) const {
  record = nullptr;
  AcDbObjectId id;
  if (const Acad::ErrorStatus es = getAt(name, id, openErased); es != Acad::eOk) return es;
  return acdbOpenObject(record, id, mode, openErased);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
  AcDbObjectId id;
  return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
  if (record == nullptr) return Acad::eNullObjectPointer;
  if (database() == nullptr) return Acad::eNoDatabase;
  if (!record->isKindOf(recordClass())) return Acad::eWrongObjectType;
  if (record->isPersistent()) return Acad::eAlreadyInDb;
  if (const Acad::ErrorStatus es = acdbValidateName(record->name_.c_str()); es != Acad::eOk) return es;
  const std::wstring folded = acdbFoldedName(record->name_.c_str());
  if (!find(folded, false).isNull()) return Acad::eDuplicateRecordName;
  // The record's own append is what an undo takes back; the table's list keeps it, as it keeps erased ones.
  assertWriteEnabled(false, true);
  if (const Acad::ErrorStatus es = database()->addAcDbObject(id, record, objectId(), AcDbHandle()); es != Acad::eOk) {
    return es;
  }
  record->added();
  return Acad::eOk;
}

void AcDbSymbolTable::adopted(AcDbSymbolTableRecord& record) {
  ++nameChanges;
  records_.push_back(record.objectId());
  index_.emplace(acdbFoldedName(record.name_.c_str()), record.objectId());
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
  assertReadEnabled();
  iterator = new AcDbSymbolTableIterator(records_);
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

void AcDbSymbolTable::renamed(AcDbObjectId id, const std::wstring& oldName, const std::wstring& newName) {
  const auto [first, last] = index_.equal_range(oldName);
  const auto entry = std::find_if(first, last, [&](const auto& each) { return each.second == id; });
  if (entry == last) return;
  ++nameChanges;
  index_.erase(entry);
  index_.emplace(newName, id);
}

Acad::ErrorStatus AcDbSymbolTable::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer); es != Acad::eOk) return es;
  if (filer->filerType() != AcDb::kFileFiler) return filer->filerStatus();
  const auto live = std::count_if(records_.begin(), records_.end(), [](AcDbObjectId id) { return !id.isErased(); });
  filer->writeInt32(Adesk::Int32(live));
  for (const AcDbObjectId id : records_) {
    if (!id.isErased()) filer->writeSoftOwnershipId(id);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTable::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  if (filer->filerType() != AcDb::kFileFiler) return filer->filerStatus();
  // The records enter the table as they come into the database; the list only tells of them.
  Adesk::Int32 count = 0;
  filer->readInt32(&count);
  for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
    AcDbSoftOwnershipId id;
    filer->readSoftOwnershipId(&id);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbSymbolTable::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbSymbolTable");
  const auto live = std::count_if(records_.begin(), records_.end(), [](AcDbObjectId id) { return !id.isErased(); });
  return filer->writeInt16(AcDb::kDxfInt16, Adesk::Int16(live));
}

Acad::ErrorStatus AcDbSymbolTable::subErase(Adesk::Boolean erasing) {
  return erasing ? Acad::eCannotBeErasedByCaller : AcDbObject::subErase(erasing);
}
