#include "JournalText.h"

#include <TambVizCore/Utils.h>

namespace Pellux {
namespace {

/// Walks over the characters of a form and looks at what is called.
class CallsOfForm
{
public:
    explicit CallsOfForm(const std::wstring& form) : m_form(form) {}

    bool AllAre(const std::function<bool(const std::string&)>& wanted)
    {
        while (m_at < m_form.size()) {
            const wchar_t c = m_form[m_at];
            if (c == L'"')
                skipString();
            else if (c == L';')
                m_at = m_form.find(L'\n', m_at);
            else if (c == L'\'')
                skipQuoted();
            else if (c == L'`')
                return false; // Parts of it may be computed.
            else if (c == L'#' && !isPlainHash())
                return false; // Block comments, characters, vectors: nobody asks with those.
            else if (c == L'(' && !wanted(nameAfter(m_at + 1)))
                return false;
            else
                ++m_at;
        }
        return true;
    }

private:
    bool isPlainHash() const
    {
        const std::wstring_view rest = std::wstring_view(m_form).substr(m_at + 1);
        return rest.starts_with(L"t") || rest.starts_with(L"f") || rest.starts_with(L":");
    }

    void skipString()
    {
        for (++m_at; m_at < m_form.size() && m_form[m_at] != L'"'; ++m_at)
            m_at += m_form[m_at] == L'\\' ? 1 : 0;
        ++m_at;
    }

    /// Passes over a quoted list; strings in it may hold parentheses.
    void skipQuoted()
    {
        ++m_at;
        int depth = 0;
        while (m_at < m_form.size()) {
            const wchar_t c = m_form[m_at];
            if (c == L'"') {
                skipString();
                continue;
            }
            depth += c == L'(' ? 1 : c == L')' ? -1 : 0;
            if (c != L'(' && depth <= 0) {
                m_at += depth == 0 && c == L')' ? 1 : 0;
                return;
            }
            ++m_at;
        }
    }

    std::string nameAfter(std::size_t begin) const
    {
        const std::size_t end = m_form.find_first_of(L" \t\r\n()\"';`#", begin);
        return TambVizCore::Utils::WstringToString(m_form.substr(begin, end - begin));
    }

    const std::wstring& m_form;
    std::size_t m_at = 0;
};

} // namespace

bool AsksOnly(const std::wstring& form, const std::function<bool(const std::string&)>& onlyAsks)
{
    return CallsOfForm(form).AllAre(onlyAsks);
}

bool IsPlainCall(const std::wstring& form, const std::string& name)
{
    int calls = 0;
    const auto isWanted = [&](const std::string& called) { return ++calls == 1 && called == name; };
    return AsksOnly(form, isWanted) && calls == 1;
}

} // namespace Pellux
