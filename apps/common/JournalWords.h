#ifndef APPSCOMMON_JOURNALWORDS_H
#define APPSCOMMON_JOURNALWORDS_H

#include <string>
#include <vector>

namespace Pellux {

/// The words of one line, taken one after the other.
class JournalWords
{
public:
    explicit JournalWords(const std::wstring& line);

    /// @return the next word; empty at the end.
    std::string Next();

    /// Takes the next word if it is this one.
    bool Skip(const std::string& word);

    /// Takes a whole number that is the next word.
    bool NextInteger(long long& value);

    /// Takes finite numbers.
    bool NextNumbers(double* numbers, int count);

    bool IsAtEnd() const { return m_next == m_words.size(); }

private:
    std::vector<std::string> m_words;
    std::size_t m_next = 0;
};

} // namespace Pellux

#endif
