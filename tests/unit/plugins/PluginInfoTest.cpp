#include "OrvikCore/PluginInfo.h"

#include "OrvikCore/APluginFactory.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

using OrvikCore::PluginInfo;
using ::testing::Test;

/// A factory that lets the test reach what derived factories reach.
class OpenFactory : public OrvikCore::APluginFactory
{
public:
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}

    using APluginFactory::addGetProduct;
    using APluginFactory::getComponentName;
    using APluginFactory::logError;
    using APluginFactory::logMessage;
    using APluginFactory::setComponentName;
    using APluginFactory::setDescription;
    using APluginFactory::setName;

protected:
    void describe() override {}
    void doInitialize(void** const) override {}
};

static_assert(!std::is_default_constructible_v<PluginInfo>);
static_assert(std::is_copy_constructible_v<PluginInfo> && std::is_copy_assignable_v<PluginInfo>);
static_assert(std::is_move_constructible_v<PluginInfo> && std::is_move_assignable_v<PluginInfo>);

TEST(PluginInfo, StartsUndefinedAndEmpty)
{
    const PluginInfo info = OpenFactory().GetInfo();

    EXPECT_EQ(info.GetName(), "Undefined");
    EXPECT_EQ(info.GetDescription(), L"");
    EXPECT_EQ(info.GetComponentName(), "");
    EXPECT_TRUE(info.GetMessages().empty());
    EXPECT_TRUE(info.GetErrors().empty());
    EXPECT_TRUE(info.GetProducts().empty());
}

TEST(PluginInfo, TellsWhatTheFactorySet)
{
    OpenFactory factory;
    factory.setName("Mesh");
    factory.setDescription(L"Reads meshes");
    factory.addGetProduct("stl");
    factory.addGetProduct("obj");

    const PluginInfo info = factory.GetInfo();

    EXPECT_EQ(info.GetName(), "Mesh");
    EXPECT_EQ(info.GetDescription(), L"Reads meshes");
    EXPECT_EQ(info.GetProducts(), (std::vector<std::string>{"stl", "obj"}));
}

TEST(PluginInfo, IsAComponentOnceItHasAComponentName)
{
    OpenFactory factory;
    EXPECT_FALSE(factory.GetInfo().IsComponent());

    factory.setComponentName("kernel");

    EXPECT_TRUE(factory.GetInfo().IsComponent());
    EXPECT_EQ(factory.GetInfo().GetComponentName(), "kernel");
    EXPECT_EQ(factory.getComponentName(), "kernel");
}

TEST(PluginInfo, ListsErrorsAndMessagesInTheOrderOfLogging)
{
    OpenFactory factory;
    factory.logError(L"first");
    factory.logError(L"second");
    factory.logMessage(L"hello");
    factory.logMessage(L"again");

    EXPECT_EQ(factory.GetInfo().GetErrors(), (std::vector<std::wstring>{L"first", L"second"}));
    EXPECT_EQ(factory.GetInfo().GetMessages(), (std::vector<std::wstring>{L"hello", L"again"}));
}

TEST(PluginInfo, FlushingEmptiesErrorsAndMessagesOnly)
{
    OpenFactory factory;
    factory.logError(L"error");
    factory.logMessage(L"message");
    factory.addGetProduct("stl");

    factory.GetInfoRef().FlushMessagesAndErrors();

    EXPECT_TRUE(factory.GetInfo().GetErrors().empty());
    EXPECT_TRUE(factory.GetInfo().GetMessages().empty());
    EXPECT_EQ(factory.GetInfo().GetProducts(), (std::vector<std::string>{"stl"}));
}

TEST(PluginInfo, SetNameReplacesTheName)
{
    OpenFactory factory;

    factory.GetInfoRef().setName("Other");

    EXPECT_EQ(factory.GetInfo().GetName(), "Other");
}

} // namespace
