#pragma once

#include "host/ge/AcGeIntersect.h"
#include "host/ge/AcGeLineSeg3d.h"
#include "host/ge/AcGePlane.h"

/// A circle in space, or a part of one. Angles count from the reference vector, right-handed about the normal, and
/// startAng <= endAng. An arc made through three points starts at angle 0, its reference vector being the start's, and
/// its normal follows from their order. One made of collinear points is a point: radius 0, both angles 0.
class AcGeCircArc3d : public AcGeCurve3d {
 public:
  /// The unit circle about the origin, in the XY plane.
  AcGeCircArc3d() : AcGeCircArc3d(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 1.0) {}
  /// The whole circle; its reference vector is the normal's perpVector.
  AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius) : AcGeCurve3d(AcGe::kCircArc3d) {
    set(centre, normal, radius);
  }
  AcGeCircArc3d(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& refVec, double radius,
                double startAng, double endAng)
      : AcGeCurve3d(AcGe::kCircArc3d) {
    set(centre, normal, refVec, radius, startAng, endAng);
  }
  /// Through three points; when they are collinear or equal, a point at start.
  AcGeCircArc3d(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end)
      : AcGeCurve3d(AcGe::kCircArc3d) {
    setToPoint(start);
    set(start, through, end);
  }

  AcGeCircArc3d& set(const AcGePoint3d& centre, const AcGeVector3d& normal, double radius) {
    return set(centre, normal, normal.perpVector(), radius, 0.0, kAcGeTwoPi);
  }
  /// The reference vector is taken square to the normal. A normal of no length counts as the Z axis, and a reference
  /// vector along the normal gives way to the normal's perpVector.
  AcGeCircArc3d& set(const AcGePoint3d& centre, const AcGeVector3d& normal, const AcGeVector3d& refVec, double radius,
                     double startAng, double endAng) {
    m_centre = centre;
    m_normal = normal.lengthSqrd() == 0.0 ? AcGeVector3d::kZAxis : normal / normal.length();
    const AcGeVector3d ref = refVec.orthoProject(m_normal);
    m_refVec = ref.lengthSqrd() == 0.0 ? m_normal.perpVector() : ref / ref.length();
    m_radius = radius;
    return setAngles(startAng, endAng);
  }
  /// Through three points. On collinear or equal points error tells which, and the arc stays as it was.
  inline AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end,
                            AcGeError& error);
  AcGeCircArc3d& set(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end) {
    AcGeError error;
    return set(start, through, end, error);
  }

  AcGePoint3d center() const { return m_centre; }
  AcGeVector3d normal() const { return m_normal; }
  AcGeVector3d refVec() const { return m_refVec; }
  double radius() const { return m_radius; }
  double startAng() const { return m_startAng; }
  double endAng() const { return m_byPoints ? sweepBetweenEnds() : m_endAng; }
  AcGePoint3d startPoint() const { return m_start; }
  AcGePoint3d endPoint() const { return m_end; }
  AcGePoint3d midPoint() const { return evalPoint((m_startAng + endAng()) / 2.0); }
  Adesk::Boolean isClosed() const { return !m_byPoints && m_endAng - m_startAng >= kAcGeTwoPi - kFullTurnSlack; }
  void getPlane(AcGePlane& plane) const { plane.set(m_centre, m_refVec, yAxis()); }

  AcGeCircArc3d& setCenter(const AcGePoint3d& centre) {
    const double end = endAng();
    m_centre = centre;
    return setAngles(m_startAng, end);
  }
  AcGeCircArc3d& setRadius(double radius) {
    m_radius = radius;
    return setAngles(m_startAng, endAng());
  }
  /// An end below the start means the way past the full turn.
  AcGeCircArc3d& setAngles(double startAng, double endAng) {
    m_byPoints = false;
    m_startAng = startAng;
    m_endAng = endAng < startAng ? endAng + kAcGeTwoPi * std::ceil((startAng - endAng) / kAcGeTwoPi) : endAng;
    m_start = evalPoint(m_startAng);
    m_end = evalPoint(m_endAng);
    return *this;
  }

  /// The point at an angle from the reference vector.
  AcGePoint3d evalPoint(double angle) const {
    return m_centre + (m_refVec * std::cos(angle) + yAxis() * std::sin(angle)) * m_radius;
  }
  /// The angle of the point's direction from the centre, from startAng to below a full turn more.
  double paramOf(const AcGePoint3d& p) const {
    const AcGeVector3d v = p - m_centre;
    const double turn = AcGeVector2d(m_refVec.dotProduct(v), yAxis().dotProduct(v)).angle();
    return turn + kAcGeTwoPi * std::ceil((m_startAng - turn) / kAcGeTwoPi);
  }
  double length() const { return m_radius * (endAng() - m_startAng); }
  /// The length between two angles.
  double length(double from, double to, double /*tol*/ = 0.0) const { return m_radius * std::fabs(to - from); }

  AcGePoint3d closestPointTo(const AcGePoint3d& p) const {
    const AcGeVector3d out = (p - m_centre).orthoProject(m_normal);
    const double away = out.length();
    if (away != 0.0 && spans(out)) return m_centre + out * (m_radius / away);
    return p.distanceSqrdTo(m_start) <= p.distanceSqrdTo(m_end) ? m_start : m_end;
  }
  double distanceTo(const AcGePoint3d& p) const { return closestPointTo(p).distanceTo(p); }
  /// True when p lies within the point tolerance of the arc, its ends included.
  Adesk::Boolean isOn(const AcGePoint3d& p, const AcGeTol& tol = AcGeContext::gTol) const {
    return closestPointTo(p).isEqualTo(p, tol);
  }
  Adesk::Boolean isOn(const AcGePoint3d& p, double& param, const AcGeTol& tol = AcGeContext::gTol) const {
    param = paramOf(p);
    return isOn(p, tol);
  }
  /// The corners of the smallest upright box around the arc.
  inline void boundBlock(AcGePoint3d& low, AcGePoint3d& high) const;

  /// The points that the arc and a line share: 0, 1 (a touch, or one of two within both), or 2, in the order along the
  /// line. True when there is any; points beyond the count are left alone. Where the line keeps within the tolerance of
  /// touching the circle it touches. An end of either within the tolerance of the other counts.
  inline Adesk::Boolean intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The same for two arcs. Arcs of one circle share a stretch or nothing, and the count is 0.
  inline Adesk::Boolean intersectWith(const AcGeCircArc3d& other, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The same for a plane; 0 for an arc in the plane.
  inline Adesk::Boolean intersectWith(const AcGePlanarEnt& plane, int& intn, AcGePoint3d& p1, AcGePoint3d& p2,
                                      const AcGeTol& tol = AcGeContext::gTol) const;
  /// The points of each where arc and line meet for one who looks along direction; 0 for one who sees the arc edge on
  /// or the line end on.
  inline Adesk::Boolean projIntersectWith(const AcGeLinearEnt3d& line, const AcGeVector3d& lookingAlong, int& intn,
                                          AcGePoint3d& onArc1, AcGePoint3d& onArc2, AcGePoint3d& onLine1,
                                          AcGePoint3d& onLine2, const AcGeTol& tol = AcGeContext::gTol) const;

  /// The map must keep angles: turn, shift, mirror, or scale alike in all directions.
  AcGeCircArc3d& transformBy(const AcGeMatrix3d& m) {
    const AcGeVector3d x = m * m_refVec;
    const AcGeVector3d square = x.crossProduct(m * yAxis());
    const double factor = x.length();
    m_centre.transformBy(m);
    m_start.transformBy(m);
    m_end.transformBy(m);
    m_radius *= factor;
    if (factor == 0.0 || square.lengthSqrd() == 0.0) return *this;
    m_refVec = x / factor;
    m_normal = square / square.length();
    return *this;
  }
  AcGeCircArc3d& translateBy(const AcGeVector3d& v) { return transformBy(AcGeMatrix3d::translation(v)); }
  AcGeCircArc3d& mirror(const AcGePlane& plane) { return transformBy(AcGeMatrix3d::mirroring(plane)); }
  AcGeCircArc3d& rotateBy(double angle, const AcGeVector3d& axis, const AcGePoint3d& centre = AcGePoint3d::kOrigin) {
    return transformBy(AcGeMatrix3d::rotation(angle, axis, centre));
  }

 private:
  /// Rounding of 2 pi, in radians: a sweep this close to the full turn is one.
  static constexpr double kFullTurnSlack = 1e-12;

  double sweepBetweenEnds() const {
    const AcGeVector3d toEnd = m_end - m_centre;
    return AcGeVector2d(m_refVec.dotProduct(toEnd), yAxis().dotProduct(toEnd)).angle();
  }
  AcGeVector3d yAxis() const { return m_normal.crossProduct(m_refVec); }
  void setToPoint(const AcGePoint3d& p) {
    m_centre = m_start = m_end = p;
    m_radius = m_startAng = m_endAng = 0.0;
    m_byPoints = false;
    m_refVec = AcGeVector3d::kXAxis;
    m_normal = AcGeVector3d::kZAxis;
  }
  /// Positive when b lies ahead of a, less than a half turn.
  double left(const AcGeVector3d& a, const AcGeVector3d& b) const { return a.crossProduct(b).dotProduct(m_normal); }
  /// True when the arc passes the given direction from its centre, its ends included.
  bool spans(const AcGeVector3d& out) const {
    if (isClosed()) return true;
    const AcGeVector3d from = m_start - m_centre;
    const AcGeVector3d to = m_end - m_centre;
    const double ahead = left(from, to);
    const double facing = from.dotProduct(to);
    // The sign of the dot product keeps an arc of hardly any sweep from passing the opposite direction.
    if (ahead >= 0.0 && facing > 0.0 && from.dotProduct(out) < 0.0) return false;
    if (ahead >= 0.0) return left(from, out) >= 0.0 && left(out, to) >= 0.0;
    return !(left(to, out) > 0.0 && left(out, from) > 0.0);
  }
  bool admits(const AcGePoint3d& p, const AcGeTol& tol) const {
    return spans(p - m_centre) || p.isEqualTo(m_start, tol) || p.isEqualTo(m_end, tol);
  }
  static void append(const AcGePoint3d& p, int& intn, AcGePoint3d& p1, AcGePoint3d& p2) {
    (intn == 0 ? p1 : p2) = p;
    ++intn;
  }

  AcGePoint3d m_centre;
  AcGePoint3d m_start;
  AcGePoint3d m_end;
  AcGeVector3d m_normal;
  AcGeVector3d m_refVec;
  double m_radius = 0.0;
  double m_startAng = 0.0;
  double m_endAng = 0.0;    ///< Of no meaning for an arc by points, whose angle is worked out when it is asked for.
  bool m_byPoints = false;  ///< Made through points: starts at angle 0 and ends at m_end.
};

inline AcGeCircArc3d& AcGeCircArc3d::set(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end,
                                         AcGeError& error) {
  const AcGeTol tol = AcGeContext::gTol;
  const AcGeVector3d u = through - start;
  const AcGeVector3d v = end - start;
  const double uu = u.lengthSqrd();
  const double vv = v.lengthSqrd();
  const double same = tol.equalPoint() * tol.equalPoint();
  error = uu <= same                            ? AcGe::kEqualArg1Arg2
          : vv <= same                          ? AcGe::kEqualArg1Arg3
          : through.distanceSqrdTo(end) <= same ? AcGe::kEqualArg2Arg3
                                                : AcGe::kOk;
  if (error != AcGe::kOk) return *this;
  const AcGeVector3d square = u.crossProduct(v);
  const double ww = square.lengthSqrd();
  if (ww <= tol.equalVector() * tol.equalVector() * uu * vv) {
    error = AcGe::kLinearlyDependentArg1Arg2Arg3;
    return *this;
  }
  const AcGeVector3d toCentre = square.crossProduct(u * vv - v * uu) / (2.0 * ww);
  m_radius = toCentre.length();
  m_centre = start + toCentre;
  m_normal = square / std::sqrt(ww);
  m_refVec = toCentre / -m_radius;
  m_start = start;
  m_end = end;
  m_startAng = m_endAng = 0.0;
  m_byPoints = true;
  return *this;
}

inline void AcGeCircArc3d::boundBlock(AcGePoint3d& low, AcGePoint3d& high) const {
  const AcGeVector3d y = yAxis();
  for (unsigned int i = 0; i < 3; ++i) {
    low[i] = std::min(m_start[i], m_end[i]);
    high[i] = std::max(m_start[i], m_end[i]);
    const double reach = std::hypot(m_refVec[i], y[i]);
    if (reach == 0.0) continue;
    const AcGeVector3d top = m_refVec * m_refVec[i] + y * y[i];
    if (spans(top)) high[i] = m_centre[i] + m_radius * reach;
    if (spans(-top)) low[i] = m_centre[i] - m_radius * reach;
  }
}

inline Adesk::Boolean AcGeCircArc3d::intersectWith(const AcGeLinearEnt3d& line, int& intn, AcGePoint3d& p1,
                                                   AcGePoint3d& p2, const AcGeTol& tol) const {
  intn = 0;
  const double step = line.stepLength();
  const AcGeVector3d direction = line.direction();
  const double climb = direction.dotProduct(m_normal);
  const AcGeVector3d gap = m_centre - line.pointOnLine();
  const double height = gap.dotProduct(m_normal);
  if (std::fabs(climb) > tol.equalVector() || step == 0.0) {
    const AcGePoint3d p = climb == 0.0 ? line.pointOnLine() : line.pointOnLine() + direction * (height / climb);
    const AcGePoint3d nearest = line.closestPointTo(p);
    if (isOn(nearest, tol)) append(nearest, intn, p1, p2);
    return intn;
  }
  // A line that runs in the plane meets the circle as in the plane; how far it is off the plane is seen at each point.
  const AcGeVector3d along = direction - m_normal * climb;
  const double ahead = gap.dotProduct(along);
  const AcGeVector3d aside = m_normal * height + along * ahead - gap;
  double places[2];
  const int found = AcGeIntersect::lineAndCircle(aside.length(), m_radius, tol.equalPoint(), places);
  for (int i = 0; i < found; ++i) {
    const double place = ahead + places[i];
    if (!line.limits().admit(place / step, tol.equalPoint() / step)) continue;
    if (std::fabs(height - climb * place) > tol.equalPoint()) continue;
    const AcGePoint3d p = m_centre + aside + along * places[i];
    if (admits(p, tol)) append(p, intn, p1, p2);
  }
  return intn > 0;
}

inline Adesk::Boolean AcGeCircArc3d::intersectWith(const AcGeCircArc3d& other, int& intn, AcGePoint3d& p1,
                                                   AcGePoint3d& p2, const AcGeTol& tol) const {
  intn = 0;
  if (!m_normal.isParallelTo(other.m_normal, tol)) {
    AcGePoint3d found[2];
    int count = 0;
    intersectWith(AcGePlane(other.m_centre, other.m_normal), count, found[0], found[1], tol);
    for (int i = 0; i < count; ++i) {
      if (other.isOn(found[i], tol)) append(found[i], intn, p1, p2);
    }
    return intn > 0;
  }
  const AcGeVector3d centres = other.m_centre - m_centre;
  if (std::fabs(centres.dotProduct(m_normal)) > tol.equalPoint()) return Adesk::kFalse;
  const AcGeVector3d flat = centres.orthoProject(m_normal);
  const double distance = flat.length();
  double along = 0.0;
  double aside = 0.0;
  const int count = AcGeIntersect::circleAndCircle(distance, m_radius, other.m_radius, tol.equalPoint(), along, aside);
  if (count == 0) return Adesk::kFalse;
  const AcGeVector3d unit = flat / distance;
  const AcGeVector3d across = m_normal.crossProduct(unit);
  for (int i = 0; i < count; ++i) {
    const AcGePoint3d p = m_centre + unit * along + across * (i == 0 ? aside : -aside);
    if (admits(p, tol) && other.admits(p, tol)) append(p, intn, p1, p2);
  }
  return intn > 0;
}

inline Adesk::Boolean AcGeCircArc3d::intersectWith(const AcGePlanarEnt& plane, int& intn, AcGePoint3d& p1,
                                                   AcGePoint3d& p2, const AcGeTol& tol) const {
  intn = 0;
  const AcGeVector3d tilt = m_normal.crossProduct(plane.normal());
  const double sine = tilt.length();
  if (sine <= tol.equalVector()) return Adesk::kFalse;
  // The trace of the plane in the arc's plane, at its point nearest to the centre.
  const AcGeVector3d along = tilt / sine;
  const AcGeVector3d across = along.crossProduct(m_normal);
  const double steps = (plane.pointOnPlane() - m_centre).dotProduct(plane.normal()) / across.dotProduct(plane.normal());
  const AcGePoint3d foot = m_centre + across * steps;
  double places[2];
  const int found = AcGeIntersect::lineAndCircle(std::fabs(steps), m_radius, tol.equalPoint(), places);
  for (int i = 0; i < found; ++i) {
    const AcGePoint3d p = foot + along * places[i];
    if (admits(p, tol)) append(p, intn, p1, p2);
  }
  return intn > 0;
}

inline Adesk::Boolean AcGeCircArc3d::projIntersectWith(const AcGeLinearEnt3d& line, const AcGeVector3d& lookingAlong,
                                                       int& intn, AcGePoint3d& onArc1, AcGePoint3d& onArc2,
                                                       AcGePoint3d& onLine1, AcGePoint3d& onLine2,
                                                       const AcGeTol& tol) const {
  intn = 0;
  if (m_normal.isPerpendicularTo(lookingAlong, tol) || line.direction().isParallelTo(lookingAlong, tol)) {
    return Adesk::kFalse;
  }
  AcGePlane plane;
  getPlane(plane);
  AcGeLine3d whole;
  line.getLine(whole);
  whole.set(plane.projClosestPointTo(whole.pointOnLine(), lookingAlong),
            line.direction().project(m_normal, lookingAlong));
  AcGePoint3d found[2];
  int count = 0;
  intersectWith(whole, count, found[0], found[1], tol);
  for (int i = 0; i < count; ++i) {
    const AcGePoint3d p = line.projClosestPointTo(found[i], lookingAlong);
    if ((p - found[i]).orthoProject(lookingAlong).length() > tol.equalPoint()) continue;
    (intn == 0 ? onArc1 : onArc2) = found[i];
    (intn == 0 ? onLine1 : onLine2) = p;
    ++intn;
  }
  return intn > 0;
}
