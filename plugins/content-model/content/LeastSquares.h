#ifndef ORVIKMODEL_CONTENT_LEASTSQUARES_H
#define ORVIKMODEL_CONTENT_LEASTSQUARES_H

#include "content/Vectors.h"

#include <array>

/// The little linear algebra that fitting shapes needs.
///
/// @thread  Any thread.
namespace OrvikModel {

using Matrix3 = std::array<std::array<double, 3>, 3>;

/// Adds the product of a vector with itself, times a weight.
void AddOuter(Matrix3& matrix, const Vector3& a, double weight);

/// The eigenvalues of a symmetric matrix with their unit vectors, least value first.
struct Eigen
{
    double value[3];
    Vector3 vector[3];
};

/// Finds them by Jacobi's rotations.
Eigen FindEigen(Matrix3 matrix);

/// Equations for four unknowns, to be met as well as possible.
class LeastSquares4
{
public:
    /// Adds the equation factors . unknowns = value.
    void Add(const std::array<double, 4>& factors, double value);

    /// @return false, with @p unknowns untouched, when the equations leave one of them open.
    bool Solve(std::array<double, 4>& unknowns) const;

private:
    /// The normal equations; the last column is their right side.
    std::array<std::array<double, 5>, 4> m_rows{};
};

} // namespace OrvikModel

#endif
