#ifndef VIEWOPENGL_TEXT_TEXTLABELS_H
#define VIEWOPENGL_TEXT_TEXTLABELS_H

#include "GlObjects.h"
#include "Projection.h"
#include "text/TextRaster.h"

#include <OrvikCore/TextItem3D.h>
#include <TambVizCore/VizBox.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

namespace ViewOpenGl {

/// Whether a text begins at its anchor or has its middle there.
enum class LabelStart
{
    AtAnchor,
    MiddleAtAnchor,
};

/// The text labels of a view: which there are, and drawing them into the picture that is bound.
///
/// A label that faces the camera keeps its size in pixels and is drawn in front of everything; the
/// others lie in the world and are hidden by what is before them. @thread Main thread.
class TextLabels
{
public:
    TextLabels();
    ~TextLabels();

    TextLabels(const TextLabels&) = delete;
    TextLabels& operator=(const TextLabels&) = delete;

    // These three need no context: what a label has in graphics memory is given back by the next
    // Draw() or ClearGraphics().

    /// @param id  tells labels apart; one that is there already is replaced.
    void Add(std::uint64_t id, const OrvikCore::TextItem3D& item,
             LabelStart start = LabelStart::AtAnchor);
    /// Sets the offsets from the anchor; see TextItem3D.
    void SetOffset(std::uint64_t id, float x, float y);
    void Remove(std::uint64_t id);
    void SetVisible(std::uint64_t id, bool visible);

    /// @return a number that grows with every change of a label.
    std::uint64_t Revision() const { return m_revision; }

    /// @return a box around the visible labels that lie in the world, in eye space.
    /// @param view  double[16], world to eye.
    TambVizCore::VizBox Bounds(const double* view) const;

    /// Draws every visible label. The context is current, the depths of the model are in the
    /// framebuffer.
    ///
    /// @param projection  that of the model, with its depths fitted.
    /// @param pixelScale  pixels of the picture per pixel of the window.
    void Draw(const Projection& projection, int width, int height, double pixelScale);

    /// Forgets everything in graphics memory. The context is current.
    void ClearGraphics();

    /// @return how many textures are kept, those that wait to be given back included.
    std::size_t TextureCount() const;

private:
    struct Label
    {
        OrvikCore::TextItem3D item;
        LabelStart start = LabelStart::AtAnchor;
        bool visible = true;
        int drawnPixels = 0; ///< Height of a capital letter in the texture; 0 for no texture yet.
        int width = 0;       ///< Of the texture.
        int height = 0;
        int baseline = 0;
        GlTexture texture;
    };

    void drop(std::uint64_t id);
    bool prepareProgram();
    bool prepareTexture(Label& label, int capitalPixels);
    void drawLabel(Label& label, const Projection& projection, int width, int height,
                   double pixelScale);

    std::map<std::uint64_t, Label> m_labels;
    std::vector<GlTexture> m_dropped; ///< Of labels that have gone.
    std::uint64_t m_revision = 0;
    TextRaster m_raster;
    GlProgram m_program;
    bool m_programFailed = false;
    GlVertexArray m_array;
    GlBuffer m_buffer;
    GLint m_textColor = -1;
    GLint m_backgroundColor = -1;
};

} // namespace ViewOpenGl

#endif
