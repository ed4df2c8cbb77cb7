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
} // namespace TambVizCore

namespace ViewOpenGl {

/// The two colours of the background.
struct Background
{
    TambVizCore::RGBAColor top;
    TambVizCore::RGBAColor bottom;
};

/// Draws a scene into the framebuffer that is bound. The context is current in every call. @thread
/// Main thread.
class SceneRenderer
{
public:
    /// Compiles what every picture needs and draws one invisible triangle with it, so that the
    /// first picture does not wait for the compiler of the driver.
    void Prepare();

    void Draw(const TambVizCore::Node& root, const TambVizCore::RenderingOptions& options,
              const Projection& projection, const Background& background);

    /// Forgets everything in graphics memory.
    void Clear();

private:
    /// What a node takes over from the nodes above it.
    struct Inherited
    {
        double world[16];
        TambVizCore::RGBAColor color;
        bool hasColor = false;
        std::uint32_t flags = 0;
    };

    /// One body to draw.
    struct Item
    {
        const TambVizCore::GeoNode* node = nullptr; ///< Not owned; valid during the frame.
        float modelView[16];
        TambVizCore::RGBAColor color;
        bool hasColor = false;
        std::uint32_t flags = 0;
        double depth = 0.0; ///< Of the middle of its box, along the view.
    };

    /// How the primitives of one kind are drawn.
    struct Style
    {
        TambVizCore::PartKind kind = TambVizCore::PartKind::Face;
        TambVizCore::RGBAColor color;
        bool useVertexColors = false;
        bool lit = false;
    };

    void collect(const TambVizCore::Node& node, const Inherited& above,
                 const Projection& projection, const TambVizCore::RenderingOptions& options);
    void addItem(const TambVizCore::GeoNode& node, const Inherited& state,
                 const Projection& projection, const TambVizCore::RenderingOptions& options);
    void drawBackground(const Background& background);
    void drawFaces(const TambVizCore::RenderingOptions& options, const Projection& projection);
    void drawLines(const Item& item, const TambVizCore::RenderingOptions& options,
                   const Projection& projection);
    void drawKind(const Item& item, const Style& style,
                  const TambVizCore::RenderingOptions& options, const Projection& projection);
    void setUniforms(const Shader& shader, const Item& item, const Style& style,
                     const TambVizCore::RenderingOptions& options, const Projection& projection);

    GpuScene m_gpu;
    Shaders m_shaders;
    GlVertexArray m_emptyArray; ///< For the background, which has no vertex data.
    std::vector<Item> m_items;  ///< Of the frame being drawn; kept for its memory.
};

} // namespace ViewOpenGl

#endif
