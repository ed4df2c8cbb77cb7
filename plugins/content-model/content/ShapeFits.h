#ifndef ORVIKMODEL_CONTENT_SHAPEFITS_H
#define ORVIKMODEL_CONTENT_SHAPEFITS_H

#include "content/Vectors.h"

#include <array>
#include <optional>
#include <vector>

/// Which plain shape triangles or a polyline were made from. Every answer is tight: corners lie on
/// the shape to within a small share of its size and the noise of their coordinates. Where nothing
/// fits so well, there is no answer.
///
/// @thread  Any thread.
namespace OrvikModel {

using Triangle3 = std::array<Vector3, 3>;

/// The plane of a face.
struct PlaneFit
{
    Vector3 origin; ///< The middle of the face.
    Vector3 normal; ///< Unit length, to the side from which corners run counter-clockwise.
};

/// A cylinder (with an axis), a sphere (without one), or a circle (axis across its plane).
struct RoundFit
{
    Vector3 center; ///< On the axis, in the middle of what was fitted.
    Vector3 axis;   ///< Unit length; its largest component is positive. Zeros for a sphere.
    double radius = 0.0;
};

/// The straight line of an edge.
struct LineFit
{
    Vector3 origin;
    Vector3 direction; ///< Unit length.
};

/// @param noise  How far corners may lie off because of their number format, world units.
std::optional<PlaneFit> FitPlane(const std::vector<Triangle3>& triangles, double noise);
std::optional<RoundFit> FitCylinder(const std::vector<Triangle3>& triangles, double noise);
std::optional<RoundFit> FitSphere(const std::vector<Triangle3>& triangles, double noise);

/// @param segments  Pairs of points, in any order.
std::optional<LineFit> FitLine(const std::vector<std::array<Vector3, 2>>& segments, double noise);
/// Only lines that come back to where they begin count as circles.
std::optional<RoundFit> FitCircle(const std::vector<std::array<Vector3, 2>>& segments,
                                  double noise);

} // namespace OrvikModel

#endif
