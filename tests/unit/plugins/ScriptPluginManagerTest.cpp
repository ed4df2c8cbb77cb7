#include "OrvikCore/ScriptPluginManager.h"

#include "PluginsFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/AScriptModulePluginFactory.h"

namespace {

using ScriptPluginManager = PluginsTest;
using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

/// Reaches the operations that derived managers reach.
class OpenManager : public OrvikCore::ScriptPluginManager
{
public:
    using ScriptPluginManager::createSearchTemplate;
};

bool loadScript(const std::wstring& file)
{
    return OrvikCore::ScriptPluginManager::Instance().LoadPlugin(file.c_str());
}

std::vector<OrvikCore::AScriptModulePluginFactory*> factories()
{
    return OrvikCore::ScriptPluginManager::Instance().GetPlugins();
}

TEST_F(ScriptPluginManager, OperationsStandInTheirSlots)
{
    using M = OrvikCore::ScriptPluginManager;
    EXPECT_EQ(VirtualSlot(&M::LoadPlugins), 2);
    EXPECT_EQ(VirtualSlot(&M::LoadPlugin), 3);
    EXPECT_EQ(VirtualSlot(&M::Initialize), 4);
    EXPECT_EQ(VirtualSlot(&M::Terminate), 5);
    EXPECT_EQ(VirtualSlot(&M::SetPreLoadFlag), 6);
    EXPECT_EQ(VirtualSlot(&M::SetNotificationCb), 7);
    EXPECT_EQ(VirtualSlot(&M::LoadScriptEngine), 8);
    EXPECT_EQ(VirtualSlot(&M::FindPluginByName), -1);
    EXPECT_EQ(VirtualSlot(&M::GetPlugins), -1);
}

TEST_F(ScriptPluginManager, InstanceIsOne)
{
    EXPECT_EQ(&OrvikCore::ScriptPluginManager::Instance(),
              &OrvikCore::ScriptPluginManager::Instance());
}

TEST_F(ScriptPluginManager, RecordsTheScriptPluginsBesideTheExecutable)
{
    m_folder.Add("ScriptGood.Plugin.dll", "MyScriptPlugin.dll");

    scriptManager().LoadPlugins();

    EXPECT_EQ(scriptManager().FindPluginByName(L"ScriptGood"), 0);
    EXPECT_EQ(log("ScriptGood"), (Calls{"created"}));
}

TEST_F(ScriptPluginManager, PassesOverOtherPluginsInSilence)
{
    listen();
    const std::wstring file = m_folder.Add("Good.Plugin.dll");

    scriptManager().LoadPlugins();

    EXPECT_EQ(notices(), (std::vector<Notice>{{L"loading : " + lower(file), 0}}));
    EXPECT_TRUE(factories().empty());
    EXPECT_TRUE(log("Good").empty());
}

TEST_F(ScriptPluginManager, NeverTakesNamesWithTheWordScheme)
{
    listen();
    m_folder.Add("ScriptGood.Plugin.dll", "AnyScheme.Plugin.dll");

    scriptManager().LoadPlugins();

    EXPECT_TRUE(notices().empty());
}

TEST_F(ScriptPluginManager, SkipsExtensionsInUpperCaseAndNamesWithoutTheWordPlugin)
{
    listen();
    m_folder.Add("ScriptGood.Plugin.dll", "MyScriptPlugin.DLL");
    m_folder.Add("ScriptGood.Plugin.dll", "MyScript.dll");

    scriptManager().LoadPlugins();

    EXPECT_TRUE(notices().empty());
}

TEST_F(ScriptPluginManager, SkipsTheTwoExcludedNamesOnly)
{
    listen();
    m_folder.Add("ScriptGood.Plugin.dll", "WendPluginWorker.dll");
    m_folder.Add("ScriptGood.Plugin.dll", "OrvikWendGormScriptCommandsn.dll");
    m_folder.Add("ScriptGood.Plugin.dll", "OrvikWendGorm.Plugin.dll");

    scriptManager().LoadPlugins();

    EXPECT_EQ(texts(0).size(), 1u);
    EXPECT_EQ(factories().size(), 1u);
}

TEST_F(ScriptPluginManager, PlainFileIsToldAndFollowedByAPause)
{
    listen();
    const std::wstring file = m_folder.Dir().Write("Text.Plugin.dll", "I am no library.");

    EXPECT_FALSE(loadScript(file));

    ASSERT_EQ(errors().size(), 1u);
    const std::wstring beginning =
        L"Attempt to load " + file + L" failed with error Message :  (code : 0xb ) ";
    EXPECT_EQ(errors()[0].substr(0, beginning.size()), beginning);
    EXPECT_EQ(m_sleeper.m_sleepsMs, (std::vector<int>{500}));
}

TEST_F(ScriptPluginManager, PlainFileIsNoExceptionWithoutACallback)
{
    const std::wstring file = m_folder.Dir().Write("Text.Plugin.dll", "I am no library.");

    EXPECT_FALSE(loadScript(file));

    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
}

TEST_F(ScriptPluginManager, LibraryWithoutRegisterPluginIsPassedOverAndGood)
{
    listen();

    EXPECT_TRUE(loadScript(m_folder.Add("NoCreate.Plugin.dll")));

    EXPECT_TRUE(errors().empty());
    EXPECT_TRUE(factories().empty());
}

TEST_F(ScriptPluginManager, MissingNameFailsInSilence)
{
    listen();

    EXPECT_FALSE(loadScript(m_folder.Add("ScriptNoName.Plugin.dll")));

    EXPECT_TRUE(errors().empty());
    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
    EXPECT_EQ(scriptManager().FindPluginByName(L"ScriptNoName"), -1);
}

TEST_F(ScriptPluginManager, LibraryWithoutRegisterPluginStaysLoaded)
{
    const std::wstring file = m_folder.Add("NoCreate.Plugin.dll");

    loadScript(file);

    EXPECT_TRUE(isInProcess(file));
}

TEST_F(ScriptPluginManager, LibraryWithoutANameStaysLoaded)
{
    const std::wstring file = m_folder.Add("ScriptNoName.Plugin.dll");

    loadScript(file);

    EXPECT_TRUE(isInProcess(file));
}

TEST_F(ScriptPluginManager, NullFactoryIsGoodAndLeavesARecord)
{
    listen();

    EXPECT_TRUE(loadScript(m_folder.Add("ScriptNullFactory.Plugin.dll")));

    EXPECT_TRUE(errors().empty());
    EXPECT_EQ(scriptManager().FindPluginByName(L"ScriptNullFactory"), 0);
    EXPECT_TRUE(factories().empty());
}

TEST_F(ScriptPluginManager, ThrowingRegisterPluginIsToldWithAnEmptyText)
{
    listen();

    EXPECT_FALSE(loadScript(m_folder.Add("ScriptThrowsOnRegister.Plugin.dll")));

    EXPECT_EQ(errors(), (Texts{L""}));
    EXPECT_EQ(m_sleeper.m_sleepsMs, (std::vector<int>{500}));
}

TEST_F(ScriptPluginManager, LoadingAPathTwiceMakesASecondRecord)
{
    const std::wstring file = m_folder.Add("ScriptGood.Plugin.dll");

    EXPECT_TRUE(loadScript(file));
    EXPECT_TRUE(loadScript(file));

    EXPECT_EQ(factories().size(), 2u);
}

TEST_F(ScriptPluginManager, LoadingTheNameOfARecordedPluginFindsIt)
{
    listen();
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));
    notices().clear();

    EXPECT_TRUE(loadScript(L"ScriptGood"));

    EXPECT_TRUE(notices().empty());
    EXPECT_EQ(factories().size(), 1u);
}

TEST_F(ScriptPluginManager, NamesDifferingInCaseDoNotMatch)
{
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));

    EXPECT_EQ(scriptManager().FindPluginByName(L"scriptgood"), -1);
}

TEST_F(ScriptPluginManager, SecondLoadStartsFromAnEmptyList)
{
    m_folder.Add("ScriptGood.Plugin.dll");
    scriptManager().LoadPlugins();

    scriptManager().LoadPlugins();

    EXPECT_EQ(log("ScriptGood"), (Calls{"created", "Terminate", "deleted", "created"}));
}

TEST_F(ScriptPluginManager, TerminateEndsTheFactoriesFromTheLastToTheFirst)
{
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));
    loadScript(m_folder.Add("ScriptNeedsGood.Plugin.dll"));
    m_debug.Clear();

    EXPECT_TRUE(scriptManager().Terminate());

    EXPECT_EQ(m_debug.LinesAfter("["),
              (Calls{"ScriptNeedsGood] Terminate", "ScriptNeedsGood] deleted",
                     "ScriptGood] Terminate", "ScriptGood] deleted"}));
}

TEST_F(ScriptPluginManager, InitializeHandsTheContextItselfToEveryFactory)
{
    listen();
    const std::wstring file = m_folder.Add("ScriptGood.Plugin.dll");
    loadScript(file);
    notices().clear();
    int context = 0;

    EXPECT_TRUE(scriptManager().Initialize(&context));

    EXPECT_EQ(log("ScriptGood"),
              (Calls{"created", "describe",
                     "doInitialize " + TambVizCore::Utils::PointerToHexString(&context),
                     "createContextMenuItems", "doPreLoad"}));
    EXPECT_EQ(notices(), (std::vector<Notice>{{L"initializing : " + lower(file) + L"...", 0}}));
}

TEST_F(ScriptPluginManager, PreLoadFlagSwitchesPreLoadingOff)
{
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));
    scriptManager().SetPreLoadFlag(false);

    scriptManager().Initialize(nullptr);

    EXPECT_EQ(log("ScriptGood").back(), "createContextMenuItems");
}

TEST_F(ScriptPluginManager, PrerequisitesAreInitializedFirst)
{
    loadScript(m_folder.Add("ScriptNeedsGood.Plugin.dll"));
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));

    scriptManager().Initialize(nullptr);

    for (OrvikCore::AScriptModulePluginFactory* factory : factories()) {
        EXPECT_TRUE(factory->IsInitialized());
    }
    const std::string text = m_debug.Text();
    EXPECT_LT(text.find("[ScriptGood] doInitialize"), text.find("[ScriptNeedsGood] doInitialize"));
}

TEST_F(ScriptPluginManager, RefusingPrerequisiteLeavesTheDependantUninitialized)
{
    loadScript(m_folder.Add("ScriptNeedsRefusing.Plugin.dll"));
    loadScript(m_folder.Add("ScriptRefuses.Plugin.dll"));

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    EXPECT_FALSE(factories()[0]->IsInitialized());
    EXPECT_TRUE(factories()[0]->GetInfo().GetErrors().empty());
}

TEST_F(ScriptPluginManager, MissingPrerequisiteIsNotedByTheFactoryAndNotTold)
{
    listen();
    loadScript(m_folder.Add("ScriptNeedsAbsent.Plugin.dll"));

    scriptManager().Initialize(nullptr);

    EXPECT_TRUE(errors().empty());
    EXPECT_EQ(factories()[0]->GetInfo().GetErrors(),
              (Texts{L"ScriptNeedsAbsent: requires plugin Absent to be initialized first."}));
}

TEST_F(ScriptPluginManager, ExceptionOfThePluginsOwnSetUpIsNotedByTheFactory)
{
    listen();
    loadScript(m_folder.Add("ScriptThrowsOnInit.Plugin.dll"));
    loadScript(m_folder.Add("ScriptThrowsOddOnInit.Plugin.dll"));

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    EXPECT_TRUE(errors().empty());
    EXPECT_EQ(factories()[0]->GetInfo().GetErrors(),
              (Texts{L"ScriptThrowsOnInit failed to initialize with error : out of order"}));
    EXPECT_EQ(factories()[1]->GetInfo().GetErrors(),
              (Texts{L"ScriptThrowsOddOnInit failed to initialize with error : unknown"}));
    EXPECT_TRUE(scriptManager().GetInitializationErrors().empty());
}

TEST_F(ScriptPluginManager, InitializeGoesOnAfterAnExceptionAndKeepsItsText)
{
    listen();
    const std::wstring file = m_folder.Add("ScriptThrowsOnDescribe.Plugin.dll");
    loadScript(file);
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    EXPECT_EQ(errors(), (Texts{L"initializing : " + lower(file) +
                               L"... failed :\nnothing to say\nContinuing..."}));
    EXPECT_EQ(scriptManager().GetInitializationErrors(),
              (Texts{L"Initialization error at " + lower(file) + L" :\nnothing to say"}));
    EXPECT_TRUE(factories()[1]->IsInitialized());
}

TEST_F(ScriptPluginManager, InitializeReportsAnOddException)
{
    listen();
    const std::wstring file = m_folder.Add("ScriptThrowsOddOnDescribe.Plugin.dll");
    loadScript(file);

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    EXPECT_EQ(errors(), (Texts{L"initializing : " + lower(file) + L"... failed. Continuing..."}));
    EXPECT_EQ(scriptManager().GetInitializationErrors(),
              (Texts{L"Unrecognized Exception in Initialize() in " + lower(file) + L"\n"}));
}

TEST_F(ScriptPluginManager, InitializeReportsALibraryWhoseFactoryCannotBeMade)
{
    const std::wstring file = m_folder.Add("ScriptThrowsOnRegister.Plugin.dll");
    loadScript(file);
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));
    listen();

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    EXPECT_EQ(errors(), (Texts{L"initializing : " + lower(file) +
                               L"... failed :\nno licence\nContinuing..."}));
    ASSERT_EQ(factories().size(), 1u);
    EXPECT_TRUE(factories()[0]->IsInitialized());
}

TEST_F(ScriptPluginManager, InitializeForgetsTheErrorsOfTheTimeBefore)
{
    loadScript(m_folder.Add("ScriptThrowsOnDescribe.Plugin.dll"));
    scriptManager().Initialize(nullptr);
    scriptManager().Terminate();

    scriptManager().Initialize(nullptr);

    EXPECT_TRUE(scriptManager().GetInitializationErrors().empty());
}

TEST_F(ScriptPluginManager, MachineFaultOfAFactoryIsCaught)
{
    loadScript(m_folder.Add("ScriptFaultsOnInit.Plugin.dll"));
    loadScript(m_folder.Add("ScriptGood.Plugin.dll"));

    EXPECT_TRUE(scriptManager().Initialize(nullptr));

    ASSERT_EQ(factories()[0]->GetInfo().GetErrors().size(), 1u);
    EXPECT_NE(factories()[0]->GetInfo().GetErrors()[0].find(L"EXCEPTION_ACCESS_VIOLATION"),
              std::wstring::npos);
    EXPECT_TRUE(factories()[1]->IsInitialized());
}

TEST_F(ScriptPluginManager, SearchTemplateUsesTheBufferAndNotTheFolder)
{
    wchar_t folder[] = L"C:\\other";
    wchar_t buffer[64] = L"C:\\plugins";

    OpenManager().createSearchTemplate(folder, buffer);

    EXPECT_STREQ(buffer, L"C:\\plugins\\*.dll");
}

} // namespace
