#include "host/db/entities/DimensionPicture.h"

#include <cmath>

#include "host/db/AcDbDatabase.h"
#include "host/db/acdbOpen.h"
#include "host/db/entities/TextStyling.h"
#include "host/gi/gi.h"

namespace {

constexpr int kNoLeadingZeros = 4;
constexpr int kNoTrailingZeros = 8;

std::wstring decimal(double value, int decimals, int zeros, wchar_t separator) {
  // Fixed notation, whatever the locale: the digits of a whole number, parted by the sign.
  constexpr int kMostDecimals = 8;
  decimals = std::clamp(decimals, 0, kMostDecimals);
  const double scaled = std::round(std::fabs(value) * std::pow(10.0, decimals));
  if (!(scaled < 1e18)) return L"?";
  std::wstring digits = std::to_wstring(static_cast<long long>(scaled));
  if (int(digits.size()) <= decimals) digits.insert(0, std::size_t(decimals) + 1 - digits.size(), L'0');
  std::wstring whole = digits.substr(0, digits.size() - std::size_t(decimals));
  std::wstring part = digits.substr(digits.size() - std::size_t(decimals));
  if ((zeros & kNoTrailingZeros) != 0) part.erase(part.find_last_not_of(L'0') + 1);
  if ((zeros & kNoLeadingZeros) != 0 && whole == L"0" && !part.empty()) whole.clear();
  if (value < 0.0 && scaled != 0.0) whole.insert(whole.begin(), L'-');
  return part.empty() ? whole : whole + separator + part;
}

}  // namespace

entities::DimensionLook::DimensionLook(AcDbObjectId style, const AcDbDatabase* database) {
  if (style.isNull() && database != nullptr) style = database->dimstyle();
  const AcDbObjectPointer<AcDbDimStyleTableRecord> record(style, AcDb::kForRead);
  if (record.openStatus() != Acad::eOk) return;
  const double scale = record->dimscale() > 0.0 ? record->dimscale() : 1.0;
  arrowSize = record->dimasz() * scale;
  textHeight = record->dimtxt() * scale;
  lineOffset = record->dimexo() * scale;
  lineExtension = record->dimexe() * scale;
  gap = std::fabs(record->dimgap()) * scale;
  factor = record->dimlfac();
  rounding = record->dimrnd();
  decimals = record->dimdec();
  angleDecimals = record->dimadec();
  zeros = record->dimzin();
  separator = wchar_t(record->dimdsep());
  around = record->data().dimpost;
  textStyle = record->dimtxsty();
}

std::wstring entities::DimensionLook::lengthText(double length) const {
  double shown = length * (factor != 0.0 ? std::fabs(factor) : 1.0);
  if (rounding > 0.0) shown = std::round(shown / rounding) * rounding;
  const std::wstring number = decimal(shown, decimals, zeros, separator != 0 ? separator : L'.');
  const std::size_t place = around.find(L"<>");
  if (place == std::wstring::npos) return number + around;
  return around.substr(0, place) + number + around.substr(place + 2);
}

std::wstring entities::DimensionLook::angleText(double radians) const {
  return decimal(radians * 180.0 / kAcGePi, std::max(angleDecimals, 0), zeros, separator) + L"%%d";
}

void entities::drawArrowHead(AcGiWorldDraw& draw, const AcGePoint3d& tip, const AcGeVector3d& direction,
                             const AcGeVector3d& normal, double size) {
  const double length = direction.length();
  if (!(length > 0.0) || !(size > 0.0)) return;
  // One sixth of the length to each side.
  const AcGeVector3d back = direction * (size / length);
  const AcGeVector3d aside = normal.crossProduct(back) / 6.0;
  const AcGePoint3d outline[] = {tip, tip + back + aside, tip + back - aside};
  draw.subEntityTraits().setFillType(kAcGiFillAlways);
  draw.geometry().polygon(3, outline);
}

void entities::drawCenteredText(AcGiWorldDraw& draw, const AcGePoint3d& middle, const AcGeVector3d& direction,
                                const AcGeVector3d& normal, const std::wstring& text, const DimensionLook& look) {
  if (text.empty() || !(look.textHeight > 0.0)) return;
  const AcGiTextStyle style = styleFor(look.textStyle, look.textHeight, 1.0, 0.0);
  AcGePoint2d low;
  AcGePoint2d high;
  textBox(style, text, low, high);
  const AcGeVector3d up = normal.crossProduct(direction);
  const AcGePoint3d start = middle - direction * ((low.x + high.x) / 2.0) - up * (look.textHeight / 2.0);
  draw.geometry().text(start, normal, direction, text.c_str(), -1, Adesk::kFalse, style);
}
