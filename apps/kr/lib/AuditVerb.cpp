#include <nlohmann/json.hpp>

#include "DrawingInfo.h"
#include "DrawingVerbs.h"
#include "Faults.h"
#include "Files.h"
#include "Suggest.h"
#include "host/db/db.h"

namespace kr {
namespace {

using krio::AuditFinding;
using nlohmann::ordered_json;

std::string auditText(const OpenDrawing& open, const std::vector<AuditFinding>& findings) {
  std::string out;
  krio::AuditBand band{};
  std::size_t number = 0;
  for (const AuditFinding& finding : findings) {
    if (finding.band() != band) out += std::string(nameOf(band = finding.band())) + "\n";
    out += "  " + std::to_string(++number) + ". " + lineOf(finding) + "\n";
  }
  if (findings.empty()) return inQuotes(open.name) + ": no errors found\n";
  const FaultCounts counts = countsOf(open, findings);
  return out + std::to_string(findings.size()) + " found, " + std::to_string(counts.fixed) + " fixed, " +
         std::to_string(counts.mended) + " mended in reading, " + std::to_string(counts.unfixed) + " unfixed\n";
}

std::string auditJson(const OpenDrawing& open, bool fix, const std::vector<AuditFinding>& findings) {
  const FaultCounts counts = countsOf(open, findings);
  ordered_json out{{"format", "kr-audit"},
                   {"version", 1},
                   {"drawing", open.name},
                   {"damaged", open.recovered},
                   {"fixing", fix},
                   {"found", findings.size()},
                   {"fixed", counts.fixed},
                   {"mended", counts.mended},
                   {"unfixed", counts.unfixed}};
  out["findings"] = ordered_json::array();
  std::size_t number = 0;
  for (const AuditFinding& finding : findings) {
    out["findings"].push_back({{"index", ++number},
                               {"number", finding.number},
                               {"band", nameOf(finding.band())},
                               {"class", finding.className},
                               {"handle", finding.handle != 0 ? handleText(finding.handle) : ""},
                               {"what", finding.what},
                               {"remedy", finding.remedy},
                               {"fixed", finding.fixed}});
  }
  return out.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

bool saveFixed(const AuditRequest& request, const OpenDrawing& open, std::vector<AuditFinding>& findings,
               Report& report) {
  markSaved(findings);
  if (countsOf(open, findings).fixed == 0) return true;
  std::string bytes;
  return drawingBytes(*open.database, open.format, bytes, report) &&
         writeDrawingOutput(request.drawing, bytes, true, report);
}

}  // namespace

void audit(const AuditRequest& request, Report& report) {
  if (request.fix && request.drawing == kStandardStream) {
    report.error(Exit::kArguments, "--fix mends a file: name one");
    return;
  }
  if (!checkOutput(request.output, request.drawing, request.overwrite, report)) return;
  OpenDrawing open;
  const auto session = openDrawingFile(request.drawing, request.data, Opening::kStrictThenMend, open, report);
  if (session == nullptr) return;
  // A damaged file stays as it is: what is left of it isn't the drawing, and goes where "kr recover" is told.
  const bool fix = request.fix && !open.recovered;
  std::vector<AuditFinding> findings = faultsOf(open, fix);
  if (fix && !saveFixed(request, open, findings, report)) return;
  writeOutput(request.output, request.json ? auditJson(open, fix, findings) : auditText(open, findings),
              request.overwrite, report);
  const std::size_t unfixed = countsOf(open, findings).unfixed;
  if (unfixed == 0) return;
  report.error(Exit::kRuleViolation, inQuotes(open.name) + " has " + std::to_string(unfixed) +
                                         (unfixed == 1 ? " fault" : " faults") +
                                         (open.recovered ? "; \"kr recover\" saves what is left of it" : ""));
}

}  // namespace kr
