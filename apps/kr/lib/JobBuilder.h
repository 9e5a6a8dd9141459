#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "CatalogueShelf.h"
#include "Job.h"
#include "JobRules.h"
#include "Problem.h"

namespace kr {

/// Where a builder tells what's wrong with a value while it is read.
class ProblemSink {
 public:
  virtual ~ProblemSink() = default;

  /// A problem with the value being read, or with the object that has just ended.
  virtual void report(std::string message) = 0;

  /// A problem with a key of the object that has just ended, whose value began at `offset`.
  virtual void reportKey(std::string_view key, std::size_t offset, std::string message) = 0;

  /// The offset of the value being read.
  virtual std::size_t offset() const = 0;

  /// How many problems were told so far.
  virtual std::size_t reported() const = 0;
};

/// Names that a job may use without declaring them.
struct KnownNames {
  std::vector<std::string> layers;
  std::vector<std::string> linetypes;
  CatalogueShelf* catalogues = nullptr;  ///< where designations are looked up; null: nowhere
};

/// The job that grows while its text is read. The rules' functions fill the thing that is being read; finish() resolves
/// the references.
class JobBuilder {
 public:
  JobBuilder(Job& built, ProblemSink& sink) : job(built), problems(sink) {}

  Job& job;
  ProblemSink& problems;

  // What is being read, by the rule that is open.
  JobTitle* title = nullptr;
  JobMember member;
  JobModifiers modifiers;
  JobHole hole;
  JobCut cut;
  JobNotch notch;
  JobSplit split;
  JobLayer layer;
  JobSheet sheet;
  JobDetail detail;
  JobView view;

  void beginProfile(std::string_view name);
  void profileClassName(std::string_view text);
  void profileDesignation(std::string_view text);
  void profileParameter(const Scalar& value);
  void beginProfileLine();
  void profileLinePoint(JobPoint point);
  void profileOrigin(const Scalar& value);
  void endProfile();

  void addNode(std::string_view name, JobPoint point);
  std::uint32_t addPoint(JobPoint point);
  std::uint32_t nodeReference(const Scalar& value);
  void beginMember();
  void endHole();
  void endCut();
  void endNotch();
  void endMember();
  void beginView();
  void endView();
  void endSheet();

  /// Resolves every reference and checks what needs the whole job. Problems found here have a path and no offset.
  /// `sound` says that none was found while reading.
  void finish(const KnownNames& known, bool sound, std::vector<Problem>& found);

 private:
  struct Parameter {
    std::string key;
    std::size_t offset;
    Scalar value;
  };

  /// A profile of the job's own or of a catalogue, and what the job says of it.
  struct ProfileText {
    std::uint32_t profile = kNone;
    std::string className;
    std::string designation;
    std::vector<Parameter> parameters;
    std::vector<LinePoint> line;
    std::optional<LinePoint> origin;
    bool sound = true;  ///< nothing was wrong while it was read
  };

  /// Tells what is wrong with a key of a profile, or, with no parameter, with the whole of it.
  using Blame = std::function<void(const std::string& key, const Parameter* parameter, std::string message)>;

  static bool takeParameters(const ProfileClass& row, const std::vector<Parameter>& parameters, GivenParameters& given,
                             const Blame& blame);
  static void settleProfile(const ProfileText& text, const GivenParameters& base, JobProfile& profile,
                            const Blame& blame);
  std::uint32_t& profilePlace(NameId name);
  void resolveDesignations(const KnownNames& known, std::vector<Problem>& found);
  void resolveDesignation(const Catalogue& catalogue, const ProfileText& text, const Blame& blame);
  void resolveLayers(const KnownNames& known, std::vector<Problem>& found);
  void resolveMembers(std::vector<Problem>& found);
  void resolveDetails(std::vector<Problem>& found);
  void resolveSheets(std::vector<Problem>& found);
  void resolvePoint(const std::string& path, std::uint32_t& reference, std::vector<Problem>& found);
  void checkLimits(std::size_t index, std::vector<Problem>& found) const;
  void checkLength(std::size_t index, const JobMember& checked, std::vector<Problem>& found) const;
  void checkLayers(const KnownNames& known, std::vector<Problem>& found);
  std::string hint(std::string_view wanted, const std::vector<std::uint32_t>& index, std::string_view otherwise);

  int hints_ = 0;
  JobProfile profile_;
  ProfileText text_;
  std::size_t reportedBefore_ = 0;       // the profile or view that is being read
  std::vector<ProfileText> designated_;  // profiles that wait for the catalogue

  // By name, kNone where the name is of something else.
  std::vector<std::uint32_t> pointOf_;
  std::vector<std::uint32_t> profileOf_;
  std::vector<std::uint32_t> memberOf_;
};

}  // namespace kr
