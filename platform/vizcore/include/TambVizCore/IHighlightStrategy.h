#ifndef TAMBVIZCORE_IHIGHLIGHTSTRATEGY_H
#define TAMBVIZCORE_IHIGHLIGHTSTRATEGY_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

/// The way in which a view marks its items. What it can do beyond that is asked with dynamic_cast,
/// for instance to IViewDoUndoStrategy.
///
/// @thread Main thread.
class TAMBVIZCORE_API IHighlightStrategy
{
public:
    virtual ~IHighlightStrategy();
};

} // namespace TambVizCore

#endif
