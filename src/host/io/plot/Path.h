#pragma once

#include <cstdint>
#include <vector>

namespace plot {

/// A place on paper, in mm from the lower left corner.
struct PaperPoint {
  double x = 0.0, y = 0.0;
};

/// Lines and curves on paper.
class Path {
 public:
  enum class Step : std::uint8_t { move, line, curve, close };

  void clear();
  void moveTo(PaperPoint p);
  void lineTo(PaperPoint p);
  /// A cubic curve.
  void curveTo(PaperPoint c1, PaperPoint c2, PaperPoint p);
  void close();
  /// The arc centre + cos(t) u + sin(t) v for t from `from` through `sweep`, an ellipse's when u and v are no circle's.
  /// It begins with a line to its start when `joined`, else with a move.
  void arc(PaperPoint center, PaperPoint u, PaperPoint v, double from, double sweep, bool joined);

  const std::vector<Step>& steps() const { return steps_; }
  /// The points of the steps, in turn: one for move and line, three for curve, none for close.
  const std::vector<PaperPoint>& points() const { return points_; }
  bool empty() const { return steps_.empty(); }
  /// Length of all lines and curves, to a millionth.
  double length() const;
  bool isFinite() const;
  /// Least and greatest coordinates of all points; a curve lies within those of its own.
  void box(PaperPoint& least, PaperPoint& greatest) const;

 private:
  std::vector<Step> steps_;
  std::vector<PaperPoint> points_;
};

}  // namespace plot
