#include "Data.h"
#include "Floor.h"
#include "stl/STLReader.h"
#include "stl/STLTagHandler.h"

#include <benchmark/benchmark.h>

namespace {

void setFacets(benchmark::State& state)
{
    state.counters["facets/s"] = benchmark::Counter(static_cast<double>(state.range(0)),
                                                    benchmark::Counter::kIsIterationInvariantRate);
}

void read(benchmark::State& state, QByteArray const& bytes, STLTagHandler const* handler)
{
    std::atomic<bool> const cancel = false;
    for (auto _ : state) {
        STLReader reader(handler, false, {});
        benchmark::DoNotOptimize(reader.read(bytes, cancel));
    }
    setFacets(state);
}

void copyBytes(benchmark::State& state)
{
    QByteArray const& bytes = bench::stl(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        QByteArray copy(bytes.constData(), bytes.size());
        benchmark::DoNotOptimize(copy.data());
    }
    setFacets(state);
}

void floorLoop(benchmark::State& state, QByteArray const& (*data)(int))
{
    QByteArray const& bytes = data(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::floor::readStl(bytes));
    setFacets(state);
}

void readUntagged(benchmark::State& state, QByteArray const& (*data)(int))
{
    read(state, data(static_cast<int>(state.range(0))), nullptr);
}

void readTagged(benchmark::State& state)
{
    UseAllTagsHandler const handler;
    read(state, bench::stl(static_cast<int>(state.range(0))), &handler);
}

} // namespace

#define SURFACEIO_SIZES Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)
BENCHMARK(copyBytes)->SURFACEIO_SIZES;
BENCHMARK_CAPTURE(floorLoop, inOrder, bench::stl)->SURFACEIO_SIZES;
BENCHMARK_CAPTURE(readUntagged, inOrder, bench::stl)->SURFACEIO_SIZES;
BENCHMARK_CAPTURE(floorLoop, shuffled, bench::shuffledStl)->SURFACEIO_SIZES;
BENCHMARK_CAPTURE(readUntagged, shuffled, bench::shuffledStl)->SURFACEIO_SIZES;
BENCHMARK(readTagged)->SURFACEIO_SIZES;
