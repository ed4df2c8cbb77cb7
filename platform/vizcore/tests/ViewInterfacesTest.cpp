#include "TestGeometry.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/AView3DAdapterFactory.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SceneBuilderFactory.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/VizFactories.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace TambVizCore {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A view without pixels that is its own adapter, as concrete views are.
class FakeView : public IView3D, public AView3DAdapter
{
public:
    FakeView() { AttachView(this); }

    std::string GetName() const override { return "FakeView"; }
    void GetSceneGraphStructure(std::string& out, bool withParts) override
    {
        out.clear();
        m_root.Print(out, withParts);
    }
    void GetWindowSize(int& width, int& height) const override { GetViewportSize(width, height); }
    void SetWindowSize(int width, int height) override { ResizeViewport(width, height); }
    void* GetWindowHandle() const override { return nullptr; }
    void SetWindowHandle(void*) override {}
    float GetGeometryRadius() const override
    {
        return static_cast<float>(m_root.SubtreeBounds().Radius());
    }
    const float* GetGeometryCenter() const override { return m_center; }
    bool GetBoundingBox(const RenderId& id, VizBox& box) override
    {
        return GetRenderIdBox(m_root, id, box);
    }
    bool GetBoundingBox(const EntityId& entity, VizBox& box) override
    {
        RenderId id;
        return FindEntityRenderId(m_root, entity, id) && GetRenderIdBox(m_root, id, box);
    }
    bool Convert(const RenderId& id, EntityId& entity) override
    {
        return ConvertToEntity(id, entity);
    }
    Node& GetSceneRoot() override { return m_root; }
    SelectionHolder* GetSelectionHolder() override { return &m_holder; }
    AView3DAdapter* GetView3DAdapter() override { return this; }
    bool NotifyPick(const Ray&) override { return false; }
    bool GetBackgroundColor(int number, RGBAColor& color) const override
    {
        return GetViewportBackground(number, color);
    }
    bool SetBackgroundColor(int number, const RGBAColor& color) override
    {
        return SetViewportBackground(number, color);
    }
    void Clear() override { ClearViewport(); }
    void UpdateDisplay() override {}
    void Rerender() override {}
    bool ReadImage(int, int, Image&) override { return false; }

    bool GetRenderIdAtPixel(int, int, RenderId&) override { return false; }
    bool GetSurfacePointAtPixel(int, int, float*) override { return false; }
    RenderingOptions* GetRenderingOptions() override { return &m_options; }
    IHighlightStrategy* GetHighlightStrategy() override { return nullptr; }
    void GetViewportSize(int& width, int& height) const override
    {
        width = m_width;
        height = m_height;
    }
    void ResizeViewport(int width, int height) override
    {
        m_width = width;
        m_height = height;
    }
    bool GetViewportBackground(int, RGBAColor&) const override { return false; }
    bool SetViewportBackground(int, const RGBAColor&) override { return false; }
    void ClearViewport() override { m_root.RemoveAllChildren(); }

private:
    Node m_root{1, "SCENE"};
    SelectionHolder m_holder{&m_root};
    RenderingOptions m_options;
    float m_center[3] = {0.0f, 0.0f, 0.0f};
    int m_width = 0;
    int m_height = 0;
};

RenderId path(std::initializer_list<std::uint64_t> values)
{
    RenderId id(RenderId::kOriginView3D);
    for (const std::uint64_t value : values) {
        id.AddValue(value);
    }
    return id;
}

TEST(View3D, AClassMayBeViewAndAdapterWithoutAmbiguity)
{
    FakeView view;
    int width = 0;
    int height = 0;

    view.SetWindowSize(640, 480);
    view.GetWindowSize(width, height);
    view.Clear();

    EXPECT_EQ(width, 640);
    EXPECT_EQ(height, 480);
    EXPECT_FALSE(view.IsHighlighted(path({5})));
    EXPECT_EQ(view.GetView3DAdapter(), &view);
    EXPECT_EQ(view.AttachedView(), &view);
}

TEST(AView3DAdapter, ConvertsThroughTheNodesOfItsView)
{
    FakeView view;
    view.GetSceneRoot().CreateChildNode(5)->SetEntity(EntityId(42, 0, EntityType::Body));
    EntityId entity;

    EXPECT_TRUE(view.Convert(path({5}), entity));
    EXPECT_EQ(entity, EntityId(42, 0, EntityType::Body));
    EXPECT_FALSE(view.Convert(path({6}), entity));
    EXPECT_TRUE(entity.IsEmpty());
}

TEST(AView3DAdapter, KnowsNothingWithoutAView)
{
    FakeView view;
    view.GetSelectionHolder()->Highlight(path({5}));
    view.AttachView(nullptr);
    EntityId entity;

    EXPECT_FALSE(view.ConvertToEntity(path({5}), entity));
    EXPECT_FALSE(view.IsHighlighted(path({5})));
}

TEST(AView3DAdapter, AsksTheHolderOfItsViewWhatIsHighlighted)
{
    FakeView view;

    view.GetSelectionHolder()->Highlight(path({5}));

    EXPECT_TRUE(view.IsHighlighted(path({5, 6})));
    EXPECT_FALSE(view.IsHighlighted(path({7})));
}

TEST(AView3DAdapter, ExpandsAnIdToItself)
{
    FakeView view;
    std::vector<RenderId> ids = {path({1})};

    EXPECT_TRUE(view.ExpandToRenderIds(path({5}), ids));
    EXPECT_THAT(ids, ElementsAre(path({5})));
    EXPECT_FALSE(view.ExpandToRenderIds(RenderId(), ids));
    EXPECT_THAT(ids, IsEmpty());
}

TEST(AView3DAdapter, MakesTheIdsOfNodesAndParts)
{
    FakeView view;
    const Node* const node = view.GetSceneRoot().CreateChildNode(5)->CreateChildNode(6);
    RenderId id;

    view.MakeRenderId(*node, 0, id);
    EXPECT_EQ(id, path({5, 6}));
    view.MakeRenderId(*node, 77, id);
    EXPECT_EQ(id, path({5, 6, 77}));
}

TEST(View3D, BoxesOfEntitiesComeFromWhatDrawsThem)
{
    FakeView view;
    GeoNode* const body = view.GetSceneRoot().CreateChildGeoNode(5);
    body->SetGeometry(MakeSquare());
    EntityId entity(42, 0, EntityType::Body);
    body->SetEntity(entity);
    entity.SetSubEntity(PartKind::Edge, 1);
    VizBox box;

    EXPECT_TRUE(view.GetBoundingBox(entity, box));
    EXPECT_EQ(box, VizBox(1, 0, 0, 1, 1, 0));
}

TEST(SceneBuilderFactory, TheDefaultMakesAPlainRoot)
{
    const auto root = SceneBuilderFactory().CreateSceneRoot();

    EXPECT_EQ(root->Id(), 1u);
    EXPECT_EQ(root->Name(), "SCENE");
    EXPECT_EQ(root->ChildCount(), 0u);
}

/// Counts how many of its kind live.
template <class Base> struct Counted : Base
{
    Counted() { ++living; }
    ~Counted() override { --living; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    static inline int living = 0;
};

struct FakeAdapterFactory : Counted<AView3DAdapterFactory>
{
    AView3DAdapter* CreateView3DAdapter() override { return new FakeView; }
};

TEST(VizFactories, HasNoFactoriesAtStart)
{
    EXPECT_EQ(VizFactories::Instance().GetSceneBuilderFactory(), nullptr);
    EXPECT_EQ(VizFactories::Instance().GetView3DAdapterFactory(), nullptr);
}

TEST(VizFactories, WithoutAnAdapterFactoryThereIsNoAdapter)
{
    EXPECT_EQ(VizFactories::Instance().CreateView3DAdapter(), nullptr);
}

TEST(VizFactories, TheAdapterFactoryMakesTheAdapters)
{
    VizFactories::Instance().SetView3DAdapterFactory(new FakeAdapterFactory);

    const std::unique_ptr<AView3DAdapter> adapter(VizFactories::Instance().CreateView3DAdapter());

    EXPECT_NE(adapter, nullptr);
    VizFactories::Instance().Terminate();
}

TEST(VizFactories, SettersDeleteWhatTheyReplaceButNotTheSame)
{
    using Builder = Counted<SceneBuilderFactory>;
    auto* const first = new Builder;
    VizFactories::Instance().SetSceneBuilderFactory(first);
    VizFactories::Instance().SetSceneBuilderFactory(first);
    EXPECT_EQ(Builder::living, 1);

    VizFactories::Instance().SetSceneBuilderFactory(new Builder);
    EXPECT_EQ(Builder::living, 1);
    VizFactories::Instance().SetSceneBuilderFactory(nullptr);
    EXPECT_EQ(Builder::living, 0);
}

TEST(VizFactories, TerminateDeletesBoth)
{
    VizFactories::Instance().SetSceneBuilderFactory(new Counted<SceneBuilderFactory>);
    VizFactories::Instance().SetView3DAdapterFactory(new FakeAdapterFactory);

    VizFactories::Instance().Terminate();

    EXPECT_EQ(Counted<SceneBuilderFactory>::living, 0);
    EXPECT_EQ(Counted<AView3DAdapterFactory>::living, 0);
}

} // namespace
} // namespace TambVizCore
