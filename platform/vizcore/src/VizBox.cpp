#include "TambVizCore/VizBox.h"

#include <algorithm>
#include <cmath>

namespace TambVizCore {

VizBox::VizBox(double x1, double y1, double z1, double x2, double y2, double z2)
{
    Add(x1, y1, z1);
    Add(x2, y2, z2);
}

void VizBox::Clear()
{
    *this = VizBox();
}

void VizBox::Add(double x, double y, double z)
{
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
        return;
    }
    const double point[3] = {x, y, z};
    for (int i = 0; i < 3; ++i) {
        m_lo[i] = m_empty ? point[i] : std::min(m_lo[i], point[i]);
        m_hi[i] = m_empty ? point[i] : std::max(m_hi[i], point[i]);
    }
    m_empty = false;
}

void VizBox::Add(const float* point)
{
    Add(static_cast<double>(point[0]), static_cast<double>(point[1]),
        static_cast<double>(point[2]));
}

void VizBox::Add(const VizBox& other)
{
    if (other.m_empty) {
        return;
    }
    Add(other.m_lo[0], other.m_lo[1], other.m_lo[2]);
    Add(other.m_hi[0], other.m_hi[1], other.m_hi[2]);
}

void VizBox::GetCenter(float* center) const
{
    for (int i = 0; i < 3; ++i) {
        center[i] = static_cast<float>(m_lo[i] + (m_hi[i] - m_lo[i]) / 2.0);
    }
}

double VizBox::Radius() const
{
    return std::hypot(m_hi[0] - m_lo[0], m_hi[1] - m_lo[1], m_hi[2] - m_lo[2]) / 2.0;
}

bool VizBox::Contains(double x, double y, double z) const
{
    return !m_empty && x >= m_lo[0] && x <= m_hi[0] && y >= m_lo[1] && y <= m_hi[1] &&
           z >= m_lo[2] && z <= m_hi[2];
}

VizBox VizBox::Transformed(const double* matrix) const
{
    VizBox box;
    if (m_empty) {
        return box;
    }
    for (int corner = 0; corner < 8; ++corner) {
        const double x = (corner & 1) != 0 ? m_hi[0] : m_lo[0];
        const double y = (corner & 2) != 0 ? m_hi[1] : m_lo[1];
        const double z = (corner & 4) != 0 ? m_hi[2] : m_lo[2];
        box.Add(matrix[0] * x + matrix[4] * y + matrix[8] * z + matrix[12],
                matrix[1] * x + matrix[5] * y + matrix[9] * z + matrix[13],
                matrix[2] * x + matrix[6] * y + matrix[10] * z + matrix[14]);
    }
    return box;
}

bool VizBox::Clip(const float* origin, const float* direction, double margin, double& tMin,
                  double& tMax) const
{
    if (m_empty) {
        return false;
    }
    double enter = tMin;
    double leave = tMax;
    for (int i = 0; i < 3; ++i) {
        const double start = origin[i];
        const double step = direction[i];
        const double lo = m_lo[i] - margin;
        const double hi = m_hi[i] + margin;
        if (step == 0.0) {
            if (start < lo || start > hi) {
                return false;
            }
            continue;
        }
        const double a = (lo - start) / step;
        const double b = (hi - start) / step;
        enter = std::max(enter, std::min(a, b));
        leave = std::min(leave, std::max(a, b));
    }
    if (!(enter <= leave)) {
        return false;
    }
    tMin = enter;
    tMax = leave;
    return true;
}

bool VizBox::operator==(const VizBox& other) const
{
    return m_empty == other.m_empty && std::equal(m_lo, m_lo + 3, other.m_lo) &&
           std::equal(m_hi, m_hi + 3, other.m_hi);
}

} // namespace TambVizCore
