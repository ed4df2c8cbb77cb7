#include "runtime/CommandRunner.h"

#include "runtime/QtText.h"

#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MessageType.h>
#include <OrvikOs/MsgWait.h>
#include <TambCommandsInfra/CancelToken.h>

#include <HostRuntime.h>
#include <ScriptRunner.h>

#include <utility>

namespace Pellux {
namespace {

/// How often what runs is asked to end, until it has, milliseconds. A script may shrug one off.
constexpr int kCancelAgainMs = 20;

/// A job has ended for whoever waited for it a moment before the worker is idle.
void waitForTheWorker()
{
    while (OrvikCore::JobDispatcher::Instance().IsBusy())
        OrvikOs::ServeWakeSources();
}

} // namespace

CommandRunner::Scope::Scope(CommandRunner& runner) : m_runner(runner)
{
    m_runner.m_isRunning = true;
    Q_EMIT m_runner.AboutToRun();
    waitForTheWorker();
    m_runner.m_isCancelled = false;
    Q_EMIT m_runner.BusyChanged(true);
}

CommandRunner::Scope::~Scope()
{
    waitForTheWorker();
    m_runner.m_cancelAgain.stop();
    m_runner.m_host.DrainOutput();
    m_runner.m_isRunning = false;
    Q_EMIT m_runner.BusyChanged(false);
    Q_EMIT m_runner.StateChanged();
}

CommandRunner::Quiet::Quiet(CommandRunner& runner)
    : m_runner(runner), m_wasRunning(std::exchange(runner.m_isRunning, true))
{
    if (m_wasRunning)
        return;
    Q_EMIT m_runner.AboutToRun();
    waitForTheWorker();
}

CommandRunner::Quiet::~Quiet()
{
    if (m_wasRunning)
        return;
    waitForTheWorker();
    m_runner.m_cancelAgain.stop();
    m_runner.m_isRunning = false;
}

CommandRunner::CommandRunner(HostRuntime& host) : m_host(host)
{
    m_cancelAgain.setInterval(kCancelAgainMs);
    connect(&m_cancelAgain, &QTimer::timeout, this,
            [] { TambCommandsInfra::CancelToken::Instance().CancelCurrent(); });
}

CommandRunner::~CommandRunner() = default;

void CommandRunner::SetStarting(bool isStarting)
{
    m_isRunning = isStarting;
    m_isCancelled = false;
    Q_EMIT BusyChanged(isStarting);
    if (!isStarting)
        Q_EMIT StateChanged();
}

bool CommandRunner::Run(const QString& text, const QString& source)
{
    if (m_isRunning)
        return false;
    const Scope scope(*this);
    return runForms(text, source);
}

bool CommandRunner::RunFile(const QString& path)
{
    std::wstring text;
    if (ReadScript(FromQt(path), text))
        return Run(ToQt(text), path);
    Print(QStringLiteral("Failed to read script file : ") + path,
          static_cast<int>(OrvikCore::MessageType::Error));
    return false;
}

bool CommandRunner::runForms(const QString& text, const QString& source)
{
    ScriptRunner runner(
        m_host.GetShell(),
        [this](const std::wstring& form) {
            m_host.BeginForm(form);
            m_host.DrainOutput();
            if (m_isCancelled)
                return false;
            Q_EMIT Echoed(ToQt(form));
            return true;
        },
        [this] { return playInput(); });
    const bool good = runner.RunText(FromQt(text), FromQt(source));
    m_host.EndForm();
    return good;
}

bool CommandRunner::playInput()
{
    return m_host.GetInput().Play({[this] { return !m_isCancelled; },
                                   [this](const std::wstring& script, const std::wstring& source) {
                                       return runForms(ToQt(script), ToQt(source));
                                   }});
}

void CommandRunner::EndGesture()
{
    if (!m_isRunning)
        m_host.EndGesture();
}

void CommandRunner::PlayKey(const OrvikCore::KeyEventArgs& key)
{
    RunOther([this, &key] {
        m_host.GetInput().PostKey(key);
        playInput();
    });
}

bool CommandRunner::IsBusy() const
{
    return m_isRunning || OrvikCore::JobDispatcher::Instance().IsBusy();
}

void CommandRunner::Cancel()
{
    if (!m_isRunning)
        return;
    m_isCancelled = true;
    m_cancelAgain.start();
    TambCommandsInfra::CancelToken::Instance().CancelCurrent();
}

void CommandRunner::Print(const QString& text, int messageType)
{
    Q_EMIT Printed(text, messageType);
}

} // namespace Pellux
