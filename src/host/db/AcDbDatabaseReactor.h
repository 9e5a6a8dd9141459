#pragma once

#include "host/rx/rx.h"

class AcDbDatabase;
class AcDbObject;

/// Base of the reactors of a database: told of what happens to any of its objects. Every notification does nothing by
/// default. The order is told in docs/architecture.md.
class AcDbDatabaseReactor : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor);
  AcDbDatabaseReactor() = default;

  /// An object has entered the database; it is still open for write.
  virtual void objectAppended(const AcDbDatabase* database, const AcDbObject* object);
  /// An append has been undone.
  virtual void objectUnAppended(const AcDbDatabase* database, const AcDbObject* object);
  /// An undone append has been redone.
  virtual void objectReAppended(const AcDbDatabase* database, const AcDbObject* object);
  /// The first write of an open is about to happen.
  virtual void objectOpenedForModify(const AcDbDatabase* database, const AcDbObject* object);
  /// A modified object is being closed.
  virtual void objectModified(const AcDbDatabase* database, const AcDbObject* object);
  /// An object that was erased, or unerased (`erasing` false), is being closed.
  virtual void objectErased(const AcDbDatabase* database, const AcDbObject* object, bool erasing = true);
  virtual void headerSysVarWillChange(const AcDbDatabase* database, const ACHAR* name);
  virtual void headerSysVarChanged(const AcDbDatabase* database, const ACHAR* name, bool success);
  virtual void proxyResurrectionCompleted(const AcDbDatabase* database, const ACHAR* appName);
  /// The database is about to be destroyed.
  virtual void goodbye(const AcDbDatabase* database);
};
