#include "PelluxApplication.h"

#include "PelluxSession.h"

#include <OrvikCore/Dbg.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/Environment.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

namespace Pellux {
namespace {

alignas(PelluxApplication) std::byte applicationStorage[sizeof(PelluxApplication)];

} // namespace

std::wstring ProgramVersion()
{
    return TambVizCore::Utils::StringToWstring(PELLUX_VERSION);
}

PelluxApplication* PelluxApplication::Create(const HostKind& kind)
{
    return new (applicationStorage) PelluxApplication(kind);
}

PelluxApplication::PelluxApplication(const HostKind& kind) : m_kind(kind) {}

PelluxApplication::~PelluxApplication() = default;

std::wstring PelluxApplication::GetName() const
{
    return m_kind.programName;
}

std::wstring PelluxApplication::GetVersion() const
{
    return ProgramVersion();
}

std::wstring PelluxApplication::GetStateFolder() const
{
    return OrvikOs::StateFolder(L"pellux");
}

void PelluxApplication::Quit(int exitCode)
{
    m_quitRequested = true;
    m_exitCode = std::max(m_exitCode, exitCode);
}

void PelluxApplication::CancelRunningJob()
{
    TambCommandsInfra::CancelToken::Instance().CancelCurrent();
}

void PelluxApplication::ShowNotice(const std::wstring& text, const OrvikCore::MessageType& type)
{
    OrvikCore::SessionMgr::Instance().CurrentSession().PrintMessage(text, type);
}

bool PelluxApplication::IsBatchMode() const
{
    return m_kind.isBatch;
}

bool PelluxApplication::IsPaused() const
{
    return m_paused;
}

void PelluxApplication::RecordCommand(const std::wstring& command)
{
    if (m_recorder)
        m_recorder(command);
}

void PelluxApplication::SetRecorder(Recorder recorder)
{
    m_recorder = std::move(recorder);
}

void PelluxApplication::Pause(bool pause)
{
    m_paused = pause;
}

void PelluxApplication::ReportEngineTerminationFailure(const std::wstring& details)
{
    OrvikCore::dbg << "-- script engine : " << TambVizCore::Utils::WstringToString(details)
                   << std::endl;
    m_exitCode = std::max(m_exitCode, 1);
}

int PelluxApplication::Shutdown()
{
    return m_exitCode;
}

OrvikCore::ASession* PelluxApplication::NewSession()
{
    return new PelluxSession;
}

OrvikCore::IInputQueue* PelluxApplication::GetInputQueue() const
{
    return m_inputQueue;
}

OrvikCore::INavigation* PelluxApplication::GetNavigationChoice() const
{
    return m_navigation;
}

void PelluxApplication::SetInput(OrvikCore::IInputQueue& queue, OrvikCore::INavigation& navigation)
{
    m_inputQueue = &queue;
    m_navigation = &navigation;
}

OrvikCore::IHostWindow* PelluxApplication::GetHostWindow() const
{
    return m_hostWindow;
}

void PelluxApplication::SetHostWindow(OrvikCore::IHostWindow* window)
{
    m_hostWindow = window;
}

bool PelluxApplication::IsQuitRequested() const
{
    return m_quitRequested;
}

} // namespace Pellux
