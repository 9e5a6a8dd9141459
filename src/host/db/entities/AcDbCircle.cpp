#include "host/db/entities/AcDbCircle.h"

#include <cmath>

#include "host/db/FieldFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, 0, 0, 0, CIRCLE, ObjectDBX Classes)

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius) {
  setNormal(normal);
  setPlace(center);
  setRadius(radius);
}

AcGePoint3d AcDbCircle::place() const {
  return entities::fromPlane(data_.center, data_.normal);
}

void AcDbCircle::setPlace(const AcGePoint3d& center) {
  data_.center = entities::toPlane(center, data_.normal);
}

AcGePoint3d AcDbCircle::center() const {
  assertReadEnabled();
  return place();
}

double AcDbCircle::radius() const {
  assertReadEnabled();
  return data_.radius;
}

double AcDbCircle::thickness() const {
  assertReadEnabled();
  return data_.thickness;
}

AcGeVector3d AcDbCircle::normal() const {
  assertReadEnabled();
  return data_.normal;
}

double AcDbCircle::circumference() const {
  return kAcGeTwoPi * radius();
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center) {
  assertWriteEnabled();
  setPlace(center);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
  if (!(radius >= 0.0) || !std::isfinite(radius)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.radius = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setThickness(double thickness) {
  assertWriteEnabled();
  data_.thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d center = place();
  data_.normal = normal / normal.length();
  setPlace(center);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(place(), data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

CurvePieces AcDbCircle::pieces() const {
  return {CurvePiece(AcGeCircArc3d(place(), data_.normal, data_.radius))};
}

double AcDbCircle::paramAtPiece(std::size_t i) const {
  return i == 0 ? 0.0 : kAcGeTwoPi;
}

Acad::ErrorStatus AcDbCircle::getArea(double& area) const {
  assertReadEnabled();
  area = kAcGePi * data_.radius * data_.radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  if (data_.radius + offset <= 0.0) return Acad::eInvalidInput;
  auto* const circle = new AcDbCircle(place(), data_.normal, data_.radius + offset);
  circle->setPropertiesFrom(this);
  circle->data_.thickness = data_.thickness;
  curves.append(static_cast<AcDbEntity*>(circle));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbCircle::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  return status == Acad::eOk ? fields::read(filer, data_) : status;
}

Acad::ErrorStatus AcDbCircle::dxfOutFields(AcDbDxfFiler* filer) const {
  assertReadEnabled();
  const Acad::ErrorStatus status = AcDbCurve::dxfOutFields(filer);
  if (status != Acad::eOk) return status;
  filer->writeSubclass(L"AcDbCircle");
  if (data_.thickness != 0.0 || filer->includesDefaultValues())
    filer->writeDouble(AcDb::kDxfThickness, data_.thickness);
  filer->writeItem(AcDb::kDxfXCoord, data_.center);
  filer->writeDouble(AcDb::kDxfReal, data_.radius);
  if (data_.normal != AcGeVector3d::kZAxis || filer->includesDefaultValues())
    filer->writeItem(AcDb::kDxfNormalX, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbCircle::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  AcGePoint3d inPlane = data_.center;
  status = entities::readSubclass(filer, L"AcDbCircle", [&](const resbuf& group) {
    if (group.restype == AcDb::kDxfThickness) data_.thickness = group.resval.rreal;
    if (group.restype == AcDb::kDxfXCoord) inPlane = entities::pointOf(group);
    if (group.restype == AcDb::kDxfReal) data_.radius = std::fabs(group.resval.rreal);
    if (group.restype == AcDb::kDxfNormalX) setNormal(entities::vectorOf(group));
  });
  data_.center = inPlane;
  return status;
}

Adesk::Boolean AcDbCircle::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  draw->geometry().circle(place(), data_.radius, data_.normal);
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbCircle::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  const AcGePoint3d center = xform * place();
  data_.radius *= xform.scale();
  data_.thickness *= xform.scale();
  data_.normal = (xform * data_.normal).normal();
  setPlace(center);
  return Acad::eOk;
}

void AcDbCircle::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  double area = 0.0;
  getArea(area);
  entities::listPoint(L"                    center point,", place());
  entities::listLength(L"             radius", data_.radius);
  entities::listLength(L"      circumference", circumference());
  entities::listLength(L"               area", area);
}

Acad::ErrorStatus AcDbCircle::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(data_.normal);
  const AcGeVector3d x = frame * AcGeVector3d::kXAxis * data_.radius;
  const AcGeVector3d y = frame * AcGeVector3d::kYAxis * data_.radius;
  for (const AcGeVector3d& out : {AcGeVector3d(), x, y, -x, -y}) points.append(place() + out);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  assertWriteEnabled();
  constexpr int kCenter = 0;
  if (indices.contains(kCenter)) {
    setPlace(place() + offset);
    return Acad::eOk;
  }
  AcGePoint3dArray grips;
  AcDbIntArray unused;
  subGetGripPoints(grips, unused, unused);
  for (int i = 0; i < indices.length(); ++i) {
    if (indices[i] <= kCenter || indices[i] >= grips.length()) return Acad::eInvalidIndex;
    data_.radius = (grips[indices[i]] + offset - place()).orthoProject(data_.normal).length();
  }
  return Acad::eOk;
}
