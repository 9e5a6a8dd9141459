#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/db/AcCmColor.h"
#include "host/db/AcDbEnums.h"
#include "host/db/AcDbExtents.h"
#include "host/db/AcDbObjectId.h"
#include "host/ge/ge.h"
#include "host/os/ReplaceFile.h"

class AcGiDrawable;

namespace plot {

/// Width and height of a sheet, in mm.
struct PaperSize {
  double width = 297.0, height = 210.0;
};

inline constexpr PaperSize kA0{1189.0, 841.0};
inline constexpr PaperSize kA1{841.0, 594.0};
inline constexpr PaperSize kA2{594.0, 420.0};
inline constexpr PaperSize kA3{420.0, 297.0};
inline constexpr PaperSize kA4{297.0, 210.0};
/// The sheet turned by a quarter. The sizes above lie on their long side.
constexpr PaperSize turned(PaperSize size) {
  return {size.height, size.width};
}

/// A rectangle on the sheet, in mm from its lower left corner.
struct PaperRect {
  double left = 0.0, bottom = 0.0, right = 0.0, top = 0.0;
};

/// How one layer looks in one view, where that differs from the layer itself.
struct LayerOverride {
  AcDbObjectId layer;
  bool hidden = false;
  std::optional<AcCmColor> color;
  std::optional<AcDbObjectId> linetype;
  std::optional<AcDb::LineWeight> lineWeight;
};

/// A window of the sheet through which a block is seen.
struct PlotViewport {
  AcDbObjectId block;
  /// From the block's coordinates to mm on paper; z is dropped. Never a perspective.
  AcGeMatrix3d modelToPaper;
  PaperRect clip;
  std::vector<LayerOverride> layers;
  /// Drawn after the block, in the same coordinates: what lies in no database. Not owned.
  std::vector<AcGiDrawable*> drawables;
};

/// One page: its views and, over them, a block of its own that is drawn in mm.
struct PlotSheet {
  PaperSize paper;
  std::vector<PlotViewport> viewports;
  AcDbObjectId paperBlock;
  std::vector<AcGiDrawable*> drawables;
};

enum class PlotFormat { pdf, svg, png };
enum class ColorPolicy { asDrawn, grey, black };

struct PlotOptions {
  ColorPolicy colors = ColorPolicy::asDrawn;
  double pngDpi = 150.0;
  double lineWeightScale = 1.0;
  /// On top of the drawing's own scale of line types and of each entity's.
  double linetypeScale = 1.0;
  /// UTF-8; empty ones stay out of the file.
  std::string title{};
  std::string author{};
  std::string subject{};
};

enum class PlotErrorKind { badSheet, badOptions, tooLarge, badBlock, outOfMemory, output, cannotWrite, exists };

/// Why nothing was plotted, in one sentence.
struct PlotError {
  PlotErrorKind kind = PlotErrorKind::badSheet;
  std::string text;
};

/// The finished file, or why there is none.
struct PlotOutput {
  std::string bytes;
  /// What was drawn otherwise than asked for, such as a font that another stands in for. Each is said once.
  std::vector<std::string> warnings;
  std::optional<PlotError> error;
  explicit operator bool() const { return !error.has_value(); }
};

/// The format that a file's ending names, in any case; none for another ending.
std::optional<PlotFormat> formatOf(const std::string& path);

/// Draws the sheets. A PDF has a page for each; an SVG or a PNG takes just one. The same sheets give the same bytes;
/// the date in a PDF is SOURCE_DATE_EPOCH's, or 2000-01-01 when that isn't set.
PlotOutput plotToBytes(std::span<const PlotSheet> sheets, PlotFormat format, const PlotOptions& options = {});

/// As above, into a file in one step. At any failure the file that stood there is what it was. The answer holds the
/// bytes too.
PlotOutput plotToFile(std::span<const PlotSheet> sheets, PlotFormat format, const std::string& path,
                      const PlotOptions& options = {}, const os::ReplaceOptions& replace = {});

/// The box of all that a block draws that is visible, in the block's coordinates, found by drawing it; line weights
/// don't count. Empty for a block that draws nothing or doesn't open.
AcDbExtents drawnExtents(AcDbObjectId block);
/// The same for one drawable.
AcDbExtents drawnExtents(AcGiDrawable& drawable);

}  // namespace plot
