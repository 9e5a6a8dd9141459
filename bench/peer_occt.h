#pragma once

#include <memory>
#include <vector>

#include "Outlines.h"

namespace bench {

/// OpenCASCADE's exact hidden-line removal of a bar seen from above its section, as an elevation shows it.
class OcctBar {
 public:
  /// The sections extruded by `length` across the line of sight; several of them are a compound. Holes are cylinders
  /// cut out of it in one boolean operation.
  OcctBar(const std::vector<Solid>& sections, double length, const std::vector<Hole>& holes = {});
  ~OcctBar();
  OcctBar(const OcctBar&) = delete;
  OcctBar& operator=(const OcctBar&) = delete;

  /// Loads the bar into a new hidden-line algorithm, projects and hides: what a redraw needs, short of fetching the
  /// lines. The bar itself is made once, by the constructor.
  void removeHiddenLines();

  /// The number of visible and hidden lines of the last removal, which proves that it worked.
  int visibleLines() const;
  int hiddenLines() const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
};

}  // namespace bench
