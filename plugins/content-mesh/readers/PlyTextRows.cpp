#include "readers/LineScan.h"
#include "readers/MeshFinish.h"
#include "readers/PlyRows.h"
#include "readers/ReaderTexts.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace OrvikMesh {

namespace {

/// Rows between two questions whether to stop: a few milliseconds.
constexpr std::size_t kPollRows = 1u << 13;
/// Fewest bytes of a vertex: three digits, two blanks, a line end.
constexpr std::size_t kFewestVertexBytes = 6;
/// The same of a face with three corners.
constexpr std::size_t kFewestFaceBytes = 8;

class PlyTextRows final : public PlyRows
{
public:
    PlyTextRows(std::string_view content, const PlyHeader& header, const ReadOptions& options,
                ReadMessages& messages)
        : m_content(content),
          m_options(options),
          m_messages(messages),
          m_at(content.data() + header.end),
          m_end(content.data() + content.size())
    {
    }

    std::uint64_t ReadVertices(const PlyElement& element, MeshData& mesh) override;
    std::uint64_t ReadFaces(const PlyElement& element, PolygonCollector& polygons) override;
    std::uint64_t Skip(const PlyElement& element) override;
    std::size_t Offset() const override
    {
        return static_cast<std::size_t>(m_at - m_content.data());
    }
    void SetOffset(std::size_t offset) override { m_at = m_content.data() + offset; }
    std::size_t BytesLeft() const override
    {
        return static_cast<std::size_t>(m_end - SkipToRow(m_at, m_end, 0));
    }
    ReadPlace PlaceOf(std::uint64_t offset) const override
    {
        return ReadPlace::Line(LineAt(m_content, offset));
    }

private:
    /// The values of a face that have a meaning.
    struct Face
    {
        std::vector<std::uint32_t> corners;
        std::array<double, 4> color{};
        ScalarType colorType = ScalarType::UInt8;
        bool hasColor = false;
    };

    bool nextRow();
    void poll();
    bool readNumber(float& value);
    bool readIndex(std::uint32_t& index);
    bool skipList();
    bool readCorners(std::vector<std::uint32_t>& corners);
    bool readVertex(const PlyElement& element, std::size_t index, PlyVertexArrays& arrays);
    bool readFace(const PlyElement& element, Face& face);

    std::string_view m_content;
    const ReadOptions& m_options;
    ReadMessages& m_messages;
    const char* m_at;
    const char* m_end;
};

void PlyTextRows::poll()
{
    PollCancel(m_options);
    ReportProgress(m_options,
                   static_cast<double>(Offset()) / static_cast<double>(m_content.size()));
}

/// Goes to the next line that holds something. @return false at the end of the file.
bool PlyTextRows::nextRow()
{
    m_at = SkipToRow(m_at, m_end, 0);
    return m_at < m_end;
}

/// Reads the next number of the line. @return false when there is none.
bool PlyTextRows::readNumber(float& value)
{
    m_at = SkipBlanks(m_at, m_end);
    const char* next = ScanFloat(m_at, m_end, value);
    if (!next)
        return false;
    m_at = next;
    return true;
}

/// Reads the next whole number of the line; kNone when it is negative or too large.
bool PlyTextRows::readIndex(std::uint32_t& index)
{
    m_at = SkipBlanks(m_at, m_end);
    const bool isNegative = m_at < m_end && *m_at == '-';
    const char* digits = m_at + (isNegative ? 1 : 0);
    std::int64_t value = 0;
    const char* next = ScanDigits(digits, m_end, kNone, value);
    if (next == digits)
        return false;
    m_at = next;
    index = (isNegative && value > 0) || value > kNone ? kNone : static_cast<std::uint32_t>(value);
    return true;
}

bool PlyTextRows::skipList()
{
    std::uint32_t count = 0;
    float value = 0.0f;
    if (!readIndex(count))
        return false;
    for (std::uint32_t i = 0; i < count; ++i)
        if (!readNumber(value))
            return false;
    return true;
}

bool PlyTextRows::readCorners(std::vector<std::uint32_t>& corners)
{
    std::uint32_t count = 0;
    if (!readIndex(count))
        return false;
    // Each corner takes bytes of the line, so a count that is too large ends soon.
    corners.clear();
    for (std::uint32_t i = 0; i < count; ++i) {
        std::uint32_t corner = 0;
        if (!readIndex(corner))
            return false;
        corners.push_back(corner);
    }
    return true;
}

/// Reads the vertex at m_at up to its first value that is none.
bool PlyTextRows::readVertex(const PlyElement& element, std::size_t index, PlyVertexArrays& arrays)
{
    for (const PlyProperty& property : element.properties) {
        float value = 0.0f;
        if (property.isList) {
            if (!skipList())
                return false;
            continue;
        }
        if (!readNumber(value))
            return false;
        if (property.role >= PlyRole::Corners)
            continue;
        if (std::uint8_t* byte = arrays.Bytes(property.role, index))
            *byte = ToColorByte(value, 255.0f);
        else
            *arrays.Floats(property.role, index) = value;
    }
    return true;
}

std::uint64_t PlyTextRows::ReadVertices(const PlyElement& element, MeshData& mesh)
{
    const std::uint64_t most = std::min<std::uint64_t>(
        element.count, static_cast<std::size_t>(m_end - m_at) / kFewestVertexBytes + 1);
    PlyVertexArrays arrays(element, most, mesh);
    Occurrences badValues;
    std::uint64_t done = 0;
    for (; done < most && nextRow(); ++done) {
        if (done % kPollRows == 0)
            poll();
        const std::size_t offset = Offset();
        arrays.Clear(done);
        if (!readVertex(element, done, arrays))
            badValues.Add(offset);
        m_at = NextLine(m_at, m_end);
    }
    arrays.Finish(element, done);
    if (badValues.count > 0)
        m_messages.Warn(FillText(kBadVertexValue, {std::to_wstring(badValues.count)}),
                        PlaceOf(badValues.first));
    return done;
}

bool PlyTextRows::readFace(const PlyElement& element, Face& face)
{
    for (const PlyProperty& property : element.properties) {
        if (property.isList) {
            if (!(property.role == PlyRole::Corners ? readCorners(face.corners) : skipList()))
                return false;
            continue;
        }
        float value = 0.0f;
        if (!readNumber(value))
            return false;
        if (!IsColor(property.role))
            continue;
        face.color[static_cast<std::size_t>(property.role) -
                   static_cast<std::size_t>(PlyRole::Red)] = static_cast<double>(value);
        if (property.role == PlyRole::Red) {
            face.hasColor = true;
            face.colorType = property.type;
        }
    }
    return true;
}

std::uint64_t PlyTextRows::ReadFaces(const PlyElement& element, PolygonCollector& polygons)
{
    const bool areStrips = element.kind == PlyElement::Kind::Strips;
    if (!areStrips)
        polygons.Reserve(std::min<std::uint64_t>(
            element.count, static_cast<std::size_t>(m_end - m_at) / kFewestFaceBytes + 1));
    Face face;
    face.color.fill(std::numeric_limits<double>::quiet_NaN());
    std::uint64_t done = 0;
    for (; done < element.count && nextRow(); ++done) {
        if (done % kPollRows == 0)
            poll();
        const std::size_t offset = Offset();
        if (!readFace(element, face))
            polygons.AddUnreadable(offset);
        else if (areStrips)
            polygons.AddStrips(face.corners.data(), face.corners.size(), offset);
        else if (face.hasColor)
            polygons.AddColored(face.corners.data(), face.corners.size(), offset,
                                ToFaceColor(face.color, face.colorType).data());
        else
            polygons.Add(face.corners.data(), face.corners.size(), offset);
        m_at = NextLine(m_at, m_end);
    }
    return done;
}

std::uint64_t PlyTextRows::Skip(const PlyElement& element)
{
    // A row without properties has no line.
    if (element.properties.empty())
        return element.count;
    std::uint64_t done = 0;
    for (; done < element.count && nextRow(); ++done) {
        if (done % kPollRows == 0)
            poll();
        m_at = NextLine(m_at, m_end);
    }
    return done;
}

} // namespace

std::unique_ptr<PlyRows> MakePlyTextRows(std::string_view content, const PlyHeader& header,
                                         const ReadOptions& options, ReadMessages& messages)
{
    return std::make_unique<PlyTextRows>(content, header, options, messages);
}

} // namespace OrvikMesh
