// What of a mesh is not shown is not picked.

#include "FakeView3D.h"
#include "Models.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Ray.h>

#include <OrvikModel/ModelContent.h>
#include <OrvikModel/ModelEntity.h>
#include <OrvikModel/ModelRenderer3D.h>
#include <gtest/gtest.h>

using OrvikModel::ModelContent;
using TambVizCore::EntityId;

namespace {

/// Two unit cubes, at x = 0 and x = 2, drawn in a view.
class MeshVisibilityTest : public testing::Test
{
protected:
    void SetUp() override
    {
        for (const auto& node : m_content.GetModel()->nodes)
            node->shape->MakeParts();
        m_renderer.Render();
    }

    /// Looks down along z, at a place above the first cube.
    bool pick(float x = 0.5f)
    {
        const float origin[3] = {x, 0.4f, 10.0f};
        const float direction[3] = {0.0f, 0.0f, -1.0f};
        m_hit = EntityId();
        return m_content.RayPick(TambVizCore::Ray(origin, direction, 0.0), m_hit);
    }

    TambVizCore::GeoNode& cube(std::uint64_t number)
    {
        return *m_view.m_root.FindChild(1)->FindChild(number)->AsGeoNode();
    }

    OrvikCore::Document m_document{nullptr};
    ModelContent m_content{m_document, CubeModel(2), "Mesh"};
    FakeView3D m_view;
    OrvikModel::ModelRenderer3D m_renderer{m_content, m_view};
    EntityId m_hit;
};

} // namespace

TEST_F(MeshVisibilityTest, HiddenBodiesAreNotPicked)
{
    ASSERT_TRUE(pick());
    cube(1).SetVisible(false);

    EXPECT_FALSE(pick());
    EXPECT_TRUE(pick(2.5f));
    cube(1).SetVisible(true);
    EXPECT_TRUE(pick());
}

TEST_F(MeshVisibilityTest, WhatLiesBehindAHiddenFaceIsPicked)
{
    ASSERT_TRUE(pick());
    const EntityId top = m_hit;
    cube(1).SetPartShown(static_cast<std::uint32_t>(top.SubEntityIndex()), false);

    ASSERT_TRUE(pick());
    EXPECT_NE(m_hit, top);
    EXPECT_EQ(m_hit.Value(), top.Value());
}

TEST_F(MeshVisibilityTest, WhatASectionCutsAwayIsNotPicked)
{
    ASSERT_TRUE(pick());
    const EntityId top = m_hit;
    const TambVizCore::ClipPlane below = {{0.0f, 0.0f, -1.0f}, 0.5f};  // Keeps z up to 0.5.
    const TambVizCore::ClipPlane beside = {{1.0f, 0.0f, 0.0f}, -1.5f}; // Keeps x from 1.5.

    m_view.m_adapter.m_options.SetClipPlanes({below});
    ASSERT_TRUE(pick());
    EXPECT_NE(m_hit, top);

    m_view.m_adapter.m_options.SetClipPlanes({beside});
    EXPECT_FALSE(pick());
    EXPECT_TRUE(pick(2.5f));
}
