#include "Journal.h"

#include "PelluxApplication.h"
#include "PickProbe.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/Dbg.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Thread.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/IView3D.h>

#include <array>
#include <exception>
#include <utility>

namespace Pellux {
namespace {

using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using Lock = OrvikOs::CriticalSection::Guard;

constexpr char kBoxCommand[] = "sel:box";

/// Commands that play a hand: what the hand does is written instead.
bool isInput(const std::string& name)
{
    return name.starts_with("input:");
}

bool onlyAsks(const std::string& name)
{
    if (isInput(name))
        return true;
    const auto command = CommandTable::Instance().Find(name);
    return command != nullptr && command->effect == CommandEffect::Reads;
}

/// One form for everything that a command held.
std::wstring oneForm(const std::vector<PlacedForm>& forms)
{
    if (forms.size() == 1)
        return forms.front().text;
    std::wstring text = L"(begin";
    for (const PlacedForm& form : forms)
        text += L"\n  " + form.text;
    return text + L")";
}

std::wstring timeText(const DateAndTime& when)
{
    const auto two = [](int number) {
        return (number < 10 ? L"0" : L"") + std::to_wstring(number);
    };
    return std::to_wstring(when.year) + L"-" + two(when.month) + L"-" + two(when.day) + L" " +
           two(when.hour) + L":" + two(when.minute) + L":" + two(when.second) + L" UTC";
}

} // namespace

Journal::Journal(Warn warn, RunHistory& history) : m_warn(std::move(warn)), m_history(history) {}

Journal::~Journal()
{
    if (m_session == nullptr)
        return;
    BeginForm();
    TambCommandsInfra::SetCommandJournal(nullptr);
    OrvikCore::JobDispatcher::Instance().UnRegisterJobStatusObserver(this);
    if (OrvikCore::Controller* const controller = m_session->GetController())
        controller->RemoveListener(this);
}

void Journal::Begin(const std::wstring& folder, const JournalStart& start,
                    OrvikCore::ASession& session)
{
    const DateAndTime now = NowInUniversalTime();
    std::wstring reason;
    if (!m_file.Create(folder, now, OrvikOs::CurrentProcessId(), reason)) {
        m_isBroken = true;
        m_warn(L"There is no journal of this run: " + reason);
        return;
    }
    append(JournalHead(start, L"pellux " + ProgramVersion(), timeText(now)));
    m_session = &session;
    m_knownSize = {start.width, start.height};
    noteKnown();
    m_knownHighlight = highlight();
    TambCommandsInfra::SetCommandJournal(this);
    OrvikCore::JobDispatcher::Instance().RegisterJobStatusObserver(this);
    if (OrvikCore::Controller* const controller = session.GetController())
        controller->AddListener(this);
}

void Journal::NoteCommand(const Command& command,
                          const TambCommandsInfra::Arguments& arguments) noexcept
{
    try {
        const std::vector<PickNote> picks = ProbeCommand(*m_session, command, arguments);
        const Lock lock(m_lock);
        m_happened.hasChanged |= command.effect == CommandEffect::Changes && !isInput(command.name);
        m_happened.hasAskedForInput |= isInput(command.name);
        m_happened.hasSelectedByBox |= command.name == kBoxCommand;
        m_happened.picks.insert(m_happened.picks.end(), picks.begin(), picks.end());
    } catch (const std::exception& error) {
        OrvikCore::dbg << "-- journal : " << command.name << ": " << error.what() << std::endl;
    }
}

std::wstring Journal::GetPath() const
{
    return m_file.Path();
}

void Journal::NotifyJobStatus(OrvikCore::JobTicket* ticket)
{
    if (ticket == nullptr || ticket->GetJobId() != OrvikCore::JID_EXECUTE_SCRIPT ||
        ticket->GetStatus() != OrvikCore::JOB_FAILED)
        return;
    const Lock lock(m_lock);
    m_happened.hasFailed = true;
}

Journal::Happened Journal::takeHappened()
{
    const Lock lock(m_lock);
    return std::exchange(m_happened, Happened());
}

void Journal::BeginForm()
{
    if (m_session == nullptr)
        return;
    EndForm();
    writeHighlight();
    m_formRuns = true;
}

void Journal::EndForm()
{
    m_formRuns = false;
    EndGesture();
}

void Journal::Record(const std::wstring& command, const SplitForms& split)
{
    const Happened happened = takeHappened();
    if (m_session == nullptr)
        return;
    EndGesture();
    std::vector<PlacedForm> forms;
    std::wstring reason;
    const bool isWhole = split(command, forms, reason) && !forms.empty();
    const bool isWorthIt =
        happened.hasChanged || !happened.picks.empty() || !AsksOnly(command, onlyAsks);
    // What is no whole form was never run.
    if (isWhole && isWorthIt)
        writeCommand(forms, happened);
    EndForm();
    noteKnown();
    // What the mouse highlighted before the command is not known to a replay yet.
    if (!m_mouseHasActed && !happened.hasSelectedByBox)
        m_knownHighlight = highlight();
}

/// What a rectangle in the view has selected is written as the entities, which a replay at another
/// size selects too.
void Journal::writeCommand(const std::vector<PlacedForm>& forms, const Happened& happened)
{
    const bool isBoxAlone = happened.hasSelectedByBox && !happened.hasFailed && forms.size() == 1 &&
                            IsPlainCall(forms.front().text, kBoxCommand);
    std::vector<std::wstring> marks;
    for (const PickNote& pick : happened.picks)
        marks.push_back(PickLine(pick));
    if (happened.hasFailed)
        marks.push_back(FailureLine());
    // A form that failed has its events forgotten.
    else if (happened.hasAskedForInput)
        marks.push_back(InputLine());
    if (!isBoxAlone)
        write(oneForm(forms), marks, happened.hasFailed);
    if (happened.hasSelectedByBox)
        writeSelection();
}

void Journal::noteKnown()
{
    m_knownCamera = camera();
    m_knownSelection = m_session->GetPickedEntities();
}

void Journal::write(const std::wstring& form, const std::vector<PickNote>& picks)
{
    std::vector<std::wstring> marks;
    for (const PickNote& pick : picks)
        marks.push_back(PickLine(pick));
    write(form, marks, /*hasFailed=*/false);
}

void Journal::write(const std::wstring& form, const std::vector<std::wstring>& marks,
                    bool hasFailed)
{
    m_history.Add(form, hasFailed);
    std::wstring lines = changedSize() + form + L"\n";
    for (const std::wstring& mark : marks)
        lines += mark + L"\n";
    append(lines);
}

/// What a fit shows and how large a picture becomes depends on the size of the view.
/// @return the line for a view that has another size than the journal knows; else nothing.
std::wstring Journal::changedSize()
{
    std::array<int, 2> size{};
    if (m_session->View3D() == nullptr)
        return {};
    m_session->View3D()->GetWindowSize(size[0], size[1]);
    if (size == m_knownSize || size[0] < 1 || size[1] < 1)
        return {};
    m_knownSize = size;
    return SizeLine(size[0], size[1]) + L"\n";
}

void Journal::append(const std::wstring& lines)
{
    std::wstring reason;
    if (m_isBroken || m_file.Append(lines, reason))
        return;
    m_isBroken = true;
    m_warn(L"The journal ends here: " + reason);
}

} // namespace Pellux
