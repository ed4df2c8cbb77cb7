#include "MeshFiles.h"

#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/PluginManager.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>

#include <memory>

using OrvikCore::PluginManager;
using OrvikCore::SessionMgr;

namespace {

/// Loads the plugin as a host does. @return its factory; owned by the manager.
OrvikCore::APluginFactory* loadPlugin()
{
    wchar_t* error = nullptr;
    PluginManager& manager = PluginManager::Instance();
    OrvikCore::APluginFactory* factory =
        manager.LoadPlugin(OrvikOs::Utf8ToWide(ORVIK_MESH_PLUGIN).c_str(), error, L"Plugins");
    manager.Initialize(nullptr);
    return factory;
}

} // namespace

TEST(MeshPlugin, IsOfTypeContentAndDescribesItself)
{
    const OrvikCore::APluginFactory* factory = loadPlugin();

    ASSERT_NE(factory, nullptr);
    EXPECT_STREQ(PluginManager::Instance().GetPluginType(0), "Content");
    EXPECT_STREQ(PluginManager::Instance().GetPluginName(0), L"OrvikMesh");
    EXPECT_TRUE(factory->IsInitialized());
    EXPECT_EQ(factory->GetInfo().GetName(), "OrvikMesh");
    EXPECT_TRUE(factory->GetInfo().GetErrors().empty());
}

TEST(MeshPlugin, RegistersLoaderImporterSaverAndRendererFactories)
{
    loadPlugin();

    const SessionMgr& manager = SessionMgr::Instance();
    ASSERT_NE(manager.GetContentLoader(L"part.stl"), nullptr);
    EXPECT_FALSE(manager.GetContentLoader(L"part.stl")->IsImporter());
    ASSERT_NE(manager.GetContentImporter(L"part.OBJ"), nullptr);
    EXPECT_TRUE(manager.GetContentImporter(L"part.OBJ")->IsImporter());
    EXPECT_EQ(manager.GetContentLoader(L"part.step"), nullptr);
    ASSERT_EQ(manager.GetContentSaverList().size(), 1u);
    EXPECT_EQ(manager.GetContentSaverList().front()->ValidExtensions().size(), 4u);
    EXPECT_NE(manager.GetContentRendererFactory("Mesh"), nullptr);
    EXPECT_NE(manager.GetTreeRendererFactory("Mesh"), nullptr);
}

TEST(MeshPlugin, DocumentLoadsAFileThroughIt)
{
    const TempFolder folder;
    loadPlugin();
    OrvikCore::Document document(nullptr);
    std::wstring error;

    const bool isLoaded =
        document.LoadContent(folder.Write("cube.stl", BinaryStl(Cube())), &error, true, nullptr);

    EXPECT_TRUE(isLoaded);
    EXPECT_EQ(error, L"");
    EXPECT_EQ(document.GetContentIdsShort(), L"cube.stl");
}

TEST(MeshPlugin, ImportAddsToWhatIsThereAndLoadReplacesIt)
{
    const TempFolder folder;
    const std::wstring path = folder.Write("cube.stl", BinaryStl(Cube()));
    loadPlugin();
    OrvikCore::Document document(nullptr);

    document.LoadContent(path, nullptr, false, nullptr);
    document.LoadContent(path, nullptr, false, nullptr);
    EXPECT_EQ(document.GetContentList().size(), 2u);
    document.LoadContent(path, nullptr, true, nullptr);

    EXPECT_EQ(document.GetContentList().size(), 1u);
}

TEST(MeshPlugin, MakesItsObjectsByName)
{
    OrvikCore::APluginFactory* factory = loadPlugin();

    const std::unique_ptr<OrvikCore::AContentLoader> importer(
        static_cast<OrvikCore::AContentLoader*>(factory->CreateObject("MeshImporter")));

    EXPECT_TRUE(importer->IsImporter());
    EXPECT_EQ(factory->CreateObject("Unknown"), nullptr);
}
