#ifndef ORVIKCORE_TAMBDOCUMENTSERVICESPELLUX_H
#define ORVIKCORE_TAMBDOCUMENTSERVICESPELLUX_H

#include "OrvikCore/Export.h"

#include <TambCommandsInfra/ITambDocumentServices.h>

/// The document services of scripts: the box around the current session's contents.
///
/// @thread Main thread; the public operations of the base bring calls there.
class ORVIKCORE_API TambDocumentServicesPellux : public ITambDocumentServices
{
public:
    TambDocumentServicesPellux();
    ~TambDocumentServicesPellux() override;

private:
    /// Finds the box around all contents: each gives its own box, or else that of its 3D renderer.
    /// @return false, and the arguments left alone, when no content has a box.
    bool GetBoundingBoxImpl(double& xMin, double& yMin, double& zMin, double& xMax, double& yMax,
                            double& zMax) override;
};

#endif
