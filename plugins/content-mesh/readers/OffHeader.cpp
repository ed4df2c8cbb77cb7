#include "readers/OffHeader.h"

#include "readers/LineScan.h"
#include "readers/ReaderTexts.h"

#include <bit>
#include <cstring>
#include <limits>

namespace OrvikMesh {

namespace {

/// Fewest bytes of a vertex of a text: three digits, two blanks, a line end.
constexpr std::uint64_t kFewestTextBytes = 6;
constexpr std::uint64_t kBinaryBytes = 12;
constexpr std::int64_t kMaxCount = std::numeric_limits<std::int64_t>::max() / 16;

class OffHeaderParser
{
public:
    OffHeaderParser(std::string_view content, OffHeader& header, ReadMessages& messages)
        : m_content(content),
          m_header(header),
          m_messages(messages),
          m_at(content.data()),
          m_end(content.data() + content.size())
    {
    }

    bool Run()
    {
        return readKeyword() && (m_header.isBinary ? readBinaryCounts() : readTextCounts()) &&
               checkCounts();
    }

private:
    bool fail(const std::wstring& reason)
    {
        const auto offset = static_cast<std::uint64_t>(m_at - m_content.data());
        m_messages.Fail(reason, ReadPlace::Line(LineAt(m_content, offset)));
        return false;
    }
    bool take(std::string_view word)
    {
        if (std::string_view(m_at, static_cast<std::size_t>(m_end - m_at)).substr(0, word.size()) !=
            word)
            return false;
        m_at += word.size();
        return true;
    }
    bool atWordEnd() const { return AtLineEnd(m_at, m_end) || IsBlank(*m_at) || *m_at == '#'; }

    bool readKeyword();
    bool readCount(std::uint64_t& count);
    bool readTextCounts();
    bool readBinaryCounts();
    bool checkCounts();

    std::string_view m_content;
    OffHeader& m_header;
    ReadMessages& m_messages;
    const char* m_at;
    const char* m_end;
    bool m_hasDimension = false;
};

/// Goes past the keyword, where there is one.
bool OffHeaderParser::readKeyword()
{
    m_at = SkipToRow(m_at, m_end, '#');
    if (m_at < m_end && *m_at >= '0' && *m_at <= '9' && *m_at != '4')
        return true;
    const char* begin = m_at;
    m_header.hasTexture = take("ST");
    m_header.hasColors = take("C");
    m_header.hasNormals = take("N");
    m_header.isHomogeneous = take("4");
    m_hasDimension = take("n");
    if (!take("OFF") || !atWordEnd()) {
        m_at = begin;
        m_header = OffHeader();
        m_hasDimension = false;
        return (m_at < m_end && *m_at == '4') || fail(kOffNotOff);
    }
    m_at = SkipBlanks(m_at, m_end);
    m_header.isBinary = take("BINARY");
    if (m_header.isBinary)
        m_at = NextLine(m_at, m_end);
    return true;
}

/// Reads a count, on this line or one that follows.
bool OffHeaderParser::readCount(std::uint64_t& count)
{
    m_at = SkipToRow(m_at, m_end, '#');
    std::int64_t value = 0;
    const char* next = ScanDigits(m_at, m_end, kMaxCount, value);
    if (next == m_at)
        return fail(kOffNoCounts);
    m_at = next;
    if (!atWordEnd())
        return fail(kOffNoCounts);
    count = static_cast<std::uint64_t>(value);
    return true;
}

bool OffHeaderParser::readTextCounts()
{
    std::uint64_t dimension = 3;
    if (m_hasDimension && !readCount(dimension))
        return false;
    if (dimension != 3)
        return fail(FillText(kOffDimension, {std::to_wstring(dimension)}));
    // The number of edges, which means nothing, is passed over with the rest of the line.
    return readCount(m_header.vertices) && readCount(m_header.faces);
}

bool OffHeaderParser::readBinaryCounts()
{
    std::uint32_t counts[4] = {};
    const std::size_t bytes = m_hasDimension ? 16 : 12;
    if (static_cast<std::size_t>(m_end - m_at) < bytes)
        return fail(kOffNoCounts);
    std::memcpy(counts, m_at, bytes);
    for (std::uint32_t& count : counts)
        count = __builtin_bswap32(count);
    if (m_hasDimension && counts[0] != 3)
        return fail(FillText(kOffDimension, {std::to_wstring(counts[0])}));
    m_header.vertices = counts[m_hasDimension ? 1 : 0];
    m_header.faces = counts[m_hasDimension ? 2 : 1];
    m_at += bytes;
    return true;
}

bool OffHeaderParser::checkCounts()
{
    const auto left = static_cast<std::uint64_t>(m_end - m_at);
    const std::uint64_t most =
        m_header.isBinary ? left / kBinaryBytes : (left + 1) / kFewestTextBytes;
    if (m_header.vertices > most)
        return fail(FillText(
            kOffTooMany, {std::to_wstring(m_header.vertices), std::to_wstring(m_header.faces)}));
    if (!m_header.isBinary)
        m_at = NextLine(m_at, m_end);
    m_header.end = static_cast<std::size_t>(m_at - m_content.data());
    return true;
}

} // namespace

bool ReadOffHeader(std::string_view content, OffHeader& header, ReadMessages& messages)
{
    return OffHeaderParser(content, header, messages).Run();
}

} // namespace OrvikMesh
