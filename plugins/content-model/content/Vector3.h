#ifndef ORVIKMODEL_CONTENT_VECTOR3_H
#define ORVIKMODEL_CONTENT_VECTOR3_H

#include <cmath>
#include <cstddef>

namespace OrvikModel {

/// A point or a direction in double precision.
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

inline void Write(const Vector3& a, double* out)
{
    out[0] = a.x;
    out[1] = a.y;
    out[2] = a.z;
}

/// @param matrix  double[16] column-major.
/// @param point   float[3].
inline Vector3 PlacePoint(const double* matrix, const float* point)
{
    const auto x = static_cast<double>(point[0]);
    const auto y = static_cast<double>(point[1]);
    const auto z = static_cast<double>(point[2]);
    return {matrix[0] * x + matrix[4] * y + matrix[8] * z + matrix[12],
            matrix[1] * x + matrix[5] * y + matrix[9] * z + matrix[13],
            matrix[2] * x + matrix[6] * y + matrix[10] * z + matrix[14]};
}

} // namespace OrvikModel

#endif
