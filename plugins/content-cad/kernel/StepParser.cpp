#include "kernel/StepParser.h"

#include "kernel/KernelWatch.h"
#include "kernel/StepScan.h"

#include <TambCommandsInfra/Progress.h>

#include <cstring>
#include <utility>

namespace OrvikCad {

namespace {

constexpr char kSubList[] = "/* (SUB) */"; ///< How the kernel names the type of a list.
constexpr char kNoIdent[] = "#0";
constexpr std::size_t kPollEntities = 1024;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isWord(char c)
{
    return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

} // namespace

StepParser::StepParser(std::string_view text)
    : m_text(std::make_unique_for_overwrite<char[]>(text.size() + 1)),
      m_at(m_text.get()),
      m_end(m_text.get() + text.size())
{
    std::memcpy(m_text.get(), text.data(), text.size());
    *m_end = '\0';
}

/// Ends the token before, now that the character behind it has been looked at.
void StepParser::endToken()
{
    if (m_tokenEnd)
        *m_tokenEnd = '\0';
    m_tokenEnd = nullptr;
}

void StepParser::skipBlanks()
{
    for (;;) {
        while (isBlank(*m_at))
            ++m_at;
        if (m_at[0] != '/' || m_at[1] != '*')
            return;
        char* const end = std::strstr(m_at + 2, "*/");
        m_at = end ? end + 2 : m_end;
    }
}

/// Takes one character, with blanks before it.
bool StepParser::take(char expected)
{
    skipBlanks();
    if (*m_at != expected)
        return false;
    endToken();
    ++m_at;
    return true;
}

bool StepParser::parseWord(std::string_view word)
{
    skipBlanks();
    if (std::string_view(m_at, static_cast<std::size_t>(m_end - m_at)).substr(0, word.size()) !=
        word)
        return false;
    m_at += word.size();
    return take(';');
}

bool StepParser::Parse()
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (std::string_view(m_at, static_cast<std::size_t>(m_end - m_at)).starts_with(kByteOrderMark))
        m_at += kByteOrderMark.size();
    return parseWord("ISO-10303-21") && parseHeader() && parseData() &&
           parseWord("END-ISO-10303-21");
}

bool StepParser::parseHeader()
{
    if (!parseWord("HEADER"))
        return false;
    while (!parseWord("ENDSEC")) {
        const char* type = nullptr;
        m_listCount = 0;
        if (!parseType(type) || !parseArguments())
            return false;
        closeList(kNoIdent, type, 0);
        if (!take(';'))
            return false;
    }
    m_headerRecords = m_records.size();
    return true;
}

bool StepParser::parseData()
{
    if (!parseWord("DATA"))
        return false;
    std::size_t count = 0;
    for (;;) {
        skipBlanks();
        if (*m_at != '#')
            return parseWord("ENDSEC");
        if (count++ % kPollEntities == 0) {
            PollJob();
            TambCommandsInfra::Progress::Instance().Report(
                static_cast<double>(m_at - m_text.get()) /
                static_cast<double>(m_end - m_text.get()));
        }
        const char* const ident = m_at++;
        while (isDigit(*m_at))
            ++m_at;
        m_tokenEnd = m_at;
        if (m_at == ident + 1 || !take('=') || !parseEntity(ident) || !take(';'))
            return false;
    }
}

/// Reads TYPE(...), or (TYPE(...) TYPE(...)) for an entity of several types.
bool StepParser::parseEntity(const char* ident)
{
    const bool isComplex = take('(');
    for (bool isFirst = true;; isFirst = false) {
        const char* type = nullptr;
        m_listCount = 0;
        if (!parseType(type) || !parseArguments())
            return false;
        closeList(isFirst ? ident : kNoIdent, type, 0);
        if (!isComplex)
            return true;
        if (take(')'))
            return true;
    }
}

bool StepParser::parseType(const char*& type)
{
    skipBlanks();
    type = m_at;
    while (isWord(*m_at))
        ++m_at;
    m_tokenEnd = m_at;
    return m_at != type;
}

/// Reads a list in brackets; its arguments stay pending.
bool StepParser::parseArguments()
{
    if (!take('(') || ++m_depth > kMaxStepNesting)
        return false;
    ++m_listCount;
    if (!take(')')) {
        do {
            if (!parseArgument())
                return false;
        } while (take(','));
        if (!take(')'))
            return false;
    }
    --m_depth;
    return true;
}

bool StepParser::parseArgument()
{
    skipBlanks();
    const char first = *m_at;
    if (first == '(' || (isWord(first) && !isDigit(first))) {
        const char* type = kSubList;
        if (first != '(' && !parseType(type))
            return false;
        const char* const ident = subListIdent(m_listCount);
        const std::size_t firstPending = m_pending.size();
        if (!parseArguments())
            return false;
        closeList(ident, type, firstPending);
        m_pending.push_back({ident, Interface_ParamSub});
        return true;
    }
    switch (first) {
    case '#':
        m_pending.push_back({m_at++, Interface_ParamIdent});
        while (isDigit(*m_at))
            ++m_at;
        m_tokenEnd = m_at;
        return m_at - m_pending.back().value > 1;
    case '$':
    case '*':
        m_pending.push_back({m_at++, first == '$' ? Interface_ParamVoid : Interface_ParamMisc});
        m_tokenEnd = m_at;
        return true;
    case '\'':
        return parseText();
    case '"':
        return parseUntil('"', Interface_ParamHexa);
    case '.':
        return isDigit(m_at[1]) ? parseNumber() : parseUntil('.', Interface_ParamEnum);
    default:
        return parseNumber();
    }
}

bool StepParser::parseNumber()
{
    char* const first = m_at;
    if (*m_at == '-' || *m_at == '+')
        ++m_at;
    const char* const digits = m_at;
    bool isReal = false;
    for (; isDigit(*m_at) || (*m_at == '.' && !isReal); ++m_at)
        isReal = isReal || *m_at == '.';
    if (m_at == digits || (isReal && m_at == digits + 1))
        return false;
    if (*m_at == 'E') {
        ++m_at;
        if (*m_at == '-' || *m_at == '+')
            ++m_at;
        if (!isReal || !isDigit(*m_at))
            return false;
        while (isDigit(*m_at))
            ++m_at;
    }
    m_pending.push_back({first, isReal ? Interface_ParamReal : Interface_ParamInteger});
    m_tokenEnd = m_at;
    return true;
}

/// Reads a text in quotes; two quotes stand for one of the text.
bool StepParser::parseText()
{
    char* const first = m_at++;
    for (;;) {
        m_at = static_cast<char*>(std::memchr(m_at, '\'', static_cast<std::size_t>(m_end - m_at)));
        if (!m_at) {
            m_at = m_end;
            return false;
        }
        ++m_at;
        if (*m_at != '\'')
            break;
        ++m_at;
    }
    // A zero inside would end the text early.
    if (std::memchr(first, '\0', static_cast<std::size_t>(m_at - first)))
        return false;
    m_pending.push_back({first, Interface_ParamText});
    m_tokenEnd = m_at;
    return true;
}

/// Reads a word between two equal characters.
bool StepParser::parseUntil(char end, Interface_ParamType type)
{
    char* const first = m_at++;
    while (isWord(*m_at))
        ++m_at;
    if (*m_at != end || m_at == first + 1)
        return false;
    ++m_at;
    m_pending.push_back({first, type});
    m_tokenEnd = m_at;
    return true;
}

/// Makes a record of the arguments that have been pending since the list began.
void StepParser::closeList(const char* ident, const char* type, std::size_t firstPending)
{
    const auto first = static_cast<std::uint32_t>(m_arguments.size());
    m_arguments.insert(m_arguments.end(),
                       m_pending.begin() + static_cast<std::ptrdiff_t>(firstPending),
                       m_pending.end());
    m_pending.resize(firstPending);
    m_records.push_back(
        {ident, type, first, static_cast<std::uint32_t>(m_arguments.size()) - first});
}

const char* StepParser::subListIdent(std::uint32_t number)
{
    while (m_subListIdents.size() <= number)
        m_subListIdents.push_back("$" + std::to_string(m_subListIdents.size()));
    return m_subListIdents[number].c_str();
}

Handle(StepData_StepReaderData) StepParser::Release(Resource_FormatType codePage)
{
    const Handle(StepData_StepReaderData) data = new StepData_StepReaderData(
        static_cast<int>(m_headerRecords), static_cast<int>(m_records.size()),
        static_cast<int>(m_arguments.size()), codePage);
    int number = 0;
    for (const Record& record : m_records) {
        if (static_cast<std::size_t>(number) % kPollEntities == 0)
            PollJob();
        data->SetRecord(++number, record.ident, record.type, record.argumentCount > 0 ? 1 : 0);
        for (std::uint32_t i = 0; i < record.argumentCount; ++i) {
            const Argument& argument = m_arguments[record.firstArgument + i];
            data->AddStepParam(number, argument.value, argument.type);
        }
        data->InitParams(number);
    }
    std::vector<Record>().swap(m_records);
    std::vector<Argument>().swap(m_arguments);
    return data;
}

} // namespace OrvikCad
