// One clip of an element list by a notch, arcs kept exact, and where they are installed Boost.Geometry and Clipper, for
// which each arc is chords no further than 0.01 mm from it.
#include <benchmark/benchmark.h>

#include <cmath>

#include "ClipJob.h"
#include "Profiles.h"
#include "peer_clip.h"

namespace {

#if defined(KR_PEER_BOOST) || defined(KR_PEER_CLIPPER)
/// How far a chord may leave its arc, in millimetres.
constexpr double kChordError = 0.01;

void appendArc(const AcGeCircArc2d& arc, bench::ClipChains::Chain& chain) {
  const double step = 2 * std::acos(1 - kChordError / arc.radius());
  const int chords = static_cast<int>(std::ceil(arc.endAng() / step));
  for (int k = 1; k <= chords; ++k) {
    const AcGePoint2d p = arc.evalPoint(arc.endAng() * k / chords);
    chain.emplace_back(p.x, p.y);
  }
}

/// The job in chords. The subjects' pieces on the ring itself are no matter of comparison: peers differ on them.
bench::ClipChains chainsOf(const bench::ClipJob& job) {
  bench::ClipChains chains;
  for (int i = 0; i < job.elements.length(); ++i) {
    const KrVector& v = job.elements[i];
    const auto flat = [](const AcGePoint3d& p) { return AcGePoint2d(p.x, p.y); };
    auto& chain = chains.subjects.emplace_back();
    chain.emplace_back(v.startPoint().x, v.startPoint().y);
    if (v.type() == KR_VT_ARCO)
      appendArc(AcGeCircArc2d(flat(v.startPoint()), flat(v.midPoint()), flat(v.endPoint())), chain);
    else
      chain.emplace_back(v.endPoint().x, v.endPoint().y);
  }
  chains.ring.emplace_back(job.points[0].x, job.points[0].y);
  for (int i = 0; i + 1 < job.points.length(); ++i) {
    if (job.bulges[i] != 0)
      appendArc(AcGeCircArc2d(job.points[i], job.points[i + 1], job.bulges[i]), chains.ring);
    else
      chains.ring.emplace_back(job.points[i + 1].x, job.points[i + 1].y);
  }
  return chains;
}

void runPeer(benchmark::State& state, double (*clip)(const bench::ClipChains&)) {
  const bench::ClipChains job = chainsOf(bench::ClipJob());
  double length = 0;
  for (auto _ : state) length = clip(job);
  state.counters["left_mm"] = length;
}
#endif

void clip(benchmark::State& state) {
  const bench::ClipJob job;
  KrObjectArray<KrVector> list;
  for (auto _ : state) {
    list = job.elements;
    KrObject::RecorteKrVectorArray(list, job.points, job.bulges, job.side, 0);
  }
  double length = 0;
  for (int i = 0; i < list.length(); ++i) length += list[i].len();
  state.counters["left_mm"] = length;
}

const bool kRegistered = [] {
  bench::start();
  benchmark::RegisterBenchmark("clip/ours", clip);
#ifdef KR_PEER_BOOST
  benchmark::RegisterBenchmark("clip/boost", runPeer, bench::clipByBoost);
#endif
#ifdef KR_PEER_CLIPPER
  benchmark::RegisterBenchmark("clip/clipper", runPeer, bench::clipByClipper);
#endif
  return true;
}();

}  // namespace
