#include "writers/BodyPlacement.h"

#include "readers/MeshFinish.h"

#include <algorithm>
#include <utility>

namespace OrvikMesh {

BodyPlacement::BodyPlacement(const BodyToWrite& body) : m_body(body)
{
    const std::array<double, 16>& m = body.transform;
    m_isIdentity = m == BodyToWrite().transform;
    // The cofactors are the inverse transposed times the determinant, and exist when that is 0.
    const auto minor = [&m](std::size_t a, std::size_t b, std::size_t c, std::size_t d) {
        return m[a] * m[d] - m[b] * m[c];
    };
    m_cofactors = {minor(5, 6, 9, 10), minor(6, 4, 10, 8), minor(4, 5, 8, 9),
                   minor(9, 10, 1, 2), minor(10, 8, 2, 0), minor(8, 9, 0, 1),
                   minor(1, 2, 5, 6),  minor(2, 0, 6, 4),  minor(0, 1, 4, 5)};
    m_isMirrored = m[0] * m_cofactors[0] + m[1] * m_cofactors[1] + m[2] * m_cofactors[2] < 0.0;
    if (body.color)
        m_color = {ToColorByte(body.color->red, 1.0f), ToColorByte(body.color->green, 1.0f),
                   ToColorByte(body.color->blue, 1.0f), ToColorByte(body.color->alpha, 1.0f)};
}

std::array<float, 3> BodyPlacement::Position(std::size_t vertex) const
{
    const float* p = m_body.positions.data() + vertex * 3;
    if (m_isIdentity)
        return {p[0], p[1], p[2]};
    const std::array<double, 16>& m = m_body.transform;
    std::array<float, 3> moved{};
    for (std::size_t i = 0; i < 3; ++i)
        moved[i] = static_cast<float>(m[i] * double{p[0]} + m[4 + i] * double{p[1]} +
                                      m[8 + i] * double{p[2]} + m[12 + i]);
    return moved;
}

std::array<float, 3> BodyPlacement::Normal(std::size_t vertex) const
{
    const float* n = m_body.normals.data() + vertex * 3;
    if (m_isIdentity)
        return {n[0], n[1], n[2]};
    const double sign = m_isMirrored ? -1.0 : 1.0;
    std::array<float, 3> moved{};
    for (std::size_t i = 0; i < 3; ++i)
        moved[i] = static_cast<float>(sign * (m_cofactors[i] * double{n[0]} +
                                              m_cofactors[3 + i] * double{n[1]} +
                                              m_cofactors[6 + i] * double{n[2]}));
    NormalizeVector(moved.data());
    return moved;
}

std::array<std::uint32_t, 3> BodyPlacement::Triangle(std::size_t triangle) const
{
    const std::uint32_t* corners = m_body.triangles.data() + triangle * 3;
    if (m_isMirrored)
        return {corners[0], corners[2], corners[1]};
    return {corners[0], corners[1], corners[2]};
}

std::array<std::uint8_t, 4> BodyPlacement::Color(std::size_t vertex) const
{
    if (m_body.colors.empty())
        return m_color;
    const std::uint8_t* color = m_body.colors.data() + vertex * 4;
    return {color[0], color[1], color[2], color[3]};
}

bool WritableBodies::HaveNormals() const
{
    return std::all_of(bodies.begin(), bodies.end(),
                       [](const BodyToWrite* body) { return !body->normals.empty(); });
}

bool WritableBodies::HaveColors() const
{
    return std::any_of(bodies.begin(), bodies.end(), [](const BodyToWrite* body) {
        return body->color || !body->colors.empty();
    });
}

WritableBodies ChooseBodies(const MeshToWrite& mesh, FileHolds holds)
{
    const bool hasTriangles =
        std::any_of(mesh.bodies.begin(), mesh.bodies.end(), [](const BodyToWrite& body) {
            return !body.isPointCloud && body.TriangleCount() > 0;
        });
    WritableBodies chosen;
    chosen.arePoints = holds == FileHolds::TrianglesOrPoints && !hasTriangles;
    for (const BodyToWrite& body : mesh.bodies) {
        const bool isHeld =
            holds == FileHolds::All || (body.isPointCloud == chosen.arePoints && !body.IsWire());
        if (!isHeld) {
            chosen.cloudsLeftOut += body.isPointCloud ? 1 : 0;
            chosen.wiresLeftOut += body.IsWire() ? 1 : 0;
            continue;
        }
        if (!body.isPointCloud && !body.IsWire() && body.TriangleCount() == 0)
            continue;
        chosen.bodies.push_back(&body);
        chosen.vertices += body.VertexCount();
        chosen.triangles += body.TriangleCount();
    }
    return chosen;
}

} // namespace OrvikMesh
