#include "host/io/plot/Path.h"

#include <algorithm>
#include <cmath>

namespace plot {
namespace {

double distance(PaperPoint a, PaperPoint b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

PaperPoint curveTangent(const PaperPoint* p, double t) {
  const double s = 1.0 - t;
  const auto along = [&](double a, double b, double c, double d) {
    return 3.0 * (s * s * (b - a) + 2.0 * s * t * (c - b) + t * t * (d - c));
  };
  return {along(p[0].x, p[1].x, p[2].x, p[3].x), along(p[0].y, p[1].y, p[2].y, p[3].y)};
}

/// By Gauss's rule of five points on each half.
double curveLength(const PaperPoint* p) {
  static constexpr double kAt[3] = {0.0, 0.5384693101056831, 0.9061798459386640};
  static constexpr double kWeight[3] = {0.5688888888888889, 0.4786286704993665, 0.2369268850561891};
  double sum = 0.0;
  for (const double middle : {0.25, 0.75}) {
    for (int i = 0; i < 3; ++i) {
      const PaperPoint a = curveTangent(p, middle + kAt[i] / 4.0);
      sum += kWeight[i] * std::hypot(a.x, a.y);
      if (i == 0) continue;
      const PaperPoint b = curveTangent(p, middle - kAt[i] / 4.0);
      sum += kWeight[i] * std::hypot(b.x, b.y);
    }
  }
  return sum / 4.0;
}

}  // namespace

void Path::clear() {
  steps_.clear();
  points_.clear();
}

void Path::moveTo(PaperPoint p) {
  steps_.push_back(Step::move);
  points_.push_back(p);
}

void Path::lineTo(PaperPoint p) {
  steps_.push_back(Step::line);
  points_.push_back(p);
}

void Path::curveTo(PaperPoint c1, PaperPoint c2, PaperPoint p) {
  steps_.push_back(Step::curve);
  points_.insert(points_.end(), {c1, c2, p});
}

void Path::close() {
  steps_.push_back(Step::close);
}

void Path::arc(PaperPoint center, PaperPoint u, PaperPoint v, double from, double sweep, bool joined) {
  constexpr double kQuarter = 1.57079632679489661923;
  // A cubic follows an eighth of a turn to some 4e-6 of the radius.
  constexpr double kStep = kQuarter / 2.0;
  const int count = std::max(1, static_cast<int>(std::ceil(std::min(std::fabs(sweep), 8.0) / kStep - 1e-9)));
  const double step = sweep / count;
  const double reach = 4.0 / 3.0 * std::tan(step / 4.0);
  const auto at = [&](double c, double s) {
    return PaperPoint{center.x + c * u.x + s * v.x, center.y + c * u.y + s * v.y};
  };
  double c = std::cos(from);
  double s = std::sin(from);
  if (joined) {
    lineTo(at(c, s));
  } else {
    moveTo(at(c, s));
  }
  for (int i = 1; i <= count; ++i) {
    const double angle = from + step * i;
    const double nextC = std::cos(angle);
    const double nextS = std::sin(angle);
    curveTo(at(c - reach * s, s + reach * c), at(nextC + reach * nextS, nextS - reach * nextC), at(nextC, nextS));
    c = nextC;
    s = nextS;
  }
}

double Path::length() const {
  double sum = 0.0;
  PaperPoint start;
  PaperPoint here;
  std::size_t next = 0;
  for (const Step step : steps_) {
    if (step == Step::close) {
      sum += distance(here, start);
      here = start;
      continue;
    }
    if (step == Step::move) {
      start = points_[next];
    } else if (step == Step::line) {
      sum += distance(here, points_[next]);
    } else {
      const PaperPoint curve[4] = {here, points_[next], points_[next + 1], points_[next + 2]};
      sum += curveLength(curve);
      next += 2;
    }
    here = points_[next++];
  }
  return sum;
}

bool Path::isFinite() const {
  return std::all_of(points_.begin(), points_.end(),
                     [](PaperPoint p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

void Path::box(PaperPoint& least, PaperPoint& greatest) const {
  if (points_.empty()) return;
  least = greatest = points_.front();
  for (const PaperPoint p : points_) {
    least = {std::min(least.x, p.x), std::min(least.y, p.y)};
    greatest = {std::max(greatest.x, p.x), std::max(greatest.y, p.y)};
  }
}

}  // namespace plot
