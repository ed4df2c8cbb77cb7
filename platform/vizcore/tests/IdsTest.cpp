#include <TambVizCore/AllowThrow.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/RenderId.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <unordered_set>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;

RenderId path(std::uint32_t origin, std::initializer_list<std::uint64_t> values)
{
    RenderId id(origin);
    for (const std::uint64_t value : values) {
        id.AddValue(value);
    }
    return id;
}

TEST(AllowThrow, IsOffAtStart)
{
    EXPECT_FALSE(GetAllowThrow());
}

TEST(AllowThrow, KeepsWhatWasSet)
{
    SetAllowThrow(true);

    EXPECT_TRUE(GetAllowThrow());
}

TEST(Ray, KeepsOriginDirectionAndRadiusAsGiven)
{
    const float origin[3] = {1.0f, 2.0f, 3.0f};
    const float direction[3] = {0.0f, 0.0f, -7.0f};

    const Ray ray(origin, direction, 0.25);

    EXPECT_THAT(std::vector<float>(ray.Origin(), ray.Origin() + 3), ElementsAre(1, 2, 3));
    EXPECT_THAT(std::vector<float>(ray.Direction(), ray.Direction() + 3), ElementsAre(0, 0, -7));
    EXPECT_EQ(ray.Radius(), 0.25);
}

TEST(Ray, RaysDifferByEveryField)
{
    const Ray plain;
    Ray moved;
    const float origin[3] = {0.0f, 1.0f, 0.0f};
    moved.SetOrigin(origin);
    Ray turned;
    turned.SetDirection(origin);
    Ray wide;
    wide.SetRadius(1.0);

    EXPECT_EQ(plain, Ray());
    EXPECT_FALSE(plain == moved);
    EXPECT_FALSE(plain == turned);
    EXPECT_FALSE(plain == wide);
}

TEST(RenderId, IsEmptyAndOfNoOriginAtFirst)
{
    const RenderId id;

    EXPECT_TRUE(id.IsEmpty());
    EXPECT_EQ(id.Origin(), 0u);
    EXPECT_EQ(id.Length(), 0);
}

TEST(RenderId, AnOriginAloneLeavesItEmpty)
{
    EXPECT_TRUE(RenderId(RenderId::kOriginTree).IsEmpty());
    EXPECT_EQ(RenderId(RenderId::kOriginTree).Origin(), 2u);
    EXPECT_EQ(RenderId(RenderId::kOriginView3D).Origin(), 1u);
}

TEST(RenderId, KeepsAllSixtyFourBitsInOrder)
{
    const RenderId id = path(1, {7, 0xFFFFFFFFFFFFFFFFu, 0});

    EXPECT_EQ(id.Length(), 3);
    EXPECT_EQ(id[0], 7u);
    EXPECT_EQ(id[1], 0xFFFFFFFFFFFFFFFFu);
    EXPECT_EQ(id[2], 0u);
    EXPECT_FALSE(id.IsEmpty());
}

TEST(RenderId, PositionsOutsideThePathReadAsZero)
{
    const RenderId id = path(1, {7, 8});

    EXPECT_EQ(id[-1], 0u);
    EXPECT_EQ(id[2], 0u);
    EXPECT_EQ(id.Last(), 8u);
    EXPECT_EQ(RenderId().Last(), 0u);
}

TEST(RenderId, ClearAlsoForgetsTheOrigin)
{
    RenderId id = path(2, {7});

    id.Clear();

    EXPECT_EQ(id, RenderId());
}

TEST(RenderId, RemoveLastShortensThePathAndSparesAnEmptyOne)
{
    RenderId id = path(1, {7});

    id.RemoveLast();
    id.RemoveLast();

    EXPECT_EQ(id, RenderId(1));
}

TEST(RenderId, EqualPathsOfDifferentOriginsDiffer)
{
    EXPECT_FALSE(path(1, {7}) == path(2, {7}));
}

TEST(RenderId, OrdersByOriginThenPath)
{
    const std::set<RenderId> sorted = {path(2, {1}), path(1, {5, 1}), path(1, {5}),
                                       path(1, {4, 9})};

    EXPECT_THAT(sorted, ElementsAre(path(1, {4, 9}), path(1, {5}), path(1, {5, 1}), path(2, {1})));
}

TEST(RenderId, APrefixSharesTheOrigin)
{
    EXPECT_TRUE(path(1, {7}).IsPrefixOf(path(1, {7, 8})));
    EXPECT_TRUE(path(1, {7}).IsPrefixOf(path(1, {7})));
    EXPECT_FALSE(path(1, {7, 8}).IsPrefixOf(path(1, {7})));
    EXPECT_FALSE(path(2, {7}).IsPrefixOf(path(1, {7, 8})));
    EXPECT_FALSE(path(1, {8}).IsPrefixOf(path(1, {7, 8})));
}

TEST(RenderId, ToStringShowsOriginAndPath)
{
    EXPECT_EQ(path(1, {5, 6, 7}).ToString(), "RenderId = 1: 5/6/7");
    EXPECT_EQ(RenderId().ToString(), "RenderId = 0:");
}

TEST(RenderId, EqualIdsHashAlike)
{
    std::unordered_set<RenderId> set = {path(1, {1, 2}), path(1, {2, 1}), path(2, {1, 2})};

    set.insert(path(1, {1, 2}));

    EXPECT_EQ(set.size(), 3u);
}

TEST(EntityId, IsEmptyAtFirst)
{
    const EntityId id;

    EXPECT_TRUE(id.IsEmpty());
    EXPECT_EQ(id.Value(), 0u);
    EXPECT_EQ(id.Owner(), 0u);
    EXPECT_EQ(id.Type(), EntityType::Unknown);
    EXPECT_EQ(id.SubEntityIndex(), -1);
}

TEST(EntityId, IsNotEmptyWithAnyOfItsThreeMainFields)
{
    EXPECT_FALSE(EntityId(1, 0, EntityType::Unknown).IsEmpty());
    EXPECT_FALSE(EntityId(0, 1, EntityType::Unknown).IsEmpty());
    EXPECT_FALSE(EntityId(0, 0, EntityType::Body).IsEmpty());
}

TEST(EntityId, ClearMakesItEmpty)
{
    EntityId id(3, 4, EntityType::Body);
    id.SetSubEntity(PartKind::Edge, 5);

    id.Clear();

    EXPECT_EQ(id, EntityId());
}

TEST(EntityId, KnowsTheKindOfItsSubEntity)
{
    EntityId id(3, 4, EntityType::Body);
    EXPECT_FALSE(id.IsFace() || id.IsEdge() || id.IsVertex());

    id.SetSubEntity(PartKind::Face, 0);
    EXPECT_TRUE(id.IsFace());
    id.SetSubEntity(PartKind::Edge, 0);
    EXPECT_TRUE(id.IsEdge());
    id.SetSubEntity(PartKind::Vertex, 9);
    EXPECT_TRUE(id.IsVertex());
    EXPECT_FALSE(id.IsFace() || id.IsEdge());
}

TEST(EntityId, ANegativeSubEntityIndexNamesTheWholeEntity)
{
    EntityId id(3, 4, EntityType::Body);

    id.SetSubEntity(PartKind::Face, -2);

    EXPECT_EQ(id.SubEntityKind(), PartKind::None);
    EXPECT_EQ(id.SubEntityIndex(), -1);
}

TEST(EntityId, ReduceToBodyKeepsTheEntityAndSetsTheIndexToMinusOne)
{
    EntityId id(3, 4, EntityType::Body);
    id.SetSubEntity(PartKind::Face, 7);

    id.ReduceToBody();

    EXPECT_EQ(id, EntityId(3, 4, EntityType::Body));
    EXPECT_EQ(id.SubEntityIndex(), -1);
    EXPECT_FALSE(id.IsFace());
}

TEST(EntityId, GetTypeFromIntKnowsTheStableNumbers)
{
    EXPECT_EQ(EntityId::GetTypeFromInt(10003), EntityType::Body);
    EXPECT_EQ(EntityId::GetTypeFromInt(10005), EntityType::AnnotationSet);
    EXPECT_EQ(EntityId::GetTypeFromInt(10007), EntityType::NonGraphical);
    EXPECT_EQ(EntityId::GetTypeFromInt(10010), EntityType::View);
    EXPECT_EQ(EntityId::GetTypeFromInt(10012), EntityType::Capture);
    EXPECT_EQ(EntityId::GetTypeFromInt(40000), EntityType::Container);
    EXPECT_EQ(EntityId::GetTypeFromInt(10101), EntityType::PmiDimension);
    EXPECT_EQ(EntityId::GetTypeFromInt(10105), EntityType::PmiSurfaceFinish);
}

TEST(EntityId, GetTypeFromIntOfAnotherNumberIsUnknown)
{
    EXPECT_EQ(EntityId::GetTypeFromInt(0), EntityType::Unknown);
    EXPECT_EQ(EntityId::GetTypeFromInt(10013), EntityType::Unknown);
    // Only the lower half of this number is 10010.
    EXPECT_EQ(EntityId::GetTypeFromInt(0x10000271Au), EntityType::Unknown);
}

TEST(EntityId, EveryTypeHasANumberOfItsOwn)
{
    int known = 0;
    for (std::uint64_t number = 0; number <= 50000; ++number) {
        const EntityType type = EntityId::GetTypeFromInt(number);
        if (type != EntityType::Unknown) {
            EXPECT_EQ(static_cast<std::uint64_t>(type), number);
            EXPECT_STRNE(EntityTypeName(type), "unknown") << number;
            ++known;
        }
    }
    EXPECT_EQ(known, 18);
}

TEST(EntityId, TypeNamesAreWords)
{
    EXPECT_STREQ(EntityTypeName(EntityType::Body), "body");
    EXPECT_STREQ(EntityTypeName(EntityType::View), "view");
    EXPECT_STREQ(EntityTypeName(EntityType::Unknown), "unknown");
}

TEST(EntityId, ToStringShowsTheFields)
{
    EntityId id(6, 5, EntityType::Body);
    EXPECT_EQ(id.ToString(), "EntityId = 6 owner = 5 type = 10003");

    id.SetSubEntity(PartKind::Face, 3);
    EXPECT_EQ(id.ToString(), "EntityId = 6 owner = 5 type = 10003 face = 3");
    id.SetSubEntity(PartKind::Edge, 0);
    EXPECT_EQ(id.ToString(), "EntityId = 6 owner = 5 type = 10003 edge = 0");
    id.SetSubEntity(PartKind::Vertex, 1);
    EXPECT_EQ(id.ToString(), "EntityId = 6 owner = 5 type = 10003 vertex = 1");
}

TEST(EntityId, OrdersByValueOwnerTypeAndSubEntity)
{
    EntityId face(1, 1, EntityType::Body);
    face.SetSubEntity(PartKind::Face, 1);
    EntityId laterFace(1, 1, EntityType::Body);
    laterFace.SetSubEntity(PartKind::Face, 2);

    const std::set<EntityId> sorted = {EntityId(2, 0, EntityType::Body), laterFace, face,
                                       EntityId(1, 2, EntityType::Body),
                                       EntityId(1, 1, EntityType::Body)};

    EXPECT_THAT(sorted,
                ElementsAre(EntityId(1, 1, EntityType::Body), face, laterFace,
                            EntityId(1, 2, EntityType::Body), EntityId(2, 0, EntityType::Body)));
}

TEST(EntityId, EqualIdsHashAlike)
{
    EntityId face(1, 1, EntityType::Body);
    face.SetSubEntity(PartKind::Face, 1);
    std::unordered_set<EntityId> set = {face, EntityId(1, 1, EntityType::Body)};

    set.insert(face);

    EXPECT_EQ(set.size(), 2u);
}

} // namespace
} // namespace TambVizCore
