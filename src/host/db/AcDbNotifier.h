#pragma once

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbObjectExtras.h"

/// Sends the notifications of the objects of a database.
class AcDbNotifier {
 public:
  /// Calls `tell` with each reactor of the object in the order in which they were added; persistent ones are open for
  /// notify during the call, and passed over when they can't be. A reactor removed on the way isn't called.
  template <class Tell>
  static void tellReactors(const AcDbObject& object, Tell tell) {
    if (object.extras_ == nullptr || object.extras_->reactors.isEmpty()) return;
    const AcDbVoidPtrArray reactors = object.extras_->reactors;
    for (void* const reactor : reactors) {
      if (!object.extras_->reactors.contains(reactor)) continue;
      if (!acdbIsPersistentReactor(reactor)) {
        tell(static_cast<AcDbObjectReactor*>(reactor));
      } else if (AcDbObject* const listener = openForNotify(acdbPersistentReactorObjectId(reactor))) {
        tell(listener);
        closeFromNotify(*listener);
      }
    }
  }
  /// Calls `tell` with each reactor of the database.
  template <class Tell>
  static void tellDatabase(AcDbDatabase& database, Tell tell) {
    if (database.reactors_.empty()) return;
    const std::vector<AcDbDatabaseReactor*> reactors = database.reactors_;
    for (AcDbDatabaseReactor* const reactor : reactors) {
      if (isListening(database, reactor)) tell(reactor);
    }
  }

  static void openedForModify(AcDbObject& object);
  static void appended(AcDbObject& object);
  /// Tells of what was written in the open that is ending. The object is notifying meanwhile.
  static void modified(AcDbObject& object);
  /// As above after an undo or a redo. `change` is what was done to the object's being in the database.
  enum class Replay { kFields, kUnappended, kReappended };
  static void undone(AcDbObject& object, Replay change);
  static void cancelled(AcDbObject& object);
  static void copied(const AcDbObject& object, const AcDbObject& clone);
  static void closed(AcDbObject& object);
  /// Ends an open for notify; what was written during it is committed now.
  static void closeFromNotify(AcDbObject& listener);

 private:
  static AcDbObject* openForNotify(AcDbObjectId id);
  static bool isListening(const AcDbDatabase& database, const AcDbDatabaseReactor* reactor);
  static void changes(AcDbObject& object, Adesk::UInt32 flags);
};
