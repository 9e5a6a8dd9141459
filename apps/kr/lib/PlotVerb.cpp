#include <algorithm>
#include <cmath>

#include "DrawingVerbs.h"
#include "Files.h"
#include "OpenWork.h"
#include "Scale.h"
#include "SheetFrame.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/io/plot/PlotSheet.h"

namespace kr {
namespace {

constexpr double kMargin = 10;     // mm on each side of the page
constexpr double kLargest = 1e15;  // beyond this a double has no room for tenths of millimetres

// The usual scale that is next below, for a drawing smaller than the page: 1, 2 or 5 times a power of ten.
double enlargement(double largest) {
  double decade = 1;
  while (decade * 10 <= largest) decade *= 10;
  for (const double step : {5.0, 2.0}) {
    if (step * decade <= largest) return step * decade;
  }
  return decade;
}

double usualScale(double width, double height, double pageWidth, double pageHeight) {
  const double fit = std::min(fittingScale(width, pageWidth), fittingScale(height, pageHeight));
  constexpr double kMostTimes = 1000;
  if (fit < 1 || (width <= 0 && height <= 0)) return fit;
  const double wide = width > 0 ? pageWidth / width : kMostTimes;
  const double high = height > 0 ? pageHeight / height : kMostTimes;
  return enlargement(std::clamp(std::min(wide, high), 1.0, kMostTimes));
}

bool isUsable(const AcDbExtents& box) {
  for (const AcGePoint3d& point : {box.minPoint(), box.maxPoint()}) {
    if (!(std::abs(point.x) < kLargest && std::abs(point.y) < kLargest)) return false;
  }
  return !box.isEmpty();
}

// Model space in the middle of a page that lies or stands as it does. False, with `why`, when it can't be.
bool layOutModel(const AcDbDatabase& database, const PlotRequest& request, plot::PlotSheet& sheet, std::string& why) {
  const AcDbExtents box = plot::drawnExtents(database.modelSpaceId());
  if (!isUsable(box)) {
    why = box.isEmpty() ? "model space draws nothing" : "model space reaches too far to be drawn";
    return false;
  }
  const double width = box.maxPoint().x - box.minPoint().x;
  const double height = box.maxPoint().y - box.minPoint().y;
  const SheetSize size = sheetSize(request.size.empty() ? "A3" : request.size);
  sheet.paper = {size.width, size.height};
  if (height > width) sheet.paper = plot::turned(sheet.paper);
  const double pageWidth = sheet.paper.width - 2 * kMargin;
  const double pageHeight = sheet.paper.height - 2 * kMargin;
  const double fits = usualScale(width, height, pageWidth, pageHeight);
  const double scale = request.scale > 0 ? request.scale : fits;
  if (width * scale > pageWidth * (1 + 1e-9) || height * scale > pageHeight * (1 + 1e-9)) {
    why = "model space doesn't fit the page at " + scaleText(scale) + ": the largest scale that does is " +
          scaleText(fits);
    return false;
  }
  const AcGeVector3d place((sheet.paper.width - (box.minPoint().x + box.maxPoint().x) * scale) / 2,
                           (sheet.paper.height - (box.minPoint().y + box.maxPoint().y) * scale) / 2, 0);
  plot::PlotViewport& view = sheet.viewports.emplace_back();
  view.block = database.modelSpaceId();
  view.modelToPaper = AcGeMatrix3d::translation(place) * AcGeMatrix3d::scaling(scale, AcGePoint3d::kOrigin);
  view.clip = {kMargin / 2, kMargin / 2, sheet.paper.width - kMargin / 2, sheet.paper.height - kMargin / 2};
  return true;
}

void tellUndrawn(const OpenWork& open, Report& report) {
  const ClassCounts undrawn = open.job ? ClassCounts() : withoutPicture(*open.session->database());
  if (undrawn.empty()) return;
  const std::size_t count = sumOf(undrawn);
  report.warning(open.name + ": " + std::to_string(count) + (count == 1 ? " entity" : " entities") +
                 " can't be drawn, since the file has no picture of " + (count == 1 ? "it" : "them") + ": " +
                 textOf(undrawn));
}

}  // namespace

void plotModel(const PlotRequest& request, Report& report) {
  const auto format = plot::formatOf(request.format.empty() ? request.output : "." + request.format);
  if (!format) {
    report.error(Exit::kArguments, inQuotes(request.output) + " ends in none of .pdf, .svg and .png: give --format");
    return;
  }
  if (!checkOutput(request.output, request.drawing, request.overwrite, report)) return;
  const auto open = openWork(request.drawing, request.data, request.catalogue, report);
  if (open == nullptr) return;
  tellUndrawn(*open, report);
  plot::PlotSheet sheet;
  std::string why;
  if (!layOutModel(*open->session->database(), request, sheet, why)) {
    report.error(Exit::kBadInput, inQuotes(request.drawing) + ": " + why);
    return;
  }
  plot::PlotOptions options;
  options.pngDpi = request.resolution;
  if (open->job) options.title = open->job->title.title;
  const plot::PlotOutput output = plot::plotToBytes({&sheet, 1}, *format, options);
  if (output.error) {
    report.error(Exit::kJobFailed, output.error->text);
    return;
  }
  for (const std::string& warning : output.warnings) report.note(warning);
  writeOutput(request.output, output.bytes, request.overwrite, report);
}

}  // namespace kr
