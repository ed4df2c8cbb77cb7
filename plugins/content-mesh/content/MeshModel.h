#ifndef ORVIKMESH_CONTENT_MESHMODEL_H
#define ORVIKMESH_CONTENT_MESHMODEL_H

#include <TambVizCore/Geometry.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/VizBox.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace OrvikMesh {

/// One body of a mesh: a name, a shape, a colour.
///
/// The shape comes in two forms: plain, as it was read, and with parts, which has faces, edges and
/// vertices and the spatial index. The second is made on first use, once, by whichever thread asks
/// first; the others wait for it. A picture alone never asks.
///
/// @thread  Any thread.
class MeshBody
{
public:
    /// @param plain  Not null.
    MeshBody(std::wstring name, std::shared_ptr<const TambVizCore::Geometry> plain,
             std::optional<TambVizCore::RGBAColor> color);

    const std::wstring& Name() const { return m_name; }
    const std::optional<TambVizCore::RGBAColor>& Color() const { return m_color; }
    const TambVizCore::VizBox& BoundingBox() const { return m_plain->BoundingBox(); }
    std::uint32_t TriangleCount() const { return m_plain->TriangleCount(); }

    /// @return the shape with faces, edges and vertices and with its index, made when there is
    ///         none yet.
    /// @throws std::bad_alloc; a later call tries again.
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const;

    /// Makes the faces, edges and vertices without the index.
    void MakeParts() const;

    /// @return the shape with parts when it has been made, else the plain one; never waits.
    std::shared_ptr<const TambVizCore::Geometry> Present() const;

private:
    std::wstring m_name;
    std::shared_ptr<const TambVizCore::Geometry> m_plain;
    std::optional<TambVizCore::RGBAColor> m_color;
    mutable std::once_flag m_partsOnce;
    mutable std::once_flag m_indexOnce;
    /// Written once under m_partsOnce, before m_hasParts is set.
    mutable std::shared_ptr<const TambVizCore::Geometry> m_withParts;
    mutable std::atomic<bool> m_hasParts = false; ///< Release and acquire around m_withParts.
};

/// What was read from one file: its bodies. Never changes; shared by content and renderers, so that
/// a renderer outlives the content without harm.
struct MeshModel
{
    std::wstring path; ///< As it was handed to the loader.
    /// Distinguishes the mesh contents of one document, from 1. Owner part of the entities.
    std::uint64_t number = 1;
    /// Entity values are positions in this list plus 1.
    std::vector<std::unique_ptr<MeshBody>> bodies;
    TambVizCore::VizBox box;

    /// @return the last piece of the path.
    std::wstring FileName() const;
};

} // namespace OrvikMesh

#endif
