#ifndef ORVIKOS_FATALREPORT_H
#define ORVIKOS_FATALREPORT_H

#include "OrvikOs/Export.h"

namespace OrvikOs {

/// From now on a machine fault or an abort() that nobody turns into an exception writes a report
/// before it ends the program as it would have: what happened, at which address, on which thread,
/// and the calls that led there, one a line with library and offset. A line on standard error names
/// the signal and the report.
///
/// Call it before the first FaultScope of any thread: scopes hand on what they do not convert to
/// what was in place before them. An overflow of the calling thread's stack is reported too, of
/// other threads only where a FaultScope is open.
///
/// Does nothing the second time. Processors other than x86-64 report no program counter.
///
/// @thread  The main thread, at the start of the program.
ORVIKOS_API void ReportFatalFaults() noexcept;

/// Names the file that a report goes to; an existing one is replaced. Without one the report goes
/// to standard error.
///
/// @param path  UTF-8, zero-terminated; not owned, lives as long as the process. Null for none.
/// @thread      Any thread.
ORVIKOS_API void SetFatalReportPath(const char* path) noexcept;

} // namespace OrvikOs

#endif
