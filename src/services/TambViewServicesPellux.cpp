#include "OrvikCore/TambViewServicesPellux.h"

#include "CurrentSession.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/AViewManipulator.h"
#include "OrvikCore/AViewObject.h"
#include "OrvikCore/AppController.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/IViewObjectProvider.h"
#include "OrvikCore/ViewObjectManager.h"

#include <TambVizCore/IView3D.h>
#include <TambVizCore/Settings.h>

#include <stdexcept>

using OrvikCore::ACamera;
using OrvikCore::ASession;
using OrvikCore::AViewManipulator;
using OrvikCore::IContentRenderer;
using TambVizCore::Settings;

namespace {

constexpr char kCameraMissing[] = "Camera is missing";
constexpr char kAxesName[] = "AxesViewObject";

// The camera of the current session's view; null when the view is no camera provider.
ACamera* findCamera()
{
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(OrvikCore::FindCurrentView());
    return provider != nullptr ? provider->GetCamera() : nullptr;
}

ACamera& requireCamera()
{
    ACamera* const camera = findCamera();
    if (camera == nullptr) {
        throw std::logic_error(kCameraMissing);
    }
    return *camera;
}

void turnCamera(void (ACamera::*standardView)())
{
    if (ACamera* const camera = findCamera()) {
        (camera->*standardView)();
    }
}

void show(void (AViewManipulator::*kind)(bool), bool isShown)
{
    if (AViewManipulator* const manipulator =
            OrvikCore::AppController::Instance().GetViewManipulator()) {
        (manipulator->*kind)(isShown);
    }
}

IContentRenderer* findFirstRenderer()
{
    const ASession* const session = OrvikCore::FindCurrentSession();
    return session != nullptr ? session->Get3DRendererForFirstContent() : nullptr;
}

// The current session when it has a view to draw in, else null.
ASession* findSessionWithView()
{
    ASession* const session = OrvikCore::FindCurrentSession();
    return session != nullptr && session->View3D() != nullptr ? session : nullptr;
}

} // namespace

TambViewServicesPellux::TambViewServicesPellux() = default;

TambViewServicesPellux::~TambViewServicesPellux() = default;

void TambViewServicesPellux::ZoomToBoxImpl(double xMin, double yMin, double zMin, double xMax,
                                           double yMax, double zMax)
{
    if (ACamera* const camera = findCamera()) {
        camera->ZoomToBox(static_cast<float>(xMin), static_cast<float>(yMin),
                          static_cast<float>(zMin), static_cast<float>(xMax),
                          static_cast<float>(yMax), static_cast<float>(zMax));
    }
}

void TambViewServicesPellux::UpdateDisplayImpl()
{
    // Through the session, whose observer also brings the picture to the host's window.
    if (ASession* const session = findSessionWithView()) {
        session->UpdateDisplay();
    }
}

void TambViewServicesPellux::RerenderImpl()
{
    if (ASession* const session = findSessionWithView()) {
        session->Rerender();
    }
}

void TambViewServicesPellux::IsoImpl()
{
    turnCamera(&ACamera::Isometric);
}

void TambViewServicesPellux::FrontImpl()
{
    turnCamera(&ACamera::Front);
}

void TambViewServicesPellux::BackImpl()
{
    turnCamera(&ACamera::Back);
}

void TambViewServicesPellux::TopImpl()
{
    turnCamera(&ACamera::Top);
}

void TambViewServicesPellux::BottomImpl()
{
    turnCamera(&ACamera::Bottom);
}

void TambViewServicesPellux::RightImpl()
{
    turnCamera(&ACamera::Right);
}

void TambViewServicesPellux::LeftImpl()
{
    turnCamera(&ACamera::Left);
}

void TambViewServicesPellux::DisplayFacesImpl(bool isShown)
{
    show(&AViewManipulator::DisplayFaces, isShown);
}

void TambViewServicesPellux::DisplayEdgesImpl(bool isShown)
{
    show(&AViewManipulator::DisplayEdges, isShown);
}

void TambViewServicesPellux::DisplayVerticesImpl(bool isShown)
{
    show(&AViewManipulator::DisplayVertices, isShown);
}

void TambViewServicesPellux::DisplayTessellationImpl(bool isShown)
{
    show(&AViewManipulator::DisplayTessellation, isShown);
}

void TambViewServicesPellux::DisplayCloudsImpl(bool isShown)
{
    show(&AViewManipulator::DisplayClouds, isShown);
}

void TambViewServicesPellux::DisplayPMIImpl(bool isShown)
{
    show(&AViewManipulator::DisplayPMI, isShown);
}

void TambViewServicesPellux::DisplayAxesImpl(bool isShown)
{
    auto* const provider =
        dynamic_cast<OrvikCore::IViewObjectProvider*>(OrvikCore::FindCurrentView());
    OrvikCore::ViewObjectManager* const manager =
        provider != nullptr ? provider->GetViewObjectManager() : nullptr;
    OrvikCore::AViewObject* const axes = manager != nullptr ? manager->Get(kAxesName) : nullptr;
    if (axes != nullptr && axes->IsVisible() != isShown) {
        axes->SetIsVisible(isShown);
    }
}

void TambViewServicesPellux::GetCameraImpl(double& eyeX, double& eyeY, double& eyeZ,
                                           double& targetX, double& targetY, double& targetZ,
                                           double& upX, double& upY, double& upZ)
{
    float eye[3];
    float target[3];
    float up[3];
    requireCamera().GetCamera(eye, target, up);
    eyeX = eye[0];
    eyeY = eye[1];
    eyeZ = eye[2];
    targetX = target[0];
    targetY = target[1];
    targetZ = target[2];
    upX = up[0];
    upY = up[1];
    upZ = up[2];
}

void TambViewServicesPellux::SetCameraImpl(double eyeX, double eyeY, double eyeZ, double targetX,
                                           double targetY, double targetZ, double upX, double upY,
                                           double upZ)
{
    float eye[3] = {static_cast<float>(eyeX), static_cast<float>(eyeY), static_cast<float>(eyeZ)};
    float target[3] = {static_cast<float>(targetX), static_cast<float>(targetY),
                       static_cast<float>(targetZ)};
    float up[3] = {static_cast<float>(upX), static_cast<float>(upY), static_cast<float>(upZ)};
    requireCamera().SetCamera(eye, target, up);
}

bool TambViewServicesPellux::SetTessellationParametersImpl(double sag, double step, double maxAngle)
{
    IContentRenderer* const renderer = findFirstRenderer();
    if (renderer == nullptr) {
        return false;
    }
    renderer->SetTesselationParamters(sag, step, maxAngle);
    return true;
}

bool TambViewServicesPellux::GetTessellationParametersImpl(double& sag, double& step,
                                                           double& maxAngle)
{
    const IContentRenderer* const renderer = findFirstRenderer();
    return renderer != nullptr && renderer->GetTessellationParameters(sag, step, maxAngle);
}

void TambViewServicesPellux::SetUseIncrementalRenderingImpl(bool use)
{
    if (Settings* const settings = Settings::Current()) {
        settings->SetUseIncrementalRendering(use);
    }
}

bool TambViewServicesPellux::GetUseIncrementalRenderingImpl()
{
    const Settings* const settings = Settings::Current();
    return settings != nullptr && settings->GetUseIncrementalRendering();
}

void TambViewServicesPellux::DrawArrowImpl(double fromX, double fromY, double fromZ, double toX,
                                           double toY, double toZ)
{
    if (ASession* const session = OrvikCore::FindCurrentSession()) {
        session->DrawArrow(fromX, fromY, fromZ, toX, toY, toZ);
    }
}

void TambViewServicesPellux::DrawTessellationDataImpl(std::vector<float>& vertices,
                                                      std::vector<float>& normals,
                                                      std::vector<float>& colors,
                                                      std::vector<int>& indices)
{
    if (ASession* const session = OrvikCore::FindCurrentSession()) {
        session->DrawTessellationData(vertices, normals, colors, indices);
    }
}

void TambViewServicesPellux::ClearDrawingObjectsImpl()
{
    if (ASession* const session = OrvikCore::FindCurrentSession()) {
        session->ClearDrawingObjects();
    }
}
