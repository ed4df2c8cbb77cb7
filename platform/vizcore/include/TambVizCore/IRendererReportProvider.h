#ifndef TAMBVIZCORE_IRENDERERREPORTPROVIDER_H
#define TAMBVIZCORE_IRENDERERREPORTPROVIDER_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

/// A renderer that can report what it does while it renders.
///
/// @thread Main thread.
class TAMBVIZCORE_API IRendererReportProvider
{
public:
    virtual ~IRendererReportProvider();

    /// Keeps the address of the switch that says whether to report.
    ///
    /// @param reportMode  not owned; read before each report, outlives the renderer; null means
    ///                    never report.
    virtual void SetRendererReportMode(const bool* reportMode) = 0;
};

} // namespace TambVizCore

#endif
