#include <charconv>
#include <cmath>
#include <string>

#include "host/ed/acdbServices.h"
#include "host/ed/sysvars.h"

// Lengths as text. Decimals round ties away from zero, as people do on paper, so a tie (possible only where the value
// is a whole number of halves of the last place) is nudged before the shortest correct conversion, which would round it
// to even.

namespace {

constexpr int kMaxPrecision = 8;
constexpr double kInchesPerFoot = 12.0;
// Above it every double is a whole number, and scaling by a denominator would lose digits.
constexpr double kAllWhole = 4503599627370496.0;

// Bits of DIMZIN.
constexpr int kFeetAndInchesMask = 3;
constexpr int kNoLeadingZero = 4;
constexpr int kNoTrailingZeros = 8;

bool suppressesZeroFeet(int dimzin) {
  const int mode = dimzin & kFeetAndInchesMask;
  return mode == 0 || mode == 3;
}

bool suppressesZeroInches(int dimzin) {
  const int mode = dimzin & kFeetAndInchesMask;
  return mode == 0 || mode == 2;
}

/// Is the value half way between two numbers of that many decimals?
bool isTie(double value, int decimals) {
  if (decimals >= 0) return std::fmod(std::ldexp(value, decimals + 1), 2.0) == 1.0;
  const double place = std::pow(10.0, -decimals);
  return std::fmod(value, place) == place / 2.0;
}

double nudged(double value, int decimals) {
  return isTie(value, decimals) ? std::nextafter(value, HUGE_VAL) : value;
}

std::string converted(double value, std::chars_format format, int precision) {
  char digits[400];
  const auto result = std::to_chars(digits, digits + sizeof digits, value, format, precision);
  return {digits, result.ptr};
}

std::string fixed(double magnitude, int precision) {
  return converted(nudged(magnitude, precision), std::chars_format::fixed, precision);
}

std::string whole(double magnitude) {
  return converted(magnitude, std::chars_format::fixed, 0);
}

std::string withoutZeros(std::string digits, int dimzin) {
  if ((dimzin & kNoTrailingZeros) != 0 && digits.find('.') != std::string::npos) {
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.back() == '.') digits.pop_back();
  }
  if ((dimzin & kNoLeadingZero) != 0 && digits.size() > 1 && digits[0] == '0' && digits[1] == '.') digits.erase(0, 1);
  return digits;
}

std::string scientific(double magnitude, int precision) {
  if (magnitude == 0.0)
    return converted(0.0, std::chars_format::scientific, precision)
        .replace(precision > 0 ? std::size_t(precision) + 2 : 1, 1, "E");
  const int exponent = static_cast<int>(std::floor(std::log10(magnitude)));
  std::string digits = converted(nudged(magnitude, precision - exponent), std::chars_format::scientific, precision);
  digits[digits.find('e')] = 'E';
  return digits;
}

/// A magnitude cut into feet, whole inches (or whole units) and a reduced fraction.
struct Fractioned {
  double units;
  long numerator;
  long denominator;

  Fractioned(double magnitude, int precision) : units(magnitude), numerator(0), denominator(1L << precision) {
    if (magnitude < kAllWhole) {
      const double parts = std::floor(magnitude * double(denominator) + 0.5);
      units = std::floor(parts / double(denominator));
      numerator = std::lround(parts - units * double(denominator));
    }
    while (numerator != 0 && numerator % 2 == 0) numerator /= 2, denominator /= 2;
  }
  std::string fraction() const { return std::to_string(numerator) + "/" + std::to_string(denominator); }
  bool isZero() const { return units == 0.0 && numerator == 0; }
};

/// Whole units and fraction: "17 1/2", or in the form that can be typed in, "17-1/2".
std::string mixed(const Fractioned& value, double units, bool keepZero, bool typed) {
  if (value.numerator == 0) return whole(units);
  if (units == 0.0 && !keepZero) return value.fraction();
  return whole(units) + (typed ? "-" : " ") + value.fraction();
}

std::string feetAndInches(double feet, bool inchesAreZero, const std::string& inches, int dimzin, bool typed) {
  const bool hideFeet = feet == 0.0 && suppressesZeroFeet(dimzin);
  const bool hideInches = inchesAreZero && suppressesZeroInches(dimzin) && !hideFeet;
  if (hideInches) return whole(feet) + "'";
  if (hideFeet) return inches + "\"";
  return whole(feet) + (typed ? "'" : "'-") + inches + "\"";
}

std::string engineering(double magnitude, int precision, int dimzin, bool typed) {
  double inches = std::fmod(magnitude, kInchesPerFoot);
  double feet = std::round((magnitude - inches) / kInchesPerFoot);
  std::string digits = fixed(inches, precision);
  if (std::stod(digits) >= kInchesPerFoot) {
    feet += 1.0;
    digits = fixed(0.0, precision);
  }
  const bool zero = digits.find_first_not_of("0.") == std::string::npos;
  return feetAndInches(feet, zero, withoutZeros(digits, dimzin), dimzin, typed);
}

std::string architectural(double magnitude, int precision, int dimzin, bool typed) {
  const Fractioned value(magnitude, precision);
  const double inches = std::fmod(value.units, kInchesPerFoot);
  const double feet = (value.units - inches) / kInchesPerFoot;
  const bool keepZeroInches = feet != 0.0 || !suppressesZeroFeet(dimzin);
  return feetAndInches(feet, inches == 0.0 && value.numerator == 0, mixed(value, inches, keepZeroInches, typed), dimzin,
                       typed);
}

std::string unsignedText(double magnitude, int unit, int precision) {
  const int dimzin = edhost::varInt(L"DIMZIN");
  const bool typed = edhost::varInt(L"UNITMODE") != 0;
  switch (unit) {
    case kLinearScientific:
      return scientific(magnitude, precision);
    case kLinearEngineering:
      return engineering(magnitude, precision, dimzin, typed);
    case kLinearArchitectural:
      return architectural(magnitude, precision, dimzin, typed);
    case kLinearFractional: {
      const Fractioned value(magnitude, precision);
      return mixed(value, value.units, false, typed);
    }
    default:
      return withoutZeros(fixed(magnitude, precision), dimzin);
  }
}

}  // namespace

int acdbRToS(ads_real value, int unit, int precision, wchar_t* text) {
  if (text == nullptr || !std::isfinite(value)) return RTERROR;
  if (unit == kLinearCurrent) unit = edhost::varInt(L"LUNITS");
  if (precision == -1) precision = edhost::varInt(L"LUPREC");
  if (unit < kLinearScientific || unit > kLinearFractional || precision < 0 || precision > kMaxPrecision)
    return RTERROR;
  std::string digits = unsignedText(std::fabs(value), unit, precision);
  // A value that rounds to nothing has no sign.
  const std::size_t exponent = digits.find('E');
  const bool isZero = digits.substr(0, exponent).find_first_of("123456789") == std::string::npos;
  if (value < 0.0 && !isZero) digits.insert(0, 1, '-');
  wchar_t* end = text;
  for (const char c : digits) *end++ = static_cast<wchar_t>(c);
  *end = L'\0';
  return RTNORM;
}
