#include "OrvikCore/LoadModes.h"

#include <gtest/gtest.h>

using OrvikCore::LoadMode;
using OrvikCore::LoadModes;

TEST(LoadModes, EverythingIsLoadedAtTheStart)
{
    EXPECT_FALSE(LoadModes::GetForceGraphical());
    EXPECT_FALSE(LoadModes::GetForceProductStructure());
    EXPECT_EQ(LoadModes::Present(), LoadMode::Everything);
}

TEST(LoadModes, EachSettingGivesItsMode)
{
    LoadModes::SetForceGraphical(true);
    EXPECT_EQ(LoadModes::Present(), LoadMode::Graphical);

    LoadModes::SetForceGraphical(false);
    LoadModes::SetForceProductStructure(true);
    EXPECT_EQ(LoadModes::Present(), LoadMode::ProductStructure);
}

TEST(LoadModes, OfBothSettingsTheProductStructureHolds)
{
    LoadModes::SetForceGraphical(true);
    LoadModes::SetForceProductStructure(true);

    EXPECT_EQ(LoadModes::Present(), LoadMode::ProductStructure);

    LoadModes::SetForceProductStructure(false);

    EXPECT_EQ(LoadModes::Present(), LoadMode::Graphical);
}
