#ifndef VIEWOPENGL_FRAMESTATE_H
#define VIEWOPENGL_FRAMESTATE_H

#include <TambVizCore/RGBAColor.h>

#include <cstdint>

namespace OrvikCore {
class ACamera;
}

namespace ViewOpenGl {

/// Where a camera stands and how it looks.
struct CameraState
{
    static CameraState Of(OrvikCore::ACamera& camera);

    bool operator==(const CameraState& other) const = default;

    float eye[3] = {};
    float target[3] = {};
    float up[3] = {};
    float fieldOfView = 0.0f; ///< Radians.
    bool orthographic = true;
};

/// All that a frame depends on but the camera: two frames of equal states are equal.
struct SceneState
{
    bool operator==(const SceneState& other) const = default;

    int width = 0;
    int height = 0;
    double pixelRatio = 1.0;   ///< Of the window.
    std::uint64_t model = 0;   ///< Stamps of the scenes; see TambVizCore::NodeStamps.
    std::uint64_t objects = 0; ///< In the world.
    std::uint64_t front = 0;   ///< In front of the model.
    std::uint64_t frontLabels = 0;
    std::uint64_t corner = 0;
    std::uint64_t labels = 0;
    std::uint64_t options = 0; ///< Their revision.
    bool objectsEnabled = true;
    TambVizCore::RGBAColor top;
    TambVizCore::RGBAColor bottom;
};

/// What a frame shows.
struct FrameState
{
    bool operator==(const FrameState& other) const = default;

    CameraState camera;
    SceneState scene;
};

} // namespace ViewOpenGl

#endif
