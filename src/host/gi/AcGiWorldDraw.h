#pragma once

#include "host/gi/AcGiCommonDraw.h"
#include "host/gi/AcGiWorldGeometry.h"

/// Where a drawable draws what looks the same in every view.
class AcGiWorldDraw : public AcGiCommonDraw {
 public:
  virtual AcGiWorldGeometry& geometry() const = 0;
  AcGiGeometry* rawGeometry() const override { return &geometry(); }
};
