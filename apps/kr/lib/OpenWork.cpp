#include "OpenWork.h"

#include <filesystem>

#include "CatalogueTables.h"
#include "Drawing.h"
#include "DrawingSource.h"
#include "Files.h"
#include "JobReader.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/os/os.h"

namespace kr {
namespace {

void tellProblems(const std::string& file, const std::vector<Problem>& problems, Report& report) {
  const std::string name = file == kStandardStream ? "standard input" : file;
  const std::size_t count = problems.size();
  report.error(Exit::kBadInput, inQuotes(name) + " has " + std::to_string(count) + (count == 1 ? " error" : " errors") +
                                    "; nothing was written");
  for (const Problem& problem : problems) report.detail(describe(name, problem));
}

ProxyCounts proxiesOf(const AcDbDatabase& database) {
  ProxyCounts counts;
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForRead);
  if (space.openStatus() != Acad::eOk) return counts;
  for (const AcDbStub* const stub : space->entities()) {
    const bool there = stub->object != nullptr && !stub->has(AcDbStub::kErased);
    const auto* const proxy = there ? AcDbProxyEntity::cast(stub->object) : nullptr;
    if (proxy == nullptr) continue;
    const AcDbProxyData& data = proxy->data();
    ++counts[os::toUtf8(data.classRecord.cppName.empty() ? data.dxfName : data.classRecord.cppName)];
  }
  return counts;
}

// What a bill or a list leaves out must be told.
void tellProxies(const ProxyCounts& proxies, const std::string& name, Report& report) {
  std::size_t count = 0;
  std::string classes;
  for (const auto& [className, ofClass] : proxies) {
    count += ofClass;
    classes += (classes.empty() ? "" : ", ") + std::to_string(ofClass) + " " + className;
  }
  if (count == 0) return;
  report.warning(
      name + ": " + std::to_string(count) + (count == 1 ? " entity is" : " entities are") +
      " left out, kept as a picture only, of a class that isn't there or that refused what the file holds: " + classes);
}

std::unique_ptr<OpenWork> workOnDrawing(const std::string& file, std::string_view contents, const std::string& data,
                                        Report& report) {
  auto work = std::make_unique<OpenWork>();
  work->session = Session::start(findInstallFolder(data), report);
  if (work->session == nullptr) return nullptr;
  OpenDrawing open;
  if (!openDrawing(*work->session, file, contents, Opening::kStrict, open, report)) return nullptr;
  work->members = membersOf(*open.database);
  work->proxies = proxiesOf(*open.database);
  tellProxies(work->proxies, open.name, report);
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
