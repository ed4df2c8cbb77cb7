// A plugin that makes views and controller adapters for sessions in tests.
#include "FakeViews.h"

#include <memory>
#include <string_view>
#include <vector>

namespace {

/// Makes "FullView", "PlainView" and "CoreView" (as IView3D), "Adapter" and "BareAdapter" (as
/// AView3DControllerAdapter). The adapters live as long as the factory.
class FakeViewFactory : public LoggingFactory
{
public:
    FakeViewFactory() : LoggingFactory("FakeView") {}

    void* CreateObject(const char* objectName) override
    {
        LoggingFactory::CreateObject(objectName);
        const std::string_view name(objectName);
        if (name == "FullView") {
            return static_cast<TambVizCore::IView3D*>(new FullFakeView);
        }
        if (name == "PlainView") {
            return static_cast<TambVizCore::IView3D*>(new FakeView3D);
        }
        if (name == "CoreView") {
            return static_cast<TambVizCore::IView3D*>(new CoreFakeView);
        }
        if (name == "Adapter") {
            return keep(std::make_unique<FakeControllerAdapter>());
        }
        if (name == "BareAdapter") {
            return keep(std::make_unique<AdapterWithoutController>());
        }
        return nullptr;
    }

private:
    void* keep(std::unique_ptr<OrvikCore::AView3DControllerAdapter> adapter)
    {
        m_adapters.push_back(std::move(adapter));
        return m_adapters.back().get();
    }

    std::vector<std::unique_ptr<OrvikCore::AView3DControllerAdapter>> m_adapters;
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new FakeViewFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "View";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "FakeView";
}
