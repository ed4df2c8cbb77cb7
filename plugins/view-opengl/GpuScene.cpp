#include "GpuScene.h"

#include "Shaders.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/PartState.h>

#include <algorithm>
#include <span>
#include <vector>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;
using TambVizCore::PartState;

/// @param kept  shares the array where the buffer lies over its memory.
template <class T>
GlBuffer upload(GLenum target, const TambVizCore::SharedArray<T>& values, bool readsOwnMemory,
                TambVizCore::SharedArray<T>& kept)
{
    if (!readsOwnMemory)
        return MakeBuffer(target, values.Data(), values.MemoryBytes());
    kept = values;
    return MakeBufferOver(values.Data(), values.MemoryBytes());
}

/// Binds the buffer @p buffer as the attribute @p location; nothing without a buffer.
void attach(const GlBuffer& buffer, GLuint location, GLint size, GLenum type, GLboolean normalized)
{
    if (!buffer)
        return;
    glBindBuffer(GL_ARRAY_BUFFER, buffer.Get());
    glEnableVertexAttribArray(location);
    glVertexAttribPointer(location, size, type, normalized, 0, nullptr);
}

bool hasTransparency(const TambVizCore::SharedArray<std::uint8_t>& colors)
{
    for (std::size_t i = 3; i < colors.Size(); i += 4) {
        if (colors[i] != 255)
            return true;
    }
    return false;
}

void uploadGeometry(const TambVizCore::Geometry& geometry, bool readsOwnMemory, GpuGeometry& gpu)
{
    gpu.vertexArray = MakeVertexArray();
    glBindVertexArray(gpu.vertexArray.Get());
    gpu.positions =
        upload(GL_ARRAY_BUFFER, geometry.Positions(), readsOwnMemory, gpu.keptPositions);
    attach(gpu.positions, kPositionLocation, 3, GL_FLOAT, GL_FALSE);
    gpu.normals = upload(GL_ARRAY_BUFFER, geometry.Normals(), readsOwnMemory, gpu.keptNormals);
    attach(gpu.normals, kNormalLocation, 3, GL_FLOAT, GL_FALSE);
    gpu.colors = upload(GL_ARRAY_BUFFER, geometry.Colors(), readsOwnMemory, gpu.keptColors);
    gpu.hasTransparentColors = hasTransparency(geometry.Colors());
    attach(gpu.colors, kColorLocation, 4, GL_UNSIGNED_BYTE, GL_TRUE);
    const auto addPrimitives = [&](PartKind kind,
                                   const TambVizCore::SharedArray<std::uint32_t>& indices) {
        const std::size_t slot = PrimitiveSlot(kind);
        gpu.primitives[slot].indices =
            upload(GL_ELEMENT_ARRAY_BUFFER, indices, readsOwnMemory, gpu.keptIndices[slot]);
        gpu.primitives[slot].count = static_cast<GLsizei>(indices.Size());
    };
    addPrimitives(PartKind::Face, geometry.Triangles());
    addPrimitives(PartKind::Edge, geometry.Segments());
    addPrimitives(PartKind::Vertex, geometry.Points());
    glBindVertexArray(0);
}

/// The part index of every primitive of a kind; all ones where a primitive belongs to none.
std::vector<std::uint32_t> partIndices(const TambVizCore::Geometry& geometry, PartKind kind)
{
    const std::uint32_t count = kind == PartKind::Face   ? geometry.TriangleCount()
                                : kind == PartKind::Edge ? geometry.SegmentCount()
                                                         : geometry.PointCount();
    std::vector<std::uint32_t> indices(count, 0xFFFFFFFFu);
    for (std::uint32_t part = 0; part < geometry.Parts().size(); ++part) {
        const TambVizCore::GeometryPart& run = geometry.Parts()[part];
        if (run.kind == kind)
            std::fill_n(indices.begin() + run.first, run.count, part);
    }
    return indices;
}

/// Looks at all states; a hundred thousand take some ten microseconds.
void summarize(std::span<const PartState> states, GpuNode& gpu)
{
    std::uint32_t all = PartState::kShown;
    std::uint32_t any = 0;
    bool transparent = false;
    for (const PartState& state : states) {
        all &= state.flags;
        any |= state.flags;
        transparent |= state.Has(PartState::kColored) && state.color.a != 255;
    }
    gpu.hasHiddenParts = (all & PartState::kShown) == 0;
    gpu.hasTransparentParts = transparent;
    gpu.needsParts = gpu.hasHiddenParts || (any & ~PartState::kShown) != 0;
}

} // namespace

std::size_t PrimitiveSlot(PartKind kind)
{
    return kind == PartKind::Face ? 0 : kind == PartKind::Edge ? 1 : 2;
}

void GpuScene::BeginFrame()
{
    ++m_frame;
}

void GpuScene::EndFrame()
{
    std::erase_if(m_geometries, [](const auto& entry) { return entry.second.source.expired(); });
    std::erase_if(m_nodes, [this](const auto& entry) { return entry.second.frame != m_frame; });
}

GpuGeometry& GpuScene::Geometry(const GeoNode& node)
{
    const auto& source = node.GetGeometry();
    GpuGeometry& gpu = m_geometries[source.get()];
    if (gpu.source.expired()) {
        gpu = GpuGeometry();
        gpu.source = source;
        uploadGeometry(*source, m_readsOwnMemory, gpu);
    }
    return gpu;
}

GpuNode& GpuScene::Node(GeoNode& node)
{
    GpuNode& gpu = m_nodes[&node];
    gpu.frame = m_frame;
    const TambVizCore::NodeStamps& stamps = node.Stamps();
    const bool isNew = gpu.structureStamp != stamps.structure;
    if (!isNew && gpu.partsStamp == stamps.parts)
        return gpu;
    gpu.structureStamp = stamps.structure;
    gpu.partsStamp = stamps.parts;
    const TambVizCore::PartRange changed = node.TakeChangedParts();
    const std::span<const PartState> states = node.PartStates();
    summarize(states, gpu);
    if (isNew) {
        gpu.texture = GlTexture();
        gpu.states = GlBuffer();
    }
    if (gpu.states) {
        WriteBuffer(GL_TEXTURE_BUFFER, gpu.states, changed.first * sizeof(PartState),
                    states.data() + changed.first, changed.count * sizeof(PartState));
    } else if (gpu.needsParts) {
        gpu.states = MakeBuffer(GL_TEXTURE_BUFFER, states.data(), states.size_bytes());
        gpu.texture = MakeBufferTexture(gpu.states, GL_RG32UI);
    }
    return gpu;
}

const GlTexture& GpuScene::PartOfPrimitive(const GeoNode& node, PartKind kind)
{
    GpuPrimitives& primitives = Geometry(node).primitives[PrimitiveSlot(kind)];
    if (!primitives.partTexture && primitives.count > 0) {
        const std::vector<std::uint32_t> indices = partIndices(*node.GetGeometry(), kind);
        primitives.partBuffer =
            MakeBuffer(GL_TEXTURE_BUFFER, indices.data(), indices.size() * sizeof(std::uint32_t));
        primitives.partTexture = MakeBufferTexture(primitives.partBuffer, GL_R32UI);
    }
    return primitives.partTexture;
}

void GpuScene::Clear()
{
    m_geometries.clear();
    m_nodes.clear();
}

} // namespace ViewOpenGl
