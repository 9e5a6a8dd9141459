#include <charconv>

#include "Commands.h"
#include "lib/Suggest.h"
#include "lib/Verbs.h"

namespace {

constexpr int kMostSheets = 10000;

}  // namespace

bool wholeNumber(const CommandLine& line, std::string_view option, int low, int high, int& number, kr::Report& report) {
  if (!line.has(option)) return true;
  const std::string text = line.value(option);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec == std::errc() && result.ptr == text.data() + text.size() && number >= low && number <= high)
    return true;
  report.error(kr::Exit::kArguments, std::string(option) + " takes a whole number from " + std::to_string(low) +
                                         " to " + std::to_string(high) + ", not " + kr::inQuotes(text));
  return false;
}

void commandBuild(const CommandLine& line, kr::Report& report) {
  kr::BuildRequest request;
  request.job = line.argument("JOB");
  request.files = line.arguments("FILE");
  if (line.has("--output")) request.files.push_back(line.value("--output"));
  if (request.files.empty()) {
    report.error(kr::Exit::kArguments, "no FILE given: name what to write; see kr help build");
    return;
  }
  request.format = line.value("--format");
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  request.catalogue = line.value("--catalogue");
  if (!wholeNumber(line, "--sheet", 1, kMostSheets, request.sheet, report)) return;
  if (!wholeNumber(line, "--resolution", kr::kLowestResolution, kr::kHighestResolution, request.resolution, report)) {
    return;
  }
  kr::build(request, report);
}
