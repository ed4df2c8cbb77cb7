#include "FormSplitter.h"

#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace OrvikScheme {
namespace {

bool isBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\f' || c == 0xFEFF;
}

bool isDelimiter(wchar_t c)
{
    return isBlank(c) || c == L'(' || c == L')' || c == L'[' || c == L']' || c == L'"' || c == L';';
}

/// Walks over one datum at a time; every skip leaves the position after what it skipped and is
/// false when the text ends within it.
class Scanner
{
public:
    explicit Scanner(const std::wstring& text) : m_text(text) {}

    std::size_t Position() const { return m_position; }
    bool AtEnd() const { return m_position >= m_text.size(); }

    /// Skips blanks and comments, datum comments included.
    bool SkipSpace()
    {
        for (std::size_t commentedOut = 0;;) {
            if (!skipBlanks())
                return false;
            if (at(0) == L'#' && at(1) == L';') {
                m_position += 2;
                ++commentedOut;
            } else if (commentedOut == 0) {
                return true;
            } else if (SkipDatum()) {
                --commentedOut;
            } else {
                return false;
            }
        }
    }

    /// Skips one datum that begins here.
    bool SkipDatum()
    {
        skipPrefixes();
        if (AtEnd())
            return false;
        switch (at(0)) {
        case L'(':
        case L'[':
            return skipList();
        case L')':
        case L']':
            return false;
        case L'"':
            return skipUntil(L'"');
        case L'#':
            return skipHash();
        default:
            return skipAtom();
        }
    }

private:
    wchar_t at(std::size_t offset) const
    {
        return m_position + offset < m_text.size() ? m_text[m_position + offset] : L'\0';
    }

    /// Skips blanks, line comments and block comments.
    bool skipBlanks()
    {
        for (;;) {
            if (isBlank(at(0)))
                ++m_position;
            else if (at(0) == L';')
                skipLine();
            else if (at(0) == L'#' && at(1) == L'|') {
                if (!skipBlockComment())
                    return false;
            } else if (at(0) == L'#' && at(1) == L'!') {
                if (!skipScriptComment())
                    return false;
            } else {
                return true;
            }
        }
    }

    void skipLine()
    {
        while (!AtEnd() && at(0) != L'\n')
            ++m_position;
    }

    bool skipBlockComment()
    {
        int depth = 0;
        do {
            if (AtEnd())
                return false;
            if (at(0) == L'#' && at(1) == L'|') {
                ++depth;
                m_position += 2;
            } else if (at(0) == L'|' && at(1) == L'#') {
                --depth;
                m_position += 2;
            } else {
                ++m_position;
            }
        } while (depth > 0);
        return true;
    }

    bool skipScriptComment()
    {
        if (skipDirective())
            return true;
        const std::size_t end = m_text.find(L"!#", m_position + 2);
        if (end == std::wstring::npos) {
            m_position = m_text.size();
            return false;
        }
        m_position = end + 2;
        return true;
    }

    /// Skips a directive to the reader, which has no end mark.
    bool skipDirective()
    {
        for (const std::wstring_view name :
             {L"r6rs", L"fold-case", L"no-fold-case", L"curly-infix"}) {
            const std::size_t end = m_position + 2 + name.size();
            if (m_text.compare(m_position + 2, name.size(), name) == 0 &&
                (end >= m_text.size() || isDelimiter(m_text[end]))) {
                m_position = end;
                return true;
            }
        }
        return false;
    }

    void skipPrefixes()
    {
        for (;;) {
            if (at(0) == L'\'' || at(0) == L'`')
                ++m_position;
            else if (at(0) == L',')
                m_position += at(1) == L'@' ? 2 : 1;
            else if (at(0) == L'#' && (at(1) == L'\'' || at(1) == L'`' || at(1) == L','))
                m_position += 2;
            else
                return;
            if (!skipBlanks())
                return;
        }
    }

    /// Skips a text in @p quote marks; a backslash keeps the character after it.
    bool skipUntil(wchar_t quote)
    {
        for (++m_position; !AtEnd(); ++m_position) {
            if (at(0) == L'\\')
                ++m_position;
            else if (at(0) == quote) {
                ++m_position;
                return true;
            }
        }
        m_position = m_text.size();
        return false;
    }

    /// Skips a list without recursion, so that no nesting exhausts the stack.
    bool skipList()
    {
        std::size_t depth = 0;
        do {
            if (!skipBlanks() || AtEnd())
                return false;
            if (at(0) == L'(' || at(0) == L'[') {
                ++depth;
                ++m_position;
            } else if (at(0) == L')' || at(0) == L']') {
                --depth;
                ++m_position;
            } else if (!skipLeaf()) {
                return false;
            }
        } while (depth > 0);
        return true;
    }

    /// Skips what stands inside a list and is no parenthesis.
    bool skipLeaf()
    {
        if (at(0) == L'"')
            return skipUntil(L'"');
        if (at(0) == L'\'' || at(0) == L'`' || at(0) == L',') {
            ++m_position;
            return true;
        }
        if (at(0) == L'#' && at(1) == L';') {
            m_position += 2;
            return true;
        }
        return at(0) == L'#' ? skipHashToken() : skipAtom();
    }

    /// Skips what begins with a hash: characters, vectors, keywords, booleans, bytevectors.
    bool skipHash() { return skipHashToken() && (at(0) != L'(' || skipList()); }

    /// Skips the hash and what belongs to it, up to the parenthesis of a vector.
    bool skipHashToken()
    {
        if (at(1) == L'{')
            return skipBracedSymbol();
        const bool isCharacter = at(1) == L'\\';
        m_position += isCharacter ? 3 : 1;
        while (!AtEnd() && !isDelimiter(at(0)))
            ++m_position;
        return m_position <= m_text.size();
    }

    /// Skips a symbol of any characters: #{one symbol}#.
    bool skipBracedSymbol()
    {
        const std::size_t end = m_text.find(L"}#", m_position);
        m_position = end == std::wstring::npos ? m_text.size() : end + 2;
        return end != std::wstring::npos;
    }

    bool skipAtom()
    {
        while (!AtEnd() && !isDelimiter(at(0))) {
            if (at(0) == L'|') {
                if (!skipUntil(L'|'))
                    return false;
            } else {
                ++m_position;
            }
        }
        return true;
    }

    const std::wstring& m_text;
    std::size_t m_position = 0;
};

/// Follows line and column while the position moves forward.
class LineCounter
{
public:
    explicit LineCounter(const std::wstring& text) : m_text(text) {}

    void MoveTo(std::size_t position)
    {
        for (; m_position < position; ++m_position) {
            if (m_text[m_position] == L'\n') {
                ++line;
                column = 1;
            } else {
                ++column;
            }
        }
    }

    int line = 1;
    int column = 1;

private:
    const std::wstring& m_text;
    std::size_t m_position = 0;
};

} // namespace

SplitText SplitTopLevelForms(const std::wstring& text)
{
    SplitText result;
    Scanner scanner(text);
    LineCounter counter(text);
    for (;;) {
        const std::size_t gap = scanner.Position();
        const bool whole = scanner.SkipSpace();
        if (whole && scanner.AtEnd())
            return result;
        const std::size_t begin = whole ? scanner.Position() : gap;
        const bool complete = whole && scanner.SkipDatum();
        const std::size_t end = complete ? scanner.Position() : text.size();
        counter.MoveTo(begin);
        result.forms.push_back({text.substr(begin, end - begin), counter.line, counter.column});
        result.isComplete = complete;
        if (!complete)
            return result;
    }
}

} // namespace OrvikScheme
