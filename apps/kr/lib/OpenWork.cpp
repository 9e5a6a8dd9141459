#include "OpenWork.h"

#include <filesystem>

#include "CatalogueTables.h"
#include "Drawing.h"
#include "DrawingSource.h"
#include "Files.h"
#include "JobReader.h"
#include "Suggest.h"
#include "host/db/db.h"

namespace kr {
namespace {

void tellProblems(const std::string& file, const std::vector<Problem>& problems, Report& report) {
  const std::string name = file == kStandardStream ? "standard input" : file;
  const std::size_t count = problems.size();
  report.error(Exit::kBadInput, inQuotes(name) + " has " + std::to_string(count) + (count == 1 ? " error" : " errors") +
                                    "; nothing was written");
  for (const Problem& problem : problems) report.detail(describe(name, problem));
}

std::unique_ptr<OpenWork> workOnDrawing(const std::string& file, std::string_view contents, const std::string& data,
                                        Report& report) {
  auto work = std::make_unique<OpenWork>();
  work->session = Session::start(findInstallFolder(data), report);
  if (work->session == nullptr) return nullptr;
  OpenDrawing open;
  if (!openDrawing(*work->session, file, contents, Opening::kStrict, open, report)) return nullptr;
  work->name = open.name;
  work->members = membersOf(*open.database);
  std::erase_if(work->members, [](AcDbObjectId id) { return !hasData(id); });
  work->leftOut = withoutData(*open.database);
  return work;
}

std::unique_ptr<OpenWork> workOnJob(const std::string& file, std::string_view text, const std::string& data,
                                    const std::string& tables, Report& report) {
  const std::string folder = findInstallFolder(data);
  auto work = std::make_unique<OpenWork>();
  std::vector<Problem> problems;
  report.note("install folder " + inQuotes(folder));
  CatalogueShelf shelf(folder, std::filesystem::path(file).parent_path().string());
  if (!addTables(shelf, tables, report)) return nullptr;
  KnownNames known = knownNames(folder);
  known.catalogues = &shelf;
  Job& job = work->job.emplace();
  const bool good = readJob(text, known, job, problems);
  tellTables(shelf, report);
  if (!good) {
    tellProblems(file, problems, report);
    return nullptr;
  }
  work->session = Session::start(folder, report);
  if (work->session == nullptr) return nullptr;
  if (!modelJob(text, job, problems)) {
    tellProblems(file, problems, report);
    return nullptr;
  }
  std::string why;
  if (!drawMembers(job, *work->session->database(), work->members, why)) {
    report.error(Exit::kJobFailed, why);
    return nullptr;
  }
  report.note(std::to_string(work->members.size()) + " members drawn");
  return work;
}

}  // namespace

std::vector<BomPiece> OpenWork::pieces() const {
  return job ? piecesOf(*job, members) : piecesOf(members);
}

void OpenWork::tellLeftOut(Report& report) const {
  if (leftOut.empty()) return;
  const std::size_t count = sumOf(leftOut);
  report.warning(name + ": " + std::to_string(count) + (count == 1 ? " entity is" : " entities are") +
                 " left out, whose class isn't there or didn't take what the file holds: " + textOf(leftOut));
}

std::unique_ptr<OpenWork> openWork(const std::string& file, const std::string& data, const std::string& tables,
                                   Report& report) {
  std::string contents;
  if (!readInput(file, contents, report)) return nullptr;
  return isDrawing(contents) ? workOnDrawing(file, contents, data, report)
                             : workOnJob(file, contents, data, tables, report);
}

std::unique_ptr<OpenWork> openJob(const std::string& file, const std::string& data, const std::string& tables,
                                  Report& report) {
  std::string contents;
  if (!readInput(file, contents, report)) return nullptr;
  if (!isDrawing(contents)) return workOnJob(file, contents, data, tables, report);
  report.error(Exit::kBadInput, inQuotes(file) + " is a drawing, not a job: see kr help plot and kr help convert");
  return nullptr;
}

}  // namespace kr
