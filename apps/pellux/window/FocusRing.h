#ifndef PELLUX_WINDOW_FOCUSRING_H
#define PELLUX_WINDOW_FOCUSRING_H

#include <QObject>
#include <QPointer>
#include <map>
#include <vector>

QT_BEGIN_NAMESPACE
class QDockWidget;
class QMainWindow;
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

/// Moves the keyboard from one part of the window to the next: F6 goes on, Shift+F6 back, over the
/// view and every panel that is shown. A part is entered where it was left. @thread Main thread.
class FocusRing final : public QObject
{
    Q_OBJECT

public:
    /// @param window  Gets the two keys. Not owned, as the others; outlive the ring.
    /// @param view    The first part.
    /// @param docks   The others, in their order.
    FocusRing(QMainWindow& window, QWidget& view, std::vector<QDockWidget*> docks);
    ~FocusRing() override;

    FocusRing(const FocusRing&) = delete;
    FocusRing& operator=(const FocusRing&) = delete;

private:
    void addKey(const QString& text, const QKeySequence& key, int step);
    void go(int step);
    void remember(QWidget* focused);
    std::size_t partOf(const QWidget* widget) const;
    bool enter(std::size_t part);

    QMainWindow& m_window;
    std::vector<QWidget*> m_parts;                  ///< The view and the docks; not owned.
    std::map<QWidget*, QPointer<QWidget>> m_places; ///< Where each part was left.
};

} // namespace Pellux

#endif
