#include "SheetProfiles.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "Drawing.h"
#include "Number.h"
#include "Scale.h"
#include "Sheet.h"
#include "SheetElevation.h"

namespace kr {
namespace {

constexpr double kHeading = 12;
constexpr double kLowestRow = 24;
constexpr double kTextWidth = 84;
constexpr double kLineStep = 4.2;
constexpr double kCellMargin = 4;
constexpr std::array<int, 6> kColumns = {0, 6, 1, 2, 3, 4};  // views, in the order of the columns

double degrees(double radians) {
  return radians * 180 / std::numbers::pi;
}

std::string rounded(double value) {
  return shortest(std::stod(fixed(value, 3)));
}

// The parameters of a profile, in the units of a job, in lines of a few.
std::vector<std::string> describe(const JobProfile& profile) {
  constexpr std::size_t kALine = 3;
  std::vector<std::string> lines;
  std::size_t count = 0;
  for (std::size_t i = 0; i < profile.profileClass->parameters.size(); ++i) {
    const ProfileParameter& parameter = profile.profileClass->parameters[i];
    const bool angle =
        parameter.range == Range::kTurn || parameter.range == Range::kBend || parameter.range == Range::kSlope;
    const double value = angle ? degrees(profile.values[i]) : profile.values[i];
    if (value == 0) continue;
    if (count++ % kALine == 0) lines.emplace_back();
    lines.back() += (lines.back().empty() ? "" : "   ") + std::string(parameter.key) + " " + rounded(value);
  }
  return lines;
}

// One row while it is drawn.
struct ProfileRow {
  Painter& painter;
  const DrawnJob& drawn;
  const JobProfile& profile;
  Area area;
  double cell;   // width of a column
  double scale;  // of what the columns hold

  double centre(std::size_t column) const {
    return area.left + kTextWidth + cell * (static_cast<double>(column) + 0.5);
  }
  double axis() const { return (area.bottom + area.top) / 2; }

  void text() const {
    const double left = area.left + kCellMargin / 2;
    double y = area.top - kLineStep - 1;
    const double width = kTextWidth - kCellMargin;
    painter.text({left, y}, std::string(profile.profileClass->name) + "   " + scaleText(scale), kNormalText,
                 Align::kLeft, width);
    y -= kLineStep + 1;
    painter.text({left, y}, drawn.job.names.text(profile.name), kSmallText, Align::kLeft, width);
    for (const std::string& line : describe(profile)) {
      y -= kLineStep;
      painter.text({left, y}, line, kSmallText, Align::kLeft, width);
    }
  }

  // The members, about the origins of a plane in which the row's middle lies at 0, at real size.
  bool members(AcDbObjectId block, std::string& why) const {
    Job flat;
    flat.profiles.push_back(profile);
    flat.names = drawn.job.names;
    const double half = (cell / 2 - kCellMargin) / scale;
    const SectionBox box = profile.profileClass->box(profile.values);
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      JobMember member;
      member.profile = 0;
      member.view = static_cast<std::int8_t>(kColumns[i]);
      member.from = static_cast<std::uint32_t>(flat.points.size());
      const bool section = i < 2;
      const double middle = (centre(i) - area.left) / scale;
      const double mirrored = i == 1 ? -1 : 1;
      const double off = section ? (box.left + box.right) / 2 * mirrored : half;
      // Along the bar's X a section reaches to the right in elevation, and its Y upwards in those from the sides.
      const double rise = section || kColumns[i] > 2 ? (box.below + box.above) / 2 : 0;
      flat.points.push_back({middle - off, -rise});
      member.to = section ? member.from : member.from + 1;
      if (!section) flat.points.push_back({middle + half, -rise});
      flat.members.push_back(member);
    }
    std::vector<AcDbObjectId> ids;
    return drawInto(flat, drawn.database, block, Vista, ids, why);
  }
};

double heightOf(const JobProfile& profile) {
  const SectionBox box = profile.profileClass->box(profile.values);
  return std::max(box.right - box.left, box.above - box.below);
}

}  // namespace

bool drawProfiles(Painter& painter, const DrawnJob& drawn, const JobSheet& sheet, const Area& area, int number,
                  std::vector<plot::PlotViewport>& windows, std::string& why) {
  constexpr std::array kHeadings = {"Secao", "SecaoVerso", "Superior", "Inferior", "Esquerda", "Direita"};
  const double high = (area.height() - kHeading) / static_cast<double>(sheet.profiles.size());
  const double cell = (area.width() - kTextWidth) / static_cast<double>(kColumns.size());
  if (high < kLowestRow || cell < kLowestRow) {
    why = "the table of profiles doesn't fit a sheet of size " + sheet.size;
    return false;
  }
  for (std::size_t i = 0; i < kHeadings.size(); ++i) {
    const double x = area.left + kTextWidth + cell * (static_cast<double>(i) + 0.5);
    painter.text({x, area.top - kHeading / 2}, kHeadings[i], kNormalText, Align::kCentre, 0, true);
  }
  double top = area.top - kHeading;
  for (std::size_t i = 0; i < sheet.profiles.size(); ++i) {
    const JobProfile& profile = drawn.job.profiles[sheet.profiles[i]];
    const double room = std::min(high, cell) - 2 * kCellMargin;
    const ProfileRow row{
        painter, drawn, profile, {area.left, top - high, area.right, top}, cell, fittingScale(heightOf(profile), room)};
    painter.line({area.left, top}, {area.right, top}, Pen::kThin);
    row.text();
    const AcDbObjectId block =
        makeBlock(drawn.database, L"KR_PROFILES_" + std::to_wstring(number) + L"_" + std::to_wstring(i + 1));
    if (!row.members(block, why)) return false;
    plot::PlotViewport window;
    window.block = block;
    window.modelToPaper = matrixOf({row.scale, {area.left, row.axis()}});
    window.clip = {area.left + kTextWidth, top - high, area.right, top};
    windows.push_back(std::move(window));
    top -= high;
  }
  painter.line({area.left, top}, {area.right, top}, Pen::kThin);
  return true;
}

}  // namespace kr
