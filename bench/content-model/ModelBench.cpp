#include "content/MeshShape.h"

#include "OrvikCore/AViewTree.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/TreeBuilder.h"

#include <TambVizCore/Geometry.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/RenderId.h>

#include <OrvikModel/ModelContent.h>
#include <OrvikModel/ModelEntity.h>
#include <OrvikModel/ModelTreeRenderer.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

// Picks in a document and rows of the model tree, without a view and a window: what the content
// itself takes. Picks go the whole way from AContent::RayPick to the entity.

namespace {

using OrvikModel::Model;
using OrvikModel::ModelContent;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::EntityId;
using TambVizCore::Ray;
using TambVizCore::SharedArray;

/// A torus of radii 10 and 3 about the z axis.
std::shared_ptr<const OrvikModel::ModelShape> makeTorus(std::int64_t triangles)
{
    const auto steps =
        static_cast<std::uint32_t>(std::lround(std::sqrt(static_cast<double>(triangles) / 2.0)));
    std::vector<float> positions;
    std::vector<std::uint32_t> corners;
    for (std::uint32_t i = 0; i < steps; ++i) {
        for (std::uint32_t j = 0; j < steps; ++j) {
            const double u = 2.0 * std::numbers::pi * i / steps;
            const double v = 2.0 * std::numbers::pi * j / steps;
            const double radius = 10.0 + 3.0 * std::cos(v);
            for (const double value :
                 {radius * std::cos(u), radius * std::sin(u), 3.0 * std::sin(v)})
                positions.push_back(static_cast<float>(value));
            const std::uint32_t a = i * steps + j;
            const std::uint32_t b = (i + 1) % steps * steps + j;
            const std::uint32_t c = (i + 1) % steps * steps + (j + 1) % steps;
            const std::uint32_t d = i * steps + (j + 1) % steps;
            corners.insert(corners.end(), {a, b, c, a, c, d});
        }
    }
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::move(positions)));
    builder.SetTriangles(SharedArray<std::uint32_t>(std::move(corners)));
    std::string error;
    return std::make_shared<OrvikMesh::MeshShape>(builder.Build(error));
}

std::unique_ptr<ModelNode> makeBody(std::shared_ptr<const OrvikModel::ModelShape> shape,
                                    std::wstring name)
{
    auto node = std::make_unique<ModelNode>();
    node->kind = NodeKind::PolyBody;
    node->name = std::move(name);
    node->shape = std::move(shape);
    return node;
}

/// A square of references to one body, @p count in all, 30 apart.
std::shared_ptr<Model> makeAssembly(std::size_t count, std::int64_t triangles)
{
    const auto shape = makeTorus(triangles);
    const auto side = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
    auto top = std::make_unique<ModelNode>();
    top->name = L"assembly";
    for (std::size_t i = 0; i < count; ++i) {
        auto reference = std::make_unique<ModelNode>();
        reference->kind = NodeKind::AssemblyReference;
        reference->name = L"reference " + std::to_wstring(i);
        reference->transform = std::vector<double>{1,
                                                   0,
                                                   0,
                                                   0,
                                                   0,
                                                   1,
                                                   0,
                                                   0,
                                                   0,
                                                   0,
                                                   1,
                                                   0,
                                                   30.0 * static_cast<double>(i % side),
                                                   30.0 * static_cast<double>(i / side),
                                                   0,
                                                   1};
        reference->children.push_back(makeBody(shape, L"torus"));
        top->children.push_back(std::move(reference));
    }
    auto model = std::make_shared<Model>();
    model->path = L"/assembly";
    model->number = 1;
    model->nodes.push_back(std::move(top));
    model->NumberNodes();
    return model;
}

/// Rays from above, spread evenly over what is there; @p radius is their aperture.
void pickAll(benchmark::State& state, const std::shared_ptr<Model>& model, double radius)
{
    OrvikCore::Document document(nullptr);
    ModelContent content(document, model, "Bench");
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    std::uint32_t random = 1;
    const auto place = [&](int axis) {
        random = random * 1664525u + 1013904223u;
        const double share = static_cast<double>(random >> 8) / 16777216.0;
        return static_cast<float>(model->box.Lo()[axis] +
                                  share * (model->box.Hi()[axis] - model->box.Lo()[axis]));
    };
    EntityId hit;
    for (int i = 0; i < 1000; ++i) // Makes parts and indexes.
        content.RayPick(Ray(std::array{place(0), place(1), 100.0f}.data(), direction, radius), hit);
    std::size_t hits = 0;
    for (auto _ : state)
        hits += content.RayPick(
                    Ray(std::array{place(0), place(1), 100.0f}.data(), direction, radius), hit)
                    ? 1
                    : 0;
    state.counters["hit_share"] =
        static_cast<double>(hits) / static_cast<double>(state.iterations());
    state.counters["picks"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void pickBody(benchmark::State& state)
{
    auto model = std::make_shared<Model>();
    model->number = 1;
    model->nodes.push_back(makeBody(makeTorus(state.range(0)), L"torus"));
    model->NumberNodes();
    pickAll(state, model, static_cast<double>(state.range(1)) / 1000.0);
}

void pickInstances(benchmark::State& state)
{
    pickAll(state, makeAssembly(static_cast<std::size_t>(state.range(0)), 1000), 0.01);
}

void intersectLine(benchmark::State& state)
{
    auto model = std::make_shared<Model>();
    model->number = 1;
    model->nodes.push_back(makeBody(makeTorus(state.range(0)), L"torus"));
    model->NumberNodes();
    OrvikCore::Document document(nullptr);
    const ModelContent content(document, model, "Bench");
    const double origin[3] = {-20.0, 0.1, 0.1};
    const double direction[3] = {1.0, 0.0, 0.0};
    std::vector<OrvikCore::LineHit> hits;
    content.IntersectLine(origin, direction, false, hits); // Makes parts and index.
    for (auto _ : state)
        content.IntersectLine(origin, direction, false, hits);
    state.counters["hits"] = static_cast<double>(hits.size());
}

/// Between two bodies side by side; the trees over their triangles are built each time.
void measureDistance(benchmark::State& state)
{
    auto model = std::make_shared<Model>();
    model->number = 1;
    for (int i = 0; i < 2; ++i) {
        model->nodes.push_back(makeBody(makeTorus(state.range(0)), L"torus"));
        model->nodes.back()->transform =
            std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 30.0 * i, 1.0 * i, 0, 1};
    }
    model->NumberNodes();
    OrvikCore::Document document(nullptr);
    const ModelContent content(document, model, "Bench");
    OrvikCore::DistanceResult result;
    for (auto _ : state)
        content.MeasureDistance(OrvikModel::MakeEntity(*model, *model->nodes[0]),
                                OrvikModel::MakeEntity(*model, *model->nodes[1]), result);
    state.counters["distance"] = result.distance;
}

/// The least tree that keeps its rows.
class RowTree : public OrvikCore::AViewTree
{
public:
    struct Row
    {
        std::uint64_t id;
        std::wstring name;
    };

    RowTree() : m_builder(OrvikCore::TreeBuilder::CreateTreeBuilder(this)) {}

    void ConstructionBegin(bool) override {}
    void ConstructionEnd() override {}
    bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                    OrvikCore::ATreeItemStyle const*) override
    {
        m_rows.push_back({id, name});
        return true;
    }
    bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                  OrvikCore::ATreeItemStyle const*) override
    {
        m_rows.push_back({id, name});
        return true;
    }
    void CloseNode() override {}
    void ClearAll() override { m_rows.clear(); }
    void SetCurrentNodeEnabled(bool const&) override {}
    void HighlightNode(TambVizCore::RenderId const&) override {}
    void ClearHighlight() override {}
    OrvikCore::TreeBuilder* GetTreeBuilder() override { return m_builder.get(); }
    void EnsureNodeVisible(TambVizCore::RenderId const&) override {}
    int GetChildrenCountForNode(TambVizCore::RenderId const&) override
    {
        return m_rows.empty() ? -1 : 0;
    }

    std::vector<Row> m_rows;

private:
    std::unique_ptr<OrvikCore::TreeBuilder> m_builder;
};

/// The rows of an assembly of references with a body each.
void buildRows(benchmark::State& state)
{
    OrvikCore::Document document(nullptr);
    ModelContent content(document, makeAssembly(static_cast<std::size_t>(state.range(0)) / 2, 100),
                         "Bench");
    RowTree tree;
    OrvikModel::ModelTreeRenderer renderer(content, &tree, nullptr);
    for (auto _ : state) {
        tree.ClearAll();
        renderer.Render();
    }
    state.counters["rows"] = static_cast<double>(tree.m_rows.size());
}

/// From entity to path and back, for every row.
void convertRows(benchmark::State& state)
{
    OrvikCore::Document document(nullptr);
    ModelContent content(document, makeAssembly(static_cast<std::size_t>(state.range(0)) / 2, 100),
                         "Bench");
    RowTree tree;
    OrvikModel::ModelTreeRenderer renderer(content, &tree, nullptr);
    for (auto _ : state) {
        for (const ModelNode* node : content.GetModel()->InOrder()) {
            TambVizCore::RenderId path;
            EntityId entity;
            renderer.ConvertToRenderId(OrvikModel::MakeEntity(*content.GetModel(), *node), path);
            benchmark::DoNotOptimize(renderer.ConvertToEntityId(path, entity));
        }
    }
}

BENCHMARK(pickBody)
    ->Name("Pick/body")
    ->ArgNames({"triangles", "aperture_thousandths"})
    ->Args({1000000, 0})
    ->Args({1000000, 10})
    ->Args({10000, 10});
BENCHMARK(pickInstances)->Name("Pick/instances")->Arg(1000)->Arg(10000);
BENCHMARK(intersectLine)->Name("Line/body")->Arg(1000000);
BENCHMARK(measureDistance)
    ->Name("Distance/bodies")
    ->Arg(10000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(buildRows)->Name("Tree/rows")->Arg(5000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(convertRows)->Name("Tree/convert")->Arg(5000)->Unit(benchmark::kMillisecond);

} // namespace
