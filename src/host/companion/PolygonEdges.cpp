#include "host/companion/PolygonEdges.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "host/companion/PolygonFence.h"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
/// Tolerances, and the rounding of a coordinate for each millimetre of it, that a box is wider than its edge.
constexpr double kTolerancesAround = 4.0;
constexpr double kRoundingAround = 1e-12;

double bulgeOf(const AcArray<double>& bulges, int i) {
  return i < bulges.length() ? bulges[i] : 0.0;
}

PolygonBox widened(const PolygonBox& box, double margin) {
  return {{box.low.x - margin, box.low.y - margin}, {box.high.x + margin, box.high.y + margin}};
}

PolygonBox boxOf(const AcGePoint2d& a, const AcGePoint2d& b) {
  return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
}

PolygonBox boxOf(const AcGeLinearEnt2d& line) {
  AcGePoint2d from, to;
  if (line.hasStartPoint(from) && line.hasEndPoint(to)) return boxOf(from, to);
  return {{-kInfinity, -kInfinity}, {kInfinity, kInfinity}};
}

PolygonBox boxOf(const AcGeCircArc2d& arc) {
  PolygonBox box;
  arc.boundBlock(box.low, box.high);
  return box;
}

/// Appends points, but none that was appended since the collector was made.
class DistinctPoints {
 public:
  explicit DistinctPoints(AcArray<AcGePoint2d>& points) : m_points(points), m_from(points.length()) {}

  void add(const AcGePoint2d& p) {
    for (int i = m_from; i < m_points.length(); ++i) {
      if (m_points[i] == p) return;
    }
    m_points.append(p);
  }
  int count() const { return m_points.length() - m_from; }

 private:
  AcArray<AcGePoint2d>& m_points;
  int m_from;
};

/// Two linear entities on one line share a stretch or nothing, and two arcs on one circle.
bool runAlong(const AcGeLinearEnt2d& l, const AcGeLineSeg2d& edge) {
  return l.isColinearTo(edge);
}
bool runAlong(const AcGeLinearEnt2d&, const AcGeCircArc2d&) {
  return false;
}
bool runAlong(const AcGeCircArc2d&, const AcGeLineSeg2d&) {
  return false;
}
bool runAlong(const AcGeCircArc2d& a, const AcGeCircArc2d& edge) {
  return a.center() == edge.center() && std::fabs(a.radius() - edge.radius()) <= AcGeContext::gTol.equalPoint();
}

int meetEdge(const AcGeLinearEnt2d& l, const AcGeLineSeg2d& edge, AcGePoint2d found[2]) {
  return l.intersectWith(edge, found[0]);
}
int meetEdge(const AcGeLinearEnt2d& l, const AcGeCircArc2d& edge, AcGePoint2d found[2]) {
  int count = 0;
  edge.intersectWith(l, count, found[0], found[1]);
  return count;
}
template <class Edge>
int meetEdge(const AcGeCircArc2d& a, const Edge& edge, AcGePoint2d found[2]) {
  int count = 0;
  a.intersectWith(edge, count, found[0], found[1]);
  return count;
}

/// How a straight edge lies to a curve, told cheaply where it matters little.
class Lie {
 public:
  Lie(const AcGeLinearEnt2d& line, double margin)
      : m_base(line.pointOnLine()), m_along(line.direction()), m_margin(margin) {}

  /// Looks at an edge. False when it lies on one side, further off than the margin.
  bool reaches(const AcGeLineSeg2d& edge) {
    const double h0 = m_along.crossProduct(edge.startPoint() - m_base);
    const double h1 = m_along.crossProduct(edge.endPoint() - m_base);
    m_rise = std::fabs(h1 - h0);
    return !((h0 > m_margin && h1 > m_margin) || (h0 < -m_margin && h1 < -m_margin));
  }
  /// Whether the edge looked at last may be parallel.
  bool mayRunAlong(const AcGeLineSeg2d& edge) const {
    const AcGeVector2d step = edge.endPoint() - edge.startPoint();
    return m_rise <= 2 * AcGeContext::gTol.equalVector() * (std::fabs(step.x) + std::fabs(step.y));
  }

 private:
  AcGePoint2d m_base;
  AcGeVector2d m_along;
  double m_margin;
  double m_rise = 0.0;
};
struct LieToArc {
  static bool reaches(const AcGeLineSeg2d&) { return true; }
  static bool mayRunAlong(const AcGeLineSeg2d&) { return false; }
};
Lie lieTo(const AcGeLinearEnt2d& line, double margin) {
  return {line, margin};
}
LieToArc lieTo(const AcGeCircArc2d&, double) {
  return {};
}

}  // namespace

void PolygonBox::add(const PolygonBox& other) {
  low.set(std::min(low.x, other.low.x), std::min(low.y, other.low.y));
  high.set(std::max(high.x, other.high.x), std::max(high.y, other.high.y));
}

void PolygonEdges::set(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges) {
  m_edges.clear();
  m_arcs.clear();
  m_box = {{kInfinity, kInfinity}, {-kInfinity, -kInfinity}};
  const int last = points.length() - 1;
  m_closed = last > 0 && points[0] == points[last];
  if (last < 1) return;
  m_start = points[0];
  m_edges.reserve(static_cast<std::size_t>(last));
  const double tolerance = AcGeContext::gTol.equalPoint();
  for (int i = 0; i < last; ++i) {
    const AcGePoint2d& from = points[i];
    const AcGePoint2d& to = points[i + 1];
    const double bulge = bulgeOf(bulges, i);
    Edge edge{boxOf(from, to), AcGeLineSeg2d(from, to), -1, from == to};
    if (!edge.isPoint && std::fabs(bulge) > tolerance) {
      edge.arc = static_cast<int>(m_arcs.size());
      m_arcs.emplace_back(from, to, bulge);
      edge.box = boxOf(m_arcs.back().curve);
    }
    m_box.add(edge.box);
    m_edges.push_back(edge);
  }
  const double reach = std::max({-m_box.low.x, -m_box.low.y, m_box.high.x, m_box.high.y});
  m_margin = kTolerancesAround * tolerance + kRoundingAround * reach;
  m_box = widened(m_box, m_margin);
  for (Edge& edge : m_edges) edge.box = widened(edge.box, m_margin);
}

bool PolygonEdges::holds(const AcGePoint2d& p) const {
  return std::any_of(m_edges.begin(), m_edges.end(), [&](const Edge& edge) {
    if (!edge.box.holds(p)) return false;
    return (edge.arc < 0 ? edge.segment.isOn(p) : m_arcs[static_cast<std::size_t>(edge.arc)].curve.isOn(p)) != 0;
  });
}

template <class Curve>
int PolygonEdges::meetEdges(const Curve& curve, const PolygonBox& reach, AcArray<AcGePoint2d>& out) const {
  DistinctPoints distinct(out);
  const auto addEnds = [&](const AcGeLineSeg2d& ends) {
    if (curve.isOn(ends.startPoint())) distinct.add(ends.startPoint());
    if (curve.isOn(ends.endPoint())) distinct.add(ends.endPoint());
  };
  const auto addMeetings = [&](const auto& shape) {
    AcGePoint2d found[2];
    const int count = meetEdge(curve, shape, found);
    for (int k = 0; k < count; ++k) distinct.add(found[k]);
  };
  auto lie = lieTo(curve, m_margin);
  for (const Edge& edge : m_edges) {
    if (!edge.box.meets(reach) || edge.isPoint) continue;
    if (edge.arc >= 0) {
      const AcGeCircArc2d& arc = m_arcs[static_cast<std::size_t>(edge.arc)].curve;
      runAlong(curve, arc) ? addEnds(edge.segment) : addMeetings(arc);
    } else if (lie.reaches(edge.segment)) {
      const bool along = lie.mayRunAlong(edge.segment) && runAlong(curve, edge.segment);
      along ? addEnds(edge.segment) : addMeetings(edge.segment);
    }
  }
  return distinct.count();
}

int PolygonEdges::meet(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>& out) const {
  const PolygonBox reach = boxOf(line);
  return m_box.meets(reach) ? meetEdges(line, reach, out) : 0;
}

int PolygonEdges::meet(const AcGeCircArc2d& arc, AcArray<AcGePoint2d>& out) const {
  const PolygonBox reach = boxOf(arc);
  return m_box.meets(reach) ? meetEdges(arc, reach, out) : 0;
}

int PolygonEdges::cross(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>* out) const {
  if (m_edges.empty() || line.stepLength() == 0.0) return 0;
  PolygonFence fence(line, out);
  fence.begin(m_start);
  for (const Edge& edge : m_edges) {
    if (edge.isPoint) continue;
    if (edge.arc < 0) {
      fence.straightTo(edge.segment.endPoint());
    } else {
      fence.arcTo(m_arcs[static_cast<std::size_t>(edge.arc)]);
    }
  }
  if (m_closed) fence.close();
  return fence.count();
}
