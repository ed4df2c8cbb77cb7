#include "controls/ExplodeControl.h"

#include "controls/LiveCommand.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QuietCommand.h"

#include <QGridLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
#include <cmath>

namespace Pellux {

using TambCommandsInfra::Value;

namespace {

/// Steps of the slider from 0 to 1.
constexpr int kSteps = 100;

constexpr int kMostLevels = 99;

} // namespace

ExplodeControl::ExplodeControl(CommandRunner& runner, QWidget* parent)
    : QGroupBox(tr("Explode"), parent),
      m_runner(runner),
      m_slider(new QSlider(Qt::Horizontal, this)),
      m_amount(new QLabel(QStringLiteral("0"), this)),
      m_levels(new QSpinBox(this))
{
    m_slider->setRange(0, kSteps);
    m_slider->setAccessibleName(tr("How far assemblies are taken apart"));
    m_levels->setRange(0, kMostLevels);
    m_levels->setSpecialValueText(tr("all levels"));
    m_levels->setPrefix(tr("levels: "));
    m_levels->setAccessibleName(tr("How many levels come apart"));
    m_levels->setKeyboardTracking(false);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(m_slider, 0, 0, 1, 2);
    grid->addWidget(m_levels, 1, 0, Qt::AlignLeft);
    grid->addWidget(m_amount, 1, 1, Qt::AlignRight);
    m_live = new LiveCommand(
        *m_slider, runner, [this] { preview(); },
        [this] {
            takePreviewBack();
            return form();
        });
    connect(m_slider, &QSlider::valueChanged, this, [this](int value) {
        m_amount->setText(QString::number(static_cast<double>(value) / kSteps));
    });
    connect(m_levels, qOverload<int>(&QSpinBox::valueChanged), this, [this] {
        Guarded([this] {
            if (m_slider->value() > 0)
                m_runner.Run(form(), QStringLiteral("controls"));
        });
    });
}

ExplodeControl::~ExplodeControl() = default;

void ExplodeControl::Follow()
{
    if (m_live->IsUnderWay())
        return;
    const double amount = RunQuietly("view:explosion").AsReal();
    m_live->Show(static_cast<int>(std::lround(std::clamp(amount, 0.0, 1.0) * kSteps)));
    m_amount->setText(QString::number(amount, 'g', 6));
}

void ExplodeControl::preview()
{
    takePreviewBack();
    std::vector<Value> arguments{Value(static_cast<double>(m_slider->value()) / kSteps)};
    if (m_levels->value() > 0)
        arguments.emplace_back(m_levels->value());
    m_hasPreview = RunQuietly("view:explode", std::move(arguments)).AsBool();
}

void ExplodeControl::takePreviewBack()
{
    if (m_hasPreview)
        RunQuietly("view:undo");
    m_hasPreview = false;
}

QString ExplodeControl::form() const
{
    const QString amount = QString::number(static_cast<double>(m_slider->value()) / kSteps);
    return m_levels->value() > 0
               ? QStringLiteral("(view:explode %1 %2)").arg(amount).arg(m_levels->value())
               : QStringLiteral("(view:explode %1)").arg(amount);
}

} // namespace Pellux
