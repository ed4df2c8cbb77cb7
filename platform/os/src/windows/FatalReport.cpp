#include "Handles.h"

#include <OrvikOs/FatalReport.h>
#include <OrvikOs/FileWriting.h>

#include <atomic>
#include <cstdio>

namespace OrvikOs {

namespace {

constexpr unsigned kMostFrames = 62;

std::atomic<const char*> g_path{nullptr};
std::atomic<bool> g_isWatching{false};
LPTOP_LEVEL_EXCEPTION_FILTER g_previous = nullptr; ///< Written before the filter is installed.

/// A fault that nobody has handled. The calls are told as addresses: names lie in other files.
LONG WINAPI reportFault(EXCEPTION_POINTERS* pointers)
{
    char text[4096];
    int size = std::snprintf(text, sizeof text,
                             "The program was ended by exception 0x%08lX.\nProcess: %lu\n"
                             "Thread:  %lu\nAt:      %p\nCalls, the last first:\n",
                             pointers->ExceptionRecord->ExceptionCode, GetCurrentProcessId(),
                             GetCurrentThreadId(), pointers->ExceptionRecord->ExceptionAddress);
    void* frames[kMostFrames];
    const USHORT count = CaptureStackBackTrace(0, kMostFrames, frames, nullptr);
    for (USHORT i = 0; i < count; ++i) {
        size += std::snprintf(text + size, sizeof text - static_cast<std::size_t>(size), "%p\n",
                              frames[i]);
    }
    const char* const path = g_path.load(std::memory_order_acquire);
    if (path == nullptr || !WriteMarkerFile(path, text)) {
        WriteStandardStream(StandardStream::Error, text);
    }
    return g_previous == nullptr ? EXCEPTION_CONTINUE_SEARCH : g_previous(pointers);
}

} // namespace

void ReportFatalFaults() noexcept
{
    if (!g_isWatching.exchange(true)) {
        g_previous = SetUnhandledExceptionFilter(&reportFault);
    }
}

void SetFatalReportPath(const char* path) noexcept
{
    g_path.store(path, std::memory_order_release);
}

} // namespace OrvikOs
