#include "kernel/PmiRecords.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace OrvikCad {

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t';
}

bool isWord(char byte)
{
    return byte == '_' || std::isalnum(static_cast<unsigned char>(byte)) != 0;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// @return the position behind the string that begins at @p start.
std::size_t behindString(std::string_view text, std::size_t start)
{
    const std::size_t end = text.find('\'', start + 1);
    return end == std::string_view::npos ? text.size() : end + 1;
}

/// Moves behind a string or a comment that begins at a position.
/// @return false when neither does.
bool skipOpaque(std::string_view text, std::size_t& position)
{
    if (text[position] == '\'') {
        position = behindString(text, position);
        return true;
    }
    if (text[position] != '/' || position + 1 >= text.size() || text[position + 1] != '*')
        return false;
    const std::size_t end = text.find("*/", position + 2);
    position = end == std::string_view::npos ? text.size() : end + 2;
    return true;
}

/// @return the position of what is neither blank nor comment.
std::size_t behindBlanks(std::string_view text, std::size_t position)
{
    while (position < text.size() && text[position] != '\'' &&
           (isBlank(text[position]) || text[position] == '/'))
        if (!skipOpaque(text, position))
            ++position;
    return position;
}

/// @return the position of the first ";" outside strings and comments; the end where there is none.
std::size_t endOfStatement(std::string_view text, std::size_t position)
{
    while (position < text.size() && text[position] != ';')
        if (!skipOpaque(text, position))
            ++position;
    return position;
}

/// @return the text from a bracket to the one that closes it; empty where nothing does.
std::string_view bracketed(std::string_view text, std::size_t start)
{
    int depth = 0;
    for (std::size_t i = start; i < text.size();) {
        if (skipOpaque(text, i))
            continue;
        if (text[i] == '(')
            ++depth;
        if (text[i] == ')' && --depth == 0)
            return text.substr(start, i + 1 - start);
        ++i;
    }
    return {};
}

} // namespace

StepRecords::StepRecords(std::string_view text)
{
    for (std::size_t begin = 0; (begin = behindBlanks(text, begin)) < text.size();) {
        const std::size_t end = endOfStatement(text, begin);
        const std::string_view statement = trimmed(text.substr(begin, end - begin));
        begin = end + 1;
        const std::size_t equals = statement.find('=');
        if (statement.empty() || statement.front() != '#' || equals == std::string_view::npos)
            continue;
        if (const int number = ReferenceOf(trimmed(statement.substr(0, equals))))
            m_records.push_back({number, trimmed(statement.substr(equals + 1))});
    }
    std::stable_sort(m_records.begin(), m_records.end(),
                     [](const Record& a, const Record& b) { return a.number < b.number; });
}

std::string_view StepRecords::Find(int number) const
{
    const auto found =
        std::lower_bound(m_records.begin(), m_records.end(), number,
                         [](const Record& record, int wanted) { return record.number < wanted; });
    return found != m_records.end() && found->number == number ? found->text : std::string_view();
}

std::vector<std::string_view> ArgumentsOf(std::string_view record, std::string_view type)
{
    for (std::size_t i = 0; i < record.size();) {
        if (skipOpaque(record, i))
            continue;
        const bool isStart = i == 0 || !isWord(record[i - 1]);
        if (!isStart || record.substr(i, type.size()) != type) {
            ++i;
            continue;
        }
        i += type.size();
        std::size_t bracket = i;
        while (bracket < record.size() && isBlank(record[bracket]))
            ++bracket;
        if (bracket < record.size() && record[bracket] == '(')
            return ItemsOf(bracketed(record, bracket));
    }
    return {};
}

std::vector<std::string_view> ItemsOf(std::string_view list)
{
    std::vector<std::string_view> items;
    if (list.size() < 2 || list.front() != '(' || list.back() != ')')
        return items;
    int depth = 0;
    std::size_t start = 1;
    for (std::size_t i = 1; i + 1 < list.size();) {
        if (skipOpaque(list, i))
            continue;
        depth += list[i] == '(' ? 1 : list[i] == ')' ? -1 : 0;
        if (list[i] == ',' && depth == 0) {
            items.push_back(trimmed(list.substr(start, i - start)));
            start = i + 1;
        }
        ++i;
    }
    const std::string_view last = trimmed(list.substr(start, list.size() - 1 - start));
    if (!last.empty() || !items.empty())
        items.push_back(last);
    return items;
}

int ReferenceOf(std::string_view argument)
{
    int number = 0;
    if (argument.size() < 2 || argument.front() != '#')
        return 0;
    const auto [end, error] =
        std::from_chars(argument.data() + 1, argument.data() + argument.size(), number);
    return error == std::errc() && end == argument.data() + argument.size() ? number : 0;
}

double NumberOf(std::string_view argument)
{
    double number = 0.0;
    if (!argument.empty() && argument.front() == '+')
        argument.remove_prefix(1);
    const auto [end, error] =
        std::from_chars(argument.data(), argument.data() + argument.size(), number);
    return error == std::errc() ? number : 0.0;
}

std::string_view StringOf(std::string_view argument)
{
    if (argument.size() < 2 || argument.front() != '\'' || argument.back() != '\'')
        return {};
    return argument.substr(1, argument.size() - 2);
}

} // namespace OrvikCad
