#pragma once

#include <cmath>

#include "host/ed/ed.h"
#include "host/ge/ge.h"
#include "object/Finite.h"
#include "records/KrVector.h"
#include "support/Units.h"

/// The segment along which a view is cut, with the side that is thrown away. Judges points and chords in the drawing's
/// plane.
///
/// The segment has a length, and the side point doesn't lie on its line. Made once for a whole list: what the list asks
/// again and again stands worked out.
class CutLine {
 public:
  /// Within this distance of the segment a point lies on it, in drawing units.
  static constexpr double kOnCut = 1e-5;

  CutLine(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& side)
      : p1_(p1), p2_(p2), side_(side), length_(p1.distanceTo(p2)), along_((p2 - p1) / length_), away_(offset(side)) {}

  /// False for a segment of no length, and where it or the side isn't told in numbers: such a one cuts nothing.
  bool isValid() const { return length_ > AcGeContext::gTol.equalPoint() && std::isfinite(length_) && isFinite(side_); }
  const AcGeVector3d& direction() const { return along_; }

  /// Whether a point lies on the segment.
  bool holds(const AcGePoint3d& p) const {
    if (std::fabs(offset(p)) > kOnCut) return false;
    const AcGeVector3d v = p - p1_;
    const double s = v.dotProduct(along_);
    const double past = s < 0 ? -s : s - length_;
    return past <= 0 || v.lengthSqrd() - s * s + past * past <= kOnCut * kOnCut;
  }

  /// Whether a point lies on the thrown-away side of the line.
  bool throwsAway(const AcGePoint3d& p) const {
    const double o = offset(p);
    // Next to the line the rule of the support library decides.
    if (std::fabs(o) > kOnCut && std::fabs(away_) > kOnCut) return (o > 0) == (away_ > 0);
    return toEqualSide(p1_, p2_, side_, p) != 0;
  }

  /// Whether a chord lies clear of the line on the side that stays: the cut leaves it as it is.
  bool leaves(const AcGePoint3d& a, const AcGePoint3d& b) const {
    const double oa = offset(a);
    const double ob = offset(b);
    if (away_ > kOnCut) return oa < -kOnCut && ob < -kOnCut;
    return away_ < -kOnCut && oa > kOnCut && ob > kOnCut;
  }

  /// Where a chord and the segment cross.
  bool crosses(const AcGePoint3d& a, const AcGePoint3d& b, AcGePoint3d& crossing) const {
    const double oa = offset(a);
    const double ob = offset(b);
    if ((oa > kOnCut && ob > kOnCut) || (oa < -kOnCut && ob < -kOnCut)) return false;
    return acdbInters(asDblArray(a), asDblArray(b), asDblArray(p1_), asDblArray(p2_), 1, asDblArray(crossing)) ==
           RTNORM;
  }

 private:
  /// Distance from the line, positive to its left.
  double offset(const AcGePoint3d& p) const { return along_.x * (p.y - p1_.y) - along_.y * (p.x - p1_.x); }

  AcGePoint3d p1_;
  AcGePoint3d p2_;
  AcGePoint3d side_;
  double length_;
  AcGeVector3d along_;
  double away_;
};
