#include "host/gi/AcGiDrawable.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcGiDrawable, AcRxObject)

Adesk::UInt32 AcGiDrawable::subSetAttributes(AcGiDrawableTraits*) {
  return kDrawableNone;
}

Adesk::Boolean AcGiDrawable::subWorldDraw(AcGiWorldDraw*) {
  return Adesk::kTrue;
}

void AcGiDrawable::subViewportDraw(AcGiViewportDraw*) {}

Adesk::UInt32 AcGiDrawable::subViewportDrawLogicalFlags(AcGiViewportDraw*) {
  return kDrawableNone;
}
