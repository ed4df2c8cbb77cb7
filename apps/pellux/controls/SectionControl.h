#ifndef PELLUX_CONTROLS_SECTIONCONTROL_H
#define PELLUX_CONTROLS_SECTIONCONTROL_H

#include "controls/SectionPlane.h"
#include "controls/SectionRows.h"

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
    /// @param title         Number in the title, from 1.
    /// @param runner, view  Not owned; outlive the control.
    SectionControl(int title, CommandRunner& runner, TambVizCore::IView3D& view,
                   QWidget* parent = nullptr);
    ~SectionControl() override;

    SectionControl(const SectionControl&) = delete;
    SectionControl& operator=(const SectionControl&) = delete;

    /// What the control shows.
    const SectionRow& Row() const { return m_row; }

    /// Tells whether the control has ever shown a section.
    bool WasUsed() const { return m_wasUsed; }

    /// Shows a section of the view, unless a hand is at the slider.
    /// @param number  As view:section counts; 0 switches off and keeps the plane for the next time.
    /// @param plane   Of that section; left alone for 0.
    void Follow(int number, const SectionPlane& plane);

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

    const int m_title;
    CommandRunner& m_runner;
    TambVizCore::IView3D& m_view;
    SectionRow m_row;
    QComboBox* m_axis = nullptr; ///< These are owned as children.
    QSlider* m_slider = nullptr;
    QLabel* m_position = nullptr;
    QCheckBox* m_flip = nullptr;
    std::array<QDoubleSpinBox*, 3> m_normal{};
    QWidget* m_freeNormal = nullptr;
    LiveCommand* m_live = nullptr;
    bool m_isFollowing = false;
    bool m_wasUsed = false;
    bool m_hasPreview = false; ///< Whether the last step of the view is a preview.
    std::vector<TambVizCore::ClipPlane> m_beforePreview;
};

} // namespace Pellux

#endif
