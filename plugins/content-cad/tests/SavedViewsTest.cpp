#include "kernel/SavedViews.h"

#include "tests/DocumentFixture.h"

#include <XCAFDoc_View.hxx>
#include <XCAFDoc_ViewTool.hxx>
#include <XCAFView_Object.hxx>

namespace OrvikCad {
namespace {

using OrvikModel::NodeKind;

class SavedViews : public DocumentFixture
{
protected:
    /// A view from (0 -500 0) along y, its window 200 mm away.
    TDF_Label AddView(const char* name)
    {
        Handle(XCAFView_Object) view = new XCAFView_Object();
        view->SetName(new TCollection_HAsciiString(name));
        view->SetType(XCAFView_ProjectionType_Parallel);
        view->SetProjectionPoint(gp_Pnt(0, -500, 0));
        view->SetViewDirection(gp::DY());
        view->SetUpDirection(gp::DZ());
        view->SetZoomFactor(200);
        view->SetWindowHorizontalSize(80);
        view->SetWindowVerticalSize(60);
        const TDF_Label label = Tool()->AddView();
        XCAFDoc_View::Set(label)->SetObject(view);
        return label;
    }

    Handle(XCAFDoc_ViewTool) Tool() const
    {
        return XCAFDoc_DocumentTool::ViewTool(document.Main());
    }
};

TEST_F(SavedViews, AddsNothingToADocumentWithoutViews)
{
    AddSavedViews(context);

    EXPECT_TRUE(model.nodes.empty());
}

TEST_F(SavedViews, TellsFromWhereAViewLooks)
{
    AddView("Front");

    AddSavedViews(context);

    ASSERT_EQ(model.nodes.size(), 1u);
    ASSERT_EQ(model.nodes[0]->kind, NodeKind::Views);
    const auto& view = *model.nodes[0]->children.at(0);
    EXPECT_EQ(view.kind, NodeKind::View);
    EXPECT_EQ(view.name, L"Front");
    ASSERT_TRUE(view.camera);
    EXPECT_EQ(view.camera->eye[1], -500.0);
    EXPECT_EQ(view.camera->target[1], -300.0);
    EXPECT_EQ(view.camera->up[2], 1.0);
    EXPECT_EQ(view.camera->width, 80.0);
    EXPECT_EQ(view.camera->height, 60.0);
    EXPECT_TRUE(view.camera->orthographic);
}

TEST_F(SavedViews, MakesACaptureOfAViewThatListsWhatItShows)
{
    AddBodyAt(0, 0, 0);
    model.NumberNodes();
    TDF_LabelSequence shown;
    shown.Append(bodyLabel);
    Tool()->SetView(shown, TDF_LabelSequence(), AddView("Block only"));

    AddSavedViews(context);

    ASSERT_EQ(model.nodes.size(), 3u);
    EXPECT_EQ(model.nodes[1]->kind, NodeKind::Views);
    ASSERT_EQ(model.nodes[2]->kind, NodeKind::Captures);
    const auto& capture = *model.nodes[2]->children.at(0);
    EXPECT_EQ(capture.kind, NodeKind::Capture);
    EXPECT_EQ(capture.visible, std::vector<std::uint64_t>{model.nodes[0]->number});
    EXPECT_TRUE(capture.camera);
}

TEST_F(SavedViews, LeavesTheNumbersOfOtherNodesAsTheyWere)
{
    AddBodyAt(0, 0, 0);
    AddView("Front");
    model.NumberNodes();
    const std::uint64_t before = model.nodes[0]->number;

    AddSavedViews(context);
    model.NumberNodes();

    EXPECT_EQ(model.nodes[0]->number, before);
    EXPECT_GT(model.nodes[1]->number, before);
}

} // namespace
} // namespace OrvikCad
