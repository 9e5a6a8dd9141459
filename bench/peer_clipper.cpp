// Clipper (polyclipping): the difference of open paths and a closed one, on a grid of a ten-thousandth.
#include <cmath>
#include <polyclipping/clipper.hpp>

#include "peer_clip.h"

namespace bench {

double clipByClipper(const ClipChains& job) {
  constexpr double kGrid = 1e4;
  const auto path = [](const ClipChains::Chain& chain) {
    ClipperLib::Path points;
    points.reserve(chain.size());
    for (const auto& [x, y] : chain) points.emplace_back(std::llround(x * kGrid), std::llround(y * kGrid));
    return points;
  };
  ClipperLib::Clipper clipper;
  for (const ClipChains::Chain& chain : job.subjects) clipper.AddPath(path(chain), ClipperLib::ptSubject, false);
  clipper.AddPath(path(job.ring), ClipperLib::ptClip, true);
  ClipperLib::PolyTree tree;
  clipper.Execute(ClipperLib::ctDifference, tree);
  ClipperLib::Paths rest;
  ClipperLib::OpenPathsFromPolyTree(tree, rest);
  double length = 0;
  for (const ClipperLib::Path& points : rest)
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
      length += std::hypot(static_cast<double>(points[i + 1].X - points[i].X),
                           static_cast<double>(points[i + 1].Y - points[i].Y));
  return length / kGrid;
}

}  // namespace bench
