#ifndef TAMBVIZCORE_MATRIX_H
#define TAMBVIZCORE_MATRIX_H

#include "TambVizCore/Export.h"

/// Functions on affine 4x4 transforms: double[16], column-major, columns x, y, z, translation.
///
/// @thread Any thread; there is no state.
namespace TambVizCore {

/// Writes the identity.
TAMBVIZCORE_API void SetIdentity(double* matrix);

/// @return true when all sixteen numbers are exactly those of the identity.
TAMBVIZCORE_API bool IsIdentity(const double* matrix);

/// Writes @p a * @p b (first b, then a, acts on a point); @p out may be an input.
TAMBVIZCORE_API void MultiplyMatrices(const double* a, const double* b, double* out);

/// Writes the inverse of an affine matrix.
///
/// @return false, with @p out untouched, when the upper left 3x3 part cannot be inverted or any
///         number is not finite. @p out may be @p matrix.
TAMBVIZCORE_API bool InvertMatrix(const double* matrix, double* out);

/// @return the determinant of the upper left 3x3 part; negative when the transform mirrors.
TAMBVIZCORE_API double Determinant3x3(const double* matrix);

/// Writes the transformed point float[3]; @p out may be @p point.
TAMBVIZCORE_API void TransformPoint(const double* matrix, const float* point, float* out);

/// Writes the transformed direction float[3] (no translation); @p out may be @p direction.
TAMBVIZCORE_API void TransformDirection(const double* matrix, const float* direction, float* out);

/// Writes the transformed and normalised normal float[3].
///
/// @param inverse  the inverse of the transform that acts on points; its transpose is applied.
TAMBVIZCORE_API void TransformNormal(const double* inverse, const float* normal, float* out);

} // namespace TambVizCore

#endif
