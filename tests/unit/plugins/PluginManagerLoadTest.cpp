// Recording single libraries.
#include "PluginsFixture.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/PluginManager.h"

#include <TambCommandsInfra/ProtectSignalHandlingContext.h>

#include <stdexcept>

namespace {

using PluginManager = PluginsTest;
using Calls = std::vector<std::string>;

/// The text of the exception that @p action throws; "<none>" without one.
template <typename Action> std::string textThrown(Action action)
{
    try {
        action();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "<none>";
}

TEST_F(PluginManager, RecordsAGoodPluginWithItsName)
{
    OrvikCore::APluginFactory* const factory = load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_NE(factory, nullptr);
    EXPECT_EQ(m_errorText, L"<null>");
    ASSERT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_STREQ(manager().GetPluginName(0), L"Good");
    EXPECT_EQ(manager().CreatePlugin(0), factory);
}

TEST_F(PluginManager, LoadPluginOfARecordedFileGivesItsFactory)
{
    const std::wstring file = m_folder.Add("Good.Plugin.dll");
    OrvikCore::APluginFactory* const factory = load(file);

    EXPECT_EQ(load(file), factory);
    EXPECT_EQ(m_errorText, L"<null>");
    EXPECT_EQ(manager().GetPluginsCount(), 1);
}

TEST_F(PluginManager, LoadPluginSetsTheErrorTextToNullFirst)
{
    const std::wstring file = m_folder.Add("Good.Plugin.dll");
    wchar_t stale[] = L"stale";
    wchar_t* errorText = stale;

    manager().LoadPlugin(file.c_str(), errorText, L"");

    EXPECT_EQ(errorText, nullptr);
}

TEST_F(PluginManager, TellsTheCallbackWhatItLoads)
{
    listen();
    const std::wstring file = m_folder.Add("Good.Plugin.dll", "UPPER.Plugin.dll");

    load(file);

    EXPECT_EQ(notices(), (std::vector<Notice>{{L"loading : " + file, 0}}));
}

TEST_F(PluginManager, WritesTheDebugLineWithAndWithoutACallback)
{
    const std::wstring first = m_folder.Add("Good.Plugin.dll");
    const std::wstring second = m_folder.Add("LoaderType.Plugin.dll");

    load(first);
    listen();
    load(second);

    const Calls lines = m_debug.LinesAfter("-- loading : ");
    EXPECT_EQ(lines, (Calls{TambVizCore::Utils::WstringToString(first),
                            TambVizCore::Utils::WstringToString(second)}));
}

TEST_F(PluginManager, PlainFileIsReportedWithTheSystemsText)
{
    listen();
    const std::wstring file = m_folder.Dir().Write("Text.Plugin.dll", "I am no library.");

    EXPECT_EQ(load(file), nullptr);

    const std::wstring beginning =
        L"Attempt to load " + file + L" failed with error Message :  (code : 0xb ) ";
    EXPECT_EQ(m_errorText.substr(0, beginning.size()), beginning);
    EXPECT_GT(m_errorText.size(), beginning.size());
    EXPECT_EQ(errors(), (std::vector<std::wstring>{m_errorText}));
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, MissingFileIsReportedWithTheNumberOfTheFailedOpening)
{
    listen();
    const std::wstring file = m_folder.FileName("Missing.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    const std::wstring beginning =
        L"Attempt to load " + file + L" failed with error Message :  (code : 0x2 ) ";
    EXPECT_EQ(m_errorText.substr(0, beginning.size()), beginning);
}

TEST_F(PluginManager, BareNameIsLookedForInTheExecutablesFolder)
{
    m_folder.Add("Good.Plugin.dll");

    EXPECT_NE(load(L"Good.Plugin.dll"), nullptr);
}

TEST_F(PluginManager, LoadErrorWithoutACallbackIsThrown)
{
    const std::wstring file = m_folder.Add("NoType.Plugin.dll");

    const std::string text = textThrown([&] { load(file); });

    EXPECT_EQ(text,
              TambVizCore::Utils::WstringToString(L"Missing plugin type definition in " + file));
    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
}

TEST_F(PluginManager, WritesTheErrorToTheDebugOutputEvenWhenItThrows)
{
    const std::wstring file = m_folder.Add("NoType.Plugin.dll");

    textThrown([&] { load(file); });

    EXPECT_EQ(
        m_debug.LinesAfter("\t  "),
        (Calls{TambVizCore::Utils::WstringToString(L"Missing plugin type definition in " + file)}));
}

TEST_F(PluginManager, PausesAfterTellingAnError)
{
    listen();

    load(m_folder.Add("NoType.Plugin.dll"));

    EXPECT_EQ(m_sleeper.m_sleepsMs, (std::vector<int>{500}));
}

TEST_F(PluginManager, DoesNotPauseAfterAGoodPlugin)
{
    listen();

    load(m_folder.Add("Good.Plugin.dll"));

    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
}

TEST_F(PluginManager, LibraryWithoutCreatePluginIsDroppedInSilence)
{
    listen();

    EXPECT_EQ(load(m_folder.Add("NoCreate.Plugin.dll")), nullptr);

    EXPECT_EQ(m_errorText, L"<null>");
    EXPECT_TRUE(errors().empty());
    EXPECT_TRUE(m_sleeper.m_sleepsMs.empty());
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, LibraryWithoutCreatePluginStaysLoaded)
{
    const std::wstring file = m_folder.Add("NoCreate.Plugin.dll");

    load(file);

    EXPECT_TRUE(isInProcess(file));
}

TEST_F(PluginManager, LibraryWithAnErrorIsReleased)
{
    listen();
    const std::wstring file = m_folder.Add("NoName.Plugin.dll");

    load(file);

    EXPECT_FALSE(isInProcess(file));
}

TEST_F(PluginManager, DroppedLibraryNeitherThrowsWithoutACallback)
{
    EXPECT_EQ(load(m_folder.Add("NoCreate.Plugin.dll")), nullptr);
}

TEST_F(PluginManager, MissingTypeIsAnErrorAndLeavesNoRecord)
{
    listen();
    const std::wstring file = m_folder.Add("NoType.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Missing plugin type definition in " + file);
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, MissingNameIsAnErrorAndLeavesNoRecord)
{
    listen();
    const std::wstring file = m_folder.Add("NoName.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Missing plugin name definition in " + file);
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, NullFactoryIsAnErrorAndLeavesARecord)
{
    listen();
    const std::wstring file = m_folder.Add("NullFactory.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Cannot create factory in " + file);
    EXPECT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_STREQ(manager().GetPluginName(0), L"NullFactory");
}

TEST_F(PluginManager, ExceptionOfCreatePluginLeavesARecordWithoutFactory)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOnCreate.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Cannot load " + file + L" plugin : no licence");
    EXPECT_EQ(manager().GetPluginsCount(), 1);
}

TEST_F(PluginManager, OddExceptionOfCreatePluginIsUnexpected)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOddOnCreate.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Cannot load " + file + L" plugin : unexpected error");
}

TEST_F(PluginManager, MachineFaultOfCreatePluginIsAnErrorInsideAProtectionScope)
{
    listen();
    m_folder.Add("FaultsOnCreate.Plugin.dll");
    m_folder.Add("Good.Plugin.dll");

    {
        const TambCommandsInfra::ProtectSignalHandlingContext protection;
        manager().LoadPlugins(L"Plugins");
    }

    ASSERT_EQ(errors().size(), 1u);
    EXPECT_EQ(errors()[0].rfind(L"Cannot load " + m_folder.FileName("FaultsOnCreate.Plugin.dll") +
                                    L" plugin : Unhandled Exception",
                                0),
              0u);
    EXPECT_GE(manager().FindPluginByName(L"Good"), 0);
}

TEST_F(PluginManager, ExceptionOfGetPluginTypeLeavesNoRecord)
{
    listen();
    const std::wstring file = m_folder.Add("ThrowsOnType.Plugin.dll");

    EXPECT_EQ(load(file), nullptr);

    EXPECT_EQ(m_errorText, L"Cannot load " + file + L" plugin : no type today");
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, NonAsciiNameIsTakenAsUtf8)
{
    load(m_folder.Add("NonAsciiName.Plugin.dll"));

    EXPECT_EQ(manager().FindPluginByName(L"Gr\u00FCn"), 0);
}

TEST_F(PluginManager, NullTextsOfAPluginCountAsEmpty)
{
    load(m_folder.Add("NullTexts.Plugin.dll"));

    ASSERT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_STREQ(manager().GetPluginName(0), L"");
}

TEST_F(PluginManager, FileNamesWithOddCharactersAreLoaded)
{
    EXPECT_NE(load(m_folder.Add("Good.Plugin.dll", "\xF0\x9F\x9A\x80 \xC3\xBC.Plugin.dll")),
              nullptr);
}

TEST_F(PluginManager, FolderWordPluginsAdmitsContentAndStoresTheType)
{
    load(m_folder.Add("Good.Plugin.dll"), L"Plugins");

    ASSERT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_STREQ(manager().GetPluginType(0), "Content");
}

TEST_F(PluginManager, FolderWordPluginsAdmitsLoaders)
{
    load(m_folder.Add("LoaderType.Plugin.dll"), L"Plugins");

    ASSERT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_STREQ(manager().GetPluginType(0), "Loader");
}

TEST_F(PluginManager, FolderWordPluginsDropsOtherTypesInSilence)
{
    listen();

    EXPECT_EQ(load(m_folder.Add("OtherType.Plugin.dll"), L"Plugins"), nullptr);

    EXPECT_EQ(m_errorText, L"<null>");
    EXPECT_TRUE(errors().empty());
    EXPECT_EQ(manager().GetPluginsCount(), 0);
}

TEST_F(PluginManager, LibraryDroppedForItsTypeStaysLoaded)
{
    const std::wstring file = m_folder.Add("OtherType.Plugin.dll");

    load(file, L"Plugins");

    EXPECT_TRUE(isInProcess(file));
}

TEST_F(PluginManager, OtherFolderWordsAdmitEveryTypeAndStoreNone)
{
    load(m_folder.Add("OtherType.Plugin.dll"), L"plugins");

    ASSERT_EQ(manager().GetPluginsCount(), 1);
    EXPECT_EQ(manager().GetPluginType(0), nullptr);
}

} // namespace
