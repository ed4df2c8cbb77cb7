#include "SectionCap.h"

#include "Shaders.h"

#include <TambVizCore/VizBox.h>

#include <cmath>

namespace ViewOpenGl {
namespace {

constexpr int kFloatsPerVertex = 6;

void cross(const double* a, const double* b, double* out)
{
    out[0] = a[1] * b[2] - a[2] * b[1];
    out[1] = a[2] * b[0] - a[0] * b[2];
    out[2] = a[0] * b[1] - a[1] * b[0];
}

void normalize(double* v)
{
    const double length = std::hypot(v[0], v[1], v[2]);
    for (int i = 0; i < 3; ++i)
        v[i] /= length;
}

} // namespace

bool SectionCap::Place(const float* plane, const TambVizCore::VizBox& box)
{
    double normal[3] = {plane[0], plane[1], plane[2]};
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    if (box.IsEmpty() || !(length > 0.0))
        return false;
    // How far the middle of the box lies from the plane, and how far the box reaches.
    double middle[3];
    double distance = plane[3];
    double reach = 0.0;
    for (int i = 0; i < 3; ++i) {
        middle[i] = 0.5 * (box.Lo()[i] + box.Hi()[i]);
        distance += normal[i] * middle[i];
        reach += std::abs(normal[i]) * 0.5 * (box.Hi()[i] - box.Lo()[i]);
    }
    if (std::abs(distance) > reach)
        return false;
    normalize(normal);
    for (int i = 0; i < 3; ++i)
        middle[i] -= normal[i] * distance / length;
    // Two directions along the plane, the first across the smallest component of the normal.
    const int smallest = std::abs(normal[0]) < std::abs(normal[1])
                             ? (std::abs(normal[0]) < std::abs(normal[2]) ? 0 : 2)
                             : (std::abs(normal[1]) < std::abs(normal[2]) ? 1 : 2);
    const double axis[3] = {smallest == 0 ? 1.0 : 0.0, smallest == 1 ? 1.0 : 0.0,
                            smallest == 2 ? 1.0 : 0.0};
    double u[3];
    double v[3];
    cross(normal, axis, u);
    normalize(u);
    cross(normal, u, v);
    const double half = box.Radius();
    for (int corner = 0; corner < 4; ++corner) {
        const double su = corner == 0 || corner == 3 ? -half : half;
        const double sv = corner < 2 ? -half : half;
        float* const vertex = m_vertices + kFloatsPerVertex * corner;
        for (int i = 0; i < 3; ++i) {
            vertex[i] = static_cast<float>(middle[i] + su * u[i] + sv * v[i]);
            vertex[3 + i] = static_cast<float>(-normal[i]);
        }
    }
    return true;
}

void SectionCap::upload()
{
    if (m_array) {
        WriteBuffer(GL_ARRAY_BUFFER, m_buffer, 0, m_vertices, sizeof(m_vertices));
        return;
    }
    m_array = MakeVertexArray();
    glBindVertexArray(m_array.Get());
    m_buffer = MakeBuffer(GL_ARRAY_BUFFER, m_vertices, sizeof(m_vertices));
    constexpr GLsizei kStride = kFloatsPerVertex * sizeof(float);
    glEnableVertexAttribArray(kPositionLocation);
    glVertexAttribPointer(kPositionLocation, 3, GL_FLOAT, GL_FALSE, kStride, nullptr);
    glEnableVertexAttribArray(kNormalLocation);
    glVertexAttribPointer(kNormalLocation, 3, GL_FLOAT, GL_FALSE, kStride,
                          reinterpret_cast<const void*>(3 * sizeof(float)));
}

void SectionCap::Draw()
{
    upload();
    glBindVertexArray(m_array.Get());
    glDrawArrays(GL_TRIANGLE_FAN, 0, 4);
}

} // namespace ViewOpenGl
