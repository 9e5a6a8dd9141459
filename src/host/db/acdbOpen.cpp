#include "host/db/acdbOpen.h"

#include "host/db/AcDbLayerTable.h"

/// The rules of opening.
class AcDbOpener {
 public:
  static Acad::ErrorStatus forRead(AcDbStub& stub) {
    if (stub.writable()) return writerStatus(stub);
    if (stub.readers >= kMaxReaders) return Acad::eAtMaxReaders;
    ++stub.readers;
    return Acad::eOk;
  }

  static Acad::ErrorStatus forWrite(AcDbStub& stub) {
    if (stub.writable()) return writerStatus(stub);
    if (stub.notifying != 0) return Acad::eWasNotifying;
    if (stub.readers != 0) return Acad::eWasOpenForRead;
    if (isOnLockedLayer(stub)) return Acad::eOnLockedLayer;
    stub.flags |= AcDbStub::kOpenForWrite;
    return Acad::eOk;
  }

  static Acad::ErrorStatus forNotify(AcDbStub& stub) {
    if (stub.notifying != 0) return Acad::eWasNotifying;
    if (stub.has(AcDbStub::kOpenForNotify)) return Acad::eWasOpenForNotify;
    stub.flags |= AcDbStub::kOpenForNotify;
    return Acad::eOk;
  }

  static Acad::ErrorStatus upgrade(AcDbStub& stub) {
    if (stub.writable()) return writerStatus(stub);
    if (stub.readers == 0) return Acad::eNotOpenForRead;
    if (stub.readers > 1) return Acad::eHadMultipleReaders;
    if (isOnLockedLayer(stub)) return Acad::eOnLockedLayer;
    stub.readers = 0;
    stub.flags |= AcDbStub::kOpenForWrite;
    return Acad::eOk;
  }

  static Acad::ErrorStatus upgradeFromNotify(AcDbStub& stub, Adesk::Boolean& wasWritable) {
    wasWritable = Adesk::kFalse;
    if (!stub.has(AcDbStub::kOpenForNotify)) return Acad::eInvalidOpenState;
    if (stub.writable()) {
      if (stub.has(AcDbStub::kUndoing)) return Acad::eWasOpenForUndo;
      wasWritable = Adesk::kTrue;
      return Acad::eOk;
    }
    if (stub.notifying != 0) return Acad::eWasNotifying;
    if (stub.readers != 0) return Acad::eWasOpenForRead;
    stub.flags |= AcDbStub::kOpenForWrite;
    return Acad::eOk;
  }

  static void ended(AcDbObject& object, AcDb::OpenMode mode) {
    if (mode == AcDb::kForNotify) {
      object.stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForNotify);
    } else if (mode == AcDb::kForWrite) {
      object.stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
    } else {
      --object.stub_->readers;
    }
  }

  static bool tellsOpens(const AcDbObject& object) { return object.hasTrait(AcDbObject::kTellsOpens); }

 private:
  static constexpr Adesk::UInt16 kMaxReaders = 256;

  static Acad::ErrorStatus writerStatus(const AcDbStub& stub) {
    return stub.has(AcDbStub::kUndoing) ? Acad::eWasOpenForUndo : Acad::eWasOpenForWrite;
  }

  static bool isOnLockedLayer(const AcDbStub& stub) {
    if (!stub.object->hasTrait(AcDbObject::kIsEntity)) return false;
    const AcDbStub* const layer = static_cast<const AcDbEntity*>(stub.object)->layerId_.stub();
    // What a damaged file names as a layer may be anything.
    if (layer == nullptr || layer->object == nullptr || layer->object->isA() != AcDbLayerTableRecord::desc())
      return false;
    // A layer that something holds open for write is asked all the same: its state is what it holds now.
    return (static_cast<const AcDbLayerTableRecord*>(layer->object)->states_ & AcDbLayerTableRecord::kLocked) != 0;
  }
};

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  object = nullptr;
  AcDbStub* const stub = id.stub();
  if (stub == nullptr) return Acad::eNullObjectId;
  if (stub->object == nullptr) return Acad::ePermanentlyErased;
  if (stub->has(AcDbStub::kErased) && !openErased) return Acad::eWasErased;
  const Acad::ErrorStatus es = mode == AcDb::kForRead    ? AcDbOpener::forRead(*stub)
                               : mode == AcDb::kForWrite ? AcDbOpener::forWrite(*stub)
                                                         : AcDbOpener::forNotify(*stub);
  if (es != Acad::eOk) return es;
  if (AcDbOpener::tellsOpens(*stub->object)) {
    if (const Acad::ErrorStatus refused = stub->object->subOpen(mode); refused != Acad::eOk) {
      AcDbOpener::ended(*stub->object, mode);
      return refused;
    }
  }
  object = stub->object;
  return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  return acdbOpenObject<AcDbEntity>(entity, id, mode, openErased);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
  if (ads_name_nil(name)) return Acad::eInvalidAdsName;
  id.setFromOldId(Adesk::IntPtr(name[0]));
  return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
  ads_name_clear(name);
  if (id.isNull()) return Acad::eNullObjectId;
  name[0] = id.asOldId();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  return stub_ != nullptr ? AcDbOpener::upgrade(*stub_) : Acad::eNotInDatabase;
}

Acad::ErrorStatus AcDbObject::upgradeFromNotify(Adesk::Boolean& wasWritable) {
  wasWritable = Adesk::kFalse;
  return stub_ != nullptr ? AcDbOpener::upgradeFromNotify(*stub_, wasWritable) : Acad::eNotInDatabase;
}

Acad::ErrorStatus AcDbObject::downgradeToNotify(Adesk::Boolean wasWritable) {
  if (stub_ == nullptr) return Acad::eNotInDatabase;
  if (!stub_->has(AcDbStub::kOpenForNotify) || !stub_->writable()) return Acad::eInvalidOpenState;
  if (wasWritable) return Acad::eOk;
  stub_->flags &= ~Adesk::UInt32(AcDbStub::kOpenForWrite);
  stub_->flags |= AcDbStub::kWrittenInNotify;
  return Acad::eOk;
}
