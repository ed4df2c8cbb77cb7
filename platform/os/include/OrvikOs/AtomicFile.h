#ifndef ORVIKOS_ATOMICFILE_H
#define ORVIKOS_ATOMICFILE_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <string>

namespace OrvikOs {

/// A file that is written little by little and never seen half-written: what is written goes into a
/// temporary file beside it, which takes its place in one step at the end.
///
/// A file that exists keeps its permissions, and a link is followed. A device or a pipe is written
/// in place. Without Commit(), the file stays as it was and the temporary file is removed.
///
/// @thread  The thread that created it.
class ORVIKOS_API AtomicFile
{
public:
    AtomicFile();

    /// Removes what was written, unless Commit() succeeded.
    ~AtomicFile();

    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Begins to write @p path. What was written before without Commit() is removed.
    ///
    /// @return false when it cannot be written; ErrorText() then says why.
    bool Open(const std::wstring& path);

    /// Appends @p size bytes.
    ///
    /// @return false when they cannot be written, as on a full disk, or when no file is open; all
    ///         that was written is then removed.
    bool Write(const void* data, std::size_t size);

    /// Puts what was written in the place of the file.
    ///
    /// @return false on failure or when no file is open; the file is then as it was.
    bool Commit();

    /// Gives the system's text for the last failure; empty when there was none since Open().
    const std::wstring& ErrorText() const;

private:
    struct State;

    bool fail(unsigned long error);

    State* m_state = nullptr; ///< Owned; null while no file is open.
    std::wstring m_errorText;
};

} // namespace OrvikOs

#endif
