#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

class AcGiTextStyle;

/// Text of several lines. In the contents \P ends a line, \~ is a fixed space, \\ \{ \} are the signs themselves,
/// \U+nnnn a character, \Sa/b; a stacked fraction; %%d, %%p, %%c signs. Other codes (fonts, colours, heights, under-
/// and overlines, braces) are understood and change nothing in the drawing. Lines longer than `width` are broken at
/// spaces; a width of 0 breaks none.
class AcDbMText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbMText);

  enum AttachmentPoint : int {
    kTopLeft = 1,
    kTopCenter,
    kTopRight,
    kMiddleLeft,
    kMiddleCenter,
    kMiddleRight,
    kBottomLeft,
    kBottomCenter,
    kBottomRight
  };
  enum FlowDirection : int { kLtoR = 1, kTtoB = 3, kByStyle = 5 };

  /// As filed, in the world.
  struct Data {
    AcGePoint3d location;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    AcGeVector3d direction = AcGeVector3d::kXAxis;
    double width = 0.0;
    double height = 2.5;
    Adesk::Int16 attachment = kTopLeft;
    Adesk::Int16 flow = kLtoR;
    double extentsHeight = 0.0;  ///< as last reckoned by the writing program; these two are told only
    double extentsWidth = 0.0;
    std::wstring contents;
    Adesk::Int16 spacingStyle = 1;
    double spacing = 1.0;
    bool unknown = false;
    AcDbHardPointerId style;
    KR_DB_TIE(location, normal, direction, width, height, attachment, flow, extentsHeight, extentsWidth, contents,
              spacingStyle, spacing, unknown, style)
  };
  KR_DB_DATA(Data)

  AcDbMText() = default;

  AcGePoint3d location() const;
  Acad::ErrorStatus setLocation(const AcGePoint3d& point);
  AcGeVector3d normal() const;
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  AcGeVector3d direction() const;
  /// eInvalidInput for a zero vector.
  Acad::ErrorStatus setDirection(const AcGeVector3d& direction);
  double rotation() const;
  Acad::ErrorStatus setRotation(double angle);
  double width() const;
  /// eInvalidInput below 0.
  Acad::ErrorStatus setWidth(double width);
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  double textHeight() const;
  /// eInvalidInput unless above 0.
  Acad::ErrorStatus setTextHeight(double height);
  AttachmentPoint attachment() const;
  Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
  FlowDirection flowDirection() const;
  Acad::ErrorStatus setFlowDirection(FlowDirection direction);
  double lineSpacingFactor() const;
  /// eInvalidInput unless 0.25 to 4. Lines stand 5/3 of the height times the factor apart.
  Acad::ErrorStatus setLineSpacingFactor(double factor);
  /// A copy that acutDelString frees.
  ACHAR* contents() const;
  const ACHAR* contentsRaw() const;
  /// eInvalidInput for null.
  Acad::ErrorStatus setContents(const ACHAR* text);
  /// The text without codes, its lines parted by line feeds, as drawn except for the breaks at the width.
  std::wstring plainText() const;

  /// Width of the longest line, and height from the top of the first line to the last baseline.
  double actualWidth() const;
  double actualHeight() const;

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless square letters stay square. A mirrored text stays readable.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  /// One text for each line.
  Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
  void subList() const override;
  Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                      const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                      AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

 private:
  /// A line as set: its text, its width, and where its baseline begins in the text's own frame.
  struct Line {
    std::wstring text;
    double width = 0.0;
    AcGePoint2d start;
  };
  AcGiTextStyle giStyle() const;
  AcGeMatrix3d frame() const;
  std::vector<Line> lines() const;

  Data data_;
};
