#include "SheetElevation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <unordered_map>

#include "Number.h"

namespace kr {
namespace {

constexpr double kBalloon = 3.2;          // radius
constexpr double kWideBalloon = 4.2;      // of three digits and more
constexpr double kBalloonGap = 0.8;       // to the member and to everything else
constexpr std::size_t kMostSought = 600;  // beyond this many members each number stands beside the middle
constexpr double kSameCoordinate = 0.5;   // mm: nodes of one line

constexpr double kFirstDimension = 12;  // from the picture to the first line of dimensions
constexpr double kNextDimension = 9;
constexpr double kTick = 1.2;   // half of an oblique stroke, along each axis
constexpr double kOverrun = 2;  // of an extension line past the dimension line
constexpr double kExtensionGap = 3;

double distance(JobPoint p, const Stroke& s) {
  const double dx = s.b.x - s.a.x;
  const double dy = s.b.y - s.a.y;
  const double square = dx * dx + dy * dy;
  const double t = square > 0 ? std::clamp(((p.x - s.a.x) * dx + (p.y - s.a.y) * dy) / square, 0.0, 1.0) : 0;
  return std::hypot(p.x - s.a.x - t * dx, p.y - s.a.y - t * dy) - s.half;
}

struct Balloon {
  JobPoint centre;
  JobPoint foot;  // on the member's axis
};

// The free room about a balloon there: the least distance to anything but its own member, less its radius.
double room(const Balloon& balloon, double radius, std::size_t own, const std::vector<Stroke>& strokes,
            const std::vector<Balloon>& placed) {
  double least = std::numeric_limits<double>::max();
  for (std::size_t i = 0; i < strokes.size(); ++i) {
    if (i != own) least = std::min(least, distance(balloon.centre, strokes[i]) - radius);
  }
  for (const Balloon& other : placed) {
    const double apart = std::hypot(balloon.centre.x - other.centre.x, balloon.centre.y - other.centre.y);
    least = std::min(least, apart - radius - kWideBalloon);
  }
  return least;
}

Balloon beside(const Stroke& stroke, double t, double side, double radius) {
  const double dx = stroke.b.x - stroke.a.x;
  const double dy = stroke.b.y - stroke.a.y;
  const double length = std::hypot(dx, dy);
  const JobPoint foot{stroke.a.x + t * dx, stroke.a.y + t * dy};
  const double apart = stroke.half + kBalloonGap + radius + 1;
  if (length == 0) {
    // About a section the places lie on a circle.
    const double angle = 2 * std::numbers::pi * t * side;
    return {{foot.x + apart * std::cos(angle), foot.y + apart * std::sin(angle)}, foot};
  }
  const double off = side * apart / length;
  return {{foot.x - dy * off, foot.y + dx * off}, foot};
}

Balloon bestBalloon(std::size_t own, double radius, const std::vector<Stroke>& strokes,
                    const std::vector<Balloon>& placed) {
  constexpr double kPlaces[] = {0.5, 0.46, 0.54, 0.42, 0.58, 0.38, 0.62, 0.34, 0.66, 0.26, 0.74, 0.18, 0.82};
  Balloon best = beside(strokes[own], 0.5, 1, radius);
  if (strokes.size() > kMostSought) return best;
  double most = -std::numeric_limits<double>::max();
  for (const double t : kPlaces) {
    for (const double side : {1.0, -1.0}) {
      const Balloon tried = beside(strokes[own], t, side, radius);
      const double free = room(tried, radius, own, strokes, placed);
      if (free >= kBalloonGap) return tried;
      if (free > most) {
        most = free;
        best = tried;
      }
    }
  }
  return best;
}

// Values without those that repeat an earlier one, rising.
std::vector<double> distinct(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const auto same = [](double a, double b) { return b - a < kSameCoordinate; };
  values.erase(std::unique(values.begin(), values.end(), same), values.end());
  return values;
}

// What the main dimensions measure: places on the lowest line from end to end, and heights at the right end from the
// lowest.
struct DimensionedPoints {
  std::vector<double> along;
  std::vector<double> up;
  double high = 0;
};

// Plates have no system lines.
bool isBar(const JobMember& member) {
  constexpr int kGousset = 7;
  constexpr int kChapa = 8;
  return member.role != kGousset && member.role != kChapa;
}

DimensionedPoints dimensionedPoints(const Job& job) {
  std::vector<JobPoint> nodes;
  for (const JobMember& member : job.members) {
    if (!isBar(member)) continue;
    nodes.push_back(job.points[member.from]);
    nodes.push_back(job.points[member.to]);
  }
  const auto byX = [](JobPoint a, JobPoint b) { return a.x < b.x; };
  const auto byY = [](JobPoint a, JobPoint b) { return a.y < b.y; };
  const auto [left, right] = std::minmax_element(nodes.begin(), nodes.end(), byX);
  const auto [low, high] = std::minmax_element(nodes.begin(), nodes.end(), byY);
  DimensionedPoints points{{left->x, right->x}, {low->y}, high->y};
  for (const JobPoint node : nodes) {
    if (node.y - low->y < kSameCoordinate) points.along.push_back(node.x);
    if (right->x - node.x < kSameCoordinate) points.up.push_back(node.y);
  }
  points.along = distinct(points.along);
  points.up = distinct(points.up);
  return points;
}

// One line of dimensions through `values` (real, along) at `across` on paper; extension lines begin at `from`.
struct DimensionLine {
  Painter& painter;
  const Placement& place;
  bool upright;

  JobPoint at(double along, double across) const {
    return upright ? JobPoint{across, along * place.scale + place.offset.y}
                   : JobPoint{along * place.scale + place.offset.x, across};
  }

  void draw(const std::vector<double>& values, double across, double from) const {
    const double away = across > from ? 1 : -1;
    painter.line(at(values.front(), across), at(values.back(), across), Pen::kDimension);
    for (std::size_t i = 0; i < values.size(); ++i) {
      const JobPoint on = at(values[i], across);
      painter.line({on.x - kTick, on.y - kTick}, {on.x + kTick, on.y + kTick}, Pen::kText);
      painter.line(at(values[i], from + away * kExtensionGap), at(values[i], across + away * kOverrun),
                   Pen::kDimension);
      if (i == 0) continue;
      const double length = values[i] - values[i - 1];
      const bool whole = std::abs(length - std::round(length)) < 0.05;
      JobPoint middle = at((values[i] + values[i - 1]) / 2, across);
      (upright ? middle.x : middle.y) += upright ? -1.0 : 1.0;
      painter.text(middle, fixed(length, whole ? 0 : 1), kSmallText, Align::kCentre,
                   std::max(length * place.scale - 1, 1.0), false, upright ? std::acos(0.0) : 0, Pen::kText);
    }
  }
};

}  // namespace

AcGeMatrix3d matrixOf(const Placement& place) {
  return AcGeMatrix3d::translation(AcGeVector3d(place.offset.x, place.offset.y, 0)) *
         AcGeMatrix3d::scaling(place.scale, AcGePoint3d::kOrigin);
}

bool isDimensioned(const Job& job) {
  return std::any_of(job.members.begin(), job.members.end(), isBar);
}

namespace {

double scaleAcross(const Job& job, const JobMember& member) {
  const double own = member.modifiers == kNone ? 0 : job.modifiers[member.modifiers].scale;
  return own > 0 ? own : 1;
}

}  // namespace

std::vector<Stroke> memberStrokes(const Job& job, const Placement& place) {
  std::vector<Stroke> strokes;
  for (const JobMember& member : job.members) {
    const MemberAxis axis = drawnAxis(job, member);
    const JobProfile& profile = job.profiles[member.profile];
    strokes.push_back({place(axis.start), place(axis.end),
                       reachAcross(*profile.profileClass, memberValues(job, member), member.view) * place.scale *
                           scaleAcross(job, member)});
  }
  return strokes;
}

double clearanceOf(JobPoint point, const std::vector<Stroke>& strokes) {
  double least = std::numeric_limits<double>::max();
  for (const Stroke& stroke : strokes) least = std::min(least, distance(point, stroke));
  return least;
}

void drawMarks(Painter& painter, const Job& job, const Bom& bom, const Placement& place,
               const std::vector<Stroke>& avoid) {
  std::unordered_map<std::string, int> marks = bom.marks();
  std::vector<Stroke> strokes = memberStrokes(job, place);
  strokes.insert(strokes.end(), avoid.begin(), avoid.end());
  std::vector<Balloon> placed;
  for (std::size_t i = 0; i < job.members.size(); ++i) {
    const std::string text = std::to_string(marks[std::string(job.names.text(job.members[i].name))]);
    const double radius = text.size() > 2 ? kWideBalloon : kBalloon;
    const Balloon balloon = bestBalloon(i, radius, strokes, placed);
    const double reach = std::hypot(balloon.foot.x - balloon.centre.x, balloon.foot.y - balloon.centre.y);
    const double part = radius / reach;
    painter.circle(balloon.centre, radius, Pen::kMark);
    painter.line({balloon.centre.x + (balloon.foot.x - balloon.centre.x) * part,
                  balloon.centre.y + (balloon.foot.y - balloon.centre.y) * part},
                 balloon.foot, Pen::kDimension);
    painter.text(balloon.centre, text, kSmallText, Align::kCentre, 2 * radius - 1, true, 0, Pen::kMark);
    placed.push_back(balloon);
  }
}

std::vector<Stroke> dimensionStrokes(const Job& job, const Placement& place) {
  constexpr double kHalfNumber = 5;
  const DimensionedPoints points = dimensionedPoints(job);
  const double bottom = place({0, points.up.front()}).y;
  const double across = bottom - kFirstDimension;
  std::vector<Stroke> strokes;
  for (std::size_t i = 0; i < points.along.size(); ++i) {
    const double x = place({points.along[i], 0}).x;
    strokes.push_back({{x, bottom - kExtensionGap}, {x, across}, 0});
    if (i == 0) continue;
    const double middle = (x + place({points.along[i - 1], 0}).x) / 2;
    const double height = across + 1 + kSmallText / 2;
    strokes.push_back({{middle - kHalfNumber, height}, {middle + kHalfNumber, height}, kSmallText / 2});
  }
  const double right = place({points.along.back(), 0}).x;
  for (std::size_t i = 1; i < points.up.size(); ++i) {
    const double middle = place({0, (points.up[i] + points.up[i - 1]) / 2}).y;
    const double column = right + kFirstDimension - 1 - kSmallText / 2;
    strokes.push_back({{column, middle - kHalfNumber}, {column, middle + kHalfNumber}, kSmallText / 2});
  }
  return strokes;
}

void drawDimensions(Painter& painter, const Job& job, const Placement& place) {
  const DimensionedPoints points = dimensionedPoints(job);
  const double left = points.along.front();
  const double right = points.along.back();
  const double low = points.up.front();
  const double bottom = place({left, low}).y;
  const double side = place({right, low}).x;
  const DimensionLine flat{painter, place, false};
  const DimensionLine upright{painter, place, true};
  double across = bottom - kFirstDimension;
  if (points.along.size() > 2) {
    flat.draw(points.along, across, bottom);
    across -= kNextDimension;
  }
  if (right - left >= kSameCoordinate) flat.draw({left, right}, across, bottom);
  across = side + kFirstDimension;
  const bool reachesTop = points.high - points.up.back() < kSameCoordinate;
  if (points.up.size() > (reachesTop ? 2U : 1U)) {
    upright.draw(points.up, across, side);
    across += kNextDimension;
  }
  if (points.high - low >= kSameCoordinate) upright.draw({low, points.high}, across, side);
}

}  // namespace kr
