#pragma once

#include <cmath>

/// A turn about Z, exact at whole quarters: a section turned by pi/2 keeps its vertical faces vertical to the last bit.
struct Rotation {
  explicit Rotation(double angle) : cosine(snapped(std::cos(angle))), sine(snapped(std::sin(angle))) {}

  template <class T>
  T operator()(const T& v) const {
    T turned = v;
    turned.x = v.x * cosine - v.y * sine;
    turned.y = v.x * sine + v.y * cosine;
    return turned;
  }

  double cosine;
  double sine;

 private:
  /// What the rounding of an angle leaves of a zero or a one.
  static double snapped(double c) {
    constexpr double kRounding = 1e-15;
    if (std::fabs(c) < kRounding) return 0.0;
    if (std::fabs(c - 1) < kRounding) return 1.0;
    if (std::fabs(c + 1) < kRounding) return -1.0;
    return c;
  }
};
