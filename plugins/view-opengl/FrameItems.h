#ifndef VIEWOPENGL_FRAMEITEMS_H
#define VIEWOPENGL_FRAMEITEMS_H

#include "GpuScene.h"
#include "Projection.h"

#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/VizBox.h>

#include <cstdint>
#include <span>
#include <vector>

namespace TambVizCore {
class GeoNode;
class Node;
class RenderingOptions;
} // namespace TambVizCore

namespace ViewOpenGl {

/// One body to draw in a frame; pointers are not owned and valid during the frame.
struct FrameItem
{
    TambVizCore::GeoNode* node = nullptr;
    GpuGeometry* geometry = nullptr;
    const GpuNode* states = nullptr;
    float modelView[16] = {};
    float normalMatrix[9] = {};
    TambVizCore::RGBAColor color;
    bool hasColor = false;
    bool isOwnColored = false;      ///< Lines and points take the colour of the node.
    bool hasTransparency = false;   ///< Some places are not opaque.
    bool hasOpacity = true;         ///< Some places may be opaque.
    float opacity = 1.0f;           ///< Of the node and all above it.
    float unselectedOpacity = 1.0f; ///< Of what is not selected, on top.
    bool culled = false;            ///< Backs are not drawn.
    bool mirrored = false;
    bool auxiliary = false;    ///< Drawn beside the model: no section plane cuts it.
    bool cut = false;          ///< Some section plane passes through its box.
    bool asBox = false;        ///< Only its box is drawn.
    bool leftOut = false;      ///< Nothing of it is drawn.
    GpuLevel* level = nullptr; ///< The coarser version to draw; null for the geometry itself.
    std::uint32_t flags = 0;
    std::uint32_t number = 0; ///< In a picture of ids, from 1.
    TambVizCore::VizBox box;  ///< In eye space.
    double depth = 0.0;       ///< Of the middle of the box.
    double pixels = 0.0;      ///< Across the box; see PixelsAcross.
    double covered = 0.0;     ///< See PixelsCovered.
    double scale = 1.0;       ///< The most that a length of the geometry grows by in eye space.
};

/// Collects the bodies in sight of one frame. @thread Main thread, with the context current.
class FrameItems
{
public:
    /// @param gpu         Not owned; gives each body its place in graphics memory.
    /// @param clipPlanes  float[4] each, in eye space: a point p is kept where plane . (p, 1) is
    /// not
    ///                    below 0. Auxiliary bodies are never cut.
    FrameItems(GpuScene& gpu, const TambVizCore::RenderingOptions& options,
               const Projection& projection, std::span<const float[4]> clipPlanes);

    /// Adds what is visible below a node to @p items.
    ///
    /// @param drawn  grows by the boxes of what is in sight, in eye space.
    void Collect(TambVizCore::Node& root, std::vector<FrameItem>& items,
                 TambVizCore::VizBox& drawn);

private:
    /// What a node takes over from the nodes above it.
    struct Inherited
    {
        double world[16];
        TambVizCore::RGBAColor color;
        bool hasColor = false;
        bool auxiliary = false;
        float opacity = 1.0f;
        std::uint32_t flags = 0;
    };

    void collect(TambVizCore::Node& node, const Inherited& above);
    void addItem(TambVizCore::GeoNode& node, const Inherited& state);
    bool isCutAway(const TambVizCore::VizBox& box, bool& isCut) const;
    void setColors(FrameItem& item, const Inherited& state) const;
    bool mayCull(const FrameItem& item) const;

    GpuScene& m_gpu;
    const TambVizCore::RenderingOptions& m_options;
    const Projection& m_projection;
    std::span<const float[4]> m_clipPlanes;
    std::vector<FrameItem>* m_items = nullptr; ///< Not owned; while collecting.
    TambVizCore::VizBox* m_drawn = nullptr;    ///< Not owned; while collecting.
};

} // namespace ViewOpenGl

#endif
