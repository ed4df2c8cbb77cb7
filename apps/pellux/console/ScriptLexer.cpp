#include "console/ScriptLexer.h"

#include <algorithm>

namespace Pellux {
namespace {

bool isOpening(QChar c)
{
    return c == u'(' || c == u'[';
}

bool isClosing(QChar c)
{
    return c == u')' || c == u']';
}

bool endsName(QChar c)
{
    return c.isSpace() || isOpening(c) || isClosing(c) || c == u'"' || c == u';' || c == u'\'' ||
           c == u'`' || c == u',';
}

/// @return the position behind a text in quote marks that begins at @p at.
int skipQuoted(const QString& text, int at)
{
    const QChar quote = text[at];
    for (++at; at < text.size() && text[at] != quote; ++at) {
        if (text[at] == u'\\')
            ++at;
    }
    return at + 1;
}

int skipBlockComment(const QString& text, int at)
{
    int depth = 0;
    do {
        const QStringView two = QStringView(text).mid(at, 2);
        if (two == u"#|")
            ++depth;
        else if (two == u"|#")
            --depth;
        at += two == u"#|" || two == u"|#" ? 2 : 1;
    } while (depth > 0 && at < text.size());
    return at;
}

/// @return the position behind what stands at @p at and holds no brackets of its own.
int skipOther(const QString& text, int at)
{
    const QChar c = text[at];
    const QChar next = at + 1 < text.size() ? text[at + 1] : QChar();
    if (c == u'"' || c == u'|')
        return skipQuoted(text, at);
    if (c == u';') {
        const int end = static_cast<int>(text.indexOf(u'\n', at));
        return end < 0 ? static_cast<int>(text.size()) : end;
    }
    if (c == u'#' && next == u'|')
        return skipBlockComment(text, at);
    if (c == u'#' && next == u'\\')
        return at + 3;
    return at + 1;
}

} // namespace

QVector<Bracket> FindBrackets(const QString& text)
{
    QVector<Bracket> brackets;
    QVector<int> open;
    for (int at = 0; at < text.size();) {
        if (isOpening(text[at])) {
            open.append(static_cast<int>(brackets.size()));
            brackets.append({at++, -1});
        } else if (isClosing(text[at])) {
            Bracket bracket{at, -1};
            const bool matches = !open.isEmpty() && (text[brackets[open.last()].position] ==
                                                     (text[at] == u')' ? u'(' : u'['));
            if (matches) {
                Bracket& partner = brackets[open.takeLast()];
                bracket.partner = partner.position;
                partner.partner = at;
            }
            brackets.append(bracket);
            ++at;
        } else {
            at = skipOther(text, at);
        }
    }
    return brackets;
}

const Bracket* BracketAt(const QVector<Bracket>& brackets, int cursor)
{
    const auto at = [&brackets](int position) {
        const auto found =
            std::find_if(brackets.begin(), brackets.end(), [position](const Bracket& bracket) {
                return bracket.position == position;
            });
        return found == brackets.end() ? nullptr : &*found;
    };
    const Bracket* const before = at(cursor - 1);
    return before != nullptr ? before : at(cursor);
}

int DepthAt(const QVector<Bracket>& brackets, const QString& text, int cursor)
{
    int depth = 0;
    for (const Bracket& bracket : brackets) {
        if (bracket.position >= cursor)
            break;
        depth += isOpening(text[bracket.position]) ? 1 : -1;
    }
    return std::max(depth, 0);
}

int NameBegin(const QString& text, int cursor)
{
    int begin = cursor;
    while (begin > 0 && !endsName(text[begin - 1]))
        --begin;
    return begin;
}

QString OpenFormName(const QVector<Bracket>& brackets, const QString& text, int cursor)
{
    for (auto bracket = brackets.rbegin(); bracket != brackets.rend(); ++bracket) {
        const bool isOpen = bracket->position < cursor && isOpening(text[bracket->position]) &&
                            (bracket->partner < 0 || bracket->partner >= cursor);
        if (!isOpen)
            continue;
        int end = bracket->position + 1;
        while (end < text.size() && !endsName(text[end]))
            ++end;
        return text.mid(bracket->position + 1, end - bracket->position - 1);
    }
    return {};
}

} // namespace Pellux
