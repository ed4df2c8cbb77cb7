#ifndef ORVIKCORE_CAMERAROTATEWITHCENTER_H
#define ORVIKCORE_CAMERAROTATEWITHCENTER_H

#include "OrvikCore/CameraRotateArcball.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// Orbits eye and target about a centre of its own, which stays where it is on the screen.
///
/// Angles below 0.01 degrees count as none, and every other turn is at least one degree. With the
/// centre on the target it is the arcball. The default rotate strategy of every camera.
class ORVIKCORE_API CameraRotateWithCenter : public CameraRotateArcball
{
public:
    /// @param camera  the camera to turn; not owned.
    explicit CameraRotateWithCenter(ACamera* camera);
    ~CameraRotateWithCenter() override;

    /// @return a copy (transferred out) with the same centre, bound to @p camera.
    ACameraRotateStrategy* CloneTo(ACamera* camera) override;

    /// Writes the centre. @param center  float[3], world units.
    void GetRotationCenter(float* center) override;

    /// Keeps the centre. @param center  float[3], world units.
    void SetRotationCenter(const float* center) override;

protected:
    void rotate(float angleX, float angleY) override;

    /// Turns a viewing triple about the centre.
    ///
    /// @param angleX  degrees about the up vector.
    /// @param angleY  degrees about the horizontal axis.
    /// @param eye     float[3], world units; turned in place.
    /// @param target  float[3], world units; turned in place.
    /// @param up      float[3]; squared up with the viewing direction and turned in place.
    void calculateCamera(float angleX, float angleY, float* const eye, float* const target,
                         float* const up);

private:
    float m_center[3] = {0.0f, 0.0f, 0.0f}; ///< World units.
};

} // namespace OrvikCore

#endif
