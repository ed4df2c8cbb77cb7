#include "OrvikCore/debugger_streambuf.h"

#include <OrvikOs/DebugOutput.h>

#include <atomic>

namespace OrvikCore {

namespace {

/// The pending character is shared by all writers: which one is sent is left to chance, but it is
/// always one that was written.
char load(char& pending)
{
    return std::atomic_ref<char>(pending).load(std::memory_order_acquire);
}

void store(char& pending, char character)
{
    std::atomic_ref<char>(pending).store(character, std::memory_order_release);
}

} // namespace

debugger_streambuf::debugger_streambuf() = default;

debugger_streambuf::~debugger_streambuf() = default;

// Deliberate: a character is held back until the next one arrives or the stream is flushed.
// Held by DebuggerStreambuf.LastCharacterIsHeldBackUntilTheFlush.
int debugger_streambuf::overflow(int character)
{
    sync();
    if (character != traits_type::eof()) {
        store(m_text[0], traits_type::to_char_type(character));
    }
    return 0;
}

int debugger_streambuf::sync()
{
    const char text[2] = {load(m_text[0]), '\0'};
    OrvikOs::WriteDebug(text);
    store(m_text[0], '\0');
    return 0;
}

} // namespace OrvikCore
