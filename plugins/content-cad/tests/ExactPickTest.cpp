#include "kernel/CadShape.h"
#include "kernel/Tessellation.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/ScenePick.h>

#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRep_Builder.hxx>
#include <OrvikModel/ModelContent.h>
#include <OrvikModel/ModelEntity.h>
#include <TopoDS_Compound.hxx>
#include <gp_Ax2.hxx>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace OrvikCad {
namespace {

using OrvikModel::MakeEntity;
using OrvikModel::Model;
using OrvikModel::ModelContent;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;
using TambVizCore::Ray;

/// Coarse, so that the triangles of two spheres pass through each other.
constexpr MeshParameters kCoarse{0.3, 1.0};
constexpr double kInner = 10.0;
constexpr double kOuter = 10.05;

TopoDS_Shape sphere(double radius, double turn)
{
    const gp_Dir axis(0.0, std::sin(turn), std::cos(turn));
    return BRepPrimAPI_MakeSphere(gp_Ax2(gp_Pnt(0, 0, 0), axis), radius).Solid();
}

std::shared_ptr<const CadShape> cut(const TopoDS_Shape& shape)
{
    auto made = std::make_shared<CadShape>(shape);
    std::wstring failure;
    KernelBudget budget;
    made->SetMesh(CutShape(made->Shape(), made->Parts(), kCoarse, budget, failure));
    return made;
}

std::shared_ptr<Model> modelOf(const std::vector<TopoDS_Shape>& shapes)
{
    auto model = std::make_shared<Model>();
    for (const TopoDS_Shape& shape : shapes) {
        auto node = std::make_unique<ModelNode>();
        node->kind = NodeKind::Body;
        node->shape = cut(shape);
        model->nodes.push_back(std::move(node));
    }
    model->number = 1;
    model->NumberNodes();
    return model;
}

/// The rays towards the middle, spread evenly over a sphere of radius 100.
std::vector<Ray> raysInwards()
{
    constexpr int kRays = 500;
    std::vector<Ray> rays;
    for (int i = 0; i < kRays; ++i) {
        const double z = 1.0 - (2.0 * i + 1.0) / kRays;
        const double around = i * std::numbers::pi * (3.0 - std::sqrt(5.0));
        const double across = std::sqrt(1.0 - z * z);
        const double away[3] = {across * std::cos(around), across * std::sin(around), z};
        float origin[3];
        float direction[3];
        for (int axis = 0; axis < 3; ++axis) {
            origin[axis] = static_cast<float>(100.0 * away[axis]);
            direction[axis] = static_cast<float>(-away[axis]);
        }
        rays.emplace_back(origin, direction, 0.0);
    }
    return rays;
}

class ExactPick : public testing::Test
{
protected:
    OrvikCore::Document m_document{nullptr};
};

TEST_F(ExactPick, OfTwoBodiesTheExactlyNearerIsPicked)
{
    ModelContent content(m_document, modelOf({sphere(kInner, 0.0), sphere(kOuter, 0.3)}), "Test");
    const Model& model = *content.GetModel();
    const EntityId outer = MakeEntity(model, *model.nodes[1], MakePartId(PartKind::Face, 0));

    for (const Ray& ray : raysInwards()) {
        EntityId hit;
        ASSERT_TRUE(content.RayPickKind(ray, PartKind::Face, hit));
        EXPECT_EQ(hit, outer) << ray.Origin()[0] << " " << ray.Origin()[1];
    }
}

TEST_F(ExactPick, OfTwoFacesOfABodyTheExactlyNearerIsPicked)
{
    const BRep_Builder builder;
    TopoDS_Compound both;
    builder.MakeCompound(both);
    builder.Add(both, sphere(kInner, 0.0));
    builder.Add(both, sphere(kOuter, 0.3));
    ModelContent content(m_document, modelOf({both}), "Test");

    for (const Ray& ray : raysInwards()) {
        EntityId hit;
        ASSERT_TRUE(content.RayPickKind(ray, PartKind::Face, hit));
        EXPECT_EQ(hit.SubEntityIndex(), 1) << ray.Origin()[0] << " " << ray.Origin()[1];
    }
}

TEST_F(ExactPick, PlaceAndNormalInTheSceneAreExact)
{
    TambVizCore::Node root{1};
    GeoNode* node = root.CreateChildGeoNode(7, "sphere");
    node->SetGeometry(cut(sphere(kInner, 0.0))->WithParts());

    for (const Ray& ray : raysInwards()) {
        TambVizCore::PickQuery query;
        query.ray = ray;
        query.kinds = TambVizCore::ToPartKinds(PartKind::Face);
        TambVizCore::ScenePickResult result;
        ASSERT_TRUE(TambVizCore::PickNearest(root, query, result));
        EXPECT_NEAR(result.hit.distance, 100.0 - kInner, 2e-5);
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(result.hit.position[axis], 0.1 * ray.Origin()[axis], 2e-5);
            EXPECT_NEAR(result.hit.normal[axis], -ray.Direction()[axis], 1e-5);
        }
    }
}

TEST_F(ExactPick, NearTheOutlineTheFrontIsMetAndNotTheBack)
{
    const auto shape = cut(BRepPrimAPI_MakeCylinder(10.0, 20.0).Solid());
    TambVizCore::Node root{1};
    root.CreateChildGeoNode(7, "cylinder")->SetGeometry(shape->WithParts());

    for (int i = 0; i < 400; ++i) {
        const float x = 9.5f + 0.00125f * static_cast<float>(i);
        const float origin[3] = {x, -100.0f, 7.3f};
        const float direction[3] = {0.0f, 1.0f, 0.0f};
        TambVizCore::PickQuery query;
        query.ray = Ray(origin, direction, 0.0);
        query.kinds = TambVizCore::ToPartKinds(PartKind::Face);
        TambVizCore::ScenePickResult result;
        if (!TambVizCore::PickNearest(root, query, result))
            continue; // Between the polygon and the circle.
        const double exact = -std::sqrt(100.0 - static_cast<double>(x) * static_cast<double>(x));
        EXPECT_NEAR(result.hit.position[1], exact, 1e-4) << x;
        EXPECT_LT(result.hit.normal[1], 0.0f);
    }
}

TEST_F(ExactPick, EdgesAtACoarseFaceAreStillPicked)
{
    ModelContent content(m_document, modelOf({BRepPrimAPI_MakeCylinder(10.0, 20.0).Solid()}),
                         "Test");

    int found = 0;
    for (int i = 0; i < 200; ++i) { // Along the upper rim, from the side, where chords lie inside.
        const double angle = 0.03 * i;
        const auto x = static_cast<float>(std::cos(angle));
        const auto y = static_cast<float>(std::sin(angle));
        const float origin[3] = {100.0f * x, 100.0f * y, 19.995f};
        const float direction[3] = {-x, -y, 0.0f};
        EntityId hit;
        if (content.RayPick(Ray(origin, direction, 0.01), hit) && (hit.IsEdge() || hit.IsVertex()))
            ++found;
    }

    EXPECT_EQ(found, 200);
}

} // namespace
} // namespace OrvikCad
