#include "readers/StlReader.h"

#include "readers/AsciiStl.h"
#include "readers/BinaryStl.h"
#include "readers/ReaderTexts.h"
#include "readers/TextEncoding.h"

#include <algorithm>

namespace OrvikMesh {

namespace {

/// How far into a file the words of a text are looked for.
constexpr std::size_t kProbeBytes = 1024;

std::string lowered(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return result;
}

/// A text without zero bytes that speaks of facets, or that begins and ends a solid.
bool looksLikeText(std::string_view content)
{
    const std::string probe = lowered(content.substr(0, kProbeBytes));
    if (probe.find('\0') != std::string::npos)
        return false;
    if (probe.find("facet") != std::string::npos || probe.find("vertex") != std::string::npos)
        return true;
    const std::size_t first = probe.find_first_not_of(" \t\r\n");
    return first != std::string::npos && probe.compare(first, 5, "solid") == 0 &&
           (probe.find("endsolid") != std::string::npos || content.size() < kBinaryStlHeader);
}

} // namespace

bool ReadStlContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages)
{
    if (content.empty()) {
        messages.Fail(kEmptyFile);
        return false;
    }
    if (HasExactBinaryStlSize(content))
        return ReadBinaryStl(content, options, mesh, messages);

    std::string converted;
    const std::string_view text = ToUtf8Text(content, converted);
    if (looksLikeText(text))
        return ReadAsciiStl(text, options, mesh, messages);
    return ReadBinaryStl(content, options, mesh, messages);
}

bool ReadStl(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages)
{
    return ReadMappedFile(path, &ReadStlContent, options, mesh, messages);
}

} // namespace OrvikMesh
