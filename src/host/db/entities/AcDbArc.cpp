#include "host/db/entities/AcDbArc.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, 0, 0, 0, ARC, ObjectDBX Classes)

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle) {}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle)
    : m_center(center), m_startAngle(entities::wrapped(startAngle)), m_endAngle(entities::wrapped(endAngle)) {
  setNormal(normal);
  setRadius(radius);
}

AcGePoint3d AcDbArc::center() const {
  assertReadEnabled();
  return m_center;
}

double AcDbArc::radius() const {
  assertReadEnabled();
  return m_radius;
}

double AcDbArc::startAngle() const {
  assertReadEnabled();
  return m_startAngle;
}

double AcDbArc::endAngle() const {
  assertReadEnabled();
  return m_endAngle;
}

double AcDbArc::totalAngle() const {
  assertReadEnabled();
  const double sweep = m_endAngle - m_startAngle;
  return sweep > 0.0 ? sweep : sweep + kAcGeTwoPi;
}

double AcDbArc::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

AcGeVector3d AcDbArc::normal() const {
  assertReadEnabled();
  return m_normal;
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center) {
  assertWriteEnabled();
  m_center = center;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setRadius(double radius) {
  if (!(radius >= 0.0) || !std::isfinite(radius)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_radius = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_startAngle = entities::wrapped(angle);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_endAngle = entities::wrapped(angle);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(m_center, m_normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

AcGeCircArc3d AcDbArc::geArc() const {
  return {m_center, m_normal, m_normal.perpVector(), m_radius, m_startAngle, m_startAngle + totalAngle()};
}

CurvePieces AcDbArc::pieces() const {
  return {CurvePiece(geArc())};
}

double AcDbArc::paramAtPiece(std::size_t i) const {
  return i == 0 ? m_startAngle : m_startAngle + totalAngle();
}

Acad::ErrorStatus AcDbArc::getArea(double& area) const {
  assertReadEnabled();
  area = CurvePiece(geArc()).segmentAreaTwice(m_normal) / 2.0;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  if (m_radius + offset <= 0.0) return Acad::eInvalidInput;
  auto* const arc = new AcDbArc(m_center, m_normal, m_radius + offset, m_startAngle, m_endAngle);
  arc->setPropertiesFrom(this);
  arc->m_thickness = m_thickness;
  curves.append(static_cast<AcDbEntity*>(arc));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writePoint3d(m_center);
  filer->writeDouble(m_radius);
  filer->writeDouble(m_thickness);
  filer->writeVector3d(m_normal);
  filer->writeDouble(m_startAngle);
  filer->writeDouble(m_endAngle);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  filer->readPoint3d(&m_center);
  filer->readDouble(&m_radius);
  filer->readDouble(&m_thickness);
  filer->readVector3d(&m_normal);
  filer->readDouble(&m_startAngle);
  filer->readDouble(&m_endAngle);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbCircle");
  if (m_thickness != 0.0 || filer->includesDefaultValues()) filer->writeDouble(AcDb::kDxfThickness, m_thickness);
  filer->writeItem(AcDb::kDxfXCoord, AcGeMatrix3d::worldToPlane(m_normal) * m_center);
  filer->writeDouble(AcDb::kDxfReal, m_radius);
  if (m_normal != AcGeVector3d::kZAxis || filer->includesDefaultValues()) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  filer->writeSubclass(L"AcDbArc");
  filer->writeDouble(AcDb::kDxfAngle, m_startAngle);
  filer->writeItem(AcDb::kDxfAngle + 1, m_endAngle);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  AcGePoint3d inPlane = AcGeMatrix3d::worldToPlane(m_normal) * m_center;
  const auto take = [&](const resbuf& group) {
    if (group.restype == AcDb::kDxfThickness) m_thickness = group.resval.rreal;
    if (group.restype == AcDb::kDxfXCoord) inPlane = entities::pointOf(group);
    if (group.restype == AcDb::kDxfReal) m_radius = std::fabs(group.resval.rreal);
    if (group.restype == AcDb::kDxfNormalX) setNormal(entities::vectorOf(group));
    if (group.restype == AcDb::kDxfAngle) m_startAngle = entities::wrapped(group.resval.rreal);
    if (group.restype == AcDb::kDxfAngle + 1) m_endAngle = entities::wrapped(group.resval.rreal);
  };
  status = entities::readSubclass(filer, L"AcDbCircle", take);
  if (status == Acad::eOk) status = entities::readSubclass(filer, L"AcDbArc", take);
  m_center = AcGeMatrix3d::planeToWorld(m_normal) * inPlane;
  return status;
}

Adesk::Boolean AcDbArc::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  draw->geometry().circularArc(m_center, m_radius, m_normal, entities::directionAt(m_startAngle, m_normal),
                               totalAngle());
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbArc::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  AcGeVector3d start = xform * entities::directionAt(m_startAngle, m_normal);
  AcGeVector3d end = xform * entities::directionAt(m_endAngle, m_normal);
  // Mirrored, the arc runs clockwise about its normal's image.
  if (xform.det() < 0.0) std::swap(start, end);
  m_center.transformBy(xform);
  m_radius *= xform.scale();
  m_thickness *= xform.scale();
  m_normal = (xform * m_normal).normal();
  m_startAngle = entities::angleInPlane(start, m_normal);
  m_endAngle = entities::angleInPlane(end, m_normal);
  return Acad::eOk;
}

void AcDbArc::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  entities::listPoint(L"                    center point,", m_center);
  entities::listLength(L"             radius", m_radius);
  entities::listAngle(L"        start angle", m_startAngle);
  entities::listAngle(L"          end angle", m_endAngle);
  entities::listLength(L"             length", length());
}

Acad::ErrorStatus AcDbArc::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeCircArc3d arc = geArc();
  for (const AcGePoint3d& p : {arc.startPoint(), arc.midPoint(), arc.endPoint(), m_center}) points.append(p);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  constexpr int kCenter = 3;
  AcGePoint3d through[kCenter];
  const AcGeCircArc3d arc = geArc();
  through[0] = arc.startPoint(), through[1] = arc.midPoint(), through[2] = arc.endPoint();
  const bool whole = indices.contains(kCenter);
  for (int i = 0; i < indices.length() && !whole; ++i) {
    if (indices[i] < 0 || indices[i] > kCenter) return Acad::eInvalidIndex;
    through[indices[i]] += offset.orthoProject(m_normal);
  }
  assertWriteEnabled();
  if (whole || indices.length() == kCenter) {
    m_center += offset;
    return Acad::eOk;
  }
  AcGeError error = AcGe::kOk;
  AcGeCircArc3d moved;
  moved.set(through[0], through[1], through[2], error);
  if (error != AcGe::kOk) return Acad::eDegenerateGeometry;
  const bool turned = moved.normal().dotProduct(m_normal) < 0.0;
  m_center = moved.center();
  m_radius = moved.radius();
  m_startAngle = entities::angleInPlane(through[turned ? 2 : 0] - m_center, m_normal);
  m_endAngle = entities::angleInPlane(through[turned ? 0 : 2] - m_center, m_normal);
  return Acad::eOk;
}
