#include "kernel/Tessellation.h"

#include "CadTest.h"
#include "kernel/ShapeCatalog.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <gtest/gtest.h>

#include <cmath>

namespace OrvikCad {
namespace {

using TambVizCore::Geometry;
using TambVizCore::GeometryPart;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

constexpr MeshParameters kFine{0.01, 0.2};

ShapeMesh cut(const TopoDS_Shape& shape, const MeshParameters& parameters = kFine)
{
    std::wstring failure;
    KernelBudget budget;
    ShapeMesh mesh = CutShape(shape, ShapeParts(shape), parameters, budget, failure);
    EXPECT_EQ(failure, L"");
    return mesh;
}

double distanceFromAxis(const float* point)
{
    return std::hypot(point[0], point[1]);
}

TEST(CutShape, GivesNormalsOfTheSurfaceOutOfTheBody)
{
    const ShapeMesh mesh = cut(BRepPrimAPI_MakeSphere(10.0).Solid());

    const Geometry& geometry = *mesh.geometry;
    ASSERT_GT(geometry.TriangleCount(), 100u);
    for (std::uint32_t i = 0; i < geometry.VertexCount(); ++i)
        for (std::uint32_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(geometry.Normals()[i * 3 + axis],
                        geometry.Positions()[i * 3 + axis] / 10.0f, 2e-3f);
}

TEST(CutShape, LeavesSeamsUndrawnAndKeepsTheirIds)
{
    const ShapeMesh mesh = cut(BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid());

    int drawn = 0;
    int edges = 0;
    for (const GeometryPart& part : mesh.geometry->Parts())
        if (part.kind == PartKind::Edge) {
            ++edges;
            drawn += part.count > 0 ? 1 : 0;
        }
    EXPECT_EQ(edges, 3);
    EXPECT_EQ(drawn, 2);
}

TEST(CutShape, RunsEdgesOverTheVerticesOfFaces)
{
    const ShapeMesh mesh = cut(BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid());

    for (const std::uint32_t vertex : mesh.geometry->Segments().Span())
        EXPECT_NEAR(distanceFromAxis(&mesh.geometry->Positions()[vertex * 3]), 5.0, 1e-5);
}

TEST(CutShape, SaysThatSolidsAreClosedAndShellsAreNot)
{
    const TopoDS_Shape solid = BRepPrimAPI_MakeSphere(10.0).Solid();
    const ShapeParts parts(solid);

    EXPECT_TRUE(cut(solid).geometry->IsClosed());
    EXPECT_FALSE(cut(parts.Faces().FindKey(1)).geometry->IsClosed());
}

TEST(CutShape, LeavesNoTrianglesInTheTopology)
{
    const TopoDS_Shape solid = BRepPrimAPI_MakeSphere(10.0).Solid();

    cut(solid);

    TopLoc_Location place;
    const ShapeParts parts(solid);
    EXPECT_TRUE(BRep_Tool::Triangulation(TopoDS::Face(parts.Faces().FindKey(1)), place).IsNull());
}

TEST(CutShape, GivesTheSameTwice)
{
    const TopoDS_Shape solid = BRepPrimAPI_MakeCylinder(5.0, 20.0).Solid();

    const ShapeMesh first = cut(solid);
    const ShapeMesh second = cut(solid);

    EXPECT_EQ(first.geometry->Parts(), second.geometry->Parts());
    const auto positions = first.geometry->Positions().Span();
    EXPECT_TRUE(std::equal(positions.begin(), positions.end(),
                           second.geometry->Positions().Span().begin(),
                           second.geometry->Positions().Span().end()));
}

TEST(CutShape, KeepsTheRestWhenAFaceHasNoSurface)
{
    TopoDS_Compound shape;
    const BRep_Builder builder;
    builder.MakeCompound(shape);
    builder.Add(shape, BRepPrimAPI_MakeSphere(10.0).Solid());
    TopoDS_Face empty;
    builder.MakeFace(empty);
    builder.Add(shape, empty);
    std::wstring failure;
    KernelBudget budget;

    const ShapeMesh mesh = CutShape(shape, ShapeParts(shape), kFine, budget, failure);

    EXPECT_EQ(mesh.failedFaces, 1u);
    EXPECT_GT(mesh.geometry->TriangleCount(), 100u);
    EXPECT_GE(mesh.geometry->FindPart(MakePartId(PartKind::Face, 1)), 0);
}

TEST(Tessellation, FollowsTheSizeOfTheModel)
{
    const ReadResult small = ReadCad(L"units_inch.step");
    const ReadResult byDefault = ReadCad(L"hole_plate.step");
    CadTessellation tenfold;
    tenfold.sag = byDefault.model.box.Radius() * 2.0 * 0.01;
    tenfold.maxAngleDegrees = 60.0;
    const ReadResult coarse = ReadCad(L"hole_plate.step", {tenfold});

    ASSERT_TRUE(small.isRead && byDefault.isRead && coarse.isRead);
    EXPECT_LT(coarse.model.nodes[0]->shape->Present()->TriangleCount(),
              byDefault.model.nodes[0]->shape->Present()->TriangleCount());
}

TEST(Tessellation, KeepsChordsWithinTheSag)
{
    CadTessellation wanted;
    wanted.sag = 0.01;
    wanted.maxAngleDegrees = 90.0;

    const ReadResult read = ReadCad(L"hole_plate.step", {wanted});

    ASSERT_TRUE(read.isRead);
    const Geometry& geometry = *read.model.nodes[0]->shape->Present();
    for (std::uint32_t i = 0; i < geometry.SegmentCount(); ++i) {
        const float* a = &geometry.Positions()[geometry.Segments()[i * 2] * 3];
        const float* b = &geometry.Positions()[geometry.Segments()[i * 2 + 1] * 3];
        const float middle[2] = {(a[0] + b[0]) / 2 - 50.0f, (a[1] + b[1]) / 2 - 30.0f};
        const double radius = std::hypot(middle[0], middle[1]);
        if (radius < 10.0) {
            EXPECT_GE(radius, 6.0 - 0.011);
        }
    }
}

TEST(Tessellation, ChangesWithTheParametersAndKeepsIds)
{
    const ReadResult read = ReadCad(L"hole_plate.step");
    const OrvikModel::ModelShape& shape = *read.model.nodes.at(0)->shape;
    const auto before = shape.Present();

    EXPECT_FALSE(shape.Retessellate(0.0, 0.0));
    EXPECT_TRUE(shape.Retessellate(0.001, 2.0));
    EXPECT_FALSE(shape.Retessellate(0.001, 2.0));

    const auto after = shape.Present();
    EXPECT_GT(after->TriangleCount(), before->TriangleCount());
    ASSERT_EQ(after->Parts().size(), before->Parts().size());
    for (std::size_t i = 0; i < after->Parts().size(); ++i)
        EXPECT_EQ(after->Parts()[i].id, before->Parts()[i].id);
    EXPECT_TRUE(shape.Retessellate(0.0, 0.0));
    EXPECT_EQ(shape.Present()->TriangleCount(), before->TriangleCount());
}

/// Cuts a cylinder of 10 x 20 in a model, beside an annotation of some length.
/// @return the number of its triangles.
std::uint32_t trianglesBesideAnnotation(double length)
{
    ShapeCatalog shapes;
    OrvikModel::Model model;
    const auto add = [&](OrvikModel::NodeKind kind, const TopoDS_Shape& shape) {
        auto node = std::make_unique<OrvikModel::ModelNode>();
        node->kind = kind;
        node->shape = shapes.Get(shape, L"shape");
        model.nodes.push_back(std::move(node));
    };
    add(OrvikModel::NodeKind::Body, BRepPrimAPI_MakeCylinder(10.0, 20.0).Solid());
    add(OrvikModel::NodeKind::Annotation,
        BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(length, 0, 0)).Edge());
    CadMessages messages(L"test.step");
    CadTessellation wanted;
    wanted.maxAngleDegrees = 60.0; // The sag decides.
    KernelBudget budget;
    Tessellate(shapes, wanted, budget, model, messages);
    return model.nodes[0]->shape->Present()->TriangleCount();
}

TEST(Tessellate, AnnotationsDoNotMakeBodiesCoarser)
{
    EXPECT_EQ(trianglesBesideAnnotation(10000.0), trianglesBesideAnnotation(1.0));
}

} // namespace
} // namespace OrvikCad
