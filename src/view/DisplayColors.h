#ifndef ORVIKCORE_VIEW_DISPLAYCOLORS_H
#define ORVIKCORE_VIEW_DISPLAYCOLORS_H

namespace TambVizCore {
class RenderingOptions;
class Settings;
} // namespace TambVizCore

namespace OrvikCore {

/// Copies the default colours and the highlight colour; bodies and faces get the same one.
void ApplyDisplayColors(const TambVizCore::Settings& settings,
                        TambVizCore::RenderingOptions& options);

} // namespace OrvikCore

#endif
