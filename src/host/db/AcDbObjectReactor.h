#pragma once

#include "host/db/AcDbObjectId.h"
#include "host/rx/rx.h"

class AcDbObject;

/// Base of the transient reactors of objects: told of what happens to the objects that they were added to, as long as
/// the program runs. Every notification does nothing by default. The order is told in docs/architecture.md.
class AcDbObjectReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObjectReactor);
  AcDbObjectReactor() = default;

  virtual void cancelled(const AcDbObject* object);
  virtual void copied(const AcDbObject* object, const AcDbObject* newObject);
  /// `erasing` is true for an erase, false for an unerase.
  virtual void erased(const AcDbObject* object, bool erasing = true);
  virtual void goodbye(const AcDbObject* object);
  virtual void openedForModify(const AcDbObject* object);
  virtual void modified(const AcDbObject* object);
  virtual void subObjModified(const AcDbObject* object, const AcDbObject* subObject);
  virtual void modifyUndone(const AcDbObject* object);
  virtual void modifiedXData(const AcDbObject* object);
  virtual void unappended(const AcDbObject* object);
  virtual void reappended(const AcDbObject* object);
  virtual void objectClosed(const AcDbObjectId objectId);
};

/// Base of the transient reactors of entities.
class AcDbEntityReactor : public AcDbObjectReactor {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntityReactor);
  virtual void modifiedGraphics(const AcDbObject* entity);
  virtual void dragCloneToBeDeleted(const AcDbObject*, const AcDbObject*);
};
