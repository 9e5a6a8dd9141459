#pragma once

#include <functional>

#include "host/db/AcDbObjectId.h"
#include "host/gi/gi.h"

/// A drawable that draws what a function says.
class DrawWith : public AcGiDrawable {
 public:
  using Body = std::function<void(AcGiWorldDraw&)>;
  explicit DrawWith(Body body) : body_(std::move(body)) {}

  std::function<void(AcGiDrawableTraits&)> attributes;
  /// When set, worldDraw asks for this to be called for the view.
  std::function<void(AcGiViewportDraw&)> forView;

  Adesk::Boolean isPersistent() const override { return Adesk::kFalse; }
  AcDbObjectId id() const override { return AcDbObjectId::kNull; }

 protected:
  Adesk::UInt32 subSetAttributes(AcGiDrawableTraits* traits) override {
    if (attributes) attributes(*traits);
    return kDrawableNone;
  }
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override {
    body_(*draw);
    return forView ? Adesk::kFalse : Adesk::kTrue;
  }
  void subViewportDraw(AcGiViewportDraw* draw) override { forView(*draw); }

 private:
  Body body_;
};
