#include "SheetViews.h"

#include <algorithm>

#include "Drawing.h"
#include "Projection.h"
#include "Scale.h"
#include "Sheet.h"
#include "host/db/db.h"

namespace kr {
namespace {

constexpr double kMarkRoom = 12;
constexpr double kBareRoom = 4;
constexpr double kViewGap = 8;
constexpr double kLabelRoom = 8;  // above the views of a bar, for their names
constexpr double kLabelGap = 2;
constexpr double kSmallestScale = 1e-6;

// Each name stands right above what is drawn of its view, however much of the bar was taken away.
void putAbove(const std::vector<AcDbObjectId>& members, std::vector<BarViewLabel>& labels) {
  for (std::size_t i = 0; i < labels.size() && i < members.size(); ++i) {
    const AcDbObjectPointer<AcDbEntity> member(members[i], AcDb::kForRead);
    if (member.openStatus() != Acad::eOk) continue;
    const AcDbExtents box = plot::drawnExtents(*member);
    if (box.minPoint().y <= box.maxPoint().y) labels[i].at.y = box.maxPoint().y;
  }
}

}  // namespace

double ViewSet::Shown::before() const {
  return view.marks ? kMarkRoom : kBareRoom;
}
double ViewSet::Shown::after() const {
  return view.dimensions ? kDimensionRoom : before();
}
double ViewSet::Shown::above() const {
  return kViewTitleRoom + (labels.empty() ? before() : kLabelRoom);
}
double ViewSet::Shown::below() const {
  return after();
}

bool ViewSet::make(const DrawnJob& drawn, const JobSheet& sheet, const std::vector<JobView>& views, int number,
                   std::string& why) {
  for (const JobView& view : views) {
    const std::wstring name = L"KR_VIEW_" + std::to_wstring(number) + L"_" + std::to_wstring(views_.size() + 1);
    const bool ofBar = view.bar != kNone;
    std::vector<BarViewLabel> labels;
    Shown shown{view,
                ofBar ? barViews(drawn.job, view, labels) : projected(drawn.job, view),
                makeBlock(drawn.database, name),
                {},
                {}};
    shown.labels = std::move(labels);
    // The views of a bar have their names above them instead.
    shown.view.marks = view.marks && sheet.marks && !ofBar;
    shown.view.dimensions = view.dimensions && sheet.dimensions && !ofBar;
    if (ofBar && view.title.empty()) shown.view.title = drawn.job.names.text(drawn.job.members[view.bar].name);
    shown.scale = view.scale;
    std::vector<AcDbObjectId> members;
    if (!drawInto(shown.flat, drawn.database, shown.block, Vista, members, why)) return false;
    const AcDbExtents box = plot::drawnExtents(shown.block);
    shown.low = {box.minPoint().x, box.minPoint().y};
    shown.high = {box.maxPoint().x, box.maxPoint().y};
    if (members.empty() || shown.high.x < shown.low.x) {
      why = "view " + std::to_string(views_.size() + 1) + " shows no member";
      return false;
    }
    putAbove(members, shown.labels);
    views_.push_back(std::move(shown));
  }
  return true;
}

void ViewSet::fillRows(double width) {
  rows_.clear();
  for (std::size_t i = 0; i < views_.size(); ++i) {
    const Shown& shown = views_[i];
    if (rows_.empty() || rows_.back().width + kViewGap + shown.width() > width) {
      rows_.push_back({i, i, 0, 0, 0, -kViewGap});
    }
    Row& row = rows_.back();
    row.end = i + 1;
    row.width += kViewGap + shown.width();
    row.above = std::max(row.above, shown.above());
    row.middle = std::max(row.middle, (shown.high.y - shown.low.y) * shown.scale);
    row.below = std::max(row.below, shown.below());
  }
}

double ViewSet::height() const {
  double high = 0;
  for (const Row& row : rows_) high += row.height();
  return high;
}

double ViewSet::widest() const {
  double wide = 0;
  for (const Row& row : rows_) wide = std::max(wide, row.width);
  return wide;
}

bool ViewSet::arrange(const JobSheet& sheet, double width, double height, std::string& why) {
  const auto fitsAt = [&](double scale) {
    for (Shown& shown : views_) shown.scale = shown.view.scale > 0 ? shown.view.scale : scale;
    fillRows(width);
    return widest() <= width && this->height() <= height;
  };
  double scale = sheet.scale > 0 ? sheet.scale : 1;
  if (fitsAt(scale)) return true;
  why = "the views don't fit a sheet of size " + sheet.size;
  const auto isGiven = [](const Shown& shown) { return shown.view.scale > 0; };
  if (std::all_of(views_.begin(), views_.end(), isGiven)) return false;
  while (scale > kSmallestScale) {
    scale = fittingScale(1 / scale * 1.01, 1);
    if (!fitsAt(scale)) continue;
    if (sheet.scale == 0) return true;
    why += " at " + scaleText(sheet.scale) + ": the largest scale that does is " + scaleText(scale);
    return false;
  }
  return false;
}

double ViewSet::scale() const {
  for (const Shown& shown : views_) {
    if (shown.scale != views_.front().scale) return 0;
  }
  return views_.front().scale;
}

// The picture's lower left corner lies at `corner`.
void ViewSet::drawOne(Painter& painter, const DrawnJob& drawn, const Shown& shown, JobPoint corner,
                      std::vector<plot::PlotViewport>& windows) const {
  const Placement place{shown.scale, {corner.x - shown.low.x * shown.scale, corner.y - shown.low.y * shown.scale}};
  const JobPoint top = place(shown.high);
  plot::PlotViewport window;
  window.block = shown.block;
  window.modelToPaper = matrixOf(place);
  window.clip = {corner.x - 1, corner.y - 1, top.x + 1, top.y + 1};
  windows.push_back(std::move(window));
  drawViewTitle(painter, (corner.x + top.x) / 2, top.y + shown.above() - kViewTitleRoom / 2, viewName(shown.view),
                shown.scale);
  for (const BarViewLabel& label : shown.labels) {
    const JobPoint at = place(label.at);
    painter.text({at.x, at.y + kLabelGap}, label.text, kSmallText, Align::kCentre);
  }
  const bool dimensions = shown.view.dimensions && isDimensioned(shown.flat);
  if (shown.view.marks) {
    drawMarks(painter, shown.flat, drawn.bom, place,
              dimensions ? dimensionStrokes(shown.flat, place) : std::vector<Stroke>());
  }
  if (dimensions) drawDimensions(painter, shown.flat, place);
}

void ViewSet::draw(Painter& painter, const DrawnJob& drawn, const Area& area, double top, double gap,
                   std::vector<plot::PlotViewport>& windows) const {
  for (const Row& row : rows_) {
    const double floor = top - row.above - row.middle;
    const double apart = (area.width() - row.width) / static_cast<double>(row.end - row.first + 1);
    double left = area.left + apart;
    for (std::size_t i = row.first; i < row.end; ++i) {
      drawOne(painter, drawn, views_[i], {left + views_[i].before(), floor}, windows);
      left += views_[i].width() + kViewGap + apart;
    }
    top -= row.height() + gap;
  }
}

}  // namespace kr
