#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Job.h"
#include "host/db/AcDbObjectId.h"

class AcDbDatabase;
class AcDbEntity;

namespace kr {

/// The pens of a sheet: each is a layer of its own with a line weight.
enum class Pen { kFrame, kBox, kThin, kText, kDimension, kMark, kAxis };

/// How a text lies about its point.
enum class Align { kLeft, kCentre, kRight };

/// Text heights on paper, mm (ISO 3098).
inline constexpr double kSmallText = 2.5;
inline constexpr double kNormalText = 3.5;
inline constexpr double kLargeText = 5.0;

/// A new block, or none when the database refuses it.
AcDbObjectId makeBlock(AcDbDatabase& database, const std::wstring& name);

/// Draws on the paper of one sheet: host entities in a block, in mm from the sheet's lower left corner.
class Painter {
 public:
  /// Makes the block of that name and the pens' layers. ok() tells whether the database took them.
  Painter(AcDbDatabase& database, const std::wstring& block);
  ~Painter();
  Painter(const Painter&) = delete;
  Painter& operator=(const Painter&) = delete;

  bool ok() const { return ok_; }
  AcDbObjectId block() const { return block_; }

  void line(JobPoint a, JobPoint b, Pen pen);
  void rectangle(JobPoint low, JobPoint high, Pen pen);
  void polyline(const std::vector<JobPoint>& points, bool closed, Pen pen);
  void circle(JobPoint centre, double radius, Pen pen);

  /// A line of text on its base line, or about the middle of its height with `middle`; turned by `angle` radians. With
  /// `width` above 0 it is narrowed to fit into it.
  void text(JobPoint at, std::string_view words, double height, Align align = Align::kLeft, double width = 0,
            bool middle = false, double angle = 0, Pen pen = Pen::kText);

  /// How wide a text is at a height, mm.
  double widthOf(std::string_view words, double height) const;

 private:
  void add(AcDbEntity* entity, Pen pen);

  AcDbDatabase& database_;
  AcDbObjectId block_;
  std::vector<AcDbObjectId> layers_;
  bool ok_ = true;
};

}  // namespace kr
