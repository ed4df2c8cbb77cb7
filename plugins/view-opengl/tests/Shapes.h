#ifndef VIEWOPENGL_TESTS_SHAPES_H
#define VIEWOPENGL_TESTS_SHAPES_H

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace ViewOpenGl {

/// A rectangle that faces +z.
struct Rectangle
{
    float left = -0.5f;
    float bottom = -0.5f;
    float right = 0.5f;
    float top = 0.5f;
    float z = 0.0f;
};

/// A builder with rectangles, each a face of two triangles: part ids MakePartId(Face, 0), ...
TambVizCore::GeometryBuilder RectangleBuilder(const std::vector<Rectangle>& rectangles);

/// The same, built.
std::shared_ptr<const TambVizCore::Geometry>
MakeRectangles(const std::vector<Rectangle>& rectangles);

/// Builds, and fails the test when it cannot.
std::shared_ptr<const TambVizCore::Geometry> Build(TambVizCore::GeometryBuilder& builder);

/// A line from (-0.5, 0, z) to (0.5, 0, z), edge 0.
std::shared_ptr<const TambVizCore::Geometry> MakeLine(float z);

/// A closed box from -half to half, facing outwards.
std::shared_ptr<const TambVizCore::Geometry> MakeBox(float half);

/// A closed body between an outer and an inner box.
std::shared_ptr<const TambVizCore::Geometry> MakeHollowBox(float outerHalf, float innerHalf);

/// A closed ball of radius 0.8 with normals: rings of as many quadrangles, which are two triangles;
/// every eighth circle is made of segments. One face for all triangles.
std::shared_ptr<const TambVizCore::Geometry> MakeSphere(std::uint32_t rings);

/// One point at the origin, vertex 0.
std::shared_ptr<const TambVizCore::Geometry> MakePoint();

} // namespace ViewOpenGl

#endif
