#ifndef ORVIKMODEL_CONTENT_PRIMITIVES_H
#define ORVIKMODEL_CONTENT_PRIMITIVES_H

#include "content/Vectors.h"

#include <TambVizCore/Geometry.h>
#include <TambVizCore/PartKind.h>

#include <cstdint>
#include <memory>

namespace OrvikModel {

/// A triangle, a segment or a point in the world.
struct Primitive
{
    int corners = 0; ///< 3, 2 or 1.
    Vector3 corner[3];
};

/// The triangles, segments or points of a placed geometry, or of one part of it.
class Primitives
{
public:
    /// Nothing.
    Primitives() = default;

    /// @param partId  0 for the triangles of the whole, or its segments where there are none, or
    ///                its points where there are neither.
    /// @param world   double[16] column-major; copied.
    Primitives(std::shared_ptr<const TambVizCore::Geometry> geometry, std::uint64_t partId,
               const double* world);

    /// PartKind::None when there is nothing.
    TambVizCore::PartKind Kind() const { return m_kind; }
    std::uint32_t Count() const { return m_count; }
    /// @param index  Below Count().
    Primitive At(std::uint32_t index) const;

    /// @return how far the coordinates may lie from where they belong, because they are floats.
    double Noise() const;

private:
    std::shared_ptr<const TambVizCore::Geometry> m_geometry;
    TambVizCore::PartKind m_kind = TambVizCore::PartKind::None;
    std::uint32_t m_first = 0;
    std::uint32_t m_count = 0;
    double m_world[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

} // namespace OrvikModel

#endif
