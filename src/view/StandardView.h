#ifndef ORVIKCORE_VIEW_STANDARDVIEW_H
#define ORVIKCORE_VIEW_STANDARDVIEW_H

namespace TambVizCore {
class IView3D;
}

namespace OrvikCore {

/// 1 / sqrt(2), computed in double and rounded.
inline constexpr float kInverseRootOfTwo = 0.70710677f;

/// What turns the front view into another named view.
struct ViewTurn
{
    float degrees;   ///< Of the eye about the target, right-handed.
    float axis[3];   ///< Of that turn.
    const float* up; ///< The new up vector, float[3]; null keeps that of the front. Not owned.
};

/// @param view  may be null, which counts as an empty view.
/// @return the distance from which the standard position shows the view's geometry, world units.
float StandardDistance(const TambVizCore::IView3D* view, float fieldOfViewRadians);

/// Moves a standard position to the view's geometry: the target becomes the geometry's centre, the
/// origin without view, and the eye keeps its offset from the target.
/// @param eye     float[3], in: offset from the target; out: position, world units.
/// @param target  float[3], world units; written.
void MoveToGeometry(const TambVizCore::IView3D* view, float* eye, float* target);

/// Turns a front view.
/// @param eye  float[3]; turned about @p target.
/// @param up   float[3]; replaced where the turn has an up vector.
void TurnFront(const ViewTurn& turn, float* eye, const float* target, float* up);

/// Turns a front view into the isometric one: the eye by 45 degrees about the vertical, then eye
/// and up vector by 45 degrees about the horizontal.
/// @param vertical    float[3], the axis that points up.
/// @param horizontal  float[3], the axis across the turned view.
void TurnFrontToIsometric(const float* vertical, const float* horizontal, float* eye,
                          const float* target, float* up);

} // namespace OrvikCore

#endif
