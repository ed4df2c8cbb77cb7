#ifndef APPSCOMMON_JOURNAL_H
#define APPSCOMMON_JOURNAL_H

#include "JournalFile.h"
#include "JournalText.h"
#include "RunHistory.h"

#include <OrvikCore/IControllerListener.h>
#include <OrvikCore/IJobStatusObserver.h>
#include <OrvikOs/CriticalSection.h>
#include <TambCommandsInfra/ICommandJournal.h>
#include <TambVizCore/RenderId.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace OrvikCore {
class ASession;
class ViewOpRayPick;
} // namespace OrvikCore

namespace Pellux {

/// Writes what a run did to the model and the view into a file that a replay repeats.
///
/// What is written: each form that a person typed, a script held or a hotkey ran, unless it only
/// asked; where the camera stands after the mouse moved it; what the mouse picked and selected, and
/// what is highlighted at the end and when a form begins. What a pick found stands in the line
/// behind its form. A line is with the system before the next
/// command starts. When the file cannot be written the journal says so once and is silent from
/// then on.
///
/// @thread Main thread, except where another is named.
class Journal final : public TambCommandsInfra::ICommandJournal,
                      public OrvikCore::IJobStatusObserver,
                      public OrvikCore::IControllerListener
{
public:
    /// Shows a warning.
    using Warn = std::function<void(const std::wstring& text)>;

    /// @param history  Learns of everything that is written; not owned, outlives the journal.
    Journal(Warn warn, RunHistory& history);

    /// Writes the end of a gesture, and listens no more.
    ~Journal() override;

    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /// Begins a file and listens to commands, jobs and the session's controller.
    ///
    /// @param folder  Where journals are kept.
    /// @param session Not owned, outlives the journal.
    void Begin(const std::wstring& folder, const JournalStart& start, OrvikCore::ASession& session);

    /// Writes what the mouse has left behind: the end of its gesture and what is highlighted. Call
    /// before a form runs.
    void BeginForm();

    /// The form has ended, also one that was never run: what the mouse did meanwhile goes behind
    /// it, as it stands now.
    void EndForm();

    /// Writes a command that has ended, unless it only asked; ends the form that runs.
    void Record(const std::wstring& command, const SplitForms& split);

    /// Writes where the camera stands and what is selected, where the mouse has changed that. While
    /// a form runs it waits for EndForm().
    void EndGesture();

    /// Worker thread.
    void NoteCommand(const TambCommandsInfra::Command& command,
                     const TambCommandsInfra::Arguments& arguments) noexcept override;
    std::wstring GetPath() const override;

    /// Learns of scripts that failed. Worker thread.
    void NotifyJobStatus(OrvikCore::JobTicket* ticket) override;

    /// Learns of the mouse, behind the view.
    void ControllerNotify(OrvikCore::IViewOp* op) override;

private:
    /// What happened since the last form.
    struct Happened
    {
        bool hasChanged = false;
        bool hasFailed = false;
        bool hasAskedForInput = false; ///< What that does is written when it is played.
        bool hasSelectedByBox = false; ///< What that finds depends on the size of the view.
        std::vector<PickNote> picks;
    };

    using Triple = std::array<float, 9>;

    Happened takeHappened();
    std::optional<Triple> camera() const;
    std::vector<TambVizCore::RenderId> highlight() const;
    void noteKnown();
    void notePick(const OrvikCore::ViewOpRayPick& op);
    void writeCamera();
    void writeHighlight();
    void writeCommand(const std::vector<PlacedForm>& forms, const Happened& happened);
    void writeChangedSelection();
    void writeSelection();
    void write(const std::wstring& form, const std::vector<PickNote>& picks);
    void write(const std::wstring& form, const std::vector<std::wstring>& marks, bool hasFailed);
    std::wstring changedSize();
    void append(const std::wstring& lines);

    Warn m_warn;
    RunHistory& m_history;
    JournalFile m_file;
    bool m_isBroken = false;
    OrvikCore::ASession* m_session = nullptr; ///< Not owned; null before Begin().
    bool m_gestureIsOpen = false;
    std::array<int, 2> m_knownSize{};    ///< Of the view, as the journal has it, pixels.
    bool m_formRuns = false;             ///< Between BeginForm() and EndForm().
    std::optional<Triple> m_knownCamera; ///< As the journal has it.
    std::vector<TambVizCore::EntityId> m_knownSelection;
    /// What a replay would highlight.
    std::vector<TambVizCore::RenderId> m_knownHighlight;
    bool m_mouseHasActed = false; ///< Since what is highlighted was written.
    OrvikOs::CriticalSection m_lock;
    Happened m_happened; ///< Written on the worker, under the lock.
};

} // namespace Pellux

#endif
