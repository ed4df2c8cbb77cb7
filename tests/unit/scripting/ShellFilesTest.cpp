// Script files and start-up scripts.
#include "ShellFixture.h"

#include <filesystem>

namespace {

using ShellFiles = ShellTest;

TEST_F(ShellFiles, RunsAFileOnTheWorkerAndEmptiesTheOutput)
{
    makeShell();
    m_shell->Init();
    const std::wstring file = m_folder.Dir().Write("a.fake", "(one)\n(two)");

    EXPECT_TRUE(m_shell->LoadScript(file, m_output, /*flag=*/false));

    EXPECT_EQ(m_output, L"");
    EXPECT_EQ(engine().Texts(), (Texts{L"(one)\n(two)"}));
    EXPECT_TRUE(engine().m_threadsAgree);
}

TEST_F(ShellFiles, TellsTheEngineWhereTheScriptComesFrom)
{
    makeShell();
    const std::wstring file = m_folder.Dir().Write("a.fake", "x");

    m_shell->LoadScript(file, m_output, /*flag=*/true);
    m_shell->RunScript(L"y", m_output);

    EXPECT_EQ(engine().m_nextSources, (Texts{file + L":1:1"}));
    EXPECT_EQ(engine().m_sources, (Texts{L"", L""}));
}

TEST_F(ShellFiles, DoesNotInitializeTheEngine)
{
    makeShell();

    m_shell->LoadScript(m_folder.Dir().Write("a.fake", "x"), m_output, /*flag=*/false);

    EXPECT_EQ(engine().Calls(), (Calls{"created", "LoadScriptText", "Execute"}));
}

TEST_F(ShellFiles, FlagFalseHasTheOutputPrinted)
{
    makeShell();

    m_shell->LoadScript(m_folder.Dir().Write("a.fake", "x"), m_output, /*flag=*/false);

    EXPECT_EQ(m_listener.Messages(), (Messages{{L"ran: x", 0}}));
}

TEST_F(ShellFiles, FlagTrueKeepsTheOutputBack)
{
    makeShell();

    m_shell->LoadScript(m_folder.Dir().Write("a.fake", "x"), m_output, /*flag=*/true);
    m_shell->LoadScript(m_folder.Dir().Write("b.fake", "fail"), m_output, /*flag=*/true);

    EXPECT_TRUE(m_listener.Messages().empty());
}

TEST_F(ShellFiles, FailedScriptGivesTheOutputOfTheEngine)
{
    makeShell();

    EXPECT_FALSE(
        m_shell->LoadScript(m_folder.Dir().Write("a.fake", "fail"), m_output, /*flag=*/false));

    EXPECT_EQ(m_output, L"failed: fail");
}

TEST_F(ShellFiles, WithoutAnEngineNothingIsLoaded)
{
    makeShell("");

    EXPECT_FALSE(m_shell->LoadScript(m_folder.Dir().Write("a.fake", "x"), m_output, false));

    EXPECT_EQ(m_output, L"*** Error : No Script Engine Available");
}

TEST_F(ShellFiles, MissingFileIsRefused)
{
    makeShell();
    const std::wstring file = m_folder.FileName("missing.fake");

    EXPECT_FALSE(m_shell->LoadScript(file, m_output, /*flag=*/false));

    EXPECT_EQ(m_output, L"Failed to load script, file :" + file + L" does not exist");
}

TEST_F(ShellFiles, FileWithAnotherExtensionIsRefused)
{
    makeShell();

    EXPECT_FALSE(m_shell->LoadScript(m_folder.Dir().Write("a.txt", "x"), m_output, false));

    EXPECT_EQ(m_output, L"Failed to load script, no fake extension");
}

TEST_F(ShellFiles, OnlyTheExtensionOfTheFileIsLowerCased)
{
    makeShell();
    const std::wstring file = m_folder.Dir().Write("a.FAKE", "x");
    EXPECT_TRUE(m_shell->LoadScript(file, m_output, /*flag=*/false));

    engine().m_extension = L"FAKE";

    EXPECT_FALSE(m_shell->LoadScript(file, m_output, /*flag=*/false));
    EXPECT_EQ(m_output, L"Failed to load script, no FAKE extension");
}

TEST_F(ShellFiles, EmptyFileCannotBeRead)
{
    makeShell();
    const std::wstring file = m_folder.Dir().Write("a.fake", "");

    EXPECT_FALSE(m_shell->LoadScript(file, m_output, /*flag=*/false));

    EXPECT_EQ(m_output, L"Failed to read script file : " + file);
}

TEST_F(ShellFiles, DirectoryCannotBeRead)
{
    makeShell();
    std::filesystem::create_directory(m_folder.Dir().Path() / "folder.fake");
    const std::wstring file = m_folder.FileName("folder.fake");

    EXPECT_FALSE(m_shell->LoadScript(file, m_output, /*flag=*/false));

    EXPECT_EQ(m_output, L"Failed to read script file : " + file);
}

TEST_F(ShellFiles, FileNamesWithOddCharactersAreRead)
{
    makeShell();
    const std::wstring file = m_folder.Dir().Write("\xF0\x9F\x9A\x80 \xC3\xBC.fake", "x");

    EXPECT_TRUE(m_shell->LoadScript(file, m_output, /*flag=*/false));
}

/// The folder in which the executable lies has a start-up folder two levels up.
class StartupScripts : public ShellTest
{
protected:
    StartupScripts()
    {
        std::filesystem::create_directories(m_folder.Dir().Path() / "build/bin");
        OrvikOs::SetExecutablePath(m_folder.FileName("build/bin/program"));
    }
    std::wstring writeNear(const std::string& name, std::string_view text) const
    {
        return m_folder.Dir().Write("build/bin/startup/" + name, text);
    }
    std::wstring writeFar(const std::string& name, std::string_view text) const
    {
        return m_folder.Dir().Write("startup/Pellux/" + name, text);
    }
};

TEST_F(StartupScripts, RunInSortedOrder)
{
    makeShell();
    writeNear("b.fake", "second");
    writeNear("a.fake", "first");
    writeNear("c.fake", "third");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"first", L"second", L"third"}));
    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
}

TEST_F(StartupScripts, ComeFromTheFirstFolderOnlyWhereItHasAny)
{
    makeShell();
    writeNear("a.fake", "near");
    writeFar("a.fake", "far");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"near"}));
}

TEST_F(StartupScripts, ComeFromTheSecondFolderWhereTheFirstHasNone)
{
    makeShell();
    writeNear("readme.txt", "no script");
    writeFar("a.fake", "far");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"far"}));
}

TEST_F(StartupScripts, NeedExactlyTheExtensionOfTheEngine)
{
    makeShell();
    writeNear("a.FAKE", "upper");
    writeNear("b.fake2", "longer");
    writeNear("fake", "bare");
    writeNear("c.x.fake", "good");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"good"}));
}

TEST_F(StartupScripts, SkipNamesThatBeginWithAPoint)
{
    makeShell();
    writeNear(".hidden.fake", "hidden");
    writeNear(".fake", "hidden");
    writeNear("a.fake", "good");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"good"}));
}

TEST_F(StartupScripts, IncludeTheOneThatTheHostNamed)
{
    makeShell();
    writeNear("a.fake", "first");
    const std::wstring own = m_folder.Dir().Write("build/bin/startup0.fake", "own");
    m_shell->AddStartupScript(L"never.fake");
    m_shell->AddStartupScript(own);

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().Texts(), (Texts{L"first", L"own"}));
}

TEST_F(StartupScripts, HandTheEngineALog)
{
    makeShell();
    writeNear("a.fake", "x");
    writeNear("b.fake", "y");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().m_startupLog, L"loading : " + m_folder.FileName("build/bin/startup/a.fake") +
                                         L"\n        : a.fake\n        : b.fake\n");
}

TEST_F(StartupScripts, LogOfNoScriptsIsEmpty)
{
    makeShell();
    engine().m_startupLog = L"stale";

    m_shell->LoadStartupScripts();

    EXPECT_EQ(engine().m_startupLog, L"");
    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
}

TEST_F(StartupScripts, FailuresGoToTheLogAndTheErrorText)
{
    makeShell();
    writeNear("a.fake", "fail one");
    writeNear("b.fake", "good");
    writeNear("c.fake", "fail two");

    m_shell->LoadStartupScripts();

    EXPECT_FALSE(m_shell->GetIsStartupLoadOK());
    EXPECT_EQ(m_shell->GetStartupError(), L"failed: fail one\nfailed: fail two\n");
    EXPECT_EQ(engine().m_startupLog,
              L"loading : " + m_folder.FileName("build/bin/startup/a.fake") +
                  L"\n        : a.fake\nfailed: fail one\n        : b.fake\n        : c.fake\n"
                  L"failed: fail two\n");
    EXPECT_EQ(engine().Texts().size(), 3u);
}

TEST_F(StartupScripts, LogHoldsTheOutputOfTheEngineAfterAFailure)
{
    makeShell();
    writeNear("a.fake", "good");
    m_shell->AddStartupScript(m_folder.FileName("missing.fake"));

    m_shell->LoadStartupScripts();

    EXPECT_FALSE(m_shell->GetIsStartupLoadOK());
    EXPECT_EQ(m_shell->GetStartupError(), L"ran: good\n");
}

TEST_F(StartupScripts, PrintNothing)
{
    makeShell();
    writeNear("a.fake", "fail");
    writeNear("b.fake", "good");

    m_shell->LoadStartupScripts();

    EXPECT_TRUE(m_listener.Messages().empty());
}

TEST_F(StartupScripts, ForgetTheErrorsOfTheTimeBefore)
{
    makeShell("EngineInitThrows.dll");
    m_shell->Init();
    EXPECT_FALSE(m_shell->GetIsStartupLoadOK());

    m_shell->LoadStartupScripts();

    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
    EXPECT_EQ(m_shell->GetStartupError(), L"");
}

TEST_F(StartupScripts, WithoutAnEngineNothingHappens)
{
    makeShell("");
    writeNear("a.fake", "x");

    m_shell->LoadStartupScripts();

    EXPECT_EQ(m_shell->GetStartupError(), L"Failed to instanciate script engine");
    EXPECT_TRUE(m_shell->GetIsStartupLoadOK());
}

} // namespace
