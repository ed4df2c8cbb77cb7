#ifndef TAMBCOMMANDSINFRA_ITAMBDOCUMENTSERVICES_H
#define TAMBCOMMANDSINFRA_ITAMBDOCUMENTSERVICES_H

#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/ITambServiceSet.h"

/// What scripts may ask of the document. See ITambServiceSet for threads and errors.
class TAMBCOMMANDSINFRA_API ITambDocumentServices : public ITambServiceSet
{
public:
    ~ITambDocumentServices() override;

    /// Gives the bounding box of the current session's content, in world units.
    ///
    /// @return false when there is no content; what the arguments then hold is of no meaning.
    bool GetBoundingBox(double& xMin, double& yMin, double& zMin, double& xMax, double& yMax,
                        double& zMax);

protected:
    ITambDocumentServices();

private:
    // Virtual operations in slot order; append only.
    virtual bool GetBoundingBoxImpl(double& xMin, double& yMin, double& zMin, double& xMax,
                                    double& yMax, double& zMax) = 0;
};

#endif
