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

using Node = ElevationOutline::Node;

constexpr double kPi = 3.141592653589793;

/// Ends closer than this are one point, in millimetres; well below the drawing tolerance and above rounding.
constexpr double kSamePoint = 1e-7;

/// Up to this angle (radians) an arc runs on into its neighbour. Wide enough for the toes of rolled channels, whose
/// bulge is that of a full quarter on a flange that slopes by 1/6: they miss the tangent by 0.083.
constexpr double kTangentJoint = 0.1;

/// Up to this angle (radians) two straight edges are one.
constexpr double kStraightOn = 1e-5;

/// Two arcs are of one circle when their centres and radii differ by less than this share of the radius.
constexpr double kSameCircle = 1e-7;

/// From here on an ordinary bulge is none.
constexpr double kArcLimit = 1000.0;

struct RingEdge {
  double x, y, z;  // where it starts
  double bulge;    // 0 when straight
  double in, out;  // direction of the tangent at its start and at its end
};

bool isArc(double bulge) {
  return bulge != 0 && std::fabs(bulge) < kArcLimit;
}

bool samePoint(double x0, double y0, double x1, double y1) {
  return std::fabs(x0 - x1) < kSamePoint && std::fabs(y0 - y1) < kSamePoint;
}

class Ring {
 public:
  void clear() { edges_.clear(); }
  bool empty() const { return edges_.empty(); }
  std::size_t size() const { return edges_.size(); }

  void add(double x, double y, double z, double bulge) {
    edges_.push_back({x, y, z, isArc(bulge) ? bulge : 0.0, 0, 0});
  }

  void simplify() {
    if (quarterCircle()) return measure();
    measure();
    joinNeighbours();
    divideArcs();
    measure();
  }

  // Writes the ring as nodes, closed by a copy of the first that carries `endBulge`.
  void write(double endBulge, std::vector<Node>& out) const {
    const std::size_t n = edges_.size();
    const std::size_t start = startEdge();
    const std::size_t begin = out.size();
    const bool sharpStart = isSharp(start);
    for (std::size_t s = 0; s < n; ++s) {
      const std::size_t i = (start + s) % n;
      const RingEdge& e = edges_[i];
      if (isSharp(i)) {
        // The corner itself; the node that ends an arriving arc stands before it, but for the first, whose stands at
        // the end.
        if (s != 0 && isArc(previous(i).bulge)) out.push_back({e.x, e.y, e.z, 0});
        if (isArc(e.bulge)) out.push_back({e.x, e.y, e.z, 0});
      }
      out.push_back({e.x, e.y, e.z, e.bulge});
    }
    const Node first = out[begin];
    if (sharpStart && isArc(previous(start).bulge)) out.push_back({first.x, first.y, first.z, 0});
    out.push_back({first.x, first.y, first.z, endBulge});
  }

 private:
  const RingEdge& next(std::size_t i) const { return edges_[i + 1 == edges_.size() ? 0 : i + 1]; }
  const RingEdge& previous(std::size_t i) const { return edges_[i == 0 ? edges_.size() - 1 : i - 1]; }

  void measure() {
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      RingEdge& e = edges_[i];
      const RingEdge& q = next(i);
      const double chord = std::atan2(q.y - e.y, q.x - e.x);
      const double half = isArc(e.bulge) ? 2 * std::atan(e.bulge / ArcGeometry::kBulgeUnit) : 0;
      e.in = chord - half;
      e.out = chord + half;
    }
  }

  // Whether the joint at the start of edge i is a corner: between two straight edges always.
  bool isSharp(std::size_t i) const {
    const RingEdge& e = edges_[i];
    const RingEdge& p = previous(i);
    if (!isArc(e.bulge) && !isArc(p.bulge)) return true;
    return std::fabs(std::remainder(e.in - p.out, 2 * kPi)) > kTangentJoint;
  }

  bool oneLine(const RingEdge& p, const RingEdge& e) const {
    return !isArc(p.bulge) && !isArc(e.bulge) && std::fabs(std::remainder(e.in - p.out, 2 * kPi)) < kStraightOn;
  }

  bool oneCircle(const RingEdge& p, const RingEdge& e, const RingEdge& q) const {
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
    const double quarter = sense * ArcGeometry::kBulgeUnit * std::tan(kPi / 8);
    edges_.clear();
    edges_.push_back({g.cx - g.radius, g.cy, e.z, quarter, 0, 0});
    edges_.push_back({g.cx, g.cy - sense * g.radius, e.z, quarter, 0, 0});
    edges_.push_back({g.cx + g.radius, g.cy, e.z, quarter, 0, 0});
    edges_.push_back({g.cx, g.cy + sense * g.radius, e.z, quarter, 0, 0});
    return true;
  }

  // Joins edge i to the one before it where both are of one line or circle.
  void joinNeighbours() {
    for (std::size_t i = 0; i < edges_.size() && edges_.size() > 2;) {
      const std::size_t p = i == 0 ? edges_.size() - 1 : i - 1;
      if (oneLine(edges_[p], edges_[i])) {
        edges_[p].out = edges_[i].out;
        edges_.erase(edges_.begin() + static_cast<std::ptrdiff_t>(i));
        continue;
      }
      if (oneCircle(edges_[p], edges_[i], next(i)) && joinedBulge(p, i)) {
        edges_.erase(edges_.begin() + static_cast<std::ptrdiff_t>(i));
        continue;
      }
      ++i;
    }
  }

  // Gives edge p the bulge of both arcs together, unless that is all but a full turn.
  bool joinedBulge(std::size_t p, std::size_t i) {
    const double sweep = 4 * (std::atan(edges_[p].bulge / ArcGeometry::kBulgeUnit) +
                              std::atan(edges_[i].bulge / ArcGeometry::kBulgeUnit));
    const double bulge = ArcGeometry::kBulgeUnit * std::tan(sweep / 4);
    if (std::fabs(sweep) > 1.5 * kPi) return false;
    edges_[p].bulge = bulge;
    edges_[p].out = edges_[i].out;
    return true;
  }

  // Divides every arc where its tangent is vertical, and half-way between two such places.
  void divideArcs() {
    bool any = false;
    for (const RingEdge& e : edges_) any = any || isArc(e.bulge);
    if (!any) return;
    scratch_.clear();
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      const RingEdge& e = edges_[i];
      if (!isArc(e.bulge)) {
        scratch_.push_back(e);
        continue;
      }
      divide(e, next(i));
    }
    edges_.swap(scratch_);
  }

  void divide(const RingEdge& e, const RingEdge& q) {
    const ArcGeometry g(e.x, e.y, q.x, q.y, e.bulge);
    const double sweep = 4 * std::atan(g.t);
    const double start = std::atan2(e.y - g.cy, e.x - g.cx);
    // Share of the sweep at which the arc passes angle m * pi, its extremes in X, strictly within.
    double cuts[5];
    int n = 0;
    const double slack = kSamePoint / g.radius;
    for (int m = -3; m <= 3 && n < 3; ++m) {
      const double at = (m * kPi - start) / sweep;
      if (at * std::fabs(sweep) > slack && (1 - at) * std::fabs(sweep) > slack) cuts[n++] = at;
    }
    std::sort(cuts, cuts + n);
    // Between two extremes lies a half turn, and from an extreme to an end of the arc that is an extreme itself too.
    double all[12];
    int count = 0;
    double last = 0;
    for (int c = 0; c <= n; ++c) {
      const double to = c < n ? cuts[c] : 1.0;
      if ((to - last) * std::fabs(sweep) > kPi - slack) all[count++] = (last + to) / 2;
      if (c < n) all[count++] = to;
      last = to;
    }
    double from = 0;
    double x = e.x;
    double y = e.y;
    for (int c = 0; c <= count; ++c) {
      const double to = c < count ? all[c] : 1.0;
      scratch_.push_back({x, y, e.z, ArcGeometry::kBulgeUnit * std::tan(sweep * (to - from) / 4), 0, 0});
      if (c == count) break;
      const double angle = start + sweep * to;
      const double sine = std::sin(angle);
      // At an extreme the point lies on the horizontal through the centre, whatever the rounding.
      const bool extreme = std::fabs(sine) < 1e-9;
      x = g.cx + g.radius * (extreme ? (std::cos(angle) > 0 ? 1.0 : -1.0) : std::cos(angle));
      y = g.cy + (extreme ? 0.0 : g.radius * sine);
      from = to;
    }
  }

  std::size_t startEdge() const {
    std::size_t leftmost = 0;
    for (std::size_t i = 0; i < edges_.size(); ++i) {
      if (isSharp(i)) return i;
      if (edges_[i].x < edges_[leftmost].x) leftmost = i;
    }
    return leftmost;
  }

  std::vector<RingEdge> edges_;
  std::vector<RingEdge> scratch_;
};

// An open contour keeps its nodes but for the edges of no length.
void writeOpen(const std::vector<Node>& contour, std::vector<Node>& out) {
  const std::size_t begin = out.size();
  for (const Node& n : contour) {
    const bool repeats = out.size() > begin && samePoint(out.back().x, out.back().y, n.x, n.y);
    if (repeats)
      out.back().bulge = n.bulge;
    else
      out.push_back(n);
  }
}

void writeContour(const std::vector<Node>& contour, Ring& ring, std::vector<Node>& out) {
  if (contour.empty()) return;
  const Node& head = contour.front();
  const Node& tail = contour.back();
  if (contour.size() < 3 || !samePoint(head.x, head.y, tail.x, tail.y)) return writeOpen(contour, out);
  ring.clear();
  for (std::size_t i = 0; i + 1 < contour.size(); ++i) {
    const Node& a = contour[i];
    const Node& b = contour[i + 1];
    if (!samePoint(a.x, a.y, b.x, b.y)) ring.add(a.x, a.y, a.z, a.bulge);
  }
  if (ring.size() < 2) return writeOpen(contour, out);
  ring.simplify();
  ring.write(ElevationOutline::isMarker(tail.bulge) ? tail.bulge : 0.0, out);
}

}  // namespace

void prepareOutline(const KrGeratriz& outline, std::vector<Node>& out) {
  static std::vector<Node> contour;
  static Ring ring;
  contour.clear();
  const int qtd = outline.Qtd();
  for (int i = 0; i < outline.numNodes(); ++i) {
    const NoGeratriz& no = outline.GetNo(i);
    const Node n{no.vertex.x, no.vertex.y, no.vertex.z, no.bulge};
    if (i == qtd) {
      writeContour(contour, ring, out);
      contour.clear();
      out.push_back(n);
      return;
    }
    contour.push_back(n);
    if (!ElevationOutline::isMarker(n.bulge)) continue;
    writeContour(contour, ring, out);
    contour.clear();
  }
  writeContour(contour, ring, out);
  out.push_back({0, 0, 0, 0});
}
