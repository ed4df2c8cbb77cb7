#include "content/MeshShape.h"

#include "content/PatchBuilder.h"

#include <OrvikRay/RayIndex.h>

#include <utility>

namespace OrvikMesh {

using TambVizCore::Geometry;

MeshShape::MeshShape(std::shared_ptr<const Geometry> plain) : m_plain(std::move(plain)) {}

MeshShape::~MeshShape() = default;

void MeshShape::MakeParts() const
{
    std::call_once(m_partsOnce, [this] {
        m_withParts = m_plain->TriangleCount() == 0 ? m_plain : BuildPatches(*m_plain);
        m_hasParts.store(true, std::memory_order_release);
    });
}

std::shared_ptr<const Geometry> MeshShape::WithParts() const
{
    MakeParts();
    std::call_once(m_indexOnce,
                   [this] { m_withParts->PublishIndex(OrvikRay::BuildRayIndex(*m_withParts)); });
    return m_withParts;
}

std::shared_ptr<const Geometry> MeshShape::Present() const
{
    return m_hasParts.load(std::memory_order_acquire) ? m_withParts : m_plain;
}

const TambVizCore::VizBox& MeshShape::BoundingBox() const
{
    return m_plain->BoundingBox();
}

} // namespace OrvikMesh
