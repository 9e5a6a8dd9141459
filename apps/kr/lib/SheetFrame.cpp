#include "SheetFrame.h"

#include <cmath>
#include <cstdlib>
#include <ctime>

#include "Scale.h"

namespace kr {
namespace {

// ISO 5457: margins, grid and marks, mm.
constexpr double kFilingMargin = 20;
constexpr double kMargin = 10;
constexpr double kGridWidth = 5;  // of the border that bears the references
constexpr double kGridStep = 50;
constexpr double kCentringMark = 10;

constexpr double kRow = 11;
constexpr double kTitleRow = 18;
constexpr double kPadding = 1.5;
constexpr double kCaptionDrop = 3.4;  // from a cell's top to its caption's base line
constexpr double kValueRise = 1.9;    // from a cell's bottom to its value's base line

struct Cell {
  const char* caption;
  std::string value;
  double width;
  double height = kNormalText;  // of the value's letters
};

// Letters of the grid references: I and O are left out, as they look like numbers.
char gridLetter(int i) {
  constexpr char kLetters[] = "ABCDEFGHJKLMNPQRSTUVWXYZ";
  return kLetters[i % 24];
}

// The references along one side, from the middle outwards in steps of 50 mm.
void drawReferences(Painter& painter, double low, double high, double inner, double outer, bool along) {
  const double middle = (low + high) / 2;
  const int half = static_cast<int>(std::ceil((high - low) / 2 / kGridStep - 0.5));
  const auto at = [&](double position, double across) {
    return along ? JobPoint{position, across} : JobPoint{across, position};
  };
  int field = 0;
  double previous = low;
  for (int i = -half; i <= half + 1; ++i) {
    const double line = i == half + 1 ? high : middle + i * kGridStep;
    if (line <= previous || line > high) continue;
    if (line < high) painter.line(at(line, inner), at(line, outer), Pen::kThin);
    const std::string name = along ? std::to_string(field + 1) : std::string(1, gridLetter(field));
    painter.text(at((previous + line) / 2, (inner + outer) / 2), name, kSmallText, Align::kCentre, 0, true, 0,
                 Pen::kThin);
    previous = line;
    ++field;
  }
}

double drawRow(Painter& painter, double left, double top, double height, const std::vector<Cell>& cells) {
  double x = left;
  for (const Cell& cell : cells) {
    painter.text({x + kPadding, top - kCaptionDrop}, cell.caption, kSmallText, Align::kLeft, cell.width - 2 * kPadding,
                 false, 0, Pen::kThin);
    painter.text({x + kPadding, top - height + kValueRise}, cell.value, cell.height, Align::kLeft,
                 cell.width - 2 * kPadding);
    if (x > left) painter.line({x, top}, {x, top - height}, Pen::kBox);
    x += cell.width;
  }
  painter.line({left, top - height}, {left + kTitleWidth, top - height}, Pen::kBox);
  return top - height;
}

// The row of the title proper: two lines of what is drawn, and the number.
double drawTitleRow(Painter& painter, double left, double top, const JobTitle& title) {
  constexpr double kNumberWidth = 62;
  const double bottom = top - kTitleRow;
  const double wide = kTitleWidth - kNumberWidth;
  painter.text({left + kPadding, top - kCaptionDrop}, "Title", kSmallText, Align::kLeft, 0, false, 0, Pen::kThin);
  painter.text({left + kPadding, top - 9.8}, title.title, kLargeText, Align::kLeft, wide - 2 * kPadding);
  painter.text({left + kPadding, bottom + kValueRise}, title.subtitle, kNormalText, Align::kLeft, wide - 2 * kPadding);
  painter.line({left + wide, top}, {left + wide, bottom}, Pen::kBox);
  painter.text({left + wide + kPadding, top - kCaptionDrop}, "Drawing number", kSmallText, Align::kLeft, 0, false, 0,
               Pen::kThin);
  painter.text({left + wide + kPadding, bottom + 4.5}, title.number, kLargeText, Align::kLeft,
               kNumberWidth - 2 * kPadding);
  painter.line({left, bottom}, {left + kTitleWidth, bottom}, Pen::kBox);
  return bottom;
}

// The date that SOURCE_DATE_EPOCH names, in universal time; empty when it isn't set.
std::string epochDate() {
  const char* value = std::getenv("SOURCE_DATE_EPOCH");
  if (value == nullptr || *value == '\0') return {};
  char* end = nullptr;
  const auto seconds = static_cast<std::time_t>(std::strtoll(value, &end, 10));
  std::tm date{};
  if (*end != '\0' || gmtime_r(&seconds, &date) == nullptr) return {};
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%d", &date);
  return text;
}

}  // namespace

SheetSize sheetSize(const std::string& name) {
  if (name == "A0") return {1189, 841};
  if (name == "A2") return {594, 420};
  if (name == "A3") return {420, 297};
  if (name == "A4") return {297, 210};
  return {841, 594};
}

JobTitle sheetTitle(const JobTitle& job, const JobTitle& sheet) {
  JobTitle title = job;
  for (const auto field : {&JobTitle::owner, &JobTitle::project, &JobTitle::title, &JobTitle::subtitle,
                           &JobTitle::number, &JobTitle::revision, &JobTitle::date, &JobTitle::drawnBy,
                           &JobTitle::checkedBy, &JobTitle::approvedBy, &JobTitle::documentType, &JobTitle::status}) {
    if (!(sheet.*field).empty()) title.*field = sheet.*field;
  }
  if (title.date.empty()) title.date = epochDate();
  return title;
}

Area drawFrame(Painter& painter, SheetSize size) {
  const Area inside{kFilingMargin, kMargin, size.width - kMargin, size.height - kMargin};
  const double out = kGridWidth;
  painter.rectangle({inside.left, inside.bottom}, {inside.right, inside.top}, Pen::kFrame);
  painter.rectangle({inside.left - out, inside.bottom - out}, {inside.right + out, inside.top + out}, Pen::kThin);
  drawReferences(painter, inside.left, inside.right, inside.top, inside.top + out, true);
  drawReferences(painter, inside.left, inside.right, inside.bottom, inside.bottom - out, true);
  drawReferences(painter, inside.bottom, inside.top, inside.left, inside.left - out, false);
  drawReferences(painter, inside.bottom, inside.top, inside.right, inside.right + out, false);
  const double x = (inside.left + inside.right) / 2;
  const double y = (inside.bottom + inside.top) / 2;
  painter.line({x, inside.top + out}, {x, inside.top + out - kCentringMark}, Pen::kFrame);
  painter.line({x, inside.bottom - out}, {x, inside.bottom - out + kCentringMark}, Pen::kFrame);
  painter.line({inside.left - out, y}, {inside.left - out + kCentringMark, y}, Pen::kFrame);
  painter.line({inside.right + out, y}, {inside.right + out - kCentringMark, y}, Pen::kFrame);
  return inside;
}

Area drawTitleBlock(Painter& painter, const Area& inside, const JobTitle& title, const SheetFacts& facts) {
  const Area block{inside.right - kTitleWidth, inside.bottom, inside.right, inside.bottom + 3 * kRow + kTitleRow};
  painter.line({block.left, block.bottom}, {block.left, block.top}, Pen::kFrame);
  painter.line({block.left, block.top}, {block.right, block.top}, Pen::kFrame);
  double top = block.top;
  top = drawRow(painter, block.left, top, kRow, {{"Owner", title.owner, 60}, {"Project", title.project, 120}});
  top = drawTitleRow(painter, block.left, top, title);
  top = drawRow(painter, block.left, top, kRow,
                {{"Drawn by", title.drawnBy, 45},
                 {"Checked by", title.checkedBy, 45},
                 {"Approved by", title.approvedBy, 45},
                 {"Date of issue", title.date, 45}});
  drawRow(painter, block.left, top, kRow,
          {{"Document type", title.documentType, 48},
           {"Status", title.status, 42},
           {"Scale", facts.scale, 26},
           {"Size", facts.size, 18},
           {"Revision", title.revision, 22},
           {"Sheet", std::to_string(facts.number) + "/" + std::to_string(facts.count), 24}});
  return block;
}

void drawViewTitle(Painter& painter, double centre, double base, const std::string& name, double scale) {
  const std::string words = name + "   " + scaleText(scale);
  painter.text({centre, base}, words, kLargeText, Align::kCentre);
  const double half = painter.widthOf(words, kLargeText) / 2;
  painter.line({centre - half, base - 1.5}, {centre + half, base - 1.5}, Pen::kBox);
}

}  // namespace kr
