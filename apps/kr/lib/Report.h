#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Declaration.h"

namespace kr {

/// What a run tells people, all on standard error, and how it ends: the one place that knows the exit code. A run that
/// has told an error can't end well.
class Report {
 public:
  /// How much is told.
  enum class Talk { kQuiet, kNormal, kVerbose };

  void setTalk(Talk talk) { talk_ = talk; }

  /// Tells what went wrong; the run will end with `code`, or with that of an earlier error.
  void error(Exit code, std::string_view message);

  /// A further line to the last error.
  void detail(std::string_view message);

  /// Tells what is wrong and does no harm to the work; not when asked to say nothing but errors.
  void warning(std::string_view message);

  /// Tells what was done; only when asked for much.
  void note(std::string_view message);

  /// Shows how far the work is, on a terminal only, in one line that is written over.
  void progress(std::string_view step, std::size_t done, std::size_t all);

  /// Takes the progress off the terminal.
  void endProgress();

  bool failed() const { return exit_ != Exit::kOk; }
  Exit exitCode() const { return exit_; }

 private:
  void line(std::string_view text);

  Talk talk_ = Talk::kNormal;
  Exit exit_ = Exit::kOk;
  bool progressShown_ = false;
};

}  // namespace kr
