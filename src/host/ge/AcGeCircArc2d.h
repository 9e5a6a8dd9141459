#pragma once

#include "host/ge/AcGeIntersect.h"
#include "host/ge/AcGeLineSeg2d.h"

/// A circle of the plane, or a part of one. Angles count from the reference vector in the arc's own sense, clockwise
/// or not, and startAng <= endAng. An arc made through points starts at angle 0, its reference vector being the
/// start's. One made of too little (collinear points, a chord of no length) is a point: radius 0, both angles 0.
class AcGeCircArc2d : public AcGeCurve2d {
 public:
  /// The unit circle about the origin.
  AcGeCircArc2d() : AcGeCircArc2d(AcGePoint2d::kOrigin, 1.0) {}
  AcGeCircArc2d(const AcGePoint2d& centre, double radius) : AcGeCurve2d(AcGe::kCircArc2d) { set(centre, radius); }
  AcGeCircArc2d(const AcGePoint2d& centre, double radius, double startAng, double endAng,
                const AcGeVector2d& refVec = AcGeVector2d::kXAxis, Adesk::Boolean isClockWise = Adesk::kFalse)
      : AcGeCurve2d(AcGe::kCircArc2d) {
    set(centre, radius, startAng, endAng, refVec, isClockWise);
  }
  /// Through three points; when they are collinear or equal, a point at start.
  AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end)
      : AcGeCurve2d(AcGe::kCircArc2d) {
    setToPoint(start);
    set(start, through, end);
  }
  /// From start to end, counter-clockwise for a positive bulge. bulge is the tangent of a quarter of the sweep, or,
  /// with bulgeIsTangent false, the height of the arc over its chord. A bulge of 0 or a chord of no length gives a
  /// point at start.
  AcGeCircArc2d(const AcGePoint2d& start, const AcGePoint2d& end, double bulge,
                Adesk::Boolean bulgeIsTangent = Adesk::kTrue)
      : AcGeCurve2d(AcGe::kCircArc2d) {
    setToPoint(start);
    set(start, end, bulge, bulgeIsTangent);
  }

  AcGeCircArc2d& set(const AcGePoint2d& centre, double radius) {
    return set(centre, radius, 0.0, kAcGeTwoPi, AcGeVector2d::kXAxis, Adesk::kFalse);
  }
  AcGeCircArc2d& set(const AcGePoint2d& centre, double radius, double startAng, double endAng,
                     const AcGeVector2d& refVec = AcGeVector2d::kXAxis, Adesk::Boolean isClockWise = Adesk::kFalse) {
    m_centre = centre;
    m_radius = radius;
    m_refVec = refVec.lengthSqrd() == 0.0 ? AcGeVector2d::kXAxis : refVec / refVec.length();
    m_clockWise = isClockWise != Adesk::kFalse;
    return setAngles(startAng, endAng);
  }
  /// Through three points. On collinear or equal points error tells which, and the arc stays as it was.
  inline AcGeCircArc2d& set(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end,
                            AcGeError& error);
  AcGeCircArc2d& set(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end) {
    AcGeError error;
    return set(start, through, end, error);
  }
  /// By bulge, as the constructor. A bulge of 0 or a chord of no length leaves the arc as it was.
  inline AcGeCircArc2d& set(const AcGePoint2d& start, const AcGePoint2d& end, double bulge,
                            Adesk::Boolean bulgeIsTangent = Adesk::kTrue);

  AcGePoint2d center() const { return m_centre; }
  double radius() const { return m_radius; }
  double startAng() const { return m_startAng; }
  double endAng() const { return m_byPoints ? sweepBetweenEnds() : m_endAng; }
  AcGeVector2d refVec() const { return m_refVec; }
  Adesk::Boolean isClockWise() const { return m_clockWise; }
  AcGePoint2d startPoint() const { return m_start; }
  AcGePoint2d endPoint() const { return m_end; }
  AcGePoint2d midPoint() const { return evalPoint((m_startAng + endAng()) / 2.0); }
  Adesk::Boolean isClosed() const { return !m_byPoints && m_endAng - m_startAng >= kAcGeTwoPi - kFullTurnSlack; }

  AcGeCircArc2d& setCenter(const AcGePoint2d& centre) {
    const double end = endAng();
    m_centre = centre;
    return setAngles(m_startAng, end);
  }
  AcGeCircArc2d& setRadius(double radius) {
    m_radius = radius;
    return setAngles(m_startAng, endAng());
  }
  /// An end below the start means the way past the full turn.
  AcGeCircArc2d& setAngles(double startAng, double endAng) {
    m_byPoints = false;
    m_startAng = startAng;
    m_endAng = endAng < startAng ? endAng + kAcGeTwoPi * std::ceil((startAng - endAng) / kAcGeTwoPi) : endAng;
    m_start = evalPoint(m_startAng);
    m_end = evalPoint(m_endAng);
    return *this;
  }

  /// The point at an angle from the reference vector, in the arc's sense.
  AcGePoint2d evalPoint(double angle) const {
    return m_centre + AcGeVector2d(m_refVec).rotateBy(m_clockWise ? -angle : angle) * m_radius;
  }
  /// The angle of the point's direction from the centre, from startAng to below a full turn more.
  double paramOf(const AcGePoint2d& p) const {
    const AcGeVector2d v = p - m_centre;
    const double turn = AcGeVector2d(m_refVec.dotProduct(v), left(m_refVec, v)).angle();
    return turn + kAcGeTwoPi * std::ceil((m_startAng - turn) / kAcGeTwoPi);
  }
  double length() const { return m_radius * (endAng() - m_startAng); }
  /// The length between two angles.
  double length(double from, double to, double /*tol*/ = 0.0) const { return m_radius * std::fabs(to - from); }

  AcGePoint2d closestPointTo(const AcGePoint2d& p) const {
    const AcGeVector2d out = p - m_centre;
    const double away = out.length();
    if (away != 0.0 && spans(out)) return m_centre + out * (m_radius / away);
    return p.distanceSqrdTo(m_start) <= p.distanceSqrdTo(m_end) ? m_start : m_end;
  }
  double distanceTo(const AcGePoint2d& p) const { return closestPointTo(p).distanceTo(p); }
  /// True when p lies within the point tolerance of the arc, its ends included.
  Adesk::Boolean isOn(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return closestPointTo(p).isEqualTo(p, tol);
  }
  Adesk::Boolean isOn(const AcGePoint2d& p, double& param, const AcGeTol& tol = AcGeContext::gTol) const {
    param = paramOf(p);
    return isOn(p, tol);
  }
  /// True when p lies in the circle, not nearer to it than the tolerance.
  Adesk::Boolean isInside(const AcGePoint2d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return p.distanceTo(m_centre) < m_radius - tol.equalPoint();
  }
  /// The corners of the smallest upright rectangle around the arc.
  inline void boundBlock(AcGePoint2d& low, AcGePoint2d& high) const;

  /// The points that the arc and a line share: 0, 1 (a touch, or one of two within both), or 2, in the order along the
  /// line. True when there is any; points beyond the count are left alone. Where the line keeps within the tolerance of
  /// touching the circle it touches. An end of either within the tolerance of the other counts.
  inline Adesk::Boolean intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The same for two arcs. Arcs of one circle share a stretch or nothing, and the count is 0.
  inline Adesk::Boolean intersectWith(const AcGeCircArc2d& other, int& intn, AcGePoint2d& p1, AcGePoint2d& p2,
                                      const AcGeTol& tol = AcGeContext::gTol) const;

  /// The map must keep angles: turn, shift, mirror, or scale alike in all directions.
  AcGeCircArc2d& transformBy(const AcGeMatrix2d& m) {
    const AcGeVector2d image = m * m_refVec;
    const double factor = image.length();
    m_centre.transformBy(m);
    m_start.transformBy(m);
    m_end.transformBy(m);
    m_radius *= factor;
    if (factor != 0.0) m_refVec = image / factor;
    if (m.det() < 0.0) m_clockWise = !m_clockWise;
    return *this;
  }
  AcGeCircArc2d& translateBy(const AcGeVector2d& v) { return transformBy(AcGeMatrix2d::translation(v)); }
  AcGeCircArc2d& mirror(const AcGeLine2d& line) { return transformBy(AcGeMatrix2d::mirroring(line)); }
  AcGeCircArc2d& rotateBy(double angle, const AcGePoint2d& centre = AcGePoint2d::kOrigin) {
    return transformBy(AcGeMatrix2d::rotation(angle, centre));
  }

 private:
  /// Rounding of 2 pi, in radians: a sweep this close to the full turn is one.
  static constexpr double kFullTurnSlack = 1e-12;

  void setToPoint(const AcGePoint2d& p) {
    m_centre = m_start = m_end = p;
    m_radius = m_startAng = m_endAng = 0.0;
    m_byPoints = false;
    m_refVec = AcGeVector2d::kXAxis;
    m_clockWise = false;
  }
  void setBetween(const AcGePoint2d& centre, const AcGePoint2d& start, const AcGePoint2d& end, bool clockWise) {
    const AcGeVector2d out = start - centre;
    m_centre = centre;
    m_radius = out.length();
    m_refVec = out / m_radius;
    m_clockWise = clockWise;
    m_start = start;
    m_end = end;
    m_startAng = m_endAng = 0.0;
    m_byPoints = true;
  }
  double sweepBetweenEnds() const {
    const AcGeVector2d toEnd = m_end - m_centre;
    return AcGeVector2d(m_refVec.dotProduct(toEnd), left(m_refVec, toEnd)).angle();
  }
  /// Positive when b lies ahead of a in the arc's sense, less than a half turn.
  double left(const AcGeVector2d& a, const AcGeVector2d& b) const {
    return m_clockWise ? b.crossProduct(a) : a.crossProduct(b);
  }
  /// True when the arc passes the given direction from its centre, its ends included.
  bool spans(const AcGeVector2d& out) const {
    if (isClosed()) return true;
    const AcGeVector2d from = m_start - m_centre;
    const AcGeVector2d to = m_end - m_centre;
    const double ahead = left(from, to);
    const double facing = from.dotProduct(to);
    // The sign of the dot product keeps an arc of hardly any sweep from passing the opposite direction.
    if (ahead >= 0.0 && facing > 0.0 && from.dotProduct(out) < 0.0) return false;
    if (ahead >= 0.0) return left(from, out) >= 0.0 && left(out, to) >= 0.0;
    return !(left(to, out) > 0.0 && left(out, from) > 0.0);
  }
  bool admits(const AcGePoint2d& p, const AcGeTol& tol) const {
    return spans(p - m_centre) || p.isEqualTo(m_start, tol) || p.isEqualTo(m_end, tol);
  }

  AcGePoint2d m_centre;
  AcGePoint2d m_start;
  AcGePoint2d m_end;
  AcGeVector2d m_refVec;
  double m_radius = 0.0;
  double m_startAng = 0.0;
  double m_endAng = 0.0;    ///< Of no meaning for an arc by points, whose angle is worked out when it is asked for.
  bool m_byPoints = false;  ///< Made through points: starts at angle 0 and ends at m_end.
  bool m_clockWise = false;
};

inline AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& start, const AcGePoint2d& through, const AcGePoint2d& end,
                                         AcGeError& error) {
  const AcGeTol tol = AcGeContext::gTol;
  const AcGeVector2d u = through - start;
  const AcGeVector2d v = end - start;
  const double uu = u.lengthSqrd();
  const double vv = v.lengthSqrd();
  const double same = tol.equalPoint() * tol.equalPoint();
  error = uu <= same                            ? AcGe::kEqualArg1Arg2
          : vv <= same                          ? AcGe::kEqualArg1Arg3
          : through.distanceSqrdTo(end) <= same ? AcGe::kEqualArg2Arg3
                                                : AcGe::kOk;
  if (error != AcGe::kOk) return *this;
  const double cross = u.crossProduct(v);
  if (cross * cross <= tol.equalVector() * tol.equalVector() * uu * vv) {
    error = AcGe::kLinearlyDependentArg1Arg2Arg3;
    return *this;
  }
  const AcGeVector2d toCentre = (u * vv - v * uu).perpVector() / (2.0 * cross);
  setBetween(start + toCentre, start, end, cross < 0.0);
  return *this;
}

inline AcGeCircArc2d& AcGeCircArc2d::set(const AcGePoint2d& start, const AcGePoint2d& end, double bulge,
                                         Adesk::Boolean bulgeIsTangent) {
  const AcGeVector2d chord = end - start;
  const double size = chord.length();
  if (size <= AcGeContext::gTol.equalPoint() || bulge == 0.0) return *this;
  const double b = bulgeIsTangent ? bulge : 2.0 * bulge / size;
  // With b = tan(sweep / 4), the centre lies (1 - b^2) / (4 b) chords to the left of the chord's middle.
  const AcGePoint2d centre = start + chord / 2.0 + chord.perpVector() * ((1.0 / b - b) / 4.0);
  setBetween(centre, start, end, b < 0.0);
  // The angle of a flat arc is told better by its bulge than by points far from the centre.
  m_endAng = 4.0 * std::atan(std::fabs(b));
  m_byPoints = false;
  return *this;
}

inline void AcGeCircArc2d::boundBlock(AcGePoint2d& low, AcGePoint2d& high) const {
  low.set(std::min(m_start.x, m_end.x), std::min(m_start.y, m_end.y));
  high.set(std::max(m_start.x, m_end.x), std::max(m_start.y, m_end.y));
  if (spans(-AcGeVector2d::kXAxis)) low.x = m_centre.x - m_radius;
  if (spans(-AcGeVector2d::kYAxis)) low.y = m_centre.y - m_radius;
  if (spans(AcGeVector2d::kXAxis)) high.x = m_centre.x + m_radius;
  if (spans(AcGeVector2d::kYAxis)) high.y = m_centre.y + m_radius;
}

inline Adesk::Boolean AcGeCircArc2d::intersectWith(const AcGeLinearEnt2d& line, int& intn, AcGePoint2d& p1,
                                                   AcGePoint2d& p2, const AcGeTol& tol) const {
  intn = 0;
  const double step = line.stepLength();
  if (step == 0.0) {
    if (!isOn(line.pointOnLine(), tol)) return Adesk::kFalse;
    intn = 1;
    p1 = line.pointOnLine();
    return Adesk::kTrue;
  }
  const AcGeVector2d along = line.direction();
  const AcGeVector2d gap = m_centre - line.pointOnLine();
  const double aside = along.crossProduct(gap);
  double places[2];
  const int found = AcGeIntersect::lineAndCircle(std::fabs(aside), m_radius, tol.equalPoint(), places);
  for (int i = 0; i < found; ++i) {
    const double place = gap.dotProduct(along) + places[i];
    if (!line.limits().admit(place / step, tol.equalPoint() / step)) continue;
    const AcGePoint2d p = m_centre - along.perpVector() * aside + along * places[i];
    if (!admits(p, tol)) continue;
    (intn == 0 ? p1 : p2) = p;
    ++intn;
  }
  return intn > 0;
}

inline Adesk::Boolean AcGeCircArc2d::intersectWith(const AcGeCircArc2d& other, int& intn, AcGePoint2d& p1,
                                                   AcGePoint2d& p2, const AcGeTol& tol) const {
  intn = 0;
  const AcGeVector2d centres = other.m_centre - m_centre;
  const double distance = centres.length();
  double along = 0.0;
  double aside = 0.0;
  const int found = AcGeIntersect::circleAndCircle(distance, m_radius, other.m_radius, tol.equalPoint(), along, aside);
  if (found == 0) return Adesk::kFalse;
  const AcGeVector2d unit = centres / distance;
  const AcGePoint2d foot = m_centre + unit * along;
  for (int i = 0; i < found; ++i) {
    const AcGePoint2d p = foot + unit.perpVector() * (i == 0 ? aside : -aside);
    if (!admits(p, tol) || !other.admits(p, tol)) continue;
    (intn == 0 ? p1 : p2) = p;
    ++intn;
  }
  return intn > 0;
}
