#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// What a reader, a writer or an audit has to say of a drawing.
namespace krio {

enum class Severity { Note, Warning, Error };

/// One finding: what, where, and what was done about it.
struct Finding {
  Severity severity = Severity::Note;
  std::uint64_t handle = 0;  ///< handle of the object that it is about; 0 when about none
  std::int64_t place = -1;   ///< byte offset (DWG) or line number from 1 (DXF) in the file; -1 when unknown
  std::string what;  ///< one sentence in UTF-8 without the handle and the place: "unknown class KRFOO, kept as a proxy"
  bool fixed = false;  ///< whether the fault was mended in what was read or written
};

/// The findings of one operation, in the order in which they were met.
struct Report {
  std::vector<Finding> findings;

  void note(std::string what, std::uint64_t handle = 0, std::int64_t place = -1) {
    findings.push_back({Severity::Note, handle, place, std::move(what), false});
  }
  void warn(std::string what, std::uint64_t handle = 0, std::int64_t place = -1, bool fixed = false) {
    findings.push_back({Severity::Warning, handle, place, std::move(what), fixed});
  }
  void error(std::string what, std::uint64_t handle = 0, std::int64_t place = -1, bool fixed = false) {
    findings.push_back({Severity::Error, handle, place, std::move(what), fixed});
  }
  /// True when no finding is worse than a note.
  bool clean() const {
    for (const Finding& f : findings)
      if (f.severity != Severity::Note) return false;
    return true;
  }
};

/// How a reader treats a fault.
struct ReadOptions {
  /// False: a checksum that doesn't match, a broken section or an object that can't be read ends the reading with an
  /// error. True: what can be read is read, and the report lists what was lost.
  bool recover = false;
};

}  // namespace krio
