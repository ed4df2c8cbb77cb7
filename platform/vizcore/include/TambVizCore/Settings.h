#ifndef TAMBVIZCORE_SETTINGS_H
#define TAMBVIZCORE_SETTINGS_H

#include "TambVizCore/Antialiasing.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/RGBAColor.h"

#include <memory>

namespace TambVizCore {

/// The user's display settings: a record of colours and switches, copied by value.
///
/// A new record holds the built-in defaults: face (180, 186, 196), edge (32, 32, 32), tessellation
/// edge (96, 96, 96), vertex (16, 16, 16), highlight (255, 140, 0), background 1 (above)
/// (214, 224, 236), background 2 (below) (250, 251, 253), all with alpha 255; antialiasing
/// chosen by the view; edges 1 pixel wide; 20 steps of an animated move; picks are not copied to
/// the clipboard; rendering is not incremental.
///
/// One record is the current one of the process. Writing to it draws nothing: whoever changes it
/// hands the values to the view's RenderingOptions.
///
/// @thread Main thread.
class TAMBVIZCORE_API Settings
{
public:
    Settings() = default;

    /// @return the current record, not owned, valid until SetCurrent; null after SetCurrent(null).
    ///         At start it is a record of defaults.
    static Settings* Current();

    /// Keeps @p settings (transferred in; null allowed) as the current record and deletes the one
    /// held before.
    static void SetCurrent(std::unique_ptr<Settings> settings);

    /// @return a record that always holds the built-in defaults.
    static const Settings& Default();

    /// The default colour of bodies and faces.
    const RGBAColor& GetDefaultFaceColor() const { return m_faceColor; }
    void SetDefaultFaceColor(const RGBAColor& color) { m_faceColor = color; }

    const RGBAColor& GetDefaultEdgeColor() const { return m_edgeColor; }
    void SetDefaultEdgeColor(const RGBAColor& color) { m_edgeColor = color; }

    /// The colour of triangle borders when the tessellation is shown.
    const RGBAColor& GetDefaultTessEdgeColor() const { return m_tessEdgeColor; }
    void SetDefaultTessEdgeColor(const RGBAColor& color) { m_tessEdgeColor = color; }

    const RGBAColor& GetDefaultVertexColor() const { return m_vertexColor; }
    void SetDefaultVertexColor(const RGBAColor& color) { m_vertexColor = color; }

    const RGBAColor& GetHighlightColor() const { return m_highlightColor; }
    void SetHighlightColor(const RGBAColor& color) { m_highlightColor = color; }

    /// The colour at the top of the background.
    const RGBAColor& GetBackgroundColor1() const { return m_backgroundColor1; }
    void SetBackgroundColor1(const RGBAColor& color) { m_backgroundColor1 = color; }

    /// The colour at the bottom of the background.
    const RGBAColor& GetBackgroundColor2() const { return m_backgroundColor2; }
    void SetBackgroundColor2(const RGBAColor& color) { m_backgroundColor2 = color; }

    /// Samples per pixel; 0 and 1 mean no antialiasing, kAutomaticAntialiasing what the view holds
    /// to be affordable.
    int GetAntialiasLevel() const { return m_antialiasLevel; }

    /// Values below -1 become -1, values above 16 become 16.
    void SetAntialiasLevel(int level);

    /// Whether the text of a pick is placed on the clipboard.
    bool GetCopyPickToClipboard() const { return m_copyPickToClipboard; }
    void SetCopyPickToClipboard(bool copy) { m_copyPickToClipboard = copy; }

    /// Whether large scenes are uploaded and refined in slices.
    bool GetUseIncrementalRendering() const { return m_useIncrementalRendering; }
    void SetUseIncrementalRendering(bool use) { m_useIncrementalRendering = use; }

    /// How wide edges are drawn, pixels; lines with a width of their own are as many times wider.
    float GetLineWidth() const { return m_lineWidth; }

    /// Values outside of 1 to 16 become the nearest of these; what is no number becomes 1.
    void SetLineWidth(float pixels);

    /// Steps of 30 milliseconds that an animated move of the camera takes.
    int GetAnimationSteps() const { return m_animationSteps; }

    /// Values outside of 2 to 100 become the nearest of these.
    void SetAnimationSteps(int steps);

    bool operator==(const Settings& other) const = default;

private:
    RGBAColor m_faceColor{180, 186, 196};
    RGBAColor m_edgeColor{32, 32, 32};
    RGBAColor m_tessEdgeColor{96, 96, 96};
    RGBAColor m_vertexColor{16, 16, 16};
    RGBAColor m_highlightColor{255, 140, 0};
    RGBAColor m_backgroundColor1{214, 224, 236};
    RGBAColor m_backgroundColor2{250, 251, 253};
    int m_antialiasLevel = kAutomaticAntialiasing;
    bool m_copyPickToClipboard = false;
    bool m_useIncrementalRendering = false;
    float m_lineWidth = 1.0f;
    int m_animationSteps = 20;
};

} // namespace TambVizCore

#endif
