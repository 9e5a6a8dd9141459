#pragma once

#include "Bom.h"
#include "Painter.h"
#include "SheetFrame.h"

namespace kr {

/// How high the bill of materials stands on paper, mm.
double tableHeight(const Bom& bom);

/// Draws the bill of materials with its upper left corner there, as wide as the title block.
void drawTable(Painter& painter, JobPoint corner, const Bom& bom);

}  // namespace kr
