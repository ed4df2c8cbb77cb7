#include "common/Platform.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Snapshot.h>

#include <utility>

namespace OrvikOs {

namespace {

/// Lives until the process ends: destructors of other static objects may still write.
Snapshot<DebugSink>& sinkHolder()
{
    static auto* const holder = new Snapshot<DebugSink>();
    return *holder;
}

} // namespace

void WriteDebug(const char* text) noexcept
{
    const char* const shown = text != nullptr ? text : "";
    const auto sink = sinkHolder().Get();
    if (*sink) {
        (*sink)(shown);
    } else {
        WriteSystemDebug(shown);
    }
}

void SetDebugSink(DebugSink sink)
{
    sinkHolder().Set(std::move(sink));
}

} // namespace OrvikOs
