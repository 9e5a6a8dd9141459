#pragma once

#include <cmath>
#include <string_view>

/// Numbers that the file has in another unit than the database: angles in degrees, here radians, and a view's width as
/// its ratio to the height. What is written reads back as the very same number, and what was read from a file is
/// written so that it reads the same again.
namespace krio::dxf {

/// A double's worth of one unit can't name every double's worth of the other: the way goes through a wider mantissa.
using Wide = long double;

/// False as parseReal.
bool parseWide(std::string_view text, Wide& value);

/// The angle in radians of a text in degrees. False as parseReal.
bool parseDegrees(std::string_view text, double& radians);

/// Room that these may need.
inline constexpr int kMaxWideLength = 48;
/// Whether an angle in radians is a finite number of degrees.
bool hasDegrees(double radians);
/// Writes an angle that has degrees; gives the end of the text.
char* formatDegrees(char* to, double radians);

/// The width of a view of the height, from their ratio.
inline double widthOf(double height, Wide ratio) {
  return double(Wide(height) * ratio);
}
/// Whether a file can say the width by the height: not for one of next to no height.
inline bool hasRatio(double width, double height) {
  return height != 0 && std::isfinite(width / height);
}
/// Writes the ratio of a view that has one.
char* formatRatio(char* to, double width, double height);

}  // namespace krio::dxf
