#include "OrvikCore/AScriptModulePluginFactory.h"

#include "PluginsFixture.h"
#include "VirtualSlot.h"

#include <stdexcept>

namespace {

using Calls = std::vector<std::string>;
using Texts = std::vector<std::wstring>;

/// A factory that notes its calls and fails where a test says so.
class RecordingFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

    static int DoInitializeSlot() { return VirtualSlot(&RecordingFactory::doInitialize); }
    static int DescribeSlot() { return VirtualSlot(&RecordingFactory::describe); }
    static int DoPreLoadSlot() { return VirtualSlot(&RecordingFactory::doPreLoad); }
    static int GetPreqPluginsSlot() { return VirtualSlot(&RecordingFactory::getPreqPlugins); }
    static int CreateMenuSlot() { return VirtualSlot(&RecordingFactory::createContextMenuItems); }

    using AScriptModulePluginFactory::addGetProduct;
    using AScriptModulePluginFactory::logError;
    using AScriptModulePluginFactory::logMessage;
    using AScriptModulePluginFactory::setDescription;

    Calls m_calls;
    std::string m_throwIn;
    bool m_throwsOdd = false;
    bool m_result = true;
    Texts m_required;
    void* m_context = nullptr;

protected:
    bool doInitialize(void* context) override
    {
        m_context = context;
        note("doInitialize");
        m_initialized = m_result;
        return m_result;
    }
    void describe() override
    {
        setName("Recording");
        note("describe");
    }
    void doPreLoad() override { note("doPreLoad"); }
    Texts getPreqPlugins() override
    {
        note("getPreqPlugins");
        return m_required;
    }
    void createContextMenuItems() override { note("createContextMenuItems"); }

private:
    void note(const std::string& call)
    {
        m_calls.push_back(call);
        if (call != m_throwIn) {
            return;
        }
        if (m_throwsOdd) {
            throw 42;
        }
        throw std::runtime_error("failed in " + call);
    }
};

/// The least that a factory must have.
class PlainFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

protected:
    bool doInitialize(void*) override { return true; }
    void describe() override {}
};

TEST(AScriptModulePluginFactory, OperationsStandInTheirSlots)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::AScriptModulePluginFactory::Terminate), 2);
    EXPECT_EQ(RecordingFactory::DoInitializeSlot(), 3);
    EXPECT_EQ(RecordingFactory::DescribeSlot(), 4);
    EXPECT_EQ(RecordingFactory::DoPreLoadSlot(), 5);
    EXPECT_EQ(RecordingFactory::GetPreqPluginsSlot(), 6);
    EXPECT_EQ(RecordingFactory::CreateMenuSlot(), 7);
}

TEST(AScriptModulePluginFactory, PreLoadsAfterTheMenuItems)
{
    RecordingFactory factory;

    EXPECT_TRUE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins", "doInitialize",
                                      "createContextMenuItems", "doPreLoad"}));
}

TEST(AScriptModulePluginFactory, DoesNotPreLoadUnasked)
{
    RecordingFactory factory;

    factory.Initialize(nullptr, /*preLoad=*/false);

    EXPECT_EQ(factory.m_calls.back(), "createContextMenuItems");
}

TEST(AScriptModulePluginFactory, HandsTheContextItselfThrough)
{
    RecordingFactory factory;
    int context = 0;

    factory.Initialize(&context, /*preLoad=*/false);

    EXPECT_EQ(factory.m_context, &context);
}

TEST(AScriptModulePluginFactory, SecondInitializationIsTrueAndDoesNothing)
{
    RecordingFactory factory;
    factory.Initialize(nullptr, /*preLoad=*/true);
    factory.m_calls.clear();

    EXPECT_TRUE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_TRUE(factory.m_calls.empty());
    EXPECT_TRUE(factory.IsInitialized());
}

TEST(AScriptModulePluginFactory, RefusalKeepsMenuItemsAndPreLoadAway)
{
    RecordingFactory factory;
    factory.m_result = false;

    EXPECT_FALSE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins", "doInitialize"}));
    EXPECT_TRUE(factory.GetInfo().GetErrors().empty());
}

TEST(AScriptModulePluginFactory, DefaultsRequireAndAddNothing)
{
    PlainFactory factory;

    EXPECT_TRUE(factory.Initialize(nullptr, /*preLoad=*/true));
    EXPECT_FALSE(factory.IsInitialized());
}

TEST(AScriptModulePluginFactory, ExceptionOfTheInitializationIsNoted)
{
    RecordingFactory factory;
    factory.m_throwIn = "doInitialize";

    EXPECT_FALSE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.GetInfo().GetErrors(),
              (Texts{L"Recording failed to initialize with error : failed in doInitialize"}));
    EXPECT_EQ(factory.m_calls.back(), "doInitialize");
}

TEST(AScriptModulePluginFactory, OddExceptionOfTheInitializationIsUnknown)
{
    RecordingFactory factory;
    factory.m_throwIn = "doInitialize";
    factory.m_throwsOdd = true;

    EXPECT_FALSE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.GetInfo().GetErrors(),
              (Texts{L"Recording failed to initialize with error : unknown"}));
}

TEST(AScriptModulePluginFactory, ExceptionOfTheMenuItemsMakesItFail)
{
    RecordingFactory factory;
    factory.m_throwIn = "createContextMenuItems";

    EXPECT_FALSE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.m_calls.back(), "createContextMenuItems");
}

TEST(AScriptModulePluginFactory, ExceptionOfThePreLoadPasses)
{
    RecordingFactory factory;
    factory.m_throwIn = "doPreLoad";

    EXPECT_THROW(factory.Initialize(nullptr, /*preLoad=*/true), std::runtime_error);
}

TEST(AScriptModulePluginFactory, EveryMissingPrerequisiteIsNoted)
{
    RecordingFactory factory;
    factory.m_required = {L"One", L"Two"};

    EXPECT_FALSE(factory.Initialize(nullptr, /*preLoad=*/true));

    EXPECT_EQ(factory.m_calls, (Calls{"describe", "getPreqPlugins"}));
    EXPECT_EQ(factory.GetInfo().GetErrors(),
              (Texts{L"Recording: requires plugin One to be initialized first.",
                     L"Recording: requires plugin Two to be initialized first."}));
}

TEST(AScriptModulePluginFactory, FillsItsDescription)
{
    RecordingFactory factory;
    factory.setDescription(L"Commands");
    factory.addGetProduct("doc:load");
    factory.logMessage(L"hello");
    factory.logError(L"alas");

    const OrvikCore::PluginInfo info = factory.GetInfo();

    EXPECT_EQ(info.GetDescription(), L"Commands");
    EXPECT_EQ(info.GetProducts(), (Calls{"doc:load"}));
    EXPECT_EQ(info.GetMessages(), (Texts{L"hello"}));
    EXPECT_EQ(info.GetErrors(), (Texts{L"alas"}));
}

} // namespace
