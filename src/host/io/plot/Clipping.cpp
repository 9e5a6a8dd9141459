#include "host/io/plot/Clipping.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace plot {
namespace {

/// Chords per curve of an eighth of a turn: enough for what passes a sheet at a great radius.
constexpr int kChords = 512;

using Line = std::function<void(PaperPoint, PaperPoint)>;

PaperPoint onCurve(PaperPoint from, const PaperPoint* p, double t) {
  const double s = 1.0 - t;
  const auto mix = [&](double a, double b, double c, double d) {
    return s * s * s * a + 3.0 * s * s * t * b + 3.0 * s * t * t * c + t * t * t * d;
  };
  return {mix(from.x, p[0].x, p[1].x, p[2].x), mix(from.y, p[0].y, p[1].y, p[2].y)};
}

void forEachLine(const Path& path, const Line& visit) {
  const PaperPoint* p = path.points().data();
  PaperPoint start;
  PaperPoint here;
  for (const Path::Step step : path.steps()) {
    if (step == Path::Step::close) {
      visit(here, start);
      here = start;
    } else if (step == Path::Step::curve) {
      PaperPoint last = here;
      for (int i = 1; i <= kChords; ++i) {
        const PaperPoint next = onCurve(here, p, static_cast<double>(i) / kChords);
        visit(last, next);
        last = next;
      }
      here = last;
      p += 3;
    } else {
      if (step == Path::Step::move) {
        start = *p;
      } else {
        visit(here, *p);
      }
      here = *p++;
    }
  }
}

/// Cuts the line a to b down to its part in the rectangle; false when there is none.
bool clip(PaperPoint& a, PaperPoint& b, const PaperRect& rect) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  double from = 0.0;
  double to = 1.0;
  const auto side = [&](double along, double room) {
    if (along == 0.0) return room >= 0.0;
    const double t = room / along;
    if (along < 0.0) {
      from = std::max(from, t);
    } else {
      to = std::min(to, t);
    }
    return from <= to;
  };
  if (!side(-dx, a.x - rect.left) || !side(dx, rect.right - a.x) || !side(-dy, a.y - rect.bottom) ||
      !side(dy, rect.top - a.y)) {
    return false;
  }
  const PaperPoint first = a;
  a = {first.x + from * dx, first.y + from * dy};
  b = {first.x + to * dx, first.y + to * dy};
  return true;
}

/// The part of an outline on the side of a border where `inside` is not negative.
std::vector<PaperPoint> cutOff(const std::vector<PaperPoint>& outline,
                               const std::function<double(PaperPoint)>& inside) {
  std::vector<PaperPoint> result;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const PaperPoint a = outline[i];
    const PaperPoint b = outline[(i + 1) % outline.size()];
    const double da = inside(a);
    const double db = inside(b);
    if (da >= 0.0) result.push_back(a);
    if ((da >= 0.0) == (db >= 0.0)) continue;
    const double t = da / (da - db);
    result.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
  }
  return result;
}

}  // namespace

Path clipLines(const Path& path, const PaperRect& rect) {
  Path result;
  PaperPoint last{std::nan(""), std::nan("")};
  forEachLine(path, [&](PaperPoint a, PaperPoint b) {
    if (!clip(a, b, rect)) return;
    if (a.x != last.x || a.y != last.y) result.moveTo(a);
    result.lineTo(b);
    last = b;
  });
  return result;
}

Path clipArea(const Path& path, const PaperRect& rect) {
  std::vector<PaperPoint> outline;
  forEachLine(path, [&outline](PaperPoint a, PaperPoint) { outline.push_back(a); });
  outline = cutOff(outline, [&](PaperPoint p) { return p.x - rect.left; });
  outline = cutOff(outline, [&](PaperPoint p) { return rect.right - p.x; });
  outline = cutOff(outline, [&](PaperPoint p) { return p.y - rect.bottom; });
  outline = cutOff(outline, [&](PaperPoint p) { return rect.top - p.y; });
  Path result;
  for (const PaperPoint p : outline) {
    if (result.empty()) {
      result.moveTo(p);
    } else {
      result.lineTo(p);
    }
  }
  if (!result.empty()) result.close();
  return result;
}

}  // namespace plot
