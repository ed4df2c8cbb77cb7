#include "CadTest.h"
#include "kernel/CadShape.h"
#include "kernel/Tessellation.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>
#include <TopLoc_Location.hxx>
#include <gp_Ax2.hxx>
#include <gp_Circ.hxx>
#include <gp_Elips.hxx>
#include <gp_Lin.hxx>
#include <gp_Trsf.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace OrvikCad {
namespace {

using OrvikCore::DistanceResult;
using OrvikCore::EntityMeasure;
using OrvikCore::MeasureResult;
using OrvikModel::PlacedPart;
using OrvikModel::RefinedHit;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

constexpr double kPi = std::numbers::pi;

std::unique_ptr<CadShape> shapeOf(const TopoDS_Shape& shape)
{
    auto made = std::make_unique<CadShape>(shape);
    std::wstring failure;
    KernelBudget budget;
    made->SetMesh(CutShape(made->Shape(), made->Parts(), {0.1, 0.35}, budget, failure));
    return made;
}

/// @return the id of the first face on that kind of surface; 0 without one.
std::uint64_t faceOn(const CadShape& shape, const std::string& word)
{
    for (int i = 0; i < shape.Parts().Faces().Extent(); ++i) {
        const std::uint64_t id = MakePartId(PartKind::Face, static_cast<std::uint32_t>(i));
        MeasureResult surface;
        if (shape.MeasureExact(id, EntityMeasure::Surface, surface) && surface.word == word)
            return id;
    }
    return 0;
}

TEST(MeasureExact, MeasuresASphere)
{
    const auto sphere = shapeOf(BRepPrimAPI_MakeSphere(gp_Pnt(1, 2, 3), 10.0).Solid());
    MeasureResult result;

    ASSERT_TRUE(sphere->MeasureExact(0, EntityMeasure::Volume, result));
    EXPECT_NEAR(result.value, 4.0 / 3.0 * kPi * 1000.0, 1e-6);
    EXPECT_TRUE(result.exact);
    ASSERT_TRUE(sphere->MeasureExact(0, EntityMeasure::Area, result));
    EXPECT_NEAR(result.value, 400.0 * kPi, 1e-7);
    ASSERT_TRUE(sphere->MeasureExact(0, EntityMeasure::Center, result));
    EXPECT_NEAR(result.vector[1], 2.0, 1e-9);
    const std::uint64_t face = faceOn(*sphere, "sphere");
    ASSERT_TRUE(sphere->MeasureExact(face, EntityMeasure::Radius, result));
    EXPECT_NEAR(result.value, 10.0, 1e-12);
    ASSERT_TRUE(sphere->MeasureExact(face, EntityMeasure::Origin, result));
    EXPECT_NEAR(result.vector[2], 3.0, 1e-12);
}

TEST(MeasureExact, FindsAxisAndRadiusOfABore)
{
    const ReadResult read = ReadCad(L"hole_plate.step");
    const auto& shape = dynamic_cast<const CadShape&>(*read.model.nodes.at(0)->shape);
    const std::uint64_t bore = faceOn(shape, "cylinder");
    MeasureResult result;

    ASSERT_TRUE(shape.MeasureExact(bore, EntityMeasure::Radius, result));
    EXPECT_NEAR(result.value, 6.0, 1e-9);
    ASSERT_TRUE(shape.MeasureExact(bore, EntityMeasure::Direction, result));
    EXPECT_NEAR(std::abs(result.vector[2]), 1.0, 1e-12);
    ASSERT_TRUE(shape.MeasureExact(bore, EntityMeasure::Origin, result));
    EXPECT_NEAR(result.vector[0], 50.0, 1e-9);
    EXPECT_NEAR(result.vector[1], 30.0, 1e-9);
    ASSERT_TRUE(shape.MeasureExact(bore, EntityMeasure::Area, result));
    EXPECT_NEAR(result.value, 12.0 * kPi * 10.0, 1e-6);
    EXPECT_FALSE(shape.MeasureExact(bore, EntityMeasure::Normal, result));
    EXPECT_FALSE(shape.MeasureExact(bore, EntityMeasure::Volume, result));
}

TEST(MeasureExact, TurnsNormalsOfPlanesOutOfTheBody)
{
    const auto box = shapeOf(BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), gp_Pnt(2, 4, 6)).Solid());

    for (std::uint32_t i = 0; i < 6; ++i) {
        MeasureResult normal;
        MeasureResult center;
        const std::uint64_t face = MakePartId(PartKind::Face, i);
        ASSERT_TRUE(box->MeasureExact(face, EntityMeasure::Normal, normal));
        ASSERT_TRUE(box->MeasureExact(face, EntityMeasure::Center, center));
        const double outwards = normal.vector[0] * (center.vector[0] - 1) +
                                normal.vector[1] * (center.vector[1] - 2) +
                                normal.vector[2] * (center.vector[2] - 3);
        EXPECT_GT(outwards, 0.9);
    }
}

TEST(MeasureExact, MeasuresEdgesAndVertices)
{
    const auto circle =
        shapeOf(BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(gp_Pnt(1, 1, 1), gp::DZ()), 5.0)).Edge());
    const std::uint64_t edge = MakePartId(PartKind::Edge, 0);
    MeasureResult result;

    ASSERT_TRUE(circle->MeasureExact(edge, EntityMeasure::Length, result));
    EXPECT_NEAR(result.value, 10.0 * kPi, 1e-9);
    ASSERT_TRUE(circle->MeasureExact(edge, EntityMeasure::Curve, result));
    EXPECT_EQ(result.word, "circle");
    ASSERT_TRUE(circle->MeasureExact(edge, EntityMeasure::Origin, result));
    EXPECT_NEAR(result.vector[0], 1.0, 1e-12);
    ASSERT_TRUE(
        circle->MeasureExact(MakePartId(PartKind::Vertex, 0), EntityMeasure::Center, result));
    EXPECT_NEAR(result.vector[0], 6.0, 1e-12);
    EXPECT_FALSE(circle->MeasureExact(edge, EntityMeasure::Surface, result));
    EXPECT_FALSE(circle->MeasureExact(MakePartId(PartKind::Face, 0), EntityMeasure::Area, result));
}

TEST(MeasureExact, FindsTheRadiusOfABoreThatIsWrittenAsAFreeformSurface)
{
    const gp_Ax2 frame(gp_Pnt(1, 2, 3), gp_Dir(1, 1, 2));
    const auto shape =
        shapeOf(BRepBuilderAPI_NurbsConvert(BRepPrimAPI_MakeCylinder(frame, 5.0, 20.0, 2.0).Solid())
                    .Shape());
    const std::uint64_t face = faceOn(*shape, "cylinder");
    ASSERT_NE(face, 0u);
    MeasureResult result;

    ASSERT_TRUE(shape->MeasureExact(face, EntityMeasure::Radius, result));
    EXPECT_NEAR(result.value, 5.0, 1e-9);
    EXPECT_TRUE(result.exact);
    ASSERT_TRUE(shape->MeasureExact(face, EntityMeasure::Direction, result));
    EXPECT_NEAR(std::abs(result.vector[2]), 2.0 / std::sqrt(6.0), 1e-9);
    ASSERT_TRUE(shape->MeasureExact(face, EntityMeasure::Origin, result));
    const gp_Lin axis(frame.Axis());
    EXPECT_NEAR(axis.Distance(gp_Pnt(result.vector[0], result.vector[1], result.vector[2])), 0.0,
                1e-9);
    EXPECT_FALSE(shape->MeasureExact(face, EntityMeasure::Normal, result));
}

TEST(MeasureExact, TurnsTheNormalOfAFreeformPlaneOutOfTheBody)
{
    const auto box = shapeOf(
        BRepBuilderAPI_NurbsConvert(BRepPrimAPI_MakeBox(gp_Pnt(0, 0, 0), gp_Pnt(2, 4, 6)).Solid())
            .Shape());

    for (std::uint32_t i = 0; i < 6; ++i) {
        MeasureResult normal;
        MeasureResult center;
        const std::uint64_t face = MakePartId(PartKind::Face, i);
        ASSERT_TRUE(box->MeasureExact(face, EntityMeasure::Normal, normal));
        ASSERT_TRUE(box->MeasureExact(face, EntityMeasure::Center, center));
        EXPECT_GT(normal.vector[0] * (center.vector[0] - 1) +
                      normal.vector[1] * (center.vector[1] - 2) +
                      normal.vector[2] * (center.vector[2] - 3),
                  0.9);
    }
}

TEST(MeasureExact, FindsACircleAndASphereThatAreWrittenAsFreeform)
{
    const auto sphere = shapeOf(
        BRepBuilderAPI_NurbsConvert(BRepPrimAPI_MakeSphere(gp_Pnt(1, 2, 3), 10.0).Solid()).Shape());
    const auto arc = shapeOf(
        BRepBuilderAPI_NurbsConvert(
            BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(gp_Pnt(1, 1, 1), gp::DX()), 5.0), 0.5, 1.5)
                .Edge())
            .Shape());
    const std::uint64_t edge = MakePartId(PartKind::Edge, 0);
    MeasureResult result;

    const std::uint64_t face = faceOn(*sphere, "sphere");
    ASSERT_TRUE(sphere->MeasureExact(face, EntityMeasure::Radius, result));
    EXPECT_NEAR(result.value, 10.0, 1e-8);
    ASSERT_TRUE(sphere->MeasureExact(face, EntityMeasure::Origin, result));
    EXPECT_NEAR(result.vector[1], 2.0, 1e-8);
    EXPECT_FALSE(sphere->MeasureExact(face, EntityMeasure::Direction, result));
    ASSERT_TRUE(arc->MeasureExact(edge, EntityMeasure::Curve, result));
    EXPECT_EQ(result.word, "circle");
    ASSERT_TRUE(arc->MeasureExact(edge, EntityMeasure::Radius, result));
    EXPECT_NEAR(result.value, 5.0, 1e-8);
    ASSERT_TRUE(arc->MeasureExact(edge, EntityMeasure::Direction, result));
    EXPECT_NEAR(std::abs(result.vector[0]), 1.0, 1e-9);
    EXPECT_FALSE(arc->MeasureExact(edge, EntityMeasure::Surface, result));
    EXPECT_FALSE(arc->MeasureExact(edge, EntityMeasure::Normal, result));
}

TEST(MeasureExact, CallsWhatIsOnlyNearlyRoundFreeform)
{
    const TopoDS_Shape torus =
        BRepBuilderAPI_NurbsConvert(BRepPrimAPI_MakeTorus(10.0, 3.0).Solid()).Shape();
    const auto ring = shapeOf(torus);
    const auto ellipse = shapeOf(
        BRepBuilderAPI_NurbsConvert(
            BRepBuilderAPI_MakeEdge(gp_Elips(gp_Ax2(gp_Pnt(1, 1, 1), gp::DX()), 5.0, 4.999)).Edge())
            .Shape());
    MeasureResult result;

    ASSERT_TRUE(ring->MeasureExact(MakePartId(PartKind::Face, 0), EntityMeasure::Surface, result));
    EXPECT_EQ(result.word, "freeform");
    EXPECT_FALSE(ring->MeasureExact(MakePartId(PartKind::Face, 0), EntityMeasure::Radius, result));
    ASSERT_TRUE(ellipse->MeasureExact(MakePartId(PartKind::Edge, 0), EntityMeasure::Curve, result));
    EXPECT_EQ(result.word, "freeform");
    EXPECT_FALSE(
        ellipse->MeasureExact(MakePartId(PartKind::Edge, 0), EntityMeasure::Radius, result));
}

TEST(MeasureDistanceExact, MeasuresBetweenPlacedShapes)
{
    const auto sphere = shapeOf(BRepPrimAPI_MakeSphere(10.0).Solid());
    PlacedPart here{sphere.get()};
    PlacedPart there{sphere.get()};
    there.world[12] = 30.0;
    DistanceResult result;

    ASSERT_TRUE(sphere->MeasureDistanceExact(here, there, result));

    EXPECT_NEAR(result.distance, 10.0, 1e-6);
    EXPECT_NEAR(result.from[0], 10.0, 1e-5);
    EXPECT_NEAR(result.to[0], 20.0, 1e-5);
    EXPECT_TRUE(result.exact);
}

TEST(MeasureDistanceExact, FollowsAScalingPlace)
{
    const auto sphere = shapeOf(BRepPrimAPI_MakeSphere(10.0).Solid());
    PlacedPart here{sphere.get()};
    PlacedPart there{sphere.get()};
    for (const int i : {0, 5, 10})
        there.world[i] = 2.0;
    there.world[12] = 50.0;
    DistanceResult result;

    ASSERT_TRUE(sphere->MeasureDistanceExact(here, there, result));

    EXPECT_NEAR(result.distance, 20.0, 1e-5);
}

/// Has a shape refine a hit on one of its faces.
bool refine(const CadShape& shape, std::uint64_t face, const double* origin,
            const double* direction, double parameter, RefinedHit& hit)
{
    OrvikModel::FacetHit facet;
    facet.facePartId = face;
    std::copy_n(origin, 3, facet.origin);
    std::copy_n(direction, 3, facet.direction);
    facet.parameter = parameter;
    return shape.Refine(facet, hit);
}

/// Rays from outside towards the middle of a body; every one has to be moved onto the surface.
void expectHitsAtRadius(const CadShape& shape, std::uint64_t face, double radius, double tolerance)
{
    for (int i = 0; i < 60; ++i) {
        const double angle = 0.1 + i * 0.1;
        const double z = 0.3 + 0.1 * i;
        const double origin[3] = {30.0 * std::cos(angle), 30.0 * std::sin(angle), z};
        const double direction[3] = {-2.0 * std::cos(angle), -2.0 * std::sin(angle), 0.0};
        RefinedHit hit;
        // Where a chord of the tessellation would be met.
        const double parameter = (30.0 - radius + 0.05) / 2.0;

        ASSERT_TRUE(refine(shape, face, origin, direction, parameter, hit)) << i;

        EXPECT_NEAR(std::hypot(hit.position[0], hit.position[1]), radius, tolerance);
        EXPECT_NEAR(hit.parameter * 2.0, 30.0 - radius, tolerance);
        EXPECT_NEAR(hit.normal[0], std::cos(angle), 1e-6);
        EXPECT_NEAR(hit.normal[1], std::sin(angle), 1e-6);
    }
}

TEST(Refine, MovesHitsOntoACylinder)
{
    const auto shape = shapeOf(BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid());

    expectHitsAtRadius(*shape, faceOn(*shape, "cylinder"), 5.0, 1e-9);
}

TEST(Refine, MovesHitsOntoAFreeformSurface)
{
    const TopoDS_Shape nurbs =
        BRepBuilderAPI_NurbsConvert(BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid()).Shape();
    const auto shape = shapeOf(nurbs);
    expectHitsAtRadius(*shape, MakePartId(PartKind::Face, 0), 5.0, 1e-7);
}

TEST(Refine, MovesHitsOntoSphereConeAndTorus)
{
    const auto sphere = shapeOf(BRepPrimAPI_MakeSphere(10.0).Solid());
    const auto cone = shapeOf(BRepPrimAPI_MakeCone(10.0, 5.0, 10.0).Solid());
    const auto torus = shapeOf(BRepPrimAPI_MakeTorus(10.0, 3.0).Solid());
    const double origin[3] = {20.0, 0.0, 1.0};
    const double direction[3] = {-1.0, 0.0, 0.0};
    RefinedHit hit;

    ASSERT_TRUE(refine(*sphere, faceOn(*sphere, "sphere"), origin, direction, 10.1, hit));
    EXPECT_NEAR(hit.position[0], std::sqrt(99.0), 1e-9);
    EXPECT_NEAR(hit.normal[2], 0.1, 1e-9);
    ASSERT_TRUE(refine(*cone, faceOn(*cone, "cone"), origin, direction, 10.5, hit));
    EXPECT_NEAR(hit.position[0], 9.5, 1e-9);
    EXPECT_NEAR(hit.normal[0], 2.0 / std::sqrt(5.0), 1e-9);
    EXPECT_NEAR(hit.normal[2], 1.0 / std::sqrt(5.0), 1e-9);
    ASSERT_TRUE(refine(*torus, faceOn(*torus, "torus"), origin, direction, 7.2, hit));
    EXPECT_NEAR(hit.position[0], 10.0 + std::sqrt(8.0), 1e-7);
    EXPECT_NEAR(hit.normal[2], 1.0 / 3.0, 1e-6);
}

TEST(Refine, TurnsNormalsOfBoresInwards)
{
    const ReadResult read = ReadCad(L"hole_plate.step");
    const auto& shape = dynamic_cast<const CadShape&>(*read.model.nodes.at(0)->shape);
    const double origin[3] = {50.0, 30.0, 5.0};
    const double direction[3] = {1.0, 0.0, 0.0};
    RefinedHit hit;

    ASSERT_TRUE(refine(shape, faceOn(shape, "cylinder"), origin, direction, 5.98, hit));

    EXPECT_NEAR(hit.position[0], 56.0, 1e-9);
    EXPECT_NEAR(hit.normal[0], -1.0, 1e-9);
}

TEST(Refine, RefusesWhatTheLineDoesNotMeetNearby)
{
    const auto shape = shapeOf(BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid());
    const double origin[3] = {30.0, 0.0, 1.0};
    const double across[3] = {-1.0, 0.0, 0.0};
    const double beside[3] = {0.0, 1.0, 0.0};
    RefinedHit hit;

    EXPECT_FALSE(refine(*shape, faceOn(*shape, "cylinder"), origin, across, 5.0, hit));
    EXPECT_FALSE(refine(*shape, faceOn(*shape, "cylinder"), origin, beside, 1.0, hit));
    EXPECT_FALSE(refine(*shape, MakePartId(PartKind::Face, 99), origin, across, 25.0, hit));
    EXPECT_FALSE(refine(*shape, MakePartId(PartKind::Edge, 0), origin, across, 25.0, hit));
}

} // namespace
} // namespace OrvikCad
