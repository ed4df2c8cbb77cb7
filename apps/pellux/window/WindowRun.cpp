#include "window/WindowRun.h"

#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "window/Closing.h"
#include "window/MainWindow.h"
#include "window/WindowLayout.h"

#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>
#include <OrvikOs/MsgWait.h>
#include <TambCommandsInfra/CallGate.h>

#include <PelluxApplication.h>

#include <QCoreApplication>
#include <cstdlib>

namespace Pellux {
namespace {

/// How often the gate is served while nothing is waited for, milliseconds.
constexpr int kGateMs = 20;

/// Of a program that was ended while something ran.
constexpr int kForcedExitCode = 1;

} // namespace

WindowRun::WindowRun(const WindowOptions& options)
    : m_options(options), m_source(m_held), m_runner(m_host)
{
    QObject::connect(&m_held, &HeldInput::CancelAsked, &m_runner, &CommandRunner::Cancel);
    QObject::connect(&m_gateTimer, &QTimer::timeout, &m_runner,
                     [this] { Guarded([this] { serve(); }); });
}

WindowRun::~WindowRun()
{
    Stop();
}

bool WindowRun::Start(std::wstring& errorText)
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
    m_result = m_host.Start(options, errorText);
    if (m_result != StartResult::Good)
        return false;
    if (!m_host.GetShell().GetIsStartupLoadOK())
        m_runner.Print(ToQt(L"A start-up script failed:\n" + m_host.GetShell().GetStartupError()),
                       static_cast<int>(OrvikCore::MessageType::Error));
    m_host.DrainOutput();
    m_runner.SetStarting(false);
    m_gateTimer.start(kGateMs);
    return true;
}

void WindowRun::makeWindow()
{
    const GraphicsTrial trial =
        m_options.graphics == GraphicsWish::Image ? GraphicsTrial() : TryGraphics();
    m_window =
        std::make_unique<MainWindow>(m_runner, m_host, ChooseGraphics(m_options.graphics, trial));
    m_closing = std::make_unique<Closing>(m_runner, m_held, *m_window, [this] { endAtOnce(); });
    QObject::connect(m_window.get(), &MainWindow::CloseWanted, &m_runner,
                     [] { QCoreApplication::quit(); });
    m_runner.SetStarting(true);
    m_window->show();
    if (m_options.width > 0 && m_options.height > 0)
        m_window->ResizeView(m_options.width, m_options.height);
}

/// What has to be looked at now and then while nothing is waited for, and beside a job too.
void WindowRun::serve()
{
    OrvikOs::ServeWakeSources();
    if (m_interrupts.WasInterrupted() && m_runner.IsRunning())
        m_runner.Cancel();
    const auto* const application =
        dynamic_cast<PelluxApplication*>(OrvikCore::SessionMgr::Instance().GetApplication());
    const bool isOver =
        m_interrupts.WasInterrupted() || (application != nullptr && application->IsQuitRequested());
    if (isOver && !m_runner.IsRunning())
        QCoreApplication::quit();
}

void WindowRun::endAtOnce()
{
    Guarded([this] { WindowLayout::Save(*m_window); });
    // The journal is with the system after each line; nothing else may run any more.
    TambCommandsInfra::CallGate::CloseCurrent();
    std::_Exit(kForcedExitCode);
}

void WindowRun::RunCommandLine()
{
    const char* command = "(doc:load ";
    for (const QString& file : m_options.files) {
        m_runner.Run(QLatin1String(command) + Quoted(file) + QLatin1Char(')'),
                     QStringLiteral("command line"));
        command = "(doc:import ";
    }
    for (const QString& script : m_options.scripts)
        m_runner.RunFile(script);
}

int WindowRun::Stop()
{
    m_gateTimer.stop();
    m_held.Clear();
    m_closing.reset();
    m_window.reset();
    const int code = m_host.Stop();
    return m_interrupts.WasInterrupted() ? OrvikOs::InterruptWatch::kExitCode : code;
}

} // namespace Pellux
