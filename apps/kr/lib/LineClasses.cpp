#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <utility>

#include "ProfileRows.h"
#include "profiles/KrUser.h"
#include "profiles/ProfileHelpers.h"

namespace kr {
namespace {

enum UserKey : std::size_t { kEspessura, kAngleSecao };

constexpr ProfileParameter kUser[] = {{"espessura", true, "thickness of the metal, mm"}, kTurnParameter};

constexpr double kBulgeScale = 127;  // of the tangent in the nodes of a line
constexpr std::size_t kMostPoints = 1000;
constexpr double kTangent = 0.01;  // turn between two edges, radians, that the rounding of points and bulges makes

bool refuse(ParameterProblem& problem, std::string message) {
  problem = {"line", std::move(message)};
  return false;
}

// One edge of the line.
struct Edge {
  LinePoint from;
  LinePoint to;

  double chord() const { return std::hypot(to.x - from.x, to.y - from.y); }
  double radius() const { return chord() * (1 + from.bulge * from.bulge) / (4 * std::abs(from.bulge)); }
  // Its direction where it begins (-1) or ends (1).
  double heading(int end) const { return std::atan2(to.y - from.y, to.x - from.x) + end * 2 * std::atan(from.bulge); }
};

double turnBetween(const Edge& before, const Edge& after) {
  return std::abs(std::remainder(after.heading(-1) - before.heading(1), 2 * std::numbers::pi));
}

bool settleUser(const GivenParameters& /*given*/, ParameterValues& v, ParameterProblem& problem) {
  if (v.line == nullptr) return refuse(problem, "missing \"line\": at least two points of the section's middle line");
  const std::vector<LinePoint>& points = v.line->points;
  if (points.size() < 2) return refuse(problem, "the middle line needs at least two points");
  if (points.size() > kMostPoints) {
    return refuse(problem, "the middle line has more than " + std::to_string(kMostPoints) + " points");
  }
  if (points.back().bulge != 0) return refuse(problem, "no edge starts at the last point: it must have no bulge");
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const Edge edge{points[i], points[i + 1]};
    if (edge.from.bulge != 0 && edge.radius() < v[kEspessura] / 2 - kSectionRounding) {
      return refuse(problem, "the bend from point " + std::to_string(i) +
                                 " is too tight: its radius must be at least half of \"espessura\"");
    }
    if (i > 0 && turnBetween({points[i - 1], points[i]}, edge) > kTangent) {
      return refuse(problem, "the line has a corner at point " + std::to_string(i) +
                                 ": metal is bent by arcs that are tangent to the edges beside them");
    }
  }
  return true;
}

void reach(SectionBox& box, double x, double y, double around) {
  box.left = std::min(box.left, x - around);
  box.below = std::min(box.below, y - around);
  box.right = std::max(box.right, x + around);
  box.above = std::max(box.above, y + around);
}

// The arc's outermost points along the axes, those that it has.
void reachArc(SectionBox& box, const Edge& arc, double around) {
  const double bulge = arc.from.bulge;
  const double dx = arc.to.x - arc.from.x;
  const double dy = arc.to.y - arc.from.y;
  const double rise = (1 - bulge * bulge) / (4 * bulge);
  const double x = (arc.from.x + arc.to.x) / 2 - dy * rise;
  const double y = (arc.from.y + arc.to.y) / 2 + dx * rise;
  const double radius = arc.radius();
  for (const auto& [u, v] : {std::pair{1, 0}, {0, 1}, {-1, 0}, {0, -1}}) {
    const double side = dx * (y + radius * v - arc.from.y) - dy * (x + radius * u - arc.from.x);
    if (side * bulge < 0) reach(box, x + radius * u, y + radius * v, around);
  }
}

SectionBox boxUser(const ParameterValues& v) {
  const std::vector<LinePoint>& points = v.line->points;
  const LinePoint& first = points.front();
  const LinePoint& origin = v.line->origin;
  const double half = v[kEspessura] / 2;
  SectionBox box{first.x, first.y, first.x, first.y};
  for (std::size_t i = 0; i < points.size(); ++i) {
    reach(box, points[i].x, points[i].y, half);
    if (points[i].bulge != 0) reachArc(box, {points[i], points[i + 1]}, half);
  }
  return {box.left - origin.x, box.below - origin.y, box.right - origin.x, box.above - origin.y};
}

KrObject* makeUser(AcGePoint3d& start, AcGePoint3d& end, int view, const ParameterValues& v) {
  KrGeratriz line;
  for (const LinePoint& p : v.line->points) line.Add(AcGeVector3d(p.x, p.y, 0), p.bulge * kBulgeScale);
  line.Add(AcGeVector3d(v.line->origin.x, v.line->origin.y, 0), KrGeratriz::kReferenceBulge);
  auto member = std::make_unique<KrUser>();
  ProfileHelpers::placeBar(*member, start, end, static_cast<KrVistas>(view));
  member->setAngleSecao(v[kAngleSecao]);
  member->setespessura(v[kEspessura]);
  member->setLinhaMedia(line);
  member->Calcule();
  return member.release();
}

constexpr ProfileClass kRows[] = {{"KrUser", kUser, settleUser, boxUser, makeUser, kAngleSecao, true}};

}  // namespace

std::span<const ProfileClass> lineClasses() {
  return kRows;
}

}  // namespace kr
