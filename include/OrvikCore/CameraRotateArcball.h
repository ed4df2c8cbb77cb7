#ifndef ORVIKCORE_CAMERAROTATEARCBALL_H
#define ORVIKCORE_CAMERAROTATEARCBALL_H

#include "OrvikCore/ACameraRotateStrategy.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// Orbits the eye about the target.
class ORVIKCORE_API CameraRotateArcball : public ACameraRotateStrategy
{
public:
    /// @param camera  the camera to turn; not owned.
    explicit CameraRotateArcball(ACamera* camera);
    ~CameraRotateArcball() override;

    ACameraRotateStrategy* CloneTo(ACamera* camera) override;

protected:
    void rotate(float angleX, float angleY) override;
};

} // namespace OrvikCore

#endif
