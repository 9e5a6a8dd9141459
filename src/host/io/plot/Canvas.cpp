#include "host/io/plot/Canvas.h"

#include <cairo-ft.h>
#include <cairo.h>

#include <cmath>
#include <map>

#include "host/os/Text.h"

namespace plot {
namespace {

/// Faces stay with the page library as long as the program runs, as the fonts do.
cairo_font_face_t* faceOf(const gi::Font& font) {
  static auto& faces = *new std::map<const gi::Font*, cairo_font_face_t*>();
  const auto [place, isNew] = faces.try_emplace(&font, nullptr);
  if (isNew) place->second = cairo_ft_font_face_create_for_ft_face(font.face(), 0);
  return place->second;
}

/// Measures without rounding to the device's dots, so that text is as wide everywhere as it was measured.
cairo_font_options_t* exactMetrics() {
  static cairo_font_options_t* options = [] {
    cairo_font_options_t* made = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(made, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(made, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_antialias(made, CAIRO_ANTIALIAS_GRAY);
    return made;
  }();
  return options;
}

}  // namespace

Canvas::Canvas(cairo_t* context, PaperSize paper, double unitsPerMm)
    : context_(context), paper_(paper), unitsPerMm_(unitsPerMm) {
  cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
  cairo_set_font_options(context_, exactMetrics());
}

Canvas::~Canvas() {
  flush();
  clearClip();
}

void Canvas::setClip(const PaperRect& clip) {
  clearClip();
  cairo_save(context_);
  cairo_rectangle(context_, x(clip.left), y(clip.top), x(clip.right) - x(clip.left), y(clip.bottom) - y(clip.top));
  cairo_clip(context_);
  clipped_ = true;
}

void Canvas::clearClip() {
  flush();
  if (clipped_) cairo_restore(context_);
  clipped_ = false;
}

void Canvas::setColor(Rgb color) {
  cairo_set_source_rgb(context_, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
}

void Canvas::add(const Path& path) {
  const PaperPoint* p = path.points().data();
  for (const Path::Step step : path.steps()) {
    switch (step) {
      case Path::Step::move:
        cairo_move_to(context_, x(p->x), y(p->y));
        p += 1;
        break;
      case Path::Step::line:
        cairo_line_to(context_, x(p->x), y(p->y));
        p += 1;
        break;
      case Path::Step::curve:
        cairo_curve_to(context_, x(p[0].x), y(p[0].y), x(p[1].x), y(p[1].y), x(p[2].x), y(p[2].y));
        p += 3;
        break;
      case Path::Step::close:
        cairo_close_path(context_);
        break;
    }
  }
}

void Canvas::stroke(const Path& path, const Pen& pen, const DashLayout& dashes) {
  const bool dashed = !dashes.onOff.empty();
  if (pending_ > 0 && (dashed || !(pen == pen_) || pending_ >= kBatch)) flush();
  pen_ = pen;
  add(path);
  ++pending_;
  if (!dashed) return;
  std::vector<double> lengths(dashes.onOff);
  for (double& length : lengths) length *= unitsPerMm_;
  cairo_set_dash(context_, lengths.data(), static_cast<int>(lengths.size()), dashes.offset * unitsPerMm_);
  // Round ends would eat into the gaps and make dots of what is drawn as short dashes.
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_BUTT);
  flush();
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
  cairo_set_dash(context_, nullptr, 0, 0.0);
}

void Canvas::flush() {
  if (pending_ == 0) return;
  setColor(pen_.color);
  cairo_set_line_width(context_, pen_.width * unitsPerMm_);
  cairo_stroke(context_);
  pending_ = 0;
}

void Canvas::fill(const Path& path, Rgb color) {
  flush();
  add(path);
  setColor(color);
  cairo_fill(context_);
}

void Canvas::text(const gi::TextLayout& layout, const PlacedText& place, Rgb color) {
  flush();
  // Below this a letter is smaller than any dot, and its font's matrix can't be inverted.
  constexpr double kLeastArea = 1e-6;
  const double area = place.along.x * place.up.y - place.along.y * place.up.x;
  if (!(std::fabs(area) > kLeastArea) || !std::isfinite(area)) return;
  setColor(color);
  std::size_t i = 0;
  while (i < layout.glyphs.size()) {
    const gi::Font* font = layout.glyphs[i].font;
    const double em = layout.glyphs[i].em * unitsPerMm_;
    std::vector<cairo_glyph_t> glyphs;
    std::vector<cairo_text_cluster_t> clusters;
    std::string utf8;
    for (; i < layout.glyphs.size() && layout.glyphs[i].font == font; ++i) {
      const gi::PlacedGlyph& glyph = layout.glyphs[i];
      glyphs.push_back(
          {glyph.index, x(place.origin.x + place.along.x * glyph.x), y(place.origin.y + place.along.y * glyph.x)});
      const std::string character = os::toUtf8(std::wstring_view(&glyph.character, 1));
      clusters.push_back({static_cast<int>(character.size()), 1});
      utf8 += character;
    }
    // A font's own frame has y down, as the page's has.
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, place.along.x * em, -place.along.y * em, -place.up.x * em, place.up.y * em, 0.0, 0.0);
    cairo_set_font_face(context_, faceOf(*font));
    cairo_set_font_matrix(context_, &matrix);
    cairo_show_text_glyphs(context_, utf8.data(), static_cast<int>(utf8.size()), glyphs.data(),
                           static_cast<int>(glyphs.size()), clusters.data(), static_cast<int>(clusters.size()),
                           static_cast<cairo_text_cluster_flags_t>(0));
  }
}

}  // namespace plot
