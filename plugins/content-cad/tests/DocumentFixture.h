#ifndef ORVIKCAD_TESTS_DOCUMENTFIXTURE_H
#define ORVIKCAD_TESTS_DOCUMENTFIXTURE_H

#include "kernel/ReadContext.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gtest/gtest.h>

namespace OrvikCad {

/// A document, and the nodes of a model as far as a test makes them by hand.
class DocumentFixture : public testing::Test
{
protected:
    static Handle(XCAFDoc_ShapeTool) Shapes(const CadDocument& of)
    {
        return XCAFDoc_DocumentTool::ShapeTool(of.Main());
    }

    /// Adds a block of 10 x 20 x 30 mm to the document, and its node at a place in the world.
    OrvikModel::ModelNode& AddBodyAt(double x, double y, double z)
    {
        bodyLabel = Shapes(document)->AddShape(BRepPrimAPI_MakeBox(10, 20, 30).Solid(), false);
        TDataStd_Name::Set(bodyLabel, "block");
        auto node = std::make_unique<OrvikModel::ModelNode>();
        node->kind = OrvikModel::NodeKind::Body;
        node->name = L"block";
        node->transform = std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1};
        nodes.Add(bodyLabel, *node);
        model.nodes.push_back(std::move(node));
        return *model.nodes.back();
    }

    CadDocument document;
    TDF_Label bodyLabel; ///< Of the body that was added last.
    OrvikModel::Model model;
    ShapeCatalog shapes;
    NodeIndex nodes;
    CadMessages messages{L"test.step"};
    ReadContext context{document, model, shapes, nodes, messages};
};

} // namespace OrvikCad

#endif
