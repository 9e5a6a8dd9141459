#include "host/gi/TextLayout.h"

#include <algorithm>

namespace gi {
namespace {

constexpr wchar_t kDiameter = 0x2300;
constexpr wchar_t kDiameterAsLetter = 0x00D8;
constexpr wchar_t kDegree = 0x00B0;
constexpr wchar_t kPlusMinus = 0x00B1;

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

wchar_t printable(wchar_t c) {
  const bool control = c < 0x20 || (c >= 0x7F && c < 0xA0);
  const bool surrogate = c >= 0xD800 && c < 0xE000;
  return control || surrogate || c > 0x10FFFF ? L' ' : c;
}

/// The character that a code of one letter stands for; 0 for none.
wchar_t codeCharacter(wchar_t letter) {
  switch (letter) {
    case L'c':
    case L'C':
      return kDiameterAsLetter;
    case L'd':
    case L'D':
      return kDegree;
    case L'p':
    case L'P':
      return kPlusMinus;
    case L'%':
      return L'%';
    default:
      return 0;
  }
}

const GlyphMeasure* findGlyph(wchar_t c, const Font*& font) {
  const GlyphMeasure& own = font->glyph(c);
  if (own.index != 0) return &own;
  const Font* other = Font::fallback();
  if (other == nullptr || other->glyph(c).index == 0) return nullptr;
  font = other;
  return &other->glyph(c);
}

void cover(TextLayout& layout, double x, double y) {
  if (!layout.hasInk) {
    layout.minX = layout.maxX = x;
    layout.minY = layout.maxY = y;
    layout.hasInk = true;
    return;
  }
  layout.minX = std::min(layout.minX, x);
  layout.maxX = std::max(layout.maxX, x);
  layout.minY = std::min(layout.minY, y);
  layout.maxY = std::max(layout.maxY, y);
}

void addRule(TextLayout& layout, double from, double to, double y, double slope) {
  if (!layout.rules.empty() && layout.rules.back().y == y && layout.rules.back().toX == from) {
    layout.rules.back().toX = to;
  } else {
    layout.rules.push_back({from, to, y});
  }
  cover(layout, from + y * slope, y);
  cover(layout, to + y * slope, y);
}

}  // namespace

std::vector<TextCharacter> readTextCodes(std::wstring_view text, bool raw) {
  std::vector<TextCharacter> result;
  result.reserve(text.size());
  bool over = false;
  bool under = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCode = !raw && i + 2 < text.size() && text[i] == L'%' && text[i + 1] == L'%';
    if (!isCode) {
      result.push_back({printable(text[i]), over, under});
      continue;
    }
    const wchar_t letter = text[i + 2];
    if (const wchar_t c = codeCharacter(letter); c != 0) {
      result.push_back({c, over, under});
      i += 2;
    } else if (letter == L'o' || letter == L'O') {
      over = !over;
      i += 2;
    } else if (letter == L'u' || letter == L'U') {
      under = !under;
      i += 2;
    } else if (i + 4 < text.size() && isDigit(letter) && isDigit(text[i + 3]) && isDigit(text[i + 4])) {
      const int number = (letter - L'0') * 100 + (text[i + 3] - L'0') * 10 + (text[i + 4] - L'0');
      result.push_back({printable(static_cast<wchar_t>(number)), over, under});
      i += 4;
    } else {
      result.push_back({text[i], over, under});
    }
  }
  return result;
}

TextLayout layOutText(std::wstring_view text, bool raw, const Font& font, double slope) {
  TextLayout layout;
  for (const TextCharacter& item : readTextCodes(text, raw)) {
    const Font* used = &font;
    // The mathematical diameter sign is in few fonts; the letter is what drawings show.
    const wchar_t c = item.character == kDiameter ? kDiameterAsLetter : item.character;
    const GlyphMeasure* glyph = findGlyph(c, used);
    if (glyph == nullptr) {
      layout.missing = c;
      glyph = &font.glyph(c);
    }
    const double em = 1.0 / used->capHeight();
    const double x = layout.advance;
    layout.glyphs.push_back({used, glyph->index, c, x, em});
    layout.advance += glyph->advance * em;
    if (glyph->hasInk) {
      const GlyphMeasure ink = slope == 0.0 ? *glyph : used->slantedGlyph(c, slope);
      cover(layout, x + ink.minX * em, ink.minY * em);
      cover(layout, x + ink.maxX * em, ink.maxY * em);
    }
    if (item.overlined) addRule(layout, x, layout.advance, TextLayout::kOverlineY, slope);
    if (item.underlined) addRule(layout, x, layout.advance, TextLayout::kUnderlineY, slope);
  }
  return layout;
}

}  // namespace gi
