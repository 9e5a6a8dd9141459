#include "host/db/AcDbDatabaseReactor.h"
#include "host/db/AcDbObjectReactor.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbObjectReactor, AcRxObject, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbEntityReactor, AcDbObjectReactor, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbDatabaseReactor, AcRxObject, 0)

void AcDbObjectReactor::cancelled(const AcDbObject*) {}
void AcDbObjectReactor::copied(const AcDbObject*, const AcDbObject*) {}
void AcDbObjectReactor::erased(const AcDbObject*, bool) {}
void AcDbObjectReactor::goodbye(const AcDbObject*) {}
void AcDbObjectReactor::openedForModify(const AcDbObject*) {}
void AcDbObjectReactor::modified(const AcDbObject*) {}
void AcDbObjectReactor::subObjModified(const AcDbObject*, const AcDbObject*) {}
void AcDbObjectReactor::modifyUndone(const AcDbObject*) {}
void AcDbObjectReactor::modifiedXData(const AcDbObject*) {}
void AcDbObjectReactor::unappended(const AcDbObject*) {}
void AcDbObjectReactor::reappended(const AcDbObject*) {}
void AcDbObjectReactor::objectClosed(const AcDbObjectId) {}

void AcDbEntityReactor::modifiedGraphics(const AcDbObject*) {}
void AcDbEntityReactor::dragCloneToBeDeleted(const AcDbObject*, const AcDbObject*) {}

void AcDbDatabaseReactor::objectAppended(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectModified(const AcDbDatabase*, const AcDbObject*) {}
void AcDbDatabaseReactor::objectErased(const AcDbDatabase*, const AcDbObject*, bool) {}
void AcDbDatabaseReactor::headerSysVarWillChange(const AcDbDatabase*, const ACHAR*) {}
void AcDbDatabaseReactor::headerSysVarChanged(const AcDbDatabase*, const ACHAR*, bool) {}
void AcDbDatabaseReactor::proxyResurrectionCompleted(const AcDbDatabase*, const ACHAR*) {}
void AcDbDatabaseReactor::goodbye(const AcDbDatabase*) {}
