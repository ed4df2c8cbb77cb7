#ifndef ORVIKMODEL_CONTENT_VECTORS_H
#define ORVIKMODEL_CONTENT_VECTORS_H

#include <OrvikRay/Vector3.h>

namespace OrvikModel {

using OrvikRay::Vector3;

/// @param out  double[3], overwritten.
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
