#pragma once

#include "host/gi/AcGiGeometry.h"

/// Figures drawn for one view.
class AcGiViewportGeometry : public AcGiGeometry {};
