#include "OrvikCore/IContentRenderer.h"

#include "FakeContent.h"
#include "FakeRenderer.h"
#include "MemoryOrder.h"
#include "VirtualSlot.h"

#include "OrvikCore/Document.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using OrvikCore::IContentRenderer;
using testing::ElementsAre;

namespace {

struct ExposedSlots : IContentRenderer
{
    using IContentRenderer::discard;
};

// Leaves everything with a default as it is.
class PlainRenderer : public IContentRenderer
{
public:
    PlainRenderer() : IContentRenderer(nullptr) {}
    bool Render() override { return false; }
    bool Rerender() override { return false; }
    bool IsRendererFor(OrvikCore::AContent*) override { return false; }
    bool ConvertToEntityId(const TambVizCore::RenderId&, TambVizCore::EntityId&) override
    {
        return false;
    }
    bool ConvertToRenderId(const TambVizCore::EntityId&, TambVizCore::RenderId&) override
    {
        return false;
    }
    bool ExpandRenderId(const TambVizCore::RenderId&, std::vector<TambVizCore::RenderId>&) override
    {
        return false;
    }

protected:
    void discard() override {}
};

std::vector<double> corner(const double* values)
{
    return {values[0], values[1], values[2]};
}

} // namespace

TEST(IContentRenderer, HasNoBoxAtFirst)
{
    const Fake3DRenderer renderer;

    EXPECT_EQ(renderer.GetBoxLo(), nullptr);
    EXPECT_EQ(renderer.GetBoxHi(), nullptr);
}

TEST(IContentRenderer, KeepsEachCornerByItself)
{
    Fake3DRenderer renderer;

    renderer.SetBoxLo(1.0, 2.0, 3.0);
    EXPECT_THAT(corner(renderer.GetBoxLo()), ElementsAre(1.0, 2.0, 3.0));
    EXPECT_EQ(renderer.GetBoxHi(), nullptr);
    renderer.SetBoxHi(4.0, 5.0, 6.0);
    EXPECT_THAT(corner(renderer.GetBoxHi()), ElementsAre(4.0, 5.0, 6.0));
}

TEST(IContentRenderer, StoresALaterCornerInTheSameArray)
{
    Fake3DRenderer renderer;
    renderer.SetBoxLo(1.0, 2.0, 3.0);
    const double* const before = renderer.GetBoxLo();

    renderer.SetBoxLo(7.0, 8.0, 9.0);

    EXPECT_EQ(renderer.GetBoxLo(), before);
    EXPECT_THAT(corner(before), ElementsAre(7.0, 8.0, 9.0));
}

TEST(IContentRenderer, ClearAllForgetsTheBoxAndDiscards)
{
    Fake3DRenderer renderer;
    renderer.SetBoxLo(1.0, 2.0, 3.0);
    renderer.SetBoxHi(4.0, 5.0, 6.0);

    renderer.ClearAll();

    EXPECT_EQ(renderer.GetBoxLo(), nullptr);
    EXPECT_EQ(renderer.GetBoxHi(), nullptr);
    EXPECT_THAT(renderer.m_calls, ElementsAre("discard"));
}

TEST(IContentRenderer, SphereIsEmptyAtFirst)
{
    const Fake3DRenderer renderer;
    float center[3] = {9.0f, 9.0f, 9.0f};

    renderer.GetGeometryCenter(center);

    EXPECT_THAT(center, ElementsAre(0.0f, 0.0f, 0.0f));
    EXPECT_EQ(renderer.GetGeometryRadius(), 0.0f);
}

TEST(IContentRenderer, ReportsTheSphereThatTheDerivedClassSet)
{
    Fake3DRenderer renderer;
    renderer.geometryCenter[0] = 1.0f;
    renderer.geometryCenter[1] = 2.0f;
    renderer.geometryCenter[2] = 3.0f;
    renderer.geometryRadius = 4.0f;
    float center[3] = {0.0f, 0.0f, 0.0f};

    renderer.GetGeometryCenter(center);

    EXPECT_THAT(center, ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_EQ(renderer.GetGeometryRadius(), 4.0f);
}

TEST(IContentRenderer, UsesNoProgressCallbackUntilAsked)
{
    Fake3DRenderer renderer;

    EXPECT_FALSE(renderer.GetUseProgressCallback());
    renderer.SetUseProgressCallback(true);
    EXPECT_TRUE(renderer.GetUseProgressCallback());
}

TEST(IContentRenderer, DefaultsOfTheOptionalOperations)
{
    PlainRenderer renderer;
    TambVizCore::RenderId id;
    std::vector<TambVizCore::EntityId> bodies(1);

    EXPECT_TRUE(renderer.Activate(id));
    EXPECT_EQ(renderer.GetToolTip(id), L"");
    EXPECT_FALSE(renderer.GetBodyList(bodies));
    EXPECT_EQ(bodies.size(), 1u);
}

TEST(IContentRenderer, ParametersStartAtZeroWithDefaultsOff)
{
    const Fake3DRenderer renderer;
    bool useDefault = true;

    EXPECT_EQ(renderer.GetTesselationSag(useDefault), 0.0);
    EXPECT_FALSE(useDefault);
    useDefault = true;
    EXPECT_EQ(renderer.GetTesselationStep(useDefault), 0.0);
    EXPECT_FALSE(useDefault);
    useDefault = true;
    EXPECT_EQ(renderer.GetTesselationMaxAngle(useDefault), 0.0);
    EXPECT_FALSE(useDefault);
}

TEST(IContentRenderer, AValueNotAboveZeroKeepsTheSagAndAsksForTheDefault)
{
    Fake3DRenderer renderer;
    renderer.SetTesselationSag(0.5);
    bool useDefault = false;

    renderer.SetTesselationSag(-1.0);
    EXPECT_EQ(renderer.GetTesselationSag(useDefault), 0.5);
    EXPECT_TRUE(useDefault);

    renderer.SetTesselationSag(0.25);
    EXPECT_EQ(renderer.GetTesselationSag(useDefault), 0.25);
    EXPECT_FALSE(useDefault);
}

TEST(IContentRenderer, ZeroAsksForTheDefaultStepAndAngle)
{
    Fake3DRenderer renderer;
    renderer.SetTesselationStep(2.0);
    renderer.SetTesselationMaxAngle(15.0);
    bool useDefault = false;

    renderer.SetTesselationStep(0.0);
    EXPECT_EQ(renderer.GetTesselationStep(useDefault), 2.0);
    EXPECT_TRUE(useDefault);
    useDefault = false;
    renderer.SetTesselationMaxAngle(0.0);
    EXPECT_EQ(renderer.GetTesselationMaxAngle(useDefault), 15.0);
    EXPECT_TRUE(useDefault);
}

TEST(IContentRenderer, SetsThreeParametersAtOnce)
{
    Fake3DRenderer renderer;
    double sag = 0.0;
    double step = 0.0;
    double maxAngle = 0.0;

    renderer.SetTesselationParamters(0.1, 0.2, 0.3);

    EXPECT_TRUE(renderer.GetTessellationParameters(sag, step, maxAngle));
    EXPECT_EQ(sag, 0.1);
    EXPECT_EQ(step, 0.2);
    EXPECT_EQ(maxAngle, 0.3);
}

TEST(IContentRenderer, TessellationParametersAreReadEvenWhenDefaultsAreInUse)
{
    Fake3DRenderer renderer;
    renderer.SetTesselationParamters(0.1, 0.2, 0.3);
    renderer.SetTesselationParamters(0.0, -1.0, 0.0);
    double sag = 0.0;
    double step = 0.0;
    double maxAngle = 0.0;

    EXPECT_TRUE(renderer.GetTessellationParameters(sag, step, maxAngle));
    EXPECT_EQ(sag, 0.1);
    EXPECT_EQ(step, 0.2);
    EXPECT_EQ(maxAngle, 0.3);
}

TEST(IContentRenderer, ParametersAreSharedByAllRenderers)
{
    Fake3DRenderer one;
    FakeTreeRenderer other;
    bool useDefault = true;

    one.SetTesselationSag(0.75);

    EXPECT_EQ(other.GetTesselationSag(useDefault), 0.75);
    EXPECT_FALSE(useDefault);
}

TEST(IContentRenderer, IsNotCopyable)
{
    EXPECT_FALSE(std::is_copy_constructible_v<Fake3DRenderer>);
    EXPECT_FALSE(std::is_copy_assignable_v<Fake3DRenderer>);
}

TEST(IContentRenderer, KnowsItsContent)
{
    CallLog log;
    OrvikCore::Document document(nullptr);
    FakeContent content(document, "content", log);
    Fake3DRenderer renderer(&content);

    EXPECT_TRUE(renderer.IsRendererFor(&content));
    EXPECT_FALSE(renderer.IsRendererFor(nullptr));
}

TEST(IContentRenderer, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&IContentRenderer::Render), 0);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::Rerender), 3);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::IsRendererFor), 4);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::ConvertToEntityId), 5);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::ConvertToRenderId), 6);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::Activate), 7);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::ExpandRenderId), 8);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::GetGeometryCenter), 9);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::GetGeometryRadius), 10);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::GetToolTip), 11);
    EXPECT_EQ(VirtualSlot(&IContentRenderer::GetBodyList), 12);
    EXPECT_EQ(VirtualSlot(&ExposedSlots::discard), 13);
}

TEST(IContentRenderer, FieldsKeepTheirOrder)
{
    const Fake3DRenderer renderer;

    EXPECT_TRUE(LieInThisOrder(&renderer.boxLo, &renderer.boxHi, &renderer.geometryCenter,
                               &renderer.geometryRadius, &renderer.useProgressCallback,
                               &renderer.content));
}
