#include "Data.h"
#include "Floor.h"
#include "stl/STLWriter.h"

#include <benchmark/benchmark.h>

namespace {

void floorLoop(benchmark::State& state)
{
    geometry::Mesh const& mesh = bench::mesh(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::floor::writeStl(mesh).data());
}

void writeToBytes(benchmark::State& state)
{
    STLWriter writer;
    writer.setData(bench::mesh(static_cast<int>(state.range(0))), 0, 0);
    for (auto _ : state) {
        QByteArray bytes;
        benchmark::DoNotOptimize(writer.write(bytes));
    }
}

} // namespace

#define SURFACEIO_SIZES Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond)
BENCHMARK(floorLoop)->SURFACEIO_SIZES;
BENCHMARK(writeToBytes)->SURFACEIO_SIZES;
