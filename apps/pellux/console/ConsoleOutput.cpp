#include "console/ConsoleOutput.h"

#include "runtime/Guarded.h"

#include <QEvent>
#include <QFontDatabase>
#include <QScrollBar>
#include <QTextBlock>

namespace Pellux {
namespace {

/// How long text may wait to be shown with what follows, milliseconds.
constexpr int kBatchMs = 30;

/// Lines that are seen however small the window is.
constexpr int kFewestLines = 2;

const QLatin1String kEchoMark("> ");
const QLatin1String kEchoRest("  ");

/// The state of a block whose form was cut, so that it is no script any more.
constexpr int kCutEcho = 100;

QLatin1String markOf(LineKind kind, bool isFirst)
{
    switch (kind) {
    case LineKind::Warning:
        return isFirst ? QLatin1String("warning: ") : QLatin1String("         ");
    case LineKind::Error:
        return isFirst ? QLatin1String("error: ") : QLatin1String("       ");
    case LineKind::Echo:
        return isFirst ? kEchoMark : kEchoRest;
    case LineKind::Output:
        break;
    }
    return {};
}

} // namespace

ConsoleOutput::ConsoleOutput(QWidget* parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setMaximumBlockCount(kMostLines);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(tr("Console output"));
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFocusPolicy(Qt::StrongFocus);
    m_timer.setSingleShot(true);
    m_timer.setInterval(kBatchMs);
    connect(&m_timer, &QTimer::timeout, this, [this] { Guarded([this] { Flush(); }); });
}

ConsoleOutput::~ConsoleOutput() = default;

QSize ConsoleOutput::minimumSizeHint() const
{
    const int margins = static_cast<int>(2 * document()->documentMargin()) + 2 * frameWidth();
    return {120, kFewestLines * fontMetrics().lineSpacing() + margins};
}

void ConsoleOutput::Append(const QString& text, LineKind kind)
{
    QStringView rest(text);
    if (rest.endsWith(u'\n'))
        rest.chop(1);
    for (bool isFirst = true;; isFirst = false) {
        const qsizetype end = rest.indexOf(u'\n');
        addLine(end < 0 ? rest : rest.left(end), kind, isFirst);
        if (end < 0)
            break;
        rest = rest.mid(end + 1);
    }
    if (!m_timer.isActive())
        m_timer.start();
}

void ConsoleOutput::addLine(QStringView line, LineKind kind, bool isFirst)
{
    QString text = markOf(kind, isFirst);
    text += line.left(kLongestLine);
    if (line.size() > kLongestLine)
        text += tr(" ... (%L1 more characters)").arg(line.size() - kLongestLine);
    m_pending.push_back({text, kind});
    if (m_pending.size() <= static_cast<std::size_t>(kMostLines))
        return;
    m_pending.pop_front();
    drop(1);
}

void ConsoleOutput::Flush()
{
    m_timer.stop();
    if (m_pending.empty())
        return;
    QScrollBar* const bar = verticalScrollBar();
    const bool isAtEnd = bar->value() >= bar->maximum();
    insertPending();
    if (isAtEnd)
        bar->setValue(bar->maximum());
    if (m_dropped > 0)
        Q_EMIT DroppedChanged(m_dropped);
}

void ConsoleOutput::insertPending()
{
    const int before = document()->isEmpty() ? 0 : blockCount();
    const int excess = before + static_cast<int>(m_pending.size()) - kMostLines;
    if (excess > 0)
        drop(excess);
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.movePosition(QTextCursor::End);
    bool isFirst = before == 0;
    while (!m_pending.empty()) {
        // Neighbours of one kind go in as one piece: that is what makes many lines quick.
        const LineKind kind = m_pending.front().kind;
        QString piece;
        QVector<int> states;
        for (; !m_pending.empty() && m_pending.front().kind == kind; m_pending.pop_front()) {
            if (!isFirst)
                piece += u'\n';
            isFirst = false;
            piece += m_pending.front().text;
            const bool isCut = m_pending.front().text.size() > kLongestLine + 2;
            states.append(kind == LineKind::Echo && isCut ? kCutEcho : static_cast<int>(kind));
        }
        cursor.insertText(piece, formatOf(kind));
        QTextBlock block = cursor.block();
        for (auto state = states.rbegin(); state != states.rend(); ++state) {
            block.setUserState(*state);
            block = block.previous();
        }
    }
    cursor.endEditBlock();
}

void ConsoleOutput::drop(qint64 lines)
{
    m_dropped += lines;
}

void ConsoleOutput::Clear()
{
    m_pending.clear();
    m_timer.stop();
    clear();
    m_dropped = 0;
    Q_EMIT DroppedChanged(0);
}

QString ConsoleOutput::ScriptText()
{
    Flush();
    const QTextCursor cursor = textCursor();
    const QTextBlock first = cursor.hasSelection() ? document()->findBlock(cursor.selectionStart())
                                                   : document()->begin();
    const QTextBlock last = cursor.hasSelection() ? document()->findBlock(cursor.selectionEnd())
                                                  : document()->lastBlock();
    QString script;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        if (block.userState() == static_cast<int>(LineKind::Echo))
            script += block.text().mid(kEchoMark.size()) + u'\n';
        else if (block.userState() == kCutEcho)
            script += QStringLiteral(";; ") + tr("a line was too long to be kept") + u'\n';
        if (block == last)
            break;
    }
    return script;
}

QTextCharFormat ConsoleOutput::formatOf(LineKind kind) const
{
    const bool isDark = palette().base().color().lightness() < 128;
    QTextCharFormat format;
    format.setForeground(palette().text());
    switch (kind) {
    case LineKind::Warning:
        format.setForeground(isDark ? QColor(0xff, 0xc5, 0x60) : QColor(0x8a, 0x55, 0x00));
        break;
    case LineKind::Error:
        format.setForeground(isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xb0, 0x00, 0x20));
        break;
    case LineKind::Echo:
        format.setForeground(isDark ? QColor(0x8a, 0xb4, 0xf8) : QColor(0x1a, 0x4f, 0xa3));
        format.setFontWeight(QFont::Bold);
        break;
    case LineKind::Output:
        break;
    }
    return format;
}

void ConsoleOutput::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int state = block.userState();
        if (state < 0)
            continue;
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.setCharFormat(
            formatOf(state == kCutEcho ? LineKind::Echo : static_cast<LineKind>(state)));
    }
    cursor.endEditBlock();
}

} // namespace Pellux
