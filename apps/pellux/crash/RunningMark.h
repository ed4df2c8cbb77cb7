#ifndef PELLUX_CRASH_RUNNINGMARK_H
#define PELLUX_CRASH_RUNNINGMARK_H

#include <cstdint>
#include <string>
#include <vector>

namespace Pellux {

/// What a run leaves behind for the case that it does not end as it should.
struct RunRecord
{
    std::uint32_t processId = 0;
    std::uint64_t startTime = 0; ///< See OrvikOs::ProcessStartTime().
    std::wstring journal;        ///< Path; empty without one.
    std::wstring report;         ///< Path that a crash is reported to.
};

/// The file that says that a run of the program goes on: "running/<process>.mark" below the user's
/// state folder. Gone when the run has ended as it should. @thread Main thread.
class RunningMark
{
public:
    /// @param folder  Where the marks of all runs lie; made where it is missing.
    explicit RunningMark(std::wstring folder);

    /// Takes the mark away.
    ~RunningMark();

    RunningMark(const RunningMark&) = delete;
    RunningMark& operator=(const RunningMark&) = delete;

    /// Writes the mark of this process, or writes it anew.
    /// @return false when it cannot be written; @p errorText receives the reason.
    bool Write(const std::wstring& journal, const std::wstring& report, std::wstring& errorText);

    /// Takes the mark away before the end of the object.
    void Remove();

private:
    std::wstring m_folder;
    std::wstring m_path; ///< Empty while there is no mark.
};

/// A run that has ended without taking its mark away.
struct CrashedRun
{
    std::wstring mark; ///< Path of its mark.
    RunRecord record;
    bool hasJournal = false; ///< The file is there.
    bool hasReport = false;  ///< The file is there.
};

/// Looks at the marks in a folder. Those of runs that go on are passed over; what is no mark too.
/// @return the others, the latest process first; their marks stay until ForgetCrashedRun().
std::vector<CrashedRun> FindCrashedRuns(const std::wstring& folder);

/// Takes the mark of a run away, and nothing else.
void ForgetCrashedRun(const CrashedRun& run);

} // namespace Pellux

#endif
