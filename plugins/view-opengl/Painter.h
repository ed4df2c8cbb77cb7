#ifndef VIEWOPENGL_PAINTER_H
#define VIEWOPENGL_PAINTER_H

#include "FrameCost.h"
#include "FrameItems.h"
#include "GpuScene.h"
#include "Projection.h"
#include "Shaders.h"

#include <TambVizCore/PartKind.h>
#include <TambVizCore/RGBAColor.h>

#include <cstdint>
#include <span>

namespace TambVizCore {
class RenderingOptions;
}

namespace ViewOpenGl {

/// How the primitives of one kind are drawn.
struct PaintStyle
{
    TambVizCore::PartKind kind = TambVizCore::PartKind::Face;
    TambVizCore::RGBAColor color;
    bool useVertexColors = false;
    bool usePartColors = true; ///< Parts with a colour of their own have it.
    bool lit = false;
    bool mixed = false;
    bool mayCull = false; ///< Backs are left out where the body allows it.
    Layer layer = Layer::Opaque;
    float towardEyePixels = 0.0f;
    float nearer = 0.0f; ///< By so much, of depths from -1 to 1.
    float lineWidth = 1.0f;
};

/// A run of primitives.
struct PrimitiveRun
{
    int first = 0;
    int count = 0;
};

/// Draws primitives of bodies: finds the program, sets what it needs, calls OpenGL. The context is
/// current in every call. @thread Main thread.
class Painter
{
public:
    /// @param gpu  Not owned; outlives the painter.
    explicit Painter(GpuScene& gpu) : m_gpu(gpu) {}

    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    /// What follows is seen by another camera, without section planes.
    /// @param options  Not owned; valid while something is drawn with them.
    void Use(const TambVizCore::RenderingOptions& options, const Projection& projection);

    /// Fits the depths of the camera to what is drawn.
    void FitDepth(const TambVizCore::VizBox& drawn);

    /// The section planes of the options cut from now on, or none.
    void UseClipPlanes(bool use);

    /// @return float[4] each, in eye space; those in use.
    std::span<const float[4]> ClipPlanes() const;

    /// All section planes but one keep everything from now on; RestoreClipPlanes ends it.
    void UseOneClipPlane(std::size_t plane);
    void RestoreClipPlanes();

    /// @return how many primitives of a kind a body has as it is drawn now.
    int Count(const FrameItem& item, TambVizCore::PartKind kind) const;

    void Draw(const FrameItem& item, const PaintStyle& style, const PrimitiveRun& run);
    void DrawWhole(const FrameItem& item, const PaintStyle& style);

    /// Draws what is left of a kind of primitives of a body.
    /// @param next  Primitive to go on with; 0 at the end.
    /// @return false when the budget ended before.
    bool DrawPieces(const FrameItem& item, const PaintStyle& style, int& next, FrameBudget& budget);

    /// Makes ready for flat triangles in eye space, in one lit colour.
    /// @param nearer  see PaintStyle.
    /// @return false when there is no program.
    bool UseFlat(const FrameItem& item, const TambVizCore::RGBAColor& color, float nearer);

    /// Fills the picture with two colours.
    void DrawBackground(const TambVizCore::RGBAColor& top, const TambVizCore::RGBAColor& bottom);

    /// Whether item, part and depth are written beside the colour; false at start.
    void WriteIds(bool write) { m_ids = write; }

    /// Brings the state that a painter keeps to what a context starts with.
    void Rest();

    /// @param pixels  as the scene has it; it grows with the picture.
    void SetLineWidth(float pixels);

    /// Wider lines are drawn as wide as this; 1 at start.
    void SetMaxLineWidth(float pixels) { m_maxLineWidth = pixels; }

    const Projection& GetProjection() const { return m_projection; }
    const TambVizCore::RenderingOptions& Options() const { return *m_options; }

    /// @return what was drawn since the last ResetWork().
    const FrameWork& Work() const { return m_work; }
    void ResetWork() { m_work = FrameWork(); }

    /// Forgets everything in graphics memory.
    void Clear();

private:
    void enableClipPlanes(bool enable);
    const GpuPrimitives& primitivesOf(const FrameItem& item, TambVizCore::PartKind kind) const;
    void setFaceState(const FrameItem& item, const PaintStyle& style);
    void setFrameUniforms(Shader& shader);
    void setUniforms(Shader& shader, const FrameItem& item, const PaintStyle& style);

    GpuScene& m_gpu;
    Shaders m_shaders;
    GlVertexArray m_emptyArray; ///< For the background, which has no vertex data.
    const TambVizCore::RenderingOptions* m_options = nullptr; ///< Not owned.
    Projection m_projection;
    float m_clipPlanes[kMaxClipPlanes][4] = {}; ///< In eye space; unused ones keep everything.
    float m_savedPlanes[kMaxClipPlanes][4] = {};
    int m_clipPlaneCount = 0;
    int m_enabledPlanes = 0;
    bool m_ids = false;
    std::uint64_t m_number = 0; ///< Of what programs were told that holds for all bodies.
    float m_maxLineWidth = 1.0f;
    FrameWork m_work;
};

} // namespace ViewOpenGl

#endif
