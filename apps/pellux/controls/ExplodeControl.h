#ifndef PELLUX_CONTROLS_EXPLODECONTROL_H
#define PELLUX_CONTROLS_EXPLODECONTROL_H

#include <QGroupBox>

QT_BEGIN_NAMESPACE
class QLabel;
class QSlider;
class QSpinBox;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class LiveCommand;

/// Takes assemblies apart. @thread Main thread.
class ExplodeControl final : public QGroupBox
{
    Q_OBJECT

public:
    /// @param runner  Not owned; outlives the control.
    explicit ExplodeControl(CommandRunner& runner, QWidget* parent = nullptr);
    ~ExplodeControl() override;

    ExplodeControl(const ExplodeControl&) = delete;
    ExplodeControl& operator=(const ExplodeControl&) = delete;

    /// Shows how far things are apart, unless a hand is at the slider.
    void Follow();

private:
    void preview();
    void takePreviewBack();
    QString form() const;

    CommandRunner& m_runner;
    QSlider* m_slider; ///< These are owned as children.
    QLabel* m_amount;
    QSpinBox* m_levels;
    LiveCommand* m_live = nullptr;
    bool m_hasPreview = false; ///< The view's last step is a preview.
};

} // namespace Pellux

#endif
