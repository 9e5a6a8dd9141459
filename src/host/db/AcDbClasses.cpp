// Registers the classes of the database when the library is loaded: objects are made by their class's name from then
// on.
#include "host/db/db.h"

namespace {

bool registerClasses() {
  AcGiDrawable::rxInit();
  AcDbObject::rxInit();
  AcDbEntity::rxInit();
  AcDbCurve::rxInit();
  AcDbSymbolTable::rxInit();
  AcDbSymbolTableRecord::rxInit();
  AcDbAbstractViewTableRecord::rxInit();
  AcDbBlockTable::rxInit();
  AcDbBlockTableRecord::rxInit();
  AcDbLayerTable::rxInit();
  AcDbLayerTableRecord::rxInit();
  AcDbLinetypeTable::rxInit();
  AcDbLinetypeTableRecord::rxInit();
  AcDbTextStyleTable::rxInit();
  AcDbTextStyleTableRecord::rxInit();
  AcDbDimStyleTable::rxInit();
  AcDbDimStyleTableRecord::rxInit();
  AcDbRegAppTable::rxInit();
  AcDbRegAppTableRecord::rxInit();
  AcDbViewTable::rxInit();
  AcDbViewTableRecord::rxInit();
  AcDbViewportTable::rxInit();
  AcDbViewportTableRecord::rxInit();
  AcDbUCSTable::rxInit();
  AcDbUCSTableRecord::rxInit();
  AcDbDictionary::rxInit();
  AcDbXrecord::rxInit();
  AcDbDictionaryWithDefault::rxInit();
  AcDbDictionaryVar::rxInit();
  AcDbPlaceHolder::rxInit();
  AcDbPlotSettings::rxInit();
  AcDbLayout::rxInit();
  AcDbGroup::rxInit();
  AcDbMlineStyle::rxInit();
  AcDbVXTable::rxInit();
  AcDbVXTableRecord::rxInit();
  AcDbProxyEntity::rxInit();
  AcDbProxyObject::rxInit();
  AcDbDatabase::rxInit();
  AcDbObjectReactor::rxInit();
  AcDbEntityReactor::rxInit();
  AcDbDatabaseReactor::rxInit();
  AcDbDwgFiler::rxInit();
  AcDbMemoryDwgFiler::rxInit();
  AcDbDeepCloneFiler::rxInit();
  AcDbWblockCloneFiler::rxInit();
  AcDbDxfFiler::rxInit();
  AcDbMemoryDxfFiler::rxInit();
  acrxBuildClassHierarchy();
  return true;
}

[[maybe_unused]] const bool kRegistered = registerClasses();

}  // namespace
