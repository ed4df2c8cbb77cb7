#ifndef ENGINESCHEME_FORMSPLITTER_H
#define ENGINESCHEME_FORMSPLITTER_H

#include <string>
#include <vector>

namespace OrvikScheme {

/// One top-level form of a text.
struct TopLevelForm
{
    std::wstring text; ///< The form without the blanks and comments around it.
    int line = 1;      ///< Line of its first character; the text begins at line 1.
    int column = 1;    ///< Column of its first character, counted in characters from 1.
};

/// A text cut into its forms.
struct SplitText
{
    std::vector<TopLevelForm> forms;
    bool isComplete = true; ///< False when the last form is cut short or closes too much.
};

/// Splits a Scheme text into its top-level forms without evaluating anything.
///
/// Knows strings, characters (#\( among them), symbols in bars, line comments, nested block
/// comments, datum comments and quotation prefixes. A text that is cut short or has a closing
/// parenthesis too many yields its rest as one last form, so that the reader reports the place.
///
/// @thread Any thread; Scheme is not entered.
SplitText SplitTopLevelForms(const std::wstring& text);

} // namespace OrvikScheme

#endif
