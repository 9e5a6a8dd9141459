// Boost.Geometry: the difference of lines and a polygon.
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/geometries.hpp>
#include <boost/geometry/geometries/point_xy.hpp>

#include "peer_clip.h"

namespace bench {

double clipByBoost(const ClipChains& job) {
  namespace bg = boost::geometry;
  using Point = bg::model::d2::point_xy<double>;
  bg::model::multi_linestring<bg::model::linestring<Point>> subjects, rest;
  for (const ClipChains::Chain& chain : job.subjects) {
    subjects.emplace_back();
    for (const auto& [x, y] : chain) subjects.back().emplace_back(x, y);
  }
  bg::model::polygon<Point, false> ring;
  for (const auto& [x, y] : job.ring) ring.outer().emplace_back(x, y);
  bg::difference(subjects, ring, rest);
  return static_cast<double>(bg::length(rest));
}

}  // namespace bench
