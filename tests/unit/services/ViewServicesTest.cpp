#include "FakeContent.h"
#include "FakeRenderer.h"
#include "FakeSession.h"
#include "ServiceFakes.h"

#include "OrvikCore/AViewManipulator.h"
#include "OrvikCore/AViewObject.h"
#include "OrvikCore/AppController.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/TambViewServicesPellux.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/Settings.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using OrvikCore::AppController;
using TambVizCore::Settings;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace {

using Services = ITambViewServices;

CallLog& contentLog()
{
    static auto* const log = new CallLog;
    return *log;
}

class RecordingManipulator : public OrvikCore::AViewManipulator
{
public:
    explicit RecordingManipulator(CallLog& log) : m_log(&log) {}

    void DisplayFaces(bool show) override { note("Faces", show); }
    void DisplayEdges(bool show) override { note("Edges", show); }
    void DisplayVertices(bool show) override { note("Vertices", show); }
    void DisplayTessellation(bool show) override { note("Tessellation", show); }
    void DisplayClouds(bool show) override { note("Clouds", show); }
    void DisplayPMI(bool show) override { note("PMI", show); }

private:
    void note(const char* kind, bool show)
    {
        m_log->push_back(kind + std::string(show ? " on" : " off"));
    }

    CallLog* m_log; ///< Not owned.
};

// Remembers each change of its visibility.
class FakeAxes : public OrvikCore::AViewObject
{
public:
    void SetIsVisible(bool const& isVisible) override
    {
        m_changes.push_back(isVisible);
        AViewObject::SetIsVisible(isVisible);
    }

    std::vector<bool> m_changes;

protected:
    void doRender() override { rendered = true; }
    void doClear() override {}
    void doDisplay() override {}
};

// The eye, target and up that the service reports.
std::vector<double> readCamera(Services& services)
{
    std::vector<double> c(9, -1.0);
    services.GetCamera(c[0], c[1], c[2], c[3], c[4], c[5], c[6], c[7], c[8]);
    return c;
}

struct ViewServices : testing::Test
{
    void useView(TambVizCore::IView3D& view) { m_session.m_fakeView = &view; }

    FakeSession& m_session = MakeCurrentFakeSession();
    TambViewServicesPellux m_services;
};

struct StandardView
{
    void (Services::*service)();
    const char* camera;
};

const StandardView kStandardViews[] = {
    {&Services::Iso, "Isometric"}, {&Services::Front, "Front"},   {&Services::Back, "Back"},
    {&Services::Top, "Top"},       {&Services::Bottom, "Bottom"}, {&Services::Right, "Right"},
    {&Services::Left, "Left"},
};

struct DisplayKind
{
    void (Services::*service)(bool);
    const char* kind;
};

const DisplayKind kDisplayKinds[] = {
    {&Services::DisplayFaces, "Faces"},       {&Services::DisplayEdges, "Edges"},
    {&Services::DisplayVertices, "Vertices"}, {&Services::DisplayTessellation, "Tessellation"},
    {&Services::DisplayClouds, "Clouds"},     {&Services::DisplayPMI, "PMI"},
};

} // namespace

TEST_F(ViewServices, StandardViewsTurnTheCamera)
{
    FakeCameraView view;
    useView(view);

    for (const StandardView& standard : kStandardViews) {
        view.m_camera.m_calls.clear();
        (m_services.*standard.service)();
        EXPECT_THAT(view.m_camera.m_calls, ElementsAre(standard.camera));
    }
}

TEST_F(ViewServices, StandardViewsDoNothingWithoutView)
{
    for (const StandardView& standard : kStandardViews) {
        EXPECT_NO_THROW((m_services.*standard.service)());
    }
}

TEST_F(ViewServices, StandardViewsDoNothingInAViewThatProvidesNoCamera)
{
    FakeView3D view;
    useView(view);

    for (const StandardView& standard : kStandardViews) {
        EXPECT_NO_THROW((m_services.*standard.service)());
    }
    EXPECT_THAT(view.m_calls, IsEmpty());
}

TEST_F(ViewServices, StandardViewsDoNothingWithoutCamera)
{
    FakeCameraView view;
    view.m_hasCamera = false;
    useView(view);

    for (const StandardView& standard : kStandardViews) {
        EXPECT_NO_THROW((m_services.*standard.service)());
    }
    EXPECT_THAT(view.m_camera.m_calls, IsEmpty());
}

TEST_F(ViewServices, ZoomToBoxReachesTheCamera)
{
    FakeCameraView view;
    useView(view);

    m_services.ZoomToBox(1, 2, 3, 4, 5, 6);

    EXPECT_THAT(view.m_camera.m_box, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(ViewServices, ZoomToBoxDoesNothingWithoutCamera)
{
    EXPECT_NO_THROW(m_services.ZoomToBox(1, 2, 3, 4, 5, 6));
    FakeView3D view;
    useView(view);
    EXPECT_NO_THROW(m_services.ZoomToBox(1, 2, 3, 4, 5, 6));
}

TEST_F(ViewServices, UpdateDisplayAndRerenderGoThroughTheSession)
{
    FakeView3D view;
    useView(view);

    m_services.UpdateDisplay();
    m_services.Rerender();

    EXPECT_THAT(m_session.m_calls, ElementsAre("UpdateDisplay", "Rerender"));
}

TEST_F(ViewServices, UpdateDisplayAndRerenderDoNothingWithoutView)
{
    m_services.UpdateDisplay();
    m_services.Rerender();

    EXPECT_THAT(m_session.m_calls, IsEmpty());
}

TEST_F(ViewServices, KindsOfDrawingReachTheManipulator)
{
    CallLog log;
    AppController::Instance().SetViewManipulator(new RecordingManipulator(log));

    for (const DisplayKind& display : kDisplayKinds) {
        log.clear();
        (m_services.*display.service)(true);
        (m_services.*display.service)(false);
        EXPECT_THAT(log, ElementsAre(std::string(display.kind) + " on",
                                     std::string(display.kind) + " off"));
    }
}

TEST_F(ViewServices, KindsOfDrawingDoNothingWithoutManipulator)
{
    for (const DisplayKind& display : kDisplayKinds) {
        EXPECT_NO_THROW((m_services.*display.service)(true));
    }
}

TEST_F(ViewServices, AxesChangeOnlyWhenTheirVisibilityDiffers)
{
    FakeObjectView view;
    auto* const axes = new FakeAxes;
    view.m_manager.Add("AxesViewObject", axes);
    useView(view);

    m_services.DisplayAxes(true);
    EXPECT_THAT(axes->m_changes, IsEmpty());
    m_services.DisplayAxes(false);
    m_services.DisplayAxes(false);
    EXPECT_THAT(axes->m_changes, ElementsAre(false));
    m_services.DisplayAxes(true);
    EXPECT_THAT(axes->m_changes, ElementsAre(false, true));
}

TEST_F(ViewServices, AxesAreFoundByTheirNameOnly)
{
    FakeObjectView view;
    auto* const other = new FakeAxes;
    view.m_manager.Add("Axes", other);
    useView(view);

    m_services.DisplayAxes(false);

    EXPECT_THAT(other->m_changes, IsEmpty());
}

TEST_F(ViewServices, AxesDoNothingWithoutViewProviderOrManager)
{
    EXPECT_NO_THROW(m_services.DisplayAxes(false));
    FakeView3D plain;
    useView(plain);
    EXPECT_NO_THROW(m_services.DisplayAxes(false));
    FakeObjectView view;
    view.m_hasManager = false;
    useView(view);
    EXPECT_NO_THROW(m_services.DisplayAxes(false));
}

TEST_F(ViewServices, CameraIsReadInTheOrderEyeTargetUp)
{
    FakeCameraView view;
    useView(view);

    EXPECT_THAT(readCamera(m_services), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(ViewServices, CameraIsSetInTheOrderEyeTargetUp)
{
    FakeCameraView view;
    useView(view);

    m_services.SetCamera(10, 20, 30, 40, 50, 60, 70, 80, 90);

    EXPECT_THAT(view.m_camera.m_triple, ElementsAre(10, 20, 30, 40, 50, 60, 70, 80, 90));
}

TEST_F(ViewServices, ReadingAMissingCameraThrows)
{
    FakeCameraView view;
    view.m_hasCamera = false;

    EXPECT_THAT([&] { readCamera(m_services); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
    useView(view);
    EXPECT_THAT([&] { readCamera(m_services); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
}

TEST_F(ViewServices, SettingAMissingCameraThrows)
{
    FakeView3D view;

    EXPECT_THAT([&] { m_services.SetCamera(1, 2, 3, 4, 5, 6, 7, 8, 9); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
    useView(view);
    EXPECT_THAT([&] { m_services.SetCamera(1, 2, 3, 4, 5, 6, 7, 8, 9); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
}

TEST_F(ViewServices, TessellationParametersReachTheRendererOfTheFirstContent)
{
    OrvikCore::Document& document = m_session.Document();
    auto* const content = new FakeContent(document, "content", contentLog());
    document.AddContent(*content);
    Fake3DRenderer renderer(content);
    m_session.AddRenderer(&renderer, /*keep=*/true);
    bool useDefault = true;

    EXPECT_TRUE(m_services.SetTessellationParameters(0.1, 0.2, 0.3));
    EXPECT_EQ(renderer.GetTesselationSag(useDefault), 0.1);
    EXPECT_EQ(renderer.GetTesselationStep(useDefault), 0.2);
    EXPECT_EQ(renderer.GetTesselationMaxAngle(useDefault), 0.3);
}

TEST_F(ViewServices, TessellationParametersAreReadFromTheRendererOfTheFirstContent)
{
    OrvikCore::Document& document = m_session.Document();
    auto* const content = new FakeContent(document, "content", contentLog());
    document.AddContent(*content);
    Fake3DRenderer renderer(content);
    renderer.SetTesselationParamters(0.1, 0.2, 0.3);
    m_session.AddRenderer(&renderer, /*keep=*/true);
    double sag = 0.0;
    double step = 0.0;
    double maxAngle = 0.0;

    EXPECT_TRUE(m_services.GetTessellationParameters(sag, step, maxAngle));
    EXPECT_EQ(sag, 0.1);
    EXPECT_EQ(step, 0.2);
    EXPECT_EQ(maxAngle, 0.3);
}

TEST_F(ViewServices, TessellationParametersAreRefusedWithoutRenderer)
{
    std::vector<double> values(3, -1.0);

    EXPECT_FALSE(m_services.SetTessellationParameters(0.1, 0.2, 0.3));
    EXPECT_FALSE(m_services.GetTessellationParameters(values[0], values[1], values[2]));
    EXPECT_THAT(values, Each(-1.0));
}

TEST_F(ViewServices, IncrementalRenderingIsKeptInTheCurrentSettings)
{
    EXPECT_FALSE(m_services.GetUseIncrementalRendering());
    m_services.SetUseIncrementalRendering(true);

    EXPECT_TRUE(Settings::Current()->GetUseIncrementalRendering());
    EXPECT_TRUE(m_services.GetUseIncrementalRendering());
}

TEST_F(ViewServices, IncrementalRenderingIsOffWithoutSettings)
{
    Settings::SetCurrent(nullptr);

    EXPECT_NO_THROW(m_services.SetUseIncrementalRendering(true));
    EXPECT_FALSE(m_services.GetUseIncrementalRendering());
}

TEST_F(ViewServices, ACallOfTheWorkerRunsOnTheMainThread)
{
    FakeCameraView view;
    useView(view);
    TambCommandsInfra::CallGate gate;
    std::atomic<bool> finished{false};
    std::vector<double> triple;

    std::thread worker([&] {
        m_services.Top();
        triple = readCamera(m_services);
        finished = true;
    });
    while (!finished) {
        gate.Drain();
        std::this_thread::yield();
    }
    worker.join();

    EXPECT_THAT(view.m_camera.m_calls, ElementsAre("Top"));
    EXPECT_EQ(view.m_camera.m_callers, std::vector<std::thread::id>{std::this_thread::get_id()});
    EXPECT_THAT(triple, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(ViewServices, AnExceptionReachesTheWorker)
{
    TambCommandsInfra::CallGate gate;
    std::atomic<bool> finished{false};
    std::string text;

    std::thread worker([&] {
        try {
            readCamera(m_services);
        } catch (const std::logic_error& error) {
            text = error.what();
        }
        finished = true;
    });
    while (!finished) {
        gate.Drain();
        std::this_thread::yield();
    }
    worker.join();

    EXPECT_EQ(text, "Camera is missing");
}

TEST(ViewServicesWithoutSession, NothingHappensAndQueriesAreFalse)
{
    TambViewServicesPellux services;
    std::vector<float> numbers;
    std::vector<int> indices;
    double value = -1.0;

    for (const StandardView& standard : kStandardViews) {
        EXPECT_NO_THROW((services.*standard.service)()) << standard.camera;
    }
    EXPECT_NO_THROW(services.ZoomToBox(1, 2, 3, 4, 5, 6));
    EXPECT_NO_THROW(services.UpdateDisplay());
    EXPECT_NO_THROW(services.Rerender());
    EXPECT_NO_THROW(services.DisplayAxes(true));
    EXPECT_NO_THROW(services.DrawArrow(1, 2, 3, 4, 5, 6));
    EXPECT_NO_THROW(services.DrawTessellationData(numbers, numbers, numbers, indices));
    EXPECT_NO_THROW(services.ClearDrawingObjects());
    EXPECT_FALSE(services.SetTessellationParameters(1, 2, 3));
    EXPECT_FALSE(services.GetTessellationParameters(value, value, value));
}

TEST(ViewServicesWithoutSession, TheCameraIsMissing)
{
    TambViewServicesPellux services;

    EXPECT_THAT([&] { readCamera(services); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
    EXPECT_THAT([&] { services.SetCamera(1, 2, 3, 4, 5, 6, 7, 8, 9); },
                ThrowsMessage<std::logic_error>("Camera is missing"));
}

TEST(ViewServicesWithoutSession, KindsOfDrawingReachTheManipulator)
{
    TambViewServicesPellux services;
    CallLog log;
    AppController::Instance().SetViewManipulator(new RecordingManipulator(log));

    for (const DisplayKind& display : kDisplayKinds) {
        log.clear();
        (services.*display.service)(true);
        EXPECT_THAT(log, ElementsAre(std::string(display.kind) + " on"));
    }
}
