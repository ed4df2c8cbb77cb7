#ifndef ORVIKCORE_JOBTICKET_H
#define ORVIKCORE_JOBTICKET_H

#include "OrvikCore/Export.h"

#include <cstdint>
#include <string>

namespace OrvikCore {

class IJobStatusObserver;

/// What the worker shall do with a ticket; any other value is rejected by the worker.
enum JobId : std::uint32_t
{
    JID_EXECUTE_JOB = 1,   ///< Run the IJob that the target names.
    JID_EXECUTE_SCRIPT = 2 ///< Run a script text on the AScriptEngine that the target names.
};

/// How far a ticket has come.
enum JobStatus : std::uint32_t
{
    JOB_UNKNOWN = 0,   ///< Not taken by the worker; set by every constructor.
    JOB_STARTED = 1,   ///< Taken by the worker.
    JOB_COMPLETED = 2, ///< The job reported success.
    JOB_FAILED = 3     ///< The job reported failure, threw, or was refused.
};

/// A request to the JobDispatcher and the answer to it: a value, copied freely.
///
/// The objects that it names by address are not owned and outlive the job.
class ORVIKCORE_API JobTicket
{
public:
    /// Makes a ticket of zeros: job id 0, no requester, asynchronous, status JOB_UNKNOWN.
    JobTicket();

    /// Makes a ticket with status JOB_UNKNOWN and an empty message.
    ///
    /// @param jobId       what to do.
    /// @param requester   the observer that asks for the job, may be null; not owned.
    /// @param sync        true when the caller waits for the job to end.
    /// @param target      address of the IJob or of the AScriptEngine; not owned.
    /// @param parameter1  JID_EXECUTE_SCRIPT: address of the script text, a std::wstring that
    ///                    outlives the job; not owned.
    /// @param parameter2  JID_EXECUTE_SCRIPT: with 1 or more the engine's output is not collected;
    ///                    with 0 or less it becomes the message.
    JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target,
              long long parameter1, long long parameter2);
    JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target,
              long long parameter1);
    JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target);

    /// Copies all eight fields; the source is not changed.
    JobTicket(JobTicket& other);
    JobTicket& operator=(const JobTicket& other);
    ~JobTicket();

    JobId GetJobId() const { return m_jobId; }
    IJobStatusObserver* GetRequester() const { return m_requester; }
    bool IsSync() const { return m_sync; }
    long long GetTarget() const { return m_target; }
    long long GetParameter1() const { return m_parameter1; }
    long long GetParameter2() const { return m_parameter2; }
    JobStatus GetStatus() const { return m_status; }

    /// @return the output or error text of the job; valid until the ticket changes.
    const std::wstring& GetMessageText() const;

    void SetSync(bool sync) { m_sync = sync; }
    void SetStatus(JobStatus status) { m_status = status; }
    void SetMessageText(const std::wstring& message);

    /// @return the fields on one line, with blanks between: job id, "sync " or "async", target in
    ///         hexadecimal, parameters 1 and 2 in decimal, status, the whole message (UTF-8).
    std::string ToString() const;

    /// @return ToString(), widened.
    std::wstring ToWString() const;

private:
    JobId m_jobId = JobId{};
    IJobStatusObserver* m_requester = nullptr; ///< Not owned.
    bool m_sync = false;
    long long m_target = 0;     ///< Address; not owned.
    long long m_parameter1 = 0; ///< Address of the script text; not owned.
    long long m_parameter2 = 0;
    JobStatus m_status = JOB_UNKNOWN;
    std::wstring m_message;
};

} // namespace OrvikCore

#endif
