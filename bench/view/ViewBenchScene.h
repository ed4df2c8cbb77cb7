#ifndef BENCH_VIEW_VIEWBENCHSCENE_H
#define BENCH_VIEW_VIEWBENCHSCENE_H

#include "View3dOpenGlSG.h"

#include <cstdint>

namespace ViewBench {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;

/// Spheres on a cube's grid.
struct Spheres
{
    bool operator==(const Spheres& other) const = default;

    int count = 1;
    std::uint32_t rings = 707; ///< Each of as many quadrangles, which are two triangles.
    bool inOneBody = false;    ///< Else each is a body with a geometry of its own.
    bool isCut = false;        ///< A section plane passes through the middle.
    bool withFaces = false;    ///< Every tenth triangle begins a face.
};

/// Fills a view of kWidth x kHeight; every eighth circle of a sphere is an edge.
void Fill(ViewOpenGl::View3dOpenGlSG& view, const Spheres& spheres);

/// Lets the camera see everything, from a side.
void LookFrom(ViewOpenGl::View3dOpenGlSG& view, double angleRadians);

} // namespace ViewBench

#endif
