#pragma once

#include <array>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

/// A measure told in the drawing. Its picture is an anonymous block when it has one (as read from a file); without one
/// a plain picture is drawn from the style: the lines, arrow heads and the text.
class AcDbDimension : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDimension);
  /// Bits of `flags` as a drawing file holds them. Group 70 has the kind plus 128 for a text placed by the user (here
  /// the opposite bit) and 32 for a block of its own.
  enum Flag : Adesk::UInt8 { kTextAtDefault = 1, kOwnBlock = 2, kUsual = 8 };
  /// The kinds, as in group 70.
  enum Kind {
    kRotated = 0,
    kAligned = 1,
    kAngular2Line = 2,
    kDiametric = 3,
    kRadial = 4,
    kAngular3Point = 5,
    kOrdinate = 6
  };
  /// As filed. What isn't used by a kind stays at its default.
  struct Data {
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    AcGePoint2d textPosition;  ///< in the plane of the normal (group 11)
    double elevation = 0.0;
    Adesk::UInt8 flags = kTextAtDefault | kOwnBlock | kUsual;
    std::wstring text;  ///< empty: the measurement; <> stands for it; one space: no text
    double textRotation = 0.0;
    double horizontalRotation = 0.0;
    AcGePoint3d blockScale{1.0, 1.0, 1.0};
    double blockRotation = 0.0;
    Adesk::Int16 attachment = 5;
    Adesk::Int16 lineSpacingStyle = 1;
    double lineSpacingFactor = 1.0;
    double measurement = 0.0;  ///< as last reckoned by the writing program
    AcGePoint2d point12;
    AcGePoint3d point10;
    AcGePoint3d point13;
    AcGePoint3d point14;
    AcGePoint3d point15;
    AcGePoint2d point16;             ///< of the angular one of two lines
    double oblique = 0.0;            ///< slant of the extension lines (52)
    double rotation = 0.0;           ///< of the rotated one (50)
    double leaderLength = 0.0;       ///< of radial and diametric ones (40)
    Adesk::UInt8 ordinateFlags = 0;  ///< bit 0: along X
    AcDbHardPointerId style;
    AcDbHardPointerId block;
    KR_DB_TIE(normal, textPosition, elevation, flags, text, textRotation, horizontalRotation, blockScale, blockRotation,
              attachment, lineSpacingStyle, lineSpacingFactor, measurement, point12, point10, point13, point14, point15,
              point16, oblique, rotation, leaderLength, ordinateFlags, style, block)
  };
  KR_DB_DATA(Data)

  virtual Kind kind() const = 0;
  KR_DB_ID(dimensionStyle, setDimensionStyle, data_.style)
  KR_DB_ID(dimBlockId, setDimBlockId, data_.block)
  KR_DB_TEXT(dimensionTextConst, setDimensionText, data_.text)
  /// A new text that acutDelString frees.
  ACHAR* dimensionText() const;
  KR_DB_FIELD(double, textRotation, setTextRotation, data_.textRotation)
  KR_DB_FIELD(double, horizontalRotation, setHorizontalRotation, data_.horizontalRotation)
  KR_DB_FIELD(double, elevation, setElevation, data_.elevation)
  KR_DB_GET(AcGeVector3d, normal, data_.normal)
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  /// The middle of the text, in the world.
  AcGePoint3d textPosition() const;
  /// Puts it where the user wants it.
  Acad::ErrorStatus setTextPosition(const AcGePoint3d& point);
  KR_DB_GET(bool, isUsingDefaultTextPosition, (data_.flags & kTextAtDefault) != 0)
  Acad::ErrorStatus useSetTextPosition();
  Acad::ErrorStatus useDefaultTextPosition();
  /// What is measured, from the points: a length, or radians of an angular one.
  Acad::ErrorStatus measurement(double& value) const;
  /// The text shown: the user's, with the measurement for <>.
  std::wstring shownText() const;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  AcDbDimension() = default;
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// The block's picture isn't of use any more: it is let go. eCannotScaleNonUniformly unless lengths keep their ratio.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  void subList() const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

  /// The points that a kind is made of, for grips and transforms.
  virtual std::vector<AcGePoint3d*> points();
  Data data_;
};

/// Along the line from one extension line's origin to the other's.
class AcDbAlignedDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDbAlignedDimension);
  AcDbAlignedDimension() = default;
  AcDbAlignedDimension(const AcGePoint3d& xLine1, const AcGePoint3d& xLine2, const AcGePoint3d& dimLine,
                       const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId::kNull);
  Kind kind() const override { return kAligned; }
  KR_DB_FIELD(AcGePoint3d, xLine1Point, setXLine1Point, data_.point13)
  KR_DB_FIELD(AcGePoint3d, xLine2Point, setXLine2Point, data_.point14)
  KR_DB_FIELD(AcGePoint3d, dimLinePoint, setDimLinePoint, data_.point10)
  KR_DB_FIELD(double, oblique, setOblique, data_.oblique)
};

/// Along a given direction.
class AcDbRotatedDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRotatedDimension);
  AcDbRotatedDimension() = default;
  AcDbRotatedDimension(double rotation, const AcGePoint3d& xLine1, const AcGePoint3d& xLine2,
                       const AcGePoint3d& dimLine, const ACHAR* text = nullptr,
                       AcDbObjectId style = AcDbObjectId::kNull);
  Kind kind() const override { return kRotated; }
  KR_DB_FIELD(AcGePoint3d, xLine1Point, setXLine1Point, data_.point13)
  KR_DB_FIELD(AcGePoint3d, xLine2Point, setXLine2Point, data_.point14)
  KR_DB_FIELD(AcGePoint3d, dimLinePoint, setDimLinePoint, data_.point10)
  KR_DB_FIELD(double, oblique, setOblique, data_.oblique)
  KR_DB_FIELD(double, rotation, setRotation, data_.rotation)
};

/// The X or Y distance of a point from an origin.
class AcDbOrdinateDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDbOrdinateDimension);
  AcDbOrdinateDimension() = default;
  AcDbOrdinateDimension(Adesk::Boolean useXAxis, const AcGePoint3d& defining, const AcGePoint3d& leaderEnd,
                        const ACHAR* text = nullptr, AcDbObjectId style = AcDbObjectId::kNull);
  Kind kind() const override { return kOrdinate; }
  KR_DB_GET(bool, isUsingXAxis, (data_.ordinateFlags & 1) != 0)
  KR_DB_GET(bool, isUsingYAxis, (data_.ordinateFlags & 1) == 0)
  Acad::ErrorStatus useXAxis();
  Acad::ErrorStatus useYAxis();
  KR_DB_FIELD(AcGePoint3d, origin, setOrigin, data_.point10)
  KR_DB_FIELD(AcGePoint3d, definingPoint, setDefiningPoint, data_.point13)
  KR_DB_FIELD(AcGePoint3d, leaderEndPoint, setLeaderEndPoint, data_.point14)
};

class AcDbRadialDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRadialDimension);
  AcDbRadialDimension() = default;
  Kind kind() const override { return kRadial; }
  KR_DB_FIELD(AcGePoint3d, center, setCenter, data_.point10)
  KR_DB_FIELD(AcGePoint3d, chordPoint, setChordPoint, data_.point15)
  KR_DB_FIELD(double, leaderLength, setLeaderLength, data_.leaderLength)
};

class AcDbDiametricDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDiametricDimension);
  AcDbDiametricDimension() = default;
  Kind kind() const override { return kDiametric; }
  KR_DB_FIELD(AcGePoint3d, chordPoint, setChordPoint, data_.point15)
  KR_DB_FIELD(AcGePoint3d, farChordPoint, setFarChordPoint, data_.point10)
  KR_DB_FIELD(double, leaderLength, setLeaderLength, data_.leaderLength)
};

class AcDb3PointAngularDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDb3PointAngularDimension);
  AcDb3PointAngularDimension() = default;
  Kind kind() const override { return kAngular3Point; }
  KR_DB_FIELD(AcGePoint3d, arcPoint, setArcPoint, data_.point10)
  KR_DB_FIELD(AcGePoint3d, xLine1Point, setXLine1Point, data_.point13)
  KR_DB_FIELD(AcGePoint3d, xLine2Point, setXLine2Point, data_.point14)
  KR_DB_FIELD(AcGePoint3d, centerPoint, setCenterPoint, data_.point15)
};

class AcDb2LineAngularDimension : public AcDbDimension {
 public:
  ACRX_DECLARE_MEMBERS(AcDb2LineAngularDimension);
  AcDb2LineAngularDimension() = default;
  Kind kind() const override { return kAngular2Line; }
  AcGePoint3d arcPoint() const;
  KR_DB_FIELD(AcGePoint3d, xLine1Start, setXLine1Start, data_.point13)
  KR_DB_FIELD(AcGePoint3d, xLine1End, setXLine1End, data_.point14)
  KR_DB_FIELD(AcGePoint3d, xLine2Start, setXLine2Start, data_.point15)
  KR_DB_FIELD(AcGePoint3d, xLine2End, setXLine2End, data_.point10)
};
