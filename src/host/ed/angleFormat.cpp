#include <cmath>
#include <cstdio>
#include <cwchar>
#include <string>

#include "host/ed/acdbServices.h"
#include "host/ed/acut.h"
#include "host/ed/sysvars.h"

namespace {

constexpr int kMaxPrecision = 8;

std::wstring fixed(double value, int precision) {
  wchar_t text[400];
  // Lengths in decimal mode round the same way; zeros stay, since angles have no DIMZIN.
  std::swprintf(text, std::size(text), L"%.*f", precision, value);
  return text;
}

/// Degrees, and with more precision minutes (1), seconds (3) and parts of them, as "45d30'15.5\"".
std::wstring degreesMinutesSeconds(double degrees, int precision) {
  if (precision == 0) return fixed(std::floor(degrees + 0.5), 0) + L"d";
  if (precision <= 2) {
    const double minutes = std::floor(degrees * 60.0 + 0.5);
    const double whole = std::floor(minutes / 60.0);
    return fixed(whole, 0) + L"d" + fixed(minutes - whole * 60.0, 0) + L"'";
  }
  const int places = precision <= 4 ? 0 : precision - 4;
  const double scale = std::pow(10.0, places);
  const double seconds = std::floor(degrees * 3600.0 * scale + 0.5) / scale;
  const double whole = std::floor(seconds / 3600.0);
  const double minutes = std::floor((seconds - whole * 3600.0) / 60.0);
  return fixed(whole, 0) + L"d" + fixed(minutes, 0) + L"'" + fixed(seconds - whole * 3600.0 - minutes * 60.0, places) +
         L"\"";
}

std::wstring surveyor(double degrees, int precision) {
  if (degrees == 0.0) return L"E";
  if (degrees == 90.0) return L"N";
  if (degrees == 180.0) return L"W";
  if (degrees == 270.0) return L"S";
  const bool north = degrees < 180.0;
  const bool east = degrees < 90.0 || degrees > 270.0;
  const double fromPole = std::fabs(degrees - (north ? 90.0 : 270.0));
  return (north ? L"N " : L"S ") + degreesMinutesSeconds(fromPole, precision) + (east ? L" E" : L" W");
}

}  // namespace

int acdbAngToS(ads_real value, int unit, int precision, wchar_t* text) {
  if (text == nullptr || !std::isfinite(value)) return RTERROR;
  if (unit == -1) unit = edhost::varInt(L"AUNITS");
  if (precision == -1) precision = edhost::varInt(L"AUPREC");
  if (unit < 0 || unit > 4 || precision < 0 || precision > kMaxPrecision) return RTERROR;
  double turn = std::fmod(value, 2.0 * kAcutPi);
  if (turn < 0.0) turn += 2.0 * kAcutPi;
  const double degrees = turn * 180.0 / kAcutPi;
  std::wstring result;
  switch (unit) {
    case 0:
      result = fixed(degrees, precision);
      break;
    case 1:
      result = degreesMinutesSeconds(degrees, precision);
      break;
    case 2:
      result = fixed(degrees / 0.9, precision) + L"g";
      break;
    case 3:
      result = fixed(turn, precision) + L"r";
      break;
    default:
      result = surveyor(degrees, precision);
  }
  std::wcscpy(text, result.c_str());
  return RTNORM;
}
