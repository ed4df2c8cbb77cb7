#include "kernel/StepScan.h"

#include "interface/CadMessages.h"
#include "interface/CadTexts.h"
#include "kernel/KernelWatch.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>
#include <vector>

namespace OrvikCad {

namespace {

/// The kernel keeps numbers in 32 bits with a sign.
constexpr std::uint64_t kMaxNumber = 2147483647;

constexpr std::size_t kPollEntities = 4096;

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
        while (m_at < m_text.size() && m_scan.refusedLine == 0 && !m_scan.isComplete)
            step();
        refuseTwins();
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
                refuse(m_at, FillText(kStepNesting, {std::to_wstring(kMaxStepNesting)}));
            break;
        case ')':
            if (m_depth > 0)
                --m_depth;
            break;
        case ';':
            endStatement();
            break;
        case '&':
            refuse(m_at, kStepScope);
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
        else if (statement.starts_with('#'))
            takeEntity(statement);
        else if (statement.substr(0, kData.size()) == kData &&
                 statement.find('=') == statement.npos)
            m_isInData = m_scan.hasData = true;
    }

    void refuse(std::size_t at, std::wstring reason)
    {
        m_scan.refusedLine = LineOf(m_text, at);
        m_scan.refusal = std::move(reason);
    }

    /// Keeps the number of an entity.
    void takeEntity(std::string_view statement)
    {
        std::uint64_t number = 0;
        const auto [end, error] =
            std::from_chars(statement.data() + 1, statement.data() + statement.size(), number);
        const auto at = static_cast<std::size_t>(statement.data() - m_text.data());
        if (error == std::errc::result_out_of_range || number > kMaxNumber)
            refuse(at, FillText(kStepNumber, {std::to_wstring(kMaxNumber)}));
        else if (error == std::errc())
            m_entities.push_back({number, at});
        if (m_entities.size() % kPollEntities == 0)
            PollJob();
    }

    /// In most files the numbers rise; then nothing has to be sorted.
    void refuseTwins()
    {
        const auto byNumber = [](const Entity& a, const Entity& b) { return a.number < b.number; };
        if (!std::is_sorted(m_entities.begin(), m_entities.end(), byNumber))
            std::stable_sort(m_entities.begin(), m_entities.end(), byNumber);
        const auto twin = std::adjacent_find(
            m_entities.begin(), m_entities.end(),
            [](const Entity& a, const Entity& b) { return a.number == b.number; });
        if (twin != m_entities.end() && m_scan.refusedLine == 0)
            refuse((twin + 1)->at, FillText(kStepTwice, {std::to_wstring(twin->number)}));
    }

    /// A numbered statement.
    struct Entity
    {
        std::uint64_t number;
        std::size_t at;
    };

    std::string_view m_text;
    StepScan& m_scan;
    std::vector<Entity> m_entities;
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
