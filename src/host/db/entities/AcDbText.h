#pragma once

#include <string>

#include "host/db/AcDbEntity.h"
#include "host/db/AcDbField.h"

class AcGiTextStyle;

/// One line of text. Left on the baseline, its place is `position`; any other justification places it by
/// `alignmentPoint`, and `position` follows from that (adjustAlignment, called when a changed text is closed).
/// %%d, %%p, %%c, %%o, %%u and %%nnn stand for signs.
class AcDbText : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbText);

  /// Bits of the generation, as in group 71.
  enum Generation : Adesk::Int16 { kBackward = 2, kUpsideDown = 4 };
  /// As filed: points in the plane of the normal, at the elevation; radians.
  struct Data {
    AcGePoint2d position;
    AcGePoint2d alignment;
    double elevation = 0.0;
    AcGeVector3d normal = AcGeVector3d::kZAxis;
    double thickness = 0.0;
    double oblique = 0.0;
    double rotation = 0.0;
    double height = 2.5;
    double widthFactor = 1.0;
    std::wstring text;
    Adesk::Int16 generation = 0;
    Adesk::Int16 horizontal = AcDb::kTextLeft;
    Adesk::Int16 vertical = AcDb::kTextBase;
    AcDbHardPointerId style;
    KR_DB_TIE(position, alignment, elevation, normal, thickness, oblique, rotation, height, widthFactor, text,
              generation, horizontal, vertical, style)
  };
  KR_DB_DATA(Data)

  AcDbText() = default;
  AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style = AcDbObjectId::kNull,
           double height = 0.0, double rotation = 0.0);

  AcGePoint3d position() const;
  Acad::ErrorStatus setPosition(const AcGePoint3d& point);
  AcGePoint3d alignmentPoint() const;
  Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
  bool isDefaultAlignment() const;
  AcGeVector3d normal() const;
  Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
  double thickness() const;
  Acad::ErrorStatus setThickness(double thickness);
  /// Slant, in radians.
  double oblique() const;
  Acad::ErrorStatus setOblique(double angle);
  double rotation() const;
  Acad::ErrorStatus setRotation(double angle);
  double height() const;
  /// eInvalidInput unless above 0.
  Acad::ErrorStatus setHeight(double height);
  double widthFactor() const;
  /// eInvalidInput unless above 0.
  Acad::ErrorStatus setWidthFactor(double factor);
  /// A copy that acutDelString frees.
  ACHAR* textString() const;
  const ACHAR* textStringConst() const;
  /// eInvalidInput for null.
  Acad::ErrorStatus setTextString(const ACHAR* text);
  AcDbObjectId textStyle() const;
  Acad::ErrorStatus setTextStyle(AcDbObjectId style);
  /// Mirrored in X: written backward. In Y: upside down.
  bool isMirroredInX() const;
  Acad::ErrorStatus mirrorInX(bool on);
  bool isMirroredInY() const;
  Acad::ErrorStatus mirrorInY(bool on);
  AcDb::TextHorzMode horizontalMode() const;
  Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
  AcDb::TextVertMode verticalMode() const;
  Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);

  /// Works out the position from the alignment point, and for Align and Fit the height, width and rotation.
  Acad::ErrorStatus adjustAlignment(const AcDbDatabase* database = nullptr);

  bool isPlanar() const override { return true; }
  Acad::ErrorStatus getPlane(AcGePlane& plane, AcDb::Planarity& type) const override;

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus subClose() override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  /// eCannotScaleNonUniformly unless square letters stay square.
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  void subList() const override;
  Acad::ErrorStatus subGetOsnapPoints(AcDb::OsnapMode mode, Adesk::GsMarker marker, const AcGePoint3d& pickPoint,
                                      const AcGePoint3d& lastPoint, const AcGeMatrix3d& viewXform,
                                      AcGePoint3dArray& snapPoints, AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subGetGripPoints(AcGePoint3dArray& points, AcDbIntArray& osnapModes,
                                     AcDbIntArray& geomIds) const override;
  Acad::ErrorStatus subMoveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset) override;

  /// The groups behind the first marker, which attributes have too.
  void writeTextGroups(AcDbDxfFiler* filer) const;

 private:
  AcGiTextStyle giStyle() const;
  /// The frame of the letters: X along the line, the origin where the baseline begins.
  AcGeMatrix3d frame() const;

  AcGePoint3d inWorld(const AcGePoint2d& p) const;
  /// Puts a point of the world into the plane, and the text's elevation there.
  void place(AcGePoint2d& field, const AcGePoint3d& point);

  Data data_;
};
