#include "SheetTable.h"

#include <array>

#include "Number.h"

namespace kr {
namespace {

constexpr double kCaptionHeight = 8;
constexpr double kHeadHeight = 7;
constexpr double kRowHeight = 5.5;
constexpr double kPadding = 1.5;

struct Column {
  const char* title;
  double width;
  Align align;
};

constexpr std::array kColumns = {
    Column{"Pos.", 11, Align::kCentre},     Column{"Designation", 40, Align::kLeft},
    Column{"Dimensions", 31, Align::kLeft}, Column{"Length mm", 22, Align::kRight},
    Column{"Qty", 11, Align::kRight},       Column{"kg each", 20, Align::kRight},
    Column{"kg total", 23, Align::kRight},  Column{"Paint m\u00B2", 22, Align::kRight},
};

using Row = std::array<std::string, kColumns.size()>;

Row rowOf(const BomItem& item) {
  return {std::to_string(item.mark),    item.piece.designation,           item.piece.dimensions,
          fixed(item.piece.length, 0),  std::to_string(item.count()),     fixed(item.piece.weight, 2),
          fixed(item.totalWeight(), 2), fixed(item.totalPaintedArea(), 2)};
}

void writeRow(Painter& painter, double left, double top, double height, const Row& row, Pen pen) {
  double x = left;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const Column& column = kColumns[i];
    const double at = column.align == Align::kLeft    ? x + kPadding
                      : column.align == Align::kRight ? x + column.width - kPadding
                                                      : x + column.width / 2;
    painter.text({at, top - height / 2}, row[i], kSmallText, column.align, column.width - 2 * kPadding, true, 0, pen);
    x += column.width;
  }
}

}  // namespace

double tableHeight(const Bom& bom) {
  return kCaptionHeight + kHeadHeight + kRowHeight * static_cast<double>(bom.items.size() + 1);
}

void drawTable(Painter& painter, JobPoint corner, const Bom& bom) {
  const double left = corner.x;
  const double right = corner.x + kTitleWidth;
  painter.text({left, corner.y - kCaptionHeight / 2 + 1}, "BILL OF MATERIALS", kNormalText, Align::kLeft, 0, true);
  double y = corner.y - kCaptionHeight;
  const double top = y;
  Row head;
  for (std::size_t i = 0; i < kColumns.size(); ++i) head[i] = kColumns[i].title;
  writeRow(painter, left, y, kHeadHeight, head, Pen::kText);
  y -= kHeadHeight;
  painter.line({left, y}, {right, y}, Pen::kBox);
  for (const BomItem& item : bom.items) {
    writeRow(painter, left, y, kRowHeight, rowOf(item), Pen::kText);
    y -= kRowHeight;
    painter.line({left, y}, {right, y}, &item == &bom.items.back() ? Pen::kBox : Pen::kThin);
  }
  const BomTotals totals = bom.totals();
  Row sum{"", "Total", "", "", std::to_string(totals.count), "", fixed(totals.weight, 2), fixed(totals.paintedArea, 2)};
  writeRow(painter, left, y, kRowHeight, sum, Pen::kText);
  y -= kRowHeight;
  double x = left;
  for (std::size_t i = 0; i + 1 < kColumns.size(); ++i) {
    x += kColumns[i].width;
    painter.line({x, top}, {x, y}, Pen::kThin);
  }
  painter.rectangle({left, y}, {right, top}, Pen::kBox);
}

}  // namespace kr
