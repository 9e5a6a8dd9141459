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
void removeHiddenLines(benchmark::State& state, const bench::Subject& subject) {
  bench::OcctBar bar(bench::solidsOf(subject), bench::kLength);
  for (auto _ : state) bar.removeHiddenLines();
  state.counters["visible"] = bar.visibleLines();
  state.counters["hidden"] = bar.hiddenLines();
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
    benchmark::RegisterBenchmark(name("occt").c_str(), removeHiddenLines, subject);
#endif
  }
  return true;
}();

}  // namespace
