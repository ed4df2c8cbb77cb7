#ifndef VIEWOPENGL_TESTS_FRAMEWINDOW_H
#define VIEWOPENGL_TESTS_FRAMEWINDOW_H

#include "View3dOpenGlSG.h"

#include <OrvikCore/IFrameWindow.h>

#include <cstddef>
#include <vector>

namespace ViewOpenGl {

/// A window that paints what the view has drawn into memory of its own, as a host does.
class FrameWindow : public OrvikCore::IFrameWindow
{
public:
    explicit FrameWindow(View3dOpenGlSG& view) : m_view(view) {}

    void PaintNow() override
    {
        ++m_paints;
        m_view.DrawFrame();
        Read();
    }

    void WorkWaits() override { ++m_waits; }
    double GetPixelRatio() override { return m_ratio; }

    void SetPixelRatio(double ratio) { m_ratio = ratio; }

    /// Lets the view do all that it has put off, and reads the frame.
    void Settle()
    {
        while (m_view.Refine(50)) {
        }
        Read();
    }

    /// Reads the frame that the view shows. @return what the view answered.
    bool Read(OrvikCore::PixelOrder order = OrvikCore::PixelOrder::Rgba)
    {
        int width = 0;
        int height = 0;
        m_view.GetWindowSize(width, height);
        m_pixels.assign(std::size_t{4} * static_cast<std::size_t>(width * height), 0);
        return m_view.ReadFrame({m_pixels.data(), std::ptrdiff_t{4} * width, width, height, order});
    }

    int Paints() const { return m_paints; }
    int Waits() const { return m_waits; }
    const std::vector<unsigned char>& Pixels() const { return m_pixels; }

private:
    View3dOpenGlSG& m_view;
    int m_paints = 0;
    int m_waits = 0;
    double m_ratio = 1.0;
    std::vector<unsigned char> m_pixels;
};

} // namespace ViewOpenGl

#endif
