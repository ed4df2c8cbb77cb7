#ifndef VIEWOPENGL_GPUSCENE_H
#define VIEWOPENGL_GPUSCENE_H

#include "DetailLevels.h"
#include "GlObjects.h"
#include "TimeSlice.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/SharedArray.h>

#include <array>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

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

/// A coarser version of a geometry in graphics memory, over the same vertices.
struct GpuLevel
{
    double cell = 0.0;                       ///< See DetailLevel.
    std::array<GpuPrimitives, 3> primitives; ///< Triangles, segments, points.
    /// For each primitive that of the geometry it stands for.
    std::array<std::vector<std::uint32_t>, 3> sources;
};

/// One geometry in graphics memory, shared by all nodes that draw it.
struct GpuGeometry
{
    std::weak_ptr<const TambVizCore::Geometry> source;
    GlVertexArray vertexArray;
    /// What buffers over the process's own memory keep alive; first, so that they go last.
    TambVizCore::SharedArray<float> keptPositions, keptNormals;
    TambVizCore::SharedArray<std::uint8_t> keptColors;
    std::array<TambVizCore::SharedArray<std::uint32_t>, 3> keptIndices;
    GlBuffer positions, normals, colors;
    bool hasTransparentColors = false;       ///< Some vertex has a colour that is not opaque.
    std::array<GpuPrimitives, 3> primitives; ///< Triangles, segments, points.

    bool isComplete = false;       ///< All of it is in graphics memory.
    int uploadStep = 0;            ///< Array to go on with.
    std::size_t uploadedBytes = 0; ///< Of that array.

    bool wantsLevels = false; ///< Some frame was too dear.
    bool hasLevels = false;   ///< They are complete.
    DetailBuilder builder;
    std::vector<GpuLevel> levels; ///< From fine to coarse.
};

/// The part states of one node in graphics memory.
struct GpuNode
{
    std::uint64_t partsStamp = ~std::uint64_t{0}; ///< Stamps of what was uploaded.
    std::uint64_t structureStamp = ~std::uint64_t{0};
    bool needsParts = false;          ///< Some part is not plain and shown.
    bool hasHiddenParts = false;      ///< Whoever looks through the gap sees backs.
    bool hasTransparentParts = false; ///< Some part has a colour that is not opaque.
    GlBuffer states;                  ///< One record per part; made when first needed.
    GlTexture texture;                ///< Over states.
    std::uint64_t frame = 0;          ///< Last frame that drew it.
};

/// What the view keeps in graphics memory: uploaded once, dropped when the scene lets go of it. The
/// context is current in every call. @thread Main thread.
class GpuScene
{
public:
    /// @param reads  whether the renderer can read vertices and indices where the scene has them
    ///               (GlContext::ReadsOwnMemory); no copies are made then. False at start.
    void SetReadsOwnMemory(bool reads) { m_readsOwnMemory = reads; }

    /// Begins a frame.
    void BeginFrame();

    /// From now on Geometry() brings data into graphics memory until the end of a slice; without
    /// end after BeginFrame().
    void SetUploadSlice(const TimeSlice& slice)
    {
        m_upload = slice;
        m_isFresh = true;
    }

    /// Forgets geometries that nobody holds any more and nodes that this frame did not draw.
    /// @param sceneStamp  grows with every change of the scene; nothing is done while it stays.
    void EndFrame(std::uint64_t sceneStamp);

    /// @return the geometry of a node in graphics memory, complete or as far as it got in the time
    ///         of the frame; valid until EndFrame.
    GpuGeometry& Geometry(const TambVizCore::GeoNode& node);

    /// @return the part states of a node, brought up to date: only what changed is written. Valid
    ///         until EndFrame.
    GpuNode& Node(TambVizCore::GeoNode& node);

    /// @param level  null for the geometry itself; else one of its levels.
    /// @return the texture that tells the part of each primitive of a kind, made when first asked
    ///         for.
    const GlTexture& PartOfPrimitive(const TambVizCore::GeoNode& node, TambVizCore::PartKind kind,
                                     GpuLevel* level);

    /// Makes the coarser versions of every geometry that wants them.
    /// @return true when there is nothing left to do.
    bool BuildLevels(const TimeSlice& slice);

    /// Forgets everything.
    void Clear();

    /// @return how many geometries and nodes are kept.
    std::size_t GeometryCount() const { return m_geometries.size(); }
    std::size_t NodeCount() const { return m_nodes.size(); }

private:
    std::unordered_map<const TambVizCore::Geometry*, GpuGeometry> m_geometries;
    /// A new node at the place of a deleted one is told apart by its stamps.
    std::unordered_map<const TambVizCore::GeoNode*, GpuNode> m_nodes;
    std::uint64_t m_frame = 0;
    std::uint64_t m_sweptStamp = 0; ///< Of the scene when what it no longer has was forgotten.
    TimeSlice m_upload;
    bool m_isFresh = false; ///< Nothing was uploaded in the slice yet.
    bool m_readsOwnMemory = false;
};

/// @return the place of a kind in GpuGeometry::primitives.
std::size_t PrimitiveSlot(TambVizCore::PartKind kind);

} // namespace ViewOpenGl

#endif
