#pragma once

#include <vector>

#include "host/companion/companion.h"
#include "host/ge/ge.h"

/// Many closed polygons, no two of which touch, that take away what lies within them or on them: what clipping by one
/// after the other does, in one go. Those that can't answer are passed over by their place along the longer side of
/// what holds all, so that a short element asks a few of them.
class ClosedPolygons {
 public:
  /// Whether a polygon takes away what lies within it, told by a point on the side that goes.
  static bool isTakenInside(const PolygonEdges& polygon, const AcGePoint2d& side);

  void add(PolygonEdges&& polygon, const AcGePoint2d& side);
  /// Once all are there, before they are asked.
  void arrange();

  int meet(const AcGeLineSeg2d& segment, AcArray<AcGePoint2d>& out) const;
  int meet(const AcGeCircArc2d& arc, AcArray<AcGePoint2d>& out) const;
  bool takes(const AcGePoint2d& m) const;

 private:
  struct One {
    PolygonEdges edges;
    AcGePoint2d side;
    double low = 0;    ///< of its box, along the chosen axis
    double reach = 0;  ///< the greatest that any up to this one extends to
  };

  double along(const AcGePoint2d& p) const { return byX_ ? p.x : p.y; }
  template <class Visit>
  void forEachNear(const PolygonBox& box, Visit visit) const;
  template <class Curve>
  int meetWithin(const PolygonBox& box, const Curve& curve, AcArray<AcGePoint2d>& out) const;

  std::vector<One> all_;
  bool byX_ = true;
};
