#include "BarModel.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "Number.h"
#include "host/companion/companion.h"
#include "object/KrObject.h"

namespace kr {
namespace {

// A hole passes as many walls as it is told: how deep the drill reaches doesn't matter then, only where it points.
constexpr double kAnyDepth = 1.0;

// Lengths along a bar that differ by less are one, mm.
constexpr double kSameLength = 1e-6;

AcGePoint3d onPaper(const JobPoint& p) {
  return {p.x, p.y, 0};
}
AcGePoint3d onPaper(const LinePoint& p) {
  return {p.x, p.y, 0};
}

/// Where the steel of a bar begins and ends along it.
struct Reach {
  double from = 0;
  double to = 0;
};

Reach reachOf(const KrObject& bar) {
  AcGePoint3d a, b;
  if (bar.GetPointsOfEixo(a, b, 1) != Acad::eOk) return {};
  return {std::min(a.x, b.x), std::max(a.x, b.x)};
}

/// A bar while it is worked on: it lies along X from the origin, as its elevations lie on paper with its start to the
/// left, and is turned to the elevation in which the next thing is done to it.
class Workpiece {
 public:
  Workpiece(const Job& job, const JobMember& row, double length)
      : profile_(*job.profiles[row.profile].profileClass), values_(memberValues(job, row)) {
    bar_ = make(Superior, {0, length});
  }

  KrObject& in(KrVistas view) {
    if (bar_->Vista(0) == view) return *bar_;
    std::unique_ptr<KrObject> turned = make(view, reachOf(*bar_));
    turned->copyModifiersFrom(*bar_);
    turned->Gera_KrVector();
    bar_ = std::move(turned);
    return *bar_;
  }

  Reach reach() const { return reachOf(*bar_); }
  std::shared_ptr<const KrObject> finish() {
    in(Superior);
    return std::move(bar_);
  }

 private:
  std::unique_ptr<KrObject> make(KrVistas view, Reach reach) const {
    AcGePoint3d start(reach.from, 0, 0);
    AcGePoint3d end(reach.to, 0, 0);
    // These two see the bar from behind: drawn from its end to its start, the start lies to the left again.
    if (KrObject::isInverted(view) != 0) std::swap(start, end);
    return std::unique_ptr<KrObject>(profile_.make(start, end, view, values_));
  }

  const ProfileClass& profile_;
  ParameterValues values_;
  std::unique_ptr<KrObject> bar_;
};

std::string span(Reach reach) {
  return "the bar, which runs from " + shortest(std::round(reach.from * 1000) / 1000) + " to " +
         shortest(std::round(reach.to * 1000) / 1000) + " mm";
}

bool within(Reach reach, double x) {
  return x >= reach.from - kSameLength && x <= reach.to + kSameLength;
}

// Each of these does one thing and returns why it can't be, or nothing.

std::string drill(Workpiece& piece, const JobHole& hole) {
  const Reach reach = piece.reach();
  const double along = hole.view == 0 ? hole.along : hole.at.x;
  if (!within(reach, along)) return "the hole lies past " + span(reach);
  const auto view = hole.view == 0 ? Superior : static_cast<KrVistas>(hole.view);
  KrObject& bar = piece.in(view);
  const int before = bar.numFuros();
  if (hole.view == 0) {
    // The place is given as the section stands; it is stored with the section not turned.
    const AcGeVector3d at = AcGeVector3d(hole.at.x, hole.at.y, 0).rotateBy(-bar.angleSecao(), AcGeVector3d::kZAxis);
    const double direction = hole.direction - bar.angleSecao();
    const AcGeVector2d towards(std::cos(direction), std::sin(direction));
    const AcGePoint3d p = bar.startPoint() + AcGeVector3d(at.x, at.y, along - reach.from);
    bar.FurarSecao(p, towards, hole.diameter, hole.slot, hole.angle, hole.walls, 0, 0);
  } else {
    bar.FurarVista(onPaper(hole.at), kAnyDepth, hole.diameter, hole.slot, hole.angle, hole.walls, 1);
  }
  if (bar.numFuros() > before) return {};
  return "the hole meets no wall of the section";
}

std::string cut(Workpiece& piece, const JobCut& cut) {
  const Reach reach = piece.reach();
  KrObject& bar = piece.in(static_cast<KrVistas>(cut.view));
  AcGePoint3d p1 = onPaper(cut.line[0]);
  AcGePoint3d p2 = onPaper(cut.line[1]);
  AcGePoint3d side = onPaper(cut.side);
  if (bar.Corte(p1, p2, side, 0, 0) == Acad::eOk) return {};
  const AcGeLine3d line(p1, p2);
  if (line.isOn(side)) return "the point of the side lies on the line: it must say which side goes";
  if (line.isParallelTo(AcGeLine3d(AcGePoint3d::kOrigin, AcGeVector3d::kXAxis)))
    return "the line runs along the bar and crosses neither of its edges";
  return "the line passes " + span(reach);
}

std::string notch(Workpiece& piece, const JobNotch& notch) {
  KrObject& bar = piece.in(static_cast<KrVistas>(notch.view));
  AcArray<AcGePoint2d> points;
  AcArray<double> bulges;
  for (const LinePoint& p : notch.points) {
    points.append(AcGePoint2d(p.x, p.y));
    bulges.append(p.bulge);
  }
  if (!notch.open) {
    points.append(points[0]);
    bulges.append(0);
  }
  AcGePoint2d side(notch.side.x, notch.side.y);
  if (bar.Recorte(points, bulges, side) == Acad::eOk) return {};
  if (!bar.isRetRotated()) return "the section is turned by no whole quarter: it can't be notched in an elevation";
  AcArray<void*> curves;
  createCurves(points, bulges, curves);
  const bool onLine = contains(side, curves) != 0;
  deleteCurves(curves);
  if (onLine) return "the point of the side lies on the notch's line: it must say which side goes";
  return "the notch would split the bar, open a window in it or change its width";
}

std::string split(Workpiece& piece, const JobSplit& split) {
  const Reach reach = piece.reach();
  if (split.at - split.gap / 2 <= reach.from || split.at + split.gap / 2 >= reach.to)
    return "the gap reaches past " + span(reach);
  KrObject& bar = piece.in(Superior);
  KrObjectSplit record;
  bar.adjustSplit(record, AcGePoint3d(split.at, 0, 0));
  record.setLength(split.gap);
  bar.addSplit(record, 0);
  return {};
}

std::string limit(Workpiece& piece, const JobModifiers& modifiers) {
  const Reach reach = piece.reach();
  const std::string pastBar = " mm lies past " + span(reach);
  KrObject& bar = piece.in(Superior);
  // On the end to which it shows the bar a limit may lie: it takes nothing away there. On the other it takes all.
  const bool fromIsPast = !within(reach, modifiers.limitFrom) || modifiers.limitFrom >= reach.to - kSameLength;
  const bool toIsPast = !within(reach, modifiers.limitTo) || modifiers.limitTo <= reach.from + kSameLength;
  if (modifiers.limitFrom != 0 && fromIsPast) return "the limit at " + shortest(modifiers.limitFrom) + pastBar;
  if (modifiers.limitTo != 0 && toIsPast) return "the limit at " + shortest(modifiers.limitTo) + pastBar;
  const auto fraction = [&](double x) { return (x - reach.from) / (reach.to - reach.from); };
  bar.setVisualRepScale(modifiers.limitSymbol);
  if (modifiers.limitTo != 0) bar.setVisualRepEnd(fraction(modifiers.limitTo));
  if (modifiers.limitFrom != 0) bar.setVisualRepStart(fraction(modifiers.limitFrom));
  return {};
}

// What is done to one member, in the order in which one thing rests on the other.
class MemberWork {
 public:
  MemberWork(const Job& job, std::size_t index, std::vector<Problem>& problems)
      : job_(job), index_(index), problems_(problems) {}

  void run(JobModifiers& modifiers) {
    const JobMember& row = job_.members[index_];
    const MemberAxis axis = memberAxis(job_, row);
    modifiers.axisLength = std::hypot(axis.end.x - axis.start.x, axis.end.y - axis.start.y, axis.end.z - axis.start.z);
    Workpiece piece(job_, row, modifiers.axisLength);
    each(modifiers.cuts, "cuts", [&](const JobCut& c) { return cut(piece, c); });
    each(modifiers.holes, "holes", [&](const JobHole& h) { return drill(piece, h); });
    each(modifiers.notches, "notches", [&](const JobNotch& n) { return notch(piece, n); });
    each(modifiers.splits, "splits", [&](const JobSplit& s) { return split(piece, s); });
    if (modifiers.limited) tell("limits", limit(piece, modifiers));
    modifiers.model = piece.finish();
  }

 private:
  template <class List, class Do>
  void each(const List& list, std::string_view what, Do doIt) {
    for (std::size_t i = 0; i < list.size(); ++i) tell(std::string(what) + "/" + std::to_string(i), doIt(list[i]));
  }

  void tell(const std::string& what, const std::string& why) {
    if (why.empty()) return;
    const std::string name(job_.names.text(job_.members[index_].name));
    problems_.push_back({0, 0, 0, "/members/" + std::to_string(index_) + "/" + what, "member " + name + ": " + why});
  }

  const Job& job_;
  std::size_t index_;
  std::vector<Problem>& problems_;
};

}  // namespace

bool makeModels(Job& job, std::vector<Problem>& problems) {
  for (std::size_t i = 0; i < job.members.size(); ++i) {
    const std::uint32_t modifiers = job.members[i].modifiers;
    if (modifiers != kNone) MemberWork(job, i, problems).run(job.modifiers[modifiers]);
  }
  return problems.empty();
}

void applyModel(const JobModifiers& modifiers, KrObject& member) {
  if (modifiers.model == nullptr) return;
  const Reach reach = reachOf(*modifiers.model);
  member.copyModifiersFrom(*modifiers.model);
  KrObject::Position place;
  if (member.position(place, 1) != Acad::eOk) {
    // A section: it shows the holes wherever they lie along the bar.
    member.setComprimentoReal(reach.to - reach.from);
    member.Gera_KrVector();
    return;
  }
  const double drawn = place.comprimento;
  const bool inverted = member.isInverted() != 0;
  place.comprimento = modifiers.axisLength;
  place.offset = 0;
  place.inicio = inverted ? modifiers.axisLength - reach.to : reach.from;
  place.fim = inverted ? modifiers.axisLength - reach.from : reach.to;
  member.setPosition(place, 1);
  if (drawn < modifiers.axisLength - kSameLength) member.ObjectScale(drawn / modifiers.axisLength, 1, 1);
}

}  // namespace kr
