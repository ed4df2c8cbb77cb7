#include "runtime/FirstFocus.h"

#include <QDockWidget>
#include <QVariant>
#include <QWidget>

namespace Pellux {
namespace {

constexpr char kFirst[] = "firstFocus";

} // namespace

void SetFirstFocus(QWidget& panel, QWidget& first)
{
    panel.setProperty(kFirst, QVariant::fromValue(&first));
}

QWidget* FirstFocus(QWidget& panel)
{
    const auto* const dock = qobject_cast<const QDockWidget*>(&panel);
    QWidget& content = dock == nullptr || dock->widget() == nullptr ? panel : *dock->widget();
    if (auto* const first = content.property(kFirst).value<QWidget*>())
        return first;
    if (content.focusProxy() != nullptr)
        return content.focusProxy();
    QWidget* widget = &content;
    do {
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isEnabled() &&
                               widget->isVisible();
        if (isReached && (widget == &content || content.isAncestorOf(widget)))
            return widget;
        widget = widget->nextInFocusChain();
    } while (widget != &content);
    return nullptr;
}

} // namespace Pellux
