#include "host/gi/AcGiDrawable.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcGiDrawable, AcRxObject)

Adesk::UInt32 AcGiDrawable::subViewportDrawLogicalFlags(AcGiViewportDraw*) {
  return kDrawableNone;
}
