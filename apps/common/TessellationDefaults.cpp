#include "TessellationDefaults.h"

#include <OrvikCore/IContentRenderer.h>

#include <vector>

namespace Pellux {
namespace {

/// A renderer of nothing: the tessellation parameters are shared by all renderers and reached
/// through any of them.
class ParameterAccess final : public OrvikCore::IContentRenderer
{
public:
    ParameterAccess() : IContentRenderer(nullptr) {}

    bool Render() override { return false; }
    bool Rerender() override { return false; }
    bool IsRendererFor(OrvikCore::AContent*) override { return false; }
    bool ConvertToEntityId(const TambVizCore::RenderId&, TambVizCore::EntityId&) override
    {
        return false;
    }
    bool ConvertToRenderId(const TambVizCore::EntityId&, TambVizCore::RenderId&) override
    {
        return false;
    }
    bool ExpandRenderId(const TambVizCore::RenderId&, std::vector<TambVizCore::RenderId>&) override
    {
        return false;
    }

protected:
    void discard() override {}
};

} // namespace

void UseDefaultTessellation()
{
    ParameterAccess().SetTesselationParamters(0, 0, 0);
}

} // namespace Pellux
