#ifndef ORVIKCORE_LOADMODES_H
#define ORVIKCORE_LOADMODES_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// How much of a file a loader makes.
enum class LoadMode : int
{
    Everything = 0,       ///< All that the loader knows of the format.
    Graphical = 1,        ///< What is drawn: triangles, edges, points; no exact surfaces.
    ProductStructure = 2, ///< Assemblies, references, names, colours, layers; nothing is drawn.
};

/// The settings 'Force Graphical Mode' and 'Force ProductStructure Mode', which the loaders and
/// importers of all plugins share. Both are off at the start; what is loaded stays as it is.
///
/// A loader asks for Present() when it is asked whether it can load a file, and refuses where it
/// cannot serve the mode, so that the document says which settings to look at.
///
/// @thread  Any thread; a loading that has begun keeps the mode that it has asked for.
class ORVIKCORE_API LoadModes
{
public:
    LoadModes() = delete;

    /// @return what loaders are to make; with both settings on, the product structure.
    static LoadMode Present();

    static bool GetForceGraphical();
    static void SetForceGraphical(bool force);

    static bool GetForceProductStructure();
    static void SetForceProductStructure(bool force);
};

} // namespace OrvikCore

#endif
