#include "content/MeshLoader.h"
#include "content/MeshRenderer3D.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Export.h>

#include <cstring>
#include <memory>

namespace OrvikMesh {

namespace {

/// The factory of the mesh plugin: registers loader, importer and renderer factory.
class MeshPlugin final : public OrvikCore::APluginFactory
{
public:
    /// @return a loader for "MeshLoader", an importer for "MeshImporter", a renderer factory for
    ///         "MeshRendererFactory"; each as a pointer to its base of the core.
    void* CreateObject(const char* objectName) override
    {
        if (std::strcmp(objectName, "MeshLoader") == 0)
            return static_cast<OrvikCore::AContentLoader*>(new MeshLoader(MeshLoader::Mode::Load));
        if (std::strcmp(objectName, "MeshImporter") == 0)
            return static_cast<OrvikCore::AContentLoader*>(
                new MeshLoader(MeshLoader::Mode::Import));
        if (std::strcmp(objectName, "MeshRendererFactory") == 0)
            return static_cast<OrvikCore::AContentRendererFactory*>(new MeshRendererFactory());
        return nullptr;
    }

    void Terminate() override {}

protected:
    void describe() override
    {
        setName("OrvikMesh");
        setDescription(L"Reads meshes from STL and OBJ files");
        addGetProduct("Mesh");
    }

    void doInitialize(void** const /*context*/) override
    {
        // The session manager owns what is registered.
        OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
        manager.RegisterContentLoader(
            std::make_unique<MeshLoader>(MeshLoader::Mode::Load).release());
        manager.RegisterContentLoader(
            std::make_unique<MeshLoader>(MeshLoader::Mode::Import).release());
        manager.RegisterContentRendererFactory(std::make_unique<MeshRendererFactory>().release());
        m_initialized = true;
    }
};

} // namespace

} // namespace OrvikMesh

extern "C" {

ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new OrvikMesh::MeshPlugin();
}

ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "OrvikMesh";
}

} // extern "C"
