#pragma once

#include <cmath>

/// The circle of one edge of an outline, from its two ends and its bulge on the scale of 127; all closed forms.
///
/// Requires two different ends and a bulge other than 0. A positive bulge turns anticlockwise. With t the tangent of a
/// quarter of the included angle and n the chord turned left by a quarter turn, the arc's middle is M - n t / 2, the
/// centre M + n (1 - t^2) / (4 t) and the crossing of the end tangents M - n t / (1 - t^2).
struct ArcGeometry {
  /// The unit of outline bulges: 127 times the tangent of a quarter of the included angle.
  static constexpr double kBulgeUnit = 127.0;

  ArcGeometry(double x0, double y0, double x1, double y1, double bulge)
      : ax(x0), ay(y0), dx(x1 - x0), dy(y1 - y0), t(bulge / kBulgeUnit) {
    const double mx = x0 + dx * 0.5;
    const double my = y0 + dy * 0.5;
    const double f = (1 - t * t) / (4 * t);
    cx = mx - dy * f;
    cy = my + dx * f;
    chord = std::sqrt(dx * dx + dy * dy);
    radius = chord * (1 + t * t) / (4 * std::fabs(t));
  }

  /// Whether a point of the circle lies on the arc, its ends included to a distance of `tol`.
  bool holds(double x, double y, double tol) const {
    const double side = dx * (y - ay) - dy * (x - ax);
    return (t > 0 ? side : -side) <= tol * chord;
  }

  /// The crossing of the tangents at both ends; false for a half circle, whose tangents are parallel.
  bool tangentsCross(double& x, double& y) const {
    const double w = 1 - t * t;
    if (std::fabs(w) < 1e-12) return false;
    const double f = t / w;
    x = ax + dx * 0.5 + dy * f;
    y = ay + dy * 0.5 - dx * f;
    return true;
  }

  /// Half of the included angle, signed: how far the tangent at the start turns to the chord.
  double halfSweep() const { return 2 * std::atan(t); }

  double ax, ay, dx, dy, t;
  double cx, cy, chord, radius;
};
