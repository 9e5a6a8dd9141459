#pragma once

#include <algorithm>
#include <cmath>

#include "host/companion/PolygonArc.h"
#include "host/ge/ge.h"
#include "host/rx/AcArray.h"

/// Counts the true crossings of a line with a polygon, in one walk along the polygon.
///
/// The walk is cut into pieces that only rise or only fall over the line: a straight edge is one, and an arc is cut
/// where it runs parallel to the line. So a piece crosses exactly when its ends lie on different sides, and nothing
/// but the sides of the ends, three-valued (left, on, right), decides. Ends on the line form a run; a run is crossed
/// when the walk comes to it from one side and leaves it to the other, and a touch, of a vertex, an arc or a whole
/// edge, is a run that is left to the side it was reached from. For a closed polygon the sides form a ring, whose
/// changes are even in number whatever the rounding, so that the parity holds.
class PolygonFence {
 public:
  /// Crossings go to out, or with null are counted alone. The line must have a direction.
  PolygonFence(const AcGeLinearEnt2d& line, AcArray<AcGePoint2d>* out);

  /// Starts the walk.
  void begin(const AcGePoint2d& p) { step(p, heightOf(p)); }
  void straightTo(const AcGePoint2d& p) {
    const double height = heightOf(p);
    if (height * m_settled > m_tol) return move(p, height);
    turnTo(p, height);
  }
  /// Walks the arc, which starts where the walk stands.
  void arcTo(const PolygonArc& arc) {
    const double centre = heightOf(arc.curve.center());
    const AcGePoint2d end = arc.curve.center() + arc.toEnd;
    if (centre * m_settled > arc.curve.radius() + m_tol) return move(end, heightOf(end));
    turnAlong(arc, centre, end);
  }
  /// Ends the walk where it began: decides on the run there.
  void close();

  /// The crossings met so far.
  int count() const { return m_count; }

 private:
  /// A stretch of the walk on the line.
  struct Run {
    bool any = false;
    AcGePoint2d first;
    double low = 0.0;  ///< Its reach along the line, in lengths from the line's base.
    double high = 0.0;

    void extend(const AcGePoint2d& p, double at);
    void extend(const Run& other);
  };

  double heightOf(const AcGePoint2d& p) const { return m_along.crossProduct(p - m_base); }
  double placeOf(const AcGePoint2d& p) const { return m_along.dotProduct(p - m_base); }
  /// 1 on the left of the line, -1 on the right, 0 within the tolerance of it.
  int sideOf(double height) const {
    if (std::fabs(height) <= m_tol) return 0;
    return height > 0.0 ? 1 : -1;
  }
  void move(const AcGePoint2d& p, double height) {
    m_here = p;
    m_height = height;
  }
  /// Takes in the next end of a piece. True when the piece itself crosses, between this end and the one before.
  bool step(const AcGePoint2d& p, double height) {
    move(p, height);
    return change(sideOf(height));
  }
  /// Walks a piece that may reach another side than the last one.
  void turnTo(const AcGePoint2d& p, double height);
  void turnAlong(const PolygonArc& arc, double centreHeight, const AcGePoint2d& end);
  /// The walk has come to a side, or to the line.
  bool change(int side);
  void cross(const AcGePoint2d& p);
  void cross(const Run& run);
  void add(const AcGePoint2d& p) {
    ++m_count;
    if (m_out != nullptr) m_out->append(p);
  }

  AcArray<AcGePoint2d>* m_out;
  AcGePoint2d m_base;
  AcGeVector2d m_along;
  double m_low;  ///< The open range of places that count.
  double m_high;
  double m_tol;
  int m_count = 0;

  AcGePoint2d m_here;
  double m_height = 0.0;
  int m_firstSide = 0;     ///< The first side other than 0; 0 until one was met.
  int m_side = 0;          ///< The last one.
  double m_settled = 0.0;  ///< m_side, but 0 while the walk runs on the line.
  Run m_head;              ///< The run before the first side.
  Run m_run;               ///< The run since the last side.
};
