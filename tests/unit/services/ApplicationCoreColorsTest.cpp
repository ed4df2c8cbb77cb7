#include "FakeSession.h"
#include "FakeView3D.h"

#include "OrvikCore/TambApplicationCoreServicesPellux.h"

#include <TambVizCore/Settings.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

using TambCommandsInfra::Color24;
using TambCommandsInfra::Int8;
using TambCommandsInfra::Nullable;
using TambVizCore::RenderingOptions;
using TambVizCore::RGBAColor;
using TambVizCore::Settings;
using testing::ThrowsMessage;

namespace {

using Services = TambApplicationCoreServicesPellux;

/// One default colour: its services, its place in the settings and in the options of the view.
struct ColorCase
{
    const char* name;
    Nullable<Color24> (ITambApplicationCoreServices::*get)();
    void (ITambApplicationCoreServices::*set)(const Nullable<Color24>&);
    const RGBAColor& (Settings::*setting)() const;
    void (Settings::*change)(const RGBAColor&);
    const RGBAColor& (RenderingOptions::*option)() const;
};

struct AlphaCase
{
    const char* name;
    Nullable<Int8> (ITambApplicationCoreServices::*get)();
    void (ITambApplicationCoreServices::*set)(const Nullable<Int8>&);
    const RGBAColor& (Settings::*setting)() const;
    void (Settings::*change)(const RGBAColor&);
    const RGBAColor& (RenderingOptions::*option)() const;
};

std::ostream& operator<<(std::ostream& out, const ColorCase& color)
{
    return out << color.name;
}

std::ostream& operator<<(std::ostream& out, const AlphaCase& alpha)
{
    return out << alpha.name;
}

const ColorCase kColors[] = {
    {"Face", &Services::GetDefaultFaceColor, &Services::SetDefaultFaceColor,
     &Settings::GetDefaultFaceColor, &Settings::SetDefaultFaceColor,
     &RenderingOptions::GetDefaultFaceColor},
    {"Edge", &Services::GetDefaultEdgeColor, &Services::SetDefaultEdgeColor,
     &Settings::GetDefaultEdgeColor, &Settings::SetDefaultEdgeColor,
     &RenderingOptions::GetDefaultEdgeColor},
    {"Vertex", &Services::GetDefaultVertexColor, &Services::SetDefaultVertexColor,
     &Settings::GetDefaultVertexColor, &Settings::SetDefaultVertexColor,
     &RenderingOptions::GetDefaultVertexColor},
    {"TessEdge", &Services::GetDefaultTessEdgeColor, &Services::SetDefaultTessEdgeColor,
     &Settings::GetDefaultTessEdgeColor, &Settings::SetDefaultTessEdgeColor,
     &RenderingOptions::GetDefaultTessEdgeColor},
};

const AlphaCase kAlphas[] = {
    {"Face", &Services::GetDefaultFaceAlpha, &Services::SetDefaultFaceAlpha,
     &Settings::GetDefaultFaceColor, &Settings::SetDefaultFaceColor,
     &RenderingOptions::GetDefaultFaceColor},
    {"Edge", &Services::GetDefaultEdgeAlpha, &Services::SetDefaultEdgeAlpha,
     &Settings::GetDefaultEdgeColor, &Settings::SetDefaultEdgeColor,
     &RenderingOptions::GetDefaultEdgeColor},
    {"Vertex", &Services::GetDefaultVertexAlpha, &Services::SetDefaultVertexAlpha,
     &Settings::GetDefaultVertexColor, &Settings::SetDefaultVertexColor,
     &RenderingOptions::GetDefaultVertexColor},
};

template <typename Case> struct WithView : testing::TestWithParam<Case>
{
    WithView() { m_session.m_fakeView = &m_view; }

    const RGBAColor& setting() const { return (Settings::Current()->*this->GetParam().setting)(); }
    const RGBAColor& option() const
    {
        return (m_view.m_adapter.m_options.*this->GetParam().option)();
    }

    FakeView3D m_view;
    FakeSession& m_session = MakeCurrentFakeSession();
    Services m_services;
};

struct DefaultColor : WithView<ColorCase>
{
};

struct DefaultAlpha : WithView<AlphaCase>
{
};

struct BackgroundColor : testing::Test
{
    Services m_services;
};

} // namespace

TEST_P(DefaultColor, IsReadFromTheCurrentSettings)
{
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    EXPECT_EQ((m_services.*GetParam().get)(), Nullable<Color24>(Color24{1, 2, 3}));
}

TEST_P(DefaultColor, IsStoredWithoutTouchingAlpha)
{
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    (m_services.*GetParam().set)(Color24{10, 20, 30});

    EXPECT_EQ(setting(), RGBAColor(10, 20, 30, 4));
}

TEST_P(DefaultColor, IsRestoredWithoutTouchingAlphaWhenThereIsNoValue)
{
    const RGBAColor initial = (Settings::Default().*GetParam().setting)();
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    (m_services.*GetParam().set)({});

    EXPECT_EQ(setting(), RGBAColor(initial.r, initial.g, initial.b, 4));
}

TEST_P(DefaultColor, IsAppliedToTheView)
{
    (m_services.*GetParam().set)(Color24{10, 20, 30});

    EXPECT_EQ(option(), RGBAColor(10, 20, 30, 255));
}

TEST_P(DefaultColor, IsAppliedToTheViewWhenRestored)
{
    (m_services.*GetParam().set)(Color24{10, 20, 30});
    (m_services.*GetParam().set)({});

    EXPECT_EQ(option(), (Settings::Default().*GetParam().setting)());
}

TEST_P(DefaultColor, IsStoredWithoutSessionViewAdapterOrOptions)
{
    m_view.m_adapter.m_hasOptions = false;
    (m_services.*GetParam().set)(Color24{1, 1, 1});
    m_view.m_hasAdapter = false;
    (m_services.*GetParam().set)(Color24{2, 2, 2});
    m_session.m_fakeView = nullptr;
    (m_services.*GetParam().set)(Color24{3, 3, 3});

    EXPECT_EQ(setting(), RGBAColor(3, 3, 3, 255));
    EXPECT_EQ(option(), (Settings::Default().*GetParam().setting)());
}

TEST_P(DefaultColor, IsNothingWithoutSettings)
{
    Settings::SetCurrent(nullptr);

    EXPECT_FALSE((m_services.*GetParam().get)().HasValue());
    EXPECT_NO_THROW((m_services.*GetParam().set)(Color24{1, 1, 1}));
    EXPECT_EQ(option(), (Settings::Default().*GetParam().setting)());
}

INSTANTIATE_TEST_SUITE_P(Kinds, DefaultColor, testing::ValuesIn(kColors),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST_P(DefaultAlpha, IsReadFromTheCurrentSettings)
{
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    EXPECT_EQ((m_services.*GetParam().get)(), Nullable<Int8>(Int8(4)));
}

TEST_P(DefaultAlpha, IsStoredWithoutTouchingTheColor)
{
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    (m_services.*GetParam().set)(Int8(100));

    EXPECT_EQ(setting(), RGBAColor(1, 2, 3, 100));
    EXPECT_EQ(option(), RGBAColor(1, 2, 3, 100));
}

TEST_P(DefaultAlpha, IsRestoredWithoutTouchingTheColorWhenThereIsNoValue)
{
    (Settings::Current()->*GetParam().change)(RGBAColor(1, 2, 3, 4));

    (m_services.*GetParam().set)({});

    EXPECT_EQ(setting(), RGBAColor(1, 2, 3, 255));
    EXPECT_EQ(option(), RGBAColor(1, 2, 3, 255));
}

TEST_P(DefaultAlpha, IsNothingWithoutSettings)
{
    Settings::SetCurrent(nullptr);

    EXPECT_FALSE((m_services.*GetParam().get)().HasValue());
    EXPECT_NO_THROW((m_services.*GetParam().set)(Int8(1)));
}

INSTANTIATE_TEST_SUITE_P(Kinds, DefaultAlpha, testing::ValuesIn(kAlphas),
                         [](const auto& instance) { return std::string(instance.param.name); });

TEST(DefaultColors, TheFaceColorIsTheBodyColorToo)
{
    FakeView3D view;
    MakeCurrentFakeSession().m_fakeView = &view;
    Services services;

    services.SetDefaultFaceColor(Color24{10, 20, 30});

    EXPECT_EQ(view.m_adapter.m_options.GetDefaultBodyColor(), RGBAColor(10, 20, 30, 255));
}

TEST(DefaultColors, EverySetterAppliesAllColorsOfTheSettings)
{
    FakeView3D view;
    MakeCurrentFakeSession().m_fakeView = &view;
    Settings::Current()->SetDefaultFaceColor(RGBAColor(1, 1, 1, 1));
    Settings::Current()->SetDefaultEdgeColor(RGBAColor(2, 2, 2, 2));
    Settings::Current()->SetDefaultTessEdgeColor(RGBAColor(3, 3, 3, 3));
    Settings::Current()->SetHighlightColor(RGBAColor(4, 4, 4, 4));
    Services services;

    services.SetDefaultVertexAlpha(Int8(5));

    const RenderingOptions& options = view.m_adapter.m_options;
    EXPECT_EQ(options.GetDefaultBodyColor(), RGBAColor(1, 1, 1, 1));
    EXPECT_EQ(options.GetDefaultFaceColor(), RGBAColor(1, 1, 1, 1));
    EXPECT_EQ(options.GetDefaultEdgeColor(), RGBAColor(2, 2, 2, 2));
    EXPECT_EQ(options.GetDefaultTessEdgeColor(), RGBAColor(3, 3, 3, 3));
    EXPECT_EQ(options.GetHighlightColor(), RGBAColor(4, 4, 4, 4));
    EXPECT_EQ(options.GetDefaultVertexColor().a, 5);
}

TEST(DefaultColors, AreStoredWithoutSession)
{
    Services services;

    services.SetDefaultEdgeColor(Color24{10, 20, 30});

    EXPECT_EQ(Settings::Current()->GetDefaultEdgeColor(), RGBAColor(10, 20, 30, 255));
}

TEST_F(BackgroundColor, EachNumberIsReadFromItsSetting)
{
    Settings::Current()->SetBackgroundColor1(RGBAColor(1, 2, 3, 4));
    Settings::Current()->SetBackgroundColor2(RGBAColor(5, 6, 7, 8));

    EXPECT_EQ(m_services.GetBackgroundColor(1), Nullable<Color24>(Color24{1, 2, 3}));
    EXPECT_EQ(m_services.GetBackgroundColor(2), Nullable<Color24>(Color24{5, 6, 7}));
}

TEST_F(BackgroundColor, IsStoredOpaqueUnderItsNumber)
{
    Settings::Current()->SetBackgroundColor1(RGBAColor(1, 2, 3, 4));
    Settings::Current()->SetBackgroundColor2(RGBAColor(5, 6, 7, 8));

    m_services.SetBackgroundColor(Color24{10, 20, 30}, 1);
    EXPECT_EQ(Settings::Current()->GetBackgroundColor1(), RGBAColor(10, 20, 30, 255));
    EXPECT_EQ(Settings::Current()->GetBackgroundColor2(), RGBAColor(5, 6, 7, 8));
    m_services.SetBackgroundColor(Color24{40, 50, 60}, 2);
    EXPECT_EQ(Settings::Current()->GetBackgroundColor2(), RGBAColor(40, 50, 60, 255));
}

TEST_F(BackgroundColor, ReachesTheView)
{
    FakeView3D view;
    MakeCurrentFakeSession().m_fakeView = &view;

    m_services.SetBackgroundColor(Color24{10, 20, 30}, 2);

    EXPECT_EQ(view.m_backgrounds.count(1), 0u);
    EXPECT_EQ(view.m_backgrounds[2], RGBAColor(10, 20, 30, 255));
}

TEST_F(BackgroundColor, IsUnchangedWithoutValue)
{
    Settings::Current()->SetBackgroundColor1(RGBAColor(1, 2, 3, 4));

    m_services.SetBackgroundColor({}, 1);

    EXPECT_EQ(Settings::Current()->GetBackgroundColor1(), RGBAColor(1, 2, 3, 4));
}

TEST_F(BackgroundColor, AnyOtherNumberThrowsOnReading)
{
    for (const int number : {-1, 0, 3}) {
        EXPECT_THAT([&] { m_services.GetBackgroundColor(number); },
                    ThrowsMessage<std::invalid_argument>("Invalid Background Number"));
    }
}

TEST_F(BackgroundColor, AnyOtherNumberThrowsOnWriting)
{
    for (const int number : {-1, 0, 3}) {
        EXPECT_THAT(
            [&] {
                m_services.SetBackgroundColor(Color24{1, 2, 3}, number);
            },
            ThrowsMessage<std::invalid_argument>("Invalid Background Number"));
        EXPECT_THAT([&] { m_services.SetBackgroundColor({}, number); },
                    ThrowsMessage<std::invalid_argument>("Invalid Background Number"));
    }
}

TEST_F(BackgroundColor, IsNothingWithoutSettings)
{
    Settings::SetCurrent(nullptr);

    EXPECT_FALSE(m_services.GetBackgroundColor(1).HasValue());
    EXPECT_NO_THROW(m_services.SetBackgroundColor(Color24{1, 2, 3}, 1));
}
