#include "readers/PcdRows.h"

#include "readers/LineScan.h"
#include "readers/Lzf.h"
#include "readers/ReaderTexts.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace OrvikMesh {

namespace {

/// Rows between two questions whether to stop; what they hold stays in the cache.
constexpr std::size_t kBlockRows = 1u << 14;
/// Bytes that are unpacked between two questions.
constexpr std::size_t kUnpackBytes = 8u << 20;
/// The most bytes that a point takes in a mesh.
constexpr std::uint64_t kPointBytes = 28;
/// What reading compressed data may take: this many times the file's size, and a rest that any file
/// may take.
constexpr std::uint64_t kMaxGrowth = 36;
constexpr std::uint64_t kFreeBytes = 48u << 20;

/// The fields that a mesh takes; null where there are none.
struct UsedFields
{
    explicit UsedFields(const PcdHeader& header);

    std::array<const PcdField*, 3> position{};
    std::array<const PcdField*, 3> normal{};
    std::array<const PcdField*, 3> color{}; ///< Bytes each.
    const PcdField* packed = nullptr;       ///< Blue, green, red and something in four bytes.

    bool HasNormals() const { return normal[0] != nullptr; }
    bool HasColors() const { return packed || color[0]; }
};

using FieldNames = std::array<const char*, 3>;

/// @return the fields of all three names; null three times when one is missing.
std::array<const PcdField*, 3> findThree(const PcdHeader& header, const FieldNames& names)
{
    std::array<const PcdField*, 3> found{};
    for (std::size_t i = 0; i < 3; ++i) {
        found[i] = header.Find(names[i]);
        if (!found[i] || !found[i]->type)
            return {};
    }
    return found;
}

UsedFields::UsedFields(const PcdHeader& header)
    : position(findThree(header, {"x", "y", "z"})),
      normal(findThree(header, {"normal_x", "normal_y", "normal_z"})),
      color(findThree(header, {"r", "g", "b"}))
{
    for (const char* name : {"rgb", "rgba"}) {
        const PcdField* field = header.Find(name);
        if (field && field->bytes == 4 && !packed)
            packed = field;
    }
    for (const PcdField* field : color)
        if (field && field->bytes != 1)
            color = {};
}

void makeRoom(const UsedFields& used, std::uint64_t points, MeshData& mesh)
{
    if (points >= kNone)
        throw std::length_error("too many points");
    mesh.positions.Resize(points * 3);
    if (used.HasNormals())
        mesh.normals.Resize(points * 3);
    if (used.HasColors()) {
        // The fourth byte of packed colours is left unset by many programs: all are opaque.
        mesh.colors.Resize(points * 4);
        std::fill(mesh.colors.begin(), mesh.colors.end(), std::uint8_t{255});
    }
}

/// Where the values of a field lie in memory.
struct FieldPlace
{
    const std::byte* first = nullptr;
    std::size_t step = 0;
};

/// Reads points from memory.
///
/// @param placeOf  Gives the place of a field.
template <class PlaceOf>
void readColumns(const UsedFields& used, std::uint64_t points, const ReadOptions& options,
                 MeshData& mesh, const PlaceOf& placeOf)
{
    makeRoom(used, points, mesh);
    for (std::size_t done = 0; done < points; done += kBlockRows) {
        PollCancel(options);
        ReportProgress(options, static_cast<double>(done) / static_cast<double>(points));
        const std::size_t count = std::min<std::size_t>(kBlockRows, points - done);
        const auto column = [&](const PcdField& field, std::size_t byte) {
            const FieldPlace place = placeOf(field);
            return ScalarColumn{place.first + place.step * done + byte, place.step,
                                field.type.value_or(ScalarType::UInt8), false};
        };
        for (std::size_t i = 0; i < 3; ++i) {
            ReadScalars(column(*used.position[i], 0), count, &mesh.positions[done * 3 + i], 3);
            if (used.HasNormals())
                ReadScalars(column(*used.normal[i], 0), count, &mesh.normals[done * 3 + i], 3);
            if (used.packed)
                CopyBytes(column(*used.packed, 2 - i), count, &mesh.colors[done * 4 + i]);
            else if (used.HasColors())
                CopyBytes(column(*used.color[i], 0), count, &mesh.colors[done * 4 + i]);
        }
    }
}

/// Unpacks @p packed into @p unpacked, which has the right size. @return false when it is damaged.
bool unpack(std::string_view packed, const ReadOptions& options, MeshArray<std::byte>& unpacked)
{
    LzfState state;
    state.at = reinterpret_cast<const std::byte*>(packed.data());
    state.end = state.at + packed.size();
    state.begin = state.to = unpacked.Data();
    state.limit = state.begin + unpacked.Size();
    LzfStop stop = LzfStop::Paused;
    while (stop == LzfStop::Paused) {
        PollCancel(options);
        stop = UnpackLzf(state, kUnpackBytes);
    }
    return stop == LzfStop::Done && state.to == state.limit;
}

/// The bits of a colour that a text gives as a whole number or as the float with these bits.
std::uint32_t packedColor(std::string_view word)
{
    const char* end = word.data() + word.size();
    std::int64_t whole = 0;
    if (!word.empty() && ScanDigits(word.data(), end, 0xFFFFFFFF, whole) == end)
        return static_cast<std::uint32_t>(whole);
    float value = 0.0f;
    return ScanFloat(word.data(), end, value) ? std::bit_cast<std::uint32_t>(value) : 0;
}

/// Reads the lines of a text.
class PcdTextReader
{
public:
    PcdTextReader(const UsedFields& used, MeshData& mesh) : m_used(used), m_mesh(mesh)
    {
        for (const auto* fields : {&used.position, &used.normal, &used.color})
            for (const PcdField* field : *fields)
                m_columns = std::max(m_columns, field ? field->firstColumn + 1 : 0);
        m_columns = std::max(m_columns, used.packed ? used.packed->firstColumn + 1 : 0);
    }

    /// Reads the line at @p at as a point. @return false when a value is missing or no number.
    bool Read(const char* at, const char* end, std::size_t point);

private:
    bool number(const PcdField& field, float& value) const;

    const UsedFields& m_used;
    MeshData& m_mesh;
    std::uint64_t m_columns = 0; ///< Words of a line that are needed.
    std::vector<std::string_view> m_words;
};

bool PcdTextReader::number(const PcdField& field, float& value) const
{
    const std::string_view word = m_words[field.firstColumn];
    return ScanFloat(word.data(), word.data() + word.size(), value) == word.data() + word.size();
}

bool PcdTextReader::Read(const char* at, const char* end, std::size_t point)
{
    m_words.clear();
    for (at = SkipBlanks(at, end); m_words.size() < m_columns && !AtLineEnd(at, end);
         at = SkipBlanks(at, end)) {
        const char* begin = at;
        while (!AtLineEnd(at, end) && !IsBlank(*at))
            ++at;
        m_words.emplace_back(begin, static_cast<std::size_t>(at - begin));
    }
    float* position = &m_mesh.positions[point * 3];
    std::fill_n(position, 3, std::nanf(""));
    if (m_used.HasNormals())
        std::fill_n(&m_mesh.normals[point * 3], 3, 0.0f);
    if (m_words.size() < m_columns)
        return false;
    std::array<float, 3> read{};
    bool areNumbers = true;
    for (std::size_t i = 0; i < 3; ++i) {
        float component = 0.0f;
        areNumbers = number(*m_used.position[i], read[i]) && areNumbers;
        if (m_used.HasNormals())
            areNumbers = number(*m_used.normal[i], m_mesh.normals[point * 3 + i]) && areNumbers;
        if (m_used.packed)
            m_mesh.colors[point * 4 + i] = static_cast<std::uint8_t>(
                packedColor(m_words[m_used.packed->firstColumn]) >> (16 - 8 * i));
        else if (m_used.HasColors() && number(*m_used.color[i], component))
            m_mesh.colors[point * 4 + i] =
                static_cast<std::uint8_t>(std::clamp(component, 0.0f, 255.0f));
    }
    if (areNumbers)
        std::copy(read.begin(), read.end(), position);
    return areNumbers;
}

} // namespace

std::uint64_t ReadPcdText(std::string_view content, const PcdHeader& header,
                          const ReadOptions& options, MeshData& mesh, ReadMessages& messages)
{
    const UsedFields used(header);
    const char* at = content.data() + header.end;
    const char* const end = content.data() + content.size();
    // Three values take six bytes of a line at least.
    const std::uint64_t most =
        std::min<std::uint64_t>(header.points, static_cast<std::size_t>(end - at) / 6 + 1);
    makeRoom(used, most, mesh);
    PcdTextReader reader(used, mesh);
    Occurrences junk;
    std::uint64_t done = 0;
    for (; done < most && (at = SkipToRow(at, end, '#')) < end; ++done) {
        const auto offset = static_cast<std::uint64_t>(at - content.data());
        if (done % kBlockRows == 0) {
            PollCancel(options);
            ReportProgress(options,
                           static_cast<double>(offset) / static_cast<double>(content.size()));
        }
        if (!reader.Read(at, end, done))
            junk.Add(offset);
        at = NextLine(at, end);
    }
    mesh.positions.Resize(done * 3);
    mesh.normals.Resize(std::min(mesh.normals.Size(), done * 3));
    mesh.colors.Resize(std::min(mesh.colors.Size(), done * 4));
    if (junk.count > 0)
        messages.Warn(FillText(kBadVertexValue, {std::to_wstring(junk.count)}),
                      ReadPlace::Line(LineAt(content, junk.first)));
    return done;
}

std::uint64_t ReadPcdBinary(std::string_view content, const PcdHeader& header,
                            const ReadOptions& options, MeshData& mesh)
{
    const std::uint64_t points =
        std::min(header.points, (content.size() - header.end) / header.rowBytes);
    const auto* rows = reinterpret_cast<const std::byte*>(content.data()) + header.end;
    readColumns(UsedFields(header), points, options, mesh, [&](const PcdField& field) {
        return FieldPlace{rows + field.offset, header.rowBytes};
    });
    return points;
}

std::uint64_t ReadPcdCompressed(std::string_view content, const PcdHeader& header,
                                const ReadOptions& options, MeshData& mesh, ReadMessages& messages)
{
    std::uint32_t sizes[2] = {}; // Of the packed and of the unpacked data.
    const std::string_view data = content.substr(header.end);
    const ReadPlace place = ReadPlace::Byte(header.end);
    const auto refuse = [&](const std::wstring& reason) {
        messages.Fail(reason, place);
        return std::uint64_t{0};
    };
    if (data.size() < sizeof sizes)
        return refuse(kPcdPackedCut);
    std::memcpy(sizes, data.data(), sizeof sizes);
    if (sizes[0] > data.size() - sizeof sizes)
        return refuse(kPcdPackedCut);
    // Both factors are limited: 2^32 - 1 points would be refused anyway.
    const std::uint64_t points = std::min<std::uint64_t>(header.points, kNone);
    if (sizes[1] != points * header.rowBytes)
        return refuse(FillText(kPcdPackedSize, {std::to_wstring(sizes[1]),
                                                std::to_wstring(points * header.rowBytes)}));
    if (sizes[1] + points * kPointBytes > kMaxGrowth * content.size() + kFreeBytes)
        return refuse(FillText(kPcdPackedTooMuch, {std::to_wstring(sizes[1])}));
    MeshArray<std::byte> unpacked;
    unpacked.Resize(sizes[1]);
    if (!unpack(data.substr(sizeof sizes, sizes[0]), options, unpacked))
        return refuse(kPcdPackedDamaged);
    // The values of a field lie together, field after field.
    readColumns(UsedFields(header), points, options, mesh, [&](const PcdField& field) {
        return FieldPlace{unpacked.Data() + field.offset * points, field.bytes * field.count};
    });
    return points;
}

} // namespace OrvikMesh
