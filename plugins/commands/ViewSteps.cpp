#include "ViewSteps.h"

#include "SceneParts.h"

#include <TambVizCore/AttributeVisibility.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <utility>

namespace OrvikCommands {

using TambVizCore::IViewAttribute;
using TambVizCore::Node;
using TambVizCore::RenderId;
using TambVizCore::RenderingOptions;

SeeingInside SeeingInside::Present()
{
    const RenderingOptions& options = CurrentOptions();
    SeeingInside present;
    present.planes = options.GetClipPlanes();
    present.showsCaps = options.GetShowCaps();
    present.isXRay = options.GetXRay();
    return present;
}

std::unique_ptr<IViewAttribute> SeeingInside::ApplyTo(Node&, const RenderId&) const
{
    std::unique_ptr<IViewAttribute> former(new SeeingInside(Present()));
    RenderingOptions& options = CurrentOptions();
    options.SetClipPlanes(planes);
    options.SetShowCaps(showsCaps);
    options.SetXRay(isXRay);
    return former;
}

void SeeingInside::Apply() const
{
    const SeeingInside present = Present();
    if (planes != present.planes || showsCaps != present.showsCaps || isXRay != present.isXRay)
        CurrentUndo().Apply(CurrentView().GetSceneRoot().GetRenderId(), *this);
}

ShowOnly::ShowOnly(std::unordered_set<RenderId> shown) : m_shown(std::move(shown)) {}

std::unique_ptr<IViewAttribute> ShowOnly::ApplyTo(Node& root, const RenderId& id) const
{
    return TambVizCore::AttributeVisibility(m_shown.count(id) != 0).ApplyTo(root, id);
}

} // namespace OrvikCommands
