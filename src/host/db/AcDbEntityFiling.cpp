#include "host/db/AcDbAuditInfo.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/acdbOpen.h"

Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeHardPointerId(layerId_);
  filer->writeHardPointerId(linetypeId_);
  filer->writeDouble(linetypeScale_);
  filer->writeUInt32(color_.color());
  filer->writeInt16(lineWeight_);
  return filer->writeInt8(visibility_);
}

Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  AcDbHardPointerId layer;
  AcDbHardPointerId linetype;
  double scale = 1.0;
  Adesk::UInt32 color = 0;
  Adesk::Int16 weight = 0;
  Adesk::Int8 visibility = 0;
  filer->readHardPointerId(&layer);
  filer->readHardPointerId(&linetype);
  filer->readDouble(&scale);
  filer->readUInt32(&color);
  filer->readInt16(&weight);
  filer->readInt8(&visibility);
  if (filer->filerStatus() != Acad::eOk) return filer->filerStatus();
  layerId_ = layer;
  linetypeId_ = linetype;
  linetypeScale_ = scale;
  lineWeight_ = weight;
  visibility_ = visibility;
  return color_.setColor(color);
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbEntity");
  ACHAR* name = layer();
  filer->writeString(AcDb::kDxfLayerName, name != nullptr ? name : L"0");
  acutDelString(name);
  const AcDbDatabase* const own = database();
  if (own != nullptr && !linetypeId_.isNull() && linetypeId_ != own->byLayerLinetype()) {
    ACHAR* typeName = linetype();
    filer->writeString(AcDb::kDxfLinetypeName, typeName);
    acutDelString(typeName);
  }
  if (!color_.isByLayer()) filer->writeInt16(AcDb::kDxfColor, Adesk::Int16(color_.colorIndex()));
  if (color_.isByColor()) filer->writeInt32(AcDb::kDxfColorRGB, Adesk::Int32(color_.color() & 0xffffffU));
  if (linetypeScale_ != 1.0) filer->writeDouble(AcDb::kDxfLinetypeScale, linetypeScale_);
  if (visibility_ != AcDb::kVisible) filer->writeInt16(AcDb::kDxfVisibility, visibility_);
  if (lineWeight_ != AcDb::kLnWtByLayer) filer->writeInt16(AcDb::kDxfLineWeight, lineWeight_);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"AcDbEntity")) return filer->filerStatus();
  while (!filer->atEndOfObject() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    const ads_u_val& value = item.resval;
    switch (item.restype) {
      case AcDb::kDxfLayerName:
        setLayer(value.rstring);
        break;
      case AcDb::kDxfLinetypeName:
        setLinetype(value.rstring);
        break;
      case AcDb::kDxfColor:
        color_.setColorIndex(value.rint);
        break;
      case AcDb::kDxfColorRGB:
        color_.setRGB(Adesk::UInt8(value.rlong >> 16), Adesk::UInt8(value.rlong >> 8), Adesk::UInt8(value.rlong));
        break;
      case AcDb::kDxfLinetypeScale:
        setLinetypeScale(value.rreal);
        break;
      case AcDb::kDxfVisibility:
        visibility_ = value.rint != 0 ? AcDb::kInvisible : AcDb::kVisible;
        break;
      case AcDb::kDxfLineWeight:
        lineWeight_ = value.rint;
        break;
      case AcDb::kDxfViewportVisibility:
        break;
      default:
        filer->pushBackItem();
        return filer->filerStatus();
    }
  }
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::audit(AcDbAuditInfo* info) {
  if (const Acad::ErrorStatus es = AcDbObject::audit(info); es != Acad::eOk) return es;
  if (database() == nullptr || layerId_.isResident()) return Acad::eOk;
  info->errorsFound(1);
  info->printError(this, L"layer", L"no such layer", L"0");
  if (!info->fixErrors()) return Acad::eOk;
  assertWriteEnabled();
  layerId_ = database()->layerZero();
  info->errorsFixed(1);
  return Acad::eOk;
}
