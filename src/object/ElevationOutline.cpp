#include "object/ElevationOutline.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "object/ArcGeometry.h"
#include "object/KrTypes.h"
#include "object/OutlinePreparation.h"

namespace {

/// Bulges from here on are codes and no arcs, for the tests that tell arcs by it.
constexpr double kBulgeCode = 5000.0;

bool isRealArc(double bulge) {
  return bulge != 0 && std::fabs(bulge) < kBulgeCode;
}

}  // namespace

// The facts and arcs of the outline before are left: `finish` writes them over.
void ElevationOutline::clear() {
  nodes_.clear();
  limits_.clear();
  qtd_ = 0;
  prepared_ = false;
  height_ = 0;
}

void ElevationOutline::assign(const KrGeratriz& outline) {
  clear();
  qtd_ = outline.Qtd();
  nodes_.reserve(static_cast<std::size_t>(qtd_) + 1);
  for (int i = 0; i < outline.numNodes(); ++i) {
    const NoGeratriz& no = outline.GetNo(i);
    nodes_.push_back({no.vertex.x, no.vertex.y, no.vertex.z, no.bulge});
  }
  finish();
}

void ElevationOutline::assignPrepared(const KrGeratriz& outline) {
  if (prepared_ && isSource(outline)) return;
  clear();
  prepareOutline(outline, nodes_);
  qtd_ = static_cast<int>(nodes_.size()) - 1;
  prepared_ = true;
  finish();
  sourceQtd_ = outline.Qtd();
  sourceTol_ = AcGeContext::gTol.equalPoint();
  source_.clear();
  for (int i = 0; i < outline.numNodes(); ++i) source_.push_back(outline.GetNo(i));
}

// To the last bit: what looks alike may still be prepared differently.
bool ElevationOutline::isSource(const KrGeratriz& outline) const {
  static_assert(sizeof(NoGeratriz) == 4 * sizeof(double), "compared as bytes");
  const NoGeratriz* nodes = outline.data();
  return nodes != nullptr && outline.numNodes() == static_cast<int>(source_.size()) && outline.Qtd() == sourceQtd_ &&
         AcGeContext::gTol.equalPoint() == sourceTol_ &&
         std::memcmp(nodes, source_.data(), source_.size() * sizeof(NoGeratriz)) == 0;
}

void ElevationOutline::finish() {
  const std::size_t n = static_cast<std::size_t>(qtd_);
  facts_.resize(n);
  arcs_.resize(n);
  int from = 0;
  bool arriving = false;
  for (int i = 0; i < qtd_; ++i) {
    const bool arc = isRealArc(node(i).bulge);
    Facts& f = facts_[static_cast<std::size_t>(i)];
    f.contour = static_cast<int>(limits_.size());
    f.touchesArc = f.touchesArcWrapped = arc || arriving;
    arcs_[static_cast<std::size_t>(i)].known = false;
    arriving = arc;
    if (!isMarker(node(i).bulge) && i != qtd_ - 1) continue;
    // The first node's previous edge is the last of its contour.
    if (i > from && isRealArc(node(i - 1).bulge)) facts_[static_cast<std::size_t>(from)].touchesArcWrapped = true;
    limits_.push_back({from, i});
    from = i + 1;
  }
  if (nodes_.empty()) return;
  double low = nodes_.front().y;
  double high = low;
  for (const Node& p : nodes_) {
    low = std::min(low, p.y);
    high = std::max(high, p.y);
  }
  height_ = 2 * (high - low);
}

const ElevationOutline::Arc& ElevationOutline::arc(int i) const {
  Arc& a = arcs_[static_cast<std::size_t>(i)];
  if (a.known) return a;
  a.known = true;
  a.isArc = false;
  a.edge.isEdge = false;
  const Node& p = node(i);
  const Node& q = node(i == last(i) ? first(i) : i + 1);
  const double tol = AcGeContext::gTol.equalPoint();
  if (std::fabs(p.bulge) < tol || p.bulge >= kBulgeCode) return a;
  const double dx = q.x - p.x;
  const double dy = q.y - p.y;
  if (dx * dx + dy * dy <= tol * tol) return a;
  const ArcGeometry g(p.x, p.y, q.x, q.y, p.bulge);
  a.isArc = true;
  a.cx = g.cx;
  a.cy = g.cy;
  a.radius = g.radius;
  if (g.holds(g.cx + g.radius, g.cy, tol)) {
    a.edge = {g.cx + g.radius, g.cy, true};
  } else if (g.holds(g.cx - g.radius, g.cy, tol)) {
    a.edge = {g.cx - g.radius, g.cy, true};
  } else if (g.tangentsCross(a.edge.x, a.edge.y)) {
    a.edge.isEdge = true;
  }
  return a;
}

const ElevationOutline::Edge& ElevationOutline::edgeOfArc(int i) const {
  return arc(i).edge;
}

ElevationOutline::Edge ElevationOutline::apparentPoint(int i) const {
  const Edge& e = edgeOfArc(i);
  if (e.isEdge) return e;
  return {node(i).x, node(i).y, false};
}

// The neighbours of a vertex whose arc has no edge of its own tell whether the contour turns back over it. The
// comparison of the vertex's Y with the Y of a difference vector is required as it stands.
bool ElevationOutline::isAcute(int k, double yk) const {
  const int from = first(k);
  const int to = last(k);
  const Node& p = node(k == from ? std::max(to - 1, from) : k - 1);
  const Node& q = node(k == to ? std::min(from + 1, to) : k + 1);
  const double d1x = p.x - node(k).x;
  const double d1y = p.y - node(k).y;
  const double d2x = q.x - node(k).x;
  const double d2y = q.y - node(k).y;
  // An edge of no length stands only at a corner: the angle between it and the other edge counts as none.
  if ((d1x == 0 && d1y == 0) || (d2x == 0 && d2y == 0)) return true;
  if (d1x * d2x + d1y * d2y > 0) return true;
  if (std::fabs(d1x) <= kDrawingTolerance && yk > d1y) return true;
  return std::fabs(d2x) <= kDrawingTolerance && yk > d2y;
}

// Whether node i stands for an edge of the bar over this X. A joint at which an arc runs on into its neighbour doesn't:
// a ray that meets the contour there passes through metal as anywhere else.
bool ElevationOutline::isEdgeAt(int i, double x) const {
  if (std::fabs(x - node(i).x) > kDrawingTolerance) return false;
  if (!touchesArc(i, true)) return true;
  const int before = i == first(i) ? std::max(last(i) - 1, i) : i - 1;
  for (const int a : {i, before})
    if (edgeOfArc(a).isEdge && std::fabs(x - edgeOfArc(a).x) <= kDrawingTolerance) return true;
  return false;
}

// Where the ray that rises from (sx, sy) to ty meets edge i, which ends at node j.
bool ElevationOutline::crossing(int i, int j, int k, double sx, double sy, double ty, double& y, bool& own) const {
  const double tol = AcGeContext::gTol.equalPoint();
  const Node& a = node(i);
  const Node& b = node(j);
  if (a.bulge == 0) {
    if (sx < std::min(a.x, b.x) - tol || sx > std::max(a.x, b.x) + tol) return false;
    const double dx = b.x - a.x;
    if (std::fabs(dx) <= tol) return false;
    y = a.y + (b.y - a.y) * ((sx - a.x) / dx);
    return y >= sy - tol && y <= ty + tol;
  }
  const Arc& g = arc(i);
  if (!g.isArc) return false;
  const double dx = sx - g.cx;
  if (std::fabs(dx) > g.radius + tol) return false;
  own = i == k || j == k;
  const double h = std::sqrt(std::max(0.0, g.radius * g.radius - dx * dx));
  const ArcGeometry whole(a.x, a.y, b.x, b.y, a.bulge);
  for (const double at : {g.cy - h, g.cy + h}) {
    if (at < sy - tol || at > ty + tol || !whole.holds(sx, at, tol)) continue;
    y = at;
    return true;
  }
  return false;
}

bool ElevationOutline::visibleFromAbove(int k) const {
  const double gtol = AcGeContext::gTol.equalPoint();
  const Edge p = std::fabs(node(k).bulge) >= gtol ? apparentPoint(k) : Edge{node(k).x, node(k).y, false};

  // Of all vertices over this X the highest stands for the line.
  double ytop = p.y;
  for (int i = 0; i <= qtd_ - 2; ++i) {
    const Node& ni = node(i);
    if (ni.bulge == 0) {
      if (std::fabs(ni.x - p.x) > kDrawingTolerance || ni.y <= ytop || touchesArc(i, true)) continue;
      k = i;
      ytop = ni.y;
      continue;
    }
    if (ni.bulge >= kBulgeCode) continue;
    const Edge q = apparentPoint(i);
    if (std::fabs(q.x - p.x) > kDrawingTolerance || q.y <= ytop) continue;
    k = i;
    ytop = q.y;
  }

  const bool hasEdge = edgeOfArc(k).isEdge;
  double sx = node(k).x;
  double sy = node(k).y;
  bool acute = false;
  const bool atArc = touchesArc(k, true);
  if (atArc) {
    const Edge s = apparentPoint(k);
    sx = s.x;
    sy = s.y;
    if (!hasEdge) acute = isAcute(k, node(k).y);
  }
  const double ty = sy + height_;

  int crossings = 0;
  bool touched = false;
  for (int i = 0, j = 1; j < qtd_; ++i, ++j) {
    if (isMarker(node(i).bulge)) {
      ++i;
      ++j;
      if (j >= qtd_) break;
    }
    double y = 0;
    bool own = false;
    if (!crossing(i, j, k, sx, sy, ty, y, own) || own) continue;
    ++crossings;
    const bool covers = std::fabs(y - sy) > kDrawingTolerance && !isEdgeAt(i, sx) && !isEdgeAt(j, sx);
    if (covers) return false;
    touched = true;
  }

  if (crossings == 0 && !hasEdge && !acute) return false;
  if (crossings > 0 && !touched) return false;
  return hasEdge || acute || !atArc;
}
