#include "console/ConsoleInput.h"

#include "console/CompletionPopup.h"
#include "console/ScriptLexer.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <OrvikCore/AScriptEngine.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>

#include <QFontDatabase>
#include <QKeyEvent>
#include <QTextBlock>
#include <QTextEdit>
#include <algorithm>

namespace Pellux {
namespace {

/// A word of so many characters opens the completions by itself.
constexpr int kWordToComplete = 3;

constexpr int kFewestLines = 2;
constexpr int kMostLines = 8;

/// Blanks by which a line is set in for each form that is open.
constexpr int kIndent = 2;

} // namespace

bool IsUnfinished(const QString& text)
{
    const OrvikCore::Shell* const shell = OrvikCore::SessionMgr::Instance().GetShell();
    const OrvikCore::AScriptEngine* const engine =
        shell == nullptr ? nullptr : shell->GetScriptEngine();
    std::vector<OrvikCore::ScriptForm> forms;
    std::wstring reason;
    if (engine == nullptr || engine->SplitForms(FromQt(text), forms, reason) || forms.empty())
        return false;
    // A rest that begins by closing can never be made whole: it runs, and the engine says where.
    const std::wstring& rest = forms.back().text;
    const std::size_t first = rest.find_first_not_of(L"'`,@ \n");
    return first == std::wstring::npos || (rest[first] != L')' && rest[first] != L']');
}

ConsoleInput::ConsoleInput(const QString& historyFile, QWidget* parent)
    : QPlainTextEdit(parent), m_history(historyFile), m_popup(new CompletionPopup(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(tr("Console input"));
    setAccessibleDescription(tr("Return runs a whole command, Tab completes a name"));
    setPlaceholderText(tr("Type a command; Tab completes, Up and Down show earlier ones"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
        Guarded([this] {
            markBrackets();
            tellHelp();
        });
    });
    connect(this, &QPlainTextEdit::textChanged, this, [this] { updateGeometry(); });
    connect(m_popup, &CompletionPopup::Chosen, this,
            [this](const QString& name) { Guarded([&] { insertName(name); }); });
}

ConsoleInput::~ConsoleInput() = default;

void ConsoleInput::SetBusy(bool isBusy)
{
    setReadOnly(isBusy);
    if (isBusy)
        m_popup->hide();
}

void ConsoleInput::keyPressEvent(QKeyEvent* event)
{
    Guarded([this, event] {
        if (isReadOnly() || m_popup->TakeKey(*event) || takeReturn(*event) || takeHistory(*event))
            return;
        const bool wantsNames =
            event->key() == Qt::Key_Tab ||
            (event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier);
        if (wantsNames) {
            complete(/*asked=*/true);
            return;
        }
        QPlainTextEdit::keyPressEvent(event);
        const bool typed = !event->text().isEmpty() && event->text().front().isPrint();
        if (typed || event->key() == Qt::Key_Backspace)
            complete(/*asked=*/false);
        else
            m_popup->hide();
    });
}

bool ConsoleInput::takeReturn(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Return && event.key() != Qt::Key_Enter)
        return false;
    const bool isForced = event.modifiers().testFlag(Qt::ControlModifier);
    const bool isLine = event.modifiers().testFlag(Qt::ShiftModifier);
    if (isLine || (!isForced && IsUnfinished(toPlainText())))
        newLine();
    else
        submit();
    return true;
}

bool ConsoleInput::takeHistory(const QKeyEvent& event)
{
    const QTextBlock block = textCursor().block();
    const bool isUp = event.key() == Qt::Key_Up && block == document()->firstBlock();
    const bool isDown = event.key() == Qt::Key_Down && block == document()->lastBlock();
    if (event.modifiers() != Qt::NoModifier || (!isUp && !isDown))
        return false;
    const QString command = isUp ? m_history.Older(toPlainText()) : m_history.Newer();
    if (!command.isNull())
        show(command);
    return true;
}

void ConsoleInput::show(const QString& command)
{
    setPlainText(command);
    moveCursor(QTextCursor::End);
}

void ConsoleInput::submit()
{
    const QString text = toPlainText();
    if (text.trimmed().isEmpty())
        return;
    clear();
    if (!m_history.Add(text))
        Q_EMIT Warned(tr("The history of the console is not kept: ") + m_history.ErrorText());
    Q_EMIT Submitted(text);
}

void ConsoleInput::newLine()
{
    QTextCursor cursor = textCursor();
    const QString text = toPlainText();
    const int depth = DepthAt(FindBrackets(text), text, cursor.position());
    cursor.insertText(u'\n' + QString(depth * kIndent, u' '));
    setTextCursor(cursor);
}

void ConsoleInput::complete(bool asked)
{
    const int cursor = textCursor().position();
    const QString text = toPlainText();
    const QString word = text.mid(NameBegin(text, cursor), cursor - NameBegin(text, cursor));
    if (!asked && word.size() < kWordToComplete) {
        m_popup->hide();
        return;
    }
    // Above the whole input, so that the lines before are seen.
    const QPoint place(viewport()->mapToGlobal(cursorRect().topLeft()).x(),
                       mapToGlobal(QPoint()).y());
    m_popup->Open(word, place, asked);
}

void ConsoleInput::insertName(const QString& name)
{
    QTextCursor cursor = textCursor();
    const int end = cursor.position();
    cursor.setPosition(NameBegin(toPlainText(), end));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.insertText(name);
    setTextCursor(cursor);
}

void ConsoleInput::markBrackets()
{
    const QString text = toPlainText();
    const QVector<Bracket> brackets = FindBrackets(text);
    const Bracket* const bracket = BracketAt(brackets, textCursor().position());
    QList<QTextEdit::ExtraSelection> marks;
    const auto mark = [&](int position, const QColor& color) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(position);
        selection.cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        selection.format.setBackground(color);
        selection.format.setFontWeight(QFont::Bold);
        marks.append(selection);
    };
    if (bracket != nullptr) {
        const bool isDark = palette().base().color().lightness() < 128;
        const QColor good = isDark ? QColor(0x2e, 0x6b, 0x3a) : QColor(0xb6, 0xe3, 0xbf);
        const QColor bad = isDark ? QColor(0x7a, 0x2a, 0x2a) : QColor(0xf6, 0xc1, 0xc1);
        mark(bracket->position, bracket->partner >= 0 ? good : bad);
        if (bracket->partner >= 0)
            mark(bracket->partner, good);
    }
    setExtraSelections(marks);
}

void ConsoleInput::tellHelp()
{
    const QString text = toPlainText();
    const QString name = OpenFormName(FindBrackets(text), text, textCursor().position());
    Q_EMIT HelpChanged(ExtensionHelp(name));
}

void ConsoleInput::focusOutEvent(QFocusEvent* event)
{
    m_popup->hide();
    QPlainTextEdit::focusOutEvent(event);
}

bool ConsoleInput::focusNextPrevChild(bool next)
{
    // Tab completes what is being typed; an empty input holds nobody back who goes by keys.
    if (next && !document()->isEmpty())
        return false;
    return QAbstractScrollArea::focusNextPrevChild(next);
}

int ConsoleInput::heightOf(int lines) const
{
    const int margins = static_cast<int>(2 * document()->documentMargin()) + 2 * frameWidth();
    return lines * fontMetrics().lineSpacing() + margins;
}

QSize ConsoleInput::sizeHint() const
{
    return {400, heightOf(std::clamp(blockCount(), kFewestLines, kMostLines))};
}

QSize ConsoleInput::minimumSizeHint() const
{
    return {120, heightOf(1)};
}

} // namespace Pellux
