#pragma once

#include <string_view>

/// Angles: the file has degrees, the database radians. What formatDegrees writes, parseDegrees reads as the very same
/// number, and what was read from a file is written so that it reads the same again.
namespace krio::dxf {

/// The angle in radians of a text in degrees. False as parseReal.
bool parseDegrees(std::string_view text, double& radians);

/// Room that formatDegrees may need.
inline constexpr int kMaxDegreesLength = 48;
/// Writes a finite angle in degrees; gives the end of the text.
char* formatDegrees(char* to, double radians);

}  // namespace krio::dxf
