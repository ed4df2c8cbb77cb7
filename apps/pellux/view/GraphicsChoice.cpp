#include "view/GraphicsChoice.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>
#include <algorithm>
#include <array>
#include <utility>

namespace Pellux {
namespace {

/// GL_RENDERER, in Qt's headers only by way of the system's.
constexpr GLenum kRendererName = 0x1F01;

constexpr std::pair<int, int> kOldestVersion{3, 3};

} // namespace

GraphicsTrial TryGraphics()
{
    QOpenGLContext context;
    context.setFormat(QSurfaceFormat::defaultFormat());
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    if (!context.create() || context.format().version() < kOldestVersion ||
        !context.makeCurrent(&surface))
        return {};
    const auto* const name =
        reinterpret_cast<const char*>(context.functions()->glGetString(kRendererName));
    const GraphicsTrial trial{name != nullptr, QString::fromUtf8(name)};
    context.doneCurrent();
    return trial;
}

bool IsSoftwareRenderer(const QString& renderer)
{
    constexpr std::array kSoftware = {"llvmpipe", "softpipe",    "swrast",     "swr",
                                      "software", "swiftshader", "gdi generic"};
    return std::any_of(kSoftware.begin(), kSoftware.end(), [&renderer](const char* name) {
        return renderer.contains(QLatin1String(name), Qt::CaseInsensitive);
    });
}

GraphicsPath ChooseGraphics(GraphicsWish wish, const GraphicsTrial& trial)
{
    if (!trial.works || wish == GraphicsWish::Image)
        return GraphicsPath::Image;
    return wish == GraphicsWish::Lent || !IsSoftwareRenderer(trial.renderer) ? GraphicsPath::Lent
                                                                             : GraphicsPath::Image;
}

bool ReadGraphicsWish(const QString& text, GraphicsWish& wish)
{
    if (text == QLatin1String("auto"))
        wish = GraphicsWish::Automatic;
    else if (text == QLatin1String("image"))
        wish = GraphicsWish::Image;
    else if (text == QLatin1String("window"))
        wish = GraphicsWish::Lent;
    else
        return false;
    return true;
}

} // namespace Pellux
