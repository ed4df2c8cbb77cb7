#include "content/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace OrvikModel {

namespace {

/// Turns two axes so that the element between them vanishes; @p v collects the turns.
void rotate(Matrix3& a, Matrix3& v, std::size_t p, std::size_t q)
{
    if (a[p][q] == 0.0)
        return;
    const double theta = (a[q][q] - a[p][p]) / (2.0 * a[p][q]);
    const double t =
        (theta < 0.0 ? -1.0 : 1.0) / (std::abs(theta) + std::sqrt(theta * theta + 1.0));
    const double c = 1.0 / std::sqrt(t * t + 1.0);
    const double s = t * c;
    for (std::size_t k = 0; k < 3; ++k) {
        const double kp = a[k][p];
        const double kq = a[k][q];
        a[k][p] = c * kp - s * kq;
        a[k][q] = s * kp + c * kq;
    }
    for (std::size_t k = 0; k < 3; ++k) {
        const double pk = a[p][k];
        const double qk = a[q][k];
        a[p][k] = c * pk - s * qk;
        a[q][k] = s * pk + c * qk;
        const double vp = v[k][p];
        const double vq = v[k][q];
        v[k][p] = c * vp - s * vq;
        v[k][q] = s * vp + c * vq;
    }
}

/// Solves four equations by elimination with pivots. @return false when they are not independent.
bool solve(std::array<std::array<double, 5>, 4>& rows)
{
    double largest = 0.0;
    for (const auto& row : rows)
        for (std::size_t k = 0; k < 4; ++k)
            largest = std::max(largest, std::abs(row[k]));
    for (std::size_t i = 0; i < 4; ++i) {
        std::size_t pivot = i;
        for (std::size_t k = i + 1; k < 4; ++k)
            if (std::abs(rows[k][i]) > std::abs(rows[pivot][i]))
                pivot = k;
        if (!(std::abs(rows[pivot][i]) > 1e-12 * largest))
            return false;
        std::swap(rows[i], rows[pivot]);
        for (std::size_t k = 0; k < 4; ++k) {
            if (k == i)
                continue;
            const double factor = rows[k][i] / rows[i][i];
            for (std::size_t column = i; column < 5; ++column)
                rows[k][column] -= factor * rows[i][column];
        }
    }
    for (std::size_t i = 0; i < 4; ++i)
        rows[i][4] /= rows[i][i];
    return true;
}

} // namespace

void AddOuter(Matrix3& matrix, const Vector3& a, double weight)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            matrix[i][k] += weight * a[i] * a[k];
}

Eigen FindEigen(Matrix3 a)
{
    Matrix3 v{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    for (int sweep = 0; sweep < 30; ++sweep) {
        rotate(a, v, 0, 1);
        rotate(a, v, 0, 2);
        rotate(a, v, 1, 2);
    }
    std::array<std::size_t, 3> order{0, 1, 2};
    std::sort(order.begin(), order.end(),
              [&a](std::size_t i, std::size_t k) { return a[i][i] < a[k][k]; });
    Eigen eigen{};
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t from = order[i];
        eigen.value[i] = a[from][from];
        eigen.vector[i] = {v[0][from], v[1][from], v[2][from]};
    }
    return eigen;
}

void LeastSquares4::Add(const std::array<double, 4>& factors, double value)
{
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t k = 0; k < 4; ++k)
            m_rows[i][k] += factors[i] * factors[k];
        m_rows[i][4] += factors[i] * value;
    }
}

bool LeastSquares4::Solve(std::array<double, 4>& unknowns) const
{
    auto rows = m_rows;
    if (!solve(rows))
        return false;
    for (std::size_t i = 0; i < 4; ++i)
        unknowns[i] = rows[i][4];
    return true;
}

} // namespace OrvikModel
