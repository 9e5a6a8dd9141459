#pragma once

#include "host/gi/AcGiTextStyle.h"
#include "host/gi/Font.h"

namespace gi {

/// The font that a style is set in. `substituted`: the style names a font that the system doesn't have, and the
/// standard lettering (or what stands in for that) is used. Null when the system has no usable font at all.
struct StyleFont {
  const Font* font = nullptr;
  bool substituted = false;
};

/// A family set by setFont goes first; else the font file's name without folder and ending is taken as a family. A
/// style that names neither, and one that names a single-stroke font (ending .shx, or none), gets the standard
/// lettering.
StyleFont fontOf(const AcGiTextStyle& style);

}  // namespace gi
