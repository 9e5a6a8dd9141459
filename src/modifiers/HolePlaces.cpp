// Holes in the drawing: where a recorded hole is drawn, which element it is, and what moves and lights with it.

#include <cmath>

#include "editing/Links.h"
#include "host/companion/companion.h"
#include "object/KrObject.h"
#include "object/Rotation.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// How a hole's axis runs in a view: along what the view looks along (an elevation) or along the bar (a section), at
/// right angles to it, or neither. One bit each, as callers ask for them.
constexpr unsigned long kParallel = 1;
constexpr unsigned long kAcross = 2;
constexpr unsigned long kAskew = 4;

unsigned long classOf(const AcGeVector3d& axis, const AcGeVector3d& reference) {
  if (axis.isParallelTo(reference)) return kParallel;
  return axis.isPerpendicularTo(reference) ? kAcross : kAskew;
}

AcGePoint2d inSection(const AcGeVector3d& v) {
  return {v.x, v.y};
}

}  // namespace

Acad::ErrorStatus KrObject::wcsCoordFuro(int i, AcGePoint3d& p, double& diametro, double& stretch, double& angulo,
                                         int testaParede) const {
  AcGePoint3d other;
  return wcsCoordFuroCommon(i, p, other, diametro, stretch, angulo, testaParede, kParallel, nullptr);
}

Acad::ErrorStatus KrObject::wcsCoordFuroTrace(int i, AcGePoint3d& p1, AcGePoint3d& p2, double& diametro,
                                              double& stretch, double& angulo, int testaParede) const {
  return wcsCoordFuroCommon(i, p1, p2, diametro, stretch, angulo, testaParede, kAcross, nullptr);
}

Acad::ErrorStatus KrObject::wcsCoordFuroCommon(int i, AcGePoint3d& p1, AcGePoint3d& p2, double& diametro,
                                               double& stretch, double& angulo, int testaParede, unsigned long classes,
                                               int* classe) const {
  assertReadEnabled();
  if (i < 0 || i >= furos_.Qtd()) return Acad::eInvalidIndex;
  KrGeratriz outline = secao_;
  KrFuro hole;
  hole.Add(furos_.getNo(i));
  if (ajustaGeratriz(outline) != Acad::eOk) return Acad::eNotApplicable;
  const AcGeVector3d origin = outline.GetRefOrigin();
  ajustaFuros(hole, AcGePoint3d(origin.x, origin.y, origin.z));
  const AcGeVector3d ini = hole.getIni(0);
  const AcGeVector3d fim = hole.getFim(0);
  if (ini.isEqualTo(fim)) return Acad::eNotApplicable;

  if (testaParede != 0) {
    // First and last along the hole itself, whichever way it was drilled.
    AcArray<AcGeVector3d> crossings;
    InterceptaLinhas(AcGeLine2d(inSection(ini), inSection(fim)), crossings, &outline);
    AcArray<AcGePoint2d> points;
    for (int k = 0; k < crossings.length(); ++k) points.append(inSection(crossings[k]));
    QuickSort(points, inSection(fim) - inSection(ini));
    const bool outermost =
        !points.isEmpty() && (inSection(ini).isEqualTo(points.first()) || inSection(fim).isEqualTo(points.last()));
    if (!outermost) return Acad::eNotApplicable;
  }

  const bool elevation = isSecao() == Acad::eNotApplicable;
  const unsigned long found = classOf(fim - ini, elevation ? AcGeVector3d::kYAxis : AcGeVector3d::kZAxis);
  if ((classes & found) == 0) return Acad::eNotApplicable;

  AcGePoint3d ends[2];
  const AcGeVector3d relative[2] = {ini - origin, fim - origin};
  const Rotation turn(angleVista_);
  if (elevation) {
    AcGePoint3d reference[2];
    if (const Acad::ErrorStatus es = GetPointsOfEixo(reference[0], reference[1], 1); es != Acad::eOk) return es;
    // In views from below and from the left Z runs back from the end of the line: the mirror has negated it.
    const AcGePoint3d& base = reference[isInverted()];
    const double z[2] = {ini.z, fim.z};
    for (int end = 0; end < 2; ++end) {
      ends[end] = base + turn(AcGeVector3d(z[end], -relative[end].x, 0));
      scaleRef(ends[end], 0);
    }
  } else {
    for (int end = 0; end < 2; ++end)
      ends[end] = sectionAtScale(startPoint_ + turn(AcGeVector3d(relative[end].x, relative[end].y, 0)));
  }
  const KrVistas real = GetVistaReal();
  const double angle = furos_.getAngle(i);
  p1 = ends[0];
  p2 = ends[1];
  diametro = furos_.getDiametro(i);
  stretch = furos_.getStretch(i);
  angulo = (real == Inferior || real == Esquerda ? kPi - angle : angle) + angleVista_;
  if (classe != nullptr) *classe = static_cast<int>(found);
  return Acad::eOk;
}

int KrObject::getFuroVertex(KrVector*& elemento, int i) {
  int place = 0;
  return getFuroVertex(elemento, i, place);
}

int KrObject::getFuroVertex(KrVector*& elemento, int i, int& lugar) {
  assertReadEnabled();
  KrObjectArray<KrVector>& list = vertexList(VistaCorrente);
  for (int k = 0; k < list.length(); ++k) {
    KrVector& v = list[k];
    if ((v.type() != KR_VT_FURO && v.type() != KR_VT_FURO_LINHA) || v.IndexFur() != i) continue;
    elemento = &v;
    lugar = k;
    return 1;
  }
  return 0;
}

Acad::ErrorStatus KrObject::moveFurosVista(const AcGeVector3d& v, const AcArray<int>& indices) {
  assertWriteEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  const bool alongBar = v.isParallelTo(direction());
  AcArray<int> moved;
  for (const int i : indices) {
    KrVector* element = nullptr;
    if (getFuroVertex(element, i) == 0) continue;
    if (element->type() == KR_VT_FURO || alongBar) moved.append(i);
  }
  if (moved.isEmpty()) return Acad::eNotApplicable;

  AcGeVector3d move = v;
  if (const Acad::ErrorStatus es = unscaleRef(move); es != Acad::eOk) return es;
  if (const Acad::ErrorStatus es = vistaToSecaoXForm(move); es != Acad::eOk) return es;
  // Holes count Z along the bar, the section's frame against it.
  move.z = -move.z;
  KrFuro holes = furos_;
  for (const int i : moved) {
    holes.setIni(i, holes.getIni(i) + move);
    holes.setFim(i, holes.getFim(i) + move);
  }
  if (const Acad::ErrorStatus es = setFurosSemLink(holes); es != Acad::eOk) return es;
  forEachLinked([&holes](KrObject& linked) { linked.setFuros(&holes); });
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::highlightFuro(int i) {
  // A light on an element is no change of the member: nothing to undo, nobody to tell.
  assertWriteEnabled(false, false);
  KrVector* element = nullptr;
  int place = 0;
  if (getFuroVertex(element, i, place) == 0) return Acad::eNotApplicable;
  int count = 0;
  AcDbFullSubentPath* paths = nullptr;
  const Acad::ErrorStatus es = getSubentPathsAtGsMarker(AcDb::kVertexSubentType, place + 1, AcGePoint3d::kOrigin,
                                                        AcGeMatrix3d::kIdentity, count, paths);
  for (int k = 0; k < count; ++k) highlight(paths[k]);
  delete[] paths;
  return es;
}

void KrObject::highlightFuros() {
  assertWriteEnabled(false, false);
  for (int i = 0; i < furos_.Qtd(); ++i) highlightFuro(i);
}
