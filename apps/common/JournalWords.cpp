#include "JournalWords.h"

#include <TambVizCore/Utils.h>

#include <cmath>

namespace Pellux {

using TambVizCore::Utils;

JournalWords::JournalWords(const std::wstring& line)
{
    bool isInWord = false;
    for (const char c : Utils::WstringToString(line)) {
        if (c == ' ' || c == '\t') {
            isInWord = false;
            continue;
        }
        if (!isInWord)
            m_words.emplace_back();
        isInWord = true;
        m_words.back() += c;
    }
}

std::string JournalWords::Next()
{
    return IsAtEnd() ? std::string() : m_words[m_next++];
}

bool JournalWords::Skip(const std::string& word)
{
    const bool isNext = !IsAtEnd() && m_words[m_next] == word;
    m_next += isNext ? 1 : 0;
    return isNext;
}

bool JournalWords::NextInteger(long long& value)
{
    return Utils::ParseInt(Next(), value);
}

bool JournalWords::NextNumbers(double* numbers, int count)
{
    for (int i = 0; i < count; ++i)
        if (!Utils::ParseDouble(Next(), numbers[i]) || !std::isfinite(numbers[i]))
            return false;
    return true;
}

} // namespace Pellux
