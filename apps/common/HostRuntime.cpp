#include "HostRuntime.h"

#include "Folders.h"
#include "HostTree.h"
#include "Journal.h"
#include "Manipulators.h"
#include "Replay.h"
#include "TessellationDefaults.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ACameraFactory.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/AView3D.h>
#include <OrvikCore/AppController.h>
#include <OrvikCore/Config.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/PluginManager.h>
#include <OrvikCore/ProcessGlobals.h>
#include <OrvikCore/ScriptPluginManager.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>
#include <OrvikCore/View3DFactory.h>
#include <OrvikOs/Clock.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Thread.h>
#include <TambCommandsInfra/ProtectSignalHandlingContext.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/VizFactories.h>

namespace Pellux {
namespace {

using OrvikCore::AppController;
using OrvikCore::ASession;
using OrvikCore::AView3D;
using OrvikCore::Config;
using OrvikCore::JobDispatcher;
using OrvikCore::MessageType;
using OrvikCore::PluginManager;
using OrvikCore::PMNotificationType;
using OrvikCore::ScriptPluginManager;
using OrvikCore::SessionMgr;
using OrvikCore::Shell;
using OrvikCore::View3DFactory;

/// A day: hosts submit synchronously and wait for as long as a job takes.
constexpr int kJobTimeoutMs = 24 * 60 * 60 * 1000;

/// How long the end of a run waits for a job that has not ended.
constexpr std::uint64_t kMostWaitMs = 5000;

const wchar_t kSystemConfiguration[] = L"/etc/pellux/pellux.toml";

/// The plugin managers know plain functions only.
PostedOutput::Show& pluginMessageShow()
{
    static PostedOutput::Show& show = *new PostedOutput::Show;
    return show;
}

void notifyPluginMessage(const std::wstring& text, const PMNotificationType& type)
{
    // Script plugins are initialised on the worker.
    TambCommandsInfra::CallGate::Post([text, type] {
        if (pluginMessageShow())
            pluginMessageShow()(text, type == PMNotificationType::Error ? MessageType::Error
                                                                        : MessageType::Output);
    });
}

/// @return a tree whose rows the session's tree renderer fills.
std::unique_ptr<HostTree> makeTree(ASession& session)
{
    return std::make_unique<HostTree>([&session](const TambVizCore::RenderId& path) {
        OrvikCore::ARendererTree* const renderer = session.GetTreeRenderer();
        return renderer != nullptr && renderer->ExpandNode(path);
    });
}

} // namespace

HostRuntime::HostRuntime()
    : m_input(
          m_hotkeys, [this] { ensureTree(); }, [this] { EndGesture(); })
{
}

HostRuntime::~HostRuntime()
{
    Stop();
}

StartResult HostRuntime::Start(const StartOptions& options, std::wstring& errorText)
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    m_gate.emplace();
    pluginMessageShow() = options.pluginMessage;
    m_started = true;
    if (!loadConfiguration(options, errorText))
        return StartResult::BadConfiguration;
    createApplication(options);
    loadPlugins();
    SessionMgr::Instance().Activate();
    if (!createSession(options, errorText))
        return StartResult::NoView;
    if (options.sessionReady)
        options.sessionReady();
    if (!startEngine(options, errorText))
        return StartResult::NoEngine;
    startJournal(options);
    return StartResult::Good;
}

bool HostRuntime::loadConfiguration(const StartOptions& options, std::wstring& errorText)
{
    bool good = true;
    if (options.useConfiguration) {
        good = m_configuration.AddFile(kSystemConfiguration, /*mustExist=*/false);
        const std::wstring folder = Folders().GetConfigurationFolder();
        if (!folder.empty())
            good &= m_configuration.AddFile(folder + L"/pellux.toml", /*mustExist=*/false);
    }
    if (!options.configurationFile.empty())
        good &= m_configuration.AddFile(options.configurationFile, /*mustExist=*/true);
    Config::Instance().Initialize(m_configuration);
    errorText = m_configuration.GetErrorText();
    good &= m_hotkeys.Read(m_configuration, errorText);
    good &= m_navigation.Read(m_configuration, errorText);
    return good;
}

bool HostRuntime::ReadHotkeysAgain(const std::wstring& file, std::wstring& errorText)
{
    ConfigurationFile layered = m_configuration;
    if (!layered.AddFile(file, /*mustExist=*/false)) {
        errorText = layered.GetErrorText();
        return false;
    }
    HotkeyTable hotkeys;
    if (!hotkeys.Read(layered, errorText))
        return false;
    m_hotkeys = hotkeys;
    return true;
}

void HostRuntime::createApplication(const StartOptions& options)
{
    SessionMgr& manager = SessionMgr::Instance();
    PelluxApplication* const application = PelluxApplication::Create(options.kind);
    application->SetInput(m_input, m_navigation);
    manager.SetApplication(application);
    manager.SetAutoComplete(&m_completion);
    manager.SetMenuTemplate(&m_menuTemplate);
    AppController& controller = AppController::Instance();
    controller.SetBufferManipulator(new BufferManipulator(m_history));
    controller.SetViewManipulator(new ViewManipulator);
    controller.SetPathHelper(new Folders);
    UseDefaultTessellation();
}

void HostRuntime::loadPlugins()
{
    const TambCommandsInfra::ProtectSignalHandlingContext protection;
    PluginManager& plugins = PluginManager::Instance();
    plugins.SetNotificationCb(&notifyPluginMessage);
    plugins.LoadPlugins(L"Plugins");
    plugins.Initialize(nullptr);
    ScriptPluginManager& scriptPlugins = ScriptPluginManager::Instance();
    scriptPlugins.SetNotificationCb(&notifyPluginMessage);
    scriptPlugins.LoadPlugins();
}

bool HostRuntime::createSession(const StartOptions& options, std::wstring& errorText)
{
    ASession& session = SessionMgr::Instance().CurrentSession();
    m_output = std::make_unique<PostedOutput>(options.output);
    session.RegisterOutputCb(m_output.get());
    if (options.withTree)
        ensureTree();
    auto* const view = dynamic_cast<AView3D*>(session.View3D());
    if (view == nullptr) {
        errorText = L"There is no 3D view: its plugin could not be loaded or cannot draw here.";
        return false;
    }
    view->SetWindowSize(options.width, options.height);
    if (!options.cameraName.empty())
        view->SetCamera(View3DFactory::Instance().GetCameraFactory().MakeCamera(
            *view->GetCamera(), options.cameraName.c_str()));
    view->GetCamera()->SetAnimate(options.animate);
    m_navigation.Attach(*view->GetController());
    return true;
}

void HostRuntime::ensureTree()
{
    if (m_tree != nullptr)
        return;
    ASession& session = SessionMgr::Instance().CurrentSession();
    m_tree = makeTree(session);
    session.SetViewTree(m_tree.get());
    session.RefreshTree();
}

bool HostRuntime::startEngine(const StartOptions& options, std::wstring& errorText)
{
    m_dispatcherUsed = true;
    JobDispatcher::Instance().SetJobTimeout(kJobTimeoutMs);
    m_jobObserver = options.jobObserver;
    JobDispatcher::Instance().RegisterJobStatusObserver(m_jobObserver);
    SessionMgr::Instance().SetShell(new Shell);
    Shell& shell = GetShell();
    shell.Init();
    if (shell.GetScriptEngine() == nullptr || !shell.GetIsStartupLoadOK()) {
        errorText = shell.GetStartupError();
        return false;
    }
    if (options.runStartupScripts)
        shell.LoadStartupScripts();
    return true;
}

void HostRuntime::startHistory(const StartOptions& options)
{
    RunBeginning beginning;
    beginning.folder = OrvikOs::CurrentDirectory();
    beginning.width = options.width;
    beginning.height = options.height;
    beginning.isZUp = options.cameraName == "CameraZUp";
    beginning.useConfiguration = options.useConfiguration;
    beginning.configurationFile = options.configurationFile;
    beginning.runStartupScripts = options.runStartupScripts;
    beginning.keepsJournal = options.withJournal;
    m_history.Begin(beginning);
}

void HostRuntime::startJournal(const StartOptions& options)
{
    auto* const application =
        dynamic_cast<PelluxApplication*>(SessionMgr::Instance().GetApplication());
    if (application == nullptr)
        return;
    startHistory(options);
    if (!options.withJournal) {
        application->SetRecorder(
            [this](const std::wstring& command) { m_history.Add(command, /*hasFailed=*/false); });
        return;
    }
    JournalStart start;
    start.width = options.width;
    start.height = options.height;
    start.isZUp = options.cameraName == "CameraZUp";
    start.folder = OrvikOs::CurrentDirectory();
    m_journal = std::make_unique<Journal>(
        [show = options.output](const std::wstring& text) { show(text, MessageType::Warning); },
        m_history);
    m_journal->Begin(application->GetStateFolder() + L"/journals", start,
                     SessionMgr::Instance().CurrentSession());
    application->SetRecorder([this](const std::wstring& command) {
        m_journal->Record(command, SplitFormsOf(GetShell()));
    });
}

void HostRuntime::BeginForm(const std::wstring& form)
{
    if (m_journal)
        m_journal->BeginForm();
    m_history.SetRunning(form);
}

void HostRuntime::EndForm()
{
    if (m_journal)
        m_journal->EndForm();
}

void HostRuntime::EndGesture()
{
    if (m_journal)
        m_journal->EndGesture();
}

void HostRuntime::EndJournal()
{
    if (!m_journal)
        return;
    dynamic_cast<PelluxApplication&>(*SessionMgr::Instance().GetApplication()).SetRecorder(nullptr);
    m_journal.reset();
}

// A wait that ended early leaves its event behind, which ends every later wait at once: jobs may
// then still run when their submitter goes on. One that never ends is left to the dispatcher.
void HostRuntime::waitForTheWorker()
{
    const std::uint64_t startMs = OrvikOs::Clock::NowMs();
    while (m_dispatcherUsed && JobDispatcher::Instance().IsBusy() &&
           OrvikOs::Clock::NowMs() - startMs < kMostWaitMs) {
        OrvikOs::ServeWakeSources();
        OrvikOs::YieldThread();
    }
}

int HostRuntime::Stop()
{
    if (!m_started)
        return m_exitCode;
    m_started = false;
    DrainOutput();
    EndJournal();
    m_navigation.Detach();
    waitForTheWorker();
    m_exitCode = SessionMgr::Instance().Terminate();
    // The engine goes by a job; what it was loaded from goes below.
    waitForTheWorker();
    m_tree.reset();
    DrainOutput();
    m_gate->Close();
    if (m_dispatcherUsed) {
        JobDispatcher::Instance().UnRegisterJobStatusObserver(m_jobObserver);
        JobDispatcher::Instance().Terminate();
    }
    ScriptPluginManager::Instance().Terminate();
    PluginManager::Instance().Terminate();
    View3DFactory::Terminate();
    TambVizCore::VizFactories::Instance().Terminate();
    Config::Instance().Terminate();
    AppController::Instance().Terminate();
    pluginMessageShow() = nullptr;
    m_gate.reset();
    return m_exitCode;
}

OrvikCore::Shell& HostRuntime::GetShell()
{
    return *SessionMgr::Instance().GetShell();
}

HostTree* HostRuntime::GetTree()
{
    return m_tree.get();
}

void HostRuntime::DrainOutput()
{
    // What is printed while this shows something waits for the next round.
    while (m_gate && m_gate->Drain() > 0) {
    }
}

} // namespace Pellux
