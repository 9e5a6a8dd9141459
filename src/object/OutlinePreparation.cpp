// The working copy of an outline that an elevation is made from.
//
// The generator decides by vertices: one between two straight edges is an edge of the bar, one that an arc touches is a
// tangent joint and no edge, and an arc has one apparent edge. A section as its class writes it doesn't always read so:
// it may hold edges of no length, begin in the middle of a side or of a bend, describe a circle by four arcs that turn
// with the section, or let an arc meet a face at an angle. So each closed contour is taken as a ring of edges and
// written anew:
//
//   1. edges of no length are dropped;
//   2. straight edges in one line and arcs of one circle are joined;
//   3. an arc is divided where its tangent is vertical, and between two such places, so that each piece has one end at
//   its
//      extreme in X or has none;
//   4. a joint of an arc at an angle is written as a node with a straight edge on both sides, of no length where need
//   be;
//   5. the ring starts at a corner, or at its leftmost point.
//
// Invariant: the point set of the contour doesn't change.

#include "object/OutlinePreparation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "object/ArcGeometry.h"

namespace {

using OutlineNode = ElevationOutline::Node;

/// Ends closer than this are one point, in millimetres; well below the drawing tolerance and above rounding.
constexpr double kSamePoint = 1e-7;

/// Sine of the angle up to which an arc runs on into its neighbour, 0.1 rad. Wide enough for the toes of rolled
/// channels, whose bulge is that of a full quarter on a flange that slopes by 1/6: they miss the tangent by 0.083 rad.
constexpr double kTangentJoint = 0.0998334166468282;

/// Sine of the angle up to which two straight edges are one.
constexpr double kStraightOn = 1e-5;

/// Two arcs are of one circle when their centres and radii differ by less than this share of the radius.
constexpr double kSameCircle = 1e-7;

/// Arcs joined into one turn through no more than this, in radians: three quarters.
constexpr double kLongestArc = 4.71238898038469;

/// From here on an ordinary bulge is none.
constexpr double kArcLimit = 1000.0;

constexpr double kPi = 3.141592653589793;

struct Direction {
  double x, y;
};

struct RingEdge {
  double x, y, z;        // where it starts
  double bulge;          // 0 when straight
  Direction start, end;  // along its tangents, of the chord's length
  bool sharp;            // whether it meets the edge before it at a corner
};

bool isArc(double bulge) {
  return bulge != 0 && std::fabs(bulge) < kArcLimit;
}

bool samePoint(double x0, double y0, double x1, double y1) {
  return std::fabs(x0 - x1) < kSamePoint && std::fabs(y0 - y1) < kSamePoint;
}

// Whether a turn from one direction to another is through more than the angle of that sine, which is below a quarter.
bool turns(const Direction& from, const Direction& to, double sine) {
  if (from.x * to.x + from.y * to.y <= 0) return true;
  const double cross = from.x * to.y - from.y * to.x;
  return cross * cross > sine * sine * (from.x * from.x + from.y * from.y) * (to.x * to.x + to.y * to.y);
}

class Ring {
 public:
  void clear() { edges_.clear(); }
  std::size_t size() const { return edges_.size(); }

  void add(double x, double y, double z, double bulge) {
    edges_.push_back({x, y, z, isArc(bulge) ? bulge : 0.0, {0, 0}, {0, 0}, false});
  }

  void simplify() {
    const bool circle = quarterCircle();
    measure();
    if (!circle) {
      const bool joined = joinNeighbours();
      if (divideArcs() || joined) measure();
    }
    for (std::size_t i = 0; i < edges_.size(); ++i) edges_[i].sharp = isSharp(previous(i), edges_[i]);
  }

  // Writes the ring as nodes, closed by a copy of the first that carries `endBulge`.
  void write(double endBulge, std::vector<OutlineNode>& out) const {
    const std::size_t n = edges_.size();
    const std::size_t start = startEdge();
    const std::size_t begin = out.size();
    for (std::size_t s = 0; s < n; ++s) {
      const std::size_t i = start + s < n ? start + s : start + s - n;
      const RingEdge& e = edges_[i];
      if (e.sharp) {
        // The corner itself; the node that ends an arriving arc stands before it, but for the first, whose stands at
        // the end.
        if (s != 0 && isArc(previous(i).bulge)) out.push_back({e.x, e.y, e.z, 0});
        if (isArc(e.bulge)) out.push_back({e.x, e.y, e.z, 0});
      }
      out.push_back({e.x, e.y, e.z, e.bulge});
    }
    const OutlineNode first = out[begin];
    if (edges_[start].sharp && isArc(previous(start).bulge)) out.push_back({first.x, first.y, first.z, 0});
    out.push_back({first.x, first.y, first.z, endBulge});
  }

 private:
  const RingEdge& next(std::size_t i) const { return edges_[i + 1 == edges_.size() ? 0 : i + 1]; }
  const RingEdge& previous(std::size_t i) const { return edges_[i == 0 ? edges_.size() - 1 : i - 1]; }

  // The tangents at both ends: the chord turned by half the sweep, whose cosine and sine the bulge gives.
  void measure() {
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      RingEdge& e = edges_[i];
      const RingEdge& q = next(i);
      const double dx = q.x - e.x;
      const double dy = q.y - e.y;
      if (!isArc(e.bulge)) {
        e.start = e.end = {dx, dy};
        continue;
      }
      const double t = e.bulge / ArcGeometry::kBulgeUnit;
      const double cosine = (1 - t * t) / (1 + t * t);
      const double sine = 2 * t / (1 + t * t);
      e.start = {dx * cosine + dy * sine, dy * cosine - dx * sine};
      e.end = {dx * cosine - dy * sine, dy * cosine + dx * sine};
    }
  }

  // Between two straight edges there is always a corner.
  static bool isSharp(const RingEdge& p, const RingEdge& e) {
    return (!isArc(e.bulge) && !isArc(p.bulge)) || turns(p.end, e.start, kTangentJoint);
  }

  static bool oneLine(const RingEdge& p, const RingEdge& e) {
    return !isArc(p.bulge) && !isArc(e.bulge) && !turns(p.end, e.start, kStraightOn);
  }

  static bool oneCircle(const RingEdge& p, const RingEdge& e, const RingEdge& q) {
    if (!isArc(p.bulge) || !isArc(e.bulge) || (p.bulge > 0) != (e.bulge > 0)) return false;
    const ArcGeometry a(p.x, p.y, e.x, e.y, p.bulge);
    const ArcGeometry b(e.x, e.y, q.x, q.y, e.bulge);
    const double tol = std::max(kSameCircle * a.radius, kSamePoint);
    return std::fabs(a.cx - b.cx) < tol && std::fabs(a.cy - b.cy) < tol && std::fabs(a.radius - b.radius) < tol;
  }

  // A ring of arcs of one circle is written as its four quarters, from the left; false for any other ring.
  bool quarterCircle() {
    for (std::size_t i = 0; i < edges_.size(); ++i)
      if (!oneCircle(previous(i), edges_[i], next(i))) return false;
    const RingEdge e = edges_.front();
    const RingEdge& q = next(0);
    const ArcGeometry g(e.x, e.y, q.x, q.y, e.bulge);
    const double sense = e.bulge > 0 ? 1.0 : -1.0;
    const double quarter = sense * ArcGeometry::kBulgeUnit * (std::sqrt(2.0) - 1);
    clear();
    add(g.cx - g.radius, g.cy, e.z, quarter);
    add(g.cx, g.cy - sense * g.radius, e.z, quarter);
    add(g.cx + g.radius, g.cy, e.z, quarter);
    add(g.cx, g.cy + sense * g.radius, e.z, quarter);
    return true;
  }

  // Joins edge i to the one before it where both are of one line or circle.
  bool joinNeighbours() {
    const std::size_t before = edges_.size();
    for (std::size_t i = 0; i < edges_.size() && edges_.size() > 2;) {
      RingEdge& p = edges_[i == 0 ? edges_.size() - 1 : i - 1];
      const RingEdge& e = edges_[i];
      const bool joins = oneLine(p, e) || (oneCircle(p, e, next(i)) && joinArc(p, e));
      if (!joins) {
        ++i;
        continue;
      }
      p.end = e.end;
      edges_.erase(edges_.begin() + static_cast<std::ptrdiff_t>(i));
    }
    return edges_.size() != before;
  }

  // Gives arc p the bulge of both together, unless that is all but a full turn.
  static bool joinArc(RingEdge& p, const RingEdge& e) {
    const double quarter = std::atan(p.bulge / ArcGeometry::kBulgeUnit) + std::atan(e.bulge / ArcGeometry::kBulgeUnit);
    if (std::fabs(4 * quarter) > kLongestArc) return false;
    p.bulge = ArcGeometry::kBulgeUnit * std::tan(quarter);
    return true;
  }

  // Whether an arc turns back in X between its ends.
  static bool turnsBack(const ArcGeometry& g) {
    const auto within = [&g](double x) {
      return g.holds(x, g.cy, -kSamePoint) && !samePoint(x, g.cy, g.ax, g.ay) &&
             !samePoint(x, g.cy, g.ax + g.dx, g.ay + g.dy);
    };
    // Half a turn or more from one extreme to the other is divided too.
    return within(g.cx + g.radius) || within(g.cx - g.radius) || std::fabs(g.t) > 1 - kSameCircle;
  }

  // Divides every arc where its tangent is vertical, and half-way between two such places.
  bool divideArcs() {
    bool any = false;
    for (std::size_t i = 0; i < edges_.size() && !any; ++i) any = isArc(edges_[i].bulge) && turnsBack(arcAt(i));
    if (!any) return false;
    scratch_.clear();
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      if (isArc(edges_[i].bulge) && turnsBack(arcAt(i)))
        divide(arcAt(i), edges_[i].z);
      else
        scratch_.push_back(edges_[i]);
    }
    edges_.swap(scratch_);
    return true;
  }

  ArcGeometry arcAt(std::size_t i) const {
    const RingEdge& e = edges_[i];
    const RingEdge& q = next(i);
    return {e.x, e.y, q.x, q.y, e.bulge};
  }

  void divide(const ArcGeometry& g, double z) {
    const double sweep = 4 * std::atan(g.t);
    const double start = std::atan2(g.ay - g.cy, g.ax - g.cx);
    const double slack = kSamePoint / g.radius;
    // Shares of the sweep at which the arc passes angle m * pi, its extremes in X, strictly within.
    double extremes[4] = {};
    int n = 0;
    for (int m = -3; m <= 3 && n < 3; ++m) {
      const double at = (m * kPi - start) / sweep;
      if (at * std::fabs(sweep) > slack && (1 - at) * std::fabs(sweep) > slack) extremes[n++] = at;
    }
    std::sort(extremes, extremes + n);
    extremes[n] = 1;
    double from = 0;
    AcGePoint2d at(g.ax, g.ay);
    const auto piece = [&](double to, bool extreme) {
      scratch_.push_back(
          {at.x, at.y, z, ArcGeometry::kBulgeUnit * std::tan(sweep * (to - from) / 4), {0, 0}, {0, 0}, false});
      const double angle = start + sweep * to;
      // An extreme lies on the horizontal through the centre, whatever the rounding.
      at = extreme ? AcGePoint2d(g.cx + (std::cos(angle) > 0 ? g.radius : -g.radius), g.cy)
                   : AcGePoint2d(g.cx + g.radius * std::cos(angle), g.cy + g.radius * std::sin(angle));
      from = to;
    };
    for (int c = 0; c <= n; ++c) {
      // A half turn leads from one extreme to the other: its middle parts what belongs to each.
      if ((extremes[c] - from) * std::fabs(sweep) > kPi - slack) piece((from + extremes[c]) / 2, false);
      piece(extremes[c], c < n);
    }
  }

  std::size_t startEdge() const {
    std::size_t leftmost = 0;
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      if (edges_[i].sharp) return i;
      if (edges_[i].x < edges_[leftmost].x) leftmost = i;
    }
    return leftmost;
  }

  std::vector<RingEdge> edges_;
  std::vector<RingEdge> scratch_;
};

// An open contour keeps its nodes but for the edges of no length.
void writeOpen(const KrGeratriz& outline, int from, int to, std::vector<OutlineNode>& out) {
  const std::size_t begin = out.size();
  for (int i = from; i <= to; ++i) {
    const NoGeratriz& n = outline.GetNo(i);
    if (out.size() > begin && samePoint(out.back().x, out.back().y, n.vertex.x, n.vertex.y))
      out.back().bulge = n.bulge;
    else
      out.push_back({n.vertex.x, n.vertex.y, n.vertex.z, n.bulge});
  }
}

void writeContour(const KrGeratriz& outline, int from, int to, std::vector<OutlineNode>& out) {
  static Ring ring;
  const NoGeratriz& head = outline.GetNo(from);
  const NoGeratriz& tail = outline.GetNo(to);
  const bool closed = to - from >= 2 && samePoint(head.vertex.x, head.vertex.y, tail.vertex.x, tail.vertex.y);
  if (!closed) return writeOpen(outline, from, to, out);
  ring.clear();
  for (int i = from; i < to; ++i) {
    const NoGeratriz& a = outline.GetNo(i);
    const NoGeratriz& b = outline.GetNo(i + 1);
    if (!samePoint(a.vertex.x, a.vertex.y, b.vertex.x, b.vertex.y))
      ring.add(a.vertex.x, a.vertex.y, a.vertex.z, a.bulge);
  }
  if (ring.size() < 2) return writeOpen(outline, from, to, out);
  ring.simplify();
  ring.write(ElevationOutline::isMarker(tail.bulge) ? tail.bulge : 0.0, out);
}

}  // namespace

void prepareOutline(const KrGeratriz& outline, std::vector<OutlineNode>& out) {
  const int qtd = outline.Qtd();
  int from = 0;
  for (int i = 0; i < qtd; ++i) {
    if (!ElevationOutline::isMarker(outline.GetBulge(i)) && i != qtd - 1) continue;
    writeContour(outline, from, i, out);
    from = i + 1;
  }
  if (outline.numNodes() == qtd) return out.push_back({0, 0, 0, 0});
  const NoGeratriz& origin = outline.GetNo(qtd);
  out.push_back({origin.vertex.x, origin.vertex.y, origin.vertex.z, origin.bulge});
}
