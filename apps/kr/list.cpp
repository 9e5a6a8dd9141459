#include "Commands.h"
#include "lib/Verbs.h"

void commandList(const CommandLine& line, kr::Report& report) {
  kr::ListRequest request;
  request.job = line.argument("FILE");
  request.names = line.arguments("NAME");
  request.json = line.has("--json");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  request.catalogue = line.value("--catalogue");
  kr::list(request, report);
}
