#include "host/db/AcDbObject.h"

#include "host/db/AcDbAuditInfo.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbNotifier.h"
#include "host/db/AcDbValueChain.h"
#include "host/db/acdbOpen.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcGiDrawable)

AcDbObject::~AcDbObject() {
  if (extras_ != nullptr) {
    const AcDbVoidPtrArray reactors = extras_->reactors;
    for (void* const reactor : reactors) {
      if (!acdbIsPersistentReactor(reactor)) static_cast<AcDbObjectReactor*>(reactor)->goodbye(this);
    }
    delete extras_;
  }
  if (stub_ != nullptr && stub_->object == this) stub_->object = nullptr;
}

AcDbObject::Extras& AcDbObject::extras() const {
  if (extras_ == nullptr) extras_ = new Extras;
  return *extras_;
}

AcDbObjectId AcDbObject::ownerId() const {
  if (stub_ != nullptr) return stub_->owner;
  return extras_ != nullptr ? extras_->owner : AcDbObjectId::kNull;
}

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId owner) {
  assertWriteEnabled();
  if (stub_ == nullptr) {
    extras().owner = owner;
    return Acad::eOk;
  }
  if (!owner.isNull() && owner.database() != stub_->database) return Acad::eWrongDatabase;
  stub_->owner = owner.stub();
  return Acad::eOk;
}

// --- Reactors
// ---------------------------------------------------------------------------------------------------------

namespace {

constexpr Adesk::ULongPtr kPersistentBit = 1;

void* persistentEntry(AcDbObjectId id) {
  return reinterpret_cast<void*>(reinterpret_cast<Adesk::ULongPtr>(id.stub()) | kPersistentBit);
}

}  // namespace

bool acdbIsPersistentReactor(void* reactor) {
  return (reinterpret_cast<Adesk::ULongPtr>(reactor) & kPersistentBit) != 0;
}

AcDbObjectId acdbPersistentReactorObjectId(void* reactor) {
  if (!acdbIsPersistentReactor(reactor)) return AcDbObjectId::kNull;
  return reinterpret_cast<AcDbStub*>(reinterpret_cast<Adesk::ULongPtr>(reactor) & ~kPersistentBit);
}

void AcDbObject::addReactor(AcDbObjectReactor* reactor) const {
  if (reactor == nullptr || extras().reactors.contains(reactor)) return;
  extras_->reactors.append(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor) const {
  if (extras_ != nullptr) extras_->reactors.remove(reactor);
}

void AcDbObject::addPersistentReactor(AcDbObjectId id) {
  assertWriteEnabled();
  if (id.isNull() || hasPersistentReactor(id)) return;
  extras().reactors.append(persistentEntry(id));
}

void AcDbObject::removePersistentReactor(AcDbObjectId id) {
  assertWriteEnabled();
  if (extras_ != nullptr && !id.isNull()) extras_->reactors.remove(persistentEntry(id));
}

bool AcDbObject::hasPersistentReactor(AcDbObjectId id) const {
  return extras_ != nullptr && !id.isNull() && extras_->reactors.contains(persistentEntry(id));
}

bool AcDbObject::hasReactors() const {
  return extras_ != nullptr && !extras_->reactors.isEmpty();
}

const AcDbVoidPtrArray* AcDbObject::reactors() const {
  return hasReactors() ? &extras_->reactors : nullptr;
}

// --- What hangs on an object
// -------------------------------------------------------------------------------------------

AcDbObjectId AcDbObject::extensionDictionary() const {
  assertReadEnabled();
  if (extras_ == nullptr || extras_->extensionDictionary.isErased()) return AcDbObjectId::kNull;
  return extras_->extensionDictionary;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
  if (!extensionDictionary().isNull()) return Acad::eAlreadyInDb;
  assertWriteEnabled();
  const AcDbObjectId erased = extras().extensionDictionary;
  if (!erased.isNull()) {
    AcDbObjectPointer<AcDbDictionary> dictionary(erased, AcDb::kForWrite, true);
    return dictionary.openStatus() == Acad::eOk ? dictionary->erase(false) : dictionary.openStatus();
  }
  auto* const dictionary = new AcDbDictionary;
  dictionary->setTreatElementsAsHard(true);
  AcDbObjectId id;
  const Acad::ErrorStatus es = stub_->database->addAcDbObject(id, dictionary, objectId(), AcDbHandle());
  if (es != Acad::eOk) {
    delete dictionary;
    return es;
  }
  extras().extensionDictionary = id;
  return dictionary->close();
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary() {
  const AcDbObjectId id = extensionDictionary();
  if (id.isNull()) return Acad::eKeyNotFound;
  AcDbObjectPointer<AcDbDictionary> dictionary(id, AcDb::kForWrite);
  if (dictionary.openStatus() != Acad::eOk) return dictionary.openStatus();
  if (dictionary->numEntries() != 0) return Acad::eContainerNotEmpty;
  assertWriteEnabled();
  return dictionary->erase();
}

namespace {

bool headsPartOf(const resbuf& link, const ACHAR* appName) {
  return link.restype == AcDb::kDxfRegAppName && acdbFoldedName(link.resval.rstring) == acdbFoldedName(appName);
}

const resbuf* endOfPart(const resbuf* head) {
  const resbuf* link = head->rbnext;
  while (link != nullptr && link->restype != AcDb::kDxfRegAppName) link = link->rbnext;
  return link;
}

}  // namespace

resbuf* AcDbObject::xData(const ACHAR* appName) const {
  assertReadEnabled();
  if (extras_ == nullptr || extras_->xdata == nullptr) return nullptr;
  if (appName == nullptr || *appName == L'\0') return valuechain::copy(extras_->xdata);
  const resbuf* head = extras_->xdata;
  while (head != nullptr && !headsPartOf(*head, appName)) head = endOfPart(head);
  if (head == nullptr) return nullptr;
  resbuf* first = nullptr;
  resbuf** tail = &first;
  const resbuf* const end = endOfPart(head);
  for (const resbuf* link = head; link != end; link = link->rbnext) {
    *tail = valuechain::copyLink(*link);
    tail = &(*tail)->rbnext;
  }
  return first;
}

const resbuf* AcDbObject::xDataChain() const {
  return extras_ != nullptr ? extras_->xdata : nullptr;
}

void AcDbObject::setXDataAsRead(resbuf* chain) {
  acutRelRb(extras().xdata);
  extras_->xdata = chain;
}

void AcDbObject::addPersistentReactorAsRead(AcDbObjectId id) {
  if (!id.isNull()) extras().reactors.append(persistentEntry(id));
}

void AcDbObject::setExtensionDictionaryAsRead(AcDbObjectId id) {
  if (!id.isNull() || extras_ != nullptr) extras().extensionDictionary = id;
}

AcDbObjectId AcDbObject::extensionDictionaryReference() const {
  return extras_ != nullptr ? AcDbObjectId(extras_->extensionDictionary) : AcDbObjectId::kNull;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain) {
  constexpr int kMaxXDataBytes = 16383;
  if (chain == nullptr || chain->restype != AcDb::kDxfRegAppName) return Acad::eInvalidResBuf;
  if (!valuechain::codesWithin(chain, AcDb::kDxfXdAsciiString, AcDb::kDxfXdMax)) return Acad::eInvalidResBuf;
  assertWriteEnabled();
  resbuf* kept = nullptr;
  resbuf** tail = &kept;
  const auto keepPart = [&](const resbuf* head) {
    const resbuf* const end = endOfPart(head);
    for (const resbuf* link = head; link != end; link = link->rbnext) {
      *tail = valuechain::copyLink(*link);
      tail = &(*tail)->rbnext;
    }
  };
  const resbuf* const old = extras_ != nullptr ? extras_->xdata : nullptr;
  for (const resbuf* head = old; head != nullptr; head = endOfPart(head)) {
    bool replaced = false;
    for (const resbuf* part = chain; part != nullptr && !replaced; part = endOfPart(part)) {
      replaced = headsPartOf(*part, head->resval.rstring);
    }
    if (!replaced) keepPart(head);
  }
  for (const resbuf* part = chain; part != nullptr; part = endOfPart(part)) {
    if (part->rbnext != endOfPart(part)) keepPart(part);
  }
  if (valuechain::size(kept) > kMaxXDataBytes) {
    acutRelRb(kept);
    return Acad::eXdataSizeExceeded;
  }
  acutRelRb(extras().xdata);
  extras_->xdata = kept;
  mark(AcDbStub::kModifiedXData);
  return Acad::eOk;
}

// --- Filing
// -----------------------------------------------------------------------------------------------------------

namespace {

/// Which of the rare parts follow in an object's record.
enum RarePart : Adesk::UInt8 { kOwner = 1, kReactors = 2, kExtensionDictionary = 4, kXData = 8 };

}  // namespace

Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  if (filer->framesObjects()) return filer->filerStatus();
  const AcDb::FilerType type = filer->filerType();
  // A plain copy is an object of its own: whom the original told and what it owned stays with that.
  const bool withRelations = type != AcDb::kCopyFiler;
  AcDbObjectIdArray persistent;
  Adesk::UInt8 parts = type == AcDb::kFileFiler ? kOwner : 0;
  if (extras_ != nullptr) {
    for (void* const reactor : extras_->reactors) {
      if (withRelations && acdbIsPersistentReactor(reactor)) persistent.append(acdbPersistentReactorObjectId(reactor));
    }
    if (!persistent.isEmpty()) parts |= kReactors;
    if (withRelations && !extras_->extensionDictionary.isNull()) parts |= kExtensionDictionary;
    if (extras_->xdata != nullptr) parts |= kXData;
  }
  filer->writeUInt8(parts);
  if ((parts & kOwner) != 0) filer->writeSoftPointerId(ownerId());
  if ((parts & kReactors) != 0) {
    filer->writeInt32(persistent.length());
    for (const AcDbObjectId id : persistent) filer->writeSoftPointerId(id);
  }
  if ((parts & kExtensionDictionary) != 0) filer->writeHardOwnershipId(extras_->extensionDictionary);
  if ((parts & kXData) != 0) valuechain::write(*filer, extras_->xdata);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  if (filer->framesObjects()) return filer->filerStatus();
  Adesk::UInt8 parts = 0;
  if (filer->readUInt8(&parts) != Acad::eOk) return filer->filerStatus();
  if ((parts & kOwner) != 0) {
    AcDbSoftPointerId owner;
    filer->readSoftPointerId(&owner);
    if (stub_ != nullptr) stub_->owner = owner.stub();
  }
  const bool withRelations = filer->filerType() != AcDb::kCopyFiler;
  if (withRelations && extras_ != nullptr) {
    for (int i = extras_->reactors.length(); i-- > 0;) {
      if (acdbIsPersistentReactor(extras_->reactors[i])) extras_->reactors.removeAt(i);
    }
    extras_->extensionDictionary.setNull();
  }
  if ((parts & kReactors) != 0) {
    Adesk::Int32 count = 0;
    filer->readInt32(&count);
    for (Adesk::Int32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
      AcDbSoftPointerId id;
      filer->readSoftPointerId(&id);
      if (!id.isNull() && !hasPersistentReactor(id)) extras().reactors.append(persistentEntry(id));
    }
  }
  if ((parts & kExtensionDictionary) != 0) filer->readHardOwnershipId(&extras().extensionDictionary);
  if (extras_ != nullptr) {
    acutRelRb(extras_->xdata);
    extras_->xdata = nullptr;
  }
  if ((parts & kXData) != 0) valuechain::read(*filer, extras().xdata);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgOut(AcDbDwgFiler* filer) const {
  return dwgOutFields(filer);
}

Acad::ErrorStatus AcDbObject::dwgIn(AcDbDwgFiler* filer) {
  return dwgInFields(filer);
}

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  if (stub_ == nullptr || filer->framesObjects()) return filer->filerStatus();
  filer->writeAcDbHandle(AcDb::kDxfHandle, objectId().handle());
  filer->writeObjectId(AcDb::kDxfSoftPointerId, ownerId());
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  if (filer->framesObjects()) return filer->filerStatus();
  while (filer->filerStatus() == Acad::eOk && !filer->atEOF()) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    if (item.restype == AcDb::kDxfHandle || item.restype == AcDb::kDxfSoftPointerId ||
        item.restype == AcDb::kDxfHardOwnershipId || item.restype == AcDb::kDxfControlString) {
      continue;
    }
    filer->pushBackItem();
    break;
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfOut(AcDbDxfFiler* filer, bool allXdata, const AcDbObjectId*, int) const {
  const Acad::ErrorStatus es = dxfOutFields(filer);
  if (es != Acad::eOk) return es;
  if (allXdata && extras_ != nullptr && !filer->framesObjects()) valuechain::write(*filer, extras_->xdata);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfIn(AcDbDxfFiler* filer) {
  const Acad::ErrorStatus es = dxfInFields(filer);
  if (es != Acad::eOk || filer->framesObjects()) return es;
  resbuf* chain = nullptr;
  resbuf** tail = &chain;
  while (filer->atExtendedData()) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    *tail = valuechain::copyLink(item);
    tail = &(*tail)->rbnext;
  }
  const Acad::ErrorStatus set = chain != nullptr ? setXData(chain) : filer->filerStatus();
  acutRelRb(chain);
  return set;
}

Acad::ErrorStatus AcDbObject::audit(AcDbAuditInfo* info) {
  assertReadEnabled();
  if (stub_ == nullptr || stub_->owner == nullptr || stub_->owner->object != nullptr) return Acad::eOk;
  info->errorsFound(1);
  info->printError(this, L"owner", L"no such object", L"none");
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::decomposeForSave(AcDb::AcDbDwgVersion, AcDbObject*& replacement,
                                               AcDbObjectId& replacementId, Adesk::Boolean& exchangeXData) {
  replacement = nullptr;
  replacementId.setNull();
  exchangeXData = Adesk::kFalse;
  return Acad::eOk;
}

void AcDbObject::saveAs(AcGiWorldDraw*, AcDb::SaveType) {}

Acad::ErrorStatus AcDbObject::applyPartialUndo(AcDbDwgFiler*, AcRxClass*) {
  return Acad::eNotThatKindOfClass;
}

// --- Notifications
// ----------------------------------------------------------------------------------------------------

void AcDbObject::cancelled(const AcDbObject*) {}
void AcDbObject::copied(const AcDbObject*, const AcDbObject*) {}
void AcDbObject::erased(const AcDbObject*, Adesk::Boolean) {}
void AcDbObject::goodbye(const AcDbObject*) {}
void AcDbObject::openedForModify(const AcDbObject*) {}
void AcDbObject::modified(const AcDbObject*) {}
void AcDbObject::subObjModified(const AcDbObject*, const AcDbObject*) {}
void AcDbObject::modifyUndone(const AcDbObject*) {}
void AcDbObject::modifiedXData(const AcDbObject*) {}
void AcDbObject::unappended(const AcDbObject*) {}
void AcDbObject::reappended(const AcDbObject*) {}
void AcDbObject::objectClosed(const AcDbObjectId) {}
void AcDbObject::modifiedGraphics(const AcDbObject*) {}

void AcDbObject::xmitPropagateModify(const AcDbObject* subObject) const {
  AcDbNotifier::tellReactors(*this, [&](auto* reactor) { reactor->subObjModified(this, subObject); });
}
