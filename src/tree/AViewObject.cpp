#include "OrvikCore/AViewObject.h"

#include "OrvikCore/ViewObjectManager.h"

namespace OrvikCore {

AViewObject::AViewObject() : id(ViewObjectManager::GetNextId()) {}

AViewObject::~AViewObject() = default;

void AViewObject::SetIsVisible(bool const& isVisible)
{
    visible = isVisible;
    if (!rendered) {
        Render();
    }
}

void AViewObject::Render()
{
    if (!rendered) {
        doRender();
    }
}

void AViewObject::Clear()
{
    if (rendered) {
        doClear();
    }
    rendered = false;
}

void AViewObject::Display()
{
    if (visible && rendered) {
        doDisplay();
    }
}

void AViewObject::RenderOptionsUpdated(TambVizCore::RenderingOptions const* options)
{
    if (options != nullptr) {
        doUpdateRenderOptions(*options);
    }
}

std::uint64_t AViewObject::Id() const
{
    return id;
}

std::string AViewObject::Name() const
{
    return name;
}

bool AViewObject::IsVisible() const
{
    return visible;
}

void AViewObject::doUpdateRenderOptions(TambVizCore::RenderingOptions const& /*options*/) {}

} // namespace OrvikCore
