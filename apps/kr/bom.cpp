#include "Commands.h"
#include "lib/Verbs.h"

void commandBom(const CommandLine& line, kr::Report& report) {
  kr::BomRequest request;
  request.job = line.argument("FILE");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  request.catalogue = line.value("--catalogue");
  if (line.has("--json") && line.has("--csv")) {
    report.error(kr::Exit::kArguments, "--json and --csv exclude each other");
    return;
  }
  if (line.has("--json")) request.form = kr::BomForm::kJson;
  if (line.has("--csv")) request.form = kr::BomForm::kCsv;
  kr::bom(request, report);
}
