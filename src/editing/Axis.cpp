// The two lines along a bar: the axis, which the user grips, and the reference, which measures the steel.
//
// Everything stored along the bar counts from the end of the reference line where the section's Z starts: its start in
// the views 1 and 4, its end in 2 and 3. When that end moves, what is stored shifts the other way and so keeps its
// place on the steel. `startPoint` and `endPoint` follow the axis line: whoever rewrites that element writes them too.

#include <cmath>
#include <utility>

#include "editing/Links.h"
#include "editing/RoundElements.h"
#include "host/ed/ed.h"
#include "object/Finite.h"
#include "object/KrObject.h"
#include "object/ListsNotShown.h"

namespace {

/// How far across the bar the lines reach that carry its limits to the axis.
constexpr double kAcross = 100000.0;

/// An axis end lies on an element when the ways to both of its ends exceed its length by less than this.
constexpr double kOnElement = 0.001;

constexpr double kRightAngle = 1.5707963267948966;

/// Crossing of two unbounded lines.
bool crossLines(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d,
                AcGePoint3d& crossing) {
  return acdbInters(asDblArray(a), asDblArray(b), asDblArray(c), asDblArray(d), 0, asDblArray(crossing)) == RTNORM;
}

AcGePoint3d middle(const AcGePoint3d& a, const AcGePoint3d& b) {
  return a + (b - a) * 0.5;
}

/// Holes face on and circles are no chord from start to end.
bool isChord(const KrVector& v) {
  return v.type() != KR_VT_FURO && v.type() != KR_VT_CIRCULO;
}

}  // namespace

Acad::ErrorStatus KrObject::getVectorEixo(KrVistas vista, const KrVector*& e, int barra) const {
  e = findFirst(vista, barra == 0 ? KR_VT_EIXO : KR_VT_REFERENCIA);
  return e == nullptr ? Acad::eNotApplicable : Acad::eOk;
}

Acad::ErrorStatus KrObject::getVectorEixo(KrVistas vista, KrVector*& e, int barra) {
  const KrVector* found = nullptr;
  const Acad::ErrorStatus es = std::as_const(*this).getVectorEixo(vista, found, barra);
  e = const_cast<KrVector*>(found);
  return es;
}

// --- The reference line ----------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::generateEixoBarra() {
  assertWriteEnabled();
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotApplicable;
  if (findFirst(VistaCorrente, KR_VT_REFERENCIA) != nullptr) return Acad::eOk;
  if (secao_.Qtd() == 0) return Acad::eNotApplicable;

  KrGeratriz outline = secao_;
  ajustaGeratriz(outline);
  AcGePoint3d box[4];
  outline.GetExtremePoints(box);
  const double off = middle(box[0], box[2]).x - outline.GetRefOrigin().x;

  AcGePoint3d e[4];
  GetExtremePoints(e, 0, 0);
  AcGePoint3d start = middle(e[0], e[1]);
  AcGePoint3d end = middle(e[2], e[3]);
  if (start.isEqualTo(end)) return Acad::eNotApplicable;
  AcGeVector3d across = (end - start).normal() * (off * yScale_);
  across.rotateBy(kRightAngle, normal_);
  vertexList(VistaCorrente).append(KrVector(start + across, end + across, KR_VT_REFERENCIA));
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::pontosBarra(AcGePoint3d& a, AcGePoint3d& b, int barra) const {
  AcGePoint3d p, q;
  if (const Acad::ErrorStatus es = GetPointsOfEixo(p, q, barra); es != Acad::eOk) return es;
  AcGePoint3d e[4];
  GetExtremePoints(e, 0, 0);
  AcGePoint3d atStart, atEnd;
  if (!crossLines(p, q, e[0], e[1], atStart) || !crossLines(p, q, e[2], e[3], atEnd)) return Acad::eNotApplicable;
  a = atStart;
  b = atEnd;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::updateEixoBarra(int propaga) {
  assertWriteEnabled();
  AcGePoint3d a, b;
  if (const Acad::ErrorStatus es = pontosBarra(a, b, 1); es != Acad::eOk) return es;
  AcGePoint3d start, end;
  GetPointsOfEixo(start, end, 1);
  if (start.isEqualTo(end)) return Acad::eNotApplicable;
  // The offsets lie along the line: their parts along it are their signed lengths, free of what rounding leaves across.
  const AcGeVector3d along = (end - start).normal();
  const double atStart = (a - start).dotProduct(along);
  const double atEnd = (b - end).dotProduct(along);
  const double none = AcGeContext::gTol.equalPoint();
  if (std::fabs(atStart) > none) offsetEixoBarraStart(atStart, propaga);
  if (std::fabs(atEnd) > none) offsetEixoBarraEnd(atEnd, propaga);
  comprimento_ = getComprimento();
  return Acad::eOk;
}

// What is stored along the bar, moved by d in real size towards its end.
void KrObject::shiftModifiers(double d) {
  cortes_.movePlanes(d);
  furos_.moveFuros(d);
  for (KrObjectRecorteArray& notches : recortes_) notches.xOffSet(d);
  splits_.zOffset(d);
}

// The line as it is after an end has moved along it, or nothing where there is none or it would turn over.
bool KrObject::offsetReference(double atStart, double atEnd) {
  KrVector* line = nullptr;
  if (isSecao() != Acad::eNotApplicable || getVectorEixo(VistaCorrente, line, 1) != Acad::eOk) return false;
  const AcGeVector3d d = line->endPoint() - line->startPoint();
  const double length = d.length();
  const double none = AcGeContext::gTol.equalPoint();
  // A number that isn't finite fails both comparisons.
  if (!(length > none) || !(length - atStart + atEnd > none && length - atStart + atEnd < HUGE_VAL)) return false;
  const AcGeVector3d along = d / length;
  line->set(line->startPoint() + along * atStart, line->endPoint() + along * atEnd);
  return true;
}

Acad::ErrorStatus KrObject::offsetEixoBarraEnd(double d, int propaga) {
  assertWriteEnabled();
  if (!offsetReference(0, d)) return Acad::eNotApplicable;
  const double real = d / xScale_;
  if (isInverted() != 0) shiftModifiers(real);
  if (propaga != 0) carryOffset(real, false);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::offsetEixoBarraStart(double d, int propaga) {
  assertWriteEnabled();
  if (!offsetReference(d, 0)) return Acad::eNotApplicable;
  const double real = d / xScale_;
  if (isInverted() == 0) shiftModifiers(-real);
  if (propaga != 0) carryOffset(real, true);
  return Acad::eOk;
}

// Sections take over what is stored; elevations move the same end of the bar, which is the other end of the line where
// the bar is drawn the other way round.
void KrObject::carryOffset(double real, bool atStart) {
  const double length = direction().length() / xScale_;
  forEachLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    const double drawn = linked.xScale_ * real;
    if (linked.isSecao() != Acad::eNotApplicable) {
      linked.furos_ = furos_;
      linked.cortes_ = cortes_;
      linked.recortes_ = recortes_;
      linked.splits_ = splits_;
    } else if (!verifyInversion(linked.vista_)) {
      atStart ? linked.offsetEixoBarraStart(drawn, 0) : linked.offsetEixoBarraEnd(drawn, 0);
    } else {
      atStart ? linked.offsetEixoBarraEnd(-drawn, 0) : linked.offsetEixoBarraStart(-drawn, 0);
    }
    linked.comprimento_ = linked.xScale_ * length;
  });
}

Acad::ErrorStatus KrObject::SetPointsOfEixoBarra(const AcGePoint3d& a, const AcGePoint3d& b) {
  assertWriteEnabled();
  KrVector* line = nullptr;
  if (getVectorEixo(VistaCorrente, line, 1) != Acad::eOk) return Acad::eNotApplicable;
  const AcGePoint3d oldStart = line->startPoint();
  const double oldLength = oldStart.distanceTo(line->endPoint());
  const double length = a.distanceTo(b);
  const double none = AcGeContext::gTol.equalPoint();
  if (!isFinite(a) || !isFinite(b) || !(oldLength > none) || !(length > none)) return Acad::eNotApplicable;

  const double angle = AcGeVector3d::kXAxis.angleTo(b - a, AcGeVector3d::kZAxis);
  line->set(a, b);
  startPoint_ = a;
  endPoint_ = b;
  if (KrVector* axis = findFirst(VistaCorrente, KR_VT_EIXO); axis != nullptr) {
    const AcGeMatrix3d move =
        AcGeMatrix3d::rotation(angle - angleVista_, AcGeVector3d::kZAxis, a) * AcGeMatrix3d::translation(a - oldStart);
    const AcGePoint3d p = move * axis->startPoint();
    const AcGePoint3d q = move * axis->endPoint();
    const AcGePoint3d foot = p.isEqualTo(q) ? p : AcGeLine3d(p, q).closestPointTo(a);
    const int hidden = axis->hidden();
    axis->set(foot + (p - foot) * (length / oldLength), foot + (q - foot) * (length / oldLength));
    axis->setHidden(hidden);
    startPoint_ = axis->startPoint();
    endPoint_ = axis->endPoint();
  }
  angleVista_ = angle;
  comprimento_ = length;
  dropListsNotShown(*this);
  Gera_KrVector(vista_);
  return Acad::eOk;
}

// --- The axis line ---------------------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::moveEixo(const AcGeVector3d& v) {
  assertWriteEnabled();
  KrVector* axis = nullptr;
  if (!isFinite(v)) return Acad::eInvalidInput;
  if (const Acad::ErrorStatus es = getVectorEixo(VistaCorrente, axis, 0); es != Acad::eOk) return es;
  axis->transformBy(AcGeMatrix3d::translation(v));
  startPoint_ = axis->startPoint();
  endPoint_ = axis->endPoint();
  return Acad::eOk;
}

int KrObject::isEixoVisible() const {
  const KrVector* axis = nullptr;
  return getVectorEixo(VistaCorrente, axis, 0) == Acad::eOk && axis->hidden() == 0 ? 1 : 0;
}

Acad::ErrorStatus KrObject::showEixo(int mostra) {
  assertWriteEnabled();
  KrVector* axis = nullptr;
  if (const Acad::ErrorStatus es = getVectorEixo(VistaCorrente, axis, 0); es != Acad::eOk) return es;
  axis->setHidden(mostra != 0 ? 0 : 1);
  // The outline no longer hides the axis of a view made anew; the one that stands keeps its own mark.
  const int reference = secao_.Qtd();
  if (secao_.numNodes() > reference)
    secao_.Troca(AcGeVector3d(secao_.GetRefOrigin()), KrGeratriz::kReferenceBulge, reference);
  return Acad::eOk;
}

void KrObject::UpdateEixo() {
  assertWriteEnabled();
  const double square = angleVista_ + kRightAngle;
  const AcGeVector3d across(std::cos(square) * kAcross, std::sin(square) * kAcross, 0);
  for (const KrVistas view : {Superior, Inferior, Esquerda, Direita}) {
    KrVector* axis = findFirst(view, KR_VT_EIXO);
    if (axis == nullptr) continue;
    AcGePoint3d low, high;
    GetLimitsPoints(low, high, view);
    AcGePoint3d start = axis->startPoint();
    AcGePoint3d end = axis->endPoint();
    AcGePoint3d atLow, atHigh;
    const bool lowMeets = crossLines(low, low + across, start, end, atLow);
    const bool highMeets = crossLines(high, high + across, start, end, atHigh);
    // A bar drawn towards smaller X has its end at the lower limit; in an upright one either end may be.
    const bool against = lowMeets && highMeets ? (atHigh - atLow).dotProduct(end - start) < 0 : end.x < start.x;
    if (lowMeets) (against ? end : start) = atLow;
    if (highMeets) (against ? start : end) = atHigh;
    if (start.isEqualTo(end)) continue;
    axis->setStartPoint(start);
    axis->setEndPoint(end);
    if (view != vista_) continue;
    startPoint_ = start;
    endPoint_ = end;
  }
}

int KrObject::testEixo(int naOrigem) const {
  const KrVector* axis = nullptr;
  if (getVectorEixo(VistaCorrente, axis, 0) != Acad::eOk) return 0;
  const AcGeVector3d along = axis->endPoint() - axis->startPoint();
  AcGePoint3d e[4];
  GetExtremePoints(e, 0, 0);
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    const KrVector& v = *no->value;
    if (!isChord(v) || (v.endPoint() - v.startPoint()).isParallelTo(along)) continue;
    const bool nearEnd = v.startPoint().distanceTo(e[2]) <= v.startPoint().distanceTo(e[0]);
    const AcGePoint3d& p = nearEnd || naOrigem == 0 ? axis->endPoint() : axis->startPoint();
    if (p.distanceTo(v.startPoint()) + p.distanceTo(v.endPoint()) - v.len() < kOnElement) return 1;
  }
  return 0;
}

Acad::ErrorStatus KrObject::transformByNoEixo(const AcGeMatrix3d& m) {
  assertWriteEnabled();
  if (!isFinite(m)) return Acad::eInvalidInput;
  const bool elevation = isSecao() == Acad::eNotApplicable;
  KrObjectArray<KrVector>& lista = vertexList(elevation ? vista_ : Secao);
  for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
    if (!elevation || no->value->type() != KR_VT_EIXO) transformElement(*no->value, m, m.scale());
  if (!elevation) angleSecao_ = acutAngle(asDblArray(startPoint_), asDblArray(endPoint_));
  return Acad::eOk;
}

// --- From one line to the other --------------------------------------------------------------------------------------

Acad::ErrorStatus KrObject::ecsZEixoOffset(double& d, int extremo) const {
  assertReadEnabled();
  AcGePoint3d start, end;
  if (isSecao() != Acad::eNotApplicable || GetPointsOfEixo(start, end, 1) != Acad::eOk) return Acad::eNotApplicable;
  if (start.isEqualTo(end)) return Acad::eNotApplicable;
  const bool inverted = isInverted() != 0;
  const AcGeVector3d along = (end - start).normal();
  const bool drawnStart = (extremo != 0) != inverted;
  const AcGeVector3d w = drawnStart ? startPoint_ - start : endPoint_ - end;
  d = w.dotProduct(inverted ? -along : along);
  return Acad::eOk;
}

double KrObject::ecsZEixoOffset(int extremo) const {
  double d = 0;
  return ecsZEixoOffset(d, extremo) == Acad::eOk ? d : 0;
}

Acad::ErrorStatus KrObject::wcsDirEixoOffset(double& d, int extremo) const {
  assertReadEnabled();
  AcGePoint3d start, end;
  if (isSecao() != Acad::eNotApplicable || GetPointsOfEixo(start, end, 1) != Acad::eOk) return Acad::eNotApplicable;
  if (start.isEqualTo(end)) return Acad::eNotApplicable;
  const AcGeVector3d w = extremo != 0 ? start - startPoint_ : end - endPoint_;
  d = w.dotProduct((end - start).normal());
  return Acad::eOk;
}

double KrObject::wcsDirEixoOffset(int extremo) const {
  double d = 0;
  return wcsDirEixoOffset(d, extremo) == Acad::eOk ? d : 0;
}
