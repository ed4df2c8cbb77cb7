#include "ViewBenchScene.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/RenderingOptions.h>

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace ViewBench {
namespace {

using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::PartKind;
using TambVizCore::SharedArray;

struct Arrays
{
    std::vector<float> positions, normals;
    std::vector<std::uint32_t> triangles, segments;
};

void addPoints(Arrays& out, std::uint32_t rings, const double* place)
{
    for (std::uint32_t ring = 0; ring <= rings; ++ring)
        for (std::uint32_t i = 0; i < rings; ++i) {
            const double v = std::numbers::pi * ring / rings;
            const double u = 2.0 * std::numbers::pi * i / rings;
            const double n[3] = {std::sin(v) * std::cos(u), std::sin(v) * std::sin(u), std::cos(v)};
            for (int k = 0; k < 3; ++k) {
                out.positions.push_back(static_cast<float>(place[5 * k] * n[k] + place[12 + k]));
                out.normals.push_back(static_cast<float>(n[k]));
            }
        }
}

void addSphere(Arrays& out, std::uint32_t rings, const double* place)
{
    const auto first = static_cast<std::uint32_t>(out.positions.size() / 3);
    addPoints(out, rings, place);
    for (std::uint32_t ring = 0; ring < rings; ++ring)
        for (std::uint32_t i = 0; i < rings; ++i) {
            const std::uint32_t a = first + ring * rings + i;
            const std::uint32_t b = first + ring * rings + (i + 1) % rings;
            out.triangles.insert(out.triangles.end(), {a, a + rings, b, b, a + rings, b + rings});
            if (ring % 8 == 0)
                out.segments.insert(out.segments.end(), {a, b});
        }
}

std::shared_ptr<const Geometry> build(Arrays arrays, bool withFaces)
{
    constexpr std::uint32_t kTrianglesPerFace = 10;
    GeometryBuilder builder;
    const auto triangles = static_cast<std::uint32_t>(arrays.triangles.size() / 3);
    for (std::uint32_t first = 0, face = 0; withFaces && first < triangles; ++face) {
        const std::uint32_t count = std::min(kTrianglesPerFace, triangles - first);
        builder.AddPart(
            {PartKind::Face, first, count, TambVizCore::MakePartId(PartKind::Face, face)});
        first += count;
    }
    builder.SetPositions(SharedArray<float>(std::move(arrays.positions)))
        .SetNormals(SharedArray<float>(std::move(arrays.normals)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(arrays.triangles)))
        .SetSegments(SharedArray<std::uint32_t>(std::move(arrays.segments)))
        .SetClosed(true);
    std::string error;
    return builder.Build(error);
}

void placeOf(int number, int side, double* place)
{
    TambVizCore::SetIdentity(place);
    place[0] = place[5] = place[10] = 0.45;
    place[12] = number % side;
    place[13] = number / side % side;
    place[14] = number / side / side;
}

/// The geometries of a scene, made once for all runs that follow each other with it.
const std::vector<std::shared_ptr<const Geometry>>& geometriesOf(const Spheres& spheres, int side)
{
    static Spheres madeFor{.count = 0};
    static std::vector<std::shared_ptr<const Geometry>> made;
    Spheres wanted = spheres;
    wanted.isCut = false;
    if (wanted == madeFor)
        return made;
    made.clear();
    madeFor = wanted;
    double place[16];
    TambVizCore::SetIdentity(place);
    Arrays arrays;
    for (int i = 0; i < spheres.count; ++i) {
        if (spheres.inOneBody)
            placeOf(i, side, place);
        addSphere(arrays, spheres.rings, place);
        if (!spheres.inOneBody || i + 1 == spheres.count)
            made.push_back(build(std::exchange(arrays, {}), spheres.withFaces));
    }
    return made;
}

} // namespace

void Fill(ViewOpenGl::View3dOpenGlSG& view, const Spheres& spheres)
{
    view.SetWindowSize(kWidth, kHeight);
    const int side = static_cast<int>(std::ceil(std::cbrt(spheres.count)));
    std::uint64_t id = 0;
    for (const auto& geometry : geometriesOf(spheres, side)) {
        auto& node = *view.GetSceneRoot().CreateChildGeoNode(++id);
        node.SetGeometry(geometry);
        if (spheres.inOneBody)
            continue;
        double place[16];
        placeOf(static_cast<int>(id) - 1, side, place);
        node.SetTransform(place);
    }
    if (spheres.isCut)
        view.GetRenderingOptions()->SetClipPlanes(
            {{{-1.0f, 0.0f, 0.0f}, view.GetGeometryCenter()[0]}});
}

void LookFrom(ViewOpenGl::View3dOpenGlSG& view, double angleRadians)
{
    OrvikCore::ACamera& camera = *view.GetCamera();
    camera.SetAnimate(false);
    const float* const center = view.GetGeometryCenter();
    const float radius = view.GetGeometryRadius();
    float target[3] = {center[0], center[1], center[2]};
    float eye[3] = {target[0] + 3.0f * radius * static_cast<float>(std::sin(angleRadians)),
                    target[1] + radius,
                    target[2] + 3.0f * radius * static_cast<float>(std::cos(angleRadians))};
    float up[3] = {0.0f, 1.0f, 0.0f};
    camera.SetCamera(eye, target, up);
    camera.SetFieldOfViewRadians(static_cast<float>(2.0 * std::atan(1.0 / 3.2)));
}

} // namespace ViewBench
