#pragma once

#include "host/db/AcDbMemoryDxfFiler.h"

/// What kind of value a group code carries, and which codes are angles.
namespace krio::dxf {

using Kind = AcDbDxfValueKind;

inline constexpr int kFirstExtendedCode = 1000;

/// The kinds of all codes, by code; kNone beyond.
Kind kindOf(int code);

/// Whether the file has degrees where the database has radians.
constexpr bool isAngle(int code) {
  return code >= 50 && code <= 58;
}

}  // namespace krio::dxf
