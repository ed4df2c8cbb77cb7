#include "GeometryUpload.h"

#include "Shaders.h"

#include <TambVizCore/Geometry.h>

#include <algorithm>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::PartKind;
using TambVizCore::SharedArray;

/// Between two looks at the clock.
constexpr std::size_t kPiece = std::size_t{2} << 20;

/// Binds a buffer as the attribute @p location of the vertex array that is bound.
void attach(const GlBuffer& buffer, GLuint location, GLint size, GLenum type, GLboolean normalized)
{
    if (!buffer)
        return;
    glBindBuffer(GL_ARRAY_BUFFER, buffer.Get());
    glEnableVertexAttribArray(location);
    glVertexAttribPointer(location, size, type, normalized, 0, nullptr);
}

bool hasTransparency(const std::uint8_t* colors, std::size_t bytes)
{
    for (std::size_t i = 3; i < bytes; i += 4) {
        if (colors[i] != 255)
            return true;
    }
    return false;
}

/// One geometry on its way, for the time of a call.
class Upload
{
public:
    Upload(bool readsOwnMemory, const TimeSlice& slice, GpuGeometry& gpu)
        : m_readsOwnMemory(readsOwnMemory), m_slice(slice), m_gpu(gpu)
    {
    }

    /// Goes on with an array, in the order of the steps.
    /// @param kept  shares the array where the buffer lies over its memory.
    /// @return true when it is complete.
    template <class T>
    bool Array(int step, GLenum target, const SharedArray<T>& values, GlBuffer& buffer,
               SharedArray<T>& kept)
    {
        if (m_gpu.uploadStep > step)
            return true;
        if (m_readsOwnMemory && values.MemoryBytes() > 0) {
            kept = values;
            buffer = MakeBufferOver(values.Data(), values.MemoryBytes());
        } else if (!copy(target, values.Data(), values.MemoryBytes(), buffer)) {
            return false;
        }
        ++m_gpu.uploadStep;
        m_gpu.uploadedBytes = 0;
        return true;
    }

    /// Looks whether some colour is transparent.
    bool Transparency(int step, const SharedArray<std::uint8_t>& colors)
    {
        if (m_gpu.uploadStep > step)
            return true;
        const std::size_t bytes = colors.MemoryBytes();
        while (m_gpu.uploadedBytes < bytes && !m_gpu.hasTransparentColors) {
            const std::size_t piece = std::min(kPiece, bytes - m_gpu.uploadedBytes);
            m_gpu.hasTransparentColors =
                hasTransparency(colors.Data() + m_gpu.uploadedBytes, piece);
            m_gpu.uploadedBytes += piece;
            if (m_gpu.uploadedBytes < bytes && m_slice.IsOver())
                return false;
        }
        ++m_gpu.uploadStep;
        m_gpu.uploadedBytes = 0;
        return true;
    }

private:
    bool copy(GLenum target, const void* data, std::size_t bytes, GlBuffer& buffer)
    {
        if (!buffer && bytes > 0)
            buffer = MakeBuffer(target, nullptr, bytes);
        while (m_gpu.uploadedBytes < bytes) {
            const std::size_t piece = std::min(kPiece, bytes - m_gpu.uploadedBytes);
            WriteBuffer(target, buffer, m_gpu.uploadedBytes,
                        static_cast<const std::uint8_t*>(data) + m_gpu.uploadedBytes, piece);
            m_gpu.uploadedBytes += piece;
            if (m_gpu.uploadedBytes < bytes && m_slice.IsOver())
                return false;
        }
        return true;
    }

    bool m_readsOwnMemory;
    const TimeSlice& m_slice;
    GpuGeometry& m_gpu;
};

void uploadLevel(DetailLevel& level, GpuGeometry& gpu)
{
    glBindVertexArray(gpu.vertexArray.Get());
    GpuLevel& made = gpu.levels.emplace_back();
    made.cell = level.cell;
    for (std::size_t slot = 0; slot < 3; ++slot) {
        const std::vector<std::uint32_t>& indices = level.primitives[slot].indices;
        made.primitives[slot].indices = MakeBuffer(GL_ELEMENT_ARRAY_BUFFER, indices.data(),
                                                   indices.size() * sizeof(std::uint32_t));
        made.primitives[slot].count = static_cast<GLsizei>(indices.size());
        made.sources[slot] = std::move(level.primitives[slot].sources);
    }
    glBindVertexArray(0);
}

} // namespace

bool UploadGeometry(const TambVizCore::Geometry& geometry, bool readsOwnMemory,
                    const TimeSlice& slice, GpuGeometry& gpu)
{
    if (!gpu.vertexArray)
        gpu.vertexArray = MakeVertexArray();
    // Index buffers are part of the vertex array that is bound.
    glBindVertexArray(gpu.vertexArray.Get());
    Upload upload(readsOwnMemory, slice, gpu);
    const SharedArray<std::uint32_t>* const indices[] = {&geometry.Triangles(),
                                                         &geometry.Segments(), &geometry.Points()};
    bool isComplete =
        upload.Array(0, GL_ARRAY_BUFFER, geometry.Positions(), gpu.positions, gpu.keptPositions) &&
        upload.Array(1, GL_ARRAY_BUFFER, geometry.Normals(), gpu.normals, gpu.keptNormals) &&
        upload.Array(2, GL_ARRAY_BUFFER, geometry.Colors(), gpu.colors, gpu.keptColors) &&
        upload.Transparency(3, geometry.Colors());
    for (std::size_t slot = 0; isComplete && slot < 3; ++slot)
        isComplete =
            upload.Array(4 + static_cast<int>(slot), GL_ELEMENT_ARRAY_BUFFER, *indices[slot],
                         gpu.primitives[slot].indices, gpu.keptIndices[slot]);
    if (isComplete) {
        attach(gpu.positions, kPositionLocation, 3, GL_FLOAT, GL_FALSE);
        attach(gpu.normals, kNormalLocation, 3, GL_FLOAT, GL_FALSE);
        attach(gpu.colors, kColorLocation, 4, GL_UNSIGNED_BYTE, GL_TRUE);
        for (std::size_t slot = 0; slot < 3; ++slot)
            gpu.primitives[slot].count = static_cast<GLsizei>(indices[slot]->Size());
    }
    glBindVertexArray(0);
    gpu.isComplete = isComplete;
    return isComplete;
}

bool UploadLevels(std::vector<DetailLevel>& levels, const TimeSlice& slice, GpuGeometry& gpu)
{
    while (gpu.levels.size() < levels.size()) {
        uploadLevel(levels[gpu.levels.size()], gpu);
        if (slice.IsOver())
            break;
    }
    return gpu.levels.size() == levels.size();
}

std::vector<std::uint32_t> PartIndices(const TambVizCore::Geometry& geometry, PartKind kind)
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

} // namespace ViewOpenGl
