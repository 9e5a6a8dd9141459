#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbObject.h"

/// Opens an object. It must be closed again with close() (or cancel(), erase() then close()).
///
/// | open already for | kForRead        | kForWrite       | kForNotify       |
/// |------------------|-----------------|-----------------|------------------|
/// | nothing          | eOk             | eOk             | eOk              |
/// | read             | eOk, to 256     | eWasOpenForRead | eOk              |
/// | write            | eWasOpenForWrite| eWasOpenForWrite| eOk              |
/// | notify           | eOk             | eOk             | eWasOpenForNotify|
/// | is notifying     | eOk             | eWasNotifying   | eWasNotifying    |
/// | undo is reading  | eWasOpenForUndo | eWasOpenForUndo | eOk              |
///
/// The 257th reader gets eAtMaxReaders. eNullObjectId for the null id; ePermanentlyErased for an id without object;
/// eWasErased for an erased object unless `openErased`; eOnLockedLayer for writing an entity whose layer is locked.
/// The pointer is null on failure.
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                        bool openErased = false) {
  return acdbOpenAcDbObject(object, id, mode, openErased);
}
/// As above; eNotThatKindOfClass for an object that is no entity.
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
/// As above for class T; eNotThatKindOfClass for an object of another.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
  object = nullptr;
  AcDbObject* opened = nullptr;
  const Acad::ErrorStatus es = acdbOpenAcDbObject(opened, id, mode, openErased);
  if (es != Acad::eOk) return es;
  object = T::cast(opened);
  if (object != nullptr) return Acad::eOk;
  opened->close();
  return Acad::eNotThatKindOfClass;
}

/// An object open for the life of this value.
template <class T>
class AcDbObjectPointer {
 public:
  AcDbObjectPointer() = default;
  AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) { open(id, mode, openErased); }
  AcDbObjectPointer(const AcDbObjectPointer&) = delete;
  AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
  ~AcDbObjectPointer() { close(); }

  Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false) {
    close();
    return status_ = acdbOpenObject(object_, id, mode, openErased);
  }
  Acad::ErrorStatus openStatus() const { return status_; }
  Acad::ErrorStatus close() {
    if (object_ == nullptr) return Acad::eOk;
    const Acad::ErrorStatus es = object_->close();
    object_ = nullptr;
    status_ = Acad::eNullObjectPointer;
    return es;
  }
  T* object() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  operator T*() const { return object_; }

 private:
  T* object_ = nullptr;
  Acad::ErrorStatus status_ = Acad::eNullObjectPointer;
};

/// The id behind an entity name, and the name of an id. eInvalidAdsName, eNullObjectId.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
