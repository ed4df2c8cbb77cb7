// Making and ending sessions, output, renderers and drawing.
#include "OrvikCore/ASession.h"

#include "SessionFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/ISessionObserver.h"

#include <TambVizCore/IRendererReportProvider.h>

#include <thread>

namespace {

using ASession = SessionTest;
using Calls = std::vector<std::string>;
using Messages = std::vector<RecordingOutputListener::Message>;
using OrvikCore::MessageType;

/// Remembers the codes of its events.
class RecordingObserver : public OrvikCore::ISessionObserver
{
public:
    void Notify(int eventCode) override { m_codes.push_back(eventCode); }

    std::vector<int> m_codes;
};

/// A renderer that reports.
class ReportingRenderer : public Fake3DRenderer, public TambVizCore::IRendererReportProvider
{
public:
    void SetRendererReportMode(const bool* reportMode) override
    {
        m_addresses.push_back(reportMode);
    }

    std::vector<const bool*> m_addresses;
};

/// A renderer that logs its deletion.
template <typename Base> class Ending : public Base
{
public:
    using Base::Base;
    ~Ending() override { LogCall("renderer", "deleted"); }
};

/// Opens the private operations of the table to be pointed at.
class SlotSession : public OrvikCore::ASession
{
public:
    void DrawArrowImpl(double, double, double, double, double, double) override {}
    void DrawTessellationDataImpl(std::vector<float>&, std::vector<float>&, std::vector<float>&,
                                  std::vector<int>&) override
    {
    }
};

TEST(ASessionTable, OperationsBeforeTheViewStandInTheirSlots)
{
    using S = OrvikCore::ASession;
    EXPECT_EQ(VirtualSlot(&S::GetController), 2);
    EXPECT_EQ(VirtualSlot(&S::SetPickedEntities), 3);
    EXPECT_EQ(VirtualSlot(&S::GetPickedEntities), 4);
    EXPECT_EQ(VirtualSlot(&S::BeginProgress), 5);
    EXPECT_EQ(VirtualSlot(&S::ReportProgress), 6);
    EXPECT_EQ(VirtualSlot(&S::EndProgress), 7);
    EXPECT_EQ(VirtualSlot(&S::IsCancelRequested), 8);
}

TEST(ASessionTable, OperationsOfViewAndRenderersStandInTheirSlots)
{
    using S = OrvikCore::ASession;
    EXPECT_EQ(VirtualSlot(&S::View3D), 9);
    EXPECT_EQ(VirtualSlot(&S::ViewTree), 10);
    EXPECT_EQ(VirtualSlot(&S::SetViewTree), 11);
    EXPECT_EQ(VirtualSlot(&S::GetShell), 12);
    EXPECT_EQ(VirtualSlot(&S::Get3DRendererForFirstContent), 13);
    EXPECT_EQ(VirtualSlot(&S::Get3DRenderer), 14);
    EXPECT_EQ(VirtualSlot(&S::GetTreeRenderer), 15);
    EXPECT_EQ(VirtualSlot(&S::EnableTreeRenderer), 16);
    EXPECT_EQ(VirtualSlot(&S::AddRenderer), 17);
    EXPECT_EQ(VirtualSlot(&S::DeleteAllRenderers), 18);
    EXPECT_EQ(VirtualSlot(&S::UpdateAfterUndoRedo), 19);
    EXPECT_EQ(VirtualSlot(&S::UpdateAfterContentModified), 20);
    EXPECT_EQ(VirtualSlot(&S::UpdateDisplay), 21);
    EXPECT_EQ(VirtualSlot(&S::UpdatePreferences), 22);
    EXPECT_EQ(VirtualSlot(&S::Rerender), 23);
    EXPECT_EQ(VirtualSlot(&S::RefreshTree), 24);
}

TEST(ASessionTable, OperationsOfSelectionAndZoomStandInTheirSlots)
{
    using S = OrvikCore::ASession;
    using Entity = TambVizCore::EntityId;
    using Render = TambVizCore::RenderId;
    EXPECT_EQ(VirtualSlot(static_cast<void (S::*)(const Entity&)>(&S::Highlight)), 25);
    EXPECT_EQ(VirtualSlot(static_cast<void (S::*)(const Render&)>(&S::Highlight)), 26);
    EXPECT_EQ(VirtualSlot(&S::UnHighlight), 27);
    EXPECT_EQ(VirtualSlot(static_cast<void (S::*)(const Entity&)>(&S::Select)), 28);
    EXPECT_EQ(VirtualSlot(static_cast<void (S::*)(const Render&)>(&S::Select)), 29);
    EXPECT_EQ(VirtualSlot(&S::UnSelect), 30);
    EXPECT_EQ(VirtualSlot(static_cast<bool (S::*)(const Entity&)>(&S::ZoomTo)), 31);
    EXPECT_EQ(VirtualSlot(static_cast<bool (S::*)(const Render&)>(&S::ZoomTo)), 32);
    EXPECT_EQ(VirtualSlot(&S::ZoomAll), 33);
    EXPECT_EQ(VirtualSlot(&S::ZoomToPicked), 34);
}

TEST(ASessionTable, OperationsOfOutputAndDrawingStandInTheirSlots)
{
    using S = OrvikCore::ASession;
    using Lines = const std::vector<std::vector<double>>&;
    using Color = const TambVizCore::RGBAColor&;
    EXPECT_EQ(VirtualSlot(&S::SetOutputObserver), 35);
    EXPECT_EQ(VirtualSlot(&S::SetBusy), 36);
    EXPECT_EQ(VirtualSlot(&S::IsBusy), 37);
    EXPECT_EQ(VirtualSlot(static_cast<void (S::*)(Lines, Color)>(&S::DrawMarkupObjects)), 38);
    EXPECT_EQ(
        VirtualSlot(static_cast<void (S::*)(Lines, bool, bool, Color)>(&S::DrawMarkupObjects)), 39);
    EXPECT_EQ(VirtualSlot(&S::CreateContentRenderer), 40);
    EXPECT_EQ(VirtualSlot(&S::CreateTreeRenderer), 41);
    EXPECT_EQ(VirtualSlot(&SlotSession::DrawArrowImpl), 42);
    EXPECT_EQ(VirtualSlot(&SlotSession::DrawTessellationDataImpl), 43);
    EXPECT_EQ(VirtualSlot(&S::Id), -1);
}

TEST(IOutputListener, OperationsStandInTheirSlots)
{
    using L = OrvikCore::IOutputListener;
    EXPECT_EQ(VirtualSlot(&L::PrintMessage), 0);
    EXPECT_EQ(VirtualSlot(&L::ClearOutput), 1);
    EXPECT_EQ(VirtualSlot(&L::ShowToolTip), 2);
}

/// A listener with nothing but what it must have.
class PlainListener : public OrvikCore::IOutputListener
{
public:
    void PrintMessage(const std::wstring&, const MessageType&) override { ++m_calls; }
    void ClearOutput() override { ++m_calls; }

    int m_calls = 0;
};

TEST(IOutputListener, IgnoresToolTipsByDefault)
{
    PlainListener listener;

    static_cast<OrvikCore::IOutputListener&>(listener).ShowToolTip(L"tip");

    EXPECT_EQ(listener.m_calls, 0);
}

TEST(ISessionObserver, TakesEventsInTheFirstSlot)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::ISessionObserver::Notify), 0);
}

TEST_F(ASession, KeepsItsIdAndMakesADocumentOfItsOwn)
{
    EXPECT_EQ(session().Id(), 5);
    EXPECT_EQ(&session().Document().Session(), &session());
    EXPECT_EQ(session().ViewTree(), nullptr);
}

TEST_F(ASession, UsesTheControllerOfAViewThatProvidesOne)
{
    configure(L"FullView", L"Adapter");

    view().m_controller = FakeControllerAdapter::Marker();

    EXPECT_EQ(session().GetController(), FakeControllerAdapter::Marker());
    EXPECT_EQ(m_debug.LinesAfter("[FakeView] CreateObject "), (Calls{"FullView"}));
}

TEST_F(ASession, TakesTheControllerOfTheAdapterForAViewWithoutOne)
{
    configure(L"PlainView", L"Adapter");

    EXPECT_EQ(session().GetController(), FakeControllerAdapter::Marker());
}

TEST_F(ASession, HasNoControllerWithoutAnAdapter)
{
    configure(L"PlainView");

    EXPECT_NE(session().View3D(), nullptr);
    EXPECT_EQ(session().GetController(), nullptr);
}

TEST_F(ASession, HasNoControllerWhenTheAdapterProvidesNone)
{
    configure(L"PlainView", L"BareAdapter");

    EXPECT_EQ(session().GetController(), nullptr);
}

TEST_F(ASession, LivesWithoutAView)
{
    configure(L"NoSuchView");

    EXPECT_EQ(session().View3D(), nullptr);
    EXPECT_EQ(session().GetController(), nullptr);
    session().Highlight(viewId(1));
    session().Select(viewId(1));
    session().UnHighlight();
    session().UnSelect();
    EXPECT_FALSE(session().ZoomTo(treeId(1)));
    EXPECT_FALSE(session().ZoomTo(body(1)));
    session().ClearDrawingObjects();
}

TEST_F(ASession, HandsItsDocumentToACoreView)
{
    configure(L"CoreView");

    auto* const coreView = dynamic_cast<CoreFakeView*>(session().View3D());

    ASSERT_NE(coreView, nullptr);
    EXPECT_EQ(coreView->GetDocument(), &session().Document());
}

TEST_F(ASession, ShellIsThatOfTheManager)
{
    EXPECT_EQ(session().GetShell(), nullptr);
}

/// A tree that logs its deletion.
class EndingTree : public RecordingViewTree
{
public:
    ~EndingTree() override { LogCall("tree", "deleted"); }
};

/// A content that logs its deletion where the other fakes of the test log theirs.
class EndingContent : public FakeContent
{
public:
    using FakeContent::FakeContent;
    ~EndingContent() override { LogCall("content", "deleted"); }
};

TEST_F(ASession, DestructionDeletesViewTreeAndDocumentInThisOrder)
{
    session().SetViewTree(new EndingTree);
    session().Document().AddContent(
        *new EndingContent(session().Document(), "content", m_contentLog));
    m_debug.Clear();

    m_session.reset();

    EXPECT_EQ(m_debug.LinesAfter("["),
              (Calls{"FullFakeView] deleted", "tree] deleted", "content] deleted"}));
}

TEST_F(ASession, SettingATreeDeletesNothing)
{
    EndingTree first;
    session().SetViewTree(&first);

    session().SetViewTree(nullptr);

    EXPECT_EQ(session().ViewTree(), nullptr);
    EXPECT_TRUE(m_debug.LinesAfter("[tree] ").empty());
}

TEST_F(ASession, DestructionFreesNoRenderer)
{
    Ending<Fake3DRenderer> renderer;
    session().AddRenderer(&renderer, /*keep=*/false);

    m_session.reset();

    EXPECT_TRUE(m_debug.LinesAfter("[renderer] ").empty());
}

TEST_F(ASession, DeleteAllRenderersDeletesAndForgetsThem)
{
    session().AddRenderer(new Ending<Fake3DRenderer>, /*keep=*/true);
    session().AddRenderer(new Ending<FakeTreeRenderer>, /*keep=*/true);

    session().DeleteAllRenderers();
    session().DeleteAllRenderers();

    EXPECT_EQ(m_debug.LinesAfter("[renderer] "), (Calls{"deleted", "deleted"}));
    EXPECT_EQ(session().GetTreeRenderer(), nullptr);
}

TEST_F(ASession, UpdatesAreEventsTwoAndThree)
{
    RecordingObserver observer;
    session().SetOutputObserver(&observer);

    session().UpdateDisplay();
    session().UpdatePreferences();

    EXPECT_EQ(observer.m_codes, (std::vector<int>{2, 3}));
}

TEST_F(ASession, UpdatesWithoutAnObserverDoNothing)
{
    RecordingObserver observer;
    session().SetOutputObserver(&observer);
    session().SetOutputObserver(nullptr);

    session().UpdateDisplay();
    session().UpdatePreferences();

    EXPECT_TRUE(observer.m_codes.empty());
}

TEST_F(ASession, UpdateOnContentModifiedStartsTrueAndIsExchanged)
{
    EXPECT_TRUE(session().isUpdateOnContentModified());
    EXPECT_TRUE(session().EnableUpdateOnContentModified(false));
    EXPECT_FALSE(session().isUpdateOnContentModified());
    EXPECT_FALSE(session().EnableUpdateOnContentModified(true));
}

TEST_F(ASession, PrintsToEveryListenerInOrder)
{
    RecordingOutputListener first;
    RecordingOutputListener second;
    session().RegisterOutputCb(&first);
    session().RegisterOutputCb(&second);

    session().PrintMessage(L"text", MessageType::Error);

    EXPECT_EQ(first.Messages(), (Messages{{L"text", 2}}));
    EXPECT_EQ(second.Messages(), (Messages{{L"text", 2}}));
}

TEST_F(ASession, EmptyTextChangesNothing)
{
    RecordingOutputListener listener;
    session().RegisterOutputCb(&listener);
    session().PrintMessage(L"kept", MessageType::Output);

    session().PrintMessage(L"", MessageType::Error);

    std::wstring last;
    session().GetLastMessage(last);
    EXPECT_EQ(last, L"kept");
    EXPECT_EQ(listener.Messages(), (Messages{{L"kept", 0}}));
}

TEST_F(ASession, LastMessageIsKeptWithoutListeners)
{
    std::wstring last = L"stale";
    session().GetLastMessage(last);
    EXPECT_EQ(last, L"");

    session().PrintMessage(L"first", MessageType::Output);
    session().PrintMessage(L"second", MessageType::Warning);

    session().GetLastMessage(last);
    EXPECT_EQ(last, L"second");
}

TEST_F(ASession, ListenerRegisteredTwiceHearsOnce)
{
    RecordingOutputListener listener;
    session().RegisterOutputCb(&listener);
    session().RegisterOutputCb(&listener);

    session().PrintMessage(L"text", MessageType::Output);

    EXPECT_EQ(listener.Messages().size(), 1u);
}

TEST_F(ASession, UnregisteredListenerHearsNothing)
{
    RecordingOutputListener listener;
    session().RegisterOutputCb(&listener);
    session().UnRegisterOutputCb(&listener);
    session().UnRegisterOutputCb(&listener);

    session().PrintMessage(L"text", MessageType::Output);

    EXPECT_TRUE(listener.Messages().empty());
}

TEST_F(ASession, NullListenerIsIgnored)
{
    session().RegisterOutputCb(nullptr);

    session().PrintMessage(L"text", MessageType::Output);
    session().ClearOutput();
}

TEST_F(ASession, ClearOutputAndToolTipsReachEveryListener)
{
    RecordingOutputListener first;
    RecordingOutputListener second;
    session().RegisterOutputCb(&first);
    session().RegisterOutputCb(&second);

    session().ClearOutput();
    session().ShowToolTip(std::wstring(L"tip"));

    EXPECT_EQ(first.m_clears, 1);
    EXPECT_EQ(second.m_clears, 1);
    EXPECT_EQ(first.m_toolTips, (std::vector<std::wstring>{L"tip"}));
    EXPECT_EQ(second.m_toolTips, (std::vector<std::wstring>{L"tip"}));
}

TEST_F(ASession, PrintsOnAnotherThreadWhileListenersChange)
{
    RecordingOutputListener steady;
    RecordingOutputListener fleeting;
    session().RegisterOutputCb(&steady);

    std::thread printer([this] {
        for (int i = 0; i < 1000; ++i) {
            session().PrintMessage(L"text", MessageType::Output);
        }
    });
    std::wstring last;
    for (int i = 0; i < 100; ++i) {
        session().RegisterOutputCb(&fleeting);
        session().GetLastMessage(last);
        session().UnRegisterOutputCb(&fleeting);
    }
    printer.join();

    EXPECT_EQ(steady.Messages().size(), 1000u);
}

TEST_F(ASession, FirstContentDecidesTheFirstRenderer)
{
    OrvikCore::AContent& first = addContent("first");
    OrvikCore::AContent& second = addContent("second");
    Fake3DRenderer renderers[] = {Fake3DRenderer(&second), Fake3DRenderer(&first)};
    session().AddRenderer(&renderers[0], /*keep=*/false);
    session().AddRenderer(&renderers[1], /*keep=*/false);

    EXPECT_EQ(session().Get3DRendererForFirstContent(), &renderers[1]);
    EXPECT_EQ(session().Get3DRenderer(&second), &renderers[0]);
}

TEST_F(ASession, EmptyDocumentHasNoFirstRenderer)
{
    Fake3DRenderer renderer;
    session().AddRenderer(&renderer, /*keep=*/false);

    EXPECT_EQ(session().Get3DRendererForFirstContent(), nullptr);
}

TEST_F(ASession, RenderersAreAskedInTheOrderOfTheirAddresses)
{
    OrvikCore::AContent& content = addContent();
    Fake3DRenderer renderers[] = {Fake3DRenderer(&content), Fake3DRenderer(&content)};
    session().AddRenderer(&renderers[1], /*keep=*/false);
    session().AddRenderer(&renderers[0], /*keep=*/false);

    EXPECT_EQ(session().Get3DRenderer(&content), &renderers[0]);
}

TEST_F(ASession, TreeRenderersAreNo3DRenderers)
{
    OrvikCore::AContent& content = addContent();
    FakeTreeRenderer tree(&content);
    session().AddRenderer(&tree, /*keep=*/false);

    EXPECT_EQ(session().Get3DRenderer(&content), nullptr);
    EXPECT_EQ(session().GetTreeRenderer(), &tree);
}

TEST_F(ASession, RendererOfAnotherContentIsNotTaken)
{
    OrvikCore::AContent& content = addContent();
    Fake3DRenderer renderer(&addContent("other"));
    session().AddRenderer(&renderer, /*keep=*/false);

    EXPECT_EQ(session().Get3DRenderer(&content), nullptr);
}

TEST_F(ASession, EnablingWithoutATreeRendererHasOneMadeAndRendered)
{
    FakeTreeRenderer tree;
    session().m_treeRenderer = &tree;

    EXPECT_FALSE(session().EnableTreeRenderer(true));

    EXPECT_EQ(session().m_treeRenderersAsked, 1);
    EXPECT_EQ(tree.m_calls, (Calls{"Render"}));
}

TEST_F(ASession, EnablingCopesWithoutANewTreeRenderer)
{
    EXPECT_FALSE(session().EnableTreeRenderer(true));

    EXPECT_EQ(session().m_treeRenderersAsked, 1);
}

TEST_F(ASession, DisablingWithoutATreeRendererDoesNothing)
{
    EXPECT_FALSE(session().EnableTreeRenderer(false));

    EXPECT_EQ(session().m_treeRenderersAsked, 0);
}

TEST_F(ASession, EnablingATreeRendererThatIsThereChangesNothing)
{
    FakeTreeRenderer tree;
    session().AddRenderer(&tree, /*keep=*/false);

    EXPECT_TRUE(session().EnableTreeRenderer(true));

    EXPECT_EQ(session().m_treeRenderersAsked, 0);
    EXPECT_TRUE(tree.m_calls.empty());
}

TEST_F(ASession, DisablingDeletesATreeRendererAddedWithFalse)
{
    session().AddRenderer(new Ending<FakeTreeRenderer>, /*keep=*/false);

    EXPECT_TRUE(session().EnableTreeRenderer(false));

    EXPECT_EQ(m_debug.LinesAfter("[renderer] "), (Calls{"deleted"}));
    EXPECT_EQ(session().GetTreeRenderer(), nullptr);
}

TEST_F(ASession, DisablingKeepsATreeRendererAddedWithTrue)
{
    FakeTreeRenderer tree;
    session().AddRenderer(&tree, /*keep=*/true);

    EXPECT_TRUE(session().EnableTreeRenderer(false));

    EXPECT_EQ(session().GetTreeRenderer(), &tree);
}

TEST_F(ASession, AddingARendererAgainKeepsItsFlag)
{
    FakeTreeRenderer tree;
    session().AddRenderer(&tree, /*keep=*/true);
    session().AddRenderer(&tree, /*keep=*/false);

    session().EnableTreeRenderer(false);

    EXPECT_EQ(session().GetTreeRenderer(), &tree);
}

TEST_F(ASession, ReportingRendererReceivesTheAddressOfTheMode)
{
    ReportingRenderer renderer;
    session().AddRenderer(&renderer, /*keep=*/false);

    ASSERT_EQ(renderer.m_addresses.size(), 1u);
    EXPECT_FALSE(*renderer.m_addresses[0]);
    session().SetRenderReportMode(true);
    EXPECT_TRUE(*renderer.m_addresses[0]);
}

TEST_F(ASession, ChangeOfTheReportModeIsToldToReportingRenderers)
{
    ReportingRenderer reporting;
    Fake3DRenderer silent;
    session().AddRenderer(&reporting, /*keep=*/false);
    session().AddRenderer(&silent, /*keep=*/false);

    EXPECT_FALSE(session().SetRenderReportMode(true));

    EXPECT_TRUE(session().GetRenderReportMode());
    ASSERT_EQ(reporting.m_addresses.size(), 2u);
    EXPECT_EQ(reporting.m_addresses[1], reporting.m_addresses[0]);
}

TEST_F(ASession, SameReportModeIsToldToNobody)
{
    ReportingRenderer renderer;
    session().AddRenderer(&renderer, /*keep=*/false);
    session().SetRenderReportMode(true);

    EXPECT_TRUE(session().SetRenderReportMode(true));

    EXPECT_EQ(renderer.m_addresses.size(), 2u);
}

TEST_F(ASession, DrawingGoesToTheView)
{
    const std::vector<std::vector<double>> lines{{0, 0, 0, 1, 1, 1}, {2, 2, 2}};
    std::vector<float> points(9);
    std::vector<float> normals(3);
    std::vector<float> colors(4);
    std::vector<int> indices(2);

    session().DrawMarkupObjects(lines, TambVizCore::RGBAColor());
    session().DrawMarkupObjects(lines, /*closed=*/true, /*filled=*/false, TambVizCore::RGBAColor());
    session().DrawArrow(1, 2, 3, 4, 5, 6);
    session().DrawTessellationData(points, normals, colors, indices);
    session().ClearDrawingObjects();

    EXPECT_EQ(view().m_draws,
              (Calls{"open polylines 2", "polylines 2 closed", "arrow", "tessellation", "clear"}));
    EXPECT_EQ(view().m_arrow, (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(view().m_sizes, (std::vector<std::size_t>{9, 3, 4, 2}));
}

TEST_F(ASession, DrawingDoesNothingInAViewThatCannotDraw)
{
    configure(L"PlainView");
    std::vector<float> none;
    std::vector<int> noIndices;

    session().DrawMarkupObjects({}, TambVizCore::RGBAColor());
    session().DrawMarkupObjects({}, false, false, TambVizCore::RGBAColor());
    session().DrawArrow(1, 2, 3, 4, 5, 6);
    session().DrawTessellationData(none, none, none, noIndices);
    session().ClearDrawingObjects();

    EXPECT_EQ(dynamic_cast<FullFakeView*>(session().View3D()), nullptr);
}

} // namespace
