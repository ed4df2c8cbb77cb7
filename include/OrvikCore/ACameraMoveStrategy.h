#ifndef ORVIKCORE_ACAMERAMOVESTRATEGY_H
#define ORVIKCORE_ACAMERAMOVESTRATEGY_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class ACamera;
class IViewOp;

/// Turns a mouse drag into a new viewing triple of the camera that owns it.
///
/// A strategy ends every move with ACamera::SetCamera, which validates the triple.
/// @thread  The thread that owns the view.
class ORVIKCORE_API ACameraMoveStrategy
{
public:
    ACameraMoveStrategy(const ACameraMoveStrategy&) = delete;
    ACameraMoveStrategy& operator=(const ACameraMoveStrategy&) = delete;

    // Virtual operations in slot order; append only.

    virtual ~ACameraMoveStrategy();

    /// Moves the camera by the way of the pointer.
    ///
    /// @param op      a ViewOpRotate or a ViewOpPan; null and every other class are ignored.
    /// @param width   window width in pixels, not 0.
    /// @param height  window height in pixels, not 0.
    virtual void Move(IViewOp* op, float width, float height) = 0;

    /// @param camera  the camera that the new strategy moves; not owned.
    /// @return a new strategy of the same kind and state (transferred out).
    virtual ACameraMoveStrategy* CloneTo(ACamera* camera) = 0;

protected:
    /// @param camera  the camera to move; not owned, outlives the strategy.
    explicit ACameraMoveStrategy(ACamera* camera);

    ACamera* m_camera; ///< Not owned.
};

} // namespace OrvikCore

#endif
