#pragma once

#include "host/db/AcDbField.h"
#include "host/db/AcDbSymbolTable.h"
#include "host/ge/ge.h"

/// A coordinate system as views and sheets have one: its own, or one by name.
struct AcDbUcsData {
  AcGePoint3d origin;
  AcGeVector3d xAxis = AcGeVector3d::kXAxis;
  AcGeVector3d yAxis = AcGeVector3d::kYAxis;
  double elevation = 0.0;
  Adesk::Int16 orthoType = 0;
  AcDbHardPointerId named;
  AcDbHardPointerId base;
  KR_DB_TIE(origin, xAxis, yAxis, elevation, orthoType, named, base)
};

/// A named view, or the view of a viewport: what is seen and how large.
class AcDbAbstractViewTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAbstractViewTableRecord);
  /// Bits of the view mode, as in group 71.
  enum ViewMode : Adesk::Int16 {
    kPerspective = 1,
    kFrontClip = 2,
    kBackClip = 4,
    kFollowUcs = 8,
    kFrontClipNotAtEye = 16
  };
  /// As filed.
  struct ViewData {
    double height = 1.0;
    double width = 1.0;
    AcGePoint2d center;
    AcGePoint3d target;
    AcGeVector3d direction = AcGeVector3d::kZAxis;
    double twist = 0.0;
    double lensLength = 50.0;
    double frontClip = 0.0;
    double backClip = 0.0;
    Adesk::Int16 mode = 0;
    Adesk::UInt8 renderMode = 0;
    AcDbUcsData ucs;
    KR_DB_TIE(height, width, center, target, direction, twist, lensLength, frontClip, backClip, mode, renderMode, ucs)
  };
  const ViewData& viewData() const { return view_; }
  ViewData& viewDataAsRead() { return view_; }

  KR_DB_FIELD(AcGePoint2d, centerPoint, setCenterPoint, view_.center)
  KR_DB_FIELD(double, height, setHeight, view_.height)
  KR_DB_FIELD(double, width, setWidth, view_.width)
  KR_DB_FIELD(AcGePoint3d, target, setTarget, view_.target)
  KR_DB_FIELD(AcGeVector3d, viewDirection, setViewDirection, view_.direction)
  KR_DB_FIELD(double, viewTwist, setViewTwist, view_.twist)
  KR_DB_FIELD(double, lensLength, setLensLength, view_.lensLength)
  KR_DB_FIELD(double, frontClipDistance, setFrontClipDistance, view_.frontClip)
  KR_DB_FIELD(double, backClipDistance, setBackClipDistance, view_.backClip)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 protected:
  AcDbAbstractViewTableRecord() = default;

 private:
  ViewData view_;
};

class AcDbViewTableRecord : public AcDbAbstractViewTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewTableRecord);
  struct Data {
    bool paperSpace = false;
    bool hasUcs = false;
    KR_DB_TIE(paperSpace, hasUcs)
  };
  AcDbViewTableRecord() = default;
  KR_DB_DATA(Data)
  KR_DB_FIELD(bool, isPaperspaceView, setIsPaperspaceView, data_.paperSpace)
  KR_DB_GET(bool, isUcsAssociatedToView, data_.hasUcs)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Int16 dxfFlags() const override;
  void setDxfFlags(Adesk::Int16 flags) override;

 private:
  Data data_;
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
  /// As filed.
  struct Data {
    AcGePoint2d lowerLeft{0.0, 0.0};
    AcGePoint2d upperRight{1.0, 1.0};
    Adesk::Int16 circleZoom = 100;
    bool fastZoom = true;
    Adesk::UInt8 ucsIcon = 3;
    bool gridOn = false;
    AcGePoint2d gridSpacing{10.0, 10.0};
    bool snapOn = false;
    bool snapStyle = false;
    Adesk::Int16 snapIsoPair = 0;
    double snapRotation = 0.0;
    AcGePoint2d snapBase{0.0, 0.0};
    AcGePoint2d snapSpacing{10.0, 10.0};
    bool unknown = false;
    bool ucsPerViewport = true;
    KR_DB_TIE(lowerLeft, upperRight, circleZoom, fastZoom, ucsIcon, gridOn, gridSpacing, snapOn, snapStyle, snapIsoPair,
              snapRotation, snapBase, snapSpacing, unknown, ucsPerViewport)
  };
  AcDbViewportTableRecord() = default;
  KR_DB_DATA(Data)
  KR_DB_FIELD(AcGePoint2d, lowerLeftCorner, setLowerLeftCorner, data_.lowerLeft)
  KR_DB_FIELD(AcGePoint2d, upperRightCorner, setUpperRightCorner, data_.upperRight)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};
/// Several records may have one name: the tiles of one arrangement.
class AcDbViewportTable : public AcDbSymbolTableOf<AcDbViewportTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewportTable);
};
using AcDbViewportTableIterator = AcDbViewportTable::Iterator;

/// A named coordinate system.
class AcDbUCSTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbUCSTableRecord);
  /// An origin for one of the six orthographic views.
  struct OrthoOrigin {
    Adesk::Int16 type = 0;
    AcGePoint3d origin;
    KR_DB_TIE(type, origin)
  };
  struct Data {
    AcDbUcsData ucs;
    std::vector<OrthoOrigin> orthoOrigins;
    KR_DB_TIE(ucs, orthoOrigins)
  };
  AcDbUCSTableRecord() = default;
  KR_DB_DATA(Data)
  KR_DB_FIELD(AcGePoint3d, origin, setOrigin, data_.ucs.origin)
  KR_DB_FIELD(AcGeVector3d, xAxis, setXAxis, data_.ucs.xAxis)
  KR_DB_FIELD(AcGeVector3d, yAxis, setYAxis, data_.ucs.yAxis)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 private:
  Data data_;
};
class AcDbUCSTable : public AcDbSymbolTableOf<AcDbUCSTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbUCSTable);
};
using AcDbUCSTableIterator = AcDbUCSTable::Iterator;

/// Tells of one viewport entity whether it is on: the viewport headers of a drawing form a chain.
class AcDbVXTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbVXTableRecord);
  struct Data {
    bool on = false;
    AcDbSoftPointerId viewport;
    AcDbHardPointerId previous;
    KR_DB_TIE(on, viewport, previous)
  };
  AcDbVXTableRecord() = default;
  KR_DB_DATA(Data)

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;

 private:
  Data data_;
};
/// Its records may be without a name, or have one name.
class AcDbVXTable : public AcDbSymbolTableOf<AcDbVXTableRecord> {
 public:
  ACRX_DECLARE_MEMBERS(AcDbVXTable);
};
