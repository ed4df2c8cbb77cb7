#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Settings.h>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>

namespace TambVizCore {
namespace {

TEST(Settings, CurrentHoldsTheDefaultsAtStart)
{
    ASSERT_NE(Settings::Current(), nullptr);
    EXPECT_EQ(*Settings::Current(), Settings::Default());
}

TEST(Settings, DefaultsAreTheDocumentedOnes)
{
    const Settings& settings = Settings::Default();

    EXPECT_EQ(settings.GetDefaultFaceColor(), RGBAColor(180, 186, 196, 255));
    EXPECT_EQ(settings.GetDefaultEdgeColor(), RGBAColor(32, 32, 32, 255));
    EXPECT_EQ(settings.GetDefaultTessEdgeColor(), RGBAColor(96, 96, 96, 255));
    EXPECT_EQ(settings.GetDefaultVertexColor(), RGBAColor(16, 16, 16, 255));
    EXPECT_EQ(settings.GetHighlightColor(), RGBAColor(255, 140, 0, 255));
    EXPECT_EQ(settings.GetBackgroundColor1(), RGBAColor(214, 224, 236, 255));
    EXPECT_EQ(settings.GetBackgroundColor2(), RGBAColor(250, 251, 253, 255));
    EXPECT_EQ(settings.GetAntialiasLevel(), kAutomaticAntialiasing);
    EXPECT_FALSE(settings.GetCopyPickToClipboard());
    EXPECT_FALSE(settings.GetUseIncrementalRendering());
}

TEST(Settings, ChangingTheCurrentRecordLeavesTheDefaultAlone)
{
    Settings::Current()->SetDefaultFaceColor(RGBAColor(1, 2, 3, 4));
    Settings::Current()->SetCopyPickToClipboard(true);

    EXPECT_EQ(Settings::Current()->GetDefaultFaceColor(), RGBAColor(1, 2, 3, 4));
    EXPECT_EQ(Settings::Default().GetDefaultFaceColor(), RGBAColor(180, 186, 196));
    EXPECT_FALSE(Settings::Default().GetCopyPickToClipboard());
}

TEST(Settings, EachColourHasAFieldOfItsOwn)
{
    Settings settings;

    settings.SetDefaultFaceColor(RGBAColor(1, 0, 0));
    settings.SetDefaultEdgeColor(RGBAColor(2, 0, 0));
    settings.SetDefaultTessEdgeColor(RGBAColor(3, 0, 0));
    settings.SetDefaultVertexColor(RGBAColor(4, 0, 0));
    settings.SetHighlightColor(RGBAColor(5, 0, 0));
    settings.SetBackgroundColor1(RGBAColor(6, 0, 0));
    settings.SetBackgroundColor2(RGBAColor(7, 0, 0));

    EXPECT_EQ(settings.GetDefaultFaceColor().r, 1);
    EXPECT_EQ(settings.GetDefaultEdgeColor().r, 2);
    EXPECT_EQ(settings.GetDefaultTessEdgeColor().r, 3);
    EXPECT_EQ(settings.GetDefaultVertexColor().r, 4);
    EXPECT_EQ(settings.GetHighlightColor().r, 5);
    EXPECT_EQ(settings.GetBackgroundColor1().r, 6);
    EXPECT_EQ(settings.GetBackgroundColor2().r, 7);
}

TEST(Settings, CurrentMayBeTakenAwayAndReplaced)
{
    Settings::SetCurrent(nullptr);
    EXPECT_EQ(Settings::Current(), nullptr);

    auto settings = std::make_unique<Settings>();
    settings->SetAntialiasLevel(4);
    Settings::SetCurrent(std::move(settings));
    ASSERT_NE(Settings::Current(), nullptr);
    EXPECT_EQ(Settings::Current()->GetAntialiasLevel(), 4);
}

TEST(Settings, AntialiasLevelsAreClamped)
{
    Settings settings;

    settings.SetAntialiasLevel(-3);
    EXPECT_EQ(settings.GetAntialiasLevel(), kAutomaticAntialiasing);
    settings.SetAntialiasLevel(99);
    EXPECT_EQ(settings.GetAntialiasLevel(), 16);
}

TEST(Settings, LineWidthsAndStepsAreClamped)
{
    Settings settings;
    EXPECT_EQ(settings.GetLineWidth(), 1.0f);
    EXPECT_EQ(settings.GetAnimationSteps(), 20);

    settings.SetLineWidth(2.5f);
    EXPECT_EQ(settings.GetLineWidth(), 2.5f);
    settings.SetLineWidth(99.0f);
    EXPECT_EQ(settings.GetLineWidth(), 16.0f);
    settings.SetLineWidth(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(settings.GetLineWidth(), 1.0f);
    settings.SetAnimationSteps(0);
    EXPECT_EQ(settings.GetAnimationSteps(), 2);
    settings.SetAnimationSteps(1000);
    EXPECT_EQ(settings.GetAnimationSteps(), 100);
}

TEST(RenderingOptions, LineWidthsAreClamped)
{
    RenderingOptions options;
    EXPECT_EQ(options.GetLineWidth(), 1.0f);

    options.SetLineWidth(0.0f);
    EXPECT_EQ(options.GetLineWidth(), 1.0f);
    options.SetLineWidth(17.0f);
    EXPECT_EQ(options.GetLineWidth(), 16.0f);
}

TEST(RenderingOptions, CreateDefaultShowsAllButVerticesAndTessellation)
{
    const RenderingOptions options = RenderingOptions::CreateDefault();

    EXPECT_TRUE(options.GetShowFaces());
    EXPECT_TRUE(options.GetShowEdges());
    EXPECT_FALSE(options.GetShowVertices());
    EXPECT_FALSE(options.GetShowTessellation());
    EXPECT_TRUE(options.GetShowPointClouds());
    EXPECT_TRUE(options.GetShowPMI());
}

TEST(RenderingOptions, CreateDefaultTakesTheDefaultColours)
{
    Settings::Current()->SetDefaultEdgeColor(RGBAColor(9, 9, 9));

    const RenderingOptions options = RenderingOptions::CreateDefault();

    EXPECT_EQ(options.GetDefaultBodyColor(), RGBAColor(180, 186, 196));
    EXPECT_EQ(options.GetDefaultFaceColor(), RGBAColor(180, 186, 196));
    EXPECT_EQ(options.GetDefaultEdgeColor(), RGBAColor(32, 32, 32));
    EXPECT_EQ(options.GetDefaultTessEdgeColor(), RGBAColor(96, 96, 96));
    EXPECT_EQ(options.GetDefaultVertexColor(), RGBAColor(16, 16, 16));
    EXPECT_EQ(options.GetHighlightColor(), RGBAColor(255, 140, 0));
}

using Options = RenderingOptions;

/// One setter: what it sets, and whether the option reads that way afterwards.
struct Setter
{
    const char* name;
    std::function<void(Options&)> set;
    std::function<bool(const Options&)> isSet;
};

class RenderingOptionsSetter : public ::testing::TestWithParam<Setter>
{
};

TEST_P(RenderingOptionsSetter, CountsAChangeOnceAndNoRepetition)
{
    Options options = Options::CreateDefault();
    ASSERT_FALSE(GetParam().isSet(options));

    GetParam().set(options);
    GetParam().set(options);

    EXPECT_TRUE(GetParam().isSet(options));
    EXPECT_EQ(options.Revision(), 1u);
}

const RGBAColor kColor(1, 2, 3, 4);

INSTANTIATE_TEST_SUITE_P(
    All, RenderingOptionsSetter,
    ::testing::Values(Setter{"ShowFaces", [](Options& o) { o.SetShowFaces(false); },
                             [](const Options& o) { return !o.GetShowFaces(); }},
                      Setter{"ShowEdges", [](Options& o) { o.SetShowEdges(false); },
                             [](const Options& o) { return !o.GetShowEdges(); }},
                      Setter{"ShowVertices", [](Options& o) { o.SetShowVertices(true); },
                             [](const Options& o) { return o.GetShowVertices(); }},
                      Setter{"ShowTessellation", [](Options& o) { o.SetShowTessellation(true); },
                             [](const Options& o) { return o.GetShowTessellation(); }},
                      Setter{"ShowPointClouds", [](Options& o) { o.SetShowPointClouds(false); },
                             [](const Options& o) { return !o.GetShowPointClouds(); }},
                      Setter{"ShowPMI", [](Options& o) { o.SetShowPMI(false); },
                             [](const Options& o) { return !o.GetShowPMI(); }},
                      Setter{"BodyColor", [](Options& o) { o.SetDefaultBodyColor(kColor); },
                             [](const Options& o) { return o.GetDefaultBodyColor() == kColor; }},
                      Setter{"FaceColor", [](Options& o) { o.SetDefaultFaceColor(kColor); },
                             [](const Options& o) { return o.GetDefaultFaceColor() == kColor; }},
                      Setter{"EdgeColor", [](Options& o) { o.SetDefaultEdgeColor(kColor); },
                             [](const Options& o) { return o.GetDefaultEdgeColor() == kColor; }},
                      Setter{
                          "TessEdgeColor", [](Options& o) { o.SetDefaultTessEdgeColor(kColor); },
                          [](const Options& o) { return o.GetDefaultTessEdgeColor() == kColor; }},
                      Setter{"VertexColor", [](Options& o) { o.SetDefaultVertexColor(kColor); },
                             [](const Options& o) { return o.GetDefaultVertexColor() == kColor; }},
                      Setter{"HighlightColor", [](Options& o) { o.SetHighlightColor(kColor); },
                             [](const Options& o) { return o.GetHighlightColor() == kColor; }},
                      Setter{"AntialiasLevel", [](Options& o) { o.SetAntialiasLevel(4); },
                             [](const Options& o) { return o.GetAntialiasLevel() == 4; }},
                      Setter{"LineWidth", [](Options& o) { o.SetLineWidth(2.0f); },
                             [](const Options& o) { return o.GetLineWidth() == 2.0f; }},
                      Setter{"ShowCaps", [](Options& o) { o.SetShowCaps(false); },
                             [](const Options& o) { return !o.GetShowCaps(); }},
                      Setter{"ClipPlanes", [](Options& o) { o.SetClipPlanes({ClipPlane{}}); },
                             [](const Options& o) { return o.GetClipPlanes().size() == 1; }}),
    [](const auto& setter) { return setter.param.name; });

TEST(RenderingOptions, AntialiasLevelsAreClamped)
{
    Options options;

    options.SetAntialiasLevel(-2);
    EXPECT_EQ(options.GetAntialiasLevel(), kAutomaticAntialiasing);
    options.SetAntialiasLevel(17);
    EXPECT_EQ(options.GetAntialiasLevel(), 16);
}

TEST(RenderingOptions, AtMostSixClipPlanesAreKept)
{
    Options options;
    std::vector<ClipPlane> planes(8);
    planes[5].offset = 5.0f;

    options.SetClipPlanes(planes);

    ASSERT_EQ(options.GetClipPlanes().size(), 6u);
    EXPECT_EQ(options.GetClipPlanes()[5].offset, 5.0f);
}

TEST(ClipPlane, KeepsItsNormalsSideAndItself)
{
    const ClipPlane plane{{0.0f, 0.0f, 1.0f}, -2.0f};
    const float above[3] = {0.0f, 0.0f, 3.0f};
    const float on[3] = {5.0f, 5.0f, 2.0f};
    const float below[3] = {0.0f, 0.0f, 1.0f};

    EXPECT_TRUE(plane.Keeps(above));
    EXPECT_TRUE(plane.Keeps(on));
    EXPECT_FALSE(plane.Keeps(below));
}

} // namespace
} // namespace TambVizCore
