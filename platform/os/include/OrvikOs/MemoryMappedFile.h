#ifndef ORVIKOS_MEMORYMAPPEDFILE_H
#define ORVIKOS_MEMORYMAPPEDFILE_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvikOs {

/// A file as read-only memory.
///
/// The content is that of the file itself: when another program shortens the file while it is
/// mapped, reading past its new end is a machine fault, EXCEPTION_IN_PAGE_ERROR inside a
/// FaultScope.
///
/// @thread  Open() and Close() on the thread that created it; the content may be read on any
/// thread.
class ORVIKOS_API MemoryMappedFile
{
public:
    MemoryMappedFile();

    /// Closes the file.
    ~MemoryMappedFile();

    MemoryMappedFile(MemoryMappedFile&& other) noexcept;
    MemoryMappedFile& operator=(MemoryMappedFile&& other) noexcept;
    MemoryMappedFile(const MemoryMappedFile&) = delete;
    MemoryMappedFile& operator=(const MemoryMappedFile&) = delete;

    /// Maps a regular file. One that was mapped before is closed first.
    ///
    /// @return false when the file cannot be read or is no regular file; ErrorText() then says why.
    /// An empty
    ///         file is mapped with size 0.
    bool Open(const std::wstring& path);

    /// Tells whether a file is mapped.
    bool IsOpen() const;

    /// Gives the first byte; null when nothing is mapped or the file is empty. Valid until Close().
    const unsigned char* Data() const;

    /// Gives the size in bytes.
    std::size_t Size() const;

    /// Gives the content as text; valid until Close().
    std::string_view Text() const;

    /// Gives the system's text for the last Open(); empty after success.
    const std::wstring& ErrorText() const;

    /// Tells the system that the content will be read once from front to back, so that it reads
    /// ahead.
    void ExpectSequentialReading();

    /// Unmaps the file; does nothing when none is mapped.
    void Close();

private:
    unsigned char* m_data = nullptr; ///< Owned mapping; null when none or empty.
    std::size_t m_size = 0;          ///< Bytes.
    bool m_open = false;
    std::wstring m_errorText; ///< Text of the last Open().
};

} // namespace OrvikOs

#endif
