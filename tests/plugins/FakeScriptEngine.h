#ifndef TESTS_FAKESCRIPTENGINE_H
#define TESTS_FAKESCRIPTENGINE_H

#include "LoggingFactory.h"

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/AScriptEngineFactory.h"

#include <OrvikOs/Thread.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// An engine that remembers what it was asked to do and on which thread; a text with "fail" in it
/// fails. Its output is "ran: <text>" or "failed: <text>".
class FakeScriptEngine : public OrvikCore::AScriptEngine
{
public:
    FakeScriptEngine() { note("created"); }
    ~FakeScriptEngine() override
    {
        note("deleted");
        LogCall("FakeScriptEngine", m_threadsAgree ? "deleted" : "deleted on another thread");
    }

    bool LoadScriptText(const std::wstring& text, const std::wstring& source) override
    {
        note("LoadScriptText");
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_texts.push_back(text);
        m_sources.push_back(source);
        return true;
    }
    std::wstring GetLanguageName() const override { return L"fake"; }
    void Initialize(InitializeCallback callback) override
    {
        note("Initialize");
        callback(&m_context);
    }
    std::wstring GetName() const override { return L"Fake"; }
    std::wstring GetVersion() const override { return L"1.0"; }
    std::wstring GetScriptExtension() const override { return m_extension; }
    bool SplitForms(const std::wstring&, std::vector<OrvikCore::ScriptForm>& forms,
                    std::wstring&) const override
    {
        forms = m_forms;
        return m_isWhole;
    }
    void SetNextSource(const std::wstring& source, int line, int column) override
    {
        m_nextSources.push_back(source + L":" + std::to_wstring(line) + L":" +
                                std::to_wstring(column));
    }
    void Execute() override
    {
        note("Execute");
        const std::wstring text = m_texts.back();
        const bool isFailing = text.find(L"fail") != std::wstring::npos;
        setOutput((isFailing ? L"failed: " : L"ran: ") + text);
        if (m_onExecute) {
            m_onExecute();
        }
        if (isFailing) {
            throw std::runtime_error("script failed");
        }
    }
    void Interrupt() override {}
    std::wstring GetOutput() const override
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_output;
    }
    void SetStartupLog(const std::wstring& log) override { m_startupLog = log; }
    std::wstring GetStartupLog() const override { return m_startupLog; }

    /// @return the operations of the worker, in order.
    std::vector<std::string> Calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }
    std::vector<std::wstring> Texts() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_texts;
    }

    int m_context = 0; ///< Its address is what Initialize hands to the callback.
    std::wstring m_extension = L"fake";
    std::wstring m_startupLog;
    std::vector<std::wstring> m_sources;
    std::vector<std::wstring> m_nextSources;
    std::vector<OrvikCore::ScriptForm> m_forms; ///< What every text is split into.
    bool m_isWhole = true;                      ///< Whether texts are not cut short.
    std::function<void()> m_onExecute;          ///< Run on the worker, inside Execute.
    std::atomic<bool> m_threadsAgree{true}; ///< All operations of the worker came on one thread.
    std::uint32_t m_threadId = OrvikOs::CurrentThreadId(); ///< The thread of construction.

private:
    void note(const char* call)
    {
        if (OrvikOs::CurrentThreadId() != m_threadId) {
            m_threadsAgree = false;
        }
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.push_back(call);
    }
    void setOutput(std::wstring output)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_output = std::move(output);
    }

    mutable std::mutex m_mutex; ///< Guards what follows.
    std::vector<std::string> m_calls;
    std::vector<std::wstring> m_texts;
    std::wstring m_output;
};

#endif
