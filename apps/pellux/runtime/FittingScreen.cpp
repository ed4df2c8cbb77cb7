#include "runtime/FittingScreen.h"

#include <QScreen>
#include <QWidget>

namespace Pellux {
namespace {

/// What a window manager may put around a window.
constexpr QSize kFrame(10, 40);

} // namespace

QSize FittingScreen(const QWidget& on, const QSize& wanted)
{
    return wanted.boundedTo(on.screen()->availableSize() - kFrame);
}

} // namespace Pellux
