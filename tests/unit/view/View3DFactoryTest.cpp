#include "OrvikCore/View3DFactory.h"

#include "CapturedDebugOutput.h"
#include "FakeConfigInitializer.h"
#include "PluginFolder.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/AView3DControllerAdapter.h"
#include "OrvikCore/PluginManager.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SceneBuilderFactory.h>
#include <TambVizCore/Settings.h>
#include <TambVizCore/VizFactories.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

using OrvikCore::View3DFactory;
using TambVizCore::VizFactories;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

const char kDefaultFile[] = "OrvikView3dOpenGlSG.Plugin.dll";
const wchar_t kDefaultFileWide[] = L"OrvikView3dOpenGlSG.Plugin.dll";

class View3DFactoryTest : public ::testing::Test
{
protected:
    ~View3DFactoryTest() override
    {
        View3DFactory::Terminate();
        VizFactories::Instance().Terminate();
        OrvikCore::PluginManager::Instance().Terminate();
        OrvikCore::Config::Instance().Terminate();
    }

    View3DFactory& factory() { return View3DFactory::Instance(); }

    std::unique_ptr<TambVizCore::IView3D> createView()
    {
        return std::unique_ptr<TambVizCore::IView3D>(factory().CreateView());
    }

    /// @return the names of the objects that the plugin was asked for.
    std::vector<std::string> askedFor() const
    {
        return m_output.LinesAfter("[ViewParts] CreateObject ");
    }

    CapturedDebugOutput m_output;
    PluginFolder m_folder;
};

using Sections = std::vector<std::pair<std::wstring, FakeConfigInitializer::Pairs>>;

/// Configures a view of the plugin "parts.dll", beside other sections.
void configure(const std::wstring& viewName, Sections sections = {})
{
    sections.push_back({L"View3D", {{L"File", L"parts.dll"}, {L"Name", viewName}}});
    Configure(std::move(sections));
}

} // namespace

TEST_F(View3DFactoryTest, EmptyConfigurationMeansTheDefaultView)
{
    m_folder.Add("ViewParts.dll", kDefaultFile);

    const auto view = createView();

    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetName(), "OrvikCoreView3D");
    EXPECT_THAT(askedFor(), ElementsAre("View3dOpenGlSG"));
}

TEST_F(View3DFactoryTest, ConfigurationNamesPluginAndView)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"OtherView");

    const auto view = createView();

    EXPECT_NE(view, nullptr);
    EXPECT_THAT(askedFor(), ElementsAre("OtherView"));
}

TEST_F(View3DFactoryTest, FirstValueOfAKeyCounts)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    Configure({{L"View3D",
                {{L"File", L"parts.dll"},
                 {L"File", L"missing.dll"},
                 {L"Name", L"OtherView"},
                 {L"Name", L"NoSuchView"}}}});

    EXPECT_NE(createView(), nullptr);
}

TEST_F(View3DFactoryTest, PluginIsInitialisedWithoutContextAndPreLoading)
{
    m_folder.Add("ViewParts.dll", kDefaultFile);

    createView();

    EXPECT_THAT(m_output.LinesAfter("[ViewParts] "),
                ElementsAre("created", "describe", "doInitialize null", "createContextMenuItems",
                            "CreateObject View3dOpenGlSG"));
}

TEST_F(View3DFactoryTest, MissingPluginGivesNoView)
{
    EXPECT_EQ(createView(), nullptr);
}

TEST_F(View3DFactoryTest, UnknownViewGivesNoView)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"NoSuchView");

    EXPECT_EQ(createView(), nullptr);
}

TEST_F(View3DFactoryTest, PluginThatThrowsGivesNoViewAndATrace)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"Throws");

    EXPECT_EQ(createView(), nullptr);

    EXPECT_THAT(m_output.Text(), HasSubstr("View3DFactory: cannot be made"));
}

TEST_F(View3DFactoryTest, PluginThatThrowsAnythingGivesNoViewAndATrace)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"ThrowsOdd");

    EXPECT_EQ(createView(), nullptr);

    EXPECT_THAT(m_output.Text(), HasSubstr("View3DFactory: unknown exception from the plugin"));
}

TEST_F(View3DFactoryTest, LongNamesAreCutToAHundredBytes)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(std::wstring(150, L'n'));

    createView();

    EXPECT_THAT(askedFor(), ElementsAre(std::string(100, 'n')));
}

TEST_F(View3DFactoryTest, ViewWithoutAdapterFactoryIsAttachedToItsOwnAdapter)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"PlainView");

    const auto view = createView();

    EXPECT_EQ(view->GetView3DAdapter()->AttachedView(), view.get());
}

TEST_F(View3DFactoryTest, ViewGetsTheDisplayOptionsOfTheSettings)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"PlainView");
    auto settings = std::make_unique<TambVizCore::Settings>();
    settings->SetDefaultFaceColor({1, 2, 3});
    settings->SetDefaultEdgeColor({4, 5, 6});
    settings->SetDefaultTessEdgeColor({7, 8, 9});
    settings->SetDefaultVertexColor({10, 11, 12});
    settings->SetHighlightColor({13, 14, 15});
    settings->SetAntialiasLevel(8);
    TambVizCore::Settings::SetCurrent(std::move(settings));

    const auto view = createView();
    const TambVizCore::RenderingOptions& options = *view->GetView3DAdapter()->GetRenderingOptions();

    EXPECT_EQ(options.GetDefaultBodyColor(), TambVizCore::RGBAColor(1, 2, 3));
    EXPECT_EQ(options.GetDefaultFaceColor(), TambVizCore::RGBAColor(1, 2, 3));
    EXPECT_EQ(options.GetDefaultEdgeColor(), TambVizCore::RGBAColor(4, 5, 6));
    EXPECT_EQ(options.GetDefaultTessEdgeColor(), TambVizCore::RGBAColor(7, 8, 9));
    EXPECT_EQ(options.GetDefaultVertexColor(), TambVizCore::RGBAColor(10, 11, 12));
    EXPECT_EQ(options.GetHighlightColor(), TambVizCore::RGBAColor(13, 14, 15));
    EXPECT_EQ(options.GetAntialiasLevel(), 8);
}

TEST_F(View3DFactoryTest, WithoutSettingsTheDisplayOptionsStay)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"PlainView");
    TambVizCore::Settings::SetCurrent(nullptr);

    const auto view = createView();

    EXPECT_EQ(view->GetView3DAdapter()->GetRenderingOptions()->Revision(), 0u);
}

TEST_F(View3DFactoryTest, ConfiguredAdapterIsAttachedAndGetsTheOptions)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    configure(L"PlainView", {{L"View3DAdapter", {{L"File", L"parts.dll"}, {L"Name", L"Adapter"}}}});

    const auto view = createView();

    EXPECT_THAT(askedFor(), ElementsAre("AdapterFactory", "PlainView"));
    const std::vector<std::string> calls = m_output.LinesAfter("[ViewParts] ");
    EXPECT_THAT(calls, Contains("CreateView3DAdapter"));
    EXPECT_THAT(calls, Contains("AttachView FakeView3D"));
    EXPECT_EQ(calls.back(), "GetRenderingOptions");
    EXPECT_EQ(view->GetView3DAdapter()->AttachedView(), nullptr);
}

TEST_F(View3DFactoryTest, WithoutConfiguredAdapterNoFactoryIsRegistered)
{
    factory().Init();

    EXPECT_EQ(VizFactories::Instance().GetView3DAdapterFactory(), nullptr);
}

TEST_F(View3DFactoryTest, AdapterNeedsFileAndName)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    Configure({{L"View3DAdapter", {{L"Name", L"Adapter"}}},
               {L"SceneBuilder", {{L"File", L"parts.dll"}}}});

    factory().Init();

    EXPECT_THAT(askedFor(), IsEmpty());
}

TEST_F(View3DFactoryTest, WithoutConfigurationTheDefaultSceneBuilderIsRegistered)
{
    factory().Init();

    TambVizCore::SceneBuilderFactory* builder = VizFactories::Instance().GetSceneBuilderFactory();
    ASSERT_NE(builder, nullptr);
    EXPECT_EQ(builder->CreateSceneRoot()->Name(), "SCENE");
}

TEST_F(View3DFactoryTest, ConfiguredSceneBuilderIsRegistered)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    Configure({{L"SceneBuilder",
                {{L"File", L"parts.dll"}, {L"Name", L"Builder"}, {L"Factory", L"NeverRead"}}}});

    factory().Init();

    EXPECT_EQ(VizFactories::Instance().GetSceneBuilderFactory()->CreateSceneRoot()->Name(),
              "from the plugin");
    EXPECT_THAT(askedFor(), ElementsAre("BuilderFactory"));
}

TEST_F(View3DFactoryTest, SceneBuilderThatCannotBeMadeGivesWayToTheDefault)
{
    Configure({{L"SceneBuilder", {{L"File", L"missing.dll"}, {L"Name", L"Builder"}}}});

    factory().Init();

    EXPECT_EQ(VizFactories::Instance().GetSceneBuilderFactory()->CreateSceneRoot()->Name(),
              "SCENE");
}

TEST_F(View3DFactoryTest, InitRunsOnce)
{
    EXPECT_TRUE(factory().Init());
    TambVizCore::SceneBuilderFactory* builder = VizFactories::Instance().GetSceneBuilderFactory();

    EXPECT_FALSE(factory().Init());

    EXPECT_EQ(VizFactories::Instance().GetSceneBuilderFactory(), builder);
}

TEST_F(View3DFactoryTest, CreateViewInitialises)
{
    createView();

    EXPECT_FALSE(factory().Init());
}

TEST_F(View3DFactoryTest, CamerasAreThoseOfTheProduct)
{
    factory().Init();
    const OrvikCore::ACameraFactory& cameras = factory().GetCameraFactory();

    const std::unique_ptr<OrvikCore::ACamera> yUp(cameras.MakeCamera(nullptr, "CameraYUp"));
    const std::unique_ptr<OrvikCore::ACamera> zUp(cameras.MakeCamera(nullptr, "CameraZUp"));

    EXPECT_STREQ(yUp->GetName(), "CameraYUp");
    EXPECT_STREQ(zUp->GetName(), "CameraZUp");
}

TEST_F(View3DFactoryTest, ThereAreNoCamerasBeforeInit)
{
    EXPECT_EQ(factory().GetCameraFactory().MakeCamera(nullptr, "CameraYUp"), nullptr);
}

TEST_F(View3DFactoryTest, TerminateMakesRoomForAFreshFactory)
{
    factory().Init();

    EXPECT_TRUE(View3DFactory::Terminate());
    EXPECT_TRUE(View3DFactory::Terminate());

    EXPECT_TRUE(factory().Init());
}

TEST_F(View3DFactoryTest, ControllerAdapterIsMadeFromTheViewsPlugin)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    Configure({{L"View3D", {{L"File", L"parts.dll"}, {L"Controller", L"Controls"}}}});
    factory().Init();

    const std::unique_ptr<OrvikCore::AView3DControllerAdapter> adapter(
        factory().CreateView3DControllerAdapter());

    EXPECT_NE(adapter, nullptr);
    EXPECT_THAT(askedFor(), ElementsAre("Controls"));
}

TEST_F(View3DFactoryTest, ControllerAdapterIsNotMadeBeforeInit)
{
    m_folder.Add("ViewParts.dll", "parts.dll");
    Configure({{L"View3D", {{L"File", L"parts.dll"}, {L"Controller", L"Controls"}}}});

    EXPECT_EQ(factory().CreateView3DControllerAdapter(), nullptr);
    EXPECT_TRUE(factory().Init());
}

TEST_F(View3DFactoryTest, ControllerAdapterNeedsFileAndController)
{
    m_folder.Add("ViewParts.dll", kDefaultFile);
    factory().Init();
    EXPECT_EQ(factory().CreateView3DControllerAdapter(), nullptr);

    Configure({{L"View3D", {{L"Controller", L"Controls"}}}});
    EXPECT_EQ(factory().CreateView3DControllerAdapter(), nullptr);

    Configure({{L"View3D", {{L"File", kDefaultFileWide}}}});
    EXPECT_EQ(factory().CreateView3DControllerAdapter(), nullptr);
    EXPECT_THAT(askedFor(), IsEmpty());
}
