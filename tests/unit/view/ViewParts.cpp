// A plugin for the tests of the view factory: views, adapters, scene builders and controller
// adapters, and objects that cannot be made. Every request is written to the debugger output as
// "[ViewParts] CreateObject <name>".
#include "../../plugins/FakeViews.h"

#include <TambVizCore/AView3DAdapterFactory.h>
#include <TambVizCore/SceneBuilderFactory.h>

#include <memory>
#include <stdexcept>
#include <string_view>

namespace {

class NamedSceneBuilderFactory : public TambVizCore::SceneBuilderFactory
{
public:
    std::unique_ptr<TambVizCore::Node> CreateSceneRoot() const override
    {
        return std::make_unique<TambVizCore::Node>(1, "from the plugin");
    }
};

class FakeAdapterFactory : public TambVizCore::AView3DAdapterFactory
{
public:
    TambVizCore::AView3DAdapter* CreateView3DAdapter() override
    {
        LogCall("ViewParts", "CreateView3DAdapter");
        return &m_adapter;
    }

private:
    class LoggingAdapter : public FakeView3DAdapter
    {
    public:
        void AttachView(TambVizCore::IView3D* view) override
        {
            LogCall("ViewParts", "AttachView " + view->GetName());
            FakeView3DAdapter::AttachView(view);
        }
        TambVizCore::RenderingOptions* GetRenderingOptions() override
        {
            LogCall("ViewParts", "GetRenderingOptions");
            return FakeView3DAdapter::GetRenderingOptions();
        }
    };

    LoggingAdapter m_adapter;
};

class ViewPartsFactory : public LoggingFactory
{
public:
    ViewPartsFactory() : LoggingFactory("ViewParts") {}

    void* CreateObject(const char* objectName) override
    {
        LoggingFactory::CreateObject(objectName);
        const std::string_view name(objectName);
        if (name == "View3dOpenGlSG" || name == "OtherView") {
            return static_cast<TambVizCore::IView3D*>(new CoreFakeView);
        }
        if (name == "PlainView") {
            return static_cast<TambVizCore::IView3D*>(new FakeView3D);
        }
        if (name == "BuilderFactory") {
            return static_cast<TambVizCore::SceneBuilderFactory*>(new NamedSceneBuilderFactory);
        }
        if (name == "AdapterFactory") {
            return static_cast<TambVizCore::AView3DAdapterFactory*>(new FakeAdapterFactory);
        }
        if (name == "Controls") {
            return static_cast<OrvikCore::AView3DControllerAdapter*>(new FakeControllerAdapter);
        }
        if (name == "Throws") {
            throw std::runtime_error("cannot be made");
        }
        if (name == "ThrowsOdd") {
            throw 7;
        }
        return nullptr;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ViewPartsFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "View";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "ViewParts";
}
