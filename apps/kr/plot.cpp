#include <charconv>
#include <cmath>

#include "Commands.h"
#include "lib/DrawingVerbs.h"
#include "lib/Suggest.h"
#include "lib/Verbs.h"

namespace {

bool positive(std::string_view text, double& number) {
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() && std::isfinite(number) && number > 0;
}

// "1:50" or "2:1"; false, reported, for anything else.
bool scaleOf(const CommandLine& line, double& scale, kr::Report& report) {
  if (!line.has("--scale")) return true;
  const std::string text = line.value("--scale");
  const std::string_view whole(text);
  const std::size_t colon = whole.find(':');
  double paper = 0;
  double real = 0;
  if (colon != std::string_view::npos && positive(whole.substr(0, colon), paper) &&
      positive(whole.substr(colon + 1), real)) {
    scale = paper / real;
    if (std::isfinite(scale) && scale > 0) return true;
  }
  report.error(kr::Exit::kArguments, "--scale takes a ratio such as 1:50, not " + kr::inQuotes(text));
  return false;
}

}  // namespace

void commandPlot(const CommandLine& line, kr::Report& report) {
  kr::PlotRequest request;
  request.drawing = line.argument("FILE");
  request.output = line.argument("OUTPUT");
  request.format = line.value("--format");
  request.size = line.value("--size");
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  request.catalogue = line.value("--catalogue");
  if (!scaleOf(line, request.scale, report)) return;
  if (!wholeNumber(line, "--resolution", kr::kLowestResolution, kr::kHighestResolution, request.resolution, report)) {
    return;
  }
  kr::plotModel(request, report);
}
