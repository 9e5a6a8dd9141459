#include "host/db/entities/AcDbArc.h"

#include <cmath>

#include "host/db/FieldFiling.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, 0, 0, 0, ARC, ObjectDBX Classes)

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
    : AcDbArc(center, AcGeVector3d::kZAxis, radius, startAngle, endAngle) {}

AcDbArc::AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
                 double endAngle) {
  data_.startAngle = entities::wrapped(startAngle);
  data_.endAngle = entities::wrapped(endAngle);
  setNormal(normal);
  setPlace(center);
  setRadius(radius);
}

AcGePoint3d AcDbArc::place() const {
  return entities::fromPlane(data_.center, data_.normal);
}

void AcDbArc::setPlace(const AcGePoint3d& center) {
  data_.center = entities::toPlane(center, data_.normal);
}

AcGePoint3d AcDbArc::center() const {
  assertReadEnabled();
  return place();
}

double AcDbArc::radius() const {
  assertReadEnabled();
  return data_.radius;
}

double AcDbArc::startAngle() const {
  assertReadEnabled();
  return data_.startAngle;
}

double AcDbArc::endAngle() const {
  assertReadEnabled();
  return data_.endAngle;
}

double AcDbArc::totalAngle() const {
  assertReadEnabled();
  const double sweep = data_.endAngle - data_.startAngle;
  if (sweep > 0.0 && sweep <= kAcGeTwoPi) return sweep;
  const double rest = std::fmod(sweep, kAcGeTwoPi);
  return rest > 0.0 ? rest : rest + kAcGeTwoPi;
}

double AcDbArc::thickness() const {
  assertReadEnabled();
  return data_.thickness;
}

AcGeVector3d AcDbArc::normal() const {
  assertReadEnabled();
  return data_.normal;
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center) {
  assertWriteEnabled();
  setPlace(center);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setRadius(double radius) {
  if (!(radius >= 0.0) || !std::isfinite(radius)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.radius = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.startAngle = entities::wrapped(angle);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
  if (!std::isfinite(angle)) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.endAngle = entities::wrapped(angle);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setThickness(double thickness) {
  assertWriteEnabled();
  data_.thickness = thickness;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  const AcGePoint3d center = place();
  data_.normal = normal / normal.length();
  setPlace(center);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(place(), data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

AcGeCircArc3d AcDbArc::geArc() const {
  return {place(),      data_.normal,     data_.normal.perpVector(),
          data_.radius, data_.startAngle, data_.startAngle + totalAngle()};
}

CurvePieces AcDbArc::pieces() const {
  return {CurvePiece(geArc())};
}

double AcDbArc::paramAtPiece(std::size_t i) const {
  return i == 0 ? data_.startAngle : data_.startAngle + totalAngle();
}

Acad::ErrorStatus AcDbArc::getArea(double& area) const {
  assertReadEnabled();
  area = CurvePiece(geArc()).segmentAreaTwice(data_.normal) / 2.0;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const {
  assertReadEnabled();
  if (data_.radius + offset <= 0.0) return Acad::eInvalidInput;
  auto* const arc = new AcDbArc(place(), data_.normal, data_.radius + offset, data_.startAngle, data_.endAngle);
  arc->setPropertiesFrom(this);
  arc->data_.thickness = data_.thickness;
  curves.append(static_cast<AcDbEntity*>(arc));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::dwgOutFields(AcDbDwgFiler* filer) const {
  const Acad::ErrorStatus status = AcDbCurve::dwgOutFields(filer);
  return status == Acad::eOk ? fields::write(filer, data_) : status;
}

Acad::ErrorStatus AcDbArc::dwgInFields(AcDbDwgFiler* filer) {
  const Acad::ErrorStatus status = AcDbCurve::dwgInFields(filer);
  return status == Acad::eOk ? fields::read(filer, data_) : status;
}

Acad::ErrorStatus AcDbArc::dxfOutFields(AcDbDxfFiler* filer) const {
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
  filer->writeSubclass(L"AcDbArc");
  filer->writeDouble(AcDb::kDxfAngle, data_.startAngle);
  filer->writeItem(AcDb::kDxfAngle + 1, data_.endAngle);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDbArc::dxfInFields(AcDbDxfFiler* filer) {
  assertWriteEnabled();
  Acad::ErrorStatus status = AcDbCurve::dxfInFields(filer);
  if (status != Acad::eOk) return status;
  AcGePoint3d inPlane = data_.center;
  const auto take = [&](const resbuf& group) {
    if (group.restype == AcDb::kDxfThickness) data_.thickness = group.resval.rreal;
    if (group.restype == AcDb::kDxfXCoord) inPlane = entities::pointOf(group);
    if (group.restype == AcDb::kDxfReal) data_.radius = std::fabs(group.resval.rreal);
    if (group.restype == AcDb::kDxfNormalX) setNormal(entities::vectorOf(group));
    if (group.restype == AcDb::kDxfAngle) data_.startAngle = entities::wrapped(group.resval.rreal);
    if (group.restype == AcDb::kDxfAngle + 1) data_.endAngle = entities::wrapped(group.resval.rreal);
  };
  status = entities::readSubclass(filer, L"AcDbCircle", take);
  if (status == Acad::eOk) status = entities::readSubclass(filer, L"AcDbArc", take);
  data_.center = inPlane;
  return status;
}

Adesk::Boolean AcDbArc::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  draw->geometry().circularArc(place(), data_.radius, data_.normal,
                               entities::directionAt(data_.startAngle, data_.normal), totalAngle());
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDbArc::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  assertWriteEnabled();
  AcGeVector3d start = xform * entities::directionAt(data_.startAngle, data_.normal);
  AcGeVector3d end = xform * entities::directionAt(data_.endAngle, data_.normal);
  // Mirrored, the arc runs clockwise about its normal's image.
  if (xform.det() < 0.0) std::swap(start, end);
  const AcGePoint3d center = xform * place();
  data_.radius *= xform.scale();
  data_.thickness *= xform.scale();
  data_.normal = (xform * data_.normal).normal();
  setPlace(center);
  data_.startAngle = entities::angleInPlane(start, data_.normal);
  data_.endAngle = entities::angleInPlane(end, data_.normal);
  return Acad::eOk;
}

void AcDbArc::subList() const {
  assertReadEnabled();
  AcDbCurve::subList();
  entities::listPoint(L"                    center point,", place());
  entities::listLength(L"             radius", data_.radius);
  entities::listAngle(L"        start angle", data_.startAngle);
  entities::listAngle(L"          end angle", data_.endAngle);
  entities::listLength(L"             length", length());
}

Acad::ErrorStatus AcDbArc::subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray&, AcDbIntArray&) const {
  assertReadEnabled();
  const AcGeCircArc3d arc = geArc();
  for (const AcGePoint3d& p : {arc.startPoint(), arc.midPoint(), arc.endPoint(), place()}) points.append(p);
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
    through[indices[i]] += offset.orthoProject(data_.normal);
  }
  assertWriteEnabled();
  if (whole || indices.length() == kCenter) {
    setPlace(place() + offset);
    return Acad::eOk;
  }
  AcGeError error = AcGe::kOk;
  AcGeCircArc3d moved;
  moved.set(through[0], through[1], through[2], error);
  if (error != AcGe::kOk) return Acad::eDegenerateGeometry;
  const bool turned = moved.normal().dotProduct(data_.normal) < 0.0;
  setPlace(moved.center());
  data_.radius = moved.radius();
  data_.startAngle = entities::angleInPlane(through[turned ? 2 : 0] - place(), data_.normal);
  data_.endAngle = entities::angleInPlane(through[turned ? 0 : 2] - place(), data_.normal);
  return Acad::eOk;
}
