#include "FakeRenderer.h"
#include "FakeSession.h"
#include "RecordingViewTree.h"

#include "OrvikCore/TreeBuilder.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>
#include <memory>

using OrvikCore::TreeBuilder;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::RenderId;

namespace {

RenderId pathOf(std::initializer_list<std::uint64_t> ids)
{
    RenderId path(2);
    for (const std::uint64_t id : ids) {
        path.AddValue(id);
    }
    return path;
}

// What the builder makes of a path; the answer replaces whatever the entity held before.
struct TreeBuilderEntity : testing::Test
{
    EntityId extract(const RenderId& path) const
    {
        EntityId entity(99, 98, EntityType::Wire);
        m_builder->ExtractEntityId(path, entity);
        return entity;
    }
    FakeTreeRenderer& addTreeRenderer()
    {
        auto renderer = std::make_unique<FakeTreeRenderer>();
        m_session.AddRenderer(renderer.get(), /*keep=*/true);
        m_renderer = std::move(renderer);
        return *m_renderer;
    }

    FakeSession& m_session = MakeCurrentFakeSession();
    RecordingViewTree m_tree;
    std::unique_ptr<TreeBuilder> m_builder{TreeBuilder::CreateTreeBuilder(&m_tree)};
    std::unique_ptr<FakeTreeRenderer> m_renderer;
};

void expectEntity(const EntityId& entity, std::uint64_t type, std::uint64_t owner,
                  std::uint64_t value)
{
    EXPECT_EQ(static_cast<std::uint64_t>(entity.Type()), type);
    EXPECT_EQ(entity.Owner(), owner);
    EXPECT_EQ(entity.Value(), value);
}

} // namespace

TEST_F(TreeBuilderEntity, AnEmptyPathShowsNothing)
{
    EXPECT_TRUE(extract(RenderId(2)).IsEmpty());
}

TEST_F(TreeBuilderEntity, APathOfOneIdNamesItTwice)
{
    expectEntity(extract(pathOf({5})), 40000, 5, 5);
}

TEST_F(TreeBuilderEntity, APathOfTwoIdsShowsAContainer)
{
    expectEntity(extract(pathOf({5, 6})), 40000, 5, 6);
}

TEST_F(TreeBuilderEntity, ShortPathsAreContainersThoughTheyNameAView)
{
    expectEntity(extract(pathOf({10010, 6})), 40000, 10010, 6);
}

TEST_F(TreeBuilderEntity, AViewIsNamedByTheIdAfterItsNumber)
{
    expectEntity(extract(pathOf({5, 10010, 77})), 10010, 10005, 77);
}

TEST_F(TreeBuilderEntity, ACaptureIsNamedByTheIdAfterItsNumber)
{
    expectEntity(extract(pathOf({5, 6, 10012, 78, 79})), 10012, 10005, 78);
}

TEST_F(TreeBuilderEntity, TheFirstViewOrCaptureOfAPathCounts)
{
    expectEntity(extract(pathOf({5, 10012, 10010, 79})), 10012, 10005, 10010);
}

TEST_F(TreeBuilderEntity, TheRowOfAllViewsHasNoValue)
{
    expectEntity(extract(pathOf({5, 6, 10010})), 10010, 10005, 0);
}

TEST_F(TreeBuilderEntity, ViewsAreFoundBeforeTheTreeRendererIsAsked)
{
    FakeTreeRenderer& renderer = addTreeRenderer();
    const RenderId path = pathOf({5, 10010, 77});
    renderer.m_pairs.push_back({path, EntityId(1, 2, EntityType::Body)});

    expectEntity(extract(path), 10010, 10005, 77);
}

TEST_F(TreeBuilderEntity, TheTreeRendererKnowsItsRows)
{
    FakeTreeRenderer& renderer = addTreeRenderer();
    const RenderId path = pathOf({5, 6, 7});
    renderer.m_pairs.push_back({path, EntityId(70, 60, EntityType::Mesh)});

    EXPECT_EQ(extract(path), EntityId(70, 60, EntityType::Mesh));
}

TEST_F(TreeBuilderEntity, WithoutTreeRendererThePathBelowTheRootNamesABody)
{
    m_builder->SceneBegin(5, L"scene");
    m_builder->ContainerBegin(6, L"container");

    expectEntity(extract(pathOf({5, 6, 7, 8})), 10003, 0, 7);
}

TEST_F(TreeBuilderEntity, WithoutRootPathTheFirstIdNamesABody)
{
    expectEntity(extract(pathOf({5, 6, 7})), 10003, 0, 5);
}

TEST_F(TreeBuilderEntity, AFailedConversionLeavesNoTraceInTheBody)
{
    FakeTreeRenderer& renderer = addTreeRenderer();
    renderer.m_entityOnFailure = EntityId(1, 2, EntityType::Wire);
    m_builder->SceneBegin(5, L"scene");

    expectEntity(extract(pathOf({5, 6, 7})), 10003, 0, 6);
}

TEST_F(TreeBuilderEntity, APathNoLongerThanTheRootPathShowsNothing)
{
    FakeTreeRenderer& renderer = addTreeRenderer();
    renderer.m_entityOnFailure = EntityId(1, 2, EntityType::Wire);
    m_builder->SceneBegin(5, L"scene");
    m_builder->ContainerBegin(6, L"container");
    m_builder->ContainerBegin(7, L"container");

    EXPECT_TRUE(extract(pathOf({5, 6, 7})).IsEmpty());
}
