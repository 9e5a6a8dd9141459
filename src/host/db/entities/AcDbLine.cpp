#include "host/db/entities/AcDbLine.h"

#include <cmath>

#include "host/db/AcDbDwgFiler.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, 0, 0, 0, LINE, ObjectDBX Classes)

AcGePoint3d AcDbLine::startPoint() const {
  assertReadEnabled();
  return m_start;
}

AcGePoint3d AcDbLine::endPoint() const {
  assertReadEnabled();
  return m_end;
}

double AcDbLine::thickness() const {
  assertReadEnabled();
  return m_thickness;
}

AcGeVector3d AcDbLine::normal() const {
  assertReadEnabled();
  return m_normal;
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  m_start = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  m_end = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness) {
  assertWriteEnabled();
  m_thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  m_normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  const AcGeVector3d along = m_end - m_start;
  const bool upright = along.isParallelTo(m_normal);
  plane.set(m_start, upright ? m_normal.perpVector() : m_normal.orthoProject(along));
  type = AcDb::kLinear;
  return Acad::eOk;
}

CurvePieces AcDbLine::pieces() const {
  return {CurvePiece(AcGeLineSeg3d(m_start, m_end))};
}

double AcDbLine::paramAtPiece(std::size_t i) const {
  return i == 0 ? 0.0 : m_start.distanceTo(m_end);
}

Acad::ErrorStatus AcDbLine::getArea(double&) const {
  return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbLine::reverseCurve() {
  assertWriteEnabled();
  std::swap(m_start, m_end);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  const AcGeVector3d right = (m_end - m_start).crossProduct(m_normal);
  if (right.lengthSqrd() == 0.0) return Acad::eDegenerateGeometry;
  const AcGeVector3d shift = right * (offset / right.length());
  auto* const line = new AcDbLine(m_start + shift, m_end + shift);
  line->setPropertiesFrom(this);
  line->m_normal = m_normal;
  line->m_thickness = m_thickness;
  curves.append(static_cast<AcDbEntity*>(line));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::extend(double newParam) {
  const double length = m_start.distanceTo(m_end);
  if (length == 0.0) return Acad::eDegenerateGeometry;
  if (newParam >= 0.0 && newParam <= length) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d p = m_start + (m_end - m_start) * (newParam / length);
  (newParam < 0.0 ? m_start : m_end) = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::extend(Adesk::Boolean atStart, const AcGePoint3d& to) {
  const AcGePoint3d foot = AcGeLine3d(m_start, m_end).closestPointTo(to);
  if (foot != to) return Acad::eInvalidInput;
  assertWriteEnabled();
  (atStart ? m_start : m_end) = to;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::dwgOutFields(AcDbDwgFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writePoint3d(m_start);
  filer->writePoint3d(m_end);
  filer->writeDouble(m_thickness);
  filer->writeVector3d(m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dwgInFields(AcDbDwgFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  if (status != Acad::eOk) return status;
  filer->readPoint3d(&m_start);
  filer->readPoint3d(&m_end);
  filer->readDouble(&m_thickness);
  filer->readVector3d(&m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbLine");
  if (m_thickness != 0.0 || filer->includesDefaultValues()) filer->writeDouble(AcDb::kDxfThickness, m_thickness);
  filer->writeItem(AcDb::kDxfXCoord, m_start);
  filer->writeItem(AcDb::kDxfXCoord + 1, m_end);
  if (m_normal != AcGeVector3d::kZAxis || filer->includesDefaultValues()) filer->writeItem(AcDb::kDxfNormalX, m_normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  return entities::readSubclass(filer, L"AcDbLine", [this](const resbuf& group) {
    switch (group.restype) {
      case AcDb::kDxfThickness:
        m_thickness = group.resval.rreal;
        break;
      case AcDb::kDxfXCoord:
        m_start = entities::pointOf(group);
        break;
      case AcDb::kDxfXCoord + 1:
        m_end = entities::pointOf(group);
        break;
      case AcDb::kDxfNormalX:
        m_normal = entities::vectorOf(group);
        break;
      default:
        break;
    }
  });
}

Adesk::Boolean AcDbLine::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGePoint3d ends[] = {m_start, m_end};
  draw->geometry().polyline(2, ends);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& xform) {
  assertWriteEnabled();
  m_start.transformBy(xform);
  m_end.transformBy(xform);
  const AcGeVector3d turned = xform * m_normal;
  if (turned.lengthSqrd() == 0.0) return Acad::eOk;
  m_thickness *= turned.length();
  m_normal = turned / turned.length();
  return Acad::eOk;
}

void AcDbLine::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  const AcGeVector3d along = m_end - m_start;
  entities::listPoint(L"                    from point,", m_start);
  entities::listPoint(L"                      to point,", m_end);
  entities::listLength(L"             Length =", along.length());
  entities::listAngle(L"  Angle in XY Plane =", std::atan2(along.y, along.x));
  entities::listPoint(L"                          Delta", along.asPoint());
  if (m_thickness != 0.0) entities::listLength(L"          Thickness =", m_thickness);
}

Acad::ErrorStatus AcDbLine::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(m_start);
  points.append(m_start + (m_end - m_start) / 2.0);
  points.append(m_end);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  constexpr int kStart = 0;
  constexpr int kMiddle = 1;
  constexpr int kEnd = 2;
  const bool all = indices.contains(kMiddle);
  if (all || indices.contains(kStart)) m_start += offset;
  if (all || indices.contains(kEnd)) m_end += offset;
  return Acad::eOk;
}
