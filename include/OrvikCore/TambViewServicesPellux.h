#ifndef ORVIKCORE_TAMBVIEWSERVICESPELLUX_H
#define ORVIKCORE_TAMBVIEWSERVICESPELLUX_H

#include "OrvikCore/Export.h"

#include <TambCommandsInfra/ITambViewServices.h>

#include <vector>

/// The view services of scripts: camera, kinds of drawing, tessellation, drawings.
///
/// Each operation finds the current session's view, its camera, its renderers or the application's
/// view manipulator and forwards; without them it does nothing, or reports false.
///
/// @thread Main thread; the public operations of the base bring calls there.
class ORVIKCORE_API TambViewServicesPellux : public ITambViewServices
{
public:
    TambViewServicesPellux();
    ~TambViewServicesPellux() override;

private:
    void ZoomToBoxImpl(double xMin, double yMin, double zMin, double xMax, double yMax,
                       double zMax) override;
    void UpdateDisplayImpl() override;
    void RerenderImpl() override;
    void IsoImpl() override;
    void FrontImpl() override;
    void BackImpl() override;
    void TopImpl() override;
    void BottomImpl() override;
    void RightImpl() override;
    void LeftImpl() override;
    void DisplayFacesImpl(bool show) override;
    void DisplayEdgesImpl(bool show) override;
    void DisplayVerticesImpl(bool show) override;
    void DisplayTessellationImpl(bool show) override;
    void DisplayCloudsImpl(bool show) override;
    void DisplayPMIImpl(bool show) override;

    /// Shows or hides the view object named "AxesViewObject" when its visibility differs.
    void DisplayAxesImpl(bool show) override;

    /// @throws std::logic_error "Camera is missing" when the view has no camera.
    void GetCameraImpl(double& eyeX, double& eyeY, double& eyeZ, double& targetX, double& targetY,
                       double& targetZ, double& upX, double& upY, double& upZ) override;

    /// @throws std::logic_error "Camera is missing" when the view has no camera.
    void SetCameraImpl(double eyeX, double eyeY, double eyeZ, double targetX, double targetY,
                       double targetZ, double upX, double upY, double upZ) override;
    bool SetTessellationParametersImpl(double sag, double step, double maxAngle) override;
    bool GetTessellationParametersImpl(double& sag, double& step, double& maxAngle) override;
    void SetUseIncrementalRenderingImpl(bool use) override;
    bool GetUseIncrementalRenderingImpl() override;
    void DrawArrowImpl(double fromX, double fromY, double fromZ, double toX, double toY,
                       double toZ) override;
    void DrawTessellationDataImpl(std::vector<float>& vertices, std::vector<float>& normals,
                                  std::vector<float>& colors, std::vector<int>& indices) override;
    void ClearDrawingObjectsImpl() override;
};

#endif
