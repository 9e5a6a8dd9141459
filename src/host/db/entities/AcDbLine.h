#pragma once

#include "host/db/AcDbField.h"
#include "host/db/entities/PieceCurve.h"

/// A straight line between two points. Its parameter is the length from the start.
class AcDbLine : public PieceCurve {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLine);

  /// As filed: points in the world.
  struct Data {
    AcGePoint3d start;
    AcGePoint3d end;
    double thickness = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    KR_DB_TIE(start, end, thickness, normal)
  };
  KR_DB_DATA(Data)

  AcDbLine() = default;
  AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end) {
    data_.start = start;
    data_.end = end;
  }

  AcGePoint3d startPoint() const;
  AcGePoint3d endPoint() const;
  double thickness() const;
  /// The direction of the thickness.
  AcGeVector3d normal() const;
  Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
  Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
  Acad::ErrorStatus setThickness(double thickness);
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;

  CurvePieces pieces() const override;
  double paramAtPiece(std::size_t i) const override;
  /// A line has none: eNotApplicable.
  Acad::ErrorStatus getArea(double& area) const override;
  Acad::ErrorStatus reverseCurve() override;
  /// One line, to the right of this one in the plane of its normal for a positive offset.
  Acad::ErrorStatus getOffsetCurves(double offset, AcDbVoidPtrArray& curves) const override;
  /// Moves the start (for a negative parameter) or the end; eInvalidInput between the ends.
  Acad::ErrorStatus extend(double newParam) override;
  Acad::ErrorStatus extend(Adesk::Boolean atStart, const AcGePoint3d& to) override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  void subList() const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  Data data_;
};
