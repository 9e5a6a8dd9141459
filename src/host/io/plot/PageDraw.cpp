#include "host/io/plot/PageDraw.h"

#include <algorithm>
#include <cmath>

#include "host/gi/StyleFont.h"
#include "host/io/plot/BlockWalk.h"
#include "host/io/plot/Clipping.h"
#include "host/os/Text.h"

namespace plot {
namespace {

PaperPoint paper(const AcGePoint3d& p) {
  return {p.x, p.y};
}

PaperPoint paper(const AcGeVector3d& v) {
  return {v.x, v.y};
}

}  // namespace

void Warnings::add(const std::string& text) {
  if (std::find(texts_.begin(), texts_.end(), text) == texts_.end()) texts_.push_back(text);
}

PageDraw::PageDraw(Canvas& canvas, DrawingStyles& styles, const PlotOptions& options, const View& view,
                   Warnings& warnings)
    : canvas_(canvas), styles_(styles), options_(options), view_(view), warnings_(warnings), blocks_{plainLook()} {
  setPlotGeneration(true);
}

const Look& PageDraw::look() {
  // Elements differ in their marker at least: it has no part in how they look.
  lookTraits_.marker = traits().marker;
  if (hasLook_ && lookTraits_ == traits()) return look_;
  lookTraits_ = traits();
  look_ = resolve(traits(), blocks_.back(), blocks_.size() > 1, styles_);
  hasLook_ = true;
  return look_;
}

void PageDraw::onBeginPart() {
  blocks_.push_back(Look(look()));
  hasLook_ = false;
}

void PageDraw::onEndPart() {
  blocks_.pop_back();
  hasLook_ = false;
}

void PageDraw::onNothingDrawn(AcGiDrawable& drawable) {
  drawFilePicture(*this, drawable);
}

void PageDraw::onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) {
  if (!look().visible) return;
  const AcGeMatrix3d matrix = toPaper();
  path_.clear();
  path_.moveTo(paper(matrix * vertices[0]));
  for (std::size_t i = 1; i < count; ++i) path_.lineTo(paper(matrix * vertices[i]));
  if (count == 1) path_.lineTo(path_.points().front());
  if (closed) path_.close();
  const PaperPoint first = path_.points().front();
  const PaperPoint last = path_.points().back();
  const bool meets = closed || (count > 2 && first.x == last.x && first.y == last.y);
  draw(meets, closed && traits().fill == kAcGiFillAlways && count > 2);
}

void PageDraw::onArc(const gi::ArcCall& arc) {
  if (!look().visible) return;
  const AcGeMatrix3d matrix = toPaper();
  const PaperPoint center = paper(matrix * arc.center);
  path_.clear();
  path_.arc(center, paper(matrix * arc.u), paper(matrix * arc.v), 0.0, arc.sweep, false);
  const bool closed = arc.isCircle || arc.type != kAcGiArcSimple;
  if (!arc.isCircle && arc.type == kAcGiArcSector) path_.lineTo(center);
  if (closed) path_.close();
  draw(closed, closed && traits().fill == kAcGiFillAlways);
}

void PageDraw::draw(bool closed, bool filled) {
  if (!path_.isFinite()) {
    warnings_.add("figures with coordinates that are no numbers were left out");
    return;
  }
  PaperPoint least;
  PaperPoint greatest;
  path_.box(least, greatest);
  const double reach = penWidth() + 1.0;
  const PaperRect& clip = view_.clip;
  if (greatest.x < clip.left - reach || least.x > clip.right + reach || greatest.y < clip.bottom - reach ||
      least.y > clip.top + reach) {
    return;
  }
  const bool far = std::max({-least.x, -least.y, greatest.x, greatest.y}) > kFar;
  const PaperRect room{clip.left - kMargin, clip.bottom - kMargin, clip.right + kMargin, clip.top + kMargin};
  if (filled) canvas_.fill(far ? clipArea(path_, room) : path_, paperColor(look().color, options_.colors));
  if (far) {
    strokePath(clipLines(path_, room), false, filled);
  } else {
    strokePath(path_, closed, filled);
  }
}

void PageDraw::strokePath(const Path& path, bool closed, bool continuous) {
  if (path.empty()) return;
  const Look& now = look();
  const Pen pen{paperColor(now.color, options_.colors), penWidth()};
  if (now.pattern == nullptr || continuous) {
    canvas_.stroke(path, pen);
    return;
  }
  DashPattern pattern = *now.pattern;
  for (double& item : pattern) item *= now.linetypeScale * view_.linetypeScale;
  const double length = path.length();
  canvas_.stroke(path, pen,
                 closed ? layOutClosedDashes(pattern, length, pen.width) : layOutDashes(pattern, length, pen.width));
}

void PageDraw::onText(const gi::TextCall& text) {
  if (!look().visible) return;
  const gi::StyleFont found = gi::fontOf(text.style);
  if (found.font == nullptr) {
    warnings_.add("texts were left out: neither " + std::string(gi::Font::kStandardFamily) + " nor " +
                  std::string(gi::Font::kFallbackFamily) + " is installed");
    return;
  }
  if (found.substituted) warnings_.add("text is set in " + found.font->family() + ": its own font isn't installed");
  const AcGiTextStyle& style = text.style;
  const double wide = style.textSize() * style.xScale();
  const double slope = std::tan(style.obliquingAngle());
  const AcGeMatrix3d matrix = toPaper();
  const AcGeVector3d along = text.direction * (style.isBackward() ? -wide : wide);
  const AcGeVector3d up = (text.up + text.direction * (style.isBackward() ? -slope : slope)) *
                          (style.isUpsideDown() ? -style.textSize() : style.textSize());
  const PlacedText place{paper(matrix * text.position), paper(matrix * along), paper(matrix * up)};
  Path reach;
  reach.moveTo(place.origin);
  reach.lineTo({place.origin.x + place.along.x, place.origin.y + place.up.y});
  if (!reach.isFinite() || std::max(std::fabs(place.origin.x), std::fabs(place.origin.y)) > kFar) return;
  const gi::TextLayout layout = gi::layOutText(text.text, text.raw, *found.font, 0.0);
  if (layout.missing != 0) {
    warnings_.add("no font has the character \"" + os::toUtf8(std::wstring_view(&layout.missing, 1)) + "\"");
  }
  canvas_.text(layout, place, paperColor(look().color, options_.colors));
  drawRules(layout, place);
}

void PageDraw::drawRules(const gi::TextLayout& layout, const PlacedText& place) {
  const auto at = [&place](double x, double y) {
    return PaperPoint{place.origin.x + place.along.x * x + place.up.x * y,
                      place.origin.y + place.along.y * x + place.up.y * y};
  };
  // A tenth of the capital height: the stroke of the standard lettering.
  const Pen pen{paperColor(look().color, options_.colors), std::hypot(place.up.x, place.up.y) / 10.0};
  for (const gi::TextRule& rule : layout.rules) {
    Path line;
    line.moveTo(at(rule.fromX, rule.y));
    line.lineTo(at(rule.toX, rule.y));
    canvas_.stroke(line, pen);
  }
}

}  // namespace plot
