#include "Replay.h"

#include "InputQueue.h"
#include "PickProbe.h"
#include "ScriptRunner.h"

#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Dbg.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/Shell.h>
#include <OrvikOs/Directory.h>
#include <TambVizCore/IView3D.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

namespace Pellux {
namespace {

using Lock = OrvikOs::CriticalSection::Guard;

/// How far a place may be off, as a share of the largest coordinate: what single precision and
/// another order of additions leave.
constexpr double kSamePlace = 1e-5;

/// How much of a form goes with each of its picks, characters.
constexpr std::size_t kLongestForm = 200;

std::wstring beginningOf(const std::wstring& form)
{
    return form.size() <= kLongestForm ? form : form.substr(0, kLongestForm) + L"...";
}

bool areNear(const double* a, const double* b, int count, double tolerance)
{
    for (int i = 0; i < count; ++i)
        if (!(std::fabs(a[i] - b[i]) <= tolerance))
            return false;
    return true;
}

bool isInPlace(const PickNote& expected, const PickNote& found)
{
    double largest = 0.0;
    for (const double coordinate : expected.box)
        largest = std::max(largest, std::fabs(coordinate));
    for (const double coordinate : expected.point)
        largest = std::max(largest, std::fabs(coordinate));
    const double tolerance = kSamePlace * largest;
    if (expected.hasBox && !(found.hasBox && areNear(expected.box, found.box, 6, tolerance)))
        return false;
    return !expected.hasPoint ||
           (found.hasPoint && areNear(expected.point, found.point, 3, tolerance));
}

} // namespace

const char* PickResultName(PickResult result)
{
    switch (result) {
    case PickResult::Same:
        return "same";
    case PickResult::Moved:
        return "moved";
    case PickResult::Other:
        return "other";
    case PickResult::Gone:
        break;
    }
    return "gone";
}

PickResult ComparePicks(const PickNote& expected, const PickNote& found, bool isThere)
{
    if (!expected.isFound)
        return found.isFound ? PickResult::Other : PickResult::Same;
    if (!found.isFound)
        return PickResult::Gone;
    if (!(found.entity == expected.entity))
        return isThere ? PickResult::Other : PickResult::Gone;
    return isInPlace(expected, found) ? PickResult::Same : PickResult::Moved;
}

std::size_t ReplayOutcome::Count(PickResult result) const
{
    return static_cast<std::size_t>(
        std::count_if(picks.begin(), picks.end(),
                      [result](const ReplayedPick& pick) { return pick.result == result; }));
}

bool ReplayOutcome::IsGood() const
{
    return errorText.empty() && stoppedLine == 0 && formsRun == formCount &&
           Count(PickResult::Same) == picks.size();
}

Replay::Replay(OrvikCore::Shell& shell, OrvikCore::ASession& session, BeforeForm beforeForm,
               AfterPick afterPick, GoOn goOn)
    : m_shell(shell),
      m_session(session),
      m_former(TambCommandsInfra::GetCommandJournal()),
      m_beforeForm(std::move(beforeForm)),
      m_afterPick(std::move(afterPick)),
      m_goOn(std::move(goOn))
{
    TambCommandsInfra::SetCommandJournal(this);
}

Replay::~Replay()
{
    TambCommandsInfra::SetCommandJournal(m_former);
}

ReplayOutcome Replay::Run(const std::wstring& text, const std::wstring& file)
{
    ReplayOutcome outcome;
    JournalContents contents;
    std::wstring reason;
    if (!ParseJournal(text, SplitFormsOf(m_shell), contents, reason)) {
        outcome.errorText = file + L": " + reason;
        return outcome;
    }
    outcome.formCount = contents.entries.size();
    outcome.cutLine = contents.cutLine;
    if (contents.cutLine != 0)
        outcome.cutText = file + L":" + std::to_wstring(contents.cutLine) +
                          L": the journal is cut short: " + contents.cutReason +
                          L" is not whole and was left out";
    if (!enterFolder(contents.start.folder)) {
        outcome.errorText = file + L": the folder cannot be entered : " + contents.start.folder;
        return outcome;
    }
    for (const JournalEntry& entry : contents.entries) {
        if (!m_beforeForm(entry.form))
            return outcome;
        if (!runEntry(entry, file, outcome.stopText)) {
            outcome.stoppedLine = entry.line;
            return outcome;
        }
        compare(entry, outcome);
        if (!playInput(entry)) {
            outcome.stoppedLine = entry.line;
            return outcome;
        }
        ++outcome.formsRun;
    }
    return outcome;
}

bool Replay::enterFolder(const std::wstring& folder)
{
    if (folder.empty())
        return true;
    std::wstring output;
    return OrvikOs::IsDirectory(folder) &&
           m_shell.RunScript(L"(chdir " + QuotedForScript(folder) + L")", output);
}

bool Replay::runEntry(const JournalEntry& entry, const std::wstring& file, std::wstring& stopText)
{
    {
        const Lock lock(m_lock);
        m_found.clear();
    }
    if (m_followsSizes && entry.width > 0 && m_session.View3D() != nullptr)
        m_session.View3D()->SetWindowSize(entry.width, entry.height);
    m_shell.GetScriptEngine()->SetNextSource(file, entry.line, entry.column);
    std::wstring output;
    const bool good = m_shell.RunScript(entry.form, output);
    if (InputQueue* const input = good ? nullptr : CurrentInputQueue())
        input->Clear();
    if (good || entry.hasFailed)
        return true;
    stopText = output.substr(0, output.find_last_not_of(L" \r\n") + 1);
    return false;
}

bool Replay::playInput(const JournalEntry& entry)
{
    InputQueue* const input = CurrentInputQueue();
    if (input == nullptr)
        return true;
    if (entry.hasInputBelow || entry.hasFailed) {
        input->Clear();
        return true;
    }
    return playAll(*input);
}

bool Replay::playAll(InputQueue& input)
{
    return input.Play({[this] { return !m_goOn || m_goOn(); },
                       [&](const std::wstring& script, const std::wstring& source) {
                           ScriptRunner runner(m_shell, m_beforeForm,
                                               [&] { return playAll(input); });
                           return runner.RunText(script, source);
                       }});
}

void Replay::compare(const JournalEntry& entry, ReplayOutcome& outcome)
{
    std::vector<PickNote> found;
    {
        const Lock lock(m_lock);
        found.swap(m_found);
    }
    found.resize(std::max(found.size(), entry.picks.size()));
    const std::wstring form = beginningOf(entry.form);
    for (std::size_t i = 0; i < entry.picks.size(); ++i) {
        PickNote there;
        there.entity = entry.picks[i].entity;
        const bool isThere = LocateEntity(m_session.Document(), there);
        const PickResult result = ComparePicks(entry.picks[i], found[i], isThere);
        outcome.picks.push_back({entry.line, form, entry.picks[i], found[i], result});
        m_afterPick(outcome.picks.back());
    }
}

void Replay::NoteCommand(const TambCommandsInfra::Command& command,
                         const TambCommandsInfra::Arguments& arguments) noexcept
{
    if (m_former != nullptr)
        m_former->NoteCommand(command, arguments);
    try {
        const std::vector<PickNote> picks = ProbeCommand(m_session, command, arguments);
        const Lock lock(m_lock);
        m_found.insert(m_found.end(), picks.begin(), picks.end());
    } catch (const std::exception& error) {
        OrvikCore::dbg << "-- replay : " << command.name << ": " << error.what() << std::endl;
    }
}

std::wstring Replay::GetPath() const
{
    return std::wstring();
}

SplitForms SplitFormsOf(OrvikCore::Shell& shell)
{
    return [&shell](const std::wstring& text, std::vector<PlacedForm>& forms,
                    std::wstring& errorText) {
        const OrvikCore::AScriptEngine* const engine = shell.GetScriptEngine();
        std::vector<OrvikCore::ScriptForm> found;
        forms.clear();
        if (engine == nullptr)
            return false;
        const bool isWhole = engine->SplitForms(text, found, errorText);
        for (const OrvikCore::ScriptForm& form : found)
            forms.push_back({form.text, form.line, form.column});
        return isWhole;
    };
}

std::wstring QuotedForScript(const std::wstring& text)
{
    std::wstring result = L"\"";
    for (const wchar_t c : text) {
        if (c == L'\u2018' || c == L'\u2019')
            result += c == L'\u2018' ? L"\\u2018" : L"\\u2019";
        else if (c == L'\u201C' || c == L'\u201D')
            result += c == L'\u201C' ? L"\\u201C" : L"\\u201D";
        else if (c == L'"' || c == L'\\')
            result += std::wstring(L"\\") + c;
        else
            result += c;
    }
    return result + L"\"";
}

} // namespace Pellux
