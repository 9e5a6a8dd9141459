#include "host/db/AcDbViewTables.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewTableRecord, AcDbAbstractViewTableRecord, 0, 0, 0, VIEW, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewportTableRecord, AcDbAbstractViewTableRecord, 0, 0, 0, VPORT, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbUCSTableRecord, AcDbSymbolTableRecord, 0, 0, 0, UCS, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, 0, 0, 0, APPID, krhost)
ACRX_DXF_DEFINE_MEMBERS(AcDbVXTableRecord, AcDbSymbolTableRecord, 0, 0, 0, VX_TABLE_RECORD, krhost)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbVXTable, AcDbSymbolTable, 0)

KR_DB_FILE_STRUCT(AcDbAbstractViewTableRecord, AcDbSymbolTableRecord, view_)
KR_DB_FILE_STRUCT(AcDbViewTableRecord, AcDbAbstractViewTableRecord, data_)
KR_DB_FILE_STRUCT(AcDbViewportTableRecord, AcDbAbstractViewTableRecord, data_)
KR_DB_FILE_STRUCT(AcDbUCSTableRecord, AcDbSymbolTableRecord, data_)
KR_DB_FILE_STRUCT(AcDbVXTableRecord, AcDbSymbolTableRecord, data_)

namespace {

AcGePoint2d flat(const resbuf& group) {
  return {group.resval.rpoint[0], group.resval.rpoint[1]};
}

AcDbObjectId idOf(const resbuf& group) {
  return AcDbObjectId().setFromOldId(group.resval.rlname[0]);
}

/// Calls `take` with each group up to the end of the record.
template <class Take>
Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, Take take) {
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    take(item);
  }
  return filer->filerStatus();
}

void writeUcs(AcDbDxfFiler& filer, const AcDbUcsData& ucs, int orthoCode) {
  filer.writeItem(110, ucs.origin);
  filer.writeItem(111, ucs.xAxis);
  filer.writeItem(112, ucs.yAxis);
  filer.writeItem(orthoCode, ucs.orthoType);
  filer.writeItem(146, ucs.elevation);
  if (!ucs.named.isNull()) filer.writeItem(345, AcDbObjectId(ucs.named));
  if (!ucs.base.isNull()) filer.writeItem(346, AcDbObjectId(ucs.base));
}

/// Whether the group was one of a coordinate system's.
bool takeUcs(AcDbUcsData& ucs, const resbuf& group) {
  switch (int(group.restype)) {
    case 110:
      ucs.origin = entities::pointOf(group);
      return true;
    case 111:
      ucs.xAxis = entities::vectorOf(group);
      return true;
    case 112:
      ucs.yAxis = entities::vectorOf(group);
      return true;
    case 79:
      ucs.orthoType = group.resval.rint;
      return true;
    case 146:
      ucs.elevation = group.resval.rreal;
      return true;
    case 345:
      ucs.named = idOf(group);
      return true;
    case 346:
      ucs.base = idOf(group);
      return true;
    default:
      return false;
  }
}

}  // namespace

// --- VIEW
// ------------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbViewTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  const ViewData& view = viewData();
  filer->writeItem(40, view.height);
  filer->writeItem(10, view.center);
  filer->writeItem(41, view.width);
  filer->writeItem(11, view.direction);
  filer->writeItem(12, view.target);
  filer->writeItem(42, view.lensLength);
  filer->writeItem(43, view.frontClip);
  filer->writeItem(44, view.backClip);
  filer->writeItem(50, view.twist);
  filer->writeItem(71, view.mode);
  filer->writeItem(281, Adesk::Int16(view.renderMode));
  filer->writeItem(72, Adesk::Int16(data_.hasUcs ? 1 : 0));
  if (data_.hasUcs) writeUcs(*filer, view.ucs, 79);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  ViewData& view = viewDataAsRead();
  return readGroups(filer, [&](const resbuf& group) {
    const ads_u_val& value = group.resval;
    switch (int(group.restype)) {
      case 40:
        view.height = value.rreal;
        break;
      case 41:
        view.width = value.rreal;
        break;
      case 10:
        view.center = flat(group);
        break;
      case 11:
        view.direction = entities::vectorOf(group);
        break;
      case 12:
        view.target = entities::pointOf(group);
        break;
      case 42:
        view.lensLength = value.rreal;
        break;
      case 43:
        view.frontClip = value.rreal;
        break;
      case 44:
        view.backClip = value.rreal;
        break;
      case 50:
        view.twist = value.rreal;
        break;
      case 71:
        view.mode = value.rint;
        break;
      case 281:
        view.renderMode = Adesk::UInt8(value.rint);
        break;
      case 72:
        data_.hasUcs = value.rint != 0;
        break;
      default:
        takeUcs(view.ucs, group);
    }
  });
}

Adesk::Int16 AcDbViewTableRecord::dxfFlags() const {
  return data_.paperSpace ? 1 : 0;
}

void AcDbViewTableRecord::setDxfFlags(Adesk::Int16 flags) {
  data_.paperSpace = (flags & 1) != 0;
}

// --- VPORT
// -----------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbViewportTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  const ViewData& view = viewData();
  filer->writeItem(10, data_.lowerLeft);
  filer->writeItem(11, data_.upperRight);
  filer->writeItem(12, view.center);
  filer->writeItem(13, data_.snapBase);
  filer->writeItem(14, data_.snapSpacing);
  filer->writeItem(15, data_.gridSpacing);
  filer->writeItem(16, view.direction);
  filer->writeItem(17, view.target);
  filer->writeItem(40, view.height);
  // The exchange format tells the ratio of the sides, not the width.
  filer->writeItem(41, view.height != 0.0 ? view.width / view.height : 1.0);
  filer->writeItem(42, view.lensLength);
  filer->writeItem(43, view.frontClip);
  filer->writeItem(44, view.backClip);
  filer->writeItem(50, data_.snapRotation);
  filer->writeItem(51, view.twist);
  filer->writeItem(71, view.mode);
  filer->writeItem(72, data_.circleZoom);
  filer->writeItem(73, Adesk::Int16(data_.fastZoom));
  filer->writeItem(74, Adesk::Int16(data_.ucsIcon));
  filer->writeItem(75, Adesk::Int16(data_.snapOn));
  filer->writeItem(76, Adesk::Int16(data_.gridOn));
  filer->writeItem(77, Adesk::Int16(data_.snapStyle));
  filer->writeItem(78, data_.snapIsoPair);
  filer->writeItem(281, Adesk::Int16(view.renderMode));
  filer->writeItem(65, Adesk::Int16(data_.ucsPerViewport));
  writeUcs(*filer, view.ucs, 79);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewportTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  ViewData& view = viewDataAsRead();
  double ratio = 1.0;
  const Acad::ErrorStatus es = readGroups(filer, [&](const resbuf& group) {
    const ads_u_val& value = group.resval;
    switch (int(group.restype)) {
      case 10:
        data_.lowerLeft = flat(group);
        break;
      case 11:
        data_.upperRight = flat(group);
        break;
      case 12:
        view.center = flat(group);
        break;
      case 13:
        data_.snapBase = flat(group);
        break;
      case 14:
        data_.snapSpacing = flat(group);
        break;
      case 15:
        data_.gridSpacing = flat(group);
        break;
      case 16:
        view.direction = entities::vectorOf(group);
        break;
      case 17:
        view.target = entities::pointOf(group);
        break;
      case 40:
        view.height = value.rreal;
        break;
      case 41:
        ratio = value.rreal;
        break;
      case 42:
        view.lensLength = value.rreal;
        break;
      case 43:
        view.frontClip = value.rreal;
        break;
      case 44:
        view.backClip = value.rreal;
        break;
      case 50:
        data_.snapRotation = value.rreal;
        break;
      case 51:
        view.twist = value.rreal;
        break;
      case 71:
        view.mode = value.rint;
        break;
      case 72:
        data_.circleZoom = value.rint;
        break;
      case 73:
        data_.fastZoom = value.rint != 0;
        break;
      case 74:
        data_.ucsIcon = Adesk::UInt8(value.rint);
        break;
      case 75:
        data_.snapOn = value.rint != 0;
        break;
      case 76:
        data_.gridOn = value.rint != 0;
        break;
      case 77:
        data_.snapStyle = value.rint != 0;
        break;
      case 78:
        data_.snapIsoPair = value.rint;
        break;
      case 281:
        view.renderMode = Adesk::UInt8(value.rint);
        break;
      case 65:
        data_.ucsPerViewport = value.rint != 0;
        break;
      default:
        takeUcs(view.ucs, group);
    }
  });
  view.width = view.height * ratio;
  return es;
}

// --- UCS
// -------------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDbUCSTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeItem(10, data_.ucs.origin);
  filer->writeItem(11, data_.ucs.xAxis);
  filer->writeItem(12, data_.ucs.yAxis);
  filer->writeItem(79, data_.ucs.orthoType);
  filer->writeItem(146, data_.ucs.elevation);
  if (!data_.ucs.base.isNull()) filer->writeItem(346, AcDbObjectId(data_.ucs.base));
  for (const OrthoOrigin& each : data_.orthoOrigins) {
    filer->writeItem(71, each.type);
    filer->writeItem(13, each.origin);
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbUCSTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  data_.orthoOrigins.clear();
  return readGroups(filer, [&](const resbuf& group) {
    switch (int(group.restype)) {
      case 10:
        data_.ucs.origin = entities::pointOf(group);
        break;
      case 11:
        data_.ucs.xAxis = entities::vectorOf(group);
        break;
      case 12:
        data_.ucs.yAxis = entities::vectorOf(group);
        break;
      case 71:
        data_.orthoOrigins.emplace_back().type = group.resval.rint;
        break;
      case 13:
        if (!data_.orthoOrigins.empty()) data_.orthoOrigins.back().origin = entities::pointOf(group);
        break;
      default:
        takeUcs(data_.ucs, group);
    }
  });
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
