#include "kernel/Tessellation.h"

#include "interface/CadTexts.h"
#include "kernel/KernelProgress.h"
#include "kernel/MeshBuilder.h"
#include "kernel/ShapeSanity.h"

#include <OrvikOs/ParallelFor.h>
#include <TambCommandsInfra/Progress.h>

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRepTools.hxx>
#include <Bnd_Box.hxx>
#include <IMeshTools_Parameters.hxx>
#include <Standard_Transient.hxx>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <mutex>
#include <numbers>
#include <numeric>
#include <unordered_map>

namespace OrvikCad {

using TambCommandsInfra::Progress;

namespace {

/// Model coordinates beyond it stand for "without end".
constexpr double kInfinite = 1e15;

/// A box around a shape, from its curves and surfaces; empty for a shape without end.
TambVizCore::VizBox estimateBox(const TopoDS_Shape& shape, KernelBudget& budget)
{
    Bnd_Box box;
    RunWatched(budget, [&] { BRepBndLib::Add(shape, box, /*useTriangulation=*/Standard_False); });
    if (box.IsVoid() || box.IsOpen())
        return {};
    double low[3];
    double high[3];
    box.SetGap(0.0);
    box.Get(low[0], low[1], low[2], high[0], high[1], high[2]);
    for (int i = 0; i < 3; ++i)
        if (!(std::abs(low[i]) < kInfinite && std::abs(high[i]) < kInfinite))
            return {};
    return {low[0], low[1], low[2], high[0], high[1], high[2]};
}

/// Runs the kernel's mesher over a shape or one of its faces.
void mesh(const TopoDS_Shape& shape, const MeshParameters& parameters)
{
    IMeshTools_Parameters wanted;
    wanted.Angle = parameters.angleRadians;
    wanted.Deflection = parameters.sag;
    wanted.InParallel = Standard_False;
    wanted.Relative = Standard_False;
    const Handle(KernelProgress) progress = new KernelProgress(KernelProgress::Reports::No);
    const BRepMesh_IncrementalMesh mesher(shape, wanted, progress->Start());
    PollJob();
}

/// Shapes that have faces or edges in common must not be cut at the same time: the kernel writes
/// the triangles into them.
class Groups
{
public:
    explicit Groups(const std::vector<ShapeCatalog::Entry>& entries) : m_parents(entries.size())
    {
        std::iota(m_parents.begin(), m_parents.end(), std::size_t{0});
        for (std::size_t i = 0; i < entries.size(); ++i)
            for (const auto* map :
                 {&entries[i].shape->Parts().Faces(), &entries[i].shape->Parts().Edges()})
                for (int part = 1; part <= map->Extent(); ++part)
                    join(i, map->FindKey(part).TShape().get());
    }

    /// @return the groups, those with most faces first, so that no long one is left for the end.
    std::vector<std::vector<std::size_t>> Sorted(const std::vector<ShapeCatalog::Entry>& entries)
    {
        std::unordered_map<std::size_t, std::size_t> positions;
        std::vector<std::pair<int, std::vector<std::size_t>>> groups;
        for (std::size_t i = 0; i < m_parents.size(); ++i) {
            const auto [at, isNew] = positions.try_emplace(find(i), groups.size());
            if (isNew)
                groups.emplace_back();
            groups[at->second].first += entries[i].shape->Parts().Faces().Extent();
            groups[at->second].second.push_back(i);
        }
        std::stable_sort(groups.begin(), groups.end(),
                         [](const auto& a, const auto& b) { return a.first > b.first; });
        std::vector<std::vector<std::size_t>> sorted;
        for (auto& group : groups)
            sorted.push_back(std::move(group.second));
        return sorted;
    }

private:
    std::size_t find(std::size_t i)
    {
        while (m_parents[i] != i)
            i = m_parents[i] = m_parents[m_parents[i]];
        return i;
    }

    void join(std::size_t i, const Standard_Transient* part)
    {
        const auto [owner, isNew] = m_owners.try_emplace(part, i);
        if (!isNew)
            m_parents[find(i)] = find(owner->second);
    }

    std::vector<std::size_t> m_parents;
    std::unordered_map<const Standard_Transient*, std::size_t> m_owners;
};

MeshParameters parametersFor(const CadTessellation& wanted, const OrvikModel::Model& model)
{
    MeshParameters parameters;
    const double diagonal = 2.0 * model.bodyBox.Radius();
    parameters.sag = wanted.sag > 0.0 ? wanted.sag : diagonal * kDefaultSagShare;
    // A model of one point has no size; anything does.
    if (!(parameters.sag > 0.0))
        parameters.sag = 1.0;
    parameters.angleRadians = wanted.maxAngleDegrees > 0.0
                                  ? wanted.maxAngleDegrees * std::numbers::pi / 180.0
                                  : kDefaultAngleRadians;
    return parameters;
}

void tellFailures(const ShapeCatalog::Entry& entry, const ShapeMesh& mesh,
                  const std::wstring& failure, CadMessages& messages)
{
    if (!failure.empty())
        messages.Warn(FillText(kShapeFailed, {entry.name, failure}));
    if (mesh.failedFaces > 0)
        messages.Warn(FillText(kFacesFailed, {entry.name, std::to_wstring(mesh.failedFaces)}));
}

void cutAll(const ShapeCatalog& catalog, const MeshParameters& parameters, KernelBudget& budget,
            CadMessages& messages)
{
    const std::vector<ShapeCatalog::Entry>& entries = catalog.Entries();
    const auto groups = Groups(entries).Sorted(entries);
    std::mutex telling;
    std::atomic<std::size_t> done{0};
    OrvikOs::ParallelFor(groups.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t group = begin; group < end; ++group)
            for (const std::size_t i : groups[group]) {
                const ShapeCatalog::Entry& entry = entries[i];
                std::wstring failure;
                ShapeMesh mesh = CutShape(entry.shape->Shape(), entry.shape->Parts(), parameters,
                                          budget, failure);
                {
                    const std::lock_guard<std::mutex> lock(telling);
                    tellFailures(entry, mesh, failure, messages);
                }
                entry.shape->SetMesh(std::move(mesh));
                Progress::Instance().Report(static_cast<double>(++done) /
                                            static_cast<double>(entries.size()));
            }
    });
}

} // namespace

ShapeMesh CutShape(const TopoDS_Shape& shape, const ShapeParts& parts,
                   const MeshParameters& parameters, KernelBudget& budget, std::wstring& failure)
{
    failure = RunWatched(budget, [&] { mesh(SaneFacesOf(shape), parameters); });
    if (!failure.empty())
        // What the whole cannot, most faces can alone; edges between them may then gape.
        for (int i = 1; i <= parts.Faces().Extent(); ++i)
            RunWatched(budget, [&] { mesh(SaneFacesOf(parts.Faces().FindKey(i)), parameters); });
    ShapeMesh cut;
    const std::wstring buildFailure =
        RunWatched(budget, [&] { cut = BuildMesh(shape, parts, parameters); });
    if (!buildFailure.empty()) {
        failure = buildFailure;
        cut = EmptyMesh(parameters);
    }
    RunWatched(budget, [&] { BRepTools::Clean(shape); });
    return cut;
}

void Tessellate(const ShapeCatalog& catalog, const CadTessellation& wanted, KernelBudget& budget,
                OrvikModel::Model& model, CadMessages& messages)
{
    const std::vector<ShapeCatalog::Entry>& entries = catalog.Entries();
    if (!(wanted.sag > 0.0)) {
        OrvikOs::ParallelFor(entries.size(), 1, [&](std::size_t begin, std::size_t end) {
            for (std::size_t i = begin; i < end; ++i) {
                PollJob();
                entries[i].shape->SetBox(estimateBox(entries[i].shape->Shape(), budget));
            }
        });
        model.NumberNodes();
    }
    cutAll(catalog, parametersFor(wanted, model), budget, messages);
    model.NumberNodes();
}

} // namespace OrvikCad
