#include "host/db/AcDbLayerTable.h"

#include "host/db/AcDbDatabase.h"
#include "host/db/AcDbDxfFiler.h"
#include "host/db/dbtext.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, krhost)

void AcDbLayerTableRecord::setState(State bit, bool on) {
  assertWriteEnabled();
  states_ = Adesk::UInt8(on ? states_ | bit : states_ & ~bit);
}

bool AcDbLayerTableRecord::isCurrent() const {
  return database() != nullptr && database()->clayer() == objectId();
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
  if (frozen && isCurrent()) return Acad::eInvalidLayer;
  setState(kFrozen, frozen);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plot) {
  setState(kNotPlotted, !plot);
  return Acad::eOk;
}

bool AcDbLayerTableRecord::isInUse() const {
  assertReadEnabled();
  if (database() == nullptr) return false;
  for (const AcDbStub& stub : database()->handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased)) continue;
    const auto* const entity = AcDbEntity::cast(stub.object);
    if (entity != nullptr && entity->layerReference() == objectId()) return true;
  }
  return false;
}

AcCmColor AcDbLayerTableRecord::color() const {
  assertReadEnabled();
  return color_;
}

void AcDbLayerTableRecord::setColor(const AcCmColor& color) {
  assertWriteEnabled();
  if (!color.isByLayer() && !color.isByBlock()) color_ = color;
}

AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
  assertReadEnabled();
  if (linetypeId_.isNull() && database() != nullptr) return database()->continuousLinetype();
  return linetypeId_;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
  if (!id.isResident() || AcDbLinetypeTableRecord::cast(id.stub()->object) == nullptr) return Acad::eInvalidLineType;
  assertWriteEnabled();
  linetypeId_ = id;
  return Acad::eOk;
}

AcDb::LineWeight AcDbLayerTableRecord::lineWeight() const {
  assertReadEnabled();
  return AcDb::LineWeight(lineWeight_);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
  if (weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock) return Acad::eInvalidInput;
  assertWriteEnabled();
  lineWeight_ = Adesk::Int16(weight);
  return Acad::eOk;
}

AcDbObjectId AcDbLayerTableRecord::plotStyleNameId() const {
  assertReadEnabled();
  return plotStyle_;
}

Acad::ErrorStatus AcDbLayerTableRecord::setPlotStyleName(AcDbObjectId id) {
  assertWriteEnabled();
  plotStyle_ = id;
  return Acad::eOk;
}

ACHAR* AcDbLayerTableRecord::description() const {
  assertReadEnabled();
  return dbtext::newText(description_);
}

Acad::ErrorStatus AcDbLayerTableRecord::setDescription(const ACHAR* description) {
  assertWriteEnabled();
  description_ = dbtext::orEmpty(description);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::subErase(Adesk::Boolean erasing) {
  const bool needed = database() != nullptr && (objectId() == database()->layerZero() || isCurrent());
  if (erasing && needed) return Acad::eCannotBeErasedByCaller;
  return AcDbSymbolTableRecord::subErase(erasing);
}

Acad::ErrorStatus AcDbLayerTableRecord::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgOutFields(filer); es != Acad::eOk) return es;
  filer->writeUInt8(states_);
  filer->writeUInt32(color_.color());
  filer->writeInt16(lineWeight_);
  filer->writeHardPointerId(linetypeId_);
  filer->writeHardPointerId(plotStyle_);
  return filer->writeString(description_.c_str());
}

Acad::ErrorStatus AcDbLayerTableRecord::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dwgInFields(filer); es != Acad::eOk) return es;
  Adesk::UInt32 color = 0;
  filer->readUInt8(&states_);
  filer->readUInt32(&color);
  filer->readInt16(&lineWeight_);
  filer->readHardPointerId(&linetypeId_);
  filer->readHardPointerId(&plotStyle_);
  description_ = dbtext::readText(*filer);
  color_.setColor(color);
  return filer->filerStatus();
}

namespace {

// Bits of group 70.
constexpr int kDxfFrozen = 1;
constexpr int kDxfFrozenInNew = 2;
constexpr int kDxfLocked = 4;

}  // namespace

Adesk::Int16 AcDbLayerTableRecord::dxfFlags() const {
  const auto bit = [&](State state, int flag) { return (states_ & state) != 0 ? flag : 0; };
  return Adesk::Int16(bit(kFrozen, kDxfFrozen) | bit(kVpdflt, kDxfFrozenInNew) | bit(kLocked, kDxfLocked));
}

void AcDbLayerTableRecord::setDxfFlags(Adesk::Int16 flags) {
  setState(kFrozen, (flags & kDxfFrozen) != 0);
  setState(kVpdflt, (flags & kDxfFrozenInNew) != 0);
  setState(kLocked, (flags & kDxfLocked) != 0);
}

Acad::ErrorStatus AcDbLayerTableRecord::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfOutFields(filer); es != Acad::eOk) return es;
  // A negative colour says that the layer is off.
  const int color = color_.colorIndex();
  filer->writeInt16(AcDb::kDxfColor, Adesk::Int16((states_ & kOff) != 0 ? -color : color));
  filer->writeObjectId(AcDb::kDxfHardPointerId, linetypeObjectId());
  if ((states_ & kNotPlotted) != 0) filer->writeBoolean(AcDb::kDxfBool, Adesk::kFalse);
  return filer->writeInt16(AcDb::kDxfLineWeight, lineWeight_);
}

Acad::ErrorStatus AcDbLayerTableRecord::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbSymbolTableRecord::dxfInFields(filer); es != Acad::eOk) return es;
  while (!filer->atEndOfObject() && !filer->atExtendedData() && filer->filerStatus() == Acad::eOk) {
    resbuf item{};
    if (filer->readResBuf(&item) != Acad::eOk) break;
    const ads_u_val& value = item.resval;
    switch (item.restype) {
      case AcDb::kDxfColor:
        color_.setColorIndex(value.rint < 0 ? -value.rint : value.rint);
        setState(kOff, value.rint < 0);
        break;
      case AcDb::kDxfHardPointerId:
        linetypeId_ = AcDbObjectId().setFromOldId(value.rlname[0]);
        break;
      case AcDb::kDxfBool:
        setState(kNotPlotted, value.rint == 0);
        break;
      case AcDb::kDxfLineWeight:
        lineWeight_ = value.rint;
        break;
      default:
        break;
    }
  }
  return filer->filerStatus();
}
