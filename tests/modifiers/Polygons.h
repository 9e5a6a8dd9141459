#pragma once

#include <cmath>
#include <initializer_list>

#include "object/KrObject.h"

/// Polygons and elements for tests of what clips.
struct Polygon {
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;

  Polygon& add(double x, double y, double bulge = 0.0) {
    points.append(AcGePoint2d(x, y));
    bulges.append(bulge);
    return *this;
  }
  Polygon& close() {
    points.append(AcGePoint2d(points[0]));
    bulges.append(0.0);
    return *this;
  }
};

/// A closed rectangle, counter-clockwise from its lower left corner.
inline Polygon rectangle(double x0, double y0, double x1, double y1) {
  return Polygon().add(x0, y0).add(x1, y0).add(x1, y1).add(x0, y1).close();
}

inline KrVector line(double x0, double y0, double x1, double y1, KrVectorType type = KR_VT_LINHA,
                     KrVectorFlag flag = KR_VF_ARESTA) {
  KrVector v(AcGePoint3d(x0, y0, 0), AcGePoint3d(x1, y1, 0), type);
  v.setTipo(flag);
  return v;
}

/// An arc about a centre, angles in degrees, turning counter-clockwise from `from` to a larger `to`, else clockwise.
inline KrVector arc(double cx, double cy, double r, double from, double to) {
  const auto at = [&](double degrees) {
    const double a = degrees * 3.141592653589793 / 180;
    return AcGePoint3d(cx + r * std::cos(a), cy + r * std::sin(a), 0);
  };
  KrVector v(at(from), at((from + to) / 2), at(to), KR_VT_ARCO);
  v.setTipo(KR_VF_ARESTA);
  return v;
}

inline KrObjectArray<KrVector> listOf(std::initializer_list<KrVector> elements) {
  KrObjectArray<KrVector> list;
  for (const KrVector& v : elements) list.append(v);
  return list;
}

inline bool runs(const KrVector& v, double x0, double y0, double x1, double y1) {
  constexpr double kNear = 1e-9;
  return v.startPoint().distanceTo(AcGePoint3d(x0, y0, 0)) < kNear &&
         v.endPoint().distanceTo(AcGePoint3d(x1, y1, 0)) < kNear;
}

/// Whether two elements are the same in all that is drawn and marked.
inline bool sameElement(const KrVector& a, const KrVector& b, double tol = 1e-9) {
  AcGeTol near;
  near.setEqualPoint(tol);
  return a.type() == b.type() && a.tipo() == b.tipo() && a.hidden() == b.hidden() && a.typeEx() == b.typeEx() &&
         a.IndexFur() == b.IndexFur() && a.startPoint().isEqualTo(b.startPoint(), near) &&
         a.midPoint().isEqualTo(b.midPoint(), near) && a.endPoint().isEqualTo(b.endPoint(), near) &&
         std::fabs(a.radius() - b.radius()) <= tol && std::fabs(a.folga() - b.folga()) <= tol;
}
