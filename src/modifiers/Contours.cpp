// Closed contours of a view, and the way from elements to polygons and from polygons to their sides.

#include "modifiers/Contours.h"

#include <cmath>
#include <cstdint>

#include "host/companion/companion.h"
#include "modifiers/Flat.h"
#include "object/KrObject.h"

namespace {

/// Ends no further apart than this join, in millimetres.
constexpr double kJoin = 1e-6;

/// The outline edges that no chain has taken yet, found by where they end.
class LooseEdges {
 public:
  explicit LooseEdges(const KrObjectArray<KrVector>& list) {
    for (const Node<KrVector>* node = list.getNode(0); node != nullptr; node = node->next)
      if (node->value->tipo() == KR_VF_ARESTA) edges_.push_back(node->value);
    taken_.resize(edges_.size());
    std::size_t buckets = 16;
    while (buckets < 4 * edges_.size()) buckets *= 2;
    heads_.assign(buckets, -1);
    next_.resize(2 * edges_.size());
    // From the last, so that a bucket tells them in the order of the list.
    for (std::size_t k = next_.size(); k-- > 0;) {
      const AcGePoint3d& p = k % 2 == 0 ? edges_[k / 2]->startPoint() : edges_[k / 2]->endPoint();
      int& head = heads_[bucketOf(cellOf(p.x), cellOf(p.y))];
      next_[k] = head;
      head = static_cast<int>(k);
    }
  }

  std::size_t count() const { return edges_.size(); }

  /// The first edge left, or null.
  const KrVector* takeFirst() {
    while (first_ < edges_.size() && taken_[first_]) ++first_;
    return first_ < edges_.size() ? take(first_) : nullptr;
  }

  /// The first edge left that ends or starts at a point, or null.
  const KrVector* takeAt(const AcGePoint3d& p) {
    std::size_t best = edges_.size();
    const std::int64_t x0 = cellOf(p.x - kJoin), x1 = cellOf(p.x + kJoin);
    const std::int64_t y0 = cellOf(p.y - kJoin), y1 = cellOf(p.y + kJoin);
    for (std::int64_t x = x0; x <= x1; ++x)
      for (std::int64_t y = y0; y <= y1; ++y) lookInto(bucketOf(x, y), p, best);
    return best < edges_.size() ? take(best) : nullptr;
  }

  static bool join(const AcGePoint3d& a, const AcGePoint3d& b) { return a.distanceSqrdTo(b) <= kJoin * kJoin; }

 private:
  /// Width of a bucket's cell: far above the tolerance, far below a drawn edge.
  static constexpr double kCellsPerUnit = 1024.0;

  /// What lies beyond all drawings, or nowhere, as a file can tell, shares a cell.
  static std::int64_t cellOf(double coordinate) {
    constexpr double kMostCells = 9e15;
    const double cell = std::floor(coordinate * kCellsPerUnit);
    return std::fabs(cell) < kMostCells ? static_cast<std::int64_t>(cell) : 0;
  }
  std::size_t bucketOf(std::int64_t x, std::int64_t y) const {
    std::uint64_t mixed = static_cast<std::uint64_t>(x) * 0x9E3779B97F4A7C15U + static_cast<std::uint64_t>(y);
    mixed = (mixed ^ (mixed >> 29)) * 0xBF58476D1CE4E5B9U;
    return static_cast<std::size_t>(mixed >> 32) & (heads_.size() - 1);
  }
  void lookInto(std::size_t bucket, const AcGePoint3d& p, std::size_t& best) const {
    for (int k = heads_[bucket]; k >= 0; k = next_[static_cast<std::size_t>(k)]) {
      const auto i = static_cast<std::size_t>(k) / 2;
      if (i >= best || taken_[i]) continue;
      if (join(k % 2 == 0 ? edges_[i]->startPoint() : edges_[i]->endPoint(), p)) best = i;
    }
  }
  const KrVector* take(std::size_t i) {
    taken_[i] = 1;
    return edges_[i];
  }

  std::vector<const KrVector*> edges_;
  std::vector<char> taken_;
  std::vector<int> heads_;  ///< by bucket: its first end, two ends to an edge
  std::vector<int> next_;   ///< by end: the next one of its bucket
  std::size_t first_ = 0;
};

double bulgeOf(const Contours::Link& link) {
  if (link.edge->type() != KR_VT_ARCO) return 0;
  const AcGeCircArc2d arc(flat(link.start()), flat(link.edge->midPoint()), flat(link.end()));
  const double bulge = std::tan((arc.endAng() - arc.startAng()) / 4.0);
  return arc.isClockWise() ? -bulge : bulge;
}

/// The crossings of the line through the middles of the two edges at vertex i, in their order along it.
AcGeVector2d crossAtVertex(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, const PolygonEdges& edges,
                           int i, AcArray<AcGePoint2d>& crossings) {
  crossings.setLogicalLength(0);
  const AcGeLine2d line(Contours::middleOf(points, bulges, i - 1), Contours::middleOf(points, bulges, i));
  edges.cross(line, &crossings);
  QuickSort(crossings, line.direction());
  return line.direction();
}

AcGePoint2d meanOf(const AcGePoint2d& a, const AcGePoint2d& b) {
  return a + (b - a) / 2.0;
}

}  // namespace

Contours::Contours(const KrObjectArray<KrVector>& lista) {
  LooseEdges loose(lista);
  Chain chain;
  while (const KrVector* first = loose.takeFirst()) {
    chain.assign(1, Link{first, false});
    while (const KrVector* next = loose.takeAt(chain.back().end()))
      chain.push_back({next, LooseEdges::join(next->endPoint(), chain.back().end())});
    if (chain.size() > 1 && LooseEdges::join(chain.front().start(), chain.back().end())) chains_.push_back(chain);
  }
}

void Contours::polygonOf(const Chain& chain, AcArray<AcGePoint2d>& points, AcArray<double>& bulges) {
  points.setLogicalLength(0);
  bulges.setLogicalLength(0);
  if (chain.empty()) return;
  points.append(flat(chain.front().start()));
  for (const Link& link : chain) {
    points.append(flat(link.end()));
    bulges.append(bulgeOf(link));
  }
  bulges.append(0.0);
}

int KrObject::Contornos(AcArray<void*>& saida) const {
  assertReadEnabled();
  return Contornos(currentVertexList(VistaCorrente), saida);
}

int KrObject::Contornos(const KrObjectArray<KrVector>& lista, AcArray<void*>& saida) {
  const Contours contours(lista);
  for (const Contours::Chain& chain : contours.all()) {
    auto* copy = new KrObjectArray<KrVector>;
    copy->reserve(static_cast<int>(chain.size()));
    for (const Contours::Link& link : chain) {
      copy->append(*link.edge);
      if (link.inverted) copy->last().invert();
    }
    saida.append(copy);
  }
  return contours.all().empty() ? 0 : 1;
}

void KrObject::pontosDeCortePorContorno(const KrObjectArray<KrVector>& contorno, AcArray<AcGePoint2d>& pontos,
                                        AcArray<double>& bulges) {
  Contours::Chain chain;
  for (const Node<KrVector>* node = contorno.getNode(0); node != nullptr; node = node->next)
    chain.push_back({node->value, false});
  Contours::polygonOf(chain, pontos, bulges);
}

int KrObject::pointInsideBorders(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& p) {
  const PolygonEdges edges(pontos, bulges);
  AcArray<AcGePoint2d> crossings;
  for (int i = 1; i + 1 < pontos.length(); ++i) {
    if ((pontos[i] - pontos[i - 1]).isParallelTo(pontos[i + 1] - pontos[i])) continue;
    crossAtVertex(pontos, bulges, edges, i, crossings);
    if (crossings.length() < 2) continue;
    p = meanOf(crossings[0], crossings[1]);
    break;
  }
  return 1;
}

int KrObject::pointOutsideBorders(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& p) {
  const PolygonEdges edges(pontos, bulges);
  AcArray<AcGePoint2d> crossings;
  for (int i = 1; i + 1 < pontos.length(); ++i) {
    const AcGeVector2d along = crossAtVertex(pontos, bulges, edges, i, crossings);
    if (crossings.length() < 2) continue;
    const AcGePoint2d found = crossings.length() == 2 ? crossings[1] + along : meanOf(crossings[1], crossings[2]);
    // Where the line runs along an edge the place may fall on the polygon: the next vertex tells better.
    if (edges.holds(found)) continue;
    p = found;
    break;
  }
  return 1;
}

AcGePoint2d Contours::middleOf(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges, int i) {
  const AcGeVector2d chord = points[i + 1] - points[i];
  const double bulge = i < bulges.length() ? bulges[i] : 0.0;
  return points[i] + chord / 2.0 - chord.perpVector() * (bulge / 2.0);
}
