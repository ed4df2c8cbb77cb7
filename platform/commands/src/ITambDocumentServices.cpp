#include "TambCommandsInfra/ITambDocumentServices.h"

#include "TambCommandsInfra/CallGate.h"

using TambCommandsInfra::CallGate;

ITambDocumentServices::ITambDocumentServices() : ITambServiceSet(TambServiceKind::Document) {}

ITambDocumentServices::~ITambDocumentServices() = default;

bool ITambDocumentServices::GetBoundingBox(double& xMin, double& yMin, double& zMin, double& xMax,
                                           double& yMax, double& zMax)
{
    return CallGate::Call([&] { return GetBoundingBoxImpl(xMin, yMin, zMin, xMax, yMax, zMax); });
}
