#ifndef TAMBVIZCORE_RENDERINGOPTIONS_H
#define TAMBVIZCORE_RENDERINGOPTIONS_H

#include "TambVizCore/Antialiasing.h"
#include "TambVizCore/ClipPlane.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/PartKind.h"
#include "TambVizCore/RGBAColor.h"

#include <cstdint>
#include <vector>

namespace TambVizCore {

/// How one view draws: what is shown, default colours, antialiasing, section planes.
///
/// Held by the view's adapter. Every setter that changes a value counts up Revision(), so a view
/// finds out with one comparison whether it has to draw again. Setters do not draw.
///
/// @thread Main thread.
class TAMBVIZCORE_API RenderingOptions
{
public:
    /// Makes options with everything shown but vertices and tessellation, and the colours of
    /// Settings::Default().
    RenderingOptions();

    /// @return new options, the same as the constructor makes.
    static RenderingOptions CreateDefault();

    bool GetShowFaces() const { return m_showFaces; }
    void SetShowFaces(bool show);
    bool GetShowEdges() const { return m_showEdges; }
    void SetShowEdges(bool show);
    bool GetShowVertices() const { return m_showVertices; }
    /// The kinds of these three that are shown.
    PartKinds ShownKinds() const;
    void SetShowVertices(bool show);
    bool GetShowTessellation() const { return m_showTessellation; }
    void SetShowTessellation(bool show);
    bool GetShowPointClouds() const { return m_showPointClouds; }
    void SetShowPointClouds(bool show);
    bool GetShowPMI() const { return m_showPMI; }
    void SetShowPMI(bool show);

    /// The colour of a body whose content gives none.
    const RGBAColor& GetDefaultBodyColor() const { return m_bodyColor; }
    void SetDefaultBodyColor(const RGBAColor& color);
    /// The colour of a face that belongs to no body.
    const RGBAColor& GetDefaultFaceColor() const { return m_faceColor; }
    void SetDefaultFaceColor(const RGBAColor& color);
    const RGBAColor& GetDefaultEdgeColor() const { return m_edgeColor; }
    void SetDefaultEdgeColor(const RGBAColor& color);
    const RGBAColor& GetDefaultTessEdgeColor() const { return m_tessEdgeColor; }
    void SetDefaultTessEdgeColor(const RGBAColor& color);
    const RGBAColor& GetDefaultVertexColor() const { return m_vertexColor; }
    void SetDefaultVertexColor(const RGBAColor& color);
    const RGBAColor& GetHighlightColor() const { return m_highlightColor; }
    void SetHighlightColor(const RGBAColor& color);

    /// Whether everything that is not selected is drawn as through frosted glass; false at start.
    bool GetXRay() const { return m_xRay; }
    void SetXRay(bool xRay);

    /// Samples per pixel; 0 and 1 mean none, kAutomaticAntialiasing as many as the view holds to
    /// be affordable.
    int GetAntialiasLevel() const { return m_antialiasLevel; }
    /// Values below -1 become -1, values above 16 become 16.
    void SetAntialiasLevel(int level);

    /// How many times wider than a model says its edges are drawn; 1 at start.
    float GetLineWidth() const { return m_lineWidth; }
    /// Values outside of 1 to 16 become the nearest of these; what is no number becomes 1.
    void SetLineWidth(float factor);

    /// Section planes in world units; what any of them cuts away is neither drawn nor picked.
    const std::vector<ClipPlane>& GetClipPlanes() const { return m_clipPlanes; }
    /// At most 6 planes are kept, the first ones.
    void SetClipPlanes(const std::vector<ClipPlane>& planes);

    /// Whether solids that section planes cut are closed in their colour; true at start.
    bool GetShowCaps() const { return m_showCaps; }
    void SetShowCaps(bool show);

    /// Starts at 0 and grows by one with every change of a value.
    std::uint64_t Revision() const { return m_revision; }

private:
    template <class T> void assign(T& field, const T& value);
    /// The same for what decides what can be picked.
    template <class T> void assignSeen(T& field, const T& value);

    bool m_showFaces = true;
    bool m_showEdges = true;
    bool m_showVertices = false;
    bool m_showTessellation = false;
    bool m_showPointClouds = true;
    bool m_showPMI = true;
    RGBAColor m_bodyColor;
    RGBAColor m_faceColor;
    RGBAColor m_edgeColor;
    RGBAColor m_tessEdgeColor;
    RGBAColor m_vertexColor;
    RGBAColor m_highlightColor;
    bool m_xRay = false;
    int m_antialiasLevel = 0;
    float m_lineWidth = 1.0f;
    std::vector<ClipPlane> m_clipPlanes;
    bool m_showCaps = true;
    std::uint64_t m_revision = 0;
};

} // namespace TambVizCore

#endif
