#ifndef PELLUX_CONTROLS_CONTROLSPANEL_H
#define PELLUX_CONTROLS_CONTROLSPANEL_H

#include <QWidget>
#include <array>
#include <vector>

QT_BEGIN_NAMESPACE
class QCheckBox;
QT_END_NAMESPACE

namespace TambVizCore {
class IView3D;
}

namespace Pellux {

class CommandRunner;
class ExplodeControl;
class SectionControl;
struct SectionPlane;

/// Section planes and explosion of a view. @thread Main thread.
class ControlsPanel final : public QWidget
{
    Q_OBJECT

public:
    /// @param runner, view  Not owned; outlive the panel.
    ControlsPanel(CommandRunner& runner, TambVizCore::IView3D& view, QWidget* parent = nullptr);
    ~ControlsPanel() override;

    ControlsPanel(const ControlsPanel&) = delete;
    ControlsPanel& operator=(const ControlsPanel&) = delete;

private:
    void follow();
    void followSections(const std::vector<SectionPlane>& present);

    TambVizCore::IView3D& m_view;
    std::array<SectionControl*, 3> m_sections{}; ///< Owned as children.
    QCheckBox* m_caps = nullptr;                 ///< Owned as a child.
    ExplodeControl* m_explode;                   ///< Owned as a child.
};

} // namespace Pellux

#endif
