#pragma once

#include <string>
#include <vector>

#include "Job.h"
#include "Painter.h"
#include "SheetFrame.h"
#include "host/io/plot/PlotSheet.h"

namespace kr {

struct DrawnJob;

/// The row of a job's distinct sections: each a member in the section view, with its marks, designation and dimensions
/// below. The members lie in a block of their own, at real size.
class SectionRow {
 public:
  /// Makes the members of the profiles that the job uses. A scale of 0 chooses the largest standard one that fits
  /// `width`.
  SectionRow(Painter& painter, const DrawnJob& drawn, double scale, double width, int number);

  double width() const;
  double height() const;

  /// Draws the row in the middle of `area`, down from `top`; gives the window through which the members are seen.
  plot::PlotViewport draw(const Area& area, double top);

 private:
  struct Section {
    std::uint32_t profile;
    double depth;  // real, mm
    double place;  // of its centre in the block, real, mm
    std::string marks;
    std::string label;
    std::string sizes;
  };

  void choose(double scale, double width);
  void describe(const DrawnJob& drawn);
  double cell(const Section& section) const;
  double deepest() const;

  Painter& painter_;
  AcDbObjectId block_;
  std::vector<Section> sections_;
  double scale_ = 1;
};

}  // namespace kr
