#ifndef PELLUX_RUNTIME_GUARDED_H
#define PELLUX_RUNTIME_GUARDED_H

#include <exception>

namespace Pellux {

/// Tells the user what went wrong in a handler: prints it in the session as an error. Never throws.
void ReportHandlerError(const std::exception* error) noexcept;

/// Runs what a Qt handler does and keeps every exception from Qt's own frames; it is reported
/// instead. Machine faults on the main thread come as exceptions too.
template <typename Function> void Guarded(Function&& function) noexcept
{
    try {
        function();
    } catch (const std::exception& error) {
        ReportHandlerError(&error);
    } catch (...) {
        ReportHandlerError(nullptr);
    }
}

} // namespace Pellux

#endif
