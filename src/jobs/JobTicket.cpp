#include "OrvikCore/JobTicket.h"

#include "JobTexts.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Utils.h>

namespace OrvikCore {

namespace {

const char* jobIdName(JobId jobId)
{
    switch (jobId) {
    case JID_EXECUTE_JOB:
        return kExecuteJobName;
    case JID_EXECUTE_SCRIPT:
        return kExecuteScriptName;
    }
    return kInvalidName;
}

const char* statusName(JobStatus status)
{
    switch (status) {
    case JOB_UNKNOWN:
        return kStatusUnknownName;
    case JOB_STARTED:
        return kStatusStartedName;
    case JOB_COMPLETED:
        return kStatusCompletedName;
    case JOB_FAILED:
        return kStatusFailedName;
    }
    return kInvalidName;
}

} // namespace

JobTicket::JobTicket() = default;

JobTicket::JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target,
                     long long parameter1, long long parameter2)
    : m_jobId(jobId),
      m_requester(requester),
      m_sync(sync),
      m_target(target),
      m_parameter1(parameter1),
      m_parameter2(parameter2)
{
}

JobTicket::JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target,
                     long long parameter1)
    : JobTicket(jobId, requester, sync, target, parameter1, 0)
{
}

JobTicket::JobTicket(JobId jobId, IJobStatusObserver* requester, bool sync, long long target)
    : JobTicket(jobId, requester, sync, target, 0, 0)
{
}

JobTicket::JobTicket(JobTicket& other)
{
    *this = other;
}

JobTicket& JobTicket::operator=(const JobTicket& other) = default;

JobTicket::~JobTicket() = default;

const std::wstring& JobTicket::GetMessageText() const
{
    return m_message;
}

void JobTicket::SetMessageText(const std::wstring& message)
{
    m_message = message;
}

std::string JobTicket::ToString() const
{
    // Joined rather than printed into a buffer: the message may be of any length.
    std::string text = jobIdName(m_jobId);
    text += ' ';
    text += m_sync ? kSyncName : kAsyncName;
    text += ' ';
    text += TambVizCore::Utils::PointerToHexString(reinterpret_cast<const void*>(m_target));
    text += ' ';
    text += std::to_string(m_parameter1);
    text += ' ';
    text += std::to_string(m_parameter2);
    text += ' ';
    text += statusName(m_status);
    text += ' ';
    text += OrvikOs::WideToUtf8(m_message);
    return text;
}

std::wstring JobTicket::ToWString() const
{
    return OrvikOs::Utf8ToWide(ToString());
}

} // namespace OrvikCore
