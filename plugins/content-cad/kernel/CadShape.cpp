#include "kernel/CadShape.h"

#include <OrvikRay/RayIndex.h>

namespace OrvikCad {

using TambVizCore::Geometry;

namespace {

std::shared_ptr<const Geometry> emptyGeometry()
{
    std::string error;
    return TambVizCore::GeometryBuilder().Build(error);
}

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
    m_mesh.Set(std::move(mesh));
}

std::shared_ptr<const Geometry> CadShape::Present() const
{
    return m_mesh.Get()->geometry;
}

std::shared_ptr<const Geometry> CadShape::WithParts() const
{
    std::shared_ptr<const Geometry> geometry = Present();
    const std::lock_guard<std::mutex> lock(m_indexing);
    if (!geometry->Index())
        geometry->PublishIndex(OrvikRay::BuildRayIndex(*geometry));
    return geometry;
}

/// What is drawn has its parts from the start.
void CadShape::MakeParts() const {}

} // namespace OrvikCad
