#pragma once

#include "host/db/AcDbField.h"
#include "host/db/entities/PieceCurve.h"

/// An arc of a circle, counterclockwise about its normal. Angles are from the X axis of the normal's frame, and are the
/// parameter; where the end angle is smaller, the arc runs through 0.
class AcDbArc : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbArc);

  /// As filed: the centre in the plane of the normal; radians.
  struct Data {
    AcGePoint3d center;
    double radius = 0.0;
    double thickness = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    double startAngle = 0.0;
    double endAngle = 0.0;
    KR_DB_TIE(center, radius, thickness, normal, startAngle, endAngle)
  };
  KR_DB_DATA(Data)

  AcDbArc() = default;
  AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
  AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle, double endAngle);

  AcGePoint3d center() const;
  double radius() const;
  double startAngle() const;
  double endAngle() const;
  /// The angle from start to end, above 0 and up to 2 pi.
  double totalAngle() const;
  double length() const { return radius() * totalAngle(); }
  double thickness() const;
  AcGeVector3d normal() const;
  Acad::ErrorStatus setCenter(const AcGePoint3d& center);
  /// eInvalidInput unless at least 0 and finite.
  Acad::ErrorStatus setRadius(double radius);
  Acad::ErrorStatus setStartAngle(double angle);
  Acad::ErrorStatus setEndAngle(double angle);
  Acad::ErrorStatus setThickness(double thickness);
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;

  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override;
  /// Of the segment between the arc and its chord.
  Acad::ErrorStatus getArea(double& area) const override;
  /// A larger arc for a positive offset; eInvalidInput when nothing is left.
  Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless the arc stays one. A mirrored arc swaps its ends.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  void subList() const override;
  /// Start, middle, end, centre.
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  /// The centre moves the arc; one of the others gives a new arc through the three points.
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  AcGeCircArc3d geArc() const;
  /// The centre in the world.
  AcGePoint3d place() const;
  void setPlace(const AcGePoint3d& center);

  Data data_;
};
