#include "content/MeshModel.h"

#include "content/PatchBuilder.h"

#include <TambVizCore/Utils.h>

#include <OrvikRay/RayIndex.h>

#include <utility>

namespace OrvikMesh {

using TambVizCore::Geometry;

MeshBody::MeshBody(std::wstring name, std::shared_ptr<const Geometry> plain,
                   std::optional<TambVizCore::RGBAColor> color)
    : m_name(std::move(name)), m_plain(std::move(plain)), m_color(color)
{
}

void MeshBody::MakeParts() const
{
    std::call_once(m_partsOnce, [this] {
        m_withParts = BuildPatches(*m_plain);
        m_hasParts.store(true, std::memory_order_release);
    });
}

std::shared_ptr<const Geometry> MeshBody::WithParts() const
{
    MakeParts();
    std::call_once(m_indexOnce,
                   [this] { m_withParts->PublishIndex(OrvikRay::BuildRayIndex(*m_withParts)); });
    return m_withParts;
}

std::shared_ptr<const Geometry> MeshBody::Present() const
{
    return m_hasParts.load(std::memory_order_acquire) ? m_withParts : m_plain;
}

std::wstring MeshModel::FileName() const
{
    return TambVizCore::Utils::GetFileNameOnly(path);
}

} // namespace OrvikMesh
