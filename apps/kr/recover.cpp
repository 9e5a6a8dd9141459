#include "Commands.h"
#include "lib/DrawingVerbs.h"

void commandRecover(const CommandLine& line, kr::Report& report) {
  kr::RecoverRequest request;
  request.drawing = line.argument("DRAWING");
  request.output = line.value("--output");
  request.format = line.value("--format");
  request.json = line.has("--json");
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  if (request.output == "-") {
    report.error(kr::Exit::kArguments, "the drawing can't go to standard output, where the findings go: name a file");
    return;
  }
  if (request.output.empty()) {
    report.error(kr::Exit::kArguments, "-o FILE is missing: the drawing to save; see kr help recover");
    return;
  }
  kr::recover(request, report);
}
