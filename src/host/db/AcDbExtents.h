#pragma once

#include <algorithm>

#include "host/ge/ge.h"
#include "host/rx/ErrorStatus.h"

/// A box along the axes. A new one holds nothing: its least corner lies beyond its greatest.
class AcDbExtents {
 public:
  AcDbExtents() = default;
  AcDbExtents(const AcGePoint3d& minimum, const AcGePoint3d& maximum) { set(minimum, maximum); }

  const AcGePoint3d& minPoint() const { return min_; }
  const AcGePoint3d& maxPoint() const { return max_; }
  /// Whether it holds nothing.
  bool isEmpty() const { return min_.x > max_.x || min_.y > max_.y || min_.z > max_.z; }

  /// Takes the two corners. eInvalidInput, and no change, unless each coordinate of `minimum` is at most that of
  /// `maximum`.
  Acad::ErrorStatus set(const AcGePoint3d& minimum, const AcGePoint3d& maximum) {
    if (!(minimum.x <= maximum.x && minimum.y <= maximum.y && minimum.z <= maximum.z)) return Acad::eInvalidInput;
    min_ = minimum;
    max_ = maximum;
    return Acad::eOk;
  }

  Acad::ErrorStatus addPoint(const AcGePoint3d& point) {
    min_.set(std::min(min_.x, point.x), std::min(min_.y, point.y), std::min(min_.z, point.z));
    max_.set(std::max(max_.x, point.x), std::max(max_.y, point.y), std::max(max_.z, point.z));
    return Acad::eOk;
  }
  /// Holds all of `other` too; an empty one changes nothing.
  Acad::ErrorStatus addExt(const AcDbExtents& other) {
    if (other.isEmpty()) return Acad::eOk;
    addPoint(other.min_);
    return addPoint(other.max_);
  }

  void expandBy(const AcGeVector3d& vec) {
    if (isEmpty()) return;
    const AcGePoint3d a = min_ + vec, b = max_ + vec;
    addPoint(a);
    addPoint(b);
  }
  /// Becomes the box of its eight corners transformed. An empty one stays empty.
  void transformBy(const AcGeMatrix3d& xform) {
    if (isEmpty()) return;
    AcDbExtents moved;
    for (int corner = 0; corner < 8; ++corner) {
      AcGePoint3d p((corner & 1) != 0 ? max_.x : min_.x, (corner & 2) != 0 ? max_.y : min_.y,
                    (corner & 4) != 0 ? max_.z : min_.z);
      moved.addPoint(p.transformBy(xform));
    }
    *this = moved;
  }

 private:
  static constexpr double kFar = 1e20;
  AcGePoint3d min_{kFar, kFar, kFar};
  AcGePoint3d max_{-kFar, -kFar, -kFar};
};
