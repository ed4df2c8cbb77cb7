#include "readers/PcdHeader.h"

#include "readers/ReaderTexts.h"

#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <charconv>
#include <limits>

namespace OrvikMesh {

namespace {

/// More values or bytes of one point are damage.
constexpr std::uint64_t kMaxRowBytes = 1u << 30;
/// More fields are damage, too.
constexpr std::size_t kMaxFields = 4096;
/// Letters of a word that a message repeats.
constexpr std::size_t kMaxShownLetters = 64;

constexpr std::string_view kKeywords[] = {"VERSION",   "FIELDS", "COLUMNS", "SIZE",
                                          "TYPE",      "COUNT",  "WIDTH",   "HEIGHT",
                                          "VIEWPOINT", "POINTS", "DATA"};

std::optional<ScalarType> scalarType(char letter, std::uint64_t bytes)
{
    if (letter == 'F')
        return bytes == 8 ? ScalarType::Float64 : ScalarType::Float32;
    if (bytes == 8)
        return std::nullopt;
    const bool isSigned = letter == 'I';
    if (bytes == 1)
        return isSigned ? ScalarType::Int8 : ScalarType::UInt8;
    if (bytes == 2)
        return isSigned ? ScalarType::Int16 : ScalarType::UInt16;
    return isSigned ? ScalarType::Int32 : ScalarType::UInt32;
}

bool isSize(std::uint64_t bytes, char letter)
{
    return bytes == 4 || bytes == 8 || (letter != 'F' && (bytes == 1 || bytes == 2));
}

class PcdHeaderParser
{
public:
    PcdHeaderParser(std::string_view content, PcdHeader& header, ReadMessages& messages)
        : m_content(content), m_header(header), m_messages(messages)
    {
    }

    bool Run();

private:
    using Words = std::vector<std::string_view>;

    bool nextLine();
    bool readLine();
    bool readNumber(std::string_view word, std::uint64_t& number);
    bool readNumbers(std::vector<std::uint64_t>& numbers);
    bool readOne(std::uint64_t& number);
    bool readFormat();
    bool makeFields();
    bool countPoints();
    bool fail(std::wstring_view reason)
    {
        m_messages.Fail(reason, ReadPlace::Line(m_lineNumber));
        return false;
    }

    std::string_view m_content;
    PcdHeader& m_header;
    ReadMessages& m_messages;
    std::size_t m_at = 0;
    std::uint64_t m_lineNumber = 0;
    Words m_words; ///< Of the line in hand.
    std::vector<std::uint64_t> m_sizes;
    std::vector<std::uint64_t> m_counts;
    std::string m_types;
    std::optional<std::uint64_t> m_width;
    std::optional<std::uint64_t> m_points;
    bool m_hasData = false;
};

/// Splits the next line into words. @return false at the end of the file.
bool PcdHeaderParser::nextLine()
{
    if (m_at >= m_content.size())
        return false;
    const std::size_t end = std::min(m_content.find('\n', m_at), m_content.size());
    std::string_view line = m_content.substr(m_at, end - m_at);
    m_at = std::min(end + 1, m_content.size());
    ++m_lineNumber;
    m_words.clear();
    while (!line.empty()) {
        const std::size_t begin = std::min(line.find_first_not_of(" \t\r"), line.size());
        const std::size_t wordEnd = std::min(line.find_first_of(" \t\r", begin), line.size());
        if (wordEnd > begin && m_words.size() <= kMaxFields + 1)
            m_words.push_back(line.substr(begin, wordEnd - begin));
        line.remove_prefix(wordEnd);
    }
    return true;
}

bool PcdHeaderParser::readNumber(std::string_view word, std::uint64_t& number)
{
    const char* end = word.data() + word.size();
    const auto parsed = std::from_chars(word.data(), end, number);
    return (parsed.ec == std::errc() && parsed.ptr == end) || fail(kPcdBadNumber);
}

bool PcdHeaderParser::readNumbers(std::vector<std::uint64_t>& numbers)
{
    numbers.resize(m_words.size() - 1);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (!readNumber(m_words[i + 1], numbers[i]))
            return false;
    return true;
}

bool PcdHeaderParser::readOne(std::uint64_t& number)
{
    return m_words.size() == 2 ? readNumber(m_words[1], number) : fail(kPcdBadNumber);
}

bool PcdHeaderParser::readFormat()
{
    const std::string_view word = m_words.size() > 1 ? m_words[1] : std::string_view();
    m_hasData = true;
    if (word == "ascii")
        m_header.format = PcdFormat::Text;
    else if (word == "binary")
        m_header.format = PcdFormat::Binary;
    else if (word == "binary_compressed")
        m_header.format = PcdFormat::Compressed;
    else
        return fail(
            FillText(kPcdBadFormat, {OrvikOs::Utf8ToWide(word.substr(0, kMaxShownLetters))}));
    return true;
}

bool PcdHeaderParser::readLine()
{
    const std::string_view keyword = m_words[0];
    if (std::find(std::begin(kKeywords), std::end(kKeywords), keyword) == std::end(kKeywords))
        return fail(kPcdNotPcd);
    std::uint64_t number = 0;
    if (keyword == "FIELDS" || keyword == "COLUMNS") {
        m_header.fields.clear();
        for (std::size_t i = 1; i < m_words.size(); ++i)
            m_header.fields.emplace_back().name = m_words[i];
    } else if (keyword == "SIZE") {
        return readNumbers(m_sizes);
    } else if (keyword == "COUNT") {
        return readNumbers(m_counts);
    } else if (keyword == "TYPE") {
        m_types.clear();
        for (std::size_t i = 1; i < m_words.size(); ++i)
            m_types += m_words[i].size() == 1 ? m_words[i][0] : '?';
    } else if (keyword == "WIDTH" && readOne(number)) {
        m_width = number;
    } else if (keyword == "HEIGHT" && readOne(number)) {
        m_header.height = number;
    } else if (keyword == "POINTS" && readOne(number)) {
        m_points = number;
    } else if (keyword == "DATA") {
        return readFormat();
    }
    return !m_messages.HasError();
}

bool PcdHeaderParser::makeFields()
{
    std::vector<PcdField>& fields = m_header.fields;
    if (fields.size() > kMaxFields)
        return fail(kPcdBadField);
    if (m_sizes.size() != fields.size() || m_types.size() != fields.size() ||
        (!m_counts.empty() && m_counts.size() != fields.size()))
        return fail(kPcdFieldLines);
    std::uint64_t columns = 0;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        PcdField& field = fields[i];
        const char letter = m_types[i];
        field.bytes = m_sizes[i];
        field.count = m_counts.empty() ? 1 : m_counts[i];
        if ((letter != 'F' && letter != 'I' && letter != 'U') || !isSize(field.bytes, letter) ||
            field.count > kMaxRowBytes)
            return fail(kPcdBadField);
        field.type = scalarType(letter, field.bytes);
        field.offset = m_header.rowBytes;
        field.firstColumn = columns;
        m_header.rowBytes += field.bytes * field.count;
        columns += field.count;
        if (m_header.rowBytes > kMaxRowBytes)
            return fail(kPcdBadField);
    }
    for (const char* name : {"x", "y", "z"}) {
        const PcdField* field = m_header.Find(name);
        if (!field || !field->type)
            return fail(kPcdNoXyz);
    }
    return true;
}

bool PcdHeaderParser::countPoints()
{
    const std::uint64_t width = m_width.value_or(0);
    if (m_header.height > 0 && width > std::numeric_limits<std::uint64_t>::max() / m_header.height)
        return fail(kPcdBadNumber);
    const std::uint64_t area = width * m_header.height;
    if (!m_points && !m_width)
        return fail(kPcdNoCount);
    m_header.points = m_points.value_or(area);
    if (m_points && m_width && *m_points != area)
        m_messages.Warn(
            FillText(kPcdTwoCounts, {std::to_wstring(*m_points), std::to_wstring(area)}));
    return true;
}

bool PcdHeaderParser::Run()
{
    while (!m_hasData && nextLine())
        if (!m_words.empty() && m_words[0][0] != '#' && !readLine())
            return false;
    m_header.end = m_at;
    if (!m_hasData)
        return fail(m_lineNumber > 0 && !m_header.fields.empty() ? kPcdNoData : kPcdNotPcd);
    return makeFields() && countPoints();
}

} // namespace

const PcdField* PcdHeader::Find(std::string_view name) const
{
    const auto found = std::find_if(fields.begin(), fields.end(), [name](const PcdField& field) {
        return field.name == name && field.count == 1;
    });
    return found == fields.end() ? nullptr : &*found;
}

bool ReadPcdHeader(std::string_view content, PcdHeader& header, ReadMessages& messages)
{
    return PcdHeaderParser(content, header, messages).Run();
}

} // namespace OrvikMesh
