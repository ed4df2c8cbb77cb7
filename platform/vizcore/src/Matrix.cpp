#include "TambVizCore/Matrix.h"

#include <algorithm>
#include <cmath>

namespace TambVizCore {

void SetIdentity(double* matrix)
{
    for (int i = 0; i < 16; ++i) {
        matrix[i] = i % 5 == 0 ? 1.0 : 0.0;
    }
}

bool IsIdentity(const double* matrix)
{
    for (int i = 0; i < 16; ++i) {
        if (matrix[i] != (i % 5 == 0 ? 1.0 : 0.0)) {
            return false;
        }
    }
    return true;
}

void MultiplyMatrices(const double* a, const double* b, double* out)
{
    double product[16];
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) {
                sum += a[k * 4 + row] * b[column * 4 + k];
            }
            product[column * 4 + row] = sum;
        }
    }
    std::copy(product, product + 16, out);
}

double Determinant3x3(const double* m)
{
    return m[0] * (m[5] * m[10] - m[6] * m[9]) - m[4] * (m[1] * m[10] - m[2] * m[9]) +
           m[8] * (m[1] * m[6] - m[2] * m[5]);
}

bool InvertMatrix(const double* m, double* out)
{
    for (int i = 0; i < 16; ++i) {
        if (!std::isfinite(m[i])) {
            return false;
        }
    }
    const double determinant = Determinant3x3(m);
    if (!std::isnormal(determinant) || !std::isfinite(1.0 / determinant)) {
        return false;
    }
    const double f = 1.0 / determinant;
    double inverse[16] = {(m[5] * m[10] - m[6] * m[9]) * f,
                          (m[2] * m[9] - m[1] * m[10]) * f,
                          (m[1] * m[6] - m[2] * m[5]) * f,
                          0.0,
                          (m[6] * m[8] - m[4] * m[10]) * f,
                          (m[0] * m[10] - m[2] * m[8]) * f,
                          (m[2] * m[4] - m[0] * m[6]) * f,
                          0.0,
                          (m[4] * m[9] - m[5] * m[8]) * f,
                          (m[1] * m[8] - m[0] * m[9]) * f,
                          (m[0] * m[5] - m[1] * m[4]) * f,
                          0.0,
                          0.0,
                          0.0,
                          0.0,
                          1.0};
    for (int row = 0; row < 3; ++row) {
        inverse[12 + row] =
            -(inverse[row] * m[12] + inverse[4 + row] * m[13] + inverse[8 + row] * m[14]);
    }
    std::copy(inverse, inverse + 16, out);
    return true;
}

void TransformPoint(const double* m, const float* point, float* out)
{
    const double x = point[0];
    const double y = point[1];
    const double z = point[2];
    for (int row = 0; row < 3; ++row) {
        out[row] = static_cast<float>(m[row] * x + m[4 + row] * y + m[8 + row] * z + m[12 + row]);
    }
}

void TransformDirection(const double* m, const float* direction, float* out)
{
    const double x = direction[0];
    const double y = direction[1];
    const double z = direction[2];
    for (int row = 0; row < 3; ++row) {
        out[row] = static_cast<float>(m[row] * x + m[4 + row] * y + m[8 + row] * z);
    }
}

void TransformNormal(const double* inverse, const float* normal, float* out)
{
    double turned[3];
    double squares = 0.0;
    for (int column = 0; column < 3; ++column) {
        turned[column] = 0.0;
        for (int row = 0; row < 3; ++row) {
            turned[column] += inverse[column * 4 + row] * static_cast<double>(normal[row]);
        }
        squares += turned[column] * turned[column];
    }
    const double size = std::sqrt(squares);
    for (int i = 0; i < 3; ++i) {
        out[i] = size > 0.0 ? static_cast<float>(turned[i] / size) : 0.0f;
    }
}

} // namespace TambVizCore
