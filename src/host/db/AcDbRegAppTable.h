#pragma once

#include "host/db/AcDbSymbolTable.h"

/// The name of an application that hangs extended data on objects.
class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord);
  AcDbRegAppTableRecord() = default;
};

class AcDbRegAppTable : public AcDbSymbolTableOf<AcDbRegAppTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegAppTable);
};
using AcDbRegAppTableIterator = AcDbRegAppTable::Iterator;

/// Adds an application's name to the database, or to the working one; eOk too when it is there already.
Acad::ErrorStatus acdbRegApp(const ACHAR* name, class AcDbDatabase* database);
