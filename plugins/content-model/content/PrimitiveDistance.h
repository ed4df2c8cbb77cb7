#ifndef ORVIKMODEL_CONTENT_PRIMITIVEDISTANCE_H
#define ORVIKMODEL_CONTENT_PRIMITIVEDISTANCE_H

#include "content/Primitives.h"

namespace OrvikModel {

/// The nearest points of two primitives.
struct NearestPoints
{
    double squaredDistance = 0.0;
    Vector3 from; ///< On the first.
    Vector3 to;   ///< On the second.
};

/// Finds where two primitives are nearest to each other; any place where they meet when they do.
/// Triangles without area count as their sides, segments without length as points.
NearestPoints FindNearest(const Primitive& from, const Primitive& to);

} // namespace OrvikModel

#endif
