#include "host/companion/PolygonFence.h"

#include <algorithm>
#include <cmath>
#include <limits>

PolygonFence::PolygonFence(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>& out)
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

int PolygonFence::sideOf(double height) const {
  if (std::fabs(height) <= m_tol) return 0;
  return height > 0.0 ? 1 : -1;
}

void PolygonFence::begin(const AcGePoint2d& p) {
  step(p, heightOf(p));
}

bool PolygonFence::step(const AcGePoint2d& p, double height) {
  m_here = p;
  m_height = height;
  const int side = sideOf(height);
  if (side == 0) {
    (m_firstSide == 0 ? m_head : m_run).extend(p, placeOf(p));
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

void PolygonFence::straightTo(const AcGePoint2d& p) {
  const AcGePoint2d from = m_here;
  const double h0 = m_height;
  const double h1 = heightOf(p);
  if (step(p, h1)) cross(from + (p - from) * (h0 / (h0 - h1)));
}

void PolygonFence::arcTo(const AcGeCircArc2d& arc) {
  const double sense = arc.isClockWise() ? -1.0 : 1.0;
  const AcGeVector2d across = m_along.perpVector();
  const double centre = heightOf(arc.center());
  const double half = std::sqrt(std::max(0.0, (arc.radius() - centre) * (arc.radius() + centre)));
  double from = 0.0;
  const auto walkTo = [&](double to, const AcGePoint2d& p, double height) {
    // A piece between two places parallel to the line stays on one side of the centre.
    if (step(p, height)) {
      const AcGeVector2d middle = AcGeVector2d(arc.refVec()).rotateBy(sense * (from + to) / 2.0);
      cross(arc.center() + across * -centre + m_along * (middle.dotProduct(m_along) >= 0.0 ? half : -half));
    }
    from = to;
  };
  // The two places where the arc's circle runs parallel to the line, a half turn apart, in the order of the walk.
  const double top = AcGeVector2d(arc.refVec().dotProduct(across), sense * arc.refVec().crossProduct(across)).angle();
  const double first = top < kAcGePi ? top : top - kAcGePi;
  const double side = top < kAcGePi ? arc.radius() : -arc.radius();
  const double sweep = arc.endAng();
  if (first < sweep) walkTo(first, arc.center() + across * side, centre + side);
  if (first + kAcGePi < sweep) walkTo(first + kAcGePi, arc.center() - across * side, centre - side);
  walkTo(sweep, arc.endPoint(), heightOf(arc.endPoint()));
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
  if (at > m_low && at < m_high) m_out.append(p);
}

void PolygonFence::cross(const Run& run) {
  if (m_low >= m_high || run.high <= m_low || run.low >= m_high) return;
  const double at = placeOf(run.first);
  const double within = std::clamp(at, m_low, m_high);
  m_out.append(within == at ? run.first : m_base + m_along * within);
}
