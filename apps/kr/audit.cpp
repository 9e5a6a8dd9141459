#include "Commands.h"
#include "lib/DrawingVerbs.h"

void commandAudit(const CommandLine& line, kr::Report& report) {
  kr::AuditRequest request;
  request.drawing = line.argument("DRAWING");
  request.fix = line.has("--fix");
  request.json = line.has("--json");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  kr::audit(request, report);
}
