#include <algorithm>
#include <cmath>

#include "CatalogueProfile.h"
#include "JobBuilder.h"
#include "Number.h"
#include "Suggest.h"

// The profiles of a job: by class and parameters, or by designation.

namespace kr {
namespace {

constexpr std::string_view kLineKey = "line";
constexpr std::string_view kOriginKey = "origin";

std::string pathOf(std::string_view profile, std::string_view key) {
  std::string path = "/profiles/";
  for (const char c : profile) path += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
  if (!key.empty()) path += "/" + std::string(key);
  return path;
}

}  // namespace

void JobBuilder::beginProfile(std::string_view name) {
  profile_ = {};
  profile_.name = job.names.intern(name);
  text_ = {};
  reportedBefore_ = problems.reported();
}

void JobBuilder::profileClassName(std::string_view text) {
  text_.className = text;
  profile_.profileClass = profileClass(text);
  if (profile_.profileClass != nullptr) return;
  std::vector<std::string_view> classes;
  for (const ProfileClass& row : profileClasses()) classes.push_back(row.name);
  problems.report("unknown class of profile " + inQuotes(text) + ": " +
                  suggestion(text, classes, "docs/job-format.md names them all"));
}

void JobBuilder::profileDesignation(std::string_view text) {
  if (text.empty()) problems.report("a designation must not be empty");
  text_.designation = text;
}

void JobBuilder::profileParameter(const Scalar& value) {
  text_.parameters.push_back({std::string(value.key), problems.offset(), value});
  text_.parameters.back().value.text = {};
}

void JobBuilder::beginProfileLine() {
  text_.parameters.push_back({std::string(kLineKey), problems.offset(), {.kind = Kind::kList}});
}

void JobBuilder::profileLinePoint(JobPoint point) {
  if (!text_.line.empty() && text_.line.back().x == point.x && text_.line.back().y == point.y) {
    problems.report("the point equals the one before: successive points must be different");
  }
  text_.line.push_back({point.x, point.y, point.z});
}

void JobBuilder::profileOrigin(const Scalar& value) {
  text_.parameters.push_back({std::string(kOriginKey), problems.offset(), {.kind = Kind::kPoint}});
  text_.origin = {value.point.x, value.point.y, 0};
}

void JobBuilder::endProfile() {
  text_.sound = problems.reported() == reportedBefore_;
  // Known by its name even when something is wrong with it, so that its members aren't blamed too.
  std::uint32_t& place = profilePlace(profile_.name);
  text_.profile = static_cast<std::uint32_t>(job.profiles.size());
  if (place == kNone) place = text_.profile;
  const Blame blame = [this](const std::string& key, const Parameter* parameter, std::string message) {
    if (parameter == nullptr) return problems.report(std::move(message));
    problems.reportKey(key, parameter->offset, std::move(message));
  };
  if (!text_.designation.empty()) {
    designated_.push_back(text_);
  } else if (profile_.profileClass != nullptr) {
    settleProfile(text_, {}, profile_, blame);
  } else if (text_.className.empty()) {
    problems.report(
        "missing \"class\" or \"designation\": give the class of profile, such as \"KrTubo\", or a "
        "designation, such as \"IPE 200\"");
  }
  job.profiles.push_back(profile_);
}

// Puts the job's parameters into the class's order, over what is given already.
bool JobBuilder::takeParameters(const ProfileClass& row, const std::vector<Parameter>& parameters,
                                GivenParameters& given, const Blame& blame) {
  bool sound = true;
  GivenParameters own;
  for (const Parameter& parameter : parameters) {
    const auto wrong = [&](std::string message) {
      blame(parameter.key, &parameter, std::move(message));
      sound = false;
    };
    if (row.takesLine && (parameter.key == kLineKey || parameter.key == kOriginKey)) continue;
    const std::size_t at = row.positionOf(parameter.key);
    if (at == kMaxParameters) {
      std::vector<std::string_view> keys{"class", "designation"};
      for (const ProfileParameter& p : row.parameters) keys.push_back(p.key);
      if (row.takesLine) keys.insert(keys.end(), {kLineKey, kOriginKey});
      wrong("unknown key " + inQuotes(parameter.key) + " in a profile of class " + std::string(row.name) + ": " +
            suggestion(parameter.key, keys));
      continue;
    }
    const std::string meaning(row.parameters[at].meaning);
    const double number = parameter.value.number;
    const std::string_view range = rangeProblem(row.parameters[at].range, number);
    if (own.has(at)) wrong("duplicate key " + inQuotes(parameter.key) + ": give it once");
    own.set(at, number);
    given.set(at, number);
    if (parameter.value.kind != Kind::kNumber) {
      wrong("expected a number (" + meaning + "), found " + std::string(kindWord(parameter.value.kind)));
    } else if (std::isinf(number)) {
      wrong("the number is too great to be held: expected " + meaning);
    } else if (!range.empty()) {
      wrong("must be " + std::string(range) + ": expected " + meaning);
    } else if (std::abs(number) > kLargestCoordinate) {
      wrong("must be at most " + shortest(kLargestCoordinate) + ": expected " + meaning);
    }
  }
  return sound;
}

// `base` is what a catalogue gives.
void JobBuilder::settleProfile(const ProfileText& text, const GivenParameters& base, JobProfile& profile,
                               const Blame& blame) {
  const ProfileClass& row = *profile.profileClass;
  GivenParameters given = base;
  bool sound = takeParameters(row, text.parameters, given, blame) && text.sound;
  if (row.takesLine && !text.line.empty()) {
    given.values.line = std::make_shared<SectionLine>(SectionLine{text.line, text.origin.value_or(text.line[0])});
  }
  for (std::size_t i = 0; i < row.parameters.size(); ++i) {
    if (given.has(i) || !row.parameters[i].required) continue;
    blame({}, nullptr, "missing " + inQuotes(row.parameters[i].key) + ": " + std::string(row.parameters[i].meaning));
    sound = false;
  }
  ParameterProblem problem;
  if (!sound || settleParameters(row, given, profile.values, problem)) return;
  const auto blamed = std::find_if(text.parameters.begin(), text.parameters.end(),
                                   [&](const Parameter& parameter) { return parameter.key == problem.key; });
  const Parameter* const parameter = blamed == text.parameters.end() ? nullptr : &*blamed;
  blame(std::string(problem.key), parameter, std::move(problem.message));
}

void JobBuilder::resolveDesignation(const Catalogue& catalogue, const ProfileText& text, const Blame& blame) {
  JobProfile& profile = job.profiles[text.profile];
  const CatalogueMatch match = catalogue.find(text.designation);
  const auto wrong = [&](std::string message) { blame("designation", nullptr, std::move(message)); };
  if (match.row == nullptr) {
    return wrong("unknown designation " + inQuotes(text.designation) + ": " + catalogue.suggestion(text.designation));
  }
  if (match.other != nullptr) {
    const auto place = [&](const CatalogueRow& row) {
      return catalogue.tableOf(row).file + ":" + std::to_string(row.line);
    };
    return wrong("two tables have " + inQuotes(text.designation) + ", " + place(*match.row) + " and " +
                 place(*match.other) + ": name the table, " +
                 inQuotes(catalogue.tableOf(*match.row).name + ":" + text.designation));
  }
  const CatalogueProfile single = profileOf(catalogue, *match.row);
  CatalogueProfile whole = single;
  if (!text.className.empty() && profile.profileClass == nullptr) return;  // an unknown class, reported
  if (!text.className.empty() && !compoundOf(single, *profile.profileClass, whole)) {
    return blame("class", nullptr,
                 "no " + text.className + " is made of " + inQuotes(match.row->designation) + ", which is a " +
                     std::string(single.profileClass->name));
  }
  profile.profileClass = whole.profileClass;
  profile.designation = job.names.intern(match.row->designation);
  settleProfile(text, whole.given, profile, blame);
}

void JobBuilder::resolveDesignations(const KnownNames& known, std::vector<Problem>& found) {
  if (known.catalogues == nullptr) {
    for (const ProfileText& text : designated_) {
      const std::string path = pathOf(job.names.text(job.profiles[text.profile].name), "designation");
      found.push_back({0, 0, 0, path, "there is no catalogue to look " + inQuotes(text.designation) + " up in"});
    }
    return;
  }
  for (std::size_t i = 0; i < job.catalogues.size(); ++i) {
    if (known.catalogues->addJobFile(job.catalogues[i])) continue;
    found.push_back(
        {0, 0, 0, "/catalogues/" + std::to_string(i), "the table " + inQuotes(job.catalogues[i]) + " can't be read"});
  }
  for (const ProfileText& text : designated_) {
    const std::string name(job.names.text(job.profiles[text.profile].name));
    resolveDesignation(
        known.catalogues->open(), text, [&](const std::string& key, const Parameter*, std::string message) {
          const bool own = key == "class" || std::any_of(text.parameters.begin(), text.parameters.end(),
                                                         [&](const Parameter& p) { return p.key == key; });
          found.push_back({0, 0, 0, pathOf(name, own ? key : "designation"), std::move(message)});
        });
  }
}

}  // namespace kr
