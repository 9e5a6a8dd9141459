// A member's frames and views: the passage from the section to the drawing, and what a turned section really shows.

#include <cmath>

#include "object/KrObject.h"

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

/// The nearest whole number, halves away from the integer part.
int rounded(double quarters) {
  const double whole = std::trunc(quarters);
  return static_cast<int>(whole) + (quarters - whole >= 0.5 ? 1 : 0);
}

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

AcGeVector3d KrObject::direction() const {
  AcGePoint3d a, b;
  if (GetPointsOfEixo(a, b, 1) != Acad::eOk) return {0, 0, 0};
  return b - a;
}

AcGeVector3d KrObject::directionEixo() const {
  assertReadEnabled();
  return endPoint_ - startPoint_;
}
