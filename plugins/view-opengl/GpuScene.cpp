#include "GpuScene.h"

#include "GeometryUpload.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/PartState.h>

#include <algorithm>
#include <span>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;
using TambVizCore::PartState;

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
    m_upload = TimeSlice();
}

void GpuScene::EndFrame(std::uint64_t sceneStamp)
{
    if (sceneStamp == m_sweptStamp)
        return;
    m_sweptStamp = sceneStamp;
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
    }
    // Something is uploaded in each slice, however short.
    if (!gpu.isComplete && (std::exchange(m_isFresh, false) || !m_upload.IsOver()))
        UploadGeometry(*source, m_readsOwnMemory, m_upload, gpu);
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

const GlTexture& GpuScene::PartOfPrimitive(const GeoNode& node, PartKind kind, GpuLevel* level)
{
    const std::size_t slot = PrimitiveSlot(kind);
    GpuPrimitives& primitives =
        level != nullptr ? level->primitives[slot] : Geometry(node).primitives[slot];
    if (!primitives.partTexture && primitives.count > 0) {
        std::vector<std::uint32_t> indices = PartIndices(*node.GetGeometry(), kind);
        if (level != nullptr) {
            const std::vector<std::uint32_t>& sources = level->sources[slot];
            // Sources ascend, so none is read after it was written over.
            std::transform(sources.begin(), sources.end(), indices.begin(),
                           [&indices](std::uint32_t source) { return indices[source]; });
            indices.resize(sources.size());
        }
        primitives.partBuffer =
            MakeBuffer(GL_TEXTURE_BUFFER, indices.data(), indices.size() * sizeof(std::uint32_t));
        primitives.partTexture = MakeBufferTexture(primitives.partBuffer, GL_R32UI);
    }
    return primitives.partTexture;
}

bool GpuScene::BuildLevels(const TimeSlice& slice)
{
    for (auto& [key, gpu] : m_geometries) {
        const auto source = gpu.source.lock();
        if (!gpu.wantsLevels || gpu.hasLevels || !gpu.isComplete || source == nullptr)
            continue;
        if (!gpu.builder.Continue(*source, slice) ||
            !UploadLevels(gpu.builder.Levels(), slice, gpu))
            return false;
        gpu.builder = DetailBuilder();
        gpu.hasLevels = true;
        if (slice.IsOver())
            return false;
    }
    return true;
}

void GpuScene::Clear()
{
    m_geometries.clear();
    m_nodes.clear();
    m_sweptStamp = 0;
}

} // namespace ViewOpenGl
