#include "kernel/LooseShapes.h"

#include "DocumentFixture.h"
#include "kernel/PartContent.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRep_Builder.hxx>
#include <Quantity_Color.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <gp_Pln.hxx>
#include <gtest/gtest.h>

#include <algorithm>

namespace OrvikCad {
namespace {

TopoDS_Face faceAt(double z)
{
    return BRepBuilderAPI_MakeFace(gp_Pln(gp_Pnt(0, 0, z), gp::DZ()), 0, 1, 0, 1).Face();
}

TopoDS_Compound compoundOf(const std::vector<TopoDS_Shape>& shapes)
{
    TopoDS_Compound compound;
    BRep_Builder().MakeCompound(compound);
    for (const TopoDS_Shape& shape : shapes)
        BRep_Builder().Add(compound, shape);
    return compound;
}

class LooseShapes : public DocumentFixture
{
protected:
    /// Adds a shape at the top, without a name.
    TDF_Label addTop(const TopoDS_Shape& shape)
    {
        const TDF_Label label = Shapes(document)->AddShape(shape, /*makeAssembly=*/false);
        label.ForgetAttribute(TDataStd_Name::GetID());
        return label;
    }

    std::vector<TDF_Label> tops() const
    {
        TDF_LabelSequence labels;
        Shapes(document)->GetFreeShapes(labels);
        return {labels.begin(), labels.end()};
    }

    PartContent read(const TDF_Label& label)
    {
        return ReadPart(label, Appearance(document), shapes, L"file");
    }
};

TEST_F(LooseShapes, FacesEdgesAndVerticesBecomeOneShapeEach)
{
    addTop(faceAt(0));
    addTop(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Edge());
    addTop(faceAt(1));
    addTop(BRepBuilderAPI_MakeVertex(gp_Pnt(1, 2, 3)).Vertex());
    addTop(BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(0, 1, 0)).Edge());
    addTop(BRepBuilderAPI_MakeVertex(gp_Pnt(3, 2, 1)).Vertex());

    JoinLooseShapes(document);

    ASSERT_EQ(tops().size(), 3u);
    EXPECT_EQ(NameOf(tops()[0]), L"Surfaces");
    EXPECT_EQ(NameOf(tops()[1]), L"Curves");
    EXPECT_EQ(NameOf(tops()[2]), L"Points");
    const PartContent surfaces = read(tops()[0]);
    ASSERT_EQ(surfaces.pieces.size(), 1u);
    EXPECT_EQ(surfaces.pieces[0].kind, OrvikModel::NodeKind::Body);
    EXPECT_EQ(surfaces.pieces[0].shape->Parts().Faces().Extent(), 2);
}

TEST_F(LooseShapes, FacesKeepTheirColors)
{
    addTop(faceAt(0));
    const TDF_Label red = addTop(faceAt(1));
    XCAFDoc_DocumentTool::ColorTool(document.Main())
        ->SetColor(red, Quantity_Color(1, 0, 0, Quantity_TOC_RGB), XCAFDoc_ColorSurf);

    JoinLooseShapes(document);

    ASSERT_EQ(tops().size(), 1u);
    const PartContent surfaces = read(tops()[0]);
    ASSERT_EQ(surfaces.pieces.at(0).partColors.size(), 1u);
    EXPECT_EQ(surfaces.pieces[0].partColors[0].first,
              TambVizCore::MakePartId(TambVizCore::PartKind::Face, 1));
    EXPECT_EQ(surfaces.pieces[0].partColors[0].second.r, 255);
}

TEST_F(LooseShapes, LayersNamesAndSolidsKeepShapesApart)
{
    addTop(faceAt(0));
    addTop(faceAt(1));
    const auto layers = XCAFDoc_DocumentTool::LayerTool(document.Main());
    layers->SetLayer(addTop(faceAt(2)), "7");
    layers->SetLayer(addTop(faceAt(3)), "7");
    TDataStd_Name::Set(addTop(faceAt(4)), "mine");
    AddBodyAt(0, 0, 0);

    JoinLooseShapes(document);

    std::vector<std::wstring> names;
    for (const TDF_Label& top : tops())
        names.push_back(NameOf(top));
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::wstring>{L"Surfaces", L"Surfaces", L"block", L"mine"}));
}

TEST_F(LooseShapes, OneAloneStaysAsItIs)
{
    addTop(faceAt(0));

    JoinLooseShapes(document);

    ASSERT_EQ(tops().size(), 1u);
    EXPECT_EQ(NameOf(tops()[0]), L"");
}

TEST_F(LooseShapes, CompoundsInsideAPartAreBodiesWhereTheyHoldSeveralFaces)
{
    const TopoDS_Compound first = compoundOf({faceAt(0), faceAt(1)});
    const TopoDS_Compound second = compoundOf(
        {faceAt(2), faceAt(3), BRepBuilderAPI_MakeEdge(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0)).Edge()});
    const TopoDS_Compound single = compoundOf({faceAt(4)});
    const TDF_Label part = addTop(compoundOf({first, second, single, faceAt(5)}));

    const PartContent content = read(part);

    ASSERT_EQ(content.pieces.size(), 4u);
    EXPECT_EQ(content.pieces[0].name, L"Body 1");
    EXPECT_TRUE(content.pieces[0].placed.IsSame(first));
    EXPECT_EQ(content.pieces[1].shape->Parts().Faces().Extent(), 2);
    EXPECT_EQ(content.pieces[2].name, L"Faces");
    EXPECT_EQ(content.pieces[2].shape->Parts().Faces().Extent(), 2);
    EXPECT_EQ(content.pieces[3].kind, OrvikModel::NodeKind::Wire);
}

} // namespace
} // namespace OrvikCad
