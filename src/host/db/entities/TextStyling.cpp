#include "host/db/entities/TextStyling.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbExtents.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/acdbOpen.h"

namespace entities {

AcGiTextStyle styleFor(AcDbObjectId style, double height, double widthFactor, double oblique) {
  AcGiTextStyle lettering;
  if (!style.isNull()) fromAcDbTextStyle(lettering, style);
  lettering.setTextSize(height);
  lettering.setXScale(widthFactor);
  lettering.setObliquingAngle(oblique);
  return lettering;
}

void textBox(const AcGiTextStyle& style, const std::wstring& text, AcGePoint2d& low, AcGePoint2d& high) {
  low = high = AcGePoint2d();
  if (!text.empty()) style.extentsBox(text.c_str(), -1, Adesk::kFalse, Adesk::kFalse, low, high);
}

std::wstring styleName(AcDbObjectId style) {
  AcDbObjectPointer<AcDbTextStyleTableRecord> record(style, AcDb::kForRead, true);
  if (record.openStatus() != Acad::eOk) return L"Standard";
  const ACHAR* name = nullptr;
  return record->getName(name) == Acad::eOk ? name : L"Standard";
}

AcDbObjectId styleNamed(AcDbDatabase* database, const ACHAR* name) {
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  AcDbTextStyleTable* table = nullptr;
  AcDbObjectId id;
  if (database == nullptr || database->getTextStyleTable(table) != Acad::eOk) return id;
  if (table->getAt(name, id) != Acad::eOk) id = AcDbObjectId::kNull;
  table->close();
  return id;
}

namespace {

AcDbObjectId recordNamed(AcDbDatabase* database, AcDbObjectId (AcDbDatabase::*tableId)() const, const ACHAR* name) {
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return {};
  const AcDbObjectPointer<AcDbSymbolTable> table((database->*tableId)(), AcDb::kForRead);
  AcDbObjectId id;
  if (table.openStatus() != Acad::eOk || table->getAt(name, id) != Acad::eOk) return {};
  return id;
}

}  // namespace

AcDbObjectId blockNamed(AcDbDatabase* database, const ACHAR* name) {
  return recordNamed(database, &AcDbDatabase::blockTableId, name);
}

AcDbObjectId dimStyleNamed(AcDbDatabase* database, const ACHAR* name) {
  return recordNamed(database, &AcDbDatabase::dimStyleTableId, name);
}

std::wstring recordName(AcDbObjectId record, const ACHAR* otherwise) {
  const AcDbObjectPointer<AcDbSymbolTableRecord> opened(record, AcDb::kForRead, true);
  return opened.openStatus() == Acad::eOk ? opened->nameText() : otherwise;
}

void addBox(AcDbExtents& extents, const AcGeMatrix3d& frame, const AcGePoint2d& low, const AcGePoint2d& high) {
  for (const double x : {low.x, high.x}) {
    for (const double y : {low.y, high.y}) extents.addPoint(frame * AcGePoint3d(x, y, 0.0));
  }
}

}  // namespace entities
