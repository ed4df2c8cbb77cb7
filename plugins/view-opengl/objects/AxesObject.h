#ifndef VIEWOPENGL_OBJECTS_AXESOBJECT_H
#define VIEWOPENGL_OBJECTS_AXESOBJECT_H

#include "objects/NodeObject.h"

namespace ViewOpenGl {

/// The name under which views keep their axes; OrvikCore's services look for it.
inline constexpr char kAxesName[] = "AxesViewObject";

/// The directions of the world in a corner of the picture: three arrows with the letters X, Y, Z in
/// red, green and blue. Hidden at first.
class AxesObject final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param parent  the scene that is drawn in the corner.
    explicit AxesObject(TambVizCore::Node& parent);

    /// Turns the letters to the eye.
    /// @param view  double[16], world to eye.
    void Turn(const double* view);

    /// @return half the side of the square that shows the axes in every position, in their units.
    static double Reach();

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;
};

} // namespace ViewOpenGl

#endif
