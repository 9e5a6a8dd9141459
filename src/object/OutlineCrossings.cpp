#include "object/OutlineCrossings.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "host/companion/companion.h"
#include "object/ArcGeometry.h"

namespace {

/// Heights over the unbounded line through two points, positive on its left; on it within the tolerance.
struct Sides {
  Sides(const AcGePoint2d& from, const AcGePoint2d& to)
      : base(from), along(AcGeLine2d(from, to).direction()), tol(AcGeContext::gTol.equalPoint()) {}

  double heightOf(const AcGeVector3d& v) const { return along.x * (v.y - base.y) - along.y * (v.x - base.x); }

  AcGePoint2d base;
  AcGeVector2d along;
  double tol;
};

/// No point of an arc is farther from its chord than half the chord times the tangent of a quarter of its angle.
double reachOfArc(const NoGeratriz& p, const NoGeratriz& q) {
  const double chord = std::fabs(q.vertex.x - p.vertex.x) + std::fabs(q.vertex.y - p.vertex.y);
  return std::fabs(p.bulge) / ArcGeometry::kBulgeUnit * chord / 2;
}

// The nodes of an outline one after the other, wherever they lie.
template <class Visit>
bool eachNode(const KrGeratriz& outline, Visit visit) {
  const int n = outline.Qtd();
  if (const NoGeratriz* nodes = outline.data(); nodes != nullptr) {
    for (const NoGeratriz* no = nodes; no != nodes + n; ++no)
      if (!visit(*no)) return false;
    return true;
  }
  for (int i = 0; i < n; ++i)
    if (!visit(outline.GetNo(i))) return false;
  return true;
}

}  // namespace

void crossOutline(const AcGeLinearEnt2d& line, const KrGeratriz& outline, AcArray<AcGePoint2d>& out) {
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  const int n = outline.Qtd();
  for (int i = 0; i < n; ++i) {
    const NoGeratriz& no = outline.GetNo(i);
    points.append(AcGePoint2d(no.vertex.x, no.vertex.y));
    // The last node of a contour belongs to it whatever its marker: without it the edge that closes a thickened line is
    // lost.
    if (!KrGeratriz::isContourEnd(no.bulge) && i != n - 1) {
      bulges.append(no.bulge / ArcGeometry::kBulgeUnit);
      continue;
    }
    bulges.append(0.0);
    intersectWith2dFence(line, points, bulges, out);
    points.setLogicalLength(0);
    bulges.setLogicalLength(0);
  }
}

bool OutlineCrossings::any(const AcGePoint2d& from, const AcGePoint2d& to) {
  return answer(from, to, [this](Answer& line) { line.any = crosses(line.from, line.to); }).any;
}

bool OutlineCrossings::top(const AcGePoint2d& from, const AcGePoint2d& to, double& y) {
  const Answer& found = answer(from, to, [this](Answer& line) {
    if (!topBySides(line)) topByCrossings(line);
  });
  y = found.top;
  return found.any;
}

template <class Find>
const OutlineCrossings::Answer& OutlineCrossings::answer(const AcGePoint2d& from, const AcGePoint2d& to, Find find) {
  const std::size_t kept = std::min(asked_, kKept);
  for (std::size_t i = 0; i < kept; ++i) {
    const Answer& k = kept_[i];
    if (k.from.x == from.x && k.from.y == from.y && k.to.x == to.x && k.to.y == to.y) return k;
  }
  Answer& fresh = kept_[asked_++ % kKept];
  fresh = {from, to};
  if (from.x != to.x || from.y != to.y) find(fresh);
  return fresh;
}

// A contour with nodes on both sides of the line is crossed.
bool OutlineCrossings::crosses(const AcGePoint2d& from, const AcGePoint2d& to) {
  const Sides sides(from, to);
  bool left = false;
  bool right = false;
  bool arcs = false;
  const bool apart = eachNode(outline_, [&](const NoGeratriz& no) {
    const double height = sides.heightOf(no.vertex);
    left = left || height > sides.tol;
    right = right || height < -sides.tol;
    if (left && right) return false;
    if (KrGeratriz::isContourEnd(no.bulge))
      left = right = false;
    else
      arcs = arcs || no.bulge != 0;
    return true;
  });
  if (!apart) return true;
  if (!arcs) return false;
  AcArray<AcGePoint2d> found;
  crossOutline(AcGeLine2d(from, to), outline_, found);
  return !found.isEmpty();
}

// False when the sides of the nodes don't decide.
bool OutlineCrossings::topBySides(Answer& line) const {
  const Sides sides(line.from, line.to);
  const NoGeratriz* before = nullptr;
  double heightBefore = 0;
  return eachNode(outline_, [&](const NoGeratriz& no) {
    const double height = sides.heightOf(no.vertex);
    if (std::fabs(height) <= sides.tol) return false;
    if (before != nullptr) {
      const bool crosses = (heightBefore > 0) != (height > 0);
      if (before->bulge != 0) {
        if (crosses || std::min(std::fabs(height), std::fabs(heightBefore)) <= reachOfArc(*before, no) + sides.tol)
          return false;
      } else if (crosses) {
        const double share = heightBefore / (heightBefore - height);
        const double y = before->vertex.y + (no.vertex.y - before->vertex.y) * share;
        if (!line.any || y > line.top) line.top = y;
        line.any = true;
      }
    }
    before = KrGeratriz::isContourEnd(no.bulge) ? nullptr : &no;
    heightBefore = height;
    return true;
  });
}

void OutlineCrossings::topByCrossings(Answer& line) {
  AcArray<AcGePoint2d> found;
  crossOutline(AcGeLine2d(line.from, line.to), outline_, found);
  line.any = false;
  for (const AcGePoint2d& p : found) {
    if (!line.any || p.y > line.top) line.top = p.y;
    line.any = true;
  }
}
