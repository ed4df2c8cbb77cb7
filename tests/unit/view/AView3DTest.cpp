#include "../interaction/CountedOp.h"
#include "TestView.h"
#include "ViewSessionFixture.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"
#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpMouseMove.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpTargetCamera.h"
#include "OrvikCore/ViewOpZoom.h"

#include <TambVizCore/Settings.h>

#include <memory>
#include <stdexcept>

using OrvikCore::IViewOpState;
using TambVizCore::RGBAColor;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

using Log = std::vector<std::string>;

/// A camera that writes down what it is sent.
class LoggingCamera : public OrvikCore::CameraYUp
{
public:
    explicit LoggingCamera(Log& log) : CameraYUp(nullptr), m_log(log) {}
    ~LoggingCamera() override { m_log.push_back("camera deleted"); }

    void Rotate(OrvikCore::ViewOpRotate* op) override { note("Rotate", *op); }
    void Pan(OrvikCore::ViewOpPan* op) override { note("Pan", *op); }
    void Zoom(OrvikCore::ViewOpZoom* op) override { note("Zoom", *op); }

private:
    template <typename Op> void note(const char* name, const Op& op)
    {
        m_log.push_back(std::string("camera ") + name + " " + std::to_string(op.MouseX()));
    }

    Log& m_log;
};

/// A view that writes down what reaches its controller adapter.
class RoutingView : public TestView
{
public:
    RoutingView() { SetCamera(new LoggingCamera(m_log)); }
    ~RoutingView() override = default;

    Log m_log; // The camera is replaced before the log goes.

protected:
    void hitTest(OrvikCore::ViewOpHitTest* op) override { note("hitTest", *op); }
    void highlight(OrvikCore::ViewOpHighlight*) override { m_log.push_back("highlight"); }
    void rayPick(OrvikCore::ViewOpRayPick* op) override { note("rayPick", *op); }
    void targetCamera(OrvikCore::ViewOpTargetCamera* op) override { note("targetCamera", *op); }
    void drag(OrvikCore::ViewOpDrag* op) override { note("drag", *op); }

private:
    template <typename Op> void note(const char* name, const Op& op)
    {
        m_log.push_back(std::string(name) + " " + std::to_string(op.MouseX()) + " " +
                        std::to_string(op.MouseY()));
    }
};

class AView3DRouting : public DispatcherTest
{
protected:
    ~AView3DRouting() override { m_view.SetCamera(new OrvikCore::CameraYUp(nullptr)); }

    template <typename Op> Log notify(Op op)
    {
        m_view.ControllerNotify(&op);
        return m_view.m_log;
    }

    RoutingView m_view;
};

/// Text of a colour.
std::string textOf(const RGBAColor& color)
{
    return std::to_string(color.r) + " " + std::to_string(color.g) + " " + std::to_string(color.b);
}

} // namespace

TEST(AView3D, HasItsName)
{
    EXPECT_EQ(TestView().GetName(), "OrvikCoreView3D");
}

TEST(AView3D, HasNoGraphStructureByDefault)
{
    TestView view;
    std::string structure = "before";

    view.GetSceneGraphStructure(structure, true);

    EXPECT_EQ(structure, "No graph structure in AView3D by default");
}

TEST(AView3D, HasACameraOfItsOwn)
{
    TestView view;

    EXPECT_STREQ(view.GetCamera()->GetName(), "CameraYUp");
    EXPECT_EQ(view.GetCamera()->GetView3D(), static_cast<TambVizCore::IView3D*>(&view));
}

TEST(AView3D, ReplacesAndDeletesItsCamera)
{
    Log log;
    TestView view;
    view.SetCamera(new LoggingCamera(log));
    auto* second = new OrvikCore::CameraZUp(&view);

    view.SetCamera(nullptr);
    view.SetCamera(second);
    view.SetCamera(second);

    EXPECT_EQ(view.GetCamera(), second);
    EXPECT_THAT(log, ElementsAre("camera deleted"));
}

TEST(AView3D, IsItsOwnAdapter)
{
    TestView view;

    EXPECT_EQ(view.GetView3DAdapter(), static_cast<TambVizCore::AView3DAdapter*>(&view));
    EXPECT_EQ(view.AttachedView(), static_cast<TambVizCore::IView3D*>(&view));
}

TEST(AView3D, IsReachedThroughItsInterfaces)
{
    TestView view;
    TambVizCore::IView3D* plain = &view;

    EXPECT_EQ(dynamic_cast<OrvikCore::ICameraProvider*>(plain)->GetCamera(), view.GetCamera());
    EXPECT_EQ(dynamic_cast<OrvikCore::IControllerProvider*>(plain)->GetController(),
              view.GetController());
    EXPECT_NE(dynamic_cast<OrvikCore::AView3DControllerAdapter*>(plain), nullptr);
}

TEST(AView3D, IsNoPublicControllerListener)
{
    EXPECT_FALSE((std::is_convertible_v<OrvikCore::AView3D*, OrvikCore::IControllerListener*>));
}

TEST(AView3D, ForwardsWindowBackgroundAndClearToItsAdapter)
{
    TestView view;
    int width = 0;
    int height = 0;
    RGBAColor color;

    view.SetWindowSize(640, 480);
    view.GetWindowSize(width, height);
    const bool hasFirst = view.GetBackgroundColor(1, color);
    const bool hasThird = view.GetBackgroundColor(3, color);
    const bool isSet = view.SetBackgroundColor(2, RGBAColor(9, 9, 9));
    view.Clear();

    EXPECT_EQ(width, 640);
    EXPECT_EQ(height, 480);
    EXPECT_TRUE(hasFirst);
    EXPECT_FALSE(hasThird);
    EXPECT_TRUE(isSet);
    EXPECT_THAT(view.m_calls, ElementsAre("background 2 9", "clear"));
}

TEST(AView3D, KeepsTheWindowHandle)
{
    TestView view;
    int window = 0;
    EXPECT_EQ(view.GetWindowHandle(), nullptr);

    view.SetWindowHandle(&window);

    EXPECT_EQ(view.GetWindowHandle(), &window);
}

TEST(AView3D, KeepsItsDocument)
{
    TestView view;
    OrvikCore::Document document(nullptr);
    EXPECT_EQ(view.GetDocument(), nullptr);

    view.SetDocument(&document);

    EXPECT_EQ(view.GetDocument(), &document);
}

TEST(AView3D, ConvertsAndBuildsIdsOfItsScene)
{
    TestView view;
    TambVizCore::Node* node = view.m_root.CreateChildNode(7);
    const TambVizCore::EntityId entity(6, 5, static_cast<TambVizCore::EntityType>(10003));
    node->SetEntity(entity);
    TambVizCore::EntityId converted;

    const TambVizCore::RenderId id = view.buildRenderId(*node, 0);

    EXPECT_EQ(id, nodeId(7));
    EXPECT_TRUE(view.Convert(id, converted));
    EXPECT_EQ(converted, entity);
    EXPECT_FALSE(view.Convert(nodeId(9), converted));
}

TEST(AView3D, TakesNoPicksByDefault)
{
    class PlainView : public TestView
    {
    public:
        bool Ask(const TambVizCore::Ray& ray) { return AView3D::NotifyPick(ray); }
    } view;

    EXPECT_FALSE(view.Ask(TambVizCore::Ray()));
}

TEST(AView3D, ShowsWhatTheDefaultsShow)
{
    TestView view;
    const TambVizCore::RenderingOptions& options = *view.GetRenderingOptions();

    EXPECT_TRUE(options.GetShowFaces());
    EXPECT_TRUE(options.GetShowEdges());
    EXPECT_FALSE(options.GetShowVertices());
    EXPECT_FALSE(options.GetShowTessellation());
    EXPECT_TRUE(options.GetShowPointClouds());
    EXPECT_TRUE(options.GetShowPMI());
}

TEST(AView3D, TakesTheColorsOfTheCurrentSettings)
{
    auto settings = std::make_unique<TambVizCore::Settings>();
    settings->SetDefaultFaceColor(RGBAColor(1, 2, 3));
    settings->SetDefaultEdgeColor(RGBAColor(4, 5, 6));
    settings->SetDefaultTessEdgeColor(RGBAColor(7, 8, 9));
    settings->SetDefaultVertexColor(RGBAColor(10, 11, 12));
    settings->SetHighlightColor(RGBAColor(13, 14, 15));
    TambVizCore::Settings::SetCurrent(std::move(settings));

    TestView view;
    const TambVizCore::RenderingOptions& options = *view.GetRenderingOptions();

    EXPECT_EQ(textOf(options.GetDefaultBodyColor()), "1 2 3");
    EXPECT_EQ(textOf(options.GetDefaultFaceColor()), "1 2 3");
    EXPECT_EQ(textOf(options.GetDefaultEdgeColor()), "4 5 6");
    EXPECT_EQ(textOf(options.GetDefaultTessEdgeColor()), "7 8 9");
    EXPECT_EQ(textOf(options.GetDefaultVertexColor()), "10 11 12");
    EXPECT_EQ(textOf(options.GetHighlightColor()), "13 14 15");
}

TEST(AView3D, WithoutSettingsHasTheDefaultColors)
{
    TambVizCore::Settings::SetCurrent(nullptr);

    TestView view;

    EXPECT_EQ(view.GetRenderingOptions()->GetDefaultFaceColor(),
              TambVizCore::Settings::Default().GetDefaultFaceColor());
}

TEST_F(AView3DRouting, HitTestsGoToTheAdapter)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpHitTest(1, 2, false)), ElementsAre("hitTest 1 2"));
}

TEST_F(AView3DRouting, HighlightsGoToTheAdapter)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpHighlight(nullptr, false)), ElementsAre("highlight"));
}

TEST_F(AView3DRouting, PansGoToTheCamera)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpPan(1, 2, 3, 4, IViewOpState::Processing)),
                ElementsAre("camera Pan 1"));
}

TEST_F(AView3DRouting, RotationsGoToTheCamera)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpRotate(1, 2, 3, 4, IViewOpState::Processing)),
                ElementsAre("camera Rotate 1"));
}

TEST_F(AView3DRouting, ZoomsGoToTheCamera)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpZoom(5, 1, 2)), ElementsAre("camera Zoom 1"));
}

TEST_F(AView3DRouting, RayPicksGoToTheAdapterAndTargetTheCamera)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpRayPick(false, 1, 2, 4, false)),
                ElementsAre("rayPick 1 2", "targetCamera 1 2"));
}

TEST_F(AView3DRouting, ResetRayPicksDoNotTargetTheCamera)
{
    const std::unique_ptr<OrvikCore::ViewOpRayPick> reset(
        OrvikCore::ViewOpRayPick::CreateViewOpReset());

    m_view.ControllerNotify(reset.get());

    EXPECT_THAT(m_view.m_log, ElementsAre("rayPick 0 0"));
}

TEST_F(AView3DRouting, TargetingsGoToTheAdapter)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpTargetCamera(1, 2)), ElementsAre("targetCamera 1 2"));
}

TEST_F(AView3DRouting, MouseMovesGoNowhere)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpMouseMove(1, 2)), IsEmpty());
    EXPECT_THAT(m_view.m_calls, IsEmpty());
}

TEST_F(AView3DRouting, DragsGoToTheAdapter)
{
    EXPECT_THAT(notify(OrvikCore::ViewOpDrag(1, 2, IViewOpState::Start)), ElementsAre("drag 1 2"));
}

TEST_F(AView3DRouting, NullIsIgnored)
{
    m_view.ControllerNotify(nullptr);

    EXPECT_THAT(m_view.m_log, IsEmpty());
}

TEST_F(AView3DRouting, OperationOfAnUnknownTypeThrows)
{
    int living = 0;
    CountedOp unknown(living, static_cast<OrvikCore::ViewOpType>(9), "unknown");

    try {
        m_view.ControllerNotify(&unknown);
        FAIL() << "nothing thrown";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "Invalid argument in AView3D::Notify");
    }
}

TEST_F(AView3DRouting, ViewIsTheFirstListenerOfItsController)
{
    OrvikCore::MouseWheelEventArgs wheel(1, 3, 4);

    m_view.GetController()->HandleWindowEvent(&wheel);

    EXPECT_THAT(m_view.m_log, ElementsAre("camera Zoom 3"));
}
