// Passages of points and vectors between the section and the drawing, about the drawing scale, and the placement of a
// bar as a value.

#include <cmath>
#include <utility>

#include "host/companion/companion.h"
#include "object/Finite.h"
#include "object/KrObject.h"
#include "object/ListsNotShown.h"
#include "object/Rotation.h"

namespace {

/// The drawing scale of a member along and across it, and how it lies.
struct DrawingScale {
  DrawingScale(const KrObject& member, int inverso) {
    member.Xscale(x);
    member.Yscale(y);
    member.Zscale(z);
    if (inverso == 0) return;
    x = 1 / x;
    y = 1 / y;
    z = 1 / z;
  }
  /// At 1:1 nothing is to be done, and nothing is rounded.
  bool isOne() const { return x == 1 && y == 1 && z == 1; }
  AcGeVector3d operator()(AcGeVector3d v, double along) const {
    v = Rotation(-along)(v);
    return Rotation(along)(AcGeVector3d(v.x * x, v.y * y, v.z * z));
  }

  double x = 1, y = 1, z = 1;
};

/// Where the scale of a member leaves the drawing as it is: the end of the reference line from which the section's Z
/// counts; in a section, where its origin falls.
Acad::ErrorStatus fixedPoint(const KrObject& member, AcGePoint3d& fixed) {
  if (member.isSecao() == Acad::eOk) return member.StartPoint(fixed);
  if (member.isSecao() != Acad::eNotApplicable) return Acad::eNotImplementedYet;
  AcGePoint3d a, b;
  if (const Acad::ErrorStatus es = member.GetPointsOfEixo(a, b, 1); es != Acad::eOk) return es;
  fixed = member.isInverted() != 0 ? b : a;
  return Acad::eOk;
}

template <class T>
Acad::ErrorStatus toView(const KrObject& member, T& p) {
  AcGeMatrix3d m;
  const Acad::ErrorStatus es = member.secaoToVistaXForm(m);
  if (es == Acad::eOk) p.transformBy(m);
  return es;
}

template <class T>
Acad::ErrorStatus toSection(const KrObject& member, T& p) {
  AcGeMatrix3d m;
  const Acad::ErrorStatus es = member.vistaToSecaoXForm(m);
  if (es == Acad::eOk) p.transformBy(m);
  return es;
}

}  // namespace

Acad::ErrorStatus KrObject::secaoToVistaXForm(AcGePoint3d& p) const {
  return toView(*this, p);
}
Acad::ErrorStatus KrObject::secaoToVistaXForm(AcGeVector3d& v) const {
  return toView(*this, v);
}

Acad::ErrorStatus KrObject::vistaToSecaoXForm(AcGeMatrix3d& m) const {
  const Acad::ErrorStatus es = secaoToVistaXForm(m);
  if (es == Acad::eOk) m.invert();
  return es;
}
Acad::ErrorStatus KrObject::vistaToSecaoXForm(AcGePoint3d& p) const {
  return toSection(*this, p);
}
Acad::ErrorStatus KrObject::vistaToSecaoXForm(AcGeVector3d& v) const {
  return toSection(*this, v);
}

Acad::ErrorStatus KrObject::scaleRef(AcGePoint2d& p, int inverso) const {
  assertReadEnabled();
  AcGePoint3d fixed;
  if (const Acad::ErrorStatus es = fixedPoint(*this, fixed); es != Acad::eOk) return es;
  const DrawingScale scale(*this, inverso);
  if (scale.isOne()) return Acad::eOk;
  const AcGePoint3d q = fixed + scale(AcGeVector3d(p.x - fixed.x, p.y - fixed.y, 0), angleVista_);
  p.set(q.x, q.y);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::scaleRef(AcGePoint3d& p, int inverso) const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  AcGePoint3d fixed;
  if (const Acad::ErrorStatus es = fixedPoint(*this, fixed); es != Acad::eOk) return es;
  const DrawingScale scale(*this, inverso);
  if (!scale.isOne()) p = fixed + scale(p - fixed, angleVista_);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::scaleRef(AcGeVector3d& v, int inverso) const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  const DrawingScale scale(*this, inverso);
  if (!scale.isOne()) v = scale(v, angleVista_);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::position(Position& posicao, int eixoBase) const {
  const KrVector* base = nullptr;
  const KrVector* other = nullptr;
  if (const Acad::ErrorStatus es = getVectorEixo(vista_, base, 0); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = getVectorEixo(vista_, other, 1); es != Acad::eOk) return es;
  if (eixoBase == 0) std::swap(base, other);
  const AcGeVector3d along = base->endPoint() - base->startPoint();
  const AcGeVector3d apart = other->startPoint() - base->startPoint();
  posicao.ponto = base->startPoint();
  posicao.direcao = along.normal();
  posicao.comprimento = along.length();
  posicao.offset = AcGeVector3d::kZAxis.crossProduct(posicao.direcao).dotProduct(apart);
  posicao.inicio = posicao.direcao.dotProduct(apart);
  posicao.fim = posicao.inicio + other->startPoint().distanceTo(other->endPoint());
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::setPositionNoRegen(const Position& posicao, int eixoBase) {
  assertWriteEnabled();
  KrVector* axis = nullptr;
  KrVector* reference = nullptr;
  if (const Acad::ErrorStatus es = getVectorEixo(vista_, axis, 0); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = getVectorEixo(vista_, reference, 1); es != Acad::eOk) return es;
  KrVector* base = axis;
  KrVector* other = reference;
  if (eixoBase == 0) std::swap(base, other);
  const AcGeVector3d across = AcGeVector3d::kZAxis.crossProduct(posicao.direcao);
  const AcGePoint3d start = posicao.ponto + posicao.direcao * posicao.inicio + across * posicao.offset;
  const AcGePoint3d baseEnd = posicao.ponto + posicao.direcao * posicao.comprimento;
  const AcGePoint3d end = start + posicao.direcao * (posicao.fim - posicao.inicio);
  if (!isFinite(posicao.ponto) || !isFinite(baseEnd) || !isFinite(start) || !isFinite(end)) return Acad::eInvalidInput;

  base->setStartPoint(posicao.ponto);
  base->setEndPoint(baseEnd);
  other->setStartPoint(start);
  other->setEndPoint(end);
  // What is scaled about the start, or drawn along the member's angle, has to follow the lines.
  startPoint_ = axis->startPoint();
  endPoint_ = axis->endPoint();
  angleVista_ = GetAngle(std::atan2(posicao.direcao.y, posicao.direcao.x));
  dropListsNotShown(*this);
  // The reference line measures the steel, whichever of the two the placement is based on.
  return setComprimento(eixoBase != 0 ? posicao.fim - posicao.inicio : posicao.comprimento);
}

Acad::ErrorStatus KrObject::setPosition(const Position& posicao, int eixoBase) {
  const Acad::ErrorStatus es = setPositionNoRegen(posicao, eixoBase);
  if (es == Acad::eOk) Gera_KrVector();
  return es;
}
