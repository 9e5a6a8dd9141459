#include "BarFrame.h"

#include <cmath>

namespace kr {
namespace {

// A bar whose direction leaves the upright by a sine below this is upright.
constexpr double kUpright = 1e-6;

}  // namespace

AcGeVector3d fromTo(const JobPoint& from, const JobPoint& to) {
  return {to.x - from.x, to.y - from.y, to.z - from.z};
}

BarFrame barFrame(const AcGeVector3d& direction) {
  const AcGeVector3d along = direction.normal();
  const bool upright = std::hypot(along.x, along.y) < kUpright;
  const AcGeVector3d wanted = upright ? AcGeVector3d::kXAxis : AcGeVector3d::kZAxis;
  const AcGeVector3d up = (wanted - along * wanted.dotProduct(along)).normal();
  return {along, along.crossProduct(up), up};
}

bool isSpatial(const Job& job) {
  for (const JobPoint& point : job.points) {
    if (point.z != 0) return true;
  }
  return false;
}

ParameterValues memberValues(const Job& job, const JobMember& member) {
  const JobProfile& profile = job.profiles[member.profile];
  ParameterValues values = profile.values;
  if (profile.profileClass->turn < kMaxParameters) values[profile.profileClass->turn] += member.rotation;
  return values;
}

MemberAxis memberAxis(const Job& job, const JobMember& member) {
  const JobPoint from = job.points[member.from];
  const JobPoint to = job.points[member.to];
  if (member.startSetback == 0 && member.endSetback == 0) return {from, to};
  const AcGeVector3d u = fromTo(from, to).normal();
  return {{from.x + u.x * member.startSetback, from.y + u.y * member.startSetback, from.z + u.z * member.startSetback},
          {to.x - u.x * member.endSetback, to.y - u.y * member.endSetback, to.z - u.z * member.endSetback}};
}

MemberAxis drawnAxis(const Job& job, const JobMember& member) {
  MemberAxis axis = memberAxis(job, member);
  if (member.modifiers == kNone) return axis;
  const JobModifiers& modifiers = job.modifiers[member.modifiers];
  const double along = modifiers.scaleAlong > 0 ? modifiers.scaleAlong : modifiers.scale;
  if (along <= 0) return axis;
  const AcGeVector3d bar = fromTo(axis.start, axis.end) * along;
  axis.end = {axis.start.x + bar.x, axis.start.y + bar.y, axis.start.z + bar.z};
  return axis;
}

}  // namespace kr
