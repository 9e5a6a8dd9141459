#pragma once

#include "host/gi/TraitValues.h"
#include "host/io/plot/AciColor.h"
#include "host/io/plot/DrawingStyles.h"

namespace plot {

/// Traits with nothing left "by layer" or "by block".
struct Look {
  bool visible = true;
  AcDbObjectId layer;
  AcCmColor color;
  /// Owned by the drawing's styles.
  const DashPattern* pattern = nullptr;
  double linetypeScale = 1.0;
  AcDb::LineWeight lineWeight = AcDb::kLnWtByLwDefault;
};

/// What "by block" means outside of any block: the foreground colour, continuous, the default line weight.
Look plainLook();

/// The look of what is drawn under the traits, within a block that looks like `block`.
Look resolve(const gi::TraitValues& traits, const Look& block, bool insideBlock, DrawingStyles& styles);

/// Width of a line on paper in mm: 0.13 to 2.11, 0.25 by default.
double widthOf(AcDb::LineWeight weight);

/// A colour on white paper, under a policy.
Rgb paperColor(const AcCmColor& color, ColorPolicy policy);

}  // namespace plot
