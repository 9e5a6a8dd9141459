#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/gi/Font.h"

namespace gi {

/// One glyph in its place on the line of writing. Lengths in capital heights.
struct PlacedGlyph {
  const Font* font = nullptr;
  unsigned index = 0;
  wchar_t character = 0;
  double x = 0.0;
  /// Size of the font's em in capital heights.
  double em = 1.0;
};

/// A rule over or under part of the text.
struct TextRule {
  double fromX = 0.0, toX = 0.0, y = 0.0;
};

/// A line of text set in a font at capital height 1, from the origin along X.
struct TextLayout {
  static constexpr double kUnderlineY = -0.25;
  static constexpr double kOverlineY = 1.25;

  std::vector<PlacedGlyph> glyphs;
  std::vector<TextRule> rules;
  /// Where the next character would begin.
  double advance = 0.0;
  bool hasInk = false;
  /// The box of what is drawn, after the slant.
  double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
  /// A character of which no font had a glyph; 0 when there was none.
  wchar_t missing = 0;
};

/// A character of a text with what the codes before it ask for.
struct TextCharacter {
  wchar_t character;
  bool overlined;
  bool underlined;
};

/// The characters that a text stands for. Unless `raw`: %%c diameter, %%d degree, %%p plus-minus, %%% percent, %%o and
/// %%u over- and underline on and off, %%nnn the character of that number. An unknown code stands as it is. Control
/// characters count as blanks.
std::vector<TextCharacter> readTextCodes(std::wstring_view text, bool raw);

/// Sets the text in the font; characters that it lacks come from the fallback font. `slope` is how far a
/// point moves along X per capital height above the line of writing: 0 for upright text.
TextLayout layOutText(std::wstring_view text, bool raw, const Font& font, double slope);

}  // namespace gi
