// ScriptPluginManager::LoadScriptEngine.
#include "PluginsFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/AScriptEngineFactory.h"
#include "OrvikCore/ScriptPluginManager.h"

#include <memory>
#include <stdexcept>

namespace {

using ScriptEngineLoading = PluginsTest;
using Texts = std::vector<std::wstring>;

std::unique_ptr<OrvikCore::AScriptEngine> loadEngine(const std::wstring& file)
{
    return std::unique_ptr<OrvikCore::AScriptEngine>(
        OrvikCore::ScriptPluginManager::Instance().LoadScriptEngine(file.c_str()));
}

/// The text of the exception that loading throws; "<none>" without one.
std::string textThrown(const std::wstring& file)
{
    try {
        loadEngine(file);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "<none>";
}

std::string narrow(const std::wstring& text)
{
    return TambVizCore::Utils::WstringToString(text);
}

TEST(AScriptEngineFactory, MakesEnginesInTheSlotAfterTheDestructor)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::AScriptEngineFactory::CreateEngine), 2);
}

TEST_F(ScriptEngineLoading, GivesTheEngineAndAnnouncesIt)
{
    listen();

    const auto engine = loadEngine(m_folder.Add("FakeEngine.dll"));

    ASSERT_NE(engine, nullptr);
    EXPECT_EQ(engine->GetLanguageName(), L"fake");
    EXPECT_EQ(notices(), (std::vector<Notice>{{L"Using Fake Script Engine", 0}}));
}

TEST_F(ScriptEngineLoading, GivesTheEngineWithoutACallbackToo)
{
    EXPECT_NE(loadEngine(m_folder.Add("FakeEngine.dll")), nullptr);
}

TEST_F(ScriptEngineLoading, DeletesTheFactoryAtOnce)
{
    const auto engine = loadEngine(m_folder.Add("FakeEngine.dll"));

    EXPECT_EQ(log("FakeEngineFactory"), (std::vector<std::string>{"deleted"}));
}

TEST_F(ScriptEngineLoading, LibraryThatCannotBeLoadedIsTold)
{
    listen();
    const std::wstring file = m_folder.Dir().Write("Text.dll", "I am no library.");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot load " + file}));
    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
}

TEST_F(ScriptEngineLoading, LibraryThatCannotBeLoadedIsThrownWithoutACallback)
{
    const std::wstring file = m_folder.FileName("Missing.dll");

    EXPECT_EQ(textThrown(file), narrow(L"Cannot load " + file));
}

TEST_F(ScriptEngineLoading, MissingEntryPointIsTold)
{
    listen();
    const std::wstring file = m_folder.Add("Good.Plugin.dll");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot instanciate script engine at " + file +
                               L" with error : Could not find RegisterScriptEngineFactory"}));
}

TEST_F(ScriptEngineLoading, LibraryWithoutAnEngineIsReleased)
{
    listen();
    const std::wstring file = m_folder.Add("NoCreate.Plugin.dll");

    loadEngine(file);

    EXPECT_FALSE(isInProcess(file));
}

TEST_F(ScriptEngineLoading, LibraryOfAMadeEngineStaysLoaded)
{
    const std::wstring file = m_folder.Add("FakeEngine.dll");

    loadEngine(file).reset();

    EXPECT_TRUE(isInProcess(file));
}

TEST_F(ScriptEngineLoading, ExceptionOfTheFactoryIsToldWithItsText)
{
    listen();
    const std::wstring file = m_folder.Add("EngineThrows.dll");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot instanciate script engine at " + file +
                               L" with error : no interpreter"}));
}

TEST_F(ScriptEngineLoading, ExceptionOfTheFactoryIsThrownOnWithoutACallback)
{
    const std::wstring file = m_folder.Add("EngineThrows.dll");

    EXPECT_EQ(textThrown(file), narrow(L"Cannot instanciate script engine at " + file +
                                       L" with error : no interpreter"));
}

TEST_F(ScriptEngineLoading, OddExceptionOfTheFactoryHasNoText)
{
    listen();
    const std::wstring file = m_folder.Add("EngineThrowsOdd.dll");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot instanciate script engine at " + file}));
}

TEST_F(ScriptEngineLoading, FactoryWithoutAnEngineIsAnError)
{
    listen();
    const std::wstring file = m_folder.Add("EngineNull.dll");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot instanciate script engine at " + file}));
}

TEST_F(ScriptEngineLoading, LibraryWithoutAFactoryIsAnError)
{
    listen();
    const std::wstring file = m_folder.Add("EngineNullFactory.dll");

    EXPECT_EQ(loadEngine(file), nullptr);

    EXPECT_EQ(errors(), (Texts{L"Cannot instanciate script engine at " + file}));
}

} // namespace
