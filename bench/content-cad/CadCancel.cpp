#include "interface/CadMessages.h"
#include "kernel/CadKernel.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/ThreadWatch.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>

#include <OrvikModel/Model.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

// cad_cancel FILE [COUNT]: reads a CAD file to its end, then COUNT times (100) cancels reading it,
// at moments spread over that time. Prints for each phase how often it was cancelled and the
// longest time until the reading had ended, and at the end how much larger the process has become.

namespace {

using OrvikCad::CadFormat;
using OrvikCad::CadKernel;
using OrvikCad::CadMessages;
using Clock = std::chrono::steady_clock;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Progress;

std::mutex g_mutex;
std::string g_phase; ///< Guarded by g_mutex.

std::string presentPhase()
{
    const std::lock_guard<std::mutex> lock(g_mutex);
    return g_phase;
}

double since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

CadFormat formatOf(const std::wstring& file)
{
    const std::wstring end = file.substr(file.rfind(L'.') + 1);
    return end == L"brep"                    ? CadFormat::Brep
           : end == L"iges" || end == L"igs" ? CadFormat::Iges
                                             : CadFormat::Step;
}

/// One reading on a thread of its own.
class Reading
{
public:
    Reading(CadKernel& kernel, const std::wstring& file)
    {
        m_worker.Start([this, &kernel, file] {
            const TambCommandsInfra::CancelScope scope(CancelToken::Instance(), m_job);
            {
                CadMessages messages(file);
                OrvikModel::Model model;
                m_isRead = kernel.Read(file, formatOf(file), {}, model, messages);
                m_readEnd = Clock::now();
                if (!m_isRead)
                    m_error = OrvikOs::WideToUtf8(messages.Error());
            }
        });
    }

    /// @return seconds from the cancel to the end of reading.
    double Cancel()
    {
        const auto start = Clock::now();
        CancelToken::Instance().Cancel(m_job);
        m_worker.Join();
        return std::max(0.0, std::chrono::duration<double>(m_readEnd - start).count());
    }

    bool Finish()
    {
        m_worker.Join();
        if (!m_isRead)
            std::printf("%s\n", m_error.c_str());
        return m_isRead;
    }

    bool IsRead() const { return m_isRead; }

private:
    std::uint64_t m_job = CancelToken::Instance().NextJobNumber();
    OrvikOs::Thread m_worker;
    bool m_isRead = false;
    Clock::time_point m_readEnd;
    std::string m_error;
};

struct Worst
{
    int count = 0;
    double seconds = 0.0;
    double megabytes = 0.0; ///< By which the process has grown, all times together.
};

double megabytes()
{
    return static_cast<double>(OrvikOs::ResidentBytes()) / 1048576.0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "cad_cancel FILE [COUNT]\n");
        return 2;
    }
    const std::wstring file = OrvikOs::Utf8ToWide(argv[1]);
    const int count = argc > 2 ? std::atoi(argv[2]) : 100;
    CadKernel kernel;
    Progress::Instance().SetObserver([](const TambCommandsInfra::ProgressReport& report) {
        const std::lock_guard<std::mutex> lock(g_mutex);
        g_phase = OrvikOs::WideToUtf8(report.phase);
    });
    const auto start = Clock::now();
    if (!Reading(kernel, file).Finish())
        return 1;
    const double whole = since(start);
    const double before = megabytes();
    double most = before;
    double last = before;
    std::map<std::string, Worst> phases;
    for (int i = 0; i < count; ++i) {
        {
            const std::lock_guard<std::mutex> lock(g_mutex);
            g_phase = "before the first phase";
        }
        Reading reading(kernel, file);
        std::this_thread::sleep_for(std::chrono::duration<double>(whole * (i + 0.5) / count));
        const std::string phase = presentPhase();
        const double seconds = reading.Cancel();
        const double present = megabytes();
        const double growth = present - std::exchange(last, present);
        most = std::max(most, present);
        if (reading.IsRead())
            continue;
        Worst& worst = phases[phase];
        ++worst.count;
        worst.seconds = std::max(worst.seconds, seconds);
        worst.megabytes += growth;
    }
    std::printf("%s: read in %.2f s\n", argv[1], whole);
    for (const auto& [phase, worst] : phases)
        std::printf("  %-50s cancelled %3d times, at most %.3f s, memory %+.1f MB\n", phase.c_str(),
                    worst.count, worst.seconds, worst.megabytes);
    std::printf("  memory before the first cancel %.1f MB, afterwards at most %.1f MB, at the end "
                "%.1f MB\n",
                before, most, megabytes());
    return 0;
}
