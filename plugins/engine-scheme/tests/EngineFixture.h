#ifndef ENGINESCHEME_TESTS_ENGINEFIXTURE_H
#define ENGINESCHEME_TESTS_ENGINEFIXTURE_H

#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/ScriptPluginManager.h>
#include <OrvikCore/SignalHandlingContext.h>
#include <OrvikOs/Utf8.h>
#include <TambCommandsInfra/CommandTable.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

/// The engine of the plugin with a few commands; what the worker does is done on the test's thread.
class EngineFixture : public testing::Test
{
protected:
    EngineFixture() : m_engine(load())
    {
        add("test:echo", [](const TambCommandsInfra::Arguments& a) { return a["value"]; });
        m_engine->Initialize(nullptr);
    }

    static std::unique_ptr<OrvikCore::AScriptEngine> load()
    {
        const std::wstring path = OrvikOs::Utf8ToWide(ORVIK_SCHEME_ENGINE);
        return std::unique_ptr<OrvikCore::AScriptEngine>(
            OrvikCore::ScriptPluginManager::Instance().LoadScriptEngine(path.c_str()));
    }

    /// Registers a command that takes one value; see bind().
    static void add(const std::string& name, TambCommandsInfra::CommandHandler handler)
    {
        TambCommandsInfra::Command command;
        command.name = name;
        TambCommandsInfra::Parameter value;
        value.name = "value";
        value.help = "any value";
        value.presence = TambCommandsInfra::Presence::Optional;
        command.parameters = {value};
        command.result = TambCommandsInfra::ValueType::Any;
        command.resultHelp = "a value";
        command.summary = "Does what a test needs.";
        command.example = "(" + name + ")";
        command.handler = std::move(handler);
        TambCommandsInfra::CommandTable::Instance().Register(command);
    }

    /// Binds the commands that were added since.
    void bind() { m_engine->Initialize(nullptr); }

    /// @return what the text wrote, with "ERROR " before it when it ended by an error.
    std::string run(const std::wstring& text)
    {
        const OrvikCore::SignalHandlingContext context(/*floatingPointControl=*/true);
        m_engine->LoadScriptText(text, L"");
        try {
            m_engine->Execute();
        } catch (const std::exception&) {
            return "ERROR " + OrvikOs::WideToUtf8(m_engine->GetOutput());
        }
        return OrvikOs::WideToUtf8(m_engine->GetOutput());
    }

    std::unique_ptr<OrvikCore::AScriptEngine> m_engine;
};

#endif
