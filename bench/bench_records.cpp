// The records that a regeneration writes and reads: elements, their lists, outlines.
#include <benchmark/benchmark.h>

#include "host/db/db.h"
#include "records/KrGeratriz.h"
#include "records/KrObjectArray.h"
#include "records/KrVector.h"

namespace {

KrVector line(int i) {
  return KrVector(AcGePoint3d(i, 0, 0), 0.0, 1000.0, KR_VT_LINHA);
}

KrObjectArray<KrVector> lines(int count) {
  KrObjectArray<KrVector> list;
  for (int i = 0; i < count; ++i) list.append(line(i));
  return list;
}

KrGeratriz outline(int count) {
  KrGeratriz outline;
  for (int i = 0; i < count; ++i) outline.Add(AcGeVector3d(i, 1, 0), i % 4 == 0 ? 52.6 : 0.0);
  outline.Add(AcGeVector3d(), KrGeratriz::kReferenceBulge);
  return outline;
}

void writeElements(benchmark::State& state) {
  const KrObjectArray<KrVector> list = lines(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    AcDbMemoryDwgFiler filer;
    list.dwgOutFields(&filer);
    benchmark::DoNotOptimize(filer.buffer().data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void readElements(benchmark::State& state) {
  AcDbMemoryDwgFiler filer;
  lines(static_cast<int>(state.range(0))).dwgOutFields(&filer);
  KrObjectArray<KrVector> list;
  for (auto _ : state) {
    filer.seek(0);
    list.dwgInFields(&filer);
    benchmark::DoNotOptimize(list.last());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A list that is filled again, as each regeneration does.
void refillList(benchmark::State& state) {
  const KrVector element = line(0);
  KrObjectArray<KrVector> list;
  for (auto _ : state) {
    list.Clear();
    for (int i = 0; i < state.range(0); ++i) list.append(element);
    benchmark::DoNotOptimize(list.last());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A new list, as a new member has.
void fillNewList(benchmark::State& state) {
  const KrVector element = line(0);
  for (auto _ : state) {
    KrObjectArray<KrVector> list;
    for (int i = 0; i < state.range(0); ++i) list.append(element);
    benchmark::DoNotOptimize(list.last());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void indexList(benchmark::State& state) {
  const KrObjectArray<KrVector> list = lines(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    double sum = 0.0;
    for (int i = 0; i < list.length(); ++i) sum += list[i].startPoint().x;
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void copyOutline(benchmark::State& state) {
  const KrGeratriz source = outline(static_cast<int>(state.range(0)));
  KrGeratriz copy;
  for (auto _ : state) {
    copy = source;
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void makeLine(benchmark::State& state) {
  const AcGePoint3d start(1, 2, 0);
  const AcGePoint3d end(1000, 300, 0);
  for (auto _ : state) {
    KrVector v(start, end, KR_VT_LINHA);
    benchmark::DoNotOptimize(v);
  }
}

}  // namespace

BENCHMARK(writeElements)->Arg(8)->Arg(100);
BENCHMARK(readElements)->Arg(8)->Arg(100);
BENCHMARK(refillList)->Arg(8)->Arg(100);
BENCHMARK(fillNewList)->Arg(8)->Arg(100);
BENCHMARK(indexList)->Arg(100);
BENCHMARK(copyOutline)->Arg(24)->Arg(100)->Arg(500);
BENCHMARK(makeLine);
