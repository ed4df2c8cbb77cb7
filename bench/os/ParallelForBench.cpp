#include <OrvikOs/ParallelFor.h>

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

/// What a loop costs when its pieces do nothing.
void EmptyPieces(benchmark::State& state)
{
    const auto pieces = static_cast<std::size_t>(state.range(0));
    for (auto _ : state) {
        OrvikOs::ParallelFor(
            pieces, 1, [](std::size_t begin, std::size_t) { benchmark::DoNotOptimize(begin); });
    }
}
BENCHMARK(EmptyPieces)->Name("ParallelFor/empty_pieces")->Arg(1)->Arg(8)->Arg(1000)->UseRealTime();

} // namespace
