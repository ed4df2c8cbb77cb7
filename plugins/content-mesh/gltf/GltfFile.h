#ifndef ORVIKMESH_GLTF_GLTFFILE_H
#define ORVIKMESH_GLTF_GLTFFILE_H

#include "gltf/GltfContainer.h"
#include "gltf/GltfJson.h"

#include <OrvikOs/MemoryMappedFile.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// The lists at the top of a glTF file.
enum class GltfList
{
    Accessors,
    BufferViews,
    Buffers,
    Materials,
    Meshes,
    Nodes,
    Scenes,
};

/// Limits what a small file may unfold to: accessors can say the same bytes again and again, or
/// zeros without any bytes.
class MemoryBudget
{
public:
    /// Allows for the unfolding of @p fileBytes.
    void Allow(std::uint64_t fileBytes) { m_left += fileBytes * kShare; }
    /// @return false, with nothing taken, when there is not so much left.
    bool Take(std::uint64_t bytes);
    void GiveBack(std::uint64_t bytes) { m_left += bytes; }

private:
    /// One byte of an index of a strip becomes twelve.
    static constexpr std::uint64_t kShare = 20;
    static constexpr std::uint64_t kAlways = 24u << 20;

    std::uint64_t m_left = kAlways;
};

/// A glTF file: its JSON text and its buffers, which are read on first use. One thread.
class GltfFile
{
public:
    /// @param path      Side files lie in its folder; without any, there are none.
    /// @param content   The whole file; outlives this, as @p options and @p messages do.
    GltfFile(const std::wstring& path, std::string_view content, const ReadOptions& options,
             ReadMessages& messages);
    ~GltfFile();
    GltfFile(const GltfFile&) = delete;
    GltfFile& operator=(const GltfFile&) = delete;

    /// Parses the JSON text and checks the version and the required extensions.
    /// @return false with an error in the messages.
    bool Open();

    const JsonValue& Root() const { return m_json.Root(); }
    std::uint64_t Count(GltfList list) const;
    /// @return an element of a list, not owned; null when there is none or it is no object.
    const JsonValue* Element(GltfList list, std::uint64_t index) const;

    /// @return the bytes of a buffer, at most as many as it announces; empty with a reason when
    ///         there are none. Valid while this is.
    std::optional<std::string_view> BufferBytes(std::uint64_t index, std::wstring& reason);

    MemoryBudget& Budget() { return m_budget; }
    const ReadOptions& Options() const { return m_options; }
    ReadMessages& Messages() { return m_messages; }

private:
    /// A buffer that was asked for.
    struct Buffer
    {
        std::string decoded;    ///< Of a data URI.
        std::string_view bytes; ///< Of the file, a side file or `decoded`.
        std::wstring reason;    ///< Why there are no bytes.
    };

    bool checkVersion();
    bool checkExtensions();
    void loadBuffer(std::uint64_t index, Buffer& buffer);
    void loadUri(std::uint64_t index, std::string_view uri, Buffer& buffer);
    void loadDataUri(std::uint64_t index, std::string_view uri, Buffer& buffer);
    void loadSideFile(std::string_view uri, Buffer& buffer);

    const std::wstring m_path;
    const std::string_view m_content;
    const ReadOptions& m_options;
    ReadMessages& m_messages;
    GltfContainer m_container;
    GltfJson m_json;
    std::array<const JsonValue*, 7> m_lists{}; ///< Not owned; null where the file has none.
    std::map<std::uint64_t, Buffer> m_buffers;
    /// Several buffers may name one file.
    std::map<std::string, OrvikOs::MemoryMappedFile> m_sideFiles;
    MemoryBudget m_budget;
};

} // namespace OrvikMesh

#endif
