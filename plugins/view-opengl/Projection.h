#ifndef VIEWOPENGL_PROJECTION_H
#define VIEWOPENGL_PROJECTION_H

namespace OrvikCore {
class ACamera;
}
namespace TambVizCore {
class VizBox;
}

namespace ViewOpenGl {

/// How world units become pixels: two column-major matrices and what they were made from.
struct Projection
{
    double view[16] = {};      ///< World to eye: x right, y up, looking along -z.
    float projection[16] = {}; ///< Eye to clip space; written by FitDepth.
    bool orthographic = true;
    double halfHeight = 0.0; ///< Half of what is seen vertically: world units in parallel
                             ///< projection, per unit of depth in perspective.
    double aspect = 1.0;     ///< Width through height.
    double pixelSize = 0.0;  ///< Size of a pixel, in the units of halfHeight.
    double lineScale = 1.0;  ///< Lines and points are drawn so many times as wide as they say.
    double nearest = 0.0;    ///< Depths (-z in eye space) that are kept apart; world units.
    double farthest = 0.0;
};

/// Places the eye of a camera for a picture of a size; FitDepth makes it complete.
///
/// The vertical opening angle gives the height of what is seen at the target, in both kinds of
/// projection, as ACamera::Make3DRay has it.
Projection MakeProjection(OrvikCore::ACamera& camera, int width, int height);

/// @param box     in eye space.
/// @param pixels  how far what is drawn reaches beyond the box: lines and points are wider than
///                what they stand for.
/// @return false when nothing in it can be seen, whatever its depth in parallel projection.
bool IsInSight(const Projection& projection, const TambVizCore::VizBox& box, double pixels = 0.0);

/// @param box  in eye space.
/// @return the length of its diagonal where it is nearest, pixels; very large when the eye is in
/// it.
double PixelsAcross(const Projection& projection, const TambVizCore::VizBox& box);

/// @param box  in eye space.
/// @return how many pixels of the picture lie in front of or behind the box, at most.
double PixelsCovered(const Projection& projection, const TambVizCore::VizBox& box);

/// Writes the projection matrix for what lies in a box; an empty one gives any good matrix.
///
/// In perspective the nearest depth stays above a thousandth of the farthest.
///
/// @param box  around all that is drawn, in eye space.
void FitDepth(Projection& projection, const TambVizCore::VizBox& box);

} // namespace ViewOpenGl

#endif
