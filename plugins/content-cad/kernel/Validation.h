#ifndef ORVIKCAD_KERNEL_VALIDATION_H
#define ORVIKCAD_KERNEL_VALIDATION_H

#include "kernel/ReadContext.h"

namespace OrvikCad {

/// Compares what a file says of its bodies (volume, area, centroid) with what their shapes have,
/// and warns of each body where they differ, with both values.
///
/// Compared are bodies, not assemblies: of solids all three, of shells and faces area and centroid.
/// Volumes and areas may differ by kValidationTolerance of the greater one, centroids by that share
/// of the shape's diagonal. A centroid alone, without volume or area, is not compared, because
/// files use it for annotations too.
///
/// Polls the job's cancel between shapes.
void CheckValidation(ReadContext& context);

/// A file rounds its values and systems integrate differently; a wrong shape is off by far more.
inline constexpr double kValidationTolerance = 0.005;

} // namespace OrvikCad

#endif
