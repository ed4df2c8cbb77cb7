#include "controls/LiveCommand.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"

#include <QAbstractSlider>
#include <utility>

namespace Pellux {
namespace {

/// How long keys and wheel rest before the command is run, milliseconds.
constexpr int kRestMs = 250;

} // namespace

LiveCommand::LiveCommand(QAbstractSlider& slider, CommandRunner& runner,
                         std::function<void()> preview, std::function<QString()> form)
    : QObject(&slider),
      m_slider(slider),
      m_runner(runner),
      m_preview(std::move(preview)),
      m_form(std::move(form))
{
    m_previewTimer.setSingleShot(true);
    m_restTimer.setSingleShot(true);
    connect(&m_previewTimer, &QTimer::timeout, this, [this] {
        Guarded([this] {
            if (!m_runner.IsRunning())
                m_preview();
        });
    });
    connect(&m_restTimer, &QTimer::timeout, this, [this] { Guarded([this] { commit(); }); });
    connect(&slider, &QAbstractSlider::valueChanged, this, [this] { changed(); });
    connect(&slider, &QAbstractSlider::sliderReleased, this,
            [this] { Guarded([this] { commit(); }); });
}

LiveCommand::~LiveCommand() = default;

bool LiveCommand::IsUnderWay() const
{
    return m_slider.isSliderDown() || m_restTimer.isActive();
}

void LiveCommand::Show(int value)
{
    m_isShowing = true;
    m_slider.setValue(value);
    m_isShowing = false;
}

void LiveCommand::changed()
{
    if (m_isShowing)
        return;
    m_previewTimer.start(0);
    if (!m_slider.isSliderDown())
        m_restTimer.start(kRestMs);
}

void LiveCommand::commit()
{
    m_previewTimer.stop();
    // What runs now is not waited for here: the command follows it.
    if (m_runner.IsRunning()) {
        m_restTimer.start(kRestMs);
        return;
    }
    m_restTimer.stop();
    m_runner.Run(m_form(), QStringLiteral("controls"));
}

} // namespace Pellux
