#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

TEST(Start, StartupScriptsRunInTheOrderOfTheirNames)
{
    BatchProcess process;
    process.OwnRunFolder();
    process.Write("bin/startup/20-later.scm", "(app:print \"later \" early)\n");
    process.Write("bin/startup/10-early.scm", "(define early 1)\n(app:print \"early\")\n");

    process.ExpectGolden("startup", process.Run({"--eval", "early"}));
}

TEST(Start, NoStartupLeavesTheStartupScriptsOut)
{
    BatchProcess process;
    process.OwnRunFolder();
    process.Write("bin/startup/10-early.scm", "(app:print \"early\")\n");

    process.ExpectGolden("no-startup", process.Run({"--no-startup"}));
}

TEST(Start, AStartupScriptThatFailsIsAnError)
{
    BatchProcess process;
    process.OwnRunFolder();
    process.Write("bin/startup/10-early.scm", "(define a 1)\n(car a)\n");

    process.ExpectGolden("startup-error", process.Run({"--eval", "(app:print \"not run\")"}));
}

TEST(Start, WithoutAnEngineTheProgramCannotStart)
{
    BatchProcess process;
    process.Write("none.toml", "[ScriptEngine]\nFile = \"NoSuchEngine.dll\"\n");

    process.ExpectGolden("no-engine", process.Run({"--config", "none.toml"}));
}

TEST(Start, WithoutAViewTheProgramCannotStart)
{
    BatchProcess process;
    fs::remove(process.OwnRunFolder() / "OrvikView3dOpenGlSG.Plugin.dll");

    const Outcome outcome = process.Run({});

    EXPECT_EQ(outcome.exitCode, 3);
    EXPECT_NE(outcome.errors.find("pellux-batch: There is no 3D view"), std::string::npos)
        << outcome.errors;
}

TEST(Start, AMistakeInTheConfigurationNamesFileLineAndColumn)
{
    BatchProcess process;
    process.Write("wrong.toml", "[View3D]\nFile = \n");

    process.ExpectGolden("configuration-error", process.Run({"--config", "wrong.toml"}));
}

TEST(Start, AConfigurationThatIsNotThereIsAMistake)
{
    BatchProcess process;

    process.ExpectGolden("configuration-missing", process.Run({"--config", "absent.toml"}));
}

TEST(Start, NoConfigLeavesTheUsersConfigurationOut)
{
    BatchProcess process;
    process.Write("process/config/pellux/pellux.toml", "[View3D\n");

    EXPECT_EQ(process.Run({}).exitCode, 2);
    EXPECT_EQ(process.Run({"--no-config"}).exitCode, 0);
}

TEST(Start, AnUnknownOptionIsAnsweredWithTheNearest)
{
    BatchProcess process;

    process.ExpectGolden("unknown-option", process.Run({"--evla", "1"}));
}

TEST(Start, HelpAndVersionEndWell)
{
    BatchProcess process;

    EXPECT_EQ(process.Run({"--help"}).exitCode, 0);
    const Outcome version = process.Run({"--version"});
    EXPECT_EQ(version.exitCode, 0);
    EXPECT_EQ(version.output.substr(0, 13), "pellux-batch ");
}

TEST(Stop, WaitsForAJobWhoseWaitEndedEarly)
{
    BatchProcess process;
    process.UseTestCommands();
    const fs::path end = process.Folder() / "end.txt";

    process.Run({"--no-config", "--eval", "(test:outlive \"" + end.string() + "\")"});

    EXPECT_EQ(ReadBytes(end), "served");
}

} // namespace
