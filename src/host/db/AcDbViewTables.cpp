#include "host/db/AcDbViewTables.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDwgFiler.h"
#include "host/db/AcDbHostApplicationServices.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbAbstractViewTableRecord, 0, 0, 0, VIEW, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbAbstractViewTableRecord, 0, 0, 0, VPORT, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, 0, 0, 0, UCS, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, krhost)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 0)

// Plain values: read under an open for read, written under one for write.
#define KR_DB_VALUE(CLASS, TYPE, PARAMETER, GET, SET, FIELD) \
  TYPE CLASS::GET() const {                                  \
    assertReadEnabled();                                     \
    return FIELD;                                            \
  }                                                          \
  void CLASS::SET(PARAMETER value) {                         \
    assertWriteEnabled();                                    \
    FIELD = value;                                           \
  }
KR_DB_VALUE(AcDbAbstractViewTableRecord, AcGePoint2d, const AcGePoint2d&, centerPoint, setCenterPoint, center_)
KR_DB_VALUE(AcDbAbstractViewTableRecord, double, double, height, setHeight, height_)
KR_DB_VALUE(AcDbAbstractViewTableRecord, double, double, width, setWidth, width_)
KR_DB_VALUE(AcDbAbstractViewTableRecord, AcGePoint3d, const AcGePoint3d&, target, setTarget, target_)
KR_DB_VALUE(AcDbAbstractViewTableRecord, AcGeVector3d, const AcGeVector3d&, viewDirection, setViewDirection, direction_)
KR_DB_VALUE(AcDbAbstractViewTableRecord, double, double, viewTwist, setViewTwist, twist_)
KR_DB_VALUE(AcDbUCSTableRecord, AcGePoint3d, const AcGePoint3d&, origin, setOrigin, origin_)
KR_DB_VALUE(AcDbUCSTableRecord, AcGeVector3d, const AcGeVector3d&, xAxis, setXAxis, xAxis_)
KR_DB_VALUE(AcDbUCSTableRecord, AcGeVector3d, const AcGeVector3d&, yAxis, setYAxis, yAxis_)
#undef KR_DB_VALUE

Acad::ErrorStatus AcDbAbstractViewTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writePoint2d(center_);
  filer->writeDouble(height_);
  filer->writeDouble(width_);
  filer->writePoint3d(target_);
  filer->writeVector3d(direction_);
  return filer->writeDouble(twist_);
}

Acad::ErrorStatus AcDbAbstractViewTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  filer->readPoint2d(&center_);
  filer->readDouble(&height_);
  filer->readDouble(&width_);
  filer->readPoint3d(&target_);
  filer->readVector3d(&direction_);
  return filer->readDouble(&twist_);
}

Acad::ErrorStatus AcDbUCSTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writePoint3d(origin_);
  filer->writeVector3d(xAxis_);
  return filer->writeVector3d(yAxis_);
}

Acad::ErrorStatus AcDbUCSTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  filer->readPoint3d(&origin_);
  filer->readVector3d(&xAxis_);
  return filer->readVector3d(&yAxis_);
}

Acad::ErrorStatus acdbRegApp(const ACHAR* name, AcDbDatabase* database) {
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return Acad::eNoDatabase;
  AcDbRegAppTable* table = nullptr;
  Acad::ErrorStatus es = database->getRegAppTable(table, AcDb::kForWrite);
  if (es != Acad::eOk) return es;
  if (!table->has(name)) {
    auto* const record = new AcDbRegAppTableRecord;
    es = record->setName(name);
    if (es == Acad::eOk) es = table->add(record);
    if (es == Acad::eOk) {
      record->close();
    } else {
      delete record;
    }
  }
  table->close();
  return es;
}
