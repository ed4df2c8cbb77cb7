#include "kernel/CadShape.h"
#include "kernel/Tessellation.h"

#include <TambVizCore/ScenePick.h>

#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRep_Builder.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Compound.hxx>
#include <benchmark/benchmark.h>
#include <gp_Trsf.hxx>

#include <cmath>
#include <memory>

namespace {

using OrvikCad::CadShape;
using OrvikModel::FacetHit;
using OrvikModel::RefinedHit;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::PickInstance;
using TambVizCore::PickQuery;
using TambVizCore::PickResult;
using TambVizCore::Ray;

constexpr int kCylinders = 1677; ///< Of three faces each: 5,031.

enum class Kind
{
    Cylinders,
    Freeform,
};

/// One shape of 5,031 faces: cylinders of radius 5, 20 apart along x.
std::unique_ptr<CadShape> manyFaces(Kind kind)
{
    TopoDS_Shape one = BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid();
    TopoDS_Compound all;
    const BRep_Builder builder;
    builder.MakeCompound(all);
    for (int i = 0; i < kCylinders; ++i) {
        gp_Trsf place;
        place.SetTranslation(gp_Vec(20.0 * i, 0.0, 0.0));
        TopoDS_Shape copy = one.Moved(TopLoc_Location(place));
        if (kind == Kind::Freeform)
            copy = BRepBuilderAPI_NurbsConvert(copy, /*Copy=*/true).Shape();
        builder.Add(all, copy);
    }
    auto shape = std::make_unique<CadShape>(all);
    std::wstring failure;
    OrvikCad::KernelBudget budget;
    shape->SetMesh(
        OrvikCad::CutShape(shape->Shape(), shape->Parts(), {0.1, 0.35}, budget, failure));
    return shape;
}

/// Hits all around the round face of one cylinder after the other.
void refine(benchmark::State& state, Kind kind)
{
    const auto shape = manyFaces(kind);
    std::uint32_t i = 0;
    std::size_t met = 0;
    for (auto _ : state) {
        const std::uint32_t cylinder = i % kCylinders;
        const double angle = 0.37 * i++;
        const double center = 20.0 * cylinder;
        const FacetHit facet = {
            MakePartId(PartKind::Face, cylinder * 3),
            {center + 30.0 * std::cos(angle), 30.0 * std::sin(angle), 1.0 + 18.0 * (i % 97) / 97.0},
            {-std::cos(angle), -std::sin(angle), 0.0},
            25.03};
        RefinedHit hit;
        met += shape->Refine(facet, hit) ? 1 : 0;
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["met"] = static_cast<double>(met) / static_cast<double>(state.iterations());
}

/// Picks with a ray as a script has them: the nearest of edges, vertices and exact faces.
void pick(benchmark::State& state, Kind kind)
{
    const auto shape = manyFaces(kind);
    const auto geometry = shape->WithParts();
    PickInstance instance;
    instance.geometry = geometry.get();
    std::uint32_t i = 0;
    std::size_t hits = 0;
    for (auto _ : state) {
        const double angle = 0.37 * i++;
        const double center = 20.0 * (i % kCylinders);
        const double place[3] = {center + 30.0 * std::cos(angle), 30.0 * std::sin(angle),
                                 1.0 + 18.0 * (i % 97) / 97.0};
        const float origin[3] = {static_cast<float>(place[0]), static_cast<float>(place[1]),
                                 static_cast<float>(place[2])};
        const float direction[3] = {static_cast<float>(-std::cos(angle)),
                                    static_cast<float>(-std::sin(angle)), 0.0f};
        PickQuery query;
        query.ray = Ray(origin, direction, 0.1);
        PickResult result;
        hits += TambVizCore::PickNearest({&instance, 1}, query, result) ? 1 : 0;
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["hit"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}

} // namespace

BENCHMARK_CAPTURE(pick, cylinders / 5031_faces, Kind::Cylinders);
BENCHMARK_CAPTURE(pick, freeform / 5031_faces, Kind::Freeform);
BENCHMARK_CAPTURE(refine, cylinders / 5031_faces, Kind::Cylinders);
BENCHMARK_CAPTURE(refine, freeform / 5031_faces, Kind::Freeform);
