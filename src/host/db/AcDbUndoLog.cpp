#include "host/db/AcDbUndoLog.h"

#include <algorithm>

#include "host/db/AcDbNotifier.h"

AcDbUndoLog::~AcDbUndoLog() = default;

void AcDbUndoLog::mark() {
  if (groups_.empty() || !groups_.back().empty()) groups_.emplace_back();
}

int AcDbUndoLog::numUndoGroups() const {
  const bool lastIsEmpty = !groups_.empty() && groups_.back().empty();
  return int(groups_.size()) - (lastIsEmpty ? 1 : 0);
}

void AcDbUndoLog::clear() {
  groups_.clear();
  redoGroups_.clear();
  partial_.reset();
  partialOwner_ = nullptr;
}

void AcDbUndoLog::push(Kind kind, AcDbStub* stub, AcDbMemoryDwgFiler::Buffer before) {
  if (groups_.empty()) groups_.emplace_back();
  redoGroups_.clear();
  groups_.back().push_back({kind, !stub->has(AcDbStub::kRecorded), stub, std::move(before)});
  stub->flags |= AcDbStub::kRecorded;
}

void AcDbUndoLog::recordModify(AcDbStub* stub) {
  endPartial(partialOwner_);
  AcDbMemoryDwgFiler filer(AcDb::kUndoFiler);
  // A state that can't be filed can't be put back: better no record than half of one.
  if (stub->object->dwgOutFields(&filer) != Acad::eOk) return;
  push(Kind::kModify, stub, filer.takeBuffer());
}

void AcDbUndoLog::recordAppend(AcDbStub* stub) {
  endPartial(partialOwner_);
  push(Kind::kAppend, stub);
}

void AcDbUndoLog::recordErase(AcDbStub* stub, bool erasing) {
  endPartial(partialOwner_);
  push(erasing ? Kind::kErase : Kind::kUnerase, stub);
}

AcDbDwgFiler* AcDbUndoLog::partialFiler(AcDbStub* stub) {
  if (inverse_ == nullptr && !stub->database->undoRecording()) return nullptr;
  if (partial_ == nullptr || partialOwner_ != stub) {
    endPartial(partialOwner_);
    partial_ = std::make_unique<AcDbMemoryDwgFiler>(AcDb::kUndoFiler);
    partialOwner_ = stub;
  }
  return partial_.get();
}

void AcDbUndoLog::endPartial(AcDbStub* stub) {
  if (partial_ == nullptr || partialOwner_ != stub) return;
  AcDbMemoryDwgFiler::Buffer record = partial_->takeBuffer();
  partial_.reset();
  partialOwner_ = nullptr;
  if (record.empty()) return;
  if (inverse_ != nullptr) {
    inverse_->push_back({Kind::kPartial, false, stub, std::move(record)});
  } else {
    push(Kind::kPartial, stub, std::move(record));
  }
}

Acad::ErrorStatus AcDbUndoLog::undo() {
  while (!groups_.empty() && groups_.back().empty()) groups_.pop_back();
  return replay(groups_, redoGroups_);
}

Acad::ErrorStatus AcDbUndoLog::redo() {
  while (!groups_.empty() && groups_.back().empty()) groups_.pop_back();
  return replay(redoGroups_, groups_);
}

void AcDbUndoLog::apply(Record& record, Group& inverse) {
  AcDbStub& stub = *record.stub;
  AcDbObject& object = *stub.object;
  switch (record.kind) {
    case Kind::kModify: {
      AcDbMemoryDwgFiler now(AcDb::kUndoFiler);
      if (object.dwgOutFields(&now) == Acad::eOk) inverse.push_back({Kind::kModify, false, &stub, now.takeBuffer()});
      AcDbMemoryDwgFiler before(AcDb::kUndoFiler, std::move(record.before));
      object.dwgInFields(&before);
      break;
    }
    case Kind::kPartial: {
      AcDbMemoryDwgFiler filer(AcDb::kUndoFiler, std::move(record.before));
      void* recorder = nullptr;
      filer.readAddress(&recorder);
      object.applyPartialUndo(&filer, static_cast<AcRxClass*>(recorder));
      endPartial(&stub);
      break;
    }
    case Kind::kAppend:
      stub.flags |= AcDbStub::kErased | AcDbStub::kUnappended;
      inverse.push_back({Kind::kUnappend, false, &stub, {}});
      break;
    case Kind::kUnappend:
      stub.flags &= ~Adesk::UInt32(AcDbStub::kErased | AcDbStub::kUnappended);
      inverse.push_back({Kind::kAppend, false, &stub, {}});
      break;
    case Kind::kErase:
      stub.flags &= ~Adesk::UInt32(AcDbStub::kErased);
      stub.flags ^= AcDbStub::kEraseChanged;
      inverse.push_back({Kind::kUnerase, false, &stub, {}});
      break;
    case Kind::kUnerase:
      stub.flags |= AcDbStub::kErased;
      stub.flags ^= AcDbStub::kEraseChanged;
      inverse.push_back({Kind::kErase, false, &stub, {}});
      break;
  }
}

Acad::ErrorStatus AcDbUndoLog::replay(std::vector<Group>& from, std::vector<Group>& to) {
  if (replaying_) return Acad::eInvalidContext;
  if (from.empty()) return Acad::eUndoOperationNotAvailable;
  for (const Record& record : from.back()) {
    if (record.stub->writable() || record.stub->readers != 0) return Acad::eOpenCountMismatch;
  }
  constexpr Adesk::UInt32 kReading =
      AcDbStub::kUndoing | AcDbStub::kOpenForWrite | AcDbStub::kModified | AcDbStub::kModifiedGraphics;
  Group group = std::move(from.back());
  from.pop_back();
  Group inverse;
  replaying_ = true;
  inverse_ = &inverse;
  using Replay = AcDbNotifier::Replay;
  std::vector<std::pair<AcDbStub*, Replay>> touched;
  for (auto record = group.rbegin(); record != group.rend(); ++record) {
    AcDbStub* const stub = record->stub;
    if (!stub->has(AcDbStub::kUndoing)) touched.emplace_back(stub, Replay::kFields);
    stub->flags |= kReading;
    apply(*record, inverse);
    if (record->kind != Kind::kAppend && record->kind != Kind::kUnappend) continue;
    const auto entry =
        std::find_if(touched.rbegin(), touched.rend(), [&](const auto& each) { return each.first == stub; });
    entry->second = record->kind == Kind::kAppend ? Replay::kUnappended : Replay::kReappended;
  }
  inverse_ = nullptr;
  to.push_back(std::move(inverse));
  for (const auto& [stub, change] : touched) stub->object->subClose();
  for (const auto& [stub, change] : touched) stub->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
  for (const auto& [stub, change] : touched) {
    AcDbNotifier::undone(*stub->object, change);
    stub->flags &= ~(kReading | AcDbStub::kEraseChanged | AcDbStub::kRecorded | AcDbStub::kUndoTaken);
    AcDbNotifier::closed(*stub->object);
  }
  replaying_ = false;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbUndoLog::rollBack(AcDbStub* stub) {
  endPartial(stub);
  // Without records a new object goes all the same: only its being there is to be undone.
  if (!stub->has(AcDbStub::kRecorded) && !stub->has(AcDbStub::kNewObject)) return Acad::eNoUndo;
  Group mine;
  bool done = !stub->has(AcDbStub::kRecorded);
  for (auto group = groups_.rbegin(); group != groups_.rend() && !done; ++group) {
    for (std::size_t i = group->size(); i-- > 0 && !done;) {
      if ((*group)[i].stub != stub) continue;
      done = (*group)[i].firstOfOpen;
      mine.push_back(std::move((*group)[i]));
      group->erase(group->begin() + std::ptrdiff_t(i));
    }
  }
  const bool wasReplaying = std::exchange(replaying_, true);
  stub->flags |= AcDbStub::kUndoing;
  Group unused;
  inverse_ = &unused;
  for (Record& record : mine) apply(record, unused);
  inverse_ = nullptr;
  replaying_ = wasReplaying;
  if (stub->has(AcDbStub::kNewObject)) stub->flags |= AcDbStub::kErased | AcDbStub::kUnappended;
  stub->flags &= ~Adesk::UInt32(AcDbStub::kUndoing);
  return Acad::eOk;
}
