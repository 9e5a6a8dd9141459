#pragma once

#include <string>
#include <vector>

#include "host/gi/WorldDrawBase.h"
#include "host/io/plot/Canvas.h"
#include "host/io/plot/Look.h"

namespace plot {

/// Notes about what was drawn otherwise than asked for, each kept once, in order.
class Warnings {
 public:
  void add(const std::string& text);
  std::vector<std::string> take() { return std::move(texts_); }

 private:
  std::vector<std::string> texts_;
};

/// Draws figures of the world onto a page, through one matrix and within one rectangle.
class PageDraw final : public gi::WorldDrawBase {
 public:
  struct View {
    AcGeMatrix3d modelToPaper;
    PaperRect clip;
    /// The drawing's scale of line types times the plot's.
    double linetypeScale = 1.0;
  };

  PageDraw(Canvas& canvas, DrawingStyles& styles, const PlotOptions& options, const View& view, Warnings& warnings);

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) override;
  void onArc(const gi::ArcCall& arc) override;
  void onText(const gi::TextCall& text) override;
  void onBeginPart() override;
  void onEndPart() override;
  void onNothingDrawn(AcGiDrawable& drawable) override;

 private:
  /// Beyond this, in mm, numbers are too large for the page library.
  static constexpr double kFar = 50000.0;
  static constexpr double kMargin = 10.0;

  AcGeMatrix3d toPaper() const { return view_.modelToPaper * modelToWorld(); }
  const Look& look();
  /// What the path in path_ is drawn as.
  void draw(bool closed, bool filled);
  void strokePath(const Path& path, bool closed, bool continuous);
  void drawRules(const gi::TextLayout& layout, const PlacedText& place);
  double penWidth() { return widthOf(look().lineWeight) * options_.lineWeightScale; }

  Canvas& canvas_;
  DrawingStyles& styles_;
  const PlotOptions& options_;
  View view_;
  Warnings& warnings_;
  Path path_;
  std::vector<Look> blocks_;
  bool hasLook_ = false;
  gi::TraitValues lookTraits_;
  Look look_;
};

}  // namespace plot
