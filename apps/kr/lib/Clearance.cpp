#include "Clearance.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "BarFrame.h"

namespace kr {
namespace {

// Members whose directions differ by a sine below this run on from each other and need no gap.
constexpr double kAlongside = 0.05;

// A node lies on a member's axis within this, mm: what rounding leaves of coordinates worked out by hand.
constexpr double kOnAxis = 1;

AcGeVector3d directionOf(const Job& job, const JobMember& member) {
  return fromTo(job.points[member.from], job.points[member.to]).normal();
}

bool passes(const Job& job, const JobMember& member, JobPoint node) {
  const JobPoint a = job.points[member.from];
  const JobPoint b = job.points[member.to];
  if (std::min(a.x, b.x) > node.x + kOnAxis || std::max(a.x, b.x) < node.x - kOnAxis) return false;
  if (std::min(a.y, b.y) > node.y + kOnAxis || std::max(a.y, b.y) < node.y - kOnAxis) return false;
  const AcGeVector3d bar = fromTo(a, b);
  const AcGeVector3d to = fromTo(job.points[member.from], node);
  const double length = bar.length();
  const double along = to.dotProduct(bar) / length;
  if (along < -kOnAxis || along > length + kOnAxis) return false;
  return (to - bar * (along / length)).length() <= kOnAxis;
}

// How a view turns the section of a member that lies in the drawing plane.
double viewTurn(int view) {
  constexpr int kEsquerda = 3;
  constexpr int kDireita = 4;
  return view == kEsquerda || view == kDireita ? std::numbers::pi / 2 : 0;
}

// How far the section of a member reaches from its axis to either side along a unit vector, at most.
double reachAlong(const Job& job, const JobMember& member, const AcGeVector3d& way) {
  const JobProfile& profile = job.profiles[member.profile];
  const BarFrame frame = barFrame(directionOf(job, member));
  const SectionBox box = profile.profileClass->box(profile.values);
  const std::size_t at = profile.profileClass->turn;
  const double turn = viewTurn(member.view) + (at < kMaxParameters ? memberValues(job, member)[at] : 0);
  double reach = 0;
  for (const double x : {box.left, box.right}) {
    for (const double y : {box.below, box.above}) {
      const AcGeVector3d corner = frame.across * (x * std::cos(turn) - y * std::sin(turn)) +
                                  frame.up * (x * std::sin(turn) + y * std::cos(turn));
      reach = std::max(reach, std::abs(corner.dotProduct(way)));
    }
  }
  return reach;
}

// What a member that passes a node takes from one that ends there.
double setback(const Job& job, const JobMember& member, const JobMember& through) {
  const AcGeVector3d u = directionOf(job, member);
  const AcGeVector3d v = directionOf(job, through);
  const double cosine = u.dotProduct(v);
  const AcGeVector3d off = u - v * cosine;
  const double sine = off.length();
  if (sine < kAlongside) return 0;
  const double half = reachAlong(job, member, (v - u * cosine).normal());
  return (reachAlong(job, through, off.normal()) + half * std::abs(cosine) + member.clearance) / sine;
}

}  // namespace

void keepMembersClear(Job& job) {
  std::vector<std::uint32_t> through;
  for (std::uint32_t i = 0; i < job.members.size(); ++i) {
    if (job.members[i].clearance < 0) through.push_back(i);
  }
  for (JobMember& row : job.members) {
    if (row.clearance < 0) continue;
    const auto most = [&](std::uint32_t node) {
      double taken = 0;
      for (const std::uint32_t other : through) {
        if (passes(job, job.members[other], job.points[node])) {
          taken = std::max(taken, setback(job, row, job.members[other]));
        }
      }
      return taken;
    };
    const double atStart = most(row.from);
    const double atEnd = most(row.to);
    row.startSetback += atStart;
    row.endSetback += atEnd;
  }
}

}  // namespace kr
