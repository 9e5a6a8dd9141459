#pragma once

#include <memory>
#include <optional>
#include <string>

#include "host/io/plot/PlotSheet.h"

struct _cairo;
struct _cairo_surface;

namespace plot {

/// A file of pages in memory, in one of the formats, on which pages are drawn one after the other.
class PageFile {
 public:
  PageFile(PlotFormat format, PaperSize firstPage, const PlotOptions& options);
  PageFile(const PageFile&) = delete;
  PageFile& operator=(const PageFile&) = delete;
  ~PageFile();

  /// Begins the next page; the first one too. The context is good until the next call.
  _cairo* beginPage(PaperSize size);
  double unitsPerMm() const { return unitsPerMm_; }
  /// Ends the last page and the file.
  std::optional<PlotError> finish(std::string& bytes);

 private:
  void open(PaperSize size);
  void describe();
  void endPage();

  PlotFormat format_;
  const PlotOptions& options_;
  double unitsPerMm_ = 1.0;
  PaperSize svgSize_;
  int pages_ = 0;
  std::string bytes_;
  _cairo_surface* surface_ = nullptr;
  _cairo* context_ = nullptr;
  std::optional<PlotError> error_;
};

}  // namespace plot
