#ifndef PELLUX_CONSOLE_SCRIPTLEXER_H
#define PELLUX_CONSOLE_SCRIPTLEXER_H

#include <QString>
#include <QVector>

namespace Pellux {

/// A parenthesis or square bracket of a script text.
struct Bracket
{
    int position = 0;
    int partner = -1; ///< Position of the bracket that belongs to it; -1 for none.
};

/// Finds the brackets of a text in order. Those in strings, comments, characters and symbols in
/// bars are none. For colouring and indenting only: whether a text is whole, the script engine
/// decides.
QVector<Bracket> FindBrackets(const QString& text);

/// @return the bracket that the cursor touches, the one before it first; null when there is none.
const Bracket* BracketAt(const QVector<Bracket>& brackets, int cursor);

/// @return how many forms are open at the cursor.
int DepthAt(const QVector<Bracket>& brackets, const QString& text, int cursor);

/// @return where the name begins that ends at the cursor; the cursor where none does.
int NameBegin(const QString& text, int cursor);

/// @return the first name of the innermost form that is open at the cursor; empty when there is
///         none.
QString OpenFormName(const QVector<Bracket>& brackets, const QString& text, int cursor);

} // namespace Pellux

#endif
