#include "StandardView.h"

#include <TambVizCore/IView3D.h>

#include <algorithm>
#include <cmath>

namespace OrvikCore {

namespace {

/// What an empty view is taken for, in world units.
constexpr float kRadiusOfNothing = 10.0f;

/// A model in a standard view has this much room about it.
constexpr float kMargin = 1.5f;

} // namespace

float StandardDistance(const TambVizCore::IView3D* view, float fieldOfViewRadians)
{
    const float geometryRadius = view != nullptr ? view->GetGeometryRadius() : 0.0f;
    const float radius = geometryRadius == 0.0f ? kRadiusOfNothing : geometryRadius;
    return radius / std::tan(fieldOfViewRadians / 2.0f) * kMargin;
}

void CopyGeometryCenter(const TambVizCore::IView3D* view, float* center)
{
    if (view != nullptr) {
        std::copy_n(view->GetGeometryCenter(), 3, center);
    } else {
        std::fill_n(center, 3, 0.0f);
    }
}

} // namespace OrvikCore
