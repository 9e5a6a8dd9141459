#pragma once

#include <vector>

#include "host/ge/ge.h"

/// A straight or circular piece of a curve.
class CurvePiece {
 public:
  explicit CurvePiece(const AcGeLineSeg3d& segment) : m_isArc(false), m_segment(segment) {}
  explicit CurvePiece(const AcGeCircArc3d& arc) : m_isArc(true), m_arc(arc) {}
  /// From `start` to `end` in the plane of `normal`. The bulge is the tangent of a quarter of the arc's angle, positive
  /// for an arc counterclockwise about the normal. Straight for a bulge of 0, and for ends that coincide.
  static CurvePiece byBulge(const AcGePoint3d& start, const AcGePoint3d& end, double bulge, const AcGeVector3d& normal);

  bool isArc() const { return m_isArc; }
  const AcGeLineSeg3d& segment() const { return m_segment; }
  const AcGeCircArc3d& arc() const { return m_arc; }

  AcGePoint3d startPoint() const { return m_isArc ? m_arc.startPoint() : m_segment.startPoint(); }
  AcGePoint3d endPoint() const { return m_isArc ? m_arc.endPoint() : m_segment.endPoint(); }
  double length() const { return m_isArc ? m_arc.length() : m_segment.length(); }
  /// At a part of the length, 0 to 1; beyond, on the piece carried on.
  AcGePoint3d pointAt(double fraction) const;
  /// The derivatives of pointAt.
  AcGeVector3d stepAt(double fraction) const;
  AcGeVector3d secondStepAt(double fraction) const;
  /// The nearest point; `extended`: on the whole line or circle.
  AcGePoint3d closestPointTo(const AcGePoint3d& p, bool extended) const;
  /// The part of the length at which a point of the piece lies; outside of 0 to 1 on the piece carried on.
  double fractionOf(const AcGePoint3d& p) const;
  /// Twice the area between an arc and its chord, positive for an arc counterclockwise about `normal`.
  double segmentAreaTwice(const AcGeVector3d& normal) const;
  void growBox(AcGePoint3d& low, AcGePoint3d& high) const;

 private:
  bool m_isArc;
  AcGeLineSeg3d m_segment;
  AcGeCircArc3d m_arc;
};

using CurvePieces = std::vector<CurvePiece>;

/// The common points of two chains of pieces, each once, in the order of the first. With `extendA` and `extendB` the
/// first and the last piece of a chain are carried on past its ends. Pieces that lie on each other have none.
void intersectPieces(const CurvePieces& a, bool extendA, const CurvePieces& b, bool extendB,
                     std::vector<AcGePoint3d>& points);
