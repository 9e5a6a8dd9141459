#pragma once

#include "host/gi/AcGiCommonDraw.h"
#include "host/gi/AcGiViewportGeometry.h"

/// Where a drawable draws what depends on the view.
class AcGiViewportDraw : public AcGiCommonDraw {
 public:
  virtual AcGiViewportGeometry& geometry() const = 0;
  AcGiGeometry* rawGeometry() const override { return &geometry(); }
  /// The entity that tells of the view drawn; null for the one view of the model.
  virtual AcDbObjectId viewportObjectId() const = 0;
};
