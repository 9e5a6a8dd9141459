#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

struct FT_FaceRec_;

namespace gi {

/// One glyph's measures in em units: 1 is the font's em square.
struct GlyphMeasure {
  unsigned index = 0;  ///< In the font file; 0 when the font has no such character.
  double advance = 0.0;
  bool hasInk = false;
  double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
};

/// A font file of the system, measured without hinting so that text is as wide on every page and at every size.
class Font {
 public:
  /// The lettering of drawings (ISO 3098) and what stands in for it.
  static constexpr std::string_view kStandardFamily = "osifont";
  static constexpr std::string_view kFallbackFamily = "DejaVu Sans";

  /// The font of that family, or null when the system has none by that very name. Fonts live as long as the program.
  static const Font* find(const std::string& family, bool bold = false, bool italic = false);
  /// The standard lettering; the fallback where it isn't installed; null where neither is.
  static const Font* standard();
  static const Font* fallback();

  const std::string& family() const { return family_; }
  /// Height of a capital in em units.
  double capHeight() const { return capHeight_; }
  const GlyphMeasure& glyph(wchar_t c) const;
  /// The glyph with each point moved along X by `slope` times its height: the box is that of the outline itself.
  GlyphMeasure slantedGlyph(wchar_t c, double slope) const;
  FT_FaceRec_* face() const { return face_; }

 private:
  Font(std::string family, FT_FaceRec_* face);
  GlyphMeasure measure(wchar_t c) const;

  std::string family_;
  FT_FaceRec_* face_;
  double capHeight_ = 0.7;
  mutable std::unordered_map<wchar_t, GlyphMeasure> glyphs_;
};

}  // namespace gi
