#ifndef ENGINESCHEME_OUTPUTBUFFER_H
#define ENGINESCHEME_OUTPUTBUFFER_H

#include <OrvikOs/CriticalSection.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvikScheme {

/// Collects what a run writes, up to a limit.
///
/// @thread Any thread.
class OutputBuffer
{
public:
    /// Bytes kept of one run; the rest is counted and named at the end.
    static constexpr std::size_t kLimitBytes = std::size_t{16} * 1024 * 1024;

    /// Empties the buffer, and gives its memory back when it was large.
    void Clear();

    /// Appends UTF-8 text, which may be cut within a character.
    void Append(std::string_view text);

    /// @return what was kept; when bytes were left out, followed by the line
    ///         "... N bytes of output were left out".
    std::wstring Text() const;

private:
    mutable OrvikOs::CriticalSection m_lock;
    std::string m_text;               ///< UTF-8, at most kLimitBytes.
    unsigned long long m_leftOut = 0; ///< Bytes that did not fit.
};

} // namespace OrvikScheme

#endif
