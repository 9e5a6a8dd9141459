#include "Verbs.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "Bom.h"
#include "CatalogueTables.h"
#include "Documents.h"
#include "Drawing.h"
#include "Files.h"
#include "JobReader.h"
#include "Session.h"
#include "Sheet.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "object/KrObject.h"

namespace kr {
namespace {

// A job read, with its members in the drawing of a session.
struct OpenJob {
  Job job;
  std::unique_ptr<Session> session;
  std::vector<AcDbObjectId> members;
};

void tellProblems(const std::string& file, const std::vector<Problem>& problems, Report& report) {
  const std::string name = file == kStandardStream ? "standard input" : file;
  const std::size_t count = problems.size();
  report.error(Exit::kBadInput, inQuotes(name) + " has " + std::to_string(count) + (count == 1 ? " error" : " errors") +
                                    "; nothing was written");
  for (const Problem& problem : problems) report.detail(describe(name, problem));
}

// Reads a job and draws its members. Null, reported, when something is wrong.
std::unique_ptr<OpenJob> openJob(const std::string& file, const std::string& data, const std::string& tables,
                                 Report& report) {
  std::string text;
  if (!readInput(file, text, report)) return nullptr;
  const std::string folder = findInstallFolder(data);
  auto open = std::make_unique<OpenJob>();
  std::vector<Problem> problems;
  report.note("install folder " + inQuotes(folder));
  CatalogueShelf shelf(folder, std::filesystem::path(file).parent_path().string());
  if (!addTables(shelf, tables, report)) return nullptr;
  KnownNames known = knownNames(folder);
  known.catalogues = &shelf;
  const bool good = readJob(text, known, open->job, problems);
  tellTables(shelf, report);
  if (!good) {
    tellProblems(file, problems, report);
    return nullptr;
  }
  open->session = Session::start(folder, report);
  if (open->session == nullptr) return nullptr;
  if (!modelJob(text, open->job, problems)) {
    tellProblems(file, problems, report);
    return nullptr;
  }
  std::string why;
  if (!drawMembers(open->job, *open->session->database(), open->members, why)) {
    report.error(Exit::kJobFailed, why);
    return nullptr;
  }
  report.note(std::to_string(open->members.size()) + " members drawn");
  return open;
}

std::optional<plot::PlotFormat> formatFor(const std::string& file, const std::string& given, Report& report) {
  std::optional<plot::PlotFormat> format = plot::formatOf(given.empty() ? file : "." + given);
  if (!format) {
    report.error(Exit::kArguments, file == kStandardStream
                                       ? "standard output needs --format pdf, svg or png"
                                       : inQuotes(file) + " ends in none of .pdf, .svg and .png: give --format");
  }
  return format;
}

// What the command line asks for and can't be: told before any work is done.
bool checkBuild(const BuildRequest& request, std::vector<plot::PlotFormat>& formats, Report& report) {
  std::set<std::string> seen;
  for (const std::string& file : request.files) {
    const auto format = formatFor(file, request.format, report);
    if (!format) return false;
    formats.push_back(*format);
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

bool layOut(const BuildRequest& request, const OpenJob& open, std::vector<plot::PlotSheet>& sheets, Report& report) {
  const Bom bill = makeBom(piecesOf(open.job, open.members));
  const DrawnJob drawn{open.job, bill, *open.session->database()};
  const std::vector<JobSheet> asked = sheetsOf(open.job);
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
bool pick(const OpenJob& open, const std::vector<std::string>& names, std::vector<std::size_t>& picked,
          Report& report) {
  std::vector<std::string_view> known;
  for (const JobMember& member : open.job.members) known.push_back(open.job.names.text(member.name));
  for (std::size_t i = 0; names.empty() && i < known.size(); ++i) picked.push_back(i);
  for (const std::string& name : names) {
    const auto found = std::find(known.begin(), known.end(), name);
    if (found == known.end()) {
      report.error(Exit::kArguments, "the job has no member " + inQuotes(name) + ": " +
                                         suggestion(name, known, "kr bom --json names all"));
      return false;
    }
    picked.push_back(static_cast<std::size_t>(found - known.begin()));
  }
  return true;
}

std::vector<double> coordinates(JobPoint point, bool spatial) {
  std::vector<double> values{point.x, point.y};
  if (spatial) values.push_back(point.z);
  return values;
}

std::string listJson(const OpenJob& open, const std::vector<std::size_t>& picked) {
  using nlohmann::ordered_json;
  const std::vector<BomPiece> pieces = piecesOf(open.job, open.members);
  const bool spatial = isSpatial(open.job);
  ordered_json out{{"format", "kr-list"}, {"version", 1}};
  out["members"] = ordered_json::array();
  for (const std::size_t i : picked) {
    const JobMember& member = open.job.members[i];
    const MemberAxis axis = memberAxis(open.job, member);
    const BomPiece& piece = pieces[i];
    out["members"].push_back({{"name", piece.name},
                              {"class", piece.profileClass},
                              {"designation", piece.designation},
                              {"dimensions", piece.dimensions},
                              {"view", viewWord(member.view)},
                              {"role", roleWord(member.role)},
                              {"start", coordinates(axis.start, spatial)},
                              {"end", coordinates(axis.end, spatial)},
                              {"length", piece.length},
                              {"weight", piece.weight},
                              {"paintedArea", piece.paintedArea},
                              {"listing", listingOf(open.members[i])}});
  }
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
  std::vector<plot::PlotFormat> formats;
  if (!checkBuild(request, formats, report)) return;
  const auto open = openJob(request.job, request.data, request.catalogue, report);
  if (open == nullptr) return;
  std::vector<plot::PlotSheet> sheets;
  if (!layOut(request, *open, sheets, report)) return;
  std::vector<std::string> drawings;
  for (std::size_t i = 0; i < formats.size(); ++i) {
    report.progress("drawing", i + 1, formats.size());
    if (formats[i] != plot::PlotFormat::pdf && sheets.size() > 1) {
      report.error(Exit::kArguments, inQuotes(request.files[i]) + " holds one sheet: choose it with --sheet");
      return;
    }
    plot::PlotOutput output = plot::plotToBytes(sheets, formats[i], plotOptions(request, open->job));
    if (output.error) {
      report.error(Exit::kJobFailed, output.error->text);
      return;
    }
    for (const std::string& warning : output.warnings) report.note(warning);
    drawings.push_back(std::move(output.bytes));
  }
  report.endProgress();
  for (std::size_t i = 0; i < drawings.size(); ++i) {
    if (!writeOutput(request.files[i], drawings[i], request.overwrite, report)) return;
    report.note("wrote " + inQuotes(request.files[i]));
  }
}

void bom(const BomRequest& request, Report& report) {
  if (!checkOutput(request.output, request.job, request.overwrite, report)) return;
  const auto open = openJob(request.job, request.data, request.catalogue, report);
  if (open == nullptr) return;
  const Bom bill = makeBom(piecesOf(open->job, open->members));
  const std::string text = request.form == BomForm::kCsv ? bomCsv(bill)
                           : request.form == BomForm::kJson
                               ? bomJson(bill, open->job.title.project, joinedTitle(open->job.title))
                               : bomText(bill);
  writeOutput(request.output, text, request.overwrite, report);
}

void list(const ListRequest& request, Report& report) {
  if (!checkOutput(request.output, request.job, request.overwrite, report)) return;
  const auto open = openJob(request.job, request.data, request.catalogue, report);
  std::vector<std::size_t> picked;
  if (open == nullptr || !pick(*open, request.names, picked, report)) return;
  std::string text;
  if (request.json) text = listJson(*open, picked);
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
