#include "window/ReadableHints.h"

#include "runtime/Guarded.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <array>
#include <cmath>

namespace Pellux {
namespace {

/// What WCAG 2.1 asks of the parts of a user interface.
constexpr double kLeastContrast = 3.0;

/// How much of the text's colour a hint has, and what is added where that is too little.
constexpr double kShare = 0.5;
constexpr double kShareStep = 0.1;

constexpr QPalette::ColorRole kHint = QPalette::PlaceholderText;
constexpr std::array kGroups = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// The brightness of a part of a colour as the eye sees it: WCAG 2.1, "relative luminance".
double linear(double part)
{
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// What is seen of a colour that lets another one through.
QColor over(const QColor& front, const QColor& behind)
{
    const auto mixed = [share = front.alphaF()](float above, float below) {
        return above * share + below * (1.0F - share);
    };
    return QColor::fromRgbF(mixed(front.redF(), behind.redF()),
                            mixed(front.greenF(), behind.greenF()),
                            mixed(front.blueF(), behind.blueF()));
}

QColor hintFor(QColor text, const QColor& base)
{
    double share = kShare;
    do {
        text.setAlphaF(static_cast<float>(std::min(share, 1.0)));
        share += kShareStep;
    } while (share < 1.0 + kShareStep && ReadableHints::Contrast(text, base) < kLeastContrast);
    return text;
}

/// @return what a palette sets, but for the colours of hints. The rest of it is the desktop's.
QPalette withoutHints(const QPalette& palette)
{
    QPalette rest;
    for (const QPalette::ColorGroup group : kGroups)
        for (int number = 0; number < QPalette::NColorRoles; ++number) {
            const auto role = static_cast<QPalette::ColorRole>(number);
            if (role != kHint && palette.isBrushSet(group, role))
                rest.setBrush(group, role, palette.brush(group, role));
        }
    return rest;
}

} // namespace

ReadableHints::ReadableHints()
{
    QCoreApplication::instance()->installEventFilter(this);
    mend();
}

ReadableHints::~ReadableHints()
{
    m_isMending = true;
    takeBack();
}

double ReadableHints::Contrast(const QColor& front, const QColor& behind)
{
    const double one = luminance(over(front, behind));
    const double other = luminance(behind);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

bool ReadableHints::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange &&
        watched == QCoreApplication::instance() && !m_isMending)
        Guarded([this] { mend(); });
    return false;
}

void ReadableHints::mend()
{
    m_isMending = true;
    takeBack();
    QPalette palette = QApplication::palette();
    bool isMended = false;
    for (const QPalette::ColorGroup group : kGroups) {
        const QColor base = palette.color(group, QPalette::Base);
        if (Contrast(palette.color(group, kHint), base) >= kLeastContrast)
            continue;
        const QColor hint = hintFor(palette.color(group, QPalette::Text), base);
        palette.setColor(group, kHint, hint);
        m_mended.setColor(group, kHint, hint);
        isMended = true;
    }
    if (isMended)
        QApplication::setPalette(palette);
    m_isMending = false;
}

/// Lets the colours through that hold without those that were set here.
void ReadableHints::takeBack()
{
    const QPalette palette = QApplication::palette();
    const bool isHere =
        std::any_of(kGroups.begin(), kGroups.end(), [&](QPalette::ColorGroup group) {
            return m_mended.isBrushSet(group, kHint) && palette.isBrushSet(group, kHint) &&
                   palette.color(group, kHint) == m_mended.color(group, kHint);
        });
    m_mended = QPalette();
    if (isHere)
        QApplication::setPalette(withoutHints(palette));
}

} // namespace Pellux
