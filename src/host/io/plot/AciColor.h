#pragma once

#include <cstdint>

namespace plot {

/// A colour of the page, each part 0 to 255.
struct Rgb {
  std::uint8_t red = 0, green = 0, blue = 0;
  bool operator==(const Rgb&) const = default;
};

/// The colour of an index, 1 to 255: seven plain colours, of which 7 is the foreground (black on paper); two greys;
/// from 10 on 24 hues, 15 degrees apart, in five depths, each full (even) and half faded (odd); from 250 on six greys
/// from dark to white. Any other index gives the foreground.
Rgb aciColor(int index);

/// The grey of the same lightness.
Rgb greyOf(Rgb color);

}  // namespace plot
