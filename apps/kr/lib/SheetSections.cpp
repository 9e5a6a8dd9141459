#include "SheetSections.h"

#include <algorithm>
#include <memory>
#include <set>
#include <unordered_map>

#include "Number.h"
#include "Scale.h"
#include "Sheet.h"
#include "host/db/db.h"
#include "host/os/os.h"
#include "object/KrObject.h"
#include "support/Layers.h"

namespace kr {
namespace {

constexpr double kLabelRoom = 20;  // below a section, for three lines
constexpr double kLabelStep = 5;
constexpr double kSmallestCell = 62;  // a label's width, mm
constexpr double kCellGap = 10;
constexpr double kTallest = 90;   // of a section on paper when the scale is chosen here, mm
constexpr double kAxisReach = 4;  // of the centre lines past the outline
constexpr double kSampleLength = 100;

// What a section is drawn by, in mm: what it weighs and how it is turned isn't written below it.
bool isDrawnLength(Range range) {
  return range == Range::kSize || range == Range::kZeroOrMore || range == Range::kSigned;
}

// A member of a profile seen from its start, about a point of the block.
void appendSection(AcDbObjectId block, const JobProfile& profile, double place) {
  AcGePoint3d start(place, 0, 0);
  AcGePoint3d end(place + kSampleLength, 0, 0);
  constexpr int kSectionView = 0;
  std::unique_ptr<KrObject> member(profile.profileClass->make(start, end, kSectionView, profile.values));
  member->setObjectType(Vista);
  member->setLayer(KrLayerToUsr(L"PERFIL"));
  const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
  if (record.openStatus() == Acad::eOk && record->appendAcDbEntity(member.get()) == Acad::eOk) {
    member.release()->close();
  }
}

}  // namespace

SectionRow::SectionRow(Painter& painter, const DrawnJob& drawn, double scale, double width, int number)
    : painter_(painter), block_(makeBlock(drawn.database, L"KR_SECTIONS_" + std::to_wstring(number))) {
  std::vector<char> used(drawn.job.profiles.size(), 0);
  for (const JobMember& member : drawn.job.members) used[member.profile] = 1;
  double place = 0;
  for (std::uint32_t i = 0; i < used.size(); ++i) {
    if (used[i] == 0) continue;
    const JobProfile& profile = drawn.job.profiles[i];
    Section section{i, sectionSize(*profile.profileClass, profile.values), 0, {}, {}, {}};
    section.place = place + section.depth / 2;
    place += 2 * section.depth;  // any place will do, as each is shown apart
    sections_.push_back(section);
  }
  describe(drawn);
  choose(scale, width);
  // One window shows them all, so they lie in the block as they do on paper.
  double at = 0;
  for (Section& section : sections_) {
    section.place = (at + cell(section) / 2) / scale_;
    at += cell(section) + kCellGap;
    appendSection(block_, drawn.job.profiles[section.profile], section.place);
  }
}

// The position numbers of each section's members, and what the bill calls them.
void SectionRow::describe(const DrawnJob& drawn) {
  std::unordered_map<std::string, int> markOf = drawn.bom.marks();
  std::vector<std::set<int>> marks(drawn.job.profiles.size());
  for (const JobMember& member : drawn.job.members) {
    marks[member.profile].insert(markOf[std::string(drawn.job.names.text(member.name))]);
  }
  for (Section& section : sections_) {
    const std::set<int>& own = marks[section.profile];
    const BomPiece& piece = drawn.bom.items[static_cast<std::size_t>(*own.begin()) - 1].piece;
    section.label = piece.designation + "  " + piece.dimensions;
    for (const int mark : own) section.marks += (section.marks.empty() ? "Pos. " : ", ") + std::to_string(mark);
    const JobProfile& profile = drawn.job.profiles[section.profile];
    const ProfileClass& row = *profile.profileClass;
    for (std::size_t i = 0; i < row.parameters.size(); ++i) {
      if (profile.values[i] == 0 || !isDrawnLength(row.parameters[i].range)) continue;
      section.sizes += (section.sizes.empty() ? "" : "   ") + std::string(row.parameters[i].key) + " " +
                       shortest(std::stod(fixed(profile.values[i], 3)));
    }
  }
}

double SectionRow::cell(const Section& section) const {
  return std::max(kSmallestCell, section.depth * scale_);
}

double SectionRow::deepest() const {
  double depth = 0;
  for (const Section& section : sections_) depth = std::max(depth, section.depth);
  return depth;
}

void SectionRow::choose(double scale, double width) {
  scale_ = scale > 0 ? scale : fittingScale(deepest(), kTallest);
  while (scale == 0 && this->width() > width && scale_ > 1e-3) scale_ = fittingScale(1 / scale_ * 1.01, 1);
}

double SectionRow::width() const {
  double wide = 0;
  for (const Section& section : sections_) wide += cell(section) + (wide > 0 ? kCellGap : 0);
  return wide;
}

double SectionRow::height() const {
  return kViewTitleRoom + deepest() * scale_ + 2 * kAxisReach + kLabelRoom;
}

plot::PlotViewport SectionRow::draw(const Area& area, double top) {
  const double left = (area.left + area.right - width()) / 2;
  const double axis = top - kViewTitleRoom - kAxisReach - deepest() * scale_ / 2;
  const std::string title = "SECTIONS   " + scaleText(scale_);
  const double centre = (area.left + area.right) / 2;
  painter_.text({centre, top - kViewTitleRoom / 2}, title, kLargeText, Align::kCentre);
  const double half = painter_.widthOf(title, kLargeText) / 2;
  painter_.line({centre - half, top - kViewTitleRoom / 2 - 1.5}, {centre + half, top - kViewTitleRoom / 2 - 1.5},
                Pen::kBox);
  const double labels = axis - deepest() * scale_ / 2 - kAxisReach - kLabelStep;
  for (const Section& section : sections_) {
    const double x = left + section.place * scale_;
    const double reach = section.depth * scale_ / 2 + kAxisReach;
    painter_.line({x - reach, axis}, {x + reach, axis}, Pen::kAxis);
    painter_.line({x, axis - reach}, {x, axis + reach}, Pen::kAxis);
    painter_.text({x, labels}, section.label, kNormalText, Align::kCentre, cell(section));
    painter_.text({x, labels - kLabelStep}, section.sizes, kSmallText, Align::kCentre, cell(section));
    painter_.text({x, labels - 2 * kLabelStep}, section.marks, kSmallText, Align::kCentre, cell(section));
  }
  plot::PlotViewport view;
  view.block = block_;
  view.modelToPaper =
      AcGeMatrix3d::translation(AcGeVector3d(left, axis, 0)) * AcGeMatrix3d::scaling(scale_, AcGePoint3d::kOrigin);
  view.clip = {left - 1, axis - deepest() * scale_ / 2 - 1, left + width() + 1, axis + deepest() * scale_ / 2 + 1};
  return view;
}

}  // namespace kr
