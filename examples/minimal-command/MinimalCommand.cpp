// A command plugin: (box:volume [margin]) measures the box around the model.

#include <OrvikCore/AScriptModulePluginFactory.h>
#include <OrvikCore/TambServiceSetCollectionPelluxApplication.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambDocumentServices.h>

namespace infra = TambCommandsInfra;

namespace {

/// Runs on the worker. What is thrown here, or faults here, becomes an error of the script.
infra::Value measure(const infra::Arguments& arguments)
{
    auto& services = *TambServiceSetCollectionPelluxApplication::GetServiceSetCollection();
    double low[3];
    double high[3];
    if (!services.GetDocumentServices()->GetBoundingBox(low[0], low[1], low[2], high[0], high[1],
                                                        high[2]))
        throw infra::CommandError("box:volume: nothing is loaded");
    double volume = 1.0;
    for (int axis = 0; axis < 3; ++axis)
        volume *= high[axis] - low[axis] + 2.0 * arguments["margin"].AsReal();
    return infra::Value(volume);
}

/// The table checks the arguments, makes the messages, and feeds help and completion from this.
infra::Command volumeCommand()
{
    infra::Parameter margin;
    margin.name = "margin";
    margin.type = infra::ValueType::Real;
    margin.help = "room left on every side of the model";
    margin.unit = "mm";
    margin.presence = infra::Presence::Optional;
    margin.defaultValue = infra::Value(0.0);
    margin.minimum = 0.0;

    infra::Command command;
    command.name = "box:volume";
    command.parameters = {margin};
    command.result = infra::ValueType::Real;
    command.resultHelp = "the volume in mm3";
    command.summary = "Measures the box around everything that is loaded.";
    command.help = "Its sides run along the axes; parcels are charged by it.";
    command.example = "(box:volume 2.5)";
    command.handler = measure;
    return command;
}

class MinimalCommands final : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

protected:
    void describe() override { setName("MinimalCommand"); }

    bool doInitialize(void* context) override
    {
        static_cast<infra::CommandTable*>(context)->Register(volumeCommand());
        m_initialized = true;
        return true;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new MinimalCommands;
}
extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "MinimalCommand";
}
