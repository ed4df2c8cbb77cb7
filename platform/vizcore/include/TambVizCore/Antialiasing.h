#ifndef TAMBVIZCORE_ANTIALIASING_H
#define TAMBVIZCORE_ANTIALIASING_H

namespace TambVizCore {

/// The antialias level that leaves the number of samples to the view, which knows the renderer and
/// what there is to draw.
inline constexpr int kAutomaticAntialiasing = -1;

/// The most samples per pixel that can be asked for.
inline constexpr int kMostAntialiasSamples = 16;

} // namespace TambVizCore

#endif
