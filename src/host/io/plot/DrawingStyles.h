#pragma once

#include <unordered_map>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbEnums.h"
#include "host/db/AcDbObjectId.h"
#include "host/io/plot/DashLayout.h"
#include "host/io/plot/PlotSheet.h"

namespace plot {

/// What a layer gives to what lies on it. A layer that can't be opened is on, in the foreground colour.
struct LayerStyle {
  /// Off, or not to be plotted: what lies on it isn't drawn.
  bool hidden = false;
  /// Frozen: an entity on it isn't even asked to draw.
  bool frozen = false;
  /// The layer on which parts of a block take the layer of the block's entity.
  bool isZero = false;
  AcCmColor color;
  AcDbObjectId linetype;
  AcDb::LineWeight lineWeight = AcDb::kLnWtByLwDefault;
};

/// A line type of a drawing: one of the two that stand for another, or a pattern in its own units.
struct LinetypeStyle {
  enum class Kind { byLayer, byBlock, pattern };
  Kind kind = Kind::byLayer;
  /// Empty for a continuous line.
  DashPattern pattern;
};

/// The layers and line types of a drawing, read once each. Good as long as nothing in the drawing changes.
class DrawingStyles {
 public:
  explicit DrawingStyles(std::vector<LayerOverride> overrides = {}) : overrides_(std::move(overrides)) {}

  const LayerStyle& layer(AcDbObjectId id);
  const LinetypeStyle& linetype(AcDbObjectId id);

 private:
  LayerStyle readLayer(AcDbObjectId id) const;

  std::vector<LayerOverride> overrides_;
  std::unordered_map<AcDbStub*, LayerStyle> layers_;
  std::unordered_map<AcDbStub*, LinetypeStyle> linetypes_;
};

}  // namespace plot
