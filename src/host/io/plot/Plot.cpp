#include <fmt/format.h>

#include <cmath>
#include <new>

#include "host/db/db.h"
#include "host/io/plot/BlockWalk.h"
#include "host/io/plot/PageDraw.h"
#include "host/io/plot/PageFile.h"
#include "host/io/plot/PlotSheet.h"

namespace plot {
namespace {

/// The largest page that PDF readers take: 200 inches.
constexpr double kLargestSide = 5080.0;
/// The widest picture that the page library draws, and the most dots one may have (four bytes each).
constexpr double kMostDotsAside = 32767.0;
constexpr double kMostDots = 4.0e8;
constexpr double kLeastDpi = 10.0;
constexpr double kMostDpi = 2400.0;

PlotOutput failure(PlotErrorKind kind, std::string text) {
  PlotOutput output;
  output.error = PlotError{kind, std::move(text)};
  return output;
}

bool isScale(double value) {
  return std::isfinite(value) && value > 0.0;
}

bool isFinite(const AcGeMatrix3d& matrix) {
  for (unsigned int r = 0; r < 4; ++r) {
    for (unsigned int c = 0; c < 4; ++c) {
      if (!std::isfinite(matrix(r, c))) return false;
    }
  }
  return true;
}

bool isRect(const PaperRect& rect) {
  return std::isfinite(rect.left) && std::isfinite(rect.right) && std::isfinite(rect.bottom) &&
         std::isfinite(rect.top) && rect.left < rect.right && rect.bottom < rect.top;
}

std::optional<PlotError> checkSheet(const PlotSheet& sheet) {
  const auto [width, height] = sheet.paper;
  if (!isScale(width) || !isScale(height) || width > kLargestSide || height > kLargestSide) {
    return PlotError{PlotErrorKind::badSheet,
                     fmt::format("a sheet of {} x {} mm can't be plotted: each side must be above 0 and at most {} mm",
                                 width, height, kLargestSide)};
  }
  for (const PlotViewport& viewport : sheet.viewports) {
    if (!isRect(viewport.clip)) {
      return PlotError{PlotErrorKind::badSheet, "a viewport's rectangle is empty or holds what is no number"};
    }
    if (!isFinite(viewport.modelToPaper)) {
      return PlotError{PlotErrorKind::badSheet, "a viewport's matrix holds what is no number"};
    }
  }
  return std::nullopt;
}

std::optional<PlotError> checkOptions(const PlotOptions& options) {
  if (!isScale(options.lineWeightScale) || !isScale(options.linetypeScale)) {
    return PlotError{PlotErrorKind::badOptions, "the scales of line weights and line types must be above 0"};
  }
  if (!(options.pngDpi >= kLeastDpi && options.pngDpi <= kMostDpi)) {
    return PlotError{PlotErrorKind::badOptions,
                     fmt::format("{} dots an inch: it must be {} to {}", options.pngDpi, kLeastDpi, kMostDpi)};
  }
  return std::nullopt;
}

std::optional<PlotError> checkPicture(PaperSize paper, double dpi) {
  const double wide = std::round(paper.width * dpi / 25.4);
  const double high = std::round(paper.height * dpi / 25.4);
  if (wide >= 1.0 && high >= 1.0 && wide <= kMostDotsAside && high <= kMostDotsAside && wide * high <= kMostDots) {
    return std::nullopt;
  }
  return PlotError{PlotErrorKind::tooLarge, fmt::format("a picture of {} x {} dots can't be made", wide, high)};
}

std::optional<PlotError> check(std::span<const PlotSheet> sheets, PlotFormat format, const PlotOptions& options) {
  if (sheets.empty()) return PlotError{PlotErrorKind::badSheet, "there is no sheet to plot"};
  if (format != PlotFormat::pdf && sheets.size() > 1) {
    return PlotError{PlotErrorKind::badSheet,
                     "an SVG or a PNG holds one sheet: plot each to a file of its own, or a PDF"};
  }
  if (auto error = checkOptions(options)) return error;
  for (const PlotSheet& sheet : sheets) {
    if (auto error = checkSheet(sheet)) return error;
  }
  return format == PlotFormat::png ? checkPicture(sheets.front().paper, options.pngDpi) : std::nullopt;
}

/// Draws the sheets of one plot, page by page.
class Plotter {
 public:
  Plotter(PageFile& file, const PlotOptions& options) : file_(file), options_(options) {}

  std::optional<PlotError> drawSheet(const PlotSheet& sheet) {
    Canvas canvas(file_.beginPage(sheet.paper), sheet.paper, file_.unitsPerMm());
    for (const PlotViewport& viewport : sheet.viewports) {
      DrawingStyles styles(viewport.layers);
      canvas.setClip(viewport.clip);
      if (auto error = drawView(canvas, styles, {viewport.modelToPaper, viewport.clip, 1.0}, viewport.block,
                                viewport.drawables)) {
        return error;
      }
      canvas.clearClip();
    }
    DrawingStyles styles;
    const PaperRect whole{0.0, 0.0, sheet.paper.width, sheet.paper.height};
    return drawView(canvas, styles, {AcGeMatrix3d(), whole, 1.0}, sheet.paperBlock, sheet.drawables);
  }

  std::vector<std::string> takeWarnings() { return warnings_.take(); }

 private:
  std::optional<PlotError> drawView(Canvas& canvas, DrawingStyles& styles, PageDraw::View view, AcDbObjectId block,
                                    const std::vector<AcGiDrawable*>& drawables) {
    const AcDbDatabase* database = block.database();
    view.linetypeScale = options_.linetypeScale * (database != nullptr ? database->ltscale() : 1.0);
    PageDraw draw(canvas, styles, options_, view, warnings_);
    if (!block.isNull()) {
      const BlockWalk walk = drawBlock(draw, block, styles);
      if (walk.status != Acad::eOk) {
        return PlotError{PlotErrorKind::badBlock,
                         fmt::format("a block to plot doesn't open (status {})", static_cast<int>(walk.status))};
      }
      if (walk.unreadable > 0) {
        warnings_.add(fmt::format("{} {} open for write and left out", walk.unreadable,
                                  walk.unreadable == 1 ? "entity is" : "entities are"));
      }
    }
    for (AcGiDrawable* drawable : drawables) {
      if (drawable != nullptr) draw.drawWhole(*drawable);
    }
    if (draw.regenAbort() != Adesk::kFalse) {
      warnings_.add("blocks within blocks tell of more figures than are drawn: the drawing is incomplete");
    }
    canvas.flush();
    return std::nullopt;
  }

  PageFile& file_;
  const PlotOptions& options_;
  Warnings warnings_;
};

PlotErrorKind kindOf(os::ReplaceErrorKind kind) {
  return kind == os::ReplaceErrorKind::exists ? PlotErrorKind::exists : PlotErrorKind::cannotWrite;
}

}  // namespace

std::optional<PlotFormat> formatOf(const std::string& path) {
  const std::size_t dot = path.find_last_of('.');
  if (dot == std::string::npos) return std::nullopt;
  std::string ending = path.substr(dot + 1);
  for (char& c : ending) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  if (ending == "pdf") return PlotFormat::pdf;
  if (ending == "svg") return PlotFormat::svg;
  if (ending == "png") return PlotFormat::png;
  return std::nullopt;
}

PlotOutput plotToBytes(std::span<const PlotSheet> sheets, PlotFormat format, const PlotOptions& options) {
  PlotOutput output;
  output.error = check(sheets, format, options);
  if (output.error) return output;
  try {
    PageFile file(format, sheets.front().paper, options);
    Plotter plotter(file, options);
    for (const PlotSheet& sheet : sheets) {
      if ((output.error = plotter.drawSheet(sheet))) return output;
    }
    output.error = file.finish(output.bytes);
    output.warnings = plotter.takeWarnings();
    return output;
  } catch (const std::bad_alloc&) {
    return failure(PlotErrorKind::outOfMemory, "there is not enough memory for the page");
  }
}

PlotOutput plotToFile(std::span<const PlotSheet> sheets, PlotFormat format, const std::string& path,
                      const PlotOptions& options, const os::ReplaceOptions& replace) {
  PlotOutput output = plotToBytes(sheets, format, options);
  if (!output) return output;
  const os::ReplaceResult result = os::replaceFile(path, output.bytes, replace);
  if (!result) output.error = PlotError{kindOf(result.kind), result.message};
  return output;
}

}  // namespace plot
