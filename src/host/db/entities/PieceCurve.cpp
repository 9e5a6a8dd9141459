#include "host/db/entities/PieceCurve.h"

#include <cmath>
#include <limits>

namespace {

// How far a parameter or a length may lie past an end, for the rounding of those who computed it.
constexpr double kParamSlack = 1e-10;

bool extendsThis(AcDb::Intersect type) {
  return type == AcDb::kExtendThis || type == AcDb::kExtendBoth;
}

bool extendsArgument(AcDb::Intersect type) {
  return type == AcDb::kExtendArg || type == AcDb::kExtendBoth;
}

AcDb::Intersect turnedRound(AcDb::Intersect type) {
  if (type == AcDb::kExtendThis) return AcDb::kExtendArg;
  return type == AcDb::kExtendArg ? AcDb::kExtendThis : type;
}

void append(const std::vector<AcGePoint3d>& found, AcGePoint3dArray& points) {
  for (const AcGePoint3d& p : found) points.append(p);
}

double lengthOf(const CurvePieces& chain) {
  double length = 0.0;
  for (const CurvePiece& piece : chain) length += piece.length();
  return length;
}

/// The chain laid into the plane along its normal. False when an arc would become an ellipse.
bool laidInto(const AcGePlane& plane, const CurvePieces& chain, CurvePieces& flat) {
  const AcGeMatrix3d shadow = AcGeMatrix3d::projection(plane, plane.normal());
  for (const CurvePiece& piece : chain) {
    if (!piece.isArc()) {
      AcGePoint3d start = piece.startPoint();
      AcGePoint3d end = piece.endPoint();
      flat.emplace_back(AcGeLineSeg3d(start.transformBy(shadow), end.transformBy(shadow)));
      continue;
    }
    const AcGeCircArc3d& arc = piece.arc();
    if (!arc.normal().isParallelTo(plane.normal())) return false;
    AcGePoint3d centre = arc.center();
    flat.emplace_back(AcGeCircArc3d(centre.transformBy(shadow), arc.normal(), arc.refVec(), arc.radius(),
                                    arc.startAng(), arc.endAng()));
  }
  return true;
}

/// The point of the chain that lies over `p` along `direction`.
AcGePoint3d liftedTo(const CurvePieces& chain, const CurvePieces& flat, const AcGePoint3d& p,
                     const AcGeVector3d& direction) {
  std::size_t best = 0;
  double bestDistance = std::numeric_limits<double>::max();
  for (std::size_t i = 0; i < flat.size(); ++i) {
    const double distance = flat[i].closestPointTo(p, true).distanceTo(p);
    if (distance < bestDistance) bestDistance = distance, best = i;
  }
  const CurvePiece& piece = chain[best];
  if (piece.isArc()) return p + direction * (piece.arc().center() - p).dotProduct(direction);
  const double fraction = flat[best].fractionOf(p);
  return piece.pointAt(fraction);
}

}  // namespace

bool PieceCurve::placeOf(double param, const CurvePieces& chain, Place& place) const {
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const double start = paramAtPiece(i);
    const double end = paramAtPiece(i + 1);
    const bool last = i + 1 == chain.size();
    if (param > end && !last) continue;
    if (param < start - kParamSlack || param > end + kParamSlack) return false;
    place.piece = i;
    place.fraction = end == start ? 0.0 : (param - start) / (end - start);
    return true;
  }
  return false;
}

double PieceCurve::paramOf(const Place& place) const {
  const double start = paramAtPiece(place.piece);
  return start + place.fraction * (paramAtPiece(place.piece + 1) - start);
}

PieceCurve::Place PieceCurve::nearestPlace(const CurvePieces& chain, const AcGePoint3d& point, bool extend,
                                           AcGePoint3d& nearest) {
  Place place;
  double bestDistance = std::numeric_limits<double>::max();
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const bool carriedOn = extend && (i == 0 || i + 1 == chain.size());
    const AcGePoint3d candidate = chain[i].closestPointTo(point, carriedOn);
    const double distance = candidate.distanceTo(point);
    if (distance >= bestDistance) continue;
    bestDistance = distance;
    nearest = candidate;
    place = {i, chain[i].fractionOf(candidate)};
  }
  return place;
}

Acad::ErrorStatus PieceCurve::getStartParam(double& param) const {
  assertReadEnabled();
  param = paramAtPiece(0);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getEndParam(double& param) const {
  assertReadEnabled();
  param = paramAtPiece(pieces().size());
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getStartPoint(AcGePoint3d& point) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eDegenerateGeometry;
  point = chain.front().startPoint();
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getEndPoint(AcGePoint3d& point) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eDegenerateGeometry;
  point = chain.back().endPoint();
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getPointAtParam(double param, AcGePoint3d& point) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  Place place;
  if (!placeOf(param, chain, place)) return Acad::eInvalidInput;
  point = chain[place.piece].pointAt(place.fraction);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getParamAtPoint(const AcGePoint3d& point, double& param) const {
  assertReadEnabled();
  AcGePoint3d nearest;
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eDegenerateGeometry;
  const Place place = nearestPlace(chain, point, false, nearest);
  if (nearest != point) return Acad::eInvalidInput;
  param = paramOf(place);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getDistAtParam(double param, double& dist) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  Place place;
  if (!placeOf(param, chain, place)) return Acad::eInvalidInput;
  dist = place.fraction * chain[place.piece].length();
  for (std::size_t i = 0; i < place.piece; ++i) dist += chain[i].length();
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getParamAtDist(double dist, double& param) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eDegenerateGeometry;
  const double slack = kParamSlack * (1.0 + lengthOf(chain));
  if (dist < -slack) return Acad::eInvalidInput;
  for (std::size_t i = 0; i < chain.size(); ++i) {
    const double length = chain[i].length();
    const bool last = i + 1 == chain.size();
    if (dist > length && !(last && dist <= length + slack)) {
      dist -= length;
      continue;
    }
    param = paramOf({i, length == 0.0 ? 0.0 : dist / length});
    return Acad::eOk;
  }
  return Acad::eInvalidInput;
}

Acad::ErrorStatus PieceCurve::getDistAtPoint(const AcGePoint3d& point, double& dist) const {
  double param = 0.0;
  const Acad::ErrorStatus status = getParamAtPoint(point, param);
  return status == Acad::eOk ? getDistAtParam(param, dist) : status;
}

Acad::ErrorStatus PieceCurve::getPointAtDist(double dist, AcGePoint3d& point) const {
  double param = 0.0;
  const Acad::ErrorStatus status = getParamAtDist(dist, param);
  return status == Acad::eOk ? getPointAtParam(param, point) : status;
}

Acad::ErrorStatus PieceCurve::getFirstDeriv(double param, AcGeVector3d& derivative) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  Place place;
  if (!placeOf(param, chain, place)) return Acad::eInvalidInput;
  const double span = paramAtPiece(place.piece + 1) - paramAtPiece(place.piece);
  if (span == 0.0) return Acad::eDegenerateGeometry;
  derivative = chain[place.piece].stepAt(place.fraction) / span;
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getSecondDeriv(double param, AcGeVector3d& derivative) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  Place place;
  if (!placeOf(param, chain, place)) return Acad::eInvalidInput;
  const double span = paramAtPiece(place.piece + 1) - paramAtPiece(place.piece);
  if (span == 0.0) return Acad::eDegenerateGeometry;
  derivative = chain[place.piece].secondStepAt(place.fraction) / (span * span);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& onCurve, bool extend) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eDegenerateGeometry;
  nearestPlace(chain, given, extend && !isClosed(), onCurve);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::subGetGeomExtents(AcDbExtents& extents) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  if (chain.empty()) return Acad::eNullExtents;
  AcGePoint3d low = chain.front().startPoint();
  AcGePoint3d high = low;
  for (const CurvePiece& piece : chain) piece.growBox(low, high);
  return extents.set(low, high);
}

Acad::ErrorStatus PieceCurve::subIntersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                               Adesk::GsMarker thisMarker, Adesk::GsMarker otherMarker) const {
  assertReadEnabled();
  if (other == nullptr) return Acad::eNullEntityPointer;
  const PieceCurve* const curve = from(other);
  if (curve == nullptr) return other->intersectWith(this, turnedRound(type), points, otherMarker, thisMarker);
  std::vector<AcGePoint3d> found;
  intersectPieces(pieces(), extendsThis(type) && !isClosed(), curve->pieces(),
                  extendsArgument(type) && !curve->isClosed(), found);
  append(found, points);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::subIntersectWith(const AcDbEntity* other, AcDb::Intersect type,
                                               const AcGePlane& projection, AcGePoint3dArray& points,
                                               Adesk::GsMarker thisMarker, Adesk::GsMarker otherMarker) const {
  assertReadEnabled();
  if (other == nullptr) return Acad::eNullEntityPointer;
  const PieceCurve* const curve = from(other);
  if (curve == nullptr)
    return other->intersectWith(this, turnedRound(type), projection, points, otherMarker, thisMarker);
  const CurvePieces own = pieces();
  CurvePieces ownFlat;
  CurvePieces otherFlat;
  if (!laidInto(projection, own, ownFlat) || !laidInto(projection, curve->pieces(), otherFlat)) {
    return Acad::eNotApplicable;
  }
  std::vector<AcGePoint3d> found;
  intersectPieces(ownFlat, extendsThis(type) && !isClosed(), otherFlat, extendsArgument(type) && !curve->isClosed(),
                  found);
  for (AcGePoint3d& p : found) p = liftedTo(own, ownFlat, p, projection.normal());
  append(found, points);
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker, const AcGePoint3d& pickPoint,
                                                const AcGePoint3d& lastPoint, const AcGeMatrix3d&,
                                                AcGePoint3dArray& snapPoints, AcDbIntArray&) const {
  assertReadEnabled();
  const CurvePieces chain = pieces();
  AcGePoint3d nearest;
  if (mode == AcDb::kOsModeNear || mode == AcDb::kOsModePerp) {
    if (chain.empty()) return Acad::eOk;
    nearestPlace(chain, mode == AcDb::kOsModeNear ? pickPoint : lastPoint, false, nearest);
    snapPoints.append(nearest);
    return Acad::eOk;
  }
  for (const CurvePiece& piece : chain) {
    const bool wholeCircle = piece.isArc() && piece.arc().isClosed();
    if (mode == AcDb::kOsModeEnd && !wholeCircle) {
      snapPoints.append(piece.startPoint());
      snapPoints.append(piece.endPoint());
    } else if (mode == AcDb::kOsModeMid && !wholeCircle) {
      snapPoints.append(piece.pointAt(0.5));
    } else if (mode == AcDb::kOsModeCen && piece.isArc()) {
      snapPoints.append(piece.arc().center());
    } else if (mode == AcDb::kOsModeQuad && piece.isArc()) {
      const AcGeCircArc3d& arc = piece.arc();
      const AcGeMatrix3d frame = AcGeMatrix3d::planeToWorld(arc.normal());
      for (const AcGeVector3d& axis : {AcGeVector3d::kXAxis, AcGeVector3d::kYAxis}) {
        for (const double side : {arc.radius(), -arc.radius()}) {
          const AcGePoint3d p = arc.center() + frame * axis * side;
          if (arc.isOn(p)) snapPoints.append(p);
        }
      }
    }
  }
  return Acad::eOk;
}

Acad::ErrorStatus PieceCurve::subGetStretchPoints(AcGePoint3dArray& points) const {
  AcDbIntArray osnapModes;
  AcDbIntArray geomIds;
  return subGetGripPoints(points, osnapModes, geomIds);
}

Acad::ErrorStatus PieceCurve::subMoveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) {
  return subMoveGripPointsAt(indices, offset);
}
