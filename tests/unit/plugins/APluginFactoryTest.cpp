#include "OrvikCore/APluginFactory.h"

#include "PluginsFixture.h"
#include "VirtualSlot.h"

#include <stdexcept>

namespace {

using Calls = std::vector<std::string>;

/// A factory that notes its calls and fails where a test says so.
class RecordingFactory : public OrvikCore::APluginFactory
{
public:
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}

    static constexpr int DestructorSlots = 2;
    static int DescribeSlot() { return VirtualSlot(&RecordingFactory::describe); }
    static int DoInitializeSlot() { return VirtualSlot(&RecordingFactory::doInitialize); }
    static int DoPreLoadSlot() { return VirtualSlot(&RecordingFactory::doPreLoad); }
    static int GetPreqPluginsSlot() { return VirtualSlot(&RecordingFactory::getPreqPlugins); }
    static int CreateMenuSlot() { return VirtualSlot(&RecordingFactory::createContextMenuItems); }

    Calls m_calls;
    std::string m_throwIn;
    std::vector<std::wstring> m_required;
    void** m_context = nullptr;
    bool m_setsInitialized = true;

protected:
    void describe() override
    {
        setName("Recording");
        note("describe");
    }
    void doInitialize(void** const context) override
    {
        m_context = context;
        note("doInitialize");
        m_initialized = m_setsInitialized;
    }
    void doPreLoad() override { note("doPreLoad"); }
    std::vector<std::wstring> getPreqPlugins() override
    {
        note("getPreqPlugins");
        return m_required;
    }
    void createContextMenuItems() override { note("createContextMenuItems"); }

private:
    void note(const std::string& call)
    {
        m_calls.push_back(call);
        if (call == m_throwIn) {
            throw std::runtime_error("failed in " + call);
        }
    }
};

/// The least that a factory must have.
class PlainFactory : public OrvikCore::APluginFactory
{
public:
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}

protected:
    void describe() override {}
    void doInitialize(void** const) override {}
};

TEST(APluginFactory, OperationsStandInTheirSlots)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::APluginFactory::CreateObject), 2);
    EXPECT_EQ(VirtualSlot(&OrvikCore::APluginFactory::Terminate), 3);
    EXPECT_EQ(RecordingFactory::DescribeSlot(), 4);
    EXPECT_EQ(RecordingFactory::DoInitializeSlot(), 5);
    EXPECT_EQ(RecordingFactory::DoPreLoadSlot(), 6);
    EXPECT_EQ(RecordingFactory::GetPreqPluginsSlot(), 7);
    EXPECT_EQ(RecordingFactory::CreateMenuSlot(), 8);
}

TEST(APluginFactory, PreLoadsBeforeTheMenuItems)
{
    RecordingFactory factory;

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins", "doInitialize", "doPreLoad",
                                      "createContextMenuItems"}));
}

TEST(APluginFactory, DoesNotPreLoadUnasked)
{
    RecordingFactory factory;

    factory.Initialize(nullptr, /*preLoad=*/false);

    EXPECT_EQ(factory.m_calls,
              (Calls{"describe", "getPreqPlugins", "doInitialize", "createContextMenuItems"}));
}

TEST(APluginFactory, HandsTheContextThrough)
{
    RecordingFactory factory;
    void* context = &factory;

    factory.Initialize(&context, /*preLoad=*/false);

    EXPECT_EQ(factory.m_context, &context);
}

TEST(APluginFactory, SecondInitializationDoesNothing)
{
    RecordingFactory factory;
    factory.Initialize(nullptr, /*preLoad=*/true);
    factory.m_calls.clear();

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_TRUE(factory.m_calls.empty());
    EXPECT_TRUE(factory.IsInitialized());
}

TEST(APluginFactory, NeverSetsInitializedItself)
{
    RecordingFactory factory;
    factory.m_setsInitialized = false;

    factory.Initialize(nullptr, /*preLoad=*/false);

    EXPECT_FALSE(factory.IsInitialized());
}

TEST(APluginFactory, DefaultsRequireAndAddNothing)
{
    PlainFactory factory;

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_TRUE(factory.GetInfo().GetErrors().empty());
}

TEST(APluginFactory, ExceptionOfTheInitializationStopsItAndIsNoted)
{
    RecordingFactory factory;
    factory.m_throwIn = "doInitialize";

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins", "doInitialize"}));
    EXPECT_EQ(factory.GetInfo().GetErrors(),
              (std::vector<std::wstring>{L"failed in doInitialize\n   Source:  Recording\n"}));
}

TEST(APluginFactory, ExceptionOfThePreLoadKeepsTheMenuItemsAway)
{
    RecordingFactory factory;
    factory.m_throwIn = "doPreLoad";

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_EQ(factory.m_calls.back(), "doPreLoad");
    EXPECT_EQ(factory.GetInfo().GetErrors(),
              (std::vector<std::wstring>{L"failed in doPreLoad\n   Source:  Recording\n"}));
}

TEST(APluginFactory, ExceptionOfTheMenuItemsIsNoted)
{
    RecordingFactory factory;
    factory.m_throwIn = "createContextMenuItems";

    factory.Initialize(nullptr, /*preLoad=*/false);

    EXPECT_EQ(
        factory.GetInfo().GetErrors(),
        (std::vector<std::wstring>{L"failed in createContextMenuItems\n   Source:  Recording\n"}));
}

TEST(APluginFactory, ExceptionOfTheDescriptionPasses)
{
    RecordingFactory factory;
    factory.m_throwIn = "describe";

    EXPECT_THROW(factory.Initialize(nullptr, /*preLoad=*/true), std::runtime_error);
}

TEST(APluginFactory, EveryMissingPrerequisiteIsNotedAndKeepsItUninitialized)
{
    RecordingFactory factory;
    factory.m_required = {L"One", L"Two"};

    factory.Initialize(nullptr, /*preLoad=*/true);

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins"}));
    EXPECT_EQ(
        factory.GetInfo().GetErrors(),
        (std::vector<std::wstring>{L"Recording: requires plugin One to be initialized first.",
                                   L"Recording: requires plugin Two to be initialized first."}));
}

using APluginFactoryInManager = PluginsTest;

TEST_F(APluginFactoryInManager, PrerequisitesAreInitializedFirst)
{
    load(m_folder.Add("NeedsNeedsGood.Plugin.dll"));
    load(m_folder.Add("NeedsGood.Plugin.dll"));
    load(m_folder.Add("Good.Plugin.dll"));

    manager().Initialize(nullptr);

    Calls order;
    for (const std::string& line : m_debug.LinesAfter("[")) {
        const std::size_t call = line.find("] doInitialize");
        if (call != std::string::npos) {
            order.push_back(line.substr(0, call));
        }
    }
    EXPECT_EQ(order, (Calls{"Good", "NeedsGood", "NeedsNeedsGood"}));
}

TEST_F(APluginFactoryInManager, PresentPrerequisiteIsInitializedAlthoughAnotherIsMissing)
{
    OrvikCore::APluginFactory* const needs = load(m_folder.Add("NeedsAbsent.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    needs->Initialize(nullptr, /*preLoad=*/false);

    EXPECT_TRUE(good->IsInitialized());
    EXPECT_FALSE(needs->IsInitialized());
    EXPECT_EQ(
        needs->GetInfo().GetErrors(),
        (std::vector<std::wstring>{L"NeedsAbsent: requires plugin Absent to be initialized first.",
                                   L"NeedsAbsent: requires plugin Lost to be initialized first."}));
}

TEST_F(APluginFactoryInManager, MutualPrerequisitesRecurseUntilOneIsInitialized)
{
    OrvikCore::APluginFactory* const first = load(m_folder.Add("CyclicA.Plugin.dll"));
    OrvikCore::APluginFactory* const second = load(m_folder.Add("CyclicB.Plugin.dll"));

    first->Initialize(nullptr, /*preLoad=*/false);

    const Calls calls = log("CyclicA");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "describe"), 3);
    EXPECT_TRUE(first->IsInitialized());
    EXPECT_TRUE(second->IsInitialized());
}

TEST_F(APluginFactoryInManager, PrerequisiteBehindARecordWithoutFactoryIsMistaken)
{
    listen();
    load(m_folder.Add("NullFactory.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));
    OrvikCore::APluginFactory* const other = load(m_folder.Add("LoaderType.Plugin.dll"));
    OrvikCore::APluginFactory* const needs = load(m_folder.Add("NeedsGood.Plugin.dll"));

    needs->Initialize(nullptr, /*preLoad=*/false);

    EXPECT_FALSE(good->IsInitialized());
    EXPECT_TRUE(other->IsInitialized());
    EXPECT_TRUE(needs->IsInitialized());
}

TEST_F(APluginFactoryInManager, PrerequisiteIndexPastTheEndIsIgnored)
{
    listen();
    OrvikCore::APluginFactory* const needs = load(m_folder.Add("NeedsGood.Plugin.dll"));
    load(m_folder.Add("NullFactory.Plugin.dll"));
    OrvikCore::APluginFactory* const good = load(m_folder.Add("Good.Plugin.dll"));

    needs->Initialize(nullptr, /*preLoad=*/false);

    EXPECT_FALSE(good->IsInitialized());
    EXPECT_TRUE(needs->IsInitialized());
    EXPECT_TRUE(needs->GetInfo().GetErrors().empty());
}

} // namespace
