#include "plugin/CadLoader.h"
#include "plugin/CadSaver.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Export.h>

#include <OrvikModel/ModelRenderer3D.h>
#include <OrvikModel/ModelTreeRenderer.h>

#include <cstring>
#include <memory>

namespace OrvikCad {

using OrvikModel::ModelRendererFactory;
using OrvikModel::ModelTreeRendererFactory;

namespace {

/// A loader or importer by the name that a host asks for it.
struct NamedLoader
{
    const char* name;
    CadFormat format;
    CadLoader::Mode mode;
};

constexpr NamedLoader kLoaders[] = {
    {"StepLoader", CadFormat::Step, CadLoader::Mode::Load},
    {"IgesLoader", CadFormat::Iges, CadLoader::Mode::Load},
    {"BrepLoader", CadFormat::Brep, CadLoader::Mode::Load},
    {"StepImporter", CadFormat::Step, CadLoader::Mode::Import},
    {"IgesImporter", CadFormat::Iges, CadLoader::Mode::Import},
    {"BrepImporter", CadFormat::Brep, CadLoader::Mode::Import},
};

/// A saver by the name that a host asks for it.
struct NamedSaver
{
    const char* name;
    CadFormat format;
};

constexpr NamedSaver kSavers[] = {
    {"StepSaver", CadFormat::Step},
    {"IgesSaver", CadFormat::Iges},
    {"BrepSaver", CadFormat::Brep},
};

/// The factory of the CAD plugin: registers loaders, importers, savers and renderer factories.
class CadPlugin final : public OrvikCore::APluginFactory
{
public:
    /// @return a loader, importer or saver by its name above, renderer factories for
    /// "CadRendererFactory"
    ///         and "CadTreeRendererFactory"; each as a pointer to its base of the core.
    void* CreateObject(const char* objectName) override
    {
        for (const NamedLoader& loader : kLoaders)
            if (std::strcmp(objectName, loader.name) == 0)
                return static_cast<OrvikCore::AContentLoader*>(
                    new CadLoader(loader.format, loader.mode));
        for (const NamedSaver& saver : kSavers)
            if (std::strcmp(objectName, saver.name) == 0)
                return static_cast<OrvikCore::AContentSaver*>(new CadSaver(saver.format));
        if (std::strcmp(objectName, "CadRendererFactory") == 0)
            return static_cast<OrvikCore::AContentRendererFactory*>(
                new ModelRendererFactory(kCadTypeName));
        if (std::strcmp(objectName, "CadTreeRendererFactory") == 0)
            return static_cast<OrvikCore::ATreeRendererFactory*>(
                new ModelTreeRendererFactory(kCadTypeName));
        return nullptr;
    }

    void Terminate() override {}

protected:
    void describe() override
    {
        setName("OrvikCad");
        setDescription(L"Reads and writes CAD models: STEP, IGES and BREP files");
        addGetProduct("Cad");
    }

    void doInitialize(void** const /*context*/) override
    {
        // The session manager owns what is registered.
        OrvikCore::SessionMgr& manager = OrvikCore::SessionMgr::Instance();
        for (const NamedLoader& loader : kLoaders)
            manager.RegisterContentLoader(
                std::make_unique<CadLoader>(loader.format, loader.mode).release());
        for (const NamedSaver& saver : kSavers)
            manager.RegisterContentSaver(std::make_unique<CadSaver>(saver.format).release());
        manager.RegisterContentRendererFactory(
            std::make_unique<ModelRendererFactory>(kCadTypeName).release());
        manager.RegisterTreeRendererFactory(
            std::make_unique<ModelTreeRendererFactory>(kCadTypeName).release());
        m_initialized = true;
    }
};

} // namespace

} // namespace OrvikCad

extern "C" {

ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new OrvikCad::CadPlugin();
}

ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Content";
}

ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "OrvikCad";
}

} // extern "C"
