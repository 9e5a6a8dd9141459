#pragma once

#include <string>
#include <vector>

#include "host/gi/WorldDrawBase.h"

namespace gi {

/// What was drawn.
enum class CallKind { polyline, polygon, circle, arc, text, pushTransform, popTransform, beginPart, endPart, extents };

/// One drawing call as a plain value, with the traits at that moment. Points are as the drawable gave them.
struct DrawCall {
  CallKind kind = CallKind::polyline;
  /// Vertices; the centre of a circle; start, middle and end of an arc; the place of a text; the corners of extents.
  std::vector<AcGePoint3d> points;
  AcGePoint3d center;      ///< Of circles and arcs.
  double radius = 0.0;     ///< Of circles and arcs.
  double sweep = 0.0;      ///< Of arcs, radians about the normal.
  AcGeVector3d normal;     ///< Of circles, arcs and texts.
  AcGeVector3d direction;  ///< Of texts.
  AcGiArcType arcType = kAcGiArcSimple;
  std::wstring text;
  AcGiTextStyle style;
  bool raw = false;
  AcGeMatrix3d matrix;  ///< The transform pushed; for any other call the model to world transform in force.
  TraitValues traits;
};

/// A sink that keeps every call, for tests and for what is drawn elsewhere later.
class Recorder final : public WorldDrawBase {
 public:
  using WorldDrawBase::WorldDrawBase;

  std::vector<DrawCall> calls;

  /// Only the calls that draw a figure.
  std::vector<DrawCall> figures() const;

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) override;
  void onArc(const ArcCall& arc) override;
  void onFlatArc(const AcGePoint3d* points, AcGiArcType type) override;
  void onText(const TextCall& text) override;
  void onExtents(const AcGePoint3d& a, const AcGePoint3d& b) override;
  void onBeginPart() override;
  void onEndPart() override;
  void onPushTransform(const AcGeMatrix3d& matrix) override;
  void onPopTransform() override;

 private:
  DrawCall& add(CallKind kind);
};

/// One line of text a call: "circle (10 0 0) r 5 n (0 0 1) | color 256 marker 3 fill". What has its default stays
/// unsaid; a layer is told by its handle. Numbers have at most six decimals.
std::string toText(const DrawCall& call);
std::string toText(const std::vector<DrawCall>& calls);

}  // namespace gi
