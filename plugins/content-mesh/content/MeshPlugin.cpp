#include "content/MeshLoader.h"
#include "content/MeshSaver.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Export.h>

#include <OrvikModel/ModelRenderer3D.h>
#include <OrvikModel/ModelTreeRenderer.h>

#include <cstring>
#include <memory>

namespace OrvikMesh {

using OrvikModel::ModelRendererFactory;
using OrvikModel::ModelTreeRendererFactory;

namespace {

/// The factory of the mesh plugin: registers loader, importer, saver and renderer factories.
class MeshPlugin final : public OrvikCore::APluginFactory
{
public:
    /// @return a loader for "MeshLoader", an importer for "MeshImporter", a saver for "MeshSaver",
    ///         renderer factories for "MeshRendererFactory" and "MeshTreeRendererFactory"; each as
    ///         a pointer to its base of the core.
    void* CreateObject(const char* objectName) override
    {
        if (std::strcmp(objectName, "MeshLoader") == 0)
            return static_cast<OrvikCore::AContentLoader*>(new MeshLoader(MeshLoader::Mode::Load));
        if (std::strcmp(objectName, "MeshImporter") == 0)
            return static_cast<OrvikCore::AContentLoader*>(
                new MeshLoader(MeshLoader::Mode::Import));
        if (std::strcmp(objectName, "MeshSaver") == 0)
            return static_cast<OrvikCore::AContentSaver*>(new MeshSaver());
        if (std::strcmp(objectName, "MeshRendererFactory") == 0)
            return static_cast<OrvikCore::AContentRendererFactory*>(
                new ModelRendererFactory(kMeshTypeName));
        if (std::strcmp(objectName, "MeshTreeRendererFactory") == 0)
            return static_cast<OrvikCore::ATreeRendererFactory*>(
                new ModelTreeRendererFactory(kMeshTypeName));
        return nullptr;
    }

    void Terminate() override {}

protected:
    void describe() override
    {
        setName("OrvikMesh");
        setDescription(L"Reads and writes meshes and point clouds");
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
        manager.RegisterContentSaver(std::make_unique<MeshSaver>().release());
        manager.RegisterContentRendererFactory(
            std::make_unique<ModelRendererFactory>(kMeshTypeName).release());
        manager.RegisterTreeRendererFactory(
            std::make_unique<ModelTreeRendererFactory>(kMeshTypeName).release());
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
