// Members with four modifiers each, saved to and opened from a drawing file: members a second, and memory at its peak.
#include <benchmark/benchmark.h>

#include "PeakMemory.h"
#include "Profiles.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"
#include "lib/Session.h"

namespace {

constexpr int kMembers = 100000;

// The host started once, with the install folder of the build tree.
kr::Session& session() {
  static kr::Report report;
  static const std::unique_ptr<kr::Session> started = kr::Session::start(KR_INSTALL_FOLDER, report);
  if (started == nullptr) std::abort();
  return *started;
}

void demand(bool holds) {
  if (!holds) std::abort();
}

/// Drilled, cut at both ends, notched.
std::unique_ptr<KrObject> modified() {
  std::unique_ptr<KrObject> member = bench::tubeSubject().make(Superior);
  AcGePoint3d e[4];
  member->GetExtremePoints(e, 0, 0);
  const double low = e[1].y;
  const double high = e[2].y;
  const double middle = (low + high) / 2;
  const double length = e[2].x;
  demand(member->FurarVista(AcGePoint3d(length / 3, middle, 0), 10000, 14, 0, 0, -1, 0) == Acad::eOk);
  for (const double at : {0.05, 0.95}) {
    AcGePoint3d p1(at * length - 30, low - 100, 0);
    AcGePoint3d p2(at * length + 30, high + 100, 0);
    AcGePoint3d away(at < 0.5 ? -200 : length + 200, middle, 0);
    demand(member->Corte(p1, p2, away, 0, 0) == Acad::eOk);
  }
  AcArray<AcGePoint2d> corners;
  AcArray<double> bulges;
  for (const AcGePoint2d& p :
       {AcGePoint2d(length / 2, high + 10), AcGePoint2d(length / 2, (high + middle) / 2),
        AcGePoint2d(length / 2 + 100, (high + middle) / 2), AcGePoint2d(length / 2 + 100, high + 10)}) {
    corners.append(p);
    bulges.append(0);
  }
  AcGePoint2d side(length / 2 + 50, high - (high - middle) / 8);
  demand(member->Recorte(corners, bulges, side) == Acad::eOk);
  member->setLayer(bench::kMemberLayer);
  return member;
}

/// Makes a drawing the working one for its life.
class Working {
 public:
  explicit Working(AcDbDatabase* database) { acdbHostApplicationServices()->setWorkingDatabase(database); }
  ~Working() { acdbHostApplicationServices()->setWorkingDatabase(before_); }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  AcDbDatabase* before_ = acdbHostApplicationServices()->workingDatabase();
};

/// The members one above the other, a metre apart.
AcDbDatabase& drawing() {
  static const std::unique_ptr<AcDbDatabase> made = [] {
    session();
    auto database = std::make_unique<AcDbDatabase>(true, true);
    const Working working(database.get());
    for (const wchar_t* layer : {L"L-HIDDEN", L"EIXO", L"KR_HIDE_FACE", bench::kMemberLayer})
      demand(krCriaLayer(layer, 7, L"continuous", 0, 0, 0, 0) == RTNORM);
    const std::unique_ptr<KrObject> first = modified();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database->modelSpaceId(), AcDb::kForWrite);
    for (int i = 0; i < kMembers; ++i) {
      auto* const member = KrObject::cast(first->clone());
      demand(member != nullptr);
      demand(member->setLayer(bench::kMemberLayer) == Acad::eOk);
      demand(member->transformBy(AcGeMatrix3d::translation(AcGeVector3d(0, 1000.0 * i, 0))) == Acad::eOk);
      demand(space->appendAcDbEntity(member) == Acad::eOk);
      member->close();
    }
    return database;
  }();
  return *made;
}

using Write = Acad::ErrorStatus (*)(AcDbDatabase&, std::vector<std::byte>&, krio::Report&);
using Read = Acad::ErrorStatus (*)(std::span<const std::byte>, AcDbDatabase&, krio::Report&, const krio::ReadOptions&);

std::vector<std::byte> file(Write write) {
  const Working working(&drawing());
  std::vector<std::byte> bytes;
  krio::Report report;
  demand(write(drawing(), bytes, report) == Acad::eOk);
  return bytes;
}

void tell(benchmark::State& state, double before, double peak, std::size_t size) {
  state.SetItemsProcessed(state.iterations() * kMembers);
  state.counters["file_bytes_a_member"] = static_cast<double>(size) / kMembers;
  state.counters["peak_bytes_a_member"] = (peak - before) / kMembers;
  // At most 3 times the file and 1 KB a member: at most 1.
  state.counters["peak_of_allowed"] = (peak - before) / (3.0 * static_cast<double>(size) + 1024.0 * kMembers);
}

void save(benchmark::State& state, Write write) {
  drawing();
  bench::PeakMemory::reset();
  const double before = bench::PeakMemory::now();
  std::size_t size = 0;
  for (auto _ : state) size = file(write).size();
  tell(state, before, bench::PeakMemory::peak(), size);
}

void open(benchmark::State& state, Write write, Read read) {
  std::vector<std::byte> bytes = file(write);
  bytes.shrink_to_fit();
  bench::PeakMemory::reset();
  // The bytes of the file count.
  const double before = bench::PeakMemory::now() - static_cast<double>(bytes.size());
  for (auto _ : state) {
    auto database = std::make_unique<AcDbDatabase>(false, true);
    const Working working(database.get());
    krio::Report report;
    demand(read(bytes, *database, report, {}) == Acad::eOk);
    state.PauseTiming();
    database.reset();
    state.ResumeTiming();
  }
  tell(state, before, bench::PeakMemory::peak(), bytes.size());
}

BENCHMARK_CAPTURE(save, members_to_dwg, krio::writeDwg)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(open, members_from_dwg, krio::writeDwg, krio::readDwg)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(save, members_to_dxf, krio::writeDxf)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(open, members_from_dxf, krio::writeDxf, krio::readDxf)->Unit(benchmark::kMillisecond);

}  // namespace
