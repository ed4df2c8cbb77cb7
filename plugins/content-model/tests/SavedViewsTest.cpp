#include "FakeView3D.h"
#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "OrvikModel/ModelTreeRenderer.h"
#include "StoringViewTree.h"
#include "TestModels.h"

#include "OrvikCore/CameraYUp.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/ICameraProvider.h"

#include <TambVizCore/Node.h>

#include <gtest/gtest.h>

#include <cmath>

using OrvikCore::Document;
using OrvikModel::MakeEntity;
using OrvikModel::ModelContent;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using OrvikModel::SavedCamera;
using TambVizCore::RenderId;

namespace {

class FakeViewWithCamera : public FakeView3D, public OrvikCore::ICameraProvider
{
public:
    FakeViewWithCamera() { m_camera.SetAnimate(false); }
    OrvikCore::ACamera* GetCamera() override { return &m_camera; }

    OrvikCore::CameraYUp m_camera{this};
};

SavedCamera lookDown(double height)
{
    SavedCamera camera;
    camera.eye[0] = camera.target[0] = 5.0;
    camera.eye[2] = 7.0;
    camera.up[1] = 1.0;
    camera.height = height;
    return camera;
}

/// Two cubes, a view and a capture that shows the second one.
std::shared_ptr<OrvikModel::Model> makeModel()
{
    std::vector<NodePtr> nodes;
    nodes.push_back(MakeNode(NodeKind::Assembly, L"both"));
    AddChild(*nodes[0], MakeCube(NodeKind::Body, L"first"));
    AddChild(*nodes[0], MakeCube(NodeKind::Body, L"second", 2.0));
    nodes.push_back(MakeNode(NodeKind::Views, L"views"));
    AddChild(*nodes[1], MakeNode(NodeKind::View, L"down")).camera = lookDown(40.0);
    nodes.push_back(MakeNode(NodeKind::Captures, L"captures"));
    auto& capture = AddChild(*nodes[2], MakeNode(NodeKind::Capture, L"capture"));
    capture.camera = lookDown(0.0);
    capture.visible = {3};
    return MakeModel(std::move(nodes));
}

class SavedViewsTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_renderer.Render();
        m_rows.Render();
    }
    bool activate(const wchar_t* name)
    {
        RenderId path;
        const auto& model = *m_content.GetModel();
        m_rows.ConvertToRenderId(MakeEntity(model, NodeNamed(model, name)), path);
        return m_rows.Activate(path);
    }
    bool isSeen(std::uint64_t number)
    {
        return m_view.m_root.FindChild(1)->FindChild(1)->FindChild(number)->IsVisibleInScene();
    }
    float eyeHeight()
    {
        float eye[3], target[3], up[3];
        m_view.m_camera.GetCamera(eye, target, up);
        EXPECT_EQ(target[0], 5.0f);
        return eye[2];
    }

    Document m_document{nullptr};
    ModelContent m_content{m_document, makeModel(), "Test"};
    FakeViewWithCamera m_view;
    StoringViewTree m_tree;
    OrvikModel::ModelRenderer3D m_renderer{m_content, m_view};
    OrvikModel::ModelTreeRenderer m_rows{m_content, &m_tree, nullptr};
};

} // namespace

TEST_F(SavedViewsTest, ActivatedViewMovesTheCameraSoThatItsWindowFits)
{
    ASSERT_TRUE(activate(L"down"));

    const double half = 0.5 * static_cast<double>(m_view.m_camera.GetFieldOfViewRadians());
    EXPECT_NEAR(eyeHeight(), 20.0 / std::tan(half), 1e-4);
    EXPECT_TRUE(isSeen(2));
}

TEST_F(SavedViewsTest, ActivatedCaptureShowsOnlyWhatItNames)
{
    ASSERT_TRUE(activate(L"capture"));

    EXPECT_FLOAT_EQ(eyeHeight(), 7.0f);
    EXPECT_FALSE(isSeen(2));
    EXPECT_TRUE(isSeen(3));
}

TEST_F(SavedViewsTest, OtherRowsMoveNothing)
{
    float before[3], after[3], target[3], up[3];
    m_view.m_camera.GetCamera(before, target, up);

    EXPECT_TRUE(activate(L"first"));
    EXPECT_FALSE(m_renderer.ShowView(NodeNamed(*m_content.GetModel(), L"first")));
    RenderId nowhere = TreePathOf({1, 2, 3});
    EXPECT_FALSE(m_rows.Activate(nowhere));

    m_view.m_camera.GetCamera(after, target, up);
    EXPECT_EQ(before[2], after[2]);
}

TEST_F(SavedViewsTest, CameraThatLooksNowhereIsRefused)
{
    ModelNode view;
    view.kind = NodeKind::View;
    view.camera = SavedCamera();

    EXPECT_FALSE(m_renderer.ShowView(view));
    view.camera.reset();
    EXPECT_FALSE(m_renderer.ShowView(view));
}

TEST(SavedViews, ViewWithoutACameraShowsNone)
{
    Document document(nullptr);
    ModelContent content(document, makeModel(), "Test");
    FakeView3D view;
    OrvikModel::ModelRenderer3D renderer(content, view);
    renderer.Render();

    EXPECT_FALSE(renderer.ShowView(NodeNamed(*content.GetModel(), L"down")));
}
