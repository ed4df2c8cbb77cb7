#include "controls/SectionControl.h"

#include "controls/LiveCommand.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QuietCommand.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <algorithm>
#include <cmath>

namespace Pellux {
namespace {

constexpr int kSteps = 1000;

/// The entry of the axes for a normal of one's own.
constexpr int kFree = 3;

} // namespace

SectionControl::SectionControl(int title, CommandRunner& runner, TambVizCore::IView3D& view,
                               QWidget* parent)
    : QGroupBox(tr("Section %1").arg(title), parent), m_title(title), m_runner(runner), m_view(view)
{
    setAccessibleName(QGroupBox::title());
    setCheckable(true);
    setChecked(false);
    layOut();
    connectParts();
    Follow(0, {});
}

SectionControl::~SectionControl() = default;

void SectionControl::layOut()
{
    m_axis = new QComboBox(this);
    m_axis->addItems({tr("X"), tr("Y"), tr("Z"), tr("Free")});
    m_axis->setAccessibleName(tr("Axis of section %1").arg(m_title));
    m_flip = new QCheckBox(tr("Flip"), this);
    m_flip->setAccessibleName(tr("Flip section %1").arg(m_title));
    m_slider = new QSlider(Qt::Horizontal, this);
    m_slider->setRange(0, kSteps);
    m_slider->setPageStep(kSteps / 10);
    m_slider->setAccessibleName(tr("Position of section %1").arg(m_title));
    m_position = new QLabel(this);
    m_position->setMinimumWidth(
        m_position->fontMetrics().horizontalAdvance(QStringLiteral("-1234.56")));
    m_position->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_freeNormal = new QWidget(this);
    // One below the other: side by side they would make the panel wide.
    auto* const normalLines = new QFormLayout(m_freeNormal);
    normalLines->setContentsMargins(0, 0, 0, 0);
    normalLines->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const char* const names[] = {"x", "y", "z"};
    for (std::size_t i = 0; i < 3; ++i) {
        m_normal[i] = new QDoubleSpinBox(m_freeNormal);
        m_normal[i]->setRange(-1.0, 1.0);
        m_normal[i]->setDecimals(4);
        m_normal[i]->setSingleStep(0.05);
        m_normal[i]->setKeyboardTracking(false);
        m_normal[i]->setAccessibleName(
            tr("Normal of section %1, %2").arg(m_title).arg(QLatin1String(names[i])));
        normalLines->addRow(tr("Normal, %1").arg(QLatin1String(names[i])), m_normal[i]);
    }
    auto* const grid = new QGridLayout(this);
    grid->addWidget(m_axis, 0, 0);
    grid->addWidget(m_flip, 0, 1, Qt::AlignLeft);
    grid->addWidget(m_position, 0, 2);
    grid->addWidget(m_slider, 1, 0, 1, 3);
    grid->addWidget(m_freeNormal, 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
}

void SectionControl::connectParts()
{
    m_live = new LiveCommand(
        *m_slider, m_runner, [this] { preview(); },
        [this] {
            takePreviewBack();
            m_row.plane = atSlider();
            return m_row.plane.Form(m_row.number);
        });
    connect(m_slider, &QSlider::valueChanged, this,
            [this] { m_position->setText(QString::number(atSlider().position, 'g', 6)); });
    connect(this, &QGroupBox::toggled, this, [this](bool isOn) {
        if (!m_isFollowing)
            Guarded([this, isOn] { switchOn(isOn); });
    });
    connect(m_axis, qOverload<int>(&QComboBox::activated), this,
            [this](int axis) { Guarded([this, axis] { chooseAxis(axis); }); });
    connect(m_flip, &QCheckBox::clicked, this, [this](bool isFlipped) {
        Guarded([this, isFlipped] {
            m_row.plane.isFlipped = isFlipped;
            run();
        });
    });
    for (QDoubleSpinBox* const field : m_normal)
        connect(field, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this] {
            if (!m_isFollowing)
                Guarded([this] { chooseAxis(kFree); });
        });
}

void SectionControl::preview()
{
    takePreviewBack();
    RunQuietly("view:section", atSlider().Arguments(m_row.number));
    m_hasPreview = !(planes() == m_beforePreview);
}

/// One drag is one step for view:undo, the command's.
void SectionControl::takePreviewBack()
{
    if (m_hasPreview)
        RunQuietly("view:undo");
    m_hasPreview = false;
    m_beforePreview = planes();
}

void SectionControl::run()
{
    if (!m_runner.Run(m_row.plane.Form(m_row.number), QStringLiteral("controls")))
        Follow(m_row.number, m_row.plane);
}

void SectionControl::switchOn(bool isOn)
{
    const int before = m_row.number;
    const QString source = QStringLiteral("controls");
    if (isOn) {
        const std::array<double, 2> ends = range();
        const bool isInside = m_row.plane.position > ends[0] && m_row.plane.position < ends[1];
        if (!m_wasUsed || !isInside)
            m_row.plane.position =
                SectionPlane::Rounded((ends[0] + ends[1]) / 2.0, ends[1] - ends[0]);
        // Sections are numbered without gaps.
        m_row.number = static_cast<int>(planes().size()) + 1;
        if (m_runner.Run(m_row.plane.Form(m_row.number), source))
            return;
    } else if (m_runner.Run(QStringLiteral("(view:section-off %1)").arg(m_row.number), source)) {
        return;
    }
    Follow(before, m_row.plane);
}

/// The plane goes through the middle of the model along its new axis.
void SectionControl::chooseAxis(int axis)
{
    std::array<double, 3> normal = {0.0, 0.0, 0.0};
    if (axis == kFree) {
        for (std::size_t i = 0; i < 3; ++i)
            normal[i] = m_normal[i]->value();
        const double length = std::hypot(normal[0], normal[1], normal[2]);
        m_freeNormal->setVisible(true);
        if (!(length > 0.0))
            return;
        for (double& number : normal)
            number /= length;
    } else {
        normal[static_cast<std::size_t>(axis)] = 1.0;
    }
    m_row.plane.axis = normal;
    const std::array<double, 2> ends = range();
    m_row.plane.position = SectionPlane::Rounded((ends[0] + ends[1]) / 2.0, ends[1] - ends[0]);
    run();
}

void SectionControl::Follow(int number, const SectionPlane& plane)
{
    if (m_live->IsUnderWay())
        return;
    m_isFollowing = true;
    m_row.number = number;
    if (number > 0)
        m_row.plane = plane;
    m_wasUsed = m_wasUsed || number > 0;
    setChecked(number > 0);
    showPlane();
    m_isFollowing = false;
}

void SectionControl::showPlane()
{
    const SectionPlane& plane = m_row.plane;
    m_axis->setCurrentIndex(plane.AxisNumber());
    m_flip->setChecked(plane.isFlipped);
    m_freeNormal->setVisible(plane.AxisNumber() == kFree);
    for (std::size_t i = 0; i < 3; ++i)
        m_normal[i]->setValue(plane.axis[i]);
    const std::array<double, 2> ends = range();
    const double length = ends[1] - ends[0];
    const double share = length > 0.0 ? (plane.position - ends[0]) / length : 0.0;
    m_live->Show(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * kSteps)));
    m_position->setText(QString::number(plane.position, 'g', 6));
}

SectionPlane SectionControl::atSlider() const
{
    SectionPlane plane = m_row.plane;
    const std::array<double, 2> ends = range();
    plane.position = SectionPlane::Rounded(
        ends[0] + (ends[1] - ends[0]) * m_slider->value() / kSteps, ends[1] - ends[0]);
    return plane;
}

std::array<double, 2> SectionControl::range() const
{
    return m_row.plane.Range(m_view.GetSceneRoot().WorldBounds());
}

std::vector<TambVizCore::ClipPlane> SectionControl::planes() const
{
    TambVizCore::AView3DAdapter* const adapter = m_view.GetView3DAdapter();
    TambVizCore::RenderingOptions* const options =
        adapter == nullptr ? nullptr : adapter->GetRenderingOptions();
    return options == nullptr ? std::vector<TambVizCore::ClipPlane>() : options->GetClipPlanes();
}

} // namespace Pellux
