#include "Faults.h"

#include "DrawingInfo.h"

namespace kr {

using krio::AuditFinding;

FaultCounts countsOf(const OpenDrawing& open, const std::vector<AuditFinding>& faults) {
  FaultCounts counts;
  for (const AuditFinding& fault : faults) {
    const bool mended = fault.number == krio::kAuditMendedInReading && !open.recovered;
    ++(fault.fixed ? counts.fixed : mended ? counts.mended : counts.unfixed);
  }
  return counts;
}

std::vector<AuditFinding> faultsOf(const OpenDrawing& open, bool fix) {
  std::vector<AuditFinding> faults = krio::auditFindings(open.findings);
  if (open.recovered && faults.empty()) {
    faults.push_back({krio::kAuditLost, 0, {}, "the file is damaged; what was lost can't be told", {}, false});
  }
  const std::vector<AuditFinding> ofObjects = krio::auditDrawing(*open.database, fix);
  faults.insert(faults.end(), ofObjects.begin(), ofObjects.end());
  return faults;
}

void markSaved(std::vector<AuditFinding>& faults) {
  for (AuditFinding& fault : faults) {
    if (fault.number == krio::kAuditMendedInReading) fault.fixed = true;
  }
}

std::string lineOf(const AuditFinding& fault) {
  std::string out = std::to_string(fault.number) + " ";
  if (!fault.className.empty()) out += fault.className + " ";
  if (fault.handle != 0) out += handleText(fault.handle) + " ";
  if (out.back() == ' ' && (fault.handle != 0 || !fault.className.empty())) out.back() = ':';
  if (out.back() == ':') out += ' ';
  out += fault.what;
  if (fault.fixed) return out + "; fixed: " + fault.remedy;
  if (fault.number == krio::kAuditMendedInReading) return out + "; " + fault.remedy;
  return fault.remedy.empty() ? out : out + "; --fix: " + fault.remedy;
}

}  // namespace kr
