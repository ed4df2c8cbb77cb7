// A script-engine library for tests: writes each script that it runs to the debugger output as
// "[engine] <text>". A text that contains "fail" fails. ECHO_ENGINE_LANGUAGE names its language.
#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/AScriptEngineFactory.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Export.h>
#include <TambVizCore/Utils.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

class EchoEngine : public OrvikCore::AScriptEngine
{
public:
    bool LoadScriptText(const std::wstring& text, const std::wstring&) override
    {
        m_text = text;
        return true;
    }
    std::wstring GetLanguageName() const override { return ECHO_ENGINE_LANGUAGE; }
    void Initialize(InitializeCallback callback) override { callback(nullptr); }
    std::wstring GetName() const override { return L"Echo"; }
    std::wstring GetVersion() const override { return L"1"; }
    std::wstring GetScriptExtension() const override { return L"echo"; }
    bool SplitForms(const std::wstring&, std::vector<OrvikCore::ScriptForm>&,
                    std::wstring&) const override
    {
        return true;
    }
    void SetNextSource(const std::wstring&, int, int) override {}
    void Execute() override
    {
        const std::string line = "[engine] " + TambVizCore::Utils::WstringToString(m_text) + "\n";
        OrvikOs::WriteDebug(line.c_str());
        if (m_text.find(L"fail") != std::wstring::npos) {
            throw std::runtime_error("script failed");
        }
    }
    void Interrupt() override {}
    std::wstring GetOutput() const override { return {}; }
    void SetStartupLog(const std::wstring&) override {}
    std::wstring GetStartupLog() const override { return {}; }

private:
    std::wstring m_text;
};

class EchoEngineFactory : public OrvikCore::AScriptEngineFactory
{
public:
    OrvikCore::AScriptEngine* CreateEngine() override { return new EchoEngine; }
};

} // namespace

extern "C" ORVIK_EXPORT OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new EchoEngineFactory;
}
