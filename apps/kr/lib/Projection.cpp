#include "Projection.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "BarFrame.h"

namespace kr {
namespace {

constexpr double kQuarter = std::numbers::pi / 2;

// A bar that leaves the look by a sine below this shows its section.
constexpr double kAlongLook = 0.01;

// The plane of a view: right and up on paper, and towards the viewer.
struct ViewPlane {
  AcGeVector3d right;
  AcGeVector3d up;
  AcGeVector3d near;

  JobPoint operator()(const JobPoint& p) const {
    const AcGeVector3d v(p.x, p.y, p.z);
    return {v.dotProduct(right), v.dotProduct(up)};
  }
};

ViewPlane planeOf(Look look) {
  const AcGeVector3d x(1, 0, 0);
  const AcGeVector3d y(0, 1, 0);
  const AcGeVector3d z(0, 0, 1);
  switch (look) {
    case Look::kFront:
      return {x, z, -y};
    case Look::kBack:
      return {-x, z, y};
    case Look::kLeft:
      return {-y, z, -x};
    case Look::kRight:
      return {y, z, x};
    case Look::kPlan:
      break;
  }
  return {x, y, z};
}

// The coordinate along the look of a job.
double depthOf(Look look, const JobPoint& p) {
  if (look == Look::kPlan) return p.z;
  return look == Look::kFront || look == Look::kBack ? p.y : p.x;
}

bool isWithin(const Job& job, const JobView& view, const JobMember& member) {
  for (const std::uint32_t node : {member.from, member.to}) {
    const double depth = depthOf(view.look, job.points[node]);
    if (depth < view.from || depth > view.to) return false;
  }
  return view.roles.empty() || std::find(view.roles.begin(), view.roles.end(), member.role) != view.roles.end();
}

// Those that are named, and those that the other keys choose; with no key, all.
bool isShown(const Job& job, const JobView& view, std::uint32_t index) {
  if (std::find(view.members.begin(), view.members.end(), index) != view.members.end()) return true;
  const bool chooses = !view.roles.empty() || view.from > -kLargestCoordinate || view.to < kLargestCoordinate;
  return (chooses || view.members.empty()) && isWithin(job, view, job.members[index]);
}

// A bar seen end on. Its section is turned as its up lies on paper; seen from its end it is mirrored after that.
void showSection(JobMember& member, const BarFrame& frame, const ViewPlane& plane) {
  const bool fromStart = frame.along.dotProduct(plane.near) < 0;
  const double turn = std::atan2(frame.up.dotProduct(plane.up), frame.up.dotProduct(plane.right)) - kQuarter;
  member.view = fromStart ? 0 : 6;
  member.rotation += fromStart ? turn : -turn;
  member.startSetback = member.endSetback = 0;
}

// A bar seen from the side. Of the four elevations the one whose side is nearest to the viewer is taken, and the
// section turned by what is left. "Inferior" and "Esquerda" mirror the section across the bar, so they are true to
// their place when they are drawn from the bar's end to its start.
void showElevation(JobMember& member, const BarFrame& frame, const ViewPlane& plane) {
  struct Side {
    double direction;  // of the viewer about the bar, from the section's X
    std::int8_t view;
    bool reversed;
  };
  constexpr std::array kSides = {Side{0, 4, false}, Side{kQuarter, 1, false}, Side{2 * kQuarter, 3, true},
                                 Side{-kQuarter, 2, true}};
  const double viewer =
      std::atan2(plane.near.dotProduct(frame.up), plane.near.dotProduct(frame.across)) - member.rotation;
  const auto away = [&](const Side& side) { return std::remainder(side.direction - viewer, 4 * kQuarter); };
  const Side side = *std::min_element(kSides.begin(), kSides.end(), [&](const Side& a, const Side& b) {
    return std::abs(away(a)) + kAlongLook < std::abs(away(b));
  });
  member.view = side.view;
  member.rotation = away(side);
  if (std::abs(member.rotation) < 1e-9) member.rotation = 0;
  const double seen = std::hypot(frame.along.dotProduct(plane.right), frame.along.dotProduct(plane.up));
  member.startSetback *= seen;
  member.endSetback *= seen;
  if (!side.reversed) return;
  std::swap(member.from, member.to);
  std::swap(member.startSetback, member.endSetback);
}

}  // namespace

Job projected(const Job& job, const JobView& view) {
  const ViewPlane plane = planeOf(view.look);
  Job flat;
  flat.names = job.names;
  flat.layers = job.layers;
  flat.profiles = job.profiles;
  flat.modifiers = job.modifiers;
  // A member's own scale is of the plane of the job: a view has its own.
  for (JobModifiers& modifiers : flat.modifiers) modifiers.scale = modifiers.scaleAlong = 0;
  flat.points.reserve(job.points.size());
  for (const JobPoint& point : job.points) flat.points.push_back(plane(point));
  for (std::uint32_t i = 0; i < job.members.size(); ++i) {
    if (!isShown(job, view, i)) continue;
    JobMember member = job.members[i];
    const BarFrame frame = barFrame(fromTo(job.points[member.from], job.points[member.to]));
    const double endOn = std::abs(frame.along.dotProduct(plane.near));
    if (std::sqrt(std::max(0.0, 1 - endOn * endOn)) < kAlongLook) {
      // Both its ends lie at one place on paper.
      member.to = member.from;
      showSection(member, frame, plane);
    } else {
      showElevation(member, frame, plane);
    }
    flat.members.push_back(member);
  }
  return flat;
}

Job laidDown(const Job& job) {
  Job flat = job;
  if (!isSpatial(job)) return flat;
  flat.points.clear();
  for (JobMember& member : flat.members) {
    const MemberAxis axis = memberAxis(job, member);
    const AcGeVector3d bar = fromTo(axis.start, axis.end);
    const double flatLength = std::hypot(bar.x, bar.y);
    const double stretch = flatLength > 0 ? bar.length() / flatLength : 0;
    const JobPoint end = stretch > 0 ? JobPoint{axis.start.x + bar.x * stretch, axis.start.y + bar.y * stretch}
                                     : JobPoint{axis.start.x + bar.length(), axis.start.y};
    member.startSetback = member.endSetback = 0;
    member.from = static_cast<std::uint32_t>(flat.points.size());
    member.to = member.from + 1;
    flat.points.push_back({axis.start.x, axis.start.y});
    flat.points.push_back(end);
  }
  return flat;
}

std::string viewName(const JobView& view) {
  if (!view.title.empty()) return view.title;
  constexpr const char* kNames[] = {"PLAN", "FRONT ELEVATION", "BACK ELEVATION", "LEFT ELEVATION", "RIGHT ELEVATION"};
  return kNames[static_cast<std::size_t>(view.look)];
}

std::vector<JobView> standardViews() {
  std::vector<JobView> views(3);
  views[0].look = Look::kPlan;
  views[1].look = Look::kFront;
  views[2].look = Look::kRight;
  return views;
}

}  // namespace kr
