#include "host/db/AcDbAuditInfo.h"
#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/AcDbEntity.h"
#include "host/db/AcDbHostApplicationServices.h"
#include "host/db/AcDbObjectExtras.h"
#include "host/db/FieldFiling.h"
#include "host/db/acdbOpen.h"

namespace {

/// Which of the rare parts follow in an entity's record.
enum RarePart : Adesk::UInt8 { kPlotStyle = 1, kGraphics = 2 };

}  // namespace

Acad::ErrorStatus AcDbEntity::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dwgOutFields(filer); es != Acad::eOk) return es;
  if (filer->framesObjects()) return filer->filerStatus();
  filer->writeHardPointerId(layerId_);
  filer->writeHardPointerId(linetypeId_);
  filer->writeDouble(linetypeScale_);
  filer->writeUInt32(color_);
  filer->writeInt16(lineWeight_);
  filer->writeUInt8(form_);
  Adesk::UInt8 parts = 0;
  if (extras_ != nullptr) {
    parts =
        Adesk::UInt8((extras_->plotStyle.isNull() ? 0 : kPlotStyle) | (extras_->fileGraphics.empty() ? 0 : kGraphics));
  }
  filer->writeUInt8(parts);
  if ((parts & kPlotStyle) != 0) filer->writeHardPointerId(extras_->plotStyle);
  if ((parts & kGraphics) != 0) fields::put(*filer, extras_->fileGraphics);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dwgInFields(filer); es != Acad::eOk) return es;
  if (filer->framesObjects()) return filer->filerStatus();
  AcDbHardPointerId layer;
  AcDbHardPointerId linetype;
  AcDbHardPointerId plotStyle;
  double scale = 1.0;
  Adesk::UInt32 color = 0;
  Adesk::Int16 weight = 0;
  Adesk::UInt8 form = 0;
  Adesk::UInt8 parts = 0;
  std::vector<std::byte> graphics;
  filer->readHardPointerId(&layer);
  filer->readHardPointerId(&linetype);
  filer->readDouble(&scale);
  filer->readUInt32(&color);
  filer->readInt16(&weight);
  filer->readUInt8(&form);
  filer->readUInt8(&parts);
  if ((parts & kPlotStyle) != 0) filer->readHardPointerId(&plotStyle);
  if ((parts & kGraphics) != 0) fields::get(*filer, graphics);
  if (filer->filerStatus() != Acad::eOk) return filer->filerStatus();
  AcCmColor checked;
  if (const Acad::ErrorStatus es = checked.setColor(color); es != Acad::eOk) return es;
  layerId_ = layer;
  linetypeId_ = linetype;
  linetypeScale_ = scale;
  lineWeight_ = weight;
  form_ = form;
  color_ = color;
  if (parts == 0 && extras_ == nullptr) return Acad::eOk;
  extras().plotStyle = plotStyle;
  extras_->fileGraphics = std::move(graphics);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbObject::dxfOutFields(filer); es != Acad::eOk) return es;
  if (filer->framesObjects()) return filer->filerStatus();
  filer->writeSubclass(L"AcDbEntity");
  const AcCmColor color = this->color();
  ACHAR* name = layer();
  filer->writeString(AcDb::kDxfLayerName, name != nullptr ? name : L"0");
  acutDelString(name);
  const AcDbDatabase* const own = database();
  if (own != nullptr && !linetypeId_.isNull() && linetypeId_ != own->byLayerLinetype()) {
    ACHAR* typeName = linetype();
    filer->writeString(AcDb::kDxfLinetypeName, typeName);
    acutDelString(typeName);
  }
  if (!color.isByLayer()) filer->writeInt16(AcDb::kDxfColor, Adesk::Int16(color.colorIndex()));
  if (color.isByColor()) filer->writeInt32(AcDb::kDxfColorRGB, Adesk::Int32(color_ & 0xffffffU));
  if (linetypeScale_ != 1.0) filer->writeDouble(AcDb::kDxfLinetypeScale, linetypeScale_);
  if ((form_ & kInvisibleBit) != 0) filer->writeInt16(AcDb::kDxfVisibility, AcDb::kInvisible);
  if (lineWeight_ != AcDb::kLnWtByLayer) filer->writeInt16(AcDb::kDxfLineWeight, lineWeight_);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbEntity::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbObject::dxfInFields(filer); es != Acad::eOk) return es;
  if (filer->framesObjects() || !filer->atSubclassData(L"AcDbEntity")) return filer->filerStatus();
  AcCmColor color = this->color();
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
        color.setColorIndex(value.rint);
        color_ = color.color();
        break;
      case AcDb::kDxfColorRGB:
        color.setRGB(Adesk::UInt8(value.rlong >> 16), Adesk::UInt8(value.rlong >> 8), Adesk::UInt8(value.rlong));
        color_ = color.color();
        break;
      case AcDb::kDxfLinetypeScale:
        setLinetypeScale(value.rreal);
        break;
      case AcDb::kDxfVisibility:
        subSetVisibility(value.rint != 0 ? AcDb::kInvisible : AcDb::kVisible, false);
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
