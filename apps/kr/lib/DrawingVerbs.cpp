#include "DrawingVerbs.h"

#include <nlohmann/json.hpp>

#include "DrawingInfo.h"
#include "DrawingSource.h"
#include "Faults.h"
#include "Files.h"
#include "Suggest.h"
#include "host/db/db.h"

namespace kr {
namespace {

using nlohmann::ordered_json;

bool formatOf(const std::string& output, const std::string& given, krio::DrawingFormat& format, Report& report) {
  const auto found = drawingFormatFor(output, given);
  if (found) {
    format = *found;
  } else {
    report.error(Exit::kArguments, inQuotes(output) + " ends in neither .dwg nor .dxf: give --format");
  }
  return found.has_value();
}

std::string counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Whether what was saved isn't the whole drawing, or has a fault.
bool isDamaged(const OpenDrawing& open, const std::vector<krio::AuditFinding>& faults) {
  return open.recovered || countsOf(open, faults).unfixed > 0;
}

std::string recoveryText(const RecoverRequest& request, const OpenDrawing& open,
                         const std::vector<krio::AuditFinding>& faults, const DrawingInfo& info) {
  const char* const state = isDamaged(open, faults) ? " is damaged" : faults.empty() ? " is whole" : " was put right";
  std::string out = inQuotes(open.name) + state + ": saved as " + inQuotes(request.output) +
                    ", objects: " + std::to_string(info.objects) +
                    ", entities in model space: " + std::to_string(info.entities) + "\n";
  if (!faults.empty()) out += counted(faults.size(), "finding") + "\n";
  for (std::size_t i = 0; i < faults.size(); ++i) out += std::to_string(i + 1) + ". " + lineOf(faults[i]) + "\n";
  return out;
}

std::string recoveryJson(const RecoverRequest& request, const OpenDrawing& open,
                         const std::vector<krio::AuditFinding>& faults, const DrawingInfo& info) {
  ordered_json out{{"format", "kr-recover"},
                   {"version", 1},
                   {"drawing", open.name},
                   {"saved", request.output},
                   {"damaged", isDamaged(open, faults)},
                   {"objects", info.objects},
                   {"entities", info.entities},
                   {"members", info.members}};
  out["findings"] = ordered_json::array();
  for (const krio::AuditFinding& fault : faults) out["findings"].push_back(lineOf(fault));
  return out.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace

void info(const InfoRequest& request, Report& report) {
  if (!checkOutput(request.output, request.drawing, request.overwrite, report)) return;
  OpenDrawing open;
  const auto session = openDrawingFile(request.drawing, request.data, Opening::kStrict, open, report);
  if (session == nullptr) return;
  const DrawingInfo found = infoOf(open);
  writeOutput(request.output, request.json ? infoJson(found) : infoText(found), request.overwrite, report);
}

void convert(const ConvertRequest& request, Report& report) {
  krio::DrawingFormat format;
  if (!formatOf(request.output, request.format, format, report)) return;
  if (!checkOutput(request.output, request.drawing, request.overwrite, report)) return;
  OpenDrawing open;
  const auto session = openDrawingFile(request.drawing, request.data, Opening::kStrict, open, report);
  std::string bytes;
  if (session == nullptr || !drawingBytes(*open.database, format, bytes, report)) return;
  writeDrawingOutput(request.output, bytes, request.overwrite, report);
}

void recover(const RecoverRequest& request, Report& report) {
  krio::DrawingFormat format;
  if (!formatOf(request.output, request.format, format, report)) return;
  if (!checkOutput(request.output, request.drawing, request.overwrite, report)) return;
  OpenDrawing open;
  const auto session = openDrawingFile(request.drawing, request.data, Opening::kStrictThenMend, open, report);
  if (session == nullptr) return;
  std::vector<krio::AuditFinding> faults = faultsOf(open, true);
  std::string bytes;
  if (!drawingBytes(*open.database, format, bytes, report)) return;
  if (!writeDrawingOutput(request.output, bytes, request.overwrite, report)) return;
  if (!open.recovered) markSaved(faults);
  const DrawingInfo found = infoOf(open);
  writeOutput("-",
              request.json ? recoveryJson(request, open, faults, found) : recoveryText(request, open, faults, found),
              false, report);
  if (isDamaged(open, faults)) {
    report.error(Exit::kRuleViolation, inQuotes(open.name) + " is damaged: " + counted(faults.size(), "finding"));
  }
}

}  // namespace kr
