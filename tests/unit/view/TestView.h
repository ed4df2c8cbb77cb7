#ifndef ORVIKCORE_TESTS_TESTVIEW_H
#define ORVIKCORE_TESTS_TESTVIEW_H

#include "OrvikCore/AView3D.h"
#include "OrvikCore/IViewObjectProvider.h"
#include "OrvikCore/ViewObjectManager.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/VizBox.h>

#include <string>
#include <vector>

/// A view on the core's base, without a picture: a scene, and answers that a test sets.
class TestView : public OrvikCore::AView3D
{
public:
    TestView() { GetSelectionHolder()->SetSceneRoot(&m_root); }
    ~TestView() override { GetSelectionHolder()->SetSceneRoot(nullptr); }

    float GetGeometryRadius() const override { return m_radius; }
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
    TambVizCore::AView3DAdapter* GetView3DAdapter() override
    {
        return m_hasAdapter ? AView3D::GetView3DAdapter() : nullptr;
    }
    bool NotifyPick(const TambVizCore::Ray& ray) override
    {
        m_picks.push_back(ray);
        return m_takesPicks;
    }
    void UpdateDisplay() override { m_calls.push_back("UpdateDisplay"); }
    void Rerender() override { m_calls.push_back("Rerender"); }
    bool ReadImage(int, int, TambVizCore::Image&) override { return false; }
    bool GetRenderIdAtPixel(int x, int y, TambVizCore::RenderId& id) override
    {
        m_calls.push_back("id at " + std::to_string(x) + " " + std::to_string(y));
        id = m_idAtPixel;
        return !id.IsEmpty();
    }
    bool GetSurfacePointAtPixel(int x, int y, float* point) override
    {
        m_calls.push_back("point at " + std::to_string(x) + " " + std::to_string(y));
        if (m_hasPoint) {
            std::copy_n(m_point, 3, point);
        }
        return m_hasPoint;
    }
    TambVizCore::IHighlightStrategy* GetHighlightStrategy() override { return nullptr; }
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
    bool GetViewportBackground(int number, TambVizCore::RGBAColor& color) const override
    {
        color = TambVizCore::RGBAColor(static_cast<std::uint8_t>(number), 2, 3);
        return number == 1;
    }
    bool SetViewportBackground(int number, const TambVizCore::RGBAColor& color) override
    {
        m_calls.push_back("background " + std::to_string(number) + " " + std::to_string(color.r));
        return number == 2;
    }
    void ClearViewport() override { m_calls.push_back("clear"); }

    using AView3D::buildRenderId;
    using AView3D::ControllerNotify;
    using AView3DControllerAdapter::callPick;
    using AView3DControllerAdapter::drag;
    using AView3DControllerAdapter::getCamera;
    using AView3DControllerAdapter::highlight;
    using AView3DControllerAdapter::hitTest;
    using AView3DControllerAdapter::moveRayRootOutsideModel;
    using AView3DControllerAdapter::rayPick;
    using AView3DControllerAdapter::targetCamera;

    TambVizCore::Node m_root{1, "root"};
    float m_radius = 0.0f;
    float m_center[3] = {0.0f, 0.0f, 0.0f};
    int m_width = 800;
    int m_height = 600;
    bool m_hasAdapter = true;
    bool m_takesPicks = false;
    std::vector<TambVizCore::Ray> m_picks; ///< What NotifyPick() was offered.
    TambVizCore::RenderId m_idAtPixel;     ///< Nothing while empty.
    bool m_hasPoint = false;
    float m_point[3] = {0.0f, 0.0f, 0.0f};
    std::vector<std::string> m_calls;
};

/// The same with view objects.
class TestObjectView : public TestView, public OrvikCore::IViewObjectProvider
{
public:
    OrvikCore::ViewObjectManager* GetViewObjectManager() override
    {
        return m_hasManager ? &m_manager : nullptr;
    }
    using OrvikCore::IViewObjectProvider::DrawMarkupObjects;
    void DrawMarkupObjects(std::vector<std::vector<double>> const&, bool, bool,
                           TambVizCore::RGBAColor const&) override
    {
    }
    void DrawArrow(double, double, double, double, double, double) override {}
    void DrawTessellationData(std::vector<float>&, std::vector<float>&, std::vector<float>&,
                              std::vector<int>&) override
    {
    }
    void ClearDrawingObjects() override {}
    void DrawTextItems(std::vector<OrvikCore::TextItem3D> const&) override {}

    bool m_hasManager = true;
    OrvikCore::ViewObjectManager m_manager{m_root};
};

#endif
