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

/// Keeps the matrix finite where the eye is on the target or the opening angle is 0.
constexpr double kLeastHeight = 1e-30;

/// Beyond any picture.
constexpr double kVeryFar = 1e30;

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

/// The share of the depths by which they are widened, so that rounding cuts nothing off, and the
/// pixels that lines and points may come forward.
constexpr double kDepthMargin = 0.01;
constexpr double kDepthMarginPixels = 4.0;

double nearestOf(const TambVizCore::VizBox& box)
{
    return -box.Hi()[2];
}

double farthestOf(const TambVizCore::VizBox& box)
{
    return -box.Lo()[2];
}

/// @return where a place beside the line of sight is seen, per unit of depth.
double atDepth(double place, double depth)
{
    return depth > 0.0 ? place / depth : std::copysign(kVeryFar, place);
}

} // namespace

Projection MakeProjection(OrvikCore::ACamera& camera, int width, int height)
{
    Projection result;
    result.orthographic = camera.IsOrthographic();
    float eyeF[3];
    float targetF[3];
    float upF[3];
    camera.GetCamera(eyeF, targetF, upF);
    double eye[3];
    double forward[3];
    double up[3];
    for (int i = 0; i < 3; ++i) {
        eye[i] = eyeF[i];
        forward[i] = static_cast<double>(targetF[i]) - eye[i];
        up[i] = upF[i];
    }
    const double distance = std::sqrt(dot(forward, forward));
    normalize(forward);
    double right[3];
    cross(forward, up, right);
    normalize(right);
    cross(right, forward, up);
    writeView(right, up, forward, eye, result.view);
    const double tangent = std::tan(static_cast<double>(camera.GetFieldOfViewRadians()) / 2.0);
    result.halfHeight = std::max(result.orthographic ? distance * tangent : tangent, kLeastHeight);
    result.aspect = static_cast<double>(width) / static_cast<double>(height);
    result.pixelSize = 2.0 * result.halfHeight / static_cast<double>(height);
    return result;
}

bool IsInSight(const Projection& projection, const TambVizCore::VizBox& box, double pixels)
{
    if (box.IsEmpty() || (!projection.orthographic && farthestOf(box) <= 0.0))
        return false;
    // What is seen grows with the depth in perspective; the far side of the box sees most.
    const double depth = projection.orthographic ? 1.0 : farthestOf(box);
    const double margin = pixels * projection.pixelSize * depth;
    const double up = projection.halfHeight * depth + margin;
    const double side = projection.halfHeight * depth * projection.aspect + margin;
    return box.Lo()[0] <= side && box.Hi()[0] >= -side && box.Lo()[1] <= up && box.Hi()[1] >= -up;
}

double PixelsAcross(const Projection& projection, const TambVizCore::VizBox& box)
{
    constexpr double kVeryLarge = 1e9;
    const double depth = projection.orthographic ? 1.0 : nearestOf(box);
    const double pixel = projection.pixelSize * depth;
    return pixel > 0.0 ? std::min(2.0 * box.Radius() / pixel, kVeryLarge) : kVeryLarge;
}

double PixelsCovered(const Projection& projection, const TambVizCore::VizBox& box)
{
    if (box.IsEmpty() || !(projection.pixelSize > 0.0))
        return 0.0;
    const double half[2] = {projection.halfHeight * projection.aspect, projection.halfHeight};
    double pixels = 1.0;
    for (int i = 0; i < 2; ++i) {
        double lo = box.Lo()[i];
        double hi = box.Hi()[i];
        if (!projection.orthographic) {
            // Near sides reach farther from the middle, and all sides where the eye is in between.
            const double nearest = std::max(nearestOf(box), 0.0);
            const double farthest = std::max(farthestOf(box), 0.0);
            lo = atDepth(lo, lo < 0.0 ? nearest : farthest);
            hi = atDepth(hi, hi > 0.0 ? nearest : farthest);
        }
        const double seen = std::min(hi, half[i]) - std::max(lo, -half[i]);
        pixels *= std::max(seen, 0.0) / projection.pixelSize;
    }
    return pixels;
}

void FitDepth(Projection& projection, const TambVizCore::VizBox& box)
{
    double nearest = nearestOf(box);
    double farthest = farthestOf(box);
    const double pixel =
        projection.pixelSize * (projection.orthographic ? 1.0 : std::max(farthest, 0.0));
    const double margin =
        kDepthMargin * std::max(farthest - nearest, std::abs(farthest) * kNearestShare) +
        kDepthMarginPixels * pixel * projection.lineScale;
    nearest -= margin;
    farthest += margin;
    if (projection.orthographic) {
        if (!(farthest > nearest))
            farthest = nearest + 1.0;
        writeOrthographic(projection.halfHeight * projection.aspect, projection.halfHeight, nearest,
                          farthest, projection.projection);
    } else {
        if (!(farthest > 0.0))
            farthest = 1.0;
        nearest = std::max(nearest, farthest * kNearestShare);
        writePerspective(projection.halfHeight, projection.aspect, nearest, farthest,
                         projection.projection);
    }
    projection.nearest = nearest;
    projection.farthest = farthest;
}

} // namespace ViewOpenGl
