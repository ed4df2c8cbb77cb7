#include "PerspectiveCamera.h"
#include "View3dOpenGlSG.h"

#include <OrvikCore/APluginFactory.h>
#include <OrvikCore/View3DFactory.h>

#include <memory>
#include <string_view>

namespace ViewOpenGl {
namespace {

/// Makes the objects of this library: "View3dOpenGlSG".
class ViewPluginFactory : public OrvikCore::APluginFactory
{
public:
    /// @return a TambVizCore::IView3D (transferred out), or null for another name.
    void* CreateObject(const char* objectName) override
    {
        if (objectName == nullptr || std::string_view(objectName) != "View3dOpenGlSG")
            return nullptr;
        // The caller casts to this very interface.
        return static_cast<TambVizCore::IView3D*>(new View3dOpenGlSG);
    }

    void Terminate() override {}

protected:
    void describe() override
    {
        setName("OrvikView3dOpenGlSG");
        setDescription(L"Draws the 3D view with OpenGL");
    }

    /// Adds the cameras of perspective beside the core's.
    void doInitialize(void** const) override
    {
        // The factory owns what is added.
        OrvikCore::View3DFactory& factory = OrvikCore::View3DFactory::Instance();
        factory.AddCameraPrototype(
            std::make_unique<PerspectiveCamera<OrvikCore::CameraYUp>>(nullptr).release());
        factory.AddCameraPrototype(
            std::make_unique<PerspectiveCamera<OrvikCore::CameraZUp>>(nullptr).release());
        m_initialized = true;
    }
};

} // namespace
} // namespace ViewOpenGl

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new ViewOpenGl::ViewPluginFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "View";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "OrvikView3dOpenGlSG";
}
