#pragma once

#include <array>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A filled area of four corners in one plane, told in the order first, second, fourth, third of its outline; the base
/// of AcDbTrace and AcDbSolid, which differ in name only.
class AcDbFourCorners : public AcDbEntity {
 public:
  /// As filed: corners in the plane of the normal, at the elevation.
  struct Data {
    double thickness = 0.0;
    double elevation = 0.0;
    std::array<AcGePoint2d, 4> corners;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    KR_DB_TIE(thickness, elevation, corners, normal)
  };
  KR_DB_DATA(Data)

  /// Corner 0 to 3 in the world; eInvalidIndex beyond.
  Acad::ErrorStatus getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const;
  Acad::ErrorStatus setPointAt(Adesk::UInt16 index, const AcGePoint3d& point);
  KR_DB_FIELD(double, thickness, setThickness, data_.thickness)
  KR_DB_FIELD(double, elevation, setElevation, data_.elevation)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  AcDbFourCorners() = default;
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless the matrix is a motion with one scale.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  Data data_;
};

class AcDbTrace : public AcDbFourCorners {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTrace);
  AcDbTrace() = default;
};

class AcDbSolid : public AcDbFourCorners {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSolid);
  AcDbSolid() = default;
};
