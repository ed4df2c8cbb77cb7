#include "CommandFixture.h"

#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/Settings.h>

namespace {

using TambVizCore::RGBAColor;
using TambVizCore::Settings;

class SettingsCommands : public CommandFixture
{
};

TEST_F(SettingsCommands, ADefaultColorIsReadBackAsItWasSet)
{
    for (const std::string word : {"face", "edge", "vertex", "tessellated-edge"}) {
        run("app:set-default-" + word + "-color!", {List{1, 20, 255}});
        EXPECT_EQ(run("app:default-" + word + "-color"), Value(List{1, 20, 255})) << word;
    }
}

TEST_F(SettingsCommands, EachDefaultColorIsOneOfItsOwn)
{
    run("app:set-default-face-color!", {List{1, 0, 0}});
    run("app:set-default-edge-color!", {List{2, 0, 0}});
    run("app:set-default-vertex-color!", {List{3, 0, 0}});
    run("app:set-default-tessellated-edge-color!", {List{4, 0, 0}});

    EXPECT_EQ(Settings::Current()->GetDefaultFaceColor().r, 1);
    EXPECT_EQ(Settings::Current()->GetDefaultEdgeColor().r, 2);
    EXPECT_EQ(Settings::Current()->GetDefaultVertexColor().r, 3);
    EXPECT_EQ(Settings::Current()->GetDefaultTessEdgeColor().r, 4);
}

TEST_F(SettingsCommands, FalseRestoresADefaultColor)
{
    const Value first = run("app:default-face-color");
    run("app:set-default-face-color!", {List{1, 2, 3}});

    run("app:set-default-face-color!", {false});

    EXPECT_EQ(run("app:default-face-color"), first);
}

TEST_F(SettingsCommands, WhatIsNoColorIsRefused)
{
    const std::string expected = "app:set-default-face-color!: parameter \"color\": expected red, "
                                 "green and blue, three integers from 0 to 255, or #f, got ";

    EXPECT_EQ(errorOf("app:set-default-face-color!", {List{1, 2}}),
              expected + "a list of 2 elements.");
    EXPECT_EQ(errorOf("app:set-default-face-color!", {List{1, 2, 256}}),
              expected + "a list of 3 elements.");
    EXPECT_EQ(errorOf("app:set-default-face-color!", {true}), expected + "true.");
}

TEST_F(SettingsCommands, ADefaultAlphaIsReadBackAndRestored)
{
    for (const std::string word : {"face", "edge", "vertex"}) {
        const Value first = run("app:default-" + word + "-alpha");
        run("app:set-default-" + word + "-alpha!", {128});
        EXPECT_EQ(run("app:default-" + word + "-alpha"), Value(128)) << word;
        run("app:set-default-" + word + "-alpha!", {false});
        EXPECT_EQ(run("app:default-" + word + "-alpha"), first) << word;
    }
}

TEST_F(SettingsCommands, AnAlphaOutOfRangeIsRefused)
{
    EXPECT_EQ(errorOf("app:set-default-edge-alpha!", {-1}),
              "app:set-default-edge-alpha!: parameter \"alpha\": expected an integer from 0 to "
              "255, or #f, got the integer -1.");
}

TEST_F(SettingsCommands, ADefaultColorReachesTheView)
{
    run("app:set-default-face-color!", {List{1, 2, 3}});

    EXPECT_EQ(m_view.m_adapter.m_options.GetDefaultFaceColor().b, 3);
}

TEST_F(SettingsCommands, BothBackgroundsAreSetAndRead)
{
    run("app:set-background-color!", {1, List{1, 2, 3}});
    run("app:set-background-color!", {2, List{4, 5, 6}});

    EXPECT_EQ(run("app:background-color", {1}), Value(List{1, 2, 3}));
    EXPECT_EQ(run("app:background-color", {2}), Value(List{4, 5, 6}));
}

TEST_F(SettingsCommands, AThirdBackgroundIsRefused)
{
    EXPECT_EQ(errorOf("app:background-color", {3}),
              "app:background-color: parameter \"number\": expected an integer from 1 to 2, got "
              "the integer 3.");
}

TEST_F(SettingsCommands, ABackgroundWithoutColorIsRefused)
{
    EXPECT_EQ(errorOf("app:set-background-color!", {1, false}),
              "app:set-background-color!: parameter \"color\": expected red, green and blue, three "
              "integers from 0 to 255, got false.");
}

TEST_F(SettingsCommands, DefaultFoldersAreSetReadAndRestored)
{
    for (const std::string word : {"input", "output"}) {
        run("app:set-default-" + word + "-directory!", {L"models"});
        EXPECT_EQ(run("app:default-" + word + "-directory"), Value(L"models")) << word;
        run("app:set-default-" + word + "-directory!", {false});
        EXPECT_EQ(run("app:default-" + word + "-directory"), Value(L".")) << word;
    }
}

TEST_F(SettingsCommands, AFolderWithoutNameIsRefused)
{
    EXPECT_EQ(errorOf("app:set-default-input-directory!", {L""}),
              "app:set-default-input-directory!: parameter \"folder\": expected a path, or #f, got "
              "the string \"\".");
}

TEST_F(SettingsCommands, AToolTipReachesTheListeners)
{
    run("app:show-tool-tip", {L"a hole"});

    EXPECT_EQ(m_output.m_toolTips, std::vector<std::wstring>{L"a hole"});
}

TEST_F(SettingsCommands, CompletionsNeedADescriptionEach)
{
    EXPECT_EQ(errorOf("app:add-completions", {List{L"a", L"b"}, List{L"one"}, L"group"}),
              "app:add-completions: parameter \"descriptions\": expected as many as there are "
              "names, got a list of 1 element.");
}

TEST_F(SettingsCommands, CompletionsAreStrings)
{
    EXPECT_EQ(errorOf("app:add-members", {List{1}, L"part"}),
              "app:add-members: parameter \"names\": expected a list of strings, got the integer "
              "1.");
}

} // namespace
