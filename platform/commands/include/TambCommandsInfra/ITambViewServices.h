#ifndef TAMBCOMMANDSINFRA_ITAMBVIEWSERVICES_H
#define TAMBCOMMANDSINFRA_ITAMBVIEWSERVICES_H

#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/ITambServiceSet.h"

#include <vector>

/// What scripts may ask of the view: camera, kinds of drawing, tessellation, simple drawings.
///
/// Every operation waits for the main thread. Without a session, view, renderer or manipulator the
/// operations do nothing, those with a result report false. See ITambServiceSet for threads and
/// errors.
class TAMBCOMMANDSINFRA_API ITambViewServices : public ITambServiceSet
{
public:
    ~ITambViewServices() override;

    /// Zooms so that the box, in world units, fills the view.
    void ZoomToBox(double xMin, double yMin, double zMin, double xMax, double yMax, double zMax);

    /// Draws the view where something has changed.
    void UpdateDisplay();

    /// Draws the whole view again.
    void Rerender();

    /// Turn the camera to one of the standard directions.
    void Iso();
    void Front();
    void Back();
    void Top();
    void Bottom();
    void Right();
    void Left();

    /// Switch one kind of drawing on (true) or off.
    void DisplayFaces(bool show);
    void DisplayEdges(bool show);
    void DisplayVertices(bool show);
    void DisplayTessellation(bool show);
    void DisplayClouds(bool show);
    void DisplayPMI(bool show);
    void DisplayAxes(bool show);

    /// Gives the camera's eye and target in world units, and its up direction.
    ///
    /// @throws std::logic_error "Camera is missing" when the view has no camera.
    void GetCamera(double& eyeX, double& eyeY, double& eyeZ, double& targetX, double& targetY,
                   double& targetZ, double& upX, double& upY, double& upZ);

    /// Moves the camera; eye and target in world units.
    ///
    /// @throws std::logic_error "Camera is missing" when the view has no camera.
    void SetCamera(double eyeX, double eyeY, double eyeZ, double targetX, double targetY,
                   double targetZ, double upX, double upY, double upZ);

    /// Sets how finely the first content is tessellated.
    ///
    /// @param sag       Largest distance between surface and triangles, in world units.
    /// @param step      Longest edge of a triangle, in world units.
    /// @param maxAngle  Largest angle between neighbours, as the renderer takes it.
    /// @return false when there is no renderer for it.
    bool SetTessellationParameters(double sag, double step, double maxAngle);

    /// Gives what SetTessellationParameters() set.
    ///
    /// @return false when there is no renderer; the arguments are then left alone.
    bool GetTessellationParameters(double& sag, double& step, double& maxAngle);

    /// Sets and reads whether large scenes are drawn in slices.
    void SetUseIncrementalRendering(bool use);
    bool GetUseIncrementalRendering();

    /// Draws an arrow between two points in world units; it stays until ClearDrawingObjects().
    void DrawArrow(double fromX, double fromY, double fromZ, double toX, double toY, double toZ);

    /// Draws triangles; they stay until ClearDrawingObjects().
    ///
    /// The lists are handed on as they are; the session may change them.
    void DrawTessellationData(std::vector<float>& vertices, std::vector<float>& normals,
                              std::vector<float>& colors, std::vector<int>& indices);

    /// Removes what the two operations before have drawn.
    void ClearDrawingObjects();

protected:
    ITambViewServices();

private:
    // Virtual operations in slot order; append only.
    virtual void ZoomToBoxImpl(double xMin, double yMin, double zMin, double xMax, double yMax,
                               double zMax) = 0;
    virtual void UpdateDisplayImpl() = 0;
    virtual void RerenderImpl() = 0;
    virtual void IsoImpl() = 0;
    virtual void FrontImpl() = 0;
    virtual void BackImpl() = 0;
    virtual void TopImpl() = 0;
    virtual void BottomImpl() = 0;
    virtual void RightImpl() = 0;
    virtual void LeftImpl() = 0;
    virtual void DisplayFacesImpl(bool show) = 0;
    virtual void DisplayEdgesImpl(bool show) = 0;
    virtual void DisplayVerticesImpl(bool show) = 0;
    virtual void DisplayTessellationImpl(bool show) = 0;
    virtual void DisplayCloudsImpl(bool show) = 0;
    virtual void DisplayPMIImpl(bool show) = 0;
    virtual void DisplayAxesImpl(bool show) = 0;
    virtual void GetCameraImpl(double& eyeX, double& eyeY, double& eyeZ, double& targetX,
                               double& targetY, double& targetZ, double& upX, double& upY,
                               double& upZ) = 0;
    virtual void SetCameraImpl(double eyeX, double eyeY, double eyeZ, double targetX,
                               double targetY, double targetZ, double upX, double upY,
                               double upZ) = 0;
    virtual bool SetTessellationParametersImpl(double sag, double step, double maxAngle) = 0;
    virtual bool GetTessellationParametersImpl(double& sag, double& step, double& maxAngle) = 0;
    virtual void SetUseIncrementalRenderingImpl(bool use) = 0;
    virtual bool GetUseIncrementalRenderingImpl() = 0;
    virtual void DrawArrowImpl(double fromX, double fromY, double fromZ, double toX, double toY,
                               double toZ) = 0;
    virtual void DrawTessellationDataImpl(std::vector<float>& vertices, std::vector<float>& normals,
                                          std::vector<float>& colors,
                                          std::vector<int>& indices) = 0;
    virtual void ClearDrawingObjectsImpl() = 0;
};

#endif
