#pragma once

#include "host/gi/WorldDrawBase.h"
#include "host/io/plot/DrawingStyles.h"

namespace plot {

/// What became of drawing a block.
struct BlockWalk {
  Acad::ErrorStatus status = Acad::eOk;
  /// Entities that are open for write elsewhere and couldn't be drawn.
  int unreadable = 0;
};

/// Draws each entity of the block that is there, visible and on no frozen layer, in order.
BlockWalk drawBlock(gi::WorldDrawBase& draw, AcDbObjectId block, DrawingStyles& styles);

/// Draws, for an entity that draws nothing itself, the picture that came with it in its file, if there is one. A proxy
/// draws that itself.
void drawFilePicture(gi::WorldDrawBase& draw, AcGiDrawable& drawable);

}  // namespace plot
