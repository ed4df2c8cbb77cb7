#ifndef PLUGINCOMMANDS_VIEWSTEPS_H
#define PLUGINCOMMANDS_VIEWSTEPS_H

#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/IViewAttribute.h>
#include <TambVizCore/RenderId.h>

#include <memory>
#include <unordered_set>
#include <vector>

namespace OrvikCommands {

/// What belongs to the view as a whole and is undone like what belongs to its nodes: the section
/// planes and the x-ray. The id it is applied to does not matter. Main thread.
class SeeingInside final : public TambVizCore::IViewAttribute
{
public:
    /// What the current view shows now.
    static SeeingInside Present();

    std::unique_ptr<TambVizCore::IViewAttribute>
    ApplyTo(TambVizCore::Node& root, const TambVizCore::RenderId& id) const override;

    /// Makes the current view show this, as one step; none when it does already.
    void Apply() const;

    std::vector<TambVizCore::ClipPlane> planes;
    bool showsCaps = true;
    bool isXRay = false;

private:
    SeeingInside() = default;
};

/// Shows some of the nodes it is applied to and hides the others, so that both are one step.
/// Main thread.
class ShowOnly final : public TambVizCore::IViewAttribute
{
public:
    explicit ShowOnly(std::unordered_set<TambVizCore::RenderId> shown);

    std::unique_ptr<TambVizCore::IViewAttribute>
    ApplyTo(TambVizCore::Node& root, const TambVizCore::RenderId& id) const override;

private:
    std::unordered_set<TambVizCore::RenderId> m_shown;
};

} // namespace OrvikCommands

#endif
