#ifndef VIEWOPENGL_PROJECTION_H
#define VIEWOPENGL_PROJECTION_H

namespace OrvikCore {
class ACamera;
}
namespace TambVizCore {
class VizBox;
}

namespace ViewOpenGl {

/// How world units become pixels: two column-major matrices.
struct Projection
{
    double view[16] = {};      ///< World to eye: x right, y up, looking along -z.
    float projection[16] = {}; ///< Eye to clip space.
    bool orthographic = true;
    double eye[3] = {}; ///< World units.
};

/// Makes the matrices of a camera for a picture of a size; near and far enclose the scene.
///
/// The vertical opening angle gives the height of what is seen at the target, in both kinds of
/// projection, as ACamera::Make3DRay has it.
///
/// @param scene  Box around what is shown, world units; may be empty.
Projection MakeProjection(OrvikCore::ACamera& camera, int width, int height,
                          const TambVizCore::VizBox& scene);

} // namespace ViewOpenGl

#endif
