#ifndef VIEWOPENGL_SCENERENDERER_H
#define VIEWOPENGL_SCENERENDERER_H

#include "FrameItems.h"
#include "GpuScene.h"
#include "Projection.h"
#include "SectionCap.h"
#include "Shaders.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/RGBAColor.h>

#include <cstddef>
#include <cstdint>
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

/// Draws a scene into the framebuffer that is bound. The context is current in every call.
///
/// A frame collects the bodies in sight, then draws opaque faces, the caps of section planes,
/// lines, points, what is drawn beside the model, and last what is transparent, from back to front.
/// Each body is one draw call a kind: the states of its parts are looked up by the shader.
/// @thread Main thread.
class SceneRenderer
{
public:
    /// Draws a small body that nobody sees, so that the first picture does not wait for the
    /// compiler of the driver.
    void Prepare(const TambVizCore::RenderingOptions& options);

    /// Begins a picture, which EndFrame() ends.
    ///
    /// @param root        The model.
    /// @param objects     What is drawn beside the model; no section plane cuts it.
    /// @param projection  Its depths are fitted to what is drawn.
    /// @param beyond      Around what the caller draws on top, in eye space.
    /// @return the projection with its depths.
    Projection Draw(TambVizCore::Node& root, TambVizCore::Node& objects,
                    const TambVizCore::RenderingOptions& options, const Projection& projection,
                    const Background& background, const TambVizCore::VizBox& beyond);

    /// Draws what is where instead of a picture, as IIdPictureProvider tells it, with the same
    /// means as Draw(): the second colour attachment gets the number of a node and a part index
    /// (all ones for none), the third the depth. EndFrame() ends it.
    ///
    /// @param nodes  Receives the nodes by their numbers less 1; not owned.
    void DrawIds(TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
                 const Projection& projection, std::vector<const TambVizCore::GeoNode*>& nodes);

    /// Draws a small scene over the picture that Draw() began, in front of everything: its own
    /// camera, no section planes, always with faces.
    void DrawInset(TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
                   const Projection& projection);

    /// Ends the picture: lets go of what it did not draw.
    void EndFrame();

    /// Wider lines are drawn as wide as this; 1 at start.
    void SetMaxLineWidth(float pixels) { m_maxLineWidth = pixels; }

    /// Forgets everything in graphics memory.
    void Clear();

    GpuScene& Gpu() { return m_gpu; }

private:
    /// How the primitives of one kind are drawn.
    struct Style
    {
        TambVizCore::PartKind kind = TambVizCore::PartKind::Face;
        TambVizCore::RGBAColor color;
        bool useVertexColors = false;
        bool lit = false;
        bool mixed = false;
        Layer layer = Layer::Opaque;
        float towardEyePixels = 0.0f;
    };

    /// What holds for all bodies of a frame.
    struct Frame
    {
        const TambVizCore::RenderingOptions* options = nullptr; ///< Not owned.
        Projection projection;
        float clipPlanes[kMaxClipPlanes][4] = {}; ///< In eye space; unused ones keep everything.
        int clipPlaneCount = 0;
        bool ids = false; ///< Item, part and depth are written beside the colour.
        std::uint64_t number = 0;
    };

    void beginFrame(const TambVizCore::RenderingOptions& options, const Projection& projection);
    void useProjection(const TambVizCore::RenderingOptions& options, const Projection& projection);
    void setClipPlanes(const TambVizCore::RenderingOptions& options);
    void enableClipPlanes(bool enable);
    void drawBackground(const Background& background);
    void drawOpaque(const std::vector<FrameItem>& items, bool faces);
    void drawTransparent(const std::vector<FrameItem>& items);
    void drawFaces(const FrameItem& item, Layer layer);
    void drawCaps();
    void countBehindPlane(const FrameItem& item, std::size_t plane);
    void drawCap(const FrameItem& item);
    void drawTessellation();
    void drawEdges(const std::vector<FrameItem>& items);
    void drawVertices(const std::vector<FrameItem>& items);
    void drawKind(const FrameItem& item, const Style& style);
    void setFrameUniforms(Shader& shader);
    void setUniforms(Shader& shader, const FrameItem& item, const Style& style);

    GpuScene m_gpu;
    Shaders m_shaders;
    GlVertexArray m_emptyArray; ///< For the background, which has no vertex data.
    Frame m_frame;
    SectionCap m_cap;
    float m_maxLineWidth = 1.0f;
    std::vector<FrameItem> m_items;              ///< Of the frame being drawn; kept for its memory.
    std::vector<FrameItem> m_objects;            ///< The same; what is drawn beside the model.
    std::vector<const FrameItem*> m_transparent; ///< The same.
};

} // namespace ViewOpenGl

#endif
