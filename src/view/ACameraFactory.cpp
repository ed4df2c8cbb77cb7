#include "OrvikCore/ACameraFactory.h"

#include "OrvikCore/ACamera.h"

#include <string_view>

namespace OrvikCore {

ACameraFactory::~ACameraFactory()
{
    for (ACamera* prototype : m_prototypes) {
        delete prototype;
    }
    m_prototypes.clear();
}

void ACameraFactory::AddPrototype(ACamera* prototype)
{
    if (prototype != nullptr) {
        m_prototypes.push_back(prototype);
    }
}

ACamera* ACameraFactory::MakeCamera(TambVizCore::IView3D* view, const char* name) const
{
    const ACamera* prototype = find(name);
    return prototype != nullptr ? prototype->cloneTo(view) : nullptr;
}

ACamera* ACameraFactory::MakeCamera(const ACamera& other, const char* name) const
{
    ACamera* camera = MakeCamera(other.GetView3D(), name);
    if (camera != nullptr) {
        camera->copySettingsFrom(other);
    }
    return camera;
}

ACamera* ACameraFactory::find(const char* name) const
{
    if (name == nullptr) {
        return nullptr;
    }
    for (ACamera* prototype : m_prototypes) {
        if (std::string_view(prototype->GetName()) == name) {
            return prototype;
        }
    }
    return nullptr;
}

} // namespace OrvikCore
