#include "host/db/entities/HatchPicture.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

using entities::Outline;

constexpr double kStepsPerTurn = 64.0;
// A family of lines so dense that this many cross the area is drawn no more: it would be a grey.
constexpr double kMostLines = 20000.0;
// Dashes of one line.
constexpr double kMostDashes = 20000.0;
// Of a whole hatch: edges looked at, and pieces drawn. A file can tell of any number of families, edges and dashes.
constexpr long kMostEdges = 100'000'000;
constexpr long kMostStrokes = 2'000'000;

int stepsOf(double sweep) {
  if (!std::isfinite(sweep)) return 1;
  return std::clamp(int(std::ceil(std::fabs(sweep) / kAcGeTwoPi * kStepsPerTurn)), 1, 4 * int(kStepsPerTurn));
}

void addBulge(Outline& outline, const AcGePoint2d& from, const AcGePoint2d& to, double bulge) {
  outline.push_back(from);
  if (bulge == 0.0 || !std::isfinite(bulge)) return;
  // The centre lies on the chord's perpendicular bisector, (1 - b^2) / 4b chords to its left.
  const AcGeVector2d chord = to - from;
  const double aside = (1.0 - bulge * bulge) / (4.0 * bulge);
  const AcGePoint2d center = from + chord / 2.0 + AcGeVector2d(-chord.y, chord.x) * aside;
  const AcGeVector2d start = from - center;
  const double sweep = 4.0 * std::atan(bulge);
  const int steps = stepsOf(sweep);
  for (int i = 1; i < steps; ++i) {
    const double a = sweep * i / steps;
    outline.push_back(center + AcGeVector2d(start.x * std::cos(a) - start.y * std::sin(a),
                                            start.x * std::sin(a) + start.y * std::cos(a)));
  }
}

/// Points of an arc or ellipse arc, ends included. The axes lead to parameter 0 and a quarter turn.
void addArc(Outline& outline, const AcDbHatch::Edge& edge, const AcGeVector2d& x, const AcGeVector2d& y) {
  // A clockwise edge tells its angles against the axis.
  const double sign = edge.counterClockwise ? 1.0 : -1.0;
  double sweep = std::fmod(edge.endAngle - edge.startAngle, kAcGeTwoPi);
  if (!std::isfinite(sweep)) return;
  if (sweep <= 0.0) sweep += kAcGeTwoPi;
  const int steps = stepsOf(sweep);
  for (int i = 0; i <= steps; ++i) {
    const double a = sign * (edge.startAngle + sweep * i / steps);
    outline.push_back(edge.start + x * std::cos(a) + y * std::sin(a));
  }
}

/// A point of a spline by de Boor's scheme, in homogeneous coordinates.
AcGePoint2d splinePoint(const AcDbHatch::Edge& edge, std::size_t span, double t) {
  const std::size_t degree = std::size_t(edge.degree);
  struct Homogeneous {
    double x, y, w;
  };
  std::vector<Homogeneous> d;
  for (std::size_t i = span - degree; i <= span; ++i) {
    const double w = edge.rational && i < edge.weights.size() ? edge.weights[i] : 1.0;
    d.push_back({edge.points[i].x * w, edge.points[i].y * w, w});
  }
  for (std::size_t r = 1; r <= degree; ++r) {
    for (std::size_t j = degree; j >= r; --j) {
      const double left = edge.knots[span - degree + j];
      const double right = edge.knots[span + 1 + j - r];
      const double a = right > left ? (t - left) / (right - left) : 0.0;
      d[j] = {(1 - a) * d[j - 1].x + a * d[j].x, (1 - a) * d[j - 1].y + a * d[j].y, (1 - a) * d[j - 1].w + a * d[j].w};
    }
  }
  const double w = d[degree].w != 0.0 ? d[degree].w : 1.0;
  return {d[degree].x / w, d[degree].y / w};
}

void addSpline(Outline& outline, const AcDbHatch::Edge& edge) {
  constexpr Adesk::Int32 kMostDegree = 25;
  constexpr int kStepsPerSpan = 8;
  const std::size_t degree = std::size_t(std::clamp<Adesk::Int32>(edge.degree, 0, kMostDegree));
  const bool sound = edge.degree >= 1 && edge.degree <= kMostDegree && edge.points.size() > degree &&
                     edge.knots.size() >= edge.points.size() + degree + 1;
  if (!sound) {
    outline.insert(outline.end(), edge.points.begin(), edge.points.end());
    return;
  }
  for (std::size_t span = degree; span < edge.points.size(); ++span) {
    const double from = edge.knots[span];
    const double to = edge.knots[span + 1];
    if (!(to > from)) continue;
    for (int i = 0; i <= kStepsPerSpan; ++i) {
      outline.push_back(splinePoint(edge, span, from + (to - from) * i / kStepsPerSpan));
    }
  }
}

void addEdge(Outline& outline, const AcDbHatch::Edge& edge) {
  const AcGeVector2d along(edge.end.x, edge.end.y);
  switch (edge.kind) {
    case AcDbHatch::EdgeKind::kLine:
      outline.push_back(edge.start);
      outline.push_back(edge.end);
      break;
    case AcDbHatch::EdgeKind::kArc:
      addArc(outline, edge, {edge.radius, 0.0}, {0.0, edge.radius});
      break;
    case AcDbHatch::EdgeKind::kEllipse:
      addArc(outline, edge, along, AcGeVector2d(-along.y, along.x) * edge.radius);
      break;
    case AcDbHatch::EdgeKind::kSpline:
      addSpline(outline, edge);
      break;
  }
}

bool isInside(const Outline& outline, const AcGePoint2d& p) {
  bool inside = false;
  for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
    const AcGePoint2d& a = outline[i];
    const AcGePoint2d& b = outline[j];
    if ((a.y > p.y) == (b.y > p.y)) continue;
    if (p.x < a.x + (b.x - a.x) * (p.y - a.y) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

double signedArea(const Outline& outline) {
  double twice = 0.0;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const AcGePoint2d& a = outline[i];
    const AcGePoint2d& b = outline[(i + 1) % outline.size()];
    twice += a.x * b.y - a.y * b.x;
  }
  return twice / 2.0;
}

/// Leads a hole into an outline by a cut between the two closest vertices.
void leadIn(Outline& area, const Outline& hole) {
  std::size_t at = 0;
  std::size_t from = 0;
  double nearest = std::numeric_limits<double>::max();
  for (std::size_t i = 0; i < area.size(); ++i) {
    for (std::size_t j = 0; j < hole.size(); ++j) {
      const double distance = (area[i] - hole[j]).lengthSqrd();
      if (distance >= nearest) continue;
      nearest = distance;
      at = i;
      from = j;
    }
  }
  Outline cut;
  for (std::size_t j = 0; j <= hole.size(); ++j) cut.push_back(hole[(from + j) % hole.size()]);
  cut.push_back(area[at]);
  area.insert(area.begin() + std::ptrdiff_t(at) + 1, cut.begin(), cut.end());
}

}  // namespace

Outline entities::hatchOutline(const AcDbHatch::Path& path) {
  Outline outline;
  if (path.isPolyline()) {
    const std::size_t count = path.vertices.size();
    for (std::size_t i = 0; i < count; ++i) {
      const double bulge = i < path.bulges.size() && path.hasBulges ? path.bulges[i] : 0.0;
      addBulge(outline, path.vertices[i], path.vertices[(i + 1) % count], bulge);
    }
  } else {
    for (const AcDbHatch::Edge& edge : path.edges) addEdge(outline, edge);
  }
  const auto same = [](const AcGePoint2d& a, const AcGePoint2d& b) { return a.x == b.x && a.y == b.y; };
  outline.erase(std::unique(outline.begin(), outline.end(), same), outline.end());
  while (outline.size() > 1 && same(outline.front(), outline.back())) outline.pop_back();
  return outline;
}

std::vector<Outline> entities::hatchAreas(const std::vector<Outline>& outlines) {
  // How many others an outline lies in tells whether it bounds an area from outside or is a hole.
  const std::size_t count = outlines.size();
  std::vector<int> depth(count, 0);
  for (std::size_t i = 0; i < count; ++i) {
    if (outlines[i].empty()) continue;
    for (std::size_t j = 0; j < count; ++j) {
      if (j != i && outlines[j].size() > 2 && isInside(outlines[j], outlines[i].front())) ++depth[i];
    }
  }
  std::vector<Outline> areas;
  for (std::size_t i = 0; i < count; ++i) {
    if (depth[i] % 2 != 0 || outlines[i].size() < 3) continue;
    Outline area = outlines[i];
    const bool ccw = signedArea(area) > 0.0;
    for (std::size_t j = 0; j < count; ++j) {
      if (depth[j] != depth[i] + 1 || outlines[j].size() < 3 || !isInside(outlines[i], outlines[j].front())) continue;
      Outline hole = outlines[j];
      if ((signedArea(hole) > 0.0) == ccw) std::reverse(hole.begin(), hole.end());
      leadIn(area, hole);
    }
    areas.push_back(std::move(area));
  }
  return areas;
}

entities::HatchStroker::HatchStroker(const std::vector<Outline>& outlines)
    : outlines_(outlines), edgesLeft_(kMostEdges), strokesLeft_(kMostStrokes) {}

void entities::HatchStroker::draw(const AcDbHatch::PatternLine& line, const Stroke& stroke) {
  const AcGeVector2d along(std::cos(line.angle), std::sin(line.angle));
  const AcGeVector2d across(-along.y, along.x);
  const double spacing = line.offset.dotProduct(across);
  const double shift = line.offset.dotProduct(along);
  if (!(std::fabs(spacing) > 0.0)) return;
  double low = std::numeric_limits<double>::max();
  double high = -low;
  for (const Outline& outline : outlines_) {
    for (const AcGePoint2d& p : outline) {
      const double at = (p - line.origin).dotProduct(across) / spacing;
      low = std::min(low, at);
      high = std::max(high, at);
    }
  }
  if (!(high - low < kMostLines)) return;
  double pattern = 0.0;
  for (const double dash : line.dashes) pattern += std::fabs(dash);
  std::vector<double> crossings;
  // Counted in whole numbers: far from the origin a number doesn't grow by adding 1.
  const double first = std::ceil(low);
  for (int i = 0; first + i <= high && i <= int(kMostLines); ++i) {
    const double n = first + i;
    const AcGePoint2d base = line.origin + across * (n * spacing) + along * (n * shift);
    crossings.clear();
    for (const Outline& outline : outlines_) {
      edgesLeft_ -= long(outline.size());
      for (std::size_t k = 0, j = outline.size() - 1; k < outline.size(); j = k++) {
        const double a = (outline[j] - base).dotProduct(across);
        const double b = (outline[k] - base).dotProduct(across);
        if ((a > 0.0) == (b > 0.0)) continue;
        crossings.push_back((outline[j] + (outline[k] - outline[j]) * (a / (a - b)) - base).dotProduct(along));
      }
    }
    if (edgesLeft_ < 0) return;
    std::sort(crossings.begin(), crossings.end());
    for (std::size_t k = 0; k + 1 < crossings.size(); k += 2) {
      const double from = crossings[k];
      const double to = crossings[k + 1];
      if (--strokesLeft_ < 0) return;
      if (!(pattern > 0.0) || (to - from) / pattern * double(line.dashes.size()) > kMostDashes) {
        stroke(base + along * from, base + along * to);
        continue;
      }
      double at = std::floor(from / pattern) * pattern;
      for (int period = 0; at < to && period <= int(kMostDashes); ++period) {
        strokesLeft_ -= long(line.dashes.size());
        for (const double dash : line.dashes) {
          const double end = at + std::fabs(dash);
          if (dash >= 0.0 && end >= from && at <= to) {
            stroke(base + along * std::max(at, from), base + along * std::min(end, to));
          }
          at = end;
        }
      }
    }
  }
}
