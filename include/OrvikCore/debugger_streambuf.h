#ifndef ORVIKCORE_DEBUGGER_STREAMBUF_H
#define ORVIKCORE_DEBUGGER_STREAMBUF_H

#include "OrvikCore/Export.h"

#include <streambuf>

namespace OrvikCore {

/// A stream buffer that sends its characters, one by one, to the debugger output.
///
/// Each character is held back until the next one arrives or the stream is flushed. Threads may
/// write at the same time; their characters then interleave.
class ORVIKCORE_API debugger_streambuf : public std::streambuf
{
public:
    debugger_streambuf();
    ~debugger_streambuf() override;

protected:
    /// Sends the pending character and keeps @p character as the new one (nothing for EOF).
    /// @return 0.
    int overflow(int character) override;

    /// Sends the pending character as a string of one, or an empty string, and forgets it.
    /// @return 0.
    int sync() override;

private:
    char m_text[2] = {}; ///< The pending character, or NUL, and the end of the string.
};

} // namespace OrvikCore

#endif
