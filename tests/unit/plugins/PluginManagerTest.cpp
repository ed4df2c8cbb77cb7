// The list of records, and the initialisation of the factories.
#include "OrvikCore/PluginManager.h"

#include "PluginsFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/APluginFactory.h"

namespace {

using PluginManager = PluginsTest;
using Calls = std::vector<std::string>;

/// Reaches the operations that derived managers reach.
class OpenManager : public OrvikCore::PluginManager
{
public:
    using PluginManager::createSearchTemplate;
    using PluginManager::findPluginByFileName;
};

TEST_F(PluginManager, OperationsStandInTheirSlots)
{
    using M = OrvikCore::PluginManager;
    EXPECT_EQ(VirtualSlot(&M::Initialize), 2);
    EXPECT_EQ(VirtualSlot(&M::Terminate), 3);
    EXPECT_EQ(VirtualSlot(&M::LoadPlugins), 4);
    EXPECT_EQ(VirtualSlot(&M::LoadPlugin), 5);
    EXPECT_EQ(VirtualSlot(&M::CreatePlugin), 6);
    EXPECT_EQ(VirtualSlot(&M::GetPluginsCount), 7);
    EXPECT_EQ(VirtualSlot(&M::GetPluginName), 8);
    EXPECT_EQ(VirtualSlot(&M::GetPluginType), 9);
    EXPECT_EQ(VirtualSlot(&M::FindPluginByName), 10);
    EXPECT_EQ(VirtualSlot(&M::SetPreLoadFlag), 11);
    EXPECT_EQ(VirtualSlot(&M::SetNotificationCb), 12);
    EXPECT_EQ(VirtualSlot(&M::GetPlugins), -1);
}

TEST_F(PluginManager, InstanceIsOne)
{
    EXPECT_EQ(&OrvikCore::PluginManager::Instance(), &OrvikCore::PluginManager::Instance());
}

TEST_F(PluginManager, FindsNothingInAnEmptyList)
{
    EXPECT_EQ(manager().FindPluginByName(L"Good"), -1);
    EXPECT_EQ(OpenManager().findPluginByFileName(L"Good.Plugin.dll"), -1);
    EXPECT_EQ(manager().GetPluginsCount(), 0);
    EXPECT_TRUE(manager().GetPlugins().empty());
}

TEST_F(PluginManager, FindsNamesExactly)
{
    load(m_folder.Add("LoaderType.Plugin.dll"));
    load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_EQ(manager().FindPluginByName(L"Good"), 1);
    EXPECT_EQ(manager().FindPluginByName(L"good"), -1);
    EXPECT_EQ(manager().FindPluginByName(L"Goo"), -1);
}

TEST_F(PluginManager, FindsTheFirstOfEqualNames)
{
    load(m_folder.Add("Good.Plugin.dll", "B.Plugin.dll"));
    load(m_folder.Add("Good.Plugin.dll", "A.Plugin.dll"));

    EXPECT_EQ(manager().GetPluginsCount(), 2);
    EXPECT_EQ(manager().FindPluginByName(L"Good"), 0);
}

TEST_F(PluginManager, GetPluginsLeavesOutRecordsWithoutAFactory)
{
    listen();
    load(m_folder.Add("NullFactory.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_EQ(manager().GetPluginsCount(), 2);
    EXPECT_EQ(manager().GetPlugins(), (std::vector<OrvikCore::APluginFactory*>{good}));
}

TEST_F(PluginManager, GetPluginsLeavesOutALibraryThatThrows)
{
    listen();
    load(m_folder.Add("ThrowsOnCreate.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_EQ(manager().GetPlugins(), (std::vector<OrvikCore::APluginFactory*>{good}));
}

TEST_F(PluginManager, TerminateEndsTheFactoriesFromTheLastToTheFirst)
{
    load(m_folder.Add("Good.Plugin.dll"));
    load(m_folder.Add("LoaderType.Plugin.dll"));
    m_debug.Clear();

    EXPECT_TRUE(manager().Terminate());

    EXPECT_EQ(m_debug.LinesAfter("["), (Calls{"LoaderType] Terminate", "LoaderType] deleted",
                                              "Good] Terminate", "Good] deleted"}));
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, ClearingInsideAClearDoesNothing)
{
    load(m_folder.Add("Good.Plugin.dll"));
    load(m_folder.Add("ClearsOnEnd.Plugin.dll"));
    m_debug.Clear();

    manager().Terminate();

    EXPECT_EQ(m_debug.LinesAfter("["), (Calls{"ClearsOnEnd] Terminate", "ClearsOnEnd] deleted",
                                              "Good] Terminate", "Good] deleted"}));
}

TEST_F(PluginManager, InitializeHandsTheAddressOfTheContextToEveryFactory)
{
    load(m_folder.Add("Good.Plugin.dll"));
    int context = 0;

    EXPECT_TRUE(manager().Initialize(&context));

    EXPECT_EQ(log("Good"),
              (Calls{"created", "describe",
                     "doInitialize " + TambVizCore::Utils::PointerToHexString(&context),
                     "doPreLoad", "createContextMenuItems"}));
}

TEST_F(PluginManager, PreLoadFlagSwitchesPreLoadingOff)
{
    load(m_folder.Add("Good.Plugin.dll"));
    manager().SetPreLoadFlag(false);

    manager().Initialize(nullptr);

    const Calls calls = log("Good");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "doPreLoad"), 0);
    EXPECT_EQ(calls.back(), "createContextMenuItems");
}

TEST_F(PluginManager, InitializeTellsEveryFileInLowerCase)
{
    const std::wstring file = m_folder.Add("Good.Plugin.dll");
    load(file);
    listen();

    manager().Initialize(nullptr);

    EXPECT_EQ(notices(), (std::vector<Notice>{{L"initializing : " + lower(file) + L"...", 0}}));
}

TEST_F(PluginManager, InitializePassesOverRecordsWithoutAFactory)
{
    listen();
    load(m_folder.Add("NullFactory.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));
    notices().clear();

    EXPECT_TRUE(manager().Initialize(nullptr));

    EXPECT_TRUE(good->IsInitialized());
    EXPECT_TRUE(errors().empty());
}

TEST_F(PluginManager, InitializeGoesOnAfterAnExceptionWithAText)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOnDescribe.Plugin.dll");
    OrvikCore::APluginFactory* const bad = load(file);
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_TRUE(manager().Initialize(nullptr));

    const std::wstring report =
        L"initializing : " + lower(file) + L"... failed :\nnothing to say\nContinuing...";
    EXPECT_EQ(errors(), (std::vector<std::wstring>{report}));
    EXPECT_EQ(bad->GetInfo().GetErrors(), (std::vector<std::wstring>{report}));
    EXPECT_TRUE(good->IsInitialized());
}

TEST_F(PluginManager, InitializeReportsAnExceptionWithoutAText)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsEmptyOnDescribe.Plugin.dll");
    load(file);

    manager().Initialize(nullptr);

    EXPECT_EQ(errors(), (std::vector<std::wstring>{L"initializing : " + lower(file) +
                                                   L"... failed. Continuing..."}));
}

TEST_F(PluginManager, InitializeReportsAnOddException)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOddOnInit.Plugin.dll");
    OrvikCore::APluginFactory* const bad = load(file);

    EXPECT_TRUE(manager().Initialize(nullptr));

    const std::wstring report = L"initializing : " + lower(file) + L"... failed. Continuing...";
    EXPECT_EQ(errors(), (std::vector<std::wstring>{report}));
    EXPECT_EQ(bad->GetInfo().GetErrors(), (std::vector<std::wstring>{report}));
}

TEST_F(PluginManager, InitializeNotesTheReportAlsoWithoutACallback)
{
    const std::wstring file = m_folder.Add("ThrowsOnDescribe.Plugin.dll");
    OrvikCore::APluginFactory* const bad = load(file);

    EXPECT_TRUE(manager().Initialize(nullptr));

    EXPECT_EQ(bad->GetInfo().GetErrors().size(), 1u);
}

TEST_F(PluginManager, ExceptionOfThePluginsOwnSetUpIsNotedByTheFactoryAndNotTold)
{
    listen();
    OrvikCore::APluginFactory* const bad = load(m_folder.Add("ThrowsOnInit.Plugin.dll"));

    manager().Initialize(nullptr);

    EXPECT_TRUE(errors().empty());
    EXPECT_EQ(bad->GetInfo().GetErrors(),
              (std::vector<std::wstring>{L"out of order\n   Source:  ThrowsOnInit\n"}));
}

TEST_F(PluginManager, MachineFaultOfAFactoryIsReportedAndTheNextOneComes)
{
    listen();
    OrvikCore::APluginFactory* const bad = load(m_folder.Add("FaultsOnDescribe.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_TRUE(manager().Initialize(nullptr));

    ASSERT_EQ(errors().size(), 1u);
    EXPECT_NE(errors()[0].find(L"Unhandled Exception"), std::wstring::npos);
    EXPECT_FALSE(bad->IsInitialized());
    EXPECT_TRUE(good->IsInitialized());
}

TEST_F(PluginManager, MachineFaultOfThePluginsOwnSetUpIsNotedByTheFactory)
{
    OrvikCore::APluginFactory* const bad = load(m_folder.Add("FaultsOnInit.Plugin.dll"));

    manager().Initialize(nullptr);

    ASSERT_EQ(bad->GetInfo().GetErrors().size(), 1u);
    EXPECT_NE(bad->GetInfo().GetErrors()[0].find(L"EXCEPTION_ACCESS_VIOLATION"),
              std::wstring::npos);
    EXPECT_FALSE(bad->IsInitialized());
}

TEST_F(PluginManager, InitializeReportsALibraryWhoseFactoryCannotBeMade)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOnCreate.Plugin.dll");
    load(file);
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));
    notices().clear();

    EXPECT_TRUE(manager().Initialize(nullptr));

    EXPECT_EQ(errors(), (std::vector<std::wstring>{L"initializing : " + lower(file) +
                                                   L"... failed :\nno licence\nContinuing..."}));
    EXPECT_TRUE(good->IsInitialized());
}

TEST_F(PluginManager, SearchTemplateUsesTheBufferAndNotTheFolder)
{
    wchar_t folder[] = L"C:\\other";
    wchar_t buffer[64] = L"C:\\plugins";

    OpenManager().createSearchTemplate(folder, buffer);

    EXPECT_STREQ(buffer, L"C:\\plugins\\*.dll");
}

TEST_F(PluginManager, SearchTemplateAddsNoSecondSeparator)
{
    wchar_t folder[] = L"x";
    wchar_t withSlash[64] = L"/plugins/";
    wchar_t withBackslash[64] = L"C:\\plugins\\";

    OpenManager().createSearchTemplate(folder, withSlash);
    OpenManager().createSearchTemplate(folder, withBackslash);

    EXPECT_STREQ(withSlash, L"/plugins/*.dll");
    EXPECT_STREQ(withBackslash, L"C:\\plugins\\*.dll");
}

} // namespace
