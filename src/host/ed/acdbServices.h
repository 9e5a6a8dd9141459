#pragma once

#include "host/db/resbuf.h"

class AcDbDatabase;

/// Where the lines p1 p2 and p3 p4 cross. With `bounded` non-zero the crossing must lie on both segments, ends
/// included. Points are in space when all four have a z that matters: lines that pass each other at different heights
/// don't cross. Parallel and coinciding lines, and segments without length, don't cross: RTERROR, `result` untouched.
int acdbInters(const ads_real* p1, const ads_real* p2, const ads_real* p3, const ads_real* p4, int bounded,
               ads_real* result);

/// Modes of acdbRToS.
enum LinearUnits : int {
  kLinearCurrent = -1,
  kLinearScientific = 1,
  kLinearDecimal = 2,
  kLinearEngineering = 3,
  kLinearArchitectural = 4,
  kLinearFractional = 5
};

/// Formats a length. `unit` 1 to 5 (scientific, decimal, engineering, architectural, fractional) or -1 for LUNITS;
/// `precision` 0 to 8 decimals (in modes 4 and 5 the power of two of the denominator) or -1 for LUPREC. Zeros are
/// suppressed as DIMZIN tells: 1, 2, 3 for the feet and inches of modes 3 and 4, 4 (leading) and 8 (trailing) for
/// decimals. RTERROR for a unit or precision out of range, a value that isn't finite, or a null text.
/// `text` must hold 400 characters: a decimal of the largest double has 309 digits.
int acdbRToS(ads_real value, int unit, int precision, wchar_t* text);

/// Formats an angle in radians by AUNITS: 0 decimal degrees, 1 degrees minutes seconds, 2 gradians, 3 radians,
/// 4 surveyor's; -1 for the current one; `precision` 0 to 8, or -1 for AUPREC. ANGBASE and ANGDIR stay out of it.
int acdbAngToS(ads_real value, int unit, int precision, wchar_t* text);

/// Reads a length in any of the modes above ("2.5", "1.5e2", "1'-6\"", "3-1/2"), `unit` 1 to 5 or -1. Feet and inches
/// are taken in modes 3 and 4 only. RTERROR when the text isn't a length.
int acdbDisToF(const wchar_t* text, int unit, ads_real* value);

/// Reads an angle in the unit 0 to 4 or -1, with the marks d, ', ", g, r; the result is in radians.
int acdbAngToF(const wchar_t* text, int unit, ads_real* value);
