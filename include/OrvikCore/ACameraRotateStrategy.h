#ifndef ORVIKCORE_ACAMERAROTATESTRATEGY_H
#define ORVIKCORE_ACAMERAROTATESTRATEGY_H

#include "OrvikCore/ACameraMoveStrategy.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// A move strategy that turns the camera about a centre.
class ORVIKCORE_API ACameraRotateStrategy : public ACameraMoveStrategy
{
public:
    // Virtual operations in slot order; append only.

    ~ACameraRotateStrategy() override;

    /// Turns the camera by the way of the pointer: a whole window is 180 degrees.
    void Move(IViewOp* op, float width, float height) override;

    ACameraRotateStrategy* CloneTo(ACamera* camera) override = 0;

    /// Writes the centre of rotation, here the camera's target.
    /// @param center  float[3], world units; written.
    virtual void GetRotationCenter(float* center);

    /// Sets the centre of rotation; ignored here.
    /// @param center  float[3], world units; read only.
    virtual void SetRotationCenter(const float* center);

protected:
    explicit ACameraRotateStrategy(ACamera* camera);

    /// Turns the camera.
    /// @param angleX  degrees about the up vector, positive for a drag to the right.
    /// @param angleY  degrees about the horizontal axis, positive for a drag downwards.
    virtual void rotate(float angleX, float angleY) = 0;
};

} // namespace OrvikCore

#endif
