#ifndef ORVIKMESH_GLTF_GLTFJSON_H
#define ORVIKMESH_GLTF_GLTFJSON_H

#include "readers/MeshReader.h"
#include "readers/ReadMessages.h"

// Strings are scanned sixteen bytes at a time where the processor can.
#ifdef __SSE2__
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/document.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikMesh {

/// Memory of the parser; unlike the parser's own, running out is an exception.
class JsonMemory
{
public:
    static constexpr bool kNeedFree = true;

    /// @throws std::bad_alloc
    void* Malloc(std::size_t size);
    /// @throws std::bad_alloc
    void* Realloc(void* block, std::size_t oldSize, std::size_t newSize);
    static void Free(void* block);
};

using JsonPool = rapidjson::MemoryPoolAllocator<JsonMemory>;
using JsonValue = rapidjson::GenericValue<rapidjson::UTF8<>, JsonPool>;

/// How deep brackets may be nested; real files stay below 20.
inline constexpr std::size_t kMaxJsonDepth = 256;
/// The longest text that is parsed, in bytes: the parser counts with 32 bits.
inline constexpr std::size_t kMaxJsonBytes = std::size_t{1} << 31;

/// A parsed JSON text; its values live as long as it. One thread.
class GltfJson
{
public:
    GltfJson();
    ~GltfJson();
    GltfJson(const GltfJson&) = delete;
    GltfJson& operator=(const GltfJson&) = delete;

    /// Parses a text whose root must be an object.
    ///
    /// @param offset  Of the text in its file, for messages.
    /// @return false with an error in @p messages.
    bool Parse(std::string_view text, std::uint64_t offset, const ReadOptions& options,
               ReadMessages& messages);

    /// An object once Parse() has succeeded.
    const JsonValue& Root() const;

private:
    std::vector<char> m_text; ///< Strings of the values lie here.
    JsonPool m_pool;
    rapidjson::GenericDocument<rapidjson::UTF8<>, JsonPool, JsonMemory> m_document;
};

// Values of any type may stand where they are not expected, so everything below accepts any.

/// @return the member with that name, not owned; null when @p value is no object or has none.
const JsonValue* FindMember(const JsonValue& value, const char* name);

/// @return the member that is a list, not owned; null when there is none.
const JsonValue* FindList(const JsonValue& value, const char* name);

/// @return a whole number from 0 to 2^53, also one written as 3.0; empty for all else.
std::optional<std::uint64_t> ToWhole(const JsonValue& value);

/// @return the whole number of a member; empty when it is missing or none.
std::optional<std::uint64_t> WholeMember(const JsonValue& value, const char* name);

/// @return the same, with @p absent where there is no such member.
std::optional<std::uint64_t> WholeMember(const JsonValue& value, const char* name,
                                         std::uint64_t absent);

/// Reads a list of exactly @p count numbers. @return false, with @p numbers untouched, for all
/// else.
bool ReadNumbers(const JsonValue& value, const char* name, double* numbers, std::size_t count);

/// @return the bytes of a string; empty for all else. Valid while the value is.
std::string_view TextOf(const JsonValue* value);

/// @return a string as wide text; empty for all else.
std::wstring WideTextOf(const JsonValue* value);

} // namespace OrvikMesh

#endif
