#include "readers/PcdReader.h"

#include "readers/MeshFinish.h"
#include "readers/PcdHeader.h"
#include "readers/PcdRows.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

namespace OrvikMesh {

namespace {

std::uint64_t readPoints(std::string_view content, const PcdHeader& header,
                         const ReadOptions& options, MeshData& mesh, ReadMessages& messages)
{
    switch (header.format) {
    case PcdFormat::Text:
        return ReadPcdText(content, header, options, mesh, messages);
    case PcdFormat::Binary:
        return ReadPcdBinary(content, header, options, mesh);
    case PcdFormat::Compressed:
        return ReadPcdCompressed(content, header, options, mesh, messages);
    }
    return 0;
}

/// Whether the data are what the header says, as far as their first bytes tell.
bool checkFormat(std::string_view data, const PcdHeader& header, ReadMessages& messages)
{
    const bool isText = header.format == PcdFormat::Text;
    if (isText && FindBinaryByte(data) != std::string_view::npos)
        messages.Fail(kNotText, ReadPlace::Byte(header.end));
    else if (!isText && LooksLikeNumbers(data))
        messages.Fail(kNotBinary, ReadPlace::Byte(header.end));
    return !messages.HasError();
}

} // namespace

bool ReadPcdContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    if (content.empty()) {
        messages.Fail(kEmptyFile);
        return false;
    }
    PcdHeader header;
    if (!ReadPcdHeader(content, header, messages) ||
        !checkFormat(content.substr(header.end), header, messages))
        return false;
    const std::uint64_t points = readPoints(content, header, options, mesh, messages);
    if (messages.HasError())
        return false;
    if (points < header.points)
        messages.Warn(FillText(kPcdCut, {std::to_wstring(points), std::to_wstring(header.points)}));
    NormalizeNormals(mesh);
    if (header.height > 1)
        KeepFinitePoints(mesh);
    return FinishPoints(mesh, messages);
}

bool ReadPcd(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadPcdContent, options, mesh, messages);
}

} // namespace OrvikMesh
