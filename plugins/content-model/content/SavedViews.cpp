#include "content/SavedViews.h"

#include "content/Vectors.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/ICameraProvider.h"

#include <TambVizCore/IView3D.h>

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

namespace OrvikModel {

namespace {

/// @return the height that the view must show to hold the saved window; 0 when the file does not
///         say.
double heightToShow(const SavedCamera& saved, const TambVizCore::IView3D& view)
{
    int width = 0;
    int height = 0;
    view.GetWindowSize(width, height);
    const double byWidth =
        width > 0 && height > 0 ? saved.width * static_cast<double>(height) / width : 0.0;
    return std::max(saved.height, byWidth);
}

void toFloats(const Vector3& from, float* to)
{
    for (std::size_t i = 0; i < 3; ++i)
        to[i] = static_cast<float>(from[i]);
}

} // namespace

bool ShowCamera(const SavedCamera& saved, TambVizCore::IView3D& view)
{
    auto* provider = dynamic_cast<OrvikCore::ICameraProvider*>(&view);
    OrvikCore::ACamera* camera = provider ? provider->GetCamera() : nullptr;
    const Vector3 target{saved.target[0], saved.target[1], saved.target[2]};
    const Vector3 back = Vector3{saved.eye[0], saved.eye[1], saved.eye[2]} - target;
    if (!camera || !(Length(back) > 0.0))
        return false;
    double distance = Length(back);
    const double half = 0.5 * static_cast<double>(camera->GetFieldOfViewRadians());
    const double height = heightToShow(saved, view);
    if (saved.orthographic && height > 0.0 && half > 0.0)
        distance = height / (2.0 * std::tan(half));
    float eye[3];
    float center[3];
    float up[3];
    toFloats(target + Normalized(back) * distance, eye);
    toFloats(target, center);
    toFloats({saved.up[0], saved.up[1], saved.up[2]}, up);
    camera->SetCamera(eye, center, up);
    return true;
}

std::vector<bool> ShownByCapture(const Model& model, const ModelNode& capture)
{
    if (capture.visible.empty())
        return {};
    const std::unordered_set<std::uint64_t> named(capture.visible.begin(), capture.visible.end());
    std::unordered_map<const ModelNode*, bool> isShown;
    std::vector<bool> shown;
    for (const ModelNode* node : model.InOrder()) {
        const bool isNamed = named.contains(node->number);
        const bool isBelow = node->parent && isShown[node->parent];
        isShown[node] = isNamed || isBelow;
        shown.push_back(isNamed || isBelow);
    }
    return shown;
}

} // namespace OrvikModel
