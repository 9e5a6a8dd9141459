#include "object/OutlineCrossings.h"

#include <algorithm>
#include <cmath>

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

// A contour with nodes on both sides of the line is crossed.
bool OutlineCrossings::any(const AcGePoint2d& from, const AcGePoint2d& to) {
  if (from.x == to.x && from.y == to.y) return false;
  const Sides sides(from, to);
  const int n = outline_.Qtd();
  bool left = false;
  bool right = false;
  bool arcs = false;
  for (int i = 0; i < n; ++i) {
    const NoGeratriz& no = outline_.GetNo(i);
    const double height = sides.heightOf(no.vertex);
    left = left || height > sides.tol;
    right = right || height < -sides.tol;
    if (left && right) return true;
    if (KrGeratriz::isContourEnd(no.bulge))
      left = right = false;
    else
      arcs = arcs || no.bulge != 0;
  }
  if (!arcs) return false;
  found_.setLogicalLength(0);
  crossOutline(AcGeLine2d(from, to), outline_, found_);
  return !found_.isEmpty();
}

bool OutlineCrossings::top(const AcGePoint2d& from, const AcGePoint2d& to, double& y) {
  const Top found = findTop(from, to);
  y = found.y;
  return found.any;
}

OutlineCrossings::Top OutlineCrossings::findTop(const AcGePoint2d& from, const AcGePoint2d& to) {
  for (int i = 0; i < keptCount_; ++i) {
    const Top& k = kept_[static_cast<std::size_t>(i)];
    if (k.from.x == from.x && k.from.y == from.y && k.to.x == to.x && k.to.y == to.y) return k;
  }
  Top fresh{from, to};
  if ((from.x != to.x || from.y != to.y) && !topBySides(fresh)) topByCrossings(fresh);
  kept_[static_cast<std::size_t>(next_)] = fresh;
  next_ = (next_ + 1) % kKept;
  keptCount_ = std::min(keptCount_ + 1, kKept);
  return fresh;
}

// False when the sides of the nodes don't decide.
bool OutlineCrossings::topBySides(Top& top) const {
  const Sides sides(top.from, top.to);
  const NoGeratriz* before = nullptr;
  double heightBefore = 0;
  const int n = outline_.Qtd();
  for (int i = 0; i < n; ++i) {
    const NoGeratriz& no = outline_.GetNo(i);
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
        if (!top.any || y > top.y) top.y = y;
        top.any = true;
      }
    }
    before = KrGeratriz::isContourEnd(no.bulge) ? nullptr : &no;
    heightBefore = height;
  }
  return true;
}

void OutlineCrossings::topByCrossings(Top& top) {
  found_.setLogicalLength(0);
  top.any = false;
  crossOutline(AcGeLine2d(top.from, top.to), outline_, found_);
  for (const AcGePoint2d& p : found_) {
    if (!top.any || p.y > top.y) top.y = p.y;
    top.any = true;
  }
}
