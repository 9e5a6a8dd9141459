#include "host/io/plot/DashLayout.h"

#include <algorithm>
#include <cmath>

namespace plot {
namespace {

/// Finer than this no eye and no printer tells a dashed line from a continuous one.
constexpr double kMaxRepeats = 20000.0;

/// A pattern brought into the form long dash, off, on, off ...: what of it stretches and what stays.
struct Turned {
  std::vector<double> onOff;  ///< Begins with the long dash; on and off alternate; even count.
  double fixed = 0.0;         ///< Everything but the long dash.
};

/// On and off alternately, equal neighbours joined. Empty when the pattern has no gap.
std::vector<double> alternate(const DashPattern& pattern, double dotLength) {
  std::vector<double> result;
  bool wasOn = false;
  for (const double item : pattern) {
    if (!std::isfinite(item)) return {};
    const bool on = item >= 0.0;
    const double size = item == 0.0 ? dotLength : std::fabs(item);
    if (!result.empty() && on == wasOn) {
      result.back() += size;
    } else if (result.empty() && !on) {
      result = {0.0, size};
    } else {
      result.push_back(size);
    }
    wasOn = on;
  }
  return result;
}

Turned turn(const DashPattern& pattern, double dotLength) {
  std::vector<double> onOff = alternate(pattern, dotLength);
  if (onOff.size() % 2 == 1 && onOff.size() > 1) {
    onOff.front() += onOff.back();
    onOff.pop_back();
  } else if (onOff.size() > 2 && onOff.front() == 0.0) {
    onOff.back() += onOff[1];
    onOff.erase(onOff.begin(), onOff.begin() + 2);
  }
  if (onOff.size() < 2) return {};
  std::size_t longest = 0;
  for (std::size_t i = 2; i < onOff.size(); i += 2) {
    if (onOff[i] > onOff[longest]) longest = i;
  }
  if (onOff[longest] <= 0.0) return {};
  std::rotate(onOff.begin(), onOff.begin() + static_cast<std::ptrdiff_t>(longest), onOff.end());
  Turned result{std::move(onOff), 0.0};
  for (std::size_t i = 1; i < result.onOff.size(); ++i) result.fixed += result.onOff[i];
  return result;
}

bool canRepeat(const Turned& turned, double length) {
  if (turned.onOff.empty() || !(length > 0.0) || !std::isfinite(length)) return false;
  const double period = turned.onOff.front() + turned.fixed;
  return period > 0.0 && length <= period * kMaxRepeats;
}

/// Whether the pattern consists of dots only, so that the gaps must stretch instead of the dashes.
bool onlyDots(const DashPattern& pattern) {
  return std::none_of(pattern.begin(), pattern.end(), [](double item) { return item > 0.0; });
}

DashLayout dots(const Turned& turned, double length, bool closed) {
  const double dot = turned.onOff.front();
  const double span = closed ? length : length - dot;
  const double count = std::round(span / (dot + turned.fixed));
  if (count < 1.0) return {};
  const double gaps = span / count - dot;
  if (gaps <= 0.0) return {};
  DashLayout layout{turned.onOff, 0.0};
  for (std::size_t i = 1; i < layout.onOff.size(); i += 2) layout.onOff[i] = gaps * turned.onOff[i] / turned.fixed;
  return layout;
}

}  // namespace

DashLayout layOutDashes(const DashPattern& pattern, double length, double dotLength) {
  const Turned turned = turn(pattern, dotLength);
  if (!canRepeat(turned, length)) return {};
  if (onlyDots(pattern)) return dots(turned, length, false);
  const double dash = turned.onOff.front();
  for (double count = std::max(1.0, std::round((length - dash) / (dash + turned.fixed))); count >= 1.0; count -= 1.0) {
    const double fitted = (length - count * turned.fixed) / (count + 1.0);
    if (fitted < dash / 2.0) continue;
    DashLayout layout{turned.onOff, 0.0};
    layout.onOff.front() = fitted;
    return layout;
  }
  return {};
}

DashLayout layOutClosedDashes(const DashPattern& pattern, double length, double dotLength) {
  const Turned turned = turn(pattern, dotLength);
  if (!canRepeat(turned, length)) return {};
  if (onlyDots(pattern)) return dots(turned, length, true);
  const double dash = turned.onOff.front();
  for (double count = std::max(1.0, std::round(length / (dash + turned.fixed))); count >= 1.0; count -= 1.0) {
    const double fitted = length / count - turned.fixed;
    if (fitted < dash / 2.0) continue;
    DashLayout layout{turned.onOff, fitted / 2.0};
    layout.onOff.front() = fitted;
    return layout;
  }
  return {};
}

}  // namespace plot
