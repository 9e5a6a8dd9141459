#pragma once

#include <optional>
#include <vector>

#include "host/ge/ge.h"
#include "records/KrGeratriz.h"
#include "records/KrPlanoCorte.h"

/// The lines along which the cuts of a member trim one of its elevations.
///
/// A plane that stands square on the view is its own line there. One that stands askew was made in an elevation of the
/// section turned otherwise: its face looks at the viewer, and what bounds the picture is the silhouette of the steel
/// that the plane leaves. Its line runs as the plane's normal, seen in the view, asks, and touches that silhouette from
/// outside. For the steel left count, besides the plane itself, the cuts that stand square in the view in which it
/// does: two mitres of one end that meet in a point end the picture at that point.
///
/// Frame: the drawing at 1:1. The member must not change while this object lives; it refers to what it is given.
class CutTraces {
 public:
  struct Trace {
    AcGePoint3d point;
    AcGeVector3d direction;  ///< along the line
    AcGePoint3d side;        ///< on the side that is thrown away
  };

  /// `frame` leads from the section's frame to the drawing; the steel reaches from Z 0 to Z -`length` of the section.
  /// With `skew` false a plane askew has no line.
  CutTraces(const AcGeMatrix3d& frame, const KrGeratriz& outline, double length, bool skew)
      : frame_(frame), outline_(outline), length_(length), skew_(skew) {}

  /// The line of cut i of a list; none for a plane parallel to the view. Where the cuts leave no steel, a line that
  /// throws all of the bar away.
  std::optional<Trace> of(const KrPlanoCorte& cuts, int i);

 private:
  /// A point of the bar seen along the planes of a family: its place along the bar and its place across.
  struct Spot {
    double along;
    double across;
  };
  /// What a family of planes, all parallel to one direction across the bar, leaves of the bar's box: a convex polygon.
  struct Remains {
    AcGeVector2d across;  ///< direction of the places across, in the section
    std::vector<Spot> polygon;
  };

  std::optional<Trace> skewTrace(const KrPlanoCorte& cuts, const AcGePlane& plane, const AcGePoint3d& side);
  const Remains& remainsAcross(const KrPlanoCorte& cuts, const AcGeVector2d& across);
  void clip(std::vector<Spot>& polygon, double along, double across, double limit);
  void extentAcross(const AcGeVector2d& across, double& low, double& high) const;
  double leastOfBar(double along, const AcGeVector2d& lateral) const;
  double farthest(const AcGeVector2d& across, const Spot& from, const Spot& to, double along,
                  const AcGeVector2d& lateral) const;

  const AcGeMatrix3d& frame_;
  const KrGeratriz& outline_;
  double length_;
  bool skew_;
  std::vector<Remains> remains_;
  std::vector<Spot> clipped_;
};
