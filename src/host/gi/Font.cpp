#include "host/gi/Font.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_BBOX_H
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <cmath>
#include <map>
#include <memory>
#include <tuple>

namespace gi {
namespace {

FT_Library library() {
  static FT_Library loaded = [] {
    FT_Library made = nullptr;
    return FT_Init_FreeType(&made) == 0 ? made : nullptr;
  }();
  return loaded;
}

struct PatternDeleter {
  void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternDeleter>;

/// Whether one of the family names of the font found is the one asked for: the matcher always finds something.
bool hasFamily(FcPattern* font, const std::string& family) {
  FcChar8* name = nullptr;
  for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(name, reinterpret_cast<const FcChar8*>(family.c_str())) == 0) return true;
  }
  return false;
}

FT_Face openFace(const std::string& family, bool bold, bool italic) {
  if (library() == nullptr || family.empty()) return nullptr;
  const PatternPtr wanted(FcPatternCreate());
  FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
  FcPatternAddInteger(wanted.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(wanted.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const PatternPtr found(FcFontMatch(nullptr, wanted.get(), &result));
  if (found == nullptr || !hasFamily(found.get(), family)) return nullptr;
  FcChar8* file = nullptr;
  int index = 0;
  if (FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) return nullptr;
  FcPatternGetInteger(found.get(), FC_INDEX, 0, &index);
  FT_Face face = nullptr;
  if (FT_New_Face(library(), reinterpret_cast<const char*>(file), index, &face) != 0) return nullptr;
  if (FT_IS_SCALABLE(face) && face->units_per_EM > 0) return face;
  FT_Done_Face(face);
  return nullptr;
}

}  // namespace

Font::Font(std::string family, FT_FaceRec_* face) : family_(std::move(family)), face_(face) {
  const GlyphMeasure capital = measure(L'H');
  if (capital.index != 0 && capital.maxY > 0.0) capHeight_ = capital.maxY;
}

const Font* Font::find(const std::string& family, bool bold, bool italic) {
  using Key = std::tuple<std::string, bool, bool>;
  // Never freed: the page library keeps faces in caches of its own until the program ends.
  static auto& fonts = *new std::map<Key, const Font*>();
  const auto [place, isNew] = fonts.try_emplace(Key(family, bold, italic), nullptr);
  if (isNew) {
    if (FT_Face face = openFace(family, bold, italic)) place->second = new Font(family, face);
  }
  return place->second;
}

const Font* Font::standard() {
  const Font* font = find(std::string(kStandardFamily));
  return font != nullptr ? font : fallback();
}

const Font* Font::fallback() {
  return find(std::string(kFallbackFamily));
}

const GlyphMeasure& Font::glyph(wchar_t c) const {
  const auto [place, isNew] = glyphs_.try_emplace(c);
  if (isNew) place->second = measure(c);
  return place->second;
}

GlyphMeasure Font::slantedGlyph(wchar_t c, double slope) const {
  GlyphMeasure result = measure(c);
  if (!result.hasInk || slope == 0.0 || face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return result;
  constexpr double kFixedOne = 65536.0;
  const FT_Matrix shear{0x10000, static_cast<FT_Fixed>(std::lround(slope * kFixedOne)), 0, 0x10000};
  FT_Outline_Transform(&face_->glyph->outline, &shear);
  FT_BBox box{};
  if (FT_Outline_Get_BBox(&face_->glyph->outline, &box) != 0) return result;
  const double em = face_->units_per_EM;
  result.minX = static_cast<double>(box.xMin) / em;
  result.maxX = static_cast<double>(box.xMax) / em;
  return result;
}

GlyphMeasure Font::measure(wchar_t c) const {
  GlyphMeasure result;
  result.index = FT_Get_Char_Index(face_, static_cast<FT_ULong>(c));
  // The page library sets size and transform of a face as it likes: measures must not depend on them.
  constexpr FT_Int32 kFlags = FT_LOAD_NO_SCALE | FT_LOAD_NO_HINTING | FT_LOAD_IGNORE_TRANSFORM;
  if (FT_Load_Glyph(face_, result.index, kFlags) != 0) return result;
  const double em = face_->units_per_EM;
  const FT_Glyph_Metrics& m = face_->glyph->metrics;
  result.advance = static_cast<double>(m.horiAdvance) / em;
  result.hasInk = m.width > 0 && m.height > 0;
  result.minX = static_cast<double>(m.horiBearingX) / em;
  result.maxX = static_cast<double>(m.horiBearingX + m.width) / em;
  result.maxY = static_cast<double>(m.horiBearingY) / em;
  result.minY = static_cast<double>(m.horiBearingY - m.height) / em;
  return result;
}

}  // namespace gi
