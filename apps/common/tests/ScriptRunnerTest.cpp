#include "../ScriptRunner.h"

#include "ScopedTempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>

namespace {

using Pellux::ReadScript;

TEST(ReadScript, TakesFiles)
{
    ScopedTempDir folder;
    std::wstring text;

    EXPECT_TRUE(ReadScript(folder.Write("a.scm", "(view:iso) ; \xC3\xA4"), text));
    EXPECT_EQ(text, L"(view:iso) ; \u00E4");
}

TEST(ReadScript, TakesWhatComesThroughAPipe)
{
    ScopedTempDir folder;
    const std::string pipe = folder.Path().string() + "/pipe";
    if (std::system(("mkfifo '" + pipe + "'").c_str()) != 0)
        GTEST_SKIP() << "no named pipes here";
    std::thread writer([&pipe] { std::ofstream(pipe) << std::string(100000, 'x') << "\xC3\xA4"; });
    std::wstring text;

    EXPECT_TRUE(ReadScript(folder.WidePath() + L"/pipe", text));
    writer.join();

    EXPECT_EQ(text, std::wstring(100000, L'x') + L"\u00E4");
}

TEST(ReadScript, TakesStandardInput)
{
    std::istringstream typed("(view:iso)\n");
    std::streambuf* const former = std::cin.rdbuf(typed.rdbuf());
    std::wstring text;

    EXPECT_TRUE(ReadScript(L"-", text));
    std::cin.rdbuf(former);

    EXPECT_EQ(text, L"(view:iso)\n");
}

TEST(ReadScript, RefusesFoldersAndWhatIsNotThere)
{
    ScopedTempDir folder;
    std::wstring text;

    EXPECT_FALSE(ReadScript(folder.WidePath(), text));
    EXPECT_FALSE(ReadScript(folder.WidePath() + L"/absent.scm", text));
}

} // namespace
