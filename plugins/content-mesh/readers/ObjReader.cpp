#include "readers/ObjReader.h"

#include "readers/ObjAssembler.h"
#include "readers/ObjMaterials.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

#include <OrvikOs/ParallelFor.h>

#include <deque>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// Bytes that are read between two questions whether to stop: about ten milliseconds.
constexpr std::size_t kPieceBytes = 4u << 20;
/// What reading the lines is of the whole work; the rest is putting them together.
constexpr double kScanningShare = 0.75;
/// What a piece with one long line may have at most, so that 32 bits count what it holds.
constexpr std::size_t kMaxPieceBytes = 1u << 30;

} // namespace

bool ReadObjContent(const std::wstring& path, std::string_view content, const ReadOptions& options,
                    MeshData& mesh, ReadMessages& messages)
{
    std::string storage;
    const std::string_view text = WithLineFeeds(ToUtf8Text(content, storage), storage);

    std::deque<ObjPiece> pieces;
    for (const std::string_view lines : CutObjText(text, kPieceBytes)) {
        if (lines.size() > kMaxPieceBytes)
            throw std::length_error("a line is too long");
        pieces.emplace_back(lines);
    }
    SharedProgress scanning(options, pieces.size(), kScanningShare);
    OrvikOs::ParallelFor(pieces.size(), 1, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            PollCancel(options);
            pieces[i].Read();
            scanning.Add(1);
        }
    });

    ObjAssembler assembler(text, options, mesh);
    assembler.TakePoints(pieces);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        PollCancel(options);
        assembler.Add(pieces[i]);
        pieces[i].Release();
        ReportProgress(options, kScanningShare + (1.0 - kScanningShare) *
                                                     static_cast<double>(i + 1) /
                                                     static_cast<double>(pieces.size()));
    }
    assembler.Finish(messages);
    if (!assembler.HasFacesOrLines())
        return assembler.MakeCloud(messages);
    if (mesh.TriangleCount() == 0 && mesh.thin.empty()) {
        messages.Fail(kNoTriangle);
        return false;
    }
    if (!path.empty())
        LoadMaterials(path, assembler.Libraries(), assembler.MaterialNames(), mesh.materials,
                      messages);
    return true;
}

bool ReadObj(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    const ContentReader reader = [&path](std::string_view content, const ReadOptions& told,
                                         MeshData& into, ReadMessages& said) {
        return ReadObjContent(path, content, told, into, said);
    };
    return ReadMappedFile(path, reader, options, mesh, messages);
}

} // namespace OrvikMesh
