#include "controls/ControlsPanel.h"

#include "controls/ExplodeControl.h"
#include "controls/SectionControl.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace Pellux {

ControlsPanel::ControlsPanel(CommandRunner& runner, TambVizCore::IView3D& view, QWidget* parent)
    : QWidget(parent), m_explode(nullptr)
{
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    int number = 1;
    for (SectionControl*& section : m_sections) {
        section = new SectionControl(number++, runner, view, content);
        column->addWidget(section);
    }
    m_explode = new ExplodeControl(runner, content);
    column->addWidget(m_explode);
    column->addStretch(1);
    auto* const area = new QScrollArea(this);
    area->setAccessibleName(tr("Sections and explosion"));
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);
    connect(&runner, &CommandRunner::StateChanged, this, [this] { Guarded([this] { follow(); }); });
}

ControlsPanel::~ControlsPanel() = default;

void ControlsPanel::follow()
{
    for (SectionControl* const section : m_sections)
        section->Follow();
    m_explode->Follow();
}

} // namespace Pellux
