#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/gi/TextLayout.h"
#include "host/io/plot/AciColor.h"
#include "host/io/plot/DashLayout.h"
#include "host/io/plot/Path.h"
#include "host/io/plot/PlotSheet.h"

struct _cairo;

namespace plot {

/// How a line is drawn, in mm.
struct Pen {
  Rgb color;
  double width = 0.25;
  bool operator==(const Pen&) const = default;
};

/// A text in its place on paper: the vectors are those of one capital height along the line of writing and upwards.
struct PlacedText {
  PaperPoint origin;
  PaperPoint along;
  PaperPoint up;
};

/// One page being drawn. Coordinates are in mm from the page's lower left corner. Lines of one pen that follow one
/// another go to the page together.
class Canvas {
 public:
  /// `context` is borrowed; `unitsPerMm` are its units.
  Canvas(_cairo* context, PaperSize paper, double unitsPerMm);
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas();

  void setClip(const PaperRect& clip);
  void clearClip();
  void stroke(const Path& path, const Pen& pen, const DashLayout& dashes = {});
  void fill(const Path& path, Rgb color);
  /// The glyphs only: rules over and under a text are lines. A text squeezed to nothing is passed over.
  void text(const gi::TextLayout& layout, const PlacedText& place, Rgb color);
  /// Brings everything to the page.
  void flush();

 private:
  /// So many lines go together at most: one stroke of very many takes more than their sum.
  static constexpr std::size_t kBatch = 128;

  void add(const Path& path);
  double x(double mm) const { return mm * unitsPerMm_; }
  double y(double mm) const { return (paper_.height - mm) * unitsPerMm_; }
  void setColor(Rgb color);

  _cairo* context_;
  PaperSize paper_;
  double unitsPerMm_;
  bool clipped_ = false;
  std::size_t pending_ = 0;
  Pen pen_;
};

}  // namespace plot
