#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "host/ed/acdbServices.h"
#include "host/ed/acut.h"
#include "host/ed/sysvars.h"
#include "host/os/os.h"

// Lengths and angles read from text. A length is [sign] [feet '] [inches] ["], where inches (or plain units) are a
// number, a fraction, or a whole number and a fraction parted by a hyphen or a space.

namespace {

constexpr double kInchesPerFoot = 12.0;

class TextCursor {
 public:
  explicit TextCursor(std::string_view text) : m_rest(text) { skipBlanks(); }

  bool done() const { return m_rest.empty(); }
  char peek() const { return m_rest.empty() ? '\0' : m_rest.front(); }
  bool take(char c) {
    if (peek() != c) return false;
    m_rest.remove_prefix(1);
    return true;
  }
  bool takeText(std::string_view text) {
    if (!m_rest.starts_with(text)) return false;
    m_rest.remove_prefix(text.size());
    return true;
  }
  void skipBlanks() {
    while (take(' ') || take('\t')) {
    }
  }
  /// An unsigned number without, or with, an exponent.
  std::optional<double> number(bool exponent) {
    if (!isDigit(peek()) && peek() != '.') return std::nullopt;
    double value = 0.0;
    const auto format = exponent ? std::chars_format::general : std::chars_format::fixed;
    const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value, format);
    if (error != std::errc()) return std::nullopt;
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return value;
  }
  /// Behind a whole number: "/4", making it a fraction. No value for a zero denominator.
  std::optional<double> overDenominator(double numerator) {
    if (!take('/')) return numerator;
    const std::optional<double> denominator = number(false);
    if (!denominator || *denominator == 0.0) return std::nullopt;
    return numerator / *denominator;
  }

 private:
  static bool isDigit(char c) { return c >= '0' && c <= '9'; }

  std::string_view m_rest;
};

/// "17.5", "1/2", "17-1/2", "17 1/2".
std::optional<double> mixedNumber(TextCursor& text) {
  const std::optional<double> first = text.number(true);
  if (!first) return std::nullopt;
  if (text.peek() == '/') return text.overDenominator(*first);
  TextCursor ahead = text;
  if (!ahead.take('-') && !ahead.take(' ')) return first;
  ahead.skipBlanks();
  const std::optional<double> numerator = ahead.number(false);
  if (!numerator || ahead.peek() != '/') return first;
  const std::optional<double> fraction = ahead.overDenominator(*numerator);
  if (!fraction) return std::nullopt;
  text = ahead;
  return *first + *fraction;
}

std::optional<double> unsignedLength(TextCursor& text, bool feetAllowed) {
  std::optional<double> value = mixedNumber(text);
  if (!value) return std::nullopt;
  double inches = *value;
  if (text.peek() == '\'') {
    if (!feetAllowed) return std::nullopt;
    text.take('\'');
    text.take('-');
    text.skipBlanks();
    inches = *value * kInchesPerFoot;
    if (!text.done()) {
      value = mixedNumber(text);
      if (!value) return std::nullopt;
      inches += *value;
    }
  }
  if (text.peek() == '"' && feetAllowed) text.take('"');
  return inches;
}

/// The part of a full turn per unit of AUNITS.
double radiansPerUnit(int unit) {
  switch (unit) {
    case 2:
      return kAcutPi / 200.0;
    case 3:
      return 1.0;
    default:
      return kAcutPi / 180.0;
  }
}

std::optional<double> unsignedAngle(TextCursor& text, int unit) {
  std::optional<double> value = text.number(true);
  if (!value) return std::nullopt;
  if (text.take('d')) {
    double degrees = *value;
    if (const auto minutes = text.number(false); minutes) {
      if (!text.take('\'')) return std::nullopt;
      degrees += *minutes / 60.0;
      if (const auto seconds = text.number(false); seconds) {
        if (!text.take('"')) return std::nullopt;
        degrees += *seconds / 3600.0;
      }
    }
    return degrees * radiansPerUnit(0);
  }
  if (text.take('g')) return *value * radiansPerUnit(2);
  if (text.take('r')) return *value;
  return *value * radiansPerUnit(unit);
}

/// "N 45d E": so far from north or south towards east or west.
std::optional<double> bearing(TextCursor& text) {
  const bool north = text.take('n');
  if (!north && !text.take('s')) {
    if (text.take('e')) return 0.0;
    if (text.take('w')) return kAcutPi;
    return std::nullopt;
  }
  text.skipBlanks();
  const double pole = north ? kAcutPi / 2.0 : 1.5 * kAcutPi;
  if (text.done()) return pole;
  const std::optional<double> angle = unsignedAngle(text, 0);
  if (!angle || *angle > kAcutPi / 2.0) return std::nullopt;
  text.skipBlanks();
  if (text.take('e')) return north ? pole - *angle : pole + *angle;
  if (text.take('w')) return north ? pole + *angle : pole - *angle;
  return std::nullopt;
}

std::string lowered(const wchar_t* text) {
  std::wstring low(text);
  for (wchar_t& c : low) c = os::lowerCase(c);
  return os::toUtf8(low);
}

}  // namespace

int acdbDisToF(const wchar_t* text, int unit, ads_real* value) {
  if (text == nullptr || value == nullptr) return RTERROR;
  if (unit == kLinearCurrent) unit = edhost::varInt(L"LUNITS");
  if (unit < kLinearScientific || unit > kLinearFractional) return RTERROR;
  const std::string bytes = os::toUtf8(text);
  TextCursor cursor(bytes);
  const bool negative = cursor.take('-');
  if (!negative) cursor.take('+');
  const std::optional<double> length =
      unsignedLength(cursor, unit == kLinearEngineering || unit == kLinearArchitectural);
  cursor.skipBlanks();
  if (!length || !cursor.done() || !std::isfinite(*length)) return RTERROR;
  *value = negative ? -*length : *length;
  return RTNORM;
}

int acdbAngToF(const wchar_t* text, int unit, ads_real* value) {
  constexpr int kSurveyor = 4;
  if (text == nullptr || value == nullptr) return RTERROR;
  if (unit == -1) unit = edhost::varInt(L"AUNITS");
  if (unit < 0 || unit > kSurveyor) return RTERROR;
  const std::string bytes = lowered(text);
  TextCursor cursor(bytes);
  std::optional<double> angle;
  if (cursor.peek() == 'n' || cursor.peek() == 's' || cursor.peek() == 'e' || cursor.peek() == 'w') {
    angle = bearing(cursor);
  } else {
    const bool negative = cursor.take('-');
    if (!negative) cursor.take('+');
    angle = unsignedAngle(cursor, unit == kSurveyor || unit == 1 ? 0 : unit);
    if (angle && negative) angle = -*angle;
  }
  cursor.skipBlanks();
  if (!angle || !cursor.done() || !std::isfinite(*angle)) return RTERROR;
  *value = *angle;
  return RTNORM;
}
