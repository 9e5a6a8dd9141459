#pragma once

#include <vector>

namespace plot {

/// A line type's pattern, in mm on paper: dashes positive, gaps negative, dots 0, repeated for ever.
using DashPattern = std::vector<double>;

/// How a pattern is laid along a path of a certain length: alternating lengths on and off, from the start of the path,
/// repeated. Empty means a continuous line.
struct DashLayout {
  std::vector<double> onOff;
  /// How far into the repeated lengths the path begins.
  double offset = 0.0;
};

/// Lays a pattern along an open path so that it begins and ends with a dash: gaps, dots and short dashes keep their
/// lengths, and the long dash is stretched or shortened to fit a whole number of repetitions (as ISO 128-20 has it). A
/// path too short for two dashes of half length is continuous. A dot is `dotLength` long.
DashLayout layOutDashes(const DashPattern& pattern, double length, double dotLength);

/// The same along a closed path, on which the pattern meets itself in the middle of a long dash.
DashLayout layOutClosedDashes(const DashPattern& pattern, double length, double dotLength);

}  // namespace plot
