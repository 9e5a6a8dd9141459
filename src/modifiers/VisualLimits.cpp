// Visual limits: the part of a member that is shown, between break lines.

#include <cmath>

#include "modifiers/Flat.h"
#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

/// The break symbol is no larger than the bar's width over this.
constexpr double kWidthsPerSymbol = 50.0;
/// How far the symbol reaches to both sides of the bar's middle, in widths of the bar: a little past its edges.
constexpr double kReach = 0.56;

/// Where a point's foot lies on a line, as a fraction of it.
double fractionOn(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& p) {
  const AcGeVector3d along = b - a;
  return (p - a).dotProduct(along) / along.lengthSqrd();
}

AcGePoint3d meanOf(const AcGePoint3d& a, const AcGePoint3d& b) {
  return a + (b - a) / 2;
}

/// The zigzag across a bar, about a point of its axis.
class BreakSymbol {
 public:
  BreakSymbol(const AcGePoint3d& centre, double angle, double width, double scale) {
    const Rotation turn(angle);
    const AcGeVector3d x = turn(AcGeVector3d::kXAxis);
    const AcGeVector3d y = turn(AcGeVector3d::kYAxis);
    const double s = width < kWidthsPerSymbol * scale || scale < 0 ? width / kWidthsPerSymbol : scale;
    points_[0] = centre + y * (kReach * width);
    points_[1] = centre + y * (10 * s);
    points_[2] = centre - x * (15 * s) + y * (2 * s);
    points_[3] = centre + x * (15 * s) - y * (2 * s);
    points_[4] = centre - y * (10 * s);
    points_[5] = centre - y * (kReach * width);
  }

  AcArray<AcGePoint2d> polygon(const AcGeVector3d& shift) const {
    AcArray<AcGePoint2d> points(kPoints);
    for (const AcGePoint3d& p : points_) points.append(flat(p + shift));
    return points;
  }

  KrObjectArray<KrVector> lines(const AcGeVector3d& shift) const {
    KrObjectArray<KrVector> list;
    for (int i = 0; i + 1 < kPoints; ++i) {
      KrVector line(points_[i] + shift, points_[i + 1] + shift, KR_VT_LINHA);
      line.setTipo(KR_VF_LIMITE);
      list.append(line);
    }
    return list;
  }

 private:
  static constexpr int kPoints = 6;
  AcGePoint3d points_[kPoints];
};

}  // namespace

void KrObject::AplicaRepLimits() {
  if (isSecao() != Acad::eNotApplicable || !(visualRepEnd_ > visualRepStart_)) return;
  const double tolerance = AcGeContext::gTol.equalPoint();
  const bool atStart = visualRepStart_ > tolerance;
  const bool atEnd = tolerance + visualRepEnd_ < 1;
  if (!atStart && !atEnd) return;

  AcGePoint3d e[4];
  GetExtremePoints(e, 0, 0);
  // Of a bar that cuts took whole there is nothing to hide.
  if (e[0].isEqualTo(e[3])) return;
  const AcGePoint3d start = meanOf(e[0], e[1]);
  const AcGePoint3d end = meanOf(e[2], e[3]);
  const BreakSymbol symbol(start, angleVista_, e[0].distanceTo(e[1]), visualRepScale_);
  const AcArray<double> straight;
  const auto breakAt = [&](double fraction, const AcGePoint3d& hidden) {
    const AcGeVector3d shift = (end - start) * fraction;
    AcGePoint2d side = flat(hidden);
    RecHideVisual(symbol.polygon(shift), straight, side);
    vertexList(VistaCorrente).AddAt(symbol.lines(shift), 0);
  };
  if (atStart) breakAt(visualRepStart_, start);
  if (atEnd) breakAt(visualRepEnd_, end);
}

Acad::ErrorStatus KrObject::setVisualRepPoint(const AcGePoint3d& p, int moveEixo, bool atEnd) {
  assertWriteEnabled();
  AcGePoint3d r0, r1, a0, a1;
  if (const Acad::ErrorStatus es = GetPointsOfEixo(r0, r1, 1); es != Acad::eOk) return es;
  if ((r1 - r0).isZeroLength()) return Acad::eNotApplicable;
  KrVector* axis = nullptr;
  if (moveEixo != 0 && getVectorEixo(vista_, axis, 0) == Acad::eOk && GetPointsOfEixo(a0, a1, 0) == Acad::eOk &&
      !(a1 - a0).isZeroLength()) {
    const double u = fractionOn(a0, a1, p);
    if (u >= 0 && u <= 1) {
      const AcGePoint3d foot = a0 + (a1 - a0) * u;
      if (atEnd)
        axis->setEndPoint(foot);
      else
        axis->setStartPoint(foot);
      startPoint_ = axis->startPoint();
      endPoint_ = axis->endPoint();
    }
  }
  const double t = fractionOn(r0, r1, p);
  return atEnd ? setVisualRepEnd(t) : setVisualRepStart(t);
}

Acad::ErrorStatus KrObject::setVisualRepStart(const AcGePoint3d& p, int moveEixo) {
  return setVisualRepPoint(p, moveEixo, false);
}

Acad::ErrorStatus KrObject::setVisualRepEnd(const AcGePoint3d& p, int moveEixo) {
  return setVisualRepPoint(p, moveEixo, true);
}

Acad::ErrorStatus KrObject::visualRepPoint(double fraction, AcGePoint3d& p) const {
  assertReadEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  const KrVector* reference = nullptr;
  if (const Acad::ErrorStatus es = getVectorEixo(vista_, reference, 1); es != Acad::eOk) return es;
  p = reference->startPoint() + (reference->endPoint() - reference->startPoint()) * fraction;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::visualRepStartPoint(AcGePoint3d& p) const {
  return visualRepPoint(visualRepStart_, p);
}

Acad::ErrorStatus KrObject::visualRepEndPoint(AcGePoint3d& p) const {
  return visualRepPoint(visualRepEnd_, p);
}
