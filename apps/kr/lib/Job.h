#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "NamePool.h"
#include "ProfileClasses.h"

class KrObject;

namespace kr {

/// "Not there", as an index into one of a job's lists.
inline constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

/// The greatest coordinate or size that a job may give, in millimetres: a thousand kilometres, beyond which a
/// drawing's tolerance of 1e-8 is finer than its numbers.
inline constexpr double kLargestCoordinate = 1e9;

/// A point, mm. On paper, and in a job of one plane, z is 0.
struct JobPoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

/// What the title block says. Empty texts leave their field empty.
struct JobTitle {
  std::string owner;
  std::string project;
  std::string title;
  std::string subtitle;
  std::string number;
  std::string revision;
  std::string date;
  std::string drawnBy;
  std::string checkedBy;
  std::string approvedBy;
  std::string documentType;
  std::string status;
};

/// A layer of the job's own.
struct JobLayer {
  NameId name = kNoName;
  int color = 7;
  NameId linetype = kNoName;
  double lineweight = -1;  ///< mm; negative: the default
};

/// A profile: a class with its parameters, in the constructor's order.
struct JobProfile {
  NameId name = kNoName;
  const ProfileClass* profileClass = nullptr;
  ParameterValues values{};
  NameId designation = kNoName;  ///< as the catalogue spells it; kNoName when the job gives the parameters
};

// What is done to a member. A place is given in one of its elevations as that lies on paper with the bar's start to the
// left: x along the bar from the start, y upwards from its axis, mm; in the section, as seen from the bar's start with
// the section not turned, X to the right and Y up. `view` holds the numbers of KrVistas.

/// A hole, drilled in an elevation away from the viewer, or in the section along a direction.
struct JobHole {
  std::int8_t view = 1;
  JobPoint at;
  double along = 0;      ///< of a hole given in the section: mm from the bar's start
  double direction = 0;  ///< of a hole given in the section: radians from its X
  double diameter = 0;
  double slot = 0;   ///< length of the straight part of an oblong hole; 0 for a round one
  double angle = 0;  ///< of an oblong hole as it is seen, radians
  int walls = 1;     ///< how many walls it passes; -1 for all
};

/// A cut along the line through two points, that throws away the side of a third.
struct JobCut {
  std::int8_t view = 1;
  std::vector<LinePoint> line;
  JobPoint side;
};

/// A notch: a polygon with arcs, and a point of the side that goes.
struct JobNotch {
  std::int8_t view = 1;
  std::vector<LinePoint> points;
  JobPoint side;
  bool open = false;  ///< a line across the bar instead of a closed polygon
};

/// A gap in the picture of a bar.
struct JobSplit {
  double at = 0;   ///< its middle, mm from the bar's start
  double gap = 0;  ///< its width, mm
};

/// What is done to one member.
struct JobModifiers {
  std::vector<JobHole> holes;
  std::vector<JobCut> cuts;
  std::vector<JobNotch> notches;
  std::vector<JobSplit> splits;
  bool limited = false;
  double limitFrom = 0;    ///< only what lies between these is shown, mm from the bar's start; 0 for the start
  double limitTo = 0;      ///< 0 for the end
  double limitSymbol = 1;  ///< size of the break lines
  double scale = 0;        ///< at which the member is drawn in the plane of the job; 0 for 1:1
  double scaleAlong = 0;   ///< the same along the bar; 0 for `scale`

  /// Made by makeModels(): the bar with all of it done, lying along X from the origin.
  std::shared_ptr<const KrObject> model;
  double axisLength = 0;  ///< of its axis
};

/// A member between two points. Points and profile are indices into the job's lists; the layer is a name, kNoName for
/// the layer of every member.
struct JobMember {
  NameId name = kNoName;
  std::uint32_t from = kNone;
  std::uint32_t to = kNone;
  std::uint32_t profile = kNone;
  NameId layer = kNoName;
  std::int8_t view = 1;
  std::int8_t role = 0;
  double rotation = 0;              ///< radians by which the section is turned about the bar
  double startSetback = 0;          ///< mm, from `from` towards `to`; negative reaches beyond
  double endSetback = 0;            ///< mm, from `to` towards `from`
  double clearance = -1;            ///< mm to keep from the faces of the members met; negative: runs to the nodes
  std::uint32_t modifiers = kNone;  ///< index of what is done to it; kNone for nothing
};

/// An enlarged piece of the elevation.
struct JobDetail {
  std::uint32_t at = kNone;  ///< the point in its middle
  double scale = 0.1;
  double width = 120;  ///< of its frame on paper, mm
  double height = 90;
};

/// From where a view looks at a job, and onto which plane: right and up on paper are X and Y for the plan, X and Z for
/// the front, and so on round.
enum class Look : std::int8_t { kPlan, kFront, kBack, kLeft, kRight };

/// A projection of the job, or of a part of it.
struct JobView {
  Look look = Look::kPlan;
  std::string title;                  ///< empty: what it looks like
  double scale = 0;                   ///< 0: that of the sheet
  double from = -kLargestCoordinate;  ///< of X, Y or Z along the look, mm: where members lie that are shown
  double to = kLargestCoordinate;
  std::vector<int> roles{};              ///< of members that are shown; empty: any
  std::vector<std::uint32_t> members{};  ///< indices: shown wherever they lie
  bool looks = false;                    ///< `look` was given
  std::uint32_t bar = kNone;             ///< index: the member whose views are laid out, instead of a projection
  std::vector<int> show{};               ///< those views, as numbers of KrVistas; empty: all
  bool marks = true;
  bool dimensions = true;
};

/// A sheet of paper to draw on.
struct JobSheet {
  std::string size = "A1";
  double scale = 0;         ///< paper to real size, 0.02 for 1:50; 0 chooses the largest standard one that fits
  double sectionScale = 0;  ///< the same for the sections
  bool sections = true;
  bool table = true;
  bool marks = true;
  bool dimensions = true;
  JobTitle title;  ///< what differs from the job's title
  std::vector<std::string> notes;
  std::vector<JobDetail> details;
  std::vector<JobView> views;           ///< empty: the elevation of the whole job
  std::vector<std::uint32_t> profiles;  ///< indices: a table of these instead of any view
};

/// A whole job, with every reference resolved. `points` holds the nodes and the points given in place.
struct Job {
  NamePool names;
  JobTitle title;
  std::vector<JobLayer> layers;
  std::vector<std::string> catalogues;  ///< files of tables
  std::vector<JobPoint> points;
  std::vector<JobProfile> profiles;
  std::vector<JobMember> members;
  std::vector<JobModifiers> modifiers;
  std::vector<JobSheet> sheets;
};

/// The words for a member's view, at their numbers; number 5 isn't a view that a job can name.
std::string_view viewWord(int view);

/// The words for a member's role in the structure, at their numbers 0 to 9.
std::string_view roleWord(int role);

/// The words for a look, at their numbers.
std::string_view lookWord(Look look);

/// Whether the job leaves the plane of its first two coordinates.
bool isSpatial(const Job& job);

/// The parameters that a member is made with: its profile's, turned by the member's own rotation.
ParameterValues memberValues(const Job& job, const JobMember& member);

/// The start and end of a member with its setbacks taken off.
struct MemberAxis {
  JobPoint start;
  JobPoint end;
};
MemberAxis memberAxis(const Job& job, const JobMember& member);

/// The same as the member is drawn in the plane of the job: its own scale shortens it towards its start.
MemberAxis drawnAxis(const Job& job, const JobMember& member);

}  // namespace kr
