#ifndef TESTS_SERVICEFAKES_H
#define TESTS_SERVICEFAKES_H

#include "FakeView3D.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IViewObjectProvider.h"
#include "OrvikCore/TextItem3D.h"
#include "OrvikCore/ViewObjectManager.h"

#include <string>
#include <thread>
#include <vector>

/// A camera that remembers its calls.
class StandardViewCamera : public OrvikCore::ACamera
{
public:
    StandardViewCamera() : ACamera(nullptr) {}

    char* GetName() override { return m_name; }
    void GetCamera(float* eye, float* target, float* up) override
    {
        for (int i = 0; i < 3; ++i) {
            eye[i] = m_triple[i];
            target[i] = m_triple[3 + i];
            up[i] = m_triple[6 + i];
        }
    }
    void SetCamera(float* eye, float* target, float* up) override
    {
        for (int i = 0; i < 3; ++i) {
            m_triple[i] = eye[i];
            m_triple[3 + i] = target[i];
            m_triple[6 + i] = up[i];
        }
    }
    void SetStandardPosition(float*, float*, float*) override {}
    void Top() override
    {
        m_calls.push_back("Top");
        m_callers.push_back(std::this_thread::get_id());
    }
    void Bottom() override { m_calls.push_back("Bottom"); }
    void Front() override { m_calls.push_back("Front"); }
    void Back() override { m_calls.push_back("Back"); }
    void Right() override { m_calls.push_back("Right"); }
    void Left() override { m_calls.push_back("Left"); }
    void Isometric() override { m_calls.push_back("Isometric"); }
    void ZoomToBox(float x1, float y1, float z1, float x2, float y2, float z2) override
    {
        m_calls.push_back("ZoomToBox");
        m_box = {x1, y1, z1, x2, y2, z2};
    }

    std::vector<std::string> m_calls;
    std::vector<std::thread::id> m_callers; ///< Who called Top().
    std::vector<float> m_box;
    float m_triple[9] = {1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f, 8.0f, 9.0f};

protected:
    OrvikCore::ACamera* cloneTo(TambVizCore::IView3D*) const override { return nullptr; }
    void setFront(float* const, float* const, float* const, bool) override {}

private:
    char m_name[32] = "StandardViewCamera";
};

/// A view with a camera that can be taken away.
class FakeCameraView : public FakeView3D, public OrvikCore::ICameraProvider
{
public:
    OrvikCore::ACamera* GetCamera() override { return m_hasCamera ? &m_camera : nullptr; }

    StandardViewCamera m_camera;
    bool m_hasCamera = true;
};

/// A view with view objects that remembers what it was asked to draw.
class FakeObjectView : public FakeView3D, public OrvikCore::IViewObjectProvider
{
public:
    using Polylines = std::vector<std::vector<double>>;

    OrvikCore::ViewObjectManager* GetViewObjectManager() override
    {
        return m_hasManager ? &m_manager : nullptr;
    }
    void DrawMarkupObjects(Polylines const&, TambVizCore::RGBAColor const&) override {}
    void DrawMarkupObjects(Polylines const&, bool, bool, TambVizCore::RGBAColor const&) override {}
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
