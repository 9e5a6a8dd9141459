#include "host/companion/PolygonFence.h"

#include <limits>

PolygonFence::PolygonFence(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>* out)
    : m_out(out),
      m_base(line.pointOnLine()),
      m_along(line.direction()),
      m_low(-std::numeric_limits<double>::infinity()),
      m_high(std::numeric_limits<double>::infinity()),
      m_tol(AcGeContext::gTol.equalPoint()) {
  AcGePoint2d end;
  if (line.hasStartPoint(end)) m_low = placeOf(end) + m_tol;
  if (line.hasEndPoint(end)) m_high = placeOf(end) - m_tol;
}

void PolygonFence::Run::extend(const AcGePoint2d& p, double at) {
  if (!any) {
    any = true;
    first = p;
    low = high = at;
    return;
  }
  low = std::min(low, at);
  high = std::max(high, at);
}

void PolygonFence::Run::extend(const Run& other) {
  if (!other.any) return;
  extend(other.first, other.low);
  extend(other.first, other.high);
}

bool PolygonFence::change(int side) {
  m_settled = side;
  if (side == 0) {
    (m_firstSide == 0 ? m_head : m_run).extend(m_here, placeOf(m_here));
    return false;
  }
  const int before = m_side;
  m_side = side;
  if (m_firstSide == 0) m_firstSide = side;
  const Run run = m_run;
  m_run = Run();
  if (before == 0 || before == side) return false;
  if (run.any) cross(run);
  return !run.any;
}

void PolygonFence::turnTo(const AcGePoint2d& p, double height) {
  const AcGePoint2d from = m_here;
  const double h0 = m_height;
  if (step(p, height)) cross(from + (p - from) * (h0 / (h0 - height)));
}

void PolygonFence::turnAlong(const PolygonArc& arc, double height, const AcGePoint2d& end) {
  const AcGePoint2d centre = arc.curve.center();
  const double radius = arc.curve.radius();
  const AcGeVector2d across = m_along.perpVector();
  const auto walkTo = [&](const AcGePoint2d& p, double to) {
    const bool rises = to > m_height;
    if (!step(p, to)) return;
    // Between two places parallel to the line an arc rises on one side of its centre and falls on the other.
    const double half = std::sqrt(std::max(0.0, (radius - height) * (radius + height)));
    cross(centre + across * -height + m_along * (rises == (arc.sense > 0.0) ? half : -half));
  };
  if (std::fabs(height) <= radius + m_tol) {
    // The two places where the arc's circle runs parallel to the line, a half turn apart, in the order of the walk.
    const double ahead = arc.sense * arc.toStart.crossProduct(across);
    const bool up = ahead > 0.0 || (ahead == 0.0 && arc.toStart.dotProduct(across) > 0.0);
    const double first = up ? radius : -radius;
    if (arc.passes(up ? across : -across, true)) walkTo(centre + across * first, height + first);
    if (arc.passes(up ? -across : across, false)) walkTo(centre - across * first, height - first);
  }
  walkTo(end, heightOf(end));
}

void PolygonFence::close() {
  if (m_side == m_firstSide) return;
  Run seam = m_run;
  seam.extend(m_head);
  if (seam.any) {
    cross(seam);
  } else {
    cross(m_here);
  }
}

void PolygonFence::cross(const AcGePoint2d& p) {
  const double at = placeOf(p);
  if (at > m_low && at < m_high) add(p);
}

void PolygonFence::cross(const Run& run) {
  if (m_low >= m_high || run.high <= m_low || run.low >= m_high) return;
  const double at = placeOf(run.first);
  const double within = std::clamp(at, m_low, m_high);
  add(within == at ? run.first : m_base + m_along * within);
}
