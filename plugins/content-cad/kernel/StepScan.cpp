#include "kernel/StepScan.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>

namespace OrvikCad {

namespace {

constexpr std::string_view kFirstWord = "ISO-10303-21";
constexpr std::string_view kLastWord = "END-ISO-10303-21";
constexpr std::string_view kData = "DATA";
constexpr std::string_view kEndOfSection = "ENDSEC";

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// Takes blanks and comments off the front.
std::string_view trimmed(std::string_view text)
{
    for (;;) {
        while (!text.empty() && isBlank(text.front()))
            text.remove_prefix(1);
        if (text.substr(0, 2) != "/*")
            return text;
        const std::size_t end = text.find("*/", 2);
        if (end == std::string_view::npos)
            return {};
        text.remove_prefix(end + 2);
    }
}

/// Walks over the statements of a file.
class Walk
{
public:
    Walk(std::string_view text, StepScan& scan) : m_text(text), m_scan(scan) {}

    void Run()
    {
        while (m_at < m_text.size() && m_scan.tooDeepLine == 0 && !m_scan.isComplete)
            step();
    }

    bool IsInData() const { return m_isInData; }

private:
    void step()
    {
        switch (m_text[m_at]) {
        case '\'':
            skipTo("'", 1);
            return;
        case '/':
            if (m_text.substr(m_at, 2) == "/*")
                skipTo("*/", 2);
            else
                ++m_at;
            return;
        case '(':
            if (++m_depth > kMaxStepNesting)
                m_scan.tooDeepLine = LineOf(m_text, m_at);
            break;
        case ')':
            if (m_depth > 0)
                --m_depth;
            break;
        case ';':
            endStatement();
            break;
        default:
            break;
        }
        ++m_at;
    }

    /// Goes behind the next @p end; to the end of the file where there is none.
    void skipTo(std::string_view end, std::size_t from)
    {
        const std::size_t found = m_text.find(end, m_at + from);
        m_at = found == std::string_view::npos ? m_text.size() : found + end.size();
    }

    void endStatement()
    {
        const std::string_view statement = trimmed(m_text.substr(m_statement, m_at - m_statement));
        // A statement ends the brackets that it left open, as the kernel's reader sees it.
        m_depth = 0;
        m_statement = m_at + 1;
        m_scan.usableBytes = m_statement;
        if (statement == kLastWord)
            m_scan.isComplete = true;
        else if (statement == kEndOfSection)
            m_isInData = false;
        else if (statement.substr(0, kData.size()) == kData &&
                 statement.find('=') == statement.npos)
            m_isInData = m_scan.hasData = true;
    }

    std::string_view m_text;
    StepScan& m_scan;
    std::size_t m_at = 0;
    std::size_t m_statement = 0; ///< Where the present statement begins.
    unsigned m_depth = 0;
    bool m_isInData = false;
};

} // namespace

StepScan ScanStep(std::string_view text)
{
    StepScan scan;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        text.remove_prefix(kByteOrderMark.size());
    scan.isStep = trimmed(text).substr(0, kFirstWord.size()) == kFirstWord;
    if (!scan.isStep)
        return scan;
    Walk walk(text, scan);
    walk.Run();
    if (!scan.isComplete) {
        if (walk.IsInData())
            scan.tail += std::string(kEndOfSection) + ";";
        scan.tail += std::string(kLastWord) + ";\n";
    }
    scan.isUtf8 = OrvikOs::IsValidUtf8(text);
    return scan;
}

std::uint64_t LineOf(std::string_view text, std::size_t offset)
{
    return 1 + static_cast<std::uint64_t>(std::count(
                   text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n'));
}

} // namespace OrvikCad
