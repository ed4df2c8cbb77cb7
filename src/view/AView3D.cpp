#include "OrvikCore/AView3D.h"

#include "DisplayColors.h"
#include "ViewTexts.h"

#include "OrvikCore/CameraYUp.h"
#include "OrvikCore/Controller.h"
#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpTargetCamera.h"
#include "OrvikCore/ViewOpZoom.h"

#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/Settings.h>

#include <stdexcept>

namespace OrvikCore {

AView3D::AView3D()
    : m_camera(std::make_unique<CameraYUp>(this)),
      m_controller(std::make_unique<Controller>()),
      m_selectionHolder(std::make_unique<TambVizCore::SelectionHolder>()),
      m_options(TambVizCore::RenderingOptions::CreateDefault())
{
    m_options.SetShowFaces(true);
    m_options.SetShowEdges(true);
    m_options.SetShowVertices(false);
    m_options.SetShowTessellation(false);
    m_options.SetShowPointClouds(true);
    m_options.SetShowPMI(true);
    if (const TambVizCore::Settings* settings = TambVizCore::Settings::Current()) {
        ApplyDisplayColors(*settings, m_options);
    }
    SetView3D(this);
    TambVizCore::AView3DAdapter::AttachView(this);
    m_controller->AddListener(this);
}

AView3D::~AView3D()
{
    m_controller->RemoveListener(this);
}

std::string AView3D::GetName() const
{
    return kViewName;
}

void AView3D::GetSceneGraphStructure(std::string& out, bool)
{
    out = kNoGraphStructure;
}

void AView3D::GetWindowSize(int& width, int& height) const
{
    GetViewportSize(width, height);
}

void AView3D::SetWindowSize(int width, int height)
{
    ResizeViewport(width, height);
}

void* AView3D::GetWindowHandle() const
{
    return m_windowHandle;
}

void AView3D::SetWindowHandle(void* handle)
{
    m_windowHandle = handle;
}

bool AView3D::Convert(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity)
{
    return ConvertToEntity(id, entity);
}

TambVizCore::SelectionHolder* AView3D::GetSelectionHolder()
{
    return m_selectionHolder.get();
}

TambVizCore::AView3DAdapter* AView3D::GetView3DAdapter()
{
    return this;
}

bool AView3D::NotifyPick(const TambVizCore::Ray&)
{
    return false;
}

bool AView3D::GetBackgroundColor(int number, TambVizCore::RGBAColor& color) const
{
    return GetViewportBackground(number, color);
}

bool AView3D::SetBackgroundColor(int number, const TambVizCore::RGBAColor& color)
{
    return SetViewportBackground(number, color);
}

void AView3D::Clear()
{
    ClearViewport();
}

TambVizCore::RenderingOptions* AView3D::GetRenderingOptions()
{
    return &m_options;
}

ACamera* AView3D::GetCamera()
{
    return m_camera.get();
}

void AView3D::SetCamera(ACamera* camera)
{
    if (camera != nullptr && camera != m_camera.get()) {
        m_camera.reset(camera);
    }
}

Controller* AView3D::GetController() const
{
    return m_controller.get();
}

void AView3D::SetDocument(Document* document)
{
    m_document = document;
}

Document* AView3D::GetDocument() const
{
    return m_document;
}

void AView3D::ControllerNotify(IViewOp* op)
{
    if (op == nullptr) {
        return;
    }
    switch (op->Type()) {
    case ViewOpType::HitTest:
        hitTest(static_cast<ViewOpHitTest*>(op));
        break;
    case ViewOpType::Highlight:
        highlight(static_cast<ViewOpHighlight*>(op));
        break;
    case ViewOpType::Pan:
        m_camera->Pan(static_cast<ViewOpPan*>(op));
        break;
    case ViewOpType::Rotate:
        m_camera->Rotate(static_cast<ViewOpRotate*>(op));
        break;
    case ViewOpType::Zoom:
        m_camera->Zoom(static_cast<ViewOpZoom*>(op));
        break;
    case ViewOpType::RayPick: {
        auto* pick = static_cast<ViewOpRayPick*>(op);
        rayPick(pick);
        if (!ViewOpRayPick::IsReset(pick)) {
            ViewOpTargetCamera target(pick->MouseX(), pick->MouseY());
            targetCamera(&target);
        }
        break;
    }
    case ViewOpType::TargetCamera:
        targetCamera(static_cast<ViewOpTargetCamera*>(op));
        break;
    case ViewOpType::MouseMove:
        break;
    case ViewOpType::Drag:
        drag(static_cast<ViewOpDrag*>(op));
        break;
    default:
        throw std::invalid_argument(kInvalidOperation);
    }
}

TambVizCore::RenderId AView3D::buildRenderId(const TambVizCore::Node& node,
                                             std::uint64_t partId) const
{
    TambVizCore::RenderId id;
    MakeRenderId(node, partId, id);
    return id;
}

} // namespace OrvikCore
