#include "CadTest.h"
#include "ScopedTempDir.h"
#include "kernel/CadKernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace OrvikCad {
namespace {

using OrvikCore::EntityMeasure;
using OrvikCore::LoadMode;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;

ReadResult readIn(LoadMode mode, const std::wstring& file)
{
    CadOptions options;
    options.mode = mode;
    return ReadCad(file, options);
}

/// What the rows of a model say, one line each, without annotations and views.
void describe(const ModelNode& node, std::wostringstream& text)
{
    if (node.kind >= NodeKind::PmiSet)
        return;
    text << static_cast<int>(node.kind) << L" " << node.name << L" " << node.isShown;
    if (node.transform)
        for (const double value : *node.transform)
            text << L" " << value;
    if (node.color)
        text << L" color " << node.color->r << L"," << node.color->g << L"," << node.color->b
             << L"," << node.color->a;
    for (const std::wstring& layer : node.layers)
        text << L" layer " << layer;
    text << L"\n";
    for (const auto& child : node.children)
        describe(*child, text);
}

std::wstring structureOf(const OrvikModel::Model& model)
{
    std::wostringstream text;
    for (const auto& node : model.nodes)
        describe(*node, text);
    return text.str();
}

void collectShapes(const ModelNode& node, std::set<const OrvikModel::ModelShape*>& shapes)
{
    if (node.shape)
        shapes.insert(node.shape.get());
    for (const auto& child : node.children)
        collectShapes(*child, shapes);
}

std::set<const OrvikModel::ModelShape*> shapesOf(const OrvikModel::Model& model)
{
    std::set<const OrvikModel::ModelShape*> shapes;
    for (const auto& node : model.nodes)
        collectShapes(*node, shapes);
    return shapes;
}

template <class Array> bool isSame(const Array& a, const Array& b)
{
    return std::ranges::equal(a.Span(), b.Span());
}

class FilesInEachMode : public testing::TestWithParam<const wchar_t*>
{
};

TEST_P(FilesInEachMode, HaveTheSameStructureWithoutTheirShapes)
{
    const ReadResult whole = ReadCad(GetParam());

    const ReadResult structure = readIn(LoadMode::ProductStructure, GetParam());

    ASSERT_TRUE(structure.isRead);
    EXPECT_EQ(structureOf(structure.model), structureOf(whole.model));
}

TEST_P(FilesInEachMode, DrawNothingWhereOnlyTheStructureIsWanted)
{
    const ReadResult read = readIn(LoadMode::ProductStructure, GetParam());

    OrvikCore::MeasureResult measured;
    for (const OrvikModel::ModelShape* shape : shapesOf(read.model)) {
        EXPECT_EQ(shape->WithParts()->TriangleCount() + shape->Present()->SegmentCount() +
                      shape->Present()->PointCount(),
                  0u);
        EXPECT_FALSE(shape->MeasureExact(0, EntityMeasure::Volume, measured));
    }
    EXPECT_EQ(read.model.source, nullptr);
    EXPECT_TRUE(NodesOf(read.model, NodeKind::Annotation).empty());
    EXPECT_TRUE(NodesOf(read.model, NodeKind::View).empty());
}

TEST_P(FilesInEachMode, AreDrawnTheSameWithoutExactSurfaces)
{
    const ReadResult whole = ReadCad(GetParam());

    const ReadResult drawn = readIn(LoadMode::Graphical, GetParam());

    ASSERT_TRUE(drawn.isRead);
    ASSERT_EQ(drawn.model.InOrder().size(), whole.model.InOrder().size());
    EXPECT_EQ(shapesOf(drawn.model).size(), shapesOf(whole.model).size());
    for (std::size_t i = 0; i < whole.model.InOrder().size(); ++i) {
        const auto& exact = whole.model.InOrder()[i]->shape;
        const auto& plain = drawn.model.InOrder()[i]->shape;
        ASSERT_EQ(plain != nullptr, exact != nullptr);
        if (!exact)
            continue;
        EXPECT_TRUE(isSame(plain->Present()->Positions(), exact->Present()->Positions()));
        EXPECT_TRUE(isSame(plain->Present()->Triangles(), exact->Present()->Triangles()));
        EXPECT_TRUE(isSame(plain->Present()->Segments(), exact->Present()->Segments()));
        EXPECT_EQ(plain->Present()->Parts(), exact->Present()->Parts());
    }
}

INSTANTIATE_TEST_SUITE_P(LoadModes, FilesInEachMode,
                         testing::Values(L"assembly_ap203.step", L"assembly_ap214.step",
                                         L"assembly_ap242.step", L"free_shapes.step",
                                         L"hole_plate.step", L"instance_color.step", L"pmi.step",
                                         L"units_inch.step", L"views.step"));

TEST(GraphicalMode, HasBodiesOfTrianglesThatCannotBeWritten)
{
    const ReadResult read = readIn(LoadMode::Graphical, L"hole_plate.step");

    EXPECT_TRUE(NodesOf(read.model, NodeKind::Body).empty());
    ASSERT_EQ(NodesOf(read.model, NodeKind::PolyBody).size(), 1u);
    const OrvikModel::ModelShape& plate = *NodesOf(read.model, NodeKind::PolyBody)[0]->shape;
    OrvikCore::MeasureResult measured;
    EXPECT_FALSE(plate.MeasureExact(0, EntityMeasure::Volume, measured));
    EXPECT_FALSE(plate.Retessellate(0.001, 1.0));
    EXPECT_NE(plate.WithParts()->Index(), nullptr);
    EXPECT_FALSE(CadKernel().CanWrite(read.model));
}

TEST(GraphicalMode, HasOpenMeshesForShellsAndWiresAsEver)
{
    const ReadResult read = readIn(LoadMode::Graphical, L"free_shapes.step");

    EXPECT_FALSE(NodesOf(read.model, NodeKind::Mesh).empty());
    EXPECT_FALSE(NodesOf(read.model, NodeKind::Wire).empty());
}

TEST(GraphicalMode, ReadsIgesAndBrepFilesToo)
{
    for (const wchar_t* file : {L"colors.iges", L"solids.brep"}) {
        const ReadResult read = readIn(LoadMode::Graphical, file);

        EXPECT_TRUE(read.isRead);
        EXPECT_FALSE(NodesOf(read.model, NodeKind::PolyBody).empty());
        EXPECT_EQ(read.model.source, nullptr);
    }
}

TEST(ProductStructureMode, KnowsReferencesToOtherFiles)
{
    const ReadResult read = readIn(LoadMode::ProductStructure, L"references.step");

    ASSERT_TRUE(read.isRead);
    EXPECT_EQ(structureOf(read.model), structureOf(ReadCad(L"references.step").model));
    EXPECT_TRUE(read.WarnsOf(L"cannot be read; it was left out"));
}

/// An assembly whose members all lie in files that are missing.
TEST(ProductStructureMode, ShowsAStructureOfWhichAllFilesAreMissing)
{
    const ScopedTempDir folder;
    const std::wstring file = folder.Write("alone.step", TestModelText("references.step"));
    EXPECT_NE(ReadCad(file).error.find(L"the file holds no shape that can be shown"),
              std::wstring::npos);

    const ReadResult structure = readIn(LoadMode::ProductStructure, file);

    EXPECT_TRUE(structure.isRead);
    EXPECT_EQ(NodesOf(structure.model, NodeKind::AssemblyReference).size(), 2u);
}

} // namespace
} // namespace OrvikCad
