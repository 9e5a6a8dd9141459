#include "Sheet.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "Drawing.h"
#include "Painter.h"
#include "Projection.h"
#include "Scale.h"
#include "SheetElevation.h"
#include "SheetFrame.h"
#include "SheetProfiles.h"
#include "SheetSections.h"
#include "SheetTable.h"
#include "SheetViews.h"
#include "host/db/db.h"
#include "support/Layers.h"

namespace kr {
namespace {

constexpr double kAreaMargin = 10;  // between the frame and what is drawn
constexpr double kMarkRoom = 12;    // about the elevation, for position numbers
constexpr double kNoteStep = 5;
constexpr double kDetailGap = 12;
constexpr double kTightest = 4;  // least room between views, one above the other

std::string fitMessage(std::string_view what, const std::string& size) {
  return "the " + std::string(what) + " doesn't fit a sheet of size " + size;
}

// Gives a system layer to a change; nothing happens when the drawing takes none of that name.
template <class Change>
void changeLayer(AcDbDatabase& database, const wchar_t* name, Change change) {
  AcDbObjectId id;
  const wchar_t* user = KrLayerToUsr(name);  // makes the layer on first use: the table must not be open
  const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
  if (table.openStatus() != Acad::eOk || table->getAt(user, id) != Acad::eOk) return;
  const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
  if (layer.openStatus() == Acad::eOk) change(*layer);
}

// The system's layers come without line weights; on paper outlines stand out from hidden lines, and those from axes.
// What members hide of themselves, a plate's axis say, isn't printed.
void prepareLayers(AcDbDatabase& database) {
  constexpr std::pair<const wchar_t*, AcDb::LineWeight> kWeights[] = {
      {kMemberLayer, AcDb::kLnWt035}, {L"L-HIDDEN", AcDb::kLnWt018}, {L"EIXO", AcDb::kLnWt013}};
  for (const auto& row : kWeights) {
    changeLayer(database, row.first, [&](AcDbLayerTableRecord& layer) {
      if (layer.lineWeight() == AcDb::kLnWtByLwDefault) layer.setLineWeight(row.second);
    });
  }
  changeLayer(database, L"KR_HIDE_FACE", [](AcDbLayerTableRecord& layer) { layer.setIsPlottable(false); });
}

// One sheet while it is laid out.
class Layout {
 public:
  Layout(const DrawnJob& drawn, const JobSheet& sheet, int number, int count)
      : drawn_(drawn),
        sheet_(sheet),
        number_(number),
        count_(count),
        painter_(drawn.database, L"KR_SHEET_" + std::to_wstring(number)) {}

  std::optional<plot::PlotSheet> make(std::string& why);

 private:
  bool measure(std::string& why);
  bool chooseScale(std::string& why);
  bool makeViews(const std::vector<JobView>& views, std::string& why);
  bool makeProfiles(std::string& why);
  bool drawColumn(std::string& why);
  void drawNotes(double top);
  void drawElevation(double top);
  void drawDetails(double top);
  Area detailFrame(const JobDetail& detail) const;  // in the elevation
  JobPoint letterPlace(const Area& frame) const;
  std::vector<Stroke> detailFrames() const;
  double elevationHeight() const;
  double detailsHeight() const;
  double detailsWidth() const;

  const DrawnJob& drawn_;
  const JobSheet& sheet_;
  int number_;
  int count_;
  Painter painter_;
  plot::PlotSheet plot_;
  Area area_;               // of the views
  Area column_;             // of table, notes and title block
  AcGePoint3d low_, high_;  // of the members as drawn
  double scale_ = 1;
  Placement place_;
  std::optional<SectionRow> sections_;
  std::string scaleWord_;  // of the title block
};

bool Layout::measure(std::string& why) {
  const AcDbExtents box = plot::drawnExtents(drawn_.database.modelSpaceId());
  low_ = box.minPoint();
  high_ = box.maxPoint();
  if (high_.x >= low_.x && high_.y >= low_.y) return true;
  why = "the members draw nothing";
  return false;
}

double Layout::detailsHeight() const {
  double height = 0;
  for (const JobDetail& detail : sheet_.details) height = std::max(height, detail.height);
  return height > 0 ? height + kViewTitleRoom : 0;
}

double Layout::detailsWidth() const {
  double width = 0;
  for (const JobDetail& detail : sheet_.details) width += detail.width + (width > 0 ? kDetailGap : 0);
  return width;
}

double Layout::elevationHeight() const {
  return kViewTitleRoom + 2 * kMarkRoom + (high_.y - low_.y) * scale_ +
         (sheet_.dimensions ? kDimensionRoom - kMarkRoom : 0);
}

bool Layout::chooseScale(std::string& why) {
  const double side = sheet_.dimensions ? kDimensionRoom : kMarkRoom;
  const double wide = area_.width() - 2 * side;
  scale_ = 0;
  const double others = detailsHeight() + (sections_ ? sections_->height() : 0);
  const double high = area_.height() - others - elevationHeight() - 2 * kTightest;
  scale_ = sheet_.scale;
  if (scale_ == 0 && wide > 0 && high > 0) {
    scale_ = std::min(fittingScale(high_.x - low_.x, wide), fittingScale(high_.y - low_.y, high));
  }
  if (scale_ > 0 && (high_.x - low_.x) * scale_ <= wide && (high_.y - low_.y) * scale_ <= high) return true;
  why = fitMessage("elevation", sheet_.size);
  if (wide <= 0 || high <= 0) return false;
  const double fits = std::min(fittingScale(high_.x - low_.x, wide), fittingScale(high_.y - low_.y, high));
  why += " at " + scaleText(scale_) + ": the largest scale that does is " + scaleText(fits);
  return false;
}

void Layout::drawNotes(double top) {
  if (sheet_.notes.empty()) return;
  painter_.text({column_.left, top - kNoteStep}, "NOTES", kNormalText);
  double y = top - kNoteStep - 2;
  int number = 0;
  for (const std::string& note : sheet_.notes) {
    y -= kNoteStep;
    painter_.text({column_.left, y}, std::to_string(++number) + ".", kSmallText);
    painter_.text({column_.left + 7, y}, note, kSmallText, Align::kLeft, column_.width() - 7);
  }
}

bool Layout::drawColumn(std::string& why) {
  const SheetSize size = sheetSize(sheet_.size);
  const Area inside = drawFrame(painter_, size);
  const SheetFacts facts{sheet_.size, scaleWord_, number_, count_};
  const Area title = drawTitleBlock(painter_, inside, sheetTitle(drawn_.job.title, sheet_.title), facts);
  column_ = {title.left, title.top, title.right - kAreaMargin / 2, inside.top - kAreaMargin};
  const double notes = sheet_.notes.empty() ? 0 : kNoteStep * static_cast<double>(sheet_.notes.size() + 3);
  const double table = sheet_.table ? tableHeight(drawn_.bom) + kAreaMargin : 0;
  if (table + notes > column_.height()) {
    why = fitMessage("bill of materials", sheet_.size) + ": choose a larger one or \"table\": false";
    return false;
  }
  if (sheet_.table) drawTable(painter_, {title.left - kAreaMargin / 2, inside.top - kAreaMargin}, drawn_.bom);
  column_.left = title.left - kAreaMargin / 2;
  drawNotes(column_.top - table);
  return true;
}

Area Layout::detailFrame(const JobDetail& detail) const {
  const double shrink = scale_ / detail.scale / 2;
  const JobPoint centre = place_(drawn_.job.points[detail.at]);
  return {centre.x - detail.width * shrink, centre.y - detail.height * shrink, centre.x + detail.width * shrink,
          centre.y + detail.height * shrink};
}

// Outside an upper corner of a detail's frame, the one farther from the members: below stand the dimensions.
JobPoint Layout::letterPlace(const Area& frame) const {
  constexpr double kOff = kLargeText / 2 + 1;
  const std::vector<Stroke> members = memberStrokes(drawn_.job, place_);
  const JobPoint right{frame.right + kOff, frame.top + kOff};
  const JobPoint left{frame.left - kOff, frame.top + kOff};
  const double enough = kLargeText / 2;
  const double free = clearanceOf(right, members);
  return free >= enough || free >= clearanceOf(left, members) ? right : left;
}

std::vector<Stroke> Layout::detailFrames() const {
  std::vector<Stroke> strokes;
  for (const JobDetail& detail : sheet_.details) {
    const Area f = detailFrame(detail);
    const JobPoint corners[] = {{f.left, f.bottom}, {f.right, f.bottom}, {f.right, f.top}, {f.left, f.top}};
    for (std::size_t i = 0; i < 4; ++i) strokes.push_back({corners[i], corners[(i + 1) % 4], 0});
    const JobPoint letter = letterPlace(f);
    strokes.push_back({letter, letter, kLargeText / 2});
  }
  return strokes;
}

void Layout::drawElevation(double top) {
  const double width = (high_.x - low_.x) * scale_;
  const double left = (area_.left + area_.right - width) / 2;
  const double ceiling = top - kViewTitleRoom - kMarkRoom;
  place_ = {scale_, {left - low_.x * scale_, ceiling - high_.y * scale_}};
  drawViewTitle(painter_, left + width / 2, top - kViewTitleRoom / 2, "ELEVATION", scale_);
  const JobPoint low = place_({low_.x, low_.y});
  plot::PlotViewport view;
  view.block = drawn_.database.modelSpaceId();
  view.modelToPaper = matrixOf(place_);
  view.clip = {low.x - 1, low.y - 1, left + width + 1, ceiling + 1};
  plot_.viewports.push_back(std::move(view));
  std::vector<Stroke> avoid = detailFrames();
  if (sheet_.dimensions) {
    const std::vector<Stroke> dimensions = dimensionStrokes(drawn_.job, place_);
    avoid.insert(avoid.end(), dimensions.begin(), dimensions.end());
  }
  if (sheet_.marks) drawMarks(painter_, drawn_.job, drawn_.bom, place_, avoid);
  if (sheet_.dimensions) drawDimensions(painter_, drawn_.job, place_);
}

void Layout::drawDetails(double top) {
  double left = (area_.left + area_.right - detailsWidth()) / 2;
  char letter = 'A';
  for (const JobDetail& detail : sheet_.details) {
    const JobPoint middle = drawn_.job.points[detail.at];
    const double bottom = top - kViewTitleRoom - detail.height;
    const Placement place{
        detail.scale,
        {left + detail.width / 2 - middle.x * detail.scale, bottom + detail.height / 2 - middle.y * detail.scale}};
    const std::string name(1, letter++);
    drawViewTitle(painter_, left + detail.width / 2, top - kViewTitleRoom / 2, "DETAIL " + name, detail.scale);
    painter_.rectangle({left, bottom}, {left + detail.width, bottom + detail.height}, Pen::kThin);
    plot::PlotViewport view;
    view.block = drawn_.database.modelSpaceId();
    view.modelToPaper = matrixOf(place);
    view.clip = {left, bottom, left + detail.width, bottom + detail.height};
    plot_.viewports.push_back(std::move(view));
    const Area frame = detailFrame(detail);
    painter_.rectangle({frame.left, frame.bottom}, {frame.right, frame.top}, Pen::kThin);
    painter_.text(letterPlace(frame), name, kLargeText, Align::kCentre, 0, true);
    left += detail.width + kDetailGap;
  }
}

bool Layout::makeViews(const std::vector<JobView>& views, std::string& why) {
  ViewSet set;
  if (!set.make(drawn_, sheet_, views, number_, why)) return false;
  if (sheet_.sections) sections_.emplace(painter_, drawn_, sheet_.sectionScale, area_.width(), number_);
  if (sections_ && sections_->width() > area_.width()) {
    why = fitMessage("row of sections", sheet_.size) + ": choose a smaller \"sectionScale\"";
    return false;
  }
  const double others = sections_ ? sections_->height() : 0;
  if (!set.arrange(sheet_, area_.width(), area_.height() - others - 2 * kTightest, why)) return false;
  scaleWord_ = set.scale() > 0 ? scaleText(set.scale()) : "as shown";
  if (!drawColumn(why)) return false;
  const double parts = static_cast<double>(set.rows()) + (sections_ ? 1 : 0);
  const double gap = (area_.height() - others - set.height()) / (parts + 1);
  double top = area_.top - gap;
  set.draw(painter_, drawn_, area_, top, gap, plot_.viewports);
  top -= set.height() + gap * static_cast<double>(set.rows());
  if (sections_) plot_.viewports.push_back(sections_->draw(area_, top));
  return true;
}

// The table has the whole width of the sheet, above the title block.
bool Layout::makeProfiles(std::string& why) {
  const Area inside = drawFrame(painter_, sheetSize(sheet_.size));
  const Area title = drawTitleBlock(painter_, inside, sheetTitle(drawn_.job.title, sheet_.title),
                                    {sheet_.size, "as shown", number_, count_});
  column_ = {inside.left + kAreaMargin, inside.bottom, title.left - kAreaMargin, title.top};
  drawNotes(column_.top);
  const Area table{inside.left + kAreaMargin, title.top + kAreaMargin / 2, inside.right - kAreaMargin,
                   inside.top - kAreaMargin / 2};
  return drawProfiles(painter_, drawn_, sheet_, table, number_, plot_.viewports, why);
}

std::optional<plot::PlotSheet> Layout::make(std::string& why) {
  prepareLayers(drawn_.database);
  const SheetSize size = sheetSize(sheet_.size);
  plot_.paper = {size.width, size.height};
  plot_.paperBlock = painter_.block();
  area_ = {20 + kAreaMargin, 10 + kAreaMargin, size.width - 10 - kTitleWidth - 1.5 * kAreaMargin,
           size.height - 10 - kAreaMargin};
  const bool views = !sheet_.views.empty() || isSpatial(drawn_.job);
  if (views || !sheet_.profiles.empty()) {
    const std::vector<JobView> shown = sheet_.views.empty() ? standardViews() : sheet_.views;
    if (!(sheet_.profiles.empty() ? makeViews(shown, why) : makeProfiles(why))) return std::nullopt;
    if (painter_.ok()) return std::move(plot_);
    why = "the drawing doesn't take the sheet";
    return std::nullopt;
  }
  if (!measure(why)) return std::nullopt;
  if (sheet_.sections) sections_.emplace(painter_, drawn_, sheet_.sectionScale, area_.width(), number_);
  if (sections_ && sections_->width() > area_.width()) {
    why = fitMessage("row of sections", sheet_.size) + ": choose a smaller \"sectionScale\"";
    return std::nullopt;
  }
  if (detailsWidth() > area_.width()) {
    why = fitMessage("row of details", sheet_.size) + ": make them narrower";
    return std::nullopt;
  }
  if (!chooseScale(why)) return std::nullopt;
  scaleWord_ = scaleText(scale_);
  if (!drawColumn(why)) return std::nullopt;
  // The views share what is left of the height evenly.
  const double used = elevationHeight() + detailsHeight() + (sections_ ? sections_->height() : 0);
  const int parts = 1 + (sections_ ? 1 : 0) + (sheet_.details.empty() ? 0 : 1);
  const double gap = (area_.height() - used) / (parts + 1);
  double top = area_.top - gap;
  drawElevation(top);
  top -= elevationHeight() + gap;
  if (sections_) {
    plot_.viewports.push_back(sections_->draw(area_, top));
    top -= sections_->height() + gap;
  }
  drawDetails(top);
  if (painter_.ok()) return std::move(plot_);
  why = "the drawing doesn't take the sheet";
  return std::nullopt;
}

}  // namespace

std::vector<JobSheet> sheetsOf(const Job& job) {
  return job.sheets.empty() ? std::vector<JobSheet>(1) : job.sheets;
}

std::optional<plot::PlotSheet> layOutSheet(const DrawnJob& drawn, const JobSheet& sheet, int number, int count,
                                           std::string& why) {
  return Layout(drawn, sheet, number, count).make(why);
}

}  // namespace kr
