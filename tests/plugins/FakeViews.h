#ifndef TESTS_FAKEVIEWS_H
#define TESTS_FAKEVIEWS_H

#include "FakeView3D.h"
#include "LoggingFactory.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/AView3D.h"
#include "OrvikCore/AView3DControllerAdapter.h"
#include "OrvikCore/CameraYUp.h"
#include "OrvikCore/Controller.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IControllerProvider.h"
#include "OrvikCore/IViewObjectProvider.h"

#include <string>
#include <vector>

/// A camera that remembers the boxes that it was sent to: lowest corner, highest corner.
class RecordingCamera : public OrvikCore::CameraYUp
{
public:
    RecordingCamera() : CameraYUp(nullptr) {}

    void ZoomToBox(float x1, float y1, float z1, float x2, float y2, float z2) override
    {
        m_boxes.push_back({x1, y1, z1, x2, y2, z2});
    }

    std::vector<std::vector<float>> m_boxes;
};

/// A view with everything that a session looks for: controller, camera, markup.
class FullFakeView : public FakeView3D,
                     public OrvikCore::IControllerProvider,
                     public OrvikCore::ICameraProvider,
                     public OrvikCore::IViewObjectProvider
{
public:
    ~FullFakeView() override { LogCall("FullFakeView", "deleted"); }

    OrvikCore::Controller* GetController() const override { return m_controller; }
    OrvikCore::ACamera* GetCamera() override { return m_hasCamera ? &m_camera : nullptr; }
    OrvikCore::ViewObjectManager* GetViewObjectManager() override { return nullptr; }
    void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines,
                           TambVizCore::RGBAColor const&) override
    {
        m_draws.push_back("open polylines " + std::to_string(polylines.size()));
    }
    void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines, bool closed,
                           bool filled, TambVizCore::RGBAColor const&) override
    {
        m_draws.push_back("polylines " + std::to_string(polylines.size()) +
                          (closed ? " closed" : "") + (filled ? " filled" : ""));
    }
    void DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2) override
    {
        m_arrow = {x1, y1, z1, x2, y2, z2};
        m_draws.push_back("arrow");
    }
    void DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                              std::vector<float>& colors, std::vector<int>& indices) override
    {
        m_sizes = {points.size(), normals.size(), colors.size(), indices.size()};
        m_draws.push_back("tessellation");
    }
    void ClearDrawingObjects() override { m_draws.push_back("clear"); }
    void DrawTextItems(std::vector<OrvikCore::TextItem3D> const&) override {}

    OrvikCore::Controller* m_controller = nullptr; ///< Not owned.
    bool m_hasCamera = true;
    RecordingCamera m_camera;
    std::vector<std::string> m_draws;
    std::vector<double> m_arrow;
    std::vector<std::size_t> m_sizes; ///< Of the lists of the last tessellation.
};

/// A view on the base that the core offers, without a picture.
class CoreFakeView : public OrvikCore::AView3D
{
public:
    float GetGeometryRadius() const override { return 0.0f; }
    const float* GetGeometryCenter() const override { return m_center; }
    bool GetBoundingBox(const TambVizCore::RenderId&, TambVizCore::VizBox&) override
    {
        return false;
    }
    bool GetBoundingBox(const TambVizCore::EntityId&, TambVizCore::VizBox&) override
    {
        return false;
    }
    TambVizCore::Node& GetSceneRoot() override { return m_root; }
    void UpdateDisplay() override {}
    void Rerender() override {}
    bool ReadImage(int, int, TambVizCore::Image&) override { return false; }
    bool GetRenderIdAtPixel(int, int, TambVizCore::RenderId&) override { return false; }
    bool GetSurfacePointAtPixel(int, int, float*) override { return false; }
    TambVizCore::IHighlightStrategy* GetHighlightStrategy() override { return nullptr; }
    void GetViewportSize(int& width, int& height) const override { width = height = 0; }
    void ResizeViewport(int, int) override {}
    bool GetViewportBackground(int, TambVizCore::RGBAColor&) const override { return false; }
    bool SetViewportBackground(int, const TambVizCore::RGBAColor&) override { return false; }
    void ClearViewport() override {}

private:
    float m_center[3] = {0.0f, 0.0f, 0.0f};
    TambVizCore::Node m_root{1, "root"};
};

/// A controller adapter that has a controller.
class FakeControllerAdapter : public OrvikCore::AView3DControllerAdapter,
                              public OrvikCore::IControllerProvider
{
public:
    /// An address that is no controller, only to be compared.
    static OrvikCore::Controller* Marker() { return reinterpret_cast<OrvikCore::Controller*>(8); }

    OrvikCore::Controller* GetController() const override { return Marker(); }
};

/// A controller adapter that has none.
class AdapterWithoutController : public OrvikCore::AView3DControllerAdapter
{
};

#endif
