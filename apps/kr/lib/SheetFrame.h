#pragma once

#include <string>

#include "Job.h"
#include "Painter.h"

namespace kr {

/// A rectangle on paper, mm from the sheet's lower left corner.
struct Area {
  double left = 0;
  double bottom = 0;
  double right = 0;
  double top = 0;

  double width() const { return right - left; }
  double height() const { return top - bottom; }
};

/// Width and height of a sheet of the A series lying on its long side, mm.
struct SheetSize {
  double width;
  double height;
};
SheetSize sheetSize(const std::string& name);

/// The title block's width (ISO 7200), which is that of the column that it stands in, mm.
inline constexpr double kTitleWidth = 180;

/// What the title block shows beside the job's own texts.
struct SheetFacts {
  std::string size;
  std::string scale;
  int number = 1;
  int count = 1;
};

/// The sheet's title with the job's for all that it leaves empty, and a date: the title's, else that of
/// SOURCE_DATE_EPOCH, else none.
JobTitle sheetTitle(const JobTitle& job, const JobTitle& sheet);

/// Draws the border (ISO 5457): frame, grid references, centring marks. Gives the space inside the frame.
Area drawFrame(Painter& painter, SheetSize size);

/// What a view's title takes above it, mm.
inline constexpr double kViewTitleRoom = 14;

/// Draws a view's title with its scale about `centre`, on a base line.
void drawViewTitle(Painter& painter, double centre, double base, const std::string& name, double scale);

/// Draws the title block into the lower right corner of `inside` and gives the space that it takes.
Area drawTitleBlock(Painter& painter, const Area& inside, const JobTitle& title, const SheetFacts& facts);

}  // namespace kr
