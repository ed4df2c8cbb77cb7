#include "TambVizCore/Vector.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace TambVizCore {

namespace {

/// Three doubles: sums and products of floats lose nothing before the one rounding at the end.
struct Wide
{
    double x;
    double y;
    double z;
};

Wide widen(const float* v)
{
    return {v[0], v[1], v[2]};
}

void store(const Wide& v, float* out)
{
    out[0] = static_cast<float>(v.x);
    out[1] = static_cast<float>(v.y);
    out[2] = static_cast<float>(v.z);
}

Wide operator+(const Wide& a, const Wide& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Wide operator-(const Wide& a, const Wide& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Wide operator*(const Wide& v, double scale)
{
    return {v.x * scale, v.y * scale, v.z * scale};
}

double dot(const Wide& a, const Wide& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Wide cross(const Wide& a, const Wide& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double length(const Wide& v)
{
    return std::sqrt(dot(v, v));
}

/// Writes the unit vector; false for a zero vector and for one that is not finite.
bool unit(const Wide& v, Wide& out)
{
    const double size = length(v);
    if (!(size > 0.0) || !std::isfinite(size)) {
        return false;
    }
    out = {v.x / size, v.y / size, v.z / size};
    return true;
}

bool isSmall(const Wide& v)
{
    const double tolerance = kVectorTolerance;
    return std::abs(v.x) <= tolerance && std::abs(v.y) <= tolerance && std::abs(v.z) <= tolerance;
}

/// Rodrigues' formula about the origin; @p axis has unit length.
Wide rotate(const Wide& v, double angle, const Wide& axis)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return v * c + cross(axis, v) * s + axis * (dot(axis, v) * (1.0 - c));
}

double toRadians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

} // namespace

void Subtract(const float* a, const float* b, float* out)
{
    for (int i = 0; i < 3; ++i) {
        out[i] = a[i] - b[i];
    }
}

void Add(const float* a, const float* b, float* out)
{
    for (int i = 0; i < 3; ++i) {
        out[i] = a[i] + b[i];
    }
}

void Multiply(float* vector, float scale)
{
    for (int i = 0; i < 3; ++i) {
        vector[i] *= scale;
    }
}

void Normalize(float* vector)
{
    const Wide v = widen(vector);
    const double size = length(v);
    // Deliberate: a zero vector is divided by zero as well and becomes NaN.
    // Held by Vector.NormalizeOfAZeroVectorIsNotANumber.
    store({v.x / size, v.y / size, v.z / size}, vector);
}

float Length(const float* vector)
{
    return static_cast<float>(length(widen(vector)));
}

float DotProduct(const float* a, const float* b)
{
    return static_cast<float>(dot(widen(a), widen(b)));
}

void CrossProduct(const float* a, const float* b, float* out)
{
    store(cross(widen(a), widen(b)), out);
}

bool AreClose(float a, float b)
{
    return std::abs(static_cast<double>(a) - static_cast<double>(b)) <=
           static_cast<double>(kVectorTolerance);
}

bool AreClose(const float* a, const float* b)
{
    return AreClose(a[0], b[0]) && AreClose(a[1], b[1]) && AreClose(a[2], b[2]);
}

bool AreOpposite(const float* a, const float* b)
{
    Wide unitA{};
    Wide unitB{};
    return unit(widen(a), unitA) && unit(widen(b), unitB) && isSmall(unitA + unitB);
}

float GetAngleRadians(const float* a, const float* b)
{
    Wide unitA{};
    Wide unitB{};
    if (!unit(widen(a), unitA) || !unit(widen(b), unitB)) {
        return 0.0f;
    }
    if (isSmall(unitA - unitB)) {
        return 0.0f;
    }
    if (isSmall(unitA + unitB)) {
        return kPi;
    }
    const double angle = std::atan2(length(cross(unitA, unitB)), dot(unitA, unitB));
    return std::min(static_cast<float>(angle), kPi);
}

float GetAngleRadians(const float* a, const float* b, const float* axis)
{
    const float angle = GetAngleRadians(a, b);
    if (angle == kPi) {
        return angle;
    }
    return dot(cross(widen(a), widen(b)), widen(axis)) < 0.0 ? -angle : angle;
}

void RotatePointRadians(const float* point, double angle, const float* centre, const float* axis,
                        float* out)
{
    Wide unitAxis{};
    if (!unit(widen(axis), unitAxis)) {
        store(widen(point), out);
        return;
    }
    const Wide foot = widen(centre);
    store(rotate(widen(point) - foot, angle, unitAxis) + foot, out);
}

void RotatePoint(const float* point, double angleDegrees, const float* centre, const float* axis,
                 float* out)
{
    RotatePointRadians(point, toRadians(angleDegrees), centre, axis, out);
}

void RotatePointAroundOrigin(const float* point, double angleDegrees, const float* axis, float* out)
{
    const float origin[3] = {0.0f, 0.0f, 0.0f};
    RotatePointRadians(point, toRadians(angleDegrees), origin, axis, out);
}

void GetRayVector(int x, int y, int width, int height, const float* eye, const float* target,
                  const float* up, float viewWidth, float viewHeight, bool perspective,
                  float* outOrigin, float* outDirection)
{
    // The place in the plane of sight, as fractions of its width and height from its middle.
    const double s = width > 0 ? (x + 0.5) / width - 0.5 : 0.0;
    const double t = height > 0 ? 0.5 - (y + 0.5) / height : 0.0;

    const Wide foot = widen(eye);
    const Wide sight = widen(target) - foot;
    Wide right{};
    Wide trueUp{};
    if (!unit(cross(sight, widen(up)), right) || !unit(cross(right, sight), trueUp)) {
        right = {};
        trueUp = {};
    }
    const Wide offset = right * (s * static_cast<double>(viewWidth)) +
                        trueUp * (t * static_cast<double>(viewHeight));
    store(perspective ? foot : foot + offset, outOrigin);
    store(perspective ? sight + offset : sight, outDirection);
}

} // namespace TambVizCore
