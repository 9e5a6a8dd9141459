#include "Commands.h"
#include "lib/Verbs.h"

void commandAbout(const CommandLine& line, kr::Report& report) {
  kr::AboutRequest request;
  request.json = line.has("--json");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  kr::about(request, report);
}
