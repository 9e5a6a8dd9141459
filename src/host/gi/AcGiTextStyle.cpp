#include "host/gi/AcGiTextStyle.h"

#include <algorithm>
#include <cmath>

#include "host/gi/StyleFont.h"
#include "host/gi/TextLayout.h"
#include "host/os/Text.h"

namespace gi {
namespace {

/// The name of a font file without its folder.
std::wstring baseName(const std::wstring& file) {
  const std::size_t slash = file.find_last_of(L"\\/");
  return slash == std::wstring::npos ? file : file.substr(slash + 1);
}

/// Whether a file's name is that of a single-stroke font: its ending says so, or it has none.
bool isSingleStroke(const std::wstring& name) {
  const std::size_t dot = name.find_last_of(L'.');
  return dot == std::wstring::npos || os::compareNoCase(name.substr(dot), L".shx") == 0;
}

StyleFont standardFont() {
  const Font* font = Font::standard();
  return {font, font == nullptr || font->family() != Font::kStandardFamily};
}

}  // namespace

StyleFont fontOf(const AcGiTextStyle& style) {
  std::wstring family;
  bool bold = false;
  bool italic = false;
  style.font(family, bold, italic);
  const std::wstring file = baseName(style.fileName());
  if (family.empty()) family = file.substr(0, file.find_last_of(L'.'));
  if (const Font* font = Font::find(os::toUtf8(family), bold, italic)) return {font, false};
  StyleFont result = standardFont();
  const bool namesTypeface =
      !family.empty() && !(family == file.substr(0, file.find_last_of(L'.')) && isSingleStroke(file));
  result.substituted = result.substituted || namesTypeface;
  return result;
}

}  // namespace gi

AcGiTextStyle::AcGiTextStyle(const ACHAR* fontName, const ACHAR* bigFontName, double textSize, double xScale,
                             double obliqueAngle)
    : fileName_(fontName == nullptr ? L"" : fontName),
      bigFontFileName_(bigFontName == nullptr ? L"" : bigFontName),
      textSize_(textSize),
      xScale_(xScale),
      obliquingAngle_(obliqueAngle) {}

Acad::ErrorStatus AcGiTextStyle::setFont(const ACHAR* typeface, bool bold, bool italic) {
  typeface_ = typeface == nullptr ? L"" : typeface;
  bold_ = bold;
  italic_ = italic;
  return gi::fontOf(*this).substituted ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcGiTextStyle::font(std::wstring& typeface, bool& bold, bool& italic) const {
  typeface = typeface_;
  bold = bold_;
  italic = italic_;
  return Acad::eOk;
}

AcGePoint2d AcGiTextStyle::extents(const ACHAR* text, int length, Adesk::Boolean penups, Adesk::Boolean raw,
                                   AcGiContext* context) const {
  AcGePoint2d least;
  AcGePoint2d greatest;
  extentsBox(text, length, penups, raw, least, greatest, context);
  return {greatest.x - least.x, greatest.y - least.y};
}

void AcGiTextStyle::extentsBox(const ACHAR* text, int length, Adesk::Boolean penups, Adesk::Boolean raw,
                               AcGePoint2d& extMin, AcGePoint2d& extMax, AcGiContext*) const {
  extMin = AcGePoint2d();
  extMax = AcGePoint2d();
  const gi::Font* font = gi::fontOf(*this).font;
  if (text == nullptr || font == nullptr) return;
  std::wstring_view view(text);
  if (length >= 0) view = view.substr(0, static_cast<std::size_t>(length));
  // The slant is an angle on the page, whatever the width: the layout's own unit along X is the width times the size.
  const double slope = xScale_ == 0.0 ? 0.0 : std::tan(obliquingAngle_) / xScale_;
  const gi::TextLayout layout = gi::layOutText(view, raw != 0, *font, slope);
  const double wide = textSize_ * xScale_;
  double minX = layout.minX;
  double maxX = layout.maxX;
  if (penups != 0 || !layout.hasInk) {
    minX = std::min(minX, 0.0);
    maxX = std::max(maxX, layout.advance);
  }
  const double acrossFrom = minX * wide;
  const double acrossTo = maxX * wide;
  const double upFrom = layout.minY * textSize_;
  const double upTo = layout.maxY * textSize_;
  extMin = backward_ ? AcGePoint2d(-acrossTo, upFrom) : AcGePoint2d(acrossFrom, upFrom);
  extMax = backward_ ? AcGePoint2d(-acrossFrom, upTo) : AcGePoint2d(acrossTo, upTo);
  if (!upsideDown_) return;
  extMin.y = -upTo;
  extMax.y = -upFrom;
}

int AcGiTextStyle::loadStyleRec(AcDbDatabase*) const {
  const gi::StyleFont found = gi::fontOf(*this);
  return found.font == nullptr || found.substituted ? 1 : 0;
}
