// A member's frames and views: the passage from the section to the drawing, and what a turned section really shows.

#include <cmath>
#include <limits>
#include <utility>

#include "host/companion/companion.h"
#include "object/KrObject.h"
#include "object/ListsNotShown.h"

namespace {

constexpr double kPi = 3.141592653589793;

struct ElevationFrame {
  bool fromEnd;       // the frame stands on the reference line's end
  AcGeVector3d tilt;  // axis of the tilt into the drawing plane
  double a1;
  double a2;
};

const ElevationFrame& frameOf(KrVistas vista) {
  static const ElevationFrame frames[] = {{false, AcGeVector3d(1, 0, 0), kPi / 2, -kPi / 2},
                                          {true, AcGeVector3d(1, 0, 0), kPi / 2, kPi / 2},
                                          {true, AcGeVector3d(0, 1, 0), 0, -kPi / 2},
                                          {false, AcGeVector3d(0, 1, 0), 0, kPi / 2}};
  return frames[static_cast<int>(vista) - 1];
}

/// The nearest whole number, halves away from the integer part; 0 for more than can be counted, and for no number: a
/// file can hold any angle.
int rounded(double quarters) {
  const double whole = std::trunc(quarters);
  if (!(std::fabs(whole) < std::numeric_limits<int>::max())) return 0;
  return static_cast<int>(whole) + (quarters - whole >= 0.5 ? 1 : 0);
}

/// Where the section's side that each elevation shows points to, in the section.
AcGeVector3d shownSideOf(KrVistas vista) {
  static const AcGeVector3d sides[] = {{0, 1, 0}, {0, -1, 0}, {-1, 0, 0}, {1, 0, 0}};
  return sides[static_cast<int>(vista) - 1];
}

/// How far a section may stand from a whole quarter, in quarters, upward only.
constexpr double kQuarterTolerance = 0.0002;

}  // namespace

Acad::ErrorStatus KrObject::secaoToVistaXForm(AcGeMatrix3d& m) const {
  assertReadEnabled();
  if (isSecao() == Acad::eOk) {
    const double a = vista_ == SecaoVerso ? -angleSecao_ : angleSecao_;
    m = AcGeMatrix3d::translation(startPoint_.asVector()) *
        AcGeMatrix3d::rotation(angleVista_ + a, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin);
    return Acad::eOk;
  }
  if (isSecao() != Acad::eNotApplicable) return Acad::eNotImplementedYet;
  AcGePoint3d p1, p2;
  if (const Acad::ErrorStatus es = GetPointsOfEixo(p1, p2, 1); es != Acad::eOk) return es;
  const ElevationFrame& f = frameOf(vista_);
  m = AcGeMatrix3d::translation((f.fromEnd ? p2 : p1).asVector()) *
      AcGeMatrix3d::rotation(angleVista_ - f.a1, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin) *
      AcGeMatrix3d::rotation(-f.a2, f.tilt, AcGePoint3d::kOrigin) *
      AcGeMatrix3d::rotation(angleSecao_, AcGeVector3d::kZAxis, AcGePoint3d::kOrigin);
  return Acad::eOk;
}

KrVistas KrObject::Vista(int real) const {
  assertReadEnabled();
  if (real == 0 || isSecao() != Acad::eNotApplicable) return vista_;
  AcGeMatrix3d m;
  if (secaoToVistaXForm(m) != Acad::eOk) return static_cast<KrVistas>(-2);
  const AcGeVector3d y = AcGeVector3d(0, 1, 0).transformBy(m);
  const AcGeVector3d x = AcGeVector3d(1, 0, 0).transformBy(m);
  const AcGeVector3d z = AcGeVector3d::kZAxis;
  if (y.isCodirectionalTo(z)) return Superior;
  if (y.isCodirectionalTo(-z)) return Inferior;
  if (x.isCodirectionalTo(z)) return Direita;
  if (x.isCodirectionalTo(-z)) return Esquerda;
  return static_cast<KrVistas>(-1);
}

Acad::ErrorStatus KrObject::Vista(KrVistas& vista, int real) const {
  vista = Vista(real);
  return Acad::eOk;
}

KrVistas KrObject::GetVistaReal() const {
  int inverted = 0;
  return GetVistaReal(inverted);
}

KrVistas KrObject::GetVistaReal(int& invertida) const {
  assertReadEnabled();
  const int q = rounded(angleSecao_ / (kPi / 2)) % 4;
  int t = 0;
  bool inv = false;
  switch (vista_) {
    case Superior:
      t = 3 - q;
      break;
    case Inferior:
      t = 1 - q;
      inv = true;
      break;
    case Esquerda:
      t = -q;
      inv = true;
      break;
    case Direita:
      t = 2 - q;
      break;
    default:
      return vista_;
  }
  switch (((t % 4) + 4) % 4) {
    case 0:
      invertida = inv ? 0 : 1;
      return Esquerda;
    case 1:
      invertida = inv ? 0 : 1;
      return Inferior;
    case 2:
      invertida = inv ? 1 : 0;
      return Direita;
    default:
      invertida = inv ? 1 : 0;
      return Superior;
  }
}

int KrObject::isInverted(KrVistas vista, Acad::ErrorStatus& status) {
  status = isSecao(vista) == Acad::eNotApplicable ? Acad::eOk : Acad::eInvalidInput;
  return vista == Inferior || vista == Esquerda ? 1 : 0;
}

int KrObject::isInverted(KrVistas vista) {
  Acad::ErrorStatus ignored = Acad::eOk;
  return isInverted(vista, ignored);
}

bool KrObject::verifyInversion(KrVistas a, KrVistas b, Acad::ErrorStatus& status) {
  Acad::ErrorStatus second = Acad::eOk;
  const int first = isInverted(a, status);
  const bool differ = first != isInverted(b, second);
  if (second != Acad::eOk) status = second;
  return differ;
}

bool KrObject::verifyInversion(KrVistas a, KrVistas b) {
  Acad::ErrorStatus ignored = Acad::eOk;
  return verifyInversion(a, b, ignored);
}

bool KrObject::isRetRotated() const {
  int quarters = 0;
  return isRetRotated(quarters);
}

// Only what stands above the integer part counts: a hair short of a whole quarter is no quarter.
bool KrObject::isRetRotated(int& quartos) const {
  assertReadEnabled();
  const double quarters = angleSecao_ / (kPi / 2);
  quartos = rounded(quarters);
  return std::fabs(quarters - std::trunc(quarters)) < kQuarterTolerance;
}

Acad::ErrorStatus KrObject::orthoRotateSec(int sentido) {
  assertWriteEnabled();
  angleSecao_ = GetAngle(angleSecao_ + (sentido == 0 ? kPi / 2 : -kPi / 2));
  return Acad::eOk;
}

void KrObject::switchToVista(KrVistas vista) {
  assertWriteEnabled();
  if (vista == vista_ || isSecao() != Acad::eNotApplicable || isSecao(vista) != Acad::eNotApplicable) return;
  if (!isRetRotated()) return;
  AcGeVector3d towards = AcGeVector3d::kZAxis;
  if (vistaToSecaoXForm(towards) != Acad::eOk) return;
  KrVector* axis = nullptr;
  KrVector* reference = nullptr;
  if (getVectorEixo(vista_, axis, 0) != Acad::eOk || getVectorEixo(vista_, reference, 1) != Acad::eOk) return;

  // The section turns so that the side which faced the viewer is the side that the new view shows; by whole quarters,
  // or the next switch would refuse what rounding left.
  const AcGeVector3d side = shownSideOf(vista);
  const double turn = std::atan2(side.y, side.x) - std::atan2(towards.y, towards.x);
  const double quarters = std::round(GetAngle(turn) / (kPi / 2));
  KrVector newAxis = *axis;
  KrVector newReference = *reference;
  if (verifyInversion(vista)) {
    newAxis.set(axis->endPoint(), axis->startPoint());
    newAxis.setHidden(axis->hidden());
    newReference.set(reference->endPoint(), reference->startPoint());
    std::swap(startPoint_, endPoint_);
    angleVista_ = GetAngle(angleVista_ + kPi);
    std::swap(zCoordIni_, zCoordEnd_);
    visualRepStart_ = 1 - std::exchange(visualRepEnd_, 1 - visualRepStart_);
  }
  angleSecao_ = quarters >= 4 ? 0.0 : quarters * (kPi / 2);
  vertexList(vista_).Clear();
  vista_ = vista;
  dropListsNotShown(*this);
  // The new view starts from the two lines alone: what its list held stands where the bar stood when it was made.
  KrObjectArray<KrVector>& lista = vertexList(vista_);
  lista.Clear();
  lista.append(newReference);
  lista.append(newAxis);
  Gera_KrVector();
}

AcGeVector3d KrObject::direction() const {
  AcGePoint3d a, b;
  if (GetPointsOfEixo(a, b, 1) != Acad::eOk) return {0, 0, 0};
  return b - a;
}

AcGeVector3d KrObject::directionEixo() const {
  assertReadEnabled();
  return endPoint_ - startPoint_;
}
