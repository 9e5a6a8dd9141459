#pragma once

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A part of a polyline.
class AcDbVertex : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbVertex);

 protected:
  AcDbVertex() = default;
};

/// A vertex of a 2D polyline.
class AcDb2dVertex : public AcDbVertex {
 public:
  ACRX_DECLARE_MEMBERS(AcDb2dVertex);
  /// Bits of the flags, as in group 70.
  enum Flag : Adesk::UInt8 { kCurveFit = 1, kTangentUsed = 2, kSplineFit = 8, kSplineControl = 16 };
  /// As filed: the position in the polyline's plane, with its z; radians.
  struct Data {
    Adesk::UInt8 flags = 0;
    AcGePoint3d position;
    double startWidth = 0.0;
    double endWidth = 0.0;
    double bulge = 0.0;
    double tangent = 0.0;
    KR_DB_TIE(flags, position, startWidth, endWidth, bulge, tangent)
  };
  AcDb2dVertex() = default;
  explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0, double startWidth = 0.0, double endWidth = 0.0,
                        double tangent = 0.0, Adesk::Int32 vertexIdentifier = 0);
  KR_DB_DATA(Data)

  AcDb::Vertex2dType vertexType() const;
  KR_DB_FIELD(AcGePoint3d, position, setPosition, data_.position)
  KR_DB_FIELD(double, startWidth, setStartWidth, data_.startWidth)
  KR_DB_FIELD(double, endWidth, setEndWidth, data_.endWidth)
  KR_DB_FIELD(double, bulge, setBulge, data_.bulge)
  KR_DB_GET(double, tangent, data_.tangent)
  /// Sets the direction, and that it is used.
  Acad::ErrorStatus setTangent(double angle);
  bool isTangentUsed() const;
  void useTangent();
  void ignoreTangent();

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};

/// A vertex of a 3D polyline.
class AcDb3dPolylineVertex : public AcDbVertex {
 public:
  ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
  struct Data {
    Adesk::UInt8 flags = 32;  ///< group 70: 32, and 8 or 16 as in a 2D vertex
    AcGePoint3d position;
    KR_DB_TIE(flags, position)
  };
  AcDb3dPolylineVertex() = default;
  explicit AcDb3dPolylineVertex(const AcGePoint3d& position) { data_.position = position; }
  KR_DB_DATA(Data)

  AcDb::Vertex3dType vertexType() const;
  KR_DB_FIELD(AcGePoint3d, position, setPosition, data_.position)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;

 private:
  Data data_;
};
