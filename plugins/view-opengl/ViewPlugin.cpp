#include "View3dOpenGlSG.h"

#include <OrvikCore/APluginFactory.h>

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

    void doInitialize(void** const) override { m_initialized = true; }
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
