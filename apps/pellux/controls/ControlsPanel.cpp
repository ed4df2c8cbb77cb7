#include "controls/ControlsPanel.h"

#include "controls/ExplodeControl.h"
#include "controls/SectionControl.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderingOptions.h>

#include <QCheckBox>
#include <QEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace Pellux {
namespace {

constexpr int kMargin = 4;

/// A column of controls that scrolls up and down only: it is never narrower than they are.
class ColumnArea final : public QScrollArea
{
public:
    explicit ColumnArea(QWidget* parent) : QScrollArea(parent)
    {
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
    }

    QSize minimumSizeHint() const override
    {
        const int column = widget() == nullptr ? 0 : widget()->minimumSizeHint().width();
        return {column + verticalScrollBar()->sizeHint().width(),
                QScrollArea::minimumSizeHint().height()};
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        // Another font makes another column.
        if (watched == widget() && event->type() == QEvent::LayoutRequest)
            updateGeometry();
        return QScrollArea::eventFilter(watched, event);
    }
};

} // namespace

ControlsPanel::ControlsPanel(CommandRunner& runner, TambVizCore::IView3D& view, QWidget* parent)
    : QWidget(parent), m_view(view), m_explode(nullptr)
{
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    int number = 1;
    for (SectionControl*& section : m_sections) {
        section = new SectionControl(number++, runner, view, content);
        column->addWidget(section);
    }
    m_caps = new QCheckBox(tr("Close what is cut"), content);
    m_caps->setObjectName(QStringLiteral("section-caps"));
    m_caps->setChecked(true);
    m_caps->setAccessibleName(m_caps->text());
    m_caps->setToolTip(tr("Draws a lid where a section cuts a solid"));
    column->addWidget(m_caps);
    connect(m_caps, &QCheckBox::clicked, this, [this, &runner](bool isOn) {
        Guarded([&] {
            const QString form = QStringLiteral("(view:section-caps %1)");
            runner.Run(form.arg(isOn ? QStringLiteral("#t") : QStringLiteral("#f")),
                       QStringLiteral("controls"));
            follow();
        });
    });
    m_explode = new ExplodeControl(runner, content);
    column->addWidget(m_explode);
    column->addStretch(1);
    auto* const area = new ColumnArea(this);
    area->setAccessibleName(tr("Sections and explosion"));
    area->setWidget(content);
    auto* const outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);
    connect(&runner, &CommandRunner::StateChanged, this, [this] { Guarded([this] { follow(); }); });
}

ControlsPanel::~ControlsPanel() = default;

void ControlsPanel::follow()
{
    TambVizCore::AView3DAdapter* const adapter = m_view.GetView3DAdapter();
    TambVizCore::RenderingOptions* const options =
        adapter == nullptr ? nullptr : adapter->GetRenderingOptions();
    std::vector<SectionPlane> present;
    if (options != nullptr)
        for (const TambVizCore::ClipPlane& plane : options->GetClipPlanes())
            present.push_back(SectionPlane::FromClipPlane(plane));
    followSections(present);
    m_caps->setChecked(options == nullptr || options->GetShowCaps());
    m_explode->Follow();
}

void ControlsPanel::followSections(const std::vector<SectionPlane>& present)
{
    std::vector<SectionRow> rows;
    for (const SectionControl* const section : m_sections)
        rows.push_back(section->Row());
    const std::vector<int> numbers = NumbersOfRows(rows, present);
    bool isOffered = true;
    for (std::size_t i = 0; i < m_sections.size(); ++i) {
        SectionControl& section = *m_sections[i];
        const int number = numbers[i];
        section.Follow(number,
                       number == 0 ? rows[i].plane : present[static_cast<std::size_t>(number - 1)]);
        // One after the other the first time; what was used once is at hand.
        section.setEnabled(isOffered || section.WasUsed());
        isOffered = isOffered && section.WasUsed();
    }
}

} // namespace Pellux
