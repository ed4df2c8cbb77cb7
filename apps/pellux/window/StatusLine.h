#ifndef PELLUX_WINDOW_STATUSLINE_H
#define PELLUX_WINDOW_STATUSLINE_H

#include <QStatusBar>
#include <QString>
#include <QTimer>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QToolButton;
QT_END_NAMESPACE

namespace TambCommandsInfra {
struct ProgressReport;
}

namespace Pellux {

class CommandRunner;

/// The line below the window: what lies under the pointer, how much is selected, what the view
/// draws and how long that takes, and while something runs how far it has come, with a button to
/// cancel it. @thread Main thread.
class StatusLine final : public QStatusBar
{
    Q_OBJECT

public:
    /// Observes the progress of the process and what runs.
    /// @param runner  Not owned; outlives the line.
    explicit StatusLine(CommandRunner& runner, QWidget* parent = nullptr);

    /// Observes the progress no more.
    ~StatusLine() override;

    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    /// Shows what lies under the pointer; an empty text for nothing.
    void ShowPointed(const QString& text);

    void ShowSelectionCount(qsizetype count);

    /// @param triangles  Of what is shown.
    void ShowTriangles(std::uint64_t triangles);

    /// @param milliseconds  What the last frame took.
    void ShowFrameTime(double milliseconds);

    /// Says until what runs has ended that the window closes then.
    void ShowClosing();

private:
    QLabel* addLabel(const char* name, const QString& accessibleName);
    void setBusy(bool isBusy);
    void showProgress(const TambCommandsInfra::ProgressReport& report);

    CommandRunner& m_runner;
    // Owned by the line as its children.
    QLabel* m_pointed;
    QLabel* m_selected;
    QLabel* m_triangles;
    QLabel* m_frameTime;
    QProgressBar* m_progress;
    QToolButton* m_cancel;
    QTimer m_showLater; ///< What is over at once shows no mark.
};

} // namespace Pellux

#endif
