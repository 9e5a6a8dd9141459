#include "host/db/entities/AcDb3dPolyline.h"

#include "host/db/StructFiling.h"
#include "host/db/entities/AcDbLine.h"
#include "host/db/entities/AcDbSequenceEnd.h"
#include "host/db/entities/EntityTools.h"
#include "host/gi/gi.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolyline, AcDbCurve, 0, 0, 0, POLYLINE, ObjectDBX Classes)

namespace {

// Bits of group 70, and what group 75 adds to the kind of curve.
constexpr Adesk::Int16 kDxfClosed = 1;
constexpr Adesk::Int16 kDxfSplineFit = 4;
constexpr Adesk::Int16 kDxf3d = 8;
constexpr int kDxfCurveOffset = 4;

}  // namespace

AcDb3dPolyline::AcDb3dPolyline(AcDb::Poly3dType type, const AcGePoint3dArray& vertices, Adesk::Boolean closed)
    : AcDb3dPolyline() {
  data_.curve = Adesk::UInt8(type);
  data_.closed = closed ? 1 : 0;
  for (int i = 0; i < vertices.length(); ++i) appendVertex(new AcDb3dPolylineVertex(vertices[i]));
}

AcDb::Poly3dType AcDb3dPolyline::polyType() const {
  assertReadEnabled();
  return AcDb::Poly3dType(data_.curve & 3);
}

Adesk::Boolean AcDb3dPolyline::isClosed() const {
  assertReadEnabled();
  return (data_.closed & 1) != 0;
}

Acad::ErrorStatus AcDb3dPolyline::makeClosed() {
  assertWriteEnabled();
  data_.closed |= 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::makeOpen() {
  assertWriteEnabled();
  data_.closed &= 0xFE;
  return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDb3dPolylineVertex* vertex) {
  AcDbObjectId id;
  return appendVertex(id, vertex);
}

Acad::ErrorStatus AcDb3dPolyline::appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex) {
  return vertices_.insert(*this, vertex, id);
}

Acad::ErrorStatus AcDb3dPolyline::insertVertexAt(AcDbObjectId& id, const AcDbObjectId& after,
                                                 AcDb3dPolylineVertex* vertex) {
  return vertices_.insertAfter(*this, vertex, id, after);
}

Acad::ErrorStatus AcDb3dPolyline::openVertex(AcDb3dPolylineVertex*& vertex, AcDbObjectId id, AcDb::OpenMode mode,
                                             bool openErased) const {
  vertex = nullptr;
  if (id.isNull() || id.stub()->owner != objectId().stub()) return Acad::eInvalidInput;
  return acdbOpenObject(vertex, id, mode, openErased);
}

Acad::ErrorStatus AcDb3dPolyline::openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode) {
  return acdbOpenObject(end, vertices_.sequenceEnd(), mode);
}

AcDbObjectIterator* AcDb3dPolyline::vertexIterator() const {
  assertReadEnabled();
  return new AcDbObjectIterator(vertices_.ids());
}

Acad::ErrorStatus AcDb3dPolyline::subErase(Adesk::Boolean erasing) {
  const Acad::ErrorStatus es = AcDbCurve::subErase(erasing);
  return es == Acad::eOk ? vertices_.erase(erasing != 0) : es;
}

std::vector<AcGePoint3d> AcDb3dPolyline::outline() const {
  std::vector<AcGePoint3d> points;
  vertices_.forEach<AcDb3dPolylineVertex>([&](const AcDb3dPolylineVertex& vertex) {
    // The control points of a spline only shape it.
    if ((vertex.data().flags & AcDb2dVertex::kSplineControl) == 0) points.push_back(vertex.data().position);
  });
  if ((data_.closed & 1) != 0 && points.size() > 1) points.push_back(points.front());
  return points;
}

CurvePieces AcDb3dPolyline::pieces() const {
  CurvePieces chain;
  const std::vector<AcGePoint3d> points = outline();
  for (std::size_t i = 1; i < points.size(); ++i) chain.emplace_back(AcGeLineSeg3d(points[i - 1], points[i]));
  if (points.size() == 1) chain.emplace_back(AcGeLineSeg3d(points[0], points[0]));
  return chain;
}

Adesk::Boolean AcDb3dPolyline::subWorldDraw(AcGiWorldDraw* draw) {
  assertReadEnabled();
  const std::vector<AcGePoint3d> points = outline();
  if (points.size() > 1) draw->geometry().polyline(Adesk::UInt32(points.size()), points.data());
  return Adesk::kTrue;
}

Acad::ErrorStatus AcDb3dPolyline::subTransformBy(const AcGeMatrix3d& xform) {
  return vertices_.transformBy(xform);
}

Acad::ErrorStatus AcDb3dPolyline::subExplode(AcDbVoidPtrArray& entities) const {
  for (const CurvePiece& piece : pieces()) {
    auto* const line = new AcDbLine(piece.startPoint(), piece.endPoint());
    line->setPropertiesFrom(this);
    entities.append(static_cast<AcDbEntity*>(line));
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDb3dPolyline::dwgOutFields(AcDbDwgFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbCurve::dwgOutFields(filer); es != Acad::eOk) return es;
  fields::put(*filer, data_);
  return vertices_.dwgOut(filer);
}

Acad::ErrorStatus AcDb3dPolyline::dwgInFields(AcDbDwgFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbCurve::dwgInFields(filer); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = fields::read(filer, data_); es != Acad::eOk) return es;
  return vertices_.dwgIn(filer);
}

Acad::ErrorStatus AcDb3dPolyline::dxfOutFields(AcDbDxfFiler* filer) const {
  if (const Acad::ErrorStatus es = AcDbCurve::dxfOutFields(filer); es != Acad::eOk) return es;
  filer->writeSubclass(L"AcDb3dPolyline");
  filer->writeItem(66, Adesk::Int16(1));
  filer->writeItem(10, AcGePoint3d());
  filer->writeItem(70, Adesk::Int16(kDxf3d | (data_.closed & kDxfClosed) | (data_.curve != 0 ? kDxfSplineFit : 0)));
  if (data_.curve != 0) filer->writeItem(75, Adesk::Int16(data_.curve + kDxfCurveOffset));
  return filer->filerStatus();
}

Acad::ErrorStatus AcDb3dPolyline::dxfInFields(AcDbDxfFiler* filer) {
  if (const Acad::ErrorStatus es = AcDbCurve::dxfInFields(filer); es != Acad::eOk) return es;
  return entities::readSubclass(filer, L"AcDb3dPolyline", [this](const resbuf& group) {
    if (group.restype == 70) data_.closed = Adesk::UInt8(group.resval.rint & kDxfClosed);
    if (group.restype == 75 && group.resval.rint > kDxfCurveOffset) {
      data_.curve = Adesk::UInt8(group.resval.rint - kDxfCurveOffset);
    }
  });
}
