#include "readers/PlyKernel.h"
#include "readers/PlyRows.h"
#include "readers/ReaderTexts.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace OrvikMesh {

namespace {

/// Rows between two questions whether to stop, and that a column is read from at a time: what they
/// hold stays in the cache for the next column.
constexpr std::size_t kBlockRows = 4096;
/// The same for rows that are read one by one.
constexpr std::size_t kPollRows = 1u << 16;

class PlyBinaryRows final : public PlyRows
{
public:
    PlyBinaryRows(std::string_view content, const PlyHeader& header, const ReadOptions& options)
        : m_options(options),
          m_begin(reinterpret_cast<const std::byte*>(content.data())),
          m_at(m_begin + header.end),
          m_end(m_begin + content.size()),
          m_isSwapped(header.format == PlyFormat::BigEndian)
    {
    }

    std::uint64_t ReadVertices(const PlyElement& element, MeshData& mesh) override;
    std::uint64_t ReadFaces(const PlyElement& element, PolygonCollector& polygons) override;
    std::uint64_t Skip(const PlyElement& element) override;
    std::size_t Offset() const override { return static_cast<std::size_t>(m_at - m_begin); }
    void SetOffset(std::size_t offset) override { m_at = m_begin + offset; }
    std::size_t BytesLeft() const override { return static_cast<std::size_t>(m_end - m_at); }
    ReadPlace PlaceOf(std::uint64_t offset) const override { return ReadPlace::Byte(offset); }

private:
    /// The values of a row that have a meaning.
    struct Row
    {
        std::array<double, kPlyValueRoles> values{};
        std::vector<std::uint32_t> corners;
        ScalarType colorType = ScalarType::UInt8;
        bool hasColor = false;
    };

    void poll();
    std::uint64_t wholeRows(const PlyElement& element) const;
    void readColumns(const PlyElement& element, std::size_t rows, PlyVertexArrays& arrays);
    bool readRow(const PlyElement& element, Row& row);
    bool readList(const PlyProperty& property, Row& row);
    void keepRow(const PlyElement& element, const Row& row, std::size_t index,
                 PlyVertexArrays& arrays);
    std::uint64_t readTriangles(const PlyElement& element, std::uint64_t rows,
                                PolygonCollector& polygons);

    const ReadOptions& m_options;
    const std::byte* m_begin;
    const std::byte* m_at;
    const std::byte* m_end;
    bool m_isSwapped;
};

void PlyBinaryRows::poll()
{
    PollCancel(m_options);
    ReportProgress(m_options, static_cast<double>(Offset()) / static_cast<double>(m_end - m_begin));
}

/// @return the rows of an element, at most as many as the bytes left can hold.
std::uint64_t PlyBinaryRows::wholeRows(const PlyElement& element) const
{
    const std::size_t rowBytes = element.RowBytes();
    return rowBytes == 0 ? element.count
                         : std::min<std::uint64_t>(element.count, BytesLeft() / rowBytes);
}

void PlyBinaryRows::readColumns(const PlyElement& element, std::size_t rows,
                                PlyVertexArrays& arrays)
{
    const std::size_t rowBytes = element.RowBytes();
    for (std::size_t done = 0; done < rows; done += kBlockRows) {
        poll();
        const std::size_t count = std::min(kBlockRows, rows - done);
        const std::byte* value = m_at;
        for (const PlyProperty& property : element.properties) {
            const ScalarColumn column{value, rowBytes, property.type, m_isSwapped};
            value += SizeOf(property.type);
            if (property.role >= PlyRole::Corners)
                continue;
            if (std::uint8_t* bytes = arrays.Bytes(property.role, done))
                CopyBytes(column, count, bytes);
            else
                ReadScalars(column, count, arrays.Floats(property.role, done),
                            IsColor(property.role) ? 4 : 3);
        }
        m_at += count * rowBytes;
    }
}

/// Reads a list at m_at. @return false when the file ends in it.
bool PlyBinaryRows::readList(const PlyProperty& property, Row& row)
{
    const std::size_t countBytes = SizeOf(property.countType);
    if (BytesLeft() < countBytes)
        return false;
    const double announced = ReadScalar(m_at, property.countType, m_isSwapped);
    const std::size_t valueBytes = SizeOf(property.type);
    // Counts below zero and those that are no numbers can only come from damage.
    if (!(announced >= 0.0 &&
          announced <= static_cast<double>((BytesLeft() - countBytes) / valueBytes)))
        return false;
    const auto count = static_cast<std::size_t>(announced);
    m_at += countBytes;
    if (property.role == PlyRole::Corners) {
        row.corners.resize(count);
        for (std::size_t i = 0; i < count; ++i)
            row.corners[i] = ReadIndex(m_at + i * valueBytes, property.type, m_isSwapped);
    }
    m_at += count * valueBytes;
    return true;
}

/// Reads the row at m_at. @return false when the file ends in it; m_at is then where it began.
bool PlyBinaryRows::readRow(const PlyElement& element, Row& row)
{
    const std::byte* const begin = m_at;
    for (const PlyProperty& property : element.properties) {
        const bool fits =
            property.isList ? readList(property, row) : BytesLeft() >= SizeOf(property.type);
        if (!fits) {
            m_at = begin;
            return false;
        }
        if (property.isList)
            continue;
        if (property.role < PlyRole::Corners)
            row.values[static_cast<std::size_t>(property.role)] =
                ReadScalar(m_at, property.type, m_isSwapped);
        if (property.role == PlyRole::Red) {
            row.hasColor = true;
            row.colorType = property.type;
        }
        m_at += SizeOf(property.type);
    }
    return true;
}

void PlyBinaryRows::keepRow(const PlyElement& element, const Row& row, std::size_t index,
                            PlyVertexArrays& arrays)
{
    for (const PlyProperty& property : element.properties) {
        if (property.role >= PlyRole::Corners)
            continue;
        const double value = row.values[static_cast<std::size_t>(property.role)];
        if (std::uint8_t* byte = arrays.Bytes(property.role, index))
            *byte = static_cast<std::uint8_t>(value);
        else
            *arrays.Floats(property.role, index) = static_cast<float>(value);
    }
}

std::uint64_t PlyBinaryRows::ReadVertices(const PlyElement& element, MeshData& mesh)
{
    std::uint64_t rows = wholeRows(element);
    PlyVertexArrays arrays(element, rows, mesh);
    if (!element.HasLists()) {
        readColumns(element, rows, arrays);
    } else {
        Row row;
        std::uint64_t done = 0;
        for (; done < rows && readRow(element, row); ++done) {
            if (done % kPollRows == 0)
                poll();
            keepRow(element, row, done, arrays);
        }
        rows = done;
    }
    arrays.Finish(element, rows);
    return rows;
}

/// Reads the rows at m_at that are plain triangles, at most @p rows. @return how many were.
std::uint64_t PlyBinaryRows::readTriangles(const PlyElement& element, std::uint64_t rows,
                                           PolygonCollector& polygons)
{
    PlyTriangleRun run;
    for (const PlyProperty& property : element.properties) {
        if (property.role == PlyRole::Corners) {
            run.countOffset = run.rowBytes;
            run.rowBytes += 13;
            if (SizeOf(property.countType) != 1 ||
                (property.type != ScalarType::Int32 && property.type != ScalarType::UInt32))
                return 0;
        } else if (property.isList || IsColor(property.role)) {
            return 0;
        } else {
            run.rowBytes += SizeOf(property.type);
        }
    }
    run.isSwapped = m_isSwapped;
    run.vertexCount = polygons.VertexCount();
    std::uint64_t done = 0;
    bool goesOn = polygons.AreVerticesFinite();
    while (goesOn && done < rows) {
        poll();
        run.first = m_at;
        run.rows = std::min<std::size_t>({rows - done, kPollRows, BytesLeft() / run.rowBytes});
        std::size_t read = 0;
        polygons.AppendChecked(run.rows, [&](std::uint32_t* indices) {
            run.indices = indices;
            return read = ReadPlyTriangles(run);
        });
        m_at += read * run.rowBytes;
        done += read;
        goesOn = read == kPollRows;
    }
    return done;
}

std::uint64_t PlyBinaryRows::ReadFaces(const PlyElement& element, PolygonCollector& polygons)
{
    const bool areStrips = element.kind == PlyElement::Kind::Strips;
    const std::uint64_t rows = wholeRows(element);
    std::uint64_t done = 0;
    std::uint64_t nextPoll = 0;
    Row row;
    row.values.fill(std::numeric_limits<double>::quiet_NaN());
    if (!areStrips)
        polygons.Reserve(rows);
    while (done < rows) {
        if (!areStrips && done >= nextPoll) {
            // Tried again now and then: a polygon among triangles stops it only for a while.
            done += readTriangles(element, rows - done, polygons);
            if (done == rows)
                break;
        }
        if (done >= nextPoll) {
            poll();
            nextPoll = done + kBlockRows;
        }
        const std::size_t offset = Offset();
        row.corners.clear();
        if (!readRow(element, row))
            break;
        if (areStrips) {
            polygons.AddStrips(row.corners.data(), row.corners.size(), offset);
        } else if (row.hasColor) {
            const auto first = static_cast<std::size_t>(PlyRole::Red);
            polygons.AddColored(row.corners.data(), row.corners.size(), offset,
                                ToFaceColor({row.values[first], row.values[first + 1],
                                             row.values[first + 2], row.values[first + 3]},
                                            row.colorType)
                                    .data());
        } else {
            polygons.Add(row.corners.data(), row.corners.size(), offset);
        }
        ++done;
    }
    return done;
}

std::uint64_t PlyBinaryRows::Skip(const PlyElement& element)
{
    const std::uint64_t rows = wholeRows(element);
    if (!element.HasLists()) {
        m_at += rows * element.RowBytes();
        return rows;
    }
    Row row;
    std::uint64_t done = 0;
    for (; done < rows && readRow(element, row); ++done)
        if (done % kPollRows == 0)
            poll();
    return done;
}

} // namespace

std::unique_ptr<PlyRows> MakePlyBinaryRows(std::string_view content, const PlyHeader& header,
                                           const ReadOptions& options)
{
    return std::make_unique<PlyBinaryRows>(content, header, options);
}

} // namespace OrvikMesh
