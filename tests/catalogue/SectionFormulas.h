#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

#include "lib/Catalogue.h"

/// Areas of sections by formula, from the numbers of a table: as the standards draw them, and as the classes do where
/// those differ.
namespace formula {

inline constexpr double kPi = std::numbers::pi;

/// What a fillet of radius r fills of a corner whose edges turn by `turn`.
inline double corner(double r, double turn) {
  return r * r * (std::tan(turn / 2) - turn / 2);
}

/// Half of an I's or a channel's flange pair on one side of the web: overhang, mean thickness, root and toe.
inline double flange(double overhang, double mean, double slope, double root, double toe) {
  return overhang * mean + corner(root, kPi / 2 - slope) - corner(toe, kPi / 2 - slope);
}

/// Strip bent round `bends` quarter turns: straight length and thickness.
inline double strip(double straight, int bends, double t, double ri) {
  return t * (straight + bends * kPi / 2 * (ri + t / 2));
}

inline double rectangle(double h, double b, double r) {
  return h * b - (4 - kPi) * r * r;
}

using C = kr::CatalogueColumn;

/// The numbers of a row.
struct Row {
  const kr::Catalogue& catalogue;
  const kr::CatalogueRow& row;

  double operator()(C column) const { return catalogue.value(row, column); }
};

/// Half-way along the overhang; the table gives it at u from the tip.
inline double meanThickness(const Row& v, double overhang) {
  const double u = v(C::kU) > 0 ? v(C::kU) : overhang / 2;
  return v(C::kTf) - v(C::kSlope) * u + v(C::kSlope) * overhang / 2;
}

inline double standardArea(const Row& v, kr::CatalogueShape shape) {
  using Shape = kr::CatalogueShape;
  const double h = v(C::kH), b = v(C::kB), t = v(C::kT), ri = v(C::kRi), tw = v(C::kTw);
  const double slope = std::atan(v(C::kSlope));
  switch (shape) {
    case Shape::kI: {
      const double c = (b - tw) / 2;
      return h * tw + 4 * flange(c, meanThickness(v, c), slope, v(C::kR), v(C::kR2));
    }
    case Shape::kU: {
      const double c = b - tw;
      return h * tw + 2 * flange(c, meanThickness(v, c), slope, v(C::kR), v(C::kR2));
    }
    case Shape::kL: {
      const double sharp = t * (v(C::kA) + v(C::kB) - t);
      // American tables tell no toes, and areas as if neither toes nor root were round.
      if (v(C::kR2) == 0) return sharp;
      return sharp + corner(v(C::kR), kPi / 2) - 2 * corner(v(C::kR2), kPi / 2);
    }
    case Shape::kTube:
      return kPi * (v(C::kD) - t) * t;
    case Shape::kBox:
      return rectangle(h, b, v(C::kRo)) - rectangle(h - 2 * t, b - 2 * t, ri);
    case Shape::kColdU: {
      const double lip = v(C::kLip);
      const double straight = h + 2 * b - 4 * (ri + t) + (lip > 0 ? 2 * (lip - 2 * (ri + t)) : 0);
      return strip(straight, lip > 0 ? 4 : 2, t, ri);
    }
    case Shape::kColdZ: {
      const double lip = v(C::kLip);
      const double straight = h + v(C::kB1) + v(C::kB2) - 4 * (ri + t) + (lip > 0 ? 2 * (lip - 2 * (ri + t)) : 0);
      return strip(straight, lip > 0 ? 4 : 2, t, ri);
    }
  }
  return 0;
}

/// A channel as its class draws it: flanges of the same mean thickness that rise by one in six in single precision, and
/// a first toe that is a quarter circle's bulge over the chord of the true one.
inline double drawnChannel(const Row& v) {
  const double c = v(C::kB) - v(C::kTw);
  const double mean = meanThickness(v, c);
  const double slope = static_cast<float>(std::atan(static_cast<double>(1.0F / 6.0F)));
  const double turn = kPi / 2 - slope;
  const double tangent = std::tan(turn / 2);
  const double toe = std::min(v(C::kR2), (mean - std::tan(slope) * c / 2) / tangent);
  const auto segment = [](double chord, double sweep) {
    const double radius = chord / (2 * std::sin(sweep / 2));
    return radius * radius / 2 * (sweep - std::sin(sweep));
  };
  const double chord = 2 * toe * std::sin(turn / 2);
  const double whole = v(C::kH) * v(C::kTw) + 2 * flange(c, mean, slope, v(C::kR), toe);
  return toe > 0 ? whole + segment(chord, kPi / 2) - segment(chord, turn) : whole;
}

/// An angle with toes as round as it is thick.
inline double drawnAngle(const Row& v) {
  const double t = v(C::kT);
  return t * (v(C::kA) + v(C::kB) - t) + corner(v(C::kR), kPi / 2) - 2 * corner(t, kPi / 2);
}

/// A box with concentric corners.
inline double drawnBox(const Row& v) {
  const double t = v(C::kT), ri = v(C::kRi);
  return rectangle(v(C::kH), v(C::kB), ri + t) - rectangle(v(C::kH) - 2 * t, v(C::kB) - 2 * t, ri);
}

inline double drawnArea(const Row& v, kr::CatalogueShape shape) {
  using Shape = kr::CatalogueShape;
  switch (shape) {
    case Shape::kU:
      return drawnChannel(v);
    case Shape::kL:
      return drawnAngle(v);
    case Shape::kBox:
      return drawnBox(v);
    default:
      return standardArea(v, shape);
  }
}

}  // namespace formula
