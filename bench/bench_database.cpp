// Members in a database: opened and closed, filed in memory, and made by the thousand from a job.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <nlohmann/json.hpp>

#include "JobText.h"
#include "Profiles.h"
#include "lib/Drawing.h"
#include "lib/Session.h"

namespace {

constexpr int kJobMembers = 10000;

// The host started once, with the install folder of the build tree.
kr::Session& session() {
  static kr::Report report;
  static const std::unique_ptr<kr::Session> started = kr::Session::start(KR_INSTALL_FOLDER, report);
  if (started == nullptr) std::abort();
  return *started;
}

void openClose(benchmark::State& state) {
  session();
  AcDbDatabase database;
  AcDbObjectId id;
  AcDbEntity* member = bench::tubeSubject().make(Superior).release();
  if (database.addAcDbObject(id, member) != Acad::eOk) std::abort();
  member->close();
  for (auto _ : state) {
    AcDbObject* object = nullptr;
    acdbOpenAcDbObject(object, id, AcDb::kForRead);
    object->close();
  }
}
BENCHMARK(openClose)->Name("open_close");

void fileMember(benchmark::State& state) {
  session();
  const std::unique_ptr<KrObject> member = bench::tubeSubject().make(Superior);
  std::size_t bytes = 0;
  for (auto _ : state) {
    AcDbMemoryDwgFiler filer;
    member->dwgOutFields(&filer);
    bytes = filer.buffer().size();
    benchmark::DoNotOptimize(filer);
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(fileMember)->Name("file_member_in_memory");

std::size_t bytesInUse() {
  const struct mallinfo2 now = mallinfo2();
  return now.uordblks + now.hblkhd;
}

void job(benchmark::State& state) {
  session();
  const kr::KnownNames known = kr::knownNames(KR_INSTALL_FOLDER);
  const std::string text = bench::jobText(kJobMembers);
  AcDbDatabase* const before = acdbHostApplicationServices()->workingDatabase();
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::size_t atStart = bytesInUse();
    auto database = std::make_unique<AcDbDatabase>(true, true);
    acdbHostApplicationServices()->setWorkingDatabase(database.get());
    {
      kr::Job read;
      std::vector<AcDbObjectId> members;
      std::vector<kr::Problem> problems;
      std::string why;
      if (!kr::drawJob(text, known, read, *database, members, problems, why)) std::abort();
      if (members.size() != kJobMembers) std::abort();
    }
    bytes = bytesInUse() - atStart;
    // Taking the drawing apart is not part of making it.
    state.PauseTiming();
    acdbHostApplicationServices()->setWorkingDatabase(before);
    database.reset();
    state.ResumeTiming();
  }
  state.counters["members_per_second"] =
      benchmark::Counter(static_cast<double>(state.iterations()) * kJobMembers, benchmark::Counter::kIsRate);
  state.counters["bytes_per_member"] = static_cast<double>(bytes) / kJobMembers;
}
BENCHMARK(job)->Name("job_of_10000_members");

// What reading the same text costs when its JSON is parsed into a tree and nothing else is done.
void parseTree(benchmark::State& state) {
  const std::string text = bench::jobText(kJobMembers);
  for (auto _ : state) benchmark::DoNotOptimize(nlohmann::json::parse(text));
}
BENCHMARK(parseTree)->Name("nlohmann_parse_of_that_job");

}  // namespace
