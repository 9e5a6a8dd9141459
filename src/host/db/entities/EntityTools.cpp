#include "host/db/entities/EntityTools.h"

#include <cmath>

#include "host/ed/acdbServices.h"
#include "host/ed/acut.h"

namespace {

constexpr std::size_t kNumberRoom = 400;

// Whether images of the axes are square and equally long is a matter of rounding, not of the drawing's tolerance.
const AcGeTol& tightTol() {
  static const AcGeTol tol = [] {
    AcGeTol t;
    t.setEqualVector(1e-9);
    return t;
  }();
  return tol;
}

}  // namespace

namespace entities {

void listPoint(const ACHAR* label, const AcGePoint3d& p) {
  ACHAR x[kNumberRoom];
  ACHAR y[kNumberRoom];
  ACHAR z[kNumberRoom];
  acdbRToS(p.x, -1, -1, x);
  acdbRToS(p.y, -1, -1, y);
  acdbRToS(p.z, -1, -1, z);
  acutPrintf(L"\n%s X=%s  Y=%s  Z=%s", label, x, y, z);
}

void listLength(const ACHAR* label, double value) {
  ACHAR text[kNumberRoom];
  acdbRToS(value, -1, -1, text);
  acutPrintf(L"\n%s %s", label, text);
}

void listAngle(const ACHAR* label, double radians) {
  ACHAR text[kNumberRoom];
  acdbAngToS(radians, -1, -1, text);
  acutPrintf(L"\n%s %s", label, text);
}

double angleInPlane(const AcGeVector3d& direction, const AcGeVector3d& normal) {
  const AcGeVector3d flat = AcGeMatrix3d::worldToPlane(normal) * direction;
  return wrapped(std::atan2(flat.y, flat.x));
}

AcGeVector3d directionAt(double angle, const AcGeVector3d& normal) {
  return AcGeMatrix3d::planeToWorld(normal) * AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

double wrapped(double angle) {
  const double turn = std::fmod(angle, kAcGeTwoPi);
  const double positive = turn < 0.0 ? turn + kAcGeTwoPi : turn;
  return positive >= kAcGeTwoPi ? 0.0 : positive;
}

bool isSimilarity(const AcGeMatrix3d& xform) {
  return xform.scale() > 0.0 && xform.isUniScaledOrtho(tightTol());
}

}  // namespace entities
