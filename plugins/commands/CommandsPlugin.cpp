#include "Commands.h"

#include <OrvikCore/AScriptModulePluginFactory.h>
#include <TambCommandsInfra/CommandTable.h>

namespace OrvikCommands {
namespace {

/// Registers the commands with the table that the script engine hands over.
class CommandsPluginFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

protected:
    bool doInitialize(void* context) override
    {
        RegisterAllCommands(*static_cast<TambCommandsInfra::CommandTable*>(context));
        m_initialized = true;
        return true;
    }

    void describe() override
    {
        setName("OrvikCommands");
        setDescription(L"The commands of the script language");
    }
};

} // namespace
} // namespace OrvikCommands

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new OrvikCommands::CommandsPluginFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "OrvikCommands";
}
