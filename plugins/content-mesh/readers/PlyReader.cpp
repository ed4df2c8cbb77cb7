#include "readers/PlyReader.h"

#include "readers/MeshFinish.h"
#include "readers/PlyHeader.h"
#include "readers/PlyRows.h"
#include "readers/PolygonCollector.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace OrvikMesh {

namespace {

/// Elements left out that a warning names.
constexpr std::size_t kMaxNamedElements = 8;
/// Letters of a name that a message repeats.
constexpr std::size_t kMaxNameBytes = 64;

/// Whether the data are what the header says, as far as their first bytes tell.
bool checkFormat(std::string_view content, const PlyHeader& header, ReadMessages& messages)
{
    const std::string_view data = content.substr(header.end);
    const bool isText = header.format == PlyFormat::Text;
    if (isText && FindBinaryByte(data) != std::string_view::npos)
        messages.Fail(kNotText, ReadPlace::Byte(header.end));
    else if (!isText && LooksLikeNumbers(data))
        messages.Fail(kNotBinary, ReadPlace::Byte(header.end));
    return !messages.HasError();
}

std::wstring shownName(const PlyElement& element)
{
    return OrvikOs::Utf8ToWide(std::string_view(element.name).substr(0, kMaxNameBytes));
}

bool holdsFaces(const PlyElement& element)
{
    return element.kind == PlyElement::Kind::Faces || element.kind == PlyElement::Kind::Strips;
}

/// Goes through the elements of a file in their order; faces that come before the vertices are read
/// after all others.
class PlyBodyReader
{
public:
    PlyBodyReader(const PlyHeader& header, PlyRows& rows, const ReadOptions& options,
                  MeshData& mesh, ReadMessages& messages)
        : m_header(header), m_rows(rows), m_options(options), m_mesh(mesh), m_messages(messages)
    {
    }

    bool Run();

private:
    struct Waiting
    {
        const PlyElement* element;
        std::size_t offset;
    };

    bool readElement(const PlyElement& element);
    bool readVertices(const PlyElement& element);
    bool readFaces(const PlyElement& element);
    bool skip(const PlyElement& element);
    void warnCut(const PlyElement& element, std::uint64_t rows);
    void warnLeftOut();
    bool finishMesh();

    const PlyHeader& m_header;
    PlyRows& m_rows;
    const ReadOptions& m_options;
    MeshData& m_mesh;
    ReadMessages& m_messages;
    std::optional<PolygonCollector> m_polygons; ///< From when the vertices are read.
    std::vector<Waiting> m_waiting;
    std::vector<const PlyElement*> m_leftOut;
    bool m_hasFaces = false;
};

void PlyBodyReader::warnCut(const PlyElement& element, std::uint64_t rows)
{
    m_messages.Warn(FillText(kPlyCut, {shownName(element), std::to_wstring(rows),
                                       std::to_wstring(element.count)}),
                    m_rows.PlaceOf(m_rows.Offset()));
}

bool PlyBodyReader::readVertices(const PlyElement& element)
{
    const std::uint64_t rows = m_rows.ReadVertices(element, m_mesh);
    const bool isWhole = rows == element.count;
    if (!isWhole && m_hasFaces && m_waiting.empty()) {
        m_messages.Fail(
            FillText(kPlyCutVertices, {std::to_wstring(rows), std::to_wstring(element.count)}),
            m_rows.PlaceOf(m_rows.Offset()));
        return false;
    }
    if (!isWhole)
        warnCut(element, rows);
    m_polygons.emplace(m_mesh, m_options);
    return isWhole;
}

bool PlyBodyReader::readFaces(const PlyElement& element)
{
    const std::uint64_t rows = m_rows.ReadFaces(element, *m_polygons);
    if (rows < element.count)
        warnCut(element, rows);
    return rows == element.count;
}

bool PlyBodyReader::skip(const PlyElement& element)
{
    const std::uint64_t rows = m_rows.Skip(element);
    if (rows < element.count)
        warnCut(element, rows);
    return rows == element.count;
}

/// @return false when the file ends in the element.
bool PlyBodyReader::readElement(const PlyElement& element)
{
    if (element.kind == PlyElement::Kind::Vertices)
        return readVertices(element);
    if (holdsFaces(element) && m_polygons)
        return readFaces(element);
    if (holdsFaces(element))
        m_waiting.push_back({&element, m_rows.Offset()});
    else if (element.count > 0)
        m_leftOut.push_back(&element);
    return skip(element);
}

void PlyBodyReader::warnLeftOut()
{
    if (m_leftOut.empty())
        return;
    std::wstring names;
    for (std::size_t i = 0; i < std::min(m_leftOut.size(), kMaxNamedElements); ++i)
        names += (i == 0 ? L"\"" : L", \"") + shownName(*m_leftOut[i]) + L"\"";
    if (m_leftOut.size() > kMaxNamedElements)
        names += L", ...";
    m_messages.Warn(FillText(kPlyLeftOut, {names}));
}

bool PlyBodyReader::finishMesh()
{
    m_polygons->Finish(m_messages, [this](std::uint64_t offset) { return m_rows.PlaceOf(offset); });
    if (m_mesh.TriangleCount() == 0)
        m_messages.Fail(kNoTriangle);
    return m_mesh.TriangleCount() > 0;
}

bool PlyBodyReader::Run()
{
    m_hasFaces = std::any_of(
        m_header.elements.begin(), m_header.elements.end(),
        [](const PlyElement& element) { return holdsFaces(element) && element.count > 0; });
    bool isWhole = true;
    for (auto element = m_header.elements.begin(); isWhole && element != m_header.elements.end();
         ++element)
        isWhole = readElement(*element);
    if (m_messages.HasError())
        return false;
    if (!m_polygons) {
        m_messages.Fail(FillText(kPlyMissing, {L"vertex"}), m_rows.PlaceOf(m_rows.Offset()));
        return false;
    }
    if (isWhole && m_rows.BytesLeft() > 0)
        m_messages.Warn(FillText(kPlyTrailing, {std::to_wstring(m_rows.BytesLeft())}),
                        m_rows.PlaceOf(m_rows.Offset()));
    for (const Waiting& waiting : m_waiting) {
        m_rows.SetOffset(waiting.offset);
        m_rows.ReadFaces(*waiting.element, *m_polygons);
    }
    warnLeftOut();
    return m_hasFaces ? finishMesh() : FinishPoints(m_mesh, m_messages);
}

} // namespace

bool ReadPlyContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    if (content.empty()) {
        messages.Fail(kEmptyFile);
        return false;
    }
    PlyHeader header;
    if (!ReadPlyHeader(content, header, messages) || !checkFormat(content, header, messages))
        return false;
    std::string storage;
    std::unique_ptr<PlyRows> rows;
    if (header.format == PlyFormat::Text)
        rows = MakePlyTextRows(WithLineFeeds(content, storage), header, options, messages);
    else
        rows = MakePlyBinaryRows(content, header, options);
    return PlyBodyReader(header, *rows, options, mesh, messages).Run();
}

bool ReadPly(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadPlyContent, options, mesh, messages);
}

} // namespace OrvikMesh
