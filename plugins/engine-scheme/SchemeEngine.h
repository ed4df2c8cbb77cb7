#ifndef ENGINESCHEME_SCHEMEENGINE_H
#define ENGINESCHEME_SCHEMEENGINE_H

#include "OutputBuffer.h"

#include <OrvikCore/AScriptEngine.h>
#include <OrvikOs/CriticalSection.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace OrvikScheme {

/// The script engine of the language "scheme": GNU Guile 3.
///
/// Lives on the worker; the main thread never enters Guile, because every garbage collection would
/// stop it from then on. Guile itself cannot be unloaded: what it defines stays for the life of
/// the process, and a second engine finds it there.
///
/// Neither C++ exceptions nor faults cross interpreter frames: below a primitive they are caught
/// and raised as Scheme errors, inside the interpreter a fault becomes a Scheme error through the
/// fault hook. Floating-point traps are off while the interpreter computes and on, as the job wants
/// it, inside native commands.
class SchemeEngine : public OrvikCore::AScriptEngine
{
public:
    /// Stack that one run may use, in megabytes; deeper recursion is an error.
    static constexpr int kStackMegabytes = 128;

    SchemeEngine();
    ~SchemeEngine() override;

    SchemeEngine(const SchemeEngine&) = delete;
    SchemeEngine& operator=(const SchemeEngine&) = delete;

    bool LoadScriptText(const std::wstring& text, const std::wstring& source) override;
    std::wstring GetLanguageName() const override;

    /// Starts Guile, hands TambCommandsInfra::CommandTable::Instance() to @p callback, and binds
    /// every command that is registered then.
    ///
    /// @throws std::runtime_error "The Scheme engine cannot start: " and the reason.
    void Initialize(InitializeCallback callback) override;

    std::wstring GetName() const override;
    std::wstring GetVersion() const override;
    std::wstring GetScriptExtension() const override;
    bool SplitForms(const std::wstring& text, std::vector<OrvikCore::ScriptForm>& forms,
                    std::wstring& errorText) const override;
    void SetNextSource(const std::wstring& source, int line, int column) override;

    /// @throws std::runtime_error "The script failed." when it ended by an error or was cancelled;
    ///         the report is in GetOutput(): "<source>:<line>:<column>: <message>", then the calls
    ///         that led there.
    void Execute() override;

    void Interrupt() override;
    std::wstring GetOutput() const override;
    void SetStartupLog(const std::wstring& log) override;
    std::wstring GetStartupLog() const override;

private:
    struct Place
    {
        std::wstring source = L"console"; ///< Named in messages.
        int line = 1;
        int column = 1;
    };

    void runLoadedText();

    OutputBuffer& m_output;                  ///< Never destroyed: Guile's ports refer to it.
    mutable OrvikOs::CriticalSection m_lock; ///< Guards the next place and the start-up log.
    Place m_nextPlace;                       ///< Set on the main thread for the next text.
    std::wstring m_startupLog;
    std::wstring m_text;                ///< Taken by LoadScriptText. Worker thread.
    Place m_place;                      ///< Of that text. Worker thread.
    std::atomic<bool> m_started{false}; ///< Written on the worker, read by Interrupt.
    int m_interrupter = 0;              ///< Number at the cancel token; 0 for none.
};

} // namespace OrvikScheme

#endif
