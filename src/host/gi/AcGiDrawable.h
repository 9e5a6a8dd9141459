#pragma once

#include "host/rx/AcRxMacros.h"
#include "host/rx/AcRxObject.h"

class AcDbObjectId;
class AcGiDrawableTraits;
class AcGiViewportDraw;
class AcGiWorldDraw;

/// Anything that can draw itself. Callers use the plain form of each operation; classes override the sub... form.
class AcGiDrawable : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcGiDrawable);

  /// What setAttributes answers, bit by bit.
  enum SetAttributesFlags {
    kDrawableNone = 0,
    kDrawableIsAnEntity = 1,
    kDrawableUsesNesting = 2,
    kDrawableIsInvisible = 32
  };

  /// Gives the traits the drawable's own colour, layer, line type and so on, ahead of worldDraw.
  Adesk::UInt32 setAttributes(AcGiDrawableTraits* traits) { return subSetAttributes(traits); }
  /// Draws what looks the same in every view. True: that was all. False: viewportDraw is wanted for each view.
  Adesk::Boolean worldDraw(AcGiWorldDraw* draw) { return subWorldDraw(draw); }
  /// Draws what depends on the view.
  void viewportDraw(AcGiViewportDraw* draw) { subViewportDraw(draw); }
  Adesk::UInt32 viewportDrawLogicalFlags(AcGiViewportDraw* draw) { return subViewportDrawLogicalFlags(draw); }

  /// Whether the drawable lies in a database.
  virtual Adesk::Boolean isPersistent() const = 0;
  /// Its id in that database; null for one that isn't persistent.
  virtual AcDbObjectId id() const = 0;

 protected:
  AcGiDrawable() = default;
  // By default a drawable has no look of its own and draws nothing: most objects of a database are such.
  virtual Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits);
  virtual Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw);
  virtual void subViewportDraw(AcGiViewportDraw* draw);
  virtual Adesk::UInt32 subViewportDrawLogicalFlags(AcGiViewportDraw* draw);
};
