#include "kernel/PmiReader.h"

#include "tests/DocumentFixture.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <XCAFDimTolObjects_DatumObject.hxx>
#include <XCAFDimTolObjects_DimensionObject.hxx>
#include <XCAFDimTolObjects_GeomToleranceObject.hxx>
#include <XCAFDoc_Datum.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>
#include <gtest/gtest.h>

namespace OrvikCad {
namespace {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::EntityType;

/// A document whose annotations are added one by one.
class PmiReader : public DocumentFixture
{
protected:
    Handle(XCAFDoc_DimTolTool) Tool() const
    {
        return XCAFDoc_DocumentTool::DimTolTool(document.Main());
    }

    static Handle(TCollection_HAsciiString) Text(const char* text)
    {
        return new TCollection_HAsciiString(text);
    }

    static TopoDS_Shape Stroke() { return BRepBuilderAPI_MakeEdge(gp_Pnt(), gp_Pnt(0, 0, 9)); }

    TDF_Label AddSize(double value, const char* drawnAs = nullptr)
    {
        Handle(XCAFDimTolObjects_DimensionObject) size = new XCAFDimTolObjects_DimensionObject();
        size->SetType(XCAFDimTolObjects_DimensionType_Size_Diameter);
        size->SetValue(value);
        if (drawnAs)
            size->SetPresentation(Stroke(), Text(drawnAs));
        const TDF_Label label = Tool()->AddDimension();
        XCAFDoc_Dimension::Set(label)->SetObject(size);
        return label;
    }

    void AddDrawn(const char* name)
    {
        Handle(XCAFDimTolObjects_DimensionObject) drawn = new XCAFDimTolObjects_DimensionObject();
        drawn->SetType(XCAFDimTolObjects_DimensionType_CommonLabel);
        drawn->SetPresentation(Stroke(), Text(name));
        XCAFDoc_Dimension::Set(Tool()->AddDimension())->SetObject(drawn);
    }

    /// A tolerance that names datum A.
    void AddTolerance()
    {
        Handle(XCAFDimTolObjects_GeomToleranceObject) flatness =
            new XCAFDimTolObjects_GeomToleranceObject();
        flatness->SetType(XCAFDimTolObjects_GeomToleranceType_Parallelism);
        flatness->SetValue(0.1);
        const TDF_Label tolerance = Tool()->AddGeomTolerance();
        XCAFDoc_GeomTolerance::Set(tolerance)->SetObject(flatness);
        Handle(XCAFDimTolObjects_DatumObject) datum = new XCAFDimTolObjects_DatumObject();
        datum->SetName(Text("A"));
        datum->SetPosition(1);
        const TDF_Label label = Tool()->AddDatum();
        XCAFDoc_Datum::Set(label)->SetObject(datum);
        Tool()->SetDatumToGeomTol(label, tolerance);
    }

    /// The annotations of one type.
    const ModelNode* Group(EntityType type) const
    {
        for (const auto& group : model.nodes.back()->children)
            if (group->pmiType == type)
                return group.get();
        return nullptr;
    }
};

TEST_F(PmiReader, AddsNothingToADocumentWithoutPmi)
{
    AddPmi(context);

    EXPECT_TRUE(model.nodes.empty());
}

TEST_F(PmiReader, GroupsAnnotationsByTypeInTheOrderOfTheirNumbers)
{
    AddDrawn("Note.1");
    AddDrawn("Surface Roughness.2");
    AddTolerance();
    AddSize(12);

    AddPmi(context);

    ASSERT_EQ(model.nodes.size(), 1u);
    EXPECT_EQ(model.nodes[0]->kind, NodeKind::PmiSet);
    std::vector<std::uint32_t> types;
    for (const auto& group : model.nodes[0]->children)
        types.push_back(static_cast<std::uint32_t>(group->pmiType));
    EXPECT_EQ(types, (std::vector<std::uint32_t>{10101, 10102, 10103, 10104, 10105}));
}

TEST_F(PmiReader, TellsWhatADrawingShows)
{
    AddSize(12, "Bore");
    AddTolerance();

    AddPmi(context);

    const ModelNode& size = *Group(EntityType::PmiDimension)->children.at(0);
    EXPECT_EQ(size.kind, NodeKind::Annotation);
    EXPECT_EQ(size.pmiType, EntityType::PmiDimension);
    EXPECT_EQ(size.name, L"Bore");
    EXPECT_EQ(size.text, L"\u2300 12");
    EXPECT_EQ(Group(EntityType::PmiGeometricTolerance)->children.at(0)->text, L"\u2225 0.1 | A");
}

TEST_F(PmiReader, ListsADatumOnceThoughSeveralTolerancesNameIt)
{
    AddTolerance();
    AddTolerance();

    AddPmi(context);

    EXPECT_EQ(Group(EntityType::PmiGeometricTolerance)->children.size(), 2u);
    EXPECT_EQ(Group(EntityType::PmiDatum)->children.size(), 1u);
}

TEST_F(PmiReader, PlacesCurvesWithTheBodyThatTheyBelongTo)
{
    ModelNode& body = AddBodyAt(100, 0, 0);
    Tool()->SetDimension(bodyLabel, AddSize(12, "Bore"));

    AddPmi(context);

    const ModelNode& size = *Group(EntityType::PmiDimension)->children.at(0);
    ASSERT_TRUE(size.shape);
    ASSERT_TRUE(size.transform);
    EXPECT_EQ((*size.transform)[12], 100.0);
    EXPECT_TRUE(body.children.empty());
}

TEST_F(PmiReader, LeavesAnAnnotationWithoutCurvesAsText)
{
    AddSize(12);

    AddPmi(context);

    EXPECT_FALSE(Group(EntityType::PmiDimension)->children.at(0)->shape);
}

TEST_F(PmiReader, FindsTheNodeOfALabelAgain)
{
    const TDF_Label label = AddSize(12);

    AddPmi(context);

    ASSERT_EQ(nodes.Find(label).size(), 1u);
    EXPECT_EQ(nodes.Find(label)[0], Group(EntityType::PmiDimension)->children.at(0).get());
}

} // namespace
} // namespace OrvikCad
