#pragma once

#include <memory>
#include <vector>

#include "host/db/AcDbMemoryDwgFiler.h"

class AcDbDatabase;
class AcDbObject;

/// What was done to a database, to be undone and redone group by group. A group begins with a mark and is what one
/// command did.
class AcDbUndoLog {
 public:
  explicit AcDbUndoLog(AcDbDatabase& database) : database_(database) {}
  ~AcDbUndoLog();

  bool recording() const { return disabled_ == 0 && !replaying_; }
  bool replaying() const { return replaying_; }
  /// Nests.
  void disable(bool off) { disabled_ += off ? 1 : (disabled_ > 0 ? -1 : 0); }

  /// Begins a group, unless the last one is empty still.
  void mark();
  int numUndoGroups() const;
  int numRedoGroups() const { return int(redoGroups_.size()); }

  /// The state before the first write of an open.
  void recordModify(AcDbStub* stub);
  void recordAppend(AcDbStub* stub);
  void recordErase(AcDbStub* stub, bool erasing);
  /// The filer of the open partial record of an object, begun on need.
  AcDbDwgFiler* partialFiler(AcDbStub* stub);
  void endPartial(AcDbStub* stub);

  /// eUndoOperationNotAvailable when there is nothing to undo or redo, eInvalidContext while one is running, and
  /// eOpenCountMismatch, with nothing done, while an object is open for write.
  Acad::ErrorStatus undo();
  Acad::ErrorStatus redo();
  /// Takes back what was recorded for the object since the open began (cancel): eNoUndo when nothing was.
  Acad::ErrorStatus rollBack(AcDbStub* stub);
  void clear();

 private:
  enum class Kind : Adesk::UInt8 { kModify, kAppend, kUnappend, kErase, kUnerase, kPartial };
  struct Record {
    Kind kind;
    bool firstOfOpen;
    AcDbStub* stub;
    AcDbMemoryDwgFiler::Buffer before;
  };
  using Group = std::vector<Record>;

  void push(Kind kind, AcDbStub* stub, AcDbMemoryDwgFiler::Buffer before = {});
  Acad::ErrorStatus replay(std::vector<Group>& from, std::vector<Group>& to);
  void apply(Record& record, Group& inverse);

  AcDbDatabase& database_;
  std::vector<Group> groups_;
  std::vector<Group> redoGroups_;
  std::unique_ptr<AcDbMemoryDwgFiler> partial_;
  AcDbStub* partialOwner_ = nullptr;
  Group* inverse_ = nullptr;  // of the group being replayed: where partial records go then
  int disabled_ = 0;
  bool replaying_ = false;
};
