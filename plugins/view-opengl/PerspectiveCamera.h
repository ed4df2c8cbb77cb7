#ifndef VIEWOPENGL_PERSPECTIVECAMERA_H
#define VIEWOPENGL_PERSPECTIVECAMERA_H

#include <OrvikCore/CameraYUp.h>
#include <OrvikCore/CameraZUp.h>

#include <memory>

namespace ViewOpenGl {

/// A camera that sees in perspective and is otherwise like its base. Made from another camera by
/// name, it keeps that one's place.
///
/// @tparam Base  OrvikCore::CameraYUp or OrvikCore::CameraZUp.
/// @thread  As OrvikCore::ACamera.
template <class Base> class PerspectiveCamera final : public Base
{
public:
    explicit PerspectiveCamera(TambVizCore::IView3D* view) : Base(view) {}

    /// @return "CameraYUpPerspective" or "CameraZUpPerspective".
    char* GetName() override
    {
        static char name[] = "Camera?UpPerspective";
        name[6] = Base::GetName()[6];
        return name;
    }

    bool IsOrthographic() const override { return false; }

protected:
    OrvikCore::ACamera* cloneTo(TambVizCore::IView3D* view) const override
    {
        auto clone = std::make_unique<PerspectiveCamera>(view);
        clone->copySettingsFrom(*this);
        return clone.release();
    }
};

} // namespace ViewOpenGl

#endif
