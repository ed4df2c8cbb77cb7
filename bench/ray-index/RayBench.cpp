#include "EmbreeDevice.h"
#include "FaceTree.h"

#include <TambVizCore/Geometry.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/ScenePick.h>

#include <OrvikRay/InstanceTree.h>
#include <OrvikRay/RayIndex.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <numbers>
#include <random>
#include <string>
#include <utility>
#include <vector>

// Indexes and picks: Embree's tree beside our own on the same triangles in the same run. The body
// is a torus with edges along every tenth ring and vertices on them.

namespace {

using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::PickInstance;
using TambVizCore::PickQuery;
using TambVizCore::PickResult;
using TambVizCore::SharedArray;

constexpr std::int64_t kThousand = 1000;
constexpr std::int64_t kMillion = 1000000;

std::shared_ptr<const Geometry> makeTorus(std::int64_t triangles)
{
    const auto steps =
        static_cast<std::uint32_t>(std::lround(std::sqrt(static_cast<double>(triangles) / 2.0)));
    std::vector<float> positions;
    std::vector<std::uint32_t> corners;
    std::vector<std::uint32_t> segments;
    std::vector<std::uint32_t> points;
    const auto at = [steps](std::uint32_t i, std::uint32_t j) {
        return (i % steps) * steps + j % steps;
    };
    for (std::uint32_t i = 0; i < steps; ++i) {
        for (std::uint32_t j = 0; j < steps; ++j) {
            const double u = 2.0 * std::numbers::pi * i / steps;
            const double v = 2.0 * std::numbers::pi * j / steps;
            const double radius = 10.0 + 3.0 * std::cos(v);
            positions.push_back(static_cast<float>(radius * std::cos(u)));
            positions.push_back(static_cast<float>(radius * std::sin(u)));
            positions.push_back(static_cast<float>(3.0 * std::sin(v)));
            corners.insert(corners.end(), {at(i, j), at(i + 1, j), at(i + 1, j + 1)});
            corners.insert(corners.end(), {at(i, j), at(i + 1, j + 1), at(i, j + 1)});
            if (i % 10 == 0)
                segments.insert(segments.end(), {at(i, j), at(i, j + 1)});
            if (i % 10 == 0 && j % 10 == 0)
                points.push_back(at(i, j));
        }
    }
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)));
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(corners)));
    builder.SetSegments(SharedArray<std::uint32_t>(std::move(segments)));
    builder.SetPoints(SharedArray<std::uint32_t>(std::move(points)));
    std::string error;
    return builder.Build(error);
}

/// The torus of about that many triangles, without an index; made once per run.
const Geometry& torus(std::int64_t triangles)
{
    static std::map<std::int64_t, std::shared_ptr<const Geometry>> made;
    std::shared_ptr<const Geometry>& geometry = made[triangles];
    if (!geometry)
        geometry = makeTorus(triangles);
    return *geometry;
}

/// The same with its index.
const Geometry& indexedTorus(std::int64_t triangles)
{
    static std::map<std::int64_t, std::shared_ptr<const Geometry>> made;
    std::shared_ptr<const Geometry>& geometry = made[triangles];
    if (!geometry) {
        geometry = makeTorus(triangles);
        geometry->PublishIndex(OrvikRay::BuildRayIndex(*geometry));
    }
    return *geometry;
}

template <bool kEmbree>
std::unique_ptr<const OrvikRay::IFaceTree> makeFaces(const Geometry& geometry)
{
    if constexpr (kEmbree)
        return OrvikRay::MakeEmbreeFaces(geometry, *OrvikRay::EmbreeDevice::Shared());
    return OrvikRay::MakeBoxFaces(geometry);
}

/// Places in the square around the torus, the same in every run of a thread.
class Places
{
public:
    explicit Places(double half) : m_place(-static_cast<float>(half), static_cast<float>(half)) {}
    float Next() { return m_place(m_random); }

private:
    std::mt19937 m_random{1};
    std::uniform_real_distribution<float> m_place;
};

template <bool kEmbree> void buildFaces(benchmark::State& state)
{
    const Geometry& geometry = torus(state.range(0));
    if (kEmbree)
        OrvikRay::EmbreeDevice::Shared();
    for (auto _ : state) {
        const auto faces = makeFaces<kEmbree>(geometry);
        state.counters["bytes"] = static_cast<double>(faces->MemoryBytes());
    }
}

void buildIndex(benchmark::State& state)
{
    const Geometry& geometry = torus(state.range(0));
    for (auto _ : state) {
        const auto index = OrvikRay::BuildRayIndex(geometry);
        state.counters["bytes"] = static_cast<double>(index->MemoryBytes());
    }
}

/// Rays from above, spread over the torus; some pass through its hole.
template <bool kEmbree> void searchFaces(benchmark::State& state)
{
    const Geometry& geometry = torus(state.range(0));
    static std::map<std::int64_t, std::unique_ptr<const OrvikRay::IFaceTree>> made;
    auto& faces = made[state.range(0)];
    if (!faces)
        faces = makeFaces<kEmbree>(geometry);
    Places places(13.0);
    std::int64_t hits = 0;
    for (auto _ : state) {
        GeometryQuery query;
        query.origin[0] = places.Next();
        query.origin[1] = places.Next();
        query.origin[2] = 100.0f;
        query.direction[2] = -1.0f;
        const OrvikRay::Line line(query);
        OrvikRay::NearestFace nearest(geometry, line, query);
        faces->Search(nearest);
        hits += nearest.IsFound() ? 1 : 0;
    }
    state.counters["hits"] =
        benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
}

/// A pick as a click makes it: vertices before edges before faces, with an aperture.
void pick(benchmark::State& state)
{
    PickInstance instance;
    instance.geometry = &indexedTorus(state.range(0));
    Places places(13.0);
    std::int64_t hits = 0;
    for (auto _ : state) {
        const float origin[3] = {places.Next(), places.Next(), 100.0f};
        const float direction[3] = {0.0f, 0.0f, -1.0f};
        PickQuery query;
        query.ray = TambVizCore::Ray(origin, direction, 0.02);
        PickResult result;
        hits += TambVizCore::PickNearest({&instance, 1}, query, result) ? 1 : 0;
    }
    state.counters["hits"] =
        benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations());
}

/// Instances of one torus of a thousand triangles, in a cube of places.
const std::vector<PickInstance>& instances(std::int64_t count)
{
    static std::map<std::int64_t, std::vector<PickInstance>> made;
    std::vector<PickInstance>& list = made[count];
    const auto side = static_cast<std::int64_t>(std::ceil(std::cbrt(static_cast<double>(count))));
    for (auto i = static_cast<std::int64_t>(list.size()); i < count; ++i) {
        PickInstance instance;
        instance.geometry = &indexedTorus(kThousand);
        const std::int64_t places[3] = {i % side, i / side % side, i / side / side};
        for (int axis = 0; axis < 3; ++axis)
            instance.world[12 + axis] = 30.0 * static_cast<double>(places[axis]);
        list.push_back(instance);
    }
    return list;
}

/// Slanted rays through the cube of instances.
PickQuery through(std::int64_t count, Places& places)
{
    const double size = 30.0 * std::ceil(std::cbrt(static_cast<double>(count)));
    const auto place = [&] { return static_cast<float>(size / 2.0) + places.Next(); };
    const float origin[3] = {place(), place(), -100.0f};
    const float direction[3] = {(place() - origin[0]) / 2.0f, (place() - origin[1]) / 2.0f,
                                static_cast<float>(size)};
    PickQuery query;
    query.ray = TambVizCore::Ray(origin, direction, 0.02);
    return query;
}

void pickLinear(benchmark::State& state)
{
    const std::vector<PickInstance>& all = instances(state.range(0));
    Places places(15.0 * std::cbrt(static_cast<double>(state.range(0))));
    std::int64_t hits = 0;
    for (auto _ : state) {
        PickResult result;
        hits += TambVizCore::PickNearest(all, through(state.range(0), places), result) ? 1 : 0;
    }
    state.counters["hits"] =
        benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations());
}

const OrvikRay::InstanceTree& instanceTree(std::int64_t count)
{
    static std::map<std::int64_t, OrvikRay::InstanceTree> made;
    const auto found = made.find(count);
    if (found != made.end())
        return found->second;
    std::vector<TambVizCore::VizBox> boxes;
    for (const PickInstance& instance : instances(count))
        boxes.push_back(instance.geometry->BoundingBox().Transformed(instance.world));
    return made.emplace(count, OrvikRay::InstanceTree(boxes)).first->second;
}

void pickByTree(benchmark::State& state)
{
    const std::vector<PickInstance>& all = instances(state.range(0));
    const OrvikRay::InstanceTree& tree = instanceTree(state.range(0));
    Places places(15.0 * std::cbrt(static_cast<double>(state.range(0))));
    std::vector<std::size_t> found;
    std::vector<PickInstance> met;
    std::int64_t hits = 0;
    std::size_t boxes = 0;
    for (auto _ : state) {
        const PickQuery query = through(state.range(0), places);
        tree.Find(query, found);
        met.clear();
        for (const std::size_t position : found)
            met.push_back(all[position]);
        boxes += met.size();
        PickResult result;
        hits += TambVizCore::PickNearest(met, query, result) ? 1 : 0;
    }
    state.counters["hits"] =
        benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
    state.counters["boxes"] =
        benchmark::Counter(static_cast<double>(boxes), benchmark::Counter::kAvgIterations);
    state.SetItemsProcessed(state.iterations());
}

void findInTree(benchmark::State& state)
{
    const OrvikRay::InstanceTree& tree = instanceTree(state.range(0));
    Places places(15.0 * std::cbrt(static_cast<double>(state.range(0))));
    std::vector<std::size_t> found;
    for (auto _ : state)
        tree.Find(through(state.range(0), places), found);
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->Arg(kThousand)->Arg(4 * kThousand)->Arg(16 * kThousand)->Arg(kMillion);
}

void wallTime(benchmark::internal::Benchmark* bench)
{
    bench->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
}

/// Makes what picks share, before their threads start.
void prepare(const benchmark::State& state)
{
    if (state.range(0) == kMillion)
        indexedTorus(kMillion);
    else
        instanceTree(state.range(0));
}

void threads(benchmark::internal::Benchmark* bench)
{
    bench->Threads(1)->Threads(2)->UseRealTime()->Setup(&prepare);
}

BENCHMARK(buildFaces<true>)->Name("Faces/build/embree")->Apply(sizes)->Apply(wallTime);
BENCHMARK(buildFaces<false>)->Name("Faces/build/own")->Apply(sizes)->Apply(wallTime);
BENCHMARK(buildIndex)->Name("Index/build")->Apply(sizes)->Apply(wallTime);
BENCHMARK(searchFaces<true>)->Name("Faces/search/embree")->Apply(sizes);
BENCHMARK(searchFaces<false>)->Name("Faces/search/own")->Apply(sizes);
BENCHMARK(pick)->Name("Pick/one_body")->Arg(kMillion)->Apply(threads);
BENCHMARK(pickLinear)->Name("Pick/instances/linear")->Arg(5 * kThousand)->Apply(threads);
BENCHMARK(findInTree)->Name("Pick/instances/find")->Arg(5 * kThousand);
BENCHMARK(pickByTree)->Name("Pick/instances/tree")->Arg(5 * kThousand)->Apply(threads);

} // namespace
