#include "host/db/AcDbNotifier.h"

#include <algorithm>

#include "host/db/acdbOpen.h"

namespace {

/// While it lives, the object is sending notifications.
class Notifying {
 public:
  explicit Notifying(AcDbStub& stub) : stub_(stub) { ++stub_.notifying; }
  ~Notifying() { --stub_.notifying; }
  Notifying(const Notifying&) = delete;
  Notifying& operator=(const Notifying&) = delete;

 private:
  AcDbStub& stub_;
};

}  // namespace

AcDbObject* AcDbNotifier::openForNotify(AcDbObjectId id) {
  AcDbObject* listener = nullptr;
  acdbOpenAcDbObject(listener, id, AcDb::kForNotify);
  return listener;
}

void AcDbNotifier::closeFromNotify(AcDbObject& listener) {
  AcDbStub& stub = *listener.stub_;
  stub.flags &= ~Adesk::UInt32(AcDbStub::kOpenForNotify);
  if (!stub.has(AcDbStub::kWrittenInNotify)) return;
  stub.flags &= ~Adesk::UInt32(AcDbStub::kWrittenInNotify);
  stub.flags |= AcDbStub::kOpenForWrite;
  listener.closeWriter();
}

bool AcDbNotifier::isListening(const AcDbDatabase& database, const AcDbDatabaseReactor* reactor) {
  return std::find(database.reactors_.begin(), database.reactors_.end(), reactor) != database.reactors_.end();
}

void AcDbNotifier::openedForModify(AcDbObject& object) {
  tellReactors(object, [&](auto* reactor) { reactor->openedForModify(&object); });
  AcDbDatabase& database = *object.stub_->database;
  tellDatabase(database, [&](auto* reactor) { reactor->objectOpenedForModify(&database, &object); });
}

void AcDbNotifier::appended(AcDbObject& object) {
  AcDbDatabase& database = *object.stub_->database;
  tellDatabase(database, [&](auto* reactor) { reactor->objectAppended(&database, &object); });
}

void AcDbNotifier::changes(AcDbObject& object, Adesk::UInt32 flags) {
  if ((flags & AcDbStub::kModified) != 0) {
    tellReactors(object, [&](auto* reactor) { reactor->modified(&object); });
    if (object.hasTrait(AcDbObject::kIsEntity) && (flags & AcDbStub::kModifiedGraphics) != 0) {
      tellReactors(object, [&]<class R>(R* reactor) {
        if constexpr (std::is_same_v<R, AcDbObject>) {
          reactor->modifiedGraphics(&object);
        } else if (auto* const entityReactor = dynamic_cast<AcDbEntityReactor*>(reactor)) {
          entityReactor->modifiedGraphics(&object);
        }
      });
    }
    if ((flags & AcDbStub::kModifiedXData) != 0) {
      tellReactors(object, [&](auto* reactor) { reactor->modifiedXData(&object); });
    }
  }
  if ((flags & AcDbStub::kEraseChanged) != 0) {
    const bool erasing = object.isErased();
    tellReactors(object, [&](auto* reactor) { reactor->erased(&object, erasing); });
  }
}

void AcDbNotifier::modified(AcDbObject& object) {
  AcDbStub& stub = *object.stub_;
  AcDbDatabase& database = *stub.database;
  // A new object is told of as appended; nobody knows an earlier state of it.
  const Adesk::UInt32 silent = stub.has(AcDbStub::kNewObject) ? Adesk::UInt32(AcDbStub::kModified) : 0U;
  const Adesk::UInt32 flags = stub.flags & ~silent;
  if ((flags & (AcDbStub::kModified | AcDbStub::kEraseChanged)) == 0) return;
  const Notifying notifying(stub);
  changes(object, flags);
  if ((flags & AcDbStub::kModified) != 0) {
    tellDatabase(database, [&](auto* reactor) { reactor->objectModified(&database, &object); });
  }
  if ((flags & AcDbStub::kEraseChanged) != 0) {
    const bool erasing = object.isErased();
    tellDatabase(database, [&](auto* reactor) { reactor->objectErased(&database, &object, erasing); });
  }
}

void AcDbNotifier::undone(AcDbObject& object, Replay change) {
  AcDbStub& stub = *object.stub_;
  AcDbDatabase& database = *stub.database;
  const Adesk::UInt32 flags = stub.flags;
  const Notifying notifying(stub);
  if (change == Replay::kUnappended) {
    tellReactors(object, [&](auto* reactor) { reactor->unappended(&object); });
    tellDatabase(database, [&](auto* reactor) { reactor->objectUnAppended(&database, &object); });
    return;
  }
  if (change == Replay::kReappended) {
    tellReactors(object, [&](auto* reactor) { reactor->reappended(&object); });
    tellDatabase(database, [&](auto* reactor) { reactor->objectReAppended(&database, &object); });
    return;
  }
  changes(object, flags);
  tellReactors(object, [&](auto* reactor) { reactor->modifyUndone(&object); });
  tellDatabase(database, [&](auto* reactor) { reactor->objectModified(&database, &object); });
  if ((flags & AcDbStub::kEraseChanged) != 0) {
    const bool erasing = object.isErased();
    tellDatabase(database, [&](auto* reactor) { reactor->objectErased(&database, &object, erasing); });
  }
}

void AcDbNotifier::cancelled(AcDbObject& object) {
  const Notifying notifying(*object.stub_);
  tellReactors(object, [&](auto* reactor) { reactor->cancelled(&object); });
}

void AcDbNotifier::copied(const AcDbObject& object, const AcDbObject& clone) {
  tellReactors(object, [&](auto* reactor) { reactor->copied(&object, &clone); });
}

void AcDbNotifier::closed(AcDbObject& object) {
  const AcDbObjectId id = object.objectId();
  tellReactors(object, [&](auto* reactor) { reactor->objectClosed(id); });
}
