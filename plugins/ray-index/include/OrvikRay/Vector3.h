#ifndef ORVIKRAY_VECTOR3_H
#define ORVIKRAY_VECTOR3_H

#include <cmath>
#include <cstddef>

namespace OrvikRay {

/// Three double-precision components: vertices and query lines are exact in it, and products of
/// two of their components round below what a float can tell.
struct Vector3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    double operator[](std::size_t axis) const { return axis == 0 ? x : axis == 1 ? y : z; }
};

inline Vector3 operator+(const Vector3& a, const Vector3& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vector3 operator-(const Vector3& a, const Vector3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vector3 operator*(const Vector3& a, double factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}

inline double Dot(const Vector3& a, const Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vector3 Cross(const Vector3& a, const Vector3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double Length(const Vector3& a)
{
    return std::sqrt(Dot(a, a));
}

/// @return a vector of the same direction and unit length; zeros for one without length.
inline Vector3 Normalized(const Vector3& a)
{
    const double length = Length(a);
    return length > 0.0 ? a * (1.0 / length) : Vector3{};
}

/// @param point  float[3].
inline Vector3 ToVector3(const float* point)
{
    return {double{point[0]}, double{point[1]}, double{point[2]}};
}

/// @param target  float[3], overwritten.
inline void Store(const Vector3& vector, float* target)
{
    target[0] = static_cast<float>(vector.x);
    target[1] = static_cast<float>(vector.y);
    target[2] = static_cast<float>(vector.z);
}

} // namespace OrvikRay

#endif
