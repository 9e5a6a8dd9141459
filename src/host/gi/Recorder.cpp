#include "host/gi/Recorder.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "host/os/Text.h"

namespace gi {
namespace {

const char* nameOf(CallKind kind) {
  static constexpr const char* kNames[] = {"polyline", "polygon", "circle",    "arc",     "text",
                                           "push",     "pop",     "beginPart", "endPart", "extents"};
  return kNames[static_cast<int>(kind)];
}

bool isFigure(const DrawCall& call) {
  return call.kind <= CallKind::text;
}

/// Shortest form with at most six decimals, and no minus before a zero.
std::string number(double value) {
  std::string text = fmt::format("{:.6f}", value);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

template <class Triple>
std::string triple(const Triple& t) {
  return "(" + number(t.x) + " " + number(t.y) + " " + number(t.z) + ")";
}

std::string shapeText(const DrawCall& call) {
  std::string text = nameOf(call.kind);
  for (const AcGePoint3d& p : call.points) text += " " + triple(p);
  if (call.kind == CallKind::circle || call.kind == CallKind::arc) {
    text += " r " + number(call.radius) + " n " + triple(call.normal);
  }
  if (call.kind == CallKind::arc && call.arcType == kAcGiArcSector) text += " sector";
  if (call.kind == CallKind::arc && call.arcType == kAcGiArcChord) text += " chord";
  if (call.kind == CallKind::text) {
    text += " \"" + os::toUtf8(call.text) + "\" h " + number(call.style.textSize()) + " d " + triple(call.direction);
  }
  if (call.kind == CallKind::pushTransform) {
    for (unsigned int r = 0; r < 3; ++r) {
      for (unsigned int c = 0; c < 4; ++c) text += " " + number(call.matrix(r, c));
    }
  }
  return text;
}

std::string traitsText(const TraitValues& traits) {
  std::string text;
  if (traits.color.isByColor()) {
    text += fmt::format(" rgb {} {} {}", traits.color.red(), traits.color.green(), traits.color.blue());
  } else if (!traits.color.isByLayer()) {
    text += fmt::format(" color {}", traits.color.colorIndex());
  }
  if (!traits.layer.isNull()) text += fmt::format(" layer {:X}", traits.layer.handle().value());
  if (!traits.linetype.isNull()) {
    text += fmt::format(" linetype {:X}", traits.linetype.handle().value());
  }
  if (traits.marker != 0) text += fmt::format(" marker {}", traits.marker);
  if (traits.lineWeight != AcDb::kLnWtByLayer) text += fmt::format(" weight {}", static_cast<int>(traits.lineWeight));
  if (traits.fill == kAcGiFillAlways) text += " fill";
  return text.empty() ? text : " |" + text;
}

}  // namespace

DrawCall& Recorder::add(CallKind kind) {
  DrawCall& call = calls.emplace_back();
  call.kind = kind;
  call.traits = traits();
  call.matrix = modelToWorld();
  return call;
}

std::vector<DrawCall> Recorder::figures() const {
  std::vector<DrawCall> result;
  std::copy_if(calls.begin(), calls.end(), std::back_inserter(result), isFigure);
  return result;
}

void Recorder::onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) {
  add(closed ? CallKind::polygon : CallKind::polyline).points.assign(vertices, vertices + count);
}

void Recorder::onArc(const ArcCall& arc) {
  DrawCall& call = add(arc.isCircle ? CallKind::circle : CallKind::arc);
  const auto at = [&arc](double angle) { return arc.center + arc.u * std::cos(angle) + arc.v * std::sin(angle); };
  if (arc.isCircle) {
    call.points = {arc.center};
  } else if (arc.byPoints) {
    call.points.assign(std::begin(arc.given), std::end(arc.given));
  } else {
    call.points = {at(0.0), at(arc.sweep / 2.0), at(arc.sweep)};
  }
  call.center = arc.center;
  call.radius = arc.u.length();
  call.sweep = arc.sweep;
  const AcGeVector3d normal = arc.u.crossProduct(arc.v);
  const double size = normal.length();
  call.normal = size > 0.0 ? normal / size : AcGeVector3d::kZAxis;
  call.arcType = arc.type;
}

void Recorder::onFlatArc(const AcGePoint3d* points, AcGiArcType type) {
  DrawCall& call = add(CallKind::arc);
  call.points.assign(points, points + 3);
  call.arcType = type;
}

void Recorder::onText(const TextCall& text) {
  DrawCall& call = add(CallKind::text);
  call.points = {text.position};
  call.direction = text.direction;
  call.normal = text.direction.crossProduct(text.up);
  call.text = text.text;
  call.style = text.style;
  call.raw = text.raw;
}

void Recorder::onExtents(const AcGePoint3d& a, const AcGePoint3d& b) {
  add(CallKind::extents).points = {a, b};
}

void Recorder::onBeginPart() {
  add(CallKind::beginPart);
}

void Recorder::onEndPart() {
  add(CallKind::endPart);
}

void Recorder::onPushTransform(const AcGeMatrix3d& matrix) {
  add(CallKind::pushTransform).matrix = matrix;
}

void Recorder::onPopTransform() {
  add(CallKind::popTransform);
}

std::string toText(const DrawCall& call) {
  return shapeText(call) + traitsText(call.traits);
}

std::string toText(const std::vector<DrawCall>& calls) {
  std::string text;
  for (const DrawCall& call : calls) text += toText(call) + "\n";
  return text;
}

}  // namespace gi
