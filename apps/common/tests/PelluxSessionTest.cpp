#include "../PelluxSession.h"

#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/EntityType.h>

#include <gtest/gtest.h>

namespace {

using Pellux::PelluxSession;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

/// A session that no view plugin is loaded for.
class Session : public testing::Test
{
protected:
    PelluxSession m_session;
};

TEST_F(Session, RemembersWhatWasPickedLast)
{
    const std::vector<EntityId> picked = {EntityId(7, 0, EntityType::Mesh)};

    m_session.SetPickedEntities(picked);

    EXPECT_EQ(m_session.GetPickedEntities(), picked);
}

TEST_F(Session, PicksOneEntityOrAddsIt)
{
    const EntityId first(7, 0, EntityType::Mesh);
    const EntityId second(8, 0, EntityType::Mesh);

    m_session.Highlight(first);
    EXPECT_EQ(m_session.GetPickedEntities(), (std::vector<EntityId>{first}));
    m_session.Select(second);
    m_session.Select(first);
    EXPECT_EQ(m_session.GetPickedEntities(), (std::vector<EntityId>{first, second}));
    m_session.UnSelect();
    EXPECT_TRUE(m_session.GetPickedEntities().empty());
}

TEST_F(Session, IsBusyWhileItIsSaidToBe)
{
    EXPECT_FALSE(m_session.IsBusy());
    m_session.SetBusy(true);
    EXPECT_TRUE(m_session.IsBusy());
}

TEST_F(Session, AsksTheCancelTokenWhetherToGoOn)
{
    auto& token = TambCommandsInfra::CancelToken::Instance();
    const TambCommandsInfra::CancelScope job(token, token.NextJobNumber());
    EXPECT_FALSE(m_session.IsCancelRequested());

    token.CancelCurrent();

    EXPECT_TRUE(m_session.IsCancelRequested());
}

TEST_F(Session, ReportsProgress)
{
    std::vector<std::wstring> phases;
    bool finished = false;
    TambCommandsInfra::Progress::Instance().SetObserver(
        [&](const TambCommandsInfra::ProgressReport& report) {
            phases.push_back(report.phase);
            finished = report.isFinished;
        });

    m_session.BeginProgress(L"Reading");
    m_session.ReportProgress(0.5);
    m_session.EndProgress();
    TambCommandsInfra::Progress::Instance().SetObserver(nullptr);

    ASSERT_FALSE(phases.empty());
    EXPECT_EQ(phases.front(), L"Reading");
    EXPECT_TRUE(finished);
}

TEST_F(Session, ZoomsToNothingWhenNothingIsPicked)
{
    EXPECT_FALSE(m_session.ZoomToPicked());
}

} // namespace
