#ifndef VIEWOPENGL_TESTS_VIEWTEST_H
#define VIEWOPENGL_TESTS_VIEWTEST_H

#include "View3dOpenGlSG.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderingOptions.h>

#include <CapturedDebugOutput.h>
#include <gtest/gtest.h>

#include <memory>

namespace ViewOpenGl {

inline constexpr TambVizCore::RGBAColor kRed{220, 0, 0};
inline constexpr TambVizCore::RGBAColor kGreen{0, 220, 0};
inline constexpr TambVizCore::RGBAColor kBlue{0, 0, 220};
inline constexpr TambVizCore::RGBAColor kBlack{0, 0, 0};

/// What a pixel shows, as far as these tests tell colours apart.
enum class Shows
{
    Background,
    Red,
    Green,
    Blue,
    Black,
    Other
};

/// A view on the square from -1 to 1 in x and y, looking along -z from z = 10, with a grey
/// background. Bodies have no edges unless they bring some. Skips where there is no OpenGL.
class ViewTest : public ::testing::Test
{
protected:
    ViewTest();
    void SetUp() override;

    /// Adds a body below the root.
    TambVizCore::GeoNode& Add(std::shared_ptr<const TambVizCore::Geometry> geometry,
                              const TambVizCore::RGBAColor& color = kRed);

    /// Draws; a failure ends the picture's use.
    const TambVizCore::Image& Draw(int width = 64, int height = 64);

    /// @return the colour at a place of the view, x and y from -1 to 1, in the picture drawn last.
    TambVizCore::RGBAColor ColorAt(double x, double y) const;
    Shows At(double x, double y) const;

    /// Draws anew, then At().
    Shows DrawnAt(double x, double y);

    /// Replaces the camera by one of perspective that sees the same of the plane z = 0.
    void UsePerspective();

    TambVizCore::RenderingOptions& Options() { return *m_view->GetRenderingOptions(); }

    CapturedDebugOutput m_debug;
    std::unique_ptr<View3dOpenGlSG> m_view;
    TambVizCore::Image m_image;
    std::uint64_t m_nextId = 1;
};

/// For pictures from +z with another size or camera: places the camera of a view.
void PlaceCamera(View3dOpenGlSG& view);

} // namespace ViewOpenGl

#endif
