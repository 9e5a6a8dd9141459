#include "JobBuilder.h"

#include <algorithm>
#include <cmath>

#include "Clearance.h"
#include "Number.h"
#include "Suggest.h"

namespace kr {
namespace {

// A reference to a node is, until it is resolved, either a name or the index of a point given in place.
constexpr std::uint32_t kPointInPlace = 0x80000000U;

// Shorter than this no member can be drawn: the drawing's own tolerance for points is finer still.
constexpr double kShortestMember = 1e-3;

constexpr int kMostHints = 100;

constexpr std::size_t kMostNotchPoints = 1000;

// An edge of a notch or the line of a cut is at least so long, mm.
constexpr double kShortestEdge = 1e-3;

double distance(const LinePoint& a, const LinePoint& b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

// The entry of a by-name index, made on demand.
std::uint32_t& entry(std::vector<std::uint32_t>& index, NameId name, const NamePool& names) {
  if (index.size() <= name) index.resize(std::max<std::size_t>(names.size(), index.size() * 2), kNone);
  return index[name];
}

std::uint32_t lookUp(const std::vector<std::uint32_t>& index, NameId name) {
  return name < index.size() ? index[name] : kNone;
}

std::vector<std::string_view> namesIn(const std::vector<std::uint32_t>& index, const NamePool& names) {
  std::vector<std::string_view> found;
  for (NameId name = 1; name < index.size(); ++name) {
    if (index[name] != kNone) found.push_back(names.text(name));
  }
  return found;
}

std::string memberPath(std::size_t index, std::string_view key) {
  return "/members/" + std::to_string(index) + "/" + std::string(key);
}

void appendEscaped(std::string& path, std::string_view step) {
  for (const char c : step) path += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
}

}  // namespace

void JobBuilder::addNode(std::string_view name, JobPoint point) {
  std::uint32_t& place = entry(pointOf_, job.names.intern(name), job.names);
  if (place == kNone) place = addPoint(point);
}

std::uint32_t JobBuilder::addPoint(JobPoint point) {
  job.points.push_back(point);
  return static_cast<std::uint32_t>(job.points.size() - 1);
}

std::uint32_t JobBuilder::nodeReference(const Scalar& value) {
  return value.kind == Kind::kPoint ? addPoint(value.point) | kPointInPlace : job.names.intern(value.text);
}

std::uint32_t& JobBuilder::profilePlace(NameId name) {
  return entry(profileOf_, name, job.names);
}

void JobBuilder::beginMember() {
  member = {};
  modifiers = {};
}

void JobBuilder::endHole() {
  const bool inSection = hole.view == 0;
  if (!inSection && (hole.along != 0 || hole.direction != 0)) {
    problems.report(
        "\"along\" and \"direction\" are of a hole given in the section: \"at\" says where one lies along the bar");
  }
  modifiers.holes.push_back(hole);
}

void JobBuilder::endCut() {
  if (cut.line.size() != 2) {
    problems.report("the line of a cut has two points, found " + std::to_string(cut.line.size()));
  } else if (distance(cut.line[0], cut.line[1]) < kShortestEdge) {
    problems.report("the two points of a cut's line are one");
  } else {
    modifiers.cuts.push_back(cut);
  }
}

void JobBuilder::endNotch() {
  const std::size_t least = notch.open ? 2 : 3;
  if (notch.points.size() < least || notch.points.size() > kMostNotchPoints) {
    problems.report("a notch has from " + std::to_string(least) + " to " + std::to_string(kMostNotchPoints) +
                    " points, found " + std::to_string(notch.points.size()));
    return;
  }
  for (std::size_t i = 0; i < notch.points.size(); ++i) {
    if (i + 1 == notch.points.size() && notch.open) break;
    if (distance(notch.points[i], notch.points[(i + 1) % notch.points.size()]) >= kShortestEdge) continue;
    problems.report("point " + std::to_string(i) + " of the notch and the next are one");
    return;
  }
  modifiers.notches.push_back(notch);
}

void JobBuilder::endMember() {
  const bool modified = !modifiers.holes.empty() || !modifiers.cuts.empty() || !modifiers.notches.empty() ||
                        !modifiers.splits.empty() || modifiers.limited || modifiers.scale > 0 ||
                        modifiers.scaleAlong > 0;
  if (modified) {
    member.modifiers = static_cast<std::uint32_t>(job.modifiers.size());
    job.modifiers.push_back(std::move(modifiers));
  }
  job.members.push_back(member);
}
void JobBuilder::beginView() {
  view = {};
  reportedBefore_ = problems.reported();
}

void JobBuilder::endView() {
  if (view.from > view.to) problems.report("\"from\" must not be greater than \"to\"");
  // A "look" that isn't one was told already.
  if (problems.reported() == reportedBefore_) {
    if (!view.looks && view.bar == kNone) problems.report("missing \"look\" or \"bar\": what the view shows");
    if (view.looks && view.bar != kNone) problems.report("a view has either a \"look\" or a \"bar\", not both");
    if (view.bar == kNone && !view.show.empty()) problems.report("\"show\" is of a view of a \"bar\"");
  }
  sheet.views.push_back(view);
}
void JobBuilder::endSheet() {
  job.sheets.push_back(sheet);
}

void JobBuilder::finish(const KnownNames& known, bool sound, std::vector<Problem>& found) {
  resolveDesignations(known, found);
  resolveLayers(known, found);
  checkLayers(known, found);
  resolveMembers(found);
  resolveDetails(found);
  resolveSheets(found);
  if (!found.empty() || !sound) return;
  keepMembersClear(job);
  for (std::size_t i = 0; i < job.members.size(); ++i) {
    if (job.members[i].clearance >= 0) checkLength(i, job.members[i], found);
  }
}

void JobBuilder::resolveLayers(const KnownNames& known, std::vector<Problem>& found) {
  for (const JobLayer& row : job.layers) {
    if (row.linetype == kNoName) continue;
    const std::string_view wanted = job.names.text(row.linetype);
    const auto same = [&](const std::string& name) { return editDistance(name, wanted, 0) == 0; };
    if (std::any_of(known.linetypes.begin(), known.linetypes.end(), same)) continue;
    const std::vector<std::string_view> words(known.linetypes.begin(), known.linetypes.end());
    std::string path = "/layers/";
    appendEscaped(path, job.names.text(row.name));
    found.push_back({0, 0, 0, path + "/linetype",
                     "unknown line style " + inQuotes(wanted) + ": " + suggestion(wanted, words, "see the manual")});
  }
}

// The nearest of the names in an index. It is sought for the first problems only: a file with thousands of them has
// one cause, and each search looks at every name.
std::string JobBuilder::hint(std::string_view wanted, const std::vector<std::uint32_t>& index,
                             std::string_view otherwise) {
  if (++hints_ > kMostHints) return std::string(otherwise);
  return suggestion(wanted, namesIn(index, job.names), otherwise);
}

void JobBuilder::checkLayers(const KnownNames& known, std::vector<Problem>& found) {
  std::vector<char> there(job.names.size(), 0);
  there[kNoName] = 1;
  for (const JobLayer& row : job.layers) there[row.name] = 1;
  for (const std::string& name : known.layers) there[job.names.find(name)] = 1;
  for (std::size_t i = 0; i < job.members.size(); ++i) {
    if (there[job.members[i].layer] != 0) continue;
    const std::string_view wanted = job.names.text(job.members[i].layer);
    std::vector<std::string_view> words;
    if (++hints_ <= kMostHints) {
      for (const JobLayer& row : job.layers) words.push_back(job.names.text(row.name));
      words.insert(words.end(), known.layers.begin(), known.layers.end());
    }
    found.push_back(
        {0, 0, 0, memberPath(i, "layer"),
         "unknown layer " + inQuotes(wanted) + ": " + suggestion(wanted, words, "declare it in \"layers\"")});
  }
}

void JobBuilder::resolvePoint(const std::string& path, std::uint32_t& reference, std::vector<Problem>& found) {
  if (reference == kNone) return;  // reported when it was read
  if ((reference & kPointInPlace) != 0) {
    reference &= ~kPointInPlace;
    return;
  }
  const NameId name = reference;
  reference = lookUp(pointOf_, name);
  if (reference != kNone) return;
  const std::string_view wanted = job.names.text(name);
  found.push_back(
      {0, 0, 0, path, "unknown node " + inQuotes(wanted) + ": " + hint(wanted, pointOf_, "declare it in \"nodes\"")});
}

void JobBuilder::resolveDetails(std::vector<Problem>& found) {
  for (std::size_t i = 0; i < job.sheets.size(); ++i) {
    for (std::size_t j = 0; j < job.sheets[i].details.size(); ++j) {
      const std::string path = "/sheets/" + std::to_string(i) + "/details/" + std::to_string(j) + "/at";
      resolvePoint(path, job.sheets[i].details[j].at, found);
    }
  }
}

// What views and tables of profiles name, and which of a sheet's contents exclude each other.
void JobBuilder::resolveSheets(std::vector<Problem>& found) {
  const auto resolve = [&](std::uint32_t& reference, const std::vector<std::uint32_t>& index, std::string_view what,
                           const std::string& path) {
    const std::string_view wanted = job.names.text(reference);
    reference = lookUp(index, reference);
    if (reference != kNone) return;
    found.push_back({0, 0, 0, path,
                     "unknown " + std::string(what) + " " + inQuotes(wanted) + ": " +
                         hint(wanted, index, "declare it in \"" + std::string(what) + "s\"")});
  };
  for (std::size_t i = 0; i < job.sheets.size(); ++i) {
    JobSheet& row = job.sheets[i];
    const std::string path = "/sheets/" + std::to_string(i);
    for (std::size_t j = 0; j < row.views.size(); ++j) {
      if (row.views[j].bar != kNone) {
        resolve(row.views[j].bar, memberOf_, "member", path + "/views/" + std::to_string(j) + "/bar");
      }
      const std::string names = path + "/views/" + std::to_string(j) + "/members/";
      for (std::size_t k = 0; k < row.views[j].members.size(); ++k) {
        resolve(row.views[j].members[k], memberOf_, "member", names + std::to_string(k));
      }
    }
    for (std::size_t j = 0; j < row.profiles.size(); ++j) {
      resolve(row.profiles[j], profileOf_, "profile", path + "/profiles/" + std::to_string(j));
    }
    if (!row.profiles.empty() && !row.views.empty()) {
      found.push_back({0, 0, 0, path + "/profiles", "a sheet holds either \"views\" or a table of \"profiles\""});
    }
    if (!row.details.empty() && (!row.profiles.empty() || !row.views.empty() || isSpatial(job))) {
      found.push_back(
          {0, 0, 0, path + "/details", "details are of the elevation of a plane job: give a view of a larger scale"});
    }
  }
}

void JobBuilder::resolveMembers(std::vector<Problem>& found) {
  for (std::size_t i = 0; i < job.members.size(); ++i) {
    JobMember& row = job.members[i];
    if (row.name != kNoName) {
      std::uint32_t& first = entry(memberOf_, row.name, job.names);
      if (first != kNone) {
        found.push_back({0, 0, 0, memberPath(i, "name"),
                         "duplicate name " + inQuotes(job.names.text(row.name)) + ": member " + std::to_string(first) +
                             " has it already; each must be unique"});
      } else {
        first = static_cast<std::uint32_t>(i);
      }
    }
    if (row.profile != kNone) {
      const std::string_view wanted = job.names.text(row.profile);
      const std::uint32_t place = lookUp(profileOf_, row.profile);
      if (place == kNone) {
        found.push_back(
            {0, 0, 0, memberPath(i, "profile"),
             "unknown profile " + inQuotes(wanted) + ": " + hint(wanted, profileOf_, "declare it in \"profiles\"")});
      }
      row.profile = place;
    }
    resolvePoint(memberPath(i, "from"), row.from, found);
    resolvePoint(memberPath(i, "to"), row.to, found);
    checkLength(i, row, found);
    checkLimits(i, found);
  }
}

void JobBuilder::checkLimits(std::size_t index, std::vector<Problem>& found) const {
  const JobMember& row = job.members[index];
  if (row.modifiers == kNone) return;
  const JobModifiers& done = job.modifiers[row.modifiers];
  if (done.limitTo == 0 || done.limitFrom < done.limitTo) return;
  const std::string name(job.names.text(row.name));
  found.push_back({0, 0, 0, memberPath(index, "limits"), "member " + name + ": \"from\" must be less than \"to\""});
}

void JobBuilder::checkLength(std::size_t index, const JobMember& checked, std::vector<Problem>& found) const {
  if (checked.from == kNone || checked.to == kNone) return;
  const JobPoint from = job.points[checked.from];
  const JobPoint to = job.points[checked.to];
  const double length = std::hypot(to.x - from.x, to.y - from.y, to.z - from.z);
  if (length < kShortestMember) {
    found.push_back({0, 0, 0, memberPath(index, "to"),
                     "the end equals the start: \"from\" and \"to\" must be two different points"});
    return;
  }
  const double left = length - checked.startSetback - checked.endSetback;
  if (left >= kShortestMember) return;
  if (checked.clearance >= 0) {
    found.push_back({0, 0, 0, memberPath(index, "clearance"),
                     "the clearances leave nothing of the " + fixed(length, 1) + " mm between the nodes"});
    return;
  }
  found.push_back({0, 0, 0, memberPath(index, checked.endSetback > 0 ? "endSetback" : "startSetback"),
                   "the setbacks leave nothing: together they must be less than the distance of " + fixed(length, 1) +
                       " mm between the nodes"});
}

}  // namespace kr
