#ifndef ORVIKOS_APPENDFILE_H
#define ORVIKOS_APPENDFILE_H

#include "OrvikOs/Export.h"

#include <string>
#include <string_view>

namespace OrvikOs {

/// A file of the user's own that grows at its end: what Append() took stays, however the program
/// ends. The system may still lose it when the machine fails.
///
/// @thread  The thread that created it.
class ORVIKOS_API AppendFile
{
public:
    AppendFile();
    ~AppendFile();

    AppendFile(const AppendFile&) = delete;
    AppendFile& operator=(const AppendFile&) = delete;

    /// Opens @p path, made where it is missing and then readable by its owner alone. A file that
    /// was open before is closed.
    ///
    /// @param errorText  Receives the system's text on failure; may be null. Untouched on success.
    bool Open(const std::wstring& path, std::wstring* errorText = nullptr);

    /// Hands @p text to the system before it returns.
    ///
    /// @param errorText  As above.
    /// @return false when no file is open or not everything could be written.
    bool Append(std::string_view text, std::wstring* errorText = nullptr);

private:
    struct State;

    State* m_state = nullptr; ///< Owned; null while no file is open.
};

} // namespace OrvikOs

#endif
