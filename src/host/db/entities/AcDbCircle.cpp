#include "host/db/entities/AcDbCircle.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, 0, 0, 0, CIRCLE, ObjectDBX Classes)

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) : m_center(center) {
  setNormal(normal);
  setRadius(radius);
}

AcGePoint3d AcDbCircle::center() const {
  assertReadEnabled();
  return m_center;
}

double AcDbCircle::radius() const {
  assertReadEnabled();
  return m_radius;
}

double AcDbCircle::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

AcGeVector3d AcDbCircle::normal() const {
  assertReadEnabled();
  return m_normal;
}

double AcDbCircle::circumference() const {
  return kAcGeTwoPi * radius();
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center) {
  assertWriteEnabled();
  m_center = center;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
  if (!(radius >= 0.0) || !std::isfinite(radius)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_radius = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(m_center, m_normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

CurvePieces AcDbCircle::pieces() const {
  return {CurvePiece(AcGeCircArc3d(m_center, m_normal, m_radius))};
}

double AcDbCircle::paramAtPiece(std::size_t i) const {
  return i == 0 ? 0.0 : kAcGeTwoPi;
}

Acad::ErrorStatus AcDbCircle::getArea(double& area) const {
  assertReadEnabled();
  area = kAcGePi * m_radius * m_radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  if (m_radius + offset <= 0.0) return Acad::eInvalidInput;
  auto* const circle = new AcDbCircle(m_center, m_normal, m_radius + offset);
  circle->setPropertiesFrom(this);
  circle->m_thickness = m_thickness;
  curves.append(static_cast<AcDbEntity*>(circle));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writePoint3d(m_center);
  filer->writeDouble(m_radius);
  filer->writeDouble(m_thickness);
  filer->writeVector3d(m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  filer->readPoint3d(&m_center);
  filer->readDouble(&m_radius);
  filer->readDouble(&m_thickness);
  filer->readVector3d(&m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbCircle");
  if (m_thickness != 0.0 || filer->includesDefaultValues()) filer->writeDouble(AcDb::kDxfThickness, m_thickness);
  filer->writeItem(AcDb::kDxfXCoord, AcGeMatrix3d::worldToPlane(m_normal) * m_center);
  filer->writeDouble(AcDb::kDxfReal, m_radius);
  if (m_normal != AcGeVector3d::kZAxis || filer->includesDefaultValues()) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  AcGePoint3d inPlane = AcGeMatrix3d::worldToPlane(m_normal) * m_center;
  status = entities::readSubclass(filer, L"AcDbCircle", [&](const resbuf& group) {
    if (group.restype == AcDb::kDxfThickness) m_thickness = group.resval.rreal;
    if (group.restype == AcDb::kDxfXCoord) inPlane = entities::pointOf(group);
    if (group.restype == AcDb::kDxfReal) m_radius = std::fabs(group.resval.rreal);
    if (group.restype == AcDb::kDxfNormalX) setNormal(entities::vectorOf(group));
  });
  m_center = AcGeMatrix3d::planeToWorld(m_normal) * inPlane;
  return status;
}

Adesk::Boolean AcDbCircle::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  draw->geometry().circle(m_center, m_radius, m_normal);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbCircle::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  m_center.transformBy(xform);
  m_radius *= xform.scale();
  m_thickness *= xform.scale();
  m_normal = (xform * m_normal).normal();
  return Acad::eOk;
}

void AcDbCircle::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  double area = 0.0;
  getArea(area);
  entities::listPoint(L"                    center point,", m_center);
  entities::listLength(L"             radius", m_radius);
  entities::listLength(L"      circumference", circumference());
  entities::listLength(L"               area", area);
}

Acad::ErrorStatus AcDbCircle::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(m_normal);
  const AcGeVector3d x = frame * AcGeVector3d::kXAxis * m_radius;
  const AcGeVector3d y = frame * AcGeVector3d::kYAxis * m_radius;
  for (const AcGeVector3d& out : {AcGeVector3d(), x, y, -x, -y}) points.append(m_center + out);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  constexpr int kCenter = 0;
  if (indices.contains(kCenter)) {
    m_center += offset;
    return Acad::eOk;
  }
  AcGePoint3dArray grips;
  AcDbIntArray unused;
  subGetGripPoints(grips, unused, unused);
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] <= kCenter || indices[i] >= grips.length()) return Acad::eInvalidIndex;
    m_radius = (grips[indices[i]] + offset - m_center).orthoProject(m_normal).length();
  }
  return Acad::eOk;
}
