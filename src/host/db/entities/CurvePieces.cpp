#include "host/db/entities/CurvePieces.h"

#include <algorithm>
#include <cmath>

namespace {

bool has(const std::vector<AcGePoint3d>& points, const AcGePoint3d& p) {
  return std::any_of(points.begin(), points.end(), [&p](const AcGePoint3d& q) { return q == p; });
}

/// The piece without its ends: the whole line or circle.
AcGeLine3d wholeLine(const AcGeLineSeg3d& segment) {
  return {segment.startPoint(), segment.endPoint()};
}

AcGeCircArc3d wholeCircle(const AcGeCircArc3d& arc) {
  return {arc.center(), arc.normal(), arc.refVec(), arc.radius(), arc.startAng(), arc.startAng() + kAcGeTwoPi};
}

/// The common points of two whole pieces; none where they coincide.
int meetingPoints(const CurvePiece& a, const CurvePiece& b, AcGePoint3d& p1, AcGePoint3d& p2) {
  int count = 0;
  if (!a.isArc() && !b.isArc()) return wholeLine(a.segment()).intersectWith(wholeLine(b.segment()), p1) ? 1 : 0;
  if (a.isArc() && b.isArc()) {
    wholeCircle(a.arc()).intersectWith(wholeCircle(b.arc()), count, p1, p2);
  } else {
    const CurvePiece& arc = a.isArc() ? a : b;
    const CurvePiece& line = a.isArc() ? b : a;
    wholeCircle(arc.arc()).intersectWith(wholeLine(line.segment()), count, p1, p2);
  }
  return count;
}

/// Which ends of a piece count as carried on.
struct Reach {
  bool before = false;
  bool behind = false;

  bool admits(const CurvePiece& piece, const AcGePoint3d& p) const {
    if (piece.isArc() && (before || behind)) return true;
    if (piece.closestPointTo(p, false) == p) return true;
    const double fraction = piece.fractionOf(p);
    return (before && fraction < 0.0) || (behind && fraction > 1.0);
  }
};

Reach reachOf(const CurvePieces& chain, std::size_t i, bool extended) {
  return {extended && i == 0, extended && i + 1 == chain.size()};
}

}  // namespace

CurvePiece CurvePiece::byBulge(const AcGePoint3d& start, const AcGePoint3d& end, double bulge,
                               const AcGeVector3d& normal) {
  const AcGeVector3d chord = end - start;
  if (bulge == 0.0 || chord.lengthSqrd() == 0.0) return CurvePiece(AcGeLineSeg3d(start, end));
  // An arc is kept counterclockwise about its own normal, so that it always runs from its start to its end.
  const AcGeVector3d about = bulge > 0.0 ? normal : -normal;
  const double quarter = std::fabs(bulge);
  const double toCentre = (1.0 - quarter * quarter) / (4.0 * quarter);
  const AcGePoint3d centre = start + chord / 2.0 + about.crossProduct(chord) * toCentre;
  const double sweep = 4.0 * std::atan(quarter);
  return CurvePiece(AcGeCircArc3d(centre, about, start - centre, start.distanceTo(centre), 0.0, sweep));
}

AcGePoint3d CurvePiece::pointAt(double fraction) const {
  if (!m_isArc) return m_segment.evalPoint(fraction);
  if (fraction == 0.0) return m_arc.startPoint();
  if (fraction == 1.0) return m_arc.endPoint();
  return m_arc.evalPoint(m_arc.startAng() + fraction * (m_arc.endAng() - m_arc.startAng()));
}

AcGeVector3d CurvePiece::stepAt(double fraction) const {
  if (!m_isArc) return endPoint() - startPoint();
  const double sweep = m_arc.endAng() - m_arc.startAng();
  return m_arc.normal().crossProduct(pointAt(fraction) - m_arc.center()) * sweep;
}

AcGeVector3d CurvePiece::secondStepAt(double fraction) const {
  if (!m_isArc) return {};
  const double sweep = m_arc.endAng() - m_arc.startAng();
  return (m_arc.center() - pointAt(fraction)) * (sweep * sweep);
}

AcGePoint3d CurvePiece::closestPointTo(const AcGePoint3d& p, bool extended) const {
  if (m_isArc) return extended ? wholeCircle(m_arc).closestPointTo(p) : m_arc.closestPointTo(p);
  return extended ? wholeLine(m_segment).closestPointTo(p) : m_segment.closestPointTo(p);
}

double CurvePiece::fractionOf(const AcGePoint3d& p) const {
  if (!m_isArc) return m_segment.paramOf(p);
  if (p == m_arc.startPoint()) return 0.0;
  if (p == m_arc.endPoint()) return 1.0;
  return (m_arc.paramOf(p) - m_arc.startAng()) / (m_arc.endAng() - m_arc.startAng());
}

double CurvePiece::segmentAreaTwice(const AcGeVector3d& normal) const {
  if (!m_isArc) return 0.0;
  const double sweep = m_arc.endAng() - m_arc.startAng();
  const double area = m_arc.radius() * m_arc.radius() * (sweep - std::sin(sweep));
  return m_arc.normal().dotProduct(normal) > 0.0 ? area : -area;
}

void CurvePiece::growBox(AcGePoint3d& low, AcGePoint3d& high) const {
  AcGePoint3d pieceLow = startPoint();
  AcGePoint3d pieceHigh = endPoint();
  if (m_isArc) m_arc.boundBlock(pieceLow, pieceHigh);
  for (unsigned int i = 0; i < 3; ++i) {
    low[i] = std::min({low[i], pieceLow[i], pieceHigh[i]});
    high[i] = std::max({high[i], pieceLow[i], pieceHigh[i]});
  }
}

void intersectPieces(const CurvePieces& a, bool extendA, const CurvePieces& b, bool extendB,
                     std::vector<AcGePoint3d>& points) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    const Reach reachA = reachOf(a, i, extendA);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const Reach reachB = reachOf(b, j, extendB);
      AcGePoint3d found[2];
      const int count = meetingPoints(a[i], b[j], found[0], found[1]);
      for (int k = 0; k < count; ++k) {
        if (reachA.admits(a[i], found[k]) && reachB.admits(b[j], found[k]) && !has(points, found[k]))
          points.push_back(found[k]);
      }
    }
  }
}
