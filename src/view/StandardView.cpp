#include "StandardView.h"

#include <TambVizCore/IView3D.h>
#include <TambVizCore/Vector.h>

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

void MoveToGeometry(const TambVizCore::IView3D* view, float* eye, float* target)
{
    if (view != nullptr) {
        std::copy_n(view->GetGeometryCenter(), 3, target);
    } else {
        std::fill_n(target, 3, 0.0f);
    }
    TambVizCore::Add(target, eye, eye);
}

void TurnFront(const ViewTurn& turn, float* eye, const float* target, float* up)
{
    if (turn.degrees != 0.0f) {
        TambVizCore::RotatePoint(eye, turn.degrees, target, turn.axis, eye);
    }
    if (turn.up != nullptr) {
        std::copy_n(turn.up, 3, up);
    }
}

void TurnFrontToIsometric(const float* vertical, const float* horizontal, float* eye,
                          const float* target, float* up)
{
    TambVizCore::RotatePoint(eye, 45.0, target, vertical, eye);
    TambVizCore::RotatePoint(eye, 45.0, target, horizontal, eye);
    TambVizCore::RotatePointAroundOrigin(up, 45.0, horizontal, up);
}

} // namespace OrvikCore
