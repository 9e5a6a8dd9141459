#pragma once

#include <string>
#include <vector>

#include "Job.h"
#include "Painter.h"
#include "SheetFrame.h"
#include "host/io/plot/PlotSheet.h"

namespace kr {

struct DrawnJob;

/// Draws a table of profiles into `area`: a row each, with its parameters as text, its section from either end and its
/// four elevations, at the largest standard scale that the row holds. False with `why` when the rows get too low or the
/// database refuses.
bool drawProfiles(Painter& painter, const DrawnJob& drawn, const JobSheet& sheet, const Area& area, int number,
                  std::vector<plot::PlotViewport>& windows, std::string& why);

}  // namespace kr
