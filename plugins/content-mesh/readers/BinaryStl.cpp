#include "readers/BinaryStl.h"

#include "readers/ReaderTexts.h"
#include "readers/VertexWelder.h"

#include <OrvikOs/ParallelFor.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "STL records are read as they lie");

namespace {

/// Offset of the first corner in a record: the normal comes before it.
constexpr std::size_t kFirstCorner = 12;
/// Triangles between two questions whether to stop: some milliseconds.
constexpr std::size_t kPollTriangles = 1u << 16;
/// Joining pieces takes about a third of the time of welding them: two threads gain nothing.
constexpr unsigned kFewestThreads = 3;
/// Fewest triangles for which a piece of its own pays.
constexpr std::size_t kPieceTriangles = 200000;
/// What welding pieces is of the whole work; the rest is joining them.
constexpr double kWeldingShare = 0.75;
/// Triangles that are looked at where the count does not fit the file.
constexpr std::size_t kProbeTriangles = 64;

std::uint32_t announcedCount(std::string_view content)
{
    std::uint32_t count = 0;
    std::memcpy(&count, content.data() + 80, sizeof count);
    return count;
}

/// Zero or within what lengths are in any unit; text and compressed bytes rarely are.
bool isPlausible(float value)
{
    const float size = std::fabs(value);
    return size == 0.0f || (size > 1e-15f && size < 1e15f);
}

bool isTextByte(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return (code >= 0x20 && code < 0x7F) || code == '\t' || code == '\n' || code == '\r';
}

bool isZeroByte(char byte)
{
    return byte == 0;
}

/// Whether at least half of the first triangles could be triangles: a file whose count does not fit
/// its size may be no STL file at all, but a text or nothing but zeros.
bool looksLikeRecords(std::string_view content, std::size_t available)
{
    const std::size_t probed = std::min(available, kProbeTriangles);
    const std::string_view records = content.substr(kBinaryStlHeader, probed * kBinaryStlRecord);
    if (std::all_of(records.begin(), records.end(), isTextByte) ||
        std::all_of(records.begin(), records.end(), isZeroByte))
        return false;
    std::size_t good = 0;
    for (std::size_t i = 0; i < probed; ++i) {
        float corners[9];
        std::memcpy(corners,
                    content.data() + kBinaryStlHeader + i * kBinaryStlRecord + kFirstCorner,
                    sizeof corners);
        good += std::all_of(std::begin(corners), std::end(corners), isPlausible) ? 1 : 0;
    }
    return good * 2 >= probed;
}

/// Says what is odd about the count. @return how many triangles to read; 0 with an error set.
std::size_t settleCount(std::string_view content, ReadMessages& messages)
{
    const std::size_t announced = announcedCount(content);
    const std::size_t body = content.size() - kBinaryStlHeader;
    const std::size_t available = body / kBinaryStlRecord;
    const ReadPlace place = ReadPlace::Byte(80);
    if (announced == available && body % kBinaryStlRecord == 0) {
        if (announced == 0)
            messages.Fail(kNoTriangle);
        return announced;
    }
    if (available == 0 && announced == 0) {
        messages.Fail(kNoTriangle);
        return 0;
    }
    if (available == 0 || !looksLikeRecords(content, available)) {
        messages.Fail(
            FillText(kStlNotStl, {std::to_wstring(announced), std::to_wstring(content.size())}));
        return 0;
    }
    if (announced == 0) {
        messages.Warn(FillText(kStlCountZero, {std::to_wstring(available)}), place);
        return available;
    }
    if (announced > available) {
        messages.Warn(
            FillText(kStlCountTooLarge, {std::to_wstring(announced), std::to_wstring(available)}),
            place);
        return available;
    }
    messages.Warn(FillText(kStlTrailing, {std::to_wstring(announced),
                                          std::to_wstring(body - announced * kBinaryStlRecord)}),
                  place);
    return announced;
}

/// A run of the file's triangles with the vertices that they use.
struct Piece
{
    std::size_t first = 0;
    std::size_t count = 0;
    std::unique_ptr<VertexWelder> welder;
    MeshArray<std::uint32_t> triangles;
    MeshArray<std::uint32_t> newIndex; ///< Of each vertex in the joined welder.
};

void weldPiece(const std::byte* corners, const ReadOptions& options, SharedProgress& progress,
               Piece& piece)
{
    // Closed meshes have about half as many vertices as triangles.
    piece.welder = std::make_unique<VertexWelder>(piece.count / 2 + piece.count / 32);
    piece.triangles.Reserve(piece.count * 3);
    for (std::size_t done = 0; done < piece.count; done += kPollTriangles) {
        PollCancel(options);
        const std::size_t step = std::min(kPollTriangles, piece.count - done);
        piece.welder->AddTriangles(corners + (piece.first + done) * kBinaryStlRecord,
                                   kBinaryStlRecord, step, piece.triangles);
        progress.Add(step);
    }
}

/// Renumbers the vertices of all pieces as the first piece's welder alone would have done.
void joinPieces(std::vector<Piece>& pieces)
{
    std::size_t total = pieces.front().triangles.Size();
    std::vector<std::size_t> starts;
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        pieces.front().welder->Append(*pieces[i].welder, pieces[i].newIndex);
        pieces[i].welder.reset();
        starts.push_back(total);
        total += pieces[i].triangles.Size();
    }
    pieces.front().triangles.Resize(total);
    OrvikOs::ParallelFor(starts.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            Piece& piece = pieces[i + 1];
            std::uint32_t* target = pieces.front().triangles.Data() + starts[i];
            const std::uint32_t* newIndex = piece.newIndex.Data();
            for (const std::uint32_t index : piece.triangles)
                *target++ = newIndex[index];
        }
    });
}

std::size_t usualPieces(std::size_t count)
{
    const unsigned threads = OrvikOs::ParallelWidth();
    if (threads < kFewestThreads)
        return 1;
    return std::clamp<std::size_t>(count / kPieceTriangles, 1, threads);
}

std::vector<Piece> cutIntoPieces(std::size_t count, std::size_t number)
{
    std::vector<Piece> pieces(number);
    for (std::size_t i = 0; i < number; ++i) {
        pieces[i].first = count * i / number;
        pieces[i].count = count * (i + 1) / number - pieces[i].first;
    }
    return pieces;
}

} // namespace

bool HasExactBinaryStlSize(std::string_view content)
{
    return content.size() >= kBinaryStlHeader &&
           content.size() - kBinaryStlHeader ==
               std::uint64_t{announcedCount(content)} * kBinaryStlRecord;
}

bool ReadBinaryStl(std::string_view content, const ReadOptions& options, MeshData& mesh,
                   ReadMessages& messages, std::size_t pieceCount)
{
    if (content.size() < kBinaryStlHeader) {
        messages.Fail(FillText(kStlTooShort, {std::to_wstring(content.size())}));
        return false;
    }
    const std::size_t count = settleCount(content, messages);
    if (count == 0)
        return false;

    std::vector<Piece> pieces =
        cutIntoPieces(count, pieceCount == 0 ? usualPieces(count) : pieceCount);
    SharedProgress progress(options, count, pieces.size() == 1 ? 1.0 : kWeldingShare);
    const auto* corners =
        reinterpret_cast<const std::byte*>(content.data()) + kBinaryStlHeader + kFirstCorner;
    OrvikOs::ParallelFor(pieces.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i)
            weldPiece(corners, options, progress, pieces[i]);
    });
    joinPieces(pieces);

    Piece& whole = pieces.front();
    const std::size_t dropped = whole.welder->DroppedCount();
    mesh.triangles = std::move(whole.triangles);
    mesh.triangles.ShrinkToFit();
    mesh.positions = whole.welder->TakePositions();
    if (dropped > 0) {
        const std::size_t first = FindNonFiniteTriangle(corners, kBinaryStlRecord, count);
        messages.Warn(
            FillText(kNonFiniteDropped, {std::to_wstring(dropped), std::to_wstring(first + 1)}),
            ReadPlace::Byte(kBinaryStlHeader + first * kBinaryStlRecord));
    }
    if (mesh.TriangleCount() == 0) {
        messages.Fail(kNoTriangle);
        return false;
    }
    mesh.ranges.push_back(
        {0, static_cast<std::uint32_t>(mesh.TriangleCount()), kNone, kNone, kNone});
    return true;
}

} // namespace OrvikMesh
