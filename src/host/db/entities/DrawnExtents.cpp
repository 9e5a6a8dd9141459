#include "host/db/entities/DrawnExtents.h"

#include <algorithm>
#include <cmath>

#include "host/gi/WorldDrawBase.h"

namespace {

/// Grows a box by what is drawn.
class ExtentsDraw final : public gi::WorldDrawBase {
 public:
  ExtentsDraw() : WorldDrawBase(kAcGiForExtents) {}
  AcDbExtents box;

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool) override {
    for (std::size_t i = 0; i < count; ++i) add(vertices[i]);
  }
  void onArc(const gi::ArcCall& arc) override {
    // The extremes along an axis lie where the derivative along it is zero; the ends besides.
    const auto at = [&](double t) { return arc.center + arc.u * std::cos(t) + arc.v * std::sin(t); };
    add(at(0.0));
    add(at(arc.sweep));
    const AcGeVector3d u = modelToWorld() * arc.u;
    const AcGeVector3d v = modelToWorld() * arc.v;
    for (unsigned int axis = 0; axis < 3; ++axis) {
      const double first = std::atan2(v[axis], u[axis]);
      for (int half = -3; half <= 3; ++half) {
        const double t = first + half * kAcGePi;
        if (t > std::min(0.0, arc.sweep) && t < std::max(0.0, arc.sweep)) add(at(t));
      }
    }
  }
  void onText(const gi::TextCall& text) override {
    AcGePoint2d low;
    AcGePoint2d high;
    text.style.extentsBox(text.text.c_str(), -1, text.raw, Adesk::kFalse, low, high);
    for (const double x : {low.x, high.x}) {
      for (const double y : {low.y, high.y}) add(text.position + text.direction * x + text.up * y);
    }
  }
  void onExtents(const AcGePoint3d& a, const AcGePoint3d& b) override {
    add(a);
    add(b);
  }

 private:
  void add(const AcGePoint3d& p) { box.addPoint(modelToWorld() * p); }
};

}  // namespace

Acad::ErrorStatus entities::drawnExtents(const AcDbEntity& entity, AcDbExtents& extents) {
  ExtentsDraw draw;
  draw.setDatabase(entity.database());
  // Drawing changes nothing; it isn't const only because classes may keep what they work out.
  draw.drawWhole(const_cast<AcDbEntity&>(entity));
  if (draw.box.isEmpty()) return Acad::eNullExtents;
  extents = draw.box;
  return Acad::eOk;
}
