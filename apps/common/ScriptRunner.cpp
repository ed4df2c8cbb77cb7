#include "ScriptRunner.h"

#include "InputQueue.h"

#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/Shell.h>
#include <OrvikOs/Directory.h>
#include <TambVizCore/Utils.h>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <utility>
#include <vector>

namespace Pellux {

using OrvikCore::ScriptForm;

namespace {

/// A form that fails has nothing played of what it has asked for. While events are played the ones
/// behind them stay: the playing decides.
void forgetInput()
{
    InputQueue* const input = CurrentInputQueue();
    if (input != nullptr && !input->IsPlaying())
        input->Clear();
}

std::wstring readAll(std::istream& stream)
{
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return TambVizCore::Utils::StringToWstring(bytes.str());
}

} // namespace

bool ReadScript(const std::wstring& file, std::wstring& text)
{
    if (file == L"-") {
        text = readAll(std::cin);
        return true;
    }
    if (TambVizCore::Utils::GetFileContents(file, text))
        return true;
    // What has no size cannot be mapped.
    if (OrvikOs::IsDirectory(file))
        return false;
    std::ifstream stream(std::filesystem::path(TambVizCore::Utils::WstringToString(file)),
                         std::ios::binary);
    if (stream)
        text = readAll(stream);
    return stream.is_open();
}

ScriptRunner::ScriptRunner(OrvikCore::Shell& shell, BeforeForm beforeForm, AfterForm afterForm)
    : m_shell(shell), m_beforeForm(std::move(beforeForm)), m_afterForm(std::move(afterForm))
{
}

bool ScriptRunner::RunText(const std::wstring& text, const std::wstring& source)
{
    OrvikCore::AScriptEngine* const engine = m_shell.GetScriptEngine();
    if (engine == nullptr)
        return false;
    std::vector<ScriptForm> forms;
    std::wstring reason;
    // A form that is cut short is run all the same: the engine then reports its place.
    engine->SplitForms(text, forms, reason);
    for (const ScriptForm& form : forms) {
        if (m_beforeForm && !m_beforeForm(form.text))
            return false;
        engine->SetNextSource(source, form.line, form.column);
        std::wstring output;
        if (!m_shell.RunScript(form.text, output)) {
            forgetInput();
            return false;
        }
        if (m_afterForm && !m_afterForm())
            return false;
    }
    return true;
}

bool ScriptRunner::RunFile(const std::wstring& file, std::wstring& errorText)
{
    std::wstring text;
    if (!ReadScript(file, text)) {
        errorText = L"Failed to read script file : " + file;
        return false;
    }
    return RunText(text, file);
}

} // namespace Pellux
