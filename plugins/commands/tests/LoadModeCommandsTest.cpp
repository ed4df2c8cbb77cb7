#include "CommandFixture.h"

#include <OrvikCore/LoadModes.h>

namespace {

using OrvikCore::LoadMode;
using OrvikCore::LoadModes;

class LoadModeCommands : public CommandFixture
{
};

TEST_F(LoadModeCommands, BothModesAreOffAtTheStart)
{
    EXPECT_EQ(run("WEND.getForceGraphicalMode"), Value(false));
    EXPECT_EQ(run("WEND.getForceProductStructureMode"), Value(false));
    EXPECT_EQ(LoadModes::Present(), LoadMode::Everything);
}

TEST_F(LoadModeCommands, LoadersSeeTheModeThatWasSet)
{
    run("WEND.setForceGraphicalMode", {true});

    EXPECT_EQ(run("WEND.getForceGraphicalMode"), Value(true));
    EXPECT_EQ(run("WEND.getForceProductStructureMode"), Value(false));
    EXPECT_EQ(LoadModes::Present(), LoadMode::Graphical);
}

TEST_F(LoadModeCommands, TheProductStructureWinsOverTheGraphicalMode)
{
    run("WEND.setForceGraphicalMode", {true});
    run("WEND.setForceProductStructureMode", {true});

    EXPECT_EQ(LoadModes::Present(), LoadMode::ProductStructure);
}

TEST_F(LoadModeCommands, AModeIsSwitchedOffAgain)
{
    run("WEND.setForceProductStructureMode", {true});
    run("WEND.setForceProductStructureMode", {false});

    EXPECT_EQ(run("WEND.getForceProductStructureMode"), Value(false));
    EXPECT_EQ(LoadModes::Present(), LoadMode::Everything);
}

TEST_F(LoadModeCommands, SettersGoToTheJournalAndWantASwitch)
{
    for (const char* name : {"WEND.setForceGraphicalMode", "WEND.setForceProductStructureMode"}) {
        EXPECT_EQ(m_table.Find(name)->effect, TambCommandsInfra::CommandEffect::Changes);
        EXPECT_EQ(errorOf(name, {1}), std::string(name) + ": parameter \"force\": expected true "
                                                          "or false, got the integer 1.");
    }
}

} // namespace
