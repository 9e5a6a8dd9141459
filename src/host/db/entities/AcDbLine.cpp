#include "host/db/entities/AcDbLine.h"

#include <cmath>

#include "host/db/FieldFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, 0, 0, 0, LINE, ObjectDBX Classes)

AcGePoint3d AcDbLine::startPoint() const {
  assertReadEnabled();
  return data_.start;
}

AcGePoint3d AcDbLine::endPoint() const {
  assertReadEnabled();
  return data_.end;
}

double AcDbLine::thickness() const {
  assertReadEnabled();
  return data_.thickness;
}

AcGeVector3d AcDbLine::normal() const {
  assertReadEnabled();
  return data_.normal;
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  data_.start = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
  assertWriteEnabled();
  data_.end = point;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setThickness(double thickness) {
  assertWriteEnabled();
  data_.thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  const AcGeVector3d along = data_.end - data_.start;
  const bool upright = along.isParallelTo(data_.normal);
  plane.set(data_.start, upright ? data_.normal.perpVector() : data_.normal.orthoProject(along));
  type = AcDb::kLinear;
  return Acad::eOk;
}

CurvePieces AcDbLine::pieces() const {
  return {CurvePiece(AcGeLineSeg3d(data_.start, data_.end))};
}

double AcDbLine::paramAtPiece(std::size_t i) const {
  return i == 0 ? 0.0 : data_.start.distanceTo(data_.end);
}

Acad::ErrorStatus AcDbLine::getArea(double&) const {
  return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbLine::reverseCurve() {
  assertWriteEnabled();
  std::swap(data_.start, data_.end);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  const AcGeVector3d right = (data_.end - data_.start).crossProduct(data_.normal);
  if (right.lengthSqrd() == 0.0) return Acad::eDegenerateGeometry;
  const AcGeVector3d shift = right * (offset / right.length());
  auto* const line = new AcDbLine(data_.start + shift, data_.end + shift);
  line->setPropertiesFrom(this);
  line->data_.normal = data_.normal;
  line->data_.thickness = data_.thickness;
  curves.append(static_cast<AcDbEntity*>(line));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::extend(double newParam) {
  const double length = data_.start.distanceTo(data_.end);
  if (length == 0.0) return Acad::eDegenerateGeometry;
  if (newParam >= 0.0 && newParam <= length) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d p = data_.start + (data_.end - data_.start) * (newParam / length);
  (newParam < 0.0 ? data_.start : data_.end) = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::extend(Adesk::Boolean atStart, const AcGePoint3d& to) {
  const AcGePoint3d foot = AcGeLine3d(data_.start, data_.end).closestPointTo(to);
  if (foot != to) return Acad::eInvalidInput;
  assertWriteEnabled();
  (atStart ? data_.start : data_.end) = to;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbLine::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  return status == Acad::eOk ? fields::read(filer, data_) : status;
}

Acad::ErrorStatus AcDbLine::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbLine");
  if (data_.thickness != 0.0 || filer->includesDefaultValues())
    filer->writeDouble(AcDb::kDxfThickness, data_.thickness);
  filer->writeItem(AcDb::kDxfXCoord, data_.start);
  filer->writeItem(AcDb::kDxfXCoord + 1, data_.end);
  if (data_.normal != AcGeVector3d::kZAxis || filer->includesDefaultValues())
    filer->writeItem(AcDb::kDxfNormalX, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbLine::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  return entities::readSubclass(filer, L"AcDbLine", [this](const resbuf& group) {
    switch (group.restype) {
      case AcDb::kDxfThickness:
        data_.thickness = group.resval.rreal;
        break;
      case AcDb::kDxfXCoord:
        data_.start = entities::pointOf(group);
        break;
      case AcDb::kDxfXCoord + 1:
        data_.end = entities::pointOf(group);
        break;
      case AcDb::kDxfNormalX:
        data_.normal = entities::vectorOf(group);
        break;
      default:
        break;
    }
  });
}

Adesk::Boolean AcDbLine::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const AcGePoint3d ends[] = {data_.start, data_.end};
  draw->geometry().polyline(2, ends);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbLine::subTransformBy(const AcGeMatrix3d& xform) {
  assertWriteEnabled();
  data_.start.transformBy(xform);
  data_.end.transformBy(xform);
  const AcGeVector3d turned = xform * data_.normal;
  if (turned.lengthSqrd() == 0.0) return Acad::eOk;
  data_.thickness *= turned.length();
  data_.normal = turned / turned.length();
  return Acad::eOk;
}

void AcDbLine::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  const AcGeVector3d along = data_.end - data_.start;
  entities::listPoint(L"                    from point,", data_.start);
  entities::listPoint(L"                      to point,", data_.end);
  entities::listLength(L"             Length =", along.length());
  entities::listAngle(L"  Angle in XY Plane =", std::atan2(along.y, along.x));
  entities::listPoint(L"                          Delta", along.asPoint());
  if (data_.thickness != 0.0) entities::listLength(L"          Thickness =", data_.thickness);
}

Acad::ErrorStatus AcDbLine::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  points.append(data_.start);
  points.append(data_.start + (data_.end - data_.start) / 2.0);
  points.append(data_.end);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  constexpr int kStart = 0;
  constexpr int kMiddle = 1;
  constexpr int kEnd = 2;
  const bool all = indices.contains(kMiddle);
  if (all || indices.contains(kStart)) data_.start += offset;
  if (all || indices.contains(kEnd)) data_.end += offset;
  return Acad::eOk;
}
