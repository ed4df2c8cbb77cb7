#include "View3dOpenGlSG.h"

#include "Projection.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/Dbg.h>
#include <OrvikCore/IFrameWindow.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SceneBuilderFactory.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/Settings.h>
#include <TambVizCore/VizBox.h>
#include <TambVizCore/VizFactories.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::EntityId;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::RenderId;
using TambVizCore::RGBAColor;
using TambVizCore::VizBox;

/// Aperture of hovering, pixels.
constexpr int kHoverAperturePixels = 4;

std::unique_ptr<Node> makeRoot()
{
    if (const auto* const factory = TambVizCore::VizFactories::Instance().GetSceneBuilderFactory())
        return factory->CreateSceneRoot();
    return TambVizCore::SceneBuilderFactory().CreateSceneRoot();
}

} // namespace

View3dOpenGlSG::View3dOpenGlSG()
    : m_root(makeRoot()), m_undoStrategy(std::make_unique<TambVizCore::ViewDoUndoStrategy>(*m_root))
{
    GetSelectionHolder()->SetSceneRoot(m_root.get());
}

View3dOpenGlSG::~View3dOpenGlSG()
{
    GetSelectionHolder()->SetSceneRoot(nullptr);
    dropContext();
}

void View3dOpenGlSG::GetSceneGraphStructure(std::string& out, bool withParts)
{
    out.clear();
    m_root->Print(out, withParts);
}

float View3dOpenGlSG::GetGeometryRadius() const
{
    return static_cast<float>(m_root->WorldBounds().Radius());
}

const float* View3dOpenGlSG::GetGeometryCenter() const
{
    m_root->WorldBounds().GetCenter(m_center);
    return m_center;
}

bool View3dOpenGlSG::GetBoundingBox(const RenderId& id, VizBox& box)
{
    return TambVizCore::GetRenderIdBox(*m_root, id, box);
}

bool View3dOpenGlSG::GetBoundingBox(const EntityId& id, VizBox& box)
{
    RenderId renderId;
    return TambVizCore::FindEntityRenderId(*m_root, id, renderId) &&
           TambVizCore::GetRenderIdBox(*m_root, renderId, box);
}

Node& View3dOpenGlSG::GetSceneRoot()
{
    return *m_root;
}

void View3dOpenGlSG::UpdateDisplay()
{
    if (m_window == nullptr && GetWindowHandle() == nullptr)
        prepare();
    else if (m_window != nullptr && NeedsFrame())
        m_window->PaintNow();
}

void View3dOpenGlSG::Rerender()
{
    if (m_context != nullptr) {
        const GlContext::Current current(*m_context);
        if (current.IsCurrent())
            clearGraphics();
    }
    UpdateDisplay();
}

bool View3dOpenGlSG::ReadImage(int width, int height, TambVizCore::Image& image)
{
    // A context may be lost on the way; the second one is a fresh one.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!preparePicture(width, height))
            return false;
        const GlContext* const used = m_context.get();
        if (drawImage(width, height, image))
            return true;
        if (prepare() && m_context.get() == used)
            return false;
    }
    return false;
}

/// Keeps why a picture could not be drawn. @return false.
bool View3dOpenGlSG::refusePicture(std::string reason)
{
    OrvikCore::dbg << "-- view: " << reason << std::endl;
    m_pictureError = std::move(reason);
    return false;
}

/// @return whether there is a size and a context to draw with.
bool View3dOpenGlSG::preparePicture(int width, int height)
{
    m_pictureError.clear();
    if (width < 1 || height < 1)
        return refusePicture("a picture of " + std::to_string(width) + " x " +
                             std::to_string(height) + " has no pixels");
    if (!prepare()) {
        // It was written down when it was found.
        m_pictureError = m_contextError;
        return false;
    }
    return true;
}

bool View3dOpenGlSG::drawImage(int width, int height, TambVizCore::Image& image)
{
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return refusePicture("the OpenGL context cannot be made current");
    // A frame that is half drawn begins anew.
    m_progress = StageProgress::None;
    beginPicture(width, height, Purpose::Picture, TimeSlice());
    if (!bindTarget(m_target, width, height, affordableSamples(width, height)))
        return false;
    m_renderer.DrawAll();
    endPicture(width, height);
    drawOverlay(width, height);
    m_renderer.EndFrame();
    if (const GLenum error = glGetError(); error != GL_NO_ERROR)
        return refusePicture("OpenGL error " + std::to_string(error) + " while drawing");
    m_target.Read(image);
    return !m_context->IsLost() || refusePicture("the OpenGL context was lost while drawing");
}

bool View3dOpenGlSG::bindTarget(FrameTarget& target, int width, int height, int samples)
{
    if (std::string reason = m_context->Limits().Refusal(width, height); !reason.empty())
        return refusePicture(std::move(reason));
    return target.Bind(width, height, samples) ||
           refusePicture(target.Answer().Refusal(width, height, target.Samples()));
}

void View3dOpenGlSG::DrawDimension(const OrvikCore::Dimension& dimension)
{
    ViewObjects::DrawDimension(dimension);
    if (m_window != nullptr)
        UpdateDisplay();
}

void View3dOpenGlSG::ClearDimensions()
{
    ViewObjects::ClearDimensions();
    if (m_window != nullptr)
        UpdateDisplay();
}

bool View3dOpenGlSG::GetRenderIdAtPixel(int x, int y, RenderId& id)
{
    id.Clear();
    const TambVizCore::RenderingOptions& options = *GetRenderingOptions();
    TambVizCore::ScenePickResult result;
    if (!pickAtPixel(x, y, TambVizCore::kAllPartKinds, options.ShownKinds(), result))
        return false;
    id = result.id;
    return true;
}

bool View3dOpenGlSG::GetSurfacePointAtPixel(int x, int y, float* point)
{
    TambVizCore::ScenePickResult result;
    if (!pickAtPixel(x, y, TambVizCore::ToPartKinds(PartKind::Face), TambVizCore::kAllPartKinds,
                     result))
        return false;
    std::copy_n(result.hit.position, 3, point);
    return true;
}

TambVizCore::IHighlightStrategy* View3dOpenGlSG::GetHighlightStrategy()
{
    return m_undoStrategy.get();
}

void View3dOpenGlSG::GetViewportSize(int& width, int& height) const
{
    width = m_width;
    height = m_height;
}

void View3dOpenGlSG::ResizeViewport(int width, int height)
{
    m_width = std::max(width, 0);
    m_height = std::max(height, 0);
}

bool View3dOpenGlSG::GetViewportBackground(int number, RGBAColor& color) const
{
    if (number != 1 && number != 2)
        return false;
    const std::optional<RGBAColor>& own = m_background[number - 1];
    const TambVizCore::Settings* const current = TambVizCore::Settings::Current();
    const TambVizCore::Settings& settings =
        current == nullptr ? TambVizCore::Settings::Default() : *current;
    color = own           ? *own
            : number == 1 ? settings.GetBackgroundColor1()
                          : settings.GetBackgroundColor2();
    return true;
}

bool View3dOpenGlSG::SetViewportBackground(int number, const RGBAColor& color)
{
    if (number != 1 && number != 2)
        return false;
    m_background[number - 1] = color;
    return true;
}

void View3dOpenGlSG::ClearViewport()
{
    GetSelectionHolder()->ClearHighlight();
    GetSelectionHolder()->ClearSelection();
    GetSelectionHolder()->SetPicked({});
    m_root->RemoveAllChildren();
    ViewObjects::ClearDimensions();
}

bool View3dOpenGlSG::pickAtPixel(int x, int y, TambVizCore::PartKinds kinds,
                                 TambVizCore::PartKinds modelKinds,
                                 TambVizCore::ScenePickResult& result)
{
    if (m_width == 0 || m_height == 0)
        return false;
    OrvikCore::ACamera& camera = *GetCamera();
    TambVizCore::PickQuery query;
    query.ray = camera.Make3DRay(x, y, kHoverAperturePixels);
    query.kinds = kinds;
    query.modelKinds = modelKinds;
    const TambVizCore::RenderingOptions& options = *GetRenderingOptions();
    query.pointClouds = options.GetShowPointClouds();
    query.pmi = options.GetShowPMI();
    query.clipPlanes = options.GetClipPlanes();
    if (camera.IsOrthographic()) {
        // What lies behind the eye is seen all the same in parallel projection.
        const float* const center = GetGeometryCenter();
        float origin[3];
        double away = GetGeometryRadius();
        for (int i = 0; i < 3; ++i)
            away += std::abs(static_cast<double>(query.ray.Origin()[i] - center[i]));
        for (int i = 0; i < 3; ++i)
            origin[i] = query.ray.Origin()[i] - static_cast<float>(away) * query.ray.Direction()[i];
        query.ray.SetOrigin(origin);
    } else {
        float eye[3], target[3], up[3];
        camera.GetCamera(eye, target, up);
        const double distance =
            std::hypot(eye[0] - target[0], eye[1] - target[1], eye[2] - target[2]);
        query.radiusGrowth = distance > 0.0 ? query.ray.Radius() / distance : 0.0;
        query.ray.SetRadius(0.0);
    }
    return TambVizCore::PickNearest(*m_root, query, result);
}

} // namespace ViewOpenGl
