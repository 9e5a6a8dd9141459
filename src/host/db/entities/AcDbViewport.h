#pragma once

#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A window of paper space on the model.
class AcDbViewport : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbViewport);
  /// Bits of the status, as in group 90.
  enum StatusFlag : Adesk::Int32 {
    kPerspective = 0x1,
    kFrontClip = 0x2,
    kBackClip = 0x4,
    kFollowUcs = 0x8,
    kFrontClipNotAtEye = 0x10,
    kUcsIconVisible = 0x20,
    kUcsIconAtOrigin = 0x40,
    kFastZoom = 0x80,
    kSnap = 0x100,
    kGrid = 0x200,
    kIsometricSnap = 0x400,
    kHidePlot = 0x800,
    kZoomLocked = 0x4000,
    kClipped = 0x10000,
    kOff = 0x20000
  };
  /// As filed. Lengths of the paper are those of its drawing units, lengths of the view those of the model.
  struct Data {
    AcGePoint3d center;
    double width = 1.0;
    double height = 1.0;
    AcGePoint3d target;
    AcGeVector3d direction = AcGeVector3d::kZAxis;
    double twist = 0.0;
    double viewHeight = 1.0;
    double lensLength = 50.0;
    double frontClip = 0.0;
    double backClip = 0.0;
    double snapAngle = 0.0;
    AcGePoint2d viewCenter;
    AcGePoint2d snapBase;
    AcGePoint2d snapSpacing{10.0, 10.0};
    AcGePoint2d gridSpacing{10.0, 10.0};
    Adesk::Int16 circleZoom = 100;
    Adesk::Int32 status = 0;
    std::wstring styleSheet;
    Adesk::UInt8 renderMode = 0;
    bool ucsAtOrigin = false;
    bool ucsPerViewport = false;
    AcGePoint3d ucsOrigin;
    AcGeVector3d ucsXAxis = AcGeVector3d::kXAxis;
    AcGeVector3d ucsYAxis = AcGeVector3d::kYAxis;
    double elevation = 0.0;
    Adesk::Int16 orthoType = 0;
    std::vector<AcDbHardPointerId> frozenLayers;
    AcDbHardPointerId clipBoundary;
    AcDbHardPointerId header;  ///< its record among the viewport headers
    AcDbHardPointerId namedUcs;
    AcDbHardPointerId baseUcs;
    // Told by the exchange format: its place in the order of activity (68) and its number (69; 1 is the sheet itself).
    Adesk::Int16 active = 1;
    Adesk::Int16 number = 2;
    KR_DB_TIE(center, width, height, target, direction, twist, viewHeight, lensLength, frontClip, backClip, snapAngle,
              viewCenter, snapBase, snapSpacing, gridSpacing, circleZoom, status, styleSheet, renderMode, ucsAtOrigin,
              ucsPerViewport, ucsOrigin, ucsXAxis, ucsYAxis, elevation, orthoType, frozenLayers, clipBoundary, header,
              namedUcs, baseUcs, active, number)
  };
  AcDbViewport() = default;
  KR_DB_DATA(Data)

  KR_DB_FIELD(double, height, setHeight, data_.height)
  KR_DB_FIELD(double, width, setWidth, data_.width)
  KR_DB_FIELD(AcGePoint3d, centerPoint, setCenterPoint, data_.center)
  KR_DB_GET(Adesk::Int16, number, data_.number)
  KR_DB_GET(bool, isOn, (data_.status & kOff) == 0)
  Acad::ErrorStatus setOn();
  Acad::ErrorStatus setOff();
  KR_DB_FIELD(AcGePoint3d, viewTarget, setViewTarget, data_.target)
  KR_DB_FIELD(AcGeVector3d, viewDirection, setViewDirection, data_.direction)
  KR_DB_FIELD(double, viewHeight, setViewHeight, data_.viewHeight)
  KR_DB_FIELD(AcGePoint2d, viewCenter, setViewCenter, data_.viewCenter)
  KR_DB_FIELD(double, twistAngle, setTwistAngle, data_.twist)
  KR_DB_FIELD(double, lensLength, setLensLength, data_.lensLength)
  KR_DB_FIELD(double, elevation, setElevation, data_.elevation)
  KR_DB_GET(bool, isLocked, (data_.status & kZoomLocked) != 0)
  Acad::ErrorStatus setLocked();
  Acad::ErrorStatus setUnlocked();
  /// Paper lengths to a length of the model.
  double customScale() const;
  Acad::ErrorStatus setCustomScale(double scale);
  bool isLayerFrozenInViewport(const AcDbObjectId& layer) const;
  Acad::ErrorStatus freezeLayersInViewport(const AcDbObjectIdArray& layers);
  Acad::ErrorStatus thawLayersInViewport(const AcDbObjectIdArray& layers);
  /// From the model to the paper.
  AcGeMatrix3d modelToPaper() const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  /// Its frame.
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;

 private:
  Data data_;
};
