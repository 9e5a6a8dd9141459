// A drawing of 200,000 plain entities from and to files, into and out of the full database, in turn with libraries that
// do less: dxflib hands out each entity and keeps none, GDAL makes a feature of each and drops it.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <span>

#include "PeakMemory.h"
#include "PlainDrawing.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"
#include "peer_files.h"

namespace {

constexpr double kMegabyte = 1e6;

void demand(bool holds) {
  if (!holds) std::abort();
}

/// A folder that lives as long as the program.
const std::string& folder() {
  struct Folder {
    std::string path = (std::filesystem::temp_directory_path() / "kr-bench-XXXXXX").string();
    Folder() { demand(::mkdtemp(path.data()) != nullptr); }
    ~Folder() { std::filesystem::remove_all(path); }
  };
  static const Folder made;
  return made.path;
}

void store(const std::string& path, std::span<const std::byte> bytes) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  demand(file != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
  demand(std::fclose(file) == 0);
}

using Write = Acad::ErrorStatus (*)(AcDbDatabase&, std::vector<std::byte>&, krio::Report&);
using Read = Acad::ErrorStatus (*)(std::span<const std::byte>, AcDbDatabase&, krio::Report&, const krio::ReadOptions&);

void writeFile(AcDbDatabase& database, Write write, const std::string& path) {
  std::vector<std::byte> bytes;
  krio::Report report;
  demand(write(database, bytes, report) == Acad::eOk);
  store(path, bytes);
}

/// The drawing as a file, made once.
const std::string& plainFile(Write write) {
  const auto made = [](Write how, const char* name) {
    const std::string path = folder() + "/" + name;
    writeFile(*bench::plainDrawing(), how, path);
    return path;
  };
  static const std::string dxf = made(krio::writeDxf, "plain.dxf");
  static const std::string dwg = made(krio::writeDwg, "plain.dwg");
  return write == krio::writeDwg ? dwg : dxf;
}

/// A file's bytes for the life of this object.
class Mapped {
 public:
  explicit Mapped(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDONLY);
    struct stat status {};
    demand(file >= 0 && ::fstat(file, &status) == 0);
    size_ = static_cast<std::size_t>(status.st_size);
    start_ = ::mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
    demand(start_ != MAP_FAILED);
    ::close(file);
  }
  ~Mapped() { ::munmap(start_, size_); }
  Mapped(const Mapped&) = delete;
  Mapped& operator=(const Mapped&) = delete;
  std::span<const std::byte> bytes() const { return {static_cast<const std::byte*>(start_), size_}; }

 private:
  void* start_ = nullptr;
  std::size_t size_ = 0;
};

void readOurs(benchmark::State& state, Write write, Read read) {
  const std::string& path = plainFile(write);
  bench::PeakMemory::reset();
  const double before = bench::PeakMemory::now();
  for (auto _ : state) {
    auto database = std::make_unique<AcDbDatabase>(false, true);
    krio::Report report;
    {
      const Mapped file(path);
      demand(read(file.bytes(), *database, report, {}) == Acad::eOk);
    }
    demand(database->approxNumObjects() > bench::kPlainEntities);
    state.PauseTiming();
    database.reset();
    state.ResumeTiming();
  }
  // The pages of the file count.
  state.counters["peak_MB"] = (bench::PeakMemory::peak() - before) / kMegabyte;
  state.counters["file_MB"] = static_cast<double>(std::filesystem::file_size(path)) / kMegabyte;
}

void writeOurs(benchmark::State& state, Write write) {
  const std::unique_ptr<AcDbDatabase> database = bench::plainDrawing();
  const std::string path = folder() + "/out";
  for (auto _ : state) writeFile(*database, write, path);
}

BENCHMARK_CAPTURE(readOurs, dxf, krio::writeDxf, krio::readDxf)
    ->Name("read_plain_dxf/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readOurs, dwg, krio::writeDwg, krio::readDwg)
    ->Name("read_plain_dwg/ours")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(writeOurs, dxf, krio::writeDxf)->Name("write_plain_dxf/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(writeOurs, dwg, krio::writeDwg)->Name("write_plain_dwg/ours")->Unit(benchmark::kMillisecond);

#ifdef KR_PEER_DXFLIB
void readDxflib(benchmark::State& state) {
  const std::string& path = plainFile(krio::writeDxf);
  for (auto _ : state) demand(peer::readWithDxflib(path) == bench::kPlainEntities);
}
BENCHMARK(readDxflib)->Name("read_plain_dxf/dxflib")->Unit(benchmark::kMillisecond);

void writeDxflib(benchmark::State& state) {
  std::vector<peer::Entity> all;
  for (const bench::PlainEntity& e : bench::plainEntities()) {
    peer::Entity each{e.kind, {}, e.radius, e.startAngle, e.endAngle, e.color};
    for (std::size_t i = 0; i < 5; ++i) each.points[i][0] = e.points[i].x, each.points[i][1] = e.points[i].y;
    all.push_back(each);
  }
  const std::string path = folder() + "/out";
  for (auto _ : state) peer::writeWithDxflib(path, all.data(), all.size(), bench::kPlainText, bench::kPlainTextHeight);
}
BENCHMARK(writeDxflib)->Name("write_plain_dxf/dxflib")->Unit(benchmark::kMillisecond);
#endif

#ifdef KR_PEER_GDAL
void readGdal(benchmark::State& state, Write write) {
  const std::string& path = plainFile(write);
  for (auto _ : state) demand(peer::passWithGdal(path) == bench::kPlainEntities);
}
BENCHMARK_CAPTURE(readGdal, dxf, krio::writeDxf)->Name("read_plain_dxf/gdal")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readGdal, dwg, krio::writeDwg)->Name("read_plain_dwg/gdal")->Unit(benchmark::kMillisecond);
#endif

}  // namespace
