#ifndef TAMBCOMMANDSINFRA_PROGRESS_H
#define TAMBCOMMANDSINFRA_PROGRESS_H

#include "TambCommandsInfra/Export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace TambCommandsInfra {

/// How far a long computation has come.
struct ProgressReport
{
    std::wstring phase;      ///< What is being done, for the user: "Reading triangles".
    double fraction = 0.0;   ///< 0 to 1; how much of the phase is done.
    bool isFinished = false; ///< The computation has ended; the others are as reported last.
};

/// Carries reports of a long computation to whoever shows them, without slowing the computation
/// down.
///
/// Reports are thinned out: within a phase one every 50 ms by OrvikOs::Clock, the first and the
/// last always. They are posted through the call gate, at most one on its way at a time: a slow
/// observer sees the latest state, never a queue of old ones. The process uses one object,
/// Instance(); tests may make their own.
///
/// @thread  Any thread for reports; tasks of a parallel loop may report too.
class TAMBCOMMANDSINFRA_API Progress
{
public:
    /// Receives a report, on the main thread (on the reporting thread when no gate exists). Must
    /// not replace the observer.
    using Observer = std::function<void(const ProgressReport& report)>;

    /// Shortest time between two reports of a phase, in milliseconds.
    static constexpr std::uint64_t kIntervalMs = 50;

    Progress();
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Gives the object of the process.
    static Progress& Instance();

    /// Replaces the observer; null for none. When this returns the former one is not called any
    /// more.
    ///
    /// @thread  Main thread.
    void SetObserver(Observer observer);

    /// Begins a phase at 0; an empty name is allowed.
    void BeginPhase(const std::wstring& phase);

    /// Tells how much of the phase is done. Cheap: most calls only read the clock.
    ///
    /// @param fraction  Values outside 0 to 1 are moved to the nearer end, NaN is ignored; a value
    /// below one reported
    ///                  before in this phase is ignored.
    void Report(double fraction);

    /// Ends the computation: reports that it is finished. Does nothing when no phase was begun.
    void End();

private:
    struct State;
    std::shared_ptr<State> m_state; ///< Shared with the report on its way.
};

} // namespace TambCommandsInfra

#endif
