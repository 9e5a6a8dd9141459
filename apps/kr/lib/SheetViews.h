#pragma once

#include <string>
#include <vector>

#include "BarViews.h"
#include "Job.h"
#include "Painter.h"
#include "SheetElevation.h"
#include "SheetFrame.h"
#include "host/io/plot/PlotSheet.h"

namespace kr {

struct DrawnJob;

/// The views of a sheet: each a projection of the job with its title, marks and dimensions, or the views of one bar, in
/// rows from the left to the right and down. Each lies in a block of its own, at real size.
class ViewSet {
 public:
  /// Draws what the views show. False with `why` when one shows nothing, or the database refuses.
  bool make(const DrawnJob& drawn, const JobSheet& sheet, const std::vector<JobView>& views, int number,
            std::string& why);

  /// Finds a place for each view in so much paper: at its own scale or the sheet's, else all at the largest standard
  /// one that fits. False with `why` when there's none.
  bool arrange(const JobSheet& sheet, double width, double height, std::string& why);

  /// The scale of every view, or 0 when they differ.
  double scale() const;
  double height() const;

  /// Draws the views down from `top`, with `gap` between the rows and as much as there is between those of a row; gives
  /// the windows through which the members are seen.
  void draw(Painter& painter, const DrawnJob& drawn, const Area& area, double top, double gap,
            std::vector<plot::PlotViewport>& windows) const;

  std::size_t rows() const { return rows_.size(); }

 private:
  struct Shown {
    JobView view;
    Job flat;
    AcDbObjectId block;
    JobPoint low;
    JobPoint high;
    double scale = 0;
    std::vector<BarViewLabel> labels{};

    double before() const;  // room on paper to the left of the picture
    double after() const;
    double above() const;
    double below() const;
    double width() const { return before() + (high.x - low.x) * scale + after(); }
  };
  struct Row {
    std::size_t first;
    std::size_t end;
    double above;
    double middle;  // the highest picture
    double below;
    double width;

    double height() const { return above + middle + below; }
  };

  void fillRows(double width);
  double widest() const;
  void drawOne(Painter& painter, const DrawnJob& drawn, const Shown& shown, JobPoint corner,
               std::vector<plot::PlotViewport>& windows) const;

  std::vector<Shown> views_;
  std::vector<Row> rows_;
};

}  // namespace kr
