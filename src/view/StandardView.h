#ifndef ORVIKCORE_VIEW_STANDARDVIEW_H
#define ORVIKCORE_VIEW_STANDARDVIEW_H

namespace TambVizCore {
class IView3D;
}

namespace OrvikCore {

/// 1 / sqrt(2), computed in double and rounded.
inline constexpr float kInverseRootOfTwo = 0.70710677f;

/// @param view  may be null, which counts as an empty view.
/// @return the distance from which the standard position shows the view's geometry, world units.
float StandardDistance(const TambVizCore::IView3D* view, float fieldOfViewRadians);

/// Writes the centre of the view's geometry, the origin without view.
/// @param center  float[3], world units; written.
void CopyGeometryCenter(const TambVizCore::IView3D* view, float* center);

} // namespace OrvikCore

#endif
