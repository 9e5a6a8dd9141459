#pragma once

#include "host/db/db.h"
#include "host/ge/ge.h"

/// Ids by name in the symbol tables of the working database. Erased records are found too. The status of the first step
/// that fails, with `id` as it was.
Acad::ErrorStatus getLayerIdFromString(const wchar_t* nome, AcDbObjectId& id);
Acad::ErrorStatus getLinetypeIdFromString(const wchar_t* nome, AcDbObjectId& id);
Acad::ErrorStatus getDimStyleIdFromString(const wchar_t* nome, AcDbObjectId& id);
Acad::ErrorStatus getTextStyleIdFromString(const wchar_t* nome, AcDbObjectId& id);

/// Puts a new entity into the space of the working database that is current. The side library's answer, nonzero on
/// success; 0 when the current space can't be told. The entity stays open.
int append(AcDbEntity* entidade, AcDbObjectId& id);
int append(AcDbEntity* entidade);

/// Locks or unlocks a layer and tells in `estava` whether it was locked. One that is already as wanted isn't opened for
/// write. eOk, or the status of the open that failed.
Acad::ErrorStatus krLockLayer(AcDbObjectId layer, int bloquear, int& estava);

/// The same for the layer of an entity, which it gives in `layer`.
Acad::ErrorStatus krLockLayerFromObj(AcDbObjectId obj, int bloquear, int& estava, AcDbObjectId& layer);

/// Holds a layer unlocked for as long as it lives.
class krLockLayerHelper {
 public:
  krLockLayerHelper() = default;
  /// Unlocks the layer of an entity. When that fails, no layer is held.
  explicit krLockLayerHelper(AcDbObjectId obj) { set(obj); }
  krLockLayerHelper(const krLockLayerHelper&) = delete;
  krLockLayerHelper& operator=(const krLockLayerHelper&) = delete;
  /// Locks the layer again if it was locked.
  ~krLockLayerHelper() { release(); }

  /// Lets go of the layer held, as the destructor does, and unlocks the one of `obj`.
  void set(AcDbObjectId obj);
  AcDbObjectId layerId() const { return layerId_; }

 private:
  void release();

  AcDbObjectId layerId_;
  int wasLocked_ = 0;
};

/// Sets an arc entity from a calculator's arc. eNullEntityPointer for null, eIllegalEntityType for an entity that is no
/// arc, eNotApplicable when the arc's reference vector has no angle in its plane.
Acad::ErrorStatus krGeToDbArc(const AcGeCircArc3d& arco, AcDbEntity* db);
