#include "OrvikOs/ThreadWatch.h"

#include <utility>

namespace OrvikOs {

// No thread can be interrupted here and made to throw: nothing is looked for and nobody looks in.

LibraryCode::LibraryCode(const std::string&) {}

bool LibraryCode::Contains(std::uintptr_t) const noexcept
{
    return false;
}

ThreadWatch::ThreadWatch(const LibraryCode& code, Question question, Thrower thrower, void* context)
    : m_code(&code), m_question(question), m_thrower(thrower), m_context(context), m_outer(nullptr)
{
}

ThreadWatch::~ThreadWatch() = default;

std::size_t ResidentBytes() noexcept
{
    return 0;
}

} // namespace OrvikOs
