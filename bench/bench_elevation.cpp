// A member's pictures, and where it is installed OpenCASCADE's hidden-line removal of the same bar.
#include <benchmark/benchmark.h>

#include "Profiles.h"
#ifdef KR_PEER_OCCT
#include "peer_occt.h"
#endif

namespace {

void regenerate(benchmark::State& state, const bench::Subject& subject, KrVistas view) {
  const std::unique_ptr<KrObject> member = subject.make(view);
  for (auto _ : state) member->Gera_KrVector(view);
  state.counters["elements"] = member->GetNumVertex(view);
}

void construct(benchmark::State& state, const bench::Subject& subject, KrVistas view) {
  for (auto _ : state) benchmark::DoNotOptimize(subject.make(view));
}

#ifdef KR_PEER_OCCT
/// The peer takes seconds for more holes.
constexpr std::size_t kMostHolesOfPeer = 40;

void removeHiddenLines(benchmark::State& state, const bench::Subject& subject) {
  bench::OcctBar bar(bench::solidsOf(subject), bench::kLength, subject.holes);
  for (auto _ : state) bar.removeHiddenLines();
  state.counters["visible"] = bar.visibleLines();
  state.counters["hidden"] = bar.hiddenLines();
}

// From the outline and the list of holes, as an elevation starts.
void buildCutAndRemove(benchmark::State& state, const bench::Subject& subject) {
  const std::vector<bench::Solid> solids = bench::solidsOf(subject);
  for (auto _ : state) bench::OcctBar(solids, bench::kLength, subject.holes).removeHiddenLines();
}
#endif

const bool kRegistered = [] {
  bench::start();
  for (const bench::Subject& subject : bench::subjects()) {
    const auto name = [&subject](const char* what) { return std::string(what) + "/" + subject.name; };
    benchmark::RegisterBenchmark(name("elevation").c_str(), regenerate, subject, Superior);
    benchmark::RegisterBenchmark(name("section").c_str(), regenerate, subject, Secao);
    benchmark::RegisterBenchmark(name("construct_elevation").c_str(), construct, subject, Superior);
    benchmark::RegisterBenchmark(name("construct_section").c_str(), construct, subject, Secao);
#ifdef KR_PEER_OCCT
    if (subject.holes.size() > kMostHolesOfPeer) continue;
    benchmark::RegisterBenchmark(name("occt").c_str(), removeHiddenLines, subject);
    if (!subject.holes.empty()) benchmark::RegisterBenchmark(name("occt_cut").c_str(), buildCutAndRemove, subject);
#endif
  }
  return true;
}();

}  // namespace
