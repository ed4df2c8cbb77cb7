#include "TambCommandsInfra/ITambViewServices.h"

#include "TambCommandsInfra/CallGate.h"

using TambCommandsInfra::CallGate;

ITambViewServices::ITambViewServices() : ITambServiceSet(TambServiceKind::View) {}

ITambViewServices::~ITambViewServices() = default;

void ITambViewServices::ZoomToBox(double xMin, double yMin, double zMin, double xMax, double yMax,
                                  double zMax)
{
    CallGate::Call([&] { ZoomToBoxImpl(xMin, yMin, zMin, xMax, yMax, zMax); });
}

void ITambViewServices::UpdateDisplay()
{
    CallGate::Call([&] { UpdateDisplayImpl(); });
}

void ITambViewServices::Rerender()
{
    CallGate::Call([&] { RerenderImpl(); });
}

void ITambViewServices::Iso()
{
    CallGate::Call([&] { IsoImpl(); });
}

void ITambViewServices::Front()
{
    CallGate::Call([&] { FrontImpl(); });
}

void ITambViewServices::Back()
{
    CallGate::Call([&] { BackImpl(); });
}

void ITambViewServices::Top()
{
    CallGate::Call([&] { TopImpl(); });
}

void ITambViewServices::Bottom()
{
    CallGate::Call([&] { BottomImpl(); });
}

void ITambViewServices::Right()
{
    CallGate::Call([&] { RightImpl(); });
}

void ITambViewServices::Left()
{
    CallGate::Call([&] { LeftImpl(); });
}

void ITambViewServices::DisplayFaces(bool show)
{
    CallGate::Call([&] { DisplayFacesImpl(show); });
}

void ITambViewServices::DisplayEdges(bool show)
{
    CallGate::Call([&] { DisplayEdgesImpl(show); });
}

void ITambViewServices::DisplayVertices(bool show)
{
    CallGate::Call([&] { DisplayVerticesImpl(show); });
}

void ITambViewServices::DisplayTessellation(bool show)
{
    CallGate::Call([&] { DisplayTessellationImpl(show); });
}

void ITambViewServices::DisplayClouds(bool show)
{
    CallGate::Call([&] { DisplayCloudsImpl(show); });
}

void ITambViewServices::DisplayPMI(bool show)
{
    CallGate::Call([&] { DisplayPMIImpl(show); });
}

void ITambViewServices::DisplayAxes(bool show)
{
    CallGate::Call([&] { DisplayAxesImpl(show); });
}

void ITambViewServices::GetCamera(double& eyeX, double& eyeY, double& eyeZ, double& targetX,
                                  double& targetY, double& targetZ, double& upX, double& upY,
                                  double& upZ)
{
    CallGate::Call(
        [&] { GetCameraImpl(eyeX, eyeY, eyeZ, targetX, targetY, targetZ, upX, upY, upZ); });
}

void ITambViewServices::SetCamera(double eyeX, double eyeY, double eyeZ, double targetX,
                                  double targetY, double targetZ, double upX, double upY,
                                  double upZ)
{
    CallGate::Call(
        [&] { SetCameraImpl(eyeX, eyeY, eyeZ, targetX, targetY, targetZ, upX, upY, upZ); });
}

bool ITambViewServices::SetTessellationParameters(double sag, double step, double maxAngle)
{
    return CallGate::Call([&] { return SetTessellationParametersImpl(sag, step, maxAngle); });
}

bool ITambViewServices::GetTessellationParameters(double& sag, double& step, double& maxAngle)
{
    return CallGate::Call([&] { return GetTessellationParametersImpl(sag, step, maxAngle); });
}

void ITambViewServices::SetUseIncrementalRendering(bool use)
{
    CallGate::Call([&] { SetUseIncrementalRenderingImpl(use); });
}

bool ITambViewServices::GetUseIncrementalRendering()
{
    return CallGate::Call([&] { return GetUseIncrementalRenderingImpl(); });
}

void ITambViewServices::DrawArrow(double fromX, double fromY, double fromZ, double toX, double toY,
                                  double toZ)
{
    CallGate::Call([&] { DrawArrowImpl(fromX, fromY, fromZ, toX, toY, toZ); });
}

void ITambViewServices::DrawTessellationData(std::vector<float>& vertices,
                                             std::vector<float>& normals,
                                             std::vector<float>& colors, std::vector<int>& indices)
{
    CallGate::Call([&] { DrawTessellationDataImpl(vertices, normals, colors, indices); });
}

void ITambViewServices::ClearDrawingObjects()
{
    CallGate::Call([&] { ClearDrawingObjectsImpl(); });
}
