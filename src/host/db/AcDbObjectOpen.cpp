// Writing to an open object, and ending an open.
#include "host/db/AcDbNotifier.h"

namespace {

/// What lasts for one open only.
constexpr Adesk::UInt32 kOfOneOpen = AcDbStub::kModified | AcDbStub::kModifiedGraphics | AcDbStub::kModifiedXData |
                                     AcDbStub::kNewObject | AcDbStub::kUndoTaken | AcDbStub::kEraseChanged |
                                     AcDbStub::kAnnounced | AcDbStub::kRecorded;

}  // namespace

void AcDbObject::refuse(const ACHAR* why) const {
  const AcRxClass* const own = isA();
  acrx_abort(L"%s: %s\n", own != nullptr ? own->name() : L"AcDbObject", why);
}

void AcDbObject::beginWrite(bool autoUndo, bool recordModified) {
  if (!stub_->writable()) {
    refuse(L"eNotOpenForWrite");
    return;
  }
  AcDbUndoLog& log = stub_->database->undo_;
  if (!autoUndo) log.endPartial(stub_);
  if (stub_->has(AcDbStub::kUndoing)) return;
  if (!stub_->has(AcDbStub::kAnnounced)) {
    stub_->flags |= AcDbStub::kAnnounced;
    AcDbNotifier::openedForModify(*this);
  }
  if (autoUndo && !stub_->has(AcDbStub::kUndoTaken)) {
    stub_->flags |= AcDbStub::kUndoTaken;
    if (stub_->database->undoRecording() && (extras_ == nullptr || !extras_->undoDisabled)) log.recordModify(stub_);
  }
  // What other programs were to show no longer holds.
  if (recordModified && extras_ != nullptr && !extras_->fileGraphics.empty() && !hasTrait(kIsProxy)) {
    extras_->fileGraphics.clear();
  }
  if (recordModified) stub_->flags |= AcDbStub::kModified | AcDbStub::kModifiedGraphics;
}

AcDbDwgFiler* AcDbObject::undoFiler() {
  if (stub_ == nullptr || stub_->has(AcDbStub::kUndoTaken)) return nullptr;
  if (extras_ != nullptr && extras_->undoDisabled) return nullptr;
  return stub_->database->undo_.partialFiler(stub_);
}

void AcDbObject::disableUndoRecording(bool disable) {
  extras().undoDisabled = disable;
}

Acad::ErrorStatus AcDbObject::close() {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (stub_->writable()) return closeWriter();
  if (stub_->readers != 0) {
    const Acad::ErrorStatus es = subClose();
    --stub_->readers;
    return es;
  }
  if (!stub_->has(AcDbStub::kOpenForNotify)) return Acad::eCloseFailedNotOpen;
  AcDbNotifier::closeFromNotify(*this);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::closeWriter() {
  stub_->flags |= AcDbStub::kClosing;
  const Acad::ErrorStatus es = subClose();
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kClosing);
  stub_->database->undo_.endPartial(stub_);
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
  AcDbNotifier::modified(*this);
  stub_->flags &= ~kOfOneOpen;
  AcDbNotifier::closed(*this);
  return es;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (!stub_->writable() || stub_->has(AcDbStub::kUndoing)) return Acad::eNotOpenForWrite;
  stub_->flags |= AcDbStub::kClosing;
  const Acad::ErrorStatus es = subClose();
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kClosing);
  stub_->database->undo_.endPartial(stub_);
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
  ++stub_->readers;
  AcDbNotifier::modified(*this);
  stub_->flags &= ~kOfOneOpen;
  return es;
}

Acad::ErrorStatus AcDbObject::cancel() {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (!stub_->writable() || stub_->has(AcDbStub::kUndoing)) return Acad::eNotOpenForWrite;
  const Acad::ErrorStatus refused = subCancel();
  if (refused != Acad::eOk) return refused;
  if (stub_->has(AcDbStub::kModified | AcDbStub::kNewObject)) {
    const Acad::ErrorStatus es = stub_->database->undo_.rollBack(stub_);
    if (es != Acad::eOk) {
      closeWriter();
      return es;
    }
  }
  stub_->flags &= ~kOfOneOpen;
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
  stub_->flags |= AcDbStub::kUndoing;
  AcDbNotifier::cancelled(*this);
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kUndoing);
  AcDbNotifier::closed(*this);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(Adesk::Boolean erasing) {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (!stub_->writable()) return Acad::eNotOpenForWrite;
  if (erasing && isErased()) return Acad::eWasErased;
  if (!erasing && !isErased()) return Acad::eInvalidInput;
  assertWriteEnabled(false, true);
  const Acad::ErrorStatus refused = subErase(erasing);
  if (refused != Acad::eOk) return refused;
  mark(AcDbStub::kErased, erasing != 0);
  mark(AcDbStub::kEraseChanged, !stub_->has(AcDbStub::kEraseChanged));
  if (stub_->database->undoRecording()) stub_->database->undo_.recordErase(stub_, erasing != 0);
  return Acad::eOk;
}

void AcDbObject::mark(AcDbStub::Flag flag, bool on) {
  if (stub_ == nullptr) return;
  stub_->flags = on ? stub_->flags | flag : stub_->flags & ~Adesk::UInt32(flag);
}

Acad::ErrorStatus AcDbObject::subClose() {
  return Acad::eOk;
}
Acad::ErrorStatus AcDbObject::subErase(Adesk::Boolean) {
  return Acad::eOk;
}
Acad::ErrorStatus AcDbObject::subOpen(AcDb::OpenMode) {
  return Acad::eOk;
}
Acad::ErrorStatus AcDbObject::subCancel() {
  return Acad::eOk;
}
