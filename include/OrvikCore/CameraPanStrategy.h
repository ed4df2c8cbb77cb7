#ifndef ORVIKCORE_CAMERAPANSTRATEGY_H
#define ORVIKCORE_CAMERAPANSTRATEGY_H

#include "OrvikCore/ACameraMoveStrategy.h"
#include "OrvikCore/Export.h"

namespace OrvikCore {

/// Slides the camera parallel to the image plane: the point under the pointer at the depth of the
/// target follows the pointer.
class ORVIKCORE_API CameraPanStrategy : public ACameraMoveStrategy
{
public:
    /// @param camera  the camera to move; not owned.
    explicit CameraPanStrategy(ACamera* camera);
    ~CameraPanStrategy() override;

    void Move(IViewOp* op, float width, float height) override;
    ACameraMoveStrategy* CloneTo(ACamera* camera) override;
};

} // namespace OrvikCore

#endif
