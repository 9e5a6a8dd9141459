#pragma once

#include <limits>

/// The largest double stands before the version in records that once had none: no old record begins with it.
inline constexpr double kFiledMarker = std::numeric_limits<double>::max();
