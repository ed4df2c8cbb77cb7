#ifndef VIEWOPENGL_SCENERENDERER_H
#define VIEWOPENGL_SCENERENDERER_H

#include "CapPainter.h"
#include "DetailChoice.h"
#include "FrameCost.h"
#include "FrameItems.h"
#include "GpuScene.h"
#include "Painter.h"
#include "Projection.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/RGBAColor.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace TambVizCore {
class GeoNode;
class Node;
class RenderingOptions;
} // namespace TambVizCore

namespace ViewOpenGl {

/// The two colours of the background.
struct Background
{
    TambVizCore::RGBAColor top;
    TambVizCore::RGBAColor bottom;
};

/// Orders of bodies; equal depths keep the order of the scene, which is that of their addresses.
bool IsBefore(const FrameItem* a, const FrameItem* b);
bool IsBehind(const FrameItem* a, const FrameItem* b);

/// Draws a scene into the framebuffer that is bound. The context is current in every call.
///
/// Begin() collects the bodies in sight. Continue() draws opaque faces from front to back, the caps
/// of section planes, lines, points, what is drawn beside the model, and last what is transparent,
/// from back to front; it stops where a budget ends and goes on there in the next call, while the
/// scene stays as it is. Each body is one draw call a kind, or some where a budget ends inside it:
/// the states of its parts are looked up by the shader.
/// @thread Main thread.
class SceneRenderer
{
public:
    SceneRenderer();
    ~SceneRenderer();

    SceneRenderer(const SceneRenderer&) = delete;
    SceneRenderer& operator=(const SceneRenderer&) = delete;

    /// Draws a small body that nobody sees, so that the first picture does not wait for the
    /// compiler of the driver.
    ///
    /// @param orthographic  whether the first picture is in parallel projection.
    void Prepare(const TambVizCore::RenderingOptions& options, bool orthographic);

    /// Begins a picture, which EndFrame() ends.
    ///
    /// @param root        The model.
    /// @param objects     What is drawn beside the model; no section plane cuts it.
    /// @param options     Not owned; valid until EndFrame().
    /// @param projection  Its depths are fitted to what is drawn.
    /// @param beyond      Around what the caller draws on top, in eye space.
    /// @param upload      how long bodies may be brought into graphics memory; those that are not
    ///                    there by then are drawn as boxes.
    void Begin(TambVizCore::Node& root, TambVizCore::Node& objects,
               const TambVizCore::RenderingOptions& options, const Projection& projection,
               const Background& background, const TambVizCore::VizBox& beyond,
               const TimeSlice& upload);

    /// @return whether all bodies in sight are in graphics memory.
    bool IsUploaded() const { return m_isUploaded; }

    /// @return what drawing all in sight in full comes to.
    FrameWork FullWork() const;

    /// Draws coarser, so that the picture takes at most some time; after Begin(), see
    /// ViewOpenGl::FitBudget.
    /// @return how coarse; the framebuffer that is bound when the drawing begins has that scale.
    Coarseness FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest);

    /// Asks for coarser versions of the bodies in sight.
    void WantLevels();

    /// Draws on. @return true when the picture is complete.
    bool Continue(FrameBudget& budget);

    /// Draws all that is left.
    void DrawAll();

    /// Draws what is where instead of a picture, as IIdPictureProvider tells it, with the same
    /// means: the second colour attachment gets the number of a node and a part index (all ones for
    /// none), the third the depth. EndFrame() ends it.
    ///
    /// @param nodes  Receives the nodes by their numbers less 1; not owned.
    void DrawIds(TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
                 const Projection& projection, std::vector<const TambVizCore::GeoNode*>& nodes);

    /// @return what Begin() was given, with its depths.
    const Projection& FittedProjection() const { return m_projection; }

    /// Draws a small scene over the picture, in front of everything: its own camera, no section
    /// planes, always with faces.
    void DrawInset(TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
                   const Projection& projection);

    /// Ends the picture: lets go of what it did not draw.
    void EndFrame();

    /// Wider lines are drawn as wide as this; 1 at start.
    void SetMaxLineWidth(float pixels) { m_painter.SetMaxLineWidth(pixels); }

    /// Forgets everything in graphics memory.
    void Clear();

    GpuScene& Gpu() { return m_gpu; }
    Painter& GetPainter() { return m_painter; }

private:
    /// Pictures are drawn in this order.
    enum class Pass
    {
        Background,
        Faces,
        Caps,
        Tessellation,
        Edges,
        Vertices,
        Objects,
        Transparent,
        TransparentObjects,
        Done
    };

    using Items = std::vector<const FrameItem*>;

    void beginDrawing();
    void sort();
    bool runPass(FrameBudget& budget);
    bool drawBodies(FrameBudget& budget);
    void drawBackground();
    void drawInTurn(const std::vector<FrameItem>& items);
    void drawTransparentInTurn(const std::vector<FrameItem>& items);
    bool drawFaces(const Items& items, Layer layer, FrameBudget& budget);
    bool drawCaps(FrameBudget& budget);
    bool drawEdges(const Items& items, FrameBudget& budget);
    bool drawVertices(const Items& items, FrameBudget& budget);
    bool drawTessellation(FrameBudget& budget);
    bool drawFacesOf(const FrameItem& item, Layer layer, FrameBudget& budget);
    bool drawAsBox(const FrameItem& item, Layer layer);
    void drawEdgesOfBox(const FrameItem& item, const PaintStyle& style);
    FrameItem boxOf(const FrameItem& item);
    TambVizCore::GeoNode& boxNode();

    GpuScene m_gpu;
    Painter m_painter;
    CapPainter m_caps;
    const TambVizCore::RenderingOptions* m_options = nullptr; ///< Not owned; of this picture.
    Projection m_projection;
    Background m_background;
    std::uint64_t m_sceneStamp = 0;
    bool m_isUploaded = true;
    bool m_drawsEdges = true;         ///< See Coarseness.
    double m_scale = 1.0;             ///< The same.
    std::vector<FrameItem> m_items;   ///< Of the picture being drawn; kept for its memory.
    std::vector<FrameItem> m_objects; ///< The same; what is drawn beside the model.
    std::vector<FrameItem> m_inset;   ///< The same; a small scene drawn on top.
    std::vector<FrameItem*> m_order;  ///< Of FitBudget(); kept for its memory.
    Items m_inOrder;                  ///< Bodies from front to back.
    Items m_transparent;              ///< Bodies from back to front.
    Items m_objectsInTurn;            ///< Of an inset or beside the model.
    // Where the next slice goes on.
    Pass m_pass = Pass::Done;
    std::size_t m_next = 0;       ///< Body.
    int m_nextPrimitive = 0;      ///< Of that body.
    bool m_areFacesDrawn = false; ///< Of that body; its transparent caps are next.
    // The box that stands for a body.
    std::unique_ptr<TambVizCore::Node> m_boxRoot;
    GpuNode m_boxStates; ///< All plain.
};

} // namespace ViewOpenGl

#endif
