#pragma once

#include <string>

#include "host/ge/ge.h"
#include "host/rx/AdeskTypes.h"
#include "host/rx/ErrorStatus.h"

class AcDbDatabase;
class AcDbObjectId;
class AcGiContext;

/// How text is lettered: font, size, width, slant. The size is the height of a capital, in the drawing's units.
class AcGiTextStyle {
 public:
  /// The standard lettering, 1 high.
  AcGiTextStyle() = default;
  /// Font file or family, size, width factor and slant in radians.
  AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize, double xScale, double obliqueAngle);

  const ACHAR* fileName() const { return fileName_.c_str(); }
  const ACHAR* bigFontFileName() const { return bigFontFileName_.c_str(); }
  const ACHAR* styleName() const { return styleName_.c_str(); }
  double textSize() const { return textSize_; }
  double xScale() const { return xScale_; }
  double obliquingAngle() const { return obliquingAngle_; }
  bool isBackward() const { return backward_; }
  bool isUpsideDown() const { return upsideDown_; }

  void setFileName(const ACHAR* name) { fileName_ = name == nullptr ? L"" : name; }
  void setBigFontFileName(const ACHAR* name) { bigFontFileName_ = name == nullptr ? L"" : name; }
  void setStyleName(const ACHAR* name) { styleName_ = name == nullptr ? L"" : name; }
  void setTextSize(double size) { textSize_ = size; }
  void setXScale(double scale) { xScale_ = scale; }
  void setObliquingAngle(double angle) { obliquingAngle_ = angle; }
  void setBackward(bool on) { backward_ = on; }
  void setUpsideDown(bool on) { upsideDown_ = on; }

  /// A font by family. eKeyNotFound, and the lettering that stands in for it, when the system has no such font.
  Acad::ErrorStatus setFont(const ACHAR* typeface, bool bold, bool italic);
  Acad::ErrorStatus font(std::wstring& typeface, bool& bold, bool& italic) const;

  /// Width along the line of writing and height of the text. `penups` counts the space behind the last character.
  AcGePoint2d extents(const ACHAR* text, int length, Adesk::Boolean penups, Adesk::Boolean raw,
                      AcGiContext* context = nullptr) const;
  /// The box of the text set at the origin along X: what its strokes cover. With `penups` it reaches to where the next
  /// character would begin. `length` below 0 takes all. Text without strokes has the box of its baseline.
  void extentsBox(const ACHAR* text, int length, Adesk::Boolean penups, Adesk::Boolean raw, AcGePoint2d& extMin,
                  AcGePoint2d& extMax, AcGiContext* context = nullptr) const;

  /// Finds the font. 0 when it is there; 1 when another stands in for it.
  int loadStyleRec(AcDbDatabase* database = nullptr) const;

 private:
  std::wstring fileName_;
  std::wstring bigFontFileName_;
  std::wstring typeface_;
  std::wstring styleName_;
  double textSize_ = 1.0;
  double xScale_ = 1.0;
  double obliquingAngle_ = 0.0;
  bool bold_ = false;
  bool italic_ = false;
  bool backward_ = false;
  bool upsideDown_ = false;
};

/// Fills the style from a record of the text style table. A style whose record leaves the size open (0) takes the size
/// last used. An id that names no text style gives the status of the opening, and no change.
Acad::ErrorStatus fromAcDbTextStyle(AcGiTextStyle& textStyle, const AcDbObjectId& styleId);
