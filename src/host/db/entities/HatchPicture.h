#pragma once

#include <functional>

#include "host/db/entities/AcDbHatch.h"

namespace entities {

using Outline = std::vector<AcGePoint2d>;

/// A path as straight pieces, arcs and splines cut finely; its end isn't repeated.
Outline hatchOutline(const AcDbHatch::Path& path);

/// The polygons to fill so that what lies within an odd number of outlines is covered: each outermost outline with the
/// holes directly in it led into by a cut, and what lies in the holes again.
std::vector<Outline> hatchAreas(const std::vector<Outline>& outlines);

/// Draws families of parallel lines within an odd number of outlines. What would take beyond reason is drawn in part.
class HatchStroker {
 public:
  using Stroke = std::function<void(const AcGePoint2d& from, const AcGePoint2d& to)>;
  explicit HatchStroker(const std::vector<Outline>& outlines);
  void draw(const AcDbHatch::PatternLine& line, const Stroke& stroke);

 private:
  const std::vector<Outline>& outlines_;
  long edgesLeft_;
  long strokesLeft_;
};

}  // namespace entities
