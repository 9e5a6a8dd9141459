#include "Commands.h"
#include "lib/DrawingVerbs.h"

void commandInfo(const CommandLine& line, kr::Report& report) {
  kr::InfoRequest request;
  request.drawing = line.argument("DRAWING");
  request.json = line.has("--json");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  kr::info(request, report);
}
