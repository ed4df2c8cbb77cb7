#ifndef PELLUX_VIEW_GRAPHICSCHOICE_H
#define PELLUX_VIEW_GRAPHICSCHOICE_H

#include <QString>

namespace Pellux {

/// How the frames of the view reach the window.
enum class GraphicsPath
{
    Image, ///< The view draws with a context of its own; the window paints the picture.
    Lent,  ///< The window lends the view its context; nothing leaves the graphics memory.
};

/// What the user wants of that.
enum class GraphicsWish
{
    Automatic, ///< Lent where there is a graphics processor.
    Image,
    Lent, ///< Also with a software renderer, where the window system offers OpenGL at all.
};

/// What a context made for a trial has shown.
struct GraphicsTrial
{
    bool works = false; ///< It could be made and used, and is OpenGL 3.3 or newer.
    QString renderer;   ///< GL_RENDERER; empty unless it works.
};

/// Makes a context as a widget would get it, without a window, and looks at it. @thread Main
/// thread.
GraphicsTrial TryGraphics();

/// @return true for renderers that compute on the processor.
bool IsSoftwareRenderer(const QString& renderer);

GraphicsPath ChooseGraphics(GraphicsWish wish, const GraphicsTrial& trial);

/// Reads "auto", "image" or "window". @return false for anything else.
bool ReadGraphicsWish(const QString& text, GraphicsWish& wish);

} // namespace Pellux

#endif
