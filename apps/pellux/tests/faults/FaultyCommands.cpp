// A plugin with one command, which goes wrong as it is told.

#include "GoWrong.h"

#include <OrvikCore/AScriptModulePluginFactory.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;

Command goWrongCommand()
{
    Command command;
    command.name = "test:go-wrong";
    TambCommandsInfra::Parameter how;
    how.name = "how";
    how.type = TambCommandsInfra::ValueType::String;
    how.help = "in which way";
    command.parameters = {how};
    command.summary = "Goes wrong.";
    command.example = "(test:go-wrong \"null\")";
    command.handler = [](const Arguments& arguments) {
        GoWrong(TambVizCore::Utils::WstringToString(arguments["how"].AsString()));
        return Value();
    };
    return command;
}

class FaultyCommandsFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

protected:
    bool doInitialize(void* context) override
    {
        static_cast<CommandTable*>(context)->Register(goWrongCommand());
        m_initialized = true;
        return true;
    }

    void describe() override
    {
        setName("FaultyCommands");
        setDescription(L"A command that goes wrong");
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new FaultyCommandsFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "FaultyCommands";
}
