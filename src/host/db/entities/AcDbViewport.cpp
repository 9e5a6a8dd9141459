#include "host/db/entities/AcDbViewport.h"

#include <algorithm>

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, 0, 0, 0, VIEWPORT, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbViewport, AcDbEntity, data_)

Acad::ErrorStatus AcDbViewport::setOn() {
  assertWriteEnabled();
  data_.status &= ~kOff;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setOff() {
  assertWriteEnabled();
  data_.status |= kOff;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setLocked() {
  assertWriteEnabled();
  data_.status |= kZoomLocked;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::setUnlocked() {
  assertWriteEnabled();
  data_.status &= ~kZoomLocked;
  return Acad::eOk;
}

double AcDbViewport::customScale() const {
  assertReadEnabled();
  return data_.viewHeight != 0.0 ? data_.height / data_.viewHeight : 1.0;
}

Acad::ErrorStatus AcDbViewport::setCustomScale(double scale) {
  if (!(scale > 0.0)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.viewHeight = data_.height / scale;
  return Acad::eOk;
}

bool AcDbViewport::isLayerFrozenInViewport(const AcDbObjectId& layer) const {
  assertReadEnabled();
  return std::find(data_.frozenLayers.begin(), data_.frozenLayers.end(), layer) != data_.frozenLayers.end();
}

Acad::ErrorStatus AcDbViewport::freezeLayersInViewport(const AcDbObjectIdArray& layers) {
  assertWriteEnabled();
  for (const AcDbObjectId layer : layers) {
    if (!isLayerFrozenInViewport(layer)) data_.frozenLayers.emplace_back(layer);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::thawLayersInViewport(const AcDbObjectIdArray& layers) {
  assertWriteEnabled();
  std::erase_if(data_.frozenLayers, [&](const AcDbObjectId& layer) { return layers.contains(layer); });
  return Acad::eOk;
}

AcGeMatrix3d AcDbViewport::modelToPaper() const {
  assertReadEnabled();
  const AcGeMatrix3d turned = AcGeMatrix3d::rotation(data_.twist, AcGeVector3d::kZAxis) *
                              AcGeMatrix3d::worldToPlane(data_.direction) *
                              AcGeMatrix3d::translation(AcGePoint3d::kOrigin - data_.target);
  const AcGeVector3d aside(-data_.viewCenter.x, -data_.viewCenter.y, 0.0);
  return AcGeMatrix3d::translation(data_.center.asVector()) * AcGeMatrix3d::scaling(customScale()) *
         AcGeMatrix3d::translation(aside) * turned;
}

Adesk::Boolean AcDbViewport::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGeVector3d x(data_.width / 2.0, 0.0, 0.0);
  const AcGeVector3d y(0.0, data_.height / 2.0, 0.0);
  const AcGePoint3d& c = data_.center;
  const AcGePoint3d frame[] = {c - x - y, c + x - y, c + x + y, c - x + y, c - x - y};
  draw->geometry().polyline(5, frame);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbViewport::subTransformBy(const AcGeMatrix3d& xform) {
  data_.center.transformBy(xform);
  data_.width *= xform.scale();
  data_.height *= xform.scale();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbViewport::subGetGeomExtents(AcDbExtents& extents) const {
  const AcGeVector3d half(data_.width / 2.0, data_.height / 2.0, 0.0);
  return extents.set(data_.center - half, data_.center + half);
}

Acad::ErrorStatus AcDbViewport::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  const Data& d = data_;
  filer->writeSubclass(L"AcDbViewport");
  filer->writeItem(10, d.center);
  filer->writeItem(40, d.width);
  filer->writeItem(41, d.height);
  filer->writeItem(68, d.active);
  filer->writeItem(69, d.number);
  filer->writeItem(12, d.viewCenter);
  filer->writeItem(13, d.snapBase);
  filer->writeItem(14, d.snapSpacing);
  filer->writeItem(15, d.gridSpacing);
  filer->writeItem(16, d.direction);
  filer->writeItem(17, d.target);
  filer->writeItem(42, d.lensLength);
  filer->writeItem(43, d.frontClip);
  filer->writeItem(44, d.backClip);
  filer->writeItem(45, d.viewHeight);
  filer->writeItem(50, d.snapAngle);
  filer->writeItem(51, d.twist);
  filer->writeItem(72, d.circleZoom);
  for (const AcDbHardPointerId& layer : d.frozenLayers) filer->writeItem(331, AcDbObjectId(layer));
  filer->writeItem(90, d.status);
  if (!d.clipBoundary.isNull()) filer->writeItem(340, AcDbObjectId(d.clipBoundary));
  filer->writeItem(1, d.styleSheet.c_str());
  filer->writeItem(281, Adesk::Int16(d.renderMode));
  filer->writeItem(71, Adesk::Int16(d.ucsPerViewport));
  filer->writeItem(74, Adesk::Int16(d.ucsAtOrigin));
  filer->writeItem(110, d.ucsOrigin);
  filer->writeItem(111, d.ucsXAxis);
  filer->writeItem(112, d.ucsYAxis);
  if (!d.namedUcs.isNull()) filer->writeItem(345, AcDbObjectId(d.namedUcs));
  if (!d.baseUcs.isNull()) filer->writeItem(346, AcDbObjectId(d.baseUcs));
  filer->writeItem(79, d.orthoType);
  filer->writeItem(146, d.elevation);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbViewport::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  Data& d = data_;
  d.frozenLayers.clear();
  const auto flat = [](const resbuf& group) { return AcGePoint2d(group.resval.rpoint[0], group.resval.rpoint[1]); };
  const auto idOf = [](const resbuf& group) { return AcDbObjectId().setFromOldId(group.resval.rlname[0]); };
  return entities::readSubclass(filer, L"AcDbViewport", [&](const resbuf& group) {
    const double real = group.resval.rreal;
    const Adesk::Int16 whole = group.resval.rint;
    switch (int(group.restype)) {
      case 10:
        d.center = entities::pointOf(group);
        break;
      case 40:
        d.width = real;
        break;
      case 41:
        d.height = real;
        break;
      case 68:
        d.active = whole;
        break;
      case 69:
        d.number = whole;
        break;
      case 12:
        d.viewCenter = flat(group);
        break;
      case 13:
        d.snapBase = flat(group);
        break;
      case 14:
        d.snapSpacing = flat(group);
        break;
      case 15:
        d.gridSpacing = flat(group);
        break;
      case 16:
        d.direction = entities::vectorOf(group);
        break;
      case 17:
        d.target = entities::pointOf(group);
        break;
      case 42:
        d.lensLength = real;
        break;
      case 43:
        d.frontClip = real;
        break;
      case 44:
        d.backClip = real;
        break;
      case 45:
        d.viewHeight = real;
        break;
      case 50:
        d.snapAngle = real;
        break;
      case 51:
        d.twist = real;
        break;
      case 72:
        d.circleZoom = whole;
        break;
      case 331:
      case 341:
        d.frozenLayers.emplace_back(idOf(group));
        break;
      case 90:
        d.status = group.resval.rlong;
        break;
      case 340:
        d.clipBoundary = idOf(group);
        break;
      case 1:
        d.styleSheet = entities::textOf(group);
        break;
      case 281:
        d.renderMode = Adesk::UInt8(whole);
        break;
      case 71:
        d.ucsPerViewport = whole != 0;
        break;
      case 74:
        d.ucsAtOrigin = whole != 0;
        break;
      case 110:
        d.ucsOrigin = entities::pointOf(group);
        break;
      case 111:
        d.ucsXAxis = entities::vectorOf(group);
        break;
      case 112:
        d.ucsYAxis = entities::vectorOf(group);
        break;
      case 345:
        d.namedUcs = idOf(group);
        break;
      case 346:
        d.baseUcs = idOf(group);
        break;
      case 79:
        d.orthoType = whole;
        break;
      case 146:
        d.elevation = real;
        break;
      default:
        break;
    }
  });
}
