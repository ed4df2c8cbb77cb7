#ifndef VIEWOPENGL_OBJECTS_ROTATIONMARK_H
#define VIEWOPENGL_OBJECTS_ROTATIONMARK_H

#include "objects/NodeObject.h"
#include "objects/PixelSize.h"

namespace ViewOpenGl {

/// The name under which views keep the mark; commands look for it.
inline constexpr char kRotationMarkName[] = "RotationCenterViewObject";

/// Marks the point that the camera turns around: three circles along the axes of the world, of one
/// size in pixels. Visible only on request; a view shows it also while it turns.
class RotationMark final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param parent  the scene that is drawn in front of the model.
    explicit RotationMark(TambVizCore::Node& parent);

    /// Fits it to the picture that comes next.
    ///
    /// @param center     double[3], world units.
    /// @param isTurning  whether it is shown without a request.
    void Adapt(const PictureScale& scale, const double* center, bool isTurning);

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;
};

} // namespace ViewOpenGl

#endif
