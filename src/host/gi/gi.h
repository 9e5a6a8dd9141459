#pragma once

/// The drawing interface.
#include "host/gi/AcGiCommonDraw.h"
#include "host/gi/AcGiContext.h"
#include "host/gi/AcGiDrawable.h"
#include "host/gi/AcGiEnums.h"
#include "host/gi/AcGiGeometry.h"
#include "host/gi/AcGiSubEntityTraits.h"
#include "host/gi/AcGiTextStyle.h"
#include "host/gi/AcGiViewportDraw.h"
#include "host/gi/AcGiViewportGeometry.h"
#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/AcGiWorldGeometry.h"
