#ifndef ORVIKMESH_CONTENT_MESHSHAPE_H
#define ORVIKMESH_CONTENT_MESHSHAPE_H

#include <TambVizCore/Geometry.h>
#include <TambVizCore/VizBox.h>

#include <OrvikModel/ModelShape.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

namespace OrvikMesh {

/// A body of triangles, or a cloud of points.
///
/// The shape comes in two forms: plain, as it was read, and with parts, which has faces, edges and
/// vertices and the spatial index. The points of a cloud are no parts; its second form is the first
/// with an index.
///
/// @thread  Any thread.
class MeshShape final : public OrvikModel::ModelShape
{
public:
    /// @param plain  Not null.
    explicit MeshShape(std::shared_ptr<const TambVizCore::Geometry> plain);
    ~MeshShape() override;

    std::shared_ptr<const TambVizCore::Geometry> Present() const override;
    std::shared_ptr<const TambVizCore::Geometry> WithParts() const override;
    void MakeParts() const override;
    const TambVizCore::VizBox& BoundingBox() const override;

    std::uint32_t TriangleCount() const { return m_plain->TriangleCount(); }

private:
    std::shared_ptr<const TambVizCore::Geometry> m_plain;
    mutable std::once_flag m_partsOnce;
    mutable std::once_flag m_indexOnce;
    /// Written once under m_partsOnce, before m_hasParts is set.
    mutable std::shared_ptr<const TambVizCore::Geometry> m_withParts;
    mutable std::atomic<bool> m_hasParts = false; ///< Release and acquire around m_withParts.
};

} // namespace OrvikMesh

#endif
