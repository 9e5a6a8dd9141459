#include "host/db/entities/AcDbLeader.h"

#include "host/db/AcDbDimStyleTable.h"
#include "host/db/StructFiling.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/AcDbBlockReference.h"
#include "host/db/entities/AcDbMText.h"
#include "host/db/entities/DimensionPicture.h"
#include "host/db/entities/EntityTools.h"
#include "host/db/entities/TextStyling.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLeader, AcDbEntity, 0, 0, 0, LEADER, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbLeader, AcDbEntity, data_)

AcGePoint3d AcDbLeader::vertexAt(int index) const {
  assertReadEnabled();
  return index >= 0 && index < int(data_.vertices.size()) ? data_.vertices[std::size_t(index)] : AcGePoint3d();
}

Acad::ErrorStatus AcDbLeader::setVertexAt(int index, const AcGePoint3d& point) {
  if (index < 0 || index >= int(data_.vertices.size())) return Acad::eInvalidIndex;
  assertWriteEnabled();
  data_.vertices[std::size_t(index)] = point;
  return Acad::eOk;
}

bool AcDbLeader::appendVertex(const AcGePoint3d& point) {
  assertWriteEnabled();
  if (!data_.vertices.empty() && data_.vertices.back() == point) return false;
  data_.vertices.push_back(point);
  return true;
}

void AcDbLeader::removeLastVertex() {
  assertWriteEnabled();
  if (!data_.vertices.empty()) data_.vertices.pop_back();
}

Acad::ErrorStatus AcDbLeader::setAnnotationOffset(const AcGeVector3d& offset) {
  assertWriteEnabled();
  data_.annotationOffset = offset;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::attachAnnotation(AcDbObjectId id) {
  const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
  if (entity.openStatus() != Acad::eOk) return entity.openStatus();
  assertWriteEnabled();
  data_.annotation = id;
  data_.annotationType = AcDbMText::cast(entity.object()) != nullptr            ? Adesk::Int16(kMText)
                         : AcDbBlockReference::cast(entity.object()) != nullptr ? Adesk::Int16(kBlockRef)
                                                                                : Adesk::Int16(kFcf);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::detachAnnotation() {
  assertWriteEnabled();
  data_.annotation = AcDbObjectId();
  data_.annotationType = kNoAnno;
  return Acad::eOk;
}

void AcDbLeader::enableArrowHead() {
  assertWriteEnabled();
  data_.hasArrowHead = true;
}

void AcDbLeader::disableArrowHead() {
  assertWriteEnabled();
  data_.hasArrowHead = false;
}

void AcDbLeader::setToSpline() {
  assertWriteEnabled();
  data_.pathType = 1;
}

void AcDbLeader::setToStraightLeader() {
  assertWriteEnabled();
  data_.pathType = 0;
}

Adesk::Boolean AcDbLeader::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const std::vector<AcGePoint3d>& points = data_.vertices;
  if (points.size() < 2) return Adesk::kTrue;
  draw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
  if (data_.hasArrowHead) {
    const entities::DimensionLook look(data_.dimensionStyle, database());
    entities::drawArrowHead(*draw, points[0], points[1] - points[0], data_.normal, look.arrowSize);
  }
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbLeader::subTransformBy(const AcGeMatrix3d& xform) {
  for (AcGePoint3d& vertex : data_.vertices) vertex.transformBy(xform);
  data_.origin.transformBy(xform);
  const AcGeVector3d normal = xform * data_.normal;
  const AcGeVector3d along = xform * data_.xDirection;
  if (normal.lengthSqrd() != 0.0) data_.normal = normal.normal();
  if (along.lengthSqrd() != 0.0) data_.xDirection = along.normal();
  data_.blockOffset = xform * data_.blockOffset;
  data_.annotationOffset = xform * data_.annotationOffset;
  data_.textHeight *= xform.scale();
  data_.textWidth *= xform.scale();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subGetGeomExtents(AcDbExtents& extents) const {
  if (data_.vertices.empty()) return Acad::eNullExtents;
  AcDbExtents box;
  for (const AcGePoint3d& vertex : data_.vertices) box.addPoint(vertex);
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  for (const AcGePoint3d& vertex : data_.vertices) points.append(vertex);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  for (int i = 0; i < indices.length(); ++i) {
    if (const Acad::ErrorStatus es = setVertexAt(indices[i], vertexAt(indices[i]) + offset); es != Acad::eOk) return es;
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLeader::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbLeader");
  filer->writeItem(3, entities::recordName(data_.dimensionStyle, L"Standard").c_str());
  filer->writeItem(71, Adesk::Int16(data_.hasArrowHead));
  filer->writeItem(72, data_.pathType);
  filer->writeItem(73, data_.annotationType);
  filer->writeItem(74, Adesk::Int16(data_.hookLineAlongX));
  filer->writeItem(75, data_.hookLine);
  filer->writeItem(40, data_.textHeight);
  filer->writeItem(41, data_.textWidth);
  filer->writeItem(76, Adesk::Int16(data_.vertices.size()));
  for (const AcGePoint3d& vertex : data_.vertices) filer->writeItem(10, vertex);
  if (data_.byBlockColor != 0) filer->writeItem(77, data_.byBlockColor);
  if (!data_.annotation.isNull()) filer->writeItem(340, AcDbObjectId(data_.annotation));
  filer->writeItem(211, data_.xDirection);
  filer->writeItem(210, data_.normal);
  filer->writeItem(212, data_.blockOffset);
  filer->writeItem(213, data_.annotationOffset);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLeader::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  data_.vertices.clear();
  const Acad::ErrorStatus es = entities::readSubclass(filer, L"AcDbLeader", [&](const resbuf& group) {
    const ads_u_val& value = group.resval;
    switch (int(group.restype)) {
      case 3:
        data_.dimensionStyle = entities::dimStyleNamed(filer->database(), entities::textOf(group));
        break;
      case 71:
        data_.hasArrowHead = value.rint != 0;
        break;
      case 72:
        data_.pathType = value.rint;
        break;
      case 73:
        data_.annotationType = value.rint;
        break;
      case 74:
        data_.hookLineAlongX = value.rint != 0;
        break;
      case 75:
        data_.hookLine = value.rint;
        break;
      case 77:
        data_.byBlockColor = value.rint;
        break;
      case 40:
        data_.textHeight = value.rreal;
        break;
      case 41:
        data_.textWidth = value.rreal;
        break;
      case 10:
        data_.vertices.push_back(entities::pointOf(group));
        break;
      case 340:
        data_.annotation = AcDbObjectId().setFromOldId(value.rlname[0]);
        break;
      case 210:
        data_.normal = entities::vectorOf(group);
        break;
      case 211:
        data_.xDirection = entities::vectorOf(group);
        break;
      case 212:
        data_.blockOffset = entities::vectorOf(group);
        break;
      case 213:
        data_.annotationOffset = entities::vectorOf(group);
        break;
      default:
        break;
    }
  });
  // The format tells no origin: it is the last vertex's place.
  if (!data_.vertices.empty()) data_.origin = data_.vertices.back();
  return es;
}
