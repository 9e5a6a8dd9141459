#include <array>

#include "Commands.h"
#include "lib/Suggest.h"
#include "lib/Verbs.h"

void commandCatalogue(const CommandLine& line, kr::Report& report) {
  constexpr std::array<std::string_view, 2> kActions = {"search", "show"};
  kr::CatalogueRequest request;
  const std::string action = line.argument("ACTION");
  for (const std::string& word : line.arguments("TEXT")) request.text += (request.text.empty() ? "" : " ") + word;
  if (action == kActions[0]) {
    request.action = kr::CatalogueAction::kSearch;
  } else if (action == kActions[1]) {
    request.action = kr::CatalogueAction::kShow;
  } else if (!action.empty()) {
    report.error(kr::Exit::kArguments, "unknown action " + kr::inQuotes(action) + ": " +
                                           kr::suggestion(action, kActions) + "; see kr help catalogue");
    return;
  }
  if (!action.empty() && request.text.empty()) {
    report.error(kr::Exit::kArguments, "TEXT is missing: what to " + action + "; see kr help catalogue");
    return;
  }
  request.json = line.has("--json");
  request.output = line.has("--output") ? line.value("--output") : "-";
  request.overwrite = line.has("--overwrite");
  request.data = line.value("--data");
  request.catalogue = line.value("--catalogue");
  kr::catalogue(request, report);
}
