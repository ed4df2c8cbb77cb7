#ifndef ORVIKRAY_TESTS_SHAPES_H
#define ORVIKRAY_TESTS_SHAPES_H

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace OrvikRay {

/// Builds a geometry; the test fails when the arrays are not sound.
std::shared_ptr<const TambVizCore::Geometry>
MakeGeometry(std::vector<float> positions, std::vector<std::uint32_t> triangles,
             std::vector<std::uint32_t> segments = {}, std::vector<std::uint32_t> points = {},
             std::vector<TambVizCore::GeometryPart> parts = {});

/// A bumpy ring of 2 * steps * steps triangles around the z axis, of that size and place; every
/// hundred triangles are a face.
struct Ring
{
    std::uint32_t steps = 60;
    double size = 13.0;
    double center[3] = {0.0, 0.0, 0.0};
};

std::vector<float> RingPositions(const Ring& ring);
std::vector<std::uint32_t> RingTriangles(const Ring& ring);
std::shared_ptr<const TambVizCore::Geometry> MakeRing(const Ring& ring);

} // namespace OrvikRay

#endif
