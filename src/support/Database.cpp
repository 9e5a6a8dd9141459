#include "support/Database.h"

#include "host/ed/ed.h"
#include "support/SideLibrary.h"

namespace {

template <class Table>
using OpenTable = Acad::ErrorStatus (AcDbDatabase::*)(Table*&, AcDb::OpenMode);

template <class Table>
Acad::ErrorStatus idFromString(OpenTable<Table> open, const wchar_t* name, AcDbObjectId& id) {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return Acad::eNoDatabase;
  Table* table = nullptr;
  const Acad::ErrorStatus opened = (database->*open)(table, AcDb::kForRead);
  if (opened != Acad::eOk) return opened;
  const Acad::ErrorStatus found = table->getAt(name, id, true);
  table->close();
  return found;
}

// False when there is no such variable, or none that is a whole number.
bool readShort(const wchar_t* variable, int& value) {
  resbuf result{};
  if (acedGetVar(variable, &result) != RTNORM) return false;
  value = result.resval.rint;
  return true;
}

}  // namespace

Acad::ErrorStatus getLayerIdFromString(const wchar_t* nome, AcDbObjectId& id) {
  return idFromString<AcDbLayerTable>(&AcDbDatabase::getLayerTable, nome, id);
}

Acad::ErrorStatus getLinetypeIdFromString(const wchar_t* nome, AcDbObjectId& id) {
  return idFromString<AcDbLinetypeTable>(&AcDbDatabase::getLinetypeTable, nome, id);
}

Acad::ErrorStatus getDimStyleIdFromString(const wchar_t* nome, AcDbObjectId& id) {
  return idFromString<AcDbDimStyleTable>(&AcDbDatabase::getDimStyleTable, nome, id);
}

Acad::ErrorStatus getTextStyleIdFromString(const wchar_t* nome, AcDbObjectId& id) {
  return idFromString<AcDbTextStyleTable>(&AcDbDatabase::getTextStyleTable, nome, id);
}

int append(AcDbEntity* entidade, AcDbObjectId& id) {
  int viewport = 0;
  int tileMode = 0;
  if (!readShort(L"CVPORT", viewport) || !readShort(L"TILEMODE", tileMode)) return 0;
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  return sideLibrary().krAppendEntity(entidade, database, viewport, tileMode, id);
}

int append(AcDbEntity* entidade) {
  AcDbObjectId id;
  return append(entidade, id);
}

Acad::ErrorStatus krLockLayer(AcDbObjectId layer, int bloquear, int& estava) {
  AcDbLayerTableRecord* record = nullptr;
  if (const Acad::ErrorStatus es = acdbOpenObject(record, layer, AcDb::kForRead); es != Acad::eOk) return es;
  estava = record->isLocked() ? 1 : 0;
  record->close();
  if ((estava != 0) == (bloquear != 0)) return Acad::eOk;
  if (const Acad::ErrorStatus es = acdbOpenObject(record, layer, AcDb::kForWrite); es != Acad::eOk) return es;
  record->setIsLocked(bloquear != 0);
  record->close();
  return Acad::eOk;
}

Acad::ErrorStatus krLockLayerFromObj(AcDbObjectId obj, int bloquear, int& estava, AcDbObjectId& layer) {
  AcDbEntity* entity = nullptr;
  if (const Acad::ErrorStatus es = acdbOpenObject(entity, obj, AcDb::kForRead); es != Acad::eOk) return es;
  layer = entity->layerId();
  entity->close();
  return krLockLayer(layer, bloquear, estava);
}

void krLockLayerHelper::set(AcDbObjectId obj) {
  release();
  if (krLockLayerFromObj(obj, 0, wasLocked_, layerId_) != Acad::eOk) layerId_.setNull();
}

void krLockLayerHelper::release() {
  if (layerId_.isNull()) return;
  int before = 0;
  krLockLayer(layerId_, wasLocked_, before);
  layerId_.setNull();
}
