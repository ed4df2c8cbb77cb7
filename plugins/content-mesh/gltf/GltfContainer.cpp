#include "gltf/GltfContainer.h"

#include "gltf/GltfTexts.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>

namespace OrvikMesh {

static_assert(std::endian::native == std::endian::little, "numbers are read as they lie");

namespace {

constexpr std::size_t kHeaderBytes = 12;
constexpr std::size_t kChunkHeaderBytes = 8;
constexpr std::uint32_t kJsonChunk = 0x4E4F534Au;   // "JSON"
constexpr std::uint32_t kBinaryChunk = 0x004E4942u; // "BIN" and a zero

std::uint32_t numberAt(std::string_view content, std::size_t offset)
{
    std::uint32_t number = 0;
    std::memcpy(&number, content.data() + offset, sizeof number);
    return number;
}

/// What there is of a chunk's data.
struct Chunk
{
    std::uint32_t announced = 0;
    std::uint32_t type = 0;
    std::size_t offset = 0;
    std::string_view data;

    bool IsCut() const { return data.size() < announced; }
    /// Chunks begin at multiples of four.
    std::size_t End() const { return offset + (std::size_t{announced} + 3) / 4 * 4; }
};

Chunk chunkAt(std::string_view content, std::size_t offset)
{
    Chunk chunk;
    chunk.announced = numberAt(content, offset);
    chunk.type = numberAt(content, offset + 4);
    chunk.offset = offset + kChunkHeaderBytes;
    chunk.data = content.substr(chunk.offset, chunk.announced);
    return chunk;
}

bool splitBinary(std::string_view content, GltfContainer& container, ReadMessages& messages)
{
    if (content.size() < kHeaderBytes + kChunkHeaderBytes) {
        messages.Fail(kGltfCutHeader, ReadPlace::Byte(content.size()));
        return false;
    }
    if (const std::uint32_t version = numberAt(content, 4); version != 2) {
        messages.Fail(FillText(kGltfBinaryVersion, {std::to_wstring(version)}), ReadPlace::Byte(4));
        return false;
    }
    const Chunk json = chunkAt(content, kHeaderBytes);
    if (json.type != kJsonChunk) {
        messages.Fail(kGltfNoJson, ReadPlace::Byte(kHeaderBytes + 4));
        return false;
    }
    if (json.IsCut()) {
        messages.Fail(FillText(kGltfCutJson, {std::to_wstring(json.announced),
                                              std::to_wstring(json.data.size())}),
                      ReadPlace::Byte(kHeaderBytes));
        return false;
    }
    container.json = json.data;
    container.jsonOffset = json.offset;
    if (json.End() >= content.size())
        return true;
    if (content.size() - json.End() < kChunkHeaderBytes) {
        messages.Warn(kGltfCutChunk, ReadPlace::Byte(json.End()));
        return true;
    }
    const Chunk binary = chunkAt(content, json.End());
    if (binary.type != kBinaryChunk)
        return true;
    container.binary = binary.data;
    if (binary.IsCut())
        messages.Warn(FillText(kGltfCutBinary, {std::to_wstring(binary.announced),
                                                std::to_wstring(binary.data.size())}),
                      ReadPlace::Byte(json.End()));
    return true;
}

} // namespace

bool SplitGltf(std::string_view content, GltfContainer& container, ReadMessages& messages)
{
    if (content.substr(0, 4) == "glTF")
        return splitBinary(content, container, messages);
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::size_t begin = content.substr(0, 3) == kByteOrderMark ? 3 : 0;
    begin = content.find_first_not_of(" \t\r\n", begin);
    if (begin == std::string_view::npos || content[begin] != '{') {
        messages.Fail(kGltfNotGltf);
        return false;
    }
    container.json = content.substr(begin);
    container.jsonOffset = begin;
    return true;
}

} // namespace OrvikMesh
