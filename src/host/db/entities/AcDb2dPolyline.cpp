#include "host/db/entities/AcDb2dPolyline.h"

#include <cmath>

#include "host/db/StructFiling.h"
#include "host/db/entities/AcDbPolyline.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, 0, 0, 0, POLYLINE, ObjectDBX Classes)

AcDb2dPolyline::AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation,
                               Adesk::Boolean closed, double defaultStartWidth, double defaultEndWidth,
                               const AcGeDoubleArray* bulges)
    : AcDb2dPolyline() {
  data_.elevation = elevation;
  data_.startWidth = defaultStartWidth;
  data_.endWidth = defaultEndWidth;
  if (closed) data_.flags |= kClosed;
  if (type == AcDb::k2dFitCurvePoly) data_.flags |= kCurveFit;
  for (int i = 0; i < vertices.length(); ++i) {
    const double bulge = bulges != nullptr && i < bulges->length() ? (*bulges)[i] : 0.0;
    appendVertex(new AcDb2dVertex(vertices[i], bulge, defaultStartWidth, defaultEndWidth));
  }
}

AcDb::Poly2dType AcDb2dPolyline::polyType() const {
  assertReadEnabled();
  constexpr Adesk::Int16 kCubic = 6;
  if ((data_.flags & kSplineFit) != 0) {
    return data_.curveType == kCubic ? AcDb::k2dCubicSplinePoly : AcDb::k2dQuadSplinePoly;
  }
  return (data_.flags & kCurveFit) != 0 ? AcDb::k2dFitCurvePoly : AcDb::k2dSimplePoly;
}

Adesk::Boolean AcDb2dPolyline::isClosed() const {
  assertReadEnabled();
  return (data_.flags & kClosed) != 0;
}

Acad::ErrorStatus AcDb2dPolyline::makeClosed() {
  assertWriteEnabled();
  data_.flags |= kClosed;
  return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::makeOpen() {
  assertWriteEnabled();
  data_.flags &= Adesk::Int16(~kClosed);
  return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::setNormal(const AcGeVector3d& normal) {
  if (normal.lengthSqrd() == 0.0) return Acad::eInvalidInput;
  assertWriteEnabled();
  data_.normal = normal / normal.length();
  return Acad::eOk;
}

bool AcDb2dPolyline::isLinetypeGenerationOn() const {
  assertReadEnabled();
  return (data_.flags & kLinetypeGeneration) != 0;
}

void AcDb2dPolyline::setLinetypeGenerationOn() {
  assertWriteEnabled();
  data_.flags |= kLinetypeGeneration;
}

void AcDb2dPolyline::setLinetypeGenerationOff() {
  assertWriteEnabled();
  data_.flags &= Adesk::Int16(~kLinetypeGeneration);
}

// --- Vertices
// ---------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDb2dVertex* vertex) {
  AcDbObjectId id;
  return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex) {
  return vertices_.insert(*this, vertex, id);
}

Acad::ErrorStatus AcDb2dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after, AcDb2dVertex* vertex) {
  return vertices_.insertAfter(*this, vertex, id, after);
}

Acad::ErrorStatus AcDb2dPolyline::openVertex(AcDb2dVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const {
  vertex = nullptr;
  if (id.isNull() || id.stub()->owner != objectId().stub()) return Acad::eInvalidInput;
  return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDb2dPolyline::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
  return acdbOpenObject(end, vertices_.sequenceEnd(), mode);
}

AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const {
  assertReadEnabled();
  return new AcDbObjectIterator(vertices_.ids());
}

AcGePoint3d AcDb2dPolyline::vertexPosition(const AcDb2dVertex& vertex) const {
  assertReadEnabled();
  const AcGePoint3d& p = vertex.data().position;
  return entities::fromPlane({p.x, p.y, data_.elevation}, data_.normal);
}

Acad::ErrorStatus AcDb2dPolyline::subErase(Adesk::Boolean erasing) {
  const Acad::ErrorStatus es = AcDbCurve::subErase(erasing);
  return es == Acad::eOk ? vertices_.erase(erasing != 0) : es;
}

// --- Shape
// ------------------------------------------------------------------------------------------------------------------

void AcDb2dPolyline::flatten(AcDbPolyline& flat) const {
  AcDbPolyline::Data& to = flat.dataAsRead();
  to.elevation = data_.elevation;
  to.thickness = data_.thickness;
  to.normal = data_.normal;
  if ((data_.flags & kClosed) != 0) to.flags |= AcDbPolyline::kClosed;
  if ((data_.flags & kLinetypeGeneration) != 0) to.flags |= AcDbPolyline::kPlinegen;
  vertices_.forEach<AcDb2dVertex>([&](const AcDb2dVertex& vertex) {
    const AcDb2dVertex::Data& from = vertex.data();
    // The control points of a spline only shape it; the vertices made from them are what is seen.
    if ((from.flags & AcDb2dVertex::kSplineControl) != 0) return;
    to.points.emplace_back(from.position.x, from.position.y);
    to.bulges.push_back(from.bulge);
    to.widths.emplace_back(from.startWidth, from.endWidth);
  });
}

CurvePieces AcDb2dPolyline::pieces() const {
  AcDbPolyline flat;
  flatten(flat);
  return flat.pieces();
}

Adesk::Boolean AcDb2dPolyline::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  AcDbPolyline flat;
  flatten(flat);
  return flat.worldDraw(draw);
}

Acad::ErrorStatus AcDb2dPolyline::subExplode(AcDbVoidPtrArray& entities) const {
  AcDbPolyline flat;
  flatten(flat);
  flat.setPropertiesFrom(this);
  return flat.explode(entities);
}

Acad::ErrorStatus AcDb2dPolyline::getPlane(AcGePlane& plane, AcDb::Planarity& type) const {
  assertReadEnabled();
  plane.set(AcGePoint3d::kOrigin + data_.normal * data_.elevation, data_.normal);
  type = AcDb::kPlanar;
  return Acad::eOk;
}

void AcDb2dPolyline::getEcs(AcGeMatrix3d& ecs) const {
  assertReadEnabled();
  ecs.setToPlaneToWorld(data_.normal);
}

Acad::ErrorStatus AcDb2dPolyline::subTransformBy(const AcGeMatrix3d& xform) {
  if (!entities::isSimilarity(xform)) return Acad::eCannotScaleNonUniformly;
  const AcGeVector3d normal = (xform * data_.normal).normal();
  const AcGeMatrix3d moved = AcGeMatrix3d::worldToPlane(normal) * xform * AcGeMatrix3d::planeToWorld(data_.normal);
  const double factor = xform.scale();
  const bool mirrored = xform.det() < 0.0;
  const double elevation = data_.elevation;
  data_.elevation = (moved * AcGePoint3d(0.0, 0.0, elevation)).z;
  data_.normal = normal;
  for (double* const length : {&data_.startWidth, &data_.endWidth, &data_.thickness}) *length *= factor;
  return vertices_.forEachToWrite([&](AcDbEntity& part) {
    auto* const vertex = AcDb2dVertex::cast(&part);
    if (vertex == nullptr) return Acad::eOk;
    AcDb2dVertex::Data to = vertex->data();
    const AcGePoint3d p = moved * AcGePoint3d(to.position.x, to.position.y, elevation);
    const AcGeVector3d along = moved * AcGeVector3d(std::cos(to.tangent), std::sin(to.tangent), 0.0);
    to.position = {p.x, p.y, data_.elevation};
    to.startWidth *= factor;
    to.endWidth *= factor;
    if (mirrored) to.bulge = -to.bulge;
    if ((to.flags & AcDb2dVertex::kTangentUsed) != 0) to.tangent = entities::wrapped(std::atan2(along.y, along.x));
    return vertex->setData(to);
  });
}

// --- Filing
// -----------------------------------------------------------------------------------------------------------------

Acad::ErrorStatus AcDb2dPolyline::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbCurve::dwgOutFields(filer); es != Acad::eOk) return es;
  fields::put(*filer, data_);
  return vertices_.dwgOut(filer);
}

Acad::ErrorStatus AcDb2dPolyline::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbCurve::dwgInFields(filer); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = fields::read(filer, data_); es != Acad::eOk) return es;
  return vertices_.dwgIn(filer);
}

Acad::ErrorStatus AcDb2dPolyline::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbCurve::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDb2dPolyline");
  filer->writeItem(66, Adesk::Int16(1));
  filer->writeItem(10, AcGePoint3d(0.0, 0.0, data_.elevation));
  if (data_.thickness != 0.0) filer->writeItem(39, data_.thickness);
  if (data_.flags != 0) filer->writeItem(70, data_.flags);
  if (data_.startWidth != 0.0) filer->writeItem(40, data_.startWidth);
  if (data_.endWidth != 0.0) filer->writeItem(41, data_.endWidth);
  if (data_.curveType != 0) filer->writeItem(75, data_.curveType);
  if (data_.normal != AcGeVector3d::kZAxis) filer->writeItem(210, data_.normal);
  return filer->filerStatus();
}

Acad::ErrorStatus AcDb2dPolyline::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbCurve::dxfInFields(filer); es != Acad::eOk) return es;
  return entities::readSubclass(filer, L"AcDb2dPolyline", [this](const resbuf& group) {
    const double real = group.resval.rreal;
    if (group.restype == 10) data_.elevation = group.resval.rpoint[2];
    if (group.restype == 39) data_.thickness = real;
    if (group.restype == 70) data_.flags = group.resval.rint;
    if (group.restype == 40) data_.startWidth = real;
    if (group.restype == 41) data_.endWidth = real;
    if (group.restype == 75) data_.curveType = group.resval.rint;
    if (group.restype == 210) data_.normal = entities::vectorOf(group);
  });
}
