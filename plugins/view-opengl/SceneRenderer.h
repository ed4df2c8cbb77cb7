#ifndef VIEWOPENGL_SCENERENDERER_H
#define VIEWOPENGL_SCENERENDERER_H

#include "GpuScene.h"
#include "Projection.h"
#include "Shaders.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/RGBAColor.h>

#include <cstdint>
#include <vector>

namespace TambVizCore {
class GeoNode;
class Node;
class RenderingOptions;
class VizBox;
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
/// A frame collects the bodies in sight, then draws opaque faces, lines, points, and last what is
/// transparent, from back to front. Each body is one draw call a kind: the states of its parts are
/// looked up by the shader. @thread Main thread.
class SceneRenderer
{
public:
    /// Draws a small body that nobody sees, so that the first picture does not wait for the
    /// compiler of the driver.
    void Prepare(const TambVizCore::RenderingOptions& options);

    /// @param projection  Its depths are fitted to what is drawn.
    void Draw(TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
              Projection projection, const Background& background);

    /// Forgets everything in graphics memory.
    void Clear();

    GpuScene& Gpu() { return m_gpu; }

private:
    /// What a node takes over from the nodes above it.
    struct Inherited
    {
        double world[16];
        TambVizCore::RGBAColor color;
        bool hasColor = false;
        bool auxiliary = false;
        std::uint32_t flags = 0;
    };

    /// One body to draw; pointers are not owned and valid during the frame.
    struct Item
    {
        TambVizCore::GeoNode* node = nullptr;
        GpuGeometry* geometry = nullptr;
        const GpuNode* states = nullptr;
        float modelView[16];
        float normalMatrix[9];
        TambVizCore::RGBAColor color;
        bool hasColor = false;
        bool isOwnColored = false;    ///< Lines and points take the colour of the node.
        bool hasTransparency = false; ///< Some places are not opaque.
        bool hasOpacity = true;       ///< Some places may be opaque.
        bool culled = false;          ///< Backs are not drawn.
        bool mirrored = false;
        std::uint32_t flags = 0;
        double depth = 0.0; ///< Of the middle of its box.
    };

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
        std::uint64_t number = 0;
    };

    void beginFrame(const TambVizCore::RenderingOptions& options, const Projection& projection);
    void collect(TambVizCore::Node& node, const Inherited& above, TambVizCore::VizBox& drawn);
    void addItem(TambVizCore::GeoNode& node, const Inherited& state, TambVizCore::VizBox& drawn);
    bool mayCull(const Item& item, const TambVizCore::VizBox& box) const;
    void drawBackground(const Background& background);
    void drawOpaqueFaces();
    void drawTransparentFaces();
    void drawFaces(const Item& item, Layer layer);
    void drawTessellation();
    void drawEdges();
    void drawVertices();
    void drawKind(const Item& item, const Style& style);
    void setFrameUniforms(Shader& shader);
    void setUniforms(Shader& shader, const Item& item, const Style& style);

    GpuScene m_gpu;
    Shaders m_shaders;
    GlVertexArray m_emptyArray; ///< For the background, which has no vertex data.
    Frame m_frame;
    std::vector<Item> m_items;              ///< Of the frame being drawn; kept for its memory.
    std::vector<const Item*> m_transparent; ///< The same.
};

} // namespace ViewOpenGl

#endif
