#pragma once

#include "host/db/AcDbField.h"
#include "host/db/entities/PieceCurve.h"

/// A full circle. Its parameter is the angle from the X axis of its normal's frame, 0 to 2 pi.
class AcDbCircle : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbCircle);

  /// As filed: the centre in the plane of the normal.
  struct Data {
    AcGePoint3d center;
    double radius = 0.0;
    double thickness = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    KR_DB_TIE(center, radius, thickness, normal)
  };
  KR_DB_DATA(Data)

  AcDbCircle() = default;
  AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

  AcGePoint3d center() const;
  double radius() const;
  double thickness() const;
  AcGeVector3d normal() const;
  double circumference() const;
  double diameter() const { return 2.0 * radius(); }
  Acad::ErrorStatus setCenter(const AcGePoint3d& center);
  /// eInvalidInput unless at least 0 and finite.
  Acad::ErrorStatus setRadius(double radius);
  Acad::ErrorStatus setDiameter(double diameter) { return setRadius(diameter / 2.0); }
  Acad::ErrorStatus setThickness(double thickness);
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;

  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override;
  Adesk::Boolean isClosed() const override { return Adesk::kTrue; }
  Adesk::Boolean isPeriodic() const override { return Adesk::kTrue; }
  Acad::ErrorStatus getArea(double& area) const override;
  /// A larger circle for a positive offset; eInvalidInput when nothing is left.
  Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless the circle stays one.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  void subList() const override;
  /// The centre, then the quadrants from angle 0 on.
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  /// The centre in the world.
  AcGePoint3d place() const;
  void setPlace(const AcGePoint3d& center);

  Data data_;
};
