#ifndef ORVIKMESH_WRITERS_FILESINK_H
#define ORVIKMESH_WRITERS_FILESINK_H

#include "writers/MeshWriter.h"

#include <OrvikOs/AtomicFile.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// Thrown when the file cannot be written; WriteGuarded() makes it an error.
struct WriteFailed
{
    std::wstring reason;
};

/// Thrown when the caller wants to stop.
struct WriteCancelled
{
};

/// Collects bytes and texts and writes them in large pieces, asking whether to stop before each.
/// One thread.
class FileSink
{
public:
    /// @param options  Outlives the sink.
    /// @throws WriteFailed when the file cannot be written.
    FileSink(const std::wstring& path, const WriteOptions& options);

    /// Counts @p done of @p total for the caller's progress with the next piece that is written.
    void SetProgress(std::size_t done, std::size_t total);

    void Text(std::string_view text)
    {
        while (!text.empty()) {
            const std::size_t count = std::min(text.size(), room());
            std::memcpy(m_buffer.get() + m_size, text.data(), count);
            m_size += count;
            text.remove_prefix(count);
        }
    }
    /// Appends the shortest text that gives the same number.
    void Number(float value);
    void Number(std::uint64_t value);
    /// Appends the bytes of a value in the order of this machine.
    template <class T> void Raw(const T& value)
    {
        Text(std::string_view(reinterpret_cast<const char*>(&value), sizeof value));
    }

    /// Writes what is left and puts the file into its place.
    ///
    /// @throws WriteFailed, WriteCancelled as all that appends.
    void Commit();

private:
    std::size_t room();
    void flush();

    const WriteOptions& m_options;
    OrvikOs::AtomicFile m_file;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_size = 0;
    double m_share = 0.0;
};

/// Runs @p work with floating-point traps masked and its exceptions made into errors.
///
/// @return false when it was cancelled, could not write or ran out of memory.
bool WriteGuarded(const std::function<void()>& work, ReadMessages& messages);

} // namespace OrvikMesh

#endif
