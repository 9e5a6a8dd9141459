// The list of a member's cuts: what comes into it and goes out, which cut stands at which end, what of it still shows.

#include <cmath>
#include <vector>

#include "editing/Links.h"
#include "modifiers/CutLine.h"
#include "object/KrObject.h"

namespace {

/// Real size to drawing scale in an elevation, as a matrix; the identity elsewhere.
AcGeMatrix3d drawingScale(const KrObject& member) {
  AcGeMatrix3d m;
  AcGePoint3d origin;
  if (member.scaleRef(origin, 0) != Acad::eOk) return m;
  AcGeVector3d axes[] = {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis, AcGeVector3d::kZAxis};
  for (AcGeVector3d& axis : axes) member.scaleRef(axis, 0);
  m.setCoordSystem(origin, axes[0], axes[1], axes[2]);
  return m;
}

/// From the section's frame to the drawing as it is drawn.
Acad::ErrorStatus sectionToDrawing(const KrObject& member, AcGeMatrix3d& m) {
  AcGeMatrix3d frame;
  if (const Acad::ErrorStatus es = member.secaoToVistaXForm(frame); es != Acad::eOk) return es;
  m = drawingScale(member) * frame;
  return Acad::eOk;
}

bool isFinite(const NoPlano& cut) {
  double a = 0;
  double b = 0;
  double c = 0;
  double d = 0;
  cut.plane.getCoefficients(a, b, c, d);
  for (const double value : {a, b, c, d, cut.side.x, cut.side.y, cut.side.z})
    if (!std::isfinite(value)) return false;
  return true;
}

}  // namespace

Acad::ErrorStatus KrObject::getCortes(KrPlanoCorte& saida, int naVista) const {
  assertReadEnabled();
  AcGeMatrix3d m;
  if (naVista != 0) {
    if (const Acad::ErrorStatus es = sectionToDrawing(*this, m); es != Acad::eOk) return es;
  }
  saida = cortes_;
  if (naVista != 0) saida.transformBy(m);
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::addCortes(const KrPlanoCorte& lista, int daVista) {
  assertWriteEnabled();
  AcGeMatrix3d m;
  if (daVista != 0) {
    if (const Acad::ErrorStatus es = sectionToDrawing(*this, m); es != Acad::eOk) return es;
    m.invert();
  }
  const int count = lista.Qtd();
  if (cortes_.Qtd() + count > std::numeric_limits<unsigned short>::max()) return Acad::eInvalidInput;
  for (int i = 0; i < count; ++i)
    if (!isFinite(lista.GetNo(i))) return Acad::eInvalidInput;
  for (int i = 0; i < count; ++i) {
    cortes_.Add(lista.GetNo(i));
    if (daVista != 0) cortes_.last().transformBy(m);
  }
  return Acad::eOk;
}

int KrObject::getCortesExtremidade(int extremo, AcArray<int>* saida) const {
  assertReadEnabled();
  if (cortes_.Qtd() == 0) return 0;
  AcGeMatrix3d frame;
  if (secaoToVistaXForm(frame) != Acad::eOk) return -1;
  const AcGeVector3d d = extremo != 0 ? -direction() : direction();
  int count = 0;
  for (int i = 0; i < cortes_.Qtd(); ++i) {
    const NoPlano& cut = cortes_.GetNo(i);
    const AcGeVector3d away = frame * (cut.plane.normal() * cut.plane.signedDistanceTo(cut.side));
    if (!(d.dotProduct(away) > 0)) continue;
    ++count;
    if (saida != nullptr) saida->append(i);
  }
  return count;
}

void KrObject::RemoveCortes(int extremo, int regenera) {
  assertWriteEnabled();
  AcArray<int> there;
  if (getCortesExtremidade(extremo, &there) < 0) return;
  for (int i = there.length() - 1; i >= 0; --i) cortes_.removeAt(there[i]);
  if (regenera == 1) Gera_KrVector(vista_);
  forEachUnlockedLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    linked.cortes_ = cortes_;
    if (regenera != 0 && linked.isSecao() == Acad::eNotApplicable) linked.Gera_KrVector();
  });
}

Acad::ErrorStatus KrObject::moveCortesVista(const AcGeVector3d& v, const AcArray<int>& indices) {
  assertWriteEnabled();
  AcGeVector3d real = v;
  // A section has no drawing scale along the bar.
  unscaleRef(real);
  if (const Acad::ErrorStatus es = vistaToSecaoXForm(real); es != Acad::eOk) return es;
  if (!std::isfinite(real.z)) return Acad::eInvalidInput;
  cortes_.movePlanes(indices, -real.z);
  forEachUnlockedLinked([&](KrObject& linked) {
    linked.assertWriteEnabled();
    linked.cortes_ = cortes_;
  });
  return Acad::eOk;
}

// A cut shows by the edge that closes its section. A later clip may have split that edge and left the pieces without
// their tag: then they are known by lying on the trace.
int KrObject::deleteModifiersNotVisible() {
  assertWriteEnabled();
  const KrObjectArray<KrVector>& lista = currentVertexList(VistaCorrente);
  const auto isShown = [&](int cut) {
    AcGeLine3d trace;
    AcGePoint3d side;
    if (GetLinhaCorte(trace, side, cut, 0) == 0) return false;
    AcGeTol onTrace;
    onTrace.setEqualPoint(CutLine::kOnCut);
    bool tagged = false;
    bool untagged = false;
    for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
      const KrVector& v = *no->value;
      if (v.tipo() != KR_VF_ARESTA || !trace.isOn(v.endPoint(), onTrace)) continue;
      if (v.typeEx() == KR_VTX_CORTE) return true;
      untagged = untagged || trace.isOn(v.startPoint(), onTrace);
    }
    for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
      tagged = tagged || (no->value->typeEx() == KR_VTX_CORTE && no->value->IndexFur() == cut);
    return untagged && !tagged;
  };
  std::vector<bool> shown(cortes_.Qtd());
  for (std::size_t i = 0; i < shown.size(); ++i) shown[i] = isShown(static_cast<int>(i));
  // The walk runs over the cuts as they were, and removes at the same place of the list as it is by now: after one
  // removal a later place holds the cut behind. Kept as it is.
  const int before = cortes_.Qtd();
  for (std::size_t i = 0; i < shown.size(); ++i)
    if (!shown[i]) cortes_.removeAt(static_cast<int>(i));
  return before - cortes_.Qtd();
}
