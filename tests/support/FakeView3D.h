#ifndef TESTS_FAKEVIEW3D_H
#define TESTS_FAKEVIEW3D_H

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/VizBox.h>

#include <map>
#include <string>
#include <vector>

/// An adapter with options and answers that a test sets.
class FakeView3DAdapter : public TambVizCore::AView3DAdapter
{
public:
    bool GetRenderIdAtPixel(int, int, TambVizCore::RenderId& id) override
    {
        id = m_idAtPixel;
        return !id.IsEmpty();
    }
    bool GetSurfacePointAtPixel(int, int, float* point) override
    {
        if (!m_hasPoint) {
            return false;
        }
        point[0] = m_point[0];
        point[1] = m_point[1];
        point[2] = m_point[2];
        return true;
    }
    TambVizCore::RenderingOptions* GetRenderingOptions() override
    {
        return m_hasOptions ? &m_options : nullptr;
    }
    TambVizCore::IHighlightStrategy* GetHighlightStrategy() override { return m_strategy; }
    void GetViewportSize(int& width, int& height) const override { width = height = 0; }
    void ResizeViewport(int, int) override {}
    bool GetViewportBackground(int, TambVizCore::RGBAColor&) const override { return false; }
    bool SetViewportBackground(int, const TambVizCore::RGBAColor&) override { return false; }
    void ClearViewport() override {}

    TambVizCore::RenderId m_idAtPixel;
    bool m_hasPoint = false;
    float m_point[3] = {0.0f, 0.0f, 0.0f};
    bool m_hasOptions = true;
    TambVizCore::RenderingOptions m_options;
    TambVizCore::IHighlightStrategy* m_strategy = nullptr; ///< Not owned.
};

/// A view without a picture: a scene root, a selection, and answers that a test sets.
class FakeView3D : public TambVizCore::IView3D
{
public:
    std::string GetName() const override { return "FakeView3D"; }
    void GetSceneGraphStructure(std::string& out, bool withParts) override
    {
        out.clear();
        m_root.Print(out, withParts);
    }
    void GetWindowSize(int& width, int& height) const override
    {
        width = m_width;
        height = m_height;
    }
    void SetWindowSize(int width, int height) override
    {
        m_width = width;
        m_height = height;
    }
    void* GetWindowHandle() const override { return m_handle; }
    void SetWindowHandle(void* handle) override { m_handle = handle; }
    float GetGeometryRadius() const override { return m_radius; }
    const float* GetGeometryCenter() const override { return m_center; }
    bool GetBoundingBox(const TambVizCore::RenderId& id, TambVizCore::VizBox& box) override
    {
        m_boxIdAsked = id;
        box = m_box;
        return !m_box.IsEmpty();
    }
    bool GetBoundingBox(const TambVizCore::EntityId&, TambVizCore::VizBox& box) override
    {
        box = m_box;
        return !m_box.IsEmpty();
    }
    bool Convert(const TambVizCore::RenderId&, TambVizCore::EntityId&) override { return false; }
    TambVizCore::Node& GetSceneRoot() override { return m_root; }
    TambVizCore::SelectionHolder* GetSelectionHolder() override { return &m_selection; }
    TambVizCore::AView3DAdapter* GetView3DAdapter() override
    {
        return m_hasAdapter ? &m_adapter : nullptr;
    }
    bool NotifyPick(const TambVizCore::Ray&) override { return m_takesPicks; }
    bool GetBackgroundColor(int number, TambVizCore::RGBAColor& color) const override
    {
        const auto found = m_backgrounds.find(number);
        if (found == m_backgrounds.end()) {
            return false;
        }
        color = found->second;
        return true;
    }
    bool SetBackgroundColor(int number, const TambVizCore::RGBAColor& color) override
    {
        m_backgrounds[number] = color;
        return true;
    }
    void Clear() override { m_calls.push_back("Clear"); }
    void UpdateDisplay() override { m_calls.push_back("UpdateDisplay"); }
    void Rerender() override { m_calls.push_back("Rerender"); }
    bool ReadImage(int, int, TambVizCore::Image&) override { return false; }

    std::vector<std::string> m_calls;
    int m_width = 800;
    int m_height = 600;
    void* m_handle = nullptr;
    float m_radius = 0.0f;
    float m_center[3] = {0.0f, 0.0f, 0.0f};
    TambVizCore::VizBox m_box; ///< The answer of GetBoundingBox(); false while empty.
    TambVizCore::RenderId m_boxIdAsked;
    TambVizCore::Node m_root{1, "root"};
    TambVizCore::SelectionHolder m_selection;
    bool m_hasAdapter = true;
    FakeView3DAdapter m_adapter;
    bool m_takesPicks = false;
    std::map<int, TambVizCore::RGBAColor> m_backgrounds;
};

#endif
