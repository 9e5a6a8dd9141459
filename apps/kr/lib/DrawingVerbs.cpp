#include "DrawingVerbs.h"

#include <nlohmann/json.hpp>

#include "DrawingInfo.h"
#include "DrawingSource.h"
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

// What a recovery tells of a finding; notes are of a drawing that is as it should be.
std::vector<std::string> lossesOf(const OpenDrawing& open) {
  std::vector<std::string> losses;
  for (const krio::Finding& finding : open.findings.findings) {
    if (finding.severity != krio::Severity::Note) losses.push_back(sentenceOf(finding));
  }
  // Only a fault brought the recovery about.
  if (open.recovered && losses.empty()) losses.emplace_back("the file is damaged; what was lost can't be told");
  return losses;
}

std::string recoveryText(const RecoverRequest& request, const OpenDrawing& open, const std::vector<std::string>& losses,
                         const DrawingInfo& info) {
  std::string out = inQuotes(open.name) + (losses.empty() ? " is whole" : " is damaged") + ": saved as " +
                    inQuotes(request.output) + ", objects: " + std::to_string(info.objects) +
                    ", entities in model space: " + std::to_string(info.entities) + "\n";
  if (!losses.empty()) out += counted(losses.size(), "finding") + "\n";
  for (std::size_t i = 0; i < losses.size(); ++i) out += std::to_string(i + 1) + ". " + losses[i] + "\n";
  return out;
}

std::string recoveryJson(const RecoverRequest& request, const OpenDrawing& open, const std::vector<std::string>& losses,
                         const DrawingInfo& info) {
  const ordered_json out{{"format", "kr-recover"},     {"version", 1},
                         {"drawing", open.name},       {"saved", request.output},
                         {"damaged", !losses.empty()}, {"objects", info.objects},
                         {"entities", info.entities},  {"members", info.members},
                         {"findings", losses}};
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
  std::string bytes;
  if (session == nullptr || !drawingBytes(*open.database, format, bytes, report)) return;
  if (!writeDrawingOutput(request.output, bytes, request.overwrite, report)) return;
  const std::vector<std::string> losses = lossesOf(open);
  const DrawingInfo found = infoOf(open);
  writeOutput("-",
              request.json ? recoveryJson(request, open, losses, found) : recoveryText(request, open, losses, found),
              false, report);
  if (!losses.empty()) {
    report.error(Exit::kRuleViolation, inQuotes(open.name) + " is damaged: " + counted(losses.size(), "finding"));
  }
}

}  // namespace kr
