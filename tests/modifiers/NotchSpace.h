#pragma once

#include <cmath>
#include <vector>

#include "modifiers/Polygons.h"
#include "object/TestMember.h"

/// Bars for tests of what clips, and where steel stands in a picture, told without the clipper.
namespace notches {

/// A flat bar 100 wide and 60 high about its reference: its elevations 1 and 2 span y from -50 to 50, 3 and 4 from -30
/// to 30.
inline oracle::Outline flatBar() {
  return {{{-50, -30}, {50, -30}, {50, 30}, {-50, 30}}};
}

inline void makeBar(TestMember& member, KrVistas vista = Superior, double length = 1000, double angle = 0,
                    AcGePoint3d start = {0, 0, 0}) {
  member.make(flatBar(), vista, length, angle, start);
}

inline Acad::ErrorStatus notch(KrObject& member, const Polygon& polygon, AcGePoint2d side) {
  return member.Recorte(polygon.points, polygon.bulges, side);
}

/// How far the outline edges turn round a point: nonzero in whole turns where it lies within them. Arcs are sampled.
inline bool isSteel(const KrObject& member, double x, double y) {
  // The number of outline edges that a ray from the point in an odd direction meets.
  const AcGePoint2d p(x, y);
  const AcGeVector2d ray(std::cos(0.7343), std::sin(0.7343));
  int crossings = 0;
  const auto cross = [&](const AcGePoint2d& a, const AcGePoint2d& b) {
    const double ha = ray.crossProduct(a - p), hb = ray.crossProduct(b - p);
    if ((ha > 0) == (hb > 0)) return;
    const AcGePoint2d at = a + (b - a) * (ha / (ha - hb));
    if (ray.dotProduct(at - p) > 0) ++crossings;
  };
  const KrObjectArray<KrVector>& list = member.currentVertexList(VistaCorrente);
  for (int i = 0; i < list.length(); ++i) {
    const KrVector& v = list[i];
    if (v.tipo() != KR_VF_ARESTA) continue;
    const AcGePoint2d a(v.startPoint().x, v.startPoint().y), b(v.endPoint().x, v.endPoint().y);
    if (v.type() != KR_VT_ARCO) {
      cross(a, b);
      continue;
    }
    constexpr int kSamples = 200;
    const AcGeCircArc2d arc(a, AcGePoint2d(v.midPoint().x, v.midPoint().y), b);
    AcGePoint2d from = a;
    for (int k = 1; k <= kSamples; ++k) {
      const AcGePoint2d to = k == kSamples ? b : arc.evalPoint(arc.endAng() * k / kSamples);
      cross(from, to);
      from = to;
    }
  }
  return crossings % 2 != 0;
}

/// The elements of a list with a tag.
inline std::vector<KrVector> tagged(const KrObject& member, KrVectorTypeEx kind) {
  std::vector<KrVector> found;
  const KrObjectArray<KrVector>& list = member.currentVertexList(VistaCorrente);
  for (int i = 0; i < list.length(); ++i)
    if (list[i].typeEx() == kind) found.push_back(list[i]);
  return found;
}

inline std::vector<KrVector> elementsOf(const KrObject& member, KrVistas vista = VistaCorrente) {
  std::vector<KrVector> all;
  const KrObjectArray<KrVector>& list = member.currentVertexList(vista);
  for (int i = 0; i < list.length(); ++i) all.push_back(list[i]);
  return all;
}

inline bool sameList(const std::vector<KrVector>& a, const std::vector<KrVector>& b, double tol = 1e-7) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (!sameElement(a[i], b[i], tol)) return false;
  return true;
}

/// Whether the list holds a line between two points, either way round.
inline bool holdsLine(const KrObject& member, double x0, double y0, double x1, double y1,
                      KrVectorFlag flag = KR_VF_ARESTA) {
  for (const KrVector& v : elementsOf(member))
    if (v.tipo() == flag && v.type() == KR_VT_LINHA && (runs(v, x0, y0, x1, y1) || runs(v, x1, y1, x0, y0)))
      return true;
  return false;
}

/// The notches that show in the current view, in bar coordinates, by way of the drawing at 1:1 along X from the origin.
inline KrObjectRecorteArray shown(const KrObject& member) {
  KrObjectRecorteArray list;
  member.getRecortesWCS(list);
  return list;
}

}  // namespace notches
