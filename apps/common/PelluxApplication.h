#ifndef APPSCOMMON_PELLUXAPPLICATION_H
#define APPSCOMMON_PELLUXAPPLICATION_H

#include <OrvikCore/IApplication.h>
#include <OrvikCore/IHostWindow.h>
#include <OrvikCore/IInputProvider.h>

#include <functional>
#include <string>

namespace Pellux {

/// How a host differs from the other.
struct HostKind
{
    std::wstring programName; ///< "pellux" or "pellux-batch".
    bool isBatch = false;     ///< Nobody sits before the program.
};

/// The application object of both hosts.
///
/// Lives in static storage: the session manager ends it in place without releasing its storage.
/// @thread Main thread, except where IApplication says otherwise.
class PelluxApplication : public OrvikCore::IApplication,
                          public OrvikCore::IInputProvider,
                          public OrvikCore::IHostWindowProvider
{
public:
    /// Makes the application in its static storage.
    ///
    /// @return the application; ends with SessionMgr::Terminate, or with ~PelluxApplication where
    ///         the session manager never got it. At most one lives at a time.
    static PelluxApplication* Create(const HostKind& kind);

    ~PelluxApplication() override;

    PelluxApplication(const PelluxApplication&) = delete;
    PelluxApplication& operator=(const PelluxApplication&) = delete;

    std::wstring GetName() const override;
    std::wstring GetVersion() const override;
    std::wstring GetStateFolder() const override;
    void Quit(int exitCode) override;
    void CancelRunningJob() override;
    void ShowNotice(const std::wstring& text, const OrvikCore::MessageType& type) override;
    bool IsBatchMode() const override;
    bool IsPaused() const override;
    void RecordCommand(const std::wstring& command) override;
    void Pause(bool pause) override;
    void ReportEngineTerminationFailure(const std::wstring& details) override;
    int Shutdown() override;
    OrvikCore::ASession* NewSession() override;

    /// Learns of commands that have run.
    using Recorder = std::function<void(const std::wstring& command)>;
    /// Hands commands to @p recorder from now on; empty for nobody.
    void SetRecorder(Recorder recorder);

    OrvikCore::IInputQueue* GetInputQueue() const override;
    OrvikCore::INavigation* GetNavigationChoice() const override;

    /// Keeps what scripts reach input by (not owned; alive as long as the application).
    void SetInput(OrvikCore::IInputQueue& queue, OrvikCore::INavigation& navigation);

    OrvikCore::IHostWindow* GetHostWindow() const override;

    /// Keeps the window (not owned) that scripts reach; null when it goes.
    void SetHostWindow(OrvikCore::IHostWindow* window);

    /// @return true once Quit() was called.
    bool IsQuitRequested() const;

private:
    explicit PelluxApplication(const HostKind& kind);

    HostKind m_kind;
    Recorder m_recorder;                            ///< May be empty.
    OrvikCore::IInputQueue* m_inputQueue = nullptr; ///< Not owned.
    OrvikCore::INavigation* m_navigation = nullptr; ///< Not owned.
    OrvikCore::IHostWindow* m_hostWindow = nullptr; ///< Not owned.
    bool m_paused = false;
    bool m_quitRequested = false;
    int m_exitCode = 0;
};

/// @return the version of the program, such as L"0.1.0".
std::wstring ProgramVersion();

} // namespace Pellux

#endif
