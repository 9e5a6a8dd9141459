// Moving, turning, mirroring, enlarging a member by a matrix: the drawn list and the model stay in step.

#include <cmath>
#include <utility>

#include "editing/RoundElements.h"
#include "host/companion/companion.h"
#include "object/Finite.h"
#include "object/KrObject.h"
#include "records/ChordAngle.h"

namespace {

constexpr double kQuarter = 1.5707963267948966;
/// What rounding leaves of a factor of 1, and of a whole quarter.
constexpr double kRounding = 1e-12;

/// An angle within one turn; a whole quarter stays one, since what works on quarters takes no hair less than them.
double withinTurn(double angle) {
  const double quarters = std::round(angle / kQuarter);
  if (std::fabs(angle - quarters * kQuarter) > kRounding) return GetAngle(angle);
  const double within = std::fmod(quarters, 4.0);
  return (within < 0 ? within + 4 : within) * kQuarter;
}

void invertEnds(KrVector& line) {
  const int hidden = line.hidden();
  const AcGePoint3d start = line.startPoint();
  line.set(line.endPoint(), start);
  line.setHidden(hidden);
}

/// The mirrored section is that seen from the other end.
KrVistas otherSection(KrVistas vista) {
  return vista == Secao ? SecaoVerso : Secao;
}

/// Turns holes end for end on a bar of real length `comprimento`. The list's own turn leaves the far end of each: with
/// it alone a hole would stand askew along the bar.
void invertHoles(KrFuro& holes, double comprimento) {
  holes.inverteFuros(comprimento);
  for (int i = 0; i < holes.Qtd(); ++i) {
    AcGeVector3d far = holes.getFim(i);
    far.z = comprimento - far.z;
    holes.setFim(i, far);
  }
}

void invertSplits(KrObjectSplitList& splits, double comprimento) {
  for (auto* no = splits.getNode(0); no != nullptr; no = splits.nextNode(no))
    no->value->setZPos(comprimento - no->value->zPos());
}

}  // namespace

Acad::ErrorStatus KrObject::subTransformBy(const AcGeMatrix3d& xform) {
  assertWriteEnabled();
  if (isSecao() == Acad::eNotImplementedYet) return Acad::eOk;
  if (!isFinite(xform)) return Acad::eInvalidInput;
  // What leaves the drawing's plane is no business of a member.
  if (!(xform * AcGeVector3d::kZAxis).isParallelTo(AcGeVector3d::kZAxis)) return Acad::eOk;
  AcGeMatrix3d m = xform;
  m(2, 3) = 0;
  const AcGeVector3d x = m * AcGeVector3d::kXAxis;
  const bool mirrors = x.crossProduct(m * AcGeVector3d::kYAxis).z <= 0;
  double factor = m.scale();
  if (std::fabs(factor - 1) < kRounding) factor = 1;
  const bool section = isSecao() == Acad::eOk;
  const double length = getComprimentoReal();

  startPoint_.transformBy(m);
  endPoint_.transformBy(m);
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    transformElement(*no->value, m, factor);
  }
  // The lists of views not shown are made on demand. An old one tells where the axis was: it would pull the member
  // back.
  for (KrObjectArray<KrVector>& other : vertexLists_)
    if (&other != &lista) other.Clear();

  if (mirrors && section) {
    vista_ = otherSection(vista_);
    vertexList(vista_) = lista;
    lista.Clear();
    angleVista_ = withinTurn(-angleVista_);
  } else if (mirrors) {
    KrVector* axis = nullptr;
    KrVector* reference = nullptr;
    if (getVectorEixo(vista_, axis, 0) != Acad::eOk) return Acad::eOk;
    invertEnds(*axis);
    if (getVectorEixo(vista_, reference, 1) != Acad::eOk) return Acad::eOk;
    invertEnds(*reference);
    std::swap(startPoint_, endPoint_);
  }
  if (mirrors) {
    // The mirrored bar is the bar end for end, in the picture of an elevation as in that of a section.
    invertHoles(furos_, length);
    cortes_.invertePlanos(length);
    for (KrObjectRecorteArray& notches : recortes_) notches.inverteRecortes(length);
    invertSplits(splits_, length);
    visualRepStart_ = 1 - std::exchange(visualRepEnd_, 1 - visualRepStart_);
    std::swap(zCoordIni_, zCoordEnd_);
    if (hasValidId()) UnLinkMeObj();
  }

  if (section) {
    // The section from the end is drawn mirrored: there the same turn counts the other way.
    const double turn = mirrors ? std::atan2(-x.y, -x.x) : std::atan2(x.y, x.x);
    angleSecao_ = withinTurn(vista_ == Secao ? angleSecao_ + turn : angleSecao_ - turn);
  } else if (startPoint_ != endPoint_) {
    angleVista_ = chordAngle(endPoint_.x - startPoint_.x, endPoint_.y - startPoint_.y);
  }
  comprimento_ *= factor;
  xScale_ *= factor;
  yScale_ *= factor;
  zScale_ *= factor;
  return Acad::eOk;
}

Acad::ErrorStatus KrObject::transformByFuros(const AcGeMatrix3d& m) {
  assertWriteEnabled();
  if (!isFinite(m)) return Acad::eInvalidInput;
  if (vista_ == Secao) return Acad::eOk;
  KrObjectArray<KrVector>& lista = vertexList(VistaCorrente);
  for (Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no))
    if (no->value->type() == KR_VT_FURO || no->value->type() == KR_VT_FURO_EIXO) no->value->transformBy(m);
  return Acad::eOk;
}
