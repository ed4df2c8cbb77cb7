#include "GlContext.h"
#include "Shapes.h"
#include "ViewTest.h"
#include "text/TextLabels.h"
#include "text/TextRaster.h"

#include <TambVizCore/Node.h>

#include <algorithm>

namespace ViewOpenGl {
namespace {

using OrvikCore::TextDirection;
using OrvikCore::TextItem3D;
using TambVizCore::RGBAColor;

TextItem3D makeItem(bool facesCamera, float height,
                    TextDirection reading = TextDirection::PositiveX,
                    TextDirection up = TextDirection::PositiveY)
{
    return TextItem3D(L"HHH", facesCamera, L"", -0.5f, 0.0f, 0.0f, reading, up, true, false, height,
                      0.0f, 0.0f, L"", kGreen, RGBAColor(0, 0, 0, 0));
}

TextFont sized(int capitalPixels)
{
    TextFont font;
    font.capitalPixels = capitalPixels;
    return font;
}

class TextPicture : public ViewTest
{
protected:
    /// @return how many pixels of the last picture are green, and writes the box around them.
    int greenPixels(int& left, int& top, int& right, int& bottom) const
    {
        int found = 0;
        left = top = 1 << 20;
        right = bottom = -1;
        for (int y = 0; y < m_image.height; ++y)
            for (int x = 0; x < m_image.width; ++x) {
                const std::uint8_t* const p =
                    m_image.rgba.data() + 4 * static_cast<std::size_t>(y * m_image.width + x);
                if (p[1] < p[0] + 60)
                    continue;
                ++found;
                left = std::min(left, x);
                right = std::max(right, x);
                top = std::min(top, y);
                bottom = std::max(bottom, y);
            }
        return found;
    }
};

TEST(TextRaster, CapitalLettersHaveTheHeightAskedFor)
{
    TextRaster raster;
    TextImage image;
    std::string errorText;
    ASSERT_TRUE(raster.Draw(L"H", sized(40), image, errorText)) << errorText;
    int top = image.height;
    for (int y = image.height - 1; y >= 0; --y)
        for (int x = 0; x < image.width; ++x)
            if (image.coverage[static_cast<std::size_t>(y * image.width + x)] > 128)
                top = y;

    EXPECT_NEAR(image.baseline - top, 40, 2);
}

TEST(TextRaster, EmptyTextIsAnEmptyImage)
{
    TextRaster raster;
    TextImage image;
    std::string errorText;
    ASSERT_TRUE(raster.Draw(L"", TextFont{}, image, errorText));

    EXPECT_EQ(std::count(image.coverage.begin(), image.coverage.end(), 0),
              static_cast<std::ptrdiff_t>(image.coverage.size()));
}

TEST(TextRaster, EndlessTextIsCutOff)
{
    TextRaster raster;
    TextImage image;
    std::string errorText;
    ASSERT_TRUE(raster.Draw(std::wstring(1000000, L'W'), sized(500), image, errorText));

    EXPECT_EQ(image.width, 8192);
}

TEST(TextRaster, UnknownFamilyFallsBackToAnother)
{
    TextRaster raster;
    TextImage image;
    std::string errorText;

    TextFont strange;
    strange.family = L"No Such Family";

    EXPECT_TRUE(raster.Draw(L"H", strange, image, errorText));
}

TEST_F(TextPicture, LabelThatFacesTheCameraBeginsAtItsAnchor)
{
    m_view->DrawTextItems({makeItem(true, 10.0f)});
    Draw();
    int left, top, right, bottom;
    ASSERT_GT(greenPixels(left, top, right, bottom), 30) << m_debug.Text();
    // The anchor is at a quarter of the picture's width, in the middle of its height.
    EXPECT_NEAR(left, 17, 2);
    EXPECT_NEAR(bottom, 31, 2);
    EXPECT_NEAR(bottom - top, 10, 2);
}

TEST_F(TextPicture, LabelKeepsItsShareOfALargerPicture)
{
    m_view->DrawTextItems({makeItem(true, 10.0f)});
    Draw(256, 256);
    int left, top, right, bottom;
    ASSERT_GT(greenPixels(left, top, right, bottom), 30);

    EXPECT_NEAR(bottom - top, 40, 3);
}

TEST_F(TextPicture, LabelInFrontOfEverythingIsNotHidden)
{
    Add(MakeRectangles({{.left = -1, .bottom = -1, .right = 1, .top = 1, .z = 5}}), kBlack);
    m_view->DrawTextItems({makeItem(true, 10.0f)});
    Draw();
    int left, top, right, bottom;

    EXPECT_GT(greenPixels(left, top, right, bottom), 30);
}

TEST_F(TextPicture, LabelInTheWorldHasItsHeightThere)
{
    m_view->DrawTextItems({makeItem(false, 0.5f)});
    Draw(256, 256);
    int left, top, right, bottom;
    ASSERT_GT(greenPixels(left, top, right, bottom), 100);
    // The picture shows two units.
    EXPECT_NEAR(bottom - top, 64, 4);
    EXPECT_NEAR(bottom, 127, 3);
}

TEST_F(TextPicture, LabelInTheWorldIsHiddenByWhatIsBeforeIt)
{
    Add(MakeRectangles({{.left = -1, .bottom = -1, .right = 1, .top = 1, .z = 1}}), kBlack);
    m_view->DrawTextItems({makeItem(false, 0.5f)});
    Draw(256, 256);
    int left, top, right, bottom;

    EXPECT_EQ(greenPixels(left, top, right, bottom), 0);
}

TEST_F(TextPicture, LabelWhoseDirectionsLieOnOneAxisIsNotDrawn)
{
    m_view->DrawTextItems(
        {makeItem(false, 0.5f, TextDirection::PositiveX, TextDirection::NegativeX)});
    Draw(256, 256);
    int left, top, right, bottom;

    EXPECT_EQ(greenPixels(left, top, right, bottom), 0);
}

TEST_F(TextPicture, LabelsAreCleared)
{
    m_view->DrawTextItems({makeItem(true, 10.0f)});
    Draw();
    m_view->ClearDrawingObjects();
    Draw();
    int left, top, right, bottom;

    EXPECT_EQ(greenPixels(left, top, right, bottom), 0);
}

TEST(TextLabels, TextureOfALabelThatGoesWaitsForTheContext)
{
    std::string errorText;
    const auto context = GlContext::Create(errorText);
    if (context == nullptr)
        GTEST_SKIP() << "no picture can be drawn on this machine: " << errorText;
    TextLabels labels;
    Projection projection;
    for (int i = 0; i < 4; ++i)
        projection.view[5 * i] = projection.projection[5 * i] = 1.0;
    labels.Add(1, makeItem(true, 10.0f));
    GLuint texture = 0;
    {
        const GlContext::Current current(*context);
        labels.Draw(projection, 64, 64, 1.0);
        GLint bound = 0;
        glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
        texture = static_cast<GLuint>(bound);
        ASSERT_TRUE(glIsTexture(texture));
    }
    // No context is current now, or it is somebody else's.
    labels.Remove(1);
    EXPECT_EQ(labels.TextureCount(), 1u);
    const GlContext::Current current(*context);
    EXPECT_TRUE(glIsTexture(texture));
    labels.Draw(projection, 64, 64, 1.0);

    EXPECT_EQ(labels.TextureCount(), 0u);
    EXPECT_FALSE(glIsTexture(texture));
    labels.ClearGraphics();
}

} // namespace
} // namespace ViewOpenGl
