#ifndef PELLUX_CONTROLS_SECTIONCONTROL_H
#define PELLUX_CONTROLS_SECTIONCONTROL_H

#include "controls/SectionPlane.h"

#include <QGroupBox>
#include <array>
#include <vector>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QSlider;
QT_END_NAMESPACE

namespace TambVizCore {
class IView3D;
}

namespace Pellux {

class CommandRunner;
class LiveCommand;

/// Switches one section plane on and off and moves it. @thread Main thread.
class SectionControl final : public QGroupBox
{
    Q_OBJECT

public:
    /// @param number        From 1, as view:section counts.
    /// @param runner, view  Not owned; outlive the control.
    SectionControl(int number, CommandRunner& runner, TambVizCore::IView3D& view,
                   QWidget* parent = nullptr);
    ~SectionControl() override;

    SectionControl(const SectionControl&) = delete;
    SectionControl& operator=(const SectionControl&) = delete;

    /// Shows the plane of the view, unless a hand is at the slider.
    void Follow();

private:
    void layOut();
    void connectParts();
    void switchOn(bool isOn);
    void chooseAxis(int axis);
    void showPlane();
    void run();
    void preview();
    void takePreviewBack();
    SectionPlane atSlider() const;
    std::array<double, 2> range() const;
    std::vector<TambVizCore::ClipPlane> planes() const;

    int m_number;
    CommandRunner& m_runner;
    TambVizCore::IView3D& m_view;
    SectionPlane m_plane;
    QComboBox* m_axis = nullptr; ///< These are owned as children.
    QSlider* m_slider = nullptr;
    QLabel* m_position = nullptr;
    QCheckBox* m_flip = nullptr;
    std::array<QDoubleSpinBox*, 3> m_normal{};
    QWidget* m_freeNormal = nullptr;
    LiveCommand* m_live = nullptr;
    bool m_isFollowing = false;
    bool m_hasPreview = false; ///< Whether the last step of the view is a preview.
    std::vector<TambVizCore::ClipPlane> m_beforePreview;
};

} // namespace Pellux

#endif
