#include "host/db/entities/AcDbTrace.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbTrace, AcDbEntity, 0, 0, 0, TRACE, ObjectDBX Classes)
ACRX_DXF_DEFINE_MEMBERS(AcDbSolid, AcDbEntity, 0, 0, 0, SOLID, ObjectDBX Classes)
KR_DB_FILE_STRUCT(AcDbFourCorners, AcDbEntity, data_)

Acad::ErrorStatus AcDbFourCorners::getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const {
  assertReadEnabled();
  if (index >= data_.corners.size()) return Acad::eInvalidIndex;
  point = entities::fromPlane({data_.corners[index].x, data_.corners[index].y, data_.elevation}, data_.normal);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::setPointAt(Adesk::UInt16 index, const AcGePoint3d& point) {
  if (index >= data_.corners.size()) return Acad::eInvalidIndex;
  assertWriteEnabled();
  const AcGePoint3d flat = entities::toPlane(point, data_.normal);
  data_.corners[index].set(flat.x, flat.y);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(AcGePoint3d::kOrigin + data_.normal * data_.elevation, data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDbTrace");
  for (int i = 0; i < 4; ++i) {
    const AcGePoint2d& corner = data_.corners[std::size_t(i)];
    filer->writeItem(10 + i, AcGePoint3d(corner.x, corner.y, data_.elevation));
  }
  if (data_.thickness != 0.0) filer->writeItem(39, data_.thickness);
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(210, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbFourCorners::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  bool hasLast = false;
  const Acad::ErrorStatus es = entities::readSubclass(filer, L"AcDbTrace", [&](const resbuf& group) {
    if (group.restype >= 10 && group.restype <= 13) {
      const AcGePoint3d p = entities::pointOf(group);
      data_.corners[std::size_t(group.restype - 10)].set(p.x, p.y);
      if (group.restype == 10) data_.elevation = p.z;
      hasLast = hasLast || group.restype == 13;
    }
    if (group.restype == 39) data_.thickness = group.resval.rreal;
    if (group.restype == 210) data_.normal = entities::vectorOf(group);
  });
  // A triangle may leave out its fourth corner.
  if (!hasLast) data_.corners[3] = data_.corners[2];
  return es;
}

Adesk::Boolean AcDbFourCorners::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  AcGePoint3d outline[4];
  // The third corner lies beyond the second's neighbour: the outline runs 0, 1, 3, 2.
  constexpr Adesk::UInt16 kOrder[] = {0, 1, 3, 2};
  for (int i = 0; i < 4; ++i) getPointAt(kOrder[i], outline[i]);
  draw->subEntityTraits().setFillType(kAcGiFillAlways);
  draw->geometry().polygon(4, outline);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbFourCorners::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  AcGePoint3d corners[4];
  for (Adesk::UInt16 i = 0; i < 4; ++i) getPointAt(i, corners[i]);
  data_.normal = (xform * data_.normal).normal();
  data_.thickness *= xform.scale();
  for (std::size_t i = 0; i < 4; ++i) {
    const AcGePoint3d flat = entities::toPlane(xform * corners[i], data_.normal);
    data_.corners[i].set(flat.x, flat.y);
    data_.elevation = flat.z;
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::subGetGeomExtents(AcDbExtents& extents) const {
  AcDbExtents box;
  for (Adesk::UInt16 i = 0; i < 4; ++i) {
    AcGePoint3d corner;
    getPointAt(i, corner);
    box.addPoint(corner);
  }
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  for (Adesk::UInt16 i = 0; i < 4; ++i) {
    AcGePoint3d corner;
    getPointAt(i, corner);
    points.append(corner);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbFourCorners::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  for (int i = 0; i < indices.length(); ++i) {
    AcGePoint3d corner;
    if (indices[i] < 0 || getPointAt(Adesk::UInt16(indices[i]), corner) != Acad::eOk) return Acad::eInvalidIndex;
    setPointAt(Adesk::UInt16(indices[i]), corner + offset);
  }
  return Acad::eOk;
}
