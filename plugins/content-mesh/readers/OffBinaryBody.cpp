#include "readers/MeshFinish.h"
#include "readers/OffBody.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

namespace OrvikMesh {

namespace {

constexpr std::uint64_t kPollRows = 1u << 16;
/// The most components of a colour.
constexpr std::uint32_t kMaxComponents = 4;

} // namespace

OffBinaryBody::OffBinaryBody(std::string_view content, const OffHeader& header,
                             const ReadOptions& options)
    : m_content(content),
      m_header(header),
      m_options(options),
      m_at(content.data() + header.end),
      m_end(content.data() + content.size())
{
}

std::uint32_t OffBinaryBody::integerAt(std::size_t index) const
{
    std::uint32_t value = 0;
    std::memcpy(&value, m_at + index * 4, sizeof value);
    return __builtin_bswap32(value);
}

float OffBinaryBody::floatAt(std::size_t index) const
{
    return std::bit_cast<float>(integerAt(index));
}

void OffBinaryBody::poll()
{
    PollCancel(m_options);
    ReportProgress(m_options,
                   static_cast<double>(Offset()) / static_cast<double>(m_content.size()));
}

void OffBinaryBody::ReadVertices(MeshData& mesh, OffVertices& vertices, ReadMessages&)
{
    const std::size_t beforeColor = m_header.NumbersBeforeColor();
    const std::size_t words =
        beforeColor + (m_header.hasColors ? 4 : 0) + (m_header.hasTexture ? 2 : 0);
    for (; vertices.count < m_header.vertices && wordsLeft() >= words; ++vertices.count) {
        if (vertices.count % kPollRows == 0)
            poll();
        const float scale = m_header.isHomogeneous ? floatAt(3) : 1.0f;
        for (std::size_t i = 0; i < 3; ++i) {
            mesh.positions[vertices.count * 3 + i] = floatAt(i) / scale;
            if (m_header.hasNormals)
                mesh.normals[vertices.count * 3 + i] = floatAt(beforeColor - 3 + i);
        }
        for (std::size_t i = 0; i < 4 && m_header.hasColors; ++i)
            vertices.colors[vertices.count * 4 + i] = floatAt(beforeColor + i);
        m_at += words * 4;
    }
}

/// @return false when the file ends in the face; m_at is then where it began.
bool OffBinaryBody::readFace(PolygonCollector& polygons)
{
    const std::size_t left = wordsLeft();
    // One word for the count, one for the number of components of the colour.
    if (left < 2 || integerAt(0) > left - 2)
        return false;
    const std::uint32_t count = integerAt(0);
    const std::uint32_t components = integerAt(std::size_t{count} + 1);
    if (components > kMaxComponents || components > left - 2 - count)
        return false;
    m_corners.resize(count);
    for (std::uint32_t i = 0; i < count; ++i)
        m_corners[i] = integerAt(std::size_t{i} + 1);
    if (components >= 3) {
        std::uint8_t color[4] = {255, 255, 255, 255};
        for (std::uint32_t i = 0; i < components; ++i)
            color[i] = ToColorByte(floatAt(std::size_t{count} + 2 + i), 1.0f);
        polygons.AddColored(m_corners.data(), count, Offset(), color);
    } else {
        polygons.Add(m_corners.data(), count, Offset());
    }
    m_at += (std::size_t{count} + 2 + components) * 4;
    return true;
}

std::uint64_t OffBinaryBody::ReadFaces(PolygonCollector& polygons)
{
    std::uint64_t done = 0;
    for (; done < m_header.faces; ++done) {
        if (done % kPollRows == 0)
            poll();
        if (!readFace(polygons))
            break;
    }
    return done;
}

} // namespace OrvikMesh
