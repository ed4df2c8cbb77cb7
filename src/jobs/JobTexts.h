#ifndef ORVIKCORE_SRC_JOBS_JOBTEXTS_H
#define ORVIKCORE_SRC_JOBS_JOBTEXTS_H

namespace OrvikCore {

// The wording is fixed, spelling included.

// Names in the text form of a ticket.
inline constexpr char kExecuteJobName[] = "JID_EXECUTE_JOB";
inline constexpr char kExecuteScriptName[] = "JID_EXECUTE_SCRIPT";
inline constexpr char kStatusUnknownName[] = "JOB_UNKNOWN";
inline constexpr char kStatusStartedName[] = "JOB_STARTED";
inline constexpr char kStatusCompletedName[] = "JOB_COMPLETED";
inline constexpr char kStatusFailedName[] = "JOB_FAILED";
inline constexpr char kInvalidName[] = "INVALID JOB";
inline constexpr char kSyncName[] = "sync ";
inline constexpr char kAsyncName[] = "async";

// Messages of failed tickets.
inline constexpr wchar_t kBusyMessage[] = L"Application is busy. The request is denied.";
inline constexpr wchar_t kInvalidJobIdMessage[] = L"INVALID jobId in: ";
inline constexpr wchar_t kInvalidEngineMessage[] =
    L" Invalid AScriptEngine in passed to JobDispatcher";
inline constexpr wchar_t kUnrecognizedExceptionMessage[] =
    L"Unrecognized exception caught in JobDispatcher::messageLoop()";

// Errors of the dispatcher's start.
inline constexpr wchar_t kEventNamePrefix[] = L"Local\\JobDispatcherEvent_";
inline constexpr char kCannotCreateEvent[] = "JobDispatcher cannot create event ";
inline constexpr char kEventNameExists[] = "JobDispatcher Event with this name already exists: ";
inline constexpr char kCannotStartWorker[] = "JobDispatcher cannot start its worker thread";

// Lines of the debugger output.
inline constexpr char kThreadIdsFormat[] =
    "\nMain ThreadId   = %5d [0x%04x]\nWorker ThreadId = %5d [0x%04x]\n";
inline constexpr char kTerminateFormat[] = "[0x%04x] JobDispatcher::Terminate() %s\n";
inline constexpr char kAlreadyExited[] = " already exited";
inline constexpr char kSetEventFormat[] = "    JobDispatcher: SetEvent() for [0x%04llx]\n";
inline constexpr char kTerminatingWorker[] = "    Terminating worker thread...\n";
inline constexpr char kTerminatingDone[] = "... DONE\n";
inline constexpr char kTerminatingFailed[] = "... FAILED\n";
inline constexpr char kObserverException[] = "-- Exception in IJobStatusObserver: ";
inline constexpr char kUnrecognizedObserverException[] = "unrecognized";

// The condition and the place that the assertion of the main thread reports.
inline constexpr char kMainThreadCondition[] = "GetCurrentThreadId() == Orvik_mainThreadId";
inline constexpr char kDispatcherSource[] = "src/JobDispatcher_Tamb";

} // namespace OrvikCore

#endif
