#pragma once

#include <memory>
#include <vector>

#include "host/gi/AcGiWorldDraw.h"
#include "host/gi/DrawCalls.h"
#include "host/gi/TraitValues.h"

namespace gi {

/// An AcGiWorldDraw that takes care of traits, transforms, parts drawn within parts and the variants of each call, and
/// leaves to its subclass what to do with a figure. Figures are passed on in the model's coordinates, with
/// modelToWorld() in force.
class WorldDrawBase : public AcGiWorldDraw {
 public:
  explicit WorldDrawBase(AcGiRegenType regenType = kAcGiStandardDisplay, bool dragging = false);
  ~WorldDrawBase() override;
  WorldDrawBase(const WorldDrawBase&) = delete;
  WorldDrawBase& operator=(const WorldDrawBase&) = delete;

  AcGiRegenType regenType() const override { return regenType_; }
  /// Whether so many parts within parts were drawn that no more are: blocks of a file can hold each other so that a few
  /// of them tell of more figures than could ever be drawn.
  Adesk::Boolean regenAbort() const override { return partsLeft_ == 0; }
  AcGiSubEntityTraits& subEntityTraits() const override { return traits_; }
  AcGiWorldGeometry& geometry() const override { return geometry_; }
  Adesk::Boolean isDragging() const override { return dragging_; }
  double deviation(const AcGiDeviationType, const AcGePoint3d&) const override { return kDeviation; }
  Adesk::UInt32 numberOfIsolines() const override { return 0; }
  AcGiContext* context() override { return &context_; }

  void setDragging(bool on) { dragging_ = on; }
  void setDatabase(AcDbDatabase* database) { context_.shown = database; }
  void setPlotGeneration(bool on) { context_.plots = on; }

  /// Draws a drawable from the start: plain traits, then its own, then its figures for the world and, if it asks for
  /// them, for the one view there is.
  void drawWhole(AcGiDrawable& drawable);

  const AcGeMatrix3d& modelToWorld() const { return transforms_.back(); }
  const TraitValues& traits() const { return traits_.values; }

 protected:
  virtual void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) = 0;
  virtual void onArc(const ArcCall& arc) = 0;
  /// An arc through three points that lie on a line: by default the polyline through them.
  virtual void onFlatArc(const AcGePoint3d* points, AcGiArcType type);
  virtual void onText(const TextCall& text) = 0;
  virtual void onExtents(const AcGePoint3d& a, const AcGePoint3d& b);
  /// Around a drawable drawn as a part of another: the traits at that moment are what "by block" means within it.
  virtual void onBeginPart();
  virtual void onEndPart();
  /// A drawable that isn't invisible has passed no figure on, neither for the world nor for the view: with its traits
  /// as they were ahead of that.
  virtual void onNothingDrawn(AcGiDrawable& drawable);
  virtual void onPushTransform(const AcGeMatrix3d& matrix);
  virtual void onPopTransform();

  SimpleTraits& mutableTraits() { return traits_; }

 private:
  static constexpr double kDeviation = 0.01;
  /// Deeper nesting than this is a drawable that draws itself.
  static constexpr int kMaxDepth = 64;
  /// Parts within parts that one drawing may hold.
  static constexpr long kMostParts = 4'000'000;

  class Context final : public AcGiContext {
   public:
    AcDbDatabase* database() const override { return shown; }
    bool isPsOut() const override { return false; }
    bool isPlotGeneration() const override { return plots; }
    AcDbDatabase* shown = nullptr;
    bool plots = false;
  };

  /// The calls of AcGiGeometry are the same for the world and for a view: written once over either base.
  template <class Base>
  class Geometry;
  class WorldGeometry;
  class ViewportGeometry;
  class ViewportDraw;
  struct Parts;

  void drawPart(AcGiDrawable& drawable);
  void drawFigures(AcGiDrawable& drawable);

  AcGiRegenType regenType_;
  bool dragging_;
  int depth_ = 0;
  long partsLeft_ = kMostParts;
  unsigned long figures_ = 0;
  Context context_;
  mutable SimpleTraits traits_;
  std::vector<AcGeMatrix3d> transforms_;
  std::unique_ptr<Parts> parts_;
  AcGiWorldGeometry& geometry_;
};

}  // namespace gi
