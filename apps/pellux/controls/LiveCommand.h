#ifndef PELLUX_CONTROLS_LIVECOMMAND_H
#define PELLUX_CONTROLS_LIVECOMMAND_H

#include <QObject>
#include <QTimer>
#include <functional>

QT_BEGIN_NAMESPACE
class QAbstractSlider;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;

/// Makes one command of what a hand does to a slider: previews while it moves, the command when it
/// is let go, or has rested under keys or wheel. @thread Main thread.
class LiveCommand final : public QObject
{
    Q_OBJECT

public:
    /// @param slider   Not owned, as the runner; both outlive this object.
    /// @param preview  Shows the slider's value, beside the engine.
    /// @param form     Takes the last preview back where needed and gives the command's text.
    LiveCommand(QAbstractSlider& slider, CommandRunner& runner, std::function<void()> preview,
                std::function<QString()> form);
    ~LiveCommand() override;

    LiveCommand(const LiveCommand&) = delete;
    LiveCommand& operator=(const LiveCommand&) = delete;

    /// Tells whether a hand is at the slider: it is not to be set then.
    bool IsUnderWay() const;

    /// Sets the slider to what is so, without a command.
    void Show(int value);

private:
    void changed();
    void commit();

    QAbstractSlider& m_slider;
    CommandRunner& m_runner;
    std::function<void()> m_preview;
    std::function<QString()> m_form;
    QTimer m_previewTimer; ///< Values that come faster than pictures share one.
    QTimer m_restTimer;
    bool m_isShowing = false;
};

} // namespace Pellux

#endif
