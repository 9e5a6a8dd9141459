#pragma once

#include <memory>
#include <vector>

#include "Outlines.h"

namespace bench {

/// OpenCASCADE's exact hidden-line removal of a bar seen from the side.
class OcctBar {
 public:
  /// The solid of the first contour less the others, extruded by `length` along the line of sight's horizontal.
  OcctBar(const std::vector<Outline>& contours, double length);
  ~OcctBar();
  OcctBar(const OcctBar&) = delete;
  OcctBar& operator=(const OcctBar&) = delete;

  /// Loads the solid into a new hidden-line algorithm, projects and hides: what a redraw needs, short of fetching the
  /// lines. The solid itself is made once, by the constructor.
  void removeHiddenLines();

  /// The number of visible and hidden lines of the last removal, which proves that it worked.
  int visibleLines() const;
  int hiddenLines() const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

}  // namespace bench
