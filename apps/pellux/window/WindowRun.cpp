#include "window/WindowRun.h"

#include "crash/CrashNotice.h"
#include "preferences/Preferences.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "window/Closing.h"
#include "window/MainWindow.h"
#include "window/StatusLine.h"
#include "window/WindowLayout.h"

#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>
#include <OrvikCore/SignalHandlingContext.h>
#include <OrvikOs/FatalReport.h>
#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/ICommandJournal.h>

#include <Folders.h>
#include <PelluxApplication.h>

#include <QCoreApplication>
#include <cstdlib>

namespace Pellux {
namespace {

/// Of a program that was ended while something ran.
constexpr int kForcedExitCode = 1;

/// Windows are not closed one by one before, as quit() does: a floating panel would be remembered
/// as one that was put away.
void endEventLoop()
{
    QCoreApplication::exit();
}

} // namespace

WindowRun::WindowRun(const WindowOptions& options)
    : m_options(options),
      m_endRequests([this] { endForSystem(); }),
      m_source(m_held),
      m_runner(m_host)
{
    QObject::connect(&m_held, &HeldInput::CancelAsked, &m_runner, &CommandRunner::Cancel);
    // Not from within what has just ended.
    QObject::connect(
        &m_runner, &CommandRunner::BusyChanged, &m_runner,
        [this] { Guarded([this] { endIfAsked(); }); }, Qt::QueuedConnection);
}

WindowRun::~WindowRun()
{
    Stop();
}

StartResult WindowRun::Start(std::wstring& errorText)
{
    StartOptions options;
    options.kind = {L"pellux", /*isBatch=*/false};
    options.useConfiguration = m_options.useConfiguration;
    options.configurationFile = m_options.configurationFile;
    options.runStartupScripts = m_options.runStartupScripts;
    options.cameraName = m_options.cameraName;
    options.animate = true;
    options.withTree = true;
    options.withJournal = m_options.withJournal;
    options.jobObserver = &m_interrupts;
    options.output = [this](const std::wstring& text, OrvikCore::MessageType type) {
        m_runner.Print(ToQt(text), static_cast<int>(type));
    };
    options.pluginMessage = [this](const std::wstring& text, OrvikCore::MessageType type) {
        if (m_options.verbose || type == OrvikCore::MessageType::Error)
            m_runner.Print(ToQt(text), static_cast<int>(type));
    };
    options.sessionReady = [this] { makeWindow(); };
    const StartResult result = m_host.Start(options, errorText);
    if (result != StartResult::Good)
        return result;
    markRun();
    if (!m_host.GetShell().GetIsStartupLoadOK())
        m_runner.Print(ToQt(L"A start-up script failed:\n" + m_host.GetShell().GetStartupError()),
                       static_cast<int>(OrvikCore::MessageType::Error));
    m_host.DrainOutput();
    m_sleeper = std::make_unique<QtSleeper>(m_held);
    m_runner.SetStarting(false);
    watchWakeSources();
    if (m_options.useConfiguration)
        m_window->UserPreferences().Read();
    return result;
}

void WindowRun::makeWindow()
{
    const GraphicsTrial trial =
        m_options.graphics == GraphicsWish::Image ? GraphicsTrial() : TryGraphics();
    m_window =
        std::make_unique<MainWindow>(m_runner, m_host, ChooseGraphics(m_options.graphics, trial));
    m_closing = std::make_unique<Closing>(m_runner, m_held, *m_window, [this] { endAtOnce(); });
    QObject::connect(m_closing.get(), &Closing::Waits, &m_window->Status(),
                     &StatusLine::ShowClosing);
    QObject::connect(m_window.get(), &MainWindow::CloseWanted, &m_runner, &endEventLoop);
    m_window->Crashes().ShowRuns(FindCrashedRuns(Folders().GetStateFolder() + L"/running"));
    m_runner.SetStarting(true);
    m_window->show();
    if (m_options.width > 0 && m_options.height > 0)
        m_window->ResizeView(m_options.width, m_options.height);
}

/// What reaches the main thread from elsewhere (the gate's calls, Ctrl-C) is served by its waits;
/// between them Qt's own loop waits for the same events, so that an idle window sleeps.
void WindowRun::watchWakeSources()
{
    for (const std::intptr_t handle : OrvikOs::WakeHandles()) {
        m_wakes.push_back(std::make_unique<QSocketNotifier>(handle, QSocketNotifier::Read));
        QObject::connect(m_wakes.back().get(), &QSocketNotifier::activated, &m_runner,
                         [this] { Guarded([this] { serve(); }); });
    }
}

void WindowRun::serve()
{
    OrvikOs::ServeWakeSources();
    if (m_interrupts.WasInterrupted() && m_runner.IsRunning())
        m_runner.Cancel();
    endIfAsked();
}

void WindowRun::endIfAsked()
{
    const auto* const application =
        dynamic_cast<PelluxApplication*>(OrvikCore::SessionMgr::Instance().GetApplication());
    const bool isOver = m_isEnding || m_interrupts.WasInterrupted() ||
                        (application != nullptr && application->IsQuitRequested());
    if (isOver && !m_runner.IsRunning())
        endEventLoop();
}

/// A session that ends does not wait for long: what runs is cancelled, and the window closes.
void WindowRun::endForSystem()
{
    m_isEnding = true;
    m_runner.Cancel();
    endIfAsked();
}

void WindowRun::endAtOnce()
{
    Guarded([this] { WindowLayout::Save(*m_window); });
    if (m_mark)
        m_mark->Remove();
    // The journal is with the system after each line; nothing else may run any more.
    TambCommandsInfra::CallGate::CloseCurrent();
    std::_Exit(kForcedExitCode);
}

void WindowRun::RunCommandLine()
{
    const QString commandLine = QStringLiteral("command line");
    for (const Step& step : m_options.steps) {
        const QString text = ToQt(step.text);
        bool good = false;
        if (step.kind == Step::Kind::Script)
            good = m_runner.RunFile(text);
        else if (step.kind == Step::Kind::Eval)
            good = m_runner.Run(text, QStringLiteral("--eval"));
        else
            good = m_runner.Run(ToQt(CommandOfStep(step)), commandLine);
        if (!good)
            return;
    }
}

/// Says that this run goes on, and where its traces are should it end badly.
void WindowRun::markRun()
{
    const std::wstring folder = Folders().GetStateFolder();
    if (folder.empty())
        return;
    // As long as the process: the crash handler reads it at any time.
    static const std::string* const report = new std::string(
        OrvikOs::WideToUtf8(folder + L"/crash-" + std::to_wstring(OrvikOs::CurrentProcessId())));
    OrvikCore::SignalHandlingContext::SetCrashFilePath(report->c_str());
    OrvikOs::SetFatalReportPath(report->c_str());
    const TambCommandsInfra::ICommandJournal* const journal =
        TambCommandsInfra::GetCommandJournal();
    std::wstring reason;
    m_mark.emplace(folder + L"/running");
    if (!m_mark->Write(journal == nullptr ? std::wstring() : journal->GetPath(),
                       OrvikOs::Utf8ToWide(*report), reason))
        m_runner.Print(QStringLiteral("A crash of this run would not be noticed: ") + ToQt(reason),
                       static_cast<int>(OrvikCore::MessageType::Warning));
}

int WindowRun::Stop()
{
    m_wakes.clear();
    m_held.Clear();
    m_closing.reset();
    m_window.reset();
    const int code = m_host.Stop();
    m_mark.reset();
    return m_interrupts.WasInterrupted() ? OrvikOs::InterruptWatch::kExitCode : code;
}

} // namespace Pellux
