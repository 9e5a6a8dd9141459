// The drawing scale of a member: how large it is shown, apart from how large it is.

#include <cmath>

#include "editing/DimensionScale.h"
#include "editing/PointScale.h"
#include "editing/RoundElements.h"
#include "object/Finite.h"
#include "object/KrObject.h"
#include "object/ListsNotShown.h"
#include "object/Rotation.h"

namespace {

/// Gives each entity of a list to `change`, open for write; one that can't be opened is left out.
template <class Change>
void forEachEntity(const AcDbObjectIdArray& ids, Change change) {
  for (int i = 0; i < ids.length(); ++i) {
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, ids[i], AcDb::kForWrite) != Acad::eOk) continue;
    change(*entity);
    entity->close();
  }
}

void transformEach(const AcDbObjectIdArray& ids, const AcGeMatrix3d& m) {
  forEachEntity(ids, [&](AcDbEntity& entity) { entity.transformBy(m); });
}

/// The entity as a class, when that is exactly what it is.
template <class T>
T* exactly(AcDbEntity& entity) {
  return entity.isA() == T::desc() ? static_cast<T*>(&entity) : nullptr;
}

void scaleMark(AcDbEntity& entity, const PointScale& scale) {
  if (auto* line = exactly<AcDbLine>(entity)) {
    line->setStartPoint(scale(line->startPoint()));
    line->setEndPoint(scale(line->endPoint()));
  } else if (auto* circle = exactly<AcDbCircle>(entity)) {
    circle->setCenter(scale(circle->center()));
  } else if (auto* paragraph = exactly<AcDbMText>(entity)) {
    paragraph->setLocation(scale(paragraph->location()));
  } else if (auto* text = exactly<AcDbText>(entity)) {
    text->setPosition(scale(text->position()));
    // A justified text stands by its alignment point, from which its position follows.
    if (!text->isDefaultAlignment()) text->setAlignmentPoint(scale(text->alignmentPoint()));
  } else if (auto* polyline = exactly<AcDbPolyline>(entity)) {
    for (unsigned i = 0; i < polyline->numVerts(); ++i) {
      AcGePoint2d vertex;
      polyline->getPointAt(i, vertex);
      polyline->setPointAt(i, scale(vertex));
    }
  } else if (auto* leader = exactly<AcDbLeader>(entity)) {
    for (int i = 0; i < leader->numVertices(); ++i) leader->setVertexAt(i, scale(leader->vertexAt(i)));
  } else if (entity.isKindOf(KrObject::desc())) {
    // A member has a scale of its own: it only follows its place.
    const AcGePoint3d at = static_cast<KrObject&>(entity).startPoint();
    entity.transformBy(AcGeMatrix3d::translation(scale(at) - at));
  }
}

bool isScale(double factor) {
  return canBeUndone(factor) && factor > 0;
}

/// A face-on hole stays round: its measures follow the second factor, whatever the first.
void scaleHole(KrVector& v, double factor) {
  v.transformBy(AcGeMatrix3d::scaling(factor));
}

}  // namespace

Acad::ErrorStatus KrObject::ObjectScale(double x, double y, double z) {
  assertWriteEnabled();
  const auto same = [](double p, double q) { return std::fabs(p - q) <= kDrawingTolerance; };
  if (same(x, xScale_) && same(y, yScale_) && same(z, zScale_)) return Acad::eOk;
  if (!isScale(x) || !isScale(y) || !isScale(z)) return Acad::eInvalidInput;

  // The bar is scaled lying along X, and always by way of 1:1.
  const AcGePoint3d centre = startPoint_;
  const auto turnAll = [&](double angle) {
    const AcGeMatrix3d m = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis, centre);
    KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
    for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
      transformElement(*no->value, m, 1);
    transformEach(relativeDim_, m);
    transformEach(relativePos_, m);
    startPoint_.transformBy(m);
    endPoint_.transformBy(m);
  };
  const auto scaleAll = [&](double a, double b, double c) {
    ExecutaVertexScale(a, b, c);
    ExecutaDimScale(a, b, c);
    ExecutaPosScale(a, b, c);
  };
  turnAll(-angleVista_);
  scaleAll(1 / xScale_, 1 / yScale_, 1 / zScale_);
  scaleAll(x, y, z);
  turnAll(angleVista_);
  comprimento_ = comprimento_ * x / xScale_;
  xScale_ = x;
  yScale_ = y;
  zScale_ = z;
  dropListsNotShown(*this);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::ObjectScaleAxl(AcGePoint3d base, double x) {
  const double before = xScale_;
  if (!isFinite(base)) return Acad::eInvalidInput;
  if (const Acad::ErrorStatus es = ObjectScale(x, 1.0, 1.0); es != Acad::eOk) return es;
  const AcGeVector3d along(std::cos(angleVista_), std::sin(angleVista_), 0);
  const double gain = along.dotProduct(base - startPoint_) * (1 - xScale_ / before);
  const AcGeMatrix3d back = AcGeMatrix3d::translation(along * gain);
  transformBy(back);
  transformEach(relativeDim_, back);
  transformEach(relativePos_, back);
  return Acad::eOk;
}

void KrObject::ExecutaVertexScale(double a, double b, double c) {
  ExecutaVertexScale(a, b, c, startPoint_);
}

void KrObject::ExecutaVertexScale(double a, double b, double c, const AcGePoint3d& base) {
  const PointScale scale{base, a, b, c};
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    KrVector& v = *no->value;
    const AcGePoint3d mid = scale(v.midPoint());
    if (v.type() == KR_VT_FURO_EIXO) {
      // The centre line of a hole keeps the size of its mark.
      const AcGeVector3d toEnd = v.endPoint() - v.midPoint();
      const AcGeVector3d toStart = v.startPoint() - v.midPoint();
      v.setStartPoint(mid + toStart);
      v.setEndPoint(mid + toEnd);
      v.setMidPoint(mid);
      continue;
    }
    const AcGePoint3d start = scale(v.startPoint());
    const AcGePoint3d end = scale(v.endPoint());
    if (v.type() == KR_VT_FURO) scaleHole(v, b);
    v.setStartPoint(start);
    v.setEndPoint(end);
    v.setMidPoint(mid);
    scaleRadius(v, b);
    if (v.type() != KR_VT_EIXO) continue;
    startPoint_ = start;
    endPoint_ = end;
  }
}

void KrObject::ExecutaDimScale(double a, double b, double c) {
  const PointScale scale{startPoint_, a, b, c};
  const AcGeMatrix3d asDrawn = AcGeMatrix3d::rotation(angleVista_, AcGeVector3d::kZAxis, startPoint_);
  forEachEntity(relativeDim_, [&](AcDbEntity& entity) { scaleDimension(entity, scale, asDrawn); });
}

void KrObject::ExecutaPosScale(double a, double b, double c) {
  const PointScale scale{startPoint_, a, b, c};
  forEachEntity(relativePos_, [&](AcDbEntity& entity) { scaleMark(entity, scale); });
}
