#include "readers/PlyRows.h"

#include "readers/MeshFinish.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace OrvikMesh {

namespace {

/// What a number of a colour is multiplied with to reach from 0 to 1; 1 for types whose range the
/// values tell.
double unitScale(ScalarType type)
{
    switch (type) {
    case ScalarType::Float32:
    case ScalarType::Float64:
        return 1.0;
    case ScalarType::UInt16:
        return 1.0 / 65535.0;
    default:
        return 1.0 / 255.0;
    }
}

bool isFloating(ScalarType type)
{
    return type == ScalarType::Float32 || type == ScalarType::Float64;
}

std::size_t componentOf(PlyRole role, PlyRole first)
{
    return static_cast<std::size_t>(role) - static_cast<std::size_t>(first);
}

} // namespace

PlyVertexArrays::PlyVertexArrays(const PlyElement& element, std::size_t rows, MeshData& mesh)
    : m_mesh(mesh)
{
    if (rows >= kNone)
        throw std::length_error("too many vertices");
    mesh.positions.Resize(rows * 3);
    if (element.Find(PlyRole::NormalX))
        mesh.normals.Resize(rows * 3);
    if (!element.Find(PlyRole::Red))
        return;
    m_hasByteColors =
        std::all_of(element.properties.begin(), element.properties.end(), [](const auto& property) {
            return !IsColor(property.role) || property.type == ScalarType::UInt8;
        });
    if (m_hasByteColors) {
        mesh.colors.Resize(rows * 4);
        if (!element.Find(PlyRole::Alpha))
            std::fill(mesh.colors.begin(), mesh.colors.end(), std::uint8_t{255});
    } else {
        m_colors.Resize(rows * 4);
        // Alpha is set, where the file has none, when the scale of the others is known.
        std::fill(m_colors.begin(), m_colors.end(), std::nanf(""));
    }
}

float* PlyVertexArrays::Floats(PlyRole role, std::size_t row)
{
    if (role <= PlyRole::Z)
        return m_mesh.positions.Data() + row * 3 + componentOf(role, PlyRole::X);
    if (role <= PlyRole::NormalZ)
        return m_mesh.normals.Data() + row * 3 + componentOf(role, PlyRole::NormalX);
    if (role <= PlyRole::Alpha && !m_hasByteColors)
        return m_colors.Data() + row * 4 + componentOf(role, PlyRole::Red);
    return nullptr;
}

std::uint8_t* PlyVertexArrays::Bytes(PlyRole role, std::size_t row)
{
    if (!m_hasByteColors || !IsColor(role))
        return nullptr;
    return m_mesh.colors.Data() + row * 4 + componentOf(role, PlyRole::Red);
}

void PlyVertexArrays::Clear(std::size_t row)
{
    std::fill_n(m_mesh.positions.Data() + row * 3, 3, std::nanf(""));
    if (!m_mesh.normals.IsEmpty())
        std::fill_n(m_mesh.normals.Data() + row * 3, 3, 0.0f);
    if (m_hasByteColors)
        std::fill_n(m_mesh.colors.Data() + row * 4, 4, std::uint8_t{255});
}

void PlyVertexArrays::Finish(const PlyElement& element, std::size_t rows)
{
    m_mesh.positions.Resize(rows * 3);
    m_mesh.normals.Resize(std::min(m_mesh.normals.Size(), rows * 3));
    m_mesh.colors.Resize(std::min(m_mesh.colors.Size(), rows * 4));
    m_colors.Resize(std::min(m_colors.Size(), rows * 4));
    NormalizeNormals(m_mesh);
    if (m_colors.IsEmpty())
        return;
    for (const PlyProperty& property : element.properties) {
        if (!IsColor(property.role) || isFloating(property.type))
            continue;
        const auto scale = static_cast<float>(unitScale(property.type));
        for (std::size_t i = componentOf(property.role, PlyRole::Red); i < m_colors.Size(); i += 4)
            m_colors[i] = std::clamp(m_colors[i] * scale, 0.0f, 1.0f);
    }
    TakeColors(m_mesh, m_colors);
}

std::array<std::uint8_t, 4> ToFaceColor(const std::array<double, 4>& values, ScalarType type)
{
    std::array<std::uint8_t, 4> color{};
    double full = 1.0 / unitScale(type);
    if (isFloating(type) && std::max({values[0], values[1], values[2]}) > 1.0)
        full = 255.0;
    for (std::size_t i = 0; i < 4; ++i)
        color[i] = std::isnan(values[i])
                       ? std::uint8_t{255}
                       : ToColorByte(static_cast<float>(values[i]), static_cast<float>(full));
    return color;
}

} // namespace OrvikMesh
