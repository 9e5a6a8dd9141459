#include "Commands.h"
#include "lib/DrawingVerbs.h"

void commandConvert(const CommandLine& line, kr::Report& report) {
  kr::ConvertRequest request;
  request.drawing = line.argument("DRAWING");
  request.output = line.argument("FILE");
  request.format = line.value("--format");
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  kr::convert(request, report);
}
