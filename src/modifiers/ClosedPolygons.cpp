#include "modifiers/ClosedPolygons.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// Whether a point that isn't on the polygon lies within it.
bool isWithin(const PolygonEdges& polygon, const AcGePoint2d& p) {
  if (!polygon.box().holds(p)) return false;
  const AcGePoint2d outside = polygon.box().high + (polygon.box().high - polygon.box().low);
  return polygon.cross(AcGeLineSeg2d(p, outside), nullptr) % 2 != 0;
}

PolygonBox boxOf(const AcGePoint2d& a, const AcGePoint2d& b) {
  return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
}

}  // namespace

bool ClosedPolygons::isTakenInside(const PolygonEdges& polygon, const AcGePoint2d& side) {
  return polygon.isClosed() && !polygon.holds(side) && isWithin(polygon, side);
}

void ClosedPolygons::add(PolygonEdges&& polygon, const AcGePoint2d& side) {
  all_.push_back({std::move(polygon), side});
}

void ClosedPolygons::arrange() {
  if (all_.empty()) return;
  PolygonBox whole = all_.front().edges.box();
  for (const One& one : all_) whole.add(one.edges.box());
  byX_ = whole.high.x - whole.low.x >= whole.high.y - whole.low.y;
  for (One& one : all_) one.low = along(one.edges.box().low);
  std::sort(all_.begin(), all_.end(), [](const One& a, const One& b) { return a.low < b.low; });
  double reach = along(all_.front().edges.box().high);
  for (One& one : all_) one.reach = reach = std::max(reach, along(one.edges.box().high));
}

template <class Visit>
void ClosedPolygons::forEachNear(const PolygonBox& box, Visit visit) const {
  const double from = along(box.low), to = along(box.high);
  auto one = std::lower_bound(all_.begin(), all_.end(), from, [](const One& o, double at) { return o.reach < at; });
  for (; one != all_.end() && one->low <= to; ++one) {
    if (one->edges.box().meets(box) && !visit(*one)) return;
  }
}

template <class Curve>
int ClosedPolygons::meetWithin(const PolygonBox& box, const Curve& curve, AcArray<AcGePoint2d>& out) const {
  int count = 0;
  forEachNear(box, [&](const One& one) {
    count += one.edges.meet(curve, out);
    return true;
  });
  return count;
}

int ClosedPolygons::meet(const AcGeLineSeg2d& segment, AcArray<AcGePoint2d>& out) const {
  return meetWithin(boxOf(segment.startPoint(), segment.endPoint()), segment, out);
}

int ClosedPolygons::meet(const AcGeCircArc2d& arc, AcArray<AcGePoint2d>& out) const {
  const AcGeVector2d all(arc.radius(), arc.radius());
  return meetWithin({arc.center() - all, arc.center() + all}, arc, out);
}

bool ClosedPolygons::takes(const AcGePoint2d& m) const {
  bool taken = false;
  forEachNear({m, m}, [&](const One& one) {
    taken = one.edges.holds(m) || m == one.side || one.edges.cross(AcGeLineSeg2d(m, one.side), nullptr) % 2 == 0;
    return !taken;
  });
  return taken;
}
