#include "text/LabelPlacement.h"

#include <cmath>

namespace ViewOpenGl {

using OrvikCore::TextDirection;
using OrvikCore::TextItem3D;

namespace {

/// Writes projection * view * (point, 1).
void toClip(const Projection& projection, const double* point, double* clip)
{
    double eye[4] = {0.0, 0.0, 0.0, 1.0};
    for (int row = 0; row < 3; ++row) {
        eye[row] = projection.view[12 + row];
        for (int i = 0; i < 3; ++i)
            eye[row] += projection.view[4 * i + row] * point[i];
    }
    for (int row = 0; row < 4; ++row) {
        clip[row] = 0.0;
        for (int i = 0; i < 4; ++i)
            clip[row] += static_cast<double>(projection.projection[4 * i + row]) * eye[i];
    }
}

void writeDirection(TextDirection direction, double* vector)
{
    const int number = static_cast<int>(direction);
    for (int i = 0; i < 3; ++i)
        vector[i] = 0.0;
    vector[number / 2] = number % 2 == 0 ? 1.0 : -1.0;
}

/// Calls @p place for each corner with its place in the texture, pixels right of the pen's start
/// and above the base line.
template <class Place>
void forCorners(const LabelExtent& extent, LabelCorners& corners, Place place)
{
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const bool right = i == 1 || i == 2;
        const bool top = i >= 2;
        corners[i].texture[0] = right ? 1.0f : 0.0f;
        corners[i].texture[1] = top ? 0.0f : 1.0f;
        place(corners[i], (right ? extent.width : 0) - extent.start,
              top ? extent.baseline : extent.baseline - extent.height);
    }
}

} // namespace

bool PlaceFacing(const TextItem3D& item, const LabelExtent& extent, const Projection& projection,
                 int width, int height, double pixelScale, LabelCorners& corners)
{
    const double anchor[3] = {item.m_x, item.m_y, item.m_z};
    double clip[4];
    toClip(projection, anchor, clip);
    if (!(clip[3] > 0.0) || std::abs(clip[0]) > clip[3] || std::abs(clip[1]) > clip[3])
        return false;
    // Whole pixels keep the letters sharp.
    const double x = std::floor((clip[0] / clip[3] + 1.0) * 0.5 * width +
                                static_cast<double>(item.m_offsetX) * pixelScale + 0.5);
    const double y = std::floor((clip[1] / clip[3] + 1.0) * 0.5 * height +
                                static_cast<double>(item.m_offsetY) * pixelScale + 0.5);
    forCorners(extent, corners, [&](LabelCorner& corner, int right, int up) {
        corner.clip[0] = static_cast<float>(2.0 * (x + right) / width - 1.0);
        corner.clip[1] = static_cast<float>(2.0 * (y + up) / height - 1.0);
        corner.clip[2] = 0.0f;
        corner.clip[3] = 1.0f;
    });
    return true;
}

bool PlaceInWorld(const TextItem3D& item, const LabelExtent& extent, const Projection& projection,
                  LabelCorners& corners)
{
    double reading[3];
    double up[3];
    writeDirection(item.m_readingDirection, reading);
    writeDirection(item.m_upDirection, up);
    const double pixel = static_cast<double>(item.m_height) / extent.capital;
    const double together = reading[0] * up[0] + reading[1] * up[1] + reading[2] * up[2];
    if (!(pixel > 0.0) || together != 0.0)
        return false;
    const double anchor[3] = {item.m_x, item.m_y, item.m_z};
    forCorners(extent, corners, [&](LabelCorner& corner, int right, int above) {
        double point[3];
        for (int i = 0; i < 3; ++i)
            point[i] = anchor[i] + reading[i] * (item.m_offsetX + pixel * right) +
                       up[i] * (item.m_offsetY + pixel * above);
        double clip[4];
        toClip(projection, point, clip);
        for (int i = 0; i < 4; ++i)
            corner.clip[i] = static_cast<float>(clip[i]);
    });
    return true;
}

} // namespace ViewOpenGl
