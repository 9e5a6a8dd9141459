#include "BarViews.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kr {
namespace {

constexpr int kSection = 0;
constexpr int kSectionFromEnd = 6;
constexpr std::array kAllViews = {1, 4, 2, 3, kSection, kSectionFromEnd};

// The room between two views, in depths of the section; at least a part of the bar's length.
constexpr double kGapDepths = 0.6;
constexpr double kGapLengths = 0.01;

bool isElevation(int view) {
  return view != kSection && view != kSectionFromEnd;
}

// How far the section reaches from the axis to any side, however it is turned.
double reachOf(const Job& job, const JobMember& member) {
  const JobProfile& profile = job.profiles[member.profile];
  const SectionBox box = profile.profileClass->box(profile.values);
  return std::hypot(std::max(-box.left, box.right), std::max(-box.below, box.above));
}

}  // namespace

Job barViews(const Job& job, const JobView& view, std::vector<BarViewLabel>& labels) {
  const JobMember& bar = job.members[view.bar];
  const MemberAxis axis = memberAxis(job, bar);
  const double length = std::hypot(axis.end.x - axis.start.x, axis.end.y - axis.start.y, axis.end.z - axis.start.z);
  const double reach = reachOf(job, bar);
  const double gap = std::max(2 * reach * kGapDepths, length * kGapLengths);

  Job flat;
  flat.names = job.names;
  flat.profiles = job.profiles;
  flat.modifiers = job.modifiers;
  const auto add = [&](int shown, JobPoint from, JobPoint to) {
    JobMember member = bar;
    member.view = static_cast<std::int8_t>(shown);
    member.startSetback = member.endSetback = 0;
    member.from = static_cast<std::uint32_t>(flat.points.size());
    flat.points.push_back(from);
    member.to = isElevation(shown) ? member.from + 1 : member.from;
    if (isElevation(shown)) flat.points.push_back(to);
    flat.members.push_back(member);
    labels.push_back({std::string(viewWord(shown)), {(from.x + to.x) / 2, from.y + reach}});
  };

  const std::vector<int> shown = view.show.empty() ? std::vector<int>(kAllViews.begin(), kAllViews.end()) : view.show;
  double y = 0;
  bool any = false;
  for (const int v : shown) {
    if (!isElevation(v)) continue;
    // Those that see the bar from behind run from its end to its start, so that the start lies to the left.
    const bool behind = v == 2 || v == 3;
    add(v, {behind ? length : 0, y}, {behind ? 0 : length, y});
    y -= 2 * reach + gap;
    any = true;
  }
  double left = any ? -gap - reach : 0;
  double right = any ? length + gap + reach : 0;
  for (const int v : shown) {
    if (isElevation(v)) continue;
    const bool atEnd = any ? v == kSectionFromEnd : true;
    double& x = atEnd ? right : left;
    add(v, {x, 0}, {x, 0});
    x += (atEnd ? 1 : -1) * (2 * reach + gap);
  }
  return flat;
}

}  // namespace kr
