#ifndef TESTS_FAKEAPPLICATION_H
#define TESTS_FAKEAPPLICATION_H

#include "OrvikCore/IApplication.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// An application that notes its calls in a log that outlives it.
class FakeApplication : public OrvikCore::IApplication
{
public:
    explicit FakeApplication(std::vector<std::string>& log) : m_log(&log) {}
    ~FakeApplication() override { m_log->push_back("~IApplication"); }

    std::wstring GetName() const override { return L"Fake"; }
    std::wstring GetVersion() const override { return L"1.0"; }
    std::wstring GetStateFolder() const override { return {}; }
    void Quit(int) override {}
    void CancelRunningJob() override {}
    void ShowNotice(const std::wstring&, const OrvikCore::MessageType&) override {}
    bool IsBatchMode() const override { return true; }
    bool IsPaused() const override { return false; }
    void RecordCommand(const std::wstring&) override {}
    void Pause(bool) override {}
    void ReportEngineTerminationFailure(const std::wstring& details) override
    {
        m_log->push_back("ReportEngineTerminationFailure");
        m_details = details;
    }
    int Shutdown() override
    {
        m_log->push_back("Shutdown");
        return m_exitCode;
    }
    OrvikCore::ASession* NewSession() override
    {
        m_log->push_back("NewSession");
        return m_newSession ? m_newSession() : nullptr;
    }

    int m_exitCode = 0;
    std::function<OrvikCore::ASession*()> m_newSession;
    std::wstring m_details;

private:
    std::vector<std::string>* m_log;
};

#endif
