#include "Projection.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <cmath>

namespace ViewOpenGl {
namespace {

/// Nearest plane of a perspective picture, as a share of the farthest: keeps the depth buffer's
/// 24 bits useful.
constexpr double kNearestShare = 1e-3;

double dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

void cross(const double* a, const double* b, double* out)
{
    out[0] = a[1] * b[2] - a[2] * b[1];
    out[1] = a[2] * b[0] - a[0] * b[2];
    out[2] = a[0] * b[1] - a[1] * b[0];
}

void normalize(double* v)
{
    const double length = std::sqrt(dot(v, v));
    for (int i = 0; i < 3; ++i)
        v[i] = length > 0.0 ? v[i] / length : 0.0;
}

/// Writes the rows right, up and backward of the eye and its position into @p view.
void writeView(const double* right, const double* up, const double* forward, const double* eye,
               double* view)
{
    for (int i = 0; i < 3; ++i) {
        view[4 * i + 0] = right[i];
        view[4 * i + 1] = up[i];
        view[4 * i + 2] = -forward[i];
        view[4 * i + 3] = 0.0;
    }
    view[12] = -dot(right, eye);
    view[13] = -dot(up, eye);
    view[14] = dot(forward, eye);
    view[15] = 1.0;
}

void writeOrthographic(double halfWidth, double halfHeight, double nearest, double farthest,
                       float* m)
{
    std::fill(m, m + 16, 0.0f);
    m[0] = static_cast<float>(1.0 / halfWidth);
    m[5] = static_cast<float>(1.0 / halfHeight);
    m[10] = static_cast<float>(-2.0 / (farthest - nearest));
    m[14] = static_cast<float>(-(farthest + nearest) / (farthest - nearest));
    m[15] = 1.0f;
}

void writePerspective(double tangent, double aspect, double nearest, double farthest, float* m)
{
    std::fill(m, m + 16, 0.0f);
    m[0] = static_cast<float>(1.0 / (tangent * aspect));
    m[5] = static_cast<float>(1.0 / tangent);
    m[10] = static_cast<float>(-(farthest + nearest) / (farthest - nearest));
    m[11] = -1.0f;
    m[14] = static_cast<float>(-2.0 * farthest * nearest / (farthest - nearest));
}

} // namespace

Projection MakeProjection(OrvikCore::ACamera& camera, int width, int height,
                          const TambVizCore::VizBox& scene)
{
    Projection result;
    result.orthographic = camera.IsOrthographic();
    float eyeF[3];
    float targetF[3];
    float upF[3];
    camera.GetCamera(eyeF, targetF, upF);
    double forward[3];
    double up[3];
    for (int i = 0; i < 3; ++i) {
        result.eye[i] = eyeF[i];
        forward[i] = static_cast<double>(targetF[i]) - static_cast<double>(eyeF[i]);
        up[i] = upF[i];
    }
    const double distance = std::sqrt(dot(forward, forward));
    normalize(forward);
    double right[3];
    cross(forward, up, right);
    normalize(right);
    cross(right, forward, up);
    writeView(right, up, forward, result.eye, result.view);

    float centerF[3];
    scene.GetCenter(centerF);
    const double toCenter[3] = {centerF[0] - result.eye[0], centerF[1] - result.eye[1],
                                centerF[2] - result.eye[2]};
    const double radius = std::max(scene.Radius() * 1.01, distance * 1e-6);
    double nearest = dot(toCenter, forward) - radius;
    double farthest = dot(toCenter, forward) + radius;
    const double tangent = std::tan(static_cast<double>(camera.GetFieldOfViewRadians()) / 2.0);
    const double aspect = static_cast<double>(width) / static_cast<double>(height);
    if (result.orthographic) {
        const double halfHeight = std::max(distance * tangent, 1e-30);
        writeOrthographic(halfHeight * aspect, halfHeight, nearest, farthest, result.projection);
    } else {
        farthest = std::max(farthest, distance * 1e-3);
        nearest = std::max(nearest, farthest * kNearestShare);
        farthest = std::max(farthest, nearest * 1.001);
        writePerspective(tangent, aspect, nearest, farthest, result.projection);
    }
    return result;
}

} // namespace ViewOpenGl
