#pragma once

#include <utility>
#include <vector>

namespace bench {

/// What the peers of the clipper are given: chains of straight pieces to clip, and a closed ring to take out of them.
struct ClipChains {
  using Chain = std::vector<std::pair<double, double>>;
  std::vector<Chain> subjects;
  Chain ring;
};

/// Each takes the ring out of the chains and returns the length of what is left, in millimetres: the proof that it
/// worked.
double clipByBoost(const ClipChains& job);
double clipByClipper(const ClipChains& job);

}  // namespace bench
