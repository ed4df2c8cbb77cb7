#include "readers/PointTextReader.h"

#include "readers/MeshFinish.h"
#include "readers/PointText.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

#include <OrvikOs/ParallelFor.h>
#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>
#include <vector>

namespace OrvikMesh {

namespace {

/// Bytes that are read between two questions whether to stop: some ten milliseconds.
constexpr std::size_t kPieceBytes = 2u << 20;
/// Points that tell what the columns mean.
constexpr std::size_t kProbePoints = 1000;
/// What reading the lines is of the whole work.
constexpr double kScanningShare = 0.9;

std::vector<std::string_view> cutIntoPieces(std::string_view text)
{
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        const std::size_t found = text.find('\n', std::min(kPieceBytes, text.size()));
        const std::size_t end = found == std::string_view::npos ? text.size() : found + 1;
        pieces.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return pieces;
}

class PointTextReader
{
public:
    PointTextReader(std::string_view text, LoneNumbers loneNumbers, const ReadOptions& options,
                    MeshData& mesh, ReadMessages& messages)
        : m_text(text),
          m_loneNumbers(loneNumbers),
          m_options(options),
          m_mesh(mesh),
          m_messages(messages)
    {
    }

    bool Run();

private:
    void readRows(std::string_view lines);
    std::size_t addUp();
    PointColumns findColumns() const;
    void fillMesh(std::size_t points);
    void warn(std::size_t points);

    std::string_view m_text;
    LoneNumbers m_loneNumbers;
    const ReadOptions& m_options;
    MeshData& m_mesh;
    ReadMessages& m_messages;
    std::size_t m_columns = 0;
    std::vector<std::string_view> m_lines;
    std::vector<PointRows> m_pieces;
    std::optional<std::uint64_t> m_announced; ///< Points, by the file's own counts.
    Occurrences m_junkLines;                  ///< Offsets from the start of the text.
};

void PointTextReader::readRows(std::string_view lines)
{
    m_lines = cutIntoPieces(lines);
    m_pieces.resize(m_lines.size());
    SharedProgress progress(m_options, m_lines.size(), kScanningShare);
    OrvikOs::ParallelFor(m_lines.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            PollCancel(m_options);
            ReadPointRows(m_lines[i], m_columns, m_loneNumbers, m_pieces[i]);
            progress.Add(1);
        }
    });
}

/// Joins what the pieces found, but for the points. @return the number of points.
std::size_t PointTextReader::addUp()
{
    std::size_t points = 0;
    for (std::size_t i = 0; i < m_pieces.size(); ++i) {
        const PointRows& rows = m_pieces[i];
        points += rows.values.Size() / m_columns;
        if (rows.announced)
            m_announced = m_announced.value_or(0) + *rows.announced;
        if (rows.junkLines.count > 0 && m_junkLines.count == 0)
            m_junkLines.first = static_cast<std::uint64_t>(m_lines[i].data() - m_text.data()) +
                                rows.junkLines.first;
        m_junkLines.count += rows.junkLines.count;
    }
    if (points >= kNone)
        throw std::length_error("too many points");
    return points;
}

PointColumns PointTextReader::findColumns() const
{
    // The first piece holds the first thousand points, unless it is a comment as a whole.
    for (const PointRows& rows : m_pieces)
        if (!rows.values.IsEmpty())
            return FindPointColumns(rows.values.Data(),
                                    std::min(rows.values.Size() / m_columns, kProbePoints),
                                    m_columns);
    return {};
}

void PointTextReader::fillMesh(std::size_t points)
{
    const PointColumns columns = findColumns();
    MeshArray<float> colors;
    m_mesh.positions.Reserve(points * 3);
    m_mesh.normals.Reserve(columns.normal > 0 ? points * 3 : 0);
    colors.Reserve(columns.color > 0 ? points * 4 : 0);
    for (PointRows& rows : m_pieces) {
        PollCancel(m_options);
        for (std::size_t at = 0; at < rows.values.Size(); at += m_columns) {
            const float* row = rows.values.Data() + at;
            for (std::size_t i = 0; i < 3; ++i)
                m_mesh.positions.PushBack(row[i]);
            for (std::size_t i = 0; i < 3 && columns.normal > 0; ++i)
                m_mesh.normals.PushBack(row[columns.normal + i]);
            for (std::size_t i = 0; i < 3 && columns.color > 0; ++i)
                colors.PushBack(row[columns.color + i]);
            if (columns.color > 0)
                colors.PushBack(std::numeric_limits<float>::quiet_NaN());
        }
        rows.values = MeshArray<float>();
    }
    NormalizeNormals(m_mesh);
    if (columns.color > 0)
        TakeColors(m_mesh, colors);
}

void PointTextReader::warn(std::size_t points)
{
    if (m_junkLines.count > 0)
        m_messages.Warn(FillText(kPointJunk, {std::to_wstring(m_junkLines.count)}),
                        ReadPlace::Line(LineAt(m_text, m_junkLines.first)));
    if (m_announced && *m_announced != points)
        m_messages.Warn(
            FillText(kPointCount, {std::to_wstring(*m_announced), std::to_wstring(points)}));
}

bool PointTextReader::Run()
{
    const std::string_view lines = m_text.substr(SkipPointHeading(m_text, m_announced));
    m_columns = CountPointColumns(lines);
    if (m_columns == 0) {
        m_messages.Fail(kPointNoRow);
        return false;
    }
    readRows(lines);
    const std::size_t points = addUp();
    fillMesh(points);
    warn(points);
    return FinishPoints(m_mesh, m_messages);
}

/// @return the first word where it is that of another format whose rows look like points.
std::string_view foreignWord(std::string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    const std::string_view word = text.substr(begin, text.find_first_of(" \t\r\n", begin) - begin);
    const bool isOff = word.size() >= 3 && word.size() <= 8 && word.ends_with("OFF");
    return isOff || word == "ply" || word == "solid" ? word : std::string_view();
}

bool readContent(std::string_view content, LoneNumbers loneNumbers, const ReadOptions& options,
                 MeshData& mesh, ReadMessages& messages)
{
    if (content.empty()) {
        messages.Fail(kEmptyFile);
        return false;
    }
    std::string storage;
    const std::string_view text = WithLineFeeds(ToUtf8Text(content, storage), storage);
    const std::size_t zero = FindBinaryByte(text);
    if (zero != std::string_view::npos) {
        messages.Fail(kPointNoText, ReadPlace::Byte(zero));
        return false;
    }
    const std::string_view foreign = foreignWord(text);
    if (!foreign.empty()) {
        messages.Fail(FillText(kPointForeign, {OrvikOs::Utf8ToWide(foreign)}));
        return false;
    }
    return PointTextReader(text, loneNumbers, options, mesh, messages).Run();
}

} // namespace

bool ReadXyzContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    return readContent(content, LoneNumbers::AreJunk, options, mesh, messages);
}

bool ReadXyz(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadXyzContent, options, mesh, messages);
}

bool ReadPtsContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    return readContent(content, LoneNumbers::AreCounts, options, mesh, messages);
}

bool ReadPts(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadPtsContent, options, mesh, messages);
}

} // namespace OrvikMesh
