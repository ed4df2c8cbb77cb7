// The tables of sessions, their observers and listeners.
#include "VirtualSlot.h"

#include "OrvikCore/ASession.h"
#include "OrvikCore/IOutputListener.h"
#include "OrvikCore/ISessionObserver.h"

#include <gtest/gtest.h>

namespace {

using OrvikCore::MessageType;

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
    void PrintMessage(const std::wstring&, const MessageType&) override { ++m_prints; }
    void ClearOutput() override { ++m_prints; }

    int m_prints = 0;
};

TEST(IOutputListener, IgnoresToolTipsByDefault)
{
    PlainListener listener;

    static_cast<OrvikCore::IOutputListener&>(listener).ShowToolTip(L"tip");

    EXPECT_EQ(listener.m_prints, 0);
}

TEST(ISessionObserver, TakesEventsInTheFirstSlot)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::ISessionObserver::Notify), 0);
}

} // namespace
