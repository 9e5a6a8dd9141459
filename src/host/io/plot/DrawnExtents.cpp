#include <cmath>

#include "host/gi/StyleFont.h"
#include "host/gi/WorldDrawBase.h"
#include "host/io/plot/BlockWalk.h"
#include "host/io/plot/Look.h"
#include "host/io/plot/PlotSheet.h"

namespace plot {
namespace {

constexpr double kPi = 3.14159265358979323846;

/// A sink that keeps nothing but the box of what it was given.
class ExtentsDraw final : public gi::WorldDrawBase {
 public:
  explicit ExtentsDraw(DrawingStyles& styles) : WorldDrawBase(kAcGiForExtents), styles_(styles), blocks_{plainLook()} {}

  AcDbExtents extents;

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool) override {
    if (!visible()) return;
    for (std::size_t i = 0; i < count; ++i) add(modelToWorld() * vertices[i]);
  }
  void onArc(const gi::ArcCall& arc) override;
  void onText(const gi::TextCall& text) override;
  void onExtents(const AcGePoint3d& a, const AcGePoint3d& b) override {
    add(modelToWorld() * a);
    add(modelToWorld() * b);
  }
  void onBeginPart() override { blocks_.push_back(resolve(traits(), blocks_.back(), blocks_.size() > 1, styles_)); }
  void onEndPart() override { blocks_.pop_back(); }
  void onNothingDrawn(AcGiDrawable& drawable) override { drawFilePicture(*this, drawable); }

 private:
  bool visible() { return resolve(traits(), blocks_.back(), blocks_.size() > 1, styles_).visible; }
  void add(const AcGePoint3d& p) {
    if (std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z)) extents.addPoint(p);
  }

  DrawingStyles& styles_;
  std::vector<Look> blocks_;
};

void ExtentsDraw::onArc(const gi::ArcCall& arc) {
  if (!visible()) return;
  const AcGePoint3d center = modelToWorld() * arc.center;
  const AcGeVector3d u = modelToWorld() * arc.u;
  const AcGeVector3d v = modelToWorld() * (arc.sweep < 0.0 ? -arc.v : arc.v);
  const double sweep = std::fabs(arc.sweep);
  const auto at = [&](double angle) { return center + u * std::cos(angle) + v * std::sin(angle); };
  add(at(0.0));
  add(at(sweep));
  if (arc.type == kAcGiArcSector) add(center);
  // Along each axis the curve turns back where its derivative vanishes, twice a turn.
  for (unsigned int axis = 0; axis < 3; ++axis) {
    for (const double half : {0.0, kPi}) {
      double angle = std::atan2(v[axis], u[axis]) + half;
      if (angle < 0.0) angle += 2.0 * kPi;
      if (angle < sweep) add(at(angle));
    }
  }
}

void ExtentsDraw::onText(const gi::TextCall& text) {
  if (!visible()) return;
  AcGePoint2d least;
  AcGePoint2d greatest;
  text.style.extentsBox(text.text.c_str(), -1, Adesk::kFalse, text.raw ? Adesk::kTrue : Adesk::kFalse, least, greatest);
  for (const double x : {least.x, greatest.x}) {
    for (const double y : {least.y, greatest.y}) {
      add(modelToWorld() * (text.position + text.direction * x + text.up * y));
    }
  }
}

}  // namespace

AcDbExtents drawnExtents(AcDbObjectId block) {
  DrawingStyles styles;
  ExtentsDraw draw(styles);
  drawBlock(draw, block, styles);
  return draw.extents;
}

AcDbExtents drawnExtents(AcGiDrawable& drawable) {
  DrawingStyles styles;
  ExtentsDraw draw(styles);
  draw.drawWhole(drawable);
  return draw.extents;
}

}  // namespace plot
