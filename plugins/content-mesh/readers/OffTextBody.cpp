#include "readers/LineScan.h"
#include "readers/MeshFinish.h"
#include "readers/OffBody.h"
#include "readers/ReaderTexts.h"

#include <algorithm>
#include <cmath>

namespace OrvikMesh {

namespace {

/// Rows between two questions whether to stop: a few milliseconds.
constexpr std::uint64_t kPollRows = 1u << 13;
/// The most numbers of a vertex: x y z w, a normal, a colour, texture coordinates.
constexpr std::size_t kMaxNumbers = 13;

/// Reads a vertex index. @return the first letter after it; null when there is none.
inline const char* readIndex(const char* at, const char* end, std::uint32_t& index)
{
    at = SkipBlanks(at, end);
    std::int64_t value = 0;
    const char* next = ScanDigits(at, end, kNone, value);
    if (next != at) {
        index = value > kNone ? kNone : static_cast<std::uint32_t>(value);
        return next;
    }
    // A negative index is a number, if none that names a vertex.
    next = at < end && *at == '-' ? ScanDigits(at + 1, end, kNone, value) : at;
    index = kNone;
    return next > at + 1 ? next : nullptr;
}

} // namespace

OffTextBody::OffTextBody(std::string_view text, const OffHeader& header, const ReadOptions& options)
    : m_text(text),
      m_header(header),
      m_options(options),
      m_at(text.data() + header.end),
      m_end(text.data() + text.size())
{
}

ReadPlace OffTextBody::PlaceOf(std::uint64_t offset) const
{
    return ReadPlace::Line(LineAt(m_text, offset));
}

void OffTextBody::poll()
{
    PollCancel(m_options);
    ReportProgress(m_options, static_cast<double>(Offset()) / static_cast<double>(m_text.size()));
}

bool OffTextBody::nextRow()
{
    m_at = SkipToRow(m_at, m_end, '#');
    return m_at < m_end;
}

/// Reads the vertex at m_at. @return false when a number is missing.
bool OffTextBody::readVertex(MeshData& mesh, OffVertices& vertices)
{
    float numbers[kMaxNumbers];
    const std::size_t needed = m_header.NumbersBeforeColor();
    const std::size_t most = needed + (m_header.hasColors ? 4 : 0) + (m_header.hasTexture ? 2 : 0);
    std::size_t count = 0;
    for (; count < most; ++count) {
        m_at = SkipBlanks(m_at, m_end);
        const char* next = ScanFloat(m_at, m_end, numbers[count]);
        if (!next)
            break;
        m_at = next;
    }
    float* position = mesh.positions.Data() + vertices.count * 3;
    if (count < needed) {
        std::fill_n(position, 3, std::nanf(""));
        return false;
    }
    std::copy_n(numbers, 3, position);
    if (m_header.isHomogeneous)
        for (std::size_t i = 0; i < 3; ++i)
            position[i] /= numbers[3];
    if (m_header.hasNormals)
        std::copy_n(numbers + needed - 3, 3, mesh.normals.Data() + vertices.count * 3);
    if (!m_header.hasColors)
        return true;
    const std::size_t components = std::min<std::size_t>(
        4, count - needed - std::min(count - needed, std::size_t{m_header.hasTexture ? 2u : 0u}));
    std::copy_n(numbers + needed, components, vertices.colors.Data() + vertices.count * 4);
    return components >= 3;
}

void OffTextBody::ReadVertices(MeshData& mesh, OffVertices& vertices, ReadMessages& messages)
{
    Occurrences badValues;
    for (; vertices.count < m_header.vertices && nextRow(); ++vertices.count) {
        if (vertices.count % kPollRows == 0)
            poll();
        const std::uint64_t offset = Offset();
        if (!readVertex(mesh, vertices))
            badValues.Add(offset);
        m_at = NextLine(m_at, m_end);
    }
    if (badValues.count > 0)
        messages.Warn(FillText(kBadVertexValue, {std::to_wstring(badValues.count)}),
                      PlaceOf(badValues.first));
}

/// Reads what follows the corners of a face. @return false when that is no colour.
bool OffTextBody::readFaceColor(std::uint8_t* color)
{
    float numbers[4] = {0.0f, 0.0f, 0.0f, 0.0f};
    std::size_t count = 0;
    const char* begin = m_at;
    for (; count < 4; ++count) {
        m_at = SkipBlanks(m_at, m_end);
        const char* next = ScanFloat(m_at, m_end, numbers[count]);
        if (!next)
            break;
        m_at = next;
    }
    // A single number would choose from a table of colours that is not in the file.
    if (count < 3)
        return false;
    const bool isWhole =
        std::none_of(begin, m_at, [](char letter) { return letter == '.' || letter == 'e'; });
    const bool isLarge = numbers[0] > 1.0f || numbers[1] > 1.0f || numbers[2] > 1.0f;
    const float full = isWhole || isLarge ? 255.0f : 1.0f;
    for (std::size_t i = 0; i < 4; ++i)
        color[i] = i < count ? ToColorByte(numbers[i], full) : std::uint8_t{255};
    return true;
}

void OffTextBody::readFace(PolygonCollector& polygons)
{
    const std::uint64_t offset = Offset();
    std::uint32_t count = 0;
    const char* next = readIndex(m_at, m_end, count);
    m_corners.clear();
    // Each corner takes bytes of the line, so a count that is too large ends soon.
    for (std::uint32_t i = 0; next && i < count; ++i) {
        std::uint32_t corner = 0;
        next = readIndex(next, m_end, corner);
        m_corners.push_back(corner);
    }
    if (!next) {
        polygons.AddUnreadable(offset);
        return;
    }
    m_at = SkipBlanks(next, m_end);
    std::uint8_t color[4];
    if (!AtLineEnd(m_at, m_end) && *m_at != '#' && readFaceColor(color))
        polygons.AddColored(m_corners.data(), m_corners.size(), offset, color);
    else
        polygons.Add(m_corners.data(), m_corners.size(), offset);
}

std::uint64_t OffTextBody::ReadFaces(PolygonCollector& polygons)
{
    std::uint64_t done = 0;
    for (; done < m_header.faces && nextRow(); ++done) {
        if (done % kPollRows == 0)
            poll();
        readFace(polygons);
        m_at = NextLine(m_at, m_end);
    }
    return done;
}

} // namespace OrvikMesh
