#include "TambCommandsInfra/ICommandJournal.h"

#include <atomic>

namespace TambCommandsInfra {

namespace {

/// Written on the main thread, read on both.
std::atomic<ICommandJournal*> currentJournal{nullptr};

} // namespace

ICommandJournal::~ICommandJournal() = default;

void SetCommandJournal(ICommandJournal* journal)
{
    currentJournal.store(journal, std::memory_order_release);
}

ICommandJournal* GetCommandJournal()
{
    return currentJournal.load(std::memory_order_acquire);
}

} // namespace TambCommandsInfra
