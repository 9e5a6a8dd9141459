#pragma once

#include "host/db/AcDbCurve.h"
#include "host/db/entities/CurvePieces.h"

/// A curve made of straight and circular pieces: all that curves share follows from the pieces and from the parameter
/// at each piece's start. Inside of a piece the parameter runs evenly with the length.
class PieceCurve : public AcDbCurve {
 public:
  virtual CurvePieces pieces() const = 0;
  /// The parameter at the start of piece i, and for i equal to their number at the end of the curve.
  virtual double paramAtPiece(std::size_t i) const = 0;

  /// The pieces of an entity that is such a curve; null for another.
  static const PieceCurve* from(const AcDbEntity* entity) { return dynamic_cast<const PieceCurve*>(entity); }

  Acad::ErrorStatus getStartParam(double& param) const override;
  Acad::ErrorStatus getEndParam(double& param) const override;
  Acad::ErrorStatus getStartPoint(AcGePoint3d& point) const override;
  Acad::ErrorStatus getEndPoint(AcGePoint3d& point) const override;
  /// eInvalidInput outside of the curve, here and below.
  Acad::ErrorStatus getPointAtParam(double param, AcGePoint3d& point) const override;
  Acad::ErrorStatus getParamAtPoint(const AcGePoint3d& point, double& param) const override;
  Acad::ErrorStatus getDistAtParam(double param, double& dist) const override;
  Acad::ErrorStatus getParamAtDist(double dist, double& param) const override;
  Acad::ErrorStatus getDistAtPoint(const AcGePoint3d& point, double& dist) const override;
  Acad::ErrorStatus getPointAtDist(double dist, AcGePoint3d& point) const override;
  Acad::ErrorStatus getFirstDeriv(double param, AcGeVector3d& derivative) const override;
  Acad::ErrorStatus getSecondDeriv(double param, AcGeVector3d& derivative) const override;
  Acad::ErrorStatus getClosestPointTo(const AcGePoint3d& given, AcGePoint3d& onCurve,
                                      bool extend = false) const override;

 protected:
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus subIntersectWith(const AcDbEntity* other, AcDb::Intersect type, AcGePoint3dArray& points,
                                     Adesk::GsMarker thisMarker, Adesk::GsMarker otherMarker) const override;
  /// Where the two cross when seen along the plane's normal; the points lie on this curve. eNotApplicable when an arc
  /// is seen aslant.
  Acad::ErrorStatus subIntersectWith(const AcDbEntity* other, AcDb::Intersect type, const AcGePlane& projection,
                                     AcGePoint3dArray& points, Adesk::GsMarker thisMarker,
                                     Adesk::GsMarker otherMarker) const override;
  /// Ends, middles, centres, quadrants, the nearest point, the foot of the perpendicular.
  Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                      const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                      AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const override;
  /// The grips double as stretch points.
  Acad::ErrorStatus subGetStretchPoints(AcGePoint3dArray& points) const override;
  Acad::ErrorStatus subMoveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  struct Place {
    std::size_t piece = 0;
    double fraction = 0.0;
  };
  bool placeOf(double param, const CurvePieces& chain, Place& place) const;
  double paramOf(const Place& place) const;
  static Place nearestPlace(const CurvePieces& chain, const AcGePoint3d& point, bool extend, AcGePoint3d& nearest);
};
