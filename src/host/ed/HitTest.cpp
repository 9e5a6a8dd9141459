#include "host/ed/HitTest.h"

#include <cmath>

namespace {

// Arcs are tested as this many straight steps to a full turn: off the arc by 0.03 % of the radius.
constexpr double kStepsPerTurn = 128.0;

double turn(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool inBox(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& p) {
  return std::fmin(a.x, b.x) <= p.x && p.x <= std::fmax(a.x, b.x) && std::fmin(a.y, b.y) <= p.y &&
         p.y <= std::fmax(a.y, b.y);
}

/// Whether two segments have a point in common.
bool meet(const AcGePoint2d& a, const AcGePoint2d& b, const AcGePoint2d& c, const AcGePoint2d& d) {
  const double c1 = turn(a, b, c);
  const double d1 = turn(a, b, d);
  const double a1 = turn(c, d, a);
  const double b1 = turn(c, d, b);
  if (((c1 > 0.0 && d1 < 0.0) || (c1 < 0.0 && d1 > 0.0)) && ((a1 > 0.0 && b1 < 0.0) || (a1 < 0.0 && b1 > 0.0))) {
    return true;
  }
  return (c1 == 0.0 && inBox(a, b, c)) || (d1 == 0.0 && inBox(a, b, d)) || (a1 == 0.0 && inBox(c, d, a)) ||
         (b1 == 0.0 && inBox(c, d, b));
}

bool insidePolygon(const std::vector<AcGePoint2d>& polygon, const AcGePoint2d& p) {
  bool inside = false;
  for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
    const AcGePoint2d& a = polygon[i];
    const AcGePoint2d& b = polygon[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < (b.x - a.x) * (p.y - a.y) / (b.y - a.y) + a.x) inside = !inside;
  }
  return inside;
}

}  // namespace

namespace edhost {

HitTest HitTest::box(const AcGePoint3d& a, const AcGePoint3d& b) {
  return {{{a.x, a.y}, {b.x, a.y}, {b.x, b.y}, {a.x, b.y}}, true};
}

bool HitTest::isInside(const AcGePoint2d& p) const {
  return m_closed && !m_region.empty() && insidePolygon(m_region, p);
}

bool HitTest::crossesEdge(const AcGePoint2d& a, const AcGePoint2d& b) const {
  const std::size_t edges = m_closed ? m_region.size() : m_region.size() - 1;
  for (std::size_t i = 0; i < edges; ++i) {
    if (meet(a, b, m_region[i], m_region[(i + 1) % m_region.size()])) return true;
  }
  return false;
}

void HitTest::figure(const std::vector<AcGePoint3d>& points, bool closed, bool filled) {
  if (points.empty()) return;
  std::vector<AcGePoint2d> seen;
  for (AcGePoint3d p : points) {
    p.transformBy(modelToWorld());
    if (!m_somePoint) m_somePoint = p;
    seen.emplace_back(p.x, p.y);
  }
  m_drawn = true;
  if (m_region.empty()) return;
  bool touched = filled && insidePolygon(seen, m_region.front());
  const std::size_t steps = closed ? seen.size() : std::max<std::size_t>(seen.size() - 1, 1);
  for (std::size_t i = 0; i < steps; ++i) {
    const AcGePoint2d& a = seen[i];
    const AcGePoint2d& b = seen[(i + 1) % seen.size()];
    const bool crosses = crossesEdge(a, b);
    const bool inside = isInside(a);
    touched = touched || crosses || inside;
    m_leftOut = m_leftOut || crosses || !inside;
  }
  if (touched && !m_touched) m_marker = traits().marker;
  m_touched = m_touched || touched;
}

void HitTest::onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) {
  figure({vertices, vertices + count}, closed, closed && traits().fill == kAcGiFillAlways);
}

void HitTest::onArc(const gi::ArcCall& arc) {
  const int steps = std::max(1, int(std::ceil(std::fabs(arc.sweep) / kAcGeTwoPi * kStepsPerTurn)));
  std::vector<AcGePoint3d> points;
  for (int i = 0; i <= steps; ++i) {
    const double angle = arc.sweep * i / steps;
    points.push_back(arc.center + arc.u * std::cos(angle) + arc.v * std::sin(angle));
  }
  figure(points, false, false);
}

void HitTest::onText(const gi::TextCall& text) {
  AcGePoint2d low;
  AcGePoint2d high;
  text.style.extentsBox(text.text.c_str(), -1, Adesk::kFalse, text.raw, low, high);
  const auto corner = [&text](double x, double y) { return text.position + text.direction * x + text.up * y; };
  figure({corner(low.x, low.y), corner(high.x, low.y), corner(high.x, high.y), corner(low.x, high.y)}, true, true);
}

}  // namespace edhost
