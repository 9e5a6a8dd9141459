#include "modifiers/CutTraces.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "object/ArcGeometry.h"

// The skew case in numbers. Let a be the place along the bar (a = -Z of the section), T the place in the section's
// plane, and a*A + B.T = c the plane with its normal towards the thrown-away side. Seen from the view, whose depth is
// the unit vector D of the section's plane, the normal is (A, B - (B.D) D): where its value over the steel left is
// largest the line touches. The steel left is { T in the section, (a, B.T/|B|) in the polygon that the family leaves }:
// along each side of that polygon a is linear in T, so that the value is linear too, and its largest stands at a
// vertex of the outline, at an arc's farthest point, or where the outline leaves the strip over that side.

namespace {

constexpr double kArcLimit = 1000.0;
/// How far before a bar the line of a cut lies that leaves nothing of it, in millimetres.
constexpr double kClearOfBar = 1.0;

AcGeVector2d inSection(const AcGeVector3d& v) {
  return {v.x, v.y};
}

/// Calls `use` with each edge of an outline: its ends, from the reference origin, and its bulge, 0 for a straight one.
template <class Use>
void forEachEdge(const KrGeratriz& outline, Use use) {
  const AcGeVector2d origin = inSection(outline.GetRefOrigin());
  for (int i = 0; i + 1 < outline.Qtd(); ++i) {
    const double bulge = outline.GetBulge(i);
    if (KrGeratriz::isContourEnd(bulge)) continue;
    const AcGeVector2d p = inSection(outline.GetVertex(i)) - origin;
    const AcGeVector2d q = inSection(outline.GetVertex(i + 1)) - origin;
    use(p, q, p == q || std::fabs(bulge) >= kArcLimit ? 0.0 : bulge);
  }
}

/// The largest value of a linear function over points that are offered one by one, of those within a strip.
class Largest {
 public:
  Largest(const AcGeVector2d& across, double low, double high, const AcGeVector2d& slope)
      : across_(across), low_(low), high_(high), slope_(slope) {}

  void straight(const AcGeVector2d& p, const AcGeVector2d& q) {
    offer(p);
    offer(q);
    const double tp = p.dotProduct(across_);
    const double tq = q.dotProduct(across_);
    for (const double limit : {low_, high_})
      if ((tp - limit) * (tq - limit) < 0) take(p + (q - p) * ((limit - tp) / (tq - tp)));
  }

  void arc(const AcGeVector2d& p, const AcGeVector2d& q, double bulge) {
    offer(p);
    offer(q);
    const ArcGeometry g(p.x, p.y, q.x, q.y, bulge);
    const AcGeVector2d centre(g.cx, g.cy);
    if (slope_.length() > 0) offerOn(g, centre + slope_.normal() * g.radius);
    const AcGeVector2d square = across_.perpVector();
    for (const double limit : {low_, high_}) {
      const double t = limit - centre.dotProduct(across_);
      const double half = g.radius * g.radius - t * t;
      if (half < 0) continue;
      const AcGeVector2d foot = centre + across_ * t;
      takeOn(g, foot + square * std::sqrt(half));
      takeOn(g, foot - square * std::sqrt(half));
    }
  }

  double value() const { return value_; }

 private:
  static bool holds(const ArcGeometry& g, const AcGeVector2d& p) {
    return g.holds(p.x, p.y, AcGeContext::gTol.equalPoint());
  }
  void offerOn(const ArcGeometry& g, const AcGeVector2d& p) {
    if (holds(g, p)) offer(p);
  }
  void takeOn(const ArcGeometry& g, const AcGeVector2d& p) {
    if (holds(g, p)) take(p);
  }
  void offer(const AcGeVector2d& p) {
    const double t = p.dotProduct(across_);
    const double tol = AcGeContext::gTol.equalPoint();
    if (t >= low_ - tol && t <= high_ + tol) take(p);
  }
  void take(const AcGeVector2d& p) { value_ = std::max(value_, p.dotProduct(slope_)); }

  AcGeVector2d across_;
  double low_;
  double high_;
  AcGeVector2d slope_;
  double value_ = -std::numeric_limits<double>::infinity();
};

}  // namespace

std::optional<CutTraces::Trace> CutTraces::of(const KrPlanoCorte& cuts, int i) {
  const NoPlano& cut = cuts.GetNo(i);
  // What a file tells as a plane may have no normal: it bounds nothing.
  if (cut.plane.normal().isZeroLength()) return std::nullopt;
  AcGePlane plane = cut.plane;
  AcGePoint3d side = cut.side;
  plane.transformBy(frame_);
  side.transformBy(frame_);
  if (plane.isPerpendicularTo(AcGePlane::kXYPlane)) {
    AcGeLine3d line;
    if (!plane.intersectWith(AcGePlane::kXYPlane, line)) return std::nullopt;
    return Trace{line.pointOnLine(), line.direction(), AcGePoint3d(side.x, side.y, 0)};
  }
  if (!skew_ || plane.isParallelTo(AcGePlane::kXYPlane)) return std::nullopt;
  return skewTrace(cuts, cut.plane, cut.side);
}

std::optional<CutTraces::Trace> CutTraces::skewTrace(const KrPlanoCorte& cuts, const AcGePlane& plane,
                                                     const AcGePoint3d& side) {
  const double depthOfSide = plane.signedDistanceTo(side);
  const AcGeVector3d normal = depthOfSide < 0 ? -plane.normal() : plane.normal();
  const AcGeVector2d transverse = inSection(normal);
  const Remains& left = remainsAcross(cuts, transverse.normal());

  // The normal as the view sees it: what it has of the depth goes.
  AcGeVector3d seen = frame_ * normal;
  seen.z = 0;
  const AcGeVector3d inFrame = AcGeMatrix3d(frame_).invert() * seen;
  double value = -std::numeric_limits<double>::infinity();
  for (std::size_t k = 0; k < left.polygon.size(); ++k) {
    const Spot& from = left.polygon[k];
    const Spot& to = left.polygon[(k + 1) % left.polygon.size()];
    value = std::max(value, farthest(left.across, from, to, -normal.z, inSection(inFrame)));
  }
  // Where the family leaves nothing the line lies before all of the bar.
  if (!std::isfinite(value)) value = leastOfBar(-normal.z, inSection(inFrame)) - kClearOfBar;

  Trace trace;
  const AcGePoint3d base = frame_ * AcGePoint3d::kOrigin;
  trace.point = base + seen * (value / seen.lengthSqrd());
  trace.point.z = 0;
  trace.direction = seen.crossProduct(AcGeVector3d::kZAxis).normal();
  // The side point keeps its distance: the line has moved from the plane to the silhouette.
  AcGePoint3d seenSide = frame_ * side;
  seenSide.z = 0;
  const AcGePoint3d foot = AcGeLine3d(trace.point, trace.direction).closestPointTo(seenSide);
  trace.side = foot + seen.normal() * std::fabs(depthOfSide);
  return trace;
}

// The smallest value over the whole bar.
double CutTraces::leastOfBar(double along, const AcGeVector2d& lateral) const {
  double low = 0;
  double high = 0;
  if (!lateral.isZeroLength()) extentAcross(lateral.normal(), low, high);
  return std::min(0.0, along * length_) + low * lateral.length();
}

// The largest value over the strip of the outline that one side of the polygon spans.
double CutTraces::farthest(const AcGeVector2d& across, const Spot& from, const Spot& to, double along,
                           const AcGeVector2d& lateral) const {
  const double span = to.across - from.across;
  // A side across the bar's direction has its ends in the sides next to it.
  if (std::fabs(span) <= AcGeContext::gTol.equalPoint()) return -std::numeric_limits<double>::infinity();
  const double slope = (to.along - from.along) / span;
  const double fixed = along * (from.along - slope * from.across);
  Largest largest(across, std::min(from.across, to.across), std::max(from.across, to.across),
                  across * (along * slope) + lateral);
  forEachEdge(outline_, [&](const AcGeVector2d& p, const AcGeVector2d& q, double bulge) {
    bulge == 0 ? largest.straight(p, q) : largest.arc(p, q, bulge);
  });
  return fixed + largest.value();
}

const CutTraces::Remains& CutTraces::remainsAcross(const KrPlanoCorte& cuts, const AcGeVector2d& across) {
  for (const Remains& known : remains_)
    if (known.across.isParallelTo(across)) return known;

  Remains& fresh = remains_.emplace_back();
  fresh.across = across;
  double low = 0;
  double high = 0;
  extentAcross(across, low, high);
  fresh.polygon = {{0, low}, {length_, low}, {length_, high}, {0, high}};
  for (int i = 0; i < cuts.Qtd() && !fresh.polygon.empty(); ++i) {
    const NoPlano& cut = cuts.GetNo(i);
    AcGeVector3d n = cut.plane.normal();
    if (std::fabs(inSection(n).crossProduct(across)) > AcGeContext::gTol.equalVector()) continue;
    if (cut.plane.signedDistanceTo(cut.side) < 0) n.negate();
    clip(fresh.polygon, -n.z, inSection(n).dotProduct(across), n.dotProduct(cut.plane.pointOnPlane().asVector()));
  }
  return fresh;
}

// Keeps of a convex polygon where along * a + across * t is at most the limit.
void CutTraces::clip(std::vector<Spot>& polygon, double along, double across, double limit) {
  const auto past = [&](const Spot& s) { return along * s.along + across * s.across - limit; };
  const double tol = AcGeContext::gTol.equalPoint();
  if (std::all_of(polygon.begin(), polygon.end(), [&](const Spot& s) { return past(s) <= tol; })) return;
  clipped_.clear();
  for (std::size_t k = 0; k < polygon.size(); ++k) {
    const Spot& s = polygon[k];
    const Spot& e = polygon[(k + 1) % polygon.size()];
    const double ds = past(s);
    const double de = past(e);
    if (ds <= 0) clipped_.push_back(s);
    if ((ds < 0 && de > 0) || (ds > 0 && de < 0)) {
      const double f = ds / (ds - de);
      clipped_.push_back({s.along + f * (e.along - s.along), s.across + f * (e.across - s.across)});
    }
  }
  polygon = clipped_;
}

void CutTraces::extentAcross(const AcGeVector2d& across, double& low, double& high) const {
  const double all = std::numeric_limits<double>::infinity();
  Largest most(across, -all, all, across);
  Largest least(across, -all, all, -across);
  forEachEdge(outline_, [&](const AcGeVector2d& p, const AcGeVector2d& q, double bulge) {
    for (Largest* extreme : {&most, &least}) bulge == 0 ? extreme->straight(p, q) : extreme->arc(p, q, bulge);
  });
  low = -least.value();
  high = most.value();
}
