#include "OrvikCore/TreeBuilder.h"

#include "RecordingViewTree.h"
#include "VirtualSlot.h"

#include "OrvikCore/ATreeItemStyle.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

using OrvikCore::ATreeItemStyle;
using OrvikCore::TreeBuilder;
using TambVizCore::EntityId;
using TambVizCore::RenderId;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Style = TreeBuilder::TreeItemStyles;

std::vector<std::uint64_t> idsOf(const RenderId& path)
{
    std::vector<std::uint64_t> ids;
    for (int i = 0; i < path.Length(); ++i) {
        ids.push_back(path[i]);
    }
    return ids;
}

// A style that counts how many of its kind are alive.
class CountedStyle : public ATreeItemStyle
{
public:
    explicit CountedStyle(int& alive) : ATreeItemStyle(false, false), m_alive(&alive) { ++alive; }
    ~CountedStyle() override { --*m_alive; }
    CountedStyle(const CountedStyle&) = delete;
    CountedStyle& operator=(const CountedStyle&) = delete;

private:
    int* m_alive; ///< Not owned.
};

struct TreeBuilderTest : testing::Test
{
    std::vector<std::uint64_t> openIds()
    {
        RenderId path;
        return m_builder->GetCurrentRenderId(path) ? idsOf(path) : std::vector<std::uint64_t>();
    }
    std::vector<std::uint64_t> rootPathAnd(std::uint64_t owner)
    {
        EntityId entity;
        entity.SetOwner(owner);
        RenderId path;
        m_builder->BuildRenderId(path, entity);
        return idsOf(path);
    }

    RecordingViewTree m_tree;
    std::unique_ptr<TreeBuilder> m_builder{TreeBuilder::CreateTreeBuilder(&m_tree)};
    std::unique_ptr<TreeBuilder> m_blind{TreeBuilder::CreateTreeBuilder(nullptr)};
};

} // namespace

TEST_F(TreeBuilderTest, KnowsItsView)
{
    EXPECT_EQ(m_builder->GetView(), &m_tree);
    EXPECT_EQ(m_blind->GetView(), nullptr);
}

TEST_F(TreeBuilderTest, ConstructionIsForwarded)
{
    m_builder->ConstructionBegin();
    m_builder->ConstructionEnd();

    EXPECT_THAT(m_tree.m_calls, ElementsAre("ConstructionBegin false", "ConstructionEnd"));
}

TEST_F(TreeBuilderTest, ConstructionBeginForgetsRootPathAndOpenRows)
{
    m_builder->SceneBegin(7, L"scene");

    m_builder->ConstructionBegin();

    EXPECT_THAT(openIds(), IsEmpty());
    EXPECT_THAT(rootPathAnd(42), ElementsAre(42u));
}

TEST_F(TreeBuilderTest, ConstructionEndWithoutBeginIsForwardedAllTheSame)
{
    m_builder->ConstructionEnd();

    EXPECT_THAT(m_tree.m_calls, ElementsAre("ConstructionEnd"));
}

TEST_F(TreeBuilderTest, RootPathHoldsScenesAndContainersAndIsNotShortened)
{
    m_builder->SceneBegin(7, L"scene");
    m_builder->ContainerBegin(9, L"container");
    m_builder->BodyBegin(11, L"body");

    EXPECT_THAT(rootPathAnd(42), ElementsAre(7u, 9u, 42u));
    m_builder->BodyEnd();
    m_builder->ContainerEnd();
    m_builder->SceneEnd();
    EXPECT_THAT(rootPathAnd(42), ElementsAre(7u, 9u, 42u));
}

TEST_F(TreeBuilderTest, RootPathGrowsAlsoWhenTheViewRefusesTheRow)
{
    m_tree.m_opens = false;

    m_builder->SceneBegin(7, L"scene");

    EXPECT_THAT(openIds(), IsEmpty());
    EXPECT_THAT(rootPathAnd(42), ElementsAre(7u, 42u));
}

TEST_F(TreeBuilderTest, RootPathDoesNotGrowWithoutAView)
{
    EntityId entity;
    entity.SetOwner(42);
    RenderId path;

    m_blind->SceneBegin(7, L"scene");
    m_blind->ContainerBegin(9, L"container");
    m_blind->BuildRenderId(path, entity);

    EXPECT_THAT(idsOf(path), ElementsAre(42u));
}

TEST_F(TreeBuilderTest, AnyTypeUsesTheStyleOfTheGivenKind)
{
    auto* const style = new ATreeItemStyle(true, true);
    m_builder->AddStyle(Style::Wire, style);

    m_builder->AnyTypeBegin(3, L"any", Style::Wire);
    m_builder->AnyTypeEnd();

    EXPECT_EQ(m_tree.m_lastStyle, style);
    EXPECT_THAT(m_tree.m_calls, ElementsAre("OpenNode 3", "CloseNode"));
}

TEST_F(TreeBuilderTest, AnUnregisteredKindGivesANullStyle)
{
    const ATreeItemStyle other(false, false);
    m_tree.m_lastStyle = &other;

    m_builder->BodyBegin(3, L"body");

    EXPECT_EQ(m_tree.m_lastStyle, nullptr);
}

TEST_F(TreeBuilderTest, UseOfAnUnregisteredStyleKeepsItNullForGood)
{
    m_builder->BodyBegin(3, L"body");
    const auto late = std::make_unique<ATreeItemStyle>(true, true);

    m_builder->AddStyle(Style::Body, late.get());
    m_builder->BodyBegin(4, L"body");

    EXPECT_EQ(m_tree.m_lastStyle, nullptr);
}

TEST_F(TreeBuilderTest, AddStyleKeepsTheFirstStyleOfAKind)
{
    auto* const first = new ATreeItemStyle(true, true);
    const auto second = std::make_unique<ATreeItemStyle>(false, false);

    m_builder->AddStyle(Style::Body, first);
    m_builder->AddStyle(Style::Body, second.get());
    m_builder->BodyBegin(3, L"body");

    EXPECT_EQ(m_tree.m_lastStyle, first);
}

TEST_F(TreeBuilderTest, DestructorDeletesEveryStyle)
{
    int alive = 0;
    m_builder->AddStyle(Style::Body, new CountedStyle(alive));
    m_builder->AddStyle(Style::Wire, new CountedStyle(alive));
    m_builder->MeshBegin(1, L"a kind without style");

    m_builder.reset();

    EXPECT_EQ(alive, 0);
}

TEST_F(TreeBuilderTest, StylesOutliveConstructions)
{
    auto* const style = new ATreeItemStyle(true, true);
    m_builder->AddStyle(Style::Body, style);

    m_builder->ConstructionBegin();
    m_builder->ConstructionEnd();
    m_builder->ClearAll();
    m_builder->BodyBegin(3, L"body");

    EXPECT_EQ(m_tree.m_lastStyle, style);
}

TEST_F(TreeBuilderTest, OpenNodeCountsAsOpenOnlyWhenTheViewOpenedIt)
{
    EXPECT_TRUE(m_builder->OpenNode(3, L"row", nullptr));
    m_tree.m_opens = false;
    EXPECT_FALSE(m_builder->OpenNode(4, L"row", nullptr));

    EXPECT_THAT(openIds(), ElementsAre(3u));
}

TEST_F(TreeBuilderTest, OpenNodeIsFalseWithoutAView)
{
    EXPECT_FALSE(m_blind->OpenNode(3, L"row", nullptr));
}

TEST_F(TreeBuilderTest, CreateNodeCountsAsOpenWhateverTheViewAnswers)
{
    EXPECT_TRUE(m_builder->CreateNode(3, L"row", nullptr));
    m_tree.m_creates = false;
    EXPECT_FALSE(m_builder->CreateNode(4, L"row", nullptr));

    EXPECT_THAT(m_tree.m_calls, ElementsAre("CreateNode 3", "CreateNode 4"));
    EXPECT_THAT(openIds(), ElementsAre(3u, 4u));
}

TEST_F(TreeBuilderTest, CreateNodeIsFalseWithoutAView)
{
    EXPECT_FALSE(m_blind->CreateNode(3, L"row", nullptr));
}

TEST(TreeBuilder, CreateNodeSuppressesIdOneUnderOneOpenNode)
{
    RecordingViewTree tree;
    const std::unique_ptr<TreeBuilder> builder(TreeBuilder::CreateTreeBuilder(&tree));
    builder->OpenNode(5, L"top", nullptr);

    EXPECT_FALSE(builder->CreateNode(1, L"one", nullptr));
    EXPECT_THAT(tree.m_calls, ElementsAre("OpenNode 5"));
}

TEST_F(TreeBuilderTest, CreateNodeForwardsIdOneUnderTwoOpenNodes)
{
    m_builder->OpenNode(5, L"top", nullptr);
    m_builder->OpenNode(6, L"next", nullptr);

    EXPECT_TRUE(m_builder->CreateNode(1, L"one", nullptr));
    EXPECT_THAT(m_tree.m_calls, ElementsAre("OpenNode 5", "OpenNode 6", "CreateNode 1"));
}

TEST_F(TreeBuilderTest, CreateNodeForwardsIdOneWithNothingOpen)
{
    EXPECT_TRUE(m_builder->CreateNode(1, L"one", nullptr));
    EXPECT_THAT(m_tree.m_calls, ElementsAre("CreateNode 1"));
}

TEST_F(TreeBuilderTest, CreateNodeForwardsOtherIdsUnderOneOpenNode)
{
    m_builder->OpenNode(5, L"top", nullptr);

    EXPECT_TRUE(m_builder->CreateNode(2, L"two", nullptr));
}

TEST_F(TreeBuilderTest, CloseNodeClosesTheInnermost)
{
    m_builder->OpenNode(5, L"top", nullptr);
    m_builder->OpenNode(6, L"next", nullptr);

    m_builder->CloseNode();

    EXPECT_THAT(openIds(), ElementsAre(5u));
}

TEST_F(TreeBuilderTest, CloseNodeWithNothingOpenOnlyTellsTheView)
{
    m_builder->CloseNode();

    EXPECT_THAT(m_tree.m_calls, ElementsAre("CloseNode"));
}

TEST_F(TreeBuilderTest, ClearAllForgetsTheOpenRows)
{
    m_builder->ConstructionBegin();
    m_builder->OpenNode(5, L"top", nullptr);

    m_builder->ClearAll();

    EXPECT_THAT(openIds(), IsEmpty());
    EXPECT_EQ(m_tree.m_calls.back(), "ClearAll");
}

TEST_F(TreeBuilderTest, ClearAllKeepsTheRootPath)
{
    m_builder->SceneBegin(7, L"scene");

    m_builder->ClearAll();

    EXPECT_THAT(rootPathAnd(42), ElementsAre(7u, 42u));
}

TEST_F(TreeBuilderTest, EnablingIsForwarded)
{
    m_builder->SetCurrentNodeEnabled(false);
    m_builder->SetCurrentNodeEnabled(true);

    EXPECT_THAT(m_tree.m_calls,
                ElementsAre("SetCurrentNodeEnabled false", "SetCurrentNodeEnabled true"));
}

TEST_F(TreeBuilderTest, CurrentRenderIdRunsFromOutermostToInnermostWithTheTreesOrigin)
{
    m_builder->SceneBegin(7, L"scene");
    m_builder->ContainerBegin(9, L"container");
    m_builder->BodyBegin(11, L"body");
    RenderId path(1);
    path.AddValue(99);

    EXPECT_TRUE(m_builder->GetCurrentRenderId(path));
    EXPECT_THAT(idsOf(path), ElementsAre(7u, 9u, 11u));
    EXPECT_EQ(path.Origin(), 2u);
}

TEST_F(TreeBuilderTest, CurrentRenderIdIsLeftAloneWithNothingOpen)
{
    RenderId path(1);
    path.AddValue(99);

    EXPECT_FALSE(m_builder->GetCurrentRenderId(path));
    EXPECT_FALSE(m_blind->GetCurrentRenderId(path));
    EXPECT_THAT(idsOf(path), ElementsAre(99u));
    EXPECT_EQ(path.Origin(), 1u);
}

TEST_F(TreeBuilderTest, ChildrenCountIsTheViewsAnswer)
{
    RenderId path;
    path.AddValue(7);

    EXPECT_EQ(m_builder->GetChildrenCountForNode(path), 101);
    EXPECT_EQ(m_blind->GetChildrenCountForNode(path), -1);
}

TEST_F(TreeBuilderTest, NothingElseHappensWithoutAView)
{
    m_blind->ConstructionBegin();
    m_blind->AnyTypeBegin(1, L"any", Style::Body);
    m_blind->AnyTypeEnd();
    m_blind->CloseNode();
    m_blind->SetCurrentNodeEnabled(true);
    m_blind->ClearAll();
    m_blind->ConstructionEnd();
    RenderId path;

    EXPECT_FALSE(m_blind->GetCurrentRenderId(path));
}

TEST(TreeBuilder, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ConstructionBegin), 2);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ConstructionEnd), 3);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::SceneBegin), 4);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::SceneEnd), 5);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ContainerBegin), 6);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::BodyBegin), 8);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::AssemblyBegin), 10);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::AssemblyReferenceBegin), 12);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PointCloudBegin), 14);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PMIBegin), 16);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PMITypeBegin), 18);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PolyBodyBegin), 20);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ViewsBegin), 22);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ViewBegin), 24);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::CapturesBegin), 26);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::CaptureBegin), 28);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::FTAGeometryBegin), 30);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::GeometryBegin), 32);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::MeshBegin), 34);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::WireBegin), 36);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PointSetBegin), 38);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::PointSetEnd), 39);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::AnyTypeBegin), 40);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::AnyTypeEnd), 41);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::CreateNode), 42);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::OpenNode), 43);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::CloseNode), 44);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ClearAll), 45);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::SetCurrentNodeEnabled), 46);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::BuildRenderId), 47);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::ExtractEntityId), 48);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::GetCurrentRenderId), 49);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::GetChildrenCountForNode), 50);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::AddStyle), -1);
    EXPECT_EQ(VirtualSlot(&TreeBuilder::GetView), -1);
}
