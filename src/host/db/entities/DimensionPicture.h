#pragma once

#include <string>

#include "host/db/AcDbObjectId.h"
#include "host/ge/ge.h"

class AcDbDatabase;
class AcGiWorldDraw;

namespace entities {

/// What of a dimension style the plain pictures need, scaled by the style already.
struct DimensionLook {
  /// For a null style, that of the database's header, or the built-in one.
  DimensionLook(AcDbObjectId style, const AcDbDatabase* database);

  double arrowSize = 2.5;
  double textHeight = 2.5;
  double lineOffset = 0.625;    ///< from the measured point to the start of the extension line
  double lineExtension = 1.25;  ///< of the extension line beyond the dimension line
  double gap = 0.625;
  double factor = 1.0;    ///< of the measurement shown
  double rounding = 0.0;  ///< 0: none
  int decimals = 2;
  int angleDecimals = 0;
  int zeros = 8;  ///< DIMZIN: bit 4 drops leading zeros, 8 trailing ones
  wchar_t separator = L'.';
  std::wstring around;  ///< DIMPOST
  AcDbObjectId textStyle;

  /// A length, and an angle in degrees, as they are shown.
  std::wstring lengthText(double length) const;
  std::wstring angleText(double radians) const;
};

/// A filled arrow head with its tip at a point, its body towards `direction`.
void drawArrowHead(AcGiWorldDraw& draw, const AcGePoint3d& tip, const AcGeVector3d& direction,
                   const AcGeVector3d& normal, double size);
/// A text centred at a point.
void drawCenteredText(AcGiWorldDraw& draw, const AcGePoint3d& middle, const AcGeVector3d& direction,
                      const AcGeVector3d& normal, const std::wstring& text, const DimensionLook& look);

}  // namespace entities
