#pragma once

#include <cmath>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "profiles/Kr2ULaminado.h"
#include "profiles/KrBNDuplaLaminada.h"
#include "profiles/KrBNLaminado.h"
#include "profiles/KrCantCruzLaminada.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrCantLaminadaCaixa.h"
#include "profiles/KrCantTEELaminada.h"
#include "profiles/KrCantULaminada.h"
#include "profiles/KrCantZLaminada.h"
#include "profiles/KrILaminadoUSA.h"
#include "profiles/KrULaminado.h"
#include "profiles/KrUULaminado.h"

/// One bar of each rolled class and the measures of its section by formula.
namespace rolled {

inline constexpr double kPi = 3.141592653589793;

/// What a fillet of radius r adds to the inner side of a corner, or takes off its outer side, when the edges turn by
/// `turn`: the kite between its tangents less its sector.
inline double filletArea(double r, double turn) {
  return r * r * (std::tan(turn / 2.0) - turn / 2.0);
}

struct Measures {
  double area;
  double perimeter;
  double excess = 0.0;  ///< of the perimeter over that of the walk, whose first toe is round like the other
};

/// An angle with round toes.
inline Measures angleMeasures(double h, double l, double t, double r) {
  return {t * (h + l - t) + filletArea(r, kPi / 2.0) - 2.0 * filletArea(t, kPi / 2.0),
          h + l + (h - 2.0 * t - r) + (l - 2.0 * t - r) + kPi / 2.0 * (r + 2.0 * t)};
}

/// A flange beside a web: a trapezoid of a slope, its lower edge rounded at the tip and at the root.
inline Measures flangeMeasures(double reach, double deslocF, double slope, double root, double toe) {
  const double turn = kPi / 2.0 - slope;
  const double atRoot = deslocF - std::tan(turn / 2.0) * root;
  const double atTip = atRoot - reach * std::tan(slope);
  const double face = reach / std::cos(slope) - std::tan(turn / 2.0) * (root + toe);
  return {reach * (atRoot + atTip) / 2.0 + filletArea(root, turn) - filletArea(toe, turn),
          reach + (atTip - std::tan(turn / 2.0) * toe) + face + turn * (root + toe)};
}

inline Measures iMeasures(double h, double b, double t, double deslocF, double slope, double root, double toe) {
  const Measures flange = flangeMeasures((b - t) / 2.0, deslocF, slope, root, toe);
  return {t * h + 4.0 * flange.area, 4.0 * flange.perimeter + 2.0 * t + 2.0 * (h - 2.0 * deslocF)};
}

/// The slope of a channel's flange: one in six, worked out in single precision.
inline double channelSlope() {
  return static_cast<double>(std::atan(1.0F / 6.0F));
}

/// A channel. Its first toe turns by a full quarter over the chord of the other: it is the segment of another circle.
inline Measures channelMeasures(double h, double b, double t, double deslocF, double root, double toe) {
  const double slope = channelSlope();
  const double turn = kPi / 2.0 - slope;
  const Measures flange = flangeMeasures(b - t, deslocF, slope, root, toe);
  const double chord = 2.0 * toe * std::sin(turn / 2.0);
  const double firstRadius = chord / std::sqrt(2.0);
  const double segment =
      firstRadius * firstRadius / 2.0 * (kPi / 2.0 - 1.0) - toe * toe / 2.0 * (turn - std::sin(turn));
  const double excess = firstRadius * kPi / 2.0 - toe * turn;
  return {t * h + 2.0 * flange.area + segment, 2.0 * flange.perimeter + h + 2.0 * t + (h - 2.0 * deslocF) + excess,
          excess};
}

/// A bar of 1000 from the origin along X.
struct Sample {
  std::string name;
  std::function<std::unique_ptr<KrObject>(KrVistas vista, double angleSecao)> make;
  int contours;
  Measures section;  ///< of all the metal
  double perimeter;  ///< that the class reports
};

inline void PrintTo(const Sample& sample, std::ostream* out) {
  *out << sample.name;
}

inline std::vector<Sample> samples() {
  const AcGePoint3d o(0, 0, 0);
  const AcGePoint3d e(1000, 0, 0);
  // A channel of 200 with flanges of 75, an angle of 100 by 75 by 8 with a root of 10, an equal one of 75 by 8.
  const Measures u = channelMeasures(200, 75, 8.5, 30, 11.5, 6);
  const Measures l = angleMeasures(100, 75, 8, 10);
  const Measures bn = angleMeasures(75, 75, 8, 10);
  const Measures ipe = iMeasures(200, 100, 5.6, 20.5, 0, 12, 0);
  const Measures s = iMeasures(203, 102, 6.9, 28, 0.165, 9.5, 4);
  const auto twice = [](const Measures& m) { return Measures{2.0 * m.area, 2.0 * m.perimeter, 2.0 * m.excess}; };
  return {
      {"KrULaminado",
       [=](KrVistas v, double a) {
         return std::make_unique<KrULaminado>(o, e, v, 200, 75, 8.5, 30, 11.5, 6, 20.1, 11.5, a, 3220, 25.3);
       },
       1, u, u.perimeter},
      {"KrUULaminado",
       [=](KrVistas v, double a) {
         return std::make_unique<KrUULaminado>(o, v, 200, 75, 8.5, 12, 30, 11.5, 6, 11.5, a, 0, 1000, 6440, 20.1, 50.6);
       },
       2, twice(u), 2 * u.perimeter},
      {"Kr2ULaminado",
       [=](KrVistas v, double a) {
         return std::make_unique<Kr2ULaminado>(o, e, v, 200, 75, 8.5, 12, 30, 11.5, 6, 20.1, 11.5, a, 6440, 50.6);
       },
       2, twice(u), 2 * u.perimeter},
      {"KrILaminadoUSA parallel",
       [=](KrVistas v, double a) {
         return std::make_unique<KrILaminadoUSA>(o, e, v, 200, 100, 5.6, 20.5, 0, 12, 0, 8.5, a, 2850, 22.4,
                                                 ISolParalela);
       },
       1, ipe, ipe.perimeter},
      {"KrILaminadoUSA tapered",
       [=](KrVistas v, double a) {
         return std::make_unique<KrILaminadoUSA>(o, e, v, 203, 102, 6.9, 28, 0.165, 9.5, 4, 10.8, a, 3490, 27.4,
                                                 ISolInclinada);
       },
       1, s, s.perimeter},
      {"KrBNLaminado",
       [=](KrVistas v, double a) { return std::make_unique<KrBNLaminado>(o, e, v, 75, 8, -22.8, 10, a, 8.99, 1140); },
       1, bn, bn.perimeter},
      {"KrBNDuplaLaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrBNDuplaLaminada>(o, e, v, 75, 8, 10, 10, 21.4, a, 2280, 17.98);
       },
       2, twice(bn), 2 * bn.perimeter},
      {"KrCantLaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantLaminada>(o, e, v, 100, 75, 8, 18.7, 68.9, 10, a, 10.6, 1350);
       },
       1, l, l.perimeter},
      {"KrCantLaminadaCaixa",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantLaminadaCaixa>(o, e, v, 100, 75, 8, 10, a, 21.2, 2700);
       },
       2, twice(l), 2 * l.perimeter},
      {"KrCantTEELaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantTEELaminada>(o, e, v, 100, 75, 8, 10, 10, a, 21.2, 2700);
       },
       2, twice(l), 2 * l.perimeter},
      {"KrCantULaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantULaminada>(o, e, v, 100, 75, 8, 10, 10, a, 21.2, 2700);
       },
       2, twice(l), 2 * l.perimeter},
      {"KrCantZLaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantZLaminada>(o, e, v, 100, 75, 8, 10, 160, 12, a, 21.2, 2700);
       },
       2, twice(l), 2 * l.perimeter},
      {"KrCantCruzLaminada",
       [=](KrVistas v, double a) {
         return std::make_unique<KrCantCruzLaminada>(o, e, v, 100, 75, 8, 10, 10, 12, a, 21.2, 2700);
       },
       2, twice(l), 2 * l.perimeter},
  };
}

}  // namespace rolled
