#include <algorithm>
#include <nlohmann/json.hpp>

#include "DrawingInfo.h"
#include "DrawingSource.h"
#include "DrawingVerbs.h"
#include "Files.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/io/DrawingAudit.h"

namespace kr {
namespace {

using krio::AuditFinding;
using nlohmann::ordered_json;

std::size_t fixedOf(const std::vector<AuditFinding>& findings) {
  return std::size_t(std::count_if(findings.begin(), findings.end(), [](const AuditFinding& f) { return f.fixed; }));
}

std::string line(std::size_t number, const AuditFinding& finding) {
  std::string out = std::to_string(number) + ". " + std::to_string(finding.number) + " ";
  if (!finding.className.empty()) out += finding.className + " ";
  if (finding.handle != 0) out += handleText(finding.handle) + " ";
  if (out.back() == ' ' && (finding.handle != 0 || !finding.className.empty())) out.back() = ':';
  if (out.back() == ':') out += ' ';
  out += finding.what;
  if (finding.fixed) return out + "; fixed: " + finding.remedy;
  return finding.remedy.empty() ? out : out + "; --fix: " + finding.remedy;
}

std::string auditText(const OpenDrawing& open, const std::vector<AuditFinding>& findings) {
  std::string out;
  krio::AuditBand band{};
  std::size_t number = 0;
  for (const AuditFinding& finding : findings) {
    if (finding.band() != band) out += std::string(nameOf(band = finding.band())) + "\n";
    out += "  " + line(++number, finding) + "\n";
  }
  const std::size_t fixed = fixedOf(findings);
  if (findings.empty()) return inQuotes(open.name) + ": no errors found\n";
  return out + std::to_string(findings.size()) + " found, " + std::to_string(fixed) + " fixed, " +
         std::to_string(findings.size() - fixed) + " unfixed\n";
}

std::string auditJson(const OpenDrawing& open, bool fix, const std::vector<AuditFinding>& findings) {
  const std::size_t fixed = fixedOf(findings);
  ordered_json out{{"format", "kr-audit"}, {"version", 1},
                   {"drawing", open.name}, {"damaged", open.recovered},
                   {"fixing", fix},        {"found", findings.size()},
                   {"fixed", fixed},       {"unfixed", findings.size() - fixed}};
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

// What was put right in reading is so in the file too once it is saved.
bool saveFixed(const AuditRequest& request, const OpenDrawing& open, std::vector<AuditFinding>& findings,
               Report& report) {
  for (AuditFinding& finding : findings) {
    if (finding.number == krio::kAuditMendedInReading) finding.fixed = true;
  }
  if (fixedOf(findings) == 0) return true;
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
  std::vector<AuditFinding> findings = krio::auditFindings(open.findings);
  if (open.recovered && findings.empty()) {
    findings.push_back({krio::kAuditLost, 0, {}, "the file is damaged; what was lost can't be told", {}, false});
  }
  const std::vector<AuditFinding> ofObjects = krio::auditDrawing(*open.database, fix);
  findings.insert(findings.end(), ofObjects.begin(), ofObjects.end());
  if (fix && !saveFixed(request, open, findings, report)) return;
  const std::string text = request.json ? auditJson(open, fix, findings) : auditText(open, findings);
  if (!writeOutput(request.output, text, request.overwrite, report)) return;
  const std::size_t unfixed = findings.size() - fixedOf(findings);
  if (unfixed == 0) return;
  report.error(Exit::kRuleViolation, inQuotes(open.name) + " has " + std::to_string(unfixed) +
                                         (unfixed == 1 ? " fault" : " faults") +
                                         (open.recovered ? "; \"kr recover\" saves what is left of it" : ""));
}

}  // namespace kr
