#ifndef VIEWOPENGL_TEXT_LABELPLACEMENT_H
#define VIEWOPENGL_TEXT_LABELPLACEMENT_H

#include "Projection.h"

#include <OrvikCore/TextItem3D.h>

#include <array>

namespace ViewOpenGl {

/// A corner of a label: where it is in clip space, and which place of the texture it shows.
struct LabelCorner
{
    float clip[4];
    float texture[2];
};

/// In order around the label, from the bottom left.
using LabelCorners = std::array<LabelCorner, 4>;

/// The texture of a label, pixels.
struct LabelExtent
{
    int width;
    int height;
    int baseline;  ///< Rows above the base line.
    int capital;   ///< Height of a capital letter.
    int start = 0; ///< Columns left of the anchor.
};

/// Places a label that faces the camera: the base line begins at the anchor, moved by the offsets.
///
/// @return false when the anchor is not in sight.
bool PlaceFacing(const OrvikCore::TextItem3D& item, const LabelExtent& extent,
                 const Projection& projection, int width, int height, double pixelScale,
                 LabelCorners& corners);

/// Places a label that lies in the world along its reading and up directions.
///
/// @return false when the label cannot be seen: its directions lie on one axis, or its height is 0.
bool PlaceInWorld(const OrvikCore::TextItem3D& item, const LabelExtent& extent,
                  const Projection& projection, LabelCorners& corners);

} // namespace ViewOpenGl

#endif
