#include "host/ed/acdbServices.h"

// A crossing solves p1 + t d1 = p3 + u d2. In space the two lines must also meet, within kMeet.

namespace {

// Directions whose angle has a sine below this are parallel.
constexpr double kParallelSine = 1e-10;
// How far past an end a segment still reaches, and how far apart two lines in space still meet, in drawing units:
// above the rounding of coordinates up to 1e7, below any dimension.
constexpr double kReach = 1e-8;

bool reaches(double parameter, double lengthSquared) {
  const double past = parameter < 0.0 ? -parameter : parameter - 1.0;
  return past <= 0.0 || past * past * lengthSquared <= kReach * kReach;
}

struct Vector {
  double x, y, z;
};

double dot(const Vector& a, const Vector& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vector cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vector from(const ads_real* a, const ads_real* b) {
  return {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
}

}  // namespace

int acdbInters(const ads_real* p1, const ads_real* p2, const ads_real* p3, const ads_real* p4, int bounded,
               ads_real* result) {
  const Vector d1 = from(p1, p2);
  const Vector d2 = from(p3, p4);
  const Vector between = from(p1, p3);
  const double size1 = dot(d1, d1);
  const double size2 = dot(d2, d2);
  double t = 0.0;
  double u = 0.0;
  if (d1.z == 0.0 && d2.z == 0.0 && between.z == 0.0) {
    const double area = d1.x * d2.y - d1.y * d2.x;
    if (area * area <= kParallelSine * kParallelSine * size1 * size2) return RTERROR;
    t = (between.x * d2.y - between.y * d2.x) / area;
    u = (between.x * d1.y - between.y * d1.x) / area;
  } else {
    const Vector normal = cross(d1, d2);
    const double square = dot(normal, normal);
    if (square <= kParallelSine * kParallelSine * size1 * size2) return RTERROR;
    const double gap = dot(between, normal);
    if (gap * gap > kReach * kReach * square) return RTERROR;
    t = dot(cross(between, d2), normal) / square;
    u = dot(cross(between, d1), normal) / square;
  }
  if (bounded != 0 && !(reaches(t, size1) && reaches(u, size2))) return RTERROR;
  const double z = p1[2] + t * d1.z;
  result[1] = p1[1] + t * d1.y;
  result[0] = p1[0] + t * d1.x;
  result[2] = z;
  return RTNORM;
}
