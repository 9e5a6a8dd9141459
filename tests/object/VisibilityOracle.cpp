#include "object/VisibilityOracle.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace oracle {
namespace {

constexpr double kPi = 3.141592653589793;

// How far beside a vertex its rays run, and how much above it they start.
constexpr double kBeside = 1e-6;
constexpr double kAbove = 2e-3;

// The drawing tolerance: lines closer than this are one.
constexpr double kOneLine = 0.01;

// An arc that meets its neighbour within this angle runs on into it.
constexpr double kTangent = 0.1;
constexpr double kStraight = 1e-5;

struct Point {
  double x, y;
};

struct ArcData {
  Point centre;
  double radius, start, sweep;  // sweep signed
  Point at(double share) const {
    const double a = start + sweep * share;
    return {centre.x + radius * std::cos(a), centre.y + radius * std::sin(a)};
  }
};

ArcData arcOf(const Vertex& a, const Vertex& b) {
  // By the half chord and the sagitta: s = bulge * c / 2, r = (c^2 / 4 + s^2) / (2 s).
  const double dx = b.x - a.x, dy = b.y - a.y;
  const double c = std::hypot(dx, dy);
  const double s = std::fabs(a.bulge) * c / 2;
  const double r = (c * c / 4 + s * s) / (2 * s);
  const double side = a.bulge > 0 ? 1 : -1;
  const double nx = -dy / c, ny = dx / c;
  ArcData arc;
  arc.centre = {(a.x + b.x) / 2 + nx * side * (r - s), (a.y + b.y) / 2 + ny * side * (r - s)};
  arc.radius = r;
  arc.start = std::atan2(a.y - arc.centre.y, a.x - arc.centre.x);
  arc.sweep = 4 * std::atan(a.bulge);
  return arc;
}

double wrap(double a) {
  return std::remainder(a, 2 * kPi);
}

// The contour with edges of no length gone and arcs of one circle joined.
Contour cleaned(const Contour& in) {
  Contour c;
  for (std::size_t i = 0; i < in.size(); ++i) {
    const Vertex& a = in[i];
    const Vertex& b = in[(i + 1) % in.size()];
    if (std::hypot(a.x - b.x, a.y - b.y) > 1e-7) c.push_back(a);
  }
  bool joined = true;
  while (joined && c.size() > 2) {
    joined = false;
    for (std::size_t i = 0; i < c.size() && !joined; ++i) {
      Vertex& a = c[i];
      const std::size_t m = (i + 1) % c.size();
      const Vertex& b = c[m];
      const Vertex& d = c[(i + 2) % c.size()];
      if (a.bulge == 0 || b.bulge == 0 || (a.bulge > 0) != (b.bulge > 0)) continue;
      const ArcData p = arcOf(a, b), q = arcOf(b, d);
      if (std::hypot(p.centre.x - q.centre.x, p.centre.y - q.centre.y) > 1e-6 || std::fabs(p.radius - q.radius) > 1e-6)
        continue;
      const double sweep = p.sweep + q.sweep;
      if (std::fabs(sweep) > 1.8 * kPi) continue;
      a.bulge = std::tan(sweep / 4);
      c.erase(c.begin() + static_cast<std::ptrdiff_t>(m));
      joined = true;
    }
  }
  return c;
}

bool isCircle(const Contour& c) {
  if (c.size() != 2 && c.size() != 3) return false;
  const ArcData p = arcOf(c[0], c[1]);
  double sweep = 0;
  for (std::size_t i = 0; i < c.size(); ++i) {
    if (c[i].bulge == 0) return false;
    const ArcData q = arcOf(c[i], c[(i + 1) % c.size()]);
    if (std::hypot(p.centre.x - q.centre.x, p.centre.y - q.centre.y) > 1e-6) return false;
    sweep += q.sweep;
  }
  return std::fabs(std::fabs(sweep) - 2 * kPi) < 1e-6;
}

struct Segment {
  Point a, b;
};

void sample(const Contour& c, std::vector<Segment>& out) {
  for (std::size_t i = 0; i < c.size(); ++i) {
    const Vertex& a = c[i];
    const Vertex& b = c[(i + 1) % c.size()];
    if (a.bulge == 0) {
      out.push_back({{a.x, a.y}, {b.x, b.y}});
      continue;
    }
    const ArcData arc = arcOf(a, b);
    const int n = 720;
    Point last{a.x, a.y};
    for (int k = 1; k <= n; ++k) {
      const Point next = k == n ? Point{b.x, b.y} : arc.at(static_cast<double>(k) / n);
      out.push_back({last, next});
      last = next;
    }
  }
}

bool freeAbove(const std::vector<Segment>& all, double x, double y) {
  for (const Segment& s : all) {
    if ((s.a.x <= x) == (s.b.x <= x)) continue;
    const double at = s.a.y + (s.b.y - s.a.y) * (x - s.a.x) / (s.b.x - s.a.x);
    if (at > y + kAbove) return false;
  }
  return true;
}

bool seen(const std::vector<Segment>& all, const Point& p) {
  return freeAbove(all, p.x - kBeside, p.y) || freeAbove(all, p.x + kBeside, p.y);
}

// The points of a contour that make an edge of the bar.
void edgesOf(const Contour& c, std::vector<Point>& out) {
  if (isCircle(c)) {
    const ArcData arc = arcOf(c[0], c[1]);
    out.push_back({arc.centre.x - arc.radius, arc.centre.y});
    out.push_back({arc.centre.x + arc.radius, arc.centre.y});
    return;
  }
  for (std::size_t i = 0; i < c.size(); ++i) {
    const Vertex& prev = c[(i + c.size() - 1) % c.size()];
    const Vertex& a = c[i];
    const Vertex& b = c[(i + 1) % c.size()];
    const double in = std::atan2(a.y - prev.y, a.x - prev.x) + 2 * std::atan(prev.bulge);
    const double away = std::atan2(b.y - a.y, b.x - a.x) - 2 * std::atan(a.bulge);
    const double limit = prev.bulge == 0 && a.bulge == 0 ? kStraight : kTangent;
    if (std::fabs(wrap(away - in)) > limit) out.push_back({a.x, a.y});
    if (a.bulge == 0) continue;

    const ArcData arc = arcOf(a, b);
    bool turnsBack = false;
    for (const double extreme : {0.0, kPi}) {
      for (int lap = -2; lap <= 2; ++lap) {
        const double share = (extreme + 2 * kPi * lap - arc.start) / arc.sweep;
        if (share < -1e-9 || share > 1 + 1e-9) continue;
        out.push_back({arc.centre.x + arc.radius * std::cos(extreme), arc.centre.y});
        turnsBack = true;
        break;
      }
    }
    if (turnsBack) continue;
    // A bend that doesn't turn back shows as the corner that it rounds off; seen or not where the arc passes that X.
    const double half = std::fabs(arc.sweep) / 2;
    const double reach = arc.radius / std::cos(half);
    const double middle = arc.start + arc.sweep / 2;
    const double x = arc.centre.x + reach * std::cos(middle);
    const double rise = std::sqrt(std::max(0.0, arc.radius * arc.radius - (x - arc.centre.x) * (x - arc.centre.x)));
    const bool upper = std::sin(middle) > 0;
    out.push_back({x, arc.centre.y + (upper ? rise : -rise)});
  }
}

}  // namespace

View look(const Outline& outline) {
  std::vector<Segment> all;
  std::vector<Point> edges;
  std::vector<std::pair<double, double>> spans;
  for (const Contour& raw : outline) {
    const Contour c = cleaned(raw);
    std::vector<Segment> own;
    sample(c, own);
    double low = own.front().a.x, high = low;
    for (const Segment& s : own) {
      low = std::min(low, s.a.x);
      high = std::max(high, s.a.x);
    }
    std::vector<Point> ownEdges;
    edgesOf(c, ownEdges);
    // The sampled arcs miss their extremes by a trifle: the edges stand there exactly.
    for (const Point& p : ownEdges) {
      low = std::min(low, p.x);
      high = std::max(high, p.x);
    }
    spans.push_back({low, high});
    all.insert(all.end(), own.begin(), own.end());
    edges.insert(edges.end(), ownEdges.begin(), ownEdges.end());
  }
  std::sort(spans.begin(), spans.end());
  View view;
  double low = spans.front().first, high = spans.front().second;
  for (const auto& s : spans) {
    if (s.first - high > kOneLine) {
      view.sides.push_back(low);
      view.sides.push_back(high);
      low = s.first;
      high = s.second;
    }
    high = std::max(high, s.second);
  }
  view.sides.push_back(low);
  view.sides.push_back(high);

  for (const Point& p : edges) view.lines.push_back({p.x, seen(all, p)});
  std::sort(view.lines.begin(), view.lines.end(), [](const Line& a, const Line& b) { return a.x < b.x; });
  return view;
}

namespace {

bool near(double a, double b) {
  return std::fabs(a - b) < kOneLine * 1.05;
}

bool onSide(const View& v, double x) {
  return std::any_of(v.sides.begin(), v.sides.end(), [x](double s) { return near(s, x); });
}

}  // namespace

bool same(const View& judged, const View& drawn, std::string* why) {
  std::ostringstream out;
  if (judged.sides.size() != drawn.sides.size()) {
    out << "sides " << drawn.sides.size() << " for " << judged.sides.size() << "; ";
  } else {
    for (std::size_t i = 0; i < judged.sides.size(); ++i)
      if (!near(judged.sides[i], drawn.sides[i]))
        out << "side at " << drawn.sides[i] << " for " << judged.sides[i] << "; ";
  }
  for (const Line& d : drawn.lines) {
    bool visible = false, any = false;
    for (const Line& j : judged.lines) {
      if (!near(j.x, d.x)) continue;
      any = true;
      visible = visible || j.visible;
    }
    if (onSide(judged, d.x)) out << "line on a side at " << d.x << "; ";
    if (!any)
      out << "spurious line at " << d.x << (d.visible ? " (visible); " : " (hidden); ");
    else if (visible != d.visible)
      out << (d.visible ? "visible for hidden at " : "hidden for visible at ") << d.x << "; ";
  }
  for (const Line& j : judged.lines) {
    if (onSide(judged, j.x)) continue;
    if (std::none_of(drawn.lines.begin(), drawn.lines.end(), [&](const Line& d) { return near(d.x, j.x); }))
      out << "missing " << (j.visible ? "visible" : "hidden") << " line at " << j.x << "; ";
  }
  if (why != nullptr) *why = out.str();
  return out.str().empty();
}

std::string text(const Outline& outline) {
  std::ostringstream out;
  out.precision(12);
  for (const Contour& c : outline) {
    for (const Vertex& v : c) out << v.x << ", " << v.y << ", " << v.bulge << "\n";
    out << "--\n";
  }
  return out.str();
}

Outline turned(const Outline& outline, double angle) {
  Outline out = outline;
  const double c = std::cos(angle), s = std::sin(angle);
  for (Contour& contour : out)
    for (Vertex& v : contour) v = {v.x * c - v.y * s, v.x * s + v.y * c, v.bulge};
  return out;
}

Outline mirrored(const Outline& outline) {
  Outline out = outline;
  for (Contour& contour : out)
    for (Vertex& v : contour) v = {-v.x, v.y, -v.bulge};
  return out;
}

double area(const Contour& c) {
  double sum = 0;
  for (std::size_t i = 0; i < c.size(); ++i) {
    const Vertex& a = c[i];
    const Vertex& b = c[(i + 1) % c.size()];
    sum += (a.x * b.y - b.x * a.y) / 2;
    if (a.bulge == 0) continue;
    const ArcData arc = arcOf(a, b);
    sum += arc.radius * arc.radius * (arc.sweep - std::sin(arc.sweep)) / 2;
  }
  return sum;
}

}  // namespace oracle
