#include "window/WindowRun.h"

#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "window/MainWindow.h"

#include <OrvikCore/MessageType.h>
#include <OrvikOs/MsgWait.h>

#include <QCoreApplication>

namespace Pellux {
namespace {

/// How often the gate is served while nothing is waited for, milliseconds.
constexpr int kGateMs = 20;

} // namespace

WindowRun::WindowRun(const WindowOptions& options)
    : m_options(options), m_source(m_held), m_runner(m_host)
{
    QObject::connect(&m_held, &HeldInput::CancelAsked, &m_runner, &CommandRunner::Cancel);
    QObject::connect(&m_gateTimer, &QTimer::timeout, &m_runner,
                     [] { Guarded([] { OrvikOs::ServeWakeSources(); }); });
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
    const auto show = [this](const std::wstring& text, OrvikCore::MessageType type) {
        m_runner.Print(ToQt(text), static_cast<int>(type));
    };
    options.output = show;
    options.pluginMessage = show;
    options.sessionReady = [this] {
        m_window = std::make_unique<MainWindow>(m_runner, m_host);
        QObject::connect(m_window.get(), &MainWindow::CloseWanted, &m_runner,
                         [] { QCoreApplication::quit(); });
        m_window->show();
    };
    if (m_host.Start(options, errorText) != StartResult::Good)
        return false;
    m_host.DrainOutput();
    m_gateTimer.start(kGateMs);
    return true;
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
    m_window.reset();
    return m_host.Stop();
}

} // namespace Pellux
