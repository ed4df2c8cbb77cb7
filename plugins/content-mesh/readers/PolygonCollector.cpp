#include "readers/PolygonCollector.h"

#include "readers/MeshFinish.h"
#include "readers/ReaderTexts.h"

#include <algorithm>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// Of triangles whose face has no colour in a file in which others have one; white stands for none.
constexpr std::uint8_t kNoColor[4] = {255, 255, 255, 255};

} // namespace

PolygonCollector::PolygonCollector(MeshData& mesh, const ReadOptions& options)
    : m_mesh(mesh), m_options(options), m_areVerticesFinite(AreFinite(mesh.positions))
{
    if (mesh.VertexCount() >= kNone)
        throw std::length_error("too many vertices");
    m_vertexCount = static_cast<std::uint32_t>(mesh.VertexCount());
}

bool PolygonCollector::isSound(const std::uint32_t* corners, std::size_t count,
                               std::uint64_t offset)
{
    if (count < 3) {
        m_shortFaces.Add(offset);
        return false;
    }
    if (std::any_of(corners, corners + count,
                    [this](std::uint32_t corner) { return corner >= m_vertexCount; })) {
        m_badIndices.Add(offset);
        return false;
    }
    if (!m_areVerticesFinite &&
        !std::all_of(corners, corners + count, [this](std::uint32_t corner) {
            return IsFinitePoint(m_mesh.positions.Data() + std::size_t{corner} * 3);
        })) {
        m_nonFinite.Add(offset);
        return false;
    }
    return true;
}

void PolygonCollector::addFace(const std::uint32_t* corners, std::size_t count,
                               std::uint64_t offset)
{
    if (!isSound(corners, count, offset))
        return;
    if (count > Triangulator::kManyCorners)
        PollCancel(m_options);
    if (!m_triangulator.Split(m_mesh.positions.Data(), corners, count, m_split))
        m_fanned.Add(offset);
    for (const std::uint32_t corner : m_split)
        m_mesh.triangles.PushBack(corners[corner]);
}

void PolygonCollector::addAny(const std::uint32_t* corners, std::size_t count, std::uint64_t offset)
{
    addFace(corners, count, offset);
    if (!m_colors.IsEmpty())
        fillColors(kNoColor);
}

void PolygonCollector::AddColored(const std::uint32_t* corners, std::size_t count,
                                  std::uint64_t offset, const std::uint8_t* color)
{
    if (m_colors.IsEmpty())
        fillColors(kNoColor);
    addFace(corners, count, offset);
    fillColors(color);
}

/// Gives @p color to the triangles that have none yet.
void PolygonCollector::fillColors(const std::uint8_t* color)
{
    const std::size_t triangles = m_mesh.TriangleCount();
    for (std::size_t i = m_colors.Size() / 4; i < triangles; ++i)
        for (std::size_t k = 0; k < 4; ++k)
            m_colors.PushBack(color[k]);
}

void PolygonCollector::AddStrips(const std::uint32_t* corners, std::size_t count,
                                 std::uint64_t offset)
{
    std::size_t first = 0;
    while (first < count) {
        std::size_t end = first;
        while (end < count && corners[end] != kNone)
            ++end;
        for (std::size_t i = first; i + 2 < end; ++i) {
            const std::size_t turned = (i - first) % 2;
            const std::uint32_t triangle[3] = {corners[i + turned], corners[i + 1 - turned],
                                               corners[i + 2]};
            // Strips go back on themselves to begin anew: such triangles have no area on purpose.
            if (triangle[0] != triangle[1] && triangle[1] != triangle[2] &&
                triangle[0] != triangle[2])
                Add(triangle, 3, offset);
        }
        if (end - first > 0 && end - first < 3)
            m_shortFaces.Add(offset);
        first = end + 1;
    }
}

void PolygonCollector::AppendChecked(
    std::size_t most, const std::function<std::size_t(std::uint32_t* indices)>& write)
{
    const std::size_t before = m_mesh.triangles.Size();
    m_mesh.triangles.Resize(before + most * 3);
    m_mesh.triangles.Resize(before + write(m_mesh.triangles.Data() + before) * 3);
}

void PolygonCollector::Finish(ReadMessages& messages,
                              const std::function<ReadPlace(std::uint64_t)>& placeOf)
{
    const auto warn = [&](const wchar_t* reason, const Occurrences& occurrences) {
        if (occurrences.count > 0)
            messages.Warn(FillText(reason, {std::to_wstring(occurrences.count),
                                            std::to_wstring(Triangulator::kMaxEarCorners)}),
                          placeOf(occurrences.first));
    };
    warn(kUnreadableFace, m_unreadable);
    warn(kBadIndex, m_badIndices);
    warn(kShortFace, m_shortFaces);
    warn(kNonFiniteFace, m_nonFinite);
    warn(kFanned, m_fanned);
    if (m_mesh.TriangleCount() >= kNone)
        throw std::length_error("too many triangles");
    m_mesh.triangles.ShrinkToFit();
    if (m_mesh.TriangleCount() > 0)
        m_mesh.ranges.push_back(
            {0, static_cast<std::uint32_t>(m_mesh.TriangleCount()), kNone, kNone, kNone});
    if (!m_colors.IsEmpty()) {
        fillColors(kNoColor);
        ColorFaces(m_mesh, m_colors);
    }
    KeepUsedVertices(m_mesh);
}

} // namespace OrvikMesh
