#include "host/gi/WorldDrawBase.h"

#include <algorithm>
#include <cmath>

#include "host/gi/AcGiDrawable.h"
#include "host/gi/AcGiViewportDraw.h"

namespace gi {
namespace {

constexpr double kFullTurn = 2.0 * 3.14159265358979323846;

bool isFinite(const AcGePoint3d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

AcGeVector3d unit(const AcGeVector3d& v, const AcGeVector3d& otherwise) {
  const double size = v.length();
  return size > 0.0 && std::isfinite(size) ? v / size : otherwise;
}

}  // namespace

bool arcThrough(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end, ArcCall& arc) {
  if (!isFinite(start) || !isFinite(point) || !isFinite(end)) return false;
  const AcGeVector3d a = point - start;
  const AcGeVector3d b = end - start;
  const AcGeVector3d normal = a.crossProduct(b);
  const double squared = normal.lengthSqrd();
  // A sagitta below a millionth of the chord is a line for every eye, and its circle is worse than its chord.
  constexpr double kFlat = 1e-6;
  if (squared <= kFlat * kFlat * a.lengthSqrd() * b.lengthSqrd() || squared == 0.0) return false;
  const AcGeVector3d toCenter =
      (a.lengthSqrd() * b.crossProduct(normal) + b.lengthSqrd() * normal.crossProduct(a)) / (2.0 * squared);
  arc.center = start + toCenter;
  arc.u = start - arc.center;
  arc.v = (normal / std::sqrt(squared)).crossProduct(arc.u);
  const AcGeVector3d last = end - arc.center;
  const double angle = std::atan2(last.dotProduct(arc.v), last.dotProduct(arc.u));
  arc.sweep = angle > 0.0 ? angle : angle + kFullTurn;
  return true;
}

template <class Base>
class WorldDrawBase::Geometry : public Base {
 public:
  explicit Geometry(WorldDrawBase& owner) : owner_(owner) {}

  void getModelToWorldTransform(AcGeMatrix3d& matrix) const override { matrix = owner_.modelToWorld(); }
  void getWorldToModelTransform(AcGeMatrix3d& matrix) const override { matrix = owner_.modelToWorld().inverse(); }
  Adesk::Boolean pushModelTransform(const AcGeVector3d& normal) override {
    return pushModelTransform(AcGeMatrix3d::planeToWorld(normal));
  }
  Adesk::Boolean pushModelTransform(const AcGeMatrix3d& matrix) override {
    owner_.onPushTransform(matrix);
    owner_.transforms_.push_back(owner_.modelToWorld() * matrix);
    return Adesk::kTrue;
  }
  Adesk::Boolean popModelTransform() override {
    if (owner_.transforms_.size() == 1) return Adesk::kFalse;
    owner_.onPopTransform();
    owner_.transforms_.pop_back();
    return Adesk::kTrue;
  }

  Adesk::Boolean circle(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal) const override {
    const AcGeVector3d axis = unit(normal, AcGeVector3d::kZAxis);
    const AcGeVector3d u = axis.perpVector() * radius;
    drawn().onArc({center, u, axis.crossProduct(u), kFullTurn, true, kAcGiArcSimple, false, {}});
    return Adesk::kFalse;
  }
  Adesk::Boolean circle(const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3) const override {
    ArcCall arc;
    if (!arcThrough(p1, p2, p3, arc)) return Adesk::kFalse;
    arc.sweep = kFullTurn;
    arc.isCircle = true;
    drawn().onArc(arc);
    return Adesk::kFalse;
  }
  Adesk::Boolean circularArc(const AcGePoint3d& center, const double radius, const AcGeVector3d& normal,
                             const AcGeVector3d& startVector, const double sweepAngle,
                             const AcGiArcType arcType) const override {
    const AcGeVector3d axis = unit(normal, AcGeVector3d::kZAxis);
    const AcGeVector3d u = unit(startVector.orthoProject(axis), axis.perpVector()) * radius;
    // Once round is all there is to draw; who walks along the sweep needn't end in a drawing of billions of turns.
    const double sweep = std::clamp(sweepAngle, -kFullTurn, kFullTurn);
    drawn().onArc({center, u, axis.crossProduct(u), sweep, false, arcType, false, {}});
    return Adesk::kFalse;
  }
  Adesk::Boolean circularArc(const AcGePoint3d& start, const AcGePoint3d& point, const AcGePoint3d& end,
                             const AcGiArcType arcType) const override {
    ArcCall arc;
    arc.type = arcType;
    arc.byPoints = true;
    arc.given[0] = start;
    arc.given[1] = point;
    arc.given[2] = end;
    if (arcThrough(start, point, end, arc)) {
      drawn().onArc(arc);
    } else {
      drawn().onFlatArc(arc.given, arcType);
    }
    return Adesk::kFalse;
  }
  Adesk::Boolean polyline(const Adesk::UInt32 count, const AcGePoint3d* vertices, const AcGeVector3d*,
                          Adesk::LongPtr) const override {
    if (count > 0 && vertices != nullptr) drawn().onPolyline(vertices, count, false);
    return Adesk::kFalse;
  }
  Adesk::Boolean polygon(const Adesk::UInt32 count, const AcGePoint3d* vertices) const override {
    if (count > 0 && vertices != nullptr) drawn().onPolyline(vertices, count, true);
    return Adesk::kFalse;
  }

  Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                      const double height, const double width, const double oblique,
                      const ACHAR* message) const override {
    AcGiTextStyle style;
    style.setTextSize(height);
    style.setXScale(width);
    style.setObliquingAngle(oblique);
    return text(position, normal, direction, message, -1, Adesk::kTrue, style);
  }
  Adesk::Boolean text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                      const ACHAR* message, const Adesk::Int32 length, const Adesk::Boolean raw,
                      const AcGiTextStyle& style) const override {
    if (message == nullptr) return Adesk::kFalse;
    std::wstring_view view(message);
    if (length >= 0) view = view.substr(0, static_cast<std::size_t>(length));
    if (view.empty()) return Adesk::kFalse;
    const AcGeVector3d axis = unit(normal, AcGeVector3d::kZAxis);
    const AcGeVector3d along = unit(direction.orthoProject(axis), axis.perpVector());
    drawn().onText({position, along, axis.crossProduct(along), std::wstring(view), raw != 0, style});
    return Adesk::kFalse;
  }

  Adesk::Boolean draw(AcGiDrawable* drawable) const override {
    if (drawable != nullptr) owner_.drawPart(*drawable);
    return Adesk::kFalse;
  }

 protected:
  WorldDrawBase& owner_;

 private:
  // The owner, who is told of a figure.
  WorldDrawBase& drawn() const {
    ++owner_.figures_;
    return owner_;
  }
};

class WorldDrawBase::WorldGeometry final : public Geometry<AcGiWorldGeometry> {
 public:
  using Geometry::Geometry;
  void setExtents(AcGePoint3d* corners) const override {
    if (corners != nullptr) owner_.onExtents(corners[0], corners[1]);
  }
};

class WorldDrawBase::ViewportGeometry final : public Geometry<AcGiViewportGeometry> {
 public:
  using Geometry::Geometry;
};

class WorldDrawBase::ViewportDraw final : public AcGiViewportDraw {
 public:
  explicit ViewportDraw(WorldDrawBase& owner) : owner_(owner), geometry_(owner) {}
  AcGiRegenType regenType() const override { return owner_.regenType(); }
  Adesk::Boolean regenAbort() const override { return owner_.regenAbort(); }
  AcGiSubEntityTraits& subEntityTraits() const override { return owner_.subEntityTraits(); }
  Adesk::Boolean isDragging() const override { return owner_.isDragging(); }
  double deviation(const AcGiDeviationType type, const AcGePoint3d& point) const override {
    return owner_.deviation(type, point);
  }
  Adesk::UInt32 numberOfIsolines() const override { return owner_.numberOfIsolines(); }
  AcGiContext* context() override { return owner_.context(); }
  AcGiViewportGeometry& geometry() const override { return geometry_; }
  AcDbObjectId viewportObjectId() const override { return AcDbObjectId::kNull; }

 private:
  WorldDrawBase& owner_;
  mutable ViewportGeometry geometry_;
};

struct WorldDrawBase::Parts {
  explicit Parts(WorldDrawBase& owner) : world(owner), view(owner) {}
  WorldGeometry world;
  ViewportDraw view;
};

WorldDrawBase::WorldDrawBase(AcGiRegenType regenType, bool dragging)
    : regenType_(regenType),
      dragging_(dragging),
      transforms_(1),
      parts_(std::make_unique<Parts>(*this)),
      geometry_(parts_->world) {}

WorldDrawBase::~WorldDrawBase() = default;

void WorldDrawBase::onFlatArc(const AcGePoint3d* points, AcGiArcType) {
  onPolyline(points, 3, false);
}
void WorldDrawBase::onExtents(const AcGePoint3d&, const AcGePoint3d&) {}
void WorldDrawBase::onBeginPart() {}
void WorldDrawBase::onEndPart() {}
void WorldDrawBase::onNothingDrawn(AcGiDrawable&) {}
void WorldDrawBase::onPushTransform(const AcGeMatrix3d&) {}
void WorldDrawBase::onPopTransform() {}

void WorldDrawBase::drawWhole(AcGiDrawable& drawable) {
  traits_.values = TraitValues();
  drawFigures(drawable);
}

void WorldDrawBase::drawPart(AcGiDrawable& drawable) {
  if (depth_ >= kMaxDepth || partsLeft_ == 0) return;
  --partsLeft_;
  const TraitValues kept = traits_.values;
  ++depth_;
  onBeginPart();
  drawFigures(drawable);
  onEndPart();
  --depth_;
  traits_.values = kept;
}

void WorldDrawBase::drawFigures(AcGiDrawable& drawable) {
  const std::size_t depth = transforms_.size();
  const unsigned long before = figures_;
  const bool visible = (drawable.setAttributes(&traits_) & AcGiDrawable::kDrawableIsInvisible) == 0;
  if (visible && drawable.worldDraw(this) == 0) drawable.viewportDraw(&parts_->view);
  // A drawable that forgot to pop must not move all that follows.
  transforms_.resize(depth);
  if (!visible || figures_ != before) return;
  drawable.setAttributes(&traits_);
  onNothingDrawn(drawable);
}

}  // namespace gi
