#ifndef VIEWOPENGL_GPUSCENE_H
#define VIEWOPENGL_GPUSCENE_H

#include "GlObjects.h"

#include <TambVizCore/PartKind.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>

namespace TambVizCore {
class GeoNode;
class Geometry;
} // namespace TambVizCore

namespace ViewOpenGl {

/// The primitives of one kind of a geometry in graphics memory.
struct GpuPrimitives
{
    GlBuffer indices;
    GLsizei count = 0;     ///< Indices.
    GlBuffer partBuffer;   ///< Part index of each primitive; made when first asked for.
    GlTexture partTexture; ///< Over partBuffer.
};

/// One geometry in graphics memory, shared by all nodes that draw it.
struct GpuGeometry
{
    std::weak_ptr<const TambVizCore::Geometry> source;
    GlVertexArray vertexArray;
    GlBuffer positions, normals, colors;
    std::array<GpuPrimitives, 3> primitives; ///< Triangles, segments, points.
};

/// The part states of one node in graphics memory.
struct GpuNode
{
    std::uint64_t partsStamp = ~std::uint64_t{0};    ///< Stamp of what was uploaded.
    const TambVizCore::Geometry* geometry = nullptr; ///< Not owned; only compared.
    bool needsParts = false;                         ///< Some part is not plain and shown.
    GlBuffer states;
    GlTexture texture;
    std::uint64_t frame = 0; ///< Last frame that drew it.
};

/// What the view keeps in graphics memory: uploaded once, dropped when the scene lets go of it. The
/// context is current in every call. @thread Main thread.
class GpuScene
{
public:
    /// Begins a frame.
    void BeginFrame();

    /// Forgets geometries that nobody holds any more and nodes that this frame did not draw.
    void EndFrame();

    /// @return the geometry of a node in graphics memory, uploaded where needed.
    GpuGeometry& Geometry(const TambVizCore::GeoNode& node);

    /// @return the part states of a node, brought up to date.
    GpuNode& Node(const TambVizCore::GeoNode& node);

    /// @return the texture that tells the part of each primitive of a kind.
    const GlTexture& PartOfPrimitive(const TambVizCore::GeoNode& node, TambVizCore::PartKind kind);

    /// Forgets everything.
    void Clear();

private:
    std::map<const TambVizCore::Geometry*, GpuGeometry> m_geometries;
    std::map<const TambVizCore::GeoNode*, GpuNode> m_nodes;
    std::uint64_t m_frame = 0;
};

/// @return the place of a kind in GpuGeometry::primitives.
std::size_t PrimitiveSlot(TambVizCore::PartKind kind);

} // namespace ViewOpenGl

#endif
