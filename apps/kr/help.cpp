#include "Commands.h"
#include "lib/Documents.h"
#include "lib/Files.h"
#include "lib/Suggest.h"

void commandHelp(const CommandLine& line, kr::Report& report) {
  if (line.has("--json")) {
    kr::writeOutput("-", kr::helpJson(), false, report);
    return;
  }
  const std::string name = line.argument("VERB");
  if (name.empty()) {
    kr::writeOutput("-", kr::helpText(), false, report);
    return;
  }
  if (const kr::VerbDeclaration* verb = kr::verb(name)) {
    kr::writeOutput("-", kr::helpText(*verb), false, report);
    return;
  }
  std::vector<std::string_view> names;
  for (const kr::VerbDeclaration& row : kr::verbs()) {
    if (!row.hidden) names.push_back(row.name);
  }
  report.error(kr::Exit::kArguments, "unknown verb " + kr::inQuotes(name) + ": " + kr::suggestion(name, names));
}
