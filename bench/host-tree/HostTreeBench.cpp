// The model tree in memory: rows built through the builder, rows filled below bodies.

#include <OrvikCore/TreeBuilder.h>
#include <TambVizCore/RenderId.h>

#include <HostTree.h>
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace {

using OrvikCore::TreeBuilder;
using Pellux::HostTree;
using TambVizCore::RenderId;

/// A file with a number of bodies side by side.
void buildBodies(HostTree& tree, std::uint64_t count)
{
    TreeBuilder& builder = *tree.GetTreeBuilder();
    builder.ConstructionBegin();
    builder.ContainerBegin(1, L"model.step");
    for (std::uint64_t id = 1; id <= count; ++id) {
        builder.BodyBegin(id, L"body with a name of usual length");
        builder.BodyEnd();
    }
    builder.ContainerEnd();
    builder.ConstructionEnd();
}

void HostTree_Build(benchmark::State& state)
{
    for (auto _ : state) {
        HostTree tree(nullptr);
        buildBodies(tree, static_cast<std::uint64_t>(state.range(0)));
        benchmark::DoNotOptimize(tree.Root().ChildCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(HostTree_Build)
    ->Name("HostTree/Build")
    ->Arg(5000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

/// Twenty rows below each body.
void HostTree_Fill(benchmark::State& state)
{
    constexpr std::uint64_t kParts = 20;
    for (auto _ : state) {
        state.PauseTiming();
        HostTree* filled = nullptr;
        HostTree tree([&filled](const RenderId& path) {
            if (path.Length() != 2)
                return false;
            filled->ConstructionBegin(/*incremental=*/true);
            filled->OpenNode(path[0], L"", nullptr);
            filled->OpenNode(path[1], L"", nullptr);
            for (std::uint64_t id = 1; id <= kParts; ++id) {
                filled->OpenNode(id, L"face 12", nullptr);
                filled->CloseNode();
            }
            filled->ConstructionEnd();
            return true;
        });
        filled = &tree;
        buildBodies(tree, static_cast<std::uint64_t>(state.range(0)) / kParts);
        state.ResumeTiming();
        tree.FillAll();
        benchmark::DoNotOptimize(tree.Root().ChildCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(HostTree_Fill)->Name("HostTree/Fill")->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
