#pragma once

#include <string>
#include <vector>

#include "Job.h"

namespace kr {

/// The name of one view of a bar, and where it stands in the plane of the views: its middle, above what is drawn.
struct BarViewLabel {
  std::string text;
  JobPoint at;
};

/// Lays out the views of one bar: its elevations one below the other in the order in which they are asked for, with the
/// bar's start to the left, the section as seen from the start to the left of the first of them, the one seen from the
/// end to its right. Returns a plane job of one member for each view.
Job barViews(const Job& job, const JobView& view, std::vector<BarViewLabel>& labels);

}  // namespace kr
