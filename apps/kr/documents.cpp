#include "lib/Documents.h"

#include "Commands.h"
#include "lib/Files.h"

void commandDocuments(const CommandLine& line, kr::Report& report) {
  const std::string kind = line.argument("KIND");
  const std::string name = line.argument("NAME");
  const kr::VerbDeclaration* verb = kr::verb(name);
  if (kind == "completion") {
    kr::writeOutput("-", kr::completionScript(), false, report);
  } else if (kind == "reference") {
    kr::writeOutput("-", kr::referenceDocument(), false, report);
  } else if (kind == "man" && (name.empty() || verb != nullptr)) {
    kr::writeOutput("-", verb != nullptr ? kr::manualPage(*verb) : kr::manualPage(), false, report);
  } else {
    report.error(kr::Exit::kArguments, "known documents are man, man VERB, completion and reference");
  }
}
