#include "FakeConfigInitializer.h"
#include "FakeSession.h"
#include "FakeViews.h"
#include "PluginFolder.h"

#include "OrvikCore/TambViewServicesPellux.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

// A session whose own view comes from a plugin.
struct DrawingServices : testing::Test
{
    FakeSession& makeSession(const std::wstring& view)
    {
        m_folder.Add("FakeView.Plugin.dll");
        Configure({{L"View3D", {{L"File", L"FakeView.Plugin.dll"}, {L"Name", view}}}});
        FakeSession& session = MakeCurrentFakeSession();
        session.m_fakeView = session.ASession::View3D();
        return session;
    }

    PluginFolder m_folder;
    TambViewServicesPellux m_services;
    std::vector<float> m_points = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    std::vector<float> m_normals = {0, 0, 1};
    std::vector<float> m_colors = {1, 0};
    std::vector<int> m_indices = {0, 1, 2, 0};
};

} // namespace

TEST_F(DrawingServices, AnArrowReachesTheView)
{
    auto* const view = dynamic_cast<FullFakeView*>(makeSession(L"FullView").View3D());
    ASSERT_NE(view, nullptr);

    m_services.DrawArrow(1, 2, 3, 4, 5, 6);

    EXPECT_THAT(view->m_draws, ElementsAre("arrow"));
    EXPECT_THAT(view->m_arrow, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(DrawingServices, TrianglesReachTheViewListByList)
{
    auto* const view = dynamic_cast<FullFakeView*>(makeSession(L"FullView").View3D());
    ASSERT_NE(view, nullptr);

    m_services.DrawTessellationData(m_points, m_normals, m_colors, m_indices);

    EXPECT_THAT(view->m_draws, ElementsAre("tessellation"));
    EXPECT_THAT(view->m_sizes, ElementsAre(9u, 3u, 2u, 4u));
}

TEST_F(DrawingServices, ClearingReachesTheView)
{
    auto* const view = dynamic_cast<FullFakeView*>(makeSession(L"FullView").View3D());
    ASSERT_NE(view, nullptr);

    m_services.ClearDrawingObjects();

    EXPECT_THAT(view->m_draws, ElementsAre("clear"));
}

TEST_F(DrawingServices, NothingIsDrawnInAViewThatProvidesNoObjects)
{
    FakeSession& session = makeSession(L"PlainView");
    ASSERT_NE(session.View3D(), nullptr);

    EXPECT_NO_THROW(m_services.DrawArrow(1, 2, 3, 4, 5, 6));
    EXPECT_NO_THROW(m_services.DrawTessellationData(m_points, m_normals, m_colors, m_indices));
    EXPECT_NO_THROW(m_services.ClearDrawingObjects());
    EXPECT_EQ(m_indices.size(), 4u);
}
