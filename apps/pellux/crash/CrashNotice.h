#ifndef PELLUX_CRASH_CRASHNOTICE_H
#define PELLUX_CRASH_CRASHNOTICE_H

#include "crash/RunningMark.h"

#include <QFrame>
#include <vector>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace Pellux {

/// A bar that says that an earlier run did not end as it should, names its crash report, and offers
/// its journal. It shows one run after the other, the latest first. @thread Main thread.
class CrashNotice final : public QFrame
{
    Q_OBJECT

public:
    explicit CrashNotice(QWidget* parent = nullptr);

    /// Shows the runs; hides itself when there is none (left).
    void ShowRuns(std::vector<CrashedRun> runs);

    /// Replaying is off while something runs.
    void SetBusy(bool isBusy);

Q_SIGNALS:
    /// The journal of the run is to be shown.
    void OpenWanted(const QString& journal);

    /// The journal of the run is to be run again, up to its last command.
    void ReplayWanted(const QString& journal);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showFirst();
    void dismiss();

    std::vector<CrashedRun> m_runs; ///< The first is shown.
    // Owned by the bar as its children.
    QLabel* m_text;
    QPushButton* m_open;
    QPushButton* m_replay;
};

} // namespace Pellux

#endif
