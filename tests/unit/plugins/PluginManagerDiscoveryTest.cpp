// Finding the libraries beside the executable.
#include "PluginsFixture.h"

#include "OrvikCore/PluginManager.h"

#include <OrvikOs/Directory.h>

#include <filesystem>
#include <stdexcept>

namespace {

using PluginManager = PluginsTest;

TEST_F(PluginManager, RecordsThePluginsBesideTheExecutable)
{
    m_folder.Add("Good.Plugin.dll");
    m_folder.Add("LoaderType.Plugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 2);
    EXPECT_GE(manager().FindPluginByName(L"Good"), 0);
    EXPECT_GE(manager().FindPluginByName(L"LoaderType"), 0);
}

TEST_F(PluginManager, TakesTheLibrariesInTheOrderOfTheFileSystem)
{
    listen();
    m_folder.Add("Good.Plugin.dll");
    m_folder.Add("LoaderType.Plugin.dll");
    m_folder.Add("NonAsciiName.Plugin.dll");
    std::vector<OrvikOs::DirectoryEntry> entries;
    OrvikOs::ListDirectory(m_folder.Dir().WidePath(), entries);

    manager().LoadPlugins(L"Plugins");

    std::vector<std::wstring> expected;
    for (const OrvikOs::DirectoryEntry& entry : entries) {
        expected.push_back(L"loading : " + m_folder.Dir().WidePath(entry.name));
    }
    EXPECT_EQ(texts(0), expected);
}

TEST_F(PluginManager, LoadPluginsNeverUsesItsFolderAsAPath)
{
    const ScopedTempDir elsewhere;
    std::filesystem::copy_file(std::filesystem::path(ORVIK_TEST_PLUGIN_DIR) / "Good.Plugin.dll",
                               elsewhere.Path() / "Good.Plugin.dll");

    manager().LoadPlugins(elsewhere.WidePath());

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, DoesNotLookIntoFoldersBelow)
{
    std::filesystem::create_directory(m_folder.Dir().Path() / "Plugins");
    m_folder.Add("Good.Plugin.dll", "Plugins/Good.Plugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, SkipsAnExtensionInUpperCase)
{
    m_folder.Add("Good.Plugin.dll", "X.Plugin.DLL");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, SkipsNamesWithoutTheWordPlugin)
{
    m_folder.Add("Good.Plugin.dll", "Good.plugin.dll");
    m_folder.Add("Good.Plugin.dll", "Good.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, TakesTheWordPluginAnywhereInTheName)
{
    m_folder.Add("Good.Plugin.dll", "Plugins.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 1);
}

TEST_F(PluginManager, SkipsScriptPlugins)
{
    m_folder.Add("Good.Plugin.dll", "MyScriptPlugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, SkipsTheTwoExcludedNamesOnly)
{
    m_folder.Add("Good.Plugin.dll", "OrvikWendGorm.Plugin.dll");
    m_folder.Add("Good.Plugin.dll", "WendPluginWorker.dll");
    m_folder.Add("Good.Plugin.dll", "orvikWendGorm.Plugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 1);
}

TEST_F(PluginManager, BadLibrariesDoNotStopTheWalk)
{
    listen();
    m_folder.Dir().Write("Text.Plugin.dll", "I am no library.");
    m_folder.Add("NoType.Plugin.dll");
    m_folder.Add("ThrowsOnCreate.Plugin.dll");
    m_folder.Add("Good.Plugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_GE(manager().FindPluginByName(L"Good"), 0);
    EXPECT_EQ(errors().size(), 3u);
    EXPECT_EQ(m_sleeper.m_sleepsMs, (std::vector<int>{500, 500, 500}));
}

TEST_F(PluginManager, FirstErrorEndsTheWalkWithoutACallback)
{
    m_folder.Dir().Write("Text.Plugin.dll", "I am no library.");

    EXPECT_THROW(manager().LoadPlugins(L"Plugins"), std::runtime_error);
}

TEST_F(PluginManager, SecondLoadStartsFromAnEmptyList)
{
    m_folder.Add("Good.Plugin.dll");
    manager().LoadPlugins(L"Plugins");
    std::filesystem::remove(m_folder.Dir().Path() / "Good.Plugin.dll");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
    EXPECT_EQ(log("Good"), (std::vector<std::string>{"created", "Terminate", "deleted"}));
}

TEST_F(PluginManager, MissingFolderOfTheExecutableGivesNoPlugins)
{
    OrvikOs::SetExecutablePath(L"/no/such/folder/program");

    manager().LoadPlugins(L"Plugins");

    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

} // namespace
