// Elevations of the same outlines, by the members and, where it is installed, by OpenCASCADE's hidden-line removal.
#include <benchmark/benchmark.h>

#include "Outlines.h"

#ifdef KR_PEER_OCCT
#include "peer_occt.h"

namespace {

void removeHiddenLines(benchmark::State& state, const std::vector<bench::Outline>& contours) {
  bench::OcctBar bar(contours, bench::kLength);
  for (auto _ : state) bar.removeHiddenLines();
  state.counters["visible"] = bar.visibleLines();
  state.counters["hidden"] = bar.hiddenLines();
}

void occtRolledI(benchmark::State& state) { removeHiddenLines(state, {bench::rolledI()}); }
void occtTube(benchmark::State& state) { removeHiddenLines(state, bench::tube(88.9, 4.5)); }
void occtWheel(benchmark::State& state) { removeHiddenLines(state, {bench::wheel(static_cast<int>(state.range(0)))}); }

BENCHMARK(occtRolledI);
BENCHMARK(occtTube);
BENCHMARK(occtWheel)->Arg(20)->Arg(100)->Arg(500);

}  // namespace
#endif
