#ifndef APPSCOMMON_REPLAY_H
#define APPSCOMMON_REPLAY_H

#include "JournalText.h"

#include <OrvikOs/CriticalSection.h>
#include <TambCommandsInfra/ICommandJournal.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace OrvikCore {
class ASession;
class Shell;
} // namespace OrvikCore

namespace Pellux {

class InputQueue;

/// How what a pick finds now compares with what the journal says.
enum class PickResult
{
    Same,  ///< The same entity in the same place, or nothing now as then.
    Moved, ///< The same entity elsewhere.
    Other, ///< Another entity; that of the journal is still there.
    Gone,  ///< Nothing, or the entity of the journal is not there any more.
};

/// How many results there are.
inline constexpr std::size_t kPickResults = 4;

/// @return "same", "moved", "other" or "gone".
const char* PickResultName(PickResult result);

/// Compares two answers to the same question.
///
/// Places are the same when no coordinate of box and point differs by more than 1e-5 of the
/// largest coordinate of the expected box, in amount.
///
/// @param isThere  Whether the entity of the journal is still there.
PickResult ComparePicks(const PickNote& expected, const PickNote& found, bool isThere);

/// One pick of a replay.
struct ReplayedPick
{
    int line = 0; ///< Of the form in the journal.
    /// Its beginning: at most 200 characters and "..." for the rest. One form can hold a pick for
    /// each of many thousand bodies.
    std::wstring form;
    PickNote expected;
    PickNote found; ///< Nothing where the form made no such pick.
    PickResult result = PickResult::Same;
};

/// How a replay went.
struct ReplayOutcome
{
    std::size_t formCount = 0; ///< That the journal has.
    std::size_t formsRun = 0;
    std::vector<ReplayedPick> picks;
    int stoppedLine = 0;    ///< Of the form that failed; 0 when none did.
    std::wstring stopText;  ///< What the form that failed said; the session printed it already.
    std::wstring errorText; ///< Of a journal that cannot be used: "<file>:<line>: <reason>".
    int cutLine = 0;        ///< Where a journal is cut short; 0 for a whole one.
    /// Of a journal that is cut short: "<file>:<line>: the journal is cut short: ...".
    std::wstring cutText;

    /// How many picks ended so.
    std::size_t Count(PickResult result) const;

    /// Whether every form ran and every pick is the same; also of a journal that is cut short.
    bool IsGood() const;
};

/// Runs a journal form by form and compares what its picks find.
///
/// What events have done stands in the journal, so those of a form that says so are forgotten; the
/// events of other forms, which somebody has written into it, are played as in a script.
///
/// Forms that failed when the journal was written may fail again; any other failure ends the
/// replay. The journal of the run goes on meanwhile. @thread Main thread, except NoteCommand.
class Replay final : public TambCommandsInfra::ICommandJournal
{
public:
    /// Called with each form before it runs; false stops the replay there.
    using BeforeForm = std::function<bool(const std::wstring& form)>;
    /// Called with each pick when it was compared.
    using AfterPick = std::function<void(const ReplayedPick& pick)>;
    /// Asked before each event; false stops the replay there.
    using GoOn = std::function<bool()>;

    /// @param shell, session  Not owned; outlive the replay. The shell has an engine.
    /// @param goOn            May be empty.
    Replay(OrvikCore::Shell& shell, OrvikCore::ASession& session, BeforeForm beforeForm,
           AfterPick afterPick, GoOn goOn = {});
    ~Replay() override;

    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    /// Gives the view the sizes that the journal's forms found it in; off at first.
    void FollowSizes(bool follows) { m_followsSizes = follows; }

    /// Runs the journal @p text that was read from @p file.
    ReplayOutcome Run(const std::wstring& text, const std::wstring& file);

    /// Worker thread.
    void NoteCommand(const TambCommandsInfra::Command& command,
                     const TambCommandsInfra::Arguments& arguments) noexcept override;
    /// @return the empty text: a replay writes no journal.
    std::wstring GetPath() const override;

private:
    bool enterFolder(const std::wstring& folder);
    bool runEntry(const JournalEntry& entry, const std::wstring& file, std::wstring& stopText);
    bool playInput(const JournalEntry& entry);
    bool playAll(InputQueue& input);
    void compare(const JournalEntry& entry, ReplayOutcome& outcome);

    OrvikCore::Shell& m_shell;
    OrvikCore::ASession& m_session;
    TambCommandsInfra::ICommandJournal* const m_former; ///< Not owned; back in place afterwards.
    BeforeForm m_beforeForm;
    AfterPick m_afterPick;
    GoOn m_goOn;
    bool m_followsSizes = false;
    OrvikOs::CriticalSection m_lock;
    std::vector<PickNote> m_found; ///< Of the form that runs; written on the worker.
};

/// The script engine's way to cut a text into forms.
/// @param shell  Not owned, outlives the result; has an engine.
SplitForms SplitFormsOf(OrvikCore::Shell& shell);

/// A string of the script language. Typographic quotation marks are refused in a command, so they
/// are spelled by number.
std::wstring QuotedForScript(const std::wstring& text);

} // namespace Pellux

#endif
