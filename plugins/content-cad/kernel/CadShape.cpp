#include "kernel/CadShape.h"

#include "kernel/ExactMeasure.h"
#include "kernel/ExactSurfaces.h"
#include "kernel/KernelGuard.h"
#include "kernel/Tessellation.h"

#include <OrvikModel/ExactIndex.h>
#include <OrvikRay/RayIndex.h>

#include <numbers>
#include <utility>

namespace OrvikCad {

using TambVizCore::Geometry;

namespace {

std::shared_ptr<const Geometry> emptyGeometry()
{
    std::string error;
    return TambVizCore::GeometryBuilder().Build(error);
}

/// Held while one shape of the process is tessellated anew; leaked, as threads may outlive statics.
std::mutex& tessellating()
{
    static auto* const mutex = new std::mutex();
    return *mutex;
}

/// @return the part where it stands in the world; a null shape where it has no exact geometry.
TopoDS_Shape placed(const OrvikModel::PlacedPart& part)
{
    const auto* shape = dynamic_cast<const CadShape*>(part.shape);
    if (!shape)
        return {};
    const TopoDS_Shape found = part.partId == 0 ? shape->Shape() : shape->Parts().Find(part.partId);
    return found.IsNull() ? found : PlaceShape(found, part.world);
}

/// The mesher keeps the sag on curves; between them it may go somewhat beyond.
constexpr double kDeviationPerSag = 2.0;

/// The exact faces behind one mesh.
class ExactFaces final : public OrvikModel::IExactFaces
{
public:
    ExactFaces(std::shared_ptr<const ExactSurfaces> surfaces,
               std::shared_ptr<const MeshSamples> samples, double sag)
        : m_surfaces(std::move(surfaces)), m_samples(std::move(samples)), m_sag(sag)
    {
    }

    bool Refine(const OrvikModel::FacetHit& facet, OrvikModel::RefinedHit& hit) const override
    {
        return m_surfaces->Meet(*m_samples, m_sag, facet, hit);
    }

    double Deviation() const override { return kDeviationPerSag * m_sag; }

    /// The samples are counted with the mesh.
    std::size_t MemoryBytes() const override { return m_surfaces->MemoryBytes(); }

private:
    std::shared_ptr<const ExactSurfaces> m_surfaces;
    std::shared_ptr<const MeshSamples> m_samples;
    double m_sag;
};

} // namespace

CadShape::CadShape(const TopoDS_Shape& shape) : m_shape(shape), m_parts(shape)
{
    ShapeMesh nothing;
    nothing.geometry = emptyGeometry();
    m_mesh.Set(std::move(nothing));
}

CadShape::~CadShape() = default;

void CadShape::SetMesh(ShapeMesh mesh)
{
    m_box = mesh.geometry->BoundingBox();
    m_ownParameters = mesh.parameters;
    m_mesh.Set(std::move(mesh));
}

std::shared_ptr<const Geometry> CadShape::Present() const
{
    return m_mesh.Get()->geometry;
}

std::shared_ptr<const Geometry> CadShape::WithParts() const
{
    const std::shared_ptr<const ShapeMesh> mesh = m_mesh.Get();
    const std::shared_ptr<const Geometry>& geometry = mesh->geometry;
    const std::lock_guard<std::mutex> lock(m_indexing);
    if (!geometry->Index())
        geometry->PublishIndex(OrvikModel::MakeExactIndex(
            OrvikRay::BuildRayIndex(*geometry),
            std::make_shared<const ExactFaces>(surfaces(), mesh->samples, mesh->parameters.sag),
            *geometry));
    return geometry;
}

std::shared_ptr<const ExactSurfaces> CadShape::surfaces() const
{
    std::call_once(m_surfacesOnce,
                   [this] { m_surfaces = std::make_shared<const ExactSurfaces>(m_parts); });
    return m_surfaces;
}

/// What is drawn has its parts from the start.
void CadShape::MakeParts() const {}

bool CadShape::Retessellate(double sag, double maxAngleDegrees) const
{
    MeshParameters parameters = m_ownParameters;
    if (sag > 0.0)
        parameters.sag = sag;
    if (maxAngleDegrees > 0.0)
        parameters.angleRadians = maxAngleDegrees * std::numbers::pi / 180.0;
    const std::lock_guard<std::mutex> lock(tessellating());
    if (parameters == m_mesh.Get()->parameters)
        return false;
    std::wstring failure;
    KernelBudget budget;
    m_mesh.Set(CutShape(m_shape, m_parts, parameters, budget, failure));
    return true;
}

bool CadShape::MeasureExact(std::uint64_t partId, OrvikCore::EntityMeasure what,
                            OrvikCore::MeasureResult& result) const
{
    const TopoDS_Shape measured = partId == 0 ? m_shape : m_parts.Find(partId);
    bool isMeasured = false;
    KernelBudget budget;
    if (!measured.IsNull())
        RunWatched(budget, [&] { isMeasured = MeasureShape(measured, what, result); });
    return isMeasured;
}

bool CadShape::MeasureDistanceExact(const OrvikModel::PlacedPart& from,
                                    const OrvikModel::PlacedPart& to,
                                    OrvikCore::DistanceResult& result) const
{
    bool isMeasured = false;
    KernelBudget budget;
    RunWatched(budget, [&] {
        const TopoDS_Shape placedFrom = placed(from);
        const TopoDS_Shape placedTo = placed(to);
        isMeasured = !placedFrom.IsNull() && !placedTo.IsNull() &&
                     MeasureShapeDistance(placedFrom, placedTo, result);
    });
    return isMeasured;
}

bool CadShape::Refine(const OrvikModel::FacetHit& facet, OrvikModel::RefinedHit& hit) const
{
    const std::shared_ptr<const ShapeMesh> mesh = m_mesh.Get();
    return ExactFaces(surfaces(), mesh->samples, mesh->parameters.sag).Refine(facet, hit);
}

} // namespace OrvikCad
