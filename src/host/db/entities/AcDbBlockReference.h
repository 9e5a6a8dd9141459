#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbObjectIterator.h"
#include "host/db/AcDbSubentities.h"
#include "host/ge/AcGeScale.h"

class AcDbAttribute;
class AcDbSequenceEnd;

/// A block shown at a place, scaled and turned, with attributes of its own.
class AcDbBlockReference : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockReference);
  /// As filed: the position in the plane of the normal.
  struct Data {
    AcGePoint3d position;
    AcGeScale3d scale;
    double rotation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    bool hasAttributes = false;  ///< as read; a writer goes by what there is
    AcDbHardPointerId block;
    KR_DB_TIE(position, scale, rotation, normal, hasAttributes, block)
  };
  AcDbBlockReference() { addTrait(kOwnsParts); }
  AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);
  KR_DB_DATA(Data)

  KR_DB_ID(blockTableRecord, setBlockTableRecord, data_.block)
  /// In the world.
  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& point);
  KR_DB_GET(AcGeScale3d, scaleFactors, data_.scale)
  /// eInvalidInput for a factor of 0.
  Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
  KR_DB_FIELD(double, rotation, setRotation, data_.rotation)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  /// From the block's coordinates to the world.
  AcGeMatrix3d blockTransform() const;
  /// eCannotScaleNonUniformly when the axes' images aren't square to each other, eInvalidInput when one is zero.
  Acad::ErrorStatus setBlockTransform(const AcGeMatrix3d& xform);

  Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
  Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
  Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                  bool openErased = false);
  Acad::ErrorStatus openSequenceEnd(AcDbSequenceEnd*& end, AcDb::OpenMode mode);
  AcDbObjectIterator* attributeIterator() const;
  AcDbSubentities* subentities() override { return &attributes_; }

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;
  void getEcs(AcGeMatrix3d& ecs) const override;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subErase(Adesk::Boolean erasing) override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly when the block would be sheared.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  /// Copies of the block's entities in place.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
  void subList() const override;
  Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                      const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                      AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;
  /// Where the block stands, once, or for each cell of an array.
  virtual std::vector<AcGeMatrix3d> placements() const;
  /// A group that isn't one of a single insert.
  virtual void takeArrayGroup(const resbuf&) {}

 private:
  Data data_;
  AcDbSubentities attributes_;
};

/// A block shown in rows and columns.
class AcDbMInsertBlock : public AcDbBlockReference {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);
  struct ArrayData {
    Adesk::Int16 columns = 1;
    Adesk::Int16 rows = 1;
    double columnSpacing = 0.0;
    double rowSpacing = 0.0;
    KR_DB_TIE(columns, rows, columnSpacing, rowSpacing)
  };
  AcDbMInsertBlock() = default;
  const ArrayData& arrayData() const { return array_; }
  ArrayData& arrayDataAsRead() { return array_; }

  KR_DB_FIELD(Adesk::Int16, columns, setColumns, array_.columns)
  KR_DB_FIELD(Adesk::Int16, rows, setRows, array_.rows)
  KR_DB_FIELD(double, columnSpacing, setColumnSpacing, array_.columnSpacing)
  KR_DB_FIELD(double, rowSpacing, setRowSpacing, array_.rowSpacing)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  std::vector<AcGeMatrix3d> placements() const override;
  void takeArrayGroup(const resbuf& group) override;

 private:
  ArrayData array_;
};
