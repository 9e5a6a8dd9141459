#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A point. How points are drawn stands in the header (PDMODE, PDSIZE); here each is drawn as a dot.
class AcDbPoint : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbPoint);
  /// As filed: the point in the world, and the angle of the X axis for the shape that shows it.
  struct Data {
    AcGePoint3d position;
    double thickness = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    double ecsRotation = 0.0;
    KR_DB_TIE(position, thickness, normal, ecsRotation)
  };
  AcDbPoint() = default;
  explicit AcDbPoint(const AcGePoint3d& position) { data_.position = position; }
  KR_DB_DATA(Data)

  KR_DB_FIELD(AcGePoint3d, position, setPosition, data_.position)
  KR_DB_FIELD(double, thickness, setThickness, data_.thickness)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  KR_DB_FIELD(double, ecsRotation, setEcsRotation, data_.ecsRotation)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                      const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                      AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  Data data_;
};
