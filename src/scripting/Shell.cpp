#include "OrvikCore/Shell.h"

#include "ShellState.h"
#include "ShellTexts.h"

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/Config.h"
#include "OrvikCore/IApplication.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/JobTicket.h"
#include "OrvikCore/ScriptEngineInitJob.h"
#include "OrvikCore/ScriptEngineLoadJob.h"
#include "OrvikCore/ScriptEngineTerminateJob.h"
#include "OrvikCore/ScriptPluginManager.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/SignalHandlingContext.h"

#include <OrvikOs/Directory.h>
#include <TambCommandsInfra/Hpt.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cstdint>
#include <exception>
#include <iostream>
#include <vector>

namespace OrvikCore {

using TambVizCore::Utils;

namespace {

/// The typographic quotation marks, in the order in which a command is searched for them.
constexpr wchar_t kQuotationMarks[] = {L'\u201C', L'\u201D', L'\u2018', L'\u2019'};

long long Address(const void* object)
{
    return static_cast<long long>(reinterpret_cast<std::intptr_t>(object));
}

void Print(const std::wstring& text, MessageType type)
{
    SessionMgr::Instance().CurrentSession().PrintMessage(text, type);
}

/// The engine hands its context to the script plugins through this.
void InitializeScriptPlugins(void* context)
{
    ScriptPluginManager::Instance().Initialize(context);
}

/// Finds a typographic quotation mark: the first place of the first kind that occurs.
std::size_t FindQuotationMark(const std::wstring& command)
{
    // Deliberate: searched by kind, so the place is not always the first of all.
    // Held by Shell.QuotationMarksAreSearchedByKind.
    for (const wchar_t mark : kQuotationMarks) {
        const std::size_t position = command.find(mark);
        if (position != std::wstring::npos) {
            return position;
        }
    }
    return std::wstring::npos;
}

/// Lists the scripts of a folder, with the folder before their names.
std::vector<std::wstring> ListScripts(const std::wstring& folder, const std::wstring& extension)
{
    std::vector<OrvikOs::DirectoryEntry> entries;
    OrvikOs::ListDirectory(folder, entries);
    std::vector<std::wstring> scripts;
    for (const OrvikOs::DirectoryEntry& entry : entries) {
        const std::size_t point = entry.name.rfind(L'.');
        if (point != std::wstring::npos && point > 0 && entry.name.front() != L'.' &&
            entry.name.substr(point + 1) == extension) {
            scripts.push_back(folder + entry.name);
        }
    }
    return scripts;
}

} // namespace

Shell::Shell() : m_state(std::make_shared<ShellState>())
{
    JobDispatcher::Instance().RegisterJobStatusObserver(this);
    JobDispatcher::Instance().ExecuteParked(std::make_shared<ScriptEngineLoadJob>(this));
}

Shell::~Shell()
{
    JobDispatcher& dispatcher = JobDispatcher::Instance();
    dispatcher.UnRegisterJobStatusObserver(this);
    const auto job = std::make_shared<ScriptEngineTerminateJob>(this);
    JobTicket ticket(JID_EXECUTE_JOB, nullptr, true, Address(static_cast<IJob*>(job.get())));
    dispatcher.ExecuteParked(ticket, job);
    if (ticket.GetStatus() == JOB_FAILED) {
        IApplication* const application = SessionMgr::Instance().GetApplication();
        if (application != nullptr) {
            application->ReportEngineTerminationFailure(ticket.ToWString());
        }
        std::cout << ticket.ToString() << std::endl;
    }
}

void Shell::loadScriptEngine(ShellState& state)
{
    AScriptEngine* engine = nullptr;
    try {
        std::vector<std::wstring> files;
        Config::Instance().GetValue(L"ScriptEngine", L"File", files);
        if (!files.empty()) {
            engine = ScriptPluginManager::Instance().LoadScriptEngine(files.front().c_str());
        }
        if (engine == nullptr) {
            state.errorText.Set(kNoEngineMade);
        }
    } catch (const std::exception& error) {
        state.errorText.Set(Utils::Char2Wchar(error.what()));
    } catch (...) {
        state.errorText.Set(kEngineNotLoaded);
    }
    state.engine.store(engine, std::memory_order_release);
}

void Shell::init(ShellState& state)
{
    try {
        state.engine.load(std::memory_order_acquire)->Initialize(InitializeScriptPlugins);
    } catch (const std::exception& error) {
        state.startupLoadOk.store(false, std::memory_order_release);
        state.errorText.Set(Utils::Char2Wchar(error.what()));
    } catch (...) {
        // The dispatcher reports it; the initialisation has run all the same.
        state.initialized.store(true, std::memory_order_release);
        throw;
    }
    state.initialized.store(true, std::memory_order_release);
}

void Shell::terminate(ShellState& state)
{
    const SignalHandlingContext context(/*floatingPointControl=*/true);
    state.terminating.store(true, std::memory_order_release);
    // Forgotten first: an engine whose destructor fails is not met again.
    AScriptEngine* const engine = state.engine.load(std::memory_order_acquire);
    state.engine.store(nullptr, std::memory_order_release);
    delete engine;
}

void Shell::Init()
{
    if (m_state->initialized.load(std::memory_order_acquire)) {
        return;
    }
    if (GetScriptEngine() == nullptr) {
        m_state->errorText.Set(kNoScriptEngine);
        return;
    }
    JobDispatcher::Instance().ExecuteParked(std::make_shared<ScriptEngineInitJob>(this));
}

bool Shell::RunScript(const std::wstring& command, std::wstring& output)
{
    // 1. Set the engine up on first use.
    if (!m_state->initialized.load(std::memory_order_acquire)) {
        Init();
        if (!m_state->initialized.load(std::memory_order_acquire)) {
            output = GetStartupError();
            return false;
        }
    }

    // 2. Refuse quotation marks that were pasted from a text.
    const std::size_t position = FindQuotationMark(command);
    if (position != std::wstring::npos) {
        output = kIllegalCharacter + std::to_wstring(position);
        Print(std::wstring(position, L' ') + L"^", MessageType::Warning);
        Print(output, MessageType::Error);
        return false;
    }

    // 3. Run the command; while the engine goes away nothing else may be touched.
    const TambCommandsInfra::Hpt timer;
    const bool isGood = runScriptWT(command, std::wstring(), /*flag=*/false);
    if (m_state->terminating.load(std::memory_order_acquire)) {
        return isGood;
    }
    if (IApplication* const application = SessionMgr::Instance().GetApplication()) {
        application->RecordCommand(command);
    }
    SessionMgr::Instance().CurrentSession().UpdateDisplay();
    output = getOutput();
    return isGood;
}

bool Shell::LoadScript(const std::wstring& file, std::wstring& output, bool flag)
{
    AScriptEngine* const engine = GetScriptEngine();
    if (engine == nullptr) {
        output = kNoScriptEngine;
        return false;
    }
    if (!Utils::FileExists(file)) {
        output = kNoSuchFile + file + kDoesNotExist;
        return false;
    }
    const std::wstring extension = engine->GetScriptExtension();
    // Deliberate: only the file's side is lower-cased.
    // Held by ShellFiles.OnlyTheExtensionOfTheFileIsLowerCased.
    if (Utils::ToLowerAscii(Utils::GetFileExtension(file)) != extension) {
        output = kWrongExtension + extension + kExtension;
        return false;
    }
    const std::wstring script = Utils::GetFileContents(file);
    if (script.empty()) {
        output = kNotReadable + file;
        return false;
    }
    const bool isGood = runScriptWT(script, file, flag);
    output = isGood ? std::wstring() : getOutput();
    return isGood;
}

void Shell::LoadStartupScripts()
{
    AScriptEngine* const engine = GetScriptEngine();
    if (engine == nullptr) {
        return;
    }
    m_state->errorText.Set(std::wstring());

    // 1. Collect the scripts: of the first folder that has any, and the host's own.
    const std::wstring folder = Utils::GetExePath();
    const std::wstring extension = engine->GetScriptExtension();
    std::vector<std::wstring> files = ListScripts(folder + L"/startup/", extension);
    if (files.empty()) {
        files = ListScripts(folder + L"/../../startup/Pellux/", extension);
    }
    if (!m_startupScript.empty()) {
        files.push_back(m_startupScript);
    }
    std::sort(files.begin(), files.end());

    // 2. Run them and keep a log.
    std::wstring log;
    std::wstring errors;
    bool isGood = true;
    for (const std::wstring& file : files) {
        if (log.empty()) {
            log = kLogLoading + Utils::GetAbsolutePath(file) + L"\n";
        }
        log += kLogFile + Utils::GetFileNameOnly(file) + L"\n";
        std::wstring text;
        if (!LoadScript(file, text, /*flag=*/true)) {
            // Deliberate: the engine's output, also where the file itself was the failure.
            // Held by StartupScripts.LogHoldsTheOutputOfTheEngineAfterAFailure.
            const std::wstring output = getOutput() + L"\n";
            log += output;
            errors += output;
            isGood = false;
        }
    }

    // 3. Tell the outcome.
    m_state->errorText.Set(errors);
    m_state->startupLoadOk.store(isGood, std::memory_order_release);
    engine->SetStartupLog(log);
}

void Shell::AddStartupScript(const std::wstring& file)
{
    m_startupScript = file;
}

bool Shell::GetIsStartupLoadOK() const
{
    return m_state->startupLoadOk.load(std::memory_order_acquire);
}

std::wstring Shell::GetStartupError() const
{
    return *m_state->errorText.Get();
}

AScriptEngine* Shell::GetScriptEngine() const
{
    return m_state->engine.load(std::memory_order_acquire);
}

void Shell::NotifyJobStatus(JobTicket* ticket)
{
    if (ticket == nullptr) {
        Print(kNullTicket, MessageType::Error);
    } else if (ticket->GetStatus() == JOB_FAILED) {
        Print(ticket->GetMessageText(), MessageType::Error);
    } else if (!ticket->GetMessageText().empty()) {
        Print(ticket->GetMessageText(), MessageType::Output);
    }
}

bool Shell::runScriptWT(const std::wstring& script, const std::wstring& source, bool flag)
{
    // The dispatcher hands the text on without its source, so the engine is told here.
    if (!source.empty()) {
        GetScriptEngine()->SetNextSource(source, /*line=*/1, /*column=*/1);
    }
    // On the heap: a wait that ends early leaves the worker with the text.
    const auto text = std::make_shared<const std::wstring>(script);
    JobTicket ticket(JID_EXECUTE_SCRIPT, this, true, Address(GetScriptEngine()),
                     Address(text.get()), flag ? 1 : 0);
    JobDispatcher::Instance().ExecuteParked(ticket, text);
    return ticket.GetStatus() == JOB_COMPLETED;
}

std::wstring Shell::getOutput() const
{
    const AScriptEngine* const engine = GetScriptEngine();
    return engine == nullptr ? std::wstring() : engine->GetOutput();
}

} // namespace OrvikCore
