#include "plugin/KernelLibrary.h"

#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/ATreeRendererFactory.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/LoadModes.h"
#include "OrvikCore/PluginManager.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Utf8.h>

#include <OrvikModel/ModelContent.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

using OrvikCore::PluginManager;
using OrvikCore::SessionMgr;

/// Loads the plugin as a host does. @return its factory; owned by the manager.
OrvikCore::APluginFactory* loadPlugin()
{
    wchar_t* error = nullptr;
    PluginManager& manager = PluginManager::Instance();
    OrvikCore::APluginFactory* factory =
        manager.LoadPlugin(OrvikOs::Utf8ToWide(ORVIK_CAD_PLUGIN).c_str(), error, L"Plugins");
    manager.Initialize(nullptr);
    return factory;
}

bool isLoaded(const std::string& library)
{
    std::ifstream maps("/proc/self/maps");
    const std::string text{std::istreambuf_iterator<char>(maps), {}};
    return text.find(library) != std::string::npos;
}

TEST(CadPlugin, RegistersLoadersImportersAndRendererFactories)
{
    ASSERT_NE(loadPlugin(), nullptr);

    const SessionMgr& manager = SessionMgr::Instance();
    for (const wchar_t* file :
         {L"a.step", L"a.STP", L"a.p21", L"a.iges", L"a.igs", L"a.brep", L"a.brp"}) {
        ASSERT_NE(manager.GetContentLoader(file), nullptr);
        EXPECT_FALSE(manager.GetContentLoader(file)->IsImporter());
        ASSERT_NE(manager.GetContentImporter(file), nullptr);
        EXPECT_TRUE(manager.GetContentImporter(file)->IsImporter());
    }
    EXPECT_NE(manager.GetContentRendererFactory("Cad"), nullptr);
    EXPECT_NE(manager.GetTreeRendererFactory("Cad"), nullptr);
}

TEST(CadPlugin, LoadsTheKernelOnFirstUse)
{
    loadPlugin();
    EXPECT_FALSE(isLoaded("libTKernel"));
    EXPECT_FALSE(isLoaded("OrvikCadKernel"));
    OrvikCore::Document document(nullptr);
    std::wstring error;

    const bool isRead = document.LoadContent(
        OrvikOs::Utf8ToWide(ORVIK_TEST_DATA "/hole_plate.step"), &error, true, nullptr);

    EXPECT_TRUE(isRead);
    EXPECT_EQ(error, L"");
    EXPECT_EQ(document.GetContentList().size(), 1u);
    EXPECT_TRUE(isLoaded("OrvikCadKernel"));
}

TEST(CadPlugin, OnlyStepFilesAreLoadedOfTheProductStructureAlone)
{
    loadPlugin();
    OrvikCore::LoadModes::SetForceProductStructure(true);

    const SessionMgr& manager = SessionMgr::Instance();
    for (const wchar_t* file : {L"a.step", L"a.STP", L"a.p21"}) {
        EXPECT_NE(manager.GetContentLoader(file), nullptr);
        EXPECT_NE(manager.GetContentImporter(file), nullptr);
    }
    for (const wchar_t* file : {L"a.iges", L"a.igs", L"a.brep", L"a.brp"}) {
        EXPECT_EQ(manager.GetContentLoader(file), nullptr);
        EXPECT_EQ(manager.GetContentImporter(file), nullptr);
    }
}

TEST(CadPlugin, TheMessageForAModeThatALoaderDoesNotServeNamesTheSettings)
{
    loadPlugin();
    OrvikCore::LoadModes::SetForceProductStructure(true);
    OrvikCore::Document document(nullptr);
    std::wstring error;

    EXPECT_FALSE(document.LoadContent(OrvikOs::Utf8ToWide(ORVIK_TEST_DATA "/colors.iges"), &error,
                                      true, nullptr));

    EXPECT_NE(error.find(L"check the 'Force Graphical Mode' and 'Force ProductStructure Mode' "
                         L"settings"),
              std::wstring::npos);
}

TEST(CadPlugin, TheModeThatIsSetReachesTheKernel)
{
    loadPlugin();
    OrvikCore::LoadModes::SetForceProductStructure(true);
    OrvikCore::Document document(nullptr);
    std::wstring error;

    ASSERT_TRUE(document.LoadContent(OrvikOs::Utf8ToWide(ORVIK_TEST_DATA "/hole_plate.step"),
                                     &error, true, nullptr));

    const auto& content =
        dynamic_cast<const OrvikModel::ModelContent&>(*document.GetContentList().at(0));
    EXPECT_FALSE(content.GetModel()->nodes.empty());
    EXPECT_TRUE(content.GetModel()->box.IsEmpty());
}

TEST(KernelLibrary, NamesTheLibraryThatIsMissing)
{
    std::wstring error;

    EXPECT_EQ(OrvikCad::LoadKernel(L"NoSuchKernel.dll", error), nullptr);

    EXPECT_EQ(error.find(L"The library \"NoSuchKernel.dll\", which reads CAD files, cannot be "
                         L"loaded: "),
              0u);
}

TEST(KernelLibrary, RefusesALibraryWithoutTheEntryPoint)
{
    std::wstring error;

    EXPECT_EQ(OrvikCad::LoadKernel(OrvikOs::Utf8ToWide(ORVIK_CAD_PLUGIN), error), nullptr);

    EXPECT_NE(error.find(L"it has no entry point for this version"), std::wstring::npos);
}

} // namespace
