#include "Verbs.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "Bom.h"
#include "Documents.h"
#include "DrawingSource.h"
#include "Files.h"
#include "OpenWork.h"
#include "Session.h"
#include "Sheet.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "object/KrObject.h"

namespace kr {
namespace {

// One output of a build: pages, or the drawing itself.
struct Output {
  std::string file;
  std::optional<plot::PlotFormat> pages;
  std::optional<krio::DrawingFormat> drawing;
};

bool formatFor(const std::string& given, Output& output, Report& report) {
  output.pages = plot::formatOf(given.empty() ? output.file : "." + given);
  output.drawing = drawingFormatFor(output.file, given);
  if (output.pages || output.drawing) return true;
  report.error(Exit::kArguments,
               output.file == kStandardStream
                   ? "standard output needs --format pdf, svg, png, dwg or dxf"
                   : inQuotes(output.file) + " ends in none of .pdf, .svg, .png, .dwg and .dxf: give --format");
  return false;
}

// What the command line asks for and can't be: told before any work is done.
bool checkBuild(const BuildRequest& request, std::vector<Output>& outputs, Report& report) {
  std::set<std::string> seen;
  for (const std::string& file : request.files) {
    Output& output = outputs.emplace_back();
    output.file = file;
    if (!formatFor(request.format, output, report)) return false;
    std::error_code ignored;
    const std::filesystem::path whole = std::filesystem::weakly_canonical(file, ignored);
    if (!seen.insert(whole.empty() ? file : whole.string()).second) {
      report.error(Exit::kArguments, inQuotes(file) + " is named twice");
      return false;
    }
    if (!checkOutput(file, request.job, request.overwrite, report)) return false;
  }
  return true;
}

bool layOut(const BuildRequest& request, const OpenWork& open, std::vector<plot::PlotSheet>& sheets, Report& report) {
  const Bom bill = makeBom(open.pieces());
  const DrawnJob drawn{*open.job, bill, *open.session->database()};
  const std::vector<JobSheet> asked = sheetsOf(*open.job);
  const int count = static_cast<int>(asked.size());
  if (request.sheet > count) {
    report.error(Exit::kArguments,
                 "the job has no sheet " + std::to_string(request.sheet) + ": it has " + std::to_string(count));
    return false;
  }
  for (int i = 1; i <= count; ++i) {
    if (request.sheet != 0 && request.sheet != i) continue;
    report.progress("laying out sheet", static_cast<std::size_t>(i), asked.size());
    std::string why;
    auto sheet = layOutSheet(drawn, asked[static_cast<std::size_t>(i) - 1], i, count, why);
    if (!sheet) {
      report.error(Exit::kBadInput, "sheet " + std::to_string(i) + ": " + why);
      return false;
    }
    sheets.push_back(std::move(*sheet));
  }
  report.endProgress();
  return true;
}

plot::PlotOptions plotOptions(const BuildRequest& request, const Job& job) {
  plot::PlotOptions options;
  options.pngDpi = request.resolution;
  options.colors = plot::ColorPolicy::black;
  options.title = job.title.title;
  options.author = job.title.drawnBy;
  options.subject = job.title.project;
  return options;
}

// The drawing's own files, made before the sheets put theirs into it.
bool makeDrawings(const OpenWork& open, const std::vector<Output>& outputs, std::vector<std::string>& made,
                  Report& report) {
  const auto isDrawing = [](const Output& output) { return output.drawing.has_value(); };
  if (open.members.empty() && std::any_of(outputs.begin(), outputs.end(), isDrawing)) {
    report.warning("the job has no members, so its drawing is empty: sheets are no part of it");
  }
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    if (!outputs[i].drawing) continue;
    if (!drawingBytes(*open.session->database(), *outputs[i].drawing, made[i], report)) return false;
  }
  return true;
}

bool makePages(const BuildRequest& request, const OpenWork& open, const std::vector<Output>& outputs,
               std::vector<std::string>& made, Report& report) {
  const auto hasPages = [](const Output& output) { return output.pages.has_value(); };
  if (std::none_of(outputs.begin(), outputs.end(), hasPages)) return true;
  std::vector<plot::PlotSheet> sheets;
  if (!layOut(request, open, sheets, report)) return false;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    if (!outputs[i].pages) continue;
    report.progress("drawing", i + 1, outputs.size());
    if (outputs[i].pages != plot::PlotFormat::pdf && sheets.size() > 1) {
      report.error(Exit::kArguments, inQuotes(outputs[i].file) + " holds one sheet: choose it with --sheet");
      return false;
    }
    plot::PlotOutput output = plot::plotToBytes(sheets, *outputs[i].pages, plotOptions(request, *open.job));
    if (output.error) {
      report.error(Exit::kJobFailed, output.error->text);
      return false;
    }
    for (const std::string& warning : output.warnings) report.note(warning);
    made[i] = std::move(output.bytes);
  }
  report.endProgress();
  return true;
}

std::string joinedTitle(const JobTitle& title) {
  return title.subtitle.empty() ? title.title : title.title + ", " + title.subtitle;
}

// What a member's own listing says.
std::string listingOf(AcDbObjectId id) {
  const edhost::ConsoleCapture said;
  const AcDbObjectPointer<KrObject> member(id, AcDb::kForRead);
  if (member.openStatus() == Acad::eOk) member->list();
  std::string text = os::toUtf8(said.text());
  text.erase(0, text.find_first_not_of('\n'));
  while (!text.empty() && text.back() == '\n') text.pop_back();
  return text + "\n";
}

// The members of those names; false, reported, when one isn't there.
bool pick(const std::vector<BomPiece>& pieces, const std::vector<std::string>& names, std::vector<std::size_t>& picked,
          Report& report) {
  std::vector<std::string_view> known;
  known.reserve(pieces.size());
  for (const BomPiece& piece : pieces) known.push_back(piece.name);
  for (std::size_t i = 0; names.empty() && i < known.size(); ++i) picked.push_back(i);
  for (const std::string& name : names) {
    const std::size_t before = picked.size();
    // In a drawing several members may have one name.
    for (std::size_t i = 0; i < known.size(); ++i) {
      if (known[i] == name) picked.push_back(i);
    }
    if (picked.size() == before) {
      report.error(Exit::kArguments,
                   "there is no member " + inQuotes(name) + ": " + suggestion(name, known, "kr bom --json names all"));
      return false;
    }
  }
  return true;
}

// What a listing tells of a member besides its piece.
struct Place {
  int view = 0;
  int role = 0;
  JobPoint start;
  JobPoint end;
};

Place placeOf(const OpenWork& open, std::size_t i) {
  if (open.job) {
    const JobMember& member = open.job->members[i];
    const MemberAxis axis = memberAxis(*open.job, member);
    return {member.view, member.role, axis.start, axis.end};
  }
  const AcDbObjectPointer<KrObject> member(open.members[i], AcDb::kForRead);
  if (member.openStatus() != Acad::eOk) return {};
  const AcGePoint3d start = member->startPoint();
  const AcGePoint3d end = member->endPoint();
  return {member->Vista(0), member->tipoBarra(), {start.x, start.y, 0}, {end.x, end.y, 0}};
}

std::vector<double> coordinates(JobPoint point, bool spatial) {
  std::vector<double> values{point.x, point.y};
  if (spatial) values.push_back(point.z);
  return values;
}

std::string listJson(const OpenWork& open, const std::vector<BomPiece>& pieces,
                     const std::vector<std::size_t>& picked) {
  using nlohmann::ordered_json;
  const bool spatial = open.job && isSpatial(*open.job);
  ordered_json out{{"format", "kr-list"}, {"version", 1}};
  out["members"] = ordered_json::array();
  for (const std::size_t i : picked) {
    const Place place = placeOf(open, i);
    const BomPiece& piece = pieces[i];
    out["members"].push_back({{"name", piece.name},
                              {"class", piece.profileClass},
                              {"designation", piece.designation},
                              {"dimensions", piece.dimensions},
                              {"view", viewWord(place.view)},
                              {"role", roleWord(place.role)},
                              {"start", coordinates(place.start, spatial)},
                              {"end", coordinates(place.end, spatial)},
                              {"length", piece.length},
                              {"weight", piece.weight},
                              {"paintedArea", piece.paintedArea},
                              {"listing", listingOf(open.members[i])}});
  }
  if (!open.leftOut.empty()) out["proxies"] = ordered_json::array();
  for (const auto& [name, count] : open.leftOut) out["proxies"].push_back({{"class", name}, {"count", count}});
  return out.dump(2) + "\n";
}

// The value behind a label in what SOBREKR_TRAMA writes; empty when it isn't there.
std::string valueAfter(const std::string& text, std::string_view label) {
  const std::size_t at = text.find(label);
  if (at == std::string::npos) return {};
  const std::size_t begin = text.find_first_not_of(' ', at + label.size());
  return text.substr(begin, text.find('\n', begin) - begin);
}

}  // namespace

void build(const BuildRequest& request, Report& report) {
  std::vector<Output> outputs;
  if (!checkBuild(request, outputs, report)) return;
  const auto open = openJob(request.job, request.data, request.catalogue, report);
  if (open == nullptr) return;
  std::vector<std::string> made(outputs.size());
  if (!makeDrawings(*open, outputs, made, report) || !makePages(request, *open, outputs, made, report)) return;
  for (std::size_t i = 0; i < outputs.size(); ++i) {
    const auto write = outputs[i].drawing ? writeDrawingOutput : writeOutput;
    if (!write(outputs[i].file, made[i], request.overwrite, report)) return;
    report.note("wrote " + inQuotes(outputs[i].file));
  }
}

void bom(const BomRequest& request, Report& report) {
  if (!checkOutput(request.output, request.job, request.overwrite, report)) return;
  const auto open = openWork(request.job, request.data, request.catalogue, report);
  if (open == nullptr) return;
  open->tellLeftOut(report);
  const Bom bill = makeBom(open->pieces());
  const JobTitle title = open->job ? open->job->title : JobTitle();
  const std::string text = request.form == BomForm::kCsv ? bomCsv(bill)
                           : request.form == BomForm::kJson
                               ? bomJson(bill, title.project, joinedTitle(title), open->leftOut)
                               : bomText(bill);
  writeOutput(request.output, text, request.overwrite, report);
}

void list(const ListRequest& request, Report& report) {
  if (!checkOutput(request.output, request.job, request.overwrite, report)) return;
  const auto open = openWork(request.job, request.data, request.catalogue, report);
  if (open == nullptr) return;
  open->tellLeftOut(report);
  const std::vector<BomPiece> pieces = open->pieces();
  std::vector<std::size_t> picked;
  if (!pick(pieces, request.names, picked, report)) return;
  std::string text;
  if (request.json) text = listJson(*open, pieces, picked);
  for (std::size_t i = 0; !request.json && i < picked.size(); ++i) {
    text += (i > 0 ? "\n" : "") + listingOf(open->members[picked[i]]);
  }
  writeOutput(request.output, text, request.overwrite, report);
}

void about(const AboutRequest& request, Report& report) {
  if (!checkOutput(request.output, {}, request.overwrite, report)) return;
  std::string text;
  {
    const edhost::ConsoleCapture started;  // that the module found no side library doesn't matter here
    const auto session = Session::startModule(findInstallFolder(request.data), report);
    if (session == nullptr || !session->run("SOBREKR_TRAMA", text, report)) return;
  }
  text.erase(0, text.find_first_not_of('\n'));
  if (request.json) {
    const nlohmann::ordered_json out{{"format", "kr-about"},
                                     {"version", 1},
                                     {"programVersion", programVersion()},
                                     {"productVersion", valueAfter(text, "KR_Trama ")},
                                     {"objectVersion", valueAfter(text, "Versão do KrObject: ")},
                                     {"buildDate", valueAfter(text, "Data: ")},
                                     {"buildTime", valueAfter(text, "Hora: ")}};
    text = out.dump(2) + "\n";
  }
  writeOutput(request.output, text, request.overwrite, report);
}

}  // namespace kr
