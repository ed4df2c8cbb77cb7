#ifndef ORVIKCORE_CAMERAYUP_H
#define ORVIKCORE_CAMERAYUP_H

#include "OrvikCore/ACamera.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// The camera whose standard views take the y axis as up: the front view looks along -z.
class ORVIKCORE_API CameraYUp : public ACamera
{
public:
    /// Looks from (100, 0, 0) at the origin with up (0, 0, 1) and 45 degrees.
    ///
    /// Deliberate: the start is that of the z-up camera; y points up from the first named view on.
    /// Held by CameraYUp.StartsLikeTheZUpCamera.
    /// @param view  the view served; not owned, null for a prototype.
    explicit CameraYUp(TambVizCore::IView3D* view);
    ~CameraYUp() override;

    /// @return "CameraYUp".
    char* GetName() override;

    void SetStandardPosition(float* eye, float* target, float* up) override;
    void Top() override;
    void Bottom() override;
    void Front() override;
    void Back() override;
    void Right() override;
    void Left() override;
    void Isometric() override;

protected:
    CameraYUp(const CameraYUp&) = default;

    ACamera* cloneTo(TambVizCore::IView3D* view) const override;
    void setFront(float* const eye, float* const target, float* const up,
                  bool keepDistance) override;

private:
    void applyTurned(float degrees, float axisX, float axisY, float axisZ, const float* newUp);
};

} // namespace OrvikCore

#endif
