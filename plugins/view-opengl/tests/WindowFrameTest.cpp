#include "FrameWindow.h"
#include "GlContext.h"
#include "Shapes.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AViewObject.h>
#include <OrvikCore/IFrameProvider.h>
#include <OrvikCore/TextItem3D.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;

class WindowFrame : public ViewTest
{
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        m_body = &Add(MakeRectangles({{}}));
        m_view->SetFrameWindow(&m_window);
        m_view->UpdateDisplay();
        m_window.Settle();
    }

    void TearDown() override { m_view->SetFrameWindow(nullptr); }

    /// @return whether UpdateDisplay draws a frame after what was done, and no second one.
    bool drawsOnce()
    {
        const std::uint64_t before = m_view->GetFrameCount();
        m_view->UpdateDisplay();
        const std::uint64_t after = m_view->GetFrameCount();
        m_view->UpdateDisplay();
        return after == before + 1 && m_view->GetFrameCount() == after;
    }

    /// @return how many pixels of the frame show something.
    std::ptrdiff_t Covered() const
    {
        const std::vector<unsigned char>& pixels = m_window.Pixels();
        std::ptrdiff_t count = 0;
        for (std::size_t i = 0; i < pixels.size(); i += 4)
            count += std::abs(pixels[i] - pixels[0]) > 60 ? 1 : 0;
        return count;
    }

    FrameWindow m_window{*m_view};
    GeoNode* m_body = nullptr;
};

TEST_F(WindowFrame, IsFoundFromTheInterfaceOfViews)
{
    TambVizCore::IView3D* const view = m_view.get();

    EXPECT_NE(dynamic_cast<OrvikCore::IFrameProvider*>(view), nullptr);
}

TEST_F(WindowFrame, LinesAreWiderWhereAPixelOfTheWindowIsSeveral)
{
    m_body->SetVisible(false);
    Add(MakeLine(0.0f)).SetLineWidthPixels(3.0f);
    m_view->UpdateDisplay();
    m_window.Settle();
    const std::ptrdiff_t narrow = Covered();
    m_window.SetPixelRatio(2.0);
    EXPECT_TRUE(drawsOnce());
    m_window.Settle();

    EXPECT_GT(narrow, 0);
    EXPECT_NEAR(static_cast<double>(Covered()), 2.0 * static_cast<double>(narrow),
                0.2 * static_cast<double>(narrow));
}

TEST_F(WindowFrame, IsWhatAPictureOfItsSizeShows)
{
    Draw(64, 64);

    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
}

TEST_F(WindowFrame, IsPaintedOnceWhenNothingChanges)
{
    const int paints = m_window.Paints();
    const std::uint64_t frames = m_view->GetFrameCount();
    EXPECT_GE(paints, 1);

    m_view->UpdateDisplay();
    m_view->UpdateDisplay();

    EXPECT_EQ(m_window.Paints(), paints);
    EXPECT_EQ(m_view->GetFrameCount(), frames);
    EXPECT_FALSE(m_view->NeedsFrame());
}

TEST_F(WindowFrame, IsNotDrawnAgainForAnExposedWindow)
{
    const std::uint64_t frames = m_view->GetFrameCount();

    EXPECT_TRUE(m_view->DrawFrame());
    EXPECT_TRUE(m_window.Read());

    EXPECT_EQ(m_view->GetFrameCount(), frames);
}

TEST_F(WindowFrame, IsDrawnForAChangeOfTheScene)
{
    m_body->SetColor(kGreen);
    EXPECT_TRUE(drawsOnce());
    m_body->SetVisible(false);
    EXPECT_TRUE(drawsOnce());
    m_view->GetSceneRoot().RemoveAllChildren();
    EXPECT_TRUE(drawsOnce());
}

TEST_F(WindowFrame, IsDrawnForAChangeOfOnePart)
{
    m_body->SetPartHighlighted(0, true);
    EXPECT_TRUE(drawsOnce());
    m_body->SetPartShown(0, false);
    EXPECT_TRUE(drawsOnce());
}

TEST_F(WindowFrame, IsDrawnForAnotherCamera)
{
    OrvikCore::ACamera& camera = *m_view->GetCamera();
    camera.SetFieldOfViewRadians(0.5f);
    EXPECT_TRUE(drawsOnce());
    UsePerspective();
    EXPECT_TRUE(drawsOnce());
}

TEST_F(WindowFrame, IsDrawnForOptionsBackgroundAndSize)
{
    Options().SetShowFaces(false);
    EXPECT_TRUE(drawsOnce());
    Options().SetClipPlanes({{{1.0f, 0.0f, 0.0f}, 0.0f}});
    EXPECT_TRUE(drawsOnce());
    m_view->SetBackgroundColor(2, kBlue);
    EXPECT_TRUE(drawsOnce());
    m_view->SetWindowSize(80, 40);
    EXPECT_TRUE(drawsOnce());
}

TEST_F(WindowFrame, IsDrawnForObjectsBesideTheModel)
{
    m_view->DrawArrow(0, 0, 0, 0.5, 0, 0);
    EXPECT_TRUE(drawsOnce());
    m_view->DrawTextItems({OrvikCore::TextItem3D(L"a", false, L"", 0, 0, 0, {}, {}, true, false, 12,
                                                 0, 0, L"", kRed, kBlack)});
    EXPECT_TRUE(drawsOnce());
    m_view->ClearDrawingObjects();
    EXPECT_TRUE(drawsOnce());
    m_view->GetViewObjectManager()->SetIsEnabled(false);
    EXPECT_TRUE(drawsOnce());
}

TEST_F(WindowFrame, RubberBandIsDrawnOverTheSceneAndTakenAwayAgain)
{
    const auto plain = m_window.Pixels();
    OrvikCore::AViewObject* const band = m_view->GetViewObjectManager()->Get("Rubberband");
    dynamic_cast<RubberBand*>(band)->Place({10, 10, 50, 50});
    band->SetIsVisible(true);
    EXPECT_TRUE(drawsOnce());
    m_window.Settle();
    Draw(64, 64);
    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
    EXPECT_NE(m_window.Pixels(), plain);

    band->SetIsVisible(false);

    EXPECT_TRUE(drawsOnce());
    m_window.Settle();
    EXPECT_EQ(m_window.Pixels(), plain);
}

TEST_F(WindowFrame, PictureOfAnotherSizeLeavesItAlone)
{
    const auto before = m_window.Pixels();

    Draw(200, 30);

    EXPECT_FALSE(m_view->NeedsFrame());
    EXPECT_TRUE(m_window.Read());
    EXPECT_EQ(m_window.Pixels(), before);
}

TEST_F(WindowFrame, IsReadInEitherOrderOfColours)
{
    const auto rgba = m_window.Pixels();
    ASSERT_TRUE(m_window.Read(OrvikCore::PixelOrder::Bgra));

    auto swapped = m_window.Pixels();
    for (std::size_t i = 0; i < swapped.size(); i += 4)
        std::swap(swapped[i], swapped[i + 2]);

    EXPECT_EQ(swapped, rgba);
}

TEST_F(WindowFrame, IsReadIntoRowsOfAnyStride)
{
    for (const std::size_t stride : {std::size_t{4 * 64 + 64}, std::size_t{4 * 64 + 3}}) {
        std::vector<unsigned char> rows(stride * 64, 7);
        ASSERT_TRUE(m_view->ReadFrame({rows.data(), static_cast<std::ptrdiff_t>(stride), 64, 64,
                                       OrvikCore::PixelOrder::Rgba}));

        std::vector<unsigned char> packed;
        for (std::size_t row = 0; row < 64; ++row) {
            const auto first = rows.begin() + static_cast<std::ptrdiff_t>(stride * row);
            packed.insert(packed.end(), first, first + 4 * 64);
            EXPECT_EQ(*(first + 4 * 64), 7) << "beside row " << row;
        }
        EXPECT_EQ(packed, m_window.Pixels());
    }
}

TEST_F(WindowFrame, IsNotReadInAnotherSizeOrWithoutRoom)
{
    std::vector<unsigned char> rows(4 * 64 * 64, 7);
    const auto order = OrvikCore::PixelOrder::Rgba;

    EXPECT_FALSE(m_view->ReadFrame({rows.data(), 4 * 64, 64, 63, order}));
    EXPECT_FALSE(m_view->ReadFrame({rows.data(), 4 * 63, 64, 64, order}));
    EXPECT_FALSE(m_view->ReadFrame({nullptr, 4 * 64, 64, 64, order}));
    EXPECT_EQ(rows, std::vector<unsigned char>(4 * 64 * 64, 7));
}

TEST_F(WindowFrame, NoneIsDrawnForAWindowWithoutPixels)
{
    m_view->SetWindowSize(0, 10);

    EXPECT_FALSE(m_view->NeedsFrame());
    EXPECT_FALSE(m_view->DrawFrame());
}

TEST_F(WindowFrame, IsBlittedOnlyIntoALentContext)
{
    EXPECT_FALSE(m_view->BlitFrame(0, 64, 64));
}

} // namespace
} // namespace ViewOpenGl
