#pragma once

#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A line with an arrow head that points from a note to what it tells of.
class AcDbLeader : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLeader);
  enum AnnoType : int { kMText = 0, kFcf = 1, kBlockRef = 2, kNoAnno = 3 };
  /// As filed, all in the world.
  struct Data {
    bool unknown1 = false;
    Adesk::Int16 annotationType = kNoAnno;
    Adesk::Int16 pathType = 0;  ///< 0 straight, 1 spline
    std::vector<AcGePoint3d> vertices;
    AcGePoint3d origin;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    AcGeVector3d xDirection = AcGeVector3d::kXAxis;
    AcGeVector3d blockOffset{0.0, 0.0, 0.0};
    AcGeVector3d annotationOffset{0.0, 0.0, 0.0};
    double textHeight = 0.0;
    double textWidth = 0.0;
    bool hookLineAlongX = false;
    bool hasArrowHead = true;
    Adesk::Int16 arrowType = 0;
    bool unknown2 = false;
    bool unknown3 = false;
    AcDbHardPointerId annotation;
    AcDbHardPointerId dimensionStyle;
    // Told by the exchange format only: whether there is a hook line (75), and the colour of a by-block leader (77).
    Adesk::Int16 hookLine = 0;
    Adesk::Int16 byBlockColor = 0;
    KR_DB_TIE(unknown1, annotationType, pathType, vertices, origin, normal, xDirection, blockOffset, annotationOffset,
              textHeight, textWidth, hookLineAlongX, hasArrowHead, arrowType, unknown2, unknown3, annotation,
              dimensionStyle, hookLine, byBlockColor)
  };
  AcDbLeader() = default;
  KR_DB_DATA(Data)

  KR_DB_GET(int, numVertices, int(data_.vertices.size()))
  /// The origin for an index beyond.
  AcGePoint3d vertexAt(int index) const;
  Acad::ErrorStatus setVertexAt(int index, const AcGePoint3d& point);
  /// False for a point equal to the last.
  bool appendVertex(const AcGePoint3d& point);
  void removeLastVertex();
  AcGePoint3d firstVertex() const { return vertexAt(0); }
  AcGePoint3d lastVertex() const { return vertexAt(numVertices() - 1); }
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  KR_DB_GET(AcGeVector3d, annotationXDirection, data_.xDirection)
  KR_DB_GET(AcGeVector3d, annotationOffset, data_.annotationOffset)
  Acad::ErrorStatus setAnnotationOffset(const AcGeVector3d& offset);
  KR_DB_GET(AnnoType, annoType, AnnoType(data_.annotationType))
  KR_DB_GET(double, annoHeight, data_.textHeight)
  KR_DB_GET(double, annoWidth, data_.textWidth)
  KR_DB_GET(AcDbObjectId, annotationObjId, data_.annotation)
  /// The entity decides the kind of annotation.
  Acad::ErrorStatus attachAnnotation(AcDbObjectId id);
  Acad::ErrorStatus detachAnnotation();
  KR_DB_GET(bool, hasArrowHead, data_.hasArrowHead)
  void enableArrowHead();
  void disableArrowHead();
  KR_DB_GET(bool, isSplined, data_.pathType == 1)
  void setToSpline();
  void setToStraightLeader();
  KR_DB_ID(dimensionStyle, setDimensionStyle, data_.dimensionStyle)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  Data data_;
};
