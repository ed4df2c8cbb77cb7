#include "DisplayColors.h"

#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Settings.h>

namespace OrvikCore {

void ApplyDisplayColors(const TambVizCore::Settings& settings,
                        TambVizCore::RenderingOptions& options)
{
    options.SetDefaultBodyColor(settings.GetDefaultFaceColor());
    options.SetDefaultFaceColor(settings.GetDefaultFaceColor());
    options.SetDefaultEdgeColor(settings.GetDefaultEdgeColor());
    options.SetDefaultTessEdgeColor(settings.GetDefaultTessEdgeColor());
    options.SetDefaultVertexColor(settings.GetDefaultVertexColor());
    options.SetHighlightColor(settings.GetHighlightColor());
}

} // namespace OrvikCore
