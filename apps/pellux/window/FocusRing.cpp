#include "window/FocusRing.h"

#include "runtime/FirstFocus.h"
#include "runtime/Guarded.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QShortcut>

namespace Pellux {
FocusRing::FocusRing(QMainWindow& window, QWidget& view, std::vector<QDockWidget*> docks)
    : QObject(&window), m_window(window), m_parts({&view})
{
    m_parts.insert(m_parts.end(), docks.begin(), docks.end());
    addKey(tr("Goes to the next panel that is shown"), QKeySequence(Qt::Key_F6), 1);
    addKey(tr("Goes back to the panel before"), QKeySequence(Qt::SHIFT | Qt::Key_F6), -1);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* before, QWidget*) { Guarded([&] { remember(before); }); });
}

FocusRing::~FocusRing() = default;

void FocusRing::addKey(const QString& text, const QKeySequence& key, int step)
{
    // Panels that float are windows of their own.
    auto* const shortcut = new QShortcut(key, &m_window);
    shortcut->setContext(Qt::ApplicationShortcut);
    shortcut->setWhatsThis(text);
    connect(shortcut, &QShortcut::activated, this, [this, step] { Guarded([&] { go(step); }); });
}

std::size_t FocusRing::partOf(const QWidget* widget) const
{
    std::size_t part = 0;
    while (part < m_parts.size() && m_parts[part] != widget &&
           !(widget != nullptr && m_parts[part]->isAncestorOf(widget)))
        ++part;
    return part;
}

void FocusRing::remember(QWidget* focused)
{
    if (const std::size_t part = partOf(focused); part < m_parts.size())
        m_places[m_parts[part]] = focused;
}

/// @return false for a panel that is not shown, or that the keyboard cannot enter now.
bool FocusRing::enter(std::size_t part)
{
    QWidget& widget = *m_parts[part];
    if (widget.isHidden())
        return false;
    widget.raise();
    const QPointer<QWidget>& place = m_places[&widget];
    const bool isThere = place != nullptr && place->isVisible() && place->isEnabled();
    QWidget* const target = isThere ? place.data() : FirstFocus(widget);
    if (target == nullptr)
        return false;
    target->activateWindow();
    target->setFocus(Qt::TabFocusReason);
    return true;
}

void FocusRing::go(int step)
{
    const std::size_t count = m_parts.size();
    const std::size_t present = partOf(QApplication::focusWidget());
    // From elsewhere it goes to the view first.
    std::size_t part = present < count ? present : (step > 0 ? count - 1 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        part = (part + (step > 0 ? 1 : count - 1)) % count;
        if (enter(part))
            return;
    }
}

} // namespace Pellux
