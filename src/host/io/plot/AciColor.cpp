#include "host/io/plot/AciColor.h"

#include <algorithm>
#include <cmath>

namespace plot {
namespace {

constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;
constexpr int kLastIndex = 255;
constexpr Rgb kForeground{0, 0, 0};

constexpr Rgb kPlain[10] = {kForeground, {255, 0, 0},   {255, 255, 0}, {0, 255, 0},     {0, 255, 255},
                            {0, 0, 255}, {255, 0, 255}, kForeground,   {128, 128, 128}, {192, 192, 192}};

std::uint8_t level(double value) {
  return static_cast<std::uint8_t>(std::floor(value + 1e-9));
}

/// How much of one primary a hue holds, 0 to 1, by its distance from the primary on the circle of colours.
double share(double hue, double primary) {
  const double away = std::fabs(std::remainder(hue - primary, 360.0));
  return std::clamp((120.0 - away) / 60.0, 0.0, 1.0);
}

Rgb hueColor(int index) {
  static constexpr double kDepths[5] = {255.0, 204.0, 153.0, 127.0, 76.0};
  const double hue = (index / 10 - 1) * 15.0;
  const double full = kDepths[index % 10 / 2];
  const bool faded = index % 2 == 1;
  const auto part = [&](double primary) {
    const double s = share(hue, primary);
    return level(full * (faded ? 0.5 + s / 2.0 : s));
  };
  return {part(0.0), part(120.0), part(240.0)};
}

}  // namespace

Rgb aciColor(int index) {
  if (index < 1 || index > kLastIndex) return kForeground;
  if (index < kFirstHue) return kPlain[index];
  if (index < kFirstGrey) return hueColor(index);
  constexpr double kDarkest = 51.0;
  const auto grey = level(kDarkest + (index - kFirstGrey) * (255.0 - kDarkest) / (kLastIndex - kFirstGrey));
  return {grey, grey, grey};
}

Rgb greyOf(Rgb color) {
  const auto grey =
      static_cast<std::uint8_t>(std::lround(0.299 * color.red + 0.587 * color.green + 0.114 * color.blue));
  return {grey, grey, grey};
}

}  // namespace plot
