#include "TambCommandsInfra/CancelToken.h"

#include <utility>

namespace TambCommandsInfra {

namespace {

/// Raises @p value to @p job; a larger number that another thread has stored meanwhile stays.
void raiseTo(std::atomic<std::uint64_t>& value, std::uint64_t job) noexcept
{
    std::uint64_t seen = value.load(std::memory_order_acquire);
    while (seen < job && !value.compare_exchange_weak(seen, job, std::memory_order_acq_rel)) {
    }
}

} // namespace

static_assert(std::atomic<std::uint64_t>::is_always_lock_free,
              "MarkCurrent() is called by handlers of system signals");

JobCancelled::JobCancelled() : std::runtime_error("The job was cancelled.") {}

JobCancelled::~JobCancelled() = default;

CancelToken::CancelToken() = default;
CancelToken::~CancelToken() = default;

CancelToken& CancelToken::Instance()
{
    static CancelToken& token = *new CancelToken; // never destroyed: a stuck worker may still poll
    return token;
}

std::uint64_t CancelToken::NextJobNumber()
{
    return m_nextJob.fetch_add(1, std::memory_order_relaxed);
}

void CancelToken::Arm(std::uint64_t job)
{
    if (job == 0) {
        throw std::invalid_argument("Job numbers start at 1.");
    }
    m_running.store(job, std::memory_order_release);
}

void CancelToken::Disarm()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_running.store(0, std::memory_order_release);
}

std::uint64_t CancelToken::RunningJob() const noexcept
{
    return m_running.load(std::memory_order_acquire);
}

bool CancelToken::mark(std::uint64_t job) noexcept
{
    // Two numbers, so that a cancel of a job still to come does not undo that of the running one.
    if (RunningJob() == job) {
        raiseTo(m_cancelled, job);
        return true;
    }
    raiseTo(m_announced, job);
    return RunningJob() == job;
}

bool CancelToken::Cancel(std::uint64_t job)
{
    if (job == 0 || !mark(job)) {
        return false;
    }
    Interrupt();
    return true;
}

std::uint64_t CancelToken::CancelCurrent()
{
    const std::uint64_t job = MarkCurrent();
    if (job != 0) {
        Interrupt();
    }
    return job;
}

std::uint64_t CancelToken::MarkCurrent() noexcept
{
    const std::uint64_t job = RunningJob();
    if (job != 0) {
        mark(job);
    }
    return job;
}

bool CancelToken::Interrupt()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const std::uint64_t job = RunningJob();
    if (!IsCancelled()) {
        return false;
    }
    for (const auto& [id, interrupter] : m_interrupters) {
        interrupter(job);
    }
    return true;
}

bool CancelToken::IsCancelled() const noexcept
{
    const std::uint64_t job = RunningJob();
    return job != 0 && (m_cancelled.load(std::memory_order_acquire) == job ||
                        m_announced.load(std::memory_order_acquire) == job);
}

void CancelToken::ThrowIfCancelled() const
{
    if (IsCancelled()) {
        throw JobCancelled();
    }
}

int CancelToken::AddInterrupter(Interrupter interrupter)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_interrupters.emplace(m_nextInterrupter, std::move(interrupter));
    return m_nextInterrupter++;
}

void CancelToken::RemoveInterrupter(int id)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_interrupters.erase(id);
}

CancelScope::CancelScope(CancelToken& token, std::uint64_t job) : m_token(token)
{
    m_token.Arm(job);
}

CancelScope::~CancelScope()
{
    m_token.Disarm();
}

} // namespace TambCommandsInfra
