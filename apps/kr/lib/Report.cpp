#include "Report.h"

#include <unistd.h>

#include <cstdio>

namespace kr {
namespace {

constexpr std::string_view kEraseLine = "\r\x1b[K";

void writeError(std::string_view text) {
  // Nothing more can be told when standard error itself fails.
  static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

}  // namespace

void Report::line(std::string_view text) {
  endProgress();
  std::string whole = "kr: ";
  whole += text;
  whole += '\n';
  writeError(whole);
}

void Report::error(Exit code, std::string_view message) {
  if (exit_ == Exit::kOk) exit_ = code;
  line(message);
}

void Report::detail(std::string_view message) {
  endProgress();
  writeError(std::string(message) + "\n");
}

void Report::warning(std::string_view message) {
  if (talk_ != Talk::kQuiet) line("warning: " + std::string(message));
}

void Report::note(std::string_view message) {
  if (talk_ == Talk::kVerbose) line(message);
}

void Report::progress(std::string_view step, std::size_t done, std::size_t all) {
  static const bool terminal = isatty(STDERR_FILENO) != 0;
  if (!terminal || talk_ == Talk::kQuiet) return;
  writeError(std::string(kEraseLine) + std::string(step) + " " + std::to_string(done) + "/" + std::to_string(all));
  progressShown_ = true;
}

void Report::endProgress() {
  if (!progressShown_) return;
  writeError(kEraseLine);
  progressShown_ = false;
}

}  // namespace kr
