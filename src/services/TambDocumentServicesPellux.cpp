#include "OrvikCore/TambDocumentServicesPellux.h"

#include "CurrentSession.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/IContentRenderer.h"

#include <TambVizCore/VizBox.h>

using OrvikCore::AContent;
using OrvikCore::ASession;
using TambVizCore::VizBox;

namespace {

// The content's own box, or else that of its 3D renderer; empty without either.
VizBox findBox(const ASession& session, AContent& content)
{
    VizBox box;
    if (content.GetBoundingBox(box)) {
        return box;
    }
    const OrvikCore::IContentRenderer* const renderer = session.Get3DRenderer(&content);
    if (renderer == nullptr) {
        return {};
    }
    const double* const lo = renderer->GetBoxLo();
    const double* const hi = renderer->GetBoxHi();
    if (lo == nullptr || hi == nullptr) {
        return {};
    }
    return {lo[0], lo[1], lo[2], hi[0], hi[1], hi[2]};
}

} // namespace

TambDocumentServicesPellux::TambDocumentServicesPellux() = default;

TambDocumentServicesPellux::~TambDocumentServicesPellux() = default;

bool TambDocumentServicesPellux::GetBoundingBoxImpl(double& xMin, double& yMin, double& zMin,
                                                    double& xMax, double& yMax, double& zMax)
{
    const ASession* const session = OrvikCore::FindCurrentSession();
    if (session == nullptr) {
        return false;
    }
    VizBox box;
    for (AContent* content : session->Document().GetContentList()) {
        if (content != nullptr) {
            box.Add(findBox(*session, *content));
        }
    }
    if (box.IsEmpty()) {
        return false;
    }
    xMin = box.Lo()[0];
    yMin = box.Lo()[1];
    zMin = box.Lo()[2];
    xMax = box.Hi()[0];
    yMax = box.Hi()[1];
    zMax = box.Hi()[2];
    return true;
}
