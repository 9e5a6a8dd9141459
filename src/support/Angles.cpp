#include "support/Angles.h"

#include <cmath>
#include <utility>

namespace {
constexpr double kPi = 3.141592653589793;
}

double sex2rad(double graus) {
  return graus * kPi / 180.0;
}

double rad2sex(double rad) {
  return rad / kPi * 180.0;
}

AcGeVector3d VectorAngleRad(double a) {
  return {std::cos(a), std::sin(a), 0.0};
}

AcGeVector3d VectorAngleSex(double graus) {
  return VectorAngleRad(sex2rad(graus));
}

bool AngleIsEqual(double a, double b) {
  constexpr double kSameAngle = 9.999999747378752e-06;
  return std::fabs(std::sin(a) - std::sin(b)) <= kSameAngle && std::fabs(std::cos(a) - std::cos(b)) <= kSameAngle;
}

int isOnSurface2d(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& p) {
  return a.x <= p.x && p.x <= b.x && a.y <= p.y && p.y <= b.y ? 1 : 0;
}

void Point_2_Vector(AcGePoint3d p, AcGeVector3d& v) {
  v = p.asVector();
}

void Vector_2_Point(AcGeVector3d v, AcGePoint3d& p) {
  p = v.asPoint();
}

void swap_int(int& a, int& b) {
  std::swap(a, b);
}
