#pragma once

#include "host/db/AcDbSymbolTable.h"
#include "host/ge/ge.h"

/// A named view, or the view of a viewport: what is seen and how large.
class AcDbAbstractViewTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAbstractViewTableRecord);

  AcGePoint2d centerPoint() const;
  void setCenterPoint(const AcGePoint2d& point);
  double height() const;
  void setHeight(double height);
  double width() const;
  void setWidth(double width);
  AcGePoint3d target() const;
  void setTarget(const AcGePoint3d& target);
  AcGeVector3d viewDirection() const;
  void setViewDirection(const AcGeVector3d& direction);
  double viewTwist() const;
  void setViewTwist(double angle);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 protected:
  AcDbAbstractViewTableRecord() = default;

 private:
  AcGePoint2d center_{0, 0};
  double height_ = 1;
  double width_ = 1;
  AcGePoint3d target_{0, 0, 0};
  AcGeVector3d direction_{0, 0, 1};
  double twist_ = 0;
};

class AcDbViewTableRecord : public AcDbAbstractViewTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
  AcDbViewTableRecord() = default;
};
class AcDbViewTable : public AcDbSymbolTableOf<AcDbViewTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewTable);
};
using AcDbViewTableIterator = AcDbViewTable::Iterator;

/// A tiled viewport of model space. "*Active" is the current one.
class AcDbViewportTableRecord : public AcDbAbstractViewTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewportTableRecord);
  AcDbViewportTableRecord() = default;
};
class AcDbViewportTable : public AcDbSymbolTableOf<AcDbViewportTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewportTable);
};
using AcDbViewportTableIterator = AcDbViewportTable::Iterator;

/// A named coordinate system.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
  AcDbUCSTableRecord() = default;
  AcGePoint3d origin() const;
  void setOrigin(const AcGePoint3d& origin);
  AcGeVector3d xAxis() const;
  void setXAxis(const AcGeVector3d& axis);
  AcGeVector3d yAxis() const;
  void setYAxis(const AcGeVector3d& axis);

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 private:
  AcGePoint3d origin_{0, 0, 0};
  AcGeVector3d xAxis_{1, 0, 0};
  AcGeVector3d yAxis_{0, 1, 0};
};
class AcDbUCSTable : public AcDbSymbolTableOf<AcDbUCSTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbUCSTable);
};
using AcDbUCSTableIterator = AcDbUCSTable::Iterator;
