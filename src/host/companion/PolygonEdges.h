#pragma once

#include <vector>

#include "host/companion/PolygonArc.h"
#include "host/ge/ge.h"
#include "host/rx/AcArray.h"

/// An upright rectangle of the plane.
struct PolygonBox {
  AcGePoint2d low;
  AcGePoint2d high;

  bool meets(const PolygonBox& other) const {
    return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
  }
  bool holds(const AcGePoint2d& p) const { return low.x <= p.x && p.x <= high.x && low.y <= p.y && p.y <= high.y; }
  void add(const PolygonBox& other);
};

/// The edges of a polygon worked out once, for many questions: what `createCurves`, `contains`, `intersectWith` and
/// `intersectWith2dFence` rest on, with their answers, to the last bit.
///
/// What can't answer is passed over by its box, so that a question costs little more than a look at each edge. Points
/// and bulges are as those operations take them; the object keeps none of the arrays. Filled again, it reuses its
/// memory.
class PolygonEdges {
 public:
  PolygonEdges() = default;
  PolygonEdges(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges) { set(points, bulges); }

  void set(const AcArray<AcGePoint2d>& points, const AcArray<double>& bulges);

  /// Whether the last point is the first.
  bool isClosed() const { return m_closed; }
  /// What holds all edges, and a little more than the tolerance around them.
  const PolygonBox& box() const { return m_box; }

  /// `contains`.
  bool holds(const AcGePoint2d& p) const;
  /// `intersectWith`.
  int meet(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>& out) const;
  int meet(const AcGeCircArc2d& arc, AcArray<AcGePoint2d>& out) const;
  /// `intersectWith2dFence`; with a null `out` the crossings are counted alone.
  int cross(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>* out) const;

 private:
  struct Edge {
    PolygonBox box;  ///< with a margin of more than the tolerance
    AcGeLineSeg2d segment;
    int arc;       ///< index of the arc, -1 for a straight edge
    bool isPoint;  ///< of no length: holds a point, meets nothing
  };

  template <class Curve>
  int meetEdges(const Curve& curve, const PolygonBox& reach, AcArray<AcGePoint2d>& out) const;

  std::vector<Edge> m_edges;
  std::vector<PolygonArc> m_arcs;
  AcGePoint2d m_start;
  PolygonBox m_box;
  double m_margin = 0.0;  ///< How far from an edge nothing can answer any more.
  bool m_closed = false;
};
