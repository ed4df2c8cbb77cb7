#include "ViewSessionFixture.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpTargetCamera.h"

#include <OrvikOs/Clipboard.h>
#include <TambVizCore/PartKind.h>
#include <TambVizCore/Settings.h>

#include <memory>
#include <stdexcept>

using OrvikCore::ViewOpRayPick;
using TambVizCore::PartKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace {

/// The numbers of a pick at pixel (400, 300).
const std::wstring kNumbers = L" 0.0690 -0.0690 100.0000 0.0000 0.0000 -1.0000 0.5523))";

std::wstring commandFor(const std::wstring& kind)
{
    return L"(define ent (app:pick-" + kind + kNumbers;
}

/// A clipboard in memory.
class FakeClipboard : public OrvikOs::IClipboard
{
public:
    FakeClipboard() { OrvikOs::SetClipboard(this); }
    ~FakeClipboard() override { OrvikOs::SetClipboard(nullptr); }
    FakeClipboard(const FakeClipboard&) = delete;
    FakeClipboard& operator=(const FakeClipboard&) = delete;

    bool SetText(const std::wstring& text) override
    {
        m_text = text;
        return true;
    }
    std::wstring GetText() override { return m_text; }

    std::wstring m_text = L"before";
};

class AView3DControllerAdapterPick : public ViewSession
{
protected:
    void pick(bool multiple = false, bool body = false)
    {
        ViewOpRayPick op(body, 400, 300, 4, multiple);
        m_view.rayPick(&op);
    }
    void hit(PartKind kind = PartKind::None)
    {
        TambVizCore::EntityId part = m_entity;
        if (kind != PartKind::None) {
            part.SetSubEntity(kind, 3);
            m_renderer->m_pairs.push_back({nodeId(8), part});
        }
        m_content->m_hit = part;
    }
};

} // namespace

TEST_F(AView3DControllerAdapterPick, HighlightsWhatIsHit)
{
    hit();

    pick();

    EXPECT_THAT(highlighted(), ElementsAre(7u));
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, OfSeveralSelectsWhatIsHit)
{
    hit();

    pick(/*multiple=*/true);

    EXPECT_THAT(selected(), ElementsAre(7u));
    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, ClearsTheSelectionFirst)
{
    hit();
    holder().Select(nodeId(8));

    pick();

    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, OfSeveralKeepsTheSelection)
{
    hit();
    holder().Select(nodeId(8));

    pick(/*multiple=*/true);

    EXPECT_THAT(selected(), ElementsAre(8u, 7u));
}

TEST_F(AView3DControllerAdapterPick, OfAPartHighlightsThePart)
{
    hit(PartKind::Face);

    pick();

    EXPECT_THAT(highlighted(), ElementsAre(8u));
}

TEST_F(AView3DControllerAdapterPick, OfTheBodyHighlightsTheWholeBody)
{
    hit(PartKind::Face);

    pick(/*multiple=*/false, /*body=*/true);

    EXPECT_THAT(highlighted(), ElementsAre(7u));
}

TEST_F(AView3DControllerAdapterPick, AsksAlongTheRayThroughThePixel)
{
    pick();

    EXPECT_NEAR(m_content->m_ray.Origin()[0], 0.0690356f, 1e-5f);
    EXPECT_NEAR(m_content->m_ray.Origin()[2], 100.0f, 1e-3f);
    EXPECT_NEAR(m_content->m_ray.Radius(), 0.552285, 1e-5);
}

struct KindRow
{
    const char* name;
    PartKind kind;
    const wchar_t* word;
};

class EchoedPick : public AView3DControllerAdapterPick,
                   public ::testing::WithParamInterface<KindRow>
{
};

TEST_P(EchoedPick, NamesTheKindOfWhatIsHit)
{
    startScheme();
    hit(GetParam().kind);

    pick();

    EXPECT_THAT(printed(), ElementsAre(commandFor(GetParam().word)));
    EXPECT_EQ(m_output.Messages().front().second, 0) << "as ordinary output";
}

INSTANTIATE_TEST_SUITE_P(Kinds, EchoedPick,
                         ::testing::Values(KindRow{"Face", PartKind::Face, L"face"},
                                           KindRow{"Edge", PartKind::Edge, L"edge"},
                                           KindRow{"Vertex", PartKind::Vertex, L"vertex"},
                                           KindRow{"Entity", PartKind::None, L"entity"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AView3DControllerAdapterPick, OfTheBodyEchoesTheEntity)
{
    startScheme();
    hit(PartKind::Face);

    pick(/*multiple=*/false, /*body=*/true);

    EXPECT_THAT(printed(), ElementsAre(commandFor(L"entity")));
}

TEST_F(AView3DControllerAdapterPick, IsNotEchoedInAnotherLanguage)
{
    startOtherLanguage();
    hit();

    pick();

    EXPECT_THAT(printed(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, IsNotEchoedWithoutShell)
{
    hit();

    pick();

    EXPECT_THAT(printed(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, MissIsEchoedAndForgetsWhatWasPicked)
{
    startScheme();
    m_session.m_picked = {m_entity};
    m_session.m_calls.clear();

    pick();

    EXPECT_THAT(printed(), ElementsAre(commandFor(L"entity")));
    EXPECT_THAT(m_session.m_picked, IsEmpty());
    EXPECT_THAT(m_session.m_calls, ElementsAre("SetPickedEntities"));
    EXPECT_THAT(m_log, ElementsAre("content.RayPick", "content.ClearSelection"));
}

TEST_F(AView3DControllerAdapterPick, MissWithoutSchemeForgetsInSilence)
{
    m_session.m_picked = {m_entity};

    pick();

    EXPECT_THAT(printed(), IsEmpty());
    EXPECT_THAT(m_session.m_picked, IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, HitKeepsWhatTheSessionRemembers)
{
    hit();
    m_session.m_picked = {m_entity};

    pick();

    EXPECT_THAT(m_session.m_picked, SizeIs(1));
}

TEST_F(AView3DControllerAdapterPick, ResetOnlyClearsTheSelection)
{
    startScheme();
    holder().Select(nodeId(8));
    const std::unique_ptr<ViewOpRayPick> reset(ViewOpRayPick::CreateViewOpReset());

    m_view.rayPick(reset.get());

    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_THAT(m_view.m_picks, IsEmpty());
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_THAT(printed(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, TakenByTheViewStopsThere)
{
    startScheme();
    holder().Select(nodeId(8));
    m_view.m_takesPicks = true;
    hit();

    pick();

    EXPECT_THAT(m_view.m_picks, SizeIs(1));
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_THAT(selected(), IsEmpty()) << "the selection is cleared all the same";
    EXPECT_THAT(printed(), IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, OfNoViewOrOperationDoesNothing)
{
    ViewOpRayPick op(false, 1, 2, 4, false);
    m_view.rayPick(nullptr);
    m_view.SetView3D(nullptr);

    m_view.rayPick(&op);

    EXPECT_THAT(m_view.m_picks, IsEmpty());
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(AView3DControllerAdapterPick, ExceptionIsPrintedUnderItsLabel)
{
    FakeView3D withoutCamera;
    m_session.m_fakeView = &withoutCamera;

    pick();

    EXPECT_THAT(printed(), ElementsAre(L"Exception thrown in Highlight(): null ICameraProvider*"));
}

TEST_F(AView3DControllerAdapterPick, ExceptionOfAContentIsAMiss)
{
    startScheme();
    hit();
    m_content->m_onPick = [] { throw std::runtime_error("broken index"); };

    pick();

    EXPECT_THAT(highlighted(), IsEmpty());
    EXPECT_EQ(printed().back(), commandFor(L"entity"));
}

TEST_F(AView3DControllerAdapterPick, IsCopiedToTheClipboardWhereTheSettingsSaySo)
{
    FakeClipboard clipboard;
    startScheme();
    hit();
    TambVizCore::Settings::Current()->SetCopyPickToClipboard(true);

    pick();

    EXPECT_EQ(clipboard.m_text, commandFor(L"entity"));
}

TEST_F(AView3DControllerAdapterPick, WithoutEchoTheLastMessageIsCopied)
{
    FakeClipboard clipboard;
    m_session.PrintMessage(L"said before", OrvikCore::MessageType::Output);
    TambVizCore::Settings::Current()->SetCopyPickToClipboard(true);

    pick();

    EXPECT_EQ(clipboard.m_text, L"said before");
}

TEST_F(AView3DControllerAdapterPick, IsNotCopiedByDefault)
{
    FakeClipboard clipboard;
    startScheme();
    hit();

    pick();
    TambVizCore::Settings::SetCurrent(nullptr);
    pick();

    EXPECT_EQ(clipboard.m_text, L"before");
}

TEST_F(AView3DControllerAdapterPick, ThatOutlastsItsTimeIsAMissAndHarmsNothing)
{
    GateJob gate;
    startScheme();
    hit();
    dispatcher().SetJobTimeout(1);
    m_content->m_onPick = [&gate] { gate.Execute(); };

    pick();

    EXPECT_EQ(printed().back(), commandFor(L"entity"));
    EXPECT_THAT(highlighted(), IsEmpty());
    gate.Open();
    waitUntilIdle();
}

TEST_F(AView3DControllerAdapterPick, SurvivesAnEventThatReplacesItsOperation)
{
    // A message pumped while the pick waits brings another event to the same controller.
    hit();
    GateJob gate;
    FakeMessageSource source;
    OrvikOs::Message mouseMove;
    mouseMove.id = 0x200;
    source.queue = {mouseMove};
    source.onDispatch = [this, &gate](const OrvikOs::Message&) {
        OrvikCore::MouseEventArgs moved(OrvikCore::MouseAction::Moved, 5, 6,
                                        OrvikCore::MouseButton::None, OrvikCore::ModifierKey::None);
        m_view.GetController()->HandleWindowEvent(&moved);
        gate.Open();
    };
    m_content->m_onPick = [&gate] { gate.Execute(); };
    dispatcher();
    OrvikOs::SetMessageSource(&source);
    OrvikCore::MouseClickEventArgs click(OrvikCore::MouseButton::Selection, 1, 400, 300,
                                         OrvikCore::ModifierKey::None);

    EXPECT_TRUE(m_view.GetController()->HandleWindowEvent(&click));
    OrvikOs::SetMessageSource(nullptr);

    EXPECT_THAT(highlighted(), ElementsAre(7u));
    EXPECT_EQ(m_view.m_calls.back(), "point at 400 300") << "the pick's own pixel is targeted";
}

TEST_F(AView3DControllerAdapterPick, FromInsideTheModelStartsOutside)
{
    // From (0, 0, 5) along -z in a sphere of 10: back by twice the radius, on by the direction.
    m_view.m_radius = 10.0f;
    const float origin[3] = {0.0f, 0.0f, 5.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    TambVizCore::Ray ray(origin, direction, 0.0);

    m_view.moveRayRootOutsideModel(ray);

    EXPECT_NEAR(ray.Origin()[2], 24.0f, 1e-5f);
}

TEST_F(AView3DControllerAdapterPick, FromInsideDependsOnTheLengthOfTheDirection)
{
    m_view.m_radius = 10.0f;
    const float origin[3] = {0.0f, 0.0f, 5.0f};
    const float direction[3] = {0.0f, 0.0f, -2.0f};
    TambVizCore::Ray ray(origin, direction, 0.0);

    m_view.moveRayRootOutsideModel(ray);

    EXPECT_NEAR(ray.Origin()[2], 23.0f, 1e-5f);
}

TEST_F(AView3DControllerAdapterPick, FromBehindTheModelIsMirroredBeforeIt)
{
    m_view.m_radius = 10.0f;
    const float origin[3] = {3.0f, 0.0f, -50.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    TambVizCore::Ray ray(origin, direction, 0.0);

    m_view.moveRayRootOutsideModel(ray);

    EXPECT_NEAR(ray.Origin()[0], 3.0f, 1e-5f);
    EXPECT_NEAR(ray.Origin()[2], 50.0f, 1e-4f);
}

TEST_F(AView3DControllerAdapterPick, FromBeforeTheModelStartsWhereItDoes)
{
    m_view.m_radius = 10.0f;
    m_view.m_center[0] = 3.0f;
    const float origin[3] = {3.0f, 0.0f, 50.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    TambVizCore::Ray ray(origin, direction, 0.0);

    m_view.moveRayRootOutsideModel(ray);

    EXPECT_EQ(ray.Origin()[2], 50.0f);
}

TEST_F(AView3DControllerAdapterPick, InsideTheModelAsksFromOutside)
{
    m_view.m_radius = 1000.0f;

    pick();

    // 100 - 1 + 2000 along -z.
    EXPECT_NEAR(m_content->m_ray.Origin()[2], 2099.0f, 0.1f);
}

TEST_F(AView3DControllerAdapterPick, CameraOfASessionIsThatOfItsView)
{
    EXPECT_EQ(&m_view.getCamera(m_session), m_view.GetCamera());
}

TEST_F(AView3DControllerAdapterPick, ViewWithoutCameraThrows)
{
    m_session.m_fakeView = nullptr;

    try {
        m_view.getCamera(m_session);
        FAIL() << "nothing thrown";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "null ICameraProvider*");
    }
}

TEST_F(AView3DControllerAdapterPick, TargetingTakesTheSurfacePoint)
{
    m_view.m_hasPoint = true;
    std::copy_n(Vector{4.0f, 5.0f, 6.0f}.data(), 3, m_view.m_point);
    m_view.m_center[0] = 9.0f;
    OrvikCore::ViewOpTargetCamera op(1, 2);

    m_view.targetCamera(&op);

    EXPECT_THAT(rotationCenter(), ElementsAre(4.0f, 5.0f, 6.0f));
    EXPECT_THAT(m_view.m_calls, ElementsAre("point at 1 2"));
}

TEST_F(AView3DControllerAdapterPick, TargetingNothingTakesTheCentreOfTheModel)
{
    m_view.m_center[0] = 9.0f;
    OrvikCore::ViewOpTargetCamera op(1, 2);

    m_view.targetCamera(&op);

    EXPECT_THAT(rotationCenter(), ElementsAre(9.0f, 0.0f, 0.0f));
}

TEST_F(AView3DControllerAdapterPick, TargetingWithoutAdapterTakesTheCentreOfTheModel)
{
    m_view.m_center[1] = 9.0f;
    m_view.m_hasAdapter = false;
    OrvikCore::ViewOpTargetCamera op(1, 2);

    m_view.targetCamera(&op);

    EXPECT_THAT(rotationCenter(), ElementsAre(0.0f, 9.0f, 0.0f));
}

TEST_F(AView3DControllerAdapterPick, TargetingOfNoViewOrOperationDoesNothing)
{
    m_view.m_center[0] = 9.0f;
    OrvikCore::ViewOpTargetCamera op(1, 2);

    m_view.targetCamera(nullptr);
    m_view.SetView3D(nullptr);
    m_view.targetCamera(&op);

    EXPECT_THAT(rotationCenter(), ElementsAre(0.0f, 0.0f, 0.0f));
}

TEST_F(AView3DControllerAdapterPick, TargetingAViewWithoutCameraThrows)
{
    FakeView3D withoutCamera;
    m_session.m_fakeView = &withoutCamera;
    OrvikCore::ViewOpTargetCamera op(1, 2);

    EXPECT_THROW(m_view.targetCamera(&op), std::runtime_error);
}
