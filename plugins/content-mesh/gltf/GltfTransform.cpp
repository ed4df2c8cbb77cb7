#include "gltf/GltfTransform.h"

#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace OrvikMesh {

namespace {

/// Writes the rotation that a unit quaternion x, y, z, w stands for, with scaled columns.
void setRotationAndScale(const double* q, const double* scale, double* matrix)
{
    const double x = q[0];
    const double y = q[1];
    const double z = q[2];
    const double w = q[3];
    const double columns[3][3] = {
        {1.0 - 2.0 * (y * y + z * z), 2.0 * (x * y + z * w), 2.0 * (x * z - y * w)},
        {2.0 * (x * y - z * w), 1.0 - 2.0 * (x * x + z * z), 2.0 * (y * z + x * w)},
        {2.0 * (x * z + y * w), 2.0 * (y * z - x * w), 1.0 - 2.0 * (x * x + y * y)},
    };
    for (std::size_t column = 0; column < 3; ++column)
        for (std::size_t row = 0; row < 3; ++row)
            matrix[column * 4 + row] = columns[column][row] * scale[column];
}

void readPieces(const JsonValue& node, double* matrix)
{
    double translation[3] = {0.0, 0.0, 0.0};
    double rotation[4] = {0.0, 0.0, 0.0, 1.0};
    double scale[3] = {1.0, 1.0, 1.0};
    ReadNumbers(node, "translation", translation, 3);
    ReadNumbers(node, "rotation", rotation, 4);
    ReadNumbers(node, "scale", scale, 3);
    const double length = std::sqrt(rotation[0] * rotation[0] + rotation[1] * rotation[1] +
                                    rotation[2] * rotation[2] + rotation[3] * rotation[3]);
    for (double& number : rotation)
        number /= length; // Without length all become NaN, which the caller refuses.
    setRotationAndScale(rotation, scale, matrix);
    std::copy_n(translation, 3, matrix + 12);
}

bool isUsable(const double* matrix)
{
    const bool areFinite = std::all_of(matrix, matrix + 16, [](double number) {
        return std::fabs(number) <= double{std::numeric_limits<float>::max()};
    });
    return areFinite && matrix[3] == 0.0 && matrix[7] == 0.0 && matrix[11] == 0.0 &&
           matrix[15] == 1.0;
}

} // namespace

bool ReadNodeTransform(const JsonValue& node, double* matrix)
{
    TambVizCore::SetIdentity(matrix);
    if (!ReadNumbers(node, "matrix", matrix, 16))
        readPieces(node, matrix);
    if (isUsable(matrix))
        return true;
    TambVizCore::SetIdentity(matrix);
    return false;
}

} // namespace OrvikMesh
