#include "ViewTest.h"

#include <OrvikCore/CameraYUp.h>
#include <TambVizCore/Node.h>

#include <cmath>
#include <cstdlib>

namespace ViewOpenGl {

using TambVizCore::RGBAColor;

namespace {

/// The usual camera, in perspective.
class PerspectiveCamera : public OrvikCore::CameraYUp
{
public:
    using OrvikCore::CameraYUp::CameraYUp;
    bool IsOrthographic() const override { return false; }
};

constexpr RGBAColor kGrey{128, 128, 128};

bool isNear(const RGBAColor& a, const RGBAColor& b)
{
    return std::abs(a.r - b.r) <= 2 && std::abs(a.g - b.g) <= 2 && std::abs(a.b - b.b) <= 2;
}

} // namespace

void PlaceCamera(View3dOpenGlSG& view)
{
    OrvikCore::ACamera& camera = *view.GetCamera();
    camera.SetAnimate(false);
    float eye[3] = {0.0f, 0.0f, 10.0f};
    float target[3] = {0.0f, 0.0f, 0.0f};
    float up[3] = {0.0f, 1.0f, 0.0f};
    camera.SetCamera(eye, target, up);
    camera.SetFieldOfViewRadians(2.0f * std::atan(0.1f));
}

ViewTest::ViewTest() : m_view(std::make_unique<View3dOpenGlSG>()) {}

void ViewTest::SetUp()
{
    m_view->SetWindowSize(64, 64);
    m_view->SetBackgroundColor(1, kGrey);
    m_view->SetBackgroundColor(2, kGrey);
    PlaceCamera(*m_view);
    if (!m_view->ReadImage(1, 1, m_image))
        GTEST_SKIP() << "no picture can be drawn on this machine: " << m_debug.Text();
}

TambVizCore::GeoNode& ViewTest::Add(std::shared_ptr<const TambVizCore::Geometry> geometry,
                                    const RGBAColor& color)
{
    TambVizCore::GeoNode* const node = m_view->GetSceneRoot().CreateChildGeoNode(m_nextId++);
    node->SetGeometry(std::move(geometry));
    node->SetColor(color);
    return *node;
}

const TambVizCore::Image& ViewTest::Draw(int width, int height)
{
    m_image = {};
    EXPECT_TRUE(m_view->ReadImage(width, height, m_image)) << m_debug.Text();
    return m_image;
}

RGBAColor ViewTest::ColorAt(double x, double y) const
{
    const int column = static_cast<int>((x + 1.0) / 2.0 * m_image.width);
    const int row = static_cast<int>((1.0 - y) / 2.0 * m_image.height);
    const std::size_t at = 4 * static_cast<std::size_t>(row * m_image.width + column);
    if (at + 3 >= m_image.rgba.size())
        return {};
    return {m_image.rgba[at], m_image.rgba[at + 1], m_image.rgba[at + 2], m_image.rgba[at + 3]};
}

Shows ViewTest::At(double x, double y) const
{
    const RGBAColor c = ColorAt(x, y);
    if (isNear(c, kGrey))
        return Shows::Background;
    if (isNear(c, kBlack))
        return Shows::Black;
    if (c.r > 120 && c.g < 40 && c.b < 40)
        return Shows::Red;
    if (c.g > 120 && c.r < 40 && c.b < 40)
        return Shows::Green;
    if (c.b > 120 && c.r < 40 && c.g < 40)
        return Shows::Blue;
    return Shows::Other;
}

Shows ViewTest::DrawnAt(double x, double y)
{
    Draw();
    return At(x, y);
}

void ViewTest::UsePerspective()
{
    m_view->SetCamera(new PerspectiveCamera(m_view.get()));
    PlaceCamera(*m_view);
}

} // namespace ViewOpenGl
