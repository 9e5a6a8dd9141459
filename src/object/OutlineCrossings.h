#pragma once

#include <array>
#include <cstddef>

#include "host/ge/ge.h"
#include "host/rx/rx.h"
#include "records/KrGeratriz.h"

/// Appends the crossings of a line with the contours of an outline, as `intersectWith2dFence` counts them. Only counted
/// nodes take part.
void crossOutline(const AcGeLinearEnt2d& line, const KrGeratriz& outline, AcArray<AcGePoint2d>& out);

/// What the lines of holes ask of one outline, with the answers of `crossOutline` but for rounding.
///
/// Most nodes lie well off a line and most arcs can't reach it: on which sides of it the nodes lie answers, and only a
/// line that runs through a node or near an arc is put to `crossOutline`. Holes stand in rows, so the answers to the
/// last few lines are kept. Ask one object either `any` or `top`. The outline must outlive the object and stay as it
/// is.
class OutlineCrossings {
 public:
  explicit OutlineCrossings(const KrGeratriz& outline) : outline_(outline) {}

  /// Whether the unbounded line through two points crosses the outline. False for two equal points.
  bool any(const AcGePoint2d& from, const AcGePoint2d& to);
  /// The greatest Y of the crossings of the unbounded line through two points; false when there is none.
  bool top(const AcGePoint2d& from, const AcGePoint2d& to, double& y);

 private:
  /// The answer to a line.
  struct Answer {
    AcGePoint2d from;
    AcGePoint2d to;
    double top = 0;
    bool any = false;
  };
  static constexpr std::size_t kKept = 4;

  template <class Find>
  const Answer& answer(const AcGePoint2d& from, const AcGePoint2d& to, Find find);
  bool crosses(const AcGePoint2d& from, const AcGePoint2d& to);
  bool topBySides(Answer& line) const;
  void topByCrossings(Answer& line);

  const KrGeratriz& outline_;
  std::array<Answer, kKept> kept_;
  std::size_t asked_ = 0;
};
