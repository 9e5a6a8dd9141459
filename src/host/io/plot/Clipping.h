#pragma once

#include "host/io/plot/Path.h"
#include "host/io/plot/PlotSheet.h"

namespace plot {

/// The path's lines within a rectangle; its curves become short lines first. For what reaches so far beyond the sheet
/// that the page library's numbers don't hold it.
Path clipLines(const Path& path, const PaperRect& rect);

/// The part of the area that a path of one closed outline encloses within a rectangle.
Path clipArea(const Path& path, const PaperRect& rect);

}  // namespace plot
